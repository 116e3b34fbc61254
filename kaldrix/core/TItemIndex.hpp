#pragma once

#include <cstdint>
#include <string_view>

#include "kaldrix/core/TFlatTable.hpp"

namespace Zor::inline Base {

class TKDXBaseItem;
template <class T>
class TOwnedList;

/// Finds items by identity and counts names, in constant time. Both tables are made on first use and kept up
/// to date from then on, so that a document that is only read and written pays for neither.
class TItemIndex {
 public:
  explicit TItemIndex(const TOwnedList<TKDXBaseItem>& aItems) : fItems(aItems) {}

  /// The first item with that identity, or none.
  TKDXBaseItem* Find(int aInID);
  /// Could another item than `aItem` have this name? Names are trimmed and compared without case. False is
  /// certain; true may be a collision, which the caller checks.
  bool MayRepeat(std::string_view aName, const TKDXBaseItem* aItem);

  void Add(TKDXBaseItem& aItem);
  void Remove(const TKDXBaseItem& aItem);
  /// Around a change of identity or name.
  void BeforeChange(const TKDXBaseItem& aItem) { Remove(aItem); }
  void AfterChange(TKDXBaseItem& aItem) { Add(aItem); }
  void Clear();

 private:
  static std::uint64_t NameKey(std::string_view aName);
  void AddIdentity(TKDXBaseItem& aItem);
  void AddName(const TKDXBaseItem& aItem);
  void RemoveName(const TKDXBaseItem& aItem);
  void BuildIdentities();
  void BuildNames();

  const TOwnedList<TKDXBaseItem>& fItems;
  TFlatTable<int, TKDXBaseItem*> fByIdentity;
  TFlatTable<std::uint64_t, int> fNames;  ///< hash of the folded name, number of items with it
  bool fHasIdentities = false;
  bool fHasNames = false;
};

}  // namespace Zor::inline Base
