#include "kaldrix/platform/ShownName.hpp"

#include <array>
#include <cstdio>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

struct TRange {
  char32_t first, last;
};
/// Controls, the ends of lines and paragraphs, and what turns the direction of reading.
constexpr std::array<TRange, 6> Unsafe{
    {{0x00, 0x1F}, {0x7F, 0x9F}, {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF}}};

bool IsUnsafe(char32_t aChar) {
  for (const TRange& range : Unsafe) {
    if (aChar >= range.first && aChar <= range.last) return true;
  }
  return false;
}

std::string Numbered(const char* aPicture, unsigned aNumber) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), aPicture, aNumber);
  return text.data();
}

std::string Escaped(char32_t aChar) {
  if (aChar == U'\n') return "\\n";
  if (aChar == U'\t') return "\\t";
  if (aChar == U'\r') return "\\r";
  return Numbered(aChar < 0x80 ? "\\x%02X" : "\\u%04X", static_cast<unsigned>(aChar));
}

}  // namespace

std::string ShownName(std::string_view aText) {
  std::string shown;
  shown.reserve(aText.size());
  for (std::size_t at = 0; at < aText.size();) {
    const std::size_t start = at;
    const char32_t c = Utf8::Next(aText, at);
    const std::string_view bytes = aText.substr(start, at - start);
    if (!Utf8::IsValid(bytes)) {
      for (const char byte : bytes) shown += Numbered("\\x%02X", static_cast<unsigned char>(byte));
    } else if (IsUnsafe(c)) {
      shown += Escaped(c);
    } else {
      shown += bytes;
    }
  }
  return shown;
}

std::string NameAsText(const std::string& aName) { return Utf8::IsValid(aName) ? aName : ShownName(aName); }

}  // namespace Zor
