#include "host/TSurface.hpp"

#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <unordered_map>

#include "host/TShaper.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

constexpr double MMPerInch = 25.4;
constexpr double PointsPerInch = 72.0;
/// Cairo holds device coordinates in 24.8 bits: farther ones would come back on the other side.
constexpr double FarthestDevice = 4e6;
/// Limits of lengths that scale what is drawn, millimetres.
constexpr double WidestPen = 1e4, HighestFont = 1e4, LargestSheet = 1e5;
constexpr double LeastStretch = 0.001, MostStretch = 1000;
constexpr double FarthestMove = 1e9;
/// Area by which a transform may magnify or shrink: beyond, Cairo could not invert it.
constexpr double LeastArea = 1e-12, MostArea = 1e12;
/// Em sizes that can be drawn, pixels of a raster or points of a PDF. Smaller ones would not be seen, greater
/// ones are beyond the sheet and beyond FreeType.
constexpr double LeastEm = 0.01, MostEm = 16000;
/// A dashed outline with more periods than this is drawn solid: nobody could see them, and a file must not be
/// able to ask for billions.
constexpr double MostDashes = 200'000;
constexpr double MiterLimit = 4.0;
/// Cairo rounds glyphs to whole pixels: below this resolution letters would dance, so they are drawn as
/// outlines.
constexpr double LeastGlyphDpi = 200;
/// Above this em size, in pixels, outlines are faster than glyph pictures.
constexpr double LargestGlyph = 256;
/// Half the angle between the wings of an arrow, radians.
constexpr double WingAngle = std::numbers::pi / 8;
/// Converted pictures that a surface keeps, pixels.
constexpr std::int64_t MostKeptPixels = MaxPixels / 4;

constexpr std::array<double, 2> Dash0505{0.5, 0.5}, Dash11{1, 1}, Dash21{2, 1}, Dash22{2, 2}, Dash31{3, 1},
    Dash33{3, 3}, Dash41{4, 1}, Dash42{4, 2}, Dash44{4, 4};
constexpr std::array<double, 4> Dash411{4, 1, 1, 1};

double Finite(double value) { return std::isfinite(value) ? value : 0; }
double Device(double value) { return std::clamp(Finite(value), -FarthestDevice, FarthestDevice); }
double Moved(double value) { return std::clamp(Finite(value), -FarthestMove, FarthestMove); }
double Alpha(TAlphaColor color) { return (color >> 24) / 255.0; }

std::array<double, 4> Channels(TAlphaColor color) {
  return {(color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color & 0xFF) / 255.0, Alpha(color)};
}

void SetColor(cairo_t* cr, TAlphaColor color) {
  const auto [r, g, b, a] = Channels(color);
  cairo_set_source_rgba(cr, r, g, b, a);
}

/// The matrix whose quarter turns are exact, so that bars that were turned still lie along the axes.
cairo_matrix_t RotationMatrix(double degrees) {
  const double turn = std::fmod(Finite(degrees), 360.0);
  double c = std::cos(turn * std::numbers::pi / 180), s = std::sin(turn * std::numbers::pi / 180);
  if (std::fmod(turn, 90.0) == 0) {
    c = std::round(c);
    s = std::round(s);
  }
  return {c, s, -s, c, 0, 0};
}

double Area(const cairo_matrix_t& m) { return std::abs(m.xx * m.yy - m.xy * m.yx); }
bool Invertible(const cairo_matrix_t& m) { return Area(m) >= LeastArea && Area(m) <= MostArea; }

/// Whether a text with this many units to the em can be drawn under `m`.
bool DrawableEm(const cairo_matrix_t& m, double unitsPerEm) {
  const double across = std::hypot(m.xx, m.yx) * unitsPerEm, up = std::hypot(m.xy, m.yy) * unitsPerEm;
  return std::min(across, up) >= LeastEm && std::max(across, up) <= MostEm && Area(m) > 0;
}

bool AlongAxes(const cairo_matrix_t& m) { return (m.xy == 0 && m.yx == 0) || (m.xx == 0 && m.yy == 0); }

double Distance(const TPaperPoint& a, const TPaperPoint& b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// Length of the polygon of points and controls, an upper bound of the outline's own.
double LengthBound(const TPath& path) {
  double length = 0;
  const auto points = path.Points();
  for (std::size_t i = 1; i < points.size(); ++i) length += Finite(Distance(points[i - 1], points[i]));
  return length;
}

cairo_status_t Append(void* text, const unsigned char* data, unsigned length) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

/// One pixel with its colours multiplied by alpha.
std::uint32_t Premultiplied(TAlphaColor color) {
  const std::uint32_t a = color >> 24;
  if (a == 255) return color;
  const auto times = [a](std::uint32_t v) { return (v * a + 127) / 255; };
  return a << 24 | times(color >> 16 & 0xFF) << 16 | times(color >> 8 & 0xFF) << 8 | times(color & 0xFF);
}

void CheckSheet(double widthMM, double heightMM) {
  const auto usable = [](double v) { return v > 0 && v <= LargestSheet; };
  if (!usable(widthMM) || !usable(heightMM)) {
    throw EArgumentException("A sheet of " + std::to_string(widthMM) + " x " + std::to_string(heightMM) +
                             " mm cannot be drawn on");
  }
}

struct TCairoSurfaceFree {
  void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
struct TCairoFree {
  void operator()(cairo_t* cr) const { cairo_destroy(cr); }
};
using TCairoSurface = std::unique_ptr<cairo_surface_t, TCairoSurfaceFree>;

/// Lets Cairo store the file of `picture` instead of its pixels; the picture lives as long as Cairo needs it.
void AttachJpeg(cairo_surface_t* surface, const std::shared_ptr<const TPicture>& picture) {
  auto owner = std::make_unique<std::shared_ptr<const TPicture>>(picture);
  const auto* data = reinterpret_cast<const unsigned char*>(picture->jpeg.data());
  const cairo_status_t status = cairo_surface_set_mime_data(
      surface, CAIRO_MIME_TYPE_JPEG, data, picture->jpeg.size(),
      [](void* p) { delete static_cast<std::shared_ptr<const TPicture>*>(p); }, owner.get());
  if (status == CAIRO_STATUS_SUCCESS) static_cast<void>(owner.release());
}

TCairoSurface ConvertPicture(const std::shared_ptr<const TPicture>& picture) {
  const bool opaque = std::all_of(picture->pixels.begin(), picture->pixels.end(),
                                  [](TAlphaColor p) { return p >> 24 == 255; });
  TCairoSurface surface(cairo_image_surface_create(opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                                   picture->width, picture->height));
  unsigned char* rows = cairo_image_surface_get_data(surface.get());
  if (rows == nullptr) throw Exception("There is no memory for a picture");
  const auto width = static_cast<std::size_t>(picture->width);
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
  for (std::size_t y = 0; y < static_cast<std::size_t>(picture->height); ++y) {
    const TAlphaColor* from = &picture->pixels[y * width];
    std::transform(from, from + width, reinterpret_cast<std::uint32_t*>(rows + y * stride), Premultiplied);
  }
  cairo_surface_mark_dirty(surface.get());
  if (!picture->jpeg.empty()) AttachJpeg(surface.get(), picture);
  return surface;
}

}  // namespace

double BaselineOffset(TTextVert vert, const TTextSize& size) {
  constexpr double HangingPart = 0.8;
  switch (vert) {
    case tvBaseline:
      return 0;
    case tvTop:
      return size.ascent;
    case tvCentral:
      return (size.ascent - size.descent) / 2;
    case tvBottom:
      return -size.descent;
    case tvHanging:
      return HangingPart * size.ascent;
  }
  return 0;
}

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

struct TSurface::TImpl {
  struct TKept {
    std::shared_ptr<const TPicture> picture;
    TCairoSurface surface;
  };

  TFontEngine* fonts = nullptr;
  /// Before the surface, which writes to it until it is gone.
  std::string pdf;
  TCairoSurface surface;
  std::unique_ptr<cairo_t, TCairoFree> cr;
  bool raster = false;
  bool opaque = false;
  double dpi = PointsPerInch;
  int saves = 0;
  std::unordered_map<const TPicture*, TKept> pictures;
  std::int64_t keptPixels = 0;

  void Begin() {
    cr.reset(cairo_create(surface.get()));
    cairo_scale(cr.get(), dpi / MMPerInch, dpi / MMPerInch);
    cairo_set_miter_limit(cr.get(), MiterLimit);
    saves = 0;
    Check();
  }

  void Check() const {
    cairo_status_t status = cairo_status(cr.get());
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS) {
      throw Exception(std::string("The drawing failed: ") + cairo_status_to_string(status));
    }
  }

  cairo_matrix_t Matrix() const {
    cairo_matrix_t m;
    cairo_get_matrix(cr.get(), &m);
    return m;
  }

  void Emit(const TPath& path);
  void SetBrush(const TBrush& brush);
  void Draw(const TPath& path, const TPen& pen, const TBrush& brush);
  void Stroke(const TPen& pen, double lengthBound);
  void FillText(std::string_view text, const TTextPlace& place, const TFontSpec& font);
  cairo_surface_t* Converted(const std::shared_ptr<const TPicture>& picture);
};

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

TSurface::TSurface(std::unique_ptr<TImpl> impl) : fImpl(std::move(impl)) {}
TSurface::TSurface(TSurface&&) noexcept = default;
TSurface& TSurface::operator=(TSurface&&) noexcept = default;
TSurface::~TSurface() = default;

TSurface TSurface::MakeRaster(TFontEngine& fonts, double widthMM, double heightMM, double dpi,
                              TAlphaColor background) {
  CheckSheet(widthMM, heightMM);
  if (!(dpi >= 1 && dpi <= 1e5)) {
    throw EArgumentException("A resolution of " + std::to_string(dpi) + " dpi cannot be drawn in");
  }
  const Int64 width = std::max(Int64{1}, Round(widthMM * dpi / MMPerInch));
  const Int64 height = std::max(Int64{1}, Round(heightMM * dpi / MMPerInch));
  CheckPixels(width, height, "A sheet at " + std::to_string(Round(dpi)) + " dpi");
  auto impl = std::make_unique<TImpl>();
  impl->fonts = &fonts;
  impl->raster = true;
  impl->opaque = background >> 24 == 255;
  impl->dpi = dpi;
  impl->surface.reset(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
  impl->Begin();
  SetColor(impl->cr.get(), background);
  if (Alpha(background) > 0) cairo_paint(impl->cr.get());
  return TSurface(std::move(impl));
}

TSurface TSurface::MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info) {
  CheckSheet(widthMM, heightMM);
  auto impl = std::make_unique<TImpl>();
  impl->fonts = &fonts;
  impl->surface.reset(cairo_pdf_surface_create_for_stream(
      Append, &impl->pdf, widthMM * PointsPerInch / MMPerInch, heightMM * PointsPerInch / MMPerInch));
  std::string buffer;
  const std::string title(CleanText(info.title, buffer));
  if (!title.empty()) {
    cairo_pdf_surface_set_metadata(impl->surface.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
  }
  cairo_pdf_surface_set_metadata(impl->surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, info.created.c_str());
  impl->Begin();
  return TSurface(std::move(impl));
}

bool TSurface::IsRaster() const { return fImpl->raster; }

TFontEngine& TSurface::Fonts() const { return *fImpl->fonts; }

TRasterView TSurface::Raster() {
  if (!fImpl->raster) throw EInvalidOperation("A PDF has no pixels");
  fImpl->Check();
  cairo_surface_t* surface = fImpl->surface.get();
  cairo_surface_flush(surface);
  TRasterView view;
  view.width = cairo_image_surface_get_width(surface);
  view.height = cairo_image_surface_get_height(surface);
  view.stride = cairo_image_surface_get_stride(surface) / static_cast<int>(sizeof(std::uint32_t));
  view.pixels = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface));
  view.opaque = fImpl->opaque;
  view.dpi = fImpl->dpi;
  return view;
}

void TSurface::NewPage(double widthMM, double heightMM) {
  if (fImpl->raster) throw EInvalidOperation("A raster has one page");
  CheckSheet(widthMM, heightMM);
  cairo_show_page(fImpl->cr.get());
  fImpl->Check();
  cairo_pdf_surface_set_size(fImpl->surface.get(), widthMM * PointsPerInch / MMPerInch,
                             heightMM * PointsPerInch / MMPerInch);
  fImpl->Begin();
}

std::string TSurface::FinishPdf() {
  if (fImpl->raster) throw EInvalidOperation("A raster is no PDF");
  cairo_show_page(fImpl->cr.get());
  fImpl->Check();
  cairo_surface_finish(fImpl->surface.get());
  const cairo_status_t status = cairo_surface_status(fImpl->surface.get());
  if (status != CAIRO_STATUS_SUCCESS) {
    throw Exception(std::string("The PDF failed: ") + cairo_status_to_string(status));
  }
  return std::move(fImpl->pdf);
}

void TSurface::Save() {
  cairo_save(fImpl->cr.get());
  ++fImpl->saves;
}

void TSurface::Restore() {
  if (fImpl->saves == 0) return;
  --fImpl->saves;
  cairo_restore(fImpl->cr.get());
}

void TSurface::Translate(double dx, double dy) { cairo_translate(fImpl->cr.get(), Moved(dx), Moved(dy)); }

void TSurface::Rotate(double degrees, double x, double y) {
  const cairo_matrix_t turn = RotationMatrix(degrees);
  Translate(x, y);
  cairo_transform(fImpl->cr.get(), &turn);
  Translate(-x, -y);
}

void TSurface::Scale(double sx, double sy) {
  cairo_matrix_t m = fImpl->Matrix();
  cairo_matrix_scale(&m, Finite(sx), Finite(sy));
  if (Invertible(m)) cairo_set_matrix(fImpl->cr.get(), &m);
}

void TSurface::ClipRect(double x, double y, double width, double height) {
  ClipPath(TPath().Rect(x, y, width, height));
}

void TSurface::ClipCircle(double cx, double cy, double r) { ClipPath(TPath().Ellipse(cx, cy, r, r)); }

void TSurface::ClipPath(const TPath& path) {
  fImpl->Emit(path);
  cairo_clip(fImpl->cr.get());
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
    const auto length = static_cast<double>(Round(std::clamp(Finite(size), 0.0, HighestFont)));
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

void TSurface::Text(std::string_view text, const TTextPlace& place, const TFontSpec& font,
                    TAlphaColor color) {
  if (text.empty() || !(font.heightMM > 0) || Alpha(color) == 0) return;
  std::string buffer;
  const std::string_view clean = CleanText(text, buffer);
  cairo_t* cr = fImpl->cr.get();
  Save();
  SetColor(cr, color);
  fImpl->FillText(clean, place, font);
  Restore();
}

/// Paints the line and its decorations in the current colour. The unit becomes that of the shaped line, with
/// the origin at the left end of its baseline.
void TSurface::TImpl::FillText(std::string_view text, const TTextPlace& place, const TFontSpec& font) {
  const double height = std::min(font.heightMM, HighestFont);
  const TFace& face = fonts->Shaper().Face(font);
  const TTextSize size{0, face.ascent * height, face.descent * height};
  const TShapedLine shaped = fonts->Shaper().Shape(text, face);
  const double unit = height / shaped.unitsPerEm;
  const double stretch = std::clamp(Finite(place.scaleX), LeastStretch, MostStretch);
  const double start = place.anchor == taStart ? 0 : place.anchor == taMiddle ? 0.5 : 1.0;
  cairo_t* c = cr.get();
  const cairo_matrix_t turn = RotationMatrix(place.angle);
  cairo_translate(c, Moved(place.x), Moved(place.y));
  cairo_transform(c, &turn);
  cairo_matrix_t letters = Matrix();
  cairo_matrix_scale(&letters, unit * stretch, unit);
  if (!DrawableEm(letters, shaped.unitsPerEm)) return;
  cairo_set_matrix(c, &letters);
  cairo_translate(c, -start * shaped.width, BaselineOffset(place.vert, size) / unit);
  cairo_new_path(c);
  const bool outlines =
      raster && !shaped.pictures && (dpi < LeastGlyphDpi || height * dpi / MMPerInch > LargestGlyph);
  cairo_move_to(c, 0, 0);
  if (outlines) {
    pango_cairo_layout_line_path(c, shaped.line);
    cairo_fill(c);
  } else {
    pango_cairo_show_layout_line(c, shaped.line);
  }
  cairo_new_path(c);
  const double em = shaped.unitsPerEm;
  if (font.underline) cairo_rectangle(c, 0, face.underline * em, shaped.width, face.underlineThickness * em);
  if (font.strikeout) cairo_rectangle(c, 0, -face.strikeout * em, shaped.width, face.strikeoutThickness * em);
  cairo_fill(c);
}

cairo_surface_t* TSurface::TImpl::Converted(const std::shared_ptr<const TPicture>& picture) {
  if (const auto kept = pictures.find(picture.get()); kept != pictures.end())
    return kept->second.surface.get();
  const std::int64_t size = std::int64_t{picture->width} * picture->height;
  if (keptPixels + size > MostKeptPixels) {
    pictures.clear();
    keptPixels = 0;
  }
  keptPixels += size;
  TKept& kept = pictures[picture.get()];
  kept = {picture, ConvertPicture(picture)};
  return kept.surface.get();
}

void TSurface::Image(const std::shared_ptr<const TPicture>& picture, double x, double y, double width,
                     double height, double opacity) {
  if (!picture || picture->width <= 0 || picture->height <= 0 || !(width > 0) || !(height > 0)) return;
  cairo_t* cr = fImpl->cr.get();
  cairo_matrix_t m = fImpl->Matrix();
  cairo_matrix_translate(&m, Moved(x), Moved(y));
  cairo_matrix_scale(&m, width / picture->width, height / picture->height);
  if (!Invertible(m)) return;
  cairo_surface_t* pixels = fImpl->Converted(picture);
  Save();
  cairo_set_matrix(cr, &m);
  cairo_set_source_surface(cr, pixels, 0, 0);
  // On a raster the edge pixels are not blended with the nothing around them; a PDF takes the picture as it
  // is.
  if (fImpl->raster) cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
  cairo_rectangle(cr, 0, 0, picture->width, picture->height);
  cairo_clip(cr);
  cairo_paint_with_alpha(cr, std::clamp(Finite(opacity), 0.0, 1.0));
  Restore();
}

}  // namespace Zor::inline Host
