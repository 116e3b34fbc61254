#include "kaldrix/core/TKDXBasePoint.hpp"

#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

namespace {

/// Half sides, in base points, of the bounds and of the square in which a link end catches.
constexpr Int64 HalfBounds = 500;
constexpr Int64 LinkGap = 1000;

}  // namespace

TKDXBasePoint::TKDXBasePoint(TKDXBaseLabel& aOwner, bool aPreview) : TKDXBaseItem(aOwner, itPoint, aPreview) {
  aOwner.Rename(*this, "Point");
}

TKDXBasePoint::TKDXBasePoint(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TKDXBaseItem(aOwner, itPoint, aLayer, aPreview) {
  aOwner.Rename(*this, "Point");
}

TZORBase TKDXBasePoint::LinkPoint(std::uint16_t /*aPos*/) const { return CenterPoint(); }

TZORBase TKDXBasePoint::CenterPoint() const { return {GetPoint(1).bX, GetPoint(1).bY}; }

bool TKDXBasePoint::CheckLink(Int64 bx, Int64 by, TZOLink& aLink) const {
  const TZORPto centre = GetPoint(1);
  const auto near = [](Int64 v, Int64 aTarget) { return v >= aTarget - LinkGap && v <= aTarget + LinkGap; };
  if (!near(bx, centre.bX) || !near(by, centre.bY)) return false;
  aLink.ID = fInID;
  aLink.draw = true;
  aLink.SetPos(0);
  aLink.bX = static_cast<int>(centre.bX);
  aLink.bY = static_cast<int>(centre.bY);
  return true;
}

bool TKDXBasePoint::Pick(Int64 ax, Int64 ay, int gap, bool /*aInt*/) const {
  const TZORPto centre = GetPoint(1);
  const auto inside = [gap](Int64 v, Int64 aTarget) { return v > aTarget - gap && v < aTarget + gap; };
  return inside(ax, centre.bX) && inside(ay, centre.bY);
}

void TKDXBasePoint::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDXBaseItem::ReadJson(aVersion, aJson);
  UpdateBounds();
}

void TKDXBasePoint::UpdateBounds() {
  const TZORPto centre = GetPoint(1);
  fBoundsRect = {centre.bX - HalfBounds, centre.bY - HalfBounds, centre.bX + HalfBounds,
                 centre.bY + HalfBounds};
  fOwner->NodeMoved();
}

}  // namespace Zor::inline Base
