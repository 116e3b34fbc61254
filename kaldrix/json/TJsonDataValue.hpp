// One JSON value.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "kaldrix/json/Exceptions.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Jsondataobjects {

class TJsonBaseObject;
class TJsonObject;
class TJsonArray;

/// The kind of a value. A JSON null is `jdtObject` with no object; `jdtNone` is the value of a missing key.
enum TJsonDataType : std::uint8_t {
  jdtNone,
  jdtString,
  jdtInt,
  jdtLong,
  jdtULong,
  jdtFloat,
  jdtDateTime,
  jdtUtcDateTime,
  jdtBool,
  jdtArray,
  jdtObject
};

/// One value with its kind, in 16 bytes. It owns its object, array or long text; texts of up to 14 bytes
/// stand in the value itself.
///
/// The getters convert: numbers, dates and bools into each other (floats are truncated, integers are
/// narrowed to the width of the target, floats beyond the target give its nearest limit), texts are parsed,
/// `jdtNone` gives zero. All other conversions raise EJsonCastException, null included unless
/// TJsonSerializationConfig::NullConvertsToValueTypes is set. A text that is no number raises EConvertError.
///
/// Dates are days since 1899-12-30, the time of day as fraction; `jdtDateTime` is local time.
class TJsonDataValue {
 public:
  TJsonDataValue() noexcept : fBytes{}, fLength(0), fKind(jdtNone) {}
  TJsonDataValue(std::string_view aValue) : TJsonDataValue() { SetString(aValue); }
  TJsonDataValue(const std::string& aValue) : TJsonDataValue(std::string_view(aValue)) {}
  TJsonDataValue(const char* aValue) : TJsonDataValue(std::string_view(aValue)) {}
  TJsonDataValue(int aValue) noexcept : TJsonDataValue() { Put(jdtInt, aValue); }
  TJsonDataValue(Cardinal aValue) noexcept : TJsonDataValue(Int64{aValue}) {}
  TJsonDataValue(Int64 aValue) noexcept : TJsonDataValue() { Put(jdtLong, aValue); }
  TJsonDataValue(std::uint64_t aValue) noexcept : TJsonDataValue() { Put(jdtULong, aValue); }
  TJsonDataValue(double aValue) noexcept : TJsonDataValue() { Put(jdtFloat, aValue); }
  TJsonDataValue(bool aValue) noexcept : TJsonDataValue() { Put(jdtBool, aValue); }
  TJsonDataValue(std::nullptr_t) noexcept : TJsonDataValue() { SetNull(); }
  TJsonDataValue(std::unique_ptr<TJsonObject> aValue) noexcept;
  TJsonDataValue(std::unique_ptr<TJsonArray> aValue) noexcept;
  TJsonDataValue(TJsonDataValue&& aOther) noexcept {
    std::memcpy(static_cast<void*>(this), &aOther, sizeof *this);
    aOther.fKind = jdtNone;
  }
  TJsonDataValue& operator=(TJsonDataValue&& aOther) noexcept {
    TJsonDataValue taken(std::move(aOther));
    Swap(taken);
    return *this;
  }
  ~TJsonDataValue() {
    if (OwnsMemory()) Free();
  }

  TJsonDataType Type() const noexcept { return fKind; }
  bool IsNull() const noexcept { return fKind == jdtObject && Get<void*>() == nullptr; }
  TJsonDataValue Clone() const;

  std::string GetString() const;
  /// The text without a copy, valid until the value changes or moves; empty for `jdtNone`. Other kinds
  /// raise the cast error.
  std::string_view GetStringView() const;
  int GetInt() const;
  Int64 GetLong() const;
  std::uint64_t GetULong() const;
  double GetFloat() const;
  bool GetBool() const;
  double GetDateTime() const;
  double GetUtcDateTime() const;
  /// The object or array; every other kind, null and none included, raises the cast error.
  TJsonObject& GetObject() const;
  TJsonArray& GetArray() const;
  /// The object or array, nullptr for every other kind.
  TJsonObject* AsObject() const noexcept { return fKind == jdtObject ? Get<TJsonObject*>() : nullptr; }
  TJsonArray* AsArray() const noexcept { return fKind == jdtArray ? Get<TJsonArray*>() : nullptr; }

  void SetString(std::string_view aValue);
  void SetNull() noexcept { Assign(jdtObject, static_cast<TJsonObject*>(nullptr)); }
  void SetInt(int aValue) noexcept { Assign(jdtInt, aValue); }
  void SetLong(Int64 aValue) noexcept { Assign(jdtLong, aValue); }
  void SetULong(std::uint64_t aValue) noexcept { Assign(jdtULong, aValue); }
  void SetFloat(double aValue) noexcept { Assign(jdtFloat, aValue); }
  void SetBool(bool aValue) noexcept { Assign(jdtBool, aValue); }
  void SetDateTime(double aValue) noexcept { Assign(jdtDateTime, aValue); }
  void SetUtcDateTime(double aValue) noexcept { Assign(jdtUtcDateTime, aValue); }
  TJsonObject& SetObject(std::unique_ptr<TJsonObject> aValue);
  TJsonArray& SetArray(std::unique_ptr<TJsonArray> aValue);
  /// Gives the object up to the caller and leaves a null; every other kind raises the cast error.
  std::unique_ptr<TJsonObject> ExtractObject();
  std::unique_ptr<TJsonArray> ExtractArray();

  /// Raises EArgumentException when an object or array that a caller gives away is none.
  static void RequireGiven(bool aGiven);
  void Swap(TJsonDataValue& aOther) noexcept;
  /// The name of the kind in error texts, for example "UTC-DateTime".
  static std::string_view KindName(TJsonDataType aKind) noexcept;

 private:
  friend class TJsonWriter;
  static constexpr std::size_t InlineLimit = 14;
  static constexpr std::uint8_t HeapText = 0xFF;

  template <class T>
  T Get() const noexcept {
    T value;
    std::memcpy(&value, fBytes, sizeof value);
    return value;
  }
  template <class T>
  void Put(TJsonDataType aKind, T aValue) noexcept {
    std::memcpy(fBytes, &aValue, sizeof aValue);
    fKind = aKind;
  }
  template <class T>
  void Assign(TJsonDataType aKind, T aValue) noexcept {
    if (OwnsMemory()) Free();
    Put(aKind, aValue);
  }
  bool OwnsMemory() const noexcept {
    return fKind >= jdtArray || (fKind == jdtString && fLength == HeapText);
  }
  std::string_view Text() const noexcept;
  void PutLongText(std::string_view aValue);
  bool NullCounts() const noexcept;
  [[noreturn]] void RaiseCast(std::string_view aInto) const;
  template <class T>
  T GetInteger(std::string_view aInto) const;
  double GetDate(std::string_view aInto, bool aUtc) const;
  void Free() noexcept;

  /// The value at 0; of a long text its address at 0 and the six bytes of its size at 8.
  alignas(8) unsigned char fBytes[InlineLimit];
  std::uint8_t fLength;  ///< Of a text in fBytes, or HeapText.
  TJsonDataType fKind;
};

static_assert(sizeof(TJsonDataValue) == 16);

inline void TJsonDataValue::SetString(std::string_view aValue) {
  if (aValue.size() > InlineLimit) return PutLongText(aValue);
  unsigned char text[InlineLimit] = {};
  std::memcpy(text, aValue.data(), aValue.size());
  if (OwnsMemory()) Free();
  std::memcpy(fBytes, text, InlineLimit);
  fLength = static_cast<std::uint8_t>(aValue.size());
  fKind = jdtString;
}

inline std::string_view TJsonDataValue::Text() const noexcept {
  if (fLength != HeapText) return {reinterpret_cast<const char*>(fBytes), fLength};
  std::uint64_t size = 0;
  std::memcpy(&size, fBytes + 8, 6);
  return {Get<const char*>(), size};
}

}  // namespace Zor::inline Jsondataobjects
