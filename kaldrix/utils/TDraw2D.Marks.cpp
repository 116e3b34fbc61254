#include "kaldrix/utils/TDraw2D.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "kaldrix/utils/Conics.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

double AsDouble(Int64 aValue) { return static_cast<double>(aValue); }
Single AsSingle(double aValue) { return static_cast<Single>(aValue); }

/// A vector of floats.
struct TVector {
  double x = 0;
  double y = 0;

  bool IsZero() const { return x == 0 && y == 0; }
  double Direction() const { return std::atan2(y, x); }
  /// The same direction, another length.
  TVector Scaled(double aLength) const {
    const double length = std::hypot(x, y);
    return {x / length * aLength, y / length * aLength};
  }
  static TVector Polar(double aLength, double aAngle) {
    return {aLength * std::cos(aAngle), aLength * std::sin(aAngle)};
  }
};

TVector Between(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  return {AsDouble(Span(x1, x2)), AsDouble(Span(y1, y2))};
}

TVector Normal(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  const TVector v = Between(x1, y1, x2, y2);
  return {-v.y, v.x};
}

Int64 Shifted(Int64 aValue, double aOffset) { return RoundHeld(AsDouble(aValue) + aOffset); }

/// The perpendicular of a segment, scaled and rounded; zero for a segment without length.
TZORPto64 RoundedNormal(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 aLength) {
  const TVector normal = Normal(x1, y1, x2, y2);
  if (normal.IsZero()) return {};
  const TVector scaled = normal.Scaled(AsDouble(aLength));
  return {RoundHeld(scaled.x), RoundHeld(scaled.y)};
}

/// Where two strokes of a mark end, relative to the point they stand at.
struct TStrokes {
  TVector one;
  TVector two;

  void Put(Int64 x, Int64 y, Int64& x1p, Int64& y1p, Int64& x2p, Int64& y2p) const {
    x1p = AddHeld(x, RoundHeld(one.x));
    y1p = AddHeld(y, RoundHeld(one.y));
    x2p = AddHeld(x, RoundHeld(two.x));
    y2p = AddHeld(y, RoundHeld(two.y));
  }
  void Put(Single x, Single y, Single& x1p, Single& y1p, Single& x2p, Single& y2p) const {
    x1p = AsSingle(x + one.x);
    y1p = AsSingle(y + one.y);
    x2p = AsSingle(x + two.x);
    y2p = AsSingle(y + two.y);
  }
};

/// The barbs of a head that points in a direction.
TStrokes Barbs(double aDirection, double aSize, Single S) {
  const double half = TDraw2D::Pi / S;
  return {TVector::Polar(-aSize, aDirection - half), TVector::Polar(-aSize, aDirection + half)};
}

TStrokes Slash(double aDirection, double aSize) {
  return {TVector::Polar(-aSize, aDirection), TVector::Polar(aSize, aDirection)};
}

constexpr double SlashTurn = TDraw2D::Pi / 4;

bool IsOneOf(std::uint16_t aPos, std::initializer_list<std::uint16_t> aList) {
  return std::find(aList.begin(), aList.end(), aPos) != aList.end();
}

Int64 Middle(Int64 a, Int64 b) { return a + Span(a, b) / 2; }

/// Half the angle under which a chord is seen: asin of its height over the middle, held in single precision.
double ChordAngle(Single aPercent) {
  const double p = aPercent;
  const Single height = AsSingle(p > 0.5 ? (p - 0.5) * 100 / 0.5 / 100 : (100 - 200 * p) / 100);
  return std::asin(std::clamp(double{height}, -1.0, 1.0));
}

/// Width and height of the largest rectangle of an aspect; false without one.
bool FitSize(double aWidth, double aHeight, double aBoxWidth, double aBoxHeight, TVector& aSize) {
  if (!(aWidth > 0) || !(aHeight > 0)) return false;
  const double scale = std::min(aBoxWidth / aWidth, aBoxHeight / aHeight);
  aSize = {aWidth * scale, aHeight * scale};
  return true;
}

TVector QuarterTurned(TVector v, TZORAngle aAngle) {
  switch (aAngle) {
    case ag90:
      return {v.y, -v.x};
    case ag180:
      return {-v.x, -v.y};
    case ag270:
      return {-v.y, v.x};
    default:
      return v;
  }
}

TVector Turned(double dx, double dy, Single aDegrees) {
  const double angle = double{aDegrees} * TDraw2D::Pi / 180;
  return {dx * std::cos(angle) - dy * std::sin(angle), dx * std::sin(angle) + dy * std::cos(angle)};
}

int RoundToInt(double aValue) {
  return static_cast<int>(std::clamp<Int64>(RoundHeld(aValue), INT32_MIN, INT32_MAX));
}

}  // namespace

// --- Offsets -----------------------------------------------------------------------------------------------

bool TDraw2D::DrawParallelLine(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 distance, Int64& x1p, Int64& y1p,
                               Int64& x2p, Int64& y2p) {
  const TVector normal = Normal(x1, y1, x2, y2);
  if (distance == 0 || normal.IsZero()) return false;
  const TVector offset = normal.Scaled(AsDouble(distance));
  x1p = Shifted(x1, offset.x);
  y1p = Shifted(y1, offset.y);
  x2p = Shifted(x2, offset.x);
  y2p = Shifted(y2, offset.y);
  return true;
}

bool TDraw2D::DrawParallelLine(Single x1, Single y1, Single x2, Single y2, Single distance, Single& x1p,
                               Single& y1p, Single& x2p, Single& y2p) {
  const TVector normal{double{y1} - y2, double{x2} - x1};
  if (distance == 0 || normal.IsZero()) return false;
  const TVector offset = normal.Scaled(distance);
  x1p = AsSingle(x1 + offset.x);
  y1p = AsSingle(y1 + offset.y);
  x2p = AsSingle(x2 + offset.x);
  y2p = AsSingle(y2 + offset.y);
  return true;
}

void TDraw2D::DrawParalLine(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, Int64 PX, Int64 PY, Int64 Distance,
                            Int64& X3, Int64& Y3, Int64& X4, Int64& Y4) {
  TZORPto64 normal = RoundedNormal(X1, Y1, X2, Y2, Distance);
  if (PointSide(X1, Y1, X2, Y2, PX, PY) < 0) normal = TZORPto64::Zero() - normal;
  X3 = AddHeld(X1, normal.X);
  Y3 = AddHeld(Y1, normal.Y);
  X4 = AddHeld(X2, normal.X);
  Y4 = AddHeld(Y2, normal.Y);
}

void TDraw2D::PosMidParal(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, Int64 Distance, Int64& aPosX,
                          Int64& aPosY) {
  const TZORPto64 normal = RoundedNormal(X1, Y1, X2, Y2, Distance);
  const auto middle = [](Int64 a, Int64 b, Int64 offset) {
    return ToInt64Held((static_cast<Int128>(a) + b + static_cast<Int128>(offset) * 2) / 2);
  };
  aPosX = middle(X1, X2, normal.X);
  aPosY = middle(Y1, Y2, normal.Y);
}

void TDraw2D::PosMidParal(Single X1, Single Y1, Single X2, Single Y2, Single Distance, Single& aPosX,
                          Single& aPosY) {
  const TVector normal{double{Y1} - Y2, double{X2} - X1};
  const TVector offset = normal.IsZero() ? normal : normal.Scaled(Distance);
  aPosX = AsSingle((double{X1} + X2) / 2 + offset.x);
  aPosY = AsSingle((double{Y1} + Y2) / 2 + offset.y);
}

TZORPtoA TDraw2D::PoligonParalel(TZORPtoArr aPoints, Int64 aDist, bool aIn) {
  TZORPtoA moved(aPoints.begin(), aPoints.end());
  const double distance = aIn ? -AsDouble(aDist) : AsDouble(aDist);
  for (std::size_t i = 0; i < aPoints.size(); ++i) {
    const TZORPto& from = aPoints[i];
    const TZORPto& to = aPoints[(i + 1) % aPoints.size()];
    const TVector normal = Normal(from.bX, from.bY, to.bX, to.bY);
    if (normal.IsZero()) continue;
    const TVector offset = normal.Scaled(distance);
    moved[i].SetBase(Shifted(from.bX, offset.x), Shifted(from.bY, offset.y));
  }
  return moved;
}

bool TDraw2D::EquidistArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 aDist, bool aIner,
                          Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2, Int64& ax3, Int64& ay3) {
  const double cx = (AsDouble(x1) + AsDouble(x2) + AsDouble(x3)) / 3;
  const double cy = (AsDouble(y1) + AsDouble(y2) + AsDouble(y3)) / 3;
  const TVector one{AsDouble(x1) - cx, AsDouble(y1) - cy};
  const TVector two{AsDouble(x2) - cx, AsDouble(y2) - cy};
  const TVector three{AsDouble(x3) - cx, AsDouble(y3) - cy};
  const double mean =
      (std::hypot(one.x, one.y) + std::hypot(two.x, two.y) + std::hypot(three.x, three.y)) / 3;
  const double radius = aIner ? mean - AsDouble(aDist) : mean + AsDouble(aDist);
  double movement = three.Direction() - one.Direction();
  if (movement > Pi) movement -= TwoPi;
  if (movement < -Pi) movement += TwoPi;
  // Intended: inwards the arc runs the other way round.
  if (aIner) movement = -movement;
  const auto put = [&](double aAngle, Int64& x, Int64& y) {
    const TVector offset = TVector::Polar(radius, one.Direction() + aAngle);
    x = RoundHeld(cx + offset.x);
    y = RoundHeld(cy + offset.y);
  };
  put(0, ax1, ay1);
  put(movement / 2, ax2, ay2);
  put(movement, ax3, ay3);
  return true;
}

bool TDraw2D::EquidistArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 px, Int64 py,
                          Int64 aDist, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2, Int64& ax3,
                          Int64& ay3) {
  const TCircumcircle circle = Circumcircle(x1, y1, x2, y2, x3, y3);
  const auto move = [&](Int64 aX, Int64 aY, double aChange, Int64& x, Int64& y) {
    const TVector radius{AsDouble(Span(x1, aX)) - circle.ux, AsDouble(Span(y1, aY)) - circle.uy};
    const TVector offset = aChange == 0 ? TVector{} : radius.Scaled(aChange);
    x = Shifted(aX, offset.x);
    y = Shifted(aY, offset.y);
  };
  const double toPick = std::hypot(AsDouble(Span(x1, px)) - circle.ux, AsDouble(Span(y1, py)) - circle.uy);
  const double distance = circle.valid ? std::fabs(AsDouble(aDist)) : 0;
  const double change = circle.r > toPick ? -distance : distance;
  move(x1, y1, change, ax1, ay1);
  move(x2, y2, change, ax2, ay2);
  move(x3, y3, change, ax3, ay3);
  return circle.valid;
}

bool TDraw2D::EquidistArc(Int64 cx, Int64 cy, Int64 r, double angStart, double angEnd, Int64 aDist, Int64 px,
                          Int64 py, Int64& acx, Int64& acy, Int64& ar, double& aStart, double& aEnd) {
  const double distance = std::fabs(AsDouble(aDist));
  const bool inwards = AsDouble(r) > Magnitude(Span(cx, px), Span(cy, py));
  acx = cx;
  acy = cy;
  ar = Shifted(r, inwards ? -distance : distance);
  aStart = angStart;
  aEnd = angEnd;
  return true;
}

// --- Marks -------------------------------------------------------------------------------------------------

bool TDraw2D::DrawArrow(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 arrowSize, Int64& x1p, Int64& y1p,
                        Int64& x2p, Int64& y2p, Single S) {
  Barbs(Between(x1, y1, x2, y2).Direction(), AsDouble(arrowSize), S).Put(x2, y2, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawArrow(Single x1, Single y1, Single x2, Single y2, Single arrowSize, Single& x1p,
                        Single& y1p, Single& x2p, Single& y2p, Single S) {
  const double direction = std::atan2(double{y2} - y1, double{x2} - x1);
  Barbs(direction, arrowSize, S).Put(x2, y2, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawArrow(Int64 x, Int64 y, Int64 arrowSize, Single angle, Int64& x1p, Int64& y1p, Int64& x2p,
                        Int64& y2p, Single S) {
  Barbs(angle, AsDouble(arrowSize), S).Put(x, y, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawArrow(Int64 x, Int64 y, Int64 arrowSize, TZORAngle angle, Int64& x1p, Int64& y1p,
                        Int64& x2p, Int64& y2p, Single S) {
  constexpr std::array<double, 4> directions{0, -Pi / 2, Pi, Pi / 2};
  const double direction = angle < directions.size() ? directions[angle] : 0;
  Barbs(direction, AsDouble(arrowSize), S).Put(x, y, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawArrowArc(Int64 cx, Int64 cy, Int64 px, Int64 py, Int64 arrowSize, Int64& x1p, Int64& y1p,
                           Int64& x2p, Int64& y2p, bool clockWise, Single S) {
  double direction = Between(cx, cy, px, py).Direction();
  if (std::fabs(direction) < ZeroDirection) direction = 0;
  const double tangent = direction + (clockWise ? Pi / 2 : 3 * Pi / 2);
  Barbs(tangent, AsDouble(arrowSize), S).Put(px, py, x1p, y1p, x2p, y2p);
  return true;
}

bool TDraw2D::DrawLeft(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 arrowSize, Int64& x1p, Int64& y1p,
                       Int64& x2p, Int64& y2p) {
  const double direction = Between(x1, y1, x2, y2).Direction();
  Slash(direction + SlashTurn, AsDouble(arrowSize)).Put(x2, y2, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawLeft(Single x1, Single y1, Single x2, Single y2, Single arrowSize, Single& x1p, Single& y1p,
                       Single& x2p, Single& y2p) {
  const double direction = std::atan2(double{y2} - y1, double{x2} - x1);
  Slash(direction + SlashTurn, arrowSize).Put(x2, y2, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawRight(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 arrowSize, Int64& x1p, Int64& y1p,
                        Int64& x2p, Int64& y2p) {
  const double direction = Between(x1, y1, x2, y2).Direction();
  Slash(direction - SlashTurn, AsDouble(arrowSize)).Put(x2, y2, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

bool TDraw2D::DrawRight(Single x1, Single y1, Single x2, Single y2, Single arrowSize, Single& x1p,
                        Single& y1p, Single& x2p, Single& y2p) {
  const double direction = std::atan2(double{y2} - y1, double{x2} - x1);
  Slash(direction - SlashTurn, arrowSize).Put(x2, y2, x1p, y1p, x2p, y2p);
  return arrowSize > 0;
}

void TDraw2D::CurvePoints(const TZORBase& p1, const TZORBase& p2, std::uint16_t aPos1, std::uint16_t aPos2,
                          TZORBase& pt1, TZORBase& pt2) {
  constexpr std::uint16_t lastNodePos = 50;
  // 1. Both links leave their nodes sideways: the curve swings in the middle x.
  const bool sideways = (IsOneOf(aPos1, {0, 5, 6, 7, 8, 9}) && IsOneOf(aPos2, {0, 1, 13, 14, 15, 16})) ||
                        (IsOneOf(aPos1, {1, 13, 14, 15, 16}) && IsOneOf(aPos2, {5, 6, 7, 8, 9})) ||
                        aPos1 > lastNodePos || aPos2 > lastNodePos;
  if (sideways) {
    const Int64 x = Middle(p1.X, p2.X);
    pt1 = {x, p1.Y};
    pt2 = {x, p2.Y};
    return;
  }
  // 2. Both leave upwards or downwards: the curve swings in the middle y.
  const auto isTop = [](std::uint16_t aPos) { return aPos < 6; };
  const auto isBottom = [](std::uint16_t aPos) { return aPos >= 9 && aPos <= 13; };
  if ((isTop(aPos1) && isBottom(aPos2)) || (isBottom(aPos1) && isTop(aPos2))) {
    const Int64 y = Middle(p1.Y, p2.Y);
    pt1 = {p1.X, y};
    pt2 = {p2.X, y};
  }
}

void TDraw2D::ArcSegment(Single aUPercent, bool aVert, Single& angFrom, Single& angTo) {
  const double turn = aVert ? Pi / 2 : 0;
  double from = -Pi;
  double to = 0;
  if (aUPercent != 0.5F) {
    const double a = ChordAngle(aUPercent);
    from = aUPercent > 0.5F ? a - Pi : Pi - a;
    to = aUPercent > 0.5F ? -a : a;
  }
  angFrom = AsSingle(from - turn);
  angTo = AsSingle(to - turn);
}

void TDraw2D::AngleSegment(Single aUPercent, bool aRadian, bool aVert, Single& angFrom, Single& angMove) {
  double from = Pi;
  double move = -Pi;
  if (aUPercent != 0.5F) {
    const double a = ChordAngle(aUPercent);
    from = aUPercent > 0.5F ? -a : a;
    move = aUPercent > 0.5F ? 2 * a + Pi : Pi - 2 * a;
  }
  if (aVert) from -= Pi / 2;
  const double unit = aRadian ? 1 : 180 / Pi;
  angFrom = AsSingle(from * unit);
  angMove = AsSingle(move * unit);
}

// --- Fitting and turning -----------------------------------------------------------------------------------

TSlotPolygon TDraw2D::CalculateSlotPolygon(double X1, double Y1, double X2, double Y2, double Diameter) {
  const double half = Diameter / 2;
  const TVector normal{Y1 - Y2, X2 - X1};
  if (normal.IsZero()) {
    return {{{X1 - half, Y1 - half}, {X1 + half, Y1 - half}, {X1 + half, Y1 + half}, {X1 - half, Y1 + half}}};
  }
  const TVector n = normal.Scaled(half);
  return {{{X1 + n.x, Y1 + n.y}, {X2 + n.x, Y2 + n.y}, {X2 - n.x, Y2 - n.y}, {X1 - n.x, Y1 - n.y}}};
}

TZORRect TDraw2D::CenteredRect(Single OriginalWidth, Single OriginalHeight, const TZORRect& WindowRect) {
  TVector size;
  const Int64 boxWidth = WindowRect.GetWidth();
  const Int64 boxHeight = WindowRect.GetHeight();
  if (!FitSize(OriginalWidth, OriginalHeight, AsDouble(boxWidth), AsDouble(boxHeight), size))
    return WindowRect;
  const Int64 width = RoundHeld(size.x);
  const Int64 height = RoundHeld(size.y);
  const Int64 left = AddHeld(WindowRect.Left, SubHeld(boxWidth, width) / 2);
  const Int64 top = AddHeld(WindowRect.Top, SubHeld(boxHeight, height) / 2);
  return {left, top, AddHeld(left, width), AddHeld(top, height)};
}

TRectF TDraw2D::CenteredRect(Single OriginalWidth, Single OriginalHeight, const TRectF& WindowRect) {
  TVector size;
  const double boxWidth = double{WindowRect.Right} - WindowRect.Left;
  const double boxHeight = double{WindowRect.Bottom} - WindowRect.Top;
  if (!FitSize(OriginalWidth, OriginalHeight, boxWidth, boxHeight, size)) return WindowRect;
  const double left = WindowRect.Left + (boxWidth - size.x) / 2;
  const double top = WindowRect.Top + (boxHeight - size.y) / 2;
  return {AsSingle(left), AsSingle(top), AsSingle(left + size.x), AsSingle(top + size.y)};
}

void TDraw2D::Rotate(TRectF& Re, TPointF Center, TZORAngle Angle) {
  const TPointF one = RotatePoint(TPointF{Re.Left, Re.Top}, Center, Angle);
  const TPointF two = RotatePoint(TPointF{Re.Right, Re.Bottom}, Center, Angle);
  Re = {std::min(one.X, two.X), std::min(one.Y, two.Y), std::max(one.X, two.X), std::max(one.Y, two.Y)};
}

TPointF TDraw2D::RotatePoint(TPointF Point, TPointF Center, TZORAngle Angle) {
  const TVector v = QuarterTurned({double{Point.X} - Center.X, double{Point.Y} - Center.Y}, Angle);
  return {AsSingle(Center.X + v.x), AsSingle(Center.Y + v.y)};
}

TPoint TDraw2D::RotatePoint(TPoint Point, TPoint Center, Single Angle) {
  const TVector v = Turned(double(Point.X) - Center.X, double(Point.Y) - Center.Y, Angle);
  return {RoundToInt(Center.X + v.x), RoundToInt(Center.Y + v.y)};
}

TPointF TDraw2D::RotatePoint(TPointF Point, TPointF Center, Single Angle) {
  const TVector v = Turned(double{Point.X} - Center.X, double{Point.Y} - Center.Y, Angle);
  return {AsSingle(Center.X + v.x), AsSingle(Center.Y + v.y)};
}

void TDraw2D::OrderPoints(std::span<TPoint> aPoint) {
  if (aPoint.size() < 4) return;
  const auto order = [&](std::size_t i, std::size_t k) {
    if (aPoint[i].X <= aPoint[k].X) return;
    aPoint[3] = aPoint[i];
    aPoint[i] = aPoint[k];
    aPoint[k] = aPoint[3];
  };
  order(0, 1);
  order(0, 2);
  order(1, 2);
}

}  // namespace Zor::inline Utils
