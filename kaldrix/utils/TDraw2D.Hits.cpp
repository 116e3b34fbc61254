#include "kaldrix/utils/TDraw2D.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "kaldrix/utils/Values.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

double AsDouble(Int64 aValue) { return static_cast<double>(aValue); }

TZORRect Normalised(const TZORRect& aRect) {
  TZORRect rect = aRect;
  rect.NormalizeRect();
  return rect;
}

bool InRect(Int64 x, Int64 y, const TZORRect& r) {
  return x >= r.Left && x <= r.Right && y >= r.Top && y <= r.Bottom;
}

/// Distance from the centre in a ring round the circle; a negative inner radius shuts nothing out.
bool InRing(Int64 dx, Int64 dy, Int64 r, Int64 gap) {
  const double distance = TDraw2D::Magnitude(dx, dy);
  return distance >= AsDouble(SubHeld(r, gap)) && distance <= AsDouble(AddHeld(r, gap));
}

/// 1 on the ellipse, less inside. No number for a zero radius and no offset along it.
double EllipseLevel(double dx, double dy, double rx, double ry) {
  const double x = dx / rx;
  const double y = dy / ry;
  return x * x + y * y;
}

/// The range of parameters of a segment within a slab.
struct TSlab {
  double enter;
  double leave;
};

TSlab CrossSlab(Int64 aFrom, Int64 aTo, Int64 aLow, Int64 aHigh) {
  const double length = AsDouble(Span(aFrom, aTo));
  const double low = AsDouble(Span(aFrom, aLow)) / length;
  const double high = AsDouble(Span(aFrom, aHigh)) / length;
  return {std::min(low, high), std::max(low, high)};
}

/// One point of a cubic with these control values.
double CubicAt(double t, double p1, double p2, double p3, double p4) {
  const double u = 1 - t;
  return u * u * u * p1 + 3 * u * u * t * p2 + 3 * u * t * t * p3 + t * t * t * p4;
}

/// An arc whose angles grow from `start` to `end`, both normalised.
struct TGrowingArc {
  double cx;
  double cy;
  double r;
  double start;
  double end;

  bool Passes(double aDirection) const {
    const double direction = start > aDirection ? aDirection + TDraw2D::TwoPi : aDirection;
    return direction <= (start > end ? end + TDraw2D::TwoPi : end);
  }
  /// Whether the segment from (x, y) by (dx, dy) crosses the circle where the arc passes.
  bool Meets(double x, double y, double dx, double dy) const {
    const double fx = x - cx;
    const double fy = y - cy;
    const double a = dx * dx + dy * dy;
    const double b = 2 * (fx * dx + fy * dy);
    const double discriminant = b * b - 4 * a * (fx * fx + fy * fy - r * r);
    if (a == 0 || !(discriminant >= 0)) return false;
    const double root = std::sqrt(discriminant);
    return MeetsAt((-b - root) / (2 * a), fx, fy, dx, dy) || MeetsAt((-b + root) / (2 * a), fx, fy, dx, dy);
  }

 private:
  bool MeetsAt(double t, double fx, double fy, double dx, double dy) const {
    return t >= 0 && t <= 1 && Passes(TDraw2D::NormalizeAngle(std::atan2(fy + t * dy, fx + t * dx)));
  }
};

}  // namespace

bool TDraw2D::PointInLine(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 posX, Int64 posY, Int64 gap) {
  if (gap < 0) return false;
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  const Int64 fx = Span(x1, posX);
  const Int64 fy = Span(y1, posY);
  const double reach = AsDouble(gap) * AsDouble(gap);
  const Int128 along = WideDot(dx, dy, fx, fy);
  if (along <= 0) return SquareSum(fx, fy) <= reach;
  const Int128 length = WideDot(dx, dy, dx, dy);
  if (along >= length) return SquareSum(Span(x2, posX), Span(y2, posY)) <= reach;
  // Beside the segment: the distance is cross / length, and an exact 0 on the line itself.
  const double cross = ToDouble(WideCross(dx, dy, fx, fy));
  return cross * cross <= reach * ToDouble(length);
}

bool TDraw2D::PointOnSegment(Int64 aX, Int64 aY, Int64 aSX, Int64 aSY, Int64 aEX, Int64 aEY, double aTol) {
  const Int64 dx = Span(aSX, aEX);
  const Int64 dy = Span(aSY, aEY);
  const Int64 fx = Span(aSX, aX);
  const Int64 fy = Span(aSY, aY);
  const double length = Magnitude(dx, dy);
  if (length < PointSegment) return std::fabs(AsDouble(fx)) <= aTol && std::fabs(AsDouble(fy)) <= aTol;
  const Int64 gap = Round(aTol);
  if (fx < SubHeld(std::min<Int64>(0, dx), gap) || fx > AddHeld(std::max<Int64>(0, dx), gap)) return false;
  if (fy < SubHeld(std::min<Int64>(0, dy), gap) || fy > AddHeld(std::max<Int64>(0, dy), gap)) return false;
  return std::fabs(ToDouble(WideCross(dx, dy, fx, fy))) <= aTol * length;
}

bool TDraw2D::PointInCircle(Int64 cx, Int64 cy, Int64 r, Int64 posX, Int64 posY, Int64 gap) {
  return Magnitude(Span(cx, posX), Span(cy, posY)) <= AsDouble(AddHeld(r, gap));
}

bool TDraw2D::PointOnCircle(Int64 cx, Int64 cy, Int64 r, Int64 posX, Int64 posY, Int64 gap) {
  return InRing(Span(cx, posX), Span(cy, posY), r, gap);
}

bool TDraw2D::PointInEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry, Int64 posX, Int64 posY) {
  return EllipseLevel(AsDouble(Span(cx, posX)), AsDouble(Span(cy, posY)), AsDouble(rx), AsDouble(ry)) <= 1;
}

bool TDraw2D::PointOnEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry, Int64 posX, Int64 posY, Int64 gap) {
  const Int64 half = gap / 2;
  if (!PointInEllipse(cx, cy, AddHeld(rx, half), AddHeld(ry, half), posX, posY)) return false;
  const Int64 innerX = SubHeld(rx, half);
  const Int64 innerY = SubHeld(ry, half);
  return innerX <= 0 || innerY <= 0 || !PointInEllipse(cx, cy, innerX, innerY, posX, posY);
}

bool TDraw2D::PointInArc(Int64 cx, Int64 cy, Int64 r, Int64 posX, Int64 posY, Int64 aGap, double dgAngStart,
                         double dgAngSweep) {
  const Int64 dx = Span(cx, posX);
  const Int64 dy = Span(cy, posY);
  if (!InRing(dx, dy, r, aGap)) return false;
  const double direction = NormalizeAngle(std::atan2(AsDouble(dy), AsDouble(dx)));
  const double low = std::min(dgAngStart, dgAngStart + dgAngSweep);
  const double high = std::max(dgAngStart, dgAngStart + dgAngSweep);
  // The range may reach beyond 0 or 2π, where the direction goes by another turn.
  return std::ranges::any_of(std::array{direction, direction - TwoPi, direction + TwoPi},
                             [low, high](double angle) { return low <= angle && angle <= high; });
}

bool TDraw2D::PointInBezier(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                            Int64 x, Int64 y, Int64 gap) {
  constexpr int steps = 100;
  if (gap <= 0) return false;
  // Relative to the position: the samples lie within the bounds of the control points.
  const double px1 = AsDouble(Span(x, x1)), px2 = AsDouble(Span(x, x2));
  const double px3 = AsDouble(Span(x, x3)), px4 = AsDouble(Span(x, x4));
  const double py1 = AsDouble(Span(y, y1)), py2 = AsDouble(Span(y, y2));
  const double py3 = AsDouble(Span(y, y3)), py4 = AsDouble(Span(y, y4));
  const double reach = AsDouble(gap);
  if (std::min({px1, px2, px3, px4}) > reach || std::max({px1, px2, px3, px4}) < -reach) return false;
  if (std::min({py1, py2, py3, py4}) > reach || std::max({py1, py2, py3, py4}) < -reach) return false;
  for (int i = 0; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps;
    const double dx = CubicAt(t, px1, px2, px3, px4);
    const double dy = CubicAt(t, py1, py2, py3, py4);
    if (dx * dx + dy * dy < reach * reach) return true;
  }
  return false;
}

bool TDraw2D::CursorOnPos(Int64 x1, Int64 y1, Int64 posX, Int64 posY, Int64 gap) {
  return std::abs(Span(x1, posX)) < gap && std::abs(Span(y1, posY)) < gap;
}

bool TDraw2D::CursorOnPosS(Int64 x1, Int64 y1, Int64 gap, Single posX, Single posY) {
  return std::fabs(double{posX} - AsDouble(x1)) < AsDouble(gap) &&
         std::fabs(double{posY} - AsDouble(y1)) < AsDouble(gap);
}

bool TDraw2D::PosPoint(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px, Int64 py) {
  if (y1 == y2) return py < y1;
  if (x1 == x2) return px > x1;
  const double slope = AsDouble(Span(y1, y2)) / AsDouble(Span(x1, x2));
  return AsDouble(y1) + AsDouble(Span(x1, px)) * slope > AsDouble(py);
}

bool TDraw2D::RectangleIntersectLine(Int64 X1, Int64 Y1, Int64 X2, Int64 Y2, const TZORRect& aRect) {
  if (InRect(X1, Y1, aRect) || InRect(X2, Y2, aRect)) return true;
  if (X1 == X2) {
    return X1 >= aRect.Left && X1 <= aRect.Right && std::min(Y1, Y2) <= aRect.Bottom &&
           std::max(Y1, Y2) >= aRect.Top;
  }
  if (Y1 == Y2) {
    return Y1 >= aRect.Top && Y1 <= aRect.Bottom && std::min(X1, X2) <= aRect.Right &&
           std::max(X1, X2) >= aRect.Left;
  }
  const TSlab sides = CrossSlab(X1, X2, aRect.Left, aRect.Right);
  const TSlab edges = CrossSlab(Y1, Y2, aRect.Top, aRect.Bottom);
  const double enter = std::max(sides.enter, edges.enter);
  const double leave = std::min(sides.leave, edges.leave);
  return enter <= leave && enter <= 1 && leave >= 0;
}

bool TDraw2D::ArcIntersectsRect(Int64 CenterX, Int64 CenterY, Int64 Radius, double StartAngle,
                                double EndAngle, const TZORRect& Rect) {
  const TZORRect rect = Normalised(Rect);
  const TGrowingArc arc{AsDouble(CenterX), AsDouble(CenterY), AsDouble(Radius), NormalizeAngle(StartAngle),
                        NormalizeAngle(EndAngle)};
  // 1. An end of the arc inside.
  for (double angle : {arc.start, arc.end}) {
    const Int64 x = Round(arc.cx + arc.r * std::cos(angle));
    const Int64 y = Round(arc.cy + arc.r * std::sin(angle));
    if (InRect(x, y, rect)) return true;
  }
  // 2. The sides: top, right, bottom, left.
  const double left = AsDouble(rect.Left), top = AsDouble(rect.Top);
  const double right = AsDouble(rect.Right), bottom = AsDouble(rect.Bottom);
  return arc.Meets(left, top, right - left, 0) || arc.Meets(right, top, 0, bottom - top) ||
         arc.Meets(right, bottom, left - right, 0) || arc.Meets(left, bottom, 0, top - bottom);
}

bool TDraw2D::EllipseIntersectsRect(Int64 CenterX, Int64 CenterY, Int64 RadiusX, Int64 RadiusY,
                                    const TZORRect& Rect) {
  if (RadiusX < 0 || RadiusY < 0) return false;
  const TZORRect rect = Normalised(Rect);
  if (RadiusX == 0 && RadiusY == 0) return InRect(CenterX, CenterY, rect);
  if (AddHeld(CenterX, RadiusX) < rect.Left || SubHeld(CenterX, RadiusX) > rect.Right) return false;
  if (AddHeld(CenterY, RadiusY) < rect.Top || SubHeld(CenterY, RadiusY) > rect.Bottom) return false;
  // The point of the rectangle nearest to the centre.
  const Int64 dx = Span(CenterX, std::clamp(CenterX, rect.Left, rect.Right));
  const Int64 dy = Span(CenterY, std::clamp(CenterY, rect.Top, rect.Bottom));
  if (RadiusX == 0) return dx == 0 && std::abs(dy) <= RadiusY;
  if (RadiusY == 0) return dy == 0 && std::abs(dx) <= RadiusX;
  return EllipseLevel(AsDouble(dx), AsDouble(dy), AsDouble(RadiusX), AsDouble(RadiusY)) <= 1;
}

}  // namespace Zor::inline Utils
