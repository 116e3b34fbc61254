#include "kaldrix/host/diagrams/TForest.hpp"

namespace Zor::inline Host {

TForest::TForest(const TLayoutGraph& aGraph) {
  FindParents(aGraph);
  FindRoots();
  ListChildren();
  fOrder.reserve(fParent.size());
  for (const int root : fRoots) AddTree(root);
}

std::span<const int> TForest::Children(int aNode) const {
  const auto node = static_cast<std::size_t>(aNode);
  return std::span(fChildren).subspan(static_cast<std::size_t>(fFirst[node]),
                                      static_cast<std::size_t>(fFirst[node + 1] - fFirst[node]));
}

std::span<const int> TForest::Tree(std::size_t aIndex) const {
  const auto start = static_cast<std::size_t>(fStart[aIndex]);
  const std::size_t end =
      aIndex + 1 < fStart.size() ? static_cast<std::size_t>(fStart[aIndex + 1]) : fOrder.size();
  return std::span(fOrder).subspan(start, end - start);
}

void TForest::FindParents(const TLayoutGraph& aGraph) {
  fParent.assign(aGraph.nodes.size(), -1);
  fParentEdge.assign(aGraph.nodes.size(), -1);
  fChildOf.assign(aGraph.edges.size(), -1);
  for (std::size_t i = 0; i < aGraph.edges.size(); ++i) {
    const TLayoutEdge& edge = aGraph.edges[i];
    const auto to = static_cast<std::size_t>(edge.to);
    if (edge.from == edge.to || fParent[to] >= 0) continue;
    fParent[to] = edge.from;
    fParentEdge[to] = static_cast<int>(i);
    fChildOf[i] = edge.to;
  }
}

void TForest::ListChildren() {
  fFirst.assign(fParent.size() + 1, 0);
  for (const int parent : fParent) {
    if (parent >= 0) ++fFirst[static_cast<std::size_t>(parent) + 1];
  }
  for (std::size_t i = 1; i < fFirst.size(); ++i) fFirst[i] += fFirst[i - 1];
  fChildren.resize(static_cast<std::size_t>(fFirst.back()));
  std::vector<int> next(fFirst.begin(), fFirst.end() - 1);
  for (const int child : fChildOf) {
    if (child < 0) continue;
    int& place = next[static_cast<std::size_t>(Parent(child))];
    fChildren[static_cast<std::size_t>(place++)] = child;
  }
}

void TForest::FindRoots() {
  std::vector<int> seen(fParent.size(), -1);
  for (int node = 0; node < static_cast<int>(fParent.size()); ++node) {
    const int root = RootOf(node, seen);
    if (root < 0) continue;
    fRoots.push_back(root);
    if (Parent(root) >= 0) LeaveParent(root);
  }
}

/// Where the parents end, or a node of the circle in which they run: that one becomes a root. -1 when another
/// node led to the same place before.
int TForest::RootOf(int aNode, std::vector<int>& aSeen) const {
  int node = aNode;
  while (aSeen[static_cast<std::size_t>(node)] < 0) {
    aSeen[static_cast<std::size_t>(node)] = aNode;
    if (Parent(node) < 0) return node;
    node = Parent(node);
  }
  return aSeen[static_cast<std::size_t>(node)] == aNode ? node : -1;
}

void TForest::LeaveParent(int aNode) {
  const auto node = static_cast<std::size_t>(aNode);
  fChildOf[static_cast<std::size_t>(fParentEdge[node])] = -1;
  fParent[node] = -1;
}

void TForest::AddTree(int aRoot) {
  fStart.push_back(static_cast<int>(fOrder.size()));
  fOrder.push_back(aRoot);
  for (std::size_t next = fOrder.size() - 1; next < fOrder.size(); ++next) {
    const std::span<const int> children = Children(fOrder[next]);
    fOrder.insert(fOrder.end(), children.begin(), children.end());
  }
}

}  // namespace Zor::inline Host
