// The handle that indexing gives.
#pragma once

#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonObject.hpp"

namespace Zor::inline Jsondataobjects {

/// A transient handle on a member of an object, by name, or on an element of an array. Reading a member
/// that does not exist gives the values of `jdtNone`; assigning, AsObject and AsArray create it. The object
/// or array must outlive the handle.
class TJsonDataValueHelper {
 public:
  TJsonDataValueHelper() = default;
  TJsonDataValueHelper(TJsonObject& aObject, std::string_view aKey) : fOwner(&aObject), fKey(aKey) {}
  TJsonDataValueHelper(TJsonArray& aArray, int aIndex) : fOwner(&aArray), fIndex(aIndex) {}
  TJsonDataValueHelper(const TJsonDataValueHelper&) = default;
  TJsonDataValueHelper& operator=(const TJsonDataValueHelper&) = delete;

  /// Sets the value, creating the member. Raises EInvalidOperation on a handle that points nowhere.
  TJsonDataValueHelper& operator=(TJsonDataValue aValue);

  TJsonDataType Type() const { return Value().Type(); }
  bool IsNull() const { return Value().IsNull(); }
  std::string AsString() const { return Value().GetString(); }
  int AsInt() const { return Value().GetInt(); }
  Int64 AsLong() const { return Value().GetLong(); }
  std::uint64_t AsULong() const { return Value().GetULong(); }
  double AsFloat() const { return Value().GetFloat(); }
  bool AsBool() const { return Value().GetBool(); }
  double AsDateTime() const { return Value().GetDateTime(); }
  double AsUtcDateTime() const { return Value().GetUtcDateTime(); }
  /// The object or array, created when the member is missing; another kind raises the cast error.
  TJsonObject& AsObject();
  TJsonArray& AsArray();
  TJsonDataValueHelper operator[](std::string_view aKey) { return AsObject().GetValue(aKey); }
  TJsonDataValueHelper operator[](int aIndex) { return AsArray().GetValue(aIndex); }

 private:
  const TJsonDataValue& Value() const;
  TJsonBaseObject& Owner() const;

  TJsonBaseObject* fOwner = nullptr;
  std::string fKey;
  int fIndex = -1;  ///< Of an array's element; 0-based.
};

}  // namespace Zor::inline Jsondataobjects
