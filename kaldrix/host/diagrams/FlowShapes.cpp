#include "kaldrix/host/diagrams/FlowShapes.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/items/FlowPositions.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Host {

namespace {

/// A place for the ends of links, and its prices; position 0: none.
struct TOffer {
  std::uint8_t position = 0;
  double leaving = 0, entering = 0, sharing = TLayoutPort{}.sharing;
};
using TOffers = std::array<TOffer, 5>;

/// Taken where lines would share another place.
constexpr TOffer Spare(std::uint8_t aPosition) { return {aPosition, 0.6, 0.6}; }
/// Taken where lines of different looks would share another place.
constexpr TOffer Corner(std::uint8_t aPosition) { return {aPosition, 5, 5}; }

/// What an outline leaves to its text and to its links.
struct TFlowShape {
  double lostWidth, lostHeight;  ///< shares of the box that lie outside the outline
  TOffers top, right, bottom, left;
};

constexpr TOffers Top{{{2}, {3}, {4}}}, Right{{{6}, {7}, {8}}}, Bottom{{{12}, {11}, {10}}},
    Left{{{16}, {15}, {14}}};
// Of a box: its corners too.
constexpr TOffers BoxTop{{Corner(1), {2}, {3}, {4}, Corner(5)}},
    BoxRight{{Corner(5), {6}, {7}, {8}, Corner(9)}}, BoxBottom{{Corner(13), {12}, {11}, {10}, Corner(9)}},
    BoxLeft{{Corner(1), {16}, {15}, {14}, Corner(13)}};
// A decision is entered at the tip before it, where lines gladly meet, and left at the one behind it or at
// the two beside it. The other places are those in the middle of its edges.
constexpr TOffer Before(std::uint8_t aPosition) { return {aPosition, 0.5, 0, 0.1}; }
constexpr TOffer Behind(std::uint8_t aPosition) { return {aPosition, 0.05, 0.05}; }
constexpr TOffer Beside(std::uint8_t aPosition) { return {aPosition, 0, 0.9}; }
constexpr TOffer OnEdge(std::uint8_t aPosition) { return {aPosition, 0.6, 0.4}; }
constexpr TOffers DecisionTop{{Beside(15), OnEdge(1), Before(3), OnEdge(5), Beside(7)}},
    DecisionBottom{{Beside(15), OnEdge(13), Behind(11), OnEdge(9), Beside(7)}},
    DecisionLeft{{Beside(3), OnEdge(1), Before(15), OnEdge(13), Beside(11)}},
    DecisionRight{{Beside(3), OnEdge(5), Behind(7), OnEdge(9), Beside(11)}};
// The corners of these lie inside the box; to the sides all rounded and pointed shapes are like Start.
constexpr TOffers StartTop{{Spare(2), {3}, Spare(4)}}, StartRight{{Corner(4), {7}, Corner(10)}},
    StartBottom{{Spare(12), {11}, Spare(10)}}, StartLeft{{Corner(2), {15}, Corner(12)}};
constexpr TOffers StepTop{{Corner(1), {3}, Spare(4)}}, StepBottom{{Corner(13), {11}, Spare(10)}},
    StepLeft{{Corner(1), {15}, Corner(13)}};
constexpr TOffers DataTop{{Spare(2), {3}, Corner(5)}}, DataRight{{Corner(5), {7}, Corner(10)}},
    DataBottom{{Corner(13), {11}, Spare(10)}}, DataLeft{{Corner(2), {15}, Corner(13)}};
constexpr TOffers FunnelRight{{Corner(5), {7}, Corner(10)}}, FunnelLeft{{Corner(1), {15}, Corner(12)}};

constexpr std::array<TFlowShape, EnumCount<TZORFlowType>> Shapes{{
    {0.12, 0, Top, StartRight, Bottom, StartLeft},                           // ftTerminator
    {0, 0, BoxTop, BoxRight, BoxBottom, BoxLeft},                            // ftProcess
    {0, 0.20, BoxTop, Right, {{Corner(13), {11}, Corner(9)}}, Left},         // ftDocument
    {0.14, 0.32, {{{3}, {4}}}, Right, {{Corner(13), {11}}}, Left},           // ftMultiDocument
    {0.42, 0.58, DecisionTop, DecisionRight, DecisionBottom, DecisionLeft},  // ftDecision
    {0.25, 0, DataTop, DataRight, DataBottom, DataLeft},                     // ftData
    {0, 0.12, Top, Right, Bottom, Left},                                     // ftDatabase
    {0.14, 0, BoxTop, BoxRight, BoxBottom, BoxLeft},                         // ftPredefined
    {0, 0.25, Top, Right, BoxBottom, Left},                                  // ftManualInput
    {0.25, 0, BoxTop, FunnelRight, Bottom, FunnelLeft},                      // ftManualOperation
    {0.30, 0, Top, StartRight, Bottom, StartLeft},                           // ftPreparation
    {0.27,
     0.32,
     {{{2}, {3}, {4}}},
     {{{4}, {7}, {10}}},
     {{{12}, {11}, {10}}},
     {{{2}, {15}, {12}}}},                                    // ftEllipse
    {0.25, 0, StartTop, StartRight, StartBottom, StartLeft},  // ftStart
    {0.25, 0, StepTop, StartRight, StepBottom, StepLeft},     // ftStep
    {0.25, 0, StepTop, StartRight, StepBottom, StepLeft},     // ftEnd
}};

// Millimetres.
constexpr double MarginX = 3, MarginY = 2.5;
constexpr TLayoutSize Least{18, 9}, LeastEmpty{12, 7};

Int64 Base(double aMM) { return RoundLength(aMM * BaseInMM); }

std::vector<TLayoutPort> PortsAt(TZORFlowType aShape, const TLayoutSize& aBox, const TOffers& aOffers) {
  const TZORRect bounds{0, 0, Base(aBox.width), Base(aBox.height)};
  std::vector<TLayoutPort> ports;
  for (const TOffer& offer : aOffers) {
    TZORBase at;
    if (offer.position == 0 || !FlowPosition(aShape, bounds, offer.position, at)) continue;
    ports.push_back({offer.position,
                     {static_cast<double>(at.X) / BaseInMM, static_cast<double>(at.Y) / BaseInMM},
                     offer.leaving,
                     offer.entering,
                     offer.sharing});
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
