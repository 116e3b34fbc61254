#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

#include "kaldrix/core/TFlatTable.hpp"
#include "kaldrix/core/TItemList.hpp"

namespace Zor::inline Base {

/// Finds items by identity and by name, in constant time where names are unique. Both tables are made on
/// first use and kept up to date from then on, so that a document that is only read and written pays for
/// neither.
class TItemIndex {
 public:
  explicit TItemIndex(const TItemList& aItems) : fItems(aItems) {}

  /// The first item with that identity, or none.
  TKDXBaseItem* Find(int aInID);
  /// The lowest item that `aIs` accepts among those with this name, trimmed and compared without case. Rarely
  /// it is asked for an item of another name, too.
  template <class TIs>
  TKDXBaseItem* FindName(std::string_view aName, TIs aIs) {
    NeedNames();
    const std::uint64_t key = NameKey(aName);
    TKDXBaseItem* item = fNames.Find(key);
    if (item == nullptr || aIs(*item)) return item;
    for (auto next = Repeats(key); next != fRepeats.end() && next->first.first == key; ++next) {
      if (aIs(*next->second)) return next->second;
    }
    return nullptr;
  }

  void Add(TKDXBaseItem& aItem);
  void Remove(const TKDXBaseItem& aItem);
  /// Around a change of identity or name.
  void BeforeChange(const TKDXBaseItem& aItem) { Remove(aItem); }
  void AfterChange(TKDXBaseItem& aItem) { Add(aItem); }
  /// Around a change of an item's place in the list.
  void BeforeMove(const TKDXBaseItem& aItem);
  void AfterMove(TKDXBaseItem& aItem);
  void Clear();

 private:
  /// The hash of the folded name, and the rank of an item.
  using TPlace = std::pair<std::uint64_t, std::int64_t>;

  static std::uint64_t NameKey(std::string_view aName);
  auto Repeats(std::uint64_t aKey) {
    return fRepeats.lower_bound({aKey, (std::numeric_limits<std::int64_t>::min)()});
  }
  void AddIdentity(TKDXBaseItem& aItem);
  void AddName(TKDXBaseItem& aItem);
  void RemoveName(const TKDXBaseItem& aItem);
  void BuildIdentities();
  void NeedNames();
  /// False when there are none, or none any more, since the ranks are new.
  bool HasNames();
  void ForgetNames();

  const TItemList& fItems;
  TFlatTable<int, TKDXBaseItem*> fByIdentity;
  TFlatTable<std::uint64_t, TKDXBaseItem*> fNames;  ///< hash of the folded name, the lowest item with it
  std::map<TPlace, TKDXBaseItem*> fRepeats;         ///< the other items with it, in z-order
  unsigned fNumbering = 0;                          ///< of the list, when the names were entered
  bool fHasIdentities = false;
  bool fHasNames = false;
};

}  // namespace Zor::inline Base
