// Dates as JSON texts: ISO 8601.
#pragma once

#include <string>
#include <string_view>

namespace Zor::inline Jsondataobjects {

/// "2024-05-01T12:30:00.250Z". A local time is converted to UTC, unless
/// TJsonSerializationConfig::UseUtcTime is off; then both kinds are written in local time with its offset.
/// Intended: the milliseconds have no leading zeros. Raises ERangeError outside the years 1 to 9999.
std::string JsonDateTimeText(double aValue, bool aIsUtc);

/// The date of "yyyy-mm-dd", with or without "Thh:mm", seconds, a fraction and "Z" or an offset "+hh:mm";
/// a blank may stand for the "T". A time without zone is local. Up to three digits of a fraction are a count
/// of milliseconds, since that is how they are written. Raises EConvertError.
double JsonDateTimeOfText(std::string_view aText, bool aAsUtc);

/// Between local time and UTC by the time zone of the process, to the millisecond. Raise ERangeError outside
/// the years 1 to 9999.
double LocalToUtc(double aValue);
double UtcToLocal(double aValue);

}  // namespace Zor::inline Jsondataobjects
