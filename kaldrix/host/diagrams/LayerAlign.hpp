#pragma once

#include <vector>

#include "kaldrix/host/diagrams/LayeredGaps.hpp"
#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// Places by cell, in the order of the layers, at which edges on their way run straight down: cells are
/// aligned with a median neighbour to blocks, four times (with the upper or lower neighbours, from the left
/// or right), and of the four places that each cell gets the middle ones are averaged (Brandes and Köpf,
/// "Fast and Simple Horizontal Coordinate Assignment", 2001, here with sizes and ports). Blocks are placed by
/// the longest ways between them, and then move towards their neighbours. Linear.
std::vector<double> AlignedPlaces(const TLayerGraph& aGraph, const TLayeredGaps& aGaps);

}  // namespace Zor::inline Host
