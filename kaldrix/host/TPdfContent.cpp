#include "kaldrix/host/TPdfContent.hpp"

#include <array>
#include <charconv>
#include <cstdlib>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

namespace {

constexpr std::array<std::int64_t, 10> PowersOfTen{
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
constexpr double LargestReal = 1e9;
constexpr const char* HexDigits = "0123456789ABCDEF";

void AppendHex16(std::string& out, unsigned value) {
  for (int shift = 12; shift >= 0; shift -= 4) out.push_back(HexDigits[value >> shift & 0xF]);
}

}  // namespace

TPdfContent& TPdfContent::Int(std::int64_t value) {
  std::array<char, 24> digits;
  char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  *end++ = ' ';
  fBytes.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
  return *this;
}

TPdfContent& TPdfContent::Real(double value, int decimals) {
  const std::int64_t unit = PowersOfTen[static_cast<std::size_t>(decimals)];
  const double held = std::clamp(Finite(value), -LargestReal, LargestReal);
  const std::int64_t scaled = Nearest(held * static_cast<double>(unit));
  if (scaled % unit == 0) return Int(scaled / unit);
  if (scaled < 0) fBytes.push_back('-');
  const std::int64_t whole = std::abs(scaled) / unit;
  if (whole > 0) {
    Int(whole);
    fBytes.pop_back();
  }
  // A leading 1 keeps the zeros behind the point.
  std::array<char, 24> digits;
  char* end = std::to_chars(digits.data(), digits.data() + digits.size(), std::abs(scaled) % unit + unit).ptr;
  while (end[-1] == '0') --end;
  digits[0] = '.';
  *end++ = ' ';
  fBytes.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
  return *this;
}

TPdfContent& TPdfContent::Matrix(const TMatrix& m, int decimals) {
  return Real(m.xx, decimals)
      .Real(m.yx, decimals)
      .Real(m.xy, decimals)
      .Real(m.yy, decimals)
      .Real(m.x0)
      .Real(m.y0);
}

TPdfContent& TPdfContent::Literal(std::string_view bytes) {
  fBytes.push_back('(');
  for (const char c : bytes) {
    if (c == '(' || c == ')' || c == '\\') fBytes.push_back('\\');
    // A bare carriage return would be read as a line feed.
    if (c == '\r') {
      fBytes.append("\\r");
    } else {
      fBytes.push_back(c);
    }
  }
  fBytes.push_back(')');
  return *this;
}

std::string PdfUtf16(std::string_view utf8) {
  std::string out;
  for (std::size_t at = 0; at < utf8.size();) {
    char32_t c = Utf8::Next(utf8, at);
    if (c >= 0x10000) {
      c -= 0x10000;
      AppendHex16(out, 0xD800 + static_cast<unsigned>(c >> 10));
      c = 0xDC00 + (c & 0x3FF);
    }
    AppendHex16(out, static_cast<unsigned>(c));
  }
  return out;
}

std::string PdfTextString(std::string_view utf8) { return "<FEFF" + PdfUtf16(utf8) + ">"; }

std::string PdfName(std::string_view name) {
  std::string out = "/";
  for (const char c : name) {
    if (c > ' ' && c < 127 && std::string_view("()<>[]{}/%#").find(c) == std::string_view::npos)
      out.push_back(c);
  }
  return out;
}

std::string PdfRef(int object) { return std::to_string(object) + " 0 R "; }

}  // namespace Zor::inline Host
