#include "kaldrix/host/TSurface.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "kaldrix/host/TCanvas.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Host {

namespace {

/// Greatest size of a mark at the end of a stroke, millimetres.
constexpr double LargestTerminator = 1e4;
/// Half the angle between the wings of an arrow, radians.
constexpr double WingAngle = std::numbers::pi / 8;

constexpr std::array<double, 2> Dash0505{0.5, 0.5}, Dash11{1, 1}, Dash21{2, 1}, Dash22{2, 2}, Dash31{3, 1},
    Dash33{3, 3}, Dash41{4, 1}, Dash42{4, 2}, Dash44{4, 4};
constexpr std::array<double, 4> Dash411{4, 1, 1, 1};

}  // namespace

std::span<const double> DashPattern(TZOLineType line) {
  switch (line) {
    case iiSolid:
      return {};
    case ii0505:
      return Dash0505;
    case ii11:
      return Dash11;
    // Intended: the same pattern for both, as in SVG output.
    case ii21:
    case ii12:
      return Dash21;
    case ii22:
      return Dash22;
    case ii31:
      return Dash31;
    case ii33:
      return Dash33;
    case ii41:
      return Dash41;
    case ii42:
      return Dash42;
    case ii44:
      return Dash44;
    case ii411:
      return Dash411;
  }
  return {};
}

void TSurface::Line(double x1, double y1, double x2, double y2, const TPen& pen) {
  Path(TPath().MoveTo(x1, y1).LineTo(x2, y2), pen, {});
}

void TSurface::PolyLine(std::span<const TPaperPoint> points, const TPen& pen) {
  Path(TPath().Lines(points), pen, {});
}

void TSurface::Arc(double cx, double cy, double r, double start, double end, bool clockwise,
                   const TPen& pen) {
  const double sweep = SweepBetween(start, end, clockwise);
  if (sweep != 0) Path(TPath().Arc(cx, cy, r, r, start, sweep), pen, {});
}

void TSurface::Terminator(TZORTermType type, double x, double y, double fromX, double fromY, double size,
                          const TPen& pen, TAlphaColor fill, bool isArc) {
  const double h = size / 2;
  const TPen solid{pen.color, pen.width, iiSolid, false};
  const TBrush brush{
      fill, type == ttFillCircle || type == ttFillArrow || type == ttFillSquare || type == ttFillRhombus};
  const double direction = isArc ? fromX : std::atan2(y - fromY, x - fromX);
  const auto wing = [&](double turn) {
    const auto length = static_cast<double>(Round(std::clamp(Finite(size), 0.0, LargestTerminator)));
    return TPaperPoint{x - length * std::cos(direction + turn), y - length * std::sin(direction + turn)};
  };
  const TPaperPoint w1 = wing(-WingAngle), w2 = wing(WingAngle);
  switch (type) {
    case ttNone:
      return;
    case ttCircle:
    case ttFillCircle:
      return Circle(x, y, h, solid, brush);
    case ttArrow:
      Line(x, y, w1.x, w1.y, solid);
      return Line(x, y, w2.x, w2.y, solid);
    case ttFillArrow:
      return Polygon(std::array{TPaperPoint{x, y}, w1, w2}, solid, brush);
    case ttSquare:
    case ttFillSquare:
      return Rect(x - h, y - h, size, size, 0, solid, brush);
    case ttRhombus:
    case ttFillRhombus:
      return Polygon(std::array<TPaperPoint, 4>{{{x, y - h}, {x + h, y}, {x, y + h}, {x - h, y}}}, solid,
                     brush);
    case ttLeftDia:
      return Line(x - h, y - h, x + h, y + h, solid);
    case ttRightDia:
      return Line(x + h, y - h, x - h, y + h, solid);
    case ttCross:
      Line(x - h, y - h, x + h, y + h, solid);
      return Line(x + h, y - h, x - h, y + h, solid);
  }
}

void TSurface::Polygon(std::span<const TPaperPoint> points, const TPen& pen, const TBrush& brush) {
  Path(TPath().Lines(points).Close(), pen, brush);
}

void TSurface::Rect(double x, double y, double width, double height, double radius, const TPen& pen,
                    const TBrush& brush) {
  Path(TPath().Rect(x, y, width, height, radius), pen, brush);
}

void TSurface::Circle(double cx, double cy, double r, const TPen& pen, const TBrush& brush) {
  Ellipse(cx, cy, r, r, pen, brush);
}

void TSurface::Ellipse(double cx, double cy, double rx, double ry, const TPen& pen, const TBrush& brush) {
  Path(TPath().Ellipse(cx, cy, rx, ry), pen, brush);
}

void TSurface::Sector(double cx, double cy, double r, double startDeg, double sweepDeg, const TPen& pen,
                      const TBrush& brush) {
  if (std::abs(sweepDeg) >= 360) return Circle(cx, cy, r, pen, brush);
  constexpr double Radians = std::numbers::pi / 180;
  Path(TPath().MoveTo(cx, cy).Arc(cx, cy, r, r, startDeg * Radians, sweepDeg * Radians).Close(), pen, brush);
}

void TSurface::Bezier(std::span<const TPaperPoint> points, bool closed, const TPen& pen,
                      const TBrush& brush) {
  if (points.size() < 4) return;
  TPath path;
  path.MoveTo(points[0].x, points[0].y);
  for (std::size_t i = 1; i + 2 < points.size(); i += 3) {
    path.CurveTo(points[i].x, points[i].y, points[i + 1].x, points[i + 1].y, points[i + 2].x,
                 points[i + 2].y);
  }
  if (closed) path.Close();
  Path(path, pen, closed ? brush : TBrush{});
}

void TSurface::Path(const TPath& path, const TPen& pen, const TBrush& brush) {
  fCanvas->Draw(path, pen, brush);
}

void TSurface::FillBars(std::span<const TBar> bars, TAlphaColor color) { fCanvas->FillBars(bars, color); }

}  // namespace Zor::inline Host
