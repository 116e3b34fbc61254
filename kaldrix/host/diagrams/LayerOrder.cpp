#include "kaldrix/host/diagrams/LayerOrder.hpp"

#include <algorithm>
#include <span>
#include <utility>

#include "kaldrix/host/diagrams/LayerStarts.hpp"

namespace Zor::inline Host {

namespace {

constexpr std::size_t LeastSweeps = 4, MostSweeps = 24;
/// Cells and strands that are looked at by the sweeps of a run, so that large graphs take linear time.
constexpr std::size_t SweepWork = 1'000'000;
constexpr int MostIdleSweeps = 8, MostExchangeRounds = 10, SettleRounds = 20;
/// Cells and strands in the rounds that also exchange what does not matter, so that others can pass.
constexpr std::size_t LooseWork = 50'000, LeastLooseRounds = 2;
/// So many cells are put in order from different beginnings: often for a small graph, twice for a large one.
constexpr std::size_t CellsToOrder = 3000, LeastStarts = 2, MostStarts = 6;

using TIndexes = std::vector<int>;
using TLayers = TLayerOrder;

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
  void SortByPlace(int aCell, const TIndexes& aPlaces) {
    const auto begin = fCells.begin() + static_cast<long>(fStarts[At(aCell)]);
    const auto end = fCells.begin() + static_cast<long>(fStarts[At(aCell) + 1]);
    if (end - begin > 1) std::sort(begin, end, [&](int a, int b) { return aPlaces[At(a)] < aPlaces[At(b)]; });
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
        fOnWay(aGraph.cells.size()),
        fKeys(aGraph.cells.size()) {
    const std::size_t size = aGraph.cells.size() + aGraph.strands.size();
    for (std::size_t i = 0; i < fOnWay.size(); ++i) fOnWay[i] = aGraph.cells[i].node < 0;
    fLooseRounds = static_cast<int>(
        std::clamp<std::size_t>(LooseWork / (size + 1), LeastLooseRounds, MostExchangeRounds));
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
      Exchange(fLooseRounds, [&](long gain, int left, int right) {
        return gain > 0 || (gain == 0 && InnerGain(left, right) >= 0);
      });
      Exchange(MostExchangeRounds, [](long gain, int, int) { return gain > 0; });
      const long crossings = Crossings();
      if (crossings >= fewest) continue;
      fewest = crossings;
      aLayers = fLayers;
      idle = 0;
    }
    return fewest;
  }

  /// Exchanges neighbours of which either may come first: so that long edges cross at their ends, where they
  /// bend anyway, and else into the order of `aTold`, a number by cell.
  void Settle(TLayers& aLayers, const TIndexes& aTold) {
    fLayers = std::move(aLayers);
    for (const TIndexes& layer : fLayers) NumberPlaces(layer);
    Exchange(SettleRounds, [&](long gain, int left, int right) {
      const int inner = InnerGain(left, right);
      return gain == 0 && (inner > 0 || (inner == 0 && aTold[At(left)] > aTold[At(right)]));
    });
    aLayers = std::move(fLayers);
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

  /// Exchanges neighbours for which `aAccept` says so, told how many crossings that takes away. A layer is
  /// looked at again when it, or a layer next to it, has changed.
  template <class TAccept>
  void Exchange(int aRounds, TAccept aAccept) {
    std::vector<bool> open(fLayers.size(), true);
    bool changed = true;
    for (int round = 0; changed && round < aRounds; ++round) {
      changed = false;
      for (std::size_t i = 0; i < fLayers.size(); ++i) {
        if (!open[i]) continue;
        open[i] = ExchangeLayer(fLayers[i], aAccept);
        if (!open[i]) continue;
        changed = true;
        if (i > 0) open[i - 1] = true;
        if (i + 1 < fLayers.size()) open[i + 1] = true;
      }
    }
  }
  template <class TAccept>
  bool ExchangeLayer(TIndexes& aLayer, TAccept aAccept) {
    for (const int cell : aLayer) {
      fAbove.SortByPlace(cell, fPlaces);
      fBelow.SortByPlace(cell, fPlaces);
    }
    bool changed = false;
    for (std::size_t i = 0; i + 1 < aLayer.size(); ++i) {
      const int left = aLayer[i], right = aLayer[i + 1];
      if (!aAccept(Gain(fAbove, left, right) + Gain(fBelow, left, right), left, right)) continue;
      std::swap(aLayer[i], aLayer[i + 1]);
      std::swap(fPlaces[At(left)], fPlaces[At(right)]);
      changed = true;
    }
    return changed;
  }
  /// How many crossings on a side go when cells exchange their places, whose neighbours are sorted by place.
  long Gain(const TNeighbours& aSide, int aLeft, int aRight) const {
    const std::span<const int> left = aSide.Of(aLeft), right = aSide.Of(aRight);
    std::size_t before = 0, upTo = 0;
    long gain = 0;
    for (const int cell : left) {
      const int place = fPlaces[At(cell)];
      while (before < right.size() && fPlaces[At(right[before])] < place) ++before;
      while (upTo < right.size() && fPlaces[At(right[upTo])] <= place) ++upTo;
      gain += static_cast<long>(before + upTo) - static_cast<long>(right.size());
    }
    return gain;
  }

  /// Of that, crossings in the middle of two long edges, on both sides.
  int InnerGain(int aLeft, int aRight) const {
    return InnerGain(fAbove, aLeft, aRight) + InnerGain(fBelow, aLeft, aRight);
  }
  int InnerGain(const TNeighbours& aSide, int aLeft, int aRight) const {
    if (!fOnWay[At(aLeft)] || !fOnWay[At(aRight)]) return 0;
    const int left = aSide.Of(aLeft).front(), right = aSide.Of(aRight).front();
    if (!fOnWay[At(left)] || !fOnWay[At(right)]) return 0;
    return fPlaces[At(left)] > fPlaces[At(right)] ? 1 : -1;
  }

  TNeighbours fAbove, fBelow;
  TLayers fLayers;
  TIndexes fPlaces;           ///< by cell
  std::vector<bool> fOnWay;   ///< by cell: part of a long edge
  std::vector<double> fKeys;  ///< medians, by cell
  TIndexes fFirst, fMoving;
  int fMostSweeps, fLooseRounds;
};

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
  ordering.Settle(best, ToldOrder(aGraph));
  aGraph.layers = std::move(best);
  aGraph.NumberPlaces();
}

}  // namespace Zor::inline Host
