// Values of sources as the texts that items show.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TDataSet.hpp"

namespace Zor::inline Base {

/// Numbers by FormatFloat, dates by FormatDateTime; other kinds, and all without a format, as they stand.
std::string FieldText(const TField& aField, const std::string& aFormat);
/// The value of a key; `aRecord` may be none. Without a format a Boolean is "1" or "0", and a date has the
/// form "dd-mm-yyyy HH:nn". A missing key, a null, an object and an array are empty.
std::string JsonText(const TJsonObject* aRecord, std::string_view aKey, const std::string& aFormat);
/// A column: by FormatFloat where there is a format and the text is a number.
std::string ColumnText(std::string aText, const std::string& aFormat);

/// As the three above, but raise Exception where the text would not be what the record holds: a value that is
/// bytes, an object or an array; characters that could not be read; a number that the format would change.
/// An empty value of a number's kind is empty.
std::string ExactFieldText(const TField& aField, const std::string& aFormat);
std::string ExactJsonText(const TJsonObject* aRecord, std::string_view aKey, const std::string& aFormat);
std::string ExactColumnText(std::string aText, const std::string& aFormat);

/// Empty, or what got lost of a text: a character that could not be read (U+FFFD), or what follows a NUL.
std::string LostFault(std::string_view aText);
/// Empty, or that a number has more digits than it keeps when it is shown as one.
std::string DigitsFault(const std::string& aNumber);

/// The labels that a run may have.
constexpr std::int64_t MostLabels = (std::numeric_limits<int>::max)();
/// Empty, or why the value of a field is no whole number of labels; a value that is none is empty.
std::string RepeatFault(const std::string& aField, const std::string& aValue);

/// As numbers: 0 for what is no number.
double FieldNumber(const TField& aField);
double JsonNumber(const TJsonObject* aRecord, std::string_view aKey);

}  // namespace Zor::inline Base
