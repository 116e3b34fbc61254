// The plainest road of an edge.
#pragma once

#include <span>

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// A straight line between the sides of two nodes that face each other, its label in the middle. `aPlaces`
/// are the top left corners of the nodes of the graph.
TLayoutRoute StraightRoute(const TLayoutGraph& aGraph, std::span<const TLayoutPoint> aPlaces,
                           const TLayoutEdge& aEdge);

}  // namespace Zor::inline Host
