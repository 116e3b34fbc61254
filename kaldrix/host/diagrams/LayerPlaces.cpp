#include "kaldrix/host/diagrams/LayerPlaces.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/host/diagrams/LayerAlign.hpp"
#include "kaldrix/host/diagrams/LayerShift.hpp"

namespace Zor::inline Host {

void PlaceCells(TLayerGraph& aGraph, const TLayeredGaps& aGaps) {
  const std::vector<double> places = AlignedPlaces(aGraph, aGaps);
  for (std::size_t i = 0; i < places.size(); ++i) aGraph.cells[i].x = places[i];
  ShiftGroups(aGraph, aGaps);
  double left = std::numeric_limits<double>::infinity();
  for (const TCell& cell : aGraph.cells) left = std::min(left, cell.x - cell.left);
  for (TCell& cell : aGraph.cells) cell.x -= left;
}

}  // namespace Zor::inline Host
