#include "kaldrix/items/FlowPositions.hpp"

#include <array>
#include <numbers>

namespace Zor::inline F2d {

namespace {

/// A place on one axis of the bounds: `times` times a `part`th of the extent away from its low or high end.
struct TAlong {
  bool fromHigh;
  std::int8_t times;
  std::int8_t part;
};

constexpr TAlong Low(int aTimes = 0, int aPart = 1) {
  return {false, static_cast<std::int8_t>(aTimes), static_cast<std::int8_t>(aPart)};
}
constexpr TAlong High(int aTimes = 0, int aPart = 1) {
  return {true, static_cast<std::int8_t>(aTimes), static_cast<std::int8_t>(aPart)};
}

struct TPosition {
  std::uint8_t pos;
  TAlong x, y;
};

constexpr TAlong Middle = Low(1, 2);
constexpr TPosition TopMiddle{3, Middle, Low()}, RightMiddle{7, High(), Middle},
    BottomMiddle{11, Middle, High()}, LeftMiddle{15, Low(), Middle};

constexpr std::array BoxPositions{
    TPosition{1, Low(), Low()},
    TPosition{2, Low(1, 4), Low()},
    TopMiddle,
    TPosition{4, High(1, 4), Low()},
    TPosition{5, High(), Low()},
    TPosition{6, High(), Low(1, 4)},
    RightMiddle,
    TPosition{8, High(), High(1, 4)},
    TPosition{9, High(), High()},
    TPosition{10, High(1, 4), High()},
    BottomMiddle,
    TPosition{12, Low(1, 4), High()},
    TPosition{13, Low(), High()},
    TPosition{14, Low(), High(1, 4)},
    LeftMiddle,
    TPosition{16, Low(), Low(1, 4)},
};
constexpr std::array DecisionPositions{
    TPosition{1, Low(1, 4), Low(1, 4)},   TopMiddle,    TPosition{5, High(1, 4), Low(1, 4)},  RightMiddle,
    TPosition{9, High(1, 4), High(1, 4)}, BottomMiddle, TPosition{13, Low(1, 4), High(1, 4)}, LeftMiddle,
};
constexpr std::array DataPositions{
    TPosition{2, Low(1, 8), Low()},    TPosition{3, Low(9, 16), Low()},   TPosition{5, High(), Low()},
    TPosition{7, High(1, 16), Middle}, TPosition{10, High(1, 8), High()}, TPosition{11, Low(7, 16), High()},
    TPosition{13, Low(), High()},      TPosition{15, Low(1, 16), Middle},
};
/// Those between them lie on the curve.
constexpr std::array EllipsePositions{TopMiddle, RightMiddle, BottomMiddle, LeftMiddle};
constexpr std::array StartPositions{
    TPosition{2, Low(1, 8), Low()},    TopMiddle,    TPosition{4, High(1, 8), Low()},  RightMiddle,
    TPosition{10, High(1, 8), High()}, BottomMiddle, TPosition{12, Low(1, 8), High()}, LeftMiddle,
};
constexpr std::array StepPositions{
    TPosition{1, Low(), Low()},        TopMiddle,
    TPosition{4, High(1, 8), Low()},   RightMiddle,
    TPosition{10, High(1, 8), High()}, BottomMiddle,
    TPosition{13, Low(), High()},      TPosition{15, Low(1, 8), Middle},
};

/// A position in the middle of a quarter of an ellipse, with the sides of the centre that it lies on.
struct TOnCurve {
  std::uint8_t pos;
  int x, y;
};
constexpr std::array OnCurve{TOnCurve{2, -1, -1}, TOnCurve{4, 1, -1}, TOnCurve{10, 1, 1},
                             TOnCurve{12, -1, 1}};

constexpr std::array<std::uint8_t, 16> AllOffers{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
constexpr std::array<std::uint8_t, 14> DocumentOffers{1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 13, 14, 15, 16};
constexpr std::array<std::uint8_t, 9> DatabaseOffers{2, 3, 6, 7, 8, 11, 14, 15, 16};
constexpr std::array<std::uint8_t, 8> TerminatorOffers{2, 3, 4, 7, 10, 11, 12, 15};
constexpr std::array<std::uint8_t, 8> DecisionOffers{1, 5, 13, 9, 3, 7, 11, 15};
constexpr std::array<std::uint8_t, 8> DataOffers{2, 3, 5, 15, 7, 13, 11, 10};
constexpr std::array<std::uint8_t, 8> EllipseOffers{3, 7, 11, 15, 2, 4, 10, 12};
constexpr std::array<std::uint8_t, 3> StartOffers{3, 7, 15};
constexpr std::array<std::uint8_t, 8> StepOffers{1, 3, 4, 7, 10, 11, 13, 15};

struct TShapeLinks {
  std::span<const TPosition> positions;
  std::span<const std::uint8_t> offers;
};

// By ordinal of TZORFlowType.
constexpr std::array<TShapeLinks, EnumCount<TZORFlowType>> Links{{
    {BoxPositions, TerminatorOffers},
    {BoxPositions, AllOffers},
    {BoxPositions, DocumentOffers},
    {BoxPositions, DocumentOffers},
    {DecisionPositions, DecisionOffers},
    {DataPositions, DataOffers},
    {BoxPositions, DatabaseOffers},
    {BoxPositions, AllOffers},
    {BoxPositions, AllOffers},
    {BoxPositions, AllOffers},
    {BoxPositions, TerminatorOffers},
    {EllipsePositions, EllipseOffers},
    {StartPositions, StartOffers},
    {StepPositions, StepOffers},
    {StepPositions, StepOffers},
}};

Int64 Place(const TAlong& aAlong, Int64 aLow, Int64 aHigh) {
  const Int64 way = MulHeld(SubHeld(aHigh, aLow) / aAlong.part, aAlong.times);
  return aAlong.fromHigh ? SubHeld(aHigh, way) : AddHeld(aLow, way);
}

Int64 PlaceOnCurve(Int64 aLow, Int64 aHigh, int aSide) {
  const Int64 half = SubHeld(aHigh, aLow) / 2;
  constexpr double Diagonal = 1 / std::numbers::sqrt2;  // sine and cosine of 45 degrees
  return AddHeld(AddHeld(aLow, half), Round(static_cast<double>(half) * aSide * Diagonal));
}

}  // namespace

bool FlowPosition(TZORFlowType aType, const TZORRect& aBounds, std::uint16_t aPos, TZORBase& aPoint) {
  for (const TPosition& position : Links[aType].positions) {
    if (position.pos != aPos) continue;
    aPoint = {Place(position.x, aBounds.Left, aBounds.Right), Place(position.y, aBounds.Top, aBounds.Bottom)};
    return true;
  }
  if (aType != ftEllipse) return false;
  for (const TOnCurve& position : OnCurve) {
    if (position.pos != aPos) continue;
    aPoint = {PlaceOnCurve(aBounds.Left, aBounds.Right, position.x),
              PlaceOnCurve(aBounds.Top, aBounds.Bottom, position.y)};
    return true;
  }
  return false;
}

std::span<const std::uint8_t> FlowOffers(TZORFlowType aType) { return Links[aType].offers; }

}  // namespace Zor::inline F2d
