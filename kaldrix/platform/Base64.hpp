// Base64 in the MIME form (RFC 2045, section 6.8).
#pragma once

#include <string>
#include <string_view>

namespace Zor {

/// Characters of a line before CR LF; there is no line end behind the last line.
inline constexpr int Base64LineLength = 76;

std::string EncodeBase64(std::string_view aBytes);
/// The same in one line, as protocols want it.
std::string EncodeBase64Line(std::string_view aBytes);

/// The bytes of an encoded text. White space and line breaks are skipped; the padding may be missing. Any
/// other character, characters behind the padding, and a lone last character raise EConvertError with the
/// position (0-based byte).
std::string DecodeBase64(std::string_view aText);

}  // namespace Zor
