#include <gtest/gtest.h>

#include <random>

#include "host/LayoutChecks.hpp"
#include "kaldrix/host/diagrams/TreeLayout.hpp"

namespace Zor {
namespace {

/// A tree of boxes; each further node hangs on an earlier one.
TLayoutGraph RandomTree(int aNodes, unsigned aSeed, bool aLeftRight) {
  std::mt19937 random(aSeed);
  const auto any = [&](int aBelow) { return static_cast<int>(random() % static_cast<unsigned>(aBelow)); };
  TLayoutGraph graph;
  graph.leftRight = aLeftRight;
  for (int i = 0; i < aNodes; ++i) {
    graph.nodes.push_back(BoxNode(12 + any(40), 7 + any(15), static_cast<std::int8_t>(any(3) - 1)));
    if (i == 0) continue;
    const int parent = any(2) == 0 ? any(i) : std::max(0, i - 1 - any(6));
    graph.edges.push_back({parent, i, any(4) == 0 ? TLayoutSize{3.0 + any(20), 4} : TLayoutSize{}});
  }
  return graph;
}

TLayoutGraph Tree(std::vector<TLayoutNode> aNodes, std::vector<TLayoutEdge> aEdges, bool aLeftRight = true) {
  return {std::move(aNodes), std::move(aEdges), aLeftRight};
}

TEST(TreeLayout, KeepsBoxesLabelsAndLinksApart) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    const TLayoutGraph graph = RandomTree(20 + static_cast<int>(seed) * 3, seed, seed % 2 == 0);
    const TLayout layout = TreeLayout(graph);
    std::vector<TSceneBox> boxes = NodeBoxes(graph, layout);
    const std::vector<TSceneBox> labels = LabelBoxes(graph, layout);
    boxes.insert(boxes.end(), labels.begin(), labels.end());
    EXPECT_EQ(Overlaps(boxes), 0) << seed;
    EXPECT_EQ(RoadsThroughNodes(graph, layout), 0) << seed;
    ExpectTightFit(boxes, layout.size, 2);
  }
}

TEST(TreeLayout, CentresParentsAndAlignsLevels) {
  const TLayoutGraph graph =
      Tree({BoxNode(30, 10), BoxNode(20, 10), BoxNode(40, 30), BoxNode(10, 8), BoxNode(15, 12)},
           {{0, 1, {}}, {0, 2, {}}, {1, 3, {}}, {1, 4, {}}});
  const TLayout layout = TreeLayout(graph);
  const auto middle = [&](std::size_t i) { return layout.nodes[i].y + graph.nodes[i].size.height / 2; };
  EXPECT_DOUBLE_EQ(middle(0), (middle(1) + middle(2)) / 2);
  EXPECT_DOUBLE_EQ(middle(1), (middle(3) + middle(4)) / 2);
  EXPECT_EQ(layout.nodes[1].x, 44);
  EXPECT_EQ(layout.nodes[2].x, 44);
  EXPECT_EQ(layout.nodes[3].x, 44 + 40 + 14) << "behind the widest box of the level before";
  EXPECT_EQ(layout.nodes[4].y - layout.nodes[3].y - 8, 4);
  for (const TLayoutRoute& route : layout.routes) {
    EXPECT_EQ(route.type, ltCurve);
    EXPECT_EQ(route.fromPosition, 7);
    EXPECT_EQ(route.toPosition, 15);
  }
}

TEST(TreeLayout, GrowsToBothSidesAndDown) {
  TLayoutGraph graph =
      Tree({BoxNode(30, 10), BoxNode(20, 10, -1), BoxNode(25, 10, 1), BoxNode(10, 10, 1), BoxNode(12, 10)},
           {{0, 1, {}}, {0, 2, {}}, {1, 3, {}}, {2, 4, {}}});
  TLayout layout = TreeLayout(graph);
  const auto right = [&](std::size_t i) { return layout.nodes[i].x + graph.nodes[i].size.width; };
  EXPECT_EQ(layout.nodes[3].x, 0) << "a branch takes along what hangs on it";
  EXPECT_EQ(right(3) + 14, layout.nodes[1].x);
  EXPECT_EQ(right(1) + 14, layout.nodes[0].x);
  EXPECT_EQ(right(0) + 14, layout.nodes[2].x);
  EXPECT_EQ(right(4), layout.size.width);
  EXPECT_EQ(layout.routes[2].fromPosition, 15);
  EXPECT_EQ(layout.routes[2].toPosition, 7);
  EXPECT_EQ(layout.size.height, 10) << "one box beside the other";

  graph.leftRight = false;
  layout = TreeLayout(graph);
  EXPECT_EQ(layout.nodes[1].y, 24);
  EXPECT_EQ(layout.nodes[2].y, 24);
  EXPECT_EQ(layout.routes[0].type, ltStepLineTwoPto);
  EXPECT_EQ(layout.routes[0].fromPosition, 11);
  EXPECT_EQ(layout.routes[0].toPosition, 3);
}

TEST(TreeLayout, BalancesBranchesWithoutSides) {
  TLayoutGraph graph = Tree({BoxNode(30, 10)}, {});
  for (int i = 1; i <= 5; ++i) {
    graph.nodes.push_back(BoxNode(20, i == 1 ? 40 : 10));
    graph.edges.push_back({0, i, {}});
  }
  TTreeGaps gaps;
  gaps.balanced = true;
  const auto sides = [&] {
    const TLayout layout = TreeLayout(graph, gaps);
    std::string text;
    for (std::size_t i = 1; i < graph.nodes.size(); ++i)
      text += layout.nodes[i].x > layout.nodes[0].x ? 'R' : 'L';
    return text;
  };
  EXPECT_EQ(sides(), "RLLLL");
  graph.nodes[1].size.height = 10;
  EXPECT_EQ(sides(), "RRRLL");
  graph.nodes[2].side = 1;
  EXPECT_EQ(sides(), "RRRRR") << "who names a side is taken at their word";
}

TEST(TreeLayout, LeavesSpreadBetweenLargeNeighbours) {
  TLayoutGraph graph = Tree({BoxNode(20, 8), BoxNode(20, 8), BoxNode(20, 8), BoxNode(20, 8), BoxNode(20, 8)},
                            {{0, 1, {}}, {0, 2, {}}, {0, 3, {}}, {0, 4, {}}});
  for (const int parent : {1, 1, 1, 1, 4, 4, 4, 4}) {
    graph.edges.push_back({parent, static_cast<int>(graph.nodes.size()), {}});
    graph.nodes.push_back(BoxNode(20, 8));
  }
  const TLayout layout = TreeLayout(graph);
  const double step = layout.nodes[2].y - layout.nodes[1].y;
  EXPECT_GT(step, 13);
  EXPECT_NEAR(layout.nodes[3].y - layout.nodes[2].y, step, 1e-9);
  EXPECT_NEAR(layout.nodes[4].y - layout.nodes[3].y, step, 1e-9);
}

TEST(TreeLayout, BearsGraphsThatAreNoTrees) {
  const std::vector<TLayoutNode> six(6, BoxNode(20, 10));
  const struct {
    const char* name;
    std::vector<TLayoutEdge> edges;
    std::size_t straight;  ///< edges that join no parent to its child
  } cases[] = {
      {"no edges", {}, 0},
      {"a node by itself", {{0, 0, {}}, {1, 1, {5, 4}}}, 2},
      {"a circle", {{0, 1, {}}, {1, 2, {}}, {2, 0, {}}}, 1},
      {"a tail before its circle", {{3, 0, {}}, {1, 2, {}}, {2, 3, {}}, {3, 1, {}}}, 1},
      {"two parents", {{0, 2, {}}, {1, 2, {}}, {0, 2, {}}}, 2},
      {"two circles", {{0, 1, {}}, {1, 0, {}}, {4, 5, {}}, {5, 4, {}}, {5, 3, {}}}, 2},
  };
  for (const auto& test : cases) {
    for (const bool leftRight : {false, true}) {
      const TLayoutGraph graph = Tree(six, test.edges, leftRight);
      const TLayout layout = TreeLayout(graph);
      std::vector<TSceneBox> boxes = NodeBoxes(graph, layout);
      EXPECT_EQ(Overlaps(boxes), 0) << test.name;
      const std::vector<TSceneBox> labels = LabelBoxes(graph, layout);
      boxes.insert(boxes.end(), labels.begin(), labels.end());
      ExpectTightFit(boxes, layout.size);
      std::size_t straight = 0;
      for (std::size_t i = 0; i < test.edges.size(); ++i) {
        straight += layout.routes[i].type == ltDirLine;
        PortPlace(graph, layout, test.edges[i].from, layout.routes[i].fromPosition);
        PortPlace(graph, layout, test.edges[i].to, layout.routes[i].toPosition);
      }
      EXPECT_EQ(straight, test.straight) << test.name;
    }
  }
  const TLayout none = TreeLayout({});
  EXPECT_EQ(none.size.width, 0);
}

TEST(TreeLayout, TakesDeepWideAndManyTrees) {
  constexpr int Count = 100'000;
  for (const int step : {1, 0, -1}) {
    TLayoutGraph graph = Tree(std::vector<TLayoutNode>(Count, BoxNode(20, 10)), {});
    for (int i = 1; i < Count && step >= 0; ++i) graph.edges.push_back({step == 1 ? i - 1 : 0, i, {}});
    const TLayout layout = TreeLayout(graph);
    EXPECT_NEAR(layout.size.width, step == 1 ? 34.0 * Count - 14 : step == 0 ? 68 : 20, 1e-3);
    EXPECT_NEAR(layout.size.height,
                step == 1   ? 10
                : step == 0 ? 14.0 * (Count - 1) - 4
                            : 20.0 * Count - 10,
                1e-3);
  }
  const TLayoutGraph graph = RandomTree(10'000, 7, true);
  EXPECT_EQ(Overlaps(NodeBoxes(graph, TreeLayout(graph))), 0);
}

}  // namespace
}  // namespace Zor
