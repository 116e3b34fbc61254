#include "host/diagrams/LayerOrder.hpp"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace Zor::inline Host {

namespace {

constexpr std::size_t LeastSweeps = 4, MostSweeps = 24;
/// Cells and strands that are looked at by the sweeps of a run, so that large graphs take linear time.
constexpr std::size_t SweepWork = 1'000'000;
constexpr int MostIdleSweeps = 8, MostExchangeRounds = 10;
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

/// The neighbours of all cells on one side, packed.
class TNeighbours {
 public:
  TNeighbours(const TLayerGraph& aGraph, bool aUp) : fStarts(aGraph.cells.size() + 1) {
    fCells.reserve(aGraph.strands.size());
    const auto& strands = aUp ? aGraph.above : aGraph.below;
    for (std::size_t i = 0; i < strands.size(); ++i) {
      for (const int strand : strands[i]) {
        fCells.push_back(aUp ? aGraph.Strand(strand).up : aGraph.Strand(strand).down);
      }
      fStarts[i + 1] = fCells.size();
    }
  }

  std::span<const int> Of(int aCell) const {
    return {fCells.data() + fStarts[At(aCell)], fStarts[At(aCell) + 1] - fStarts[At(aCell)]};
  }

 private:
  std::vector<std::size_t> fStarts;
  TIndexes fCells;
};

/// Runs from a first order to the best one that is met.
class TOrdering {
 public:
  explicit TOrdering(const TLayerGraph& aGraph)
      : fAbove(aGraph, true),
        fBelow(aGraph, false),
        fPlaces(aGraph.cells.size()),
        fKeys(aGraph.cells.size()) {
    const std::size_t size = aGraph.cells.size() + aGraph.strands.size();
    fMostSweeps = static_cast<int>(std::clamp<std::size_t>(SweepWork / (size + 1), LeastSweeps, MostSweeps));
  }

  /// How often strands cross in the best order, which is left in `aLayers`.
  long Run(TLayers& aLayers) {
    fLayers = aLayers;
    for (const TIndexes& layer : fLayers) NumberPlaces(layer);
    long fewest = Crossings();
    for (int sweep = 0, idle = 0; sweep < fMostSweeps && idle < MostIdleSweeps && fewest > 0;
         ++sweep, ++idle) {
      // Every second pair of sweeps lets equal medians change places.
      Sweep(sweep % 2 == 0, sweep % 4 >= 2);
      Exchange();
      const long crossings = Crossings();
      if (crossings >= fewest) continue;
      fewest = crossings;
      aLayers = fLayers;
      idle = 0;
    }
    return fewest;
  }

  /// In the order that was looked at last.
  long Crossings() {
    long crossings = 0;
    for (std::size_t i = 0; i + 1 < fLayers.size(); ++i) {
      TPlaceCounts counts(fLayers[i + 1].size());
      for (const int cell : fLayers[i]) {
        for (const int other : fBelow.Of(cell)) crossings += counts.Behind(fPlaces[At(other)]);
        for (const int other : fBelow.Of(cell)) counts.Add(fPlaces[At(other)]);
      }
    }
    return crossings;
  }

 private:
  void NumberPlaces(const TIndexes& aLayer) {
    for (std::size_t i = 0; i < aLayer.size(); ++i) fPlaces[At(aLayer[i])] = static_cast<int>(i);
  }
  /// The places of a cell's neighbours on a side, sorted.
  void SortedPlaces(int aCell, bool aUp, TIndexes& aPlaces) const {
    aPlaces.clear();
    for (const int other : (aUp ? fAbove : fBelow).Of(aCell)) aPlaces.push_back(fPlaces[At(other)]);
    if (aPlaces.size() > 1) std::sort(aPlaces.begin(), aPlaces.end());
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
    const std::size_t count = fLayers.size();
    for (std::size_t i = 1; i < count; ++i) SortLayer(fLayers[aDown ? i : count - 1 - i], aDown, aTurnEqual);
  }
  /// Cells without neighbours keep their places.
  void SortLayer(TIndexes& aLayer, bool aByUpper, bool aTurnEqual) {
    fMoving.clear();
    for (const int cell : aLayer) {
      SortedPlaces(cell, aByUpper, fFirst);
      fKeys[At(cell)] = Median(fFirst);
      if (fKeys[At(cell)] >= 0) fMoving.push_back(cell);
    }
    if (aTurnEqual) std::reverse(fMoving.begin(), fMoving.end());
    std::stable_sort(fMoving.begin(), fMoving.end(),
                     [&](int a, int b) { return fKeys[At(a)] < fKeys[At(b)]; });
    auto next = fMoving.begin();
    for (int& cell : aLayer) {
      if (fKeys[At(cell)] >= 0) cell = *next++;
    }
    NumberPlaces(aLayer);
  }

  /// Exchanges neighbours while that takes crossings away. A layer is looked at again when it, or a layer
  /// next to it, has changed.
  void Exchange() {
    std::vector<bool> open(fLayers.size(), true);
    bool better = true;
    for (int round = 0; better && round < MostExchangeRounds; ++round) {
      better = false;
      for (std::size_t i = 0; i < fLayers.size(); ++i) {
        if (!open[i]) continue;
        open[i] = ExchangeLayer(fLayers[i]);
        if (!open[i]) continue;
        better = true;
        if (i > 0) open[i - 1] = true;
        if (i + 1 < fLayers.size()) open[i + 1] = true;
      }
    }
  }
  bool ExchangeLayer(TIndexes& aLayer) {
    bool better = false;
    for (std::size_t i = 0; i + 1 < aLayer.size(); ++i) {
      if (Gain(aLayer[i], aLayer[i + 1]) <= 0) continue;
      std::swap(aLayer[i], aLayer[i + 1]);
      std::swap(fPlaces[At(aLayer[i])], fPlaces[At(aLayer[i + 1])]);
      better = true;
    }
    return better;
  }
  /// How many crossings go when neighbours exchange their places.
  long Gain(int aLeft, int aRight) {
    long gain = 0;
    for (const bool up : {true, false}) {
      SortedPlaces(aLeft, up, fFirst);
      SortedPlaces(aRight, up, fSecond);
      gain += Inversions(fFirst, fSecond) - Inversions(fSecond, fFirst);
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

  TNeighbours fAbove, fBelow;
  TLayers fLayers;
  TIndexes fPlaces;           ///< by cell
  std::vector<double> fKeys;  ///< medians, by cell
  TIndexes fFirst, fSecond, fMoving;
  int fMostSweeps;
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

void OrderLayers(TLayerGraph& aGraph) {
  TOrdering ordering(aGraph);
  TLayers best;
  long fewest = -1;
  const std::size_t starts = std::clamp(CellsToOrder / (aGraph.cells.size() + 1), LeastStarts, MostStarts);
  for (std::size_t start = 0; start < starts && fewest != 0; ++start) {
    TLayers layers = FirstOrder(aGraph, start);
    const long crossings = ordering.Run(layers);
    if (fewest >= 0 && crossings >= fewest) continue;
    fewest = crossings;
    best = std::move(layers);
  }
  aGraph.layers = std::move(best);
  aGraph.NumberPlaces();
}

}  // namespace Zor::inline Host
