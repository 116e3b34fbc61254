#include "kaldrix/core/TItemIndex.hpp"

#include <functional>
#include <string>

#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/TOwnedList.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

TKDXBaseItem* TItemIndex::Find(int aInID) {
  if (!fHasIdentities) BuildIdentities();
  return fByIdentity.Find(aInID);
}

bool TItemIndex::MayRepeat(std::string_view aName, const TKDXBaseItem* aItem) {
  if (!fHasNames) BuildNames();
  const std::uint64_t key = NameKey(aName);
  const int count = fNames.Find(key);
  if (count == 0) return false;
  const int own = aItem != nullptr && NameKey(aItem->fID) == key ? 1 : 0;
  return count > own;
}

void TItemIndex::Add(TKDXBaseItem& aItem) {
  if (fHasIdentities) AddIdentity(aItem);
  if (fHasNames) AddName(aItem);
}

void TItemIndex::Remove(const TKDXBaseItem& aItem) {
  if (fHasIdentities && fByIdentity.Find(aItem.fInID) == &aItem) fByIdentity.Remove(aItem.fInID);
  if (fHasNames) RemoveName(aItem);
}

void TItemIndex::Clear() {
  fByIdentity.Clear();
  fNames.Clear();
  fHasIdentities = fHasNames = false;
}

std::uint64_t TItemIndex::NameKey(std::string_view aName) {
  return std::hash<std::string>{}(LowerCase(Trim(aName)));
}

void TItemIndex::AddIdentity(TKDXBaseItem& aItem) {
  if (fByIdentity.Find(aItem.fInID) == nullptr) fByIdentity.Put(aItem.fInID, &aItem);
}

void TItemIndex::AddName(const TKDXBaseItem& aItem) {
  const std::uint64_t key = NameKey(aItem.fID);
  fNames.Put(key, fNames.Find(key) + 1);
}

void TItemIndex::RemoveName(const TKDXBaseItem& aItem) {
  const std::uint64_t key = NameKey(aItem.fID);
  const int count = fNames.Find(key);
  count > 1 ? fNames.Put(key, count - 1) : fNames.Remove(key);
}

void TItemIndex::BuildIdentities() {
  fByIdentity.Reserve(static_cast<std::size_t>(fItems.Count()));
  SweepItems(fItems.begin(), fItems.end(), [this](TKDXBaseItem* item) { AddIdentity(*item); });
  fHasIdentities = true;
}

void TItemIndex::BuildNames() {
  fNames.Reserve(static_cast<std::size_t>(fItems.Count()));
  for (const TKDXBaseItem* item : fItems) AddName(*item);
  fHasNames = true;
}

}  // namespace Zor::inline Base
