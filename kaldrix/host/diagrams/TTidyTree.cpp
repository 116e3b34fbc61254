#include "kaldrix/host/diagrams/TTidyTree.hpp"

#include <algorithm>
#include <limits>
#include <utility>

namespace Zor::inline Host {

TTidyTree::TTidyTree(const TForest& aForest, std::span<const TTidyNode> aNodes, const TTidyGaps& aGaps)
    : fForest(aForest), fNodes(aNodes), fGaps(aGaps), fOffset(aNodes.size()), fOutlines(aNodes.size()) {}

void TTidyTree::Add(int aNode) {
  const TTidyNode& node = fNodes[Index(aNode)];
  const std::span<const int> children = fForest.Children(aNode);
  TInterval own{node.low, node.high};
  TOutline outline;
  if (!children.empty()) {
    outline = Joined(children, node.out);
    const auto passed = [&](int aChild) { return node.out + node.share * (Offset(aChild) - node.out); };
    own = {std::min(own.low, passed(children.front())), std::max(own.high, passed(children.back()))};
  }
  outline.levels.push_back({own.low - outline.shift, own.high - outline.shift});
  fOutlines[Index(aNode)] = std::move(outline);
}

TTidyTree::TOutline TTidyTree::Joined(std::span<const int> aChildren, double aMiddle) {
  if (aChildren.empty()) return {};
  TOutline joined = std::move(fOutlines[Index(aChildren[0])]);
  fOffset[Index(aChildren[0])] = 0;
  for (std::size_t i = 1; i < aChildren.size(); ++i) {
    const std::size_t child = Index(aChildren[i]);
    TOutline& next = fOutlines[child];
    const double nearest =
        joined.Level(0).high + joined.shift + fGaps.sibling - next.Level(0).low - next.shift;
    fOffset[child] = Distance(joined, next);
    if (!fForest.Children(aChildren[i]).empty()) SpreadLeaves(aChildren, i, fOffset[child] - nearest);
    joined = Join(std::move(joined), std::move(next), fOffset[child]);
  }
  const double middle = (Offset(aChildren.front()) + Offset(aChildren.back())) / 2;
  for (const int child : aChildren) fOffset[Index(child)] += aMiddle - middle;
  joined.shift += aMiddle - middle;
  return joined;
}

/// How far the next subtree has to stand from the one at 0.
double TTidyTree::Distance(TOutline& aBefore, TOutline& aNext) const {
  double distance = -std::numeric_limits<double>::infinity();
  const std::size_t common = std::min(aBefore.levels.size(), aNext.levels.size());
  for (std::size_t depth = 0; depth < common; ++depth) {
    const double gap = depth == 0 ? fGaps.sibling : fGaps.subtree;
    distance = std::max(distance, aBefore.Level(depth).high + gap - aNext.Level(depth).low);
  }
  return distance + aBefore.shift - aNext.shift;
}

/// A subtree that stands farther away than the leaves before it ask for leaves them room to spread.
void TTidyTree::SpreadLeaves(std::span<const int> aChildren, std::size_t aIndex, double aTooFar) {
  std::size_t first = aIndex;
  while (first > 0 && fForest.Children(aChildren[first - 1]).empty()) --first;
  if (first == 0) return;
  const double step = aTooFar / static_cast<double>(aIndex - first + 1);
  for (std::size_t i = first; i < aIndex; ++i) {
    fOffset[Index(aChildren[i])] += step * static_cast<double>(i - first + 1);
  }
}

/// Of the lower outline each level goes over to the higher one.
TTidyTree::TOutline TTidyTree::Join(TOutline aBefore, TOutline aNext, double aDistance) {
  aNext.shift += aDistance;
  const double shift = aNext.shift - aBefore.shift;
  if (aNext.levels.size() > aBefore.levels.size()) {
    for (std::size_t depth = 0; depth < aBefore.levels.size(); ++depth) {
      aNext.Level(depth).low = aBefore.Level(depth).low - shift;
    }
    return aNext;
  }
  for (std::size_t depth = 0; depth < aNext.levels.size(); ++depth) {
    aBefore.Level(depth).high = aNext.Level(depth).high + shift;
  }
  return aBefore;
}

}  // namespace Zor::inline Host
