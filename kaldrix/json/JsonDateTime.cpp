#include "kaldrix/json/JsonDateTime.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "kaldrix/json/TJsonSerializationConfig.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

constexpr std::int64_t MillisecondsPerMinute = 60'000;

/// 1970-01-01, as MillisecondsOf counts.
constexpr std::chrono::milliseconds ClockZero = std::chrono::days{25569};

std::int64_t ZoneOffsetAt(std::time_t aMoment) {
  std::tm local{};
  localtime_r(&aMoment, &local);
  return local.tm_gmtoff * std::int64_t{1000};
}

/// Local time minus UTC, in milliseconds, at a moment of UTC.
std::int64_t ZoneOffsetOfUtc(std::int64_t aMoment) {
  const auto clock = std::chrono::milliseconds{aMoment} - ClockZero;
  return ZoneOffsetAt(std::chrono::floor<std::chrono::seconds>(clock).count());
}

/// The same at a moment of local time.
std::int64_t ZoneOffsetOfLocal(double aValue) {
  const TDateTimeParts parts = DecodeDateTime(aValue);
  std::tm calendar{};
  calendar.tm_year = parts.Year - 1900;
  calendar.tm_mon = parts.Month - 1;
  calendar.tm_mday = parts.Day;
  calendar.tm_hour = parts.Hour;
  calendar.tm_min = parts.Minute;
  calendar.tm_sec = parts.Second;
  calendar.tm_isdst = -1;
  return ZoneOffsetAt(std::mktime(&calendar));
}

/// Takes the parts of a date text from the front.
class TDateText {
 public:
  explicit TDateText(std::string_view aText) : fText(aText) {}

  bool AtEnd() const { return fText.empty(); }

  bool Take(std::string_view aChars) {
    if (fText.empty() || aChars.find(fText.front()) == std::string_view::npos) return false;
    fText.remove_prefix(1);
    return true;
  }

  /// A number of exactly `aDigits` digits.
  std::optional<int> Number(std::size_t aDigits) {
    if (fText.size() < aDigits) return std::nullopt;
    int value = 0;
    for (std::size_t i = 0; i < aDigits; ++i) {
      if (fText[i] < '0' || fText[i] > '9') return std::nullopt;
      value = value * 10 + (fText[i] - '0');
    }
    fText.remove_prefix(aDigits);
    return value;
  }

  /// Up to three digits are a count of milliseconds; of more digits the first three are taken.
  std::optional<int> Milliseconds() {
    const std::size_t digits = std::min(fText.find_first_not_of("0123456789"), fText.size());
    if (digits == 0) return std::nullopt;
    const std::optional<int> value = Number(std::min<std::size_t>(digits, 3));
    fText.remove_prefix(digits > 3 ? digits - 3 : 0);
    return value;
  }

 private:
  std::string_view fText;
};

struct TStamp {
  double Value;
  std::optional<int> OffsetMinutes;  ///< Local time minus UTC; none when the text does not tell.

  /// For a text that tells its zone.
  std::int64_t Utc() const { return MillisecondsOf(Value) - *OffsetMinutes * MillisecondsPerMinute; }
};

/// "hh:mm", seconds and fraction, into `aParts`.
bool ReadTime(TDateText& aText, TDateTimeParts& aParts) {
  const auto hour = aText.Number(2);
  if (!hour || !aText.Take(":")) return false;
  const auto minute = aText.Number(2);
  if (!minute) return false;
  aParts.Hour = *hour;
  aParts.Minute = *minute;
  if (!aText.Take(":")) return true;
  const auto second = aText.Number(2);
  if (!second) return false;
  aParts.Second = *second;
  if (!aText.Take(".")) return true;
  const auto milliseconds = aText.Milliseconds();
  aParts.Millisecond = milliseconds.value_or(0);
  return milliseconds.has_value();
}

/// "Z", "+hh:mm", "-hh:mm" or nothing.
bool ReadZone(TDateText& aText, std::optional<int>& aMinutes) {
  if (aText.Take("Zz")) {
    aMinutes = 0;
    return aText.AtEnd();
  }
  const bool east = aText.Take("+");
  if (!east && !aText.Take("-")) return aText.AtEnd();
  const auto hours = aText.Number(2);
  aText.Take(":");
  const auto minutes = aText.Number(2);
  if (!hours || !minutes || *hours > 23 || *minutes > 59) return false;
  aMinutes = (*hours * 60 + *minutes) * (east ? 1 : -1);
  return aText.AtEnd();
}

std::optional<TStamp> ReadStamp(TDateText aText) {
  const auto year = aText.Number(4);
  if (!year || !aText.Take("-")) return std::nullopt;
  const auto month = aText.Number(2);
  if (!month || !aText.Take("-")) return std::nullopt;
  const auto day = aText.Number(2);
  if (!day) return std::nullopt;
  TDateTimeParts parts{*year, *month, *day, 0, 0, 0, 0};
  TStamp stamp{};
  if (aText.Take("Tt ") && !ReadTime(aText, parts)) return std::nullopt;
  if (!ReadZone(aText, stamp.OffsetMinutes)) return std::nullopt;
  stamp.Value = EncodeDateTime(parts.Year, parts.Month, parts.Day, parts.Hour, parts.Minute, parts.Second,
                               parts.Millisecond);
  return stamp;
}

/// None for a text that is no date.
std::optional<double> DateOf(std::string_view aText, bool aAsUtc) {
  const std::optional<TStamp> stamp = ReadStamp(TDateText(aText));
  if (!stamp) return std::nullopt;
  if (!stamp->OffsetMinutes) return aAsUtc ? LocalToUtc(stamp->Value) : stamp->Value;
  const std::int64_t utc = stamp->Utc();
  return DateTimeOf(aAsUtc ? utc : utc + ZoneOffsetOfUtc(utc));
}

std::string TimeText(double aValue) {
  const TDateTimeParts parts = DecodeDateTime(aValue);
  char text[96];
  std::snprintf(text, sizeof text, "%.4d-%.2d-%.2dT%.2d:%.2d:%.2d.%d", parts.Year, parts.Month, parts.Day,
                parts.Hour, parts.Minute, parts.Second, parts.Millisecond);
  return text;
}

std::string ZoneText(int aMinutes) {
  char text[32];
  std::snprintf(text, sizeof text, "%c%.2d:%.2d", aMinutes < 0 ? '-' : '+', std::abs(aMinutes) / 60,
                std::abs(aMinutes) % 60);
  return text;
}

/// A moment of UTC or of local time, in local time with its offset.
std::string LocalText(double aValue, bool aIsUtc) {
  const std::int64_t moment = MillisecondsOf(aValue);
  const std::int64_t offset = aIsUtc ? ZoneOffsetOfUtc(moment) : ZoneOffsetOfLocal(aValue);
  // The local times of old had seconds in their offset, for which a text has no place: it keeps the moment.
  const auto minutes =
      static_cast<int>(std::lround(static_cast<double>(offset) / static_cast<double>(MillisecondsPerMinute)));
  const std::int64_t told = minutes * MillisecondsPerMinute;
  return TimeText(DateTimeOf(moment + told - (aIsUtc ? 0 : offset))) + ZoneText(minutes);
}

}  // namespace

double LocalToUtc(double aValue) { return DateTimeOf(MillisecondsOf(aValue) - ZoneOffsetOfLocal(aValue)); }
double UtcToLocal(double aValue) {
  const std::int64_t moment = MillisecondsOf(aValue);
  return DateTimeOf(moment + ZoneOffsetOfUtc(moment));
}

std::string JsonDateTimeText(double aValue, bool aIsUtc) {
  if (!JsonSerializationConfig().UseUtcTime) return LocalText(aValue, aIsUtc);
  return TimeText(aIsUtc ? aValue : LocalToUtc(aValue)) + "Z";
}

double JsonDateTimeOfText(std::string_view aText, bool aAsUtc) {
  std::optional<double> date;
  try {
    date = DateOf(aText, aAsUtc);
  } catch (const ERangeError&) {  // a date that the calendar does not have
  }
  if (!date) throw EConvertError("'" + std::string(aText) + "' is not a valid date and time");
  return *date;
}

}  // namespace Zor::inline Jsondataobjects
