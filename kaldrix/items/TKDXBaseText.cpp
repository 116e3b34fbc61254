#include "kaldrix/items/TKDXBaseText.hpp"

#include <algorithm>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TextPlacement.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Text {

namespace {

constexpr int StartFontHeight = 10000;  // base points

}  // namespace

TKDXBaseText::TKDXBaseText(TKDXBaseLabel& aOwner, bool aPreview)
    : TDataItem(aOwner, itText, aPreview), TFontFields(StartFontHeight) {
  fPenWidth = 0;
}

TKDXBaseText::TKDXBaseText(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TDataItem(aOwner, itText, aLayer, aPreview), TFontFields(StartFontHeight) {
  fPenWidth = 0;
}

// Text and font -----------------------------------------------------------------------

void TKDXBaseText::SetText(const std::string& aValue) {
  if (aValue == fText) return;
  const TEdit edit(*this);
  Change<TKDXTxtCmd>(fText, aValue, 2);
  if (FillType() != ftNone && !fText.empty()) {
    fField.clear();
    fFillType = ftNone;
  }
  UpdateBinding();
  if (!fOwner->Selected(*this)) StateCalc();
}

int TKDXBaseText::Style() const {
  return (fBold ? 1 : 0) | (fItalic ? 2 : 0) | (fUnderline ? 4 : 0) | (fStrikeout ? 8 : 0);
}

TZORSPoint TKDXBaseText::Position(const TKDXBaseDraw& drw) const {
  const TZORPto anchor = GetPoint(1);
  return {anchor.DrawX(drw), anchor.DrawY(drw)};
}

void TKDXBaseText::SetFontName(const std::string& aValue) {
  Change<TKDXTxtCmd>(fFontName, aValue, 1, &TKDXBaseItem::StateCalc);
}
void TKDXBaseText::SetBold(bool aValue) { Change<TKDXBoolCmd>(fBold, aValue, 2, &TKDXBaseItem::StateCalc); }
void TKDXBaseText::SetItalic(bool aValue) {
  Change<TKDXBoolCmd>(fItalic, aValue, 3, &TKDXBaseItem::StateCalc);
}
void TKDXBaseText::SetUnderline(bool aValue) { Change<TKDXBoolCmd>(fUnderline, aValue, 4); }
void TKDXBaseText::SetFontColor(TAlphaColor aValue) { Change<TKDXColorCmd>(fFontColor, aValue, 3); }

void TKDXBaseText::SetStrikeout(bool aValue) {
  if (aValue == fStrikeout) return;
  const TEdit edit(*this);
  fStrikeout = aValue;
  StateUpdate();
}

void TKDXBaseText::SetFontHeight(Single aMM) {
  const int height = std::max(HeldBase(aMM), LeastFontHeight);
  if (height == fFontHeight) return;
  const TEdit edit(*this);
  fFontHeight = height;
  StateCalc();
}

void TKDXBaseText::SetScaleX(Single aValue) {
  const Single scale = HeldScale(Finite(aValue));
  if (scale == fScaleX) return;
  const TEdit edit(*this);
  fScaleX = scale;
  StateCalc();
}

Single TKDXBaseText::HeldScale(Single aValue) {
  if (aValue >= MostScale) return MostScale;
  return aValue > LeastScale ? aValue : LeastScale;
}

// Data --------------------------------------------------------------------------------

void TKDXBaseText::SetData(TZORFillType aType, const std::string& aName, const std::string& aFormat) {
  const TEdit edit(*this);
  Bind(aType, aName, aFormat);
  UpdateBinding();
  fText = dText;
  StateCalc();
  if (fOwner->Selected(*this)) NotifyUpdate(chChText);
}

void TKDXBaseText::UpdateBinding() {
  dText = fFillType != ftNone ? fField : fText;
  aIsData = IsBound();
}

void TKDXBaseText::FillData(bool aFirst) {
  if (!HasValue(*fOwner)) return;
  std::string value = Value(*fOwner);
  if (value.size() > MostValue) {
    throw EArgumentException("the value has " + std::to_string(value.size()) +
                             " bytes, more than one text can show");
  }
  fText = std::move(value);
  if (aFirst) CalcValues(1);
}

// Background, padding, placement --------------------------------------------------------

void TKDXBaseText::SetBackColor(TAlphaColor aValue) { Change<TKDXColorCmd>(fBackColor, aValue, 2); }
void TKDXBaseText::SetFilled(bool aValue) { Change<TKDXBoolCmd>(fFill, aValue, 1); }

void TKDXBaseText::SetRadio(Single aMM) {
  const int radius = HeldBase(aMM);
  SetBaseRadio(fHeight > 0 ? std::min(radius, fHeight / 2) : radius);
}

void TKDXBaseText::SetBaseRadio(int aBase) {
  Change<TKDXBaseValueCmd>(fRadio, std::max(aBase, 0), 2, &TKDXBaseItem::StateUpdate);
}

void TKDXBaseText::SetAngle(TZORAngle aValue) {
  const TEdit edit(*this);
  TKDXBaseItem::SetAngle(aValue);
  UpdateBounds();
}

void TKDXBaseText::SetPadding(int& aField, Single aMM) { Place(aField, std::max(HeldBase(aMM), 0)); }
void TKDXBaseText::SetPaddingX(Single aMM) { SetPadding(fPaddingX, aMM); }
void TKDXBaseText::SetPaddingY(Single aMM) { SetPadding(fPaddingY, aMM); }
void TKDXBaseText::SetHorzAlign(TZORHorzAlign aValue) { Place(fHorzAlign, aValue); }
void TKDXBaseText::SetVertAlign(TZORVertAlign aValue) { Place(fVertAlign, aValue); }

template <class T>
void TKDXBaseText::Place(T& aField, T aValue) {
  if (aField == aValue) return;
  const TEdit edit(*this);
  aField = aValue;
  StateUpdate();
  UpdateBounds();
}

// Bounds --------------------------------------------------------------------------------

void TKDXBaseText::SetMeasured(int aWidth, int aHeight, int aAscent, int aDescent, int aPosUnderline,
                               double aRatio) {
  fWidth = std::max(aWidth, 0);
  fHeight = std::max(aHeight, 0);
  fAscent = aAscent;
  fDescent = aDescent;
  fPosUnderline = aPosUnderline;
  fRatio = aRatio;
  UpdateBounds();
}

void TKDXBaseText::UpdateBounds() {
  const TZORPto anchor = GetPoint(1);
  PlacePoint(2, AddHeld(anchor.bX, Drawn(Int64{fWidth} + 2 * Int64{fPaddingX})),
             AddHeld(anchor.bY, Drawn(Int64{fHeight} + 2 * Int64{fPaddingY})));
  fBoundsRect = {anchor.bX, anchor.bY, GetPoint(2).bX, GetPoint(2).bY};
  AdjustRect(fBoundsRect, fHorzAlign, fVertAlign, fAngle);
  TKDXBaseItem::UpdateBounds();
}

Int64 TKDXBaseText::Drawn(Int64 aPaper) const { return MulHeld(aPaper, fOwner->fMeasure->fDrawScale); }

void TKDXBaseText::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  const auto widen = [](Int64 aLow, Int64 aHigh, Int64& aMin, Int64& aMax) {
    if (aMin == -1 || aLow < aMin) aMin = aLow;
    if (aMax == -1 || aHigh > aMax) aMax = aHigh;
  };
  widen(fBoundsRect.Left, fBoundsRect.Right, aMinX, aMaxX);
  widen(fBoundsRect.Top, fBoundsRect.Bottom, aMinY, aMaxY);
}

void TKDXBaseText::BoundsMove(Single& ax, Single& ay) const {
  const TZORUnits unit = fOwner->fUnits;
  CutMove(ax, GetValue(fBoundsRect.Left, unit), GetValue(fBoundsRect.Right, unit),
          fOwner->fMeasure->WidthUnits());
  CutMove(ay, GetValue(fBoundsRect.Top, unit), GetValue(fBoundsRect.Bottom, unit),
          fOwner->fMeasure->HeightUnits());
}

void TKDXBaseText::CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt /*aMoveOp*/) const {
  const TZORRect shown = GetDisplayBoundsRect();
  CutMove(ax, shown.Left, shown.Right, fOwner->fMeasure->GetSize(mtLabelWidth, true));
  CutMove(ay, shown.Top, shown.Bottom, fOwner->fMeasure->GetSize(mtLabelHeight, true));
}

TZORBase TKDXBaseText::CenterPoint() const {
  return {fBoundsRect.Left + fBoundsRect.GetWidth() / 2, fBoundsRect.Top + fBoundsRect.GetHeight() / 2};
}

}  // namespace Zor::inline Text
