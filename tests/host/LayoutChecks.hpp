// What holds for each layout of a diagram.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>

#include "kaldrix/host/diagrams/TScene.hpp"

namespace Zor {

/// A rectangle with one port in the middle of each side, and one beside it.
inline TLayoutNode BoxNode(double aWidth, double aHeight, std::int8_t aSide = 0) {
  TLayoutNode node;
  node.size = {aWidth, aHeight};
  node.ports[lsdTop] = {{2, {aWidth / 4, 0}}, {3, {aWidth / 2, 0}}};
  node.ports[lsdRight] = {{7, {aWidth, aHeight / 2}}, {8, {aWidth, aHeight * 3 / 4}}};
  node.ports[lsdBottom] = {{11, {aWidth / 2, aHeight}}, {10, {aWidth * 3 / 4, aHeight}}};
  node.ports[lsdLeft] = {{16, {0, aHeight / 4}}, {15, {0, aHeight / 2}}};
  node.side = aSide;
  return node;
}

inline TSceneBox BoxOf(const TLayoutGraph& aGraph, const TLayout& aLayout, std::size_t aNode) {
  const TLayoutSize& size = aGraph.nodes[aNode].size;
  return {aLayout.nodes[aNode].x, aLayout.nodes[aNode].y, size.width, size.height};
}

inline std::vector<TSceneBox> NodeBoxes(const TLayoutGraph& aGraph, const TLayout& aLayout) {
  std::vector<TSceneBox> boxes;
  for (std::size_t i = 0; i < aGraph.nodes.size(); ++i) boxes.push_back(BoxOf(aGraph, aLayout, i));
  return boxes;
}

inline constexpr double LayoutSlack = 1e-6;  // millimetres

inline bool Overlap(const TSceneBox& a, const TSceneBox& b) {
  return a.x < b.Right() - LayoutSlack && b.x < a.Right() - LayoutSlack && a.y < b.Bottom() - LayoutSlack &&
         b.y < a.Bottom() - LayoutSlack;
}

/// How many boxes share room with a later one: from the left to the right.
inline int Overlaps(const std::vector<TSceneBox>& aBoxes) {
  std::vector<std::size_t> order(aBoxes.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](auto a, auto b) { return aBoxes[a].x < aBoxes[b].x; });
  int overlaps = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    const TSceneBox& box = aBoxes[order[i]];
    for (std::size_t j = i + 1; j < order.size() && aBoxes[order[j]].x < box.Right(); ++j) {
      if (Overlap(box, aBoxes[order[j]])) ++overlaps;
    }
  }
  return overlaps;
}

inline bool Inside(const TSceneBox& aBox, const TLayoutSize& aSize) {
  return aBox.x >= -LayoutSlack && aBox.y >= -LayoutSlack && aBox.Right() <= aSize.width + LayoutSlack &&
         aBox.Bottom() <= aSize.height + LayoutSlack;
}

/// The drawing begins where its boxes do and ends where they end, but for `aSpare` millimetres.
inline void ExpectTightFit(const std::vector<TSceneBox>& aBoxes, const TLayoutSize& aSize,
                           double aSpare = 0) {
  double left = aSize.width, top = aSize.height, right = 0, bottom = 0;
  for (const TSceneBox& box : aBoxes) {
    left = std::min(left, box.x);
    top = std::min(top, box.y);
    right = std::max(right, box.Right());
    bottom = std::max(bottom, box.Bottom());
  }
  EXPECT_GE(left, -LayoutSlack);
  EXPECT_GE(top, -LayoutSlack);
  EXPECT_LE(right, aSize.width + LayoutSlack);
  EXPECT_LE(bottom, aSize.height + LayoutSlack);
  EXPECT_GE(right - left, aSize.width - aSpare - LayoutSlack);
  EXPECT_GE(bottom - top, aSize.height - aSpare - LayoutSlack);
}

/// The port of a node by its number, on the drawing.
inline TLayoutPoint PortPlace(const TLayoutGraph& aGraph, const TLayout& aLayout, int aNode,
                              std::uint16_t aPosition) {
  const auto node = static_cast<std::size_t>(aNode);
  for (const auto& side : aGraph.nodes[node].ports) {
    for (const TLayoutPort& port : side) {
      if (port.position != aPosition) continue;
      return {aLayout.nodes[node].x + port.at.x, aLayout.nodes[node].y + port.at.y};
    }
  }
  ADD_FAILURE() << "node " << aNode << " has no port " << aPosition;
  return {};
}

/// Points along the road of an edge: of curves and steps by their own rules, millimetres.
inline std::vector<TLayoutPoint> RoadPoints(const TLayoutGraph& aGraph, const TLayout& aLayout,
                                            std::size_t aEdge) {
  const TLayoutRoute& route = aLayout.routes[aEdge];
  const TLayoutPoint p = PortPlace(aGraph, aLayout, aGraph.edges[aEdge].from, route.fromPosition);
  const TLayoutPoint q = PortPlace(aGraph, aLayout, aGraph.edges[aEdge].to, route.toPosition);
  constexpr int Steps = 64;
  std::vector<TLayoutPoint> points;
  for (int i = 0; i <= Steps; ++i) {
    const double t = static_cast<double>(i) / Steps;
    if (route.type == ltCurve) {
      const double middle = 3 * t * (1 - t), x = (p.x + q.x) / 2;
      points.push_back({(1 - t) * (1 - t) * (1 - t) * p.x + middle * x + t * t * t * q.x,
                        p.y + (q.y - p.y) * t * t * (3 - 2 * t)});
    } else if (route.type == ltStepLineTwoPto) {
      points.push_back({p.x, p.y + (q.y - p.y) / 2 * t});
      points.push_back({p.x + (q.x - p.x) * t, (p.y + q.y) / 2});
      points.push_back({q.x, (p.y + q.y) / 2 + (q.y - p.y) / 2 * t});
    }
  }
  return points;
}

/// How many roads run through nodes other than those at their ends.
inline int RoadsThroughNodes(const TLayoutGraph& aGraph, const TLayout& aLayout) {
  int crossings = 0;
  for (std::size_t edge = 0; edge < aGraph.edges.size(); ++edge) {
    const std::vector<TLayoutPoint> points = RoadPoints(aGraph, aLayout, edge);
    for (std::size_t node = 0; node < aGraph.nodes.size(); ++node) {
      const auto index = static_cast<int>(node);
      if (index == aGraph.edges[edge].from || index == aGraph.edges[edge].to) continue;
      const TSceneBox box = BoxOf(aGraph, aLayout, node);
      crossings += std::any_of(points.begin(), points.end(), [&](const TLayoutPoint& p) {
        return Overlap({p.x - 0.1, p.y - 0.1, 0.2, 0.2}, box);
      });
    }
  }
  return crossings;
}

inline std::vector<TSceneBox> LabelBoxes(const TLayoutGraph& aGraph, const TLayout& aLayout) {
  std::vector<TSceneBox> boxes;
  for (std::size_t i = 0; i < aGraph.edges.size(); ++i) {
    const TLayoutSize& size = aGraph.edges[i].label;
    const TLayoutPoint& at = aLayout.routes[i].label;
    if (size.height > 0) boxes.push_back({at.x, at.y, size.width, size.height});
  }
  return boxes;
}

}  // namespace Zor
