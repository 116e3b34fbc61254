// Circles that are kept as the box round them: centre, radius, points, and the snap to a tangent.
#pragma once

#include <array>

#include "kaldrix/types/Records.hpp"

namespace Zor::inline Base {

/// The middle and the half length of one axis of a box, truncated towards its first point.
inline Int64 BoxMiddle(Int64 aFirst, Int64 aSecond) { return AddHeld(aFirst, SubHeld(aSecond, aFirst) / 2); }
inline Int64 BoxHalf(Int64 aFirst, Int64 aSecond) { return SubHeld(aSecond, aFirst) / 2; }

/// A circle in base points.
struct TBaseCircle {
  Int64 x = 0;
  Int64 y = 0;
  Int64 r = 0;

  friend constexpr bool operator==(const TBaseCircle&, const TBaseCircle&) = default;

  /// In a direction in radians.
  TZORPto At(double aAngle) const;
  /// Of a position as seen from the centre, radians from 0 to 2 pi.
  double Direction(Int64 ax, Int64 ay) const;
  double DistanceTo(Int64 ax, Int64 ay) const;
};

/// Directions from the centre of a circle, radians.
struct TDirections {
  std::array<double, 2> angles{};
  int count = 0;

  void Add(double aAngle) { angles[static_cast<std::size_t>(count++)] = aAngle; }
};

/// Where a tangent snap with the cursor at (x, y) may land. None unless the cursor is at most `gap` from the
/// circle. With a last point in `aRef`, the two points of contact of the tangents from it (none when it is
/// not outside the circle); without one, the direction of the cursor.
TDirections TangentDirections(const TBaseCircle& aCircle, Int64 x, Int64 y, int gap, const TZORRef& aRef);

/// Snaps to the point of the circle in that direction which is nearest to the cursor, the first on a tie;
/// false without a direction.
bool SnapToTangent(const TBaseCircle& aCircle, const TDirections& aDirections, Int64 x, Int64 y,
                   TZORRef& aRef);

}  // namespace Zor::inline Base
