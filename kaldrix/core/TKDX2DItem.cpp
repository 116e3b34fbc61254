#include "kaldrix/core/TKDX2DItem.hpp"

#include <cstdlib>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"

namespace Zor::inline Base {

TKDX2DItem::TKDX2DItem(TKDXBaseLabel& aOwner, TZORItemType aType, bool aPreview)
    : TKDXBaseItem(aOwner, aType, aPreview) {
  fResize = true;
}

TKDX2DItem::TKDX2DItem(TKDXBaseLabel& aOwner, TZORItemType aType, TKDXLayer& aLayer, bool aPreview)
    : TKDXBaseItem(aOwner, aType, aLayer, aPreview) {
  fResize = true;
}

void TKDX2DItem::SetBackColor(TAlphaColor aValue) { Change<TKDXColorCmd>(fBackColor, aValue, 2); }
void TKDX2DItem::SetFilled(bool aValue) { Change<TKDXBoolCmd>(fFill, aValue, 1); }

// Size --------------------------------------------------

Int64 TKDX2DItem::BaseWidth() const { return std::abs(GetPoint(2).bX - GetPoint(1).bX); }
Int64 TKDX2DItem::BaseHeight() const { return std::abs(GetPoint(2).bY - GetPoint(1).bY); }

namespace {

Int64 OnPaper(Int64 aBase, Int64 aScale) {
  return aScale == 1 ? aBase : Round(static_cast<double>(aBase) / static_cast<double>(aScale));
}

}  // namespace

Int64 TKDX2DItem::BaseScaleWidth() const { return OnPaper(BaseWidth(), fOwner->fMeasure->fDrawScale); }
Int64 TKDX2DItem::BaseScaleHeight() const { return OnPaper(BaseHeight(), fOwner->fMeasure->fDrawScale); }

void TKDX2DItem::SetBaseWidth(Int64 aBase) {
  if (aBase == BaseWidth()) return;
  const TEdit edit(*this);
  TKDXPosCmd::AddCommand(*this, 2, ptX);
  SetBaseX(2, AddHeld(GetPoint(1).bX, aBase));
  UpdateBounds();
}

void TKDX2DItem::SetBaseHeight(Int64 aBase) {
  if (aBase == BaseHeight()) return;
  const TEdit edit(*this);
  TKDXPosCmd::AddCommand(*this, 2, ptY);
  SetBaseY(2, AddHeld(GetPoint(1).bY, aBase));
  UpdateBounds();
}

Single TKDX2DItem::GetWidth() const { return GetValue(BaseWidth(), fOwner->fUnits); }
Single TKDX2DItem::GetHeight() const { return GetValue(BaseHeight(), fOwner->fUnits); }

void TKDX2DItem::SetWidth(Single aValue) {
  if (fItemType != itBarcode) SetPointX(2, GetPointX(1) + aValue);
}
void TKDX2DItem::SetHeight(Single aValue) {
  if (fItemType != itBarcode) SetPointY(2, GetPointY(1) + aValue);
}

Single TKDX2DItem::GetWidthMM() const {
  return fOwner->GetValMM(BaseWidth()) / static_cast<Single>(fOwner->fMeasure->fDrawScale);
}
Single TKDX2DItem::GetHeightMM() const {
  return fOwner->GetValMM(BaseHeight()) / static_cast<Single>(fOwner->fMeasure->fDrawScale);
}

int TKDX2DItem::WidthPx(int aDpi) const {
  return static_cast<int>(Round(static_cast<double>(MulHeld(BaseWidth(), aDpi)) /
                                (static_cast<double>(fOwner->fMeasure->fDrawScale) * BaseInInch)));
}
int TKDX2DItem::HeightPx(int aDpi) const {
  return static_cast<int>(Round(static_cast<double>(MulHeld(BaseHeight(), aDpi)) /
                                (static_cast<double>(fOwner->fMeasure->fDrawScale) * BaseInInch)));
}

// Operations of the classes --------------------------------------------------

void TKDX2DItem::CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const {
  if (fItemType == itPolygon) return TKDXBaseItem::CheckBaseBoundsMove(ax, ay, aMoveOp);
  CheckBaseBoundsMoveResize(ax, ay, aMoveOp);
}

void TKDX2DItem::Record(TRecord& r) {
  TKDXBaseItem::Record(r);
  r.Boolean(fFill);
  r.UInt32(fBackColor);
}

std::unique_ptr<TJsonObject> TKDX2DItem::WriteJson() const {
  auto json = TKDXBaseItem::WriteJson();
  json->PutBool("Filled", fFill);
  PutColor(*json, "FillColor", fBackColor);
  return json;
}

void TKDX2DItem::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDXBaseItem::ReadJson(aVersion, aJson);
  fFill = aJson.GetBool("Filled");
  fBackColor = Base::GetColor(aJson, "FillColor");
}

}  // namespace Zor::inline Base
