// What items with a free number of points share: their segments and their middle.
#pragma once

#include "kaldrix/types/Records.hpp"

namespace Zor::inline Base {

/// The first segment, 1-based, whose line is at most `gap` base points from the position, else -1. A closed
/// path has a last segment from its last point to its first.
/// Intended: the distance is that to the infinite line through the segment, rounded; the caller holds the
/// position in the bounds. A segment without length counts as its point.
int PickLines(const TZORPtoA& aPoints, bool aClosed, Int64 x, Int64 y, int gap);

/// The mean of the points, truncated; (0, 0) without points.
TZORBase MeanPoint(const TZORPtoA& aPoints);

}  // namespace Zor::inline Base
