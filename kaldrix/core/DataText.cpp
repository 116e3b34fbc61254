#include "kaldrix/core/DataText.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

constexpr std::string_view DatePicture = "dd-mm-yyyy HH:nn";
constexpr std::string_view ReplacementUtf8 =
    "\xEF\xBF\xBD";  ///< stands where readers met bytes of no character

enum TValueClass { vcOther, vcWhole, vcFloat, vcDate };

TValueClass ClassOf(TDataKind aKind) {
  switch (aKind) {
    case dkSmallint:
    case dkInteger:
    case dkWord:
    case dkShortint:
    case dkByte:
      return vcWhole;
    case dkFloat:
    case dkCurrency:
    case dkExtended:
      return vcFloat;
    case dkDate:
    case dkTime:
    case dkDateTime:
      return vcDate;
    default:
      return vcOther;
  }
}

bool IsNumber(TJsonDataType aType) {
  return aType == jdtInt || aType == jdtLong || aType == jdtULong || aType == jdtFloat;
}

bool IsDate(TJsonDataType aType) { return aType == jdtDateTime || aType == jdtUtcDateTime; }

double DateOf(const TJsonDataValue& aValue) {
  return aValue.Type() == jdtDateTime ? aValue.GetDateTime() : aValue.GetUtcDateTime();
}

const TJsonDataValue* Find(const TJsonObject* aRecord, std::string_view aKey) {
  return aRecord == nullptr ? nullptr : aRecord->Find(aKey);
}

/// Digits in front of the point that every number keeps.
constexpr std::size_t KeptDigits = std::numeric_limits<double>::digits10;

/// A value in a message, not longer than a line.
std::string Told(const std::string& aValue) {
  constexpr std::size_t most = 40;
  std::string shown(Utf8::Sub(aValue, 0, most));
  if (shown.size() < aValue.size()) shown += "...";
  return "'" + shown + "'";
}

void CheckNoBytes(const TField& aField) {
  std::string bytes;
  aField.SaveToStream(bytes);
  if (!bytes.empty()) throw Exception("'" + aField.FieldName() + "' is bytes, and no text");
}

/// A number as its text, which a format cuts to its digits.
void CheckDigits(const std::string& aNumber) {
  const std::string fault = DigitsFault(aNumber);
  if (!fault.empty()) throw Exception(fault + "; without a format it stands as it is");
}

/// A text none of whose characters got lost on its way.
std::string Readable(std::string aText) {
  if (const std::string fault = LostFault(aText); !fault.empty()) throw Exception(fault);
  return aText;
}

}  // namespace

std::string FieldText(const TField& aField, const std::string& aFormat) {
  const TValueClass kind = aFormat.empty() ? vcOther : ClassOf(aField.DataType());
  switch (kind) {
    case vcWhole:
      return FormatFloat(aFormat, static_cast<double>(aField.AsInteger()));
    case vcFloat:
      return FormatFloat(aFormat, aField.AsFloat());
    case vcDate:
      return aField.IsNull() ? std::string() : FormatDateTime(aFormat, aField.AsDateTime());
    default:
      return aField.AsString();
  }
}

std::string JsonText(const TJsonObject* aRecord, std::string_view aKey, const std::string& aFormat) {
  const TJsonDataValue* value = Find(aRecord, aKey);
  if (value == nullptr) return {};
  const TJsonDataType type = value->Type();
  if (type == jdtString) return value->GetString();
  if (IsNumber(type)) return aFormat.empty() ? value->GetString() : FormatFloat(aFormat, value->GetFloat());
  if (IsDate(type)) return FormatDateTime(aFormat.empty() ? DatePicture : aFormat, DateOf(*value));
  if (type != jdtBool) return {};
  return aFormat.empty() ? (value->GetBool() ? "1" : "0") : value->GetString();
}

std::string ColumnText(std::string aText, const std::string& aFormat) {
  if (aFormat.empty()) return aText;
  const std::optional<double> number = TextToNumber(aText);
  return number ? FormatFloat(aFormat, *number) : aText;
}

std::string DigitsFault(const std::string& aNumber) {
  const std::size_t first = std::min(aNumber.find_first_of("123456789"), aNumber.size());
  const std::size_t end = std::min(aNumber.find_first_not_of("0123456789", first), aNumber.size());
  if (end - first <= KeptDigits) return {};
  return Told(aNumber) + " has more than the " + std::to_string(KeptDigits) + " digits that a number keeps";
}

std::string LostFault(std::string_view aText) {
  if (aText.find(ReplacementUtf8) != std::string_view::npos)
    return "a character of the value could not be read (U+FFFD)";
  return aText.find('\0') == std::string_view::npos ? "" : "there is a NUL character in the value";
}

std::string ExactFieldText(const TField& aField, const std::string& aFormat) {
  const std::string text = aField.AsString();
  if (text.empty()) CheckNoBytes(aField);
  const TValueClass kind = aFormat.empty() ? vcOther : ClassOf(aField.DataType());
  if (kind != vcWhole && kind != vcFloat) return Readable(FieldText(aField, aFormat));
  if (Trim(text).empty()) return {};
  const std::optional<double> number = TextToNumber(text);
  if (!number) throw Exception(Told(text) + " is no number, as the format '" + aFormat + "' asks for");
  if (kind == vcWhole && *number != static_cast<double>(aField.AsInteger()))
    throw Exception(Told(text) + " is no whole number, as its column is told to hold");
  CheckDigits(text);
  return FieldText(aField, aFormat);
}

std::string ExactJsonText(const TJsonObject* aRecord, std::string_view aKey, const std::string& aFormat) {
  const TJsonDataValue* value = Find(aRecord, aKey);
  if (value == nullptr) return {};
  if (value->AsObject() != nullptr || value->AsArray() != nullptr)
    throw Exception("'" + std::string(aKey) + "' is an object or an array, and no text");
  if (!aFormat.empty() && IsNumber(value->Type())) CheckDigits(value->GetString());
  return Readable(JsonText(aRecord, aKey, aFormat));
}

std::string ExactColumnText(std::string aText, const std::string& aFormat) {
  if (!aFormat.empty() && TextToNumber(aText)) CheckDigits(aText);
  return Readable(ColumnText(std::move(aText), aFormat));
}

std::string RepeatFault(const std::string& aField, const std::string& aValue) {
  const std::optional<std::int64_t> labels = TextToWhole(aValue);
  if (labels && *labels <= MostLabels) return {};
  if (Trim(aValue).empty()) return "'" + aField + "' tells no number of labels";
  return "'" + aField + "' tells the number of labels, and " + Told(aValue) +
         (labels ? " is too many" : " is no whole number");
}

double FieldNumber(const TField& aField) {
  switch (ClassOf(aField.DataType())) {
    case vcWhole:
      return static_cast<double>(aField.AsInteger());
    case vcFloat:
      return aField.AsFloat();
    default:
      return aField.DataType() == dkLargeint ? static_cast<double>(aField.AsInteger()) : 0;
  }
}

double JsonNumber(const TJsonObject* aRecord, std::string_view aKey) {
  const TJsonDataValue* value = Find(aRecord, aKey);
  return value != nullptr && IsNumber(value->Type()) ? value->GetFloat() : 0;
}

}  // namespace Zor::inline Base
