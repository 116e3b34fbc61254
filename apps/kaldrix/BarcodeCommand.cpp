#include "apps/kaldrix/BarcodeCommand.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/ZOR.Barcode.hpp"
#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"
#include "kaldrix/types/BarTypeNames.hpp"
#include "kaldrix/utils/TBarcode.hpp"

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

/// The UPC-A code, without check digit, that the first seven digits of a UPC-E code stand for
/// (ISO/IEC 15420, 4.3.3).
std::string UpcAOf(const std::string& aCode) {
  const char last = aCode[6];
  if (last <= '2') return aCode.substr(0, 3) + last + "0000" + aCode.substr(3, 3);
  if (last == '3') return aCode.substr(0, 4) + "00000" + aCode.substr(4, 2);
  if (last == '4') return aCode.substr(0, 5) + "00000" + aCode.substr(5, 1);
  return aCode.substr(0, 6) + "0000" + last;
}

/// An article number with its check digit, which the last digit of a full code has to be; empty for other
/// symbologies and for shorter codes.
std::string ArticleCode(const std::string& aCode, TZORBarType aType) {
  if (aType != btEAN13 && aType != btEAN8 && aType != btUPCA && aType != btUPCE0) return {};
  constexpr std::array<std::size_t, 4> lengths{13, 8, 12, 8};  // by ordinal
  if (aCode.size() != lengths[aType]) return {};
  const std::string digits = aCode.substr(0, aCode.size() - 1);
  return digits + TBarcode::CheckSumMod(aType == btUPCE0 ? UpcAOf(digits) : digits, ctMod10).DC;
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
  if (!problem.empty()) throw Exception(problem);
  if (const auto* bars = dynamic_cast<const TKDXBaseBarcode*>(&aItem)) {
    const std::string right = ArticleCode(aText, bars->fCodeType);
    if (!right.empty() && right != aText)
      throw Exception("the check digit of '" + aText + "' is wrong: it would be " + right);
    // Its lower case would become upper case.
    if (bars->fCodeType == btCODE39 && UpperCase(aText) != aText)
      throw Exception("'" + aText + "' is no code of Code 39");
  }
  // All but QR Code take a byte for a character.
  if (aItem.fItemType != itQRCode && ToUtf8(ToAnsi(aText)) != aText) {
    throw Exception("'" + aText + "' has characters that the symbol cannot hold");
  }
}

TKDXBaseItem& BarcodeCommand::MakeHeldSymbol(TKDXLabel& aDocument, const std::string& aText) const {
  try {
    TKDXBaseItem& item = MakeSymbol(aDocument, aText);
    aDocument.CalcPending();
    CheckHeld(item, aText);
    return item;
  } catch (const Exception& error) {
    throw Exception(fType + ": " + error.what());
  }
}

int BarcodeCommand::Run() const {
  TKDXLabel document;
  std::string text = fText == "-" ? ReadInput("-") : fText;
  if (fText == "-" && text.ends_with('\n')) text.pop_back();
  if (text.empty() || !Utf8::IsValid(text)) {
    throw Exception(fType + ": there is no text" + (text.empty() ? "" : " in UTF-8"));
  }
  FitLabel(document, MakeHeldSymbol(document, text));
  TExportOptions options;
  options.dpi = fDpi;
  fOutput.Write(document, options);
  return 0;
}

}  // namespace Zor::Program
