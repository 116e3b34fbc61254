#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/host/Export.hpp"
#include "kaldrix/host/PngWriter.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "tests/host/Drawings.hpp"
#include "tests/host/Rendered.hpp"

namespace Zor {
namespace {

using namespace Testing;

constexpr double Dpi = 200;
constexpr TAlphaColor Red = 0xFFFF0000, Blue = 0xFF0000FF;

TExportOptions At(double dpi, int page = 0) {
  TExportOptions options;
  options.dpi = dpi;
  options.page = page;
  return options;
}

TRendered Png(TKDXLabel& doc, const TExportOptions& options = At(Dpi)) {
  return FromPng(ExportPng(doc, options), options.dpi);
}

/// A label that is black all over.
void Blacken(TKDXLabel& doc) {
  auto* rect = doc.NewRectangle(-50000, -50000, 300000, 300000);
  Filled(rect, ColorBlack)->fPenWidth = 0;
}

TEST(Export, PngAndPdfShowTheSame) {
  TKDXLabel doc;
  TGrid grid(doc, 8);
  AddStrokes(grid);
  AddShapes(grid);
  AddTexts(grid);
  AddDressedTexts(grid, true);
  AddRounded(grid);
  SetLabelMM(doc, 160, 160);
  const TRendered png = Png(doc), pdf = FromPdf(ExportPdf(doc, At(Dpi)), Dpi);
  ASSERT_EQ(png.picture.width, pdf.picture.width);
  ASSERT_EQ(png.picture.height, pdf.picture.height);
  for (int i = 0; i < grid.Count(); ++i) {
    const TInkBox a = png.Ink(grid.Left(i), grid.Top(i), 20, 20);
    const TInkBox b = pdf.Ink(grid.Left(i), grid.Top(i), 20, 20);
    EXPECT_FALSE(a.Empty()) << "cell " << i;
    EXPECT_NEAR(a.left, b.left, 0.3) << "cell " << i;
    EXPECT_NEAR(a.top, b.top, 0.3) << "cell " << i;
    EXPECT_NEAR(a.right, b.right, 0.3) << "cell " << i;
    EXPECT_NEAR(a.bottom, b.bottom, 0.3) << "cell " << i;
  }
  // The viewer draws underlines a row of pixels thinner or thicker.
  EXPECT_LT(Strangers(png, pdf), 200);
  EXPECT_LT(Strangers(pdf, png), 200);
}

/// What follows the root element; whole numbers lose the decimals that tell how they came about.
std::string Elements(const std::string& svg) {
  std::string text = svg.substr(svg.find('\n'));
  for (std::size_t at = text.find(".00"); at != std::string::npos; at = text.find(".00", at)) {
    text.erase(at, 3);
  }
  return text;
}

/// Millimetres of paper stay the same whatever the scale and the units.
TEST(Export, ScaleAndUnitsLeaveThePictureAlone) {
  TKDXLabel plain, scaled;
  scaled.SetEditorMode(emDrawing);
  scaled.SetUnits(unINCH);
  scaled.fMeasure->SetDrawScale(50);
  for (auto& [doc, scale] : {std::pair<TKDXLabel*, Int64>(&plain, 1), {&scaled, 50}}) {
    TGrid grid(*doc, 8, scale);
    AddStrokes(grid);
    AddShapes(grid);
    AddTexts(grid);
    AddRounded(grid);
    AddDressedTexts(grid, true);
    AddCutTexts(grid);
    SetLabelMM(*doc, 160, 180);
  }
  EXPECT_EQ(Strangers(Png(plain), Png(scaled)), 0);
  const std::string svg = ExportSvg(scaled, {});
  EXPECT_EQ(Elements(ExportSvg(plain, {})), Elements(svg));
  EXPECT_NE(svg.find("width=\"6.30in\" height=\"7.09in\" viewBox=\"0 0 160 180\""), std::string::npos);
}

TEST(Export, SizeAndViewBoxOfAnSvgAreOneSpace) {
  TKDXLabel doc;
  doc.fMeasure->fWidth = 101600;
  doc.fMeasure->fHeight = 152400;
  const auto root = [&doc](TZORUnits unit, TZORExportSVG mode, Single factor) {
    doc.SetUnits(unit);
    TExportOptions options;
    options.svgMode = mode;
    options.factor = factor;
    const std::string svg = ExportSvg(doc, options);
    EXPECT_EQ(svg, doc.SVG(mode, factor, false));
    const std::size_t from = svg.find("width=");
    return svg.substr(from, svg.find('>') - from);
  };
  const Single px = 96 / 25.4F;
  EXPECT_EQ(root(unINCH, svCurrentUnit, 1), R"(width="4in" height="6in" viewBox="0 0 101.60 152.40")");
  EXPECT_EQ(root(unCM, svCurrentUnit, 1), R"(width="10.16cm" height="15.24cm" viewBox="0 0 101.60 152.40")");
  for (const TZORUnits unit : {unMM, unINCH, unCM}) {
    EXPECT_EQ(root(unit, svCurUnitNoMed, 1), R"(width="101.6" height="152.4" viewBox="0 0 101.60 152.40")");
    EXPECT_EQ(root(unit, svFactorPx, px).substr(0, 29), R"(width="384.00" height="576.00)");
  }
  EXPECT_EQ(root(unINCH, svFactor, 2), R"(width="8in" height="12in" viewBox="0 0 203.20 304.80")");
  for (const int inches : {3, 6, 12}) {
    doc.fMeasure->fWidth = inches * 25400;
    EXPECT_EQ(root(unINCH, svCurrentUnit, 1).find("width=\"" + std::to_string(inches) + "in\""), 0U);
  }
}

TEST(Export, TextsAreMeasuredByTheFontsOfTheDocument) {
  TKDXLabel doc;
  auto* text = doc.NewText(10000, 10000);
  text->SetText("Width");
  text->SetScaleX(0.5F);
  doc.CalcPending();
  const TTextSize size = doc.Fonts().Measure("Width", {"Arial"});
  EXPECT_EQ(text->fWidth, Round(size.width * 500));
  EXPECT_NEAR(text->fHeight, size.Height() * 1000, 1);
  EXPECT_EQ(text->fBoundsRect, (TZORRect{10000, 10000, 10000 + text->fWidth, 10000 + text->fHeight}));
}

TEST(Export, DisplayWidthCutsTheText) {
  TKDXLabel doc;
  SetLabelMM(doc, 100, 20);
  auto* text = doc.NewText(5000, 2000);
  text->fText = "MMMMMMMM";
  text->fUnderline = true;
  text->CalcValues(1);
  text->SetDispWidth(25000);
  EXPECT_NEAR(Png(doc).Ink(0, 0, 100, 20).right, 30, 0.2);
}

TEST(Export, OnlyWhatIsVisibleAndExported) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 20);
  TGrid grid(doc, 4);
  TKDXLayer& hidden = doc.AddLayer();
  hidden.SetOptions({lopVisible, lopPrint});
  for (int i = 0; i < 4; ++i, grid.Next()) {
    auto* item = Filled(doc.NewRectangle(grid.X(5), grid.Y(5), 10000, 10000), ColorBlack);
    if (i == 1) item->SetOptions({lopVisible});
    if (i == 2) item->SetOptions({lopExport});
    if (i == 3) item->SetLayer(hidden);
  }
  const TInkBox ink = Png(doc).Ink(0, 0, 80, 20);
  EXPECT_LT(ink.right, 16);
  TExportOptions fitted;
  fitted.fit = true;
  const std::string svg = ExportSvg(doc, fitted);
  EXPECT_EQ(svg.substr(0, svg.find('\n')),
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10.1mm\" height=\"10.1mm\""
            " viewBox=\"4.95 4.95 10.10 10.10\">");
  fitted.dpi = 254;
  const TRendered png = Png(doc, fitted);
  EXPECT_EQ(png.picture.width, 101);
  EXPECT_EQ(TRendered::Grey(png.At(0, 0)), 0);
}

TEST(Export, TransparentPictureHasNoPaper) {
  TKDXLabel doc;
  Filled(doc.NewCircle(10000, 10000, 5000), Red);
  TExportOptions options = At(100);
  EXPECT_EQ(Png(doc, options).AtMM(2, 2), ColorWhite);
  options.transparent = true;
  EXPECT_EQ(Png(doc, options).AtMM(2, 2) >> 24, 0U);
  EXPECT_EQ(Png(doc, options).AtMM(10, 10), Red);
}

/// The middle of each place of a sheet of 3 x 2 labels, row by row: 'x' where it is black.
std::string SheetPattern(const TRendered& sheet) {
  std::string pattern;
  for (int i = 0; i < 6; ++i) {
    const double x = 5 + 30 + (i % 2) * 65, y = 10 + 15 + (i / 2) * 34;
    pattern += TRendered::Grey(sheet.AtMM(x, y)) < 128 ? 'x' : '.';
  }
  return pattern;
}

TEST(Export, SheetsRepeatTheLabel) {
  TKDXLabel doc;
  TKDXMeasure& m = *doc.fMeasure;
  SetLabelMM(doc, 60, 30);
  m.fNuHor = 3;
  m.fNuVer = 2;
  m.fDiHor = 4000;  // between rows
  m.fDiVer = 5000;  // between columns
  doc.fPrintInfo->fFirstRow = 2;
  doc.fPrintInfo->fFirstCol = 2;
  Blacken(doc);
  const TRendered first = Png(doc, At(100, 1)), second = FromPdf(ExportPdf(doc, At(100, 2)), 100);
  EXPECT_EQ(first.picture.width, 827);
  EXPECT_EQ(first.picture.height, 1169);
  EXPECT_EQ(SheetPattern(first), "...xxx");
  EXPECT_EQ(SheetPattern(second), "xxxxxx");
  // Each is cut at its edges.
  const TInkBox last = first.Ink(67, 75, 143, 222);
  EXPECT_NEAR(last.left, 70, 0.3);
  EXPECT_NEAR(last.right, 130, 0.3);
  EXPECT_NEAR(last.top, 78, 0.3);
  EXPECT_NEAR(last.bottom, 108, 0.3);
}

TEST(Export, RoundLabelsAreCutAtCircleAndHole) {
  TKDXLabel doc;
  TKDXMeasure& m = *doc.fMeasure;
  m.SetLabelType(ltCircle);
  SetLabelMM(doc, 40, 40);
  m.fInnerCircle = 10000;
  Blacken(doc);
  const TRendered sheet = Png(doc, At(100, 1));
  const double left = 5, top = 10;
  EXPECT_EQ(sheet.AtMM(left + 2, top + 2), ColorWhite);
  EXPECT_EQ(sheet.AtMM(left + 20, top + 20), ColorWhite);
  EXPECT_EQ(sheet.AtMM(left + 20, top + 16), ColorWhite);
  EXPECT_EQ(sheet.AtMM(left + 20, top + 14), ColorBlack);
  EXPECT_EQ(sheet.AtMM(left + 39.5, top + 20), ColorBlack);
}

TEST(Export, BackIsExportedWhenALayerSaysSo) {
  struct {
    TKaldrixType shape;
    TZORBackStyle style;
    std::array<TAlphaColor, 3> colors;  // near the left, near the top, at three quarters of both
  } const cases[] = {{ltRect, biNone, {ColorWhite, ColorWhite, ColorWhite}},
                     {ltRect, biGradHor, {0xFFF2000C, 0xFF7F007F, 0xFF3F00BF}},
                     {ltRect, biGradVer, {0xFF7F007F, 0xFFF2000C, 0xFF3F00BF}},
                     {ltCircle, biGraCircle, {0xFF1900E5, 0xFF1900E5, 0xFF4A00B4}},
                     {ltCircle, biHalf1, {Red, Blue, Blue}},
                     {ltCircle, biHalf2, {Red, Red, Blue}},
                     {ltCircle, biQuarter, {Red, Blue, Red}}};
  for (const auto& [shape, style, colors] : cases) {
    TKDXLabel doc;
    doc.fMeasure->SetLabelType(shape);
    SetLabelMM(doc, 40, 40);
    doc.fBackSurf->fColor = Red;
    doc.fBackSurf->fToColor = Blue;
    doc.fBackSurf->SetStyle(style);
    EXPECT_EQ(Png(doc).AtMM(15, 15), ColorWhite);
    doc.GetLayer(1).SetOptions({lopVisible, lopExport, lopExportBack});
    const TRendered png = Png(doc);
    const TAlphaColor seen[] = {png.AtMM(2, 19.9), png.AtMM(20.1, 2), png.AtMM(30, 30)};
    for (std::size_t i = 0; i < 3; ++i) {
      for (const int shift : {0, 8, 16}) {
        EXPECT_NEAR(double(seen[i] >> shift & 0xFF), double(colors[i] >> shift & 0xFF), 4)
            << "style " << int{style} << " place " << i;
      }
    }
  }
}

TEST(Export, ImagesOfLayersLieWithinTheirMargins) {
  TKDXLabel doc;
  SetLabelMM(doc, 40, 30);
  TSurface picture = TSurface::MakeRaster(doc.Fonts(), 4, 4, 50, Red);
  TKDXLayer& layer = doc.GetLayer(1);
  layer.SetOptions({lopVisible, lopExport, lopImage, lopExportBack});
  layer.fArrayB = PngBytes(picture.Raster());
  layer.fImgMarLeft = 3000;
  layer.fImgMarTop = 4000;
  layer.fImgMarRight = 5000;
  layer.fImgMarBottom = 6000;
  const TRendered png = Png(doc);
  EXPECT_EQ(png.AtMM(2.5, 15), ColorWhite);
  EXPECT_EQ(png.AtMM(3.5, 4.5), Red);
  EXPECT_EQ(png.AtMM(34.5, 23.5), Red);
  EXPECT_EQ(png.AtMM(35.5, 15), ColorWhite);
  EXPECT_EQ(png.AtMM(20, 24.5), ColorWhite);
  EXPECT_NE(
      ExportSvg(doc, {}).find("<image x=\"3\" y=\"4\" width=\"32\" height=\"20\" "
                              "preserveAspectRatio=\"none\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
                              "xlink:href=\"data:image/png;base64,"),
      std::string::npos);
  layer.fArrayB = "no picture";
  EXPECT_THROW(ExportPng(doc, At(100)), Exception);
  layer.fArrayB.clear();
  layer.fFileImg = "missing.png";
  EXPECT_THROW(ExportPdf(doc, {}), EFileNotFoundException);
}

TEST(Export, RefusalsSayWhy) {
  struct {
    const char* text;
    void (*prepare)(TKDXLabel&, TExportOptions&);
  } const cases[] = {
      {"no size", [](TKDXLabel& doc, TExportOptions&) { doc.fMeasure->fWidth = 0; }},
      {"between 1 and 9600", [](TKDXLabel&, TExportOptions& o) { o.dpi = 0.5; }},
      {"between 1 and 9600", [](TKDXLabel&, TExportOptions& o) { o.dpi = std::nan(""); }},
      {"nothing to fit", [](TKDXLabel&, TExportOptions& o) { o.fit = true; }},
      {"cannot be fitted", [](TKDXLabel&, TExportOptions& o) { o.fit = true, o.page = 1; }},
      {"Pages count from 1", [](TKDXLabel&, TExportOptions& o) { o.page = -1; }},
      {"above 0", [](TKDXLabel&, TExportOptions& o) { o.factor = 0; }},
      {"above 0", [](TKDXLabel&, TExportOptions& o) { o.factor = std::nanf(""); }},
      {"megapixels",
       [](TKDXLabel& doc, TExportOptions& o) {
         SetLabelMM(doc, 2000, 2000);
         o.dpi = 300;
       }},
      {"too many labels",
       [](TKDXLabel& doc, TExportOptions& o) {
         SetLabelMM(doc, 0.001, 0.001);
         doc.fMeasure->fNuHor = doc.fMeasure->fNuVer = 1 << 30;
         doc.fMeasure->fDiHor = doc.fMeasure->fDiVer = 0;
         o.page = 1;
       }},
  };
  for (const auto& [text, prepare] : cases) {
    TKDXLabel doc;
    TExportOptions options;
    prepare(doc, options);
    try {
      ExportPng(doc, options);
      ADD_FAILURE() << text;
    } catch (const Exception& error) {
      EXPECT_NE(std::string(error.what()).find(text), std::string::npos) << error.what();
    }
  }
}

TEST(Export, DocumentWritesFiles) {
  const TTempFolder folder;
  TKDXLabel doc;
  SetLabelMM(doc, 25.4, 50.8);
  doc.ExportDoc(exPNG, folder.File("a.png"), 0, 2, 0, true, false, false);
  EXPECT_EQ(TImageLoader::InfoOfFile(folder.File("a.png")).height, 384);
  doc.ExportDoc(exPDF, folder.File("a.pdf"), 1, 1, 0, true, false, false);
  EXPECT_EQ(ReadFile(folder.File("a.pdf")).substr(0, 5), "%PDF-");
  EXPECT_THROW(doc.ExportDoc(exXPS, folder.File("a.xps"), 0, 1, 0, true, false, false), EArgumentException);
  EXPECT_FALSE(FileExists(folder.File("a.xps")));
}

}  // namespace
}  // namespace Zor
