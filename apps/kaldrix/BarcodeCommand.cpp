#include "apps/kaldrix/BarcodeCommand.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/ZOR.Barcode.hpp"
#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/types/BarTypeNames.hpp"

namespace Zor::Program {

namespace {

/// The types beside the linear ones.
struct TMatrixType {
  std::string_view word;
  TZORItemType item;
};
constexpr std::array<TMatrixType, 3> MatrixTypes{
    {{"qr", itQRCode}, {"datamatrix", itDataMatrix}, {"pdf417", itPDF417}}};

template <class TTable>
auto FindWord(const TTable& aTable, const std::string& aWord) {
  return std::find_if(aTable.begin(), aTable.end(), [&](const auto& row) { return row.word == aWord; });
}

std::vector<std::string> TypeWords() {
  std::vector<std::string> words;
  for (const TBarTypeName& row : BarTypeNames) words.emplace_back(row.word);
  for (const TMatrixType& row : MatrixTypes) words.emplace_back(row.word);
  return words;
}

/// The label becomes as large as the symbol with its quiet zone.
void FitLabel(TKDXLabel& aDocument, const TKDXBaseItem& aItem) {
  TKDXMeasure& measure = *aDocument.fMeasure;
  const auto length = [](Int64 aBase) { return static_cast<int>(std::clamp<Int64>(aBase, 1, INT32_MAX)); };
  measure.fWidth = length(aItem.fBoundsRect.GetWidth());
  measure.fHeight = length(aItem.fBoundsRect.GetHeight());
}

}  // namespace

BarcodeCommand::BarcodeCommand(CLI::App& aProgram) : Command(aProgram, "barcode", "Write one barcode") {
  Options().add_option("type", fType, "What kind of barcode")->required()->check(CLI::IsMember(TypeWords()));
  Options().add_option("text", fText, "What it says; - reads standard input")->required();
  fOutput.AddOptions(Options(), true);
  constexpr double least = 0.01, largest = 1000;
  Options()
      .add_option("--module", fModule, "Width of a narrow bar or of a module in millimetres")
      ->check(CLI::Range(least, largest));
  Options()
      .add_option("--height", fHeight, "Height of the bars, or of a row of PDF417, in millimetres")
      ->check(CLI::Range(least, largest));
  Options().add_flag("--no-text", fNoText, "No text below the bars");
  Options().add_flag("--check", fCheck, "Add the check digit of the symbology");
  Options()
      .add_option("--dpi", fDpi, "Dots per inch of a PNG")
      ->check(CLI::Range(1.0, 9600.0))
      ->capture_default_str();
  Options().parse_complete_callback([this] { fOutput.Format(); });
}

template <class TItem>
TItem& BarcodeCommand::Make(TKDXLabel& aDocument, TZORItemType aType) const {
  auto& item = static_cast<TItem&>(*aDocument.NewItemOfType(aType, false));
  if (fModule > 0) item.SetBarWidth(fModule);
  if (fHeight > 0) item.SetBarHeight(fHeight);
  return item;
}

TKDXBaseItem& BarcodeCommand::MakeSymbol(TKDXLabel& aDocument, const std::string& aText) const {
  if (const auto* matrix = FindWord(MatrixTypes, fType); matrix != MatrixTypes.end()) {
    auto& item = Make<TModuleItem>(aDocument, matrix->item);
    if (fModule > 0 && fHeight == 0 && matrix->item != itPDF417) item.SetBarHeight(fModule);
    item.SetCode(aText);
    return item;
  }
  auto& item = Make<TKDXBaseBarcode>(aDocument, itBarcode);
  item.SetCodeType(static_cast<TZORBarType>(FindWord(BarTypeNames, fType) - BarTypeNames.begin()));
  item.SetCheckSum(fCheck);
  item.SetShowNumber(!fNoText);
  item.SetCode(aText);
  return item;
}

void BarcodeCommand::CheckHeld(const TKDXBaseItem& aItem, const std::string& aText) const {
  const std::string problem = aItem.ValueProblem();
  if (!problem.empty()) throw Exception(fType + ": " + problem);
  // All but QR Code take a byte for a character.
  if (aItem.fItemType != itQRCode && ToUtf8(ToAnsi(aText)) != aText) {
    throw Exception(fType + ": '" + aText + "' has characters that the symbol cannot hold");
  }
}

int BarcodeCommand::Run() const {
  TKDXLabel document;
  std::string text = fText == "-" ? ReadInput("-") : fText;
  if (fText == "-" && text.ends_with('\n')) text.pop_back();
  TKDXBaseItem& item = MakeSymbol(document, text);
  document.CalcPending();
  CheckHeld(item, text);
  FitLabel(document, item);
  TExportOptions options;
  options.dpi = fDpi;
  fOutput.Write(document, options);
  return 0;
}

}  // namespace Zor::Program
