#include "kaldrix/host/diagrams/LayerStarts.hpp"

#include <cstdint>
#include <utility>

namespace Zor::inline Host {

namespace {

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// The order in which a search in breadth meets the cells, from the top or from the bottom: trees come out
/// without crossings, and branches in the order in which they were told.
TLayerOrder SearchedOrder(const TLayerGraph& aGraph, bool aFromTop) {
  TLayerOrder layers(aGraph.layers.size());
  std::vector<bool> met(aGraph.cells.size());
  std::vector<int> queue;
  const auto visit = [&](int aCell) {
    if (met[At(aCell)]) return;
    met[At(aCell)] = true;
    layers[At(aGraph.Cell(aCell).layer)].push_back(aCell);
    queue.push_back(aCell);
  };
  const auto follow = [&](int aCell, bool aDown) {
    for (const int strand : (aDown ? aGraph.below : aGraph.above)[At(aCell)]) {
      visit(aDown ? aGraph.Strand(strand).down : aGraph.Strand(strand).up);
    }
  };
  const std::size_t count = aGraph.layers.size();
  std::size_t next = 0;
  for (std::size_t i = 0; i < count; ++i) {
    for (const int start : aGraph.layers[aFromTop ? i : count - 1 - i]) {
      visit(start);
      for (; next < queue.size(); ++next) {
        follow(queue[next], aFromTop);
        follow(queue[next], !aFromTop);
      }
    }
  }
  return layers;
}

/// The same shuffle on every machine, another for each `aSeed`.
void Shuffle(TLayerOrder& aLayers, std::uint32_t aSeed) {
  constexpr std::uint32_t factor = 1664525, step = 1013904223;  // Numerical Recipes, 2nd edition, 7.1
  std::uint32_t state = aSeed;
  for (std::vector<int>& layer : aLayers) {
    for (std::size_t i = layer.size(); i > 1; --i) {
      state = state * factor + step;
      std::swap(layer[i - 1], layer[(state >> 8) % i]);
    }
  }
}

}  // namespace

TLayerOrder FirstOrder(const TLayerGraph& aGraph, std::size_t aStart) {
  TLayerOrder layers = SearchedOrder(aGraph, aStart % 2 == 0);
  if (aStart >= 2) Shuffle(layers, static_cast<std::uint32_t>(aStart));
  return layers;
}

std::vector<int> ToldOrder(const TLayerGraph& aGraph) {
  std::vector<int> told(aGraph.cells.size());
  for (const std::vector<int>& layer : SearchedOrder(aGraph, true)) {
    for (std::size_t i = 0; i < layer.size(); ++i) told[At(layer[i])] = static_cast<int>(i);
  }
  return told;
}

}  // namespace Zor::inline Host
