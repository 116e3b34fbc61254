#include "kaldrix/utils/TDraw2D.hpp"

#include <cmath>

#include "kaldrix/utils/Conics.hpp"
#include "kaldrix/utils/Values.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

double AsDouble(Int64 aValue) { return static_cast<double>(aValue); }

/// The end of a line that moves, and the direction from the other end.
struct TRay {
  bool first;  ///< the moved end is the first
  TZORPto64 moved;
  TZORPto64 fixed;
  Int64 dx;
  Int64 dy;

  bool HasDirection() const { return dx != 0 || dy != 0; }
};

TRay RayOf(bool aFirst, Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  TRay ray{aFirst, {x1, y1}, {x2, y2}, 0, 0};
  if (!aFirst) std::swap(ray.moved, ray.fixed);
  ray.dx = Span(ray.fixed.X, ray.moved.X);
  ray.dy = Span(ray.fixed.Y, ray.moved.Y);
  return ray;
}

/// Squared distance of the pick from an end, which orders as the distance does.
double PickGap(Int64 px, Int64 py, Int64 x, Int64 y) { return SquareSum(Span(px, x), Span(py, y)); }

bool FirstIsNearer(Int64 px, Int64 py, Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
  return PickGap(px, py, x1, y1) < PickGap(px, py, x2, y2);
}

/// The four results of an operation on one line.
struct TOutLine {
  Int64& ax1;
  Int64& ay1;
  Int64& ax2;
  Int64& ay2;

  void Set(Int64 x1, Int64 y1, Int64 x2, Int64 y2) const {
    ax1 = x1;
    ay1 = y1;
    ax2 = x2;
    ay2 = y2;
  }
  void Move(bool aFirst, Int64 x, Int64 y) const {
    (aFirst ? ax1 : ax2) = x;
    (aFirst ? ay1 : ay2) = y;
  }
  /// The moved end `t` of the ray further on; false when t is no number.
  bool MoveAhead(const TRay& aRay, double t) const {
    if (std::isnan(t)) return false;
    Move(aRay.first, RoundHeld(AsDouble(aRay.moved.X) + t * AsDouble(aRay.dx)),
         RoundHeld(AsDouble(aRay.moved.Y) + t * AsDouble(aRay.dy)));
    return true;
  }
};

/// Into 0 to below 2π, of an angle that is at most a turn away.
double OneTurn(double aAngle) {
  if (aAngle < 0) aAngle += TDraw2D::TwoPi;
  return aAngle >= TDraw2D::TwoPi ? aAngle - TDraw2D::TwoPi : aAngle;
}

/// Whether a growing angle passes `aAngle` on its way from `aStart` to `aEnd`, all in one turn.
bool InGrowingSweep(double aStart, double aEnd, double aAngle) {
  if (aStart <= aEnd) return aStart <= aAngle && aAngle <= aEnd;
  return aAngle >= aStart || aAngle <= aEnd;
}

/// The side lines of a rectangle, as the ray of ExtendLineToRectangle sees one of them: `at` is its distance
/// from the fixed end across, `low` and `high` are its ends along.
struct TSideLine {
  Int64 at;
  Int64 low;
  Int64 high;
};

/// Parameter from the fixed end, 1 at the moved end, where the ray (across, along) hits the side; beyond
/// FarParameter when it does not, or not ahead.
double HitSide(Int64 across, Int64 along, const TSideLine& aSide) {
  constexpr double none = 2 * TDraw2D::FarParameter;
  if (across == 0) return none;
  const bool ahead = across > 0 ? aSide.at >= across : aSide.at <= across;
  if (!ahead) return none;
  // In integers, so that a corner belongs to the side.
  const bool onSide =
      WideInRange(static_cast<Int128>(aSide.at) * along, static_cast<Int128>(aSide.low) * across,
                  static_cast<Int128>(aSide.high) * across);
  if (!onSide) return none;
  return AsDouble(aSide.at) / AsDouble(across);
}

/// Parameter of the ray from its moved end where it crosses a segment; no number when it does not, or not
/// ahead.
double HitSegment(const TRay& aRay, const TZORPto& a, const TZORPto& b) {
  const Int64 ex = Span(a.bX, b.bX);
  const Int64 ey = Span(a.bY, b.bY);
  const Int64 fx = Span(aRay.moved.X, a.bX);
  const Int64 fy = Span(aRay.moved.Y, a.bY);
  const Int128 det = WideCross(aRay.dx, aRay.dy, ex, ey);
  if (det == 0) return std::nan("");
  const Int128 u = WideCross(fx, fy, aRay.dx, aRay.dy);
  if (det > 0 ? u < 0 || u > det : u > 0 || u < det) return std::nan("");
  const double t = ToDouble(WideCross(fx, fy, ex, ey)) / ToDouble(det);
  return t > TDraw2D::PolylineAhead ? t : std::nan("");
}

/// Whether the crossing is on the picked point's far side, seen from the start of the line.
bool KeepsStart(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 xi, Int64 yi, Int64 px, Int64 py) {
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  return WideDot(dx, dy, Span(x1, xi), Span(y1, yi)) >= WideDot(dx, dy, Span(x1, px), Span(y1, py));
}

}  // namespace

bool TDraw2D::ExtendLines(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                          Int64 /*px*/, Int64 /*py*/, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x3, y3, x4, y4);
  // 1. Where the infinite lines cross.
  Int64 xi = 0;
  Int64 yi = 0;
  if (!IntersectLines(x1, y1, x2, y2, x3, y3, x4, y4, false, false, xi, yi)) return false;
  // 2. The line reaches there already.
  if (ValInRange(xi, x3, x4) && ValInRange(yi, y3, y4)) return false;
  // 3. The end behind which the crossing lies is replaced.
  const bool behindFirst = WideDot(Span(x3, xi), Span(y3, yi), Span(x3, x4), Span(y3, y4)) < 1;
  out.Set(behindFirst ? x4 : x3, behindFirst ? y4 : y3, xi, yi);
  return true;
}

bool TDraw2D::ExtendLineToCircle(Int64 cx, Int64 cy, Int64 r, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                                 Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x3, y3, x4, y4);
  const TRay ray = RayOf(FirstIsNearer(px, py, x3, y3, x4, y4), x3, y3, x4, y4);
  if (!ray.HasDirection()) return false;
  const TQuadratic q = CircleQuadratic(ray.dx, ray.dy, Span(cx, ray.moved.X), Span(cy, ray.moved.Y), r);
  return out.MoveAhead(ray, q.FirstAbove(Degenerate));
}

bool TDraw2D::ExtendLineToEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry, Int64 x1, Int64 y1, Int64 x2,
                                  Int64 y2, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                                  Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x1, y1, x2, y2);
  if (rx < 1 || ry <= 0) return false;
  // Intended: rounded distances here, and the first end on a tie.
  const TRay ray = RayOf(Distance(px, py, x1, y1) <= Distance(px, py, x2, y2), x1, y1, x2, y2);
  if (!ray.HasDirection()) return false;
  TQuadratic q = EllipseQuadratic(AsDouble(ray.dx), AsDouble(ray.dy), AsDouble(Span(cx, ray.moved.X)),
                                  AsDouble(Span(cy, ray.moved.Y)), AsDouble(rx), AsDouble(ry));
  if (std::fabs(q.a) < EllipseDegenerate) return false;
  if (q.discriminant >= 0 && q.discriminant < EllipseCoefficient) q.discriminant = 0;
  return out.MoveAhead(ray, q.FirstAbove(Degenerate));
}

bool TDraw2D::ExtendLineToRectangle(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4,
                                    Int64 y4, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                                    Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x3, y3, x4, y4);
  const TRay ray = RayOf(!FirstIsNearer(px, py, x4, y4, x3, y3), x3, y3, x4, y4);
  if (!ray.HasDirection()) return false;
  // All relative to the fixed end.
  const Int64 left = Span(ray.fixed.X, std::min(x1, x2));
  const Int64 right = Span(ray.fixed.X, std::max(x1, x2));
  const Int64 top = Span(ray.fixed.Y, std::min(y1, y2));
  const Int64 bottom = Span(ray.fixed.Y, std::max(y1, y2));
  const double t =
      std::min({HitSide(ray.dx, ray.dy, {left, top, bottom}), HitSide(ray.dx, ray.dy, {right, top, bottom}),
                HitSide(ray.dy, ray.dx, {top, left, right}), HitSide(ray.dy, ray.dx, {bottom, left, right})});
  if (t > FarParameter) return false;
  out.Move(ray.first, RoundHeld(AsDouble(ray.fixed.X) + t * AsDouble(ray.dx)),
           RoundHeld(AsDouble(ray.fixed.Y) + t * AsDouble(ray.dy)));
  return true;
}

bool TDraw2D::ExtendLineToPolyline(TZORPtoArr aPoints, Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px,
                                   Int64 py, bool isClose, Int64& ax1, Int64& ay1, Int64& ax2, Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x1, y1, x2, y2);
  const TRay ray = RayOf(FirstIsNearer(px, py, x1, y1, x2, y2), x1, y1, x2, y2);
  if (aPoints.size() < 2 || !ray.HasDirection()) return false;
  // 1. The nearest segment ahead.
  double best = FarParameter;
  for (std::size_t i = 1; i < aPoints.size(); ++i) {
    best = std::fmin(best, HitSegment(ray, aPoints[i - 1], aPoints[i]));
  }
  if (isClose) best = std::fmin(best, HitSegment(ray, aPoints.back(), aPoints.front()));
  if (best >= FarParameter) return false;
  // 2. An end that stays is none, and one outside the drawing is given but refused.
  out.MoveAhead(ray, best);
  const TZORPto64 moved = ray.first ? TZORPto64{ax1, ay1} : TZORPto64{ax2, ay2};
  return moved != ray.moved && moved.X >= 1 && moved.Y >= 1;
}

bool TDraw2D::ExtendLineToArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                              Int64 x5, Int64 y5, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                              Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x4, y4, x5, y5);
  const TRay ray = RayOf(FirstIsNearer(px, py, x4, y4, x5, y5), x4, y4, x5, y5);
  const TCircumcircle circle = Circumcircle(x1, y1, x2, y2, x3, y3);
  if (!circle.valid || !ray.HasDirection()) return false;
  // 1. The nearest crossing ahead with the whole circle. Intended: no other is tried.
  const double fx = AsDouble(Span(x1, ray.moved.X)) - circle.ux;
  const double fy = AsDouble(Span(y1, ray.moved.Y)) - circle.uy;
  const double dx = AsDouble(ray.dx);
  const double dy = AsDouble(ray.dy);
  const double t = CircleQuadratic(dx, dy, fx, fy, circle.r).FirstAbove(Degenerate);
  if (std::isnan(t)) return false;
  // 2. It must lie on the arc, which grows from one end over the middle point to the other.
  const auto direction = [&](Int64 x, Int64 y) {
    return OneTurn(std::atan2(AsDouble(Span(y1, y)) - circle.uy, AsDouble(Span(x1, x)) - circle.ux));
  };
  double start = direction(x1, y1);
  double end = direction(x3, y3);
  if (!InGrowingSweep(start, end, direction(x2, y2))) std::swap(start, end);
  if (!InGrowingSweep(start, end, OneTurn(std::atan2(fy + t * dy, fx + t * dx)))) return false;
  return out.MoveAhead(ray, t);
}

bool TDraw2D::TrimLineAtArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                            Int64 x5, Int64 y5, Int64 px, Int64 py, Int64& ax1, Int64& ay1, Int64& ax2,
                            Int64& ay2) {
  const TOutLine out{ax1, ay1, ax2, ay2};
  out.Set(x4, y4, x5, y5);
  // 1. The arc.
  Int64 cx = 0, cy = 0, r = 0;
  double angStart = 0, angEnd = 0, angSweep = 0;
  bool clockWise = false;
  if (!ArcThreePoints(x1, y1, x2, y2, x3, y3, cx, cy, r, angStart, angEnd, angSweep, clockWise)) return false;
  // 2. Intended: the direction is held in single precision.
  const double dx = static_cast<Single>(Span(x4, x5));
  const double dy = static_cast<Single>(Span(y4, y5));
  const double squared = dx * dx + dy * dy;
  if (std::sqrt(squared) < Degenerate) return false;
  // 3. The pick on the line.
  const double pick = (AsDouble(Span(x4, px)) * dx + AsDouble(Span(y4, py)) * dy) / squared;
  const double picked = std::clamp(pick, 0.0, 1.0);
  // 4. The crossings with the whole circle that lie on the line and on the arc.
  const double fx = AsDouble(Span(cx, x4));
  const double fy = AsDouble(Span(cy, y4));
  const TQuadratic q = CircleQuadratic(dx, dy, fx, fy, AsDouble(r));
  if (q.discriminant < 0) return false;
  const auto counts = [&](double t) {
    if (!(t >= -Degenerate && t <= 1 + Degenerate)) return false;
    const double angle = std::atan2(fy + t * dy, fx + t * dx);
    const auto onArc = [&](double a) { return ArcContainsAngle(angStart, angEnd, OneTurn(a), clockWise); };
    return onArc(angle) || onArc(angle + TrimAngle) || onArc(angle - TrimAngle);
  };
  const double low = q.MinusRoot();
  const double high = q.PlusRoot();
  const bool lowCounts = counts(low);
  const bool highCounts = counts(high);
  // 5. The one nearer to the pick; the middle between them divides.
  if (!lowCounts && !highCounts) return false;
  const bool takeLow = lowCounts && (!highCounts || picked <= q.Middle());
  const double t = takeLow ? low : high;
  // 6. The end nearer to the pick goes there.
  const bool first = !FirstIsNearer(px, py, x5, y5, x4, y4);
  out.Move(first, RoundHeld(AsDouble(x4) + t * dx), RoundHeld(AsDouble(y4) + t * dy));
  return true;
}

bool TDraw2D::JoinLines(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                        Int64 px1, Int64 py1, Int64 px2, Int64 py2, Int64& ax1, Int64& ay1, Int64& ax2,
                        Int64& ay2, Int64& ax3, Int64& ay3, Int64& ax4, Int64& ay4) {
  const TOutLine one{ax1, ay1, ax2, ay2};
  const TOutLine two{ax3, ay3, ax4, ay4};
  one.Set(x1, y1, x2, y2);
  two.Set(x3, y3, x4, y4);
  // A line without length crosses none either.
  Int64 xi = 0;
  Int64 yi = 0;
  if (!IntersectLines(x1, y1, x2, y2, x3, y3, x4, y4, false, false, xi, yi)) return false;
  const bool oneStart = KeepsStart(x1, y1, x2, y2, xi, yi, px1, py1);
  const bool twoStart = KeepsStart(x3, y3, x4, y4, xi, yi, px2, py2);
  one.Set(oneStart ? x1 : x2, oneStart ? y1 : y2, xi, yi);
  two.Set(twoStart ? x3 : x4, twoStart ? y3 : y4, xi, yi);
  return true;
}

}  // namespace Zor::inline Utils
