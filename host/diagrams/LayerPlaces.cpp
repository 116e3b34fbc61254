#include "host/diagrams/LayerPlaces.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Zor::inline Host {

namespace {

constexpr int Sweeps = 10, LastSweeps = 6;
/// How hard a strand pulls: between nodes, between a node and a cell on the way, and between two of those.
constexpr double PullNodes = 1, PullEnd = 2, PullWay = 8;
/// Of a cell without neighbours on the side that is looked at.
constexpr double PullNone = 0.01;
/// How far a node is moved to save a bend, and what is no bend, millimetres.
constexpr double MostNudge = 6, Straight = 0.001;
constexpr int NudgeRounds = 4;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// A value with a weight.
struct TWish {
  double x = 0, weight = 0;
};

/// Cells of a layer that stand at the least distance from each other, as one.
struct TBlock {
  double sum = 0, weight = 0;
  std::size_t count = 0;

  double Mean() const { return sum / weight; }
};

class TPlacing {
 public:
  TPlacing(TLayerGraph& aGraph, const TLayeredGaps& aGaps) : fGraph(aGraph), fGaps(aGaps) {}

  void Run() {
    for (const std::vector<int>& layer : fGraph.layers) PackLeft(layer);
    for (int i = 0; i < Sweeps; ++i) Sweep(i % 2 == 0, true, i % 2 == 0, i % 2 == 1);
    for (int i = 0; i < LastSweeps; ++i) Sweep(i % 2 == 0, false, true, true);
    for (const TChain& chain : fGraph.chains) Straighten(chain);
    for (int i = 0; i < NudgeRounds && NudgeNodes(); ++i) {
    }
    ShiftToOrigin();
  }

 private:
  /// The least distance between neighbours of a layer.
  double Apart(int aLeft, int aRight) const {
    const TCell &left = fGraph.Cell(aLeft), &right = fGraph.Cell(aRight);
    return left.right + right.left + (left.node >= 0 && right.node >= 0 ? fGaps.node : fGaps.line);
  }
  void PackLeft(const std::vector<int>& aLayer) {
    double x = 0;
    for (std::size_t i = 0; i < aLayer.size(); ++i) {
      if (i > 0) x += Apart(aLayer[i - 1], aLayer[i]);
      fGraph.Cell(aLayer[i]).x = x;
    }
  }

  void Sweep(bool aDown, bool aSkipFirst, bool aByUpper, bool aByLower) {
    const std::size_t count = fGraph.layers.size();
    for (std::size_t i = aSkipFirst ? 1 : 0; i < count; ++i) {
      PlaceLayer(fGraph.layers[aDown ? i : count - 1 - i], aByUpper, aByLower);
    }
  }
  double Pull(const TStrand& aStrand) const {
    const bool up = fGraph.Cell(aStrand.up).node >= 0, down = fGraph.Cell(aStrand.down).node >= 0;
    return up && down ? PullNodes : up || down ? PullEnd : PullWay;
  }
  /// The weighted median of where the neighbours want the cell.
  TWish WishOf(int aCell, bool aByUpper, bool aByLower) {
    fWishes.clear();
    if (aByUpper) {
      for (const int i : fGraph.above[At(aCell)]) {
        const TStrand& strand = fGraph.Strand(i);
        fWishes.push_back({fGraph.UpX(strand) - strand.downPort, Pull(strand)});
      }
    }
    if (aByLower) {
      for (const int i : fGraph.below[At(aCell)]) {
        const TStrand& strand = fGraph.Strand(i);
        fWishes.push_back({fGraph.DownX(strand) - strand.upPort, Pull(strand)});
      }
    }
    if (fWishes.empty()) return {fGraph.Cell(aCell).x, PullNone};
    return MedianOf(fWishes);
  }
  static TWish MedianOf(std::vector<TWish>& aWishes) {
    std::sort(aWishes.begin(), aWishes.end(), [](const TWish& a, const TWish& b) { return a.x < b.x; });
    double all = 0;
    for (const TWish& wish : aWishes) all += wish.weight;
    double passed = 0;
    for (std::size_t i = 0; i < aWishes.size(); ++i) {
      passed += aWishes[i].weight;
      if (passed * 2 > all) return {aWishes[i].x, all};
      if (passed * 2 == all) return {(aWishes[i].x + aWishes[i + 1].x) / 2, all};
    }
    return {aWishes.back().x, all};
  }

  /// The places closest to the wishes, by weighted squares, at which all distances are kept: isotonic
  /// regression by pooling adjacent violators.
  void PlaceLayer(const std::vector<int>& aLayer, bool aByUpper, bool aByLower) {
    fBlocks.clear();
    fOffsets.clear();
    double offset = 0;
    for (std::size_t i = 0; i < aLayer.size(); ++i) {
      if (i > 0) offset += Apart(aLayer[i - 1], aLayer[i]);
      fOffsets.push_back(offset);
      const TWish wish = WishOf(aLayer[i], aByUpper, aByLower);
      fBlocks.push_back({(wish.x - offset) * wish.weight, wish.weight, 1});
      while (fBlocks.size() > 1 && fBlocks[fBlocks.size() - 2].Mean() > fBlocks.back().Mean()) MergeLast();
    }
    std::size_t next = 0;
    for (const TBlock& block : fBlocks) {
      for (std::size_t i = 0; i < block.count; ++i, ++next) {
        fGraph.Cell(aLayer[next]).x = block.Mean() + fOffsets[next];
      }
    }
  }
  void MergeLast() {
    const TBlock last = fBlocks.back();
    fBlocks.pop_back();
    fBlocks.back().sum += last.sum;
    fBlocks.back().weight += last.weight;
    fBlocks.back().count += last.count;
  }

  /// The room of a cell between its neighbours.
  double Least(int aCell) const {
    const TCell& cell = fGraph.Cell(aCell);
    if (cell.place == 0) return -std::numeric_limits<double>::infinity();
    const int other = fGraph.layers[At(cell.layer)][At(cell.place - 1)];
    return fGraph.Cell(other).x + Apart(other, aCell);
  }
  double Most(int aCell) const {
    const TCell& cell = fGraph.Cell(aCell);
    const std::vector<int>& layer = fGraph.layers[At(cell.layer)];
    if (At(cell.place + 1) == layer.size()) return std::numeric_limits<double>::infinity();
    const int other = layer[At(cell.place + 1)];
    return fGraph.Cell(other).x - Apart(aCell, other);
  }
  /// Lets an edge run straight through as many layers as have room for that.
  void Straighten(const TChain& aChain) {
    int strand = aChain.first;
    const int last = aChain.first + aChain.count - 1;
    double from = fGraph.UpX(fGraph.Strand(strand));
    while (strand < last) {
      double least = -std::numeric_limits<double>::infinity(), most = -least;
      const int begin = strand;
      for (; strand < last; ++strand) {
        const int cell = fGraph.Strand(strand).down;
        const double low = std::max(least, Least(cell)), high = std::min(most, Most(cell));
        if (low > high && strand > begin) break;
        least = std::min(low, high);
        most = high;
      }
      const double end = fGraph.DownX(fGraph.Strand(last));
      const bool meetsEnd = strand == last && end >= least && end <= most;
      const bool meetsStart = from >= least && from <= most;
      from = std::clamp(meetsEnd && !meetsStart ? end : from, least, most);
      for (int i = begin; i < strand; ++i) fGraph.Cell(fGraph.Strand(i).down).x = from;
    }
  }

  /// Moves nodes a little where more of their strands run straight then. False when none moved.
  bool NudgeNodes() {
    bool moved = false;
    for (const std::vector<int>& layer : fGraph.layers) {
      for (const int cell : layer) moved |= fGraph.Cell(cell).node >= 0 && Nudge(cell);
    }
    return moved;
  }
  bool Nudge(int aCell) {
    TCell& cell = fGraph.Cell(aCell);
    fWishes.clear();
    for (const int i : fGraph.above[At(aCell)]) {
      fWishes.push_back({fGraph.UpX(fGraph.Strand(i)) - fGraph.Strand(i).downPort, 1});
    }
    for (const int i : fGraph.below[At(aCell)]) {
      fWishes.push_back({fGraph.DownX(fGraph.Strand(i)) - fGraph.Strand(i).upPort, 1});
    }
    const auto straightAt = [&](double aX) {
      return std::count_if(fWishes.begin(), fWishes.end(),
                           [&](const TWish& wish) { return std::abs(wish.x - aX) < Straight; });
    };
    const double least = Least(aCell), most = Most(aCell);
    // The nodes of a chain stand below each other, wherever that is; others stay in the middle of their
    // neighbours.
    const bool inChain = fGraph.above[At(aCell)].size() <= 1 && fGraph.below[At(aCell)].size() <= 1;
    double best = cell.x;
    for (const TWish& wish : fWishes) {
      const bool near = inChain || std::abs(wish.x - cell.x) < MostNudge;
      const bool fits = near && wish.x >= least && wish.x <= most;
      if (fits && straightAt(wish.x) > straightAt(best)) best = wish.x;
    }
    return std::exchange(cell.x, best) != best;
  }

  void ShiftToOrigin() {
    double left = std::numeric_limits<double>::infinity();
    for (const TCell& cell : fGraph.cells) left = std::min(left, cell.x - cell.left);
    for (TCell& cell : fGraph.cells) cell.x -= left;
  }

  TLayerGraph& fGraph;
  const TLayeredGaps& fGaps;
  std::vector<TWish> fWishes;
  std::vector<TBlock> fBlocks;
  std::vector<double> fOffsets;
};

}  // namespace

void PlaceCells(TLayerGraph& aGraph, const TLayeredGaps& aGaps) { TPlacing(aGraph, aGaps).Run(); }

}  // namespace Zor::inline Host
