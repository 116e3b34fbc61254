// The number types of the house and its four roundings.
#pragma once

#include <cmath>
#include <cstdint>

namespace Zor::inline Types {

using Single = float;
using Int64 = std::int64_t;
using Cardinal = std::uint32_t;

/// 32-bit colour 0xAARRGGBB.
using TAlphaColor = std::uint32_t;
/// The older colour form 0x00BBGGRR; a negative value names a system colour.
using TColor = std::int32_t;

inline constexpr TAlphaColor ColorBlack = 0xFF000000;
inline constexpr TAlphaColor ColorWhite = 0xFFFFFFFF;

/// Base points (a 1000th of a millimetre of the drawn object) that a file may place an item at, either way
/// from the origin. Sums and differences of two coordinates stay inside 64 bits.
inline constexpr Int64 MaxCoordinate = Int64{1} << 61;

}  // namespace Zor::inline Types

namespace Zor::inline Utils {

/// Nearest integer, ties to the even neighbour. A value outside Int64 gives its least value.
inline Int64 Round(double aValue) { return __builtin_llrint(aValue); }

/// `aValue` to the nearest multiple of a thousandth, ties to even: the rounding of lengths in documents.
inline double RoundTo3(double aValue) { return std::nearbyint(aValue * 1000.0) / 1000.0; }

/// trunc(value), plus 1 when its fraction is at least 0.5; a negative value is truncated towards zero.
inline int ZORound(Single aValue) {
  const Single whole = std::trunc(aValue);
  return static_cast<int>(whole) + (aValue - whole >= 0.5F ? 1 : 0);
}

/// Nearest integer, ties away from zero.
inline Int64 MathRound(long double aValue) {
  return static_cast<Int64>(aValue >= 0 ? std::trunc(aValue + 0.5L) : std::trunc(aValue - 0.5L));
}

/// a * b / c, rounded half away from zero; -1 when `c` is 0.
inline int MulDiv(int a, int b, int c) {
  if (c == 0) return -1;
  return static_cast<int>(std::round(static_cast<double>(Int64{a} * b) / c));
}

/// a * b, held at the ends of Int64 instead of running over.
inline Int64 MulHeld(Int64 a, Int64 b) {
  Int64 product = 0;
  if (!__builtin_mul_overflow(a, b, &product)) return product;
  return (a < 0) == (b < 0) ? INT64_MAX : INT64_MIN;
}

/// a + b, held at the ends of Int64 instead of running over.
inline Int64 AddHeld(Int64 a, Int64 b) {
  Int64 sum = 0;
  if (!__builtin_add_overflow(a, b, &sum)) return sum;
  return a > 0 ? INT64_MAX : INT64_MIN;
}

/// a - b, held at the ends of Int64 instead of running over.
inline Int64 SubHeld(Int64 a, Int64 b) {
  Int64 difference = 0;
  if (!__builtin_sub_overflow(a, b, &difference)) return difference;
  return a < 0 ? INT64_MIN : INT64_MAX;
}

}  // namespace Zor::inline Utils
