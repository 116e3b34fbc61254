#include "kaldrix/host/diagrams/LayeredPart.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/host/diagrams/LayerOrder.hpp"
#include "kaldrix/host/diagrams/LayerPlaces.hpp"
#include "kaldrix/host/diagrams/LayerPorts.hpp"

namespace Zor::inline Host {

namespace {

// Millimetres.
constexpr double LabelGap = 1;
constexpr double LoopReach = 4, LoopStep = 2.5;
/// Lines that bend less than this are straight.
constexpr double Straight = 0.01;

std::size_t At(int aIndex) { return static_cast<std::size_t>(aIndex); }

/// Those edges that join two nodes.
std::vector<int> WithoutLoops(const TLayoutGraph& aGraph, const std::vector<int>& aEdges) {
  std::vector<int> edges;
  std::copy_if(aEdges.begin(), aEdges.end(), std::back_inserter(edges),
               [&](int i) { return aGraph.edges[At(i)].from != aGraph.edges[At(i)].to; });
  return edges;
}

/// Without the points at which the way does not turn.
std::vector<TLayoutPoint> Corners(const std::vector<TLayoutPoint>& aPoints) {
  std::vector<TLayoutPoint> corners;
  for (std::size_t i = 1; i + 1 < aPoints.size(); ++i) {
    const TLayoutPoint& last = corners.empty() ? aPoints.front() : corners.back();
    const TLayoutPoint &p = aPoints[i], &next = aPoints[i + 1];
    const bool alongX = std::abs(last.y - p.y) < Straight && std::abs(p.y - next.y) < Straight;
    const bool alongY = std::abs(last.x - p.x) < Straight && std::abs(p.x - next.x) < Straight;
    if (!alongX && !alongY) corners.push_back(p);
  }
  return corners;
}

}  // namespace

TLayeredPart::TLayeredPart(const TLayoutGraph& aGraph, const std::vector<int>& aNodes,
                           const std::vector<int>& aEdges, const TLayeredGaps& aGaps)
    : fGraph(aGraph),
      fEdges(aEdges),
      fGaps(aGaps),
      fCells(aGraph, aNodes, WithoutLoops(aGraph, aEdges), aGraph.leftRight) {
  AddLoops();
  OrderLayers(fCells);
  DealLayerPorts(fGraph, fCells);
  PlaceCells(fCells, fGaps);
  DealGaps();
  StackLayers();
}

void TLayeredPart::AddLoops() {
  std::vector<int> cellOf(fGraph.nodes.size(), -1);
  for (std::size_t i = 0; i < fCells.cells.size(); ++i) {
    if (fCells.cells[i].node >= 0) cellOf[At(fCells.cells[i].node)] = static_cast<int>(i);
  }
  std::vector<double> reach(fCells.cells.size(), LoopReach);  // upward, of the next loop
  for (const int index : fEdges) {
    const TLayoutEdge& edge = fGraph.edges[At(index)];
    if (edge.from != edge.to) continue;
    const int number = cellOf[At(edge.from)];
    TCell& cell = fCells.Cell(number);
    const TLayoutNode& node = fGraph.nodes[At(edge.from)];
    const double halfHeight = node.size.height / 2;
    // A loop goes round the label of the one before it, which reaches that far above the middle of the node.
    const double label = edge.label.width > 0
                             ? edge.label.height + LabelGap + halfHeight - MiddlePort(node, lsdRight).at.y
                             : 0;
    double& up = reach[At(number)];
    fLoops.push_back({index, number, up, cell.right - node.size.width / 2 + LoopReach});
    cell.right += LoopReach + (edge.label.width > 0 ? edge.label.width + 2 * LabelGap : 0);
    cell.height = std::max(cell.height, 2 * std::max(halfHeight + up, label));
    up = std::max(up + LoopStep, label + LabelGap - halfHeight);
  }
}

void TLayeredPart::DealGaps() {
  fGapIndex.resize(fCells.strands.size());
  for (const std::vector<int>& layer : fCells.layers) {
    std::vector<int> strands;
    for (const int cell : layer) {
      for (const int strand : fCells.below[At(cell)]) {
        fGapIndex[At(strand)] = strands.size();
        strands.push_back(strand);
      }
    }
    fTracks.push_back(DealTracks(fCells, strands));
  }
}

void TLayeredPart::StackLayers() {
  double top = 0;
  bool nodesBefore = false;
  for (std::size_t i = 0; i < fCells.layers.size(); ++i) {
    TLayer layer;
    bool nodes = false;
    for (const int index : fCells.layers[i]) {
      const TCell& cell = fCells.Cell(index);
      layer.height = std::max(layer.height, cell.height);
      nodes |= cell.node >= 0;
      fSize.width = std::max(fSize.width, cell.x + cell.right);
    }
    if (i > 0) {
      const double least = nodes && nodesBefore ? fGaps.layer : fGaps.layer * 0.6;
      top += std::max(least, fGaps.track * (fTracks[i - 1].count + 1));
    }
    layer.top = top;
    top += layer.height;
    nodesBefore = nodes;
    fLayers.push_back(layer);
  }
  fSize.height = top;
}

TLayoutPoint TLayeredPart::NodePlace(int aCell) const {
  const TCell& cell = fCells.Cell(aCell);
  const TLayoutSize& size = fGraph.nodes[At(cell.node)].size;
  const TLayer& layer = fLayers[At(cell.layer)];
  return {cell.x - size.width / 2, layer.top + (layer.height - size.height) / 2};
}

std::vector<TLayoutPoint> TLayeredPart::PointsOf(const TChain& aChain) const {
  const TStrand &first = fCells.Strand(aChain.first), &last = fCells.Strand(aChain.first + aChain.count - 1);
  double x = fCells.UpX(first);
  std::vector<TLayoutPoint> points{{x, NodePlace(first.up).y + aChain.top.at.y}};
  for (int i = aChain.first; i < aChain.first + aChain.count; ++i) {
    const std::size_t gap = At(fCells.Cell(fCells.Strand(i).up).layer);
    const TTracks& tracks = fTracks[gap];
    const double above = fLayers[gap].Bottom(), height = fLayers[gap + 1].top - above;
    for (const TLeg& leg : tracks.legs[fGapIndex[At(i)]]) {
      const double y = above + height / 2 + fGaps.track * (leg.track - (tracks.count - 1) / 2.0);
      points.push_back({x, y});
      points.push_back({leg.to, y});
      x = leg.to;
    }
  }
  points.push_back({fCells.DownX(last), NodePlace(last.down).y + aChain.bottom.at.y});
  return points;
}

TLayoutRoute TLayeredPart::RouteOf(const TChain& aChain) const {
  const std::vector<TLayoutPoint> points = PointsOf(aChain);
  TLayoutRoute route;
  route.fromPosition = aChain.top.position;
  route.toPosition = aChain.bottom.position;
  route.points = Corners(points);
  route.type = route.points.empty() ? ltDirLine : ltPolyline;
  PreferStep(aChain, route, points.front().y, points.back().y);
  if (aChain.reversed) {
    std::swap(route.fromPosition, route.toPosition);
    std::reverse(route.points.begin(), route.points.end());
  }
  route.label = LabelPlace(aChain);
  return route;
}

/// A link with steps in its middle follows its nodes in right angles when they are moved. It is taken where
/// nobody else runs and the middle lies between the layers.
void TLayeredPart::PreferStep(const TChain& aChain, TLayoutRoute& aRoute, double aFrom, double aTo) const {
  const auto middle = [](std::uint16_t aPosition, int aFirst) {
    return aPosition >= aFirst && aPosition <= aFirst + 2;
  };
  const bool offered =
      fGraph.leftRight ? !aChain.reversed && middle(aRoute.fromPosition, 6) && middle(aRoute.toPosition, 14)
                       : middle(aRoute.fromPosition, 10) && middle(aRoute.toPosition, 2);
  if (!offered || aChain.count != 1 || aRoute.points.size() != 2) return;
  const std::size_t gap = At(fCells.Cell(fCells.Strand(aChain.first).up).layer);
  const double y = (aFrom + aTo) / 2;
  const bool moves = std::abs(y - aRoute.points.front().y) > Straight;
  if (moves && !fTracks[gap].alone[fGapIndex[At(aChain.first)]]) return;
  if (y < fLayers[gap].Bottom() + 1 || y > fLayers[gap + 1].top - 1) return;
  aRoute.type = ltStepLineTwoPto;
  for (TLayoutPoint& point : aRoute.points) point.y = y;
}

TLayoutPoint TLayeredPart::LabelPlace(const TChain& aChain) const {
  for (int i = aChain.first; i < aChain.first + aChain.count - 1; ++i) {
    const TCell& cell = fCells.Cell(fCells.Strand(i).down);
    if (!cell.label) continue;
    const TLayer& layer = fLayers[At(cell.layer)];
    return {cell.left > 0 ? cell.x - cell.left : cell.x + LabelGap,
            layer.top + (layer.height - cell.height) / 2};
  }
  return {};
}

TLayoutRoute TLayeredPart::LoopRoute(const TLoop& aLoop) const {
  const TLayoutEdge& edge = fGraph.edges[At(aLoop.edge)];
  const TLayoutNode& node = fGraph.nodes[At(edge.from)];
  const auto [out, in] = LoopPortsOf(node);
  const TLayoutPoint place = NodePlace(aLoop.cell);
  const double top = place.y - aLoop.up, right = place.x + node.size.width + aLoop.right;
  const double x = place.x + out.at.x, y = place.y + in.at.y;
  TLayoutRoute route;
  route.fromPosition = out.position;
  route.toPosition = in.position;
  route.points = {{x, top}, {right, top}, {right, y}};
  const double lowest = y - LabelGap - edge.label.height;
  route.label = {right + LabelGap, std::min((top + y - edge.label.height) / 2, lowest)};
  return route;
}

TLayoutRoute TLayeredPart::FarRoute(const TFarEdge& aEdge) const {
  const auto end = [&](int aCell, TLayoutSide aSide) {
    const TLayoutPort& port = MiddlePort(fGraph.nodes[At(fCells.Cell(aCell).node)], aSide);
    const TLayoutPoint place = NodePlace(aCell);
    return TLayoutPort{port.position, {place.x + port.at.x, place.y + port.at.y}};
  };
  const TLayoutPort top = end(aEdge.top, lsdBottom), bottom = end(aEdge.bottom, lsdTop);
  const TLayoutSize& label = fGraph.edges[At(aEdge.edge)].label;
  TLayoutRoute route;
  route.type = ltDirLine;
  route.fromPosition = aEdge.reversed ? bottom.position : top.position;
  route.toPosition = aEdge.reversed ? top.position : bottom.position;
  route.label = {
      std::clamp((top.at.x + bottom.at.x - label.width) / 2, 0.0, std::max(0.0, fSize.width - label.width)),
      std::clamp((top.at.y + bottom.at.y - label.height) / 2, 0.0,
                 std::max(0.0, fSize.height - label.height))};
  return route;
}

void TLayeredPart::Put(const TLayoutPoint& aOrigin, TLayout& aLayout) const {
  const auto moved = [&](const TLayoutPoint& aPoint) {
    return TLayoutPoint{aOrigin.x + aPoint.x, aOrigin.y + aPoint.y};
  };
  const auto put = [&](int aEdge, TLayoutRoute aRoute) {
    for (TLayoutPoint& point : aRoute.points) point = moved(point);
    aRoute.label = moved(aRoute.label);
    aLayout.routes[At(aEdge)] = std::move(aRoute);
  };
  for (std::size_t i = 0; i < fCells.cells.size(); ++i) {
    if (fCells.cells[i].node >= 0)
      aLayout.nodes[At(fCells.cells[i].node)] = moved(NodePlace(static_cast<int>(i)));
  }
  for (const TChain& chain : fCells.chains) put(chain.edge, RouteOf(chain));
  for (const TLoop& loop : fLoops) put(loop.edge, LoopRoute(loop));
  for (const TFarEdge& edge : fCells.farEdges) put(edge.edge, FarRoute(edge));
}

}  // namespace Zor::inline Host
