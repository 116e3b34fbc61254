#pragma once

#include <vector>

#include "kaldrix/host/diagrams/LayerTracks.hpp"
#include "kaldrix/host/diagrams/LayeredGaps.hpp"
#include "kaldrix/host/diagrams/TLayerGraph.hpp"

namespace Zor::inline Host {

/// The layout of one connected part of a graph, from the top down. A graph from left to right comes with its
/// axes exchanged, and says so.
class TLayeredPart {
 public:
  TLayeredPart(const TLayoutGraph& aGraph, const std::vector<int>& aNodes, const std::vector<int>& aEdges,
               const TLayeredGaps& aGaps);

  const TLayoutSize& Size() const { return fSize; }
  /// Writes the places of the part's nodes, roads and labels, moved by `aOrigin`.
  void Put(const TLayoutPoint& aOrigin, TLayout& aLayout) const;

 private:
  struct TLayer {
    double top = 0, height = 0;
    double Bottom() const { return top + height; }
  };
  /// An edge of a node with itself: out at the top, round the corner, in at the right.
  struct TLoop {
    int edge, cell;
    double up, right;  ///< how far it leaves the node
  };

  void AddLoops();
  void DealGaps();
  void StackLayers();
  TLayoutPoint NodePlace(int aCell) const;
  TLayoutRoute RouteOf(const TChain& aChain) const;
  std::vector<TLayoutPoint> PointsOf(const TChain& aChain) const;
  void PreferStep(const TChain& aChain, TLayoutRoute& aRoute, double aFrom, double aTo) const;
  TLayoutRoute LoopRoute(const TLoop& aLoop) const;
  TLayoutRoute FarRoute(const TFarEdge& aEdge) const;
  TLayoutPoint LabelPlace(const TChain& aChain) const;

  const TLayoutGraph& fGraph;
  const std::vector<int>& fEdges;
  const TLayeredGaps& fGaps;
  TLayerGraph fCells;
  std::vector<TLoop> fLoops;
  std::vector<TTracks> fTracks;        ///< by gap, below the layer of the same index
  std::vector<std::size_t> fGapIndex;  ///< of each strand in its gap
  std::vector<TLayer> fLayers;
  TLayoutSize fSize;
};

}  // namespace Zor::inline Host
