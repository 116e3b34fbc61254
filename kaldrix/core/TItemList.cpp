#include "kaldrix/core/TItemList.hpp"

#include <limits>

#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

std::int64_t TItemList::RankOf(const TKDXBaseItem& aItem) { return aItem.fRank; }

// Finding --------------------------------------------------

std::size_t TItemList::SearchBlock(int aIndex) const {
  const auto behind = std::upper_bound(fBlocks.begin(), fBlocks.end(), aIndex,
                                       [](int index, const TBlock& block) { return index < block.start; });
  return static_cast<std::size_t>(behind - fBlocks.begin()) - 1;
}

std::size_t TItemList::BlockOfRank(std::int64_t aRank) const {
  const auto behind =
      std::upper_bound(fBlocks.begin(), fBlocks.end(), aRank,
                       [](std::int64_t rank, const TBlock& block) { return rank < block.least; });
  return behind == fBlocks.begin() ? 0 : static_cast<std::size_t>(behind - fBlocks.begin()) - 1;
}

int TItemList::IndexOf(const TKDXBaseItem* aItem) const {
  if (aItem == nullptr || fBlocks.empty()) return -1;
  const TBlock& block = fBlocks[BlockOfRank(aItem->fRank)];
  const auto found = std::find(block.members.begin(), block.members.end(), aItem);
  return found == block.members.end() ? -1 : block.start + static_cast<int>(found - block.members.begin());
}

int TItemList::CountBelow(std::int64_t aRank) const {
  if (fBlocks.empty()) return 0;
  const TBlock& block = fBlocks[BlockOfRank(aRank)];
  const auto end = std::partition_point(block.members.begin(), block.members.end(),
                                        [aRank](const TKDXBaseItem* item) { return item->fRank < aRank; });
  return block.start + static_cast<int>(end - block.members.begin());
}

// Coming and going --------------------------------------------------

void TItemList::Adopt(TKDXBaseItem* aItem) { Insert(*aItem, fCount, 0); }

void TItemList::Extract(const TKDXBaseItem* aItem) {
  if (fBlocks.empty()) return;
  const std::size_t place = BlockOfRank(aItem->fRank);
  std::vector<TKDXBaseItem*>& members = fBlocks[place].members;
  const auto found = std::find(members.begin(), members.end(), aItem);
  if (found == members.end()) return;
  members.erase(found);
  if (members.empty()) fBlocks.erase(fBlocks.begin() + static_cast<std::ptrdiff_t>(place));
  Restart(place);
}

void TItemList::Clear() {
  while (!fBlocks.empty()) {
    TBlock& block = fBlocks.back();
    TKDXBaseItem* item = block.members.back();
    block.members.pop_back();
    if (block.members.empty()) fBlocks.pop_back();
    --fCount;
    delete item;
  }
  ForgetOrder();
}

void TItemList::Swap(TItemList& aOther) noexcept {
  fBlocks.swap(aOther.fBlocks);
  std::swap(fCount, aOther.fCount);
  std::swap(fOrderFrom, aOther.fOrderFrom);
  std::swap(fOrderTo, aOther.fOrderTo);
  ++fNumbering;
  ++aOther.fNumbering;
}

void TItemList::MoveToEnd(TKDXBaseItem& aItem, bool aLast) {
  Extract(&aItem);
  Insert(aItem, aLast ? fCount : 0, 0);
}

void TItemList::Insert(TKDXBaseItem& aItem, int aIndex, int aLeaning) {
  if (!HasRoom(aIndex)) Renumber();
  const std::int64_t rank = RankFor(aIndex, aLeaning);
  // What comes to an end is out of order.
  if (aIndex == fCount) fOrderTo = std::min(fOrderTo, rank - 1);
  if (aIndex == 0) fOrderFrom = std::max(fOrderFrom, rank + 1);
  if (aIndex == fCount && (fBlocks.empty() || fBlocks.back().members.size() == BlockSize)) {
    fBlocks.push_back({rank, fCount, {&aItem}});
  } else {
    std::size_t place = aIndex == fCount ? fBlocks.size() - 1 : BlockAt(aIndex);
    if (fBlocks[place].members.size() == BlockSize) {
      Split(place);
      place = BlockAt(aIndex);
    }
    TBlock& block = fBlocks[place];
    block.members.insert(block.members.begin() + (aIndex - block.start), &aItem);
    block.least = std::min(block.least, rank);
    for (std::size_t i = place + 1; i < fBlocks.size(); ++i) ++fBlocks[i].start;
  }
  aItem.fRank = rank;
  ++fCount;
}

bool TItemList::HasRoom(int aIndex) const {
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() - RankGap;
  if (fCount == 0) return true;
  if (aIndex == fCount) return Last()->fRank < most;
  if (aIndex == 0) return First()->fRank > -most;
  return (*this)[aIndex]->fRank - (*this)[aIndex - 1]->fRank > 1;
}

std::int64_t TItemList::RankFor(int aIndex, int aLeaning) const {
  if (fCount == 0) return 0;
  if (aIndex == fCount) return Last()->fRank + RankGap;
  if (aIndex == 0) return First()->fRank - RankGap;
  const std::int64_t previous = (*this)[aIndex - 1]->fRank, next = (*this)[aIndex]->fRank;
  if (aLeaning == 0) return previous + (next - previous) / 2;
  return aLeaning > 0 ? previous + 1 : next - 1;
}

void TItemList::Split(std::size_t aBlock) {
  TBlock& full = fBlocks[aBlock];
  const auto middle = full.members.begin() + BlockSize / 2;
  TBlock upper{(*middle)->fRank, full.start + static_cast<int>(BlockSize / 2), {middle, full.members.end()}};
  full.members.erase(middle, full.members.end());
  fBlocks.insert(fBlocks.begin() + static_cast<std::ptrdiff_t>(aBlock) + 1, std::move(upper));
}

void TItemList::Restart(std::size_t aBlock) {
  int start = 0;
  if (aBlock > 0) {
    const TBlock& before = fBlocks[aBlock - 1];
    start = before.start + static_cast<int>(before.members.size());
  }
  for (std::size_t i = aBlock; i < fBlocks.size(); ++i) {
    fBlocks[i].start = start;
    start += static_cast<int>(fBlocks[i].members.size());
  }
  fCount = start;
}

void TItemList::Renumber() {
  std::int64_t rank = 0;
  for (TBlock& block : fBlocks) {
    block.least = rank;
    for (TKDXBaseItem* item : block.members) {
      item->fRank = rank;
      rank += RankGap;
    }
  }
  ++fNumbering;
  ForgetOrder();
}

void TItemList::Rebuild(const std::vector<TKeyed>& aItems) {
  auto next = aItems.begin();
  for (TBlock& block : fBlocks) {
    for (TKDXBaseItem*& member : block.members) member = (next++)->item;
  }
  Renumber();
}

// Order --------------------------------------------------

void TItemList::NoteOrder() {
  fOrderFrom = fCount == 0 ? 0 : First()->fRank;
  fOrderTo = fCount == 0 ? -1 : Last()->fRank;
}

}  // namespace Zor::inline Base
