// GS1 element strings, written with their application identifiers in parentheses: "(01)04006381333931(10)A1".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Zor::inline Utils {

/// What readers tell for an FNC1 that separates fields.
inline constexpr char Gs1Separator = '\x1D';
/// Characters of one GS1-128 symbol, without parentheses, with separators (the GS1 standard, 5.4.2).
inline constexpr std::size_t MostOfGs1Symbol = 48;

/// Is the text meant as one: does it begin with a parenthesis?
inline bool IsGs1Text(std::string_view aText) { return aText.starts_with('('); }

/// What is wrong with such a text, in words; empty when nothing is. Checked are identifiers, lengths,
/// characters, dates and check digits, as Gs1Table has them. Bytes of Windows-1252; the answer is UTF-8.
/// A parenthesis in the data is data unless it encloses two to four digits.
std::string Gs1Problem(std::string_view aText);

/// What a symbol carries behind its first FNC1: the text without the parentheses of its identifiers, with a
/// Gs1Separator behind each field of variable length that is not the last. For a text without problem.
std::string Gs1Data(std::string_view aText);

/// The identifier of the first field that has a separator behind it, or nothing.
std::string_view Gs1FirstSeparated(std::string_view aText);

}  // namespace Zor::inline Utils
