#include "host/TPath.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

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

double SweepBetween(double start, double end, bool clockwise) {
  const double turn = std::fmod(end - start, FullTurn);
  if (clockwise) return turn < 0 ? turn + FullTurn : turn;
  return turn > 0 ? turn - FullTurn : turn;
}

}  // namespace Zor::inline Host
