#include "kaldrix/items/TKDXBaseData.hpp"

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Text {

template <class T>
void TKDXBaseData::Take(T& aField, const T& aValue, void (IZOTextOwner::*aTell)()) {
  if (aField == aValue) return;
  aField = aValue;
  (fOwner->*aTell)();
}

void TKDXBaseData::SetText(const std::string& aValue) { Take(fText, aValue, &IZOTextOwner::NeedLayout); }
void TKDXBaseData::SetFontName(const std::string& aValue) {
  Take(fFontName, aValue, &IZOTextOwner::NeedLayout);
}
void TKDXBaseData::SetFontHeight(Single aValue) {
  Take(fFontHeight, fOwner->Document().SetVal(aValue, false), &IZOTextOwner::NeedLayout);
}
void TKDXBaseData::SetBold(bool aValue) { Take(fBold, aValue, &IZOTextOwner::NeedLayout); }
void TKDXBaseData::SetItalic(bool aValue) { Take(fItalic, aValue, &IZOTextOwner::NeedLayout); }
void TKDXBaseData::SetUnderline(bool aValue) { Take(fUnderline, aValue, &IZOTextOwner::NeedPaint); }
void TKDXBaseData::SetStrikeout(bool aValue) { Take(fStrikeout, aValue, &IZOTextOwner::NeedPaint); }
void TKDXBaseData::SetFontColor(TAlphaColor aValue) { Take(fFontColor, aValue, &IZOTextOwner::NeedPaint); }
void TKDXBaseData::SetFillBack(bool aValue) { Take(fFillBack, aValue, &IZOTextOwner::NeedPaint); }
void TKDXBaseData::SetBackColor(TAlphaColor aValue) { Take(fBackColor, aValue, &IZOTextOwner::NeedPaint); }

void TKDXBaseData::SetBaseSize(int aWidth, int aAscent, int aDescent, double aRatio) {
  fWidth = aWidth;
  fAscent = aAscent;
  fDescent = aDescent;
  fRatio = aRatio;
}

Single TKDXBaseData::GetHeight() const { return fOwner->Document().GetVal(Int64{fAscent} + fDescent, false); }

void TKDXBaseData::Record(TRecord& r) {
  r.Int32(fFontHeight);
  r.Boolean(fFillBack);
  r.UInt32(fBackColor);
  RecordFont(r);
  r.String(fText);
}

void TKDXBaseData::WriteJson(TJsonObject& aJson) const {
  aJson.PutString("Text", fText);
  aJson.PutBool("FillBackground", fFillBack);
  PutColor(aJson, "BackColor", fBackColor);
  WriteJsonFont(aJson);
}

void TKDXBaseData::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fText = aJson.GetString("Text");
  fFillBack = aJson.GetBool("FillBackground");
  fBackColor = GetColor(aJson, "BackColor");
  ReadJsonFont(aJson);
}

}  // namespace Zor::inline Text
