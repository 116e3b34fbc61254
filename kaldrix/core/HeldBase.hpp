#pragma once

#include <algorithm>
#include <limits>

#include "kaldrix/types/Units.hpp"

namespace Zor::inline Base {

/// Millimetres to 32-bit base points, held at the ends of 32 bits.
inline int HeldBase(Single aMM) {
  return static_cast<int>(
      std::clamp<Int64>(SetBaseValue(aMM), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace Zor::inline Base
