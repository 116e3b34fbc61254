// A JSON object: named values in the order of insertion.
#pragma once

#include "kaldrix/json/TJsonBaseObject.hpp"
#include "kaldrix/json/TJsonKey.hpp"

namespace Zor::inline Jsondataobjects {

/// A name and its value.
struct TJsonMember {
  TJsonKey Name;
  TJsonDataValue Value;

  /// Is this the slot of a member that was removed? It then holds zeros, and no name has that word.
  bool IsEmpty() const noexcept { return Name.Word() == 0; }
};

class TJsonIndex;

/// Named values in the order of insertion; names are compared with case. A parsed text may hold a name
/// twice: a lookup finds the first. The getters convert as TJsonDataValue tells and give zero or empty for
/// a missing name. An object of more than 32 members keeps an index of its names, made by the first lookup or
/// removal; each of these then takes about the same time, however many members there are.
class TJsonObject final : public TJsonBaseObject {
 public:
  TJsonObject() noexcept;
  ~TJsonObject();

  // Queries
  bool Contains(std::string_view aKey) const { return Find(aKey) != nullptr; }
  TJsonDataType GetType(std::string_view aKey) const;
  /// The value, or nullptr when the name is missing.
  const TJsonDataValue* Find(std::string_view aKey) const;
  TJsonDataValue* Find(std::string_view aKey);
  /// The 0-based place of a name, -1 when it is missing.
  int IndexOf(std::string_view aKey) const;
  std::string GetName(int aIndex) const { return std::string(GetNameView(aIndex)); }
  /// The name at a place without a copy, valid until the object changes.
  std::string_view GetNameView(int aIndex) const;

  std::string GetString(std::string_view aKey) const;
  /// A text without a copy, valid until the object changes; other kinds raise the cast error.
  std::string_view GetStringView(std::string_view aKey) const;
  int GetInt(std::string_view aKey) const;
  Int64 GetLong(std::string_view aKey) const;
  std::uint64_t GetULong(std::string_view aKey) const;
  double GetFloat(std::string_view aKey) const;
  bool GetBool(std::string_view aKey) const;
  double GetDateTime(std::string_view aKey) const;
  double GetUtcDateTime(std::string_view aKey) const;

  /// The object or array under a name. A missing one is added, empty; another kind, null included, raises
  /// the cast error.
  TJsonObject& GetObject(std::string_view aKey);
  TJsonArray& GetArray(std::string_view aKey);
  /// The object or array under a name, nullptr when there is none. Adds nothing.
  TJsonObject* FindObject(std::string_view aKey) const;
  TJsonArray* FindArray(std::string_view aKey) const;
  /// A transient handle on the value under a name, which need not exist yet.
  TJsonDataValueHelper GetValue(std::string_view aKey);
  TJsonDataValueHelper operator[](std::string_view aKey);

  // Setting replaces the value of the first such name, or adds a member at the end.
  void SetValue(std::string_view aKey, TJsonDataValue aValue) { Slot(aKey) = std::move(aValue); }
  void SetString(std::string_view aKey, std::string_view aValue) { SetValue(aKey, aValue); }
  void SetInt(std::string_view aKey, int aValue) { Slot(aKey).SetInt(aValue); }
  void SetLong(std::string_view aKey, Int64 aValue) { Slot(aKey).SetLong(aValue); }
  void SetULong(std::string_view aKey, std::uint64_t aValue) { Slot(aKey).SetULong(aValue); }
  void SetFloat(std::string_view aKey, double aValue) { Slot(aKey).SetFloat(aValue); }
  void SetBool(std::string_view aKey, bool aValue) { Slot(aKey).SetBool(aValue); }
  void SetDateTime(std::string_view aKey, double aValue) { Slot(aKey).SetDateTime(aValue); }
  void SetUtcDateTime(std::string_view aKey, double aValue) { Slot(aKey).SetUtcDateTime(aValue); }
  void SetNull(std::string_view aKey) { Slot(aKey).SetNull(); }
  /// Raises EArgumentException when none is given; SetNull sets a null.
  TJsonObject& SetObject(std::string_view aKey, std::unique_ptr<TJsonObject> aValue);
  TJsonArray& SetArray(std::string_view aKey, std::unique_ptr<TJsonArray> aValue);

  // Adding at the end without looking for the name: the fast way for a writer that knows its names.
  void PutValue(std::string_view aKey, TJsonDataValue aValue) { Append(aKey) = std::move(aValue); }
  void PutString(std::string_view aKey, std::string_view aValue) { PutValue(aKey, aValue); }
  void PutInt(std::string_view aKey, int aValue) { Append(aKey).SetInt(aValue); }
  void PutLong(std::string_view aKey, Int64 aValue) { Append(aKey).SetLong(aValue); }
  void PutFloat(std::string_view aKey, double aValue) { Append(aKey).SetFloat(aValue); }
  void PutBool(std::string_view aKey, bool aValue) { Append(aKey).SetBool(aValue); }
  TJsonObject& PutObject(std::string_view aKey, std::unique_ptr<TJsonObject> aValue);
  TJsonArray& PutArray(std::string_view aKey, std::unique_ptr<TJsonArray> aValue);
  TJsonObject& AddNewObject(std::string_view aKey);
  TJsonArray& AddNewArray(std::string_view aKey);

  /// Removes the first member of that name, if there is one.
  void Remove(std::string_view aKey);
  /// Removes the member at a 0-based place. Raises EListError beyond the end.
  void Delete(int aIndex);
  /// Takes the object out of the tree and its member away; none when there is no object of that name.
  std::unique_ptr<TJsonObject> ExtractObject(std::string_view aKey);
  std::unique_ptr<TJsonArray> ExtractArray(std::string_view aKey);
  std::unique_ptr<TJsonObject> Clone() const;
  /// Room for so many members in all, so that adding them takes memory once.
  void Reserve(int aCount);

 private:
  friend class TJsonBaseObject;
  friend class TJsonIndex;
  friend class TJsonReader;
  friend class TJsonWriter;

  /// Where the members stand, in order; in between may be empty slots, which the index counts.
  TJsonMember* Slots() const noexcept { return static_cast<TJsonMember*>(fItems); }
  std::uint32_t SlotCount() const noexcept;
  /// The members, fCount of them; closes the gaps.
  TJsonMember* Members() const noexcept;
  TJsonMember& MemberAt(int aIndex) const noexcept;
  /// The slot of a name, -1 when it is missing.
  int FindSlot(std::string_view aKey) const;
  TJsonIndex& NeedIndex() const;
  void RemoveSlot(int aSlot);
  /// Closes the gaps and forgets the index.
  void CloseUp() noexcept;
  /// Room for a member behind the others.
  void MakeRoom();
  /// An empty object with room for `aCount` members in its own block.
  static TJsonObject* Allocate(std::size_t aCount);
  /// An object of the members at `aMembers`, which are moved byte by byte: their place then holds nothing.
  static TJsonObject* Adopt(const void* aMembers, std::size_t aCount);
  const TJsonDataValue& Read(std::string_view aKey) const;
  TJsonDataValue& Slot(std::string_view aKey);
  TJsonDataValue& Append(std::string_view aKey);
  void DestroyMembers() noexcept;

  mutable std::unique_ptr<TJsonIndex> fIndex;  ///< Of more than 32 members, after a lookup or removal.
};

}  // namespace Zor::inline Jsondataobjects
