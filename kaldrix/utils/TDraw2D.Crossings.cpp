#include "kaldrix/utils/TDraw2D.hpp"

#include <array>
#include <cmath>

#include "kaldrix/utils/Conics.hpp"
#include "kaldrix/utils/Values.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Utils {
namespace {

double AsDouble(Int64 aValue) { return static_cast<double>(aValue); }

Int64 PointAt(Int64 aFrom, double t, Int64 aDelta) { return AddHeld(aFrom, RoundHeld(t * AsDouble(aDelta))); }

/// Collects up to two different points.
class TTwoPoints {
 public:
  void Add(Int64 x, Int64 y) {
    if (fCount == 2 || (fCount == 1 && fPoints[0] == TZORPto64{x, y})) return;
    fPoints[fCount++] = {x, y};
  }
  std::int16_t Give(Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y) const {
    if (fCount > 0) {
      p1x = p2x = fPoints[0].X;
      p1y = p2y = fPoints[0].Y;
    }
    if (fCount > 1) {
      p2x = fPoints[1].X;
      p2y = fPoints[1].Y;
    }
    return static_cast<std::int16_t>(fCount);
  }

 private:
  std::array<TZORPto64, 2> fPoints;
  std::size_t fCount = 0;
};

/// Whether a segment from the origin, (across, along) to a side line, reaches it between `low` and `high`. In
/// integers, so that a corner belongs to both its sides.
bool HitsSide(Int64 across, Int64 along, Int64 at, Int64 low, Int64 high) {
  return across != 0 && ValInRange(at, 0, across) &&
         WideInRange(static_cast<Int128>(at) * along, static_cast<Int128>(low) * across,
                     static_cast<Int128>(high) * across);
}

/// The crossings of the circles relative to the first centre.
struct TRims {
  std::int16_t count = 0;
  double midX = 0;
  double midY = 0;
  double offX = 0;
  double offY = 0;
};

/// (dx, dy) leads to the second centre; `aGap` is the tolerance of touching, in base points.
TRims CrossRims(double dx, double dy, double r1, double r2, double aGap) {
  // 1. Apart, or one within the other.
  const double d = std::hypot(dx, dy);
  if (!(d >= TDraw2D::Degenerate) || d > r1 + r2 + aGap || std::fabs(r1 - r2) - aGap > d) return {};
  // 2. Along the centres to the chord, and half the chord.
  const double a = (r1 * r1 - r2 * r2 + d * d) / (2 * d);
  const double h = std::sqrt(std::max(0.0, r1 * r1 - a * a));
  TRims rims;
  rims.midX = a * dx / d;
  rims.midY = a * dy / d;
  rims.offX = -dy * h / d;
  rims.offY = dx * h / d;
  rims.count = h < aGap ? 1 : 2;
  return rims;
}

}  // namespace

bool TDraw2D::IntersectLines(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4, Int64 y4,
                             bool Cross, bool EndLine, Int64& xi, Int64& yi) {
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  const Int128 det = WideCross(dx, dy, Span(x3, x4), Span(y3, y4));
  if (det == 0) return false;
  // Up to 2^41 base points, 2200 km, the products fit, and halves are rounded as halves.
  const Int128 along = WideCross(Span(x1, x3), Span(y1, y3), Span(x3, x4), Span(y3, y4));
  if (AllWithin(41, {dx, dy, Span(x1, x3), Span(y1, y3), Span(x3, x4), Span(y3, y4)})) {
    xi = OffsetRatio(x1, along * dx, det);
    yi = OffsetRatio(y1, along * dy, det);
  } else {
    const double t = ToDouble(along) / ToDouble(det);
    xi = PointAt(x1, t, dx);
    yi = PointAt(y1, t, dy);
  }
  if (!Cross) return true;
  const auto isEnd = [&](Int64 x, Int64 y) { return xi == x && yi == y; };
  if (!EndLine && (isEnd(x1, y1) || isEnd(x2, y2) || isEnd(x3, y3) || isEnd(x4, y4))) return false;
  return ValInRange(xi, x1, x2) && ValInRange(xi, x3, x4) && ValInRange(yi, y1, y2) && ValInRange(yi, y3, y4);
}

bool TDraw2D::LinePerpenFromPoint(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px, Int64 py, bool Cross,
                                  Int64& xi, Int64& yi) {
  if (y1 == y2) {
    xi = px;
    yi = y1;
    return py != y1 && (!Cross || ValInRange(xi, x1, x2));
  }
  if (x1 == x2) {
    xi = x1;
    yi = py;
    return px != x1 && (!Cross || ValInRange(yi, y1, y2));
  }
  const double m = AsDouble(Span(y1, y2)) / AsDouble(Span(x1, x2));
  const double b = AsDouble(y1) - m * AsDouble(x1);
  xi = RoundHeld((AsDouble(py) + AsDouble(px) / m - b) / (m + 1 / m));
  // Intended: from the rounded xi, so that the foot lies on the line in y.
  yi = RoundHeld(m * AsDouble(xi) + b);
  return !Cross || (ValInRange(xi, x1, x2) && ValInRange(yi, y1, y2));
}

bool TDraw2D::LinePerpenFromPoint(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 px, Int64 py, bool Cross,
                                  int& xi, int& yi) {
  Int64 x = 0;
  Int64 y = 0;
  const bool found = LinePerpenFromPoint(x1, y1, x2, y2, px, py, Cross, x, y);
  xi = static_cast<int>(std::clamp<Int64>(x, INT32_MIN, INT32_MAX));
  yi = static_cast<int>(std::clamp<Int64>(y, INT32_MIN, INT32_MAX));
  return found;
}

std::int16_t TDraw2D::LineCrossCircle(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 cx, Int64 cy, Int64 r,
                                      Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y) {
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  // 1. A line needs a direction.
  const TQuadratic q = CircleQuadratic(dx, dy, Span(cx, x1), Span(cy, y1), r);
  if (q.a <= TangentDiscriminant) return 0;
  const auto give = [&](double first, double second) {
    p1x = PointAt(x1, first, dx);
    p1y = PointAt(y1, first, dy);
    p2x = PointAt(x1, second, dx);
    p2y = PointAt(y1, second, dy);
  };
  // 2. Two points, the plus sign first.
  if (q.discriminant >= TangentDiscriminant) {
    give(q.PlusRoot(), q.MinusRoot());
    return 2;
  }
  // 3. and 4. A tangent, or a line that misses so little that it counts as one.
  const bool tangent = q.discriminant >= 0;
  const bool near = r != 0 && NearMissFactor * q.a * std::fabs(AsDouble(r)) >= -q.discriminant;
  if (!tangent && !near) return 0;
  give(q.Middle(), q.Middle());
  return 1;
}

std::int16_t TDraw2D::LineCrossEllipse(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 cx, Int64 cy, Int64 rx,
                                       Int64 ry, Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y) {
  if (rx == 0 || ry == 0) return 0;
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  const TQuadratic q = EllipseQuadratic(AsDouble(dx), AsDouble(dy), AsDouble(Span(cx, x1)),
                                        AsDouble(Span(cy, y1)), AsDouble(rx), AsDouble(ry));
  if (q.a <= EllipseCoefficient || q.discriminant < 0) return 0;
  const bool tangent = q.discriminant < TangentDiscriminant;
  const double first = tangent ? q.Middle() : q.PlusRoot();
  const double second = tangent ? q.Middle() : q.MinusRoot();
  p1x = PointAt(x1, first, dx);
  p1y = PointAt(y1, first, dy);
  p2x = PointAt(x1, second, dx);
  p2y = PointAt(y1, second, dy);
  return tangent ? 1 : 2;
}

std::int16_t TDraw2D::LineCrossRect(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Int64 x4,
                                    Int64 y4, Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y) {
  const Int64 dx = Span(x1, x2);
  const Int64 dy = Span(y1, y2);
  const Int64 left = Span(x1, std::min(x3, x4));
  const Int64 right = Span(x1, std::max(x3, x4));
  const Int64 top = Span(y1, std::min(y3, y4));
  const Int64 bottom = Span(y1, std::max(y3, y4));
  TTwoPoints points;
  for (Int64 side : {left, right}) {
    if (HitsSide(dx, dy, side, top, bottom)) {
      points.Add(AddHeld(x1, side), OffsetRatio(y1, static_cast<Int128>(side) * dy, dx));
    }
  }
  for (Int64 side : {top, bottom}) {
    if (HitsSide(dy, dx, side, left, right)) {
      points.Add(OffsetRatio(x1, static_cast<Int128>(side) * dx, dy), AddHeld(y1, side));
    }
  }
  return points.Give(p1x, p1y, p2x, p2y);
}

std::int16_t TDraw2D::CircleCrossCircle(Int64 c1x, Int64 c1y, Int64 r1, Int64 c2x, Int64 c2y, Int64 r2,
                                        Int64& p1x, Int64& p1y, Int64& p2x, Int64& p2y) {
  const TRims rims =
      CrossRims(AsDouble(Span(c1x, c2x)), AsDouble(Span(c1y, c2y)), AsDouble(r1), AsDouble(r2), CircleGap);
  if (rims.count == 0) return 0;
  p1x = RoundHeld(AsDouble(c1x) + rims.midX + rims.offX);
  p1y = RoundHeld(AsDouble(c1y) + rims.midY + rims.offY);
  p2x = RoundHeld(AsDouble(c1x) + rims.midX - rims.offX);
  p2y = RoundHeld(AsDouble(c1y) + rims.midY - rims.offY);
  return rims.count;
}

std::int16_t TDraw2D::CircleCircleIntersections(double c1x, double c1y, double r1, double c2x, double c2y,
                                                double r2, double& px1, double& py1, double& px2,
                                                double& py2) {
  const TRims rims = CrossRims(c2x - c1x, c2y - c1y, r1, r2, WideCircleGap);
  if (rims.count == 0) return 0;
  px1 = c1x + rims.midX + rims.offX;
  py1 = c1y + rims.midY + rims.offY;
  px2 = c1x + rims.midX - rims.offX;
  py2 = c1y + rims.midY - rims.offY;
  return rims.count;
}

}  // namespace Zor::inline Utils
