#include "kaldrix/host/TPath.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "kaldrix/host/TMatrix.hpp"

namespace Zor::inline Host {

namespace {

constexpr double FullTurn = 2 * std::numbers::pi;
/// How far a Bezier piece may leave its arc, millimetres.
constexpr double ArcTolerance = 0.001;
/// A piece that spans the angle t leaves a circle of radius r by about r t^6 / 55296 (the leading term of the
/// error of the cubic with tangent length 4/3 tan(t/4)).
constexpr double ArcErrorScale = 55296.0;
constexpr int MostArcPieces = 256;

int ArcPieces(double radius, double sweep) {
  const double widest = std::min(std::numbers::pi / 2,
                                 std::pow(ArcTolerance * ArcErrorScale / std::max(radius, 1e-3), 1.0 / 6));
  return static_cast<int>(std::clamp(std::ceil(std::abs(sweep) / widest), 1.0, double{MostArcPieces}));
}

/// Extends the box by numbers that are held far from infinity.
void Include(TPaperBox& box, double x, double y) {
  x = Moved(x);
  y = Moved(y);
  box.left = std::min(box.left, x);
  box.right = std::max(box.right, x);
  box.top = std::min(box.top, y);
  box.bottom = std::max(box.bottom, y);
}

/// Where a cubic with these values turns around, at most two places between 0 and 1; others are 0.
std::array<double, 2> Turns(double p0, double p1, double p2, double p3) {
  const double a = p3 - 3 * p2 + 3 * p1 - p0, b = 2 * (p2 - 2 * p1 + p0), c = p1 - p0;
  const auto inside = [](double t) { return t > 0 && t < 1 ? t : 0.0; };
  const double root = std::sqrt(std::max(0.0, b * b - 4 * a * c));
  const double q = -(b + std::copysign(root, b)) / 2;
  return {a != 0 ? inside(q / a) : 0, q != 0 ? inside(c / q) : 0};
}

double CubicAt(double t, double p0, double p1, double p2, double p3) {
  const double s = 1 - t;
  return s * s * s * p0 + 3 * s * s * t * p1 + 3 * s * t * t * p2 + t * t * t * p3;
}

void IncludeCurve(TPaperBox& box, const TPaperPoint* p) {
  Include(box, p[3].x, p[3].y);
  for (const double t : Turns(p[0].x, p[1].x, p[2].x, p[3].x)) {
    if (t > 0) Include(box, CubicAt(t, p[0].x, p[1].x, p[2].x, p[3].x), p[0].y);
  }
  for (const double t : Turns(p[0].y, p[1].y, p[2].y, p[3].y)) {
    if (t > 0) Include(box, p[0].x, CubicAt(t, p[0].y, p[1].y, p[2].y, p[3].y));
  }
}

}  // namespace

TPath& TPath::MoveTo(double x, double y) {
  fSteps.push_back(psMove);
  fPoints.push_back({x, y});
  return *this;
}

TPath& TPath::LineTo(double x, double y) {
  fSteps.push_back(fSteps.empty() ? psMove : psLine);
  fPoints.push_back({x, y});
  return *this;
}

TPath& TPath::QuadTo(double cx, double cy, double x, double y) {
  const TPaperPoint from = Current();
  return CurveTo(from.x + (cx - from.x) * 2 / 3, from.y + (cy - from.y) * 2 / 3, x + (cx - x) * 2 / 3,
                 y + (cy - y) * 2 / 3, x, y);
}

TPath& TPath::CurveTo(double c1x, double c1y, double c2x, double c2y, double x, double y) {
  if (fSteps.empty()) MoveTo(c1x, c1y);
  fSteps.push_back(psCurve);
  fPoints.insert(fPoints.end(), {{c1x, c1y}, {c2x, c2y}, {x, y}});
  return *this;
}

TPath& TPath::Arc(double cx, double cy, double rx, double ry, double start, double sweep) {
  if (!std::isfinite(start) || !std::isfinite(sweep)) return *this;
  const double turn = std::clamp(sweep, -FullTurn, FullTurn);
  LineTo(cx + rx * std::cos(start), cy + ry * std::sin(start));
  const int pieces = ArcPieces(std::max(std::abs(rx), std::abs(ry)), turn);
  for (int i = 0; i < pieces; ++i) ArcPiece(cx, cy, rx, ry, start + turn * i / pieces, turn / pieces);
  return *this;
}

void TPath::ArcPiece(double cx, double cy, double rx, double ry, double from, double step) {
  const double k = 4.0 / 3.0 * std::tan(step / 4);
  const double to = from + step;
  const double c1 = std::cos(from), s1 = std::sin(from), c2 = std::cos(to), s2 = std::sin(to);
  CurveTo(cx + rx * (c1 - k * s1), cy + ry * (s1 + k * c1), cx + rx * (c2 + k * s2), cy + ry * (s2 - k * c2),
          cx + rx * c2, cy + ry * s2);
}

TPath& TPath::Close() {
  if (!fSteps.empty()) fSteps.push_back(psClose);
  return *this;
}

TPath& TPath::Lines(std::span<const TPaperPoint> points) {
  if (points.empty()) return *this;
  MoveTo(points[0].x, points[0].y);
  for (const TPaperPoint& p : points.subspan(1)) LineTo(p.x, p.y);
  return *this;
}

TPath& TPath::Rect(double x, double y, double width, double height, double radius) {
  const double rx = std::min(radius, width / 2), ry = std::min(radius, height / 2);
  if (!(rx > 0 && ry > 0)) {
    return MoveTo(x, y).LineTo(x + width, y).LineTo(x + width, y + height).LineTo(x, y + height).Close();
  }
  constexpr double Quarter = std::numbers::pi / 2;
  MoveTo(x + rx, y);
  Arc(x + width - rx, y + ry, rx, ry, -Quarter, Quarter);
  Arc(x + width - rx, y + height - ry, rx, ry, 0, Quarter);
  Arc(x + rx, y + height - ry, rx, ry, Quarter, Quarter);
  Arc(x + rx, y + ry, rx, ry, 2 * Quarter, Quarter);
  return Close();
}

TPath& TPath::Ellipse(double cx, double cy, double rx, double ry) {
  MoveTo(cx + rx, cy);
  return Arc(cx, cy, rx, ry, 0, FullTurn).Close();
}

TPaperBox TPath::Bounds() const {
  if (fPoints.empty()) return {};
  constexpr double Far = 2 * FarthestMove;
  TPaperBox box{Far, Far, -Far, -Far};
  const TPaperPoint* next = fPoints.data();
  for (const TStep step : fSteps) {
    if (step == psClose) continue;
    // A curve begins at the point before it: there is always one.
    if (step == psCurve) IncludeCurve(box, next - 1);
    if (step != psCurve) Include(box, next->x, next->y);
    next += step == psCurve ? 3 : 1;
  }
  return box;
}

double SweepBetween(double start, double end, bool clockwise) {
  const double turn = std::fmod(end - start, FullTurn);
  if (clockwise) return turn < 0 ? turn + FullTurn : turn;
  return turn > 0 ? turn - FullTurn : turn;
}

}  // namespace Zor::inline Host
