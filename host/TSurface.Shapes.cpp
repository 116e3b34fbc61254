#include <numbers>

#include "host/TSurface.Impl.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Host {

namespace {

/// Limits of lengths, millimetres.
constexpr double WidestPen = 1e4, LargestTerminator = 1e4;
/// A dashed outline with more periods than this is drawn solid: nobody could see them, and a file must not be
/// able to ask for billions.
constexpr double MostDashes = 200'000;
/// Half the angle between the wings of an arrow, radians.
constexpr double WingAngle = std::numbers::pi / 8;

constexpr std::array<double, 2> Dash0505{0.5, 0.5}, Dash11{1, 1}, Dash21{2, 1}, Dash22{2, 2}, Dash31{3, 1},
    Dash33{3, 3}, Dash41{4, 1}, Dash42{4, 2}, Dash44{4, 4};
constexpr std::array<double, 4> Dash411{4, 1, 1, 1};

bool AlongAxes(const cairo_matrix_t& m) { return (m.xy == 0 && m.yx == 0) || (m.xx == 0 && m.yy == 0); }

double Distance(const TPaperPoint& a, const TPaperPoint& b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// Length of the polygon of points and controls, an upper bound of the outline's own.
double LengthBound(const TPath& path) {
  double length = 0;
  const auto points = path.Points();
  for (std::size_t i = 1; i < points.size(); ++i) length += Finite(Distance(points[i - 1], points[i]));
  return length;
}

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

/// Makes `path` Cairo's current one. The points are brought to the device here, where they can be held.
void TSurface::TImpl::Emit(const TPath& path) {
  const cairo_matrix_t m = Matrix();
  cairo_new_path(cr.get());
  cairo_identity_matrix(cr.get());
  const TPaperPoint* next = path.Points().data();
  const auto device = [&m, &next] {
    double x = next->x, y = next->y;
    cairo_matrix_transform_point(&m, &x, &y);
    ++next;
    return TPaperPoint{Device(x), Device(y)};
  };
  for (const TPath::TStep step : path.Steps()) {
    if (step == TPath::psClose) {
      cairo_close_path(cr.get());
      continue;
    }
    const TPaperPoint p = device();
    if (step == TPath::psMove) cairo_move_to(cr.get(), p.x, p.y);
    if (step == TPath::psLine) cairo_line_to(cr.get(), p.x, p.y);
    if (step == TPath::psCurve) {
      const TPaperPoint control = device();
      const TPaperPoint end = device();
      cairo_curve_to(cr.get(), p.x, p.y, control.x, control.y, end.x, end.y);
    }
  }
  cairo_set_matrix(cr.get(), &m);
}

/// Colour or gradient for the current path.
void TSurface::TImpl::SetBrush(const TBrush& brush) {
  if (brush.gradient == gkNone) return SetColor(cr.get(), brush.color);
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  cairo_path_extents(cr.get(), &x1, &y1, &x2, &y2);
  const double cx = (x1 + x2) / 2, cy = (y1 + y2) / 2, r = std::max(x2 - x1, y2 - y1) / 2;
  cairo_pattern_t* pattern = nullptr;
  switch (brush.gradient) {
    case gkHorz:
      pattern = cairo_pattern_create_linear(x1, 0, x2, 0);
      break;
    case gkVert:
      pattern = cairo_pattern_create_linear(0, y1, 0, y2);
      break;
    default:
      pattern = cairo_pattern_create_radial(cx, cy, 0, cx, cy, r);
      break;
  }
  const auto from = Channels(brush.color), to = Channels(brush.toColor);
  cairo_pattern_add_color_stop_rgba(pattern, 0, from[0], from[1], from[2], from[3]);
  cairo_pattern_add_color_stop_rgba(pattern, 1, to[0], to[1], to[2], to[3]);
  cairo_set_source(cr.get(), pattern);
  cairo_pattern_destroy(pattern);
}

void TSurface::TImpl::Draw(const TPath& path, const TPen& pen, const TBrush& brush) {
  const bool stroke = pen.width > 0 && Alpha(pen.color) > 0;
  const bool fill = brush.fill && (Alpha(brush.color) > 0 || brush.gradient != gkNone);
  if (path.Empty() || !(stroke || fill)) return;
  Emit(path);
  if (fill) {
    SetBrush(brush);
    cairo_fill_preserve(cr.get());
  }
  if (stroke) Stroke(pen, LengthBound(path));
  cairo_new_path(cr.get());
}

/// Strokes the current path.
void TSurface::TImpl::Stroke(const TPen& pen, double lengthBound) {
  const std::span<const double> dashes = DashPattern(pen.line);
  double period = 0;
  for (const double dash : dashes) period += dash;
  const bool dashed = !dashes.empty() && lengthBound < period * MostDashes;
  SetColor(cr.get(), pen.color);
  cairo_set_line_width(cr.get(), std::min(pen.width, WidestPen));
  cairo_set_line_cap(cr.get(), pen.roundCap ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
  cairo_set_dash(cr.get(), dashes.data(), dashed ? static_cast<int>(dashes.size()) : 0, 0);
  cairo_stroke(cr.get());
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
  fImpl->Draw(path, pen, brush);
}

void TSurface::FillBars(std::span<const TBar> bars, TAlphaColor color) {
  cairo_t* cr = fImpl->cr.get();
  const cairo_matrix_t m = fImpl->Matrix();
  if (!fImpl->raster || !AlongAxes(m)) {
    TPath path;
    for (const TBar& bar : bars) path.Rect(bar.x, bar.y, bar.width, bar.height);
    return Path(path, {}, {color, true});
  }
  cairo_new_path(cr);
  cairo_identity_matrix(cr);
  for (const TBar& bar : bars) {
    if (!(bar.width > 0 && bar.height > 0)) continue;
    double x1 = bar.x, y1 = bar.y, x2 = bar.x + bar.width, y2 = bar.y + bar.height;
    cairo_matrix_transform_point(&m, &x1, &y1);
    cairo_matrix_transform_point(&m, &x2, &y2);
    const double left = std::round(Device(std::min(x1, x2))), top = std::round(Device(std::min(y1, y2)));
    const double right = std::round(Device(std::max(x1, x2))), bottom = std::round(Device(std::max(y1, y2)));
    cairo_rectangle(cr, left, top, std::max(1.0, right - left), std::max(1.0, bottom - top));
  }
  SetColor(cr, color);
  cairo_fill(cr);
  cairo_set_matrix(cr, &m);
}

}  // namespace Zor::inline Host
