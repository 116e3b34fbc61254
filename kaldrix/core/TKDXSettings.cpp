#include "kaldrix/core/TKDXSettings.hpp"

#include <algorithm>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TNoticeHold.hpp"

namespace Zor::inline Base {

namespace {

constexpr int LeastTermSize = 500;  ///< base points
constexpr int LeastLinkGap = 0;

}  // namespace

void TKDXSettings::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXSettings*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  static_cast<TSettingsContent&>(*this) = *source;
}

void TKDXSettings::SetPaintColor(TAlphaColor& aField, TAlphaColor aValue) {
  if (aField == aValue) return;
  const TNoticeHold hold(*fOwner);
  aField = aValue;
  fOwner->ContentChanged();
  fOwner->ChangeValue(chPaint);
}

void TKDXSettings::SetTermColor(TAlphaColor aValue) { SetPaintColor(fTermColor, aValue); }
void TKDXSettings::SetFillTermColor(TAlphaColor aValue) { SetPaintColor(fFillTermColor, aValue); }

Single TKDXSettings::GetTermSize() const { return fOwner->GetValMM(fTermSize); }
Single TKDXSettings::GetLinkGap() const { return fOwner->GetValMM(fLinkGap); }

void TKDXSettings::SetSize(int& aField, int aBase) {
  if (aBase == aField) return;
  aField = aBase;
  fOwner->ContentChanged();
}

void TKDXSettings::SetTermSize(Single aMM) { SetSize(fTermSize, std::max(HeldBase(aMM), LeastTermSize)); }
void TKDXSettings::SetLinkGap(Single aMM) { SetSize(fLinkGap, std::max(HeldBase(aMM), LeastLinkGap)); }

void TKDXSettings::Record(TRecord& r) {
  r.UInt32(fTermColor);
  r.UInt32(fFillTermColor);
  r.Int32(fTermSize);
  r.Int32(fLinkGap);
}

void TKDXSettings::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXSettings*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXSettings::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
}

void TKDXSettings::WriteJson(TJsonObject& aJson) const {
  TJsonObject& settings = aJson.AddNewObject("Settings");
  PutColor(settings, "TermColor", fTermColor);
  PutColor(settings, "FillTermColor", fFillTermColor);
  PutLength(settings, "TermSize", GetBaseValue(fTermSize));
  PutLength(settings, "LinkGap", GetBaseValue(fLinkGap));
}

void TKDXSettings::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  SetTermColor(GetColor(aJson, "TermColor"));
  SetFillTermColor(GetColor(aJson, "FillTermColor"));
  SetTermSize(GetSingle(aJson, "TermSize"));
  SetLinkGap(GetSingle(aJson, "LinkGap"));
}

}  // namespace Zor::inline Base
