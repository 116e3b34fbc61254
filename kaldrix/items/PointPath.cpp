#include "kaldrix/items/PointPath.hpp"

#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Base {

namespace {

Int64 DistanceToLine(const TZORPto& a, const TZORPto& b, Int64 x, Int64 y) {
  const Int64 dx = Span(a.bX, b.bX), dy = Span(a.bY, b.bY);
  const Int64 fx = Span(a.bX, x), fy = Span(a.bY, y);
  if (dx == 0 && dy == 0) return RoundHeld(TDraw2D::Magnitude(fx, fy));
  const double cross = ToDouble(WideCross(dx, dy, fx, fy));
  return RoundHeld(std::fabs(cross) / TDraw2D::Magnitude(dx, dy));
}

}  // namespace

int PickLines(const TZORPtoA& aPoints, bool aClosed, Int64 x, Int64 y, int gap) {
  const std::size_t count = aPoints.size();
  if (count < 2) return -1;
  for (std::size_t i = 1; i < count; ++i) {
    if (DistanceToLine(aPoints[i - 1], aPoints[i], x, y) <= gap) return static_cast<int>(i);
  }
  const bool closes = aClosed && DistanceToLine(aPoints.back(), aPoints.front(), x, y) <= gap;
  return closes ? static_cast<int>(count) : -1;
}

TZORBase MeanPoint(const TZORPtoA& aPoints) {
  if (aPoints.empty()) return {};
  Int128 x = 0, y = 0;
  for (const TZORPto& point : aPoints) {
    x += point.bX;
    y += point.bY;
  }
  const auto count = static_cast<Int128>(aPoints.size());
  return {static_cast<Int64>(x / count), static_cast<Int64>(y / count)};
}

}  // namespace Zor::inline Base
