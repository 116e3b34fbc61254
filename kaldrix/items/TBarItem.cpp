#include "kaldrix/items/TBarItem.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TFitExtent.hpp"
#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/items/TextPlacement.hpp"

namespace Zor::inline Barcode {

TBarItem::TBarItem(TKDXBaseLabel& aOwner, TZORItemType aType, const TBarSizes& aSizes, bool aPreview)
    : TDataItem(aOwner, aType, aPreview), fSizes(&aSizes) {
  TakeSizes();
}

TBarItem::TBarItem(TKDXBaseLabel& aOwner, TZORItemType aType, const TBarSizes& aSizes, TKDXLayer& aLayer,
                   bool aPreview)
    : TDataItem(aOwner, aType, aLayer, aPreview), fSizes(&aSizes) {
  TakeSizes();
}

void TBarItem::TakeSizes() {
  fResize = false;
  fBarWidth = fSizes->width;
  fBarHeight = fSizes->height;
  fPaddingX = fSizes->paddingX;
  fPaddingY = fSizes->paddingY;
  fFactor = fSizes->factor;
}

// Sizes -------------------------------------------------------------------------------

void TBarItem::SetBarWidth(Single aMM) {
  const int width = std::max(HeldBase(aMM), fSizes->leastWidth);
  if (width == fBarWidth) return;
  const TEdit edit(*this);
  Change<TKDXFloatCmd>(fBarWidth, width, 0, &TKDXBaseItem::StateUpdate);
  TieHeight();
  UpdateSize();
}

void TBarItem::SetBarHeight(Single aMM) {
  const int height = std::max(HeldBase(aMM), fSizes->leastHeight);
  if (height == fBarHeight) return;
  const TEdit edit(*this);
  Change<TKDXFloatCmd>(fBarHeight, height, 1, &TKDXBaseItem::StateUpdate);
  TieWidth();
  UpdateSize();
}

void TBarItem::SetPaddingX(Single aMM) { Place(fPaddingX, std::max(HeldBase(aMM), 0)); }
void TBarItem::SetPaddingY(Single aMM) { Place(fPaddingY, std::max(HeldBase(aMM), 0)); }

int TBarItem::HeldInt(Int64 aValue) {
  constexpr Int64 most = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(aValue, -most, most));
}

// Data --------------------------------------------------------------------------------

void TBarItem::SetData(TZORFillType aType, const std::string& aName, const std::string& aFormat) {
  const TEdit edit(*this);
  Bind(aType, aName, aFormat);
  aIsData = IsBound();
  StateCalc();
}

void TBarItem::AfterRead(TZORReadType aReadType) {
  TDataItem::AfterRead(aReadType);
  fBarWidth = std::max(fBarWidth, fSizes->leastWidth);
  fBarHeight = std::max(fBarHeight, fSizes->leastHeight);
  for (int* length : {&fPaddingX, &fPaddingY}) *length = std::max(*length, 0);
  aIsData = IsBound();
}

// Placement ---------------------------------------------------------------------------

void TBarItem::SetAngle(TZORAngle aValue) {
  const TEdit edit(*this);
  TDataItem::SetAngle(aValue);
  UpdatePoints();
}

void TBarItem::UpdatePoints() { UpdateBounds(); }

void TBarItem::UpdateBounds() {
  const Int64 scale = fOwner->fMeasure->fDrawScale;
  const TZORPto anchor = GetPoint(1);
  PlacePoint(2, AddHeld(anchor.bX, MulHeld(fBarCodeWidth, scale)),
             AddHeld(anchor.bY, MulHeld(fBarCodeHeight, scale)));
  fBoundsRect = {anchor.bX, anchor.bY, GetPoint(2).bX, GetPoint(2).bY};
  AdjustRect(fBoundsRect, BlockAlign(), fVertAlign, fAngle);
}

void TBarItem::RotateLeft() {
  const TEdit edit(*this);
  fAngle = fAngle == ag270 ? ag0 : static_cast<TZORAngle>(fAngle + 1);
  const TZORPto anchor = GetPoint(1);
  SetBase(1, anchor.bY, SubHeld(fOwner->fMeasure->GetSize(mtLabelHeight, true), anchor.bX));
  UpdatePoints();
}

void TBarItem::RotateRight() {
  const TEdit edit(*this);
  fAngle = fAngle == ag0 ? ag270 : static_cast<TZORAngle>(fAngle - 1);
  const TZORPto anchor = GetPoint(1);
  SetBase(1, SubHeld(fOwner->fMeasure->GetSize(mtLabelWidth, true), anchor.bY), anchor.bX);
  UpdatePoints();
}

void TBarItem::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  TFitExtent extent(aMinX, aMaxX, aMinY, aMaxY);
  extent.Add({fBoundsRect.Left, fBoundsRect.Top}, 0);
  extent.Add({fBoundsRect.Right, fBoundsRect.Bottom}, 0);
}

void TBarItem::BoundsMove(Single& ax, Single& ay) const {
  const TZORUnits unit = fOwner->fUnits;
  const TKDXMeasure& measure = *fOwner->fMeasure;
  CutMove(ax, GetValue(fBoundsRect.Left, unit), GetValue(fBoundsRect.Right, unit), measure.WidthUnits());
  CutMove(ay, GetValue(fBoundsRect.Top, unit), GetValue(fBoundsRect.Bottom, unit), measure.HeightUnits());
}

void TBarItem::CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt /*aMoveOp*/) const {
  TKDXBaseItem::CheckBaseBoundsMove(ax, ay);
}

TZORBase TBarItem::CenterPoint() const {
  return {fBoundsRect.Left + fBoundsRect.GetWidth() / 2, fBoundsRect.Top + fBoundsRect.GetHeight() / 2};
}

// SVG ---------------------------------------------------------------------------------

double TBarItem::ExactMM(Int64 aBase) const { return static_cast<double>(aBase) / fOwner->PaperFactor(); }

void TBarItem::WriteSvgBack(TSvgList& svg, TZORExportSVG aExportType, Single aFactor) const {
  if (!fFill) return;
  const TZORRect& r = fBoundsRect;
  TSvgElement rect(aExportType, aFactor);
  rect.Raw("<rect x=\"").Val(GetMM(r.Left)).Raw("\" y=\"").Val(GetMM(r.Top));
  rect.Raw("\" width=\"").Val(GetMM(r.GetWidth())).Raw("\" height=\"").Val(GetMM(r.GetHeight())).Raw("\" ");
  rect.Fill(fBackColor, true).Raw(" stroke-width=\"0\"/>");
  svg.push_back(rect.Take());
}

}  // namespace Zor::inline Barcode
