#include "kaldrix/host/GlyphPainter.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/host/TRasterCanvas.hpp"

namespace Zor::inline Host {

namespace {

/// Pixels of a glyph picture to the em.
constexpr double PixelsPerEm = 128;
/// The widest glyph picture, pixels.
constexpr double WidestPicture = 16384;

struct TStringFree {
  void operator()(PangoGlyphString* string) const { pango_glyph_string_free(string); }
};
using TGlyphString = std::unique_ptr<PangoGlyphString, TStringFree>;

TGlyphString PangoString(std::span<const TPlacedGlyph> glyphs, double unitsPerEm) {
  TGlyphString string(pango_glyph_string_new());
  pango_glyph_string_set_size(string.get(), static_cast<int>(glyphs.size()));
  const auto units = [unitsPerEm](double em) {
    return static_cast<int>(std::lround(em * unitsPerEm * PANGO_SCALE));
  };
  PangoGlyphInfo* info = string->glyphs;
  for (const TPlacedGlyph& glyph : glyphs) {
    *info = {};
    info->glyph = glyph.glyph;
    info->geometry = {units(glyph.advance), units(glyph.x), units(-glyph.y)};
    ++info;
  }
  return string;
}

/// A drawing of `width` x `height` pixels whose unit is that of the font.
struct TScratch {
  TCairoSurface surface;
  std::unique_ptr<cairo_t, TCairoFree> cr;

  TScratch(int width, int height)
      : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
        cr(cairo_create(surface.get())) {}
};

TAlphaColor Straight(std::uint32_t p) {
  const std::uint32_t a = p >> 24;
  if (a == 0) return 0;
  const auto over = [a](std::uint32_t v) { return std::min(255U, (v * 255 + a / 2) / a); };
  return a << 24 | over(p >> 16 & 0xFF) << 16 | over(p >> 8 & 0xFF) << 8 | over(p & 0xFF);
}

std::shared_ptr<const TPicture> PixelsOf(cairo_surface_t* surface, int width, int height) {
  cairo_surface_flush(surface);
  const unsigned char* rows = cairo_image_surface_get_data(surface);
  if (rows == nullptr) return nullptr;
  auto picture = std::make_shared<TPicture>();
  picture->width = width;
  picture->height = height;
  picture->pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y, rows += cairo_image_surface_get_stride(surface)) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(rows);
    std::transform(row, row + width, std::back_inserter(picture->pixels), Straight);
  }
  return picture;
}

}  // namespace

TPath GlyphOutlines(PangoFont* font, std::span<const TPlacedGlyph> glyphs, double unitsPerEm) {
  const TScratch scratch(1, 1);
  pango_cairo_glyph_string_path(scratch.cr.get(), font, PangoString(glyphs, unitsPerEm).get());
  TPath path;
  const std::unique_ptr<cairo_path_t, void (*)(cairo_path_t*)> found(cairo_copy_path(scratch.cr.get()),
                                                                     cairo_path_destroy);
  const auto em = [unitsPerEm](const cairo_path_data_t& d) {
    return TPaperPoint{d.point.x / unitsPerEm, d.point.y / unitsPerEm};
  };
  for (int i = 0; i < found->num_data; i += found->data[i].header.length) {
    const cairo_path_data_t* data = &found->data[i];
    if (data->header.type == CAIRO_PATH_CLOSE_PATH) {
      path.Close();
      continue;
    }
    const TPaperPoint p = em(data[1]);
    if (data->header.type == CAIRO_PATH_MOVE_TO) path.MoveTo(p.x, p.y);
    if (data->header.type == CAIRO_PATH_LINE_TO) path.LineTo(p.x, p.y);
    if (data->header.type == CAIRO_PATH_CURVE_TO) {
      const TPaperPoint control = em(data[2]), end = em(data[3]);
      path.CurveTo(p.x, p.y, control.x, control.y, end.x, end.y);
    }
  }
  return path;
}

TGlyphPicture PaintGlyphs(PangoFont* font, std::span<const TPlacedGlyph> glyphs, double unitsPerEm) {
  const TGlyphString string = PangoString(glyphs, unitsPerEm);
  PangoRectangle ink;
  pango_glyph_string_extents(string.get(), font, &ink, nullptr);
  const double em = unitsPerEm * PANGO_SCALE;
  const auto pixels = [em](int units) { return std::min(units * PixelsPerEm / em, WidestPicture); };
  const int width = static_cast<int>(std::ceil(pixels(ink.width))) + 1;
  const int height = static_cast<int>(std::ceil(pixels(ink.height))) + 1;
  if (ink.width <= 0 || ink.height <= 0) return {};
  const TScratch scratch(width, height);
  cairo_scale(scratch.cr.get(), PixelsPerEm / unitsPerEm, PixelsPerEm / unitsPerEm);
  cairo_translate(scratch.cr.get(), -pango_units_to_double(ink.x), -pango_units_to_double(ink.y));
  pango_cairo_show_glyph_string(scratch.cr.get(), font, string.get());
  const double left = ink.x / em, top = ink.y / em;
  return {PixelsOf(scratch.surface.get(), width, height),
          {left, top, left + width / PixelsPerEm, top + height / PixelsPerEm}};
}

}  // namespace Zor::inline Host
