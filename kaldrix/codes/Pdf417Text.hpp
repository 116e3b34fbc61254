#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace Zor::inline Pdf417 {

/// Compaction modes.
enum TZORPdf417EncodeType : std::uint8_t { etText, etBinary, etNumeric };

/// Sub-modes of text compaction.
enum TZORPdf417TextMode : std::uint8_t { tmAlpha, tmLower, tmMixed, tmPunct, tmNone };

/// The value of a character in a sub-mode, or NoTextValue.
std::uint8_t TextValue(TZORPdf417TextMode aMode, unsigned aChar);
inline constexpr std::uint8_t NoTextValue = 0xFF;

/// The first sub-mode that holds a character.
TZORPdf417TextMode TextModeOf(unsigned aChar);

/// The values that lead from one sub-mode to another, one or two.
struct TTextSwitch {
  std::array<std::uint8_t, 2> Values;
  int Count;
  bool Stays;  // holds for one character
};
const TTextSwitch& TextSwitch(TZORPdf417TextMode aFrom, TZORPdf417TextMode aTo, bool aOneShot);

}  // namespace Zor::inline Pdf417
