#include "kaldrix/host/TCanvas.hpp"

#include "kaldrix/host/TShaper.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// Pixels or points. Cairo holds device coordinates in 24.8 bits: farther ones would come back on the other
/// side.
constexpr double FarthestDevice = 4e6;
/// Area by which a transform may magnify or shrink: beyond, it could not be inverted.
constexpr double LeastArea = 1e-12, MostArea = 1e12;
/// Greatest em size and width of a pen, millimetres.
constexpr double HighestFont = 1e4, WidestPen = 1e4;
constexpr double LeastStretch = 0.001, MostStretch = 1000;
/// Em sizes that can be drawn, pixels of a raster or points of a PDF. Smaller ones would not be seen, greater
/// ones are beyond the sheet and beyond FreeType.
constexpr double LeastEm = 0.01, MostEm = 16000;
/// A dashed outline with more periods than this is drawn solid: nobody could see them, and a file must not be
/// able to ask for billions.
constexpr double MostDashes = 200'000;

double Distance(const TPaperPoint& a, const TPaperPoint& b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// Length of the polygon of points and controls, an upper bound of the outline's own.
double LengthBound(const TPath& path) {
  double length = 0;
  const auto points = path.Points();
  for (std::size_t i = 1; i < points.size(); ++i) length += Finite(Distance(points[i - 1], points[i]));
  return length;
}

/// The part of the width that lies before the anchor.
double PartBefore(TTextAnchor anchor) { return anchor == taStart ? 0 : anchor == taMiddle ? 0.5 : 1.0; }

}  // namespace

TCanvas::TCanvas(TFontEngine& fonts, double unitsPerMM, double points)
    : fFonts(fonts),
      fBase{unitsPerMM, 0, 0, unitsPerMM, 0, 0},
      fPoints(points),
      fFarthest(FarthestDevice / points),
      fMatrix(fBase) {}

TRasterView TCanvas::Raster() { throw EInvalidOperation("A PDF has no pixels"); }

void TCanvas::NewPage(double, double) { throw EInvalidOperation("A raster has one page"); }

std::string TCanvas::Finish() { throw EInvalidOperation("A raster is no PDF"); }

void TCanvas::Reset() {
  fMatrix = fBase;
  fSaved.clear();
}

void TCanvas::Save() {
  fSaved.push_back(fMatrix);
  OnSave();
}

void TCanvas::Restore() {
  if (fSaved.empty()) return;
  fMatrix = fSaved.back();
  fSaved.pop_back();
  OnRestore();
}

void TCanvas::Rotate(double degrees, double x, double y) {
  Translate(x, y);
  fMatrix = fMatrix.Times(TMatrix::Rotation(degrees));
  Translate(-x, -y);
}

void TCanvas::Scale(double sx, double sy) {
  const TMatrix scaled = fMatrix.Scaled(Finite(sx), Finite(sy));
  if (Invertible(scaled)) fMatrix = scaled;
}

bool TCanvas::Invertible(const TMatrix& m) const {
  const double area = m.Area() / fBase.Area();
  return area >= LeastArea && area <= MostArea;
}

double TCanvas::PenWidth(const TPen& pen) { return std::min(pen.width, WidestPen); }

std::span<const double> TCanvas::Dashes(const TPath& path, const TPen& pen) {
  const std::span<const double> dashes = DashPattern(pen.line);
  if (dashes.empty()) return dashes;
  double period = 0;
  for (const double dash : dashes) period += dash;
  return LengthBound(path) < period * MostDashes ? dashes : std::span<const double>{};
}

void TCanvas::Draw(const TPath& path, const TPen& pen, const TBrush& brush) {
  const bool stroke = pen.width > 0 && Alpha(pen.color) > 0;
  const bool fill = brush.fill && (Alpha(brush.color) > 0 || brush.gradient != gkNone);
  if (path.Empty() || !(stroke || fill)) return;
  Paint(path, stroke ? &pen : nullptr, fill ? &brush : nullptr);
}

bool TCanvas::DrawableEm(const TMatrix& em) const {
  const double across = em.Across() * fPoints, down = em.Down() * fPoints;
  return std::min(across, down) >= LeastEm && std::max(across, down) <= MostEm && em.Area() > 0;
}

void TCanvas::Text(std::string_view text, const TTextPlace& place, const TFontSpec& font, TAlphaColor color) {
  if (text.empty() || !(font.heightMM > 0) || Alpha(color) == 0) return;
  std::string buffer;
  const std::string_view clean = CleanText(text, buffer);
  const double height = std::min(font.heightMM, HighestFont);
  const TFace& face = fFonts.Shaper().Face(font);
  const TTextSize size{0, face.ascent * height, face.descent * height};
  const double stretch = std::clamp(Finite(place.scaleX), LeastStretch, MostStretch);
  TMatrix em = fMatrix.Translated(Moved(place.x), Moved(place.y)).Times(TMatrix::Rotation(place.angle));
  em = em.Scaled(height * stretch, height);
  if (!DrawableEm(em)) return;
  const double width = PrepareLine(clean, face);
  em = em.Translated(-PartBefore(place.anchor) * width, BaselineOffset(place.vert, size) / height);
  const TShownLine line{em, height, color};
  ShowLine(line);
  if (font.underline || font.strikeout) Decorate(face, font, width, line);
}

void TCanvas::Decorate(const TFace& face, const TFontSpec& font, double width, const TShownLine& line) {
  TPath bars;
  if (font.underline) bars.Rect(0, face.underline, width, face.underlineThickness);
  if (font.strikeout) bars.Rect(0, -face.strikeout, width, face.strikeoutThickness);
  const TMatrix kept = fMatrix;
  fMatrix = line.em;
  Draw(bars, {}, {line.color, true});
  fMatrix = kept;
}

void TCanvas::Image(const std::shared_ptr<const TPicture>& picture, double x, double y, double width,
                    double height, double opacity) {
  if (!picture || picture->width <= 0 || picture->height <= 0 || !(width > 0) || !(height > 0)) return;
  const TMatrix pixels =
      fMatrix.Translated(Moved(x), Moved(y)).Scaled(width / picture->width, height / picture->height);
  if (Invertible(pixels)) ShowPicture(picture, pixels, std::clamp(Finite(opacity), 0.0, 1.0));
}

}  // namespace Zor::inline Host
