// Numbers and dates by pictures. The point is the decimal separator and the comma that of thousands, whatever
// the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Zor {

/// Days since 1899-12-30 00:00; the fraction is the time of the day. Before that day the fraction still
/// counts forward from midnight: -1.25 is 1899-12-29 06:00.
using TDateTime = double;

/// Appends `aValue` with exactly `aDecimals` decimals (0 or more), with a point before them.
/// Rounds half away from zero on the shortest decimal form that reads back as `aValue`: 1.005 gives "1.01"
/// with two decimals, as people expect of a written number. There is no "-0.00". A value that is no finite
/// number is written as 0, so that what is written stays readable.
void AppendFixed(std::string& aOut, double aValue, int aDecimals);
std::string FormatFixed(double aValue, int aDecimals);

/// `aValue` by a picture: '0' a digit, '#' a digit that is left out where it is a leading or trailing zero,
/// '.' the decimal point, ',' anywhere groups thousands; text in single or double quotes and any other
/// character stands as it is ("0.00 mm"). Up to three sections separated by ';' serve positive, negative
/// (without a sign of its own) and zero values; an empty one, or a missing one, gives way to the first.
/// Digits that do not fit before the point are all written. Rounds as AppendFixed. An empty picture gives the
/// shortest form. Not-a-number and the infinities are "NAN", "INF", "-INF".
std::string FormatFloat(std::string_view aPicture, double aValue);

/// A date and time by a picture, whose letters are taken in either case: d, dd day; m, mm month; yy, yyyy
/// year; h, hh hour; n, nn minute; s, ss second; z, zzz millisecond; am/pm turns hours to 12 and writes the
/// half. m and mm directly behind an hour are minutes too. Text in quotes and any other character stands as
/// it is. The time is rounded to the millisecond. An empty picture is "yyyy-mm-dd hh:nn:ss". ERangeError
/// outside the years 1 to 9999.
std::string FormatDateTime(std::string_view aPicture, TDateTime aValue);

/// The date and time of the calendar; months and days count from 1. ERangeError for a date that does not
/// exist.
TDateTime EncodeDateTime(int aYear, int aMonth, int aDay, int aHour = 0, int aMinute = 0, int aSecond = 0,
                         int aMillisecond = 0);

struct TDateTimeParts {
  int Year, Month, Day, Hour, Minute, Second, Millisecond;
};
/// To the nearest millisecond, at the end of 9999 the last one. ERangeError outside the years 1 to 9999.
TDateTimeParts DecodeDateTime(TDateTime aValue);

/// The same moment in whole milliseconds since 1899-12-30 00:00, before it negative: they count on evenly, so
/// that times are added and compared in them. Rounded and limited as DecodeDateTime.
std::int64_t MillisecondsOf(TDateTime aValue);
/// ERangeError outside the years 1 to 9999.
TDateTime DateTimeOf(std::int64_t aMilliseconds);

}  // namespace Zor
