#include "kaldrix/items/TKDXBaseArc.hpp"

#include <cmath>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/AngleFields.hpp"
#include "kaldrix/items/TFitExtent.hpp"
#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Line {

namespace {

constexpr double Quarter = TDraw2D::Pi / 2;
/// A turned angle this near to a full turn (radians) is 0.
constexpr double TurnFault = 1e-9;
/// A circle of more base points in centre or radius is none: its square has to fit the coordinate range.
constexpr Int64 MostCircle = MaxCoordinate / 4;
/// Picking: the least tolerance (base points), and the tolerance at the ends of an arc without a radius
/// (radians).
constexpr int LeastGap = 2;
constexpr double EndTolerance = 0.03;

bool Fits(const TBaseCircle& c) {
  const auto within = [](Int64 v) { return v >= -MostCircle && v <= MostCircle; };
  return within(c.x) && within(c.y) && c.r > 0 && c.r <= MostCircle;
}

}  // namespace

TKDXBaseArc::TKDXBaseArc(TKDXBaseLabel& aOwner, Int64 cx, Int64 cy, Int64 r, Single angStart, Single angEnd,
                         bool aPreview)
    : TKDXBaseArc(aOwner, aPreview) {
  fStartAngle = TDraw2D::NormalizeAngle(angStart);
  fEndAngle = TDraw2D::NormalizeAngle(angEnd);
  fClockWise = true;
  fSweepAngle = TDraw2D::ArcSweep(fStartAngle, fEndAngle, fClockWise);
  Surround({cx, cy, r});
  TKDXBaseArc::UpdateBounds();
}

TKDXBaseArc::TKDXBaseArc(TKDXBaseLabel& aOwner, Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3,
                         bool aPreview)
    : TKDXBaseArc(aOwner, aPreview) {
  fArcPoints = {{{x1, y1}, {x2, y2}, {x3, y3}, {}}};
  CalcFromPoints();
}

// Points of the arc -----------------------------------------------------------------

TZORPto TKDXBaseArc::ArcPoint(int aIndex) const {
  return aIndex >= 1 && aIndex <= 4 ? fArcPoints[static_cast<std::size_t>(aIndex - 1)] : TZORPto{};
}
TZORPto TKDXBaseArc::GetPto(int aIndex) const { return HasArcPoint(aIndex) ? ArcPoint(aIndex) : TZORPto{}; }
Single TKDXBaseArc::GetPX(int aIndex) const { return ArcPoint(aIndex).GetX(fOwner->fUnits); }
Single TKDXBaseArc::GetPY(int aIndex) const { return ArcPoint(aIndex).GetY(fOwner->fUnits); }
Single TKDXBaseArc::GetPtoMMX(int aIndex) const { return FromBase(ArcPoint(aIndex).bX); }
Single TKDXBaseArc::GetPtoMMY(int aIndex) const { return FromBase(ArcPoint(aIndex).bY); }

void TKDXBaseArc::SetPX(int aIndex, Single aValue) {
  if (!HasArcPoint(aIndex)) return;
  const Int64 place = HeldPlace(aValue, fOwner->fUnits);
  const TEdit edit(*this);
  fArcPoints[static_cast<std::size_t>(aIndex - 1)].bX = place;
  CalcFromPoints();
}

void TKDXBaseArc::SetPY(int aIndex, Single aValue) {
  if (!HasArcPoint(aIndex)) return;
  const Int64 place = HeldPlace(aValue, fOwner->fUnits);
  const TEdit edit(*this);
  fArcPoints[static_cast<std::size_t>(aIndex - 1)].bY = place;
  CalcFromPoints();
}

void TKDXBaseArc::MoveBasePoint(int aIndex, Int64 x, Int64 y) {
  if (!HasArcPoint(aIndex)) return;
  const TEdit edit(*this);
  fArcPoints[static_cast<std::size_t>(aIndex - 1)].SetBase(x, y);
  CalcFromPoints();
  UpdateBounds();
}

void TKDXBaseArc::CalcFromPoints() {
  const auto& [a, b, c, mark] = fArcPoints;
  TBaseCircle circle;
  double start = 0, end = 0, sweep = 0;
  bool clockWise = false;
  if (TDraw2D::ArcThreePoints(a.bX, a.bY, b.bX, b.bY, c.bX, c.bY, circle.x, circle.y, circle.r, start, end,
                              sweep, clockWise) &&
      Fits(circle)) {
    fBaseX = circle.x;
    fBaseY = circle.y;
    fBaseRadio = circle.r;
    fStartAngle = start;
    fEndAngle = end;
    fSweepAngle = sweep;
    fClockWise = clockWise;
    fCalcPoints = false;
  }
  Surround(Circle());
  fArcPoints[3] = MiddleMark();
  ArcBounds();
}

void TKDXBaseArc::Surround(const TBaseCircle& aCircle) {
  fPoints[0].SetBase(SubHeld(aCircle.x, aCircle.r), SubHeld(aCircle.y, aCircle.r));
  fPoints[1].SetBase(AddHeld(aCircle.x, aCircle.r), AddHeld(aCircle.y, aCircle.r));
}

void TKDXBaseArc::RefreshCircle() {
  fBaseX = BaseCenterX();
  fBaseY = BaseCenterY();
  fBaseRadio = BaseRadio();
}

/// Intended: the mean of the angles, also where the arc runs through 0 or counter-clockwise.
TZORPto TKDXBaseArc::MiddleMark() const { return Circle().At((fStartAngle + fEndAngle) / 2); }

void TKDXBaseArc::CalcPoints() {
  const double turn = fEndAngle > fStartAngle ? 0 : TDraw2D::TwoPi;
  const double middle = (fStartAngle + fEndAngle + turn) / 2 + (fClockWise ? 0 : TDraw2D::Pi);
  const TBaseCircle circle = Circle();
  fArcPoints = {circle.At(fStartAngle), circle.At(TDraw2D::NormalizeAngle(middle)), circle.At(fEndAngle),
                MiddleMark()};
  fCalcPoints = false;
}

void TKDXBaseArc::ArcBounds() {
  const auto& [start, between, end, mark] = fArcPoints;
  fBoundsRect = {std::min({start.bX, end.bX, mark.bX}), std::min({start.bY, end.bY, mark.bY}),
                 std::max({start.bX, end.bX, mark.bX}), std::max({start.bY, end.bY, mark.bY})};
}

void TKDXBaseArc::UpdateBounds() {
  const TBaseCircle former = Circle();
  RefreshCircle();
  // An undo gives back the square alone: the points of the arc follow it.
  if (fCalcPoints || former != Circle()) CalcPoints();
  ArcBounds();
}

bool TKDXBaseArc::Contains(double aAngle) const {
  return TDraw2D::ArcContainsAngle(TDraw2D::NormalizeAngle(fStartAngle), TDraw2D::NormalizeAngle(fEndAngle),
                                   aAngle, fClockWise);
}

bool TKDXBaseArc::Passes(double aAngle) const {
  return fClockWise ? TDraw2D::IsAngleWithinArc(aAngle, fStartAngle, fEndAngle)
                    : TDraw2D::IsAngleWithinArc(aAngle, fEndAngle, fStartAngle);
}

TZORPto TKDXBaseArc::GetRefPoint(int aIndex) const {
  return aIndex == 1 || aIndex == 2 ? GetPto(2 * aIndex - 1) : TZORPto{};
}

TZORBase TKDXBaseArc::CenterPoint() const { return {fArcPoints[3].bX, fArcPoints[3].bY}; }

// Picking, snapping and extent ------------------------------------------------------

bool TKDXBaseArc::Pick(Int64 ax, Int64 ay, int gap, bool /*aInt*/) const {
  // 1. Near the circle.
  const int reach = std::max(gap, LeastGap);
  const double radius = std::fabs(static_cast<double>(fBaseRadio));
  if (std::fabs(Circle().DistanceTo(ax, ay) - radius) > reach) return false;
  // 2. Where the arc runs, or a little beyond its ends.
  const double angle = Circle().Direction(ax, ay);
  if (Contains(angle)) return true;
  const double tolerance = radius < 1 ? EndTolerance : (reach + 1) / radius;
  return TDraw2D::AngleDiff(angle, TDraw2D::NormalizeAngle(fStartAngle)) <= tolerance ||
         TDraw2D::AngleDiff(angle, TDraw2D::NormalizeAngle(fEndAngle)) <= tolerance;
}

bool TKDXBaseArc::SearchRect(const TZORRect& aRect, bool aInt) const {
  if (!aInt) return TKDXBaseItem::SearchRect(aRect, aInt);
  return TDraw2D::ArcIntersectsRect(fBaseX, fBaseY, fBaseRadio, fClockWise ? fStartAngle : fEndAngle,
                                    fClockWise ? fEndAngle : fStartAngle, aRect);
}

bool TKDXBaseArc::CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const {
  switch (aSnap) {
    case snMiddle:
      return SnapTo(fArcPoints[3], ax, ay, gap, rtyRect, aRef);
    case snEnd:
      return SnapTo(fArcPoints[0], ax, ay, gap, rtyRect, aRef) ||
             SnapTo(fArcPoints[2], ax, ay, gap, rtyRect, aRef);
    case snTangent: {
      const TDirections all = TangentDirections(Circle(), ax, ay, gap, aRef);
      TDirections onArc;
      for (int i = 0; i < all.count; ++i) {
        const double angle = all.angles[static_cast<std::size_t>(i)];
        if (Contains(angle)) onArc.Add(angle);
      }
      return SnapToTangent(Circle(), onArc, ax, ay, aRef);
    }
    default:
      return false;
  }
}

void TKDXBaseArc::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  TFitExtent fit(aMinX, aMaxX, aMinY, aMaxY);
  fit.Add(fArcPoints[0], fFromType == ttNone ? 0 : fSizeFrom);
  fit.Add(fArcPoints[2], fToType == ttNone ? 0 : fSizeTo);
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double angle = quarter * Quarter;
    if (Contains(angle)) fit.Add(Circle().At(angle), 0);
  }
}

// Moving and turning ----------------------------------------------------------------

void TKDXBaseArc::BoundsMove(Single& ax, Single& ay) const {
  const Single width = fOwner->fMeasure->WidthUnits(), height = fOwner->fMeasure->HeightUnits();
  for (int i = 1; i <= 3; ++i) {
    CutMove(ax, GetPX(i), GetPX(i), width);
    CutMove(ay, GetPY(i), GetPY(i), height);
  }
}

void TKDXBaseArc::CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt /*aMoveOp*/) const {
  // 1. The points of the arc. Intended: against the size of the label without the drawing scale.
  const TKDXMeasure& measure = *fOwner->fMeasure;
  for (int i = 1; i <= 3; ++i) {
    const TZORPto point = GetPto(i);
    CutMove(ax, point.bX, point.bX, measure.GetSize(mtLabelWidth, false));
    CutMove(ay, point.bY, point.bY, measure.GetSize(mtLabelHeight, false));
  }
  // 2. The extremes of the circle that the arc passes: right, lower, left, upper.
  const TZORPto low = GetPoint(1), high = GetPoint(2);
  if (ax > 0 && Passes(0)) CutMove(ax, high.bX, high.bX, measure.GetSize(mtLabelWidth, true));
  if (ay > 0 && Passes(Quarter)) CutMove(ay, high.bY, high.bY, measure.GetSize(mtLabelHeight, true));
  if (ax < 0 && Passes(2 * Quarter)) CutMove(ax, low.bX, low.bX, 0);
  if (ay < 0 && Passes(3 * Quarter)) CutMove(ay, low.bY, low.bY, 0);
}

void TKDXBaseArc::BaseMove(Int64 ax, Int64 ay, Int64 grX, Int64 grY, TZORMoveOpt aMoveOp, bool aUpdate) {
  const TEdit edit(*this);
  const TZORPto former = GetPoint(1);
  TKDXBaseItem::BaseMove(ax, ay, grX, grY, aMoveOp, false);
  if (aMoveOp == moAll) {
    // A grid may have changed the way.
    ax = SubHeld(GetPoint(1).bX, former.bX);
    ay = SubHeld(GetPoint(1).bY, former.bY);
  }
  for (TZORPto& point : fArcPoints) point.BaseMove(ax, ay);
  RefreshCircle();
  if (!aUpdate) return;
  fCalcPoints = false;
  UpdateBounds();
  fCalcPoints = true;
}

void TKDXBaseArc::Move(Single ax, Single ay, TZORMoveOpt aMoveOp) {
  fCalcPoints = true;
  TKDXBaseItem::Move(ax, ay, aMoveOp);
}

void TKDXBaseArc::Turn(int aQuarters) {
  for (double* angle : {&fStartAngle, &fEndAngle}) {
    *angle = TDraw2D::NormalizeAngle(*angle + aQuarters * Quarter);
    if (*angle > TDraw2D::TwoPi - TurnFault) *angle = 0;
  }
  fCalcPoints = true;
}

void TKDXBaseArc::RotateLeft() {
  const TEdit edit(*this);
  Turn(-1);
  TKDXBaseItem::RotateLeft();
}

void TKDXBaseArc::RotateRight() {
  const TEdit edit(*this);
  Turn(1);
  TKDXBaseItem::RotateRight();
}

// Persistence -----------------------------------------------------------------------

void TKDXBaseArc::Record(TRecord& r) {
  TKDXBaseItem::Record(r);
  RecordTerms(r);
  RecordAngle(r, fStartAngle, "StartAngle");
  RecordAngle(r, fEndAngle, "EndAngle");
  RecordAngle(r, fSweepAngle, "SweepAngle");
  r.Boolean(fClockWise);
  RecordLineType(r);
}

void TKDXBaseArc::AfterRead(TZORReadType aReadType) {
  TTermItem::AfterRead(aReadType);
  fCalcPoints = true;
}

std::unique_ptr<TJsonObject> TKDXBaseArc::WriteJson() const {
  auto json = TKDXBaseItem::WriteJson();
  WriteTerms(*json);
  PutLength(*json, "StartAngle", fStartAngle);
  PutLength(*json, "EndAngle", fEndAngle);
  PutLength(*json, "SweepAngle", fSweepAngle);
  json->PutBool("ClockWise", fClockWise);
  WriteLineType(*json);
  return json;
}

void TKDXBaseArc::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDXBaseItem::ReadJson(aVersion, aJson);
  ReadTerms(aJson);
  fStartAngle = GetAngleField(aJson, "StartAngle");
  fEndAngle = GetAngleField(aJson, "EndAngle");
  fSweepAngle = GetAngleField(aJson, "SweepAngle");
  fClockWise = aJson.GetBool("ClockWise");
  ReadLineType(aJson);
  fCalcPoints = true;
  UpdateBounds();
}

// SVG -------------------------------------------------------------------------------

void TKDXBaseArc::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                           bool attrID) const {
  const auto x = [this](double aAngle) { return XFromBaseAngle(fBaseX, fBaseRadio, aAngle); };
  const auto y = [this](double aAngle) { return YFromBaseAngle(fBaseY, fBaseRadio, aAngle); };
  const double radius = GetMM(fBaseRadio);
  TSvgElement arc(aExportType, aFactor);
  arc.Raw("<path").Raw(GetSVGID(attrID)).Raw(" d=\"M ").Pair(x(fStartAngle), y(fStartAngle));
  arc.Raw(" A ").Pair(radius, radius).Raw(" 0 ").Raw(std::fabs(fSweepAngle) > TDraw2D::Pi ? "1," : "0,");
  arc.Raw(fClockWise ? "1 " : "0 ").Pair(x(fEndAngle), y(fEndAngle)).Raw("\" ").Stroke(fColor);
  arc.Raw(" fill=\"none\" stroke-width=\"").Pen(GetPenWidth()).Raw("\"").Dash(fLineType).Raw("/>");
  svg.push_back(arc.Take());
  // The direction out of the arc at an end: against its run at the start, along it at the end.
  const auto outwards = [this](double aAngle, bool aAlong) {
    const double against = std::atan2(-std::cos(aAngle) * static_cast<double>(fBaseRadio),
                                      std::sin(aAngle) * static_cast<double>(fBaseRadio));
    return aAlong ? against + TDraw2D::Pi : against;
  };
  WriteFromTerm(svg, aExportType, aFactor, x(fStartAngle), y(fStartAngle), outwards(fStartAngle, !fClockWise),
                0, true);
  WriteToTerm(svg, aExportType, aFactor, x(fEndAngle), y(fEndAngle), outwards(fEndAngle, fClockWise), 0,
              true);
}

}  // namespace Zor::inline Line
