#include "kaldrix/utils/ShownCode.hpp"

#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Utils {

namespace {

constexpr std::size_t MostShown = 80;  // characters

bool IsControl(char32_t aChar) { return aChar < ' ' || (aChar >= 0x7F && aChar <= 0xA0); }

void AppendShown(std::string& aOut, char32_t aChar) {
  if (!IsControl(aChar)) return Utf8::Append(aOut, aChar);
  aOut += "\\x";
  for (const unsigned nibble : {static_cast<unsigned>(aChar) >> 4, static_cast<unsigned>(aChar) & 15U})
    aOut += "0123456789ABCDEF"[nibble];
}

}  // namespace

std::string ShownText(std::string_view aText) {
  // A character has four bytes at most.
  const std::string text = Utf8::Repaired(aText.substr(0, 4 * MostShown + 4));
  const std::string_view part = Utf8::Sub(text, 0, MostShown);
  std::string shown = "'";
  for (std::size_t i = 0; i < part.size();) AppendShown(shown, Utf8::Next(part, i));
  return shown += part.size() < text.size() ? "...'" : "'";
}

std::string ShownCode(std::string_view aBytes) {
  return ShownText(AnsiToUtf8(aBytes.substr(0, 2 * MostShown)));
}

}  // namespace Zor::inline Utils
