// The trees in a graph.
#pragma once

#include <span>
#include <vector>

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// The nodes of a graph as trees. The first edge into a node comes from its parent; further ones, edges from
/// a node to itself, and one edge of each circle join no parent to its child. Indexes are those of the graph.
class TForest {
 public:
  explicit TForest(const TLayoutGraph& aGraph);

  /// -1 for a root.
  int Parent(int aNode) const { return fParent[static_cast<std::size_t>(aNode)]; }
  /// In the order of the edges.
  std::span<const int> Children(int aNode) const;
  /// The edge leads from a parent to its child.
  bool Joins(std::size_t aEdge) const { return fChildOf[aEdge] >= 0; }
  /// Tree by tree; a parent stands before its children.
  std::span<const int> Order() const { return fOrder; }
  /// The part of `Order` that is one tree, by the place of its root in `Roots`.
  std::span<const int> Tree(std::size_t aIndex) const;
  const std::vector<int>& Roots() const { return fRoots; }

 private:
  void FindParents(const TLayoutGraph& aGraph);
  void ListChildren();
  void FindRoots();
  int RootOf(int aNode, std::vector<int>& aSeen) const;
  void LeaveParent(int aNode);
  void AddTree(int aRoot);

  std::vector<int> fParent, fParentEdge;  ///< by node
  std::vector<int> fChildOf;              ///< by edge; -1: it joins no parent to its child
  std::vector<int> fFirst, fChildren;  ///< the children of a node stand from its `fFirst` to that of the next
  std::vector<int> fOrder, fRoots, fStart;
};

}  // namespace Zor::inline Host
