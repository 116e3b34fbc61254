#include "kaldrix/core/TItemIndex.hpp"

#include <functional>
#include <string>

#include "kaldrix/core/TKDXBaseItem.hpp"
#include "kaldrix/core/TOwnedList.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

TKDXBaseItem* TItemIndex::Find(int aInID) {
  if (!fHasIdentities) BuildIdentities();
  const auto found = fByIdentity.find(aInID);
  return found == fByIdentity.end() ? nullptr : found->second;
}

bool TItemIndex::MayRepeat(std::string_view aName, const TKDXBaseItem* aItem) {
  if (!fHasNames) BuildNames();
  const std::uint64_t key = NameKey(aName);
  const auto found = fNames.find(key);
  if (found == fNames.end()) return false;
  const int own = aItem != nullptr && NameKey(aItem->fID) == key ? 1 : 0;
  return found->second > own;
}

void TItemIndex::Add(TKDXBaseItem& aItem) {
  if (fHasIdentities) fByIdentity.emplace(aItem.fInID, &aItem);
  if (fHasNames) ++fNames[NameKey(aItem.fID)];
}

void TItemIndex::Remove(const TKDXBaseItem& aItem) {
  if (fHasIdentities) {
    const auto found = fByIdentity.find(aItem.fInID);
    if (found != fByIdentity.end() && found->second == &aItem) fByIdentity.erase(found);
  }
  if (fHasNames) {
    const auto found = fNames.find(NameKey(aItem.fID));
    if (found != fNames.end() && --found->second == 0) fNames.erase(found);
  }
}

void TItemIndex::Clear() {
  fByIdentity.clear();
  fNames.clear();
  fHasIdentities = fHasNames = false;
}

std::uint64_t TItemIndex::NameKey(std::string_view aName) {
  return std::hash<std::string>{}(LowerCase(Trim(aName)));
}

void TItemIndex::BuildIdentities() {
  fByIdentity.reserve(static_cast<std::size_t>(fItems.Count()));
  for (TKDXBaseItem* item : fItems) fByIdentity.emplace(item->fInID, item);
  fHasIdentities = true;
}

void TItemIndex::BuildNames() {
  for (const TKDXBaseItem* item : fItems) ++fNames[NameKey(item->fID)];
  fHasNames = true;
}

}  // namespace Zor::inline Base
