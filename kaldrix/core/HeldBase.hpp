#pragma once

#include <algorithm>
#include <limits>

#include "kaldrix/types/Units.hpp"

namespace Zor::inline Base {

/// A length in `aUnit` to 32-bit base points, held at the ends of 32 bits.
inline int HeldBase(Single aValue, TZORUnits aUnit = unMM) {
  constexpr Int64 least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
  constexpr Single far = 1e10F;  // Beyond the ends in every unit, and far inside Int64.
  return static_cast<int>(std::clamp(SetValue(std::clamp(aValue, -far, far), aUnit), least, most));
}

}  // namespace Zor::inline Base
