#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Base {

/// The value itself. Raises EArgumentOutOfRangeException for NaN and infinity, which no property takes;
/// setters ask before they change anything.
template <class TNumber>
TNumber Finite(TNumber aValue) {
  if (!std::isfinite(aValue)) throw EArgumentOutOfRangeException("A property takes neither NaN nor infinity");
  return aValue;
}

/// A place in `aUnit` to base points, held at the ends of the coordinate range. Raises as Finite does.
inline Int64 HeldPlace(Single aValue, TZORUnits aUnit) {
  constexpr double most = static_cast<double>(MaxCoordinate);
  const double base = static_cast<double>(Finite(aValue)) * UnitFacts(aUnit).basePoints;
  return std::abs(base) < most ? RoundLength(base) : base < 0 ? -MaxCoordinate : MaxCoordinate;
}

/// A length in `aUnit` to 32-bit base points, held at the ends of 32 bits. Raises as Finite does.
inline int HeldBase(Single aValue, TZORUnits aUnit = unMM) {
  constexpr Int64 least = (std::numeric_limits<int>::min)(), most = (std::numeric_limits<int>::max)();
  constexpr Single beyond = 1e10F;  // Beyond the ends in every unit, and far inside Int64.
  return static_cast<int>(
      std::clamp(SetValue(std::clamp(Finite(aValue), -beyond, beyond), aUnit), least, most));
}

}  // namespace Zor::inline Base
