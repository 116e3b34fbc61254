// In which code the bytes of a text stand.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/platform/TFileWindow.hpp"

namespace Zor {

enum TTextCode : std::uint8_t {
  tcByMark,   ///< UTF-8 when the text begins with its mark (EF BB BF), else Windows-1252
  tcUtf8,     ///< UTF-8, with the mark or without
  tcUtf16,    ///< by the mark (FF FE or FE FF), without one the lower byte first
  tcUtf16Big  ///< by the mark, without one the higher byte first
};

inline bool IsUtf16(TTextCode aCode) { return aCode == tcUtf16 || aCode == tcUtf16Big; }

/// By a mark where there is one. Without one UTF-16 where every other byte is often 0 and those between them
/// never and a line ends so, UTF-8 where more bytes continue a character than fit nowhere, so that a single
/// bad byte is told and not taken for another code, else Windows-1252 (tcByMark). Looks at all bytes.
TTextCode GuessTextCode(const TFileWindow& aBytes);

/// Without its mark; what is no UTF-16 becomes U+FFFD.
std::string Utf16ToUtf8(std::string_view aBytes, TTextCode aCode);

}  // namespace Zor
