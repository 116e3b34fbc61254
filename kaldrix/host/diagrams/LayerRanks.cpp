#include "kaldrix/host/diagrams/LayerRanks.hpp"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <utility>

#include "kaldrix/host/diagrams/RankSimplex.hpp"

namespace Zor::inline Host {

namespace {

constexpr int Passes = 12;

using TIndexes = std::vector<int>;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// The edges out of and into each node, by index.
struct TIncidence {
  TIncidence(int aNodes, const std::vector<TRankEdge>& aEdges) : out(At(aNodes)), in(At(aNodes)) {
    for (std::size_t i = 0; i < aEdges.size(); ++i) {
      out[At(aEdges[i].from)].push_back(static_cast<int>(i));
      in[At(aEdges[i].to)].push_back(static_cast<int>(i));
    }
  }

  std::vector<TIndexes> out, in;
};

/// A search in depth that needs no recursion.
class TDepthSearch {
 public:
  TDepthSearch(int aNodes, std::vector<TRankEdge>& aEdges)
      : fEdges(aEdges), fIncidence(aNodes, aEdges), fStates(At(aNodes)), fNext(At(aNodes)) {}

  void Run() {
    const int count = static_cast<int>(fStates.size());
    for (int i = 0; i < count; ++i) {
      if (fIncidence.in[At(i)].empty()) From(i);
    }
    for (int i = 0; i < count; ++i) From(i);
    for (const int edge : fBack) {
      std::swap(fEdges[At(edge)].from, fEdges[At(edge)].to);
      fEdges[At(edge)].reversed = true;
    }
  }

 private:
  enum TState : std::uint8_t { stNew, stOpen, stDone };

  void From(int aStart) {
    if (fStates[At(aStart)] != stNew) return;
    TIndexes way{aStart};
    fStates[At(aStart)] = stOpen;
    while (!way.empty()) {
      const int node = way.back();
      const TIndexes& out = fIncidence.out[At(node)];
      if (fNext[At(node)] == out.size()) {
        fStates[At(node)] = stDone;
        way.pop_back();
        continue;
      }
      const int edge = out[fNext[At(node)]++];
      const int to = fEdges[At(edge)].to;
      if (fStates[At(to)] == stOpen) fBack.push_back(edge);
      if (fStates[At(to)] != stNew) continue;
      fStates[At(to)] = stOpen;
      way.push_back(to);
    }
  }

  std::vector<TRankEdge>& fEdges;
  TIncidence fIncidence;
  std::vector<TState> fStates;
  std::vector<std::size_t> fNext;
  TIndexes fBack;
};

/// Ranks in the making.
class TRanking {
 public:
  TRanking(int aNodes, const std::vector<TRankEdge>& aEdges)
      : fEdges(aEdges), fIncidence(aNodes, aEdges), fRanks(At(aNodes)) {}

  std::vector<int> Run() {
    LongestWays();
    for (int i = 0; i < Passes && Shorten(); ++i) {
    }
    ShortenRanks(fEdges, fRanks);
    const int least = fRanks.empty() ? 0 : *std::min_element(fRanks.begin(), fRanks.end());
    for (int& rank : fRanks) rank -= least;
    return std::move(fRanks);
  }

 private:
  /// Each node as high as its edges allow; the nodes from top to bottom in fOrder.
  void LongestWays() {
    std::vector<std::size_t> open(fRanks.size());
    for (std::size_t i = 0; i < open.size(); ++i) {
      open[i] = fIncidence.in[i].size();
      if (open[i] == 0) fOrder.push_back(static_cast<int>(i));
    }
    for (std::size_t i = 0; i < fOrder.size(); ++i) {
      for (const int index : fIncidence.out[At(fOrder[i])]) {
        const TRankEdge& edge = fEdges[At(index)];
        fRanks[At(edge.to)] = std::max(fRanks[At(edge.to)], fRanks[At(edge.from)] + edge.least);
        if (--open[At(edge.to)] == 0) fOrder.push_back(edge.to);
      }
    }
  }
  /// Moves nodes to the end of their room where more edges pull. False when none moved.
  bool Shorten() {
    bool moved = false;
    for (auto node = fOrder.rbegin(); node != fOrder.rend(); ++node) moved |= Move(*node);
    for (const int node : fOrder) moved |= Move(node);
    return moved;
  }
  bool Move(int aNode) {
    const TIndexes &in = fIncidence.in[At(aNode)], &out = fIncidence.out[At(aNode)];
    if (in.size() == out.size()) return false;
    int target = in.size() > out.size() ? INT_MIN : INT_MAX;
    if (in.size() > out.size()) {
      for (const int i : in) target = std::max(target, fRanks[At(fEdges[At(i)].from)] + fEdges[At(i)].least);
    } else {
      for (const int i : out) target = std::min(target, fRanks[At(fEdges[At(i)].to)] - fEdges[At(i)].least);
    }
    return std::exchange(fRanks[At(aNode)], target) != target;
  }

  const std::vector<TRankEdge>& fEdges;
  TIncidence fIncidence;
  std::vector<int> fRanks;
  TIndexes fOrder;
};

}  // namespace

void BreakCircles(int aNodes, std::vector<TRankEdge>& aEdges) { TDepthSearch(aNodes, aEdges).Run(); }

std::vector<int> LayerRanks(int aNodes, const std::vector<TRankEdge>& aEdges) {
  return TRanking(aNodes, aEdges).Run();
}

}  // namespace Zor::inline Host
