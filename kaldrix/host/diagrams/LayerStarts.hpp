// Where the search for an order of layers begins.
#pragma once

#include <cstddef>
#include <vector>

#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// The cells of each layer from the left.
using TLayerOrder = std::vector<std::vector<int>>;

/// The beginning of a run: searches in breadth from the top and from the bottom, then what chance makes of
/// them, the same on every machine.
TLayerOrder FirstOrder(const TLayerGraph& aGraph, std::size_t aStart);

/// The place of each cell in its layer as the search from the top meets them.
std::vector<int> ToldOrder(const TLayerGraph& aGraph);

}  // namespace Zor::inline Host
