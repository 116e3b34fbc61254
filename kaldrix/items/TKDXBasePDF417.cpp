#include "kaldrix/items/TKDXBasePDF417.hpp"

#include <algorithm>
#include <span>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/ShownCode.hpp"

namespace Zor::inline Barcode {

namespace {

constexpr TBarSizes Sizes{200, 260, 300, 600, 3000, 0, 0};
constexpr int CodewordCols = 17;  // modules

/// The bars of a pattern that begins with one, at a module column. Gives the column behind it.
int AddBars(std::vector<TModuleRun>& aRuns, std::span<const std::uint8_t> aWidths, int aCol, int aRow,
            int aRows) {
  bool bar = true;
  for (const int width : aWidths) {
    if (bar) aRuns.push_back({aCol, aRow, width, aRows});
    bar = !bar;
    aCol += width;
  }
  return aCol;
}

}  // namespace

TKDXBasePDF417::TKDXBasePDF417(TKDXBaseLabel& aOwner, bool aPreview)
    : TModuleItem(aOwner, itPDF417, Sizes, aPreview) {
  fCode = "PdfCode";
  TKDXBasePDF417::Encode();
}

TKDXBasePDF417::TKDXBasePDF417(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TModuleItem(aOwner, itPDF417, Sizes, aLayer, aPreview) {
  fCode = "PdfCode";
  TKDXBasePDF417::Encode();
}

// Symbol --------------------------------------------------------------------------------

void TKDXBasePDF417::Encode() {
  const AnsiString code = ToAnsi(fCode);
  const TCodeWords formerWords = fCodeWords;
  const int formerUsed = fUsedCWords;
  try {
    fCodeWords.fill(TPDF417::PadWord);
    const bool any = TPDF417::Encode(fCodeWords, code.Bytes());
    fUsedCWords = TPDF417::UsedCodeWords();
    if (any) {
      AdjustErrorLevel();
    } else {
      fXCount = 1;
      fYCount = 3;
    }
  } catch (...) {
    fCodeWords = formerWords;
    fUsedCWords = formerUsed;
    throw;
  }
  UpdateSize();
}

void TKDXBasePDF417::AdjustErrorLevel() {
  const int level = TPDF417::GetCorrecLevel(fCorrecLevel), checks = TPDF417::NumErrorCWords(level);
  std::int16_t cols = 0, rows = 0;
  TPDF417::AdjustSize(cols, rows, checks, fUsedCWords, fCols, fRows);
  const int words = int{cols} * rows - checks;
  fCodeWords[0] = static_cast<std::uint16_t>(words);
  TPDF417::CalculateECC(fCodeWords, words, checks);
  fErrorLevel = level;
  fNumErrorCWords = checks;
  fXCount = cols;
  fYCount = rows;
}

void TKDXBasePDF417::SetCols(int aValue) {
  Encoded(fCols, static_cast<std::int16_t>(std::clamp(aValue, 0, TPDF417::MaxCols)));
}
void TKDXBasePDF417::SetRows(int aValue) {
  Encoded(fRows, static_cast<std::int16_t>(std::clamp(aValue, 0, TPDF417::MaxRows)));
}

void TKDXBasePDF417::SetTruncated(bool aValue) {
  if (aValue == fTruncated) return;
  const TEdit edit(*this);
  fTruncated = aValue;
  StateUpdate();
}

std::string TKDXBasePDF417::Taken(const std::string& aText) const { return ToUtf8(ToAnsi(aText)); }

std::string TKDXBasePDF417::ReadingProblem(const std::string& aValue) const {
  if (TPDF417::GetValid(aValue) != aValue)
    return ShownText(aValue) + " has characters that the symbol cannot hold";
  // Whoever writes a code writes escapes on purpose; data knows none.
  const bool escapes = HasValue(*fOwner) && TPDF417::HasEscape(aValue);
  return escapes ? ShownText(aValue) + " has a backslash that begins an escape: two stand for one" : "";
}

int TKDXBasePDF417::ModuleCols() const {
  // The data columns stand between start, row indicators and stop, the last bar of which is a module more.
  const int others = fTruncated ? 2 : 4;
  return CodewordCols * (fXCount + others) + 1;
}

void TKDXBasePDF417::UpdateSize() { TakeSize(ModuleCols(), fYCount); }

void TKDXBasePDF417::FillRuns(std::vector<TModuleRun>& aRuns) const {
  if (!HasSymbol()) return;
  constexpr std::size_t barsOfWord = 4;
  aRuns.reserve(barsOfWord * static_cast<std::size_t>((fXCount + 2) * fYCount + 4));
  // Start and stop are as high as the symbol.
  AddBars(aRuns, TPDF417::StartPattern, 0, 0, fYCount);
  if (fTruncated) {
    aRuns.push_back({(fXCount + 2) * CodewordCols, 0, 1, fYCount});
  } else {
    AddBars(aRuns, TPDF417::StopPattern, (fXCount + 3) * CodewordCols, 0, fYCount);
  }
  for (int row = 0; row < fYCount; ++row) FillRow(aRuns, row);
}

void TKDXBasePDF417::FillRow(std::vector<TModuleRun>& aRuns, int aIndex) const {
  int col = CodewordCols;
  const auto add = [&](int aWord) { col = AddBars(aRuns, TPDF417::Widths(aIndex, aWord), col, aIndex, 1); };
  add(TPDF417::LeftIndicator(aIndex, fYCount, fXCount, fErrorLevel));
  for (int i = 0; i < fXCount; ++i) add(fCodeWords[static_cast<std::size_t>(aIndex * fXCount + i)]);
  if (!fTruncated) add(TPDF417::RightIndicator(aIndex, fYCount, fXCount, fErrorLevel));
}

// Persistence ---------------------------------------------------------------------------

void TKDXBasePDF417::Record(TRecord& r) {
  TModuleItem::Record(r);
  r.Enum32(fCorrecLevel, "CorrecLevel");
  RecordSizes(r);
  r.Boolean(fTruncated);
  r.Int16(fRows);
  r.Int16(fCols);
  if (r.Reading() && (fRows < 0 || fRows > TPDF417::MaxRows || fCols < 0 || fCols > TPDF417::MaxCols)) {
    throw EReadError("Rows or Cols of a PDF417 are out of range");
  }
  RecordCode(r);
}

std::unique_ptr<TJsonObject> TKDXBasePDF417::WriteJson() const {
  auto json = TModuleItem::WriteJson();
  json->PutInt("CorrecLevel", fCorrecLevel);
  WriteJsonSizes(*json);
  json->PutBool("Truncated", fTruncated);
  json->PutInt("Rows", fRows);
  json->PutInt("Cols", fCols);
  WriteJsonCode(*json);
  return json;
}

void TKDXBasePDF417::ReadJson(int aVersion, TJsonObject& aJson) {
  TModuleItem::ReadJson(aVersion, aJson);
  fCorrecLevel = GetEnum<TZORPdf417CorrectionLevel>(aJson, "CorrecLevel");
  ReadJsonSizes(aJson);
  fTruncated = aJson.GetBool("Truncated");
  fRows = static_cast<std::int16_t>(GetIntIn(aJson, "Rows", 0, TPDF417::MaxRows));
  fCols = static_cast<std::int16_t>(GetIntIn(aJson, "Cols", 0, TPDF417::MaxCols));
  ReadJsonCode(aJson);
  AfterRead(rdNormal);
}

}  // namespace Zor::inline Barcode
