// How the nodes of a tree stand side by side.
#pragma once

#include <span>
#include <vector>

#include "kaldrix/host/diagrams/TForest.hpp"

namespace Zor::inline Host {

/// A node across the direction in which its tree grows, millimetres from its anchor: the place where the link
/// from its parent ends.
struct TTidyNode {
  double low = 0, high = 0;  ///< what it takes up; the anchor lies between
  double out = 0;            ///< where the links to its children begin
  /// How much of their way across the links to its children have gone where the column of the node ends: 0
  /// to 1.
  double share = 0;
};

struct TTidyGaps {
  double sibling = 0;  ///< between children of one parent
  double subtree = 0;  ///< between nodes farther apart
};

/// Places children side by side, as close as their subtrees and links allow, and parents in the middle of
/// their children. A subtree keeps its outline, one interval for each level; joining two costs the levels of
/// the lower one, which makes the whole linear.
class TTidyTree {
 public:
  /// `aNodes` go by the indexes of the forest; both have to stay while the object is used.
  TTidyTree(const TForest& aForest, std::span<const TTidyNode> aNodes, const TTidyGaps& aGaps);

  /// Places the children of a node, whose own children have been placed before.
  void Add(int aNode);
  /// Places just some children of a root, around `aMiddle` from its anchor. They have been added before.
  void Place(std::span<const int> aChildren, double aMiddle) { Joined(aChildren, aMiddle); }

  /// From the anchor of the node's parent to its own.
  double Offset(int aNode) const { return fOffset[Index(aNode)]; }

 private:
  struct TInterval {
    double low, high;
  };
  struct TOutline {
    std::vector<TInterval> levels;  ///< the deepest one first
    double shift = 0;               ///< to be added to all of them

    TInterval& Level(std::size_t aDepth) { return levels[levels.size() - 1 - aDepth]; }
  };

  static std::size_t Index(int aNode) { return static_cast<std::size_t>(aNode); }
  TOutline Joined(std::span<const int> aChildren, double aMiddle);
  double Distance(TOutline& aBefore, TOutline& aNext) const;
  void SpreadLeaves(std::span<const int> aChildren, std::size_t aIndex, double aTooFar);
  static TOutline Join(TOutline aBefore, TOutline aNext, double aDistance);

  const TForest& fForest;
  std::span<const TTidyNode> fNodes;
  TTidyGaps fGaps;
  std::vector<double> fOffset;      ///< by node
  std::vector<TOutline> fOutlines;  ///< by node; empty when its parent has it
};

}  // namespace Zor::inline Host
