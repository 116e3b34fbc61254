// Every graph has a layout in which boxes and labels stand apart, inside the drawing.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "kaldrix/host/diagrams/FishboneLayout.hpp"
#include "kaldrix/host/diagrams/LayeredLayout.hpp"
#include "kaldrix/host/diagrams/TreeLayout.hpp"

namespace {

using namespace Zor;

/// Takes numbers from the input; zeros when it is used up.
class TBytes {
 public:
  explicit TBytes(std::span<const std::uint8_t> aBytes) : fBytes(aBytes) {}

  bool Empty() const { return fBytes.empty(); }
  int Next(int aBelow) {
    if (fBytes.empty()) return 0;
    const int value = fBytes.front() % aBelow;
    fBytes = fBytes.subspan(1);
    return value;
  }

 private:
  std::span<const std::uint8_t> fBytes;
};

TLayoutNode Node(TBytes& aBytes) {
  const double width = 5 + aBytes.Next(100), height = 5 + aBytes.Next(60);
  const int ports = 1 + 2 * aBytes.Next(2);  // with one in the middle
  TLayoutNode node;
  node.size = {width, height};
  node.side = static_cast<std::int8_t>(aBytes.Next(3) - 1);
  for (int i = 1; i <= ports; ++i) {
    const double part = static_cast<double>(i) / (ports + 1);
    const auto position = static_cast<std::uint16_t>(i);
    node.ports[lsdTop].push_back({position, {width * part, 0}});
    node.ports[lsdBottom].push_back({position, {width * part, height}});
    node.ports[lsdLeft].push_back({position, {0, height * part}});
    node.ports[lsdRight].push_back({position, {width, height * part}});
  }
  return node;
}

TLayoutGraph Graph(TBytes& aBytes) {
  TLayoutGraph graph;
  graph.leftRight = aBytes.Next(2) == 1;
  const int nodes = 1 + aBytes.Next(40);
  for (int i = 0; i < nodes; ++i) graph.nodes.push_back(Node(aBytes));
  while (!aBytes.Empty()) {
    const int from = aBytes.Next(nodes), to = aBytes.Next(nodes), label = aBytes.Next(30);
    graph.edges.push_back({from, to, label < 10 ? TLayoutSize{} : TLayoutSize{label * 1.0, 3.5}});
  }
  return graph;
}

struct TRect {
  double left, top, right, bottom;
};

void Check(bool aHolds) {
  if (!aHolds) std::abort();
}

/// With `aLabels`, the labels stand apart from the nodes and from each other too.
void CheckLayout(const TLayoutGraph& aGraph, const TLayout& aLayout, bool aLabels) {
  constexpr double slack = 1e-6;
  Check(aLayout.nodes.size() == aGraph.nodes.size() && aLayout.routes.size() == aGraph.edges.size());
  std::vector<TRect> rects;
  const auto add = [&](const TLayoutPoint& aPlace, const TLayoutSize& aSize) {
    rects.push_back({aPlace.x, aPlace.y, aPlace.x + aSize.width, aPlace.y + aSize.height});
  };
  for (std::size_t i = 0; i < aGraph.nodes.size(); ++i) add(aLayout.nodes[i], aGraph.nodes[i].size);
  for (std::size_t i = 0; aLabels && i < aGraph.edges.size(); ++i) {
    if (aGraph.edges[i].label.width > 0) add(aLayout.routes[i].label, aGraph.edges[i].label);
  }
  for (const TLayoutRoute& route : aLayout.routes) {
    for (const TLayoutPoint& point : route.points) Check(std::isfinite(point.x) && std::isfinite(point.y));
  }
  for (std::size_t i = 0; i < rects.size(); ++i) {
    const TRect& a = rects[i];
    Check(a.left >= -slack && a.top >= -slack && a.right <= aLayout.size.width + slack &&
          a.bottom <= aLayout.size.height + slack);
    for (std::size_t j = i + 1; j < rects.size(); ++j) {
      const TRect& b = rects[j];
      Check(a.left >= b.right - slack || b.left >= a.right - slack || a.top >= b.bottom - slack ||
            b.top >= a.bottom - slack);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  TBytes bytes({aData, aSize});
  const int kind = bytes.Next(4);
  const TLayoutGraph graph = Graph(bytes);
  if (kind < 2) {
    CheckLayout(graph, LayeredLayout(graph), true);
  } else if (kind == 2) {
    CheckLayout(graph, TreeLayout(graph), false);
  } else {
    const TFishbone fishbone = FishboneLayout(graph);
    CheckLayout(graph, fishbone.layout, false);
  }
  return 0;
}
