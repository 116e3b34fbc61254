// Ends, properties, picking and turning of a link.
#include "kaldrix/items/TKDXBaseLink.hpp"

#include <algorithm>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/items/CircleGeometry.hpp"
#include "kaldrix/items/PointPath.hpp"
#include "kaldrix/items/TFitExtent.hpp"
#include "kaldrix/items/TTermItem.hpp"
#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Line {

TKDXBaseLink::TKDXBaseLink(TKDXBaseLabel& aOwner, bool aPreview)
    : TStyledItem(aOwner, itLink, aPreview),
      fFromColor(aOwner.fSettings->fFillTermColor),
      fToColor(aOwner.fSettings->fFillTermColor) {}

TKDXBaseLink::TKDXBaseLink(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TKDXBaseLink(aOwner, aPreview) {
  fLayer = &aLayer;
}

TKDXBaseLink::TKDXBaseLink(TKDXBaseLabel& aOwner, int aCount, bool aPreview)
    : TKDXBaseLink(aOwner, aPreview) {
  fLinkPoints.resize(static_cast<std::size_t>(std::max(aCount, 0)));
}

// Ends ------------------------------------------------------------------------------

const IZORLink* TKDXBaseLink::Node(int aID) const {
  return dynamic_cast<const IZORLink*>(fOwner->SearchItem(aID, false));
}

bool TKDXBaseLink::LookUpEnds() const {
  if (fSeenGone != fOwner->GoneItems()) {
    fSeenGone = fOwner->GoneItems();
    fFromItem = fToItem = nullptr;
  }
  // A node may have taken another identity, or have come back.
  if (fFromItem == nullptr || fFromItem->InternalID() != fFromID) fFromItem = Node(fFromID);
  if (fToItem == nullptr || fToItem->InternalID() != fToID) fToItem = Node(fToID);
  if (fFromItem == nullptr || fToItem == nullptr) return false;
  p1 = fFromItem->LinkPoint(static_cast<std::uint16_t>(fFromIndex));
  p2 = fToItem->LinkPoint(static_cast<std::uint16_t>(fToIndex));
  return true;
}

bool TKDXBaseLink::TakeEnds() const {
  fOwner->RouteLinks();
  return LookUpEnds();
}

void TKDXBaseLink::SetFromID(int aID) {
  LookUpEnds();
  if (fFromID == aID && fFromItem != nullptr) return;
  const TEdit edit(*this);
  fFromID = aID;
  fOwner->LinkEndsChanged();
  fFromItem = nullptr;
  Reroute();
}

void TKDXBaseLink::SetToID(int aID) {
  LookUpEnds();
  if (fToID == aID && fToItem != nullptr) return;
  const TEdit edit(*this);
  fToID = aID;
  fOwner->LinkEndsChanged();
  fToItem = nullptr;
  Reroute();
}

namespace {

std::int16_t Position(int aIndex) { return static_cast<std::int16_t>(std::clamp(aIndex, 0, INT16_MAX)); }

}  // namespace

void TKDXBaseLink::SetFromIndex(int aIndex) {
  if (fFromIndex == Position(aIndex)) return;
  const TEdit edit(*this);
  fFromIndex = Position(aIndex);
  Reroute();
}

void TKDXBaseLink::SetToIndex(int aIndex) {
  if (fToIndex == Position(aIndex)) return;
  const TEdit edit(*this);
  fToIndex = Position(aIndex);
  Reroute();
}

bool TKDXBaseLink::IsAttachedToSelection() const {
  const auto selected = [this](int aID) {
    const TKDXBaseItem* item = fOwner->SearchItem(aID, false);
    return item != nullptr && item->fItemType != itLink && item->fState != isNormal;
  };
  return selected(fFromID) || selected(fToID);
}

void TKDXBaseLink::ResolveReferences() { FollowEnds(); }

// Properties ------------------------------------------------------------------------

void TKDXBaseLink::SetFromType(TZORTermType aValue) {
  Change<TKDXEnumValueCmd>(fFromType, aValue, 3, &TKDXBaseItem::StateUpdate);
}
void TKDXBaseLink::SetToType(TZORTermType aValue) {
  Change<TKDXEnumValueCmd>(fToType, aValue, 4, &TKDXBaseItem::StateUpdate);
}
void TKDXBaseLink::SetFromColor(TAlphaColor aValue) {
  Change<TKDXColorCmd>(fFromColor, aValue, 8, &TKDXBaseItem::StateUpdate);
}
void TKDXBaseLink::SetToColor(TAlphaColor aValue) {
  Change<TKDXColorCmd>(fToColor, aValue, 9, &TKDXBaseItem::StateUpdate);
}

// Inner points ----------------------------------------------------------------------

TZORPto TKDXBaseLink::GetLinkPoint(int aIndex) const {
  return HasLinkPoint(aIndex) ? fLinkPoints[static_cast<std::size_t>(aIndex - 1)] : TZORPto{};
}

TZORBase TKDXBaseLink::RoutePoint(int aIndex) const {
  const TZORPto point = GetLinkPoint(aIndex);
  return {point.bX, point.bY};
}

bool TKDXBaseLink::SetLinkPoint(int aIndex, Single x, Single y) {
  const TZORPto point{HeldPlace(x, fOwner->fUnits), HeldPlace(y, fOwner->fUnits)};
  return GetLinkPoint(aIndex) != point && SetBasePoint(aIndex, point.bX, point.bY, true);
}

bool TKDXBaseLink::SetBasePoint(int aIndex, Int64 x, Int64 y, bool aUpdate) {
  if (!HasLinkPoint(aIndex)) return false;
  const TEdit edit(*this);
  fOwner->RouteLinks();
  fLinkPoints[static_cast<std::size_t>(aIndex - 1)].SetBase(x, y);
  fDrawn = true;
  if (aUpdate) {
    CalcValues(1);
    StateUpdate();
  }
  return true;
}

bool TKDXBaseLink::MoveBasePoint(int aIndex, Int64 dx, Int64 dy) {
  TZORPto point = GetLinkPoint(aIndex);
  point.BaseMove(dx, dy);
  return SetBasePoint(aIndex, point.bX, point.bY, true);
}

bool TKDXBaseLink::InsertPoint(Int64 bx, Int64 by, int gap) {
  if (fLinkType != ltPolyline || !TakeEnds()) return false;
  const int segment = PickLines(Route(), false, bx, by, gap);
  if (segment < 1) return false;
  const TEdit edit(*this);
  fLinkPoints.insert(fLinkPoints.begin() + (segment - 1), TZORPto{bx, by});
  UpdateBounds();
  return true;
}

// Picking and extent ----------------------------------------------------------------

bool TKDXBaseLink::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TakeEnds() || !TKDXBaseItem::Pick(ax, ay, gap, aInt)) return false;
  switch (Form()) {
    case lfLine:
      // Intended: a routing of several legs that found none is drawn, but not hit.
      return (fLinkType == ltDirLine || fLinkType == ltArc) && PickLine(ax, ay, gap);
    case lfChain:
      return PickLines(Route(), false, ax, ay, gap) >= 1;
    case lfArc:
      return TDraw2D::PointInArc(fCx, fCy, fRadio, ax, ay, gap, fStart, fSweep);
    case lfCurve:
      return TDraw2D::PointInBezier(p1.X, p1.Y, pa.X, pa.Y, pb.X, pb.Y, p2.X, p2.Y, ax, ay, gap);
    case lfRound:
      return PickRound(ax, ay, gap);
    default:
      return false;
  }
}

bool TKDXBaseLink::PickLine(Int64 x, Int64 y, int gap) const {
  if (p1.X == p2.X) return WideInRange(y, p1.Y, p2.Y);
  if (p1.Y == p2.Y) return WideInRange(x, p1.X, p2.X);
  return PickLines({{p1.X, p1.Y}, {p2.X, p2.Y}}, false, x, y, gap) >= 1;
}

bool TKDXBaseLink::PickRound(Int64 x, Int64 y, int gap) const {
  const TZORPtoA route = Route();
  for (std::size_t i = 0; i + 3 < route.size(); i += 4) {
    const TZORPto &a = route[i], &b = route[i + 1], &c = route[i + 2], &d = route[i + 3];
    if (TDraw2D::PointInBezier(a.bX, a.bY, b.bX, b.bY, c.bX, c.bY, d.bX, d.bY, x, y, gap)) return true;
  }
  return false;
}

bool TKDXBaseLink::SearchRect(const TZORRect& aRect, bool aInt) const {
  return TakeEnds() && TKDXBaseItem::SearchRect(aRect, aInt);
}

void TKDXBaseLink::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  if (!TakeEnds()) return;
  const Int64 half = fPenWidth / 2, term = fOwner->fSettings->fTermSize;
  TFitExtent fit(aMinX, aMaxX, aMinY, aMaxY);
  fit.Add({p1.X, p1.Y}, fFromType == ttNone ? half : std::max(half, term));
  fit.Add({p2.X, p2.Y}, fToType == ttNone ? half : std::max(half, term));
  if (Form() == lfArc) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      const double angle = quarter * TDraw2D::Pi / 2;
      const TBaseCircle circle{fCx, fCy, fRadio};
      if (TDraw2D::ArcContainsAngle(fStart, fEnd, angle, fClockWise)) fit.Add(circle.At(angle), half);
    }
  } else {
    for (const TZORPto& point : fLinkPoints) fit.Add(point, half);
  }
}

void TKDXBaseLink::UpdateBounds() {
  if (fOwner->IsReading()) return;
  if (!LookUpEnds()) {
    fBoundsRect = TZORRect::EmptyRect();
    return;
  }
  // An arc that was read is judged by FollowEnds first.
  if (fLinkType == ltArc && fRouted) CalcArc();
  fBoundsRect = {p1.X, p1.Y, p2.X, p2.Y};
  fBoundsRect.NormalizeRect();
  for (const TZORPto& point : fLinkPoints) {
    fBoundsRect.Left = std::min(fBoundsRect.Left, point.bX);
    fBoundsRect.Top = std::min(fBoundsRect.Top, point.bY);
    fBoundsRect.Right = std::max(fBoundsRect.Right, point.bX);
    fBoundsRect.Bottom = std::max(fBoundsRect.Bottom, point.bY);
  }
}

TZORBase TKDXBaseLink::CenterPoint() const {
  if (!TakeEnds()) return {};
  const auto half = [](Int64 a, Int64 b) { return std::abs(Span(a, b)) / 2; };
  return {half(p1.X, p2.X), half(p1.Y, p2.Y)};
}

// Turning ---------------------------------------------------------------------------

void TKDXBaseLink::RotateLeft() {
  const TEdit edit(*this);
  const Int64 height = fOwner->fMeasure->GetSize(mtLabelHeight, true);
  for (TZORPto& point : fLinkPoints) point.SetBase(point.bY, SubHeld(height, point.bX));
  TStyledItem::RotateLeft();
}

void TKDXBaseLink::RotateRight() {
  const TEdit edit(*this);
  const Int64 width = fOwner->fMeasure->GetSize(mtLabelWidth, true);
  for (TZORPto& point : fLinkPoints) point.SetBase(SubHeld(width, point.bY), point.bX);
  TStyledItem::RotateRight();
}

}  // namespace Zor::inline Line
