#include "kaldrix/items/CircleGeometry.hpp"

#include <cmath>

#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Base {

TZORPto TBaseCircle::At(double aAngle) const {
  const auto radius = static_cast<double>(r);
  return {AddHeld(x, RoundHeld(radius * std::cos(aAngle))), AddHeld(y, RoundHeld(radius * std::sin(aAngle)))};
}

double TBaseCircle::Direction(Int64 ax, Int64 ay) const {
  return TDraw2D::NormalizeAngle(
      std::atan2(static_cast<double>(Span(y, ay)), static_cast<double>(Span(x, ax))));
}

double TBaseCircle::DistanceTo(Int64 ax, Int64 ay) const {
  return TDraw2D::Magnitude(Span(x, ax), Span(y, ay));
}

TDirections TangentDirections(const TBaseCircle& aCircle, Int64 x, Int64 y, int gap, const TZORRef& aRef) {
  TDirections found;
  const auto radius = static_cast<double>(aCircle.r);
  if (aCircle.r <= 0 || std::fabs(aCircle.DistanceTo(x, y) - radius) > gap) return found;
  if (aRef.lbX == -1 && aRef.lbY == -1) {
    found.Add(aCircle.Direction(x, y));
    return found;
  }
  const double distance = aCircle.DistanceTo(aRef.lbX, aRef.lbY);
  if (radius >= distance) return found;
  const double towards = aCircle.Direction(aRef.lbX, aRef.lbY);
  const double opening = std::acos(radius / distance);
  found.Add(TDraw2D::NormalizeAngle(towards + opening));
  found.Add(TDraw2D::NormalizeAngle(towards - opening));
  return found;
}

bool SnapToTangent(const TBaseCircle& aCircle, const TDirections& aDirections, Int64 x, Int64 y,
                   TZORRef& aRef) {
  if (aDirections.count == 0) return false;
  const auto squaredWay = [x, y](const TZORPto& p) {
    const Int64 dx = Span(x, p.bX), dy = Span(y, p.bY);
    return WideDot(dx, dy, dx, dy);
  };
  TZORPto target = aCircle.At(aDirections.angles[0]);
  if (aDirections.count == 2) {
    const TZORPto other = aCircle.At(aDirections.angles[1]);
    if (squaredWay(other) < squaredWay(target)) target = other;
  }
  aRef.bX = target.bX;
  aRef.bY = target.bY;
  aRef.FindRef(rtyCircle);
  return true;
}

}  // namespace Zor::inline Base
