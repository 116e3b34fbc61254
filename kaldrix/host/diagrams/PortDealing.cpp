#include "kaldrix/host/diagrams/PortDealing.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace Zor::inline Host {

namespace {

/// Two looks at one port are worse than anything else.
constexpr double Mixed = 1e6;

/// The ports of some lines, and what they cost.
struct TDeal {
  double cost = 0;
  std::vector<std::size_t> ports;  ///< by line
};

/// The cheapest way to give each line a port that stands no further left than that of the line before it.
TDeal Cheapest(const std::vector<TLayoutPort>& aPorts, double aExtent, const std::vector<TPortLine>& aLines) {
  const std::size_t lines = aLines.size(), ports = aPorts.size();
  const auto own = [&](std::size_t aLine, std::size_t aPort) {
    const double wished = (static_cast<double>(aLine) + 0.5) / static_cast<double>(lines);
    const TLayoutPort& port = aPorts[aPort];
    return (aLines[aLine].enters ? port.entering : port.leaving) + std::abs(port.at.x / aExtent - wished);
  };
  std::vector<double> costs(ports), before(ports);
  for (std::size_t p = 0; p < ports; ++p) costs[p] = own(0, p);
  std::vector<std::size_t> came(lines * ports);  // the port of the line before, for each line and port
  for (std::size_t i = 1; i < lines; ++i) {
    before.swap(costs);
    const double mixed = aLines[i].look == aLines[i - 1].look ? 0 : Mixed;
    for (std::size_t p = 0; p < ports; ++p) {
      costs[p] = before[p] + aPorts[p].sharing + mixed;
      came[i * ports + p] = p;
      for (std::size_t q = 0; q < p; ++q) {
        if (before[q] >= costs[p]) continue;
        costs[p] = before[q];
        came[i * ports + p] = q;
      }
      costs[p] += own(i, p);
    }
  }
  const auto best = std::min_element(costs.begin(), costs.end());
  TDeal deal{*best, std::vector<std::size_t>(lines)};
  auto port = static_cast<std::size_t>(best - costs.begin());
  for (std::size_t i = lines; i > 0; --i) {
    deal.ports[i - 1] = port;
    port = came[(i - 1) * ports + port];
  }
  return deal;
}

/// The lines with equal looks together, the looks in the order of the middles of their lines.
std::vector<std::size_t> ByLook(const std::vector<TPortLine>& aLines) {
  constexpr std::size_t looks = std::numeric_limits<std::uint8_t>::max() + 1;
  std::array<double, looks> sum{}, count{};
  for (std::size_t i = 0; i < aLines.size(); ++i) {
    sum[aLines[i].look] += static_cast<double>(i);
    ++count[aLines[i].look];
  }
  std::vector<std::size_t> order(aLines.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto key = [&](std::size_t i) {
    return std::pair(sum[aLines[i].look] / count[aLines[i].look], aLines[i].look);
  };
  std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return key(a) < key(b); });
  return order;
}

}  // namespace

std::vector<std::size_t> DealPorts(const std::vector<TLayoutPort>& aPorts, double aExtent,
                                   const std::vector<TPortLine>& aLines) {
  if (aLines.empty()) return {};
  const TDeal inTurn = Cheapest(aPorts, aExtent, aLines);
  if (inTurn.cost < Mixed) return inTurn.ports;
  const std::vector<std::size_t> order = ByLook(aLines);
  std::vector<TPortLine> lines;
  for (const std::size_t line : order) lines.push_back(aLines[line]);
  const TDeal grouped = Cheapest(aPorts, aExtent, lines);
  std::vector<std::size_t> ports(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) ports[order[i]] = grouped.ports[i];
  return ports;
}

}  // namespace Zor::inline Host
