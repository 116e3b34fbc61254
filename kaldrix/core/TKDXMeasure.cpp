#include "kaldrix/core/TKDXMeasure.hpp"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/types/Papers.hpp"

namespace Zor::inline Base {

namespace {

std::string Ratio(Int64 aScale) { return "1:" + std::to_string(aScale); }

}  // namespace

TKDXMeasure::TKDXMeasure(TKDXBaseLabel* aOwner) : fOwner(aOwner) { Reset(); }

void TKDXMeasure::Reset() {
  fLabelName = TKDXMsg::GetInfoValue(IsLabelling() ? "LabelName" : "DrawingName");
  fLabelType = ltRect;
  for (std::string* text : {&fPromoter, &fAuthor, &fProject, &fTitle, &fDate, &fNote}) text->clear();
  fPlanNumber = 1;
  fInnerCircle = 0;
  fDrawScale = 1;
  fFormat.clear();
  fIncludeUnit = true;
}

void TKDXMeasure::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXMeasure*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  static_cast<TMeasureContent&>(*this) = *source;
}

void TKDXMeasure::SendInfo() { fOwner->ChangeValue(chLabelDef); }

bool TKDXMeasure::IsLabelling() const { return fOwner->fEditorMode == emLabelling; }

void TKDXMeasure::Changed() {
  const TNoticeHold hold(*fOwner);
  fOwner->ContentChanged();
  fOwner->ChangeValue(chMeasure);
}

// Queries
// -----------------------------------------------------------------------------------------------------------

Int64 TKDXMeasure::GetSize(TZORMeasureType aType, bool incScale) const {
  const int sizes[] = {fPaperWidth, fPaperHeight, fWidth, fHeight, fMarLeft, fMarTop, fDiHor, fDiVer};
  static_assert(std::size(sizes) == mtGapVert + 1);
  return MulHeld(sizes[aType], incScale ? fDrawScale : 1);
}

Single TKDXMeasure::WidthUnits() const { return GetValue(MulHeld(fWidth, fDrawScale), fOwner->fUnits); }
Single TKDXMeasure::HeightUnits() const { return GetValue(MulHeld(fHeight, fDrawScale), fOwner->fUnits); }

Single TKDXMeasure::UnitProperty(int aBase) const { return fOwner->GetVal(aBase, true); }
Single TKDXMeasure::SizeProperty(int aBase) const {
  return IsLabelling() ? UnitProperty(aBase) : GetBaseValue(aBase);
}
int TKDXMeasure::UnitBase(Single aValue) const { return fOwner->SetVal(aValue, true); }
int TKDXMeasure::SizeBase(Single aValue) const { return IsLabelling() ? UnitBase(aValue) : HeldBase(aValue); }

// Sizes
// -------------------------------------------------------------------------------------------------------------

void TKDXMeasure::SetWidth(Single aValue) {
  const int base = SizeBase(aValue);
  if (base == fWidth) return;
  const int width = std::max(base, LeastSize);
  if (!IsLabelling()) ValidateDrawScaleForPaper(width, fPaperHeight);
  fWidth = width;
  if (fLabelType == ltCircle) fHeight = width;
  if (IsPaperTied()) fPaperWidth = width;
  Changed();
}

void TKDXMeasure::SetHeight(Single aValue) {
  const int base = SizeBase(aValue);
  if (base == fHeight) return;
  const int height = std::max(base, LeastSize);
  if (!IsLabelling()) ValidateDrawScaleForPaper(fPaperWidth, height);
  fHeight = height;
  if (fLabelType == ltCircle) fWidth = height;
  if (IsPaperTied()) fPaperHeight = height;
  Changed();
}

void TKDXMeasure::SetPaperWidth(Single aValue) {
  const TNoticeHold hold(*fOwner);
  const int width = std::max(SizeBase(aValue), LeastSize);
  ValidateDrawScaleForPaper(width, fPaperHeight);
  fPaperWidth = width;
  fOwner->ContentChanged();
  if (!IsPaperTied()) return;
  fWidth = width;
  Changed();
}

void TKDXMeasure::SetPaperHeight(Single aValue) {
  const TNoticeHold hold(*fOwner);
  const int height = std::max(SizeBase(aValue), LeastSize);
  ValidateDrawScaleForPaper(fPaperWidth, height);
  fPaperHeight = height;
  fOwner->ContentChanged();
  if (!IsPaperTied()) return;
  fHeight = height;
  Changed();
}

void TKDXMeasure::SetLabelSizeMM(Single aMMWidth, Single aMMHeight) {
  const int width = HeldBase(aMMWidth), height = HeldBase(aMMHeight);
  if (width == fWidth && height == fHeight) return;
  if (IsPaperTied()) {
    ValidateDrawScaleForPaper(width, height);
    fPaperWidth = width;
    fPaperHeight = height;
  }
  fWidth = width;
  fHeight = height;
  Changed();
}

void TKDXMeasure::SetPaperSizeMM(Single aMMWidth, Single aMMHeight) {
  const int width = HeldBase(aMMWidth), height = HeldBase(aMMHeight);
  ValidateDrawScaleForPaper(width, height);
  if (width == fPaperWidth && height == fPaperHeight) return;
  fPaperWidth = width;
  fPaperHeight = height;
  if (IsPaperTied()) {
    fWidth = width;
    fHeight = height;
  }
  Changed();
}

void TKDXMeasure::SetPaperName(const std::string& aValue) {
  const TNoticeHold hold(*fOwner);
  if (fOwner->IsTakingValues()) {
    fPaperName = aValue;
  } else {
    TakeNamedPaper(aValue);
  }
  fOwner->ContentChanged();
}

void TKDXMeasure::TakeNamedPaper(const std::string& aName) {
  Single widthMM = 0, heightMM = 0;
  const int code = GetPaperSize(aName, widthMM, heightMM);
  const bool hasSize = code >= 0 && code != UserPaper;
  const int width = hasSize ? std::max(HeldBase(widthMM), LeastSize) : fPaperWidth;
  const int height = hasSize ? std::max(HeldBase(heightMM), LeastSize) : fPaperHeight;
  ValidateDrawScaleForPaper(width, height);
  fPaperName = aName;
  if (code < 0) return;
  fPaperSize = static_cast<std::int16_t>(code);
  if (hasSize) {
    fPaperWidth = width;
    fPaperHeight = height;
    if (IsPaperTied()) {
      fWidth = width;
      fHeight = height;
    }
  }
  fOwner->ChangeValue(chMeasure);
}

void TKDXMeasure::SetContinousPaper(bool aValue) {
  const bool on = aValue || !IsLabelling();
  if (on == fContinousPaper) return;
  fContinousPaper = on;
  if (on) {
    fMarLeft = fMarTop = fDiHor = fDiVer = 0;
    fNuHor = fNuVer = 1;
    fWidth = fPaperWidth;
    fHeight = fPaperHeight;
  }
  fOwner->ContentChanged();
}

void TKDXMeasure::SetLabelType(TKaldrixType aValue) {
  fLabelType = aValue;
  if (aValue == ltCircle) {
    fHeight = fWidth;
  } else {
    fInnerCircle = 0;
  }
  TZORBackStyle& style = fOwner->fBackSurf->fStyle;
  if (!TKDXBackSurf::Suits(style, aValue)) style = biNone;
  fOwner->ContentChanged();
}

void TKDXMeasure::SetInnerCircle(Single aValue) { TakeInnerCircle(UnitBase(aValue)); }

void TKDXMeasure::TakeInnerCircle(int aBase) {
  fInnerCircle = std::min(std::max(aBase, 0), fWidth);
  Changed();
}

void TKDXMeasure::SetLabelName(const std::string& aValue) {
  fLabelName = aValue;
  if (!fOwner->IsTakingValues()) fOwner->ContentChanged();
}

// Labels on the sheet
// -----------------------------------------------------------------------------------------------

void TKDXMeasure::TakeHeld(int& aField, int aValue, int aLeast) {
  if (aValue == aField) return;
  aField = std::max(aValue, aLeast);
  fOwner->ContentChanged();
}

void TKDXMeasure::TakeSpace(int& aField, Single& aLoaded, Single aValue, int aLeast) {
  if (fOwner->IsLoading()) {
    aLoaded = aValue;
    return;
  }
  TakeHeld(aField, UnitBase(aValue), aLeast);
}

void TKDXMeasure::SetMarLeft(Single aValue) { TakeSpace(fMarLeft, fML, aValue, LeastMargin); }
void TKDXMeasure::SetMarTop(Single aValue) { TakeSpace(fMarTop, fMT, aValue, LeastMargin); }
void TKDXMeasure::SetDiHor(Single aValue) { TakeSpace(fDiHor, fDH, aValue, 0); }
void TKDXMeasure::SetDiVer(Single aValue) { TakeSpace(fDiVer, fDV, aValue, 0); }
void TKDXMeasure::SetNuHor(int aValue) { TakeHeld(fNuHor, aValue, 1); }
void TKDXMeasure::SetNuVer(int aValue) { TakeHeld(fNuVer, aValue, 1); }

// Drawing scale
// -----------------------------------------------------------------------------------------------------

Int64 TKDXMeasure::MaxDrawScaleForPaper(int aWidth, int aHeight) {
  const Int64 longer = std::max(std::abs(Int64{aWidth}), std::abs(Int64{aHeight}));
  return longer < 1 ? std::numeric_limits<Int64>::max() : std::numeric_limits<Int64>::max() / longer;
}

void TKDXMeasure::ValidateDrawScaleForPaper(int aWidth, int aHeight) const {
  const Int64 most = MaxDrawScaleForPaper(aWidth, aHeight);
  if (!fOwner->IsDrawingMode() || fDrawScale <= most || fOwner->IsTakingValues()) return;
  throw EInvalidOperation(
      "Drawing scale " + Ratio(fDrawScale) +
      " cannot be represented with Int64 base coordinates for this paper size; maximum is " + Ratio(most));
}

void TKDXMeasure::SetDrawScale(Int64 aValue) {
  const Int64 scale = fOwner->IsDrawingMode() ? aValue : 1;
  if (scale < 1 || scale > MaxDrawScale()) {
    throw EArgumentOutOfRangeException("Drawing scale must be between 1:1 and " + Ratio(MaxDrawScale()) +
                                       " for the current paper size");
  }
  if (scale == fDrawScale) return;
  fDrawScale = scale;
  if (!fOwner->IsTakingValues()) Changed();
}

/// What is wrong with a scale that was read; empty when nothing is.
std::string TKDXMeasure::ScaleFault() const {
  if (!fOwner->IsDrawingMode() || (fDrawScale >= 1 && fDrawScale <= MaxDrawScale())) return {};
  return std::to_string(fDrawScale) + " is not between 1 and " + std::to_string(MaxDrawScale());
}

// Binary
// ------------------------------------------------------------------------------------------------------------

void TKDXMeasure::Record(TRecord& r) {
  for (std::string* text : {&fLabelName, &fAuthor, &fNote}) r.String(*text);
  for (int* value : {&fWidth, &fHeight, &fMarLeft, &fMarTop}) r.Int32(*value);
  for (int* value : {&fNuHor, &fNuVer, &fDiHor, &fDiVer}) r.Int32(*value);
  r.Int32(fPaperWidth);
  r.Int32(fPaperHeight);
  r.Int16(fPaperSize);
  r.String(fPaperName);
  if (r.Since(WideScaleVersion)) {
    r.Int64(fDrawScale);
  } else {
    fDrawScale = r.Reader()->ReadInt32();
  }
  r.Boolean(fContinousPaper);
  r.Enum8(fLabelType, "LabelType");
  r.Int32(fInnerCircle);
  r.String(fFormat);
  r.Boolean(fIncludeUnit);
  if (IsLabelling()) return;
  for (std::string* text : {&fPromoter, &fProject, &fTitle, &fDate}) r.String(*text);
  r.Int32(fPlanNumber);
}

void TKDXMeasure::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXMeasure*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXMeasure::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
  if (const std::string fault = ScaleFault(); !fault.empty()) throw EReadError("DrawScale: " + fault);
}

// JSON
// --------------------------------------------------------------------------------------------------------------

void TKDXMeasure::WriteJson(TJsonObject& aJson) const {
  TJsonObject& measures = aJson.AddNewObject("Measures");
  const auto length = [&](std::string_view aKey, int aBase) {
    PutLength(measures, aKey, UnitProperty(aBase));
  };
  measures.PutString("LabelName", fLabelName);
  measures.PutString("Author", fAuthor);
  measures.PutString("Note", fNote);
  length("LabelWidth", fWidth);
  length("LabelHeight", fHeight);
  length("MarginLeft", fMarLeft);
  length("MarginTop", fMarTop);
  measures.PutInt("Rows", fNuHor);
  measures.PutInt("Columns", fNuVer);
  length("RowGap", fDiHor);
  length("ColumnGap", fDiVer);
  length("PaperWidth", fPaperWidth);
  length("PaperHeight", fPaperHeight);
  measures.PutInt("PaperSize", fPaperSize);
  measures.PutString("PaperName", fPaperName);
  if (fOwner->IsDrawingMode()) measures.PutLong("DrawScale", fDrawScale);
  measures.PutBool("ContinousPaper", fContinousPaper);
  measures.PutInt("LabelType", fLabelType);
  length("InnerCircle", fInnerCircle);
  measures.PutString("Format", fFormat);
  measures.PutBool("IncludeUnit", fIncludeUnit);
  if (!IsLabelling()) WriteJsonTitles(measures);
}

void TKDXMeasure::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fLabelName = aJson.GetString("LabelName");
  fAuthor = aJson.GetString("Author");
  fNote = aJson.GetString("Note");
  fContinousPaper = aJson.GetBool("ContinousPaper");
  fLabelType = GetEnum<TKaldrixType>(aJson, "LabelType");
  ReadJsonSizes(aJson);
  fNuHor = aJson.GetInt("Rows");
  fNuVer = aJson.GetInt("Columns");
  TakeHeld(fDiHor, JsonBase(aJson, "RowGap"), 0);
  TakeHeld(fDiVer, JsonBase(aJson, "ColumnGap"), 0);
  fPaperSize = static_cast<std::int16_t>(GetIntIn(aJson, "PaperSize", INT16_MIN, INT16_MAX));
  fPaperName = aJson.GetString("PaperName");
  ReadJsonScale(aJson);
  TakeInnerCircle(JsonBase(aJson, "InnerCircle"));
  fFormat = aJson.GetString("Format");
  fIncludeUnit = aJson.GetBool("IncludeUnit");
  if (!IsLabelling()) ReadJsonTitles(aJson);
}

void TKDXMeasure::WriteJsonTitles(TJsonObject& aJson) const {
  aJson.PutString("Promoter", fPromoter);
  aJson.PutString("Project", fProject);
  aJson.PutString("Title", fTitle);
  aJson.PutString("Date", fDate);
  aJson.PutInt("PlanNumber", fPlanNumber);
}

void TKDXMeasure::ReadJsonTitles(const TJsonObject& aJson) {
  fPromoter = aJson.GetString("Promoter");
  fProject = aJson.GetString("Project");
  fTitle = aJson.GetString("Title");
  fDate = aJson.GetString("Date");
  fPlanNumber = aJson.GetInt("PlanNumber");
}

/// A length of "Measures": in every mode it is written in the restricted document unit, whatever the
/// properties take.
int TKDXMeasure::JsonBase(const TJsonObject& aJson, std::string_view aKey) const {
  return GetLength(aJson, aKey, fOwner->RestrictedUnit());
}

/// The limits of the setters hold, but no size follows another here: a document that was a round label for a
/// while may have come to sizes that no order of setters gives, and it has to read back as it was.
void TKDXMeasure::ReadJsonSizes(const TJsonObject& aJson) {
  const auto size = [&](std::string_view aKey) { return std::max(JsonBase(aJson, aKey), LeastSize); };
  fPaperWidth = size("PaperWidth");
  fPaperHeight = size("PaperHeight");
  fWidth = size("LabelWidth");
  fHeight = size("LabelHeight");
  TakeHeld(fMarLeft, JsonBase(aJson, "MarginLeft"), LeastMargin);
  TakeHeld(fMarTop, JsonBase(aJson, "MarginTop"), LeastMargin);
}

/// Sizes are written in thousandths of the unit, and so a paper that just holds the largest scale may have
/// come back a little longer. The longest size that holds the scale is nearer to what it was, if it is
/// written alike.
void TKDXMeasure::FitPaperToScale() {
  if (fDrawScale < 1) return;
  const Int64 longest = std::numeric_limits<Int64>::max() / fDrawScale;
  const auto written = [this](Int64 base) { return RoundTo3(UnitProperty(static_cast<int>(base))); };
  for (int* size : {&fPaperWidth, &fPaperHeight, &fWidth, &fHeight}) {
    if (*size > longest && written(longest) == written(*size)) *size = static_cast<int>(longest);
  }
}

void TKDXMeasure::ReadJsonScale(const TJsonObject& aJson) {
  const bool told = fOwner->IsDrawingMode() && aJson.Contains("DrawScale");
  fDrawScale = told ? GetWhole(aJson, "DrawScale") : 1;
  if (told) FitPaperToScale();
  if (const std::string fault = ScaleFault(); !fault.empty()) throw EJsonException("\"DrawScale\": " + fault);
}

}  // namespace Zor::inline Base
