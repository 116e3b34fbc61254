// Layout of fishbones.
#pragma once

#include <vector>

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"
#include "kaldrix/host/diagrams/TScene.hpp"

namespace Zor::inline Host {

struct TFishbone {
  TLayout layout;
  /// By edge: a line shows it, and it needs no link. It leads from the head or from a category.
  std::vector<bool> drawn;
  /// The spine, with an arrow at the head, when there are categories; then one line for each drawn edge, in
  /// their order: bones from the categories to the spine, twigs from the causes to their bones.
  std::vector<TSceneLine> lines;
};

/// The root of the first node is the effect, at the right end of the spine. Its children are the categories:
/// side -1 above the spine, +1 below, the others where there are fewer so far. One from above and one from
/// below share a place, the first pair at the tail. Their children are the causes, beside the bone; what
/// hangs on a cause is a tree that grows to the left. First edges make children; further edges become
/// straight lines, further trees stand below. n log n at most.
TFishbone FishboneLayout(const TLayoutGraph& aGraph);

}  // namespace Zor::inline Host
