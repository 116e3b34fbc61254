// The drawing surface of the headless host.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "kaldrix/host/TFontEngine.hpp"
#include "kaldrix/host/TPath.hpp"
#include "kaldrix/host/TPicture.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Host {

class TCanvas;

/// How an outline is drawn. A width of 0 or less draws nothing. Joins are mitred up to a limit of 4, as in
/// SVG.
struct TPen {
  TAlphaColor color = ColorBlack;
  /// Millimetres.
  double width = 0;
  TZOLineType line = iiSolid;
  bool roundCap = false;
};

enum TGradientKind : std::uint8_t {
  gkNone,
  /// From the left to the right edge of the filled outline's box.
  gkHorz,
  /// From the top to the bottom edge.
  gkVert,
  /// From the middle to the edge of the circle about the box's middle with half its greater side.
  gkRadial
};

/// How an area is filled; without `fill` it is not.
struct TBrush {
  TAlphaColor color = ColorWhite;
  bool fill = false;
  TGradientKind gradient = gkNone;
  /// Where a gradient that begins with `color` ends.
  TAlphaColor toColor = ColorWhite;
};

/// Which point of a text its x names.
enum TTextAnchor : std::uint8_t { taStart, taMiddle, taEnd };

/// Which height of a text its y names. `tvTop` is SVG's text-before-edge and `tvBottom` its text-after-edge:
/// the edges of ascent and descent. `tvCentral` lies midway between them, `tvHanging` at 0.8 of the ascent.
enum TTextVert : std::uint8_t { tvBaseline, tvTop, tvCentral, tvBottom, tvHanging };

/// Where a text stands.
struct TTextPlace {
  double x = 0;
  double y = 0;
  TTextAnchor anchor = taStart;
  TTextVert vert = tvTop;
  /// Degrees about (x, y), clockwise on the paper, as in SVG's `rotate(angle x y)`.
  double angle = 0;
  /// Stretch of the glyphs along the line, from the anchor; 1 is none.
  double scaleX = 1;
};

/// A bar or a run of modules of a barcode, in millimetres.
struct TBar {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// The distance from the y of a text down to its baseline, millimetres.
double BaselineOffset(TTextVert vert, const TTextSize& size);

/// Dash and gap lengths of a line style in millimetres, without pen width: empty for a solid line.
std::span<const double> DashPattern(TZOLineType line);

/// What a PDF says about itself.
struct TPdfInfo {
  std::string title;
  /// ISO 8601. Part of the bytes: the same drawing with the same date gives the same file.
  std::string created = "2000-01-01T00:00:00Z";
};

/// A sheet to draw on, in millimetres of paper with y downwards. Behind it is a raster of pixels or a PDF,
/// where text stays text.
///
/// Colours are 0xAARRGGBB, alpha is opacity. Places far off the sheet (millions of pixels) are held there,
/// and what is not a number counts as 0. A failing surface raises where its result is taken.
class TSurface {
 public:
  /// A raster of `widthMM` x `heightMM` at `dpi`, at least one pixel; more than MaxPixels is refused.
  /// `background` may be wholly transparent (0). `fonts` must outlive the surface.
  static TSurface MakeRaster(TFontEngine& fonts, double widthMM, double heightMM, double dpi,
                             TAlphaColor background = ColorWhite);
  /// A PDF whose first page has this size. `fonts` must outlive the surface.
  static TSurface MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info = {});

  /// The same, writing to `sink` as it grows, so that a document of many pages never stands in memory. What
  /// `sink` raises comes out of the drawing, NewPage or FinishPdf.
  static TSurface MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info,
                          std::function<void(std::string_view)> sink);

  TSurface(TSurface&&) noexcept;
  TSurface& operator=(TSurface&&) noexcept;
  ~TSurface();

  // ---- Result ----

  bool IsRaster() const;
  TFontEngine& Fonts() const;
  /// The pixels; only of a raster. Valid until the next drawing.
  TRasterView Raster();
  /// Ends the current page of a PDF and begins one of this size, without clip or transform.
  void NewPage(double widthMM, double heightMM);
  /// Ends a PDF and gives its bytes, none when they went to a sink; nothing can be drawn afterwards.
  std::string FinishPdf();

  // ---- State ----

  void Save();
  /// Back to the state at the matching Save; without one it does nothing.
  void Restore();
  void Translate(double dx, double dy);
  /// Degrees, clockwise on the paper, about (x, y).
  void Rotate(double degrees, double x = 0, double y = 0);
  /// Ignored where it would leave nothing, or shrink or magnify areas beyond 1 : 10^12.
  void Scale(double sx, double sy);
  /// Drawing stays inside until the matching Restore.
  void ClipRect(double x, double y, double width, double height);
  void ClipCircle(double cx, double cy, double r);
  void ClipPath(const TPath& path);

  // ---- Strokes ----

  void Line(double x1, double y1, double x2, double y2, const TPen& pen);
  void PolyLine(std::span<const TPaperPoint> points, const TPen& pen);
  /// From `start` to `end` (radians), `clockwise` with growing angle. Equal angles draw nothing.
  void Arc(double cx, double cy, double r, double start, double end, bool clockwise, const TPen& pen);
  /// The mark at the end of a stroke: tip (x, y), coming from (fromX, fromY), or from the direction `fromX`
  /// (radians) with `isArc`. `size` is its extent in millimetres; the wings of an arrow have it rounded to a
  /// whole number. Drawn solid with the colour and width of `pen`; `fill` is used by the filled kinds.
  void Terminator(TZORTermType type, double x, double y, double fromX, double fromY, double size,
                  const TPen& pen, TAlphaColor fill, bool isArc = false);

  // ---- Shapes: filled first, then stroked ----

  void Polygon(std::span<const TPaperPoint> points, const TPen& pen, const TBrush& brush);
  void Rect(double x, double y, double width, double height, double radius, const TPen& pen,
            const TBrush& brush);
  void Circle(double cx, double cy, double r, const TPen& pen, const TBrush& brush);
  void Ellipse(double cx, double cy, double rx, double ry, const TPen& pen, const TBrush& brush);
  /// A slice from `startDeg` over `sweepDeg` degrees (clockwise when positive); a full turn is a circle.
  void Sector(double cx, double cy, double r, double startDeg, double sweepDeg, const TPen& pen,
              const TBrush& brush);
  /// 1 + 3k points: start, then two controls and an end each; what is left over is not drawn. Open ones are
  /// not filled.
  void Bezier(std::span<const TPaperPoint> points, bool closed, const TPen& pen, const TBrush& brush);
  void Path(const TPath& path, const TPen& pen, const TBrush& brush);
  /// Fills all bars as one path, without overlap effects. On a raster, bars that lie along its axes have
  /// their edges on whole pixels and are at least one pixel wide and high.
  void FillBars(std::span<const TBar> bars, TAlphaColor color);

  // ---- Text and pictures ----

  void Text(std::string_view text, const TTextPlace& place, const TFontSpec& font, TAlphaColor color);
  /// Stretches `picture` over the rectangle. A picture that comes again is not converted (and in a PDF not
  /// stored) again: share the pointer.
  void Image(const std::shared_ptr<const TPicture>& picture, double x, double y, double width, double height,
             double opacity = 1.0);

 private:
  explicit TSurface(std::unique_ptr<TCanvas> canvas);
  std::unique_ptr<TCanvas> fCanvas;
};

}  // namespace Zor::inline Host
