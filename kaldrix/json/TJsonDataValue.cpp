#include "kaldrix/json/TJsonDataValue.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <new>

#include "kaldrix/json/JsonDateTime.hpp"
#include "kaldrix/json/JsonFloat.hpp"
#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/json/TJsonSerializationConfig.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

constexpr std::array<std::string_view, jdtObject + 1> KindNames{"null",  "String", "Integer",  "Long",
                                                                "ULong", "Float",  "DateTime", "UTC-DateTime",
                                                                "Bool",  "Array",  "Object"};

/// Truncated; a value beyond the target gives its nearest limit, not-a-number gives 0.
template <class T>
T Truncated(double aValue) {
  if (std::isnan(aValue)) return 0;
  const double limit = std::ldexp(1.0, std::numeric_limits<T>::digits);
  if (aValue >= limit) return std::numeric_limits<T>::max();
  if (aValue <= static_cast<double>(std::numeric_limits<T>::min())) return std::numeric_limits<T>::min();
  return static_cast<T>(aValue);
}

double FloatOfText(std::string_view aText) {
  const std::string_view text = Trim(aText);
  const std::string_view number = text.substr(text.starts_with('+') ? 1 : 0);
  double value = 0.0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size() || !std::isfinite(value)) {
    throw EConvertError("'" + std::string(aText) + "' is not a valid floating point value");
  }
  return value;
}

template <class T>
T IntegerOfText(std::string_view aText) {
  const std::string_view text = Trim(aText);
  Int64 value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc() && end == text.data() + text.size()) return static_cast<T>(value);
  return Truncated<T>(FloatOfText(aText));
}

}  // namespace

TJsonDataValue::TJsonDataValue(std::unique_ptr<TJsonObject> aValue) noexcept : TJsonDataValue() {
  Put(jdtObject, aValue.release());
}

TJsonDataValue::TJsonDataValue(std::unique_ptr<TJsonArray> aValue) noexcept : TJsonDataValue() {
  SetNull();
  if (aValue != nullptr) Put(jdtArray, aValue.release());
}

std::string_view TJsonDataValue::KindName(TJsonDataType aKind) noexcept { return KindNames[aKind]; }

void TJsonDataValue::RequireGiven(bool aGiven) {
  if (!aGiven) throw EArgumentException("A JSON object or array is missing");
}

void TJsonDataValue::RaiseCast(std::string_view aInto) const { RaiseJsonCast(KindName(fKind), aInto); }

bool TJsonDataValue::NullCounts() const noexcept {
  return IsNull() && JsonSerializationConfig().NullConvertsToValueTypes;
}

// Conversions

template <class T>
T TJsonDataValue::GetInteger(std::string_view aInto) const {
  switch (fKind) {
    case jdtNone:
      return 0;
    case jdtString:
      return IntegerOfText<T>(Text());
    case jdtInt:
      return static_cast<T>(Get<int>());
    case jdtLong:
    case jdtULong:
      return static_cast<T>(Get<std::uint64_t>());
    case jdtFloat:
    case jdtDateTime:
    case jdtUtcDateTime:
      return Truncated<T>(Get<double>());
    case jdtBool:
      return Get<bool>() ? 1 : 0;
    case jdtArray:
    case jdtObject:
      if (NullCounts()) return 0;
  }
  RaiseCast(aInto);
}

int TJsonDataValue::GetInt() const { return GetInteger<int>(KindName(jdtInt)); }
Int64 TJsonDataValue::GetLong() const { return GetInteger<Int64>(KindName(jdtLong)); }
std::uint64_t TJsonDataValue::GetULong() const { return GetInteger<std::uint64_t>(KindName(jdtULong)); }

double TJsonDataValue::GetFloat() const {
  switch (fKind) {
    case jdtNone:
      return 0.0;
    case jdtString:
      return FloatOfText(Text());
    case jdtInt:
      return Get<int>();
    case jdtLong:
      return static_cast<double>(Get<Int64>());
    case jdtULong:
      return static_cast<double>(Get<std::uint64_t>());
    case jdtFloat:
    case jdtDateTime:
    case jdtUtcDateTime:
      return Get<double>();
    case jdtBool:
      return Get<bool>() ? 1.0 : 0.0;
    case jdtArray:
    case jdtObject:
      if (NullCounts()) return 0.0;
  }
  RaiseCast(KindName(jdtFloat));
}

bool TJsonDataValue::GetBool() const {
  switch (fKind) {
    case jdtString:
      return Text() == "true";
    case jdtBool:
      return Get<bool>();
    case jdtArray:
    case jdtObject:
      if (NullCounts()) return false;
      RaiseCast(KindName(jdtBool));
    default:
      return GetFloat() != 0.0;
  }
}

std::string TJsonDataValue::GetString() const {
  switch (fKind) {
    case jdtNone:
      return {};
    case jdtString:
      return std::string(Text());
    case jdtInt:
      return std::to_string(Get<int>());
    case jdtLong:
      return std::to_string(Get<Int64>());
    case jdtULong:
      return std::to_string(Get<std::uint64_t>());
    case jdtFloat: {
      char digits[JsonFloatSize];
      return {digits, WriteJsonFloat(digits, Get<double>())};
    }
    case jdtDateTime:
    case jdtUtcDateTime:
      return JsonDateTimeText(Get<double>(), fKind == jdtUtcDateTime);
    case jdtBool:
      return Get<bool>() ? "true" : "false";
    case jdtArray:
    case jdtObject:
      if (NullCounts()) return {};
  }
  RaiseCast(KindName(jdtString));
}

std::string_view TJsonDataValue::GetStringView() const {
  if (fKind == jdtString) return Text();
  if (fKind == jdtNone || NullCounts()) return {};
  RaiseCast(KindName(jdtString));
}

double TJsonDataValue::GetDate(std::string_view aInto, bool aUtc) const {
  switch (fKind) {
    case jdtString:
      return JsonDateTimeOfText(Text(), aUtc);
    case jdtDateTime:
      return aUtc ? LocalToUtc(Get<double>()) : Get<double>();
    case jdtUtcDateTime:
      return aUtc ? Get<double>() : UtcToLocal(Get<double>());
    case jdtBool:
      RaiseCast(aInto);
    case jdtArray:
    case jdtObject:
      if (NullCounts()) return 0.0;
      RaiseCast(aInto);
    default:
      return GetFloat();
  }
}

double TJsonDataValue::GetDateTime() const { return GetDate(KindName(jdtDateTime), false); }
double TJsonDataValue::GetUtcDateTime() const { return GetDate(KindName(jdtUtcDateTime), true); }

TJsonObject& TJsonDataValue::GetObject() const {
  if (TJsonObject* object = AsObject()) return *object;
  RaiseJsonCast(fKind == jdtObject ? "null" : KindName(fKind), KindName(jdtObject));
}

TJsonArray& TJsonDataValue::GetArray() const {
  if (TJsonArray* items = AsArray()) return *items;
  RaiseJsonCast(IsNull() ? "null" : KindName(fKind), KindName(jdtArray));
}

// Setting

void TJsonDataValue::PutLongText(std::string_view aValue) {
  char* text = static_cast<char*>(::operator new(aValue.size()));
  std::memcpy(text, aValue.data(), aValue.size());
  Assign(jdtString, text);
  const std::uint64_t size = aValue.size();
  std::memcpy(fBytes + 8, &size, 6);
  fLength = HeapText;
}

TJsonObject& TJsonDataValue::SetObject(std::unique_ptr<TJsonObject> aValue) {
  RequireGiven(aValue != nullptr);
  TJsonObject* object = aValue.release();
  Assign(jdtObject, object);
  return *object;
}

TJsonArray& TJsonDataValue::SetArray(std::unique_ptr<TJsonArray> aValue) {
  RequireGiven(aValue != nullptr);
  TJsonArray* items = aValue.release();
  Assign(jdtArray, items);
  return *items;
}

std::unique_ptr<TJsonObject> TJsonDataValue::ExtractObject() {
  std::unique_ptr<TJsonObject> object(&GetObject());
  Put(jdtObject, static_cast<TJsonObject*>(nullptr));
  return object;
}

std::unique_ptr<TJsonArray> TJsonDataValue::ExtractArray() {
  std::unique_ptr<TJsonArray> items(&GetArray());
  Put(jdtObject, static_cast<TJsonObject*>(nullptr));
  return items;
}

TJsonDataValue TJsonDataValue::Clone() const {
  TJsonDataValue copy;
  if (const TJsonObject* object = AsObject()) {
    copy.SetObject(object->Clone());
  } else if (const TJsonArray* items = AsArray()) {
    copy.SetArray(items->Clone());
  } else if (OwnsMemory() && fKind == jdtString) {
    copy.PutLongText(Text());
  } else {
    std::memcpy(static_cast<void*>(&copy), this, sizeof copy);
  }
  return copy;
}

void TJsonDataValue::Swap(TJsonDataValue& aOther) noexcept {
  alignas(TJsonDataValue) unsigned char held[sizeof(TJsonDataValue)];
  std::memcpy(held, static_cast<const void*>(this), sizeof held);
  std::memcpy(static_cast<void*>(this), &aOther, sizeof held);
  std::memcpy(static_cast<void*>(&aOther), held, sizeof held);
}

void TJsonDataValue::Free() noexcept {
  if (fKind == jdtString) {
    ::operator delete(Get<char*>());
  } else {
    delete Get<TJsonBaseObject*>();
  }
}

}  // namespace Zor::inline Jsondataobjects
