#include "host/diagrams/LayerOrder.hpp"

#include <algorithm>
#include <cstdint>

namespace Zor::inline Host {

namespace {

constexpr int MostSweeps = 24, MostIdleSweeps = 8, MostExchangeRounds = 10;
/// So many cells are put in order from different beginnings: often for a small graph, twice for a large one.
constexpr std::size_t CellsToOrder = 3000, LeastStarts = 2, MostStarts = 12;

using TIndexes = std::vector<int>;
using TLayers = std::vector<TIndexes>;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// Counts of places, which can be added up from the left (a binary indexed tree).
class TPlaceCounts {
 public:
  explicit TPlaceCounts(std::size_t aPlaces) : fCounts(aPlaces + 1) {}

  void Add(int aPlace) {
    for (std::size_t i = At(aPlace) + 1; i < fCounts.size(); i += i & (~i + 1)) ++fCounts[i];
    ++fAll;
  }
  long Behind(int aPlace) const {
    long upTo = 0;
    for (std::size_t i = At(aPlace) + 1; i > 0; i -= i & (~i + 1)) upTo += fCounts[i];
    return fAll - upTo;
  }

 private:
  std::vector<long> fCounts;
  long fAll = 0;
};

/// One run from a first order to the best one that was met.
class TOrdering {
 public:
  explicit TOrdering(TLayerGraph& aGraph) : fGraph(aGraph), fKeys(aGraph.cells.size()) {}

  /// Begins where the graph stands.
  long Run() {
    fBest = fGraph.layers;
    fFewest = CountCrossings(fGraph);
    for (int sweep = 0, idle = 0; sweep < MostSweeps && idle < MostIdleSweeps && fFewest > 0;
         ++sweep, ++idle) {
      // Every second pair of sweeps lets equal medians change places.
      Sweep(sweep % 2 == 0, sweep % 4 >= 2);
      Exchange();
      const long crossings = CountCrossings(fGraph);
      if (crossings >= fFewest) continue;
      fFewest = crossings;
      fBest = fGraph.layers;
      idle = 0;
    }
    fGraph.layers = fBest;
    fGraph.NumberPlaces();
    return fFewest;
  }

 private:
  int Other(int aStrand, bool aUp) const {
    const TStrand& strand = fGraph.Strand(aStrand);
    return fGraph.Cell(aUp ? strand.up : strand.down).place;
  }
  /// The places of a cell's neighbours above or below, sorted.
  void Neighbours(int aCell, bool aUp, TIndexes& aPlaces) const {
    aPlaces.clear();
    for (const int strand : (aUp ? fGraph.above : fGraph.below)[At(aCell)])
      aPlaces.push_back(Other(strand, aUp));
    std::sort(aPlaces.begin(), aPlaces.end());
  }
  /// The median of places, drawn to the denser side where there are two; -1 without neighbours.
  static double Median(const TIndexes& aPlaces) {
    const std::size_t count = aPlaces.size(), middle = count / 2;
    if (count == 0) return -1;
    if (count % 2 == 1) return aPlaces[middle];
    if (count == 2) return (aPlaces[0] + aPlaces[1]) / 2.0;
    const double left = aPlaces[middle - 1] - aPlaces[0], right = aPlaces[count - 1] - aPlaces[middle];
    if (left + right == 0) return aPlaces[middle];
    return (aPlaces[middle - 1] * right + aPlaces[middle] * left) / (left + right);
  }

  void Sweep(bool aDown, bool aTurnEqual) {
    const std::size_t count = fGraph.layers.size();
    for (std::size_t i = 1; i < count; ++i)
      SortLayer(fGraph.layers[aDown ? i : count - 1 - i], aDown, aTurnEqual);
  }
  /// Cells without neighbours keep their places.
  void SortLayer(TIndexes& aLayer, bool aByUpper, bool aTurnEqual) {
    fMoving.clear();
    for (const int cell : aLayer) {
      Neighbours(cell, aByUpper, fPlaces);
      fKeys[At(cell)] = Median(fPlaces);
      if (fKeys[At(cell)] >= 0) fMoving.push_back(cell);
    }
    if (aTurnEqual) std::reverse(fMoving.begin(), fMoving.end());
    std::stable_sort(fMoving.begin(), fMoving.end(),
                     [&](int a, int b) { return fKeys[At(a)] < fKeys[At(b)]; });
    auto next = fMoving.begin();
    for (int& cell : aLayer) {
      if (fKeys[At(cell)] >= 0) cell = *next++;
    }
    for (std::size_t i = 0; i < aLayer.size(); ++i) fGraph.Cell(aLayer[i]).place = static_cast<int>(i);
  }

  void Exchange() {
    bool better = true;
    for (int round = 0; better && round < MostExchangeRounds; ++round) {
      better = false;
      for (TIndexes& layer : fGraph.layers) better |= ExchangeLayer(layer);
    }
  }
  bool ExchangeLayer(TIndexes& aLayer) {
    bool better = false;
    for (std::size_t i = 0; i + 1 < aLayer.size(); ++i) {
      if (Gain(aLayer[i], aLayer[i + 1]) <= 0) continue;
      std::swap(aLayer[i], aLayer[i + 1]);
      std::swap(fGraph.Cell(aLayer[i]).place, fGraph.Cell(aLayer[i + 1]).place);
      better = true;
    }
    return better;
  }
  /// How many crossings go when neighbours exchange their places.
  long Gain(int aLeft, int aRight) {
    long gain = 0;
    for (const bool up : {true, false}) {
      Neighbours(aLeft, up, fPlaces);
      Neighbours(aRight, up, fOthers);
      gain += Inversions(fPlaces, fOthers) - Inversions(fOthers, fPlaces);
    }
    return gain;
  }
  /// Pairs of sorted places of which the first is the greater.
  static long Inversions(const TIndexes& aFirst, const TIndexes& aSecond) {
    long count = 0;
    std::size_t below = 0;
    for (const int place : aFirst) {
      while (below < aSecond.size() && aSecond[below] < place) ++below;
      count += static_cast<long>(below);
    }
    return count;
  }

  TLayerGraph& fGraph;
  std::vector<double> fKeys;  ///< medians, by cell
  TIndexes fPlaces, fOthers, fMoving;
  TLayers fBest;
  long fFewest = 0;
};

/// The order in which a search in breadth meets the cells, from the top or from the bottom: trees come out
/// without crossings, and branches in the order in which they were told.
TLayers SearchedOrder(const TLayerGraph& aGraph, bool aFromTop) {
  TLayers layers(aGraph.layers.size());
  std::vector<bool> met(aGraph.cells.size());
  TIndexes queue;
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
void Shuffle(TLayers& aLayers, std::uint32_t aSeed) {
  constexpr std::uint32_t factor = 1664525, step = 1013904223;  // Numerical Recipes, 2nd edition, 7.1
  std::uint32_t state = aSeed;
  for (TIndexes& layer : aLayers) {
    for (std::size_t i = layer.size(); i > 1; --i) {
      state = state * factor + step;
      std::swap(layer[i - 1], layer[(state >> 8) % i]);
    }
  }
}

/// The beginning of a run: two searches, then chance.
TLayers FirstOrder(const TLayerGraph& aGraph, std::size_t aStart) {
  TLayers layers = SearchedOrder(aGraph, aStart % 2 == 0);
  if (aStart >= 2) Shuffle(layers, static_cast<std::uint32_t>(aStart));
  return layers;
}

}  // namespace

long CountCrossings(const TLayerGraph& aGraph) {
  long crossings = 0;
  TIndexes ends;
  for (std::size_t i = 0; i + 1 < aGraph.layers.size(); ++i) {
    TPlaceCounts counts(aGraph.layers[i + 1].size());
    for (const int cell : aGraph.layers[i]) {
      ends.clear();
      for (const int strand : aGraph.below[At(cell)])
        ends.push_back(aGraph.Cell(aGraph.Strand(strand).down).place);
      for (const int end : ends) crossings += counts.Behind(end);
      for (const int end : ends) counts.Add(end);
    }
  }
  return crossings;
}

void OrderLayers(TLayerGraph& aGraph) {
  TLayers best;
  long fewest = -1;
  const std::size_t starts =
      std::clamp(CellsToOrder / std::max<std::size_t>(aGraph.cells.size(), 1), LeastStarts, MostStarts);
  for (std::size_t start = 0; start < starts && fewest != 0; ++start) {
    aGraph.layers = FirstOrder(aGraph, start);
    aGraph.NumberPlaces();
    const long crossings = TOrdering(aGraph).Run();
    if (fewest >= 0 && crossings >= fewest) continue;
    fewest = crossings;
    best = aGraph.layers;
  }
  aGraph.layers = best;
  aGraph.NumberPlaces();
}

}  // namespace Zor::inline Host
