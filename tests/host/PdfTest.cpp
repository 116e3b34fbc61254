// What programs that read PDFs make of ours.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <limits>
#include <numbers>

#include "kaldrix/host/PngWriter.hpp"
#include "kaldrix/host/TSurface.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "tests/host/Rendered.hpp"

namespace Zor {
namespace {

using namespace Testing;

/// What a command prints; `%` stands for the file of the PDF.
std::string Ask(std::string command, const std::string& pdf) {
  const TTempFolder folder;
  const std::string name = folder.File("a.pdf");
  std::ofstream(name, std::ios::binary) << pdf;
  command.replace(command.find('%'), 1, name);
  std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  std::string text;
  char piece[4096];
  while (const std::size_t got = std::fread(piece, 1, sizeof piece, pipe)) text.append(piece, got);
  return text + "status " + std::to_string(pclose(pipe));
}

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// The structure, judged where there is a judge.
void ExpectSound(const std::string& pdf) {
  if (std::string_view(KALDRIX_QPDF).empty()) return;
  const std::string judged = Ask(KALDRIX_QPDF " --check %", pdf);
  EXPECT_TRUE(Has(judged, "No syntax or stream encoding errors found") && Has(judged, "status 0")) << judged;
}

void ExpectValid(const std::string& pdf) {
  ExpectSound(pdf);
  // These read operators, too, and complain when one is wrong.
  EXPECT_EQ(Ask("pdftotext % /dev/null", pdf), "status 0");
  EXPECT_EQ(Ask("pdftoppm -r 20 % /dev/null", pdf), "status 0");
}

int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

/// Fields of `size` x `size` pixels.
std::shared_ptr<TPicture> Chequered(int width, int height, TAlphaColor a, TAlphaColor b, int size = 1) {
  auto picture = std::make_shared<TPicture>();
  *picture = {width, height, {}, {}};
  for (int i = 0; i < width * height; ++i) {
    picture->pixels.push_back((i % width / size + i / width / size) % 2 == 0 ? a : b);
  }
  return picture;
}

// ---- The same drawing on both kinds of surface ----

void DrawStrokes(TSurface& s) {
  const TPen pen{ColorBlack, 0.6};
  s.Line(5, 5, 45, 15, pen);
  s.Line(5, 20, 45, 20, {0xFF0000FF, 1, ii31, true});
  s.PolyLine(std::array<TPaperPoint, 4>{{{5, 25}, {20, 25}, {6, 27}, {20, 40}}}, {0xFF800000, 1.5});
  s.Arc(35, 33, 8, 1, -2, true, {0xFF008000, 1, ii22});
  s.Terminator(ttFillArrow, 45, 15, 5, 5, 4, pen, 0xFFFF0000);
  s.Save();
  s.Translate(5, 45);
  s.Scale(3, 1);
  s.Circle(6, 5, 4, {ColorBlack, 0.8, ii11}, {0xFFFFFF00, true});
  s.Restore();
}

void DrawFills(TSurface& s) {
  s.Rect(55, 5, 20, 12, 3, {ColorBlack, 0.5}, {0xFFFFC0C0, true});
  s.Circle(65, 17, 6, {0x800000FF, 2}, {0x8000FF00, true});
  s.Polygon(std::array<TPaperPoint, 5>{{{90, 5}, {95, 22}, {81, 11}, {99, 11}, {85, 22}}}, {},
            {0xFF4040FF, true});
  s.Sector(65, 35, 8, 30, 250, {ColorBlack, 0.4}, {0xFF00FFFF, true});
  s.Bezier(std::array<TPaperPoint, 4>{{{82, 40}, {80, 22}, {100, 22}, {98, 40}}}, true, {0xFF800080, 0.5},
           {0xFFC0FFC0, true});
}

void DrawGradients(TSurface& s) {
  s.Rect(105, 5, 20, 12, 0, {}, {0xFFFF0000, true, gkHorz, 0xFF0000FF});
  s.Ellipse(140, 11, 9, 6, {ColorBlack, 0.3}, {0xFFFFFF00, true, gkVert, 0xFF008000});
  s.Rect(105, 20, 20, 20, 2, {}, {ColorWhite, true, gkRadial, ColorBlack});
  s.Rect(130, 20, 20, 8, 0, {}, {0x40FF0000, true, gkHorz, 0x400000FF});
  s.Rect(128, 30, 24, 10, 0, {}, {0xFF808080, true});
  s.Rect(130, 31, 20, 8, 0, {}, {0xFFFF0000, true, gkHorz, 0x00FF0000});
  s.Save();
  s.Rotate(30, 120, 50);
  s.Rect(115, 45, 20, 8, 0, {}, {0xFFFF0000, true, gkVert, 0xFFFFFF00});
  s.Restore();
}

void DrawTexts(TSurface& s) {
  const TFontSpec plain{.heightMM = 5};
  s.Text("Kerned AVATAR To.", {5, 70}, plain, ColorBlack);
  s.Text("turned", {70, 90, taMiddle, tvCentral, 30, 1.5}, TFontSpec{.name = "DejaVu Serif", .heightMM = 6},
         0xFF0000C0);
  s.Text("narrow end", {60, 60, taEnd, tvBottom, 0, 0.6},
         TFontSpec{.bold = true, .underline = true, .heightMM = 8}, 0x80FF0000);
  // Styles that the family lacks, marks above letters, other scripts, and what no font has.
  s.Text("Slanted bold", {5, 80},
         TFontSpec{.name = "DejaVu Math TeX Gyre", .bold = true, .italic = true, .heightMM = 8}, ColorBlack);
  s.Text("e\xCC\x81x\xCC\x88 office \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xE6\xBC\xA2", {5, 92},
         TFontSpec{.name = "DejaVu Sans", .strikeout = true, .heightMM = 5}, ColorBlack);
}

std::vector<TBar> SomeBars(double module) {
  std::vector<TBar> bars;
  for (int i = 0; i < 30; ++i)
    bars.push_back({0.123 + i * 2.5 * module, 0.5, (1 + i % 2 * 1.5) * module / 2, 8});
  return bars;
}

void DrawBars(TSurface& s) {
  int row = 0;
  // Modules that are thousandths of a millimetre, that are not, and halves of one.
  for (const double module : {0.33, 0.41234567}) {
    s.Save();
    s.Translate(105, 70 + 10 * row++);
    s.FillBars(SomeBars(module), ColorBlack);
    s.Restore();
  }
  s.Save();
  s.Translate(20, 105);
  s.Rotate(20);
  s.FillBars(SomeBars(0.5), 0xFF404080);
  s.Restore();
}

void DrawPictures(TSurface& s) {
  const auto solid = Chequered(160, 80, 0xFFFF0000, 0xFF00FF00, 20),
             clear = Chequered(80, 80, 0xFF0000FF, 0x400000FF, 20);
  s.Image(solid, 70, 100, 24, 12);
  s.Save();
  s.Rotate(15, 110, 105);
  s.Image(clear, 105, 98, 16, 16, 0.5);
  s.Restore();
  s.Save();
  s.ClipCircle(140, 108, 8);
  s.Save();
  s.ClipRect(130, 104, 30, 20);
  s.Image(solid, 130, 98, 20, 20);
  s.Restore();
  s.Rect(130, 98, 20, 4, 0, {}, {ColorBlack, true});
  s.Restore();
  s.Rect(149, 100, 5, 5, 0, {}, {0xFF00C000, true});
  s.Save();
  s.ClipPath(TPath());
  s.Rect(0, 0, 160, 125, 0, {}, {ColorBlack, true});
  s.Restore();
}

void DrawAll(TSurface& s) {
  DrawStrokes(s);
  DrawFills(s);
  DrawGradients(s);
  DrawTexts(s);
  DrawBars(s);
  DrawPictures(s);
}

TEST(Pdf, ShowsWhatTheRasterShows) {
  constexpr double Dpi = 200;
  TFontEngine fonts;
  TSurface raster = TSurface::MakeRaster(fonts, 160, 127.6, Dpi), pdf = TSurface::MakePdf(fonts, 160, 127.6);
  DrawAll(raster);
  DrawAll(pdf);
  const std::string bytes = pdf.FinishPdf();
  ExpectValid(bytes);
  const TRendered a = FromPng(PngBytes(raster.Raster()), Dpi), b = FromPdf(bytes, Dpi);
  ASSERT_EQ(a.picture.width, b.picture.width);
  ASSERT_EQ(a.picture.height, b.picture.height);
  EXPECT_LT(Strangers(a, b), 150);
  EXPECT_LT(Strangers(b, a), 150);
}

/// Whether bars lie on a grid of modules or not, their edges are where they were asked for.
TEST(Pdf, BarsKeepTheirPlaces) {
  constexpr double Dpi = 1270, Pixel = 25.4 / Dpi;
  TFontEngine fonts;
  for (const double jitter : {0.0, 0.005, 0.03, 0.13}) {
    std::vector<TBar> bars;
    for (int i = 0; i < 20; ++i) bars.push_back({1 + i + jitter * (i % 3), 0.2, 0.5 + jitter * (i % 2), 1});
    TSurface pdf = TSurface::MakePdf(fonts, 24, 2);
    pdf.FillBars(bars, ColorBlack);
    const TRendered seen = FromPdf(pdf.FinishPdf(), Dpi);
    for (const TBar& bar : bars) {
      const TInkBox ink = seen.Ink(bar.x - 0.05, 0, bar.width + 0.1, 2);
      EXPECT_NEAR(ink.left, bar.x, 1.5 * Pixel) << jitter;
      EXPECT_NEAR(ink.right, bar.x + bar.width, 1.5 * Pixel) << jitter;
      EXPECT_NEAR(ink.top, 0.2, 1.5 * Pixel) << jitter;
      EXPECT_NEAR(ink.bottom, 1.2, 1.5 * Pixel) << jitter;
    }
  }
}

// ---- Text ----

/// The text of a PDF in one line, without the marks of direction that pdftotext adds.
std::string TextOf(const std::string& pdf) {
  std::string text = Ask("pdftotext % -", pdf);
  text.resize(text.find("status"));
  for (const char* mark : {"\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC", "\n", "\f"}) {
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
      text.erase(at, std::string_view(mark).size());
    }
  }
  return text;
}

TEST(Pdf, TextComesBackAsItWas) {
  const std::pair<const char*, const char*> cases[] = {
      {"Brackets ( ) and \\ and 0123", "Arial"},
      {"AVATAR Tomato To. kerned", "Arial"},
      {"office fluffy waffle ffi", "DejaVu Sans"},                           // ligatures
      {"\xC3\xA9 e\xCC\x81 \xC3\xA9 x\xCC\xA3\xCC\x81", "DejaVu Sans"},      // one glyph of two texts, marks
      {"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD7\xA2\xD7\x95", "DejaVu Sans"},  // from right to left
      {"\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7", "DejaVu Sans"},           // joined letters
      {"a\xE2\x86\x92\xE2\x99\xA5 fallback", "Liberation Mono"},             // two fonts
      {"no \xE6\xBC\xA2\xE5\xAD\x97 font", "Arial"},                         // in no font
      {"the \xCE\xA9 and \xE2\x84\xA6 or \xCE\xA9", "DejaVu Sans"},          // two characters, one look
      {"\xF0\x9D\x94\xB8 beyond 16 bits", "DejaVu Sans"},
      {"a \xF0\x9F\x98\x80 smile", "Arial"},  // a picture where there is such a font
      {"Made bold", "DejaVu Math TeX Gyre"}};
  TFontEngine fonts;
  for (const auto& [text, font] : cases) {
    TSurface pdf = TSurface::MakePdf(fonts, 150, 20);
    // Twice: the second time the line is known.
    pdf.Text("first", {5, 5}, TFontSpec{.heightMM = 5}, ColorBlack);
    for (int page = 0; page < 2; ++page) {
      pdf.NewPage(150, 20);
      pdf.Text(text, {5, 5}, TFontSpec{.name = font, .bold = true, .heightMM = 5}, ColorBlack);
    }
    const std::string bytes = pdf.FinishPdf();
    EXPECT_EQ(TextOf(bytes), std::string("first") + text + text);
    ExpectValid(bytes);
    const std::string listed = Ask("pdffonts %", bytes);
    EXPECT_GE(Count(listed, "yes yes yes"), 1) << listed;
    EXPECT_EQ(Count(listed, "yes yes yes"), Count(listed, "Identity-H")) << listed;
  }
}

/// Every word begins where the engine measures it, to a few thousandths of a millimetre.
TEST(Pdf, WordsStandWhereTheyAreMeasured) {
  TFontEngine fonts;
  const TFontSpec font{.name = "Liberation Serif", .italic = true, .heightMM = 7.3};
  const std::string text = "AVATAR Wolf To. Yes 1117 PAT. VA end";
  TSurface pdf = TSurface::MakePdf(fonts, 200, 20);
  pdf.Text(text, {12.345, 5}, font, ColorBlack);
  const std::string boxes = Ask("pdftotext -bbox % -", pdf.FinishPdf());
  std::size_t at = 0, words = 0;
  for (std::size_t start = 0; start != std::string::npos; ++words) {
    at = boxes.find("<word xMin=\"", at);
    ASSERT_NE(at, std::string::npos) << words;
    at += 12;
    const double x = std::atof(boxes.c_str() + at) * 25.4 / 72;
    EXPECT_NEAR(x, 12.345 + fonts.Measure(text.substr(0, start), font).width, 0.003) << text.substr(start);
    start = text.find(' ', start);
    if (start != std::string::npos) ++start;
  }
  EXPECT_EQ(words, 8U);
}

// ---- The file ----

TEST(Pdf, PagesMakeATreeAndGoToTheSink) {
  TFontEngine fonts;
  for (const int pages : {1, 64, 65, 64 * 64, 64 * 64 + 1}) {
    std::string joined;
    std::size_t longest = 0, pieces = 0;
    const auto sink = [&](std::string_view piece) {
      joined += piece;
      longest = std::max(longest, piece.size());
      ++pieces;
    };
    const auto draw = [&](TSurface pdf) {
      for (int page = 1; page <= pages; ++page) {
        if (page > 1) pdf.NewPage(50 + page % 7, 30);
        pdf.Save();
        pdf.ClipRect(0, 0, 40, 30);
        pdf.Text("Page " + std::to_string(page), {5, 5}, TFontSpec{.heightMM = 5}, ColorBlack);
      }
      return pdf.FinishPdf();
    };
    EXPECT_EQ(draw(TSurface::MakePdf(fonts, 51, 30, {}, sink)), "");
    EXPECT_EQ(joined, draw(TSurface::MakePdf(fonts, 51, 30)));
    EXPECT_GE(pieces, static_cast<std::size_t>(pages));
    // Fonts and references come at the end; pages are small.
    EXPECT_LT(longest, 40'000U + 60U * static_cast<std::size_t>(pages));
    const std::string last = std::to_string(pages),
                      info = Ask("pdfinfo -f " + last + " -l " + last + " %", joined);
    EXPECT_TRUE(Has(info, "Pages:           " + last + "\n")) << info;
    const int width = static_cast<int>((50 + pages % 7) * 72 / 25.4);
    EXPECT_TRUE(Has(info, "size:  " + std::to_string(width) + ".")) << info;
    EXPECT_TRUE(Has(Ask("pdftotext -f " + last + " % -", joined), "Page " + last));
    ExpectSound(joined);
  }
}

TEST(Pdf, TellsTitleAndDate) {
  TFontEngine fonts;
  TSurface pdf = TSurface::MakePdf(fonts, 50, 50,
                                   {"T\xC3\xAFtle (\xD0\x96) \xF0\x9D\x94\xB8", "2024-02-03T04:05:06+02:00"});
  const std::string bytes = pdf.FinishPdf(), info = Ask("TZ=UTC pdfinfo -isodates %", bytes);
  EXPECT_TRUE(Has(info, "Title:           T\xC3\xAFtle (\xD0\x96) \xF0\x9D\x94\xB8\n")) << info;
  EXPECT_TRUE(Has(info, "2024-02-03T04:05:06+02")) << info;
  EXPECT_THROW(pdf.NewPage(10, 10), Exception);
  EXPECT_THROW(pdf.FinishPdf(), Exception);
  pdf.Text("late", {1, 1}, {}, ColorBlack);
}

TEST(Pdf, PicturesAreStoredOnce) {
  TFontEngine fonts;
  const auto solid = Chequered(8, 8, 0xFFFF0000, 0xFF00FF00), grey = Chequered(8, 8, ColorBlack, 0x80FFFFFF);
  TSurface pdf = TSurface::MakePdf(fonts, 100, 50);
  for (int page = 0; page < 3; ++page) {
    if (page > 0) pdf.NewPage(100, 50);
    pdf.Image(solid, 5, 5, 20, 20);
    pdf.Image(solid, 35, 5, 20, 20, 0.25);
    pdf.Image(grey, 65, 5, 20, 20);
    // One that goes at once: another may come in its place.
    pdf.Image(Chequered(4, 4, 0xFF000000U + static_cast<TAlphaColor>(page), ColorWhite), 5, 30, 9, 9);
  }
  const std::string bytes = pdf.FinishPdf();
  ExpectValid(bytes);
  EXPECT_EQ(Count(bytes, "/Subtype/Image/Width 8/"), 3) << "two pictures and a mask";
  EXPECT_EQ(Count(bytes, "/Subtype/Image/Width 4/"), 3);
  EXPECT_EQ(Count(Ask("pdfimages -list %", bytes), "smask"), 3);
}

TEST(Pdf, JpegsStayWhatTheyAre) {
  // Start, a frame of 2 x 3 with three components, end: the writer looks no further.
  const std::string head("\xFF\xD8\xFF\xE0\x00\x04xx\xFF\xC0\x00\x11\x08\x00\x03\x00\x02\x03", 18);
  TFontEngine fonts;
  for (const bool fits : {true, false}) {
    auto picture = Chequered(2, fits ? 3 : 4, ColorBlack, ColorWhite);
    picture->jpeg = head + std::string(40, 'j');
    TSurface pdf = TSurface::MakePdf(fonts, 50, 50);
    pdf.Image(picture, 5, 5, 20, 30);
    const std::string bytes = pdf.FinishPdf();
    EXPECT_EQ(Has(bytes, picture->jpeg), fits);
    EXPECT_EQ(Has(bytes, "/ColorSpace/DeviceRGB/Filter/DCTDecode"), fits);
  }
  // Cut anywhere, the pixels are taken.
  for (std::size_t size = 1; size < head.size(); ++size) {
    auto picture = Chequered(2, 3, ColorBlack, ColorWhite);
    picture->jpeg = head.substr(0, size);
    TSurface pdf = TSurface::MakePdf(fonts, 50, 50);
    pdf.Image(picture, 5, 5, 20, 30);
    EXPECT_FALSE(Has(pdf.FinishPdf(), "DCTDecode")) << size;
  }
}

TEST(Pdf, HostileNumbersStayNumbers) {
  constexpr double Inf = std::numeric_limits<double>::infinity(),
                   NaN = std::numeric_limits<double>::quiet_NaN();
  TFontEngine fonts;
  for (const double far : {1e7, 1e18, 1e300, Inf, NaN, -1e18, 1e-300}) {
    TSurface pdf = TSurface::MakePdf(fonts, 60, 40, {.title = "x", .created = "no date"});
    const TPen pen{0x80000000, 0.5, ii0505, true};
    for (int round = 0; round < 2; ++round) {
      pdf.Line(-far, 20, far, 20, pen);
      pdf.Line(1, 20, 2, 20, {ColorBlack, far});
      pdf.Circle(far, far, far, pen, {ColorBlack, true, gkRadial, ColorWhite});
      pdf.Rect(far, 1, far, 2, far, pen, {ColorBlack, true, gkHorz, 0x20FFFFFF});
      pdf.Text("far", {far, far, taEnd, tvTop, far, far}, TFontSpec{.heightMM = far}, ColorBlack);
      pdf.Text("wide", {1, 1, taEnd, tvTop, far, far}, TFontSpec{.heightMM = 1}, ColorBlack);
      pdf.FillBars(std::array<TBar, 3>{{{far, 0, far, 1}, {1, 1, far, far}, {1, 2, 3, 4}}}, ColorBlack);
      pdf.Image(Chequered(2, 2, ColorBlack, ColorWhite), far, 1, 2, far, far);
      pdf.ClipRect(-far, -far, far, far);
      // The second round is drawn under the strangest transforms that are taken.
      pdf.Scale(far, 0);
      pdf.Scale(1e-5, 1e4);
      pdf.Translate(far, far);
      pdf.Rotate(far);
    }
    const std::string bytes = pdf.FinishPdf();
    ExpectSound(bytes);
    EXPECT_TRUE(Has(Ask("pdfinfo %", bytes), "Pages:           1\n")) << far;
    EXPECT_EQ(Ask("pdftotext % /dev/null", bytes), "status 0") << far;
  }
}

#if defined(KALDRIX_CFF_FONT) && defined(KALDRIX_VARIABLE_FONT)
TEST(Pdf, FontsOfOtherKindsShowAndTellTheSame) {
  struct {
    const char *family, *text, *embedded;
    bool bold;
  } const cases[] = {{"Loma", "\xE0\xB8\x99\xE0\xB9\x89\xE0\xB8\xB3 office", "CID Type 0C", false},
                     {"Inter", "A variable font", "CID TrueType", false},
                     // Another design than the font's first: drawn, with the text over it.
                     {"Inter", "A variable font", "CID TrueType", true}};
  TFontEngine fonts;
  for (const auto& c : cases) {
    TSurface raster = TSurface::MakeRaster(fonts, 80, 20, 200), pdf = TSurface::MakePdf(fonts, 80, 20);
    const TFontSpec font{.name = c.family, .bold = c.bold, .heightMM = 8};
    for (TSurface* s : {&raster, &pdf}) s->Text(c.text, {5, 5}, font, ColorBlack);
    const std::string bytes = pdf.FinishPdf(), listed = Ask("pdffonts %", bytes);
    ExpectValid(bytes);
    EXPECT_TRUE(Has(listed, c.embedded) && Has(listed, std::string("+") + c.family)) << listed;
    EXPECT_EQ(TextOf(bytes), c.text);
    const TRendered a = FromPng(PngBytes(raster.Raster()), 200), b = FromPdf(bytes, 200);
    EXPECT_FALSE(b.Ink(0, 0, 80, 20).Empty());
    EXPECT_LT(Strangers(a, b) + Strangers(b, a), 20) << c.family;
  }
}
#endif

}  // namespace
}  // namespace Zor
