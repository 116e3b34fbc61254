#pragma once

#include "kaldrix/host/diagrams/LayeredGaps.hpp"
#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// Lays a graph out in layers, from the top down or from left to right, so that most edges lead that way
/// (Sugiyama, Tagawa and Toda, 1981). Edges run straight or in right angles between the ports of the sides
/// that face each other; those that close a circle lead back the same way, those of a node with itself round
/// its corner. Labels stand beside their edge. Parts that do not hang together stand in rows, in the given
/// order. The same graph gives the same layout.
TLayout LayeredLayout(const TLayoutGraph& aGraph, const TLayeredGaps& aGaps = {});

}  // namespace Zor::inline Host
