#include "kaldrix/platform/Format.hpp"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <utility>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {

namespace {

/// The digits of a positive number: 0.d0d1d2... times ten to the power Point.
class TDecimal {
 public:
  /// The shortest digits that read back as `aValue`, which is finite and not negative.
  explicit TDecimal(double aValue) {
    char text[32];
    const char* end = std::to_chars(text, text + sizeof(text), aValue, std::chars_format::scientific).ptr;
    const char* p = text;
    for (; p < end && *p != 'e'; ++p) {
      if (*p != '.') fDigits[static_cast<std::size_t>(fCount++)] = *p;
    }
    int exponent = 0;
    ++p;  // the letter
    if (*p == '+') ++p;
    std::from_chars(p, end, exponent);
    fPoint = exponent + 1;
    DropZeros();
  }

  /// Cuts to that many decimals, half away from zero.
  void Round(int aDecimals) {
    const int keep = fPoint + aDecimals;
    if (keep >= fCount) return;
    const bool up = keep >= 0 && fDigits[static_cast<std::size_t>(keep)] >= '5';
    fCount = std::max(keep, 0);
    if (up) Increment();
    DropZeros();
  }

  bool IsZero() const { return fCount == 0; }
  int IntegerDigits() const { return std::max(fPoint, 0); }
  /// How many decimals there are up to the last that is not 0.
  int Decimals() const { return std::max(fCount - fPoint, 0); }
  /// The digit `aIndex` places behind the point (0 the first decimal, -1 the units).
  char Digit(int aIndex) const {
    const int at = fPoint + aIndex;
    return at >= 0 && at < fCount ? fDigits[static_cast<std::size_t>(at)] : '0';
  }

 private:
  /// Adds one to the last digit that is kept.
  void Increment() {
    while (fCount > 0 && fDigits[static_cast<std::size_t>(fCount - 1)] == '9') --fCount;
    if (fCount > 0) {
      ++fDigits[static_cast<std::size_t>(fCount - 1)];
    } else {
      fDigits[0] = '1';
      fCount = 1;
      ++fPoint;
    }
  }
  void DropZeros() {
    while (fCount > 0 && fDigits[static_cast<std::size_t>(fCount - 1)] == '0') --fCount;
    if (fCount == 0) fPoint = 0;
  }

  std::array<char, 20> fDigits{};  // a double has 17 at most
  int fCount = 0;
  int fPoint = 0;
};

// Up to here a product with a power of ten is far from a tie whenever its fraction is further from a half
// than TieMargin, the rounding of the product included.
constexpr double QuickLimit = 1e9;
constexpr double TieMargin = 1e-3;
constexpr std::array<double, 4> PowersOfTen{1, 10, 100, 1000};

/// Appends aScaled / 10^aDecimals.
void AppendScaled(std::string& aOut, std::uint64_t aScaled, int aDecimals, bool aNegative) {
  char text[32];
  char* p = text + sizeof(text);
  std::uint64_t rest = aScaled;
  for (int i = 0; i < aDecimals; ++i, rest /= 10) *--p = static_cast<char>('0' + rest % 10);
  if (aDecimals > 0) *--p = '.';
  do {
    *--p = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest > 0);
  if (aNegative && aScaled > 0) *--p = '-';
  aOut.append(p, static_cast<std::size_t>(text + sizeof(text) - p));
}

/// The way for most numbers, without their digits; false where a tie is near or the number large.
bool AppendQuickly(std::string& aOut, double aValue, int aDecimals) {
  const double value = std::fabs(aValue);
  if (value >= QuickLimit || aDecimals >= static_cast<int>(PowersOfTen.size())) return false;
  const double scaled = value * PowersOfTen[static_cast<std::size_t>(aDecimals)];
  auto whole = static_cast<std::uint64_t>(scaled);
  const double fraction = scaled - static_cast<double>(whole);
  if (std::fabs(fraction - 0.5) < TieMargin) return false;
  if (fraction > 0.5) ++whole;
  AppendScaled(aOut, whole, aDecimals, aValue < 0);
  return true;
}

/// A section of a number's picture, taken apart.
struct TPicture {
  int IntegerPlaces = 0;      // placeholders before the point
  int DecimalPlaces = 0;      // and behind it
  int MandatoryInteger = 0;   // places from the first '0' to the point
  int MandatoryDecimals = 0;  // places from the point to the last '0'
  bool HasPoint = false;
  bool Groups = false;
};

/// Calls aVisit(character, isLiteral) for each byte of a picture; quotes are left out.
template <class TVisit>
void WalkPicture(std::string_view aPicture, TVisit aVisit) {
  char quote = 0;
  for (const char c : aPicture) {
    if (quote != 0 ? c == quote : c == '"' || c == '\'') {
      quote = quote != 0 ? char{0} : c;
    } else {
      aVisit(c, quote != 0);
    }
  }
}

TPicture Parse(std::string_view aSection) {
  TPicture picture;
  WalkPicture(aSection, [&](char c, bool aLiteral) {
    if (aLiteral) return;
    if (c == '.') picture.HasPoint = true;
    if (c == ',') picture.Groups = true;
    if (c != '0' && c != '#') return;
    if (picture.HasPoint) {
      ++picture.DecimalPlaces;
      if (c == '0') picture.MandatoryDecimals = picture.DecimalPlaces;
    } else {
      ++picture.IntegerPlaces;
      if (c == '0' || picture.MandatoryInteger > 0) ++picture.MandatoryInteger;
    }
  });
  return picture;
}

/// Writes a number into a section of a picture.
class TPictureWriter {
 public:
  TPictureWriter(std::string& aOut, const TPicture& aPicture, const TDecimal& aNumber)
      : fOut(aOut),
        fPicture(aPicture),
        fNumber(aNumber),
        fDigitsLeft(std::max(aNumber.IntegerDigits(), aPicture.MandatoryInteger)),
        fPlacesLeft(aPicture.IntegerPlaces),
        fDecimals(std::max(aPicture.MandatoryDecimals, aNumber.Decimals())) {}

  void Write(std::string_view aSection) {
    WalkPicture(aSection, [this](char c, bool aLiteral) {
      if (aLiteral || (c != '0' && c != '#' && c != '.' && c != ',')) {
        fOut += c;
      } else if (c == '.') {
        Point();
      } else if (c != ',') {
        fBehindPoint ? Decimal() : Integer();
      }
    });
  }

 private:
  void Point() {
    if (fBehindPoint) return;
    fBehindPoint = true;
    WriteIntegerDigits(fDigitsLeft);  // those that had no place
    if (fDecimals > 0) fOut += '.';
  }
  void Decimal() {
    if (fDecimal < fDecimals) fOut += fNumber.Digit(fDecimal);
    ++fDecimal;
  }
  void Integer() {
    // The first place takes all digits that have none of their own.
    WriteIntegerDigits(fDigitsLeft - fPlacesLeft + 1);
    --fPlacesLeft;
  }
  void WriteIntegerDigits(int aCount) {
    for (; aCount > 0; --aCount) {
      fOut += fNumber.Digit(-fDigitsLeft);
      --fDigitsLeft;
      if (fPicture.Groups && fDigitsLeft > 0 && fDigitsLeft % 3 == 0) fOut += ',';
    }
  }

  std::string& fOut;
  const TPicture& fPicture;
  const TDecimal& fNumber;
  int fDigitsLeft;
  int fPlacesLeft;
  int fDecimals;
  int fDecimal = 0;
  bool fBehindPoint = false;
};

/// Sections of a picture for positive, negative and zero values; those that are missing are empty.
std::array<std::string_view, 3> SplitSections(std::string_view aPicture) {
  std::array<std::string_view, 3> sections;
  std::size_t index = 0;
  std::size_t start = 0;
  char quote = 0;
  for (std::size_t i = 0; i <= aPicture.size() && index < sections.size(); ++i) {
    const char c = i < aPicture.size() ? aPicture[i] : ';';
    const bool atEnd = i == aPicture.size();
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    }
    if (atEnd || (quote == 0 && c == ';')) {
      sections[index++] = aPicture.substr(start, i - start);
      start = i + 1;
    }
  }
  return sections;
}

std::string ShortestForm(double aValue) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof(text), aValue == 0 ? 0.0 : aValue).ptr};
}

constexpr std::chrono::sys_days DateZero{std::chrono::year{1899} / 12 / 30};
constexpr std::int64_t MillisecondsOfDay = 86'400'000;

constexpr int DayNumber(std::chrono::sys_days aDay) { return static_cast<int>((aDay - DateZero).count()); }

constexpr int FirstDay = DayNumber(std::chrono::year{1} / 1 / 1);
constexpr int LastDay = DayNumber(std::chrono::year{9999} / 12 / 31);
constexpr std::int64_t FirstMillisecond = FirstDay * MillisecondsOfDay;
constexpr std::int64_t LastMillisecond = (LastDay + 1) * MillisecondsOfDay - 1;

/// The day that a moment lies in, as DayNumber counts them.
constexpr std::int64_t DayOf(std::int64_t aMoment) {
  return (aMoment - FirstMillisecond) / MillisecondsOfDay + FirstDay;
}

[[noreturn]] void RaiseYears() { throw ERangeError("The date is outside the years 1 to 9999"); }

char Lowered(char aChar) { return aChar >= 'A' && aChar <= 'Z' ? static_cast<char>(aChar + 32) : aChar; }

void AppendPadded(std::string& aOut, int aValue, std::size_t aWidth) {
  const std::string digits = std::to_string(aValue);
  if (digits.size() < aWidth) aOut.append(aWidth - digits.size(), '0');
  aOut += digits;
}

/// Walks the picture of a date, twice: once to see whether it has am/pm, once to write.
class TDatePicture {
 public:
  TDatePicture(std::string_view aPicture, const TDateTimeParts& aParts)
      : fPicture(aPicture), fParts(aParts) {}

  std::string Text() {
    Walk();
    fWriting = true;
    Walk();
    return std::move(fOut);
  }

 private:
  void Walk() {
    fLastLetter = 0;
    for (std::size_t pos = 0; pos < fPicture.size();) pos = Step(pos);
  }

  /// Handles what stands at `aPos` and gives the place behind it.
  std::size_t Step(std::size_t aPos) {
    const char c = Lowered(fPicture[aPos]);
    if (c == '"' || c == '\'') return Quoted(aPos);
    if (c == 'a' && IsHalfMark(aPos)) return Half(aPos);
    if (std::string_view("dmyhnsz").find(c) == std::string_view::npos) {
      Write(fPicture.substr(aPos, 1));
      return aPos + 1;
    }
    std::size_t end = aPos + 1;
    while (end < fPicture.size() && Lowered(fPicture[end]) == c) ++end;
    const char letter = c == 'm' && fLastLetter == 'h' ? 'n' : c;
    fLastLetter = letter;
    if (fWriting) Field(letter, end - aPos);
    return end;
  }

  std::size_t Quoted(std::size_t aPos) {
    const std::size_t end = std::min(fPicture.find(fPicture[aPos], aPos + 1), fPicture.size());
    Write(fPicture.substr(aPos + 1, end - aPos - 1));
    return end + 1;
  }

  bool IsHalfMark(std::size_t aPos) const {
    constexpr std::string_view mark = "am/pm";
    if (fPicture.size() - aPos < mark.size()) return false;
    for (std::size_t i = 0; i < mark.size(); ++i) {
      if (Lowered(fPicture[aPos + i]) != mark[i]) return false;
    }
    return true;
  }

  /// Writes the half of the day in the letters of the picture.
  std::size_t Half(std::size_t aPos) {
    fHalves = true;
    Write(fPicture.substr(fParts.Hour < 12 ? aPos : aPos + 3, 2));
    return aPos + 5;
  }

  void Field(char aLetter, std::size_t aLength) {
    const std::size_t two = std::min<std::size_t>(aLength, 2);
    switch (aLetter) {
      case 'd':
        return AppendPadded(fOut, fParts.Day, two);
      case 'm':
        return AppendPadded(fOut, fParts.Month, two);
      case 'y':
        return aLength > 2 ? AppendPadded(fOut, fParts.Year, 4) : AppendPadded(fOut, fParts.Year % 100, 2);
      case 'h':
        return AppendPadded(fOut, fHalves ? (fParts.Hour + 11) % 12 + 1 : fParts.Hour, two);
      case 'n':
        return AppendPadded(fOut, fParts.Minute, two);
      case 's':
        return AppendPadded(fOut, fParts.Second, two);
      default:
        return AppendPadded(fOut, fParts.Millisecond, std::min<std::size_t>(aLength, 3));
    }
  }

  void Write(std::string_view aText) {
    if (fWriting) fOut += aText;
  }

  std::string_view fPicture;
  const TDateTimeParts& fParts;
  std::string fOut;
  char fLastLetter = 0;
  bool fHalves = false;
  bool fWriting = false;
};

}  // namespace

void AppendFixed(std::string& aOut, double aValue, int aDecimals) {
  assert(aDecimals >= 0);
  if (!std::isfinite(aValue)) aValue = 0;
  if (AppendQuickly(aOut, aValue, aDecimals)) return;
  TDecimal number(std::fabs(aValue));
  number.Round(aDecimals);
  if (aValue < 0 && !number.IsZero()) aOut += '-';
  if (number.IntegerDigits() == 0) aOut += '0';
  for (int i = -number.IntegerDigits(); i < 0; ++i) aOut += number.Digit(i);
  if (aDecimals > 0) aOut += '.';
  for (int i = 0; i < aDecimals; ++i) aOut += number.Digit(i);
}

std::string FormatFixed(double aValue, int aDecimals) {
  std::string text;
  AppendFixed(text, aValue, aDecimals);
  return text;
}

std::string FormatFloat(std::string_view aPicture, double aValue) {
  if (std::isnan(aValue)) return "NAN";
  if (std::isinf(aValue)) return aValue < 0 ? "-INF" : "INF";
  const auto [positive, negative, zero] = SplitSections(aPicture);
  std::string_view section = aValue < 0 && !negative.empty() ? negative : positive;
  const auto rounded = [&] {
    TDecimal number(std::fabs(aValue));
    number.Round(Parse(section).DecimalPlaces);
    return number;
  };
  // A value that its section shows as zero is shown as zero is.
  if (aValue == 0 || (!section.empty() && rounded().IsZero())) section = zero.empty() ? positive : zero;
  if (section.empty()) return ShortestForm(aValue);
  const TPicture picture = Parse(section);
  const TDecimal number = rounded();
  std::string text;
  const bool ownSign = aValue < 0 && !negative.empty() && section.data() == negative.data();
  if (aValue < 0 && !ownSign && !number.IsZero()) text += '-';
  TPictureWriter(text, picture, number).Write(section);
  return text;
}

std::string FormatDateTime(std::string_view aPicture, TDateTime aValue) {
  const TDateTimeParts parts = DecodeDateTime(aValue);
  return TDatePicture(aPicture.empty() ? "yyyy-mm-dd hh:nn:ss" : aPicture, parts).Text();
}

TDateTime EncodeDateTime(int aYear, int aMonth, int aDay, int aHour, int aMinute, int aSecond,
                         int aMillisecond) {
  const auto inside = [](int aNumber, int aLeast, int aMost) {
    return aNumber >= aLeast && aNumber <= aMost;
  };
  const bool inRange = inside(aYear, 1, 9999) && inside(aMonth, 1, 12) && inside(aDay, 1, 31) &&
                       inside(aHour, 0, 23) && inside(aMinute, 0, 59) && inside(aSecond, 0, 59) &&
                       inside(aMillisecond, 0, 999);
  const std::chrono::year_month_day date{std::chrono::year{aYear},
                                         std::chrono::month{static_cast<unsigned>(aMonth)},
                                         std::chrono::day{static_cast<unsigned>(aDay)}};
  if (!inRange || !date.ok()) throw ERangeError("There is no such date or time");
  const std::int64_t time = ((aHour * 60 + aMinute) * 60 + aSecond) * std::int64_t{1000} + aMillisecond;
  return DateTimeOf(DayNumber(date) * MillisecondsOfDay + time);
}

std::int64_t MillisecondsOf(TDateTime aValue) {
  if (!(aValue > FirstDay - 1 && aValue < LastDay + 1)) RaiseYears();
  const double whole = std::trunc(aValue);
  const std::int64_t time = std::llround(std::fabs(aValue - whole) * static_cast<double>(MillisecondsOfDay));
  return std::min(static_cast<std::int64_t>(whole) * MillisecondsOfDay + time, LastMillisecond);
}

TDateTime DateTimeOf(std::int64_t aMilliseconds) {
  if (aMilliseconds < FirstMillisecond || aMilliseconds > LastMillisecond) RaiseYears();
  const std::int64_t day = DayOf(aMilliseconds);
  const double time =
      static_cast<double>(aMilliseconds - day * MillisecondsOfDay) / static_cast<double>(MillisecondsOfDay);
  return static_cast<double>(day) + (day < 0 ? -time : time);
}

TDateTimeParts DecodeDateTime(TDateTime aValue) {
  const std::int64_t moment = MillisecondsOf(aValue), day = DayOf(moment),
                     time = moment - day * MillisecondsOfDay;
  const std::chrono::year_month_day date{DateZero + std::chrono::days{day}};
  const auto part = [&](std::int64_t aUnit, std::int64_t aCount) {
    return static_cast<int>(time / aUnit % aCount);
  };
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          part(3'600'000, 24),
          part(60'000, 60),
          part(1000, 60),
          part(1, 1000)};
}

}  // namespace Zor
