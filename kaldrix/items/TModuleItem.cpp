#include "kaldrix/items/TModuleItem.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/items/TextPlacement.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"
#include "kaldrix/utils/ShownCode.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Barcode {

// Text ----------------------------------------------------------------------------------

void TModuleItem::SetCode(const std::string& aValue) { Encoded(fCode, Taken(aValue)); }

namespace {

const char* SymbologyOf(TZORItemType aType) {
  if (aType == itQRCode) return "QR Code";
  return aType == itDataMatrix ? "Data Matrix" : "PDF417";
}

}  // namespace

void TModuleItem::EncodeText() {
  try {
    Encode();
  } catch (const EConvertError&) {
    throw;  // It tells the escape.
  } catch (const Exception& error) {
    throw Exception(ShownText(fCode) + " of " + std::to_string(Utf8::Count(fCode)) +
                    " characters does not fit into a " + SymbologyOf(fItemType) + " symbol: " + error.what());
  }
}

void TModuleItem::FillData(bool /*aFirst*/) {
  if (HasValue(*fOwner)) SetCode(Value(*fOwner));
}

std::string TModuleItem::ValueProblem() const {
  const std::string value = HasValue(*fOwner) ? Value(*fOwner) : fCode;
  return value.empty() ? "there is no text for the code" : ReadingProblem(value);
}

// Sizes ---------------------------------------------------------------------------------

namespace {

/// A length that a factor gives, held inside 32 bits.
int Tied(double aLength, int aLeast) {
  constexpr double most = std::numeric_limits<int>::max();
  return std::max(static_cast<int>(Round(std::clamp(aLength, -most, most))), aLeast);
}

}  // namespace

int TModuleItem::TiedHeight(Single aFactor) const {
  return Tied(aFactor > 0 ? double{aFactor} * fBarWidth : fBarHeight, LeastBarHeight());
}

void TModuleItem::TieHeight() { fBarHeight = TiedHeight(fFactor); }

void TModuleItem::TieWidth() {
  fBarWidth = Tied(fFactor > 0 ? fBarHeight / double{fFactor} : fBarWidth, LeastBarWidth());
}

void TModuleItem::SetFactor(Single aValue) {
  const Single factor = Finite(aValue);
  if (factor == fFactor) return;
  const TEdit edit(*this);
  // The old factor may not tell the old height: undo brings both back, as one step.
  const bool grouped = fOwner->fIncUnReID;
  fOwner->fIncUnReID = false;
  if (TiedHeight(factor) != fBarHeight) TKDXFloatCmd::AddCommand(*this, 1);
  Change<TKDXFloatCmd>(fFactor, factor, 2, &TKDXBaseItem::StateUpdate);
  fOwner->fIncUnReID = grouped;
  if (grouped) ++fOwner->fUnReID;
  TieHeight();
  UpdateSize();
}

void TModuleItem::TakeSize(int aCols, int aRows) {
  fBarCodeWidth = HeldInt(Int64{fBarWidth} * aCols + 2 * Int64{fPaddingX});
  fBarCodeHeight = HeldInt(Int64{fBarHeight} * aRows + 2 * Int64{fPaddingY});
  UpdatePoints();
}

// Persistence ---------------------------------------------------------------------------

void TModuleItem::RecordSizes(TRecord& r) {
  for (int* length : {&fBarHeight, &fBarWidth, &fPaddingX, &fPaddingY}) r.Int32(*length);
  r.Single(fFactor);
  if (r.Reading() && !std::isfinite(fFactor)) throw EReadError("Factor is no number");
}

void TModuleItem::RecordCode(TRecord& r) {
  for (std::string* text : {&fCode, &fField, &fFormat}) r.String(*text);
  r.Enum16(fFillType, "FillType");
  r.Enum16(fHorzAlign, "HorzAlign");
  r.Enum16(fVertAlign, "VertAlign");
}

void TModuleItem::WriteJsonSizes(TJsonObject& aJson) const {
  PutHundredths(aJson, "BarWidth", GetBarWidth());
  PutHundredths(aJson, "BarHeight", GetBarHeight());
  aJson.PutInt("HorzAlign", fHorzAlign);
  aJson.PutInt("VertAlign", fVertAlign);
  PutLength(aJson, "PaddingX", GetPaddingX());
  PutLength(aJson, "PaddingY", GetPaddingY());
  PutHundredths(aJson, "Factor", fFactor);
}

void TModuleItem::ReadJsonSizes(TJsonObject& aJson) {
  fBarWidth = GetLength(aJson, "BarWidth", unMM);
  fBarHeight = GetLength(aJson, "BarHeight", unMM);
  fHorzAlign = GetEnum<TZORHorzAlign>(aJson, "HorzAlign");
  fVertAlign = GetEnum<TZORVertAlign>(aJson, "VertAlign");
  fPaddingX = GetLength(aJson, "PaddingX", unMM);
  fPaddingY = GetLength(aJson, "PaddingY", unMM);
  fFactor = GetSingle(aJson, "Factor");
}

void TModuleItem::WriteJsonCode(TJsonObject& aJson) const {
  aJson.PutString("Code", fCode);
  WriteJsonData(aJson);
}

void TModuleItem::ReadJsonCode(TJsonObject& aJson) {
  fCode = aJson.GetString("Code");
  ReadJsonData(aJson);
}

void TModuleItem::AfterRead(TZORReadType aReadType) {
  TBarItem::AfterRead(aReadType);
  fCode = Taken(fCode);
  EncodeText();
}

// Drawing -------------------------------------------------------------------------------

std::vector<TModuleRun> JoinedRuns(const std::vector<TModuleRun>& aRuns) {
  std::vector<TModuleRun> joined;
  // The runs of the row above and of this one, by their place in `joined`.
  std::vector<std::size_t> above, here;
  std::size_t next = 0;
  for (std::size_t i = 0; i < aRuns.size();) {
    TModuleRun run = aRuns[i++];
    if (run.rows > 1) {
      joined.push_back(run);
      continue;
    }
    while (i < aRuns.size() && aRuns[i].row == run.row && aRuns[i].rows == 1 &&
           aRuns[i].col == run.col + run.cols) {
      run.cols += aRuns[i++].cols;
    }
    if (!here.empty() && run.row != joined[here.back()].row + joined[here.back()].rows - 1) {
      above = std::move(here);
      here.clear();
      next = 0;
    }
    while (next < above.size() && joined[above[next]].col < run.col) ++next;
    TModuleRun* const over = next < above.size() ? &joined[above[next]] : nullptr;
    if (over != nullptr && over->col == run.col && over->cols == run.cols &&
        over->row + over->rows == run.row) {
      ++over->rows;
      here.push_back(above[next]);
    } else {
      here.push_back(joined.size());
      joined.push_back(run);
    }
  }
  return joined;
}

std::vector<TBarRect> TModuleItem::Bars(bool aJoined) const {
  std::vector<TModuleRun> runs;
  FillRuns(runs);
  if (aJoined) runs = JoinedRuns(runs);
  // 1. Where the symbol begins.
  const bool across = fAngle == ag90 || fAngle == ag270;
  const Single width = GetBaseValue(fBarCodeWidth), height = GetBaseValue(fBarCodeHeight);
  Single x = 0, y = 0;
  DrawPos(x, y, GetPointMMX(1), GetPointMMY(1), GetPaddingX(), GetPaddingY(), across ? height : width,
          across ? width : height, BlockAlign(), fVertAlign, fAngle);
  // 2. The modules stand along the axes there, and turn about that corner.
  std::vector<TBarRect> bars;
  bars.reserve(runs.size());
  const double w = fBarWidth / BaseInMM, h = fBarHeight / BaseInMM;
  for (const TModuleRun& run : runs) {
    bars.push_back(Turned({x + run.col * w, y + run.row * h, run.cols * w, run.rows * h}, x, y, fAngle));
  }
  return bars;
}

void TModuleItem::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                           bool /*attrID*/) const {
  WriteSvgBack(svg, aExportType, aFactor);
  const std::vector<TBarRect> bars = Bars(false);
  svg.reserve(svg.size() + bars.size());
  for (const TBarRect& bar : bars) {
    TExSVG::AppendBars(svg.emplace_back(), {&bar, 1}, fColor, double{aFactor}, aExportType);
  }
}

}  // namespace Zor::inline Barcode
