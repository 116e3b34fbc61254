// Picking, searching, snapping, reference points and alignment of items.
#include "kaldrix/core/TKDXBaseItem.hpp"

#include <algorithm>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline Base {

namespace {

/// These count as thin on both axes: the tolerance always widens their bounds.
bool IsThin(TZORItemType aType) {
  return aType == itLine || aType == itArrowLine || aType == itLink || aType == itDim;
}

bool InHalfOpen(Int64 v, Int64 aFrom, Int64 aTo, Int64 gap) { return v >= aFrom - gap && v < aTo + gap; }

bool InBox(Int64 v, Int64 aTarget, int gap) { return v >= aTarget - gap && v <= aTarget + gap; }

TZORPto Middle(const TZORPto& a, const TZORPto& b) {
  return {a.bX + (b.bX - a.bX) / 2, a.bY + (b.bY - a.bY) / 2};
}

}  // namespace

Single TKDXBaseItem::GetRefX(int /*aIndex*/) const { return 0; }
Single TKDXBaseItem::GetRefY(int /*aIndex*/) const { return 0; }

bool TKDXBaseItem::Pick(Int64 ax, Int64 ay, int gap, bool /*aInt*/) const {
  const bool thin = IsThin(fItemType);
  const int gapX = thin || fBoundsRect.Left == fBoundsRect.Right ? gap : 0;
  const int gapY = thin || fBoundsRect.Top == fBoundsRect.Bottom ? gap : 0;
  return InHalfOpen(ax, fBoundsRect.Left, fBoundsRect.Right, gapX) &&
         InHalfOpen(ay, fBoundsRect.Top, fBoundsRect.Bottom, gapY);
}

bool TKDXBaseItem::SearchRect(const TZORRect& aRect, bool aInt) const {
  return aInt ? fBoundsRect.IntersectsWith(aRect) : aRect.Contains(fBoundsRect);
}

bool TKDXBaseItem::SnapTo(const TZORPto& aTarget, Int64 ax, Int64 ay, int gap, TZORefType aType,
                          TZORRef& aRef) {
  if (!InBox(ax, aTarget.bX, gap) || !InBox(ay, aTarget.bY, gap)) return false;
  aRef.bX = aTarget.bX;
  aRef.bY = aTarget.bY;
  aRef.FindRef(aType);
  return true;
}

bool TKDXBaseItem::SnapToFoot(const TZORPto& a, const TZORPto& b, Int64 ax, Int64 ay, int gap,
                              TZORRef& aRef) {
  if (aRef.lbX == -1 && aRef.lbY == -1) return false;
  TZORPto foot;
  if (!TDraw2D::LinePerpenFromPoint(a.bX, a.bY, b.bX, b.bY, aRef.lbX, aRef.lbY, true, foot.bX, foot.bY))
    return false;
  return SnapTo(foot, ax, ay, gap, rtyRect, aRef);
}

bool TKDXBaseItem::CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const {
  if (fItemType != itLine && fItemType != itPolyLine && fItemType != itPolygon) return false;
  if (aSnap == snEnd) {
    return std::any_of(fPoints.begin(), fPoints.end(),
                       [&](const TZORPto& point) { return SnapTo(point, ax, ay, gap, rtyRect, aRef); });
  }
  if (aSnap != snMiddle && aSnap != snPerpendicular) return false;
  const auto snaps = [&](const TZORPto& a, const TZORPto& b) {
    return aSnap == snMiddle ? SnapTo(Middle(a, b), ax, ay, gap, rtyRect, aRef)
                             : SnapToFoot(a, b, ax, ay, gap, aRef);
  };
  for (std::size_t i = 1; i < fPoints.size(); ++i) {
    if (snaps(fPoints[i - 1], fPoints[i])) return true;
  }
  const bool closes = fItemType == itPolygon && fPoints.size() >= (aSnap == snPerpendicular ? 3U : 2U);
  return closes && snaps(fPoints.back(), fPoints.front());
}

// Reference points --------------------------------------------------

int TKDXBaseItem::GetNumRefPoints() const {
  switch (fItemType) {
    case itPoint:
    case itSymbol:
      return 1;
    case itPolyLine:
    case itPolygon:
      return NumPoints();
    case itCircle:
    case itEllipse:
    case itLevel:
    case itSector:
      return 4;
    case itLink:
    case itBezier:
    case itDim:
    case itUndefined:
      return 0;
    default:
      return 2;
  }
}

TZORPto TKDXBaseItem::GetRefPoint(int aIndex) const {
  if (aIndex < 1 || aIndex > GetNumRefPoints()) return {};
  const TZORRect& r = fBoundsRect;
  switch (fItemType) {
    case itPoint:
    case itSymbol:
    case itLine:
    case itArrowLine:
    case itPolyLine:
    case itPolygon:
      return GetPoint(aIndex);
    case itCircle:
    case itEllipse:
    case itLevel:
    case itSector: {
      const TZORPto centre = Middle({r.Left, r.Top}, {r.Right, r.Bottom});
      const TZORPto sides[] = {
          {centre.bX, r.Top}, {r.Right, centre.bY}, {centre.bX, r.Bottom}, {r.Left, centre.bY}};
      return sides[aIndex - 1];
    }
    default:
      return aIndex == 1 ? TZORPto{r.Left, r.Top} : TZORPto{r.Right, r.Bottom};
  }
}

// Alignment --------------------------------------------------

TZORAlignTypes TKDXBaseItem::AlignTypes() const {
  switch (fItemType) {
    case itUndefined:
    case itPolyLine:
    case itArc:
    case itPolygon:
    case itLink:
    case itBezier:
      return {};
    case itLine:
    case itArrowLine:
    case itDim: {
      TZORAlignTypes axes;
      axes.Put(anHorz, GetPoint(1).bX == GetPoint(2).bX);
      axes.Put(anVert, GetPoint(1).bY == GetPoint(2).bY);
      return axes;
    }
    default:
      return {anHorz, anVert};
  }
}

void TKDXBaseItem::AlignPoints(TZORAlignType aType, Int64& aMin, Int64& aMax) const {
  const auto coordinate = [aType](const TZORPto& p) { return aType == anHorz ? p.bX : p.bY; };
  switch (fItemType) {
    case itUndefined:
    case itPolyLine:
    case itArc:
    case itPolygon:
    case itLink:
    case itBezier:
    case itSymbol:
      return;
    case itPoint:
      aMin = aMax = coordinate(GetPoint(1));
      return;
    case itText:
    case itBarcode:
    case itPDF417:
    case itDataMatrix:
    case itQRCode:
    case itPolyText:
      aMin = aType == anHorz ? fBoundsRect.Left : fBoundsRect.Top;
      aMax = aType == anHorz ? fBoundsRect.Right : fBoundsRect.Bottom;
      return;
    default:
      std::tie(aMin, aMax) = std::minmax({coordinate(GetPoint(1)), coordinate(GetPoint(2))});
  }
}

}  // namespace Zor::inline Base
