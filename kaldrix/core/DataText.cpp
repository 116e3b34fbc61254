#include "kaldrix/core/DataText.hpp"

#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

constexpr std::string_view DatePicture = "dd-mm-yyyy HH:nn";

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

std::string RepeatFault(const std::string& aField, const std::string& aValue) {
  if (TextToWhole(aValue)) return {};
  if (Trim(aValue).empty()) return "'" + aField + "' tells no number of labels";
  return "'" + aField + "' tells the number of labels, and '" + aValue + "' is no whole number";
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
