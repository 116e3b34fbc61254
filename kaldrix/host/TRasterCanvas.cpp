#include "kaldrix/host/TRasterCanvas.hpp"

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// Cairo rounds glyphs to whole pixels: below this resolution letters would dance, so they are drawn as
/// outlines.
constexpr double LeastGlyphDpi = 200;
/// Above this em size, in pixels, outlines are faster than glyph pictures.
constexpr double LargestGlyph = 256;
/// Converted pictures that a surface keeps, pixels.
constexpr std::int64_t MostKeptPixels = MaxPixels / 4;

cairo_matrix_t Cairos(const TMatrix& m) { return {m.xx, m.yx, m.xy, m.yy, m.x0, m.y0}; }

/// One pixel with its colours multiplied by alpha.
std::uint32_t Premultiplied(TAlphaColor color) {
  const std::uint32_t a = color >> 24;
  if (a == 255) return color;
  const auto times = [a](std::uint32_t v) { return (v * a + 127) / 255; };
  return a << 24 | times(color >> 16 & 0xFF) << 16 | times(color >> 8 & 0xFF) << 8 | times(color & 0xFF);
}

TCairoSurface ConvertPicture(const TPicture& picture) {
  const bool opaque = picture.Opaque();
  TCairoSurface surface(cairo_image_surface_create(opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                                   picture.width, picture.height));
  unsigned char* rows = cairo_image_surface_get_data(surface.get());
  if (rows == nullptr) throw Exception("There is no memory for a picture");
  const auto width = static_cast<std::size_t>(picture.width);
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
  for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
    const TAlphaColor* from = &picture.pixels[y * width];
    std::transform(from, from + width, reinterpret_cast<std::uint32_t*>(rows + y * stride), Premultiplied);
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

}  // namespace

TRasterCanvas::TRasterCanvas(TFontEngine& fonts, int width, int height, double dpi, TAlphaColor background)
    : TCanvas(fonts, dpi / MMPerInch, 1),
      fSurface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
      fCairo(cairo_create(fSurface.get())),
      fOpaque(background >> 24 == 255),
      fDpi(dpi) {
  cairo_set_miter_limit(fCairo.get(), MiterLimit);
  Check();
  SetColor(background);
  if (Alpha(background) > 0) cairo_paint(fCairo.get());
}

void TRasterCanvas::Check() const {
  cairo_status_t status = cairo_status(fCairo.get());
  if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(fSurface.get());
  if (status != CAIRO_STATUS_SUCCESS) {
    throw Exception(std::string("The drawing failed: ") + cairo_status_to_string(status));
  }
}

TRasterView TRasterCanvas::Raster() {
  Check();
  cairo_surface_t* surface = fSurface.get();
  cairo_surface_flush(surface);
  TRasterView view;
  view.width = cairo_image_surface_get_width(surface);
  view.height = cairo_image_surface_get_height(surface);
  view.stride = cairo_image_surface_get_stride(surface) / static_cast<int>(sizeof(std::uint32_t));
  view.pixels = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface));
  view.opaque = fOpaque;
  view.dpi = fDpi;
  return view;
}

void TRasterCanvas::OnSave() { cairo_save(fCairo.get()); }

void TRasterCanvas::OnRestore() { cairo_restore(fCairo.get()); }

void TRasterCanvas::SetColor(TAlphaColor color) {
  const auto [r, g, b, a] = Channels(color);
  cairo_set_source_rgba(fCairo.get(), r, g, b, a);
}

/// Makes `path` Cairo's current one.
void TRasterCanvas::Emit(const TPath& path) {
  cairo_t* cr = fCairo.get();
  cairo_new_path(cr);
  const TPaperPoint* next = path.Points().data();
  for (const TPath::TStep step : path.Steps()) {
    if (step == TPath::psClose) {
      cairo_close_path(cr);
      continue;
    }
    const TPaperPoint p = Placed(Matrix(), *next++);
    if (step == TPath::psMove) cairo_move_to(cr, p.x, p.y);
    if (step == TPath::psLine) cairo_line_to(cr, p.x, p.y);
    if (step == TPath::psCurve) {
      const TPaperPoint control = Placed(Matrix(), *next++);
      const TPaperPoint end = Placed(Matrix(), *next++);
      cairo_curve_to(cr, p.x, p.y, control.x, control.y, end.x, end.y);
    }
  }
}

/// Colour or gradient of `path`, in its own coordinates.
void TRasterCanvas::SetBrush(const TPath& path, const TBrush& brush) {
  if (brush.gradient == gkNone) return SetColor(brush.color);
  const TPaperBox box = path.Bounds();
  cairo_pattern_t* pattern = nullptr;
  switch (brush.gradient) {
    case gkHorz:
      pattern = cairo_pattern_create_linear(box.left, 0, box.right, 0);
      break;
    case gkVert:
      pattern = cairo_pattern_create_linear(0, box.top, 0, box.bottom);
      break;
    default: {
      const TPaperPoint c = box.Middle();
      pattern = cairo_pattern_create_radial(c.x, c.y, 0, c.x, c.y, std::max(box.Width(), box.Height()) / 2);
    }
  }
  const auto from = Channels(brush.color), to = Channels(brush.toColor);
  cairo_pattern_add_color_stop_rgba(pattern, 0, from[0], from[1], from[2], from[3]);
  cairo_pattern_add_color_stop_rgba(pattern, 1, to[0], to[1], to[2], to[3]);
  cairo_set_source(fCairo.get(), pattern);
  cairo_pattern_destroy(pattern);
}

void TRasterCanvas::Paint(const TPath& path, const TPen* pen, const TBrush* brush) {
  cairo_t* cr = fCairo.get();
  const cairo_matrix_t m = Cairos(Matrix());
  Emit(path);
  cairo_set_matrix(cr, &m);
  if (brush != nullptr) {
    SetBrush(path, *brush);
    cairo_fill_preserve(cr);
  }
  if (pen != nullptr) {
    const std::span<const double> dashes = Dashes(path, *pen);
    SetColor(pen->color);
    cairo_set_line_width(cr, PenWidth(*pen));
    cairo_set_line_cap(cr, pen->roundCap ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_set_dash(cr, dashes.data(), static_cast<int>(dashes.size()), 0);
    cairo_stroke_preserve(cr);
  }
  cairo_identity_matrix(cr);
  cairo_new_path(cr);
}

void TRasterCanvas::Clip(const TPath& path) {
  Emit(path);
  cairo_clip(fCairo.get());
}

void TRasterCanvas::FillBars(std::span<const TBar> bars, TAlphaColor color) {
  const TMatrix& m = Matrix();
  if (!m.AlongAxes()) {
    TPath path;
    for (const TBar& bar : bars) path.Rect(bar.x, bar.y, bar.width, bar.height);
    return Draw(path, {}, {color, true});
  }
  cairo_t* cr = fCairo.get();
  cairo_new_path(cr);
  for (const TBar& bar : bars) {
    if (!(bar.width > 0 && bar.height > 0)) continue;
    const TPaperPoint a = Placed(m, {bar.x, bar.y});
    const TPaperPoint b = Placed(m, {bar.x + bar.width, bar.y + bar.height});
    const double left = std::round(std::min(a.x, b.x)), top = std::round(std::min(a.y, b.y));
    const double right = std::round(std::max(a.x, b.x)), bottom = std::round(std::max(a.y, b.y));
    cairo_rectangle(cr, left, top, std::max(1.0, right - left), std::max(1.0, bottom - top));
  }
  SetColor(color);
  cairo_fill(cr);
}

double TRasterCanvas::PrepareLine(std::string_view text, const TFace& face) {
  fLine = Fonts().Shaper().Shape(text, face);
  return fLine.width / fLine.unitsPerEm;
}

void TRasterCanvas::ShowLine(const TShownLine& line) {
  cairo_t* cr = fCairo.get();
  const cairo_matrix_t letters = Cairos(line.em.Scaled(1 / fLine.unitsPerEm, 1 / fLine.unitsPerEm));
  cairo_new_path(cr);
  cairo_set_matrix(cr, &letters);
  cairo_move_to(cr, 0, 0);
  SetColor(line.color);
  const bool large = line.heightMM * fDpi / MMPerInch > LargestGlyph;
  if (!fLine.pictures && (fDpi < LeastGlyphDpi || large)) {
    pango_cairo_layout_line_path(cr, fLine.line);
    cairo_fill(cr);
  } else {
    pango_cairo_show_layout_line(cr, fLine.line);
  }
  cairo_identity_matrix(cr);
  cairo_new_path(cr);
}

cairo_surface_t* TRasterCanvas::Converted(const std::shared_ptr<const TPicture>& picture) {
  if (const auto kept = fPictures.find(picture.get()); kept != fPictures.end())
    return kept->second.surface.get();
  const std::int64_t size = std::int64_t{picture->width} * picture->height;
  if (fKeptPixels + size > MostKeptPixels) {
    fPictures.clear();
    fKeptPixels = 0;
  }
  fKeptPixels += size;
  TKept& kept = fPictures[picture.get()];
  kept = {picture, ConvertPicture(*picture)};
  return kept.surface.get();
}

void TRasterCanvas::ShowPicture(const std::shared_ptr<const TPicture>& picture, const TMatrix& pixels,
                                double opacity) {
  cairo_t* cr = fCairo.get();
  const cairo_matrix_t m = Cairos(pixels);
  cairo_surface_t* converted = Converted(picture);
  cairo_save(cr);
  cairo_set_matrix(cr, &m);
  cairo_set_source_surface(cr, converted, 0, 0);
  // The edge pixels are not blended with the nothing around them.
  cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
  cairo_rectangle(cr, 0, 0, picture->width, picture->height);
  cairo_clip(cr);
  cairo_paint_with_alpha(cr, opacity);
  cairo_restore(cr);
}

}  // namespace Zor::inline Host
