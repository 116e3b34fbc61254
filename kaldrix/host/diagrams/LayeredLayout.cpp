#include "kaldrix/host/diagrams/LayeredLayout.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <numeric>
#include <utility>

#include "kaldrix/host/diagrams/LayeredPart.hpp"

namespace Zor::inline Host {

namespace {

/// How much wider than high a drawing of several parts may become.
constexpr double Proportion = 1.6;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

TLayoutPoint Turned(const TLayoutPoint& aPoint) { return {aPoint.y, aPoint.x}; }
TLayoutSize Turned(const TLayoutSize& aSize) { return {aSize.height, aSize.width}; }

/// With x and y exchanged, and so left with top and right with bottom.
TLayoutGraph Turned(const TLayoutGraph& aGraph) {
  TLayoutGraph turned = aGraph;
  for (TLayoutNode& node : turned.nodes) {
    node.size = Turned(node.size);
    std::swap(node.ports[lsdTop], node.ports[lsdLeft]);
    std::swap(node.ports[lsdRight], node.ports[lsdBottom]);
    for (std::vector<TLayoutPort>& ports : node.ports) {
      for (TLayoutPort& port : ports) port.at = Turned(port.at);
    }
  }
  for (TLayoutEdge& edge : turned.edges) edge.label = Turned(edge.label);
  return turned;
}

void Turn(TLayout& aLayout) {
  for (TLayoutPoint& node : aLayout.nodes) node = Turned(node);
  for (TLayoutRoute& route : aLayout.routes) {
    for (TLayoutPoint& point : route.points) point = Turned(point);
    route.label = Turned(route.label);
  }
  aLayout.size = Turned(aLayout.size);
}

/// Nodes and edges that hang together, by index.
struct TComponent {
  std::vector<int> nodes, edges;
};

/// In the order of their first nodes.
std::vector<TComponent> Components(const TLayoutGraph& aGraph) {
  std::vector<int> leader(aGraph.nodes.size());
  std::iota(leader.begin(), leader.end(), 0);
  const auto find = [&](int aNode) {
    while (leader[At(aNode)] != aNode) {
      leader[At(aNode)] = leader[At(leader[At(aNode)])];
      aNode = leader[At(aNode)];
    }
    return aNode;
  };
  for (const TLayoutEdge& edge : aGraph.edges) {
    const int a = find(edge.from), b = find(edge.to);
    leader[At(std::max(a, b))] = std::min(a, b);
  }
  std::vector<TComponent> components;
  std::vector<int> number(aGraph.nodes.size(), -1);
  for (std::size_t i = 0; i < aGraph.nodes.size(); ++i) {
    int& own = number[At(find(static_cast<int>(i)))];
    if (own < 0) {
      own = static_cast<int>(components.size());
      components.emplace_back();
    }
    components[At(own)].nodes.push_back(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < aGraph.edges.size(); ++i) {
    components[At(number[At(find(aGraph.edges[i].from))])].edges.push_back(static_cast<int>(i));
  }
  return components;
}

/// Top left corners for boxes that stand in rows.
std::vector<TLayoutPoint> Rows(const std::vector<TLayoutSize>& aBoxes, double aGap) {
  double area = 0, widest = 0;
  for (const TLayoutSize& box : aBoxes) {
    area += (box.width + aGap) * (box.height + aGap);
    widest = std::max(widest, box.width);
  }
  const double most = std::max(widest, std::sqrt(area * Proportion));
  std::vector<TLayoutPoint> places;
  double x = 0, y = 0, height = 0;
  for (const TLayoutSize& box : aBoxes) {
    if (x > 0 && x + box.width > most) {
      y += height + aGap;
      x = height = 0;
    }
    places.push_back({x, y});
    x += box.width + aGap;
    height = std::max(height, box.height);
  }
  return places;
}

/// The layout of a graph from the top down; one from left to right has its axes exchanged.
TLayout Downward(const TLayoutGraph& aGraph, const TLayeredGaps& aGaps) {
  const std::vector<TComponent> components = Components(aGraph);
  std::deque<TLayeredPart> parts;
  std::vector<TLayoutSize> boxes;
  for (const TComponent& component : components) {
    const TLayeredPart& part = parts.emplace_back(aGraph, component.nodes, component.edges, aGaps);
    boxes.push_back(aGraph.leftRight ? Turned(part.Size()) : part.Size());
  }
  const std::vector<TLayoutPoint> places = Rows(boxes, aGaps.component);
  TLayout layout;
  layout.nodes.resize(aGraph.nodes.size());
  layout.routes.resize(aGraph.edges.size());
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const TLayoutPoint origin = aGraph.leftRight ? Turned(places[i]) : places[i];
    parts[i].Put(origin, layout);
    layout.size.width = std::max(layout.size.width, origin.x + parts[i].Size().width);
    layout.size.height = std::max(layout.size.height, origin.y + parts[i].Size().height);
  }
  return layout;
}

}  // namespace

TLayout LayeredLayout(const TLayoutGraph& aGraph, const TLayeredGaps& aGaps) {
  if (!aGraph.leftRight) return Downward(aGraph, aGaps);
  TLayout layout = Downward(Turned(aGraph), aGaps);
  Turn(layout);
  return layout;
}

}  // namespace Zor::inline Host
