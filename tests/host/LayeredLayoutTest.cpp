#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "host/LayoutChecks.hpp"
#include "kaldrix/host/diagrams/LayeredLayout.hpp"

namespace Zor {
namespace {

// Millimetres.
constexpr double Slack = 1e-6, LineWidth = 0.3;

/// A box with one or three ports on each side, numbered like those of flow nodes: clockwise from the top
/// left.
TLayoutNode Box(double aWidth, double aHeight, int aPorts) {
  TLayoutNode node;
  node.size = {aWidth, aHeight};
  const int first = aPorts == 1 ? 2 : 1;
  for (int i = first; i < first + aPorts; ++i) {
    const double part = static_cast<double>(i) / 4;
    const auto add = [&](TLayoutSide aSide, int aPosition, TLayoutPoint aAt) {
      node.ports[aSide].push_back({static_cast<std::uint16_t>(aPosition), aAt});
    };
    add(lsdTop, 1 + i, {aWidth * part, 0});
    add(lsdRight, 5 + i, {aWidth, aHeight * part});
    add(lsdBottom, 13 - i, {aWidth * part, aHeight});
    add(lsdLeft, 17 - i, {0, aHeight * part});
  }
  return node;
}

/// Boxes and edges in all directions: circles, edges between the same nodes and of a node with itself,
/// labels.
TLayoutGraph RandomGraph(int aNodes, unsigned aSeed) {
  std::mt19937 random(aSeed);
  const auto any = [&](int aBelow) { return static_cast<int>(random() % static_cast<unsigned>(aBelow)); };
  TLayoutGraph graph;
  graph.leftRight = aSeed % 2 == 0;
  for (int i = 0; i < aNodes; ++i) graph.nodes.push_back(Box(18 + any(30), 9 + any(12), 1 + 2 * any(2)));
  const int edges = aNodes + any(aNodes);
  for (int i = 0; i < edges; ++i) {
    const int from = any(aNodes);
    const int to = any(12) == 0 ? from : any(2) == 0 ? any(aNodes) : std::min(aNodes - 1, from + 1 + any(4));
    graph.edges.push_back({from, to, any(3) == 0 ? TLayoutSize{5.0 + any(20), 3.5} : TLayoutSize{}});
  }
  return graph;
}

/// The whole road of an edge with both ends.
std::vector<TLayoutPoint> Road(const TLayoutGraph& aGraph, const TLayout& aLayout, std::size_t aEdge) {
  const TLayoutRoute& route = aLayout.routes[aEdge];
  std::vector<TLayoutPoint> road{PortPlace(aGraph, aLayout, aGraph.edges[aEdge].from, route.fromPosition)};
  road.insert(road.end(), route.points.begin(), route.points.end());
  road.push_back(PortPlace(aGraph, aLayout, aGraph.edges[aEdge].to, route.toPosition));
  return road;
}

/// A straight piece of a road, as the box that it fills.
TSceneBox Piece(const TLayoutPoint& a, const TLayoutPoint& b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::abs(a.x - b.x), std::abs(a.y - b.y)};
}

bool RunsInto(const std::vector<TLayoutPoint>& aRoad, const TSceneBox& aBox) {
  for (std::size_t i = 1; i < aRoad.size(); ++i) {
    TSceneBox piece = Piece(aRoad[i - 1], aRoad[i]);
    piece = {piece.x - 0.1, piece.y - 0.1, piece.width + 0.2, piece.height + 0.2};
    if (Overlap(piece, aBox)) return true;
  }
  return false;
}

/// Whether two pieces seem to lie on one line and share more than a point.
bool RunAlong(const TSceneBox& a, const TSceneBox& b) {
  const double across = std::min(a.Right(), b.Right()) - std::max(a.x, b.x);
  const double down = std::min(a.Bottom(), b.Bottom()) - std::max(a.y, b.y);
  return (a.width < Slack && b.width < Slack && std::abs(a.x - b.x) < LineWidth && down > 0.1) ||
         (a.height < Slack && b.height < Slack && std::abs(a.y - b.y) < LineWidth && across > 0.1);
}

bool RunAlong(const std::vector<TLayoutPoint>& aFirst, const std::vector<TLayoutPoint>& aSecond) {
  for (std::size_t i = 1; i < aFirst.size(); ++i) {
    for (std::size_t j = 1; j < aSecond.size(); ++j) {
      if (RunAlong(Piece(aFirst[i - 1], aFirst[i]), Piece(aSecond[j - 1], aSecond[j]))) return true;
    }
  }
  return false;
}

bool Same(const TLayoutPoint& a, const TLayoutPoint& b) {
  return std::abs(a.x - b.x) < Slack && std::abs(a.y - b.y) < Slack;
}

/// Cuts off what two roads that begin at one place have in common.
void CutCommon(std::vector<TLayoutPoint>& aFirst, std::vector<TLayoutPoint>& aSecond) {
  while (aFirst.size() > 1 && aSecond.size() > 1 && Same(aFirst[0], aSecond[0])) {
    const TSceneBox first = Piece(aFirst[0], aFirst[1]), second = Piece(aSecond[0], aSecond[1]);
    if (!RunAlong(first, second)) return;
    const bool firstEnds = first.width + first.height <= second.width + second.height;
    const TLayoutPoint end = firstEnds ? aFirst[1] : aSecond[1];
    for (std::vector<TLayoutPoint>* road : {&aFirst, &aSecond}) {
      if (Same((*road)[1], end)) {
        road->erase(road->begin());
      } else {
        road->front() = end;
      }
    }
  }
}

/// Whether two roads run along each other elsewhere than out of a port that they share.
bool Overlie(std::vector<TLayoutPoint> aFirst, std::vector<TLayoutPoint> aSecond) {
  for (const bool turnFirst : {false, true}) {
    for (const bool turnSecond : {false, true}) {
      if (turnFirst) std::reverse(aFirst.begin(), aFirst.end());
      if (turnSecond) std::reverse(aSecond.begin(), aSecond.end());
      CutCommon(aFirst, aSecond);
      if (turnSecond) std::reverse(aSecond.begin(), aSecond.end());
      if (turnFirst) std::reverse(aFirst.begin(), aFirst.end());
    }
  }
  return RunAlong(aFirst, aSecond);
}

TEST(LayeredLayout, KeepsBoxesLabelsAndRoadsApart) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    const TLayoutGraph graph = RandomGraph(seed < 58 ? 8 + static_cast<int>(seed) : 300, seed);
    const TLayout layout = LayeredLayout(graph);
    std::vector<TSceneBox> boxes = NodeBoxes(graph, layout);
    const std::vector<TSceneBox> labels = LabelBoxes(graph, layout);
    boxes.insert(boxes.end(), labels.begin(), labels.end());
    EXPECT_EQ(Overlaps(boxes), 0) << seed;
    for (const TSceneBox& box : boxes) EXPECT_TRUE(Inside(box, layout.size)) << seed;
    for (std::size_t i = 0; i < graph.edges.size(); ++i) {
      const TLayoutEdge& edge = graph.edges[i];
      const std::vector<TLayoutPoint> road = Road(graph, layout, i);
      for (std::size_t node = 0; node < graph.nodes.size(); ++node) {
        if (static_cast<int>(node) == edge.from || static_cast<int>(node) == edge.to) continue;
        EXPECT_FALSE(RunsInto(road, BoxOf(graph, layout, node)))
            << seed << ": edge " << i << ", node " << node;
      }
      for (std::size_t k = 1; k < road.size(); ++k) {
        const TSceneBox piece = Piece(road[k - 1], road[k]);
        EXPECT_LT(std::min(piece.width, piece.height), 0.02) << seed << ": a slanting road";
        EXPECT_TRUE(Inside(piece, layout.size)) << seed;
      }
      for (std::size_t j = i + 1; j < graph.edges.size(); ++j) {
        EXPECT_FALSE(Overlie(road, Road(graph, layout, j))) << seed << ": edges " << i << ", " << j;
      }
    }
  }
}

TEST(LayeredLayout, LabelsStandBesideTheirOwnRoadAndOnNoOther) {
  for (unsigned seed = 0; seed < 30; ++seed) {
    const TLayoutGraph graph = RandomGraph(10 + static_cast<int>(seed), seed);
    const TLayout layout = LayeredLayout(graph);
    for (std::size_t i = 0; i < graph.edges.size(); ++i) {
      const TLayoutSize& size = graph.edges[i].label;
      if (size.width == 0) continue;
      const TLayoutPoint& at = layout.routes[i].label;
      const TSceneBox label{at.x, at.y, size.width, size.height};
      const TSceneBox near{at.x - 2, at.y - 2, size.width + 4, size.height + 4};
      EXPECT_TRUE(RunsInto(Road(graph, layout, i), near)) << seed << ": label " << i;
      for (std::size_t j = 0; j < graph.edges.size(); ++j) {
        EXPECT_FALSE(RunsInto(Road(graph, layout, j), label)) << seed << ": label " << i << ", edge " << j;
      }
    }
  }
}

TEST(LayeredLayout, EdgesLeadOnAndChainsRunStraight) {
  for (const bool leftRight : {false, true}) {
    TLayoutGraph graph;
    graph.leftRight = leftRight;
    for (int i = 0; i < 5; ++i) graph.nodes.push_back(Box(20 + 10.0 * i, 10, 3));
    for (int i = 0; i + 1 < 5; ++i)
      graph.edges.push_back({i, i + 1, i == 1 ? TLayoutSize{12, 3} : TLayoutSize{}});
    graph.edges.push_back({4, 0, {}});
    const TLayout layout = LayeredLayout(graph);
    for (int i = 0; i + 1 < 5; ++i) {
      const auto at = static_cast<std::size_t>(i);
      const TSceneBox from = BoxOf(graph, layout, at), to = BoxOf(graph, layout, at + 1);
      EXPECT_GT(leftRight ? to.x - from.Right() : to.y - from.Bottom(), 5);
    }
    // The way back makes no other edge bend but where both leave the first and reach the last node.
    EXPECT_EQ(layout.routes[1].type, ltDirLine);
    EXPECT_EQ(layout.routes[2].type, ltDirLine);
    EXPECT_LE(layout.routes[4].points.size(), 4U);
  }
}

TEST(LayeredLayout, LoopsGoRoundLabelsOfAnyHeight) {
  for (const bool leftRight : {false, true}) {
    for (const double height : {3.5, 15.0, 40.0}) {
      TLayoutGraph graph;
      graph.leftRight = leftRight;
      graph.nodes = {Box(30, 10, 3), Box(30, 10, 3)};
      for (int i = 0; i < 3; ++i) graph.edges.push_back({0, 0, {height, height}});
      graph.edges.push_back({0, 1, {}});
      const TLayout layout = LayeredLayout(graph);
      std::vector<TSceneBox> boxes = NodeBoxes(graph, layout);
      const std::vector<TSceneBox> labels = LabelBoxes(graph, layout);
      for (std::size_t i = 0; i < graph.edges.size(); ++i) {
        for (const TSceneBox& label : labels) EXPECT_FALSE(RunsInto(Road(graph, layout, i), label)) << height;
      }
      boxes.insert(boxes.end(), labels.begin(), labels.end());
      EXPECT_EQ(Overlaps(boxes), 0) << height;
      for (const TSceneBox& box : boxes) EXPECT_TRUE(Inside(box, layout.size)) << height;
    }
  }
}

/// Two edges out of one port to nodes of different heights: their middles differ by less than a line's room.
TEST(LayeredLayout, EdgesOfOnePortTurnAtOneHeight) {
  TLayoutGraph graph;
  graph.nodes = {Box(20, 10, 1), Box(20, 10, 1), Box(20, 11, 1)};
  graph.edges = {{0, 1, {}}, {0, 2, {}}};
  const TLayout layout = LayeredLayout(graph);
  ASSERT_EQ(layout.routes[0].points.size(), 2U);
  ASSERT_EQ(layout.routes[1].points.size(), 2U);
  EXPECT_DOUBLE_EQ(layout.routes[0].points[0].y, layout.routes[1].points[0].y);
}

TEST(LayeredLayout, LongEdgesBendFourTimesAtMost) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    const TLayoutGraph graph = RandomGraph(60, seed);
    const TLayout layout = LayeredLayout(graph);
    for (const TLayoutRoute& route : layout.routes) EXPECT_LE(route.points.size(), 4U) << seed;
  }
}

TEST(LayeredLayout, TheSameGraphGivesTheSameLayout) {
  const TLayoutGraph graph = RandomGraph(60, 4);
  const TLayout first = LayeredLayout(graph), second = LayeredLayout(graph);
  EXPECT_EQ(first.nodes, second.nodes);
  for (std::size_t i = 0; i < graph.edges.size(); ++i)
    EXPECT_EQ(first.routes[i].points, second.routes[i].points);
}

TEST(LayeredLayout, DrawsLargeAndDenseGraphs) {
  TLayoutGraph star, dense;
  for (int i = 0; i < 5000; ++i) star.nodes.push_back(Box(20, 10, 3));
  for (int i = 1; i < 5000; ++i) star.edges.push_back({0, i, {}});
  for (int i = 0; i < 60; ++i) dense.nodes.push_back(Box(20, 10, 3));
  for (int i = 0; i < 60; ++i) {
    for (int j = 0; j < i; ++j) dense.edges.push_back({j, i, {}});
  }
  for (const TLayoutGraph& graph : {star, dense}) {
    const TLayout layout = LayeredLayout(graph);
    EXPECT_EQ(Overlaps(NodeBoxes(graph, layout)), 0);
  }
  // Edges over thousands of layers are straight lines, so that time and memory stay bounded.
  TLayoutGraph deep;
  for (int i = 0; i < 3000; ++i) deep.nodes.push_back(Box(20, 10, 3));
  for (int i = 1; i < 3000; ++i) deep.edges.push_back({i - 1, i, {}});
  for (int i = 1; i < 3000; ++i) deep.edges.push_back({0, i, {5, 3}});
  const TLayout layout = LayeredLayout(deep);
  EXPECT_EQ(Overlaps(NodeBoxes(deep, layout)), 0);
  EXPECT_EQ(layout.routes.back().type, ltDirLine);
  EXPECT_EQ(layout.routes.back().toPosition, MiddlePort(deep.nodes[0], lsdTop).position);
  EXPECT_TRUE(LayeredLayout({}).nodes.empty());
}

}  // namespace
}  // namespace Zor
