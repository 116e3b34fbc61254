#include "kaldrix/host/diagrams/LayerAlign.hpp"

#include <algorithm>
#include <array>
#include <limits>

namespace Zor::inline Host {

namespace {

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// Whether a strand is in the middle of a long edge.
bool Inner(const TLayerGraph& aGraph, const TStrand& aStrand) {
  return aGraph.Cell(aStrand.up).node < 0 && aGraph.Cell(aStrand.down).node < 0;
}

/// The strands that cross one in the middle of a long edge: those are not to be straight (type 1 conflicts).
std::vector<bool> Conflicts(const TLayerGraph& aGraph) {
  std::vector<bool> conflicts(aGraph.strands.size());
  for (std::size_t layer = 1; layer < aGraph.layers.size(); ++layer) {
    const std::vector<int>& cells = aGraph.layers[layer];
    int low = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      int high = std::numeric_limits<int>::max();
      bool ends = i + 1 == cells.size();
      for (const int strand : aGraph.above[At(cells[i])]) {
        if (!Inner(aGraph, aGraph.Strand(strand))) continue;
        high = aGraph.Cell(aGraph.Strand(strand).up).place;
        ends = true;
      }
      if (!ends) continue;
      for (; next <= i; ++next) {
        for (const int strand : aGraph.above[At(cells[next])]) {
          const int place = aGraph.Cell(aGraph.Strand(strand).up).place;
          if (!Inner(aGraph, aGraph.Strand(strand)) && (place < low || place > high))
            conflicts[At(strand)] = true;
        }
      }
      low = high;
    }
  }
  return conflicts;
}

/// One of the four runs.
class TAlignment {
 public:
  TAlignment(const TLayerGraph& aGraph, const TLayeredGaps& aGaps, const std::vector<bool>& aConflicts,
             bool aByUpper, bool aFromLeft)
      : fGraph(aGraph),
        fGaps(aGaps),
        fConflicts(aConflicts),
        fByUpper(aByUpper),
        fFromLeft(aFromLeft),
        fBlock(aGraph.cells.size()),
        fNext(aGraph.cells.size(), -1),
        fShift(aGraph.cells.size()),
        fPlace(aGraph.cells.size()) {}

  std::vector<double> Run() {
    Align();
    Place();
    std::vector<double> places(fBlock.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
      places[i] = (fFromLeft ? 1 : -1) * fPlace[At(fBlock[i])] + fShift[i];
    }
    return places;
  }

 private:
  void Align() {
    for (std::size_t i = 0; i < fBlock.size(); ++i) fBlock[i] = static_cast<int>(i);
    const std::size_t count = fGraph.layers.size();
    for (std::size_t i = 1; i < count; ++i) AlignLayer(fGraph.layers[fByUpper ? i : count - 1 - i]);
  }
  void AlignLayer(const std::vector<int>& aLayer) {
    int taken = fFromLeft ? -1 : std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < aLayer.size(); ++i) {
      const int cell = aLayer[fFromLeft ? i : aLayer.size() - 1 - i];
      const std::vector<int>& strands = (fByUpper ? fGraph.above : fGraph.below)[At(cell)];
      if (strands.empty()) continue;
      const std::size_t left = (strands.size() - 1) / 2, right = strands.size() / 2;
      const std::array medians{fFromLeft ? left : right, fFromLeft ? right : left};
      for (const std::size_t median : medians) {
        if (AlignWith(cell, strands[median], taken)) break;
      }
    }
  }
  bool AlignWith(int aCell, int aStrand, int& aTaken) {
    const TStrand& strand = fGraph.Strand(aStrand);
    const int other = fByUpper ? strand.up : strand.down;
    const int place = fGraph.Cell(other).place;
    if (fConflicts[At(aStrand)] || (fFromLeft ? place <= aTaken : place >= aTaken)) return false;
    aTaken = place;
    fBlock[At(aCell)] = fBlock[At(other)];
    fNext[At(other)] = aCell;
    const double bend = strand.upPort - strand.downPort;
    fShift[At(aCell)] = fShift[At(other)] + (fByUpper ? bend : -bend);
    return true;
  }

  /// The cell beside one, seen in the direction of the run; -1: none.
  int Beside(int aCell, bool aBefore) const {
    const TCell& cell = fGraph.Cell(aCell);
    const std::vector<int>& layer = fGraph.layers[At(cell.layer)];
    const int place = cell.place + (aBefore == fFromLeft ? -1 : 1);
    return place < 0 || At(place) >= layer.size() ? -1 : layer[At(place)];
  }
  /// How far the block of the second cell stands from that of the first one, at least.
  double Distance(int aFirst, int aNext) const {
    const TCell &first = fGraph.Cell(aFirst), &next = fGraph.Cell(aNext);
    const double apart = fFromLeft ? Apart(first, next, fGaps) : Apart(next, first, fGaps);
    const double shift = fShift[At(aFirst)] - fShift[At(aNext)];
    return apart + (fFromLeft ? shift : -shift);
  }
  /// Calls `aDo` with each cell of a block.
  template <class TDo>
  void ForCells(int aBlock, TDo aDo) const {
    for (int cell = aBlock; cell >= 0; cell = fNext[At(cell)]) aDo(cell);
  }

  void Place() {
    std::vector<int> open(fBlock.size()), order;
    for (std::size_t i = 0; i < fBlock.size(); ++i) {
      if (Beside(static_cast<int>(i), true) >= 0) ++open[At(fBlock[i])];
    }
    for (std::size_t i = 0; i < fBlock.size(); ++i) {
      if (fBlock[i] == static_cast<int>(i) && open[i] == 0) order.push_back(fBlock[i]);
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
      const int block = order[i];
      ForCells(block, [&](int cell) {
        const int next = Beside(cell, false);
        if (next < 0) return;
        const int other = fBlock[At(next)];
        fPlace[At(other)] = std::max(fPlace[At(other)], fPlace[At(block)] + Distance(cell, next));
        if (--open[At(other)] == 0) order.push_back(other);
      });
    }
    for (auto block = order.rbegin(); block != order.rend(); ++block) Approach(*block);
  }
  /// Moves a block on, up to its neighbours. What stands at the far border stays.
  void Approach(int aBlock) {
    double most = std::numeric_limits<double>::infinity();
    ForCells(aBlock, [&](int cell) {
      const int next = Beside(cell, false);
      if (next >= 0) most = std::min(most, fPlace[At(fBlock[At(next)])] - Distance(cell, next));
    });
    if (most < std::numeric_limits<double>::infinity())
      fPlace[At(aBlock)] = std::max(fPlace[At(aBlock)], most);
  }

  const TLayerGraph& fGraph;
  const TLayeredGaps& fGaps;
  const std::vector<bool>& fConflicts;
  bool fByUpper, fFromLeft;
  std::vector<int> fBlock;     ///< its first cell, by cell
  std::vector<int> fNext;      ///< the next cell of the block
  std::vector<double> fShift;  ///< from the place of the block, by cell
  std::vector<double> fPlace;  ///< by block, in the direction of the run
};

struct TExtent {
  double low = std::numeric_limits<double>::infinity(), high = -low;
  double Width() const { return high - low; }
};

TExtent ExtentOf(const TLayerGraph& aGraph, const std::vector<double>& aPlaces) {
  TExtent extent;
  for (std::size_t i = 0; i < aPlaces.size(); ++i) {
    extent.low = std::min(extent.low, aPlaces[i] - aGraph.cells[i].left);
    extent.high = std::max(extent.high, aPlaces[i] + aGraph.cells[i].right);
  }
  return extent;
}

}  // namespace

std::vector<double> AlignedPlaces(const TLayerGraph& aGraph, const TLayeredGaps& aGaps) {
  const std::vector<bool> conflicts = Conflicts(aGraph);
  std::array<std::vector<double>, 4> runs;
  std::array<TExtent, 4> extents;
  std::size_t narrowest = 0;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    runs[i] = TAlignment(aGraph, aGaps, conflicts, i % 2 == 0, i < 2).Run();
    extents[i] = ExtentOf(aGraph, runs[i]);
    if (extents[i].Width() < extents[narrowest].Width()) narrowest = i;
  }
  // Runs from the left begin, runs from the right end where the narrowest one does.
  std::array<double, 4> moves{};
  for (std::size_t i = 0; i < runs.size(); ++i) {
    moves[i] = i < 2 ? extents[narrowest].low - extents[i].low : extents[narrowest].high - extents[i].high;
  }
  std::vector<double> places(aGraph.cells.size());
  for (std::size_t cell = 0; cell < places.size(); ++cell) {
    std::array<double, 4> four{};
    for (std::size_t i = 0; i < runs.size(); ++i) four[i] = runs[i][cell] + moves[i];
    std::sort(four.begin(), four.end());
    places[cell] = (four[1] + four[2]) / 2;
  }
  return places;
}

}  // namespace Zor::inline Host
