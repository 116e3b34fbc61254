#include "kaldrix/host/diagrams/FishboneLayout.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/host/diagrams/StraightRoute.hpp"
#include "kaldrix/host/diagrams/TForest.hpp"
#include "kaldrix/host/diagrams/TreeLayout.hpp"

namespace Zor::inline Host {

namespace {

// All lengths are millimetres.
/// How far a bone leans to the tail for each millimetre away from the spine.
constexpr double Lean = 0.5;
constexpr double LeastTwig = 5;
/// Between the spine and causes, causes of one bone, and causes and their category.
constexpr double SpineGap = 4, CauseGap = 4, CategoryGap = 5;
/// Between causes and the bone that stands before theirs, boxes of categories, places on the spine.
constexpr double BoneGap = 5, BoxGap = 6, LeastStep = 12;
constexpr double BoneClearance = 2;
constexpr double TailLength = 15, HeadLength = 14, LeastBone = 18;
constexpr double LabelGap = 1;
constexpr double TreeGap = 10;
constexpr TTreeGaps CauseGaps{8, 3, 4, TreeGap, false};

std::size_t Index(int aNode) { return static_cast<std::size_t>(aNode); }

/// A cause with all that hangs on it. Distances from the spine grow on either side of it.
struct TCause {
  int node = 0;
  double near = 0, far = 0;  ///< how far it reaches to the spine and away from it, from its twig
  double twig = LeastTwig;   ///< the length
  double left = 0;           ///< what it takes up before its bone, measured along the spine
  double distance = 0;       ///< of the twig from the spine
};

struct TBone {
  int category = 0;
  std::vector<TCause> causes;  ///< the one next to the spine first
  double left = 0, right = 0;  ///< what it takes up, measured along the spine
  double length = 0;           ///< away from the spine, at least
  double at = 0;               ///< on the spine
};

/// The bones above the spine or those below it.
struct THalf {
  double away = -1;  ///< the sign of y away from the spine
  std::vector<TBone> bones;
  double length = LeastBone;  ///< from the spine to the boxes of its categories
};

struct TBounds {
  double left = std::numeric_limits<double>::infinity(), top = left, right = -left, bottom = -left;

  void Add(const TSceneBox& aBox) {
    left = std::min(left, aBox.x);
    top = std::min(top, aBox.y);
    right = std::max(right, aBox.Right());
    bottom = std::max(bottom, aBox.Bottom());
  }
};

/// Works with the spine at y = 0 and the first bone at x = 0, and moves all to the origin in the end.
class TFishboneLayout {
 public:
  explicit TFishboneLayout(const TLayoutGraph& aGraph)
      : fGraph(aGraph),
        fForest(aGraph),
        fHead(fForest.Roots()[0]),
        fTrees(CauseTrees()),
        fTreeForest(fTrees),
        fPlaced(TreeLayout(fTrees, CauseGaps)),
        fPlaces(fPlaced.nodes),
        fLabels(aGraph.nodes.size()),
        fEnds(aGraph.nodes.size()),
        fTreeOf(aGraph.nodes.size()) {}

  TFishbone Fishbone() {
    ReadTrees();
    FillHalves();
    PlaceBones();
    for (THalf& half : fHalves) PlaceHalf(half);
    PlaceHead();
    MoveToOrigin();
    PlaceOtherTrees();
    AddRoutes();
    fResult.layout.nodes = std::move(fPlaces);
    return std::move(fResult);
  }

 private:
  const TLayoutNode& Node(int aNode) const { return fGraph.nodes[Index(aNode)]; }
  TLayoutPoint& Place(int aNode) { return fPlaces[Index(aNode)]; }
  TSceneBox& Label(int aNode) { return fLabels[Index(aNode)]; }
  TSceneBox Box(int aNode) {
    return {Place(aNode).x, Place(aNode).y, Node(aNode).size.width, Node(aNode).size.height};
  }
  TLayoutPoint PortPlace(int aNode, TLayoutSide aSide) {
    const TLayoutPoint& at = MiddlePort(Node(aNode), aSide).at;
    return {Place(aNode).x + at.x, Place(aNode).y + at.y};
  }
  std::span<const int> TreeOf(int aRoot) const { return fTreeForest.Tree(fTreeOf[Index(aRoot)]); }
  static TLayoutSide SideToSpine(const THalf& aHalf) { return aHalf.away < 0 ? lsdBottom : lsdTop; }

  bool IsDrawn(std::size_t aEdge) const {
    const int from = fGraph.edges[aEdge].from;
    return fForest.Joins(aEdge) && (from == fHead || fForest.Parent(from) == fHead);
  }
  bool IsInTree(std::size_t aEdge) const { return fForest.Joins(aEdge) && !IsDrawn(aEdge); }

  /// The same nodes with just the edges below causes, and those of trees beside the fish.
  TLayoutGraph CauseTrees() const {
    TLayoutGraph trees{fGraph.nodes, {}, true};
    for (TLayoutNode& node : trees.nodes) node.side = -1;
    for (std::size_t i = 0; i < fGraph.edges.size(); ++i) {
      if (IsInTree(i)) trees.edges.push_back(fGraph.edges[i]);
    }
    return trees;
  }

  void ReadTrees() {
    for (std::size_t i = 0; i < fTreeForest.Roots().size(); ++i) fTreeOf[Index(fTreeForest.Roots()[i])] = i;
    std::size_t next = 0;
    for (std::size_t i = 0; i < fGraph.edges.size(); ++i) {
      const TLayoutEdge& edge = fGraph.edges[i];
      if (!fForest.Joins(i)) continue;
      Label(edge.to) = {0, 0, edge.label.width, edge.label.height};
      if (IsDrawn(i)) continue;
      const TLayoutPoint& at = fPlaced.routes[next++].label;
      Label(edge.to).x = at.x;
      Label(edge.to).y = at.y;
    }
  }

  void FillHalves() {
    for (const int category : fForest.Children(fHead)) {
      const int side = Node(category).side;
      const bool fewerBelow = fHalves[1].bones.size() < fHalves[0].bones.size();
      THalf& half = fHalves[side > 0 || (side == 0 && fewerBelow) ? 1 : 0];
      half.bones.push_back(Bone(category, half));
      half.length = std::max(half.length, half.bones.back().length);
    }
    const double head = Node(fHead).size.height / 2 + CategoryGap;
    for (THalf& half : fHalves) half.length = std::max(half.length, head);
  }
  TBone Bone(int aCategory, const THalf& aHalf) {
    TBone bone;
    bone.category = aCategory;
    if (const TSceneBox& label = Label(aCategory); label.height > 0) {
      bone.right = LabelGap + label.width + Lean * label.height;
    }
    bone.length = SpineGap + CategoryGap - CauseGap;
    for (const int node : fForest.Children(aCategory)) {
      bone.causes.push_back(Cause(node, aHalf.away));
      bone.left = std::max(bone.left, bone.causes.back().left);
      bone.length += bone.causes.back().far - bone.causes.back().near + CauseGap;
    }
    if (aHalf.away < 0) std::reverse(bone.causes.begin(), bone.causes.end());
    return bone;
  }

  /// What a cause's tree takes up around the right end of the cause's box. Its bone leans: what reaches away
  /// from the spine needs a longer twig, what reaches to the spine comes closer to the bone before.
  TCause Cause(int aNode, double aAway) {
    const TLayoutPoint end = PortPlace(aNode, lsdRight);
    TCause cause;
    cause.node = aNode;
    const auto add = [&](const TSceneBox& aBox) {
      const auto [near, far] = std::minmax({aAway * (aBox.y - end.y), aAway * (aBox.Bottom() - end.y)});
      cause.near = std::min(cause.near, near);
      cause.far = std::max(cause.far, far);
      cause.twig = std::max(cause.twig, aBox.Right() - end.x + Lean * far + BoneClearance);
      cause.left = std::max(cause.left, end.x - aBox.x - Lean * near);
    };
    if (const TSceneBox& label = Label(aNode); label.height > 0) {
      add({end.x + LabelGap, end.y - LabelGap / 2 - label.height, label.width, label.height});
    }
    for (const int node : TreeOf(aNode)) {
      add(Box(node));
      if (node == aNode) continue;
      if (Label(node).height > 0) add(Label(node));
      // The corners of the way of the link.
      const TLayoutPoint from = PortPlace(fForest.Parent(node), lsdLeft), to = PortPlace(node, lsdRight);
      add({from.x, to.y, 0, 0});
      add({to.x, from.y, 0, 0});
    }
    cause.left += cause.twig;
    return cause;
  }

  /// From the place of a bone on the spine to the box of its category.
  double BoxLeft(const TBone& aBone, const THalf& aHalf) const {
    const TLayoutPoint& port = MiddlePort(Node(aBone.category), SideToSpine(aHalf)).at;
    const double inset = aHalf.away < 0 ? Node(aBone.category).size.height - port.y : port.y;
    return -Lean * (aHalf.length + inset) - port.x;
  }
  double BoxRight(const TBone& aBone, const THalf& aHalf) const {
    return BoxLeft(aBone, aHalf) + Node(aBone.category).size.width;
  }

  void PlaceBones() {
    for (std::size_t i = 1; i < std::max(fHalves[0].bones.size(), fHalves[1].bones.size()); ++i) {
      double step = LeastStep;
      for (const THalf& half : fHalves) {
        if (i >= half.bones.size()) continue;
        const TBone &bone = half.bones[i], &before = half.bones[i - 1];
        step = std::max({step, before.right + BoneGap + bone.left,
                         BoxRight(before, half) + BoxGap - BoxLeft(bone, half)});
      }
      fLastBone += step;
      for (THalf& half : fHalves) {
        if (i < half.bones.size()) half.bones[i].at = fLastBone;
      }
    }
  }

  void PlaceHalf(THalf& aHalf) {
    for (TBone& bone : aHalf.bones) {
      PlaceCategory(bone, aHalf);
      // Causes spread over bones that are longer than they need to be.
      const double spare = (aHalf.length - bone.length) / static_cast<double>(bone.causes.size() + 1);
      double distance = SpineGap + spare;
      for (const TCause& cause : bone.causes) {
        distance -= cause.near;
        PlaceCause(cause, {bone.at - Lean * distance, aHalf.away * distance});
        distance += cause.far + CauseGap + spare;
      }
    }
  }
  void PlaceCategory(const TBone& aBone, const THalf& aHalf) {
    const double height = Node(aBone.category).size.height;
    Place(aBone.category) = {aBone.at + BoxLeft(aBone, aHalf),
                             aHalf.away < 0 ? -aHalf.length - height : aHalf.length};
    fEnds[Index(aBone.category)] = {aBone.at, 0};
    TSceneBox& label = Label(aBone.category);
    const double near = aHalf.length - LabelGap - label.height;
    label.x = aBone.at - Lean * near + LabelGap;
    label.y = aHalf.away < 0 ? -near - label.height : near;
  }
  /// `aEnd` is where the twig meets the bone.
  void PlaceCause(const TCause& aCause, const TLayoutPoint& aEnd) {
    const TLayoutPoint start = PortPlace(aCause.node, lsdRight);
    Move(TreeOf(aCause.node), aEnd.x - aCause.twig - start.x, aEnd.y - start.y);
    fEnds[Index(aCause.node)] = aEnd;
    TSceneBox& label = Label(aCause.node);
    label.x = aEnd.x - aCause.twig + LabelGap;
    label.y = aEnd.y - LabelGap / 2 - label.height;
  }
  void Move(std::span<const int> aNodes, double aRight, double aDown) {
    const auto move = [&](auto& aPlace) {
      aPlace.x += aRight;
      aPlace.y += aDown;
    };
    for (const int node : aNodes) {
      move(Place(node));
      move(Label(node));
      move(fEnds[Index(node)]);
    }
  }

  void PlaceHead() {
    double right = 0;
    for (const THalf& half : fHalves) {
      if (!half.bones.empty()) right = std::max(right, half.bones.back().right);
    }
    Place(fHead) = {fLastBone + right + HeadLength, -MiddlePort(Node(fHead), lsdLeft).at.y};
    fTail = {-TailLength, 0};
  }

  TBounds Bounds(std::span<const int> aNodes) {
    TBounds bounds;
    for (const int node : aNodes) {
      bounds.Add(Box(node));
      if (Label(node).height > 0) bounds.Add(Label(node));
    }
    return bounds;
  }
  void MoveToOrigin() {
    const std::span<const int> fish = fForest.Tree(0);
    TBounds bounds = Bounds(fish);
    if (HasSpine()) bounds.Add({fTail.x, fTail.y, 0, 0});
    Move(fish, -bounds.left, -bounds.top);
    fTail.x -= bounds.left;
    fTail.y -= bounds.top;
    fResult.layout.size = {bounds.right - bounds.left, bounds.bottom - bounds.top};
  }
  bool HasSpine() const { return !fForest.Children(fHead).empty(); }
  void PlaceOtherTrees() {
    TLayoutSize& size = fResult.layout.size;
    for (std::size_t i = 1; i < fForest.Roots().size(); ++i) {
      const TBounds bounds = Bounds(fForest.Tree(i));
      Move(fForest.Tree(i), -bounds.left, size.height + TreeGap - bounds.top);
      size = {std::max(size.width, bounds.right - bounds.left),
              size.height + TreeGap + bounds.bottom - bounds.top};
    }
  }

  void AddRoutes() {
    if (HasSpine()) fResult.lines.push_back({{fTail, PortPlace(fHead, lsdLeft)}, ttNone, ttFillArrow, false});
    std::size_t next = 0;
    for (std::size_t i = 0; i < fGraph.edges.size(); ++i) {
      const TLayoutEdge& edge = fGraph.edges[i];
      TLayoutRoute route;
      if (IsInTree(i)) {
        route = std::move(fPlaced.routes[next++]);
      } else if (!IsDrawn(i)) {
        route = StraightRoute(fGraph, fPlaces, edge);
        HoldLabel(route.label, edge.label);
      } else {
        fResult.lines.push_back({{LineStart(edge), fEnds[Index(edge.to)]}, ttNone, ttNone, false});
      }
      if (fForest.Joins(i)) route.label = {Label(edge.to).x, Label(edge.to).y};
      fResult.layout.routes.push_back(std::move(route));
      fResult.drawn.push_back(IsDrawn(i));
    }
  }
  TLayoutPoint LineStart(const TLayoutEdge& aEdge) {
    if (aEdge.from != fHead) return PortPlace(aEdge.to, lsdRight);
    return PortPlace(aEdge.to, Place(aEdge.to).y < fTail.y ? lsdBottom : lsdTop);
  }
  void HoldLabel(const TLayoutPoint& aPlace, const TLayoutSize& aLabel) {
    if (aLabel.height <= 0) return;
    TLayoutSize& size = fResult.layout.size;
    size = {std::max(size.width, aPlace.x + aLabel.width), std::max(size.height, aPlace.y + aLabel.height)};
  }

  const TLayoutGraph& fGraph;
  TForest fForest;
  int fHead;
  TLayoutGraph fTrees;
  TForest fTreeForest;
  TLayout fPlaced;                    ///< the trees
  std::vector<TLayoutPoint> fPlaces;  ///< by node
  std::vector<TSceneBox> fLabels;     ///< by node, of the edge from its parent
  std::vector<TLayoutPoint> fEnds;    ///< by node: where the line of a category or cause ends
  std::vector<std::size_t> fTreeOf;   ///< by root
  std::array<THalf, 2> fHalves{THalf{-1, {}}, THalf{1, {}}};
  double fLastBone = 0;
  TLayoutPoint fTail;
  TFishbone fResult;
};

}  // namespace

TFishbone FishboneLayout(const TLayoutGraph& aGraph) {
  if (aGraph.nodes.empty()) return {};
  return TFishboneLayout(aGraph).Fishbone();
}

}  // namespace Zor::inline Host
