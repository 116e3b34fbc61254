// Code 128 as a reader takes it.
#include "kaldrix/utils/BarSymbology.hpp"
#include "kaldrix/utils/Gs1.hpp"

namespace Zor::inline Utils {

namespace {

constexpr std::size_t PatternSize = 6;
constexpr std::uint8_t NoValue = 255;

/// The widths of six elements, 1 to 4 modules each, as one number.
constexpr std::size_t KeyOf(std::string_view aPattern) {
  std::size_t key = 0;
  for (const char c : aPattern) {
    const TZORDrawWidth width = PatternElements[static_cast<unsigned char>(c)].width;
    key = key * 4 + (width == dw4 ? 3U : width == dw3 ? 2U : width == dw2 ? 1U : 0U);
  }
  return key;
}

constexpr auto ValuesByKey = [] {
  std::array<std::uint8_t, 1U << (2 * PatternSize)> values{};
  values.fill(NoValue);
  for (std::size_t i = 0; i < Code128Table.size(); ++i) {
    values[KeyOf({Code128Table[i].data.data(), PatternSize})] = static_cast<std::uint8_t>(i);
  }
  values[KeyOf(Code128StartA)] = StartA128;
  values[KeyOf(Code128StartB)] = StartB128;
  values[KeyOf(Code128StartC)] = StartC128;
  return values;
}();

/// Takes the values of a symbol one by one.
class TCode128Reader {
 public:
  explicit TCode128Reader(int aStart) : fSet(aStart) {}

  /// False for what is no part of a symbol of this house: shifts, FNC2 and FNC3.
  bool Take(int aValue) {
    ++fCount;
    if (aValue == Fnc1Of128) return TakeFnc1();
    if (fSet == StartC128) return aValue < CodeB128 ? TakePair(aValue) : TakeChange(aValue);
    return aValue < firstFunction ? TakeCharacter(aValue) : TakeChange(aValue);
  }
  std::string Text() && { return std::move(fText); }

 private:
  static constexpr int firstFunction = 96;

  bool TakeFnc1() {
    if (fCount > 1) fText += Gs1Separator;
    return true;
  }
  bool TakePair(int aValue) {
    fText += static_cast<char>('0' + aValue / 10);
    fText += static_cast<char>('0' + aValue % 10);
    return true;
  }
  bool TakeCharacter(int aValue) {
    constexpr int columns = 64;  // set A has controls in the place of lower case
    const int byte = fSet == StartA128 && aValue >= columns ? aValue - columns : aValue + ' ';
    fText += static_cast<char>(byte + (fLatched != fShifted ? 128 : 0));
    fShifted = false;
    return true;
  }
  bool TakeChange(int aValue) {
    const bool isFnc4 =
        (fSet == StartA128 && aValue == CodeA128) || (fSet == StartB128 && aValue == CodeB128);
    if (isFnc4) {
      // A second one in a row latches, or ends that.
      fLatched = fLatched != fShifted;
      fShifted = !fShifted;
      return true;
    }
    if (aValue < CodeC128) return false;
    fSet = aValue == CodeC128 ? StartC128 : aValue == CodeB128 ? StartB128 : StartA128;
    return true;
  }

  std::string fText;
  int fSet, fCount = 0;
  bool fShifted = false, fLatched = false;
};

}  // namespace

std::optional<std::string> ReadCode128(std::string_view aPattern) {
  constexpr std::size_t fewest = 3 * PatternSize;  // start, one character, check
  if (!aPattern.ends_with(Code128Stop)) return std::nullopt;
  aPattern.remove_suffix(Code128Stop.size());
  if (aPattern.size() < fewest || aPattern.size() % PatternSize != 0) return std::nullopt;
  const auto valueAt = [&](std::size_t i) {
    return ValuesByKey[KeyOf(aPattern.substr(i * PatternSize, PatternSize))];
  };
  const std::size_t last = aPattern.size() / PatternSize - 1;
  std::size_t sum = valueAt(0);
  if (sum < StartA128 || sum == NoValue) return std::nullopt;
  TCode128Reader reader(static_cast<int>(sum));
  for (std::size_t i = 1; i < last; ++i) {
    const std::uint8_t value = valueAt(i);
    if (value >= StartA128 || !reader.Take(value)) return std::nullopt;
    sum += value * i;
  }
  if (valueAt(last) != sum % Code128Table.size()) return std::nullopt;
  return std::move(reader).Text();
}

}  // namespace Zor::inline Utils
