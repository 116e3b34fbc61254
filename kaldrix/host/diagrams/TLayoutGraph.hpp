// What the layouts of diagrams take and give: boxes of known size and what joins them, without texts, fonts
// or documents. All lengths are millimetres; y grows downward.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Host {

struct TLayoutPoint {
  double x = 0, y = 0;

  friend bool operator==(const TLayoutPoint&, const TLayoutPoint&) = default;
};

struct TLayoutSize {
  double width = 0, height = 0;
};

enum TLayoutSide : std::uint8_t { lsdTop, lsdRight, lsdBottom, lsdLeft };

/// A place on a node where a link may end.
struct TLayoutPort {
  std::uint16_t position = 0;  ///< the number that a link stores
  TLayoutPoint at;             ///< from the top left corner of the node
  // What lines pay, in widths of the side: those that begin here, those that end here, and each that shares
  // the place with another one of its look.
  double leaving = 0, entering = 0, sharing = 3;
};

struct TLayoutNode {
  TLayoutSize size;
  /// By TLayoutSide. A side's ports stand from left to right or from top to bottom; each side has its middle
  /// one, at least.
  std::array<std::vector<TLayoutPort>, 4> ports;
  std::int8_t side = 0;  ///< the half of a mind map or fishbone: -1, 0 or +1
};

struct TLayoutEdge {
  int from = 0, to = 0;  ///< indexes of nodes; the same one for an edge to itself
  TLayoutSize label;     ///< 0, 0: none
  /// Edges that look alike at an end may share their port there.
  std::uint8_t fromLook = 0, toLook = 0;
};

struct TLayoutGraph {
  std::vector<TLayoutNode> nodes;
  std::vector<TLayoutEdge> edges;
  bool leftRight = false;  ///< the main axis; else from the top down
};

/// The port of a side that stands closest to its middle. Raises EArgumentException for a side without ports.
const TLayoutPort& MiddlePort(const TLayoutNode& aNode, TLayoutSide aSide);

/// The road of an edge.
struct TLayoutRoute {
  TZOLinkType type = ltPolyline;
  std::uint16_t fromPosition = 0, toPosition = 0;
  /// Of a polyline: the corners between both ends.
  std::vector<TLayoutPoint> points;
  TLayoutPoint label;  ///< top left corner of the label
};

/// A drawing whose top left corner is the origin; `size` holds nodes, roads and labels.
struct TLayout {
  std::vector<TLayoutPoint> nodes;   ///< top left corners
  std::vector<TLayoutRoute> routes;  ///< by edge
  TLayoutSize size;
};

}  // namespace Zor::inline Host
