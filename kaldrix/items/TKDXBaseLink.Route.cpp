// The routes of links.
#include "kaldrix/items/TKDXBaseLink.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/items/CircleGeometry.hpp"
#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Line {

namespace {

// Inner points by routing -----------------------------------------------------------

constexpr int AnyNumber = -1;
constexpr int RoundPoints = 14;

/// Of a new link, by ordinal of TZOLinkType.
constexpr std::array<int, EnumCount<TZOLinkType>> StartPoints{
    0,            // ltDirLine
    1,            // ltLeftRightTopBottom
    1,            // ltTopBottomLeftRight
    1,            // ltStepLineTwoPto
    1,            // ltArc
    0,            // ltCurve
    AnyNumber,    // ltPolyline
    RoundPoints,  // ltRoundCorner
};

// Steps -----------------------------------------------------------------------------

/// The sides of a node that a link position lies on. Corners lie on two.
enum TSides : std::uint8_t { sdNone = 0, sdFree = 1, sdTop = 2, sdRight = 4, sdBottom = 8, sdLeft = 16 };

/// Items without sides have position 0, or numbers above 50.
constexpr int LastNodePosition = 50;

std::uint8_t SidesOf(int aPosition) {
  if (aPosition == 0 || aPosition > LastNodePosition) return sdFree;
  const auto within = [aPosition](int aFirst, int aLast, TSides aSide) {
    return aPosition >= aFirst && aPosition <= aLast ? aSide : sdNone;
  };
  return static_cast<std::uint8_t>(within(1, 5, sdTop) | within(5, 9, sdRight) | within(9, 13, sdBottom) |
                                   within(13, 16, sdLeft) | within(1, 1, sdLeft));
}

/// The runs of a step between (x1, y1) and (x2, y2).
enum TStepRun : std::uint8_t {
  srDiagonal,   ///< over the middle x, where the ends differ on both axes
  srAcross,     ///< over the middle x, where the ends differ in height
  srAbove,      ///< a gap above the higher end
  srBelow,      ///< a gap below the lower end
  srUnderFrom,  ///< one corner, at (x1, y2)
  srUnderTo,    ///< one corner, at (x2, y1)
  srMiddleTo,   ///< over the middle y, truncated towards the end
  srMiddleFrom  ///< over the middle y, truncated towards the start
};

struct TStepRow {
  TSides from, to;
  TStepRun run;
};

/// The first row that fits both positions holds; without one the route stays as it is.
constexpr std::array<TStepRow, 9> StepRows{{
    {sdFree, sdFree, srDiagonal},
    {sdTop, sdTop, srAbove},
    {sdRight, sdLeft, srAcross},
    {sdBottom, sdBottom, srBelow},
    {sdTop, sdLeft, srUnderFrom},
    {sdTop, sdBottom, srMiddleTo},
    {sdRight, sdTop, srUnderTo},
    {sdBottom, sdTop, srMiddleFrom},
    {sdTop, sdRight, srUnderFrom},
}};

Int64 MiddleFrom(Int64 a, Int64 b) { return AddHeld(a, Span(a, b) / 2); }

TZORPtoA StepPoints(TStepRun aRun, const TZORBase& p1, const TZORBase& p2, Int64 aGap) {
  const auto across = [&] {
    const Int64 x = MiddleFrom(std::min(p1.X, p2.X), std::max(p1.X, p2.X));
    return TZORPtoA{{x, p1.Y}, {x, p2.Y}};
  };
  const auto along = [&](Int64 y) { return TZORPtoA{{p1.X, y}, {p2.X, y}}; };
  switch (aRun) {
    case srDiagonal:
      return p1.X != p2.X && p1.Y != p2.Y ? across() : TZORPtoA{};
    case srAcross:
      return p1.Y != p2.Y ? across() : TZORPtoA{};
    case srAbove:
      return along(SubHeld(std::min(p1.Y, p2.Y), aGap));
    case srBelow:
      return along(AddHeld(std::max(p1.Y, p2.Y), aGap));
    case srUnderFrom:
      return {{p1.X, p2.Y}};
    case srUnderTo:
      return {{p2.X, p1.Y}};
    case srMiddleTo:
      return along(MiddleFrom(p2.Y, p1.Y));
    case srMiddleFrom:
      return along(MiddleFrom(p1.Y, p2.Y));
  }
  return {};
}

// Round corners ---------------------------------------------------------------------

/// Where a coordinate of a control point is measured from, and which way it is counted there.
enum TBase : std::uint8_t { frStart, frMiddle, frEnd };
/// On one axis: `count` parts of the length between the ends, which is `1 / part` of it.
struct TRoundStep {
  TBase from;
  int count;  ///< positive: from the start towards the end
  int part;
};
struct TRoundRow {
  TRoundStep x, y;
};

constexpr TRoundStep AtStart{frStart, 0, 1}, AtMiddle{frMiddle, 0, 1}, AtEnd{frEnd, 0, 1};
constexpr std::array<TRoundRow, RoundPoints> RoundRows{{
    {{frStart, 1, 20}, AtStart},
    {{frStart, 2, 20}, AtStart},
    {{frStart, 3, 20}, AtStart},
    {{frMiddle, -1, 60}, {frStart, 1, 80}},
    {{frMiddle, -1, 80}, {frStart, 1, 60}},
    {AtMiddle, {frMiddle, -2, 20}},
    {AtMiddle, {frMiddle, -1, 20}},
    {AtMiddle, {frMiddle, 1, 20}},
    {AtMiddle, {frMiddle, 2, 20}},
    {{frMiddle, 1, 80}, {frEnd, -1, 60}},
    {{frMiddle, 1, 60}, {frEnd, -1, 80}},
    {{frEnd, -3, 20}, AtEnd},
    {{frEnd, -2, 20}, AtEnd},
    {{frEnd, -1, 20}, AtEnd},
}};

/// One axis between two coordinates.
struct TRoundAxis {
  TRoundAxis(Int64 a, Int64 b)
      : start(a),
        middle(RoundRatio(Int128{a} + b, 2)),
        end(b),
        length(std::abs(Span(a, b))),
        sign(b < a ? -1 : 1) {}

  Int64 At(const TRoundStep& aStep) const {
    const Int64 base = aStep.from == frStart ? start : aStep.from == frMiddle ? middle : end;
    return AddHeld(base, length / aStep.part * aStep.count * sign);
  }

  Int64 start, middle, end, length;
  int sign;
};

// Arcs ------------------------------------------------------------------------------

/// A circle of more base points in centre or radius is none: the arc is a straight line.
constexpr Int64 MostCircle = MaxCoordinate / 4;
/// How far, in base points, a stored arc may run beside the points that it was made of: its circle is whole,
/// and files round positions to thousandths of their unit.
double ArcFault(TZORUnits aUnits, double aRadius) {
  constexpr double calculation = 1e-12;
  return 2 + 2 * UnitFacts(aUnits).millimetres + calculation * aRadius;
}

bool IsSane(const TBaseCircle& c) {
  const auto within = [](Int64 v) { return v >= -MostCircle && v <= MostCircle; };
  return within(c.x) && within(c.y) && c.r > 0 && c.r <= MostCircle;
}

struct TLinkArc {
  TBaseCircle circle;
  double start = 0, end = 0, sweep = 0;
  bool clockWise = false;
};

/// The arc over three points; without a radius when they have none.
TLinkArc ArcOver(const TZORBase& p1, const TZORPto& aBetween, const TZORBase& p2) {
  TLinkArc arc;
  TBaseCircle& circle = arc.circle;
  const bool made = TDraw2D::ArcThreePoints(p1.X, p1.Y, aBetween.bX, aBetween.bY, p2.X, p2.Y, circle.x,
                                            circle.y, circle.r, arc.start, arc.end, arc.sweep, arc.clockWise);
  return made && IsSane(circle) ? arc : TLinkArc{};
}

}  // namespace

void TKDXBaseLink::SizeLinkPoints() {
  const int count = StartPoints[fLinkType];
  if (count != AnyNumber) fLinkPoints.resize(static_cast<std::size_t>(count));
}

void TKDXBaseLink::SetLinkType(TZOLinkType aType) {
  if (fLinkType == aType) return;
  const TEdit edit(*this);
  fLinkType = aType;
  SizeLinkPoints();
  Reroute();
}

void TKDXBaseLink::Reroute() {
  fRouted = fJustRead = fDrawn = false;
  fKept.reset();
  StateCalc();
}

void TKDXBaseLink::CalcLinkPoints(bool aUpdate) {
  if (!LookUpEnds()) {
    if (aUpdate) UpdateBounds();
    return;
  }
  switch (fLinkType) {
    case ltDirLine:
    case ltCurve:
    case ltPolyline:
      break;
    case ltLeftRightTopBottom:
      fLinkPoints = p1.Y == p2.Y ? TZORPtoA{} : TZORPtoA{{p2.X, p1.Y}};
      break;
    case ltTopBottomLeftRight:
      fLinkPoints = p1.Y == p2.Y ? TZORPtoA{} : TZORPtoA{{p1.X, p2.Y}};
      break;
    case ltStepLineTwoPto:
      CalcStep();
      break;
    case ltArc:
      if (!fLinkPoints.empty()) {
        fLinkPoints.front() = {RoundRatio(Int128{p1.X} + p2.X, 2),
                               SubHeld(std::max(p1.Y, p2.Y), fOwner->fSettings->BaseLinkGap())};
      }
      break;
    case ltRoundCorner:
      CalcRound();
      break;
  }
  fDrawn = false;
  NoteRoute();
  if (aUpdate) UpdateBounds();
}

void TKDXBaseLink::NoteRoute() {
  fJustRead = false;
  fRouted = true;
  fRoutedFrom = p1;
  fRoutedTo = p2;
}

void TKDXBaseLink::CalcStep() {
  const std::uint8_t from = SidesOf(fFromIndex), to = SidesOf(fToIndex);
  for (const TStepRow& row : StepRows) {
    if ((from & row.from) == 0 || (to & row.to) == 0) continue;
    fLinkPoints = StepPoints(row.run, p1, p2, fOwner->fSettings->BaseLinkGap());
    return;
  }
  // No row: the route stays, but the point that a new link starts with is none.
  if (fLinkPoints == TZORPtoA(1)) fLinkPoints.clear();
}

void TKDXBaseLink::CalcRound() {
  const TRoundAxis x(p1.X, p2.X), y(p1.Y, p2.Y);
  fLinkPoints.clear();
  for (const TRoundRow& row : RoundRows) fLinkPoints.push_back({x.At(row.x), y.At(row.y)});
}

void TKDXBaseLink::CalcArc() {
  const TLinkArc arc = fLinkPoints.empty() ? TLinkArc{} : ArcOver(p1, fLinkPoints.front(), p2);
  fCx = arc.circle.x;
  fCy = arc.circle.y;
  fRadio = arc.circle.r;
  fStart = arc.start;
  fEnd = arc.end;
  fSweep = arc.sweep;
  fClockWise = arc.clockWise;
}

bool TKDXBaseLink::IsStoredArc() const {
  if (fLinkType != ltArc || fLinkPoints.empty()) return false;
  const TZORPto between = fLinkPoints.front();
  const TBaseCircle circle{fCx, fCy, fRadio};
  // A user may have drawn it straight; but a file without a route is no such case.
  if (fRadio == 0) return between != TZORPto{} && ArcOver(p1, between, p2).circle.r == 0;
  const double radius = static_cast<double>(fRadio), fault = ArcFault(fOwner->fUnits, radius);
  const auto passes = [&](Int64 x, Int64 y) { return std::fabs(circle.DistanceTo(x, y) - radius) <= fault; };
  return fRadio > 0 && passes(p1.X, p1.Y) && passes(p2.X, p2.Y) && passes(between.bX, between.bY);
}

void TKDXBaseLink::CalcValues(int aType) { aType == 2 ? FollowEnds() : UpdateBounds(); }

void TKDXBaseLink::FollowEnds() {
  if (!LookUpEnds()) return UpdateBounds();
  const bool stands = fRouted && p1 == fRoutedFrom && p2 == fRoutedTo;
  if (fJustRead && IsStoredArc()) {
    fDrawn = true;
  } else if (!stands && fKept != nullptr && p1 == fKept->from && p2 == fKept->to) {
    fLinkPoints = fKept->points;
    fDrawn = true;
  } else if (!stands) {
    if (fRouted && fDrawn && fLinkType != ltPolyline) {
      fKept = std::make_unique<TKeptRoute>(TKeptRoute{fRoutedFrom, fRoutedTo, fLinkPoints});
    }
    return CalcLinkPoints(true);
  }
  NoteRoute();
  UpdateBounds();
}

TZORPtoA TKDXBaseLink::Route() const {
  TZORPtoA route;
  route.reserve(fLinkPoints.size() + 2);
  route.push_back({p1.X, p1.Y});
  route.insert(route.end(), fLinkPoints.begin(), fLinkPoints.end());
  route.push_back({p2.X, p2.Y});
  return route;
}

TLinkForm TKDXBaseLink::Form() const {
  switch (fLinkType) {
    case ltDirLine:
      return lfLine;
    case ltArc:
      return fRadio > 0 ? lfArc : lfLine;
    case ltCurve:
      pa = p1;
      pb = p2;
      TDraw2D::CurvePoints(p1, p2, static_cast<std::uint16_t>(fFromIndex),
                           static_cast<std::uint16_t>(fToIndex), pa, pb);
      return lfCurve;
    case ltRoundCorner:
      return GetNumLinkPoints() == RoundPoints ? lfRound : lfNone;
    default:
      return fLinkPoints.empty() ? lfLine : lfChain;
  }
}

}  // namespace Zor::inline Line
