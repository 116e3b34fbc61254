#include "kaldrix/utils/TDraw2D.hpp"

#include <cmath>

#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

struct TCentre {
  double x;
  double y;
};

/// Where the perpendiculars in the middle of P1 P2 and P1 P3 cross.
TCentre CentreOfThree(double x1, double y1, double x2, double y2, double x3, double y3) {
  const double a = x1 - x3;
  const double b = y1 - y3;
  const double c = x1 - x2;
  const double d = y1 - y2;
  const double A = x1 * x1 - x2 * x2 + y1 * y1 - y2 * y2;
  const double B = x1 * x1 - x3 * x3 + y1 * y1 - y3 * y3;
  const double D = 2 * c * b - 2 * d * a;
  return {(b * A - d * B) / D, (c * B - a * A) / D};
}

/// The centre of the circle through three points and its radius, not rounded.
struct TThreePointCircle {
  bool valid = false;
  double cx = 0;
  double cy = 0;
  double r = 0;
};

TThreePointCircle CircleOfArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) {
  const Int64 ux = Span(x1, x2);
  const Int64 uy = Span(y1, y2);
  const Int64 vx = Span(x2, x3);
  const Int64 vy = Span(y2, y3);
  const Int128 wideDet = WideCross(ux, uy, vx, vy);
  if (wideDet == 0) return {};
  const double det = ToDouble(wideDet);
  const auto sum = [](Int64 a, Int64 b) { return ToDouble(static_cast<Int128>(a) + b); };
  const double dux = static_cast<double>(ux);
  const double duy = static_cast<double>(uy);
  const double dvx = static_cast<double>(vx);
  const double dvy = static_cast<double>(vy);
  const double m1 = dux * sum(x1, x2) + duy * sum(y1, y2);
  const double m2 = dvx * sum(x2, x3) + dvy * sum(y2, y3);
  TThreePointCircle circle;
  circle.valid = true;
  circle.cx = (dvy * m1 - duy * m2) / (2 * det);
  circle.cy = (dux * m2 - dvx * m1) / (2 * det);
  circle.r = std::hypot(static_cast<double>(x2) - circle.cx, static_cast<double>(y2) - circle.cy);
  return circle;
}

/// An angle from `cx`, `cy`, the centre as it has been stored.
double Direction(double cx, double cy, Int64 x, Int64 y) {
  return TDraw2D::NormalizeAngle(std::atan2(static_cast<double>(y) - cy, static_cast<double>(x) - cx));
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
  const TCentre centre = CentreOfThree(x1, y1, x2, y2, x3, y3);
  cx = Round(centre.x);
  cy = Round(centre.y);
  r = Round(std::hypot(x1 - centre.x, y1 - centre.y));
  return r > 0;
}

bool TDraw2D::CircleThreePoints(double x1, double y1, double x2, double y2, double x3, double y3, Single& cx,
                                Single& cy, Single& r) {
  const TCentre centre = CentreOfThree(x1, y1, x2, y2, x3, y3);
  cx = static_cast<Single>(centre.x);
  cy = static_cast<Single>(centre.y);
  r = static_cast<Single>(std::nearbyint(std::hypot(x1 - cx, y1 - cy)));
  return r > 0;
}

bool TDraw2D::ArcThreePoints(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64& cx, Int64& cy,
                             Int64& r, double& angStart, double& angEnd, double& angSweep, bool& ClockWise) {
  const TThreePointCircle circle = CircleOfArc(x1, y1, x2, y2, x3, y3);
  if (!circle.valid) return false;
  cx = Round(circle.cx);
  cy = Round(circle.cy);
  r = Round(circle.r);
  angStart = Direction(static_cast<double>(cx), static_cast<double>(cy), x1, y1);
  angEnd = Direction(static_cast<double>(cx), static_cast<double>(cy), x3, y3);
  ClockWise = WideCross(Span(x1, x2), Span(y1, y2), Span(x1, x3), Span(y1, y3)) > 0;
  angSweep = SignedSweep(angStart, angEnd, ClockWise);
  return true;
}

bool TDraw2D::ArcThreePoints(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Single& cx,
                             Single& cy, Single& r, double& angStart, double& angEnd, double& angSweep,
                             bool& ClockWise) {
  const TThreePointCircle circle = CircleOfArc(x1, y1, x2, y2, x3, y3);
  if (!circle.valid) return false;
  cx = static_cast<Single>(circle.cx);
  cy = static_cast<Single>(circle.cy);
  r = static_cast<Single>(circle.r);
  angStart = Direction(cx, cy, x1, y1);
  angEnd = Direction(cx, cy, x3, y3);
  ClockWise = WideCross(Span(x1, x2), Span(y1, y2), Span(x1, x3), Span(y1, y3)) > 0;
  angSweep = SignedSweep(angStart, angEnd, ClockWise);
  return true;
}

}  // namespace Zor::inline Utils
