// Layers for the nodes of a graph.
#pragma once

#include <vector>

namespace Zor::inline Host {

/// An edge that leads down from one layer to a later one.
struct TRankEdge {
  int from = 0, to = 0;   ///< never the same
  int least = 1;          ///< layers from end to end, at least
  bool reversed = false;  ///< leads up in the drawing: from and to are exchanged
};

/// Turns the edges round that close a circle: those that lead back to a node on the way of a search in depth,
/// which begins at nodes without edges into them and else follows the given order.
void BreakCircles(int aNodes, std::vector<TRankEdge>& aEdges);

/// The layer of each node, from 0 on, for edges without circles, so that the edges are as short in all as
/// they can be. The nodes hang together.
std::vector<int> LayerRanks(int aNodes, const std::vector<TRankEdge>& aEdges);

}  // namespace Zor::inline Host
