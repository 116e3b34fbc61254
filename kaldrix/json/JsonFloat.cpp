#include "kaldrix/json/JsonFloat.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Zor::inline Jsondataobjects {

namespace {

constexpr int SignificantDigits = 15;
constexpr int LeastFixedExponent = -4;

/// Writes a value that is a count of thousandths: what lengths and colours of drawings are.
char* WriteThousandths(char* aText, std::int64_t aCount) noexcept {
  if (aCount < 0) *aText++ = '-';
  const std::uint64_t count = static_cast<std::uint64_t>(aCount < 0 ? -aCount : aCount);
  aText = std::to_chars(aText, aText + JsonFloatSize - 1, count / 1000).ptr;
  const auto rest = static_cast<unsigned>(count % 1000);
  if (rest == 0) return aText;
  *aText++ = '.';
  *aText++ = static_cast<char>('0' + rest / 100);
  if (rest % 100 == 0) return aText;
  *aText++ = static_cast<char>('0' + rest / 10 % 10);
  if (rest % 10 != 0) *aText++ = static_cast<char>('0' + rest % 10);
  return aText;
}

/// The significant digits of a float, without trailing zeros, and the power of ten of the first one.
struct TDecimal {
  char Digits[JsonFloatSize];
  int Count = 0;
  int Exponent = 0;
};

/// The shortest digits that read back as the value, where 15 are enough; else, and for subnormal values,
/// whose shortest digits say less, the nearest 15 digits.
TDecimal DecimalOf(double aMagnitude) noexcept {
  char text[JsonFloatSize];
  char* end = std::to_chars(text, text + sizeof text, aMagnitude, std::chars_format::scientific).ptr;
  char* mark = std::find(text, end, 'e');
  if (mark - text > SignificantDigits + 1 || aMagnitude < std::numeric_limits<double>::min()) {
    end = std::to_chars(text, text + sizeof text, aMagnitude, std::chars_format::scientific,
                        SignificantDigits - 1)
              .ptr;
    mark = std::find(text, end, 'e');
  }
  TDecimal decimal;
  const char* exponent = mark + (mark[1] == '+' ? 2 : 1);
  std::from_chars(exponent, end, decimal.Exponent);
  for (const char* at = text; at != mark; ++at) {
    if (*at != '.') decimal.Digits[decimal.Count++] = *at;
  }
  while (decimal.Count > 1 && decimal.Digits[decimal.Count - 1] == '0') --decimal.Count;
  return decimal;
}

char* Copy(char* aTo, const char* aFrom, int aCount) noexcept {
  return std::copy_n(aFrom, std::max(aCount, 0), aTo);
}

char* WriteExponent(char* aText, const TDecimal& aDecimal) noexcept {
  *aText++ = aDecimal.Digits[0];
  if (aDecimal.Count > 1) {
    *aText++ = '.';
    aText = Copy(aText, aDecimal.Digits + 1, aDecimal.Count - 1);
  }
  *aText++ = 'E';
  return std::to_chars(aText, aText + 5, aDecimal.Exponent).ptr;
}

char* WriteFixed(char* aText, const TDecimal& aDecimal) noexcept {
  const int whole = aDecimal.Exponent + 1;
  if (whole <= 0) {
    aText = Copy(aText, "0.", 2);
    aText = std::fill_n(aText, -whole, '0');
    return Copy(aText, aDecimal.Digits, aDecimal.Count);
  }
  aText = Copy(aText, aDecimal.Digits, std::min(whole, aDecimal.Count));
  if (whole >= aDecimal.Count) return std::fill_n(aText, whole - aDecimal.Count, '0');
  *aText++ = '.';
  return Copy(aText, aDecimal.Digits + whole, aDecimal.Count - whole);
}

}  // namespace

std::size_t WriteJsonFloat(char* aText, double aValue) noexcept {
  // Below 10^15 thousandths have at most 15 digits, so they are what the general format gives.
  constexpr double MaxThousandths = 1e15;
  char* at = aText;
  const double scaled = aValue * 1000.0;
  if (std::fabs(scaled) < MaxThousandths) {
    const auto count = static_cast<std::int64_t>(scaled + std::copysign(0.5, scaled));
    if (static_cast<double>(count) / 1000.0 == aValue) {
      return static_cast<std::size_t>(WriteThousandths(at, count) - aText);
    }
  }
  if (!std::isfinite(aValue)) aValue = 0.0;
  if (std::signbit(aValue)) *at++ = '-';
  const TDecimal decimal = DecimalOf(std::fabs(aValue));
  const bool fixed = decimal.Exponent >= LeastFixedExponent && decimal.Exponent < SignificantDigits;
  at = fixed ? WriteFixed(at, decimal) : WriteExponent(at, decimal);
  return static_cast<std::size_t>(at - aText);
}

}  // namespace Zor::inline Jsondataobjects
