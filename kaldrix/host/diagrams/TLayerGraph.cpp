#include "kaldrix/host/diagrams/TLayerGraph.hpp"

#include <algorithm>
#include <utility>

namespace Zor::inline Host {

namespace {

/// Between a line and its label, millimetres.
constexpr double LabelGap = 1;
/// For edges on their way: enough for any drawing that somebody reads.
constexpr std::size_t MostCells = 300'000;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

std::vector<TRankEdge> RankEdges(const TLayoutGraph& aGraph, const std::vector<int>& aNodes,
                                 const std::vector<int>& aEdges) {
  std::vector<int> local(aGraph.nodes.size(), -1);
  for (std::size_t i = 0; i < aNodes.size(); ++i) local[At(aNodes[i])] = static_cast<int>(i);
  std::vector<TRankEdge> edges;
  edges.reserve(aEdges.size());
  for (const int index : aEdges) {
    const TLayoutEdge& edge = aGraph.edges[At(index)];
    // A label has a layer of its own between both ends.
    edges.push_back({local[At(edge.from)], local[At(edge.to)], edge.label.width > 0 ? 2 : 1});
  }
  return edges;
}

std::size_t Span(const TRankEdge& aEdge, const std::vector<int>& aRanks) {
  return At(aRanks[At(aEdge.to)] - aRanks[At(aEdge.from)]);
}

/// The most layers that an edge may cross so that all those which do not cross more take MostCells at most.
std::size_t MostSpan(const std::vector<TRankEdge>& aEdges, const std::vector<int>& aRanks) {
  std::vector<std::size_t> counts;
  for (const TRankEdge& edge : aEdges) {
    const std::size_t span = Span(edge, aRanks);
    if (span >= counts.size()) counts.resize(span + 1);
    ++counts[span];
  }
  std::size_t cells = 0;
  for (std::size_t span = 1; span < counts.size(); ++span) {
    cells += counts[span] * (span - 1);
    if (cells > MostCells) return span - 1;
  }
  return counts.size();
}

}  // namespace

TLayerGraph::TLayerGraph(const TLayoutGraph& aGraph, const std::vector<int>& aNodes,
                         const std::vector<int>& aEdges, bool aLabelLeft)
    : fLabelLeft(aLabelLeft) {
  const int count = static_cast<int>(aNodes.size());
  std::vector<TRankEdge> edges = RankEdges(aGraph, aNodes, aEdges);
  BreakCircles(count, edges);
  const std::vector<int> ranks = LayerRanks(count, edges);
  layers.resize(At(ranks.empty() ? 0 : *std::max_element(ranks.begin(), ranks.end()) + 1));
  AddNodes(aGraph, aNodes, ranks);
  const std::size_t most = MostSpan(edges, ranks);
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const TRankEdge& edge = edges[i];
    if (Span(edge, ranks) <= most) {
      AddChain(aGraph, aEdges[i], edge);
    } else {
      farEdges.push_back({aEdges[i], edge.reversed, edge.from, edge.to});
    }
  }
  NumberPlaces();
}

void TLayerGraph::NumberPlaces() {
  for (const std::vector<int>& layer : layers) {
    for (std::size_t i = 0; i < layer.size(); ++i) Cell(layer[i]).place = static_cast<int>(i);
  }
}

void TLayerGraph::AddNodes(const TLayoutGraph& aGraph, const std::vector<int>& aNodes,
                           const std::vector<int>& aRanks) {
  for (std::size_t i = 0; i < aNodes.size(); ++i) {
    const TLayoutSize& size = aGraph.nodes[At(aNodes[i])].size;
    TCell cell;
    cell.node = aNodes[i];
    cell.layer = aRanks[i];
    cell.left = cell.right = size.width / 2;
    cell.height = size.height;
    AddCell(cell);
  }
}

void TLayerGraph::AddChain(const TLayoutGraph& aGraph, int aEdge, const TRankEdge& aRank) {
  const TLayoutSize& label = aGraph.edges[At(aEdge)].label;
  const int top = Cell(aRank.from).layer, bottom = Cell(aRank.to).layer;
  chains.push_back({aEdge, aRank.reversed, static_cast<int>(strands.size()), bottom - top, {}, {}});
  int last = aRank.from;
  for (int layer = top + 1; layer < bottom; ++layer) {
    TCell cell;
    cell.layer = layer;
    if (label.width > 0 && layer == (top + bottom) / 2) {
      cell.label = true;
      cell.height = label.height;
      (fLabelLeft ? cell.left : cell.right) = label.width + LabelGap;
    }
    const int next = AddCell(cell);
    AddStrand(last, next);
    last = next;
  }
  AddStrand(last, aRank.to);
}

void TLayerGraph::AddStrand(int aUp, int aDown) {
  const int index = static_cast<int>(strands.size());
  strands.push_back({aUp, aDown, 0, 0});
  below[At(aUp)].push_back(index);
  above[At(aDown)].push_back(index);
}

int TLayerGraph::AddCell(TCell aCell) {
  const int index = static_cast<int>(cells.size());
  layers[At(aCell.layer)].push_back(index);
  cells.push_back(aCell);
  above.emplace_back();
  below.emplace_back();
  return index;
}

}  // namespace Zor::inline Host
