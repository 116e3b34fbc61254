#include "kaldrix/host/diagrams/TreeLayout.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "kaldrix/host/diagrams/StraightRoute.hpp"
#include "kaldrix/host/diagrams/TForest.hpp"
#include "kaldrix/host/diagrams/TTidyTree.hpp"

namespace Zor::inline Host {

namespace {

// Between a label, its link and the node where it ends, millimetres.
constexpr double LabelGap = 1;
/// A gap between levels has this share of the height over which its curves spread, up to a multiple of what
/// it has at least.
constexpr double FanShare = 0.12, MostWidening = 2;

std::size_t Index(int aNode) { return static_cast<std::size_t>(aNode); }

/// How much of its way across a curve has gone after a part of its way along, both 0 to 1. Its two inner
/// control points stand in the middle of the way: x = t³ - 3/2 t² + 3/2 t, y = 3 t² - 2 t³.
double CurveShare(double aPart) {
  const double t = 0.5 + std::sinh(std::asinh(4 * aPart - 2) / 3);
  return std::clamp(t * t * (3 - 2 * t), 0.0, 1.0);
}

/// Along is the direction in which the tree grows, across the other one.
class TTreeLayout {
 public:
  TTreeLayout(const TLayoutGraph& aGraph, const TTreeGaps& aGaps)
      : fGraph(aGraph),
        fGaps(aGaps),
        fForest(aGraph),
        fBranches(aGraph.nodes.size()),
        fTidyNodes(aGraph.nodes.size()),
        fHeights(aGraph.nodes.size()),
        fTidy(fForest, fTidyNodes, {aGaps.sibling, aGaps.subtree}) {}

  TLayout Layout() {
    ReadLabels();
    std::vector<TExtent> extents;
    double before = 0;
    for (std::size_t tree = 0; tree < fForest.Roots().size(); ++tree) {
      extents.push_back(PlaceTree(fForest.Tree(tree)));
      before = std::max(before, extents.back().before);
    }
    for (std::size_t tree = 0; tree < extents.size(); ++tree)
      AddTree(fForest.Tree(tree), extents[tree], before);
    AddRoutes();
    return std::move(fLayout);
  }

 private:
  /// A node and what joins it to its parent.
  struct TBranch {
    int depth = 0;
    bool backward = false;  ///< it grows to the left
    TLayoutSize label;
    double anchor = 0;  ///< across; the link from the parent ends here
    double along = 0;   ///< its near edge
  };
  struct TColumn {
    double size = 0;
    double start = 0;  ///< from the edge of the root that faces away from it
    double gap = 0;    ///< before it
  };
  /// What one tree takes up.
  struct TExtent {
    double before = 0, after = 0;  ///< along, from the near edge of the root
    double low = std::numeric_limits<double>::infinity(), high = -std::numeric_limits<double>::infinity();
  };

  double Along(const TLayoutSize& aSize) const { return fGraph.leftRight ? aSize.width : aSize.height; }
  double Across(const TLayoutSize& aSize) const { return fGraph.leftRight ? aSize.height : aSize.width; }
  double Along(const TLayoutPoint& aPoint) const { return fGraph.leftRight ? aPoint.x : aPoint.y; }
  double Across(const TLayoutPoint& aPoint) const { return fGraph.leftRight ? aPoint.y : aPoint.x; }
  const TLayoutNode& Node(int aNode) const { return fGraph.nodes[Index(aNode)]; }
  TBranch& Branch(int aNode) { return fBranches[Index(aNode)]; }
  bool IsBackward(int aNode) const { return fBranches[Index(aNode)].backward; }
  std::vector<TColumn>& Columns(int aNode) { return fColumns[IsBackward(aNode) ? 1 : 0]; }

  const TLayoutPort& NearPort(int aNode, bool aBackward) const {
    return MiddlePort(Node(aNode), !fGraph.leftRight ? lsdTop : aBackward ? lsdRight : lsdLeft);
  }
  const TLayoutPort& FarPort(int aNode, bool aBackward) const {
    return MiddlePort(Node(aNode), !fGraph.leftRight ? lsdBottom : aBackward ? lsdLeft : lsdRight);
  }

  void ReadLabels() {
    for (std::size_t i = 0; i < fGraph.edges.size(); ++i) {
      if (fForest.Joins(i)) Branch(fGraph.edges[i].to).label = fGraph.edges[i].label;
    }
  }

  TExtent PlaceTree(std::span<const int> aTree) {
    MeasureHeights(aTree);
    ChooseHalves(aTree);
    MeasureColumns(aTree);
    TidyTree(aTree);
    return PlaceNodes(aTree);
  }

  void ChooseHalves(std::span<const int> aTree) {
    const std::span<const int> branches = fForest.Children(aTree[0]);
    const auto isFree = [&](int aNode) { return Node(aNode).side == 0; };
    if (!fGraph.leftRight) return NoteDepths(aTree);
    if (fGaps.balanced && std::all_of(branches.begin(), branches.end(), isFree)) {
      const std::size_t forward = ForwardBranches(aTree);
      for (std::size_t i = forward; i < branches.size(); ++i) Branch(branches[i]).backward = true;
    } else {
      for (const int branch : branches) Branch(branch).backward = Node(branch).side < 0;
    }
    NoteDepths(aTree);
  }
  void NoteDepths(std::span<const int> aTree) {
    for (const int node : aTree.subspan(1)) {
      const TBranch& parent = Branch(fForest.Parent(node));
      Branch(node).depth = parent.depth + 1;
      if (parent.depth > 0) Branch(node).backward = parent.backward;
    }
  }
  /// About how high the subtrees are.
  void MeasureHeights(std::span<const int> aTree) {
    for (std::size_t i = aTree.size(); i-- > 0;) {
      const std::size_t node = Index(aTree[i]);
      fHeights[node] = std::max(fHeights[node], Across(Node(aTree[i]).size) + fGaps.sibling);
      if (i > 0) fHeights[Index(fForest.Parent(aTree[i]))] += fHeights[node];
    }
  }
  /// How many of the root's branches make up about half of the height.
  std::size_t ForwardBranches(std::span<const int> aTree) {
    double forward = 0;
    std::size_t count = 0;
    for (const int branch : fForest.Children(aTree[0])) {
      const double next = forward + fHeights[Index(branch)];
      if (count > 0 && next + forward > fHeights[Index(aTree[0])]) break;
      forward = next;
      ++count;
    }
    return count;
  }

  void MeasureColumns(std::span<const int> aTree) {
    const TColumn root{Along(Node(aTree[0]).size), 0, 0};
    for (std::vector<TColumn>& columns : fColumns) columns.assign(1, root);
    for (const int node : aTree.subspan(1)) {
      std::vector<TColumn>& columns = Columns(node);
      const std::size_t depth = Index(Branch(node).depth);
      if (columns.size() == depth) columns.push_back({0, 0, fGaps.level});
      columns[depth].size = std::max(columns[depth].size, Along(Node(node).size));
      columns[depth].gap = std::max(columns[depth].gap, LabelRoom(Branch(node).label));
    }
    if (fGraph.leftRight) WidenForFans(aTree);
    for (std::vector<TColumn>& columns : fColumns) {
      for (std::size_t i = 1; i < columns.size(); ++i) {
        columns[i].start = columns[i - 1].start + columns[i - 1].size + columns[i].gap;
      }
    }
  }
  /// Curves to many children would be steep.
  void WidenForFans(std::span<const int> aTree) {
    const double most = fGaps.level * MostWidening;
    struct TFan {
      double first = 0, all = 0;  ///< heights of the children so far
    };
    std::array<TFan, 2> fans;  // forward, backward
    for (std::size_t i = 1; i < aTree.size(); ++i) {
      const int node = aTree[i];
      if (fForest.Parent(node) != fForest.Parent(aTree[i - 1])) fans = {};
      TFan& fan = fans[IsBackward(node) ? 1 : 0];
      const double height = fHeights[Index(node)];
      if (fan.all == 0) fan.first = height;
      fan.all += height;
      TColumn& column = Columns(node)[Index(Branch(node).depth)];
      column.gap = std::max(column.gap, std::min(most, (fan.all - (fan.first + height) / 2) * FanShare));
    }
  }
  /// Between two levels; steps turn half way.
  double LabelRoom(const TLayoutSize& aLabel) const {
    if (aLabel.height <= 0) return 0;
    return fGraph.leftRight ? aLabel.width + 4 * LabelGap : 2 * (aLabel.height + 2 * LabelGap);
  }

  void TidyTree(std::span<const int> aTree) {
    for (std::size_t i = aTree.size(); i-- > 1;) {
      fTidyNodes[Index(aTree[i])] = TidyNode(aTree[i]);
      fTidy.Add(aTree[i]);
    }
    std::array<std::vector<int>, 2> halves;
    for (const int branch : fForest.Children(aTree[0])) halves[IsBackward(branch) ? 1 : 0].push_back(branch);
    fTidyNodes[Index(aTree[0])] = {0, Across(Node(aTree[0]).size), 0, 0};
    for (const bool backward : {false, true}) {
      fTidy.Place(halves[backward ? 1 : 0], Across(FarPort(aTree[0], backward).at));
    }
  }
  TTidyNode TidyNode(int aNode) {
    const bool backward = IsBackward(aNode);
    const double in = Across(NearPort(aNode, backward).at);
    TTidyNode tidy{-in, Across(Node(aNode).size) - in, 0, 0};
    if (const TLayoutSize& label = Branch(aNode).label; label.height > 0) {
      if (fGraph.leftRight) tidy.low = std::min(tidy.low, -label.height - LabelGap / 2);
      tidy.high = std::max(tidy.high, Across(label) + (fGraph.leftRight ? LabelGap / 2 : LabelGap));
    }
    if (fForest.Children(aNode).empty()) return tidy;
    const TLayoutPort& out = FarPort(aNode, backward);
    tidy.out = Across(out.at) - in;
    tidy.share = LinkShare(aNode, backward ? Along(Node(aNode).size) - Along(out.at) : Along(out.at));
    return tidy;
  }
  /// Of the links that leave a node `aFrom` behind the start of its column.
  double LinkShare(int aNode, double aFrom) {
    const std::vector<TColumn>& columns = Columns(aNode);
    const std::size_t depth = Index(Branch(aNode).depth);
    const double way = columns[depth + 1].start - columns[depth].start - aFrom;
    const double part = (columns[depth].size - aFrom) / way;
    if (fGraph.leftRight) return CurveShare(part);
    constexpr double Turn = 0.5, Clearance = 0.1;
    return part > Turn - Clearance ? 1 : 0;
  }

  /// With the near corner of the root at the origin.
  TExtent PlaceNodes(std::span<const int> aTree) {
    TExtent extent;
    for (const int node : aTree) {
      TBranch& branch = Branch(node);
      const double size = Along(Node(node).size);
      const double start = Columns(node)[Index(branch.depth)].start;
      branch.along = branch.backward ? Along(Node(aTree[0]).size) - start - size : start;
      if (node != aTree[0]) branch.anchor = Branch(fForest.Parent(node)).anchor + fTidy.Offset(node);
      extent.before = std::max(extent.before, -branch.along);
      extent.after = std::max(extent.after, branch.along + size);
      extent.low = std::min(extent.low, branch.anchor + fTidyNodes[Index(node)].low);
      extent.high = std::max(extent.high, branch.anchor + fTidyNodes[Index(node)].high);
    }
    return extent;
  }

  /// Behind the trees before it.
  void AddTree(std::span<const int> aTree, const TExtent& aExtent, double aBefore) {
    fLayout.nodes.resize(fGraph.nodes.size());
    const double across = fAcross - aExtent.low;
    for (const int node : aTree) {
      TBranch& branch = Branch(node);
      branch.along += aBefore;
      branch.anchor += across;
      const double in = node == aTree[0] ? 0 : Across(NearPort(node, branch.backward).at);
      fLayout.nodes[Index(node)] = Point(branch.along, branch.anchor - in);
    }
    const double high = across + aExtent.high;
    Hold(Point(aBefore + aExtent.after, high));
    fAcross = high + fGaps.tree;
  }
  TLayoutPoint Point(double aAlong, double aAcross) const {
    return fGraph.leftRight ? TLayoutPoint{aAlong, aAcross} : TLayoutPoint{aAcross, aAlong};
  }
  void Hold(const TLayoutPoint& aPoint) {
    fLayout.size = {std::max(fLayout.size.width, aPoint.x), std::max(fLayout.size.height, aPoint.y)};
  }

  void AddRoutes() {
    for (std::size_t i = 0; i < fGraph.edges.size(); ++i) {
      const TLayoutEdge& edge = fGraph.edges[i];
      fLayout.routes.push_back(fForest.Joins(i) ? BranchRoute(edge)
                                                : StraightRoute(fGraph, fLayout.nodes, edge));
      const TLayoutPoint& label = fLayout.routes.back().label;
      if (edge.label.height > 0) Hold({label.x + edge.label.width, label.y + edge.label.height});
    }
  }
  TLayoutRoute BranchRoute(const TLayoutEdge& aEdge) {
    const bool backward = IsBackward(aEdge.to);
    const TLayoutPort &from = FarPort(aEdge.from, backward), &to = NearPort(aEdge.to, backward);
    const TLayoutPoint start = Place(aEdge.from, from), end = Place(aEdge.to, to);
    TLayoutPoint label{end.x + LabelGap, fLayout.nodes[Index(aEdge.to)].y - LabelGap - aEdge.label.height};
    if (fGraph.leftRight) {
      // The label lies on the side of the curve to which it comes.
      const TLayoutPoint& node = fLayout.nodes[Index(aEdge.to)];
      label.x =
          backward ? node.x + Node(aEdge.to).size.width + LabelGap : node.x - LabelGap - aEdge.label.width;
      label.y = end.y > start.y ? end.y + LabelGap / 2 : end.y - LabelGap / 2 - aEdge.label.height;
    }
    return {fGraph.leftRight ? ltCurve : ltStepLineTwoPto, from.position, to.position, {}, label};
  }
  TLayoutPoint Place(int aNode, const TLayoutPort& aPort) const {
    const TLayoutPoint& node = fLayout.nodes[Index(aNode)];
    return {node.x + aPort.at.x, node.y + aPort.at.y};
  }
  const TLayoutGraph& fGraph;
  TTreeGaps fGaps;
  TForest fForest;
  std::vector<TBranch> fBranches;     ///< by node
  std::vector<TTidyNode> fTidyNodes;  ///< by node
  std::vector<double> fHeights;       ///< by node, of its subtree
  TTidyTree fTidy;
  std::array<std::vector<TColumn>, 2> fColumns;  ///< of one tree: forward, backward
  double fAcross = 0;                            ///< where the next tree begins
  TLayout fLayout;
};

}  // namespace

TLayout TreeLayout(const TLayoutGraph& aGraph, const TTreeGaps& aGaps) {
  return TTreeLayout(aGraph, aGaps).Layout();
}

}  // namespace Zor::inline Host
