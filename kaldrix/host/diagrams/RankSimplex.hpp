#pragma once

#include <vector>

#include "kaldrix/host/diagrams/LayerRanks.hpp"

namespace Zor::inline Host {

/// Makes the sum of the lengths of all edges as small as it can be, by the network simplex method of Gansner,
/// Koutsofios, North and Vo, "A Technique for Drawing Directed Graphs", 1993. `aRanks` are ranks of a
/// connected graph that keep all least lengths, and stay so. The work is bounded: of large graphs what was
/// reached by then is taken.
void ShortenRanks(const std::vector<TRankEdge>& aEdges, std::vector<int>& aRanks);

}  // namespace Zor::inline Host
