#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

namespace Zor::inline Base {

class TKDXBaseItem;

/// The items of a drawing in z-order, first is lowest, which it owns. Items enter in their own constructors
/// (so it holds plain pointers: a constructor that throws must not leave an owner behind), and this is the
/// one place that frees them.
///
/// An item is found, taken out of the middle or put elsewhere without a walk over the others: members stand
/// in blocks, and each has a rank, a number that grows along the list. What moves in memory is one block and
/// a number for each block behind it.
class TItemList {
 public:
  class TIterator;

  TItemList() = default;
  TItemList(const TItemList&) = delete;
  TItemList& operator=(const TItemList&) = delete;
  TItemList(TItemList&& aOther) noexcept { Swap(aOther); }
  TItemList& operator=(TItemList&& aOther) noexcept {
    TItemList former(std::move(*this));
    Swap(aOther);
    return *this;
  }
  ~TItemList() { Clear(); }

  int Count() const { return fCount; }
  bool IsEmpty() const { return fCount == 0; }
  /// 0-based.
  TKDXBaseItem* operator[](int aIndex) const {
    const TBlock& block = fBlocks[BlockAt(aIndex)];
    return block.members[static_cast<std::size_t>(aIndex - block.start)];
  }
  TKDXBaseItem* First() const { return fBlocks.front().members.front(); }
  TKDXBaseItem* Last() const { return fBlocks.back().members.back(); }
  TIterator begin() const;
  TIterator end() const;

  void Reserve(std::size_t aCount) { fBlocks.reserve(aCount / BlockSize + 1); }
  /// Takes the item as the last.
  void Adopt(TKDXBaseItem* aItem);
  /// 0-based; -1 when it is no member.
  int IndexOf(const TKDXBaseItem* aItem) const;
  /// Takes the item out without freeing it.
  void Extract(const TKDXBaseItem* aItem);
  /// Frees the members, last to first.
  void Clear();
  void Swap(TItemList& aOther) noexcept;
  /// To the beginning or the end of the list.
  void MoveToEnd(TKDXBaseItem& aItem, bool aLast);

  /// Takes out, without freeing, every member that `aTest` accepts; it is asked once for each, in order.
  /// Linear.
  template <class TTest>
  void ExtractIf(TTest aTest) {
    for (TBlock& block : fBlocks) std::erase_if(block.members, aTest);
    std::erase_if(fBlocks, [](const TBlock& block) { return block.members.empty(); });
    Restart(0);
  }

  // Order by a key --------------------------------------------------

  /// Sorts by a number that `aKeyOf` tells of each item; those of equal numbers keep their order. True when
  /// an item moved.
  template <class TKeyOf>
  bool SortBy(TKeyOf aKeyOf) {
    std::vector<TKeyed> items;
    items.reserve(static_cast<std::size_t>(fCount));
    for (const TBlock& block : fBlocks) {
      for (TKDXBaseItem* item : block.members) items.push_back({aKeyOf(*item), item});
    }
    const bool moves = !std::is_sorted(items.begin(), items.end(), &TItemList::HasLess);
    if (moves) {
      std::stable_sort(items.begin(), items.end(), &TItemList::HasLess);
      Rebuild(items);
    }
    NoteOrder();
    return moves;
  }

  /// The same when the number of one item may have changed since the last time: what came or was moved to an
  /// end meanwhile, and this item, are put into their places between the others, which are not looked at.
  /// `aBefore` and `aAfter` are called around a change of an item's place.
  template <class TKeyOf, class TBefore, class TAfter>
  bool SortAgain(const TKDXBaseItem& aChanged, TKeyOf aKeyOf, TBefore aBefore, TAfter aAfter) {
    if (fOrderFrom > fOrderTo) return SortBy(aKeyOf);
    std::vector<TKeyed> displaced;
    FindDisplaced(aChanged, aKeyOf, displaced);
    // Putting one into its place costs about as much as sorting so many.
    constexpr std::size_t placesOfOne = 8;
    if (displaced.size() > static_cast<std::size_t>(fCount) / placesOfOne + 1) return SortBy(aKeyOf);
    std::stable_sort(displaced.begin(), displaced.end(), &TItemList::HasLess);
    for (const TKeyed& each : displaced) {
      aBefore(*each.item);
      Extract(each.item);
    }
    // All places before the first change, since ranks may be given anew.
    for (TKeyed& each : displaced) each.place = PlaceFor(each, aKeyOf);
    int came = 0;
    for (const TKeyed& each : displaced) {
      const int place = each.place + came++;
      const auto alike = [&](int aIndex) {
        return aIndex >= 0 && aIndex < fCount && aKeyOf(*(*this)[aIndex]) == each.key;
      };
      Insert(*each.item, place, alike(place - 1) - alike(place));
      aAfter(*each.item);
    }
    NoteOrder();
    return !displaced.empty();
  }

  /// Nothing is known to be in order any more.
  void ForgetOrder() { fOrderFrom = fOrderTo + 1; }

  // Ranks --------------------------------------------------

  static std::int64_t RankOf(const TKDXBaseItem& aItem);
  /// Grows whenever all ranks were given anew. Else the rank of an item changes only when it is moved.
  unsigned Numbering() const { return fNumbering; }

 private:
  struct TBlock {
    std::int64_t least;  ///< no member has a lower rank, and those of the blocks before have
    int start;           ///< index of the first member
    std::vector<TKDXBaseItem*> members;
  };
  struct TKeyed {
    int key;
    TKDXBaseItem* item;
    int place = 0;
  };
  static constexpr std::size_t BlockSize = 512;
  /// Between neighbours that came one after the other.
  static constexpr std::int64_t RankGap = std::int64_t{1} << 32;

  /// The block of an index; blocks that are full but for the last are found at once.
  std::size_t BlockAt(int aIndex) const {
    const std::size_t guess = static_cast<std::size_t>(aIndex) / BlockSize;
    if (guess < fBlocks.size() && Holds(fBlocks[guess], aIndex)) return guess;
    return SearchBlock(aIndex);
  }
  static bool Holds(const TBlock& aBlock, int aIndex) {
    return aIndex >= aBlock.start && aIndex - aBlock.start < static_cast<int>(aBlock.members.size());
  }
  std::size_t SearchBlock(int aIndex) const;
  /// The block that an item of that rank would stand in.
  std::size_t BlockOfRank(std::int64_t aRank) const;
  /// How many members have a lower rank.
  int CountBelow(std::int64_t aRank) const;

  /// Puts the item before the member at an index. Its rank is next to that of the member before it
  /// (`aLeaning` above 0) or behind it (below 0), where many find room one after the other, or in the middle.
  void Insert(TKDXBaseItem& aItem, int aIndex, int aLeaning);
  /// Is a rank left for an item before that index?
  bool HasRoom(int aIndex) const;
  std::int64_t RankFor(int aIndex, int aLeaning) const;
  void Split(std::size_t aBlock);
  /// Brings the starts up to date, from that block on.
  void Restart(std::size_t aBlock);
  void Renumber();
  void Rebuild(const std::vector<TKeyed>& aItems);

  static bool HasLess(const TKeyed& a, const TKeyed& b) { return a.key < b.key; }
  /// The members that are out of order, in the order of the list.
  template <class TKeyOf>
  void FindDisplaced(const TKDXBaseItem& aChanged, TKeyOf aKeyOf, std::vector<TKeyed>& aDisplaced) const {
    const auto key = [&](int aIndex) { return aKeyOf(*(*this)[aIndex]); };
    const int changed = IndexOf(&aChanged);
    int from = CountBelow(fOrderFrom), to = CountBelow(fOrderTo + 1);
    while (from > 0 && from != changed && from < to && key(from - 1) <= key(from)) --from;
    while (to < fCount && to - 1 != changed && from < to && key(to) >= key(to - 1)) ++to;
    const auto displaced = [&](int aIndex) {
      if (aIndex < from || aIndex >= to) return true;
      if (aIndex != changed) return false;
      return (aIndex > from && key(aIndex - 1) > key(aIndex)) ||
             (aIndex + 1 < to && key(aIndex + 1) < key(aIndex));
    };
    const auto take = [&](int aIndex) {
      if (displaced(aIndex)) aDisplaced.push_back({key(aIndex), (*this)[aIndex]});
    };
    for (int i = 0; i < from; ++i) take(i);
    if (changed >= from && changed < to) take(changed);
    for (int i = to; i < fCount; ++i) take(i);
  }
  void NoteOrder();

  /// Where the item belongs: behind those of a lower key, and of the same key and a lower rank.
  template <class TKeyOf>
  int PlaceFor(const TKeyed& aItem, TKeyOf aKeyOf) const {
    int from = 0, to = fCount;
    while (from < to) {
      const int middle = from + (to - from) / 2;
      const TKDXBaseItem& other = *(*this)[middle];
      const int key = aKeyOf(other);
      const bool below = key < aItem.key || (key == aItem.key && RankOf(other) < RankOf(*aItem.item));
      below ? from = middle + 1 : to = middle;
    }
    return from;
  }

  std::vector<TBlock> fBlocks;  ///< none is empty
  int fCount = 0;
  unsigned fNumbering = 0;
  // The members of these ranks are in the order of the key.
  std::int64_t fOrderFrom = 0, fOrderTo = -1;
};

/// Goes through a list that does not change meanwhile.
class TItemList::TIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = TKDXBaseItem*;
  using difference_type = std::ptrdiff_t;
  using pointer = TKDXBaseItem* const*;
  using reference = TKDXBaseItem* const&;

  TIterator() = default;
  reference operator*() const { return *fAt; }
  TIterator& operator++() {
    ++fIndex;
    if (++fAt == fStop) Enter(fBlock + 1);
    return *this;
  }
  TIterator operator++(int) {
    const TIterator former = *this;
    ++*this;
    return former;
  }
  TKDXBaseItem* operator[](difference_type aAhead) const {
    return aAhead < fStop - fAt ? fAt[aAhead] : (*fList)[fIndex + static_cast<int>(aAhead)];
  }
  difference_type operator-(const TIterator& aOther) const { return fIndex - aOther.fIndex; }
  bool operator==(const TIterator& aOther) const { return fIndex == aOther.fIndex; }

 private:
  friend class TItemList;
  TIterator(const TItemList& aList, int aIndex) : fList(&aList), fIndex(aIndex) {
    if (aIndex == 0) Enter(0);
  }
  void Enter(std::size_t aBlock) {
    fBlock = aBlock;
    if (aBlock >= fList->fBlocks.size()) return;
    const std::vector<TKDXBaseItem*>& members = fList->fBlocks[aBlock].members;
    fAt = members.data();
    fStop = fAt + members.size();
  }

  const TItemList* fList = nullptr;
  int fIndex = 0;
  std::size_t fBlock = 0;
  pointer fAt = nullptr, fStop = nullptr;
};

inline TItemList::TIterator TItemList::begin() const { return {*this, 0}; }
inline TItemList::TIterator TItemList::end() const { return {*this, fCount}; }

}  // namespace Zor::inline Base
