#include "kaldrix/platform/TextCode.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

constexpr std::string_view LittleMark = "\xFF\xFE";
constexpr std::string_view BigMark = "\xFE\xFF";

/// Bytes of the beginning that are looked at for zeros.
constexpr std::size_t HeadBytes = std::size_t{1} << 16;
/// So many characters, at most, of a text in UTF-16 are counted for each one below U+0100.
constexpr std::size_t MostForEachZero = 8;

/// Does a line end in UTF-16, whose zeros stand at even places (0) or at odd ones (1)?
bool HasWideLineEnd(std::string_view aHead, std::size_t aParity) {
  for (std::size_t i = 0; i + 1 < aHead.size(); i += 2) {
    const char c = aHead[i + 1 - aParity];
    if ((c == '\n' || c == '\r') && aHead[i + aParity] == '\0') return true;
  }
  return false;
}

/// UTF-16 without a mark, told by its zeros; tcByMark where it is none. A NUL in a short text of bytes is no
/// sign of it, while one in UTF-16 has lines.
TTextCode WideCode(std::string_view aHead) {
  std::array<std::size_t, 2> zeros{};  // at even places, at odd places
  for (std::size_t i = 0; i < aHead.size(); ++i) zeros[i % 2] += aHead[i] == '\0' ? 1 : 0;
  const auto tells = [&](std::size_t aParity) {
    return zeros[1 - aParity] == 0 && zeros[aParity] > 0 &&
           zeros[aParity] * MostForEachZero >= aHead.size() / 2 && HasWideLineEnd(aHead, aParity);
  };
  return tells(1) ? tcUtf16 : tells(0) ? tcUtf16Big : tcByMark;
}

/// How many bytes continue a character of UTF-8, and how many fit nowhere.
struct TTally {
  std::size_t good = 0, bad = 0;

  void Add(std::string_view aText) {
    if (Utf8::IsValid(aText)) {
      good += aText.size() - Utf8::Count(aText);
      return;
    }
    for (std::size_t at = 0; at < aText.size();) {
      const std::size_t start = at;
      Utf8::Next(aText, at);
      const bool fits = Utf8::IsValid(aText.substr(start, at - start));
      (fits ? good : bad) += at - start - (fits ? 1 : 0);
    }
  }
};

/// The part of a text that ends with a whole character.
std::size_t WholeCharacters(std::string_view aText) {
  constexpr std::size_t mostContinuing = 3;
  for (std::size_t cut = 0; cut <= mostContinuing && cut < aText.size(); ++cut) {
    const auto byte = static_cast<unsigned char>(aText[aText.size() - 1 - cut]);
    if (byte < 0x80) return aText.size() - cut;
    if (byte >= 0xC0) return aText.size() - 1 - cut;
  }
  return aText.size();
}

bool IsMoreUtf8(const TFileWindow& aBytes) {
  TTally tally;
  for (std::size_t from = 0; from < aBytes.Size();) {
    const std::size_t to = std::min(aBytes.Size(), from + TFileWindow::Step);
    std::string_view part = aBytes.View(from, to);
    if (to < aBytes.Size()) part = part.substr(0, WholeCharacters(part));
    tally.Add(part);
    from += part.size();
  }
  return tally.bad == 0 || tally.good > tally.bad;
}

}  // namespace

TTextCode GuessTextCode(const TFileWindow& aBytes) {
  const std::string_view head = aBytes.View(0, std::min(aBytes.Size(), HeadBytes));
  if (head.starts_with(LittleMark) || head.starts_with(BigMark)) return tcUtf16;
  if (head.starts_with(Utf8::ByteOrderMark)) return tcUtf8;
  const TTextCode wide = WideCode(head);
  if (wide != tcByMark) return wide;
  return IsMoreUtf8(aBytes) ? tcUtf8 : tcByMark;
}

std::string Utf16ToUtf8(std::string_view aBytes, TTextCode aCode) {
  bool highFirst = aCode == tcUtf16Big;
  if (aBytes.starts_with(BigMark) || aBytes.starts_with(LittleMark)) {
    highFirst = aBytes.starts_with(BigMark);
    aBytes.remove_prefix(BigMark.size());
  }
  const auto unit = [&](std::size_t aPlace) {
    const auto low = static_cast<unsigned char>(aBytes[aPlace + (highFirst ? 1 : 0)]);
    const auto high = static_cast<unsigned char>(aBytes[aPlace + (highFirst ? 0 : 1)]);
    return static_cast<char32_t>(low | high << 8);
  };
  std::string text;
  text.reserve(aBytes.size() / 2);
  std::size_t place = 0;
  for (; place + 1 < aBytes.size(); place += 2) {
    char32_t c = unit(place);
    if (c >= 0xD800 && c < 0xDC00 && place + 3 < aBytes.size()) {
      const char32_t second = unit(place + 2);
      if (second >= 0xDC00 && second < 0xE000) {
        c = 0x10000 + ((c - 0xD800) << 10) + (second - 0xDC00);
        place += 2;
      }
    }
    Utf8::Append(text, c);
  }
  if (place < aBytes.size()) Utf8::Append(text, Utf8::Replacement);
  return text;
}

}  // namespace Zor
