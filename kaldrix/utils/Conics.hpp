// The quadratics behind the crossings of lines with circles and ellipses, and the circle through three
// points.
#pragma once

#include <cmath>

#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {

/// a t² + b t + c = 0, for the points P + t d of a line.
struct TQuadratic {
  double a = 0;
  double b = 0;
  double discriminant = 0;

  double MinusRoot() const { return (-b - std::sqrt(discriminant)) / (2 * a); }
  double PlusRoot() const { return (-b + std::sqrt(discriminant)) / (2 * a); }
  /// The foot of the centre on the line.
  double Middle() const { return -b / (2 * a); }

  /// The smallest root above `aLeast`; no number when there is none.
  double FirstAbove(double aLeast) const {
    if (!(discriminant >= 0)) return std::nan("");
    const double low = (std::min)(MinusRoot(), PlusRoot());
    const double high = (std::max)(MinusRoot(), PlusRoot());
    if (low > aLeast) return low;
    return high > aLeast ? high : std::nan("");
  }
};

/// A line of direction (dx, dy) through the point (fx, fy) relative to the centre of a circle. b² - 4 a c is
/// 4 (a r² - (d × f)²), which loses fewer digits; within 2^30 base points it is exact, so that tangents are.
inline TQuadratic CircleQuadratic(Int64 dx, Int64 dy, Int64 fx, Int64 fy, Int64 r) {
  const Int128 a = WideDot(dx, dy, dx, dy);
  const Int128 cross = WideCross(dx, dy, fx, fy);
  TQuadratic q{ToDouble(a), 2 * ToDouble(WideDot(dx, dy, fx, fy)), 0};
  if (AllWithin(30, {dx, dy, fx, fy, r})) {
    q.discriminant = 4 * ToDouble(a * r * r - cross * cross);
  } else {
    const double radius = static_cast<double>(r);
    q.discriminant = 4 * (q.a * radius * radius - ToDouble(cross) * ToDouble(cross));
  }
  return q;
}

inline TQuadratic CircleQuadratic(double dx, double dy, double fx, double fy, double r) {
  const double a = dx * dx + dy * dy;
  const double cross = dx * fy - dy * fx;
  return {a, 2 * (dx * fx + dy * fy), 4 * (a * r * r - cross * cross)};
}

/// In units of the radii, which are not zero.
inline TQuadratic EllipseQuadratic(double dx, double dy, double fx, double fy, double rx, double ry) {
  const double a = dx * dx / (rx * rx) + dy * dy / (ry * ry);
  const double b = 2 * (fx * dx / (rx * rx) + fy * dy / (ry * ry));
  const double c = fx * fx / (rx * rx) + fy * fy / (ry * ry) - 1;
  return {a, b, b * b - 4 * a * c};
}

/// The circle through three points, its centre relative to the first.
struct TCircumcircle {
  bool valid = false;  ///< false for points on one line
  double ux = 0;
  double uy = 0;
  double r = 0;
};

inline TCircumcircle Circumcircle(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) {
  const Int64 bx = Span(x1, x2);
  const Int64 by = Span(y1, y2);
  const Int64 cx = Span(x1, x3);
  const Int64 cy = Span(y1, y3);
  const Int128 cross = WideCross(bx, by, cx, cy);
  if (cross == 0) return {};
  const double determinant = 2 * ToDouble(cross);
  TCircumcircle circle;
  circle.valid = true;
  if (AllWithin(40, {bx, by, cx, cy})) {
    // Exact up to the division: of points that are nearly on one line the differences are small.
    const Int128 b = WideDot(bx, by, bx, by), c = WideDot(cx, cy, cx, cy);
    circle.ux = ToDouble(b * cy - c * by) / determinant;
    circle.uy = ToDouble(c * bx - b * cx) / determinant;
  } else {
    const double b = SquareSum(bx, by), c = SquareSum(cx, cy);
    circle.ux = (static_cast<double>(cy) * b - static_cast<double>(by) * c) / determinant;
    circle.uy = (static_cast<double>(bx) * c - static_cast<double>(cx) * b) / determinant;
  }
  circle.r = std::hypot(circle.ux, circle.uy);
  return circle;
}

}  // namespace Zor::inline Utils
