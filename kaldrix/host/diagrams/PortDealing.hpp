#pragma once

#include <cstdint>
#include <vector>

#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

namespace Zor::inline Host {

/// A line that arrives at a side of a node.
struct TPortLine {
  std::uint8_t look = 0;  ///< lines of one look may share a port
  bool enters = false;    ///< else it leaves
};

/// Deals the lines that arrive at one side of a node out to the ports of that side, which stand from left to
/// right; gives the index of the port of each line. Lines come in the order of the places that they lead to,
/// and keep it; they are spread over the side of `aExtent` millimetres at the least price of ports. Lines of
/// different looks share no port while there are as many ports as looks, even if they have to cross for that.
/// Cost: lines times the square of the ports.
std::vector<std::size_t> DealPorts(const std::vector<TLayoutPort>& aPorts, double aExtent,
                                   const std::vector<TPortLine>& aLines);

}  // namespace Zor::inline Host
