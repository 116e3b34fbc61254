#include "kaldrix/platform/Ansi.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

/// The characters of the bytes 0x80 to 0x9F; all others are those of ISO 8859-1.
constexpr std::array<char16_t, 32> Middle{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                          0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char32_t MiddleFrom = 0x80, MiddleEnd = 0xA0, LatinEnd = 0x100;

bool IsAscii(std::string_view aText) {
  return std::all_of(aText.begin(), aText.end(),
                     [](char c) { return static_cast<unsigned char>(c) < MiddleFrom; });
}

char ToByte(char32_t aChar) {
  if (aChar < MiddleFrom || (aChar >= MiddleEnd && aChar < LatinEnd)) return static_cast<char>(aChar);
  const auto* const found = std::find(Middle.begin(), Middle.end(), aChar);
  return found == Middle.end()
             ? '?'
             : static_cast<char>(MiddleFrom + static_cast<char32_t>(found - Middle.begin()));
}

}  // namespace

AnsiString ToAnsi(std::string_view aText) {
  if (IsAscii(aText)) return AnsiString(std::string(aText));
  std::string bytes;
  bytes.reserve(aText.size());
  for (std::size_t at = 0; at < aText.size();) bytes += ToByte(Utf8::Next(aText, at));
  return AnsiString(std::move(bytes));
}

std::string AnsiToUtf8(std::string_view aBytes) {
  if (IsAscii(aBytes)) return std::string(aBytes);
  std::string text;
  text.reserve(aBytes.size() * 2);
  for (const char c : aBytes) {
    const char32_t byte = static_cast<unsigned char>(c);
    Utf8::Append(text, byte >= MiddleFrom && byte < MiddleEnd ? Middle[byte - MiddleFrom] : byte);
  }
  return text;
}

}  // namespace Zor
