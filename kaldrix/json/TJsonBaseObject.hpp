// What objects and arrays of JSON have in common: texts, files, paths.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "kaldrix/json/TJsonDataValue.hpp"

namespace Zor::inline Jsondataobjects {

class TJsonDataValueHelper;

/// An object or an array. Only TJsonObject and TJsonArray derive from it; there is no dynamic_cast, use
/// AsObject and AsArray. A tree belongs to one thread at a time, for reading too.
class TJsonBaseObject {
 public:
  /// Nesting beyond this is refused by the parser.
  static constexpr int MaxNesting = 512;

  TJsonBaseObject(const TJsonBaseObject&) = delete;
  TJsonBaseObject& operator=(const TJsonBaseObject&) = delete;
  ~TJsonBaseObject() = default;
  static void operator delete(TJsonBaseObject* aSelf, std::destroying_delete_t) noexcept;

  bool IsObject() const noexcept { return fIsObject; }
  bool IsArray() const noexcept { return !fIsObject; }
  TJsonObject* AsObject() noexcept;
  const TJsonObject* AsObject() const noexcept;
  TJsonArray* AsArray() noexcept;
  const TJsonArray* AsArray() const noexcept;

  int Count() const noexcept { return static_cast<int>(fCount); }
  /// The value at a 0-based place. Raises EListError beyond the end.
  TJsonDataValue& GetItem(int aIndex);
  const TJsonDataValue& GetItem(int aIndex) const;
  void Clear() noexcept;
  std::unique_ptr<TJsonBaseObject> Clone() const;

  /// A new object or array from UTF-8 text; none from an empty or blank text. Text that begins with "["
  /// gives an array. Raises EJsonParserException. Invalid UTF-8 reads as U+FFFD.
  static std::unique_ptr<TJsonBaseObject> Parse(std::string_view aText);
  static std::unique_ptr<TJsonBaseObject> Parse(const char* aBuffer, std::size_t aLength);
  /// Reads the whole file. Raises EFileNotFoundException and EStreamError.
  static std::unique_ptr<TJsonBaseObject> ParseFromFile(const std::string& aFileName);
  /// Replaces the content; the root of the text must be of this kind. Empty after an error.
  void FromJSON(std::string_view aText);
  void LoadFromFile(const std::string& aFileName);
  void LoadFromStream(std::istream& aStream);

  /// The text: compact, or with each member on a line of its own.
  std::string ToJSON(bool aCompact = true) const;
  std::string ToString() const { return ToJSON(true); }
  std::string ToUtf8JSON(bool aCompact = true) const { return ToJSON(aCompact); }
  /// Appends the text of this tree as it stands `aLevel` levels deep: the first bracket without indent, the
  /// lines below it with `aLevel` + 1 and the last one with `aLevel`.
  void AppendJSON(std::string& aText, bool aCompact, int aLevel) const;
  /// Writes beside the file and renames, so that a failure leaves what was there. Raises EStreamError.
  void SaveToFile(const std::string& aFileName, bool aCompact = true) const;
  /// Raises EStreamError when the stream fails.
  void SaveToStream(std::ostream& aStream, bool aCompact = true) const;

  /// The value at a path of names and 0-based indexes, as in "a.b[2].c"; `jdtNone` when a name is missing.
  /// Raises EJsonPathException on a bad form, on an index beyond its array and on a way through a null.
  TJsonDataValueHelper GetPath(std::string_view aPath);
  /// Sets the value at a path; missing objects and arrays on the way are added.
  void SetPath(std::string_view aPath, TJsonDataValue aValue);

 protected:
  explicit TJsonBaseObject(bool aIsObject) noexcept : fCapacity(0), fInPlace(0), fIsObject(aIsObject) {}
  void CheckIndex(int aIndex) const {
    if (static_cast<std::uint32_t>(aIndex) >= fCount) RaiseJsonIndex(aIndex);
  }
  /// The list error for more items than an object or array can count.
  static void CheckCapacity(std::size_t aCount) {
    if (aCount > MaxCapacity) RaiseJsonCount(static_cast<long long>(aCount));
  }
  void TakePlace(void* aItems, std::size_t aCapacity) noexcept {
    fItems = aItems;
    fCapacity = static_cast<std::uint32_t>(aCapacity) & MaxCapacity;
    fInPlace = 1;
  }
  /// Moves the items to a block of their own with room for `aCapacity`.
  void MoveItems(std::size_t aCapacity, std::size_t aItemSize);
  /// Replaces the items by those of another of the same kind, which is empty then.
  void TakeItems(TJsonBaseObject& aOther, std::size_t aItemSize);
  /// Room for one item more, doubling.
  void Grow(std::size_t aItemSize);

  static constexpr std::uint32_t MaxCapacity = (1U << 30U) - 1;

  void* fItems = nullptr;
  std::uint32_t fCount = 0;
  std::uint32_t fCapacity : 30;
  std::uint32_t fInPlace : 1;  ///< The items stand behind this object in its own memory.
  std::uint32_t fIsObject : 1;
};

}  // namespace Zor::inline Jsondataobjects
