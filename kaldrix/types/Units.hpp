// Lengths: base points and the units in which a user reads them.
#pragma once

#include <array>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Types {

/// What a unit is worth and what it is called.
struct TZORUnitFacts {
  double basePoints;  ///< base points in one unit
  double millimetres;
  std::string_view symbol;
  bool restricted;  ///< not allowed in labels and flowcharts
};

/// By ordinal of TZORUnits. A yard counts 914 mm here.
inline constexpr std::array<TZORUnitFacts, 7> UnitTable{{
    {1000, 1, "mm", false},
    {25400, 25.4, "inch", false},
    {10000, 10, "cm", false},
    {100000, 100, "dm", true},
    {1000000, 1000, "m", true},
    {304800, 304.8, "ft", true},
    {914000, 914, "yd", true},
}};

/// The facts of `aUnit`; those of unMM for an ordinal out of range.
constexpr const TZORUnitFacts& UnitFacts(TZORUnits aUnit) {
  return UnitTable[aUnit < UnitTable.size() ? aUnit : unMM];
}

/// Base points in a millimetre, and in an inch.
inline constexpr double BaseInMM = 1000.0;
inline constexpr double BaseInInch = 25400.0;

}  // namespace Zor::inline Types

namespace Zor::inline Utils {

/// A length that a user entered, as base points: Round, but for short lengths after a step through single
/// precision, so that a decimal half such as 0.0005 mm counts as the half that it stands for.
inline Int64 RoundLength(double aBase) {
  constexpr double fineLimit = 16384;  // base points below which a single still tells thousandths
  return Round(std::fabs(aBase) < fineLimit ? static_cast<double>(static_cast<Single>(aBase)) : aBase);
}

/// Base points to millimetres of the drawn object.
inline Single GetBaseValue(Int64 aBase) { return static_cast<Single>(static_cast<double>(aBase) / BaseInMM); }
/// Millimetres of the drawn object to base points.
inline Int64 SetBaseValue(Single aMM) { return RoundLength(static_cast<double>(aMM) * BaseInMM); }

/// Base points to `aUnit`.
inline Single GetValue(Int64 aBase, TZORUnits aUnit) {
  return static_cast<Single>(static_cast<double>(aBase) / UnitFacts(aUnit).basePoints);
}
/// `aUnit` to base points.
inline Int64 SetValue(Single aValue, TZORUnits aUnit) {
  return RoundLength(static_cast<double>(aValue) * UnitFacts(aUnit).basePoints);
}

/// The unit's symbol; with `aRestric` "mm" for the restricted units.
inline std::string_view SymUnit(TZORUnits aUnit, bool aRestric) {
  const TZORUnitFacts& facts = UnitFacts(aUnit);
  return aRestric && facts.restricted ? UnitTable[unMM].symbol : facts.symbol;
}

}  // namespace Zor::inline Utils
