#include "kaldrix/json/JsonDateTime.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "kaldrix/json/TJsonSerializationConfig.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

constexpr double MinutesPerDay = 1440.0;

std::tm CalendarOf(double aValue) {
  const TDateTimeParts parts = DecodeDateTime(aValue);
  std::tm calendar{};
  calendar.tm_year = parts.Year - 1900;
  calendar.tm_mon = parts.Month - 1;
  calendar.tm_mday = parts.Day;
  calendar.tm_hour = parts.Hour;
  calendar.tm_min = parts.Minute;
  calendar.tm_sec = parts.Second;
  return calendar;
}

/// Local time minus UTC, in days, at a moment that is given in one of the two.
double ZoneOffset(double aValue, bool aIsUtc) {
  std::tm calendar = CalendarOf(aValue);
  calendar.tm_isdst = -1;
  const std::time_t moment = aIsUtc ? timegm(&calendar) : std::mktime(&calendar);
  std::tm local{};
  localtime_r(&moment, &local);
  return static_cast<double>(local.tm_gmtoff) / 86400.0;
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
  if (!hours || !minutes) return false;
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

std::optional<TStamp> StampOf(std::string_view aText) {
  try {
    return ReadStamp(TDateText(aText));
  } catch (const ERangeError&) {  // a date that the calendar does not have
    return std::nullopt;
  }
}

}  // namespace

double LocalToUtc(double aValue) { return aValue - ZoneOffset(aValue, false); }
double UtcToLocal(double aValue) { return aValue + ZoneOffset(aValue, true); }

std::string JsonDateTimeText(double aValue, bool aIsUtc) {
  const bool asUtc = JsonSerializationConfig().UseUtcTime;
  if (asUtc != aIsUtc) aValue = asUtc ? LocalToUtc(aValue) : UtcToLocal(aValue);
  const TDateTimeParts parts = DecodeDateTime(aValue);
  char text[96];
  std::snprintf(text, sizeof text, "%.4d-%.2d-%.2dT%.2d:%.2d:%.2d.%d", parts.Year, parts.Month, parts.Day,
                parts.Hour, parts.Minute, parts.Second, parts.Millisecond);
  if (asUtc) return std::string(text) + "Z";
  const int offset = static_cast<int>(std::lround(ZoneOffset(aValue, false) * MinutesPerDay));
  char zone[32];
  std::snprintf(zone, sizeof zone, "%c%.2d:%.2d", offset < 0 ? '-' : '+', std::abs(offset) / 60,
                std::abs(offset) % 60);
  return std::string(text) + zone;
}

double JsonDateTimeOfText(std::string_view aText, bool aAsUtc) {
  const std::optional<TStamp> stamp = StampOf(aText);
  if (!stamp) throw EConvertError("'" + std::string(aText) + "' is not a valid date and time");
  if (!stamp->OffsetMinutes) return aAsUtc ? LocalToUtc(stamp->Value) : stamp->Value;
  const double utc = stamp->Value - *stamp->OffsetMinutes / MinutesPerDay;
  return aAsUtc ? utc : UtcToLocal(utc);
}

}  // namespace Zor::inline Jsondataobjects
