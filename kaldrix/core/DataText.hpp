// Values of sources as the texts that items show.
#pragma once

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

/// Empty, or why the value of a field is no whole number of labels; a value that is none is empty.
std::string RepeatFault(const std::string& aField, const std::string& aValue);

/// As numbers: 0 for what is no number.
double FieldNumber(const TField& aField);
double JsonNumber(const TJsonObject* aRecord, std::string_view aKey);

}  // namespace Zor::inline Base
