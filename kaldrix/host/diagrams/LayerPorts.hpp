#pragma once

#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// Where the edges of a node with itself leave it, at the top, and come back to it, at the right.
struct TLoopPorts {
  TLayoutPort out, in;
};
TLoopPorts LoopPortsOf(const TLayoutNode& aNode);

/// Gives the ends of all edges their ports (`upPort`, `downPort` of the strands, `top` and `bottom` of the
/// chains): each side in the order of the cells that its strands lead to, which stands when this is called. A
/// place that belongs to two sides, such as the tip of a decision, serves one of them, the lower one first.
void DealLayerPorts(const TLayoutGraph& aGraph, TLayerGraph& aCells);

}  // namespace Zor::inline Host
