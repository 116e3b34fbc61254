// Texts are UTF-8 in std::string; this is what the house knows about their characters.
// A character is a Unicode code point. No function here depends on a locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Zor {

namespace Utf8 {

/// What stands in the place of bytes that are not UTF-8.
inline constexpr char32_t Replacement = 0xFFFD;
inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Whether the whole text is well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsValid(std::string_view aText);

/// The text with every maximal ill-formed run replaced by one U+FFFD (Unicode 15, section 3.9, practice
/// "substitution of maximal subparts").
std::string Repaired(std::string_view aText);
/// The same in place; a text without fault is left alone and costs one pass.
void Repair(std::string& aText);

/// The code point that begins at byte `aPos`, which moves behind it; U+FFFD for an ill-formed run.
/// `aPos` must be inside the text.
char32_t Next(std::string_view aText, std::size_t& aPos);
/// Appends one code point; one that UTF-8 cannot hold is appended as U+FFFD.
void Append(std::string& aText, char32_t aChar);

std::u32string ToUtf32(std::string_view aText);
std::string FromUtf32(std::u32string_view aText);

/// How many code points a valid text has; bytes that continue one are not counted. Linear in the bytes.
std::size_t Count(std::string_view aText);
/// The byte where code point `aIndex` (0-based) of a valid text begins; the size of the text when it has not
/// so many.
std::size_t ByteIndex(std::string_view aText, std::size_t aIndex);
/// The part of `aCount` code points from code point `aFrom` (0-based) on, cut at the end of the text.
std::string_view Sub(std::string_view aText, std::size_t aFrom, std::size_t aCount);

/// Simple (one to one) case mapping of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic; other
/// characters stay.
char32_t LowerCase(char32_t aChar);
char32_t UpperCase(char32_t aChar);

}  // namespace Utf8

/// The text without the characters up to U+0020 at both ends.
std::string_view Trim(std::string_view aText);

std::string LowerCase(std::string_view aText);
std::string UpperCase(std::string_view aText);

/// Whether the texts are equal but for case, by the mapping of Utf8::LowerCase (final sigma equals sigma).
bool SameText(std::string_view aFirst, std::string_view aSecond);

}  // namespace Zor
