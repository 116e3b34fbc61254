#pragma once

#include <vector>

#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// A way along the gap.
struct TLeg {
  int track = 0;  ///< from the top
  double to = 0;  ///< x at its end
};

/// The parallel ways between two layers on which strands change from one x to another.
struct TTracks {
  int count = 0;
  std::vector<std::vector<TLeg>> legs;  ///< by strand of the gap, from its upper end; none: straight down
  std::vector<bool> alone;              ///< no other strand of the gap meets its way
};

/// Deals the strands of a gap out to tracks, so that they cross as rarely as may be and none runs along
/// another, except strands that begin or end at the same port (after the orthogonal edge routing of Sander,
/// "A Fast Heuristic for Hierarchical Manhattan Layout", 1995).
TTracks DealTracks(const TLayerGraph& aGraph, const std::vector<int>& aStrands);

}  // namespace Zor::inline Host
