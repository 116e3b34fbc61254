// Affine maps of the plane, and what holds numbers of drawings within bounds.
#pragma once

#include <algorithm>
#include <cmath>

#include "kaldrix/host/TPath.hpp"

namespace Zor::inline Host {

/// Limit of a displacement, so that sums with it stay finite.
inline constexpr double FarthestMove = 1e9;

inline double Finite(double value) { return std::isfinite(value) ? value : 0; }
inline double Moved(double value) { return std::clamp(Finite(value), -FarthestMove, FarthestMove); }

/// Maps (x, y) to (xx x + xy y + x0, yx x + yy y + y0).
struct TMatrix {
  double xx = 1, yx = 0, xy = 0, yy = 1, x0 = 0, y0 = 0;

  /// Clockwise on the paper; quarter turns are exact, so that bars that were turned still lie along the axes.
  static TMatrix Rotation(double degrees);

  TPaperPoint Apply(double x, double y) const { return {xx * x + xy * y + x0, yx * x + yy * y + y0}; }

  /// What first applies `inner` and then this.
  TMatrix Times(const TMatrix& inner) const {
    const TPaperPoint origin = Apply(inner.x0, inner.y0);
    return {xx * inner.xx + xy * inner.yx,
            yx * inner.xx + yy * inner.yx,
            xx * inner.xy + xy * inner.yy,
            yx * inner.xy + yy * inner.yy,
            origin.x,
            origin.y};
  }
  TMatrix Translated(double dx, double dy) const { return Times({1, 0, 0, 1, dx, dy}); }
  TMatrix Scaled(double sx, double sy) const { return {xx * sx, yx * sx, xy * sy, yy * sy, x0, y0}; }

  /// Lengths of the images of the unit vectors.
  double Across() const { return std::hypot(xx, yx); }
  double Down() const { return std::hypot(xy, yy); }
  double Area() const { return std::abs(xx * yy - xy * yx); }
  /// Rectangles along the axes stay such.
  bool AlongAxes() const { return (xy == 0 && yx == 0) || (xx == 0 && yy == 0); }
  /// Circles stay circles.
  bool KeepsShapes() const {
    const double slack = 1e-9 * (Across() + Down());
    return (std::abs(xx - yy) <= slack && std::abs(xy + yx) <= slack) ||
           (std::abs(xx + yy) <= slack && std::abs(xy - yx) <= slack);
  }
};

}  // namespace Zor::inline Host
