#pragma once

#include <algorithm>
#include <limits>

#include "kaldrix/types/Units.hpp"

namespace Zor::inline Base {

/// Millimetres to 32-bit base points, held at the ends of 32 bits.
inline int HeldBase(Single aMM) {
  constexpr double least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
  return static_cast<int>(Round(std::clamp(double{aMM} * BaseInMM, least, most)));
}

}  // namespace Zor::inline Base
