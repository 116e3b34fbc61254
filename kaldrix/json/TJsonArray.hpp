// A JSON array.
#pragma once

#include "kaldrix/json/TJsonBaseObject.hpp"

namespace Zor::inline Jsondataobjects {

/// Values by 0-based index. An index out of range raises EListError.
class TJsonArray final : public TJsonBaseObject {
 public:
  /// The highest count that SetCount takes.
  static constexpr int MaxSetCount = 1 << 24;

  TJsonArray() noexcept : TJsonBaseObject(false) {}
  ~TJsonArray();

  TJsonDataType GetType(int aIndex) const { return At(aIndex).Type(); }
  std::string GetString(int aIndex) const { return At(aIndex).GetString(); }
  /// A text without a copy, valid until the array changes; other kinds raise the cast error.
  std::string_view GetStringView(int aIndex) const { return At(aIndex).GetStringView(); }
  int GetInt(int aIndex) const { return At(aIndex).GetInt(); }
  Int64 GetLong(int aIndex) const { return At(aIndex).GetLong(); }
  std::uint64_t GetULong(int aIndex) const { return At(aIndex).GetULong(); }
  double GetFloat(int aIndex) const { return At(aIndex).GetFloat(); }
  bool GetBool(int aIndex) const { return At(aIndex).GetBool(); }
  double GetDateTime(int aIndex) const { return At(aIndex).GetDateTime(); }
  double GetUtcDateTime(int aIndex) const { return At(aIndex).GetUtcDateTime(); }
  /// The object or array at a place; another kind, null included, raises the cast error.
  TJsonObject& GetObject(int aIndex) const { return At(aIndex).GetObject(); }
  TJsonArray& GetArray(int aIndex) const { return At(aIndex).GetArray(); }
  /// A transient handle on the value at a place.
  TJsonDataValueHelper GetValue(int aIndex);
  TJsonDataValueHelper operator[](int aIndex);

  void Add(TJsonDataValue aValue) { Append() = std::move(aValue); }
  void AddString(std::string_view aValue) { Add(aValue); }
  void AddInt(int aValue) { Append().SetInt(aValue); }
  void AddLong(Int64 aValue) { Append().SetLong(aValue); }
  void AddULong(std::uint64_t aValue) { Append().SetULong(aValue); }
  void AddFloat(double aValue) { Append().SetFloat(aValue); }
  void AddBool(bool aValue) { Append().SetBool(aValue); }
  void AddDateTime(double aValue) { Append().SetDateTime(aValue); }
  void AddUtcDateTime(double aValue) { Append().SetUtcDateTime(aValue); }
  void AddNull() { Append().SetNull(); }
  TJsonObject& AddObject();
  TJsonArray& AddArray();
  /// Raises EArgumentException when none is given; AddNull adds a null.
  TJsonObject& AddObject(std::unique_ptr<TJsonObject> aValue);
  TJsonArray& AddArray(std::unique_ptr<TJsonArray> aValue);
  void SetValue(int aIndex, TJsonDataValue aValue) { At(aIndex) = std::move(aValue); }

  void Delete(int aIndex);
  /// Cuts the array or fills it up with nulls. Raises EListError for a count below 0 or above MaxSetCount.
  void SetCount(int aCount);
  /// Takes the object out of the array, which closes up; another kind raises the cast error.
  std::unique_ptr<TJsonObject> ExtractObject(int aIndex);
  std::unique_ptr<TJsonArray> Clone() const;
  /// Room for so many values in all, so that adding them takes memory once.
  void Reserve(int aCount);

 private:
  friend class TJsonBaseObject;
  friend class TJsonReader;
  friend class TJsonWriter;

  TJsonDataValue* Values() const noexcept { return static_cast<TJsonDataValue*>(fItems); }
  TJsonDataValue& At(int aIndex) const {
    CheckIndex(aIndex);
    return Values()[aIndex];
  }
  /// An empty array with room for `aCount` values in its own block.
  static TJsonArray* Allocate(std::size_t aCount);
  /// An array of values that stand `aStride` bytes apart, moved as TJsonObject::Adopt does.
  static TJsonArray* Adopt(const void* aValues, std::size_t aStride, std::size_t aCount);
  TJsonDataValue& Append();
  void DestroyValues(std::uint32_t aFrom) noexcept;
};

}  // namespace Zor::inline Jsondataobjects
