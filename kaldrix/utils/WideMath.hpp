// Products of coordinates, which leave 64 bits when coordinates come near MaxCoordinate.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>

#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Utils {

__extension__ using Int128 = __int128;

/// b - a, held inside ±(2^63 - 1): two products of such values always add up inside 128 bits.
inline Int64 Span(Int64 a, Int64 b) { return (std::max)(SubHeld(b, a), -INT64_MAX); }

inline bool FitsInt64(Int128 aValue) { return aValue == static_cast<Int64>(aValue); }

/// The nearest double. Most values fit 64 bits, where the conversion is one instruction.
inline double ToDouble(Int128 aValue) {
  return FitsInt64(aValue) ? static_cast<double>(static_cast<Int64>(aValue)) : static_cast<double>(aValue);
}

/// Held at the ends of Int64.
inline Int64 ToInt64Held(Int128 aValue) {
  if (FitsInt64(aValue)) return static_cast<Int64>(aValue);
  return aValue < 0 ? INT64_MIN : INT64_MAX;
}

/// Truncated towards zero and held at the ends of Int64; 0 for what is no number.
inline Int64 TruncHeld(double aValue) {
  constexpr double limit = 9223372036854775808.0;  // 2^63
  if (!(aValue < limit)) return aValue >= limit ? INT64_MAX : 0;
  return aValue > -limit ? static_cast<Int64>(aValue) : INT64_MIN;
}

/// Nearest integer, ties to even, held at the ends of Int64; 0 for what is no number.
inline Int64 RoundHeld(double aValue) {
  constexpr double whole = 4503599627370496.0;  // 2^52: from here on a double has no fraction
  return std::fabs(aValue) < whole ? Round(aValue) : TruncHeld(aValue);
}

/// Nearest integer to the quotient, ties to even, held at the ends of Int64.
inline Int64 RoundRatio(Int128 aNumerator, Int128 aDenominator) {
  // In floats first, several times faster: below 2^40 their error is below a thousandth, so that only what is
  // close to a half needs the division.
  const double estimate = ToDouble(aNumerator) / ToDouble(aDenominator);
  if (std::fabs(estimate) < 1099511627776.0) {
    const Int64 nearest = Round(estimate);
    if (std::fabs(estimate - static_cast<double>(nearest)) < 0.499) return nearest;
  }
  Int128 quotient = aNumerator / aDenominator;
  const Int128 rest = aNumerator % aDenominator;
  const Int128 left = (aDenominator < 0 ? -aDenominator : aDenominator) - (rest < 0 ? -rest : rest);
  const bool half = rest == left || rest == -left;
  const bool above = rest > left || rest < -left;
  if (above || (half && quotient % 2 != 0)) quotient += (aNumerator < 0) == (aDenominator < 0) ? 1 : -1;
  return ToInt64Held(quotient);
}

/// Nearest integer to aFrom + quotient, ties to even, held at the ends of Int64.
inline Int64 OffsetRatio(Int64 aFrom, Int128 aNumerator, Int128 aDenominator) {
  // The odd part goes into the quotient, so that a tie is seen as it is.
  const Int64 odd = aFrom % 2;
  return AddHeld(aFrom - odd, RoundRatio(aNumerator + aDenominator * odd, aDenominator));
}

/// Nearest integer to aFrom + aOffset, ties to even, held at the ends of Int64. The offset keeps its digits
/// however far from the origin `aFrom` lies.
inline Int64 OffsetRound(Int64 aFrom, double aOffset) {
  const Int64 odd = aFrom % 2;
  return AddHeld(aFrom - odd, RoundHeld(aOffset + static_cast<double>(odd)));
}

/// Inclusive, `a` and `b` in either order.
inline bool WideInRange(Int128 v, Int128 a, Int128 b) {
  return (std::min)(a, b) <= v && v <= (std::max)(a, b);
}

/// Whether all of them are within ±2^aBits.
inline bool AllWithin(int aBits, std::initializer_list<Int64> aValues) {
  const Int64 limit = Int64{1} << aBits;
  return std::all_of(aValues.begin(), aValues.end(), [limit](Int64 v) { return v <= limit && v >= -limit; });
}

/// x1 x2 + y1 y2, of values made by Span.
inline Int128 WideDot(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  return static_cast<Int128>(x1) * x2 + static_cast<Int128>(y1) * y2;
}

/// x1 y2 - y1 x2, of values made by Span.
inline Int128 WideCross(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  return static_cast<Int128>(x1) * y2 - static_cast<Int128>(y1) * x2;
}

/// x² + y², of values made by Span.
inline double SquareSum(Int64 x, Int64 y) { return ToDouble(WideDot(x, y, x, y)); }

}  // namespace Zor::inline Utils
