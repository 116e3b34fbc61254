#include "host/diagrams/FlowShapes.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/items/FlowPositions.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Host {

namespace {

using TPositions = std::array<std::uint16_t, 3>;  // 0: none

/// What an outline leaves to its text and to its links.
struct TFlowShape {
  double lostWidth, lostHeight;  ///< shares of the box that lie outside the outline
  TPositions top, right, bottom, left;
};

constexpr TPositions Top{2, 3, 4}, Right{6, 7, 8}, Bottom{12, 11, 10}, Left{16, 15, 14};
constexpr TPositions RightMiddle{7}, BottomMiddle{11}, LeftMiddle{15};

constexpr std::array<TFlowShape, EnumCount<TZORFlowType>> Shapes{{
    {0.12, 0, Top, RightMiddle, Bottom, LeftMiddle},                           // ftTerminator
    {0, 0, Top, Right, Bottom, Left},                                          // ftProcess
    {0, 0.20, Top, Right, BottomMiddle, Left},                                 // ftDocument
    {0.14, 0.32, TPositions{3, 4}, Right, BottomMiddle, Left},                 // ftMultiDocument
    {0.42, 0.58, {1, 3, 5}, {5, 7, 9}, {13, 11, 9}, {1, 15, 13}},              // ftDecision
    {0.25, 0, TPositions{2, 3}, RightMiddle, TPositions{11, 10}, LeftMiddle},  // ftData
    {0, 0.12, Top, Right, Bottom, Left},                                       // ftDatabase
    {0.14, 0, Top, Right, Bottom, Left},                                       // ftPredefined
    {0, 0.25, Top, Right, Bottom, Left},                                       // ftManualInput
    {0.25, 0, Top, RightMiddle, Bottom, LeftMiddle},                           // ftManualOperation
    {0.30, 0, Top, RightMiddle, Bottom, LeftMiddle},                           // ftPreparation
    {0.27, 0.32, {2, 3, 4}, {4, 7, 10}, {12, 11, 10}, {2, 15, 12}},            // ftEllipse
    {0.25, 0, Top, RightMiddle, Bottom, LeftMiddle},                           // ftStart
    {0.25, 0, TPositions{3, 4}, RightMiddle, TPositions{11, 10}, LeftMiddle},  // ftStep
    {0.25, 0, TPositions{3, 4}, RightMiddle, TPositions{11, 10}, LeftMiddle},  // ftEnd
}};

// Millimetres.
constexpr double MarginX = 3, MarginY = 2.5;
constexpr TLayoutSize Least{18, 9}, LeastEmpty{12, 7};

Int64 Base(double aMM) { return RoundLength(aMM * BaseInMM); }

std::vector<TLayoutPort> PortsAt(TZORFlowType aShape, const TLayoutSize& aBox, const TPositions& aPositions) {
  const TZORRect bounds{0, 0, Base(aBox.width), Base(aBox.height)};
  std::vector<TLayoutPort> ports;
  for (const std::uint16_t position : aPositions) {
    TZORBase at;
    if (position == 0 || !FlowPosition(aShape, bounds, position, at)) continue;
    ports.push_back({position, {static_cast<double>(at.X) / BaseInMM, static_cast<double>(at.Y) / BaseInMM}});
  }
  return ports;
}

}  // namespace

TLayoutSize FlowSize(TZORFlowType aShape, const TLayoutSize& aText) {
  if (aText.width <= 0) return LeastEmpty;
  const TFlowShape& shape = Shapes[aShape];
  const auto length = [](double aInner, double aMargin, double aLost, double aLeast) {
    return std::ceil(std::max(aLeast, (aInner + 2 * aMargin) / (1 - aLost)));
  };
  TLayoutSize box{length(aText.width, MarginX, shape.lostWidth, Least.width),
                  length(aText.height, MarginY, shape.lostHeight, Least.height)};
  // The flat edges of a terminator hold all its ends.
  if (aShape == ftTerminator) box.width = std::max(box.width, 2 * box.height);
  return box;
}

TLayoutSize FlowTextArea(TZORFlowType aShape, const TLayoutSize& aBox) {
  const TFlowShape& shape = Shapes[aShape];
  // The margins are there to be used when a text is measured a hair wider than it was.
  return {aBox.width * (1 - shape.lostWidth) - MarginX, aBox.height * (1 - shape.lostHeight) - MarginY};
}

std::array<std::vector<TLayoutPort>, 4> FlowPorts(TZORFlowType aShape, const TLayoutSize& aBox) {
  const TFlowShape& shape = Shapes[aShape];
  return {PortsAt(aShape, aBox, shape.top), PortsAt(aShape, aBox, shape.right),
          PortsAt(aShape, aBox, shape.bottom), PortsAt(aShape, aBox, shape.left)};
}

}  // namespace Zor::inline Host
