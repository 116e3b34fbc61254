#include "kaldrix/platform/TextNumbers.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

/// The text without blanks and plus sign; empty when no number can begin there.
std::string_view NumberPart(std::string_view aText) {
  std::string_view text = Trim(aText);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const std::string_view unsigned_ = text.starts_with('-') ? text.substr(1) : text;
  const bool begins =
      !unsigned_.empty() && (unsigned_[0] == '.' || (unsigned_[0] >= '0' && unsigned_[0] <= '9'));
  return begins ? text : std::string_view();
}

template <class T>
std::optional<T> Whole(std::string_view aText) {
  T value{};
  const char* const end = aText.data() + aText.size();
  const auto [stop, error] = std::from_chars(aText.data(), end, value);
  if (aText.empty() || error != std::errc() || stop != end) return std::nullopt;
  return value;
}

}  // namespace

std::optional<double> TextToNumber(std::string_view aText) { return Whole<double>(NumberPart(aText)); }

std::optional<std::int64_t> TextToWhole(std::string_view aText) {
  return Whole<std::int64_t>(NumberPart(aText));
}

int HeldWhole(double aValue) {
  if (std::isnan(aValue)) return 0;
  constexpr double least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(aValue, least, most));
}

float HeldSingle(double aValue) {
  if (std::isnan(aValue)) return 0;
  constexpr double most = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(aValue, -most, most));
}

}  // namespace Zor
