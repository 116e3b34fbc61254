#include "host/TShaper.hpp"
#include "host/TSurface.Impl.hpp"

namespace Zor::inline Host {

namespace {

/// Greatest em size, millimetres.
constexpr double HighestFont = 1e4;
constexpr double LeastStretch = 0.001, MostStretch = 1000;
/// Em sizes that can be drawn, pixels of a raster or points of a PDF. Smaller ones would not be seen, greater
/// ones are beyond the sheet and beyond FreeType.
constexpr double LeastEm = 0.01, MostEm = 16000;
/// Cairo rounds glyphs to whole pixels: below this resolution letters would dance, so they are drawn as
/// outlines.
constexpr double LeastGlyphDpi = 200;
/// Above this em size, in pixels, outlines are faster than glyph pictures.
constexpr double LargestGlyph = 256;

/// Whether a text with this many units to the em can be drawn under `m`.
bool DrawableEm(const cairo_matrix_t& m, double unitsPerEm) {
  const double across = std::hypot(m.xx, m.yx) * unitsPerEm, up = std::hypot(m.xy, m.yy) * unitsPerEm;
  return std::min(across, up) >= LeastEm && std::max(across, up) <= MostEm && Area(m) > 0;
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

}  // namespace Zor::inline Host
