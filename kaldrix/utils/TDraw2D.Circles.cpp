#include "kaldrix/utils/TDraw2D.hpp"

#include <cmath>

#include "kaldrix/utils/Conics.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

/// From P1 to the place where the perpendiculars in the middle of P1 P2 and P1 P3 cross. Differences of the
/// points come first, so that nothing is lost far from the origin. No numbers for points on one line.
struct TCentre {
  TCentre(double x1, double y1, double x2, double y2, double x3, double y3) {
    const double bx = x2 - x1, by = y2 - y1, cx = x3 - x1, cy = y3 - y1;
    const double b = bx * bx + by * by, c = cx * cx + cy * cy, twice = 2 * (bx * cy - by * cx);
    dx = (cy * b - by * c) / twice;
    dy = (bx * c - cx * b) / twice;
  }
  double Radius() const { return std::hypot(dx, dy); }

  double dx, dy;
};

/// The direction of a way from the centre, as it has been stored.
template <class T>
double Direction(T dx, T dy) {
  return TDraw2D::NormalizeAngle(std::atan2(static_cast<double>(dy), static_cast<double>(dx)));
}

double SignedSweep(double aStart, double aEnd, bool aClockWise) {
  const double sweep = aEnd - aStart;
  if (aClockWise && sweep < 0) return sweep + TDraw2D::TwoPi;
  if (!aClockWise && sweep > 0) return sweep - TDraw2D::TwoPi;
  return sweep;
}

}  // namespace

bool TDraw2D::CircleTwoPoints(double x1, double y1, double x2, double y2, Int64& cx, Int64& cy, Int64& r) {
  const double mx = (x1 + x2) / 2;
  const double my = (y1 + y2) / 2;
  cx = Round(mx);
  cy = Round(my);
  r = Round(std::hypot(x1 - mx, y1 - my));
  return true;
}

bool TDraw2D::CircleTwoPoints(double x1, double y1, double x2, double y2, Single& cx, Single& cy, Single& r) {
  const double mx = (x1 + x2) / 2;
  const double my = (y1 + y2) / 2;
  cx = static_cast<Single>(mx);
  cy = static_cast<Single>(my);
  r = static_cast<Single>(std::nearbyint(std::hypot(x1 - mx, y1 - my)));
  return true;
}

bool TDraw2D::CircleThreePoints(double x1, double y1, double x2, double y2, double x3, double y3, Int64& cx,
                                Int64& cy, Int64& r) {
  const TCentre centre(x1, y1, x2, y2, x3, y3);
  cx = Round(x1 + centre.dx);
  cy = Round(y1 + centre.dy);
  r = Round(centre.Radius());
  return r > 0;
}

bool TDraw2D::CircleThreePoints(double x1, double y1, double x2, double y2, double x3, double y3, Single& cx,
                                Single& cy, Single& r) {
  const TCentre centre(x1, y1, x2, y2, x3, y3);
  cx = static_cast<Single>(x1 + centre.dx);
  cy = static_cast<Single>(y1 + centre.dy);
  r = static_cast<Single>(std::nearbyint(std::hypot(x1 - cx, y1 - cy)));
  return r > 0;
}

bool TDraw2D::ArcThreePoints(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64& cx, Int64& cy,
                             Int64& r, double& angStart, double& angEnd, double& angSweep, bool& ClockWise) {
  const TCircumcircle circle = Circumcircle(x1, y1, x2, y2, x3, y3);
  if (!circle.valid) return false;
  cx = OffsetRound(x1, circle.ux);
  cy = OffsetRound(y1, circle.uy);
  r = RoundHeld(circle.r);
  angStart = Direction(Span(cx, x1), Span(cy, y1));
  angEnd = Direction(Span(cx, x3), Span(cy, y3));
  ClockWise = WideCross(Span(x1, x2), Span(y1, y2), Span(x1, x3), Span(y1, y3)) > 0;
  angSweep = SignedSweep(angStart, angEnd, ClockWise);
  return true;
}

bool TDraw2D::ArcThreePoints(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Single& cx,
                             Single& cy, Single& r, double& angStart, double& angEnd, double& angSweep,
                             bool& ClockWise) {
  const TCircumcircle circle = Circumcircle(x1, y1, x2, y2, x3, y3);
  if (!circle.valid) return false;
  cx = static_cast<Single>(static_cast<double>(x1) + circle.ux);
  cy = static_cast<Single>(static_cast<double>(y1) + circle.uy);
  r = static_cast<Single>(circle.r);
  angStart = Direction(static_cast<double>(x1) - cx, static_cast<double>(y1) - cy);
  angEnd = Direction(static_cast<double>(x3) - cx, static_cast<double>(y3) - cy);
  ClockWise = WideCross(Span(x1, x2), Span(y1, y2), Span(x1, x3), Span(y1, y3)) > 0;
  angSweep = SignedSweep(angStart, angEnd, ClockWise);
  return true;
}

}  // namespace Zor::inline Utils
