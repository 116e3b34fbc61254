// The text of a float: general format, 15 significant digits.
#pragma once

#include <cstddef>

namespace Zor::inline Jsondataobjects {

/// Bytes that the text of a float needs at most.
inline constexpr std::size_t JsonFloatSize = 32;

/// Writes a float with up to 15 significant digits, a point as decimal mark and no trailing zeros, and gives
/// the length of the text. From 1E15 up and below 0.0001 the text has an exponent, without plus sign and
/// leading zeros: 1.5E20, 1E-7. Zero has no sign. Not-a-number and the infinities have no JSON form and are
/// written as 0, so that what is written stays readable.
std::size_t WriteJsonFloat(char* aText, double aValue) noexcept;

}  // namespace Zor::inline Jsondataobjects
