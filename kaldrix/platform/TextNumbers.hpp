// Numbers that people have written into texts: columns of a file, answers to questions.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Zor {

/// The number that the whole text is, blanks around it left out: a sign, digits, a decimal point, an
/// exponent. None for anything else, and for what lies outside a double.
std::optional<double> TextToNumber(std::string_view aText);

/// The whole number that the text is, with a sign or not; none for anything else and outside 64 bits.
std::optional<std::int64_t> TextToWhole(std::string_view aText);

/// A number without its fraction, held at the ends of 32 bits; 0 for what is no number.
int HeldWhole(double aValue);
/// A number in single precision, held at its ends; 0 for what is no number.
float HeldSingle(double aValue);

}  // namespace Zor
