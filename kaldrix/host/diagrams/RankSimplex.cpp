#include "kaldrix/host/diagrams/RankSimplex.hpp"

#include <algorithm>
#include <limits>

namespace Zor::inline Host {

namespace {

/// Edges that are looked at, so many for each edge of the graph, and in all.
constexpr long WorkByEdge = 3000, MostWork = 12'000'000;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// A spanning tree of edges that are as short as they may be, which is exchanged edge by edge.
class TRankTree {
 public:
  TRankTree(const std::vector<TRankEdge>& aEdges, std::vector<int>& aRanks)
      : fEdges(aEdges),
        fRanks(aRanks),
        fIncident(aRanks.size()),
        fUp(aRanks.size(), None),
        fSum(aRanks.size()),
        fInTree(aEdges.size()),
        fMark(aRanks.size()),
        fWork(std::min(MostWork, WorkByEdge * static_cast<long>(aEdges.size()))) {
    for (std::size_t i = 0; i < aEdges.size(); ++i) {
      fIncident[At(aEdges[i].from)].push_back(static_cast<int>(i));
      fIncident[At(aEdges[i].to)].push_back(static_cast<int>(i));
    }
  }

  void Run() {
    if (fRanks.empty() || !Grow()) return;
    AddUp();
    const int count = static_cast<int>(fRanks.size());
    // Ends when a whole round finds no edge of the tree that is better exchanged.
    for (int node = 0, passed = 0; passed < count && fWork > 0; node = (node + 1) % count, ++passed) {
      if (fUp[At(node)] == None || Cut(node) >= 0) continue;
      if (Exchange(node)) passed = -1;
    }
  }

 private:
  static constexpr int None = -1;

  const TRankEdge& Edge(int aIndex) const { return fEdges[At(aIndex)]; }
  int Other(int aEdge, int aNode) const {
    return Edge(aEdge).from == aNode ? Edge(aEdge).to : Edge(aEdge).from;
  }
  int Slack(int aEdge) const {
    const TRankEdge& edge = Edge(aEdge);
    return fRanks[At(edge.to)] - fRanks[At(edge.from)] - edge.least;
  }
  int Parent(int aNode) const { return fUp[At(aNode)] == None ? None : Other(fUp[At(aNode)], aNode); }
  /// How many more edges lead along the tree's edge above a node, from side to side, than back.
  int Cut(int aNode) const { return Edge(fUp[At(aNode)]).from == aNode ? fSum[At(aNode)] : -fSum[At(aNode)]; }

  /// Grows the tree from the first node; where no edge is short enough, the tree moves to make one so. False
  /// when that takes too long, or not all nodes hang together.
  bool Grow() {
    Join(0, None);
    while (fOrder.size() < fRanks.size()) {
      int nearest = None;
      for (std::size_t i = 0; i < fEdges.size(); ++i) {
        const auto edge = static_cast<int>(i);
        if ((fMark[At(fEdges[i].from)] != 0) == (fMark[At(fEdges[i].to)] != 0)) continue;
        if (nearest == None || Slack(edge) < Slack(nearest)) nearest = edge;
      }
      fWork -= static_cast<long>(fEdges.size());
      if (nearest == None || fWork <= 0) return false;
      const bool fromTree = fMark[At(Edge(nearest).from)] != 0;
      const int move = fromTree ? Slack(nearest) : -Slack(nearest);
      for (const int node : fOrder) fRanks[At(node)] += move;
      Join(fromTree ? Edge(nearest).to : Edge(nearest).from, nearest);
    }
    std::fill(fMark.begin(), fMark.end(), 0);
    return true;
  }
  /// Adds a node, and what hangs on it by edges that cannot be shorter.
  void Join(int aNode, int aEdge) {
    std::size_t next = fOrder.size();
    const auto add = [&](int aAdded, int aUp) {
      fMark[At(aAdded)] = 1;
      fUp[At(aAdded)] = aUp;
      if (aUp != None) fInTree[At(aUp)] = true;
      fOrder.push_back(aAdded);
    };
    for (add(aNode, aEdge); next < fOrder.size(); ++next) {
      const int node = fOrder[next];
      for (const int edge : fIncident[At(node)]) {
        const int other = Other(edge, node);
        if (fMark[At(other)] == 0 && Slack(edge) == 0) add(other, edge);
      }
    }
  }
  /// Of each subtree: edges out of its nodes less edges into them.
  void AddUp() {
    for (const TRankEdge& edge : fEdges) {
      ++fSum[At(edge.from)];
      --fSum[At(edge.to)];
    }
    for (auto node = fOrder.rbegin(); node != fOrder.rend(); ++node) {
      if (Parent(*node) != None) fSum[At(Parent(*node))] += fSum[At(*node)];
    }
  }

  /// Takes another edge into the tree for the one above `aTop`. False when there is none.
  bool Exchange(int aTop) {
    FindSubtree(aTop);
    const bool leads = Edge(fUp[At(aTop)]).from == aTop;
    int nearest = None;
    for (const int node : fSubtree) {
      for (const int edge : fIncident[At(node)]) {
        // Only edges that lead the other way.
        if (fMark[At(Other(edge, node))] == fStamp || (Edge(edge).from == node) == leads) continue;
        if (nearest == None || Slack(edge) < Slack(nearest)) nearest = edge;
      }
    }
    if (nearest == None) return false;
    const int move = leads ? -Slack(nearest) : Slack(nearest);
    for (const int node : fSubtree) fRanks[At(node)] += move;
    Hang(aTop, nearest);
    return true;
  }
  /// Marks the nodes at and below one, and lists them.
  void FindSubtree(int aTop) {
    ++fStamp;
    fSubtree.assign(1, aTop);
    fMark[At(aTop)] = fStamp;
    for (std::size_t i = 0; i < fSubtree.size(); ++i) {
      const int node = fSubtree[i];
      for (const int edge : fIncident[At(node)]) {
        const int other = Other(edge, node);
        if (!fInTree[At(edge)] || edge == fUp[At(node)]) continue;
        fMark[At(other)] = fStamp;
        fSubtree.push_back(other);
      }
      fWork -= static_cast<long>(fIncident[At(node)].size());
    }
  }
  /// Hangs the subtree below `aTop` on another edge: what lay above its lower end now lies below it.
  void Hang(int aTop, int aEdge) {
    const int sum = fSum[At(aTop)];
    for (int node = Parent(aTop); node != None; node = Parent(node)) fSum[At(node)] -= sum;
    fInTree[At(fUp[At(aTop)])] = false;
    fInTree[At(aEdge)] = true;
    const bool fromBelow = fMark[At(Edge(aEdge).from)] == fStamp;
    int node = fromBelow ? Edge(aEdge).from : Edge(aEdge).to, up = aEdge, below = 0;
    while (true) {
      const int parent = node == aTop ? None : Parent(node), last = fUp[At(node)], own = fSum[At(node)];
      fSum[At(node)] = sum - below;
      fUp[At(node)] = up;
      if (parent == None) break;
      below = own;
      node = parent;
      up = last;
    }
    const int end = fromBelow ? Edge(aEdge).to : Edge(aEdge).from;
    for (int above = end; above != None; above = Parent(above)) fSum[At(above)] += sum;
  }

  const std::vector<TRankEdge>& fEdges;
  std::vector<int>& fRanks;
  std::vector<std::vector<int>> fIncident;  ///< edges, by node
  std::vector<int> fUp;                     ///< the edge of the tree above each node
  std::vector<int> fSum;                    ///< see AddUp
  std::vector<bool> fInTree;                ///< by edge
  std::vector<int> fMark;                   ///< by node: the stamp of the search that met it last
  std::vector<int> fOrder, fSubtree;
  int fStamp = 0;
  long fWork;
};

}  // namespace

void ShortenRanks(const std::vector<TRankEdge>& aEdges, std::vector<int>& aRanks) {
  TRankTree(aEdges, aRanks).Run();
}

}  // namespace Zor::inline Host
