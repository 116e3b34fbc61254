// Texts of one byte a character, in Windows-1252. The five bytes that the code page leaves free (0x81, 0x8D,
// 0x8F, 0x90, 0x9D) stand for the control characters of their own number, so that every text of bytes comes
// back.
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/types/AnsiString.hpp"

namespace Zor {

/// UTF-8 to bytes; a character that has none becomes "?".
AnsiString ToAnsi(std::string_view aText);
/// Bytes to UTF-8.
std::string AnsiToUtf8(std::string_view aBytes);
inline std::string ToUtf8(const AnsiString& aText) { return AnsiToUtf8(aText.Bytes()); }

}  // namespace Zor
