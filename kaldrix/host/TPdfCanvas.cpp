#include "kaldrix/host/TPdfCanvas.hpp"

#include <algorithm>
#include <utility>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

constexpr double UnitsPerMM = 1000;
constexpr double PointsPerUnit = PointsPerInch / MMPerInch / UnitsPerMM;
/// Content is packed whenever there is so much, bytes.
constexpr std::size_t MostContent = 256 * 1024;
/// Places after the point of the linear part of a transform.
constexpr int MatrixPlaces = 8;
constexpr TAlphaColor RgbMask = 0xFFFFFF, Opaque = 0xFF000000;
constexpr int FullAlpha = 1000;

double Points(double mm) { return mm * PointsPerInch / MMPerInch; }

int AlphaOf(double opacity) { return static_cast<int>(std::lround(opacity * FullAlpha)); }

/// A date of ISO 8601 as PDFs have it; none when it is none.
std::string PdfDate(std::string_view iso) {
  std::string out = "(D:";
  for (const char c : iso) {
    if (c >= '0' && c <= '9') out.push_back(c);
    const bool zone = (c == '+' || c == '-' || c == 'Z') && out.size() == 3 + 14;
    if (zone) out.push_back(c);
    if (c == ':' && out.size() == 3 + 14 + 3) out.push_back('\'');
  }
  constexpr std::size_t YearOnly = 3 + 4;
  return out.size() >= YearOnly ? "/CreationDate" + out + ")" : std::string{};
}

std::string InfoDictionary(const TPdfInfo& info) {
  std::string buffer;
  const std::string_view title = CleanText(info.title, buffer);
  std::string out = "<<";
  if (!title.empty()) out += "/Title" + PdfTextString(title);
  return out + PdfDate(info.created) + "/Producer(Kaldrix)>>";
}

/// The three numbers of a colour, or the one of a grey, and the operator that goes with them.
void PutColor(TPdfContent& out, TAlphaColor color, const char* rgb, const char* grey) {
  const auto [r, g, b, a] = Channels(color);
  if (r == g && g == b) {
    out.Real(r).Op(grey);
  } else {
    out.Real(r).Real(g).Real(b).Op(rgb);
  }
}

/// Whether the four corners of bars are places where numbers are exact enough.
bool IsNear(const TBar& bar) {
  constexpr double Far = 1e6;
  return std::abs(bar.x) < Far && std::abs(bar.y) < Far && bar.width < Far && bar.height < Far;
}

/// Whether all places and sizes along one axis are whole multiples of `unit`, up to `slack`.
template <class TPlace, class TSize>
bool Fits(std::span<const TBar> bars, double unit, double slack, TPlace place, TSize size) {
  const auto whole = [unit, slack](double v) {
    return std::abs(v - static_cast<double>(Nearest(v / unit)) * unit) <= slack;
  };
  return std::all_of(bars.begin(), bars.end(),
                     [&](const TBar& bar) { return whole(place(bar)) && whole(size(bar)); });
}

/// The unit of one axis: a module or a part of one if that fits, else `finest`.
template <class TPlace, class TSize>
double UnitOf(std::span<const TBar> bars, double finest, TPlace place, TSize size) {
  double least = size(bars[0]);
  for (const TBar& bar : bars) least = std::min(least, size(bar));
  // Half of a unit of the page, with room for another rounding.
  const double slack = finest / 4;
  for (const int parts : {1, 2, 5}) {
    const double unit = least / parts;
    if (unit > finest && Fits(bars, unit, slack, place, size)) return unit;
  }
  return finest;
}

}  // namespace

TPdfCanvas::TPdfCanvas(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info,
                       TPdfWriter::TSink sink)
    : TCanvas(fonts, UnitsPerMM, PointsPerUnit),
      fWriter(std::move(sink)),
      fLines(fonts.Shaper(), fPdfFonts),
      fPictures(fWriter),
      fInfo(InfoDictionary(info)),
      fFontNames(fWriter.Reserve()),
      fStateNames(fWriter.Reserve()),
      fShadingNames(fWriter.Reserve()) {
  BeginPage(widthMM, heightMM);
}

// ---- Pages ----

void TPdfCanvas::CheckOpen() const {
  if (fFinished) throw EInvalidOperation("The PDF is finished");
}

void TPdfCanvas::BeginPage(double widthMM, double heightMM) {
  Reset();
  fLevels.clear();
  fState = {};
  fHidden = fTranslucent = false;
  fPagePictures.clear();
  fWidth = Points(widthMM);
  fHeight = Points(heightMM);
  // Exact to a ten-millionth of the sheet.
  constexpr int UnitPlaces = 9;
  fContent.Matrix({PointsPerUnit, 0, 0, -PointsPerUnit, 0, fHeight}, UnitPlaces).Op("cm");
  fContent.Real(MiterLimit).Op("M");
}

void TPdfCanvas::EndPage() {
  for (auto level = fLevels.rbegin(); level != fLevels.rend(); ++level) {
    if (level->inFile) fContent.Op("Q");
  }
  fWriter.Content(fContent.Bytes());
  fContent.Clear();
  std::string entries = "/Resources<</Font " + PdfRef(fFontNames) + "/ExtGState " + PdfRef(fStateNames) +
                        "/Shading " + PdfRef(fShadingNames);
  if (!fPagePictures.empty()) {
    entries += "/XObject<<";
    for (const int picture : fPagePictures) entries += "/I" + std::to_string(picture) + " " + PdfRef(picture);
    entries += ">>";
  }
  entries += ">>";
  if (fTranslucent) entries += "/Group<</S/Transparency/CS/DeviceRGB>>";
  fWriter.EndPage(fWidth, fHeight, entries);
  fWriter.Drain();
}

void TPdfCanvas::NewPage(double widthMM, double heightMM) {
  CheckOpen();
  EndPage();
  BeginPage(widthMM, heightMM);
}

std::string TPdfCanvas::Finish() {
  CheckOpen();
  fFinished = fHidden = true;
  EndPage();
  WriteResources();
  return fWriter.Finish(fInfo);
}

void TPdfCanvas::WriteResources() {
  fWriter.Object(fFontNames, fPdfFonts.Write(fWriter));
  TPdfContent states;
  states.Raw("<<");
  for (int alpha = 0; alpha <= FullAlpha; ++alpha) {
    const auto index = static_cast<std::size_t>(alpha);
    const double opacity = double(alpha) / FullAlpha;
    if (fFillAlphas[index]) states.Raw("/A").Int(alpha).Raw("<</ca ").Real(opacity).Raw(">>");
    if (fStrokeAlphas[index]) states.Raw("/B").Int(alpha).Raw("<</CA ").Real(opacity).Raw(">>");
  }
  for (const auto& [key, object] : fAlphaGradients) states.Raw("/M").Int(object).Raw(PdfRef(object));
  fWriter.Object(fStateNames, states.Raw(">>").Bytes());
  TPdfContent shadings;
  shadings.Raw("<<");
  for (const auto& [key, object] : fShadings) shadings.Raw("/S").Int(object).Raw(PdfRef(object));
  fWriter.Object(fShadingNames, shadings.Raw(">>").Bytes());
}

// ---- State ----

void TPdfCanvas::OnSave() { fLevels.push_back({false, fHidden, {}}); }

void TPdfCanvas::OnRestore() {
  const TLevel& level = fLevels.back();
  fHidden = level.hidden || fFinished;
  if (level.inFile) {
    fContent.Op("Q");
    fState = level.state;
  }
  fLevels.pop_back();
}

void TPdfCanvas::Clip(const TPath& path) {
  if (path.Empty()) fHidden = true;
  if (fHidden) return;
  if (!fLevels.empty() && !fLevels.back().inFile) {
    fContent.Op("q");
    fLevels.back().inFile = true;
    fLevels.back().state = fState;
  }
  PutPath(Matrix(), path);
  fContent.Op("W n");
}

void TPdfCanvas::SetFill(TAlphaColor color) {
  SetFillAlpha(AlphaOf(Alpha(color)));
  if (fState.fill == (color & RgbMask)) return;
  fState.fill = color & RgbMask;
  PutColor(fContent, color, "rg", "g");
}

void TPdfCanvas::SetStroke(TAlphaColor color) {
  SetStrokeAlpha(AlphaOf(Alpha(color)));
  if (fState.stroke == (color & RgbMask)) return;
  fState.stroke = color & RgbMask;
  PutColor(fContent, color, "RG", "G");
}

void TPdfCanvas::SetFillAlpha(int thousandths) {
  if (fState.fillAlpha == thousandths) return;
  fState.fillAlpha = thousandths;
  fFillAlphas.set(static_cast<std::size_t>(thousandths));
  fTranslucent = true;
  fContent.Raw("/A").Int(thousandths).Op("gs");
}

void TPdfCanvas::SetStrokeAlpha(int thousandths) {
  if (fState.strokeAlpha == thousandths) return;
  fState.strokeAlpha = thousandths;
  fStrokeAlphas.set(static_cast<std::size_t>(thousandths));
  fTranslucent = true;
  fContent.Raw("/B").Int(thousandths).Op("gs");
}

/// Lengths of the pen and of its dashes are multiplied by `scale`.
void TPdfCanvas::SetPen(const TPen& pen, std::span<const double> dashes, double scale) {
  SetStroke(pen.color);
  const double width = PenWidth(pen) * scale;
  if (fState.penWidth != width) fContent.Real(fState.penWidth = width).Op("w");
  if (fState.roundCap != pen.roundCap) fContent.Int((fState.roundCap = pen.roundCap) ? 1 : 0).Op("J");
  const TZOLineType line = dashes.empty() ? iiSolid : pen.line;
  const double dashScale = dashes.empty() ? 1 : scale;
  if (fState.line == line && fState.dashScale == dashScale) return;
  fState.line = line;
  fState.dashScale = dashScale;
  fContent.Raw("[");
  for (const double dash : dashes) fContent.Real(dash * scale);
  fContent.Raw("]0 ").Op("d");
}

// ---- Outlines ----

void TPdfCanvas::PutPath(const TMatrix& m, const TPath& path) {
  if (fContent.Size() > MostContent) {
    fWriter.Content(fContent.Bytes());
    fContent.Clear();
  }
  const TPaperPoint* next = path.Points().data();
  for (const TPath::TStep step : path.Steps()) {
    switch (step) {
      case TPath::psClose:
        fContent.Op("h");
        break;
      case TPath::psMove:
        fContent.Point(Placed(m, *next++)).Op("m");
        break;
      case TPath::psLine:
        fContent.Point(Placed(m, *next++)).Op("l");
        break;
      case TPath::psCurve:
        for (int i = 0; i < 3; ++i) fContent.Point(Placed(m, *next++));
        fContent.Op("c");
        break;
    }
  }
}

void TPdfCanvas::Paint(const TPath& path, const TPen* pen, const TBrush* brush) {
  if (fHidden) return;
  if (brush != nullptr && brush->gradient != gkNone) {
    FillGradient(path, *brush);
    brush = nullptr;
  }
  if (brush != nullptr) SetFill(brush->color);
  // One path for both, where the stroke hides what it lies upon.
  if (brush != nullptr && pen != nullptr && Alpha(pen->color) == 1 && Matrix().KeepsShapes()) {
    SetPen(*pen, Dashes(path, *pen), Matrix().Across());
    PutPath(Matrix(), path);
    fContent.Op("B");
    return;
  }
  if (brush != nullptr) {
    PutPath(Matrix(), path);
    fContent.Op("f");
  }
  if (pen != nullptr) StrokePath(path, *pen);
}

void TPdfCanvas::StrokePath(const TPath& path, const TPen& pen) {
  const TMatrix& m = Matrix();
  const std::span<const double> dashes = Dashes(path, pen);
  if (m.KeepsShapes()) {
    SetPen(pen, dashes, m.Across());
    PutPath(m, path);
    fContent.Op("S");
    return;
  }
  // The pen is not round on the paper. Whole numbers of the longer axis are as fine as those of the page.
  const double scale = std::max(m.Across(), m.Down());
  const TState kept = fState;
  fContent.Op("q").Matrix(m.Scaled(1 / scale, 1 / scale), MatrixPlaces).Op("cm");
  SetPen(pen, dashes, scale);
  PutPath({scale, 0, 0, scale, 0, 0}, path);
  fContent.Op("S").Op("Q");
  fState = kept;
}

// ---- Gradients ----

/// Gradients are stored for a unit of length and brought to their place, so that those of equal colours are
/// one.
void TPdfCanvas::FillGradient(const TPath& path, const TBrush& brush) {
  const TPaperBox box = path.Bounds();
  const double width = box.Width(), height = box.Height(), length = std::max(width, height);
  if (!(width > 0 && height > 0)) return;
  TMatrix m = Matrix().Translated(box.left, box.top);
  if (brush.gradient == gkHorz) m = m.Scaled(width, length);
  if (brush.gradient == gkVert) m = m.Times({0, height, length, 0, 0, 0});
  const bool radial = brush.gradient == gkRadial;
  if (radial) m = m.Translated(width / 2, height / 2).Scaled(length / 2, length / 2);
  const TAlphaColor from = brush.color >> 24, to = brush.toColor >> 24;
  SetFillAlpha(from == to ? AlphaOf(Alpha(brush.color)) : FullAlpha);
  fContent.Op("q");
  PutPath(Matrix(), path);
  fContent.Op("W n").Matrix(m, MatrixPlaces).Op("cm");
  if (from != to) fContent.Raw("/M").Int(AlphaGradient({radial, from, to})).Op("gs");
  fContent.Raw("/S").Int(Shading({radial, brush.color & RgbMask, brush.toColor & RgbMask})).Op("sh").Op("Q");
}

namespace {

/// A shading along the x axis from 0 to 1, or out to the circle of radius 1 (ISO 32000-1, 8.7.4.5).
std::string ShadingDictionary(bool radial, const char* space, const std::string& from,
                              const std::string& to) {
  return std::string("<</ShadingType ") + (radial ? "3/Coords[0 0 0 0 0 1]" : "2/Coords[0 0 1 0]") +
         "/Extend[true true]/ColorSpace/Device" + space + "/Function<</FunctionType 2/Domain[0 1]/N 1/C0[" +
         from + "]/C1[" + to + "]>>>>";
}

std::string ColorNumbers(TAlphaColor color) {
  const auto [r, g, b, a] = Channels(color);
  return TPdfContent().Real(r).Real(g).Real(b).Bytes();
}

std::string AlphaNumber(TAlphaColor alpha) { return TPdfContent().Real(alpha / 255.0).Bytes(); }

}  // namespace

int TPdfCanvas::Shading(const TGradientKey& key) {
  const auto [found, isNew] = fShadings.try_emplace(key, 0);
  const auto& [radial, from, to] = key;
  if (isNew) {
    found->second = fWriter.Add(ShadingDictionary(radial, "RGB", ColorNumbers(from), ColorNumbers(to)));
  }
  return found->second;
}

/// A state whose opacity is the lightness of a gradient of greys.
int TPdfCanvas::AlphaGradient(const TGradientKey& key) {
  fTranslucent = true;
  const auto [found, isNew] = fAlphaGradients.try_emplace(key, 0);
  if (!isNew) return found->second;
  const auto& [radial, from, to] = key;
  const int shading = fWriter.Add(ShadingDictionary(radial, "Gray", AlphaNumber(from), AlphaNumber(to)));
  const int form = fWriter.AddStream(
      "/Type/XObject/Subtype/Form/BBox[-2 -2 2 2]"
      "/Group<</S/Transparency/CS/DeviceGray>>/Resources<</Shading<</S " +
          PdfRef(shading) + ">>>>",
      "/S sh\n", TPdfWriter::ppQuick);
  return found->second = fWriter.Add("<</SMask<</S/Luminosity/G " + PdfRef(form) + ">>>>");
}

// ---- Bars ----

/// Bars of barcodes stand on a grid of modules: counted in those, the numbers have one or two digits.
TPdfCanvas::TBarGrid TPdfCanvas::GridOf(std::span<const TBar> bars) const {
  const double x = bars[0].x, y = bars[0].y;
  const double finest = 1 / std::max(Matrix().Across(), Matrix().Down());
  return {x, y,
          UnitOf(
              bars, finest, [x](const TBar& b) { return b.x - x; }, [](const TBar& b) { return b.width; }),
          UnitOf(
              bars, finest, [y](const TBar& b) { return b.y - y; }, [](const TBar& b) { return b.height; })};
}

void TPdfCanvas::FillBars(std::span<const TBar> bars, TAlphaColor color) {
  if (fHidden || Alpha(color) == 0) return;
  const auto shows = [](const TBar& bar) { return bar.width > 0 && bar.height > 0; };
  if (!std::all_of(bars.begin(), bars.end(), [&](const TBar& b) { return shows(b) && IsNear(b); })) {
    TPath path;
    for (const TBar& bar : bars) {
      if (shows(bar)) path.Rect(bar.x, bar.y, bar.width, bar.height);
    }
    return Draw(path, {}, {color, true});
  }
  if (bars.empty()) return;
  SetFill(color);
  const TBarGrid grid = GridOf(bars);
  const TMatrix m = Matrix().Translated(grid.x, grid.y).Scaled(grid.unitX, grid.unitY);
  fContent.Op("q").Matrix(m, MatrixPlaces).Op("cm");
  for (const TBar& bar : bars) {
    fContent.Int(Nearest((bar.x - grid.x) / grid.unitX)).Int(Nearest((bar.y - grid.y) / grid.unitY));
    fContent.Int(Nearest(bar.width / grid.unitX)).Int(Nearest(bar.height / grid.unitY)).Op("re");
  }
  fContent.Op("f").Op("Q");
}

// ---- Text ----

double TPdfCanvas::PrepareLine(std::string_view text, const TFace& face) {
  fLine = &fLines.Of(text, face);
  return fLine->width;
}

void TPdfCanvas::ShowLine(const TShownLine& line) {
  if (fHidden) return;
  for (const TPdfPiece& piece : fLine->pieces) {
    ShowPiece(piece, piece.x == 0 ? line.em : line.em.Translated(piece.x, 0), line.color);
  }
}

void TPdfCanvas::ShowPiece(const TPdfPiece& piece, const TMatrix& em, TAlphaColor color) {
  if (!piece.shows.empty()) ShowText(piece, em, color);
  if (piece.picture) {
    const TMatrix pixels =
        em.Translated(piece.box.left, piece.box.top)
            .Scaled(piece.box.Width() / piece.picture->width, piece.box.Height() / piece.picture->height);
    ShowPicture(piece.picture, pixels, Alpha(color));
  }
  if (!piece.outlines.Empty()) {
    SetFill(color);
    PutPath(em, piece.outlines);
    fContent.Op("f");
  }
}

void TPdfCanvas::ShowText(const TPdfPiece& piece, const TMatrix& em, TAlphaColor color) {
  // What FreeType adds where a bold is made, part of the em; outlines grow from their lower left.
  constexpr double Boldness = 1.0 / 24;
  const TPdfStyle& style = piece.style;
  SetFill(color);
  TMatrix letters = em.Scaled(1, -1).Times(style.slant);
  if (style.bolder) {
    letters = letters.Translated(Boldness / 2, Boldness / 2);
    SetPen({color, 1, iiSolid, false}, {}, em.Down() * Boldness);
  }
  fContent.Raw("BT ");
  if (fState.font != style.font) {
    fState.font = style.font;
    fContent.Raw(style.font->Name()).Raw(" 1 Tf ");
  }
  if (style.bolder) fContent.Raw("2 Tr ");
  fContent.Matrix(letters, 3).Raw("Tm ").Raw(piece.shows);
  if (style.bolder) fContent.Raw("0 Tr ");
  fContent.Op("ET");
}

// ---- Pictures ----

void TPdfCanvas::ShowPicture(const std::shared_ptr<const TPicture>& picture, const TMatrix& pixels,
                             double opacity) {
  if (fHidden || AlphaOf(opacity) == 0) return;
  const int object = fPictures.Of(picture);
  fPagePictures.insert(object);
  fTranslucent = fTranslucent || !picture->Opaque();
  SetFillAlpha(AlphaOf(opacity));
  // A picture fills the unit square, with its first row at 1.
  const double width = picture->width, height = picture->height;
  const TMatrix square = pixels.Translated(0, height).Scaled(width, -height);
  fContent.Op("q").Matrix(square, MatrixPlaces).Op("cm").Raw("/I").Int(object).Op("Do").Op("Q");
}

}  // namespace Zor::inline Host
