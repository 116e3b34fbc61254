#include "kaldrix/core/TLinkEnds.hpp"

#include <iterator>
#include <limits>

#include "kaldrix/core/TItemList.hpp"
#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

namespace {

/// Calls `aVisit` with the identity of each node that the link ends on.
template <class TVisit>
void ForNodes(const TKDXBaseItem& aLink, TVisit aVisit) {
  const auto [from, to] = aLink.EndIDs();
  aVisit(from);
  if (to != from) aVisit(to);
}

}  // namespace

std::vector<TKDXBaseItem*> TLinkEnds::LinksOf(int aNode, const std::vector<TKDXBaseItem*>& aLinks) {
  if (!fKnown) {
    for (TKDXBaseItem* link : aLinks) {
      ForNodes(*link, [&](int node) { fEnds[{node, TItemList::RankOf(*link)}] = link; });
    }
    fKnown = true;
  }
  std::vector<TKDXBaseItem*> links;
  auto end = fEnds.upper_bound({aNode, std::numeric_limits<std::int64_t>::max()});
  while (end != fEnds.begin() && std::prev(end)->first.first == aNode) links.push_back((--end)->second);
  return links;
}

void TLinkEnds::Remove(const TKDXBaseItem& aLink) {
  if (!fKnown) return;
  bool known = true;
  ForNodes(aLink, [&](int node) {
    const auto end = fEnds.find({node, TItemList::RankOf(aLink)});
    known = known && end != fEnds.end() && end->second == &aLink;
    if (known) fEnds.erase(end);
  });
  // Its ends or its place are others than they were.
  if (!known) Forget();
}

void TLinkEnds::Forget() {
  fEnds.clear();
  fKnown = false;
}

}  // namespace Zor::inline Base
