#include "kaldrix/platform/Base64.hpp"

#include <array>
#include <cstdint>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {

namespace {

constexpr std::string_view Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t Skipped = 0xFE;
constexpr std::uint8_t Wrong = 0xFF;

/// What each character stands for: 0 to 63, Skipped or Wrong.
constexpr std::array<std::uint8_t, 256> Values = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(Wrong);
  for (std::size_t i = 0; i < Alphabet.size(); ++i) {
    values[static_cast<std::uint8_t>(Alphabet[i])] = static_cast<std::uint8_t>(i);
  }
  for (const char c : std::string_view(" \t\r\n\f\v")) values[static_cast<std::uint8_t>(c)] = Skipped;
  return values;
}();

/// One group: 1 to 3 bytes to 4 characters.
void AppendGroup(std::string& aOut, std::string_view aBytes) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    bits = (bits << 8) | (i < aBytes.size() ? static_cast<std::uint8_t>(aBytes[i]) : 0U);
  }
  const auto digit = [&](unsigned aShift) { return Alphabet[(bits >> aShift) & 0x3F]; };
  aOut += digit(18);
  aOut += digit(12);
  aOut += aBytes.size() > 1 ? digit(6) : '=';
  aOut += aBytes.size() > 2 ? digit(0) : '=';
}

/// `aBytesPerLine` is a multiple of 3, or 0 for one line.
std::string Encode(std::string_view aBytes, std::size_t aBytesPerLine) {
  std::string out;
  const std::size_t chars = (aBytes.size() + 2) / 3 * 4;
  out.reserve(chars + 2 * (aBytesPerLine > 0 ? aBytes.size() / aBytesPerLine : 0));
  for (std::size_t i = 0; i < aBytes.size(); i += 3) {
    if (aBytesPerLine > 0 && i > 0 && i % aBytesPerLine == 0) out += "\r\n";
    AppendGroup(out, aBytes.substr(i, 3));
  }
  return out;
}

[[noreturn]] void RaiseAt(std::size_t aPosition) {
  throw EConvertError("Not a valid Base64 text at byte " + std::to_string(aPosition));
}

/// From the first '=' on only padding and white space may stand.
void CheckPadding(std::string_view aText, std::size_t aPos, std::size_t aDigits) {
  const std::size_t most = aDigits % 4 == 2 ? 2 : aDigits % 4 == 3 ? 1 : 0;
  std::size_t found = 0;
  for (; aPos < aText.size(); ++aPos) {
    if (Values[static_cast<std::uint8_t>(aText[aPos])] == Skipped) continue;
    if (aText[aPos] != '=' || ++found > most) RaiseAt(aPos);
  }
}

}  // namespace

std::string EncodeBase64(std::string_view aBytes) { return Encode(aBytes, Base64LineLength / 4 * 3); }

std::string EncodeBase64Line(std::string_view aBytes) { return Encode(aBytes, 0); }

std::string DecodeBase64(std::string_view aText) {
  std::string out;
  out.reserve(aText.size() / 4 * 3);
  std::uint32_t bits = 0;
  std::size_t digits = 0;
  std::size_t pos = 0;
  for (; pos < aText.size() && aText[pos] != '='; ++pos) {
    const std::uint8_t value = Values[static_cast<std::uint8_t>(aText[pos])];
    if (value == Skipped) continue;
    if (value == Wrong) RaiseAt(pos);
    bits = (bits << 6) | value;
    // Every digit but the first of a group completes a byte.
    if (digits++ % 4 > 0) out += static_cast<char>(bits >> (2 * (3 - (digits - 1) % 4)));
  }
  if (digits % 4 == 1) RaiseAt(pos);
  CheckPadding(aText, pos, digits);
  return out;
}

}  // namespace Zor
