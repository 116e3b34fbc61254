// Moving, resizing and turning items.
#include "kaldrix/core/TKDXBaseItem.hpp"

#include <array>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/utils/Values.hpp"

namespace Zor::inline Base {

namespace {

/// Which point an edge or corner move acts on, on each axis; 0: none.
struct TEdgeMove {
  TZORMoveOpt option;
  int pointX;
  int pointY;
};
constexpr std::array<TEdgeMove, 9> EdgeMoves{{
    {moAll, 0, 0},
    {moLeft, 1, 0},
    {moRight, 2, 0},
    {moTop, 0, 1},
    {moBottom, 0, 2},
    {moTopLeft, 1, 1},
    {moTopRight, 2, 1},
    {moBotLeft, 1, 2},
    {moBotRight, 2, 2},
}};
static_assert(EdgeMoves[moBotRight].option == moBotRight && EdgeMoves[moTopLeft].option == moTopLeft);

/// The way to the next grid line in one direction, for a coordinate on a grid.
Int64 WayToGrid(Int64 aValue, int aGrid, bool aUp) {
  if (aGrid <= 0) return 0;
  const Int64 rest = aValue % aGrid;
  if (aUp) return rest == 0 ? aGrid : aGrid - rest;
  return rest == 0 ? -Int64{aGrid} : -rest;
}

}  // namespace

void CutMove(Int64& aWay, Int64 aLow, Int64 aHigh, Int64 aLimit) {
  if (aWay > 0) {
    if (aHigh == aLimit) {
      aWay = 0;
    } else if (AddHeld(aHigh, aWay) > aLimit) {
      aWay = aLimit - aHigh;
    }
  } else if (aWay < 0 && AddHeld(aLow, aWay) < 0) {
    aWay = -aLow;
  }
}

void CutMove(Single& aWay, Single aLow, Single aHigh, Single aLimit) {
  if (aWay > 0) {
    if (aHigh == aLimit) {
      aWay = 0;
    } else if (aHigh + aWay > aLimit) {
      aWay = aLimit - aHigh;
    }
  } else if (aWay < 0 && aLow + aWay < 0) {
    aWay = -aLow;
  }
}

void TKDXBaseItem::CheckBaseBoundsMove(Int64& ax, Int64& ay) const {
  if (fItemType == itSector) return;
  CutMove(ax, fBoundsRect.Left, fBoundsRect.Right, fOwner->fMeasure->GetSize(mtLabelWidth, true));
  CutMove(ay, fBoundsRect.Top, fBoundsRect.Bottom, fOwner->fMeasure->GetSize(mtLabelHeight, true));
}

void TKDXBaseItem::CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt /*aMoveOp*/) const {
  const Int64 width = fOwner->fMeasure->GetSize(mtLabelWidth, true);
  const Int64 height = fOwner->fMeasure->GetSize(mtLabelHeight, true);
  const std::size_t count = fItemType == itArrowLine ? 2 : fPoints.size();
  for (std::size_t i = 0; i < count; ++i) {
    CutMove(ax, fPoints[i].bX, fPoints[i].bX, width);
    CutMove(ay, fPoints[i].bY, fPoints[i].bY, height);
  }
}

void TKDXBaseItem::CheckBaseBoundsMoveResize(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const {
  const TEdgeMove& edge = EdgeMoves[aMoveOp];
  const bool all = aMoveOp == moAll;
  const TZORPto low = GetPoint(1), high = GetPoint(2);
  const auto cut = [all](Int64& aWay, int aPoint, Int64 aLow, Int64 aHigh, Int64 aLimit) {
    if (aWay > 0 ? all || aPoint == 2 : all || aPoint == 1) CutMove(aWay, aLow, aHigh, aLimit);
  };
  cut(ax, edge.pointX, low.bX, high.bX, fOwner->fMeasure->GetSize(mtLabelWidth, true));
  cut(ay, edge.pointY, low.bY, high.bY, fOwner->fMeasure->GetSize(mtLabelHeight, true));
}

void TKDXBaseItem::BoundsMove(Single& ax, Single& ay) const {
  if (fItemType == itSector) return;
  const Single width = fOwner->fMeasure->WidthUnits(), height = fOwner->fMeasure->HeightUnits();
  const int count = fItemType == itArrowLine ? 2 : NumPoints();
  for (int i = 1; i <= count; ++i) {
    CutMove(ax, GetPointX(i), GetPointX(i), width);
    CutMove(ay, GetPointY(i), GetPointY(i), height);
  }
}

void TKDXBaseItem::BasePointMove(Int64& ax, Int64& ay, int /*aIndex*/) const {
  if (ax < 0 || ax > fOwner->fMeasure->GetSize(mtLabelWidth, true)) ax = -1;
  if (ay < 0 || ay > fOwner->fMeasure->GetSize(mtLabelHeight, true)) ay = -1;
}

void TKDXBaseItem::BaseMove(Int64 ax, Int64 ay, Int64 grX, Int64 grY, TZORMoveOpt aMoveOp, bool aUpdate) {
  const TEdit edit(*this);
  if (aMoveOp == moAll) {
    MoveAll(ax, ay, grX, grY);
  } else {
    const TEdgeMove& edge = EdgeMoves[aMoveOp];
    const TZORPto x = GetPoint(edge.pointX), y = GetPoint(edge.pointY);
    if (edge.pointX != 0) SetBaseX(edge.pointX, grX >= 0 ? grX : AddHeld(x.bX, ax));
    if (edge.pointY != 0) SetBaseY(edge.pointY, grY >= 0 ? grY : AddHeld(y.bY, ay));
    // Intended: the left edge alone ends without a report; its callers refresh in any case.
    if (aMoveOp != moLeft) StateUpdate();
  }
  if (aUpdate) UpdateBounds();
}

void TKDXBaseItem::MoveAll(Int64 ax, Int64 ay, Int64 grX, Int64 grY) {
  TKDXElePosCmd::AddCommand(*this, 0);
  if ((grX > 0 || grY >= 1) && !fPoints.empty()) {
    TZORPto first = fPoints.front();
    first.BaseMove(ax, ay);
    if (grX > 0 && ax != 0) first.bX = AdjustGrid(first.bX, grX, ax >= 1);
    if (grY >= 1 && ay != 0) first.bY = AdjustGrid(first.bY, grY, ay >= 1);
    ax = first.bX - fPoints.front().bX;
    ay = first.bY - fPoints.front().bY;
  }
  for (TZORPto& point : fPoints) point.BaseMove(ax, ay);
  StateUpdate();
}

void TKDXBaseItem::Move(Single ax, Single ay, TZORMoveOpt aMoveOp) {
  const TZORUnits unit = fOwner->fUnits;
  Finite(ax);
  Finite(ay);
  const TEdit edit(*this);
  const auto moveSecond = [this, unit](Single dx, Single dy) {
    if (fPoints.size() < 2) return;
    fPoints[1].Move(dx, dy, unit);
    StateCalc();
  };
  switch (aMoveOp) {
    case moAll:
      for (TZORPto& point : fPoints) point.Move(ax, ay, unit);
      break;
    case moLeft:
      moveSecond(-ax, 0);
      break;
    case moRight:
      moveSecond(ax, 0);
      break;
    case moTop:
      moveSecond(0, -ay);
      break;
    case moBottom:
      moveSecond(0, ay);
      break;
    default:
      break;
  }
  UpdateBounds();
}

void TKDXBaseItem::MoveToGrid(int aGX, int aGY, bool aRight, bool aDown) {
  fmx = WayToGrid(GetPoint(1).bX, aGX, aRight);
  fmy = WayToGrid(GetPoint(1).bY, aGY, aDown);
  if (fmx != 0 || fmy != 0) CheckBaseBoundsMove(fmx, fmy, moAll);
}

bool TKDXBaseItem::MoveToPoint(Int64 x, Int64 y) {
  fmx = x - GetPoint(1).bX;
  fmy = y - GetPoint(1).bY;
  if (fmx == 0 && fmy == 0) return false;
  CheckBaseBoundsMove(fmx, fmy, moAll);
  return fmx != 0 || fmy != 0;
}

void TKDXBaseItem::RotateLeft() {
  const TEdit edit(*this);
  fAngle = fAngle == ag270 ? ag0 : static_cast<TZORAngle>(fAngle + 1);
  const Int64 height = fOwner->fMeasure->GetSize(mtLabelHeight, true);
  for (TZORPto& point : fPoints) point.SetBase(point.bY, height - point.bX);
  NormalizePoints();
  UpdateBounds();
}

void TKDXBaseItem::RotateRight() {
  const TEdit edit(*this);
  fAngle = fAngle == ag0 ? ag270 : static_cast<TZORAngle>(fAngle - 1);
  const Int64 width = fOwner->fMeasure->GetSize(mtLabelWidth, true);
  for (TZORPto& point : fPoints) point.SetBase(width - point.bY, point.bX);
  NormalizePoints();
  UpdateBounds();
}

}  // namespace Zor::inline Base
