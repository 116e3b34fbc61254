#include "kaldrix/items/TCentredItem.hpp"

#include <cstdlib>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"

namespace Zor::inline Base {

Single TCentredItem::GetCenterX() const { return fOwner->GetVal(fBaseX, false); }
Single TCentredItem::GetCenterY() const { return fOwner->GetVal(fBaseY, false); }

Int64 TCentredItem::HalfWidth() const { return std::abs(BoxHalf(GetPoint(1).bX, GetPoint(2).bX)); }
Int64 TCentredItem::HalfHeight() const { return std::abs(BoxHalf(GetPoint(1).bY, GetPoint(2).bY)); }

Int64 TCentredItem::HeldCentre(Single aValue, Int64 aHalf, TZORMeasureType aSize) const {
  Int64 centre = HeldPlace(aValue, fOwner->fUnits);
  if (fOwner->fUndoing || fOwner->fRedoing) return centre;
  const Int64 size = fOwner->fMeasure->GetSize(aSize, HasScaledLimits());
  if (SubHeld(centre, aHalf) < 0) centre = aHalf;
  if (AddHeld(centre, aHalf) > size) centre = SubHeld(size, aHalf);
  return centre;
}

void TCentredItem::SetCenterX(Single aValue) {
  if (HeldPlace(aValue, fOwner->fUnits) == fBaseX) return;
  const TEdit edit(*this);
  TKDXFloatCmd::AddCommand(*this, 3);
  StateUpdate();
  const Int64 half = HalfWidth(), centre = HeldCentre(aValue, half, mtLabelWidth);
  SetBaseX(1, SubHeld(centre, half));
  SetBaseX(2, AddHeld(centre, half));
  UpdateBounds();
}

void TCentredItem::SetCenterY(Single aValue) {
  if (HeldPlace(aValue, fOwner->fUnits) == fBaseY) return;
  const TEdit edit(*this);
  TKDXFloatCmd::AddCommand(*this, 4);
  StateUpdate();
  const Int64 half = HalfHeight(), centre = HeldCentre(aValue, half, mtLabelHeight);
  SetBaseY(1, SubHeld(centre, half));
  SetBaseY(2, AddHeld(centre, half));
  UpdateBounds();
}

void TCentredItem::Surround(Int64 rx, Int64 ry) {
  AssignPoints({{SubHeld(fBaseX, rx), SubHeld(fBaseY, ry)}, {AddHeld(fBaseX, rx), AddHeld(fBaseY, ry)}}, 1);
}

bool TCentredItem::CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const {
  return aSnap == snCenter && SnapTo({fBaseX, fBaseY}, ax, ay, gap, rtyCircle, aRef);
}

void TCentredItem::UpdateBounds() {
  TKDX2DItem::UpdateBounds();
  fBaseX = BoxMiddle(GetPoint(1).bX, GetPoint(2).bX);
  fBaseY = BoxMiddle(GetPoint(1).bY, GetPoint(2).bY);
}

void TCentredItem::WriteCentre(TSvgElement& aElement) const {
  aElement.Raw(" cx=\"").Val(GetMM(fBaseX)).Raw("\" cy=\"").Val(GetMM(fBaseY)).Raw("\"");
}

}  // namespace Zor::inline Base
