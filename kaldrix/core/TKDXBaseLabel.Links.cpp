// Links: finding the nodes of a new one, and following nodes that move.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/TNoticeHold.hpp"

namespace Zor::inline Base {

void TKDXBaseLabel::RouteStaleLinks() {
  fLinksStale = false;
  if (!fHasLinks) return;
  const TNoticeHold hold(*this);
  fHasLinks = false;
  SweepItems(fItems.begin(), fItems.end(), [this](TKDXBaseItem* item) {
    if (item->fItemType != itLink) return;
    fHasLinks = true;
    item->FollowEnds();
    fNotices.Changed(*item);
  });
}

bool TKDXBaseLabel::SearchLink(Int64 x, Int64 y, TZOLink& aLink, bool aFirst) const {
  aLink.Reset(false, aFirst);
  for (int i = fItems.Count() - 1; i >= 0; --i) {
    const TKDXBaseItem& item = *fItems[i];
    if (!CarriesLinks(item.fItemType) || !item.Shows(lopVisible) || !item.Shows(lopSelectable)) continue;
    const auto* node = dynamic_cast<const IZORLink*>(&item);
    if (node != nullptr && node->CheckLink(x, y, aLink)) return true;
  }
  return false;
}

void TKDXBaseLabel::FillLinkList() {
  for (TKDXBaseItem* link : fLinks) link->fState = isNormal;
  fLinks.clear();
  fLinkEnds.Forget();
  // A link may be selected by itself as well.
  for (TKDXBaseItem* item : fSelection) {
    if (item->fState == isNormal) item->fState = isSelected;
  }
  if (!fHasLinks || fSelection.empty()) return;
  SweepItems(fItems.begin(), fItems.end(), [this](TKDXBaseItem* item) {
    if (item->fItemType == itLink && item->IsAttachedToSelection()) fLinks.push_back(item);
  });
  for (TKDXBaseItem* link : fLinks) link->fState = isSelected;
}

}  // namespace Zor::inline Base
