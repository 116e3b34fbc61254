// Colours: between the two stored forms, and from and to text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Utils {

/// The opaque colour: red and blue change places.
constexpr TAlphaColor ColorToAlphaColor(TColor aColor) {
  const auto color = static_cast<std::uint32_t>(aColor);
  return 0xFF000000U | (color & 0xFFU) << 16 | (color & 0xFF00U) | (color >> 16 & 0xFFU);
}
/// Drops alpha; red and blue change places.
constexpr TColor AlphaColorToColor(TAlphaColor aColor) {
  return static_cast<TColor>((aColor & 0xFFU) << 16 | (aColor & 0xFF00U) | (aColor >> 16 & 0xFFU));
}
/// Alpha over the low 24 bits as they stand. Intended: red and blue do not change places here. A negative
/// colour names a system colour, which is looked up first.
TAlphaColor ColorToTAlphaColor(TColor aColor, std::uint8_t aAlpha);

constexpr TAlphaColor AlphaColor(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a) {
  return TAlphaColor{a} << 24 | TAlphaColor{r} << 16 | TAlphaColor{g} << 8 | b;
}

/// "#RRGGBBAA" in upper case, alpha last.
std::string AlphaColorToHex(TAlphaColor aColor);

/// Reads "#RRGGBB", "#RRGGBBAA" (alpha last) or a name: one of the 148 of CSS Color 4 or "transparent", in
/// any case. Blanks around the text do not count. On failure `aColor` is 0.
bool TryParseColor(std::string_view aText, TAlphaColor& aColor);

/// The same; opaque white on failure.
TAlphaColor ParseColor(std::string_view aText);

/// Reads RRGGBB or AARRGGBB, alpha first, after removing every "#".
/// Intended: the place of alpha differs from TryParseColor.
/// @throws EConvertError for any other length or a character that is no hexadecimal digit.
TAlphaColor HexToTAlphaColor(std::string_view aText);

}  // namespace Zor::inline Utils
