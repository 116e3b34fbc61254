#include "kaldrix/host/diagrams/TLayoutGraph.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

const TLayoutPort& MiddlePort(const TLayoutNode& aNode, TLayoutSide aSide) {
  const std::vector<TLayoutPort>& ports = aNode.ports[aSide];
  if (ports.empty()) throw EArgumentException("A node has a side where no link can end");
  const bool along = aSide == lsdTop || aSide == lsdBottom;
  const auto offset = [&](const TLayoutPort& aPort) {
    return along ? std::abs(aPort.at.x - aNode.size.width / 2) : std::abs(aPort.at.y - aNode.size.height / 2);
  };
  return *std::min_element(ports.begin(), ports.end(),
                           [&](const TLayoutPort& a, const TLayoutPort& b) { return offset(a) < offset(b); });
}

}  // namespace Zor::inline Host
