#include "apps/kaldrix/BarcodeCommand.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/ZOR.Barcode.hpp"
#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Format.hpp"
#include "kaldrix/platform/NameHints.hpp"
#include "kaldrix/platform/TextFile.hpp"
#include "kaldrix/platform/Utf8.hpp"
#include "kaldrix/utils/BarcodeReading.hpp"
#include "kaldrix/utils/ShownCode.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor::Program {

namespace {

std::string TypeProblem(const std::string& aWord) {
  if (FindBarcodeKind(aWord) != nullptr) return {};
  std::vector<std::string> words;
  for (const TBarcodeKind& kind : BarcodeKinds()) words.emplace_back(kind.word);
  return "there is no type " + ShownText(aWord) + NameHint(aWord, words);
}

std::string TypeWords() {
  std::string words;
  for (const TBarcodeKind& kind : BarcodeKinds()) (words += words.empty() ? "" : " ") += kind.word;
  return words;
}

/// The types whose check digit the engine lacks, or computes as no reader takes it.
bool HasOwnCheckDigit(TZORBarType aType) { return aType == btUPCE0 || aType == btPOSTNET; }

/// A text that begins with a dash is taken for an option.
std::string DashHint(const CLI::App& aProgram, const CLI::Error& aError) {
  std::string message = CLI::FailureMessage::simple(&aProgram, aError);
  const std::vector<std::string> others = aProgram.remaining(true);
  const bool dash = std::any_of(others.begin(), others.end(),
                                [](const std::string& word) { return word.starts_with('-'); });
  if (dash)
    message += "A text that begins with a dash stands last, behind --: barcode TYPE -o FILE -- TEXT\n";
  return message;
}

/// What the standards leave blank around a symbol, in modules.
struct TQuietZone {
  TZORItemType item;
  Single sides, ends;  ///< left and right; above and below
};
constexpr std::array<TQuietZone, 4> QuietZones{
    {{itBarcode, 10, 0}, {itQRCode, 4, 4}, {itDataMatrix, 1, 1}, {itPDF417, 2, 2}}};

/// Items have a fixed one, which is too small for large modules.
void WidenQuietZone(TBarItem& aItem, TZORItemType aType) {
  const auto* const zone = std::find_if(QuietZones.begin(), QuietZones.end(),
                                        [=](const TQuietZone& aZone) { return aZone.item == aType; });
  const Single module = aItem.GetBarWidth();
  aItem.SetPaddingX(std::max(aItem.GetPaddingX(), zone->sides * module));
  aItem.SetPaddingY(std::max(aItem.GetPaddingY(), zone->ends * module));
}

/// Items raise what is below their least. Raises CLI::ValidationError for it.
void CheckTaken(const std::string& aOption, Single aAsked, Single aTaken) {
  constexpr Single rounding = 0.0006F;  // lengths are held in thousandths
  if (aTaken <= aAsked + rounding) return;
  throw CLI::ValidationError(aOption, FormatFloat("0.###", double{aAsked}) +
                                          " mm are below the least of the type, " +
                                          FormatFloat("0.###", double{aTaken}) + " mm");
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
  Options()
      .add_option("type", fType, "What kind of barcode: " + TypeWords())
      ->required()
      ->check(CLI::Validator(TypeProblem, ""));
  Options().add_option("text", fText, "What it says; - reads standard input")->required();
  fOutput.AddOptions(Options(), true);
  AddLookOptions();
  AddTextOptions();
  Options().parse_complete_callback([this] {
    fOutput.Format();
    CheckUse();
  });
  aProgram.failure_message([this, &aProgram](const CLI::App* app, const CLI::Error& error) {
    return IsChosen() ? DashHint(aProgram, error) : CLI::FailureMessage::simple(app, error);
  });
}

void BarcodeCommand::AddLookOptions() {
  constexpr double least = 0.01, largest = 1000;
  Options()
      .add_option("--module", fModule, "Width of a narrow bar or of a module in millimetres")
      ->check(Between(least, largest));
  Options()
      .add_option("--height", fHeight, "Height of the bars, or of a row of PDF417, in millimetres")
      ->check(Between(least, largest));
  Options().add_flag("--no-text", fNoText, "No text below the bars");
  Options()
      .add_option("--dpi", fDpi, "Dots per inch of a PNG")
      ->check(Between(1, 9600))
      ->capture_default_str();
}

void BarcodeCommand::AddTextOptions() {
  Options().add_flag("--check", fCheck, "Add the check digit of the symbology");
  Options().add_flag("--pad", fPad, "Zeros may be put in front of a short text");
  Options().add_flag("--gs1", fGs1,
                     "The text of a Data Matrix has GS1 application identifiers in parentheses");
  Options().add_flag("--escapes", fEscapes, "A backslash in the text of a PDF417 begins an escape");
}

void BarcodeCommand::CheckUse() const {
  const TBarcodeKind& kind = Kind();
  const bool linear = kind.IsLinear();
  const auto refuse = [&](bool aGiven, bool aWorks, const char* aOption, const char* aWhy) {
    if (aGiven && !aWorks)
      throw CLI::ValidationError(aOption, "does nothing for " + std::string(kind.word) + aWhy);
  };
  refuse(fHeight > 0, linear || kind.item == itPDF417, "--height",
         ": its modules are squares, as wide as --module says");
  refuse(fNoText, linear, "--no-text", "");
  refuse(fCheck, linear && (TakesCheckSum(kind.type) || HasOwnCheckDigit(kind.type)), "--check", "");
  refuse(fPad, linear && TakesPadding(kind.type, fCheck), "--pad", "");
  refuse(fGs1, kind.item == itDataMatrix, "--gs1", "");
  refuse(fEscapes, kind.item == itPDF417, "--escapes", "");
}

template <class TItem>
TItem& BarcodeCommand::Make(TKDXLabel& aDocument) const {
  auto& item = static_cast<TItem&>(*aDocument.NewItemOfType(Kind().item, false));
  if (fModule > 0) {
    item.SetBarWidth(fModule);
    CheckTaken("--module", fModule, item.GetBarWidth());
  }
  if (fHeight > 0) {
    item.SetBarHeight(fHeight);
    CheckTaken("--height", fHeight, item.GetBarHeight());
  }
  WidenQuietZone(item, Kind().item);
  return item;
}

TKDXBaseItem& BarcodeCommand::MakeLinear(TKDXLabel& aDocument, const std::string& aText) const {
  auto& item = Make<TKDXBaseBarcode>(aDocument);
  aDocument.fPrintInfo->fPadCodes = fPad;
  item.SetCodeType(Kind().type);
  item.SetCheckSum(fCheck && !HasOwnCheckDigit(Kind().type));
  item.SetShowNumber(!fNoText);
  item.SetCode(Completed(aText));
  return item;
}

std::string BarcodeCommand::Completed(std::string aText) const {
  const TZORBarType type = Kind().type;
  const std::size_t digits = DigitsOf(type);
  const bool own = fCheck && HasOwnCheckDigit(type);
  if (fPad && digits > 0) aText = TBarcode::AdjustZero(aText, fCheck ? digits - 1 : digits);
  return own ? aText + StandardCheckDigit(aText, type) : aText;
}

TKDXBaseItem& BarcodeCommand::MakeMatrix(TKDXLabel& aDocument, const std::string& aText) const {
  auto& item = Make<TModuleItem>(aDocument);
  if (fModule > 0 && Kind().item != itPDF417) item.SetBarHeight(fModule);
  if (auto* dataMatrix = dynamic_cast<TKDXBaseDataMatrix*>(&item)) dataMatrix->SetElementString(fGs1);
  std::string text;
  const bool doubled = Kind().item == itPDF417 && !fEscapes;
  for (const char c : aText) text.append(doubled && c == '\\' ? 2 : 1, c);
  item.SetCode(text);
  return item;
}

TKDXBaseItem& BarcodeCommand::MakeHeldSymbol(TKDXLabel& aDocument, const std::string& aText) const {
  const std::string word(Kind().word);
  try {
    // All but QR Code take a byte for a character.
    if (Kind().item != itQRCode && ToUtf8(ToAnsi(aText)) != aText)
      throw Exception(ShownText(aText) + " has characters that the symbol cannot hold");
    TKDXBaseItem& item = Kind().IsLinear() ? MakeLinear(aDocument, aText) : MakeMatrix(aDocument, aText);
    aDocument.CalcPending();
    const std::string problem = item.ValueProblem();
    if (!problem.empty()) throw Exception(problem);
    return item;
  } catch (const Exception& error) {
    throw Exception(word + ": " + error.what());
  }
}

int BarcodeCommand::Run() const {
  TKDXLabel document;
  std::string text = fText == "-" ? WithoutMark(ReadInput("-")) : fText;
  if (fText == "-" && text.ends_with('\n')) text.pop_back();
  if (text.empty() || !Utf8::IsValid(text)) {
    throw Exception(std::string(Kind().word) + ": there is no text" + (text.empty() ? "" : " in UTF-8"));
  }
  FitLabel(document, MakeHeldSymbol(document, text));
  TExportOptions options;
  options.dpi = fDpi;
  fOutput.Write(document, options);
  return 0;
}

}  // namespace Zor::Program
