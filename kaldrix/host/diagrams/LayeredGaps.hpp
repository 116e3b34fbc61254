#pragma once

namespace Zor::inline Host {

/// Least distances of a layered layout, millimetres.
struct TLayeredGaps {
  double layer = 10;      ///< between layers
  double node = 8;        ///< between nodes of a layer
  double line = 4;        ///< between a line and its neighbour in a layer
  double track = 3;       ///< between parallel lines that run along the layers
  double component = 10;  ///< between parts that do not hang together
};

}  // namespace Zor::inline Host
