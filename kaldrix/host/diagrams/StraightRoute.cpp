#include "kaldrix/host/diagrams/StraightRoute.hpp"

#include <algorithm>

namespace Zor::inline Host {

namespace {

struct TSides {
  TLayoutSide from, to;
};

TSides FacingSides(const TLayoutPoint& a, const TLayoutSize& aSizeA, const TLayoutPoint& b,
                   const TLayoutSize& aSizeB) {
  const double right = b.x - a.x - aSizeA.width, left = a.x - b.x - aSizeB.width;
  const double down = b.y - a.y - aSizeA.height, up = a.y - b.y - aSizeB.height;
  if (std::max(up, down) > std::max(left, right)) {
    return down >= up ? TSides{lsdBottom, lsdTop} : TSides{lsdTop, lsdBottom};
  }
  return right >= left ? TSides{lsdRight, lsdLeft} : TSides{lsdLeft, lsdRight};
}

}  // namespace

TLayoutRoute StraightRoute(const TLayoutGraph& aGraph, std::span<const TLayoutPoint> aPlaces,
                           const TLayoutEdge& aEdge) {
  const auto from = static_cast<std::size_t>(aEdge.from), to = static_cast<std::size_t>(aEdge.to);
  const TLayoutNode &nodeFrom = aGraph.nodes[from], &nodeTo = aGraph.nodes[to];
  const TSides sides = from == to ? TSides{lsdRight, lsdBottom}
                                  : FacingSides(aPlaces[from], nodeFrom.size, aPlaces[to], nodeTo.size);
  const TLayoutPort &start = MiddlePort(nodeFrom, sides.from), &end = MiddlePort(nodeTo, sides.to);
  const TLayoutPoint sum{aPlaces[from].x + start.at.x + aPlaces[to].x + end.at.x,
                         aPlaces[from].y + start.at.y + aPlaces[to].y + end.at.y};
  const TLayoutPoint label{std::max(0.0, (sum.x - aEdge.label.width) / 2),
                           std::max(0.0, (sum.y - aEdge.label.height) / 2)};
  return {ltDirLine, start.position, end.position, {}, label};
}

}  // namespace Zor::inline Host
