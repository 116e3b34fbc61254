#include "kaldrix/host/diagrams/LayerShift.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace Zor::inline Host {

namespace {

constexpr int Rounds = 8;
/// How hard a strand pulls: between nodes, between a node and a cell on the way, and between two of those.
constexpr double PullNodes = 1, PullEnd = 2, PullWay = 8;
/// What is no bend, and how far nodes with branches leave the middle of their neighbours to save one,
/// millimetres.
constexpr double Straight = 0.001, MostOff = 6;
/// So many strands on either side of the middle one are looked at for one that may become straight.
constexpr std::size_t Candidates = 3;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// How far a group should move for a strand to run straight.
struct TWish {
  double move = 0, weight = 0;
};

class TShifting {
 public:
  TShifting(TLayerGraph& aGraph, const TLayeredGaps& aGaps)
      : fGraph(aGraph), fGaps(aGaps), fGroup(aGraph.cells.size()), fStarts(aGraph.cells.size() + 1) {}

  void Run() {
    for (int round = 0; round < Rounds; ++round) {
      FindGroups();
      std::vector<int> order;
      for (std::size_t i = 0; i < fGroup.size(); ++i) {
        if (fGroup[i] == static_cast<int>(i)) order.push_back(fGroup[i]);
      }
      std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return X(a) < X(b); });
      // From the side to which there is room.
      if (round % 2 == 0) std::reverse(order.begin(), order.end());
      bool moved = false;
      for (const int group : order) moved |= MoveGroup(group);
      if (!moved && round > 0) return;
    }
  }

 private:
  double X(int aCell) const { return fGraph.Cell(aCell).x; }

  int Leader(int aCell) {
    while (fGroup[At(aCell)] != aCell) {
      fGroup[At(aCell)] = fGroup[At(fGroup[At(aCell)])];
      aCell = fGroup[At(aCell)];
    }
    return aCell;
  }
  void FindGroups() {
    std::iota(fGroup.begin(), fGroup.end(), 0);
    for (const TStrand& strand : fGraph.strands) {
      if (std::abs(fGraph.UpX(strand) - fGraph.DownX(strand)) >= Straight) continue;
      const int a = Leader(strand.up), b = Leader(strand.down);
      fGroup[At(std::max(a, b))] = std::min(a, b);
    }
    for (std::size_t i = 0; i < fGroup.size(); ++i) fGroup[i] = Leader(static_cast<int>(i));
    // The cells of each group in a row.
    std::fill(fStarts.begin(), fStarts.end(), 0);
    for (const int group : fGroup) ++fStarts[At(group) + 1];
    std::partial_sum(fStarts.begin(), fStarts.end(), fStarts.begin());
    fCells.resize(fGroup.size());
    std::vector<std::size_t> next(fStarts.begin(), fStarts.end() - 1);
    for (std::size_t i = 0; i < fGroup.size(); ++i) fCells[next[At(fGroup[i])]++] = static_cast<int>(i);
  }

  /// False when it stays.
  bool MoveGroup(int aGroup) {
    fWishes.clear();
    double least = -std::numeric_limits<double>::infinity(), most = -least;
    bool branches = false;
    for (std::size_t i = fStarts[At(aGroup)]; i < fStarts[At(aGroup) + 1]; ++i) {
      const int cell = fCells[i];
      branches |= fGraph.above[At(cell)].size() > 1 || fGraph.below[At(cell)].size() > 1;
      Bound(cell, least, most);
      for (const int strand : fGraph.above[At(cell)]) AddWish(aGroup, fGraph.Strand(strand), false);
      for (const int strand : fGraph.below[At(cell)]) AddWish(aGroup, fGraph.Strand(strand), true);
    }
    least = std::min(least, 0.0);
    most = std::max(most, 0.0);
    if (fWishes.empty() || (least == 0 && most == 0)) return false;
    const double move = BestMove(least, most, branches ? MostOff : std::numeric_limits<double>::infinity());
    if (std::abs(move) < Straight / 10) return false;
    for (std::size_t i = fStarts[At(aGroup)]; i < fStarts[At(aGroup) + 1]; ++i) {
      fGraph.Cell(fCells[i]).x += move;
    }
    return true;
  }
  void Bound(int aCell, double& aLeast, double& aMost) const {
    const TCell& cell = fGraph.Cell(aCell);
    const std::vector<int>& layer = fGraph.layers[At(cell.layer)];
    if (cell.place > 0) {
      const TCell& other = fGraph.Cell(layer[At(cell.place - 1)]);
      aLeast = std::max(aLeast, other.x + Apart(other, cell, fGaps) - cell.x);
    }
    if (At(cell.place + 1) < layer.size()) {
      const TCell& other = fGraph.Cell(layer[At(cell.place + 1)]);
      aMost = std::min(aMost, other.x - Apart(cell, other, fGaps) - cell.x);
    }
  }
  void AddWish(int aGroup, const TStrand& aStrand, bool aDown) {
    if (fGroup[At(aDown ? aStrand.down : aStrand.up)] == aGroup) return;
    const double down = fGraph.DownX(aStrand) - fGraph.UpX(aStrand);
    const bool upNode = fGraph.Cell(aStrand.up).node >= 0, downNode = fGraph.Cell(aStrand.down).node >= 0;
    fWishes.push_back({aDown ? down : -down, upNode && downNode   ? PullNodes
                                             : upNode || downNode ? PullEnd
                                                                  : PullWay});
  }

  /// The weighted median of the wishes, or a wish close to it that saves a bend.
  double BestMove(double aLeast, double aMost, double aMostOff) {
    std::sort(fWishes.begin(), fWishes.end(), [](const TWish& a, const TWish& b) { return a.move < b.move; });
    double all = 0, passed = 0;
    for (const TWish& wish : fWishes) all += wish.weight;
    std::size_t middle = 0;
    while ((passed += fWishes[middle].weight) * 2 < all) ++middle;
    const bool even = passed * 2 == all && middle + 1 < fWishes.size();
    const double median = even ? (fWishes[middle].move + fWishes[middle + 1].move) / 2 : fWishes[middle].move;
    const double center = std::clamp(median, aLeast, aMost);
    const std::size_t first = middle - std::min(middle, Candidates);
    const std::size_t last = std::min(middle + Candidates + 1, fWishes.size() - 1);
    double best = center;
    long mostStraight = StraightAt(center, first, last);
    for (std::size_t i = first; i <= last; ++i) {
      const double move = fWishes[i].move;
      if (move < aLeast || move > aMost || std::abs(move - center) > aMostOff) continue;
      const long straight = StraightAt(move, first, last);
      const bool closer = std::abs(move - center) < std::abs(best - center);
      if (straight < mostStraight || (straight == mostStraight && !closer)) continue;
      mostStraight = straight;
      best = move;
    }
    return best;
  }
  long StraightAt(double aMove, std::size_t aFirst, std::size_t aLast) const {
    long count = 0;
    for (std::size_t i = aFirst; i <= aLast; ++i) count += std::abs(fWishes[i].move - aMove) < Straight;
    return count;
  }

  TLayerGraph& fGraph;
  const TLayeredGaps& fGaps;
  std::vector<int> fGroup;           ///< its first cell, by cell
  std::vector<std::size_t> fStarts;  ///< of the cells of a group, by its first cell
  std::vector<int> fCells;
  std::vector<TWish> fWishes;
};

}  // namespace

void ShiftGroups(TLayerGraph& aGraph, const TLayeredGaps& aGaps) { TShifting(aGraph, aGaps).Run(); }

}  // namespace Zor::inline Host
