#include "kaldrix/core/TKDXBackSurf.hpp"

#include <algorithm>
#include <tuple>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Base {

namespace {

/// The align marks, which no file holds.
auto Marks(auto& aSurf) {
  return std::tie(aSurf.fAlignColor, aSurf.fAlignLeft, aSurf.fAlignTop, aSurf.fShowAlign);
}

}  // namespace

void TKDXBackSurf::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXBackSurf*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  static_cast<TSurfaceContent&>(*this) = *source;
  Marks(*this) = Marks(*source);
}

// Surface
// -----------------------------------------------------------------------------------------------------------

void TKDXBackSurf::SetFileName(const std::string& aValue) {
  if (aValue == fFileName) return;
  fFileName = aValue;
  ReadFileImage();
  fNeedPaint = true;
  fOwner->ContentChanged();
}

void TKDXBackSurf::ReadFileImage() {
  if (!FileExists(fFileName)) fFileName.clear();
}

void TKDXBackSurf::SetStyle(TZORBackStyle aValue) {
  const bool lacksImage = aValue == biImage && fFileName.empty();
  const bool fits = fOwner->IsTakingValues() || (!lacksImage && Suits(aValue, fOwner->fMeasure->fLabelType));
  fStyle = fits ? aValue : biNone;
  fOwner->ContentChanged();
}

void TKDXBackSurf::SetSurfaceColor(TAlphaColor& aField, TAlphaColor aValue) {
  if (aField == aValue) return;
  const TNoticeHold hold(*fOwner);
  aField = aValue;
  fOwner->ContentChanged();
  fOwner->ChangeValue(chBackSurf);
}

void TKDXBackSurf::SetColor(TAlphaColor aValue) { SetSurfaceColor(fColor, aValue); }
void TKDXBackSurf::SetToColor(TAlphaColor aValue) { SetSurfaceColor(fToColor, aValue); }

void TKDXBackSurf::SetPrint(bool aValue) {
  if (aValue == fPrint) return;
  fPrint = aValue;
  fOwner->ContentChanged();
}

// Align marks
// -------------------------------------------------------------------------------------------------------

void TKDXBackSurf::SetAlignColor(TAlphaColor aValue) {
  if (aValue == fAlignColor) return;
  const TNoticeHold hold(*fOwner);
  fAlignColor = aValue;
  fOwner->ContentChanged();
  if (fShowAlign) fOwner->ChangeValue(chAligns);
}

void TKDXBackSurf::SetShowAlign(bool aValue) {
  const bool turnedOn = aValue && !fShowAlign;
  fShowAlign = aValue;
  if (turnedOn && !fOwner->IsTakingValues()) fOwner->ChangeValue(chAligns);
}

Single TKDXBackSurf::GetAlignLeft() const { return fOwner->GetVal(fAlignLeft, false); }
Single TKDXBackSurf::GetAlignTop() const { return fOwner->GetVal(fAlignTop, false); }

void TKDXBackSurf::SetAlign(int& aField, Single aValue, int aMost) {
  aField = std::max(std::min(fOwner->SetVal(aValue, false), aMost), 0);
  if (fShowAlign) fOwner->ChangeValue(chAligns);
}

void TKDXBackSurf::SetAlignLeft(Single aValue) { SetAlign(fAlignLeft, aValue, fOwner->fMeasure->fWidth); }
void TKDXBackSurf::SetAlignTop(Single aValue) { SetAlign(fAlignTop, aValue, fOwner->fMeasure->fHeight); }

// Persistence
// -------------------------------------------------------------------------------------------------------

void TKDXBackSurf::Record(TRecord& r) {
  r.String(fFileName);
  r.UInt32(fColor);
  r.UInt32(fToColor);
  r.Enum32(fStyle, "Style");
  r.Boolean(fPrint);
}

void TKDXBackSurf::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXBackSurf*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXBackSurf::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
}

void TKDXBackSurf::WriteJson(TJsonObject& aJson) const {
  TJsonObject& surface = aJson.AddNewObject("BackSurface");
  PutColor(surface, "Color", fColor);
  PutColor(surface, "ToColor", fToColor);
  surface.PutBool("Print", fPrint);
  surface.PutString("FileNameImg", fFileName);
  surface.PutInt("Style", fStyle);
}

void TKDXBackSurf::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  SetColor(GetColor(aJson, "Color"));
  SetToColor(GetColor(aJson, "ToColor"));
  fPrint = aJson.GetBool("Print");
  SetFileName(aJson.GetString("FileNameImg"));
  fStyle = GetEnum<TZORBackStyle>(aJson, "Style");
}

}  // namespace Zor::inline Base
