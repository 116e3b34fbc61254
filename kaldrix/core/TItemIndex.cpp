#include "kaldrix/core/TItemIndex.hpp"

#include <functional>
#include <string>

#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

TKDXBaseItem* TItemIndex::Find(int aInID) {
  if (!fHasIdentities) BuildIdentities();
  return fByIdentity.Find(aInID);
}

void TItemIndex::Add(TKDXBaseItem& aItem) {
  if (fHasIdentities) AddIdentity(aItem);
  if (HasNames()) AddName(aItem);
}

void TItemIndex::Remove(const TKDXBaseItem& aItem) {
  if (fHasIdentities && fByIdentity.Find(aItem.fInID) == &aItem) fByIdentity.Remove(aItem.fInID);
  if (HasNames()) RemoveName(aItem);
}

void TItemIndex::Clear() {
  fByIdentity.Clear();
  fHasIdentities = false;
  ForgetNames();
}

void TItemIndex::BeforeMove(const TKDXBaseItem& aItem) {
  if (HasNames()) RemoveName(aItem);
}

void TItemIndex::AfterMove(TKDXBaseItem& aItem) {
  if (HasNames()) AddName(aItem);
}

std::uint64_t TItemIndex::NameKey(std::string_view aName) {
  return std::hash<std::string>{}(LowerCase(Trim(aName)));
}

void TItemIndex::AddIdentity(TKDXBaseItem& aItem) {
  if (fByIdentity.Find(aItem.fInID) == nullptr) fByIdentity.Put(aItem.fInID, &aItem);
}

void TItemIndex::AddName(TKDXBaseItem& aItem) {
  const std::uint64_t key = NameKey(aItem.fID);
  TKDXBaseItem* first = fNames.Find(key);
  if (first == nullptr) return fNames.Put(key, &aItem);
  TKDXBaseItem* other = &aItem;
  if (TItemList::RankOf(aItem) < TItemList::RankOf(*first)) {
    other = first;
    fNames.Put(key, &aItem);
  }
  fRepeats.emplace(TPlace{key, TItemList::RankOf(*other)}, other);
}

void TItemIndex::RemoveName(const TKDXBaseItem& aItem) {
  const std::uint64_t key = NameKey(aItem.fID);
  if (fNames.Find(key) != &aItem) {
    fRepeats.erase({key, TItemList::RankOf(aItem)});
    return;
  }
  const auto next = Repeats(key);
  if (next == fRepeats.end() || next->first.first != key) return fNames.Remove(key);
  fNames.Put(key, next->second);
  fRepeats.erase(next);
}

void TItemIndex::BuildIdentities() {
  fByIdentity.Reserve(static_cast<std::size_t>(fItems.Count()));
  SweepItems(fItems.begin(), fItems.end(), [this](TKDXBaseItem* item) { AddIdentity(*item); });
  fHasIdentities = true;
}

void TItemIndex::NeedNames() {
  if (HasNames()) return;
  fNames.Reserve(static_cast<std::size_t>(fItems.Count()));
  for (TKDXBaseItem* item : fItems) AddName(*item);
  fNumbering = fItems.Numbering();
  fHasNames = true;
}

bool TItemIndex::HasNames() {
  if (fHasNames && fNumbering != fItems.Numbering()) ForgetNames();
  return fHasNames;
}

void TItemIndex::ForgetNames() {
  fNames.Clear();
  fRepeats.clear();
  fHasNames = false;
}

}  // namespace Zor::inline Base
