#pragma once

#include "kaldrix/types/TZORPto.hpp"

namespace Zor::inline Base {

/// The four running values of CheckFit, base points; -1 means not set yet.
class TFitExtent {
 public:
  TFitExtent(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY)
      : fMinX(aMinX), fMaxX(aMaxX), fMinY(aMinY), fMaxY(aMaxY) {}

  /// Widens to hold the point with `aReach` on each side.
  void Add(const TZORPto& aPoint, Int64 aReach) {
    Widen(aPoint.bX, aReach, fMinX, fMaxX);
    Widen(aPoint.bY, aReach, fMinY, fMaxY);
  }

 private:
  static void Widen(Int64 aValue, Int64 aReach, Int64& aMin, Int64& aMax) {
    const Int64 low = SubHeld(aValue, aReach), high = AddHeld(aValue, aReach);
    if (aMin == -1 || low < aMin) aMin = low;
    if (aMax == -1 || high > aMax) aMax = high;
  }

  Int64 &fMinX, &fMaxX, &fMinY, &fMaxY;
};

}  // namespace Zor::inline Base
