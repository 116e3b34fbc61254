#include "kaldrix/platform/ShownName.hpp"

#include <array>
#include <charconv>
#include <cstdio>
#include <optional>

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

constexpr std::size_t EscapeSize = 4;  // of "\\xFF"

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

/// The text with its ill-formed bytes as \xFF, and its characters as `aPut` puts them.
template <class TPut>
std::string Escaping(std::string_view aText, TPut aPut) {
  std::string shown;
  shown.reserve(aText.size());
  for (std::size_t at = 0; at < aText.size();) {
    const std::size_t start = at;
    const char32_t c = Utf8::Next(aText, at);
    const std::string_view bytes = aText.substr(start, at - start);
    if (Utf8::IsValid(bytes)) {
      aPut(shown, c, bytes);
    } else {
      for (const char byte : bytes) shown += Numbered("\\x%02X", static_cast<unsigned char>(byte));
    }
  }
  return shown;
}

/// The byte that "\xFF" stands for; nothing for other texts.
std::optional<char> EscapedByte(std::string_view aText) {
  if (!aText.starts_with("\\x") || aText.size() != EscapeSize) return std::nullopt;
  unsigned byte = 0;
  const char* end = aText.data() + aText.size();
  const auto [last, error] = std::from_chars(aText.data() + 2, end, byte, 16);
  return error == std::errc{} && last == end ? std::optional(static_cast<char>(byte)) : std::nullopt;
}

}  // namespace

std::string ShownName(std::string_view aText) {
  return Escaping(aText, [](std::string& shown, char32_t c, std::string_view bytes) {
    if (IsUnsafe(c)) {
      shown += Escaped(c);
    } else {
      shown += bytes;
    }
  });
}

std::string NameAsText(std::string_view aName) {
  return Escaping(aName, [](std::string& text, char32_t, std::string_view bytes) { text += bytes; });
}

std::string NameOfText(std::string_view aText) {
  std::string name;
  for (std::size_t at = 0; at < aText.size();) {
    const auto byte = EscapedByte(aText.substr(at, EscapeSize));
    // Only bytes above ASCII are escaped.
    const bool escape = byte && static_cast<unsigned char>(*byte) >= 0x80;
    name += escape ? *byte : aText[at];
    at += escape ? EscapeSize : 1;
  }
  return NameAsText(name) == aText ? name : std::string(aText);
}

}  // namespace Zor
