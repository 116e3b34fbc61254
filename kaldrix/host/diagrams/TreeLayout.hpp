// Layout of mind maps and trees.
#pragma once

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// Millimetres.
struct TTreeGaps {
  double level = 14;   ///< between a node and its children; up to twice that for curves that spread far
  double sibling = 4;  ///< between children of one node
  double subtree = 6;  ///< between nodes of different parents
  double tree = 10;    ///< between trees
  /// Branches of a root that have no side of their own go to both of its sides: the first ones to the right,
  /// until both sides are about equally high.
  bool balanced = false;
};

/// Each tree with its levels in columns: to the right of the root, and to its left what hangs on branches of
/// side -1, joined by curves. Without `leftRight` the levels are rows that grow downward, joined by lines
/// with steps, and sides do not count. Trees stand one below the other, or side by side.
///
/// The first edge into a node makes it a child, in the order of the edges. Edges beyond that become straight
/// lines. A label stands at the end of its edge. The cost is linear.
TLayout TreeLayout(const TLayoutGraph& aGraph, const TTreeGaps& aGaps = {});

}  // namespace Zor::inline Host
