// A graph cut into layers, from the top down: what the steps of a layered layout work on.
#pragma once

#include <cstdint>
#include <vector>

#include "kaldrix/host/diagrams/LayerRanks.hpp"
#include "kaldrix/host/diagrams/LayeredGaps.hpp"
#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// Something that takes a place in a layer: a node, or an edge on its way through the layer. Lengths are
/// millimetres; `left` and `right` reach from x to the sides.
struct TCell {
  int node = -1;       ///< -1: an edge on its way
  bool label = false;  ///< the label of the edge stands here
  int layer = 0;
  int place = 0;  ///< in its layer, from the left
  double left = 0, right = 0, height = 0;
  double x = 0;
};

/// The least distance between the x of neighbours of a layer.
inline double Apart(const TCell& aLeft, const TCell& aRight, const TLayeredGaps& aGaps) {
  return aLeft.right + aRight.left + (aLeft.node >= 0 && aRight.node >= 0 ? aGaps.node : aGaps.line);
}

/// A piece of an edge between neighbouring layers. It ends at ports of nodes, or at the x of cells.
struct TStrand {
  int up = 0, down = 0;             ///< cells
  double upPort = 0, downPort = 0;  ///< from the x of the cells
};

/// An edge as a chain of strands, which stand in a row, from top to bottom.
struct TChain {
  int edge = 0;
  bool reversed = false;
  int first = 0, count = 0;  ///< strands
  TLayoutPort top, bottom;   ///< where it ends
};

/// An edge over more layers than a large graph has cells for: a straight line shows it.
struct TFarEdge {
  int edge = 0;
  bool reversed = false;
  int top = 0, bottom = 0;  ///< cells
};

class TLayerGraph {
 public:
  /// The nodes of one connected part and the edges between them; edges of a node with itself are left out.
  /// `aLabelLeft` puts labels to the left of their lines.
  TLayerGraph(const TLayoutGraph& aGraph, const std::vector<int>& aNodes, const std::vector<int>& aEdges,
              bool aLabelLeft);

  TCell& Cell(int aIndex) { return cells[static_cast<std::size_t>(aIndex)]; }
  const TCell& Cell(int aIndex) const { return cells[static_cast<std::size_t>(aIndex)]; }
  TStrand& Strand(int aIndex) { return strands[static_cast<std::size_t>(aIndex)]; }
  const TStrand& Strand(int aIndex) const { return strands[static_cast<std::size_t>(aIndex)]; }
  /// Where a strand ends, on the x axis.
  double UpX(const TStrand& aStrand) const { return Cell(aStrand.up).x + aStrand.upPort; }
  double DownX(const TStrand& aStrand) const { return Cell(aStrand.down).x + aStrand.downPort; }
  /// Writes the place of each cell from the layers.
  void NumberPlaces();

  std::vector<TCell> cells;  ///< the nodes first, in the given order
  std::vector<TStrand> strands;
  std::vector<TChain> chains;
  std::vector<TFarEdge> farEdges;
  std::vector<std::vector<int>> layers;        ///< cells from the left
  std::vector<std::vector<int>> above, below;  ///< strands, by cell

 private:
  void AddNodes(const TLayoutGraph& aGraph, const std::vector<int>& aNodes, const std::vector<int>& aRanks);
  void AddChain(const TLayoutGraph& aGraph, int aEdge, const TRankEdge& aRank);
  void AddStrand(int aUp, int aDown);
  int AddCell(TCell aCell);

  bool fLabelLeft;
};

}  // namespace Zor::inline Host
