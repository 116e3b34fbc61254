#include <gtest/gtest.h>

#include "kaldrix/host/diagrams/FlowShapes.hpp"
#include "kaldrix/host/diagrams/LayeredLayout.hpp"
#include "kaldrix/host/diagrams/PortDealing.hpp"

namespace Zor {
namespace {

constexpr TLayoutSize Box{40, 20};
constexpr TPortLine Out{1, false}, In{2, true}, Dashed{3, true}, Thick{4, true};

/// The positions that lines get on a side of an outline.
std::vector<int> Dealt(TZORFlowType aShape, TLayoutSide aSide, const std::vector<TPortLine>& aLines) {
  std::vector<TLayoutPort> ports = FlowPorts(aShape, Box)[aSide];
  const bool upright = aSide == lsdRight || aSide == lsdLeft;
  for (TLayoutPort& port : ports) port.at.x = upright ? port.at.y : port.at.x;
  std::vector<int> positions;
  for (const std::size_t port : DealPorts(ports, upright ? Box.height : Box.width, aLines))
    positions.push_back(ports[port].position);
  return positions;
}

TEST(PortDealing, ALineAloneEndsInTheMiddleOfItsSide) {
  // Where the middle of an edge lies for slanted and stepped outlines.
  for (std::size_t i = 0; i < EnumCount<TZORFlowType>; ++i) {
    const auto shape = static_cast<TZORFlowType>(i);
    EXPECT_EQ(Dealt(shape, lsdTop, {In}), std::vector{3}) << i;
    EXPECT_EQ(Dealt(shape, lsdBottom, {Out}), std::vector{11}) << i;
  }
}

TEST(PortDealing, LinesOfDifferentLooksShareNoPort) {
  struct TCase {
    TZORFlowType shape;
    std::vector<TPortLine> lines;
    std::vector<int> positions;
  };
  const std::vector<TCase> cases{
      {ftProcess, {Out, Out, Out, Out, Out}, {12, 12, 11, 10, 10}},  // alike: corners are left alone
      {ftProcess, {Out, Out, In, Dashed, Thick}, {12, 12, 11, 10, 9}},
      {ftProcess,
       {Out, In, Out, In, Out, In, Out},
       {12, 10, 12, 10, 12, 10, 11}},  // crossing rather than shared
      {ftDocument, {Out, Out}, {11, 11}},
      {ftDocument, {Out, In}, {13, 11}},
      {ftData, {Out, Out}, {11, 10}},
  };
  for (const TCase& c : cases) {
    const std::vector<int> positions = Dealt(c.shape, lsdBottom, c.lines);
    EXPECT_EQ(positions, c.positions) << testing::PrintToString(positions);
  }
}

TEST(PortDealing, EverySideHasAPortForEachDirection) {
  // Slanted, pointed and round sides have corners for the second look; a link alone takes their middle.
  for (std::size_t i = 0; i < EnumCount<TZORFlowType>; ++i) {
    const auto shape = static_cast<TZORFlowType>(i);
    for (const TLayoutSide side : {lsdTop, lsdRight, lsdBottom, lsdLeft}) {
      const std::vector<int> both = Dealt(shape, side, {Out, In});
      EXPECT_NE(both[0], both[1]) << i << " at " << side;
    }
    EXPECT_EQ(Dealt(shape, lsdRight, {Out}), std::vector{7}) << i;
    EXPECT_EQ(Dealt(shape, lsdLeft, {In}), std::vector{15}) << i;
  }
}

TEST(PortDealing, DecisionsAreEnteredAndLeftAtTheirTips) {
  EXPECT_EQ(Dealt(ftDecision, lsdTop, {In, In, In}), (std::vector{3, 3, 3}));
  EXPECT_EQ(Dealt(ftDecision, lsdTop, {In, Out}), (std::vector{3, 7}));
  EXPECT_EQ(Dealt(ftDecision, lsdBottom, {Out, Out}), (std::vector{15, 7}));
  EXPECT_EQ(Dealt(ftDecision, lsdBottom, {Out, Out, Out}), (std::vector{15, 11, 7}));
  EXPECT_EQ(Dealt(ftDecision, lsdBottom, {Out, Out, In}), (std::vector{15, 11, 9}));
}

TEST(PortDealing, ATipServesOneSideOfADecision) {
  // 0 -> decision -> 2, 3; the decision leads back to 0 too.
  TLayoutGraph graph;
  for (const TZORFlowType shape : {ftProcess, ftDecision, ftProcess, ftProcess})
    graph.nodes.push_back({Box, FlowPorts(shape, Box), 0});
  graph.edges = {{0, 1, {}, 1, 2}, {1, 2, {}, 1, 2}, {1, 3, {}, 1, 2}, {1, 0, {}, 1, 2}};
  const TLayout layout = LayeredLayout(graph);
  EXPECT_EQ(layout.routes[0].toPosition, 3);
  EXPECT_EQ(layout.routes[1].fromPosition + layout.routes[2].fromPosition, 15 + 7);
  EXPECT_TRUE(layout.routes[3].fromPosition == 1 || layout.routes[3].fromPosition == 5);
  EXPECT_NE(layout.routes[0].fromPosition, layout.routes[3].toPosition);
}

}  // namespace
}  // namespace Zor
