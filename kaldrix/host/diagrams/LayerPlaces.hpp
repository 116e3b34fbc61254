#pragma once

#include "kaldrix/host/diagrams/LayeredGaps.hpp"
#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// Gives each cell its x, in the order of its layer: near the middle of its neighbours, and edges on their
/// way through layers as straight as there is room for. The leftmost side is at 0.
void PlaceCells(TLayerGraph& aGraph, const TLayeredGaps& aGaps);

}  // namespace Zor::inline Host
