#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <functional>
#include <limits>
#include <numbers>

#include "kaldrix/host/TSurface.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "tests/host/Ink.hpp"

namespace Zor {
namespace {

using Testing::InkBox;
using Testing::PixelAt;
using Testing::TInkBox;

constexpr double Dpi = 600;
/// A pixel and the softness of its edge.
constexpr double Near = 0.06;

TSurface Sheet(TFontEngine& fonts, double width = 60, double height = 40) {
  return TSurface::MakeRaster(fonts, width, height, Dpi);
}

void ExpectBox(const TInkBox& box, double left, double top, double right, double bottom) {
  EXPECT_NEAR(box.left, left, Near);
  EXPECT_NEAR(box.top, top, Near);
  EXPECT_NEAR(box.right, right, Near);
  EXPECT_NEAR(box.bottom, bottom, Near);
}

/// What `program` prints about a PDF.
std::string Ask(const std::string& program, const std::string& pdf) {
  char name[] = "/tmp/surfaceXXXXXX";
  const int file = mkstemp(name);
  close(file);
  std::ofstream(name, std::ios::binary) << pdf;
  std::FILE* pipe = popen((program + " " + name).c_str(), "r");
  std::string text;
  char piece[4096];
  while (const std::size_t got = std::fread(piece, 1, sizeof piece, pipe)) text.append(piece, got);
  pclose(pipe);
  std::remove(name);
  return text;
}

// "H" of Liberation Sans: ink from 0.0820 to 0.6401 of the em across and from the baseline up to 0.6880.
constexpr double HLeft = 0.0820, HRight = 0.6401, HTop = 0.6880, HAdvance = 1479.0 / 2048;

TEST(TSurface, TextStandsWhereItsAnchorSays) {
  TFontEngine fonts;
  const double up = 18540.0 / 2048, down = 4340.0 / 2048;
  const std::pair<TTextVert, double> verts[] = {
      {tvBaseline, 0}, {tvTop, up}, {tvCentral, (up - down) / 2}, {tvBottom, -down}, {tvHanging, 0.8 * up}};
  const std::pair<TTextAnchor, double> anchors[] = {{taStart, 0}, {taMiddle, 0.5}, {taEnd, 1}};
  for (const auto& [vert, offset] : verts) {
    for (const auto& [anchor, part] : anchors) {
      for (const double stretch : {0.5, 1.0, 2.0}) {
        TSurface sheet = Sheet(fonts);
        sheet.Text("H", {30, 20, anchor, vert, 0, stretch}, TFontSpec{}, ColorBlack);
        const double left = 30 - part * HAdvance * 10 * stretch, base = 20 + offset;
        ExpectBox(InkBox(sheet), left + HLeft * 10 * stretch, base - HTop * 10, left + HRight * 10 * stretch,
                  base);
      }
    }
  }
}

TEST(TSurface, TextTurnsAboutItsAnchor) {
  TFontEngine fonts;
  const double up = 18540.0 / 2048, left = HLeft * 5, right = HRight * 5, top = up - HTop * 10;
  struct {
    double angle;
    TInkBox box;
  } const cases[] = {{-90, {30 + top, 20 - right, 30 + up, 20 - left}},
                     {-180, {30 - right, 20 - up, 30 - left, 20 - top}},
                     {-270, {30 - up, 20 + left, 30 - top, 20 + right}}};
  for (const auto& c : cases) {
    TSurface sheet = Sheet(fonts);
    sheet.Text("H", {30, 20, taStart, tvTop, c.angle, 0.5}, TFontSpec{}, ColorBlack);
    ExpectBox(InkBox(sheet), c.box.left, c.box.top, c.box.right, c.box.bottom);
  }
}

TEST(TSurface, GlyphsAndOutlinesAgree) {
  TFontEngine fonts;
  for (const double dpi : {100.0, 300.0}) {
    TSurface sheet = TSurface::MakeRaster(fonts, 60, 20, dpi);
    TFontSpec font;
    font.underline = true;
    sheet.Text("Hamburg H", {5, 5}, font, ColorBlack);
    const double width = fonts.Measure("Hamburg H", font).width;
    const TInkBox box = InkBox(sheet);
    const double pixel = 25.4 / dpi;
    EXPECT_NEAR(box.left, 5, pixel) << "the underline begins at the anchor";
    EXPECT_NEAR(box.right, 5 + width, pixel);
    EXPECT_NEAR(box.bottom, 5 + (18540 + 4250) / 2048.0, pixel) << "the tail of the g";
  }
}

TEST(TSurface, DashesRunInMillimetres) {
  struct {
    TZOLineType line;
    const char* drawn;  // every half millimetre from 0.25 mm on
  } const cases[] = {{iiSolid, "######################"}, {ii0505, "# # # # # # # # # # # "},
                     {ii11, "##  ##  ##  ##  ##  ##"},    {ii21, "####  ####  ####  ####"},
                     {ii12, "####  ####  ####  ####"},    {ii22, "####    ####    ####  "},
                     {ii31, "######  ######  ######"},    {ii33, "######      ######    "},
                     {ii41, "########  ########  ##"},    {ii42, "########    ########  "},
                     {ii44, "########        ######"},    {ii411, "########  ##  ########"}};
  TFontEngine fonts;
  for (const auto& c : cases) {
    TSurface sheet = Sheet(fonts, 12, 2);
    sheet.Line(0.0, 1, 12, 1, {ColorBlack, 1, c.line, false});
    std::string drawn;
    for (int i = 0; i < 22; ++i) {
      drawn += (PixelAt(sheet.Raster(), 0.25 + i * 0.5, 1) & 0xFF) < 128 ? '#' : ' ';
    }
    EXPECT_EQ(drawn, c.drawn) << int{c.line};
  }
}

TEST(TSurface, PensOfNoWidthDrawNothingAndRoundOnesReachFurther) {
  TFontEngine fonts;
  TSurface sheet = Sheet(fonts);
  sheet.Line(10, 10, 20, 10, {ColorBlack, 0});
  sheet.Circle(10, 10, 5, {ColorBlack, -1}, {});
  EXPECT_TRUE(InkBox(sheet).Empty());
  sheet.Line(10, 10, 20, 10, {ColorBlack, 2, iiSolid, true});
  ExpectBox(InkBox(sheet), 9, 9, 21, 11);
}

TEST(TSurface, Terminators) {
  constexpr double Pen = 0.2, Half = Pen / 2;
  const double across = 2 * std::sin(std::numbers::pi / 8), along = 2 * std::cos(std::numbers::pi / 8);
  struct {
    TZORTermType type;
    double size;
    TInkBox box;
    bool filled;
  } const cases[] = {
      {ttCircle, 4, {18 - Half, 18 - Half, 22 + Half, 22 + Half}, false},
      {ttFillCircle, 4, {18 - Half, 18 - Half, 22 + Half, 22 + Half}, true},
      {ttSquare, 4, {18 - Half, 18 - Half, 22 + Half, 22 + Half}, false},
      {ttFillSquare, 4, {18 - Half, 18 - Half, 22 + Half, 22 + Half}, true},
      // 2.5 rounds to wings of 2; the line comes from the left. The stroke of a wing ends square.
      {ttArrow, 2.5, {20 - along - 0.04, 20 - across - 0.09, 20.02, 20 + across + 0.09}, false},
      {ttCross, 4, {18 - 0.07, 18 - 0.07, 22.07, 22.07}, true},
  };
  TFontEngine fonts;
  for (const auto& c : cases) {
    TSurface sheet = Sheet(fonts);
    sheet.Terminator(c.type, 20, 20, 5, 20, c.size, {ColorBlack, Pen, ii11, true}, ColorBlack);
    ExpectBox(InkBox(sheet), c.box.left, c.box.top, c.box.right, c.box.bottom);
    EXPECT_EQ((PixelAt(sheet.Raster(), 20 - (c.type == ttArrow ? 1 : 0), 20) & 0xFF) < 128, c.filled);
  }
  TSurface sheet = Sheet(fonts);
  sheet.Terminator(ttFillArrow, 20, 20, std::numbers::pi / 2, 0, 4, {ColorBlack, 0}, ColorBlack, true);
  const double wide = 4 * std::sin(std::numbers::pi / 8), high = 4 * std::cos(std::numbers::pi / 8);
  ExpectBox(InkBox(sheet), 20 - wide, 20 - high, 20 + wide, 20);
}

TEST(TSurface, ArcsTurnAsTold) {
  constexpr double Pi = std::numbers::pi;
  struct {
    double start, end;
    bool clockwise;
    TInkBox box;
  } const cases[] = {{0, Pi / 2, true, {20, 20, 30, 30}},
                     {0, Pi / 2, false, {10, 10, 30, 30}},
                     {Pi, -Pi / 2, true, {10, 10, 20, 20}},
                     {Pi / 2, 5 * Pi, true, {10, 20, 20, 30}}};
  TFontEngine fonts;
  for (const auto& c : cases) {
    TSurface sheet = Sheet(fonts);
    sheet.Arc(20, 20, 10, c.start, c.end, c.clockwise, {ColorBlack, 0.1});
    ExpectBox(InkBox(sheet), c.box.left, c.box.top, c.box.right, c.box.bottom);
  }
  TSurface sheet = Sheet(fonts);
  sheet.Arc(20, 20, 10, 1, 1, true, {ColorBlack, 1});
  EXPECT_TRUE(InkBox(sheet).Empty());
  // The crown of a circle whose middle lies a kilometre below.
  sheet.Arc(30, 1e6 + 10, 1e6, -Pi / 2 - 2e-5, -Pi / 2 + 2e-5, true, {ColorBlack, 0.2});
  ExpectBox(InkBox(sheet), 10, 9.9, 50, 10.1);
}

TEST(TSurface, ShapesFillTheirBoxes) {
  const TPen none;
  const TBrush black{ColorBlack, true};
  TFontEngine fonts;
  const std::pair<std::function<void(TSurface&)>, TInkBox> cases[] = {
      {[&](TSurface& s) { s.Sector(20, 20, 10, -60, 150, none, black); }, {20, 20 - 8.66, 30, 30}},
      {[&](TSurface& s) { s.Sector(20, 20, 10, 45, 360, none, black); }, {10, 10, 30, 30}},
      {[&](TSurface& s) { s.Ellipse(20, 20, 10, 5, none, black); }, {10, 15, 30, 25}},
      {[&](TSurface& s) { s.Rect(10, 10, 20, 10, 99, none, black); }, {10, 10, 30, 20}},
      {[&](TSurface& s) {
         s.Bezier(std::array<TPaperPoint, 4>{{{10, 10}, {10, 20}, {30, 20}, {30, 10}}}, true, none, black);
       },
       {10, 10, 30, 17.5}},
      {[&](TSurface& s) {
         s.ClipCircle(20, 20, 5);
         s.Rect(0, 0, 60, 40, 0, none, black);
       },
       {15, 15, 25, 25}}};
  for (const auto& [draw, box] : cases) {
    TSurface sheet = Sheet(fonts);
    draw(sheet);
    ExpectBox(InkBox(sheet), box.left, box.top, box.right, box.bottom);
  }
  // The corners of a radius beyond half of either side make an ellipse.
  TSurface sheet = Sheet(fonts);
  sheet.Rect(10, 10, 20, 10, 99, none, black);
  EXPECT_EQ(PixelAt(sheet.Raster(), 12, 11), ColorWhite);
}

TEST(TSurface, GradientsRunFromEdgeToEdge) {
  TFontEngine fonts;
  const auto grey = [&](TGradientKind kind, double x, double y) {
    TSurface sheet = Sheet(fonts);
    sheet.Rect(10, 10, 20, 20, 0, {}, {ColorBlack, true, kind, ColorWhite});
    return static_cast<int>(PixelAt(sheet.Raster(), x, y) & 0xFF);
  };
  EXPECT_NEAR(grey(gkHorz, 15, 28), 64, 3);
  EXPECT_NEAR(grey(gkVert, 28, 15), 64, 3);
  EXPECT_NEAR(grey(gkRadial, 20, 20), 0, 3);
  EXPECT_NEAR(grey(gkRadial, 25, 20), 128, 3);
}

TEST(TSurface, BarsHaveHardEdgesInEveryQuarterTurn) {
  TFontEngine fonts;
  std::vector<TBar> bars;
  for (int i = 0; i < 40; ++i) bars.push_back({10 + i * 0.33, 10, 0.165, 10});
  for (const double turn : {0.0, 90.0, 180.0, 270.0}) {
    TSurface sheet = TSurface::MakeRaster(fonts, 60, 40, 203);
    sheet.Rotate(turn, 20, 20);
    sheet.FillBars(bars, ColorBlack);
    const TRasterView raster = sheet.Raster();
    const std::span pixels(raster.pixels,
                           static_cast<std::size_t>(raster.stride) * static_cast<std::size_t>(raster.height));
    EXPECT_TRUE(std::all_of(pixels.begin(), pixels.end(),
                            [](std::uint32_t p) { return p == ColorBlack || p == ColorWhite; }));
    EXPECT_TRUE(std::find(pixels.begin(), pixels.end(), ColorBlack) != pixels.end());
  }
}

TEST(TSurface, PicturesFillTheirRectangle) {
  TFontEngine fonts;
  auto picture = std::make_shared<TPicture>();
  *picture = {2, 1, {0xFF000000, 0x80FF0000}, {}};
  TSurface sheet = Sheet(fonts);
  sheet.Image(picture, 10, 10, 20, 5);
  EXPECT_EQ(PixelAt(sheet.Raster(), 10.5, 14.5), ColorBlack);
  EXPECT_EQ(PixelAt(sheet.Raster(), 29.5, 10.5), 0xFFFF7F7FU);
  EXPECT_EQ(PixelAt(sheet.Raster(), 30.5, 10.5), ColorWhite);
}

TEST(TSurface, PlacesOffTheSheetAreHarmless) {
  constexpr double Inf = std::numeric_limits<double>::infinity(),
                   NaN = std::numeric_limits<double>::quiet_NaN();
  TFontEngine fonts;
  for (const double far : {1e7, 1e18, 1e300, Inf, NaN, -1e18}) {
    TSurface sheet = TSurface::MakeRaster(fonts, 60, 40, 100);
    const TPen pen{ColorBlack, 0.5, ii0505, true};
    sheet.Line(-far, 20, far, 20, pen);
    sheet.Circle(far, far, far, pen, {ColorBlack, true});
    sheet.Arc(0, 0, far, 0, far, true, pen);
    sheet.Terminator(ttArrow, far, 1, 2, far, far, pen, ColorBlack);
    sheet.Text("far", {far, far, taEnd, tvTop, far, far}, TFontSpec{.heightMM = far}, ColorBlack);
    const TBar bar{far, 0, far, 1};
    sheet.FillBars({&bar, 1}, ColorBlack);
    sheet.Scale(far, 0);
    sheet.Translate(far, far);
    sheet.Rotate(far);
    EXPECT_NO_THROW(sheet.Raster());
  }
  EXPECT_THROW(TSurface::MakeRaster(fonts, NaN, 40, 100), EArgumentException);
  EXPECT_THROW(TSurface::MakePdf(fonts, 0, 40), EArgumentException);
}

TEST(TSurface, OversizeIsRefusedByName) {
  TFontEngine fonts;
  try {
    TSurface::MakeRaster(fonts, 1000, 1000, 300);
    FAIL();
  } catch (const Exception& e) {
    EXPECT_NE(std::string(e.what()).find("11811 x 11811"), std::string::npos) << e.what();
  }
}

std::string TwoPages(TFontEngine& fonts) {
  TSurface pdf = TSurface::MakePdf(fonts, 100, 50, {"Two pages", "2024-02-03T04:05:06Z"});
  pdf.Save();
  pdf.ClipRect(0, 0, 1, 1);
  pdf.NewPage(50, 100);
  pdf.Text("Grüße quietly", {5, 90, taStart, tvTop, -90, 0.5}, TFontSpec{.heightMM = 4}, ColorBlack);
  pdf.Rect(1, 1, 10, 10, 2, {ColorBlack, 0.3}, {0x80FF0000, true, gkRadial, ColorWhite});
  return pdf.FinishPdf();
}

TEST(TSurface, PdfTextIsTextAndEqualInputGivesEqualBytes) {
  TFontEngine fonts, others;
  const std::string bytes = TwoPages(fonts);
  EXPECT_EQ(bytes, TwoPages(fonts));
  EXPECT_EQ(bytes, TwoPages(others));
  EXPECT_NE(Ask("pdftotext /dev/stdin - <", bytes).find("Grüße quietly"), std::string::npos);
  EXPECT_EQ(Ask("pdffonts", bytes).find("no yes"), std::string::npos);
  EXPECT_NE(bytes.find("20240203"), std::string::npos);
}

}  // namespace
}  // namespace Zor
