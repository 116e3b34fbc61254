#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace Zor::inline Base {

class TKDXBaseItem;

/// Which of the links attached to the selection end on a node, without a walk over all of them. Made on first
/// use; whoever changes the list of links, or the ends of one, forgets it.
class TLinkEnds {
 public:
  /// The links of the list that end on the node, topmost first.
  std::vector<TKDXBaseItem*> LinksOf(int aNode, const std::vector<TKDXBaseItem*>& aLinks);
  /// The link is about to leave the list.
  void Remove(const TKDXBaseItem& aLink);
  void Forget();

 private:
  /// The identity of a node and the rank of a link, so that links come in z-order.
  using TEnd = std::pair<int, std::int64_t>;

  std::map<TEnd, TKDXBaseItem*> fEnds;
  bool fKnown = false;
};

}  // namespace Zor::inline Base
