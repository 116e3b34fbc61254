#include <gtest/gtest.h>

#include <random>

#include "host/LayoutChecks.hpp"
#include "kaldrix/host/diagrams/FishboneLayout.hpp"

namespace Zor {
namespace {

/// A head, its categories, their causes, and what hangs on those.
TLayoutGraph RandomFish(int aCategories, int aOthers, unsigned aSeed, bool aLabels) {
  std::mt19937 random(aSeed);
  const auto any = [&](int aBelow) { return static_cast<int>(random() % static_cast<unsigned>(aBelow)); };
  TLayoutGraph graph;
  for (int i = 0; i <= aCategories + aOthers; ++i) {
    graph.nodes.push_back(BoxNode(12 + any(45), 7 + any(15), static_cast<std::int8_t>(any(3) - 1)));
    if (i == 0) continue;
    const int parent = i <= aCategories ? 0 : any(2) == 0 ? 1 + any(aCategories) : 1 + any(i - 1);
    const bool label = aLabels && any(3) == 0;
    graph.edges.push_back({parent, i, label ? TLayoutSize{3.0 + any(20), 4} : TLayoutSize{}});
  }
  return graph;
}

double Middle(const TSceneBox& aBox) { return aBox.y + aBox.height / 2; }

/// Whether a straight line comes nearer to a box than half a millimetre.
bool Touches(const TSceneLine& aLine, const TSceneBox& aBox) {
  constexpr int Steps = 400;
  const TLayoutPoint &p = aLine.points.front(), &q = aLine.points.back();
  for (int i = 0; i <= Steps; ++i) {
    const double t = static_cast<double>(i) / Steps;
    if (Overlap({p.x + (q.x - p.x) * t - 0.5, p.y + (q.y - p.y) * t - 0.5, 1, 1}, aBox)) return true;
  }
  return false;
}

/// Boxes that a line touches: the one where it starts, and the head at the end of the spine.
void ExpectLinesBesideBoxes(const TLayoutGraph& aGraph, const TFishbone& aFish) {
  std::vector<int> owners{0};
  for (std::size_t i = 0; i < aGraph.edges.size(); ++i) {
    if (aFish.drawn[i]) owners.push_back(aGraph.edges[i].to);
  }
  ASSERT_EQ(owners.size(), aFish.lines.size());
  const std::vector<TSceneBox> boxes = NodeBoxes(aGraph, aFish.layout);
  const std::vector<TSceneBox> labels = LabelBoxes(aGraph, aFish.layout);
  for (std::size_t i = 0; i < owners.size(); ++i) {
    for (std::size_t node = 0; node < boxes.size(); ++node) {
      EXPECT_EQ(Touches(aFish.lines[i], boxes[node]), static_cast<int>(node) == owners[i])
          << i << ' ' << node;
    }
    const auto crossed = [&](const TSceneBox& aLabel) {
      return Touches(aFish.lines[i], {aLabel.x + 0.5, aLabel.y + 0.5, aLabel.width - 1, aLabel.height - 1});
    };
    EXPECT_EQ(std::count_if(labels.begin(), labels.end(), crossed), 0) << i;
  }
}

TEST(FishboneLayout, KeepsBoxesLinesAndLinksApart) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    const auto size = static_cast<int>(seed);
    const TLayoutGraph graph = RandomFish(1 + size % 9, size * 2, seed, seed % 2 == 1);
    const TFishbone fish = FishboneLayout(graph);
    std::vector<TSceneBox> boxes = NodeBoxes(graph, fish.layout);
    const std::vector<TSceneBox> labels = LabelBoxes(graph, fish.layout);
    boxes.insert(boxes.end(), labels.begin(), labels.end());
    EXPECT_EQ(Overlaps(boxes), 0) << seed;
    boxes.push_back({fish.lines[0].points[0].x, fish.lines[0].points[0].y, 0, 0});
    ExpectTightFit(boxes, fish.layout.size);
    ExpectLinesBesideBoxes(graph, fish);
    TLayoutGraph links = graph;
    TLayout linked = fish.layout;
    for (std::size_t i = graph.edges.size(); i-- > 0;) {
      if (!fish.drawn[i]) continue;
      links.edges.erase(links.edges.begin() + static_cast<std::ptrdiff_t>(i));
      linked.routes.erase(linked.routes.begin() + static_cast<std::ptrdiff_t>(i));
    }
    EXPECT_EQ(RoadsThroughNodes(links, linked), 0) << seed;
  }
}

TEST(FishboneLayout, BonesShareTheirPlacesAndTwigsEndOnThem) {
  TLayoutGraph graph;
  graph.nodes.assign(9, BoxNode(30, 10));
  graph.edges = {{0, 1, {}}, {0, 2, {}}, {0, 3, {}}, {0, 4, {}},
                 {1, 5, {}}, {1, 6, {}}, {2, 7, {}}, {7, 8, {}}};
  const TFishbone fish = FishboneLayout(graph);
  const auto box = [&](std::size_t i) { return BoxOf(graph, fish.layout, i); };
  const TSceneLine& spine = fish.lines[0];
  const double y = spine.points[0].y;
  EXPECT_EQ(spine.points[1], (TLayoutPoint{box(0).x, Middle(box(0))}));
  EXPECT_EQ(spine.points[1].y, y);
  EXPECT_EQ(spine.toTerm, ttFillArrow);
  EXPECT_EQ(fish.drawn, (std::vector<bool>{true, true, true, true, true, true, true, false}));
  EXPECT_EQ(fish.lines[1].points[1], fish.lines[2].points[1]) << "one above, one below";
  EXPECT_EQ(fish.lines[3].points[1], fish.lines[4].points[1]);
  EXPECT_LT(fish.lines[1].points[1].x, fish.lines[3].points[1].x);
  for (const std::size_t category : {1U, 2U, 3U, 4U}) {
    const TSceneLine& bone = fish.lines[category];
    const bool above = category % 2 == 1;
    EXPECT_EQ(box(category).y < y, above);
    EXPECT_EQ(bone.points[0].y, above ? box(category).Bottom() : box(category).y);
    EXPECT_EQ(bone.points[1].y, y);
    EXPECT_LT(bone.points[0].x, bone.points[1].x);
  }
  EXPECT_LT(box(5).y, box(6).y) << "causes stand as they are told";
  for (const std::size_t line : {5U, 6U, 7U}) {
    const std::vector<TLayoutPoint>& twig = fish.lines[line].points;
    const std::vector<TLayoutPoint>& bone = fish.lines[line < 7 ? 1 : 2].points;
    EXPECT_EQ(twig[0].x, box(line).Right());
    EXPECT_DOUBLE_EQ(twig[0].y, Middle(box(line)));
    EXPECT_DOUBLE_EQ(twig[1].y, twig[0].y);
    const double part = (twig[1].y - bone[0].y) / (bone[1].y - bone[0].y);
    EXPECT_NEAR(twig[1].x, bone[0].x + part * (bone[1].x - bone[0].x), 1e-9);
    EXPECT_GT(part, 0);
    EXPECT_LT(part, 1);
  }
  EXPECT_LT(box(8).Right(), box(7).x);
  EXPECT_EQ(fish.layout.routes[7].type, ltCurve);
  EXPECT_EQ(fish.layout.routes[7].fromPosition, 15);
  EXPECT_EQ(fish.layout.routes[7].toPosition, 7);
}

TEST(FishboneLayout, CategoriesKeepTheirSides) {
  TLayoutGraph graph;
  graph.nodes.push_back(BoxNode(30, 10));
  for (const int side : {1, 1, 0, -1, 0}) {
    graph.edges.push_back({0, static_cast<int>(graph.nodes.size()), {}});
    graph.nodes.push_back(BoxNode(20, 10, static_cast<std::int8_t>(side)));
  }
  const TFishbone fish = FishboneLayout(graph);
  std::string sides;
  for (std::size_t i = 1; i < 6; ++i) sides += fish.layout.nodes[i].y < fish.layout.nodes[0].y ? '-' : '+';
  EXPECT_EQ(sides, "++---");
}

TEST(FishboneLayout, BearsGraphsThatAreNoFish) {
  EXPECT_EQ(FishboneLayout({}).layout.size.width, 0);
  const struct {
    const char* name;
    std::vector<TLayoutEdge> edges;
    std::size_t lines;
  } cases[] = {
      {"no edges", {}, 0},
      {"a circle", {{0, 1, {}}, {1, 2, {}}, {2, 0, {5, 4}}}, 3},
      {"a node by itself", {{0, 0, {}}, {3, 3, {}}}, 0},
      {"two heads", {{0, 1, {}}, {2, 3, {5, 4}}, {3, 4, {}}, {1, 3, {}}}, 2},
      {"the head last", {{5, 0, {}}, {0, 1, {}}, {5, 1, {}}, {5, 2, {}}}, 4},
  };
  for (const auto& test : cases) {
    const TLayoutGraph graph{std::vector<TLayoutNode>(6, BoxNode(20, 10)), test.edges, false};
    const TFishbone fish = FishboneLayout(graph);
    EXPECT_EQ(fish.lines.size(), test.lines) << test.name;
    EXPECT_EQ(Overlaps(NodeBoxes(graph, fish.layout)), 0) << test.name;
    for (const TSceneBox& box : NodeBoxes(graph, fish.layout)) EXPECT_TRUE(Inside(box, fish.layout.size));
    for (std::size_t i = 0; i < test.edges.size(); ++i) {
      if (fish.drawn[i]) continue;
      PortPlace(graph, fish.layout, test.edges[i].from, fish.layout.routes[i].fromPosition);
      PortPlace(graph, fish.layout, test.edges[i].to, fish.layout.routes[i].toPosition);
    }
  }
}

TEST(FishboneLayout, TakesLargeAndDeepFish) {
  const TLayoutGraph graph = RandomFish(200, 10'000, 5, false);
  const TFishbone fish = FishboneLayout(graph);
  EXPECT_EQ(Overlaps(NodeBoxes(graph, fish.layout)), 0);
  constexpr int Deep = 50'000;
  TLayoutGraph chain{std::vector<TLayoutNode>(Deep, BoxNode(20, 10)), {}, false};
  for (int i = 1; i < Deep; ++i) chain.edges.push_back({i - 1, i, {}});
  EXPECT_GT(FishboneLayout(chain).layout.size.width, 28.0 * (Deep - 3));
}

}  // namespace
}  // namespace Zor
