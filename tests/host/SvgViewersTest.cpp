// What strangers make of the SVG: the same picture as PNG and PDF show.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/host/Export.hpp"
#include "tests/host/Drawings.hpp"
#include "tests/host/Rendered.hpp"

namespace Zor {
namespace {

using namespace Testing;

/// Pixels of a browser to one of its own, 96 to the inch.
constexpr int Zoom = 3;
constexpr double Dpi = 96.0 * Zoom;

TRendered Shown(const TTempFolder& folder, const std::string& command) {
  if (std::system((command + " 2>/dev/null").c_str()) != 0) return {};
  return {TImageLoader::LoadFile(folder.File("a.png")), Dpi};
}

#ifdef KALDRIX_BROWSER
TRendered InBrowser(const TTempFolder& folder, double widthMM, double heightMM) {
  const auto pixels = [](double mm) { return std::to_string(std::lround(mm * 96 / 25.4)); };
  return Shown(
      folder,
      KALDRIX_BROWSER
          " --headless --no-sandbox --disable-gpu --disable-quic --no-first-run"
          " --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars"
          " --user-data-dir=" +
          folder.File("profile") + " --force-device-scale-factor=" + std::to_string(Zoom) +
          " --screenshot=" + folder.File("a.png") + " --window-size=" + pixels(widthMM) + "," +
          pixels(heightMM) + " " + folder.File("a.svg"));
}
#endif

#ifdef KALDRIX_RSVG
/// One that knows no `alignment-baseline`, as most readers of SVG do not.
TRendered InConverter(const TTempFolder& folder, double, double) {
  const std::string dpi = std::to_string(Dpi);
  return Shown(folder, KALDRIX_RSVG " -b white -d " + dpi + " -p " + dpi + " -o " + folder.File("a.png") +
                           " " + folder.File("a.svg"));
}
#endif

struct TViewer {
  const char* name;
  TRendered (*show)(const TTempFolder& folder, double widthMM, double heightMM);
};

void PrintTo(const TViewer& viewer, std::ostream* out) { *out << viewer.name; }

class Viewers : public testing::TestWithParam<TViewer> {
 protected:
  Viewers() { options.dpi = Dpi; }

  /// Draws `doc` in all forms; they have to be alike.
  void Show(TKDXLabel& doc, double widthMM, double heightMM) {
    const TTempFolder folder;
    std::ofstream(folder.File("a.svg"), std::ios::binary) << ExportSvg(doc, options);
    seen = GetParam().show(folder, widthMM, heightMM);
    ASSERT_GT(seen.picture.width, 0);
    png = FromPng(ExportPng(doc, options), Dpi);
    pdf = FromPdf(ExportPdf(doc, options), Dpi);
    EXPECT_LT(Strangers(seen, png), 20);
    EXPECT_LT(Strangers(png, seen), 20);
  }
  /// The ink of a place, which is that of one text, lies alike.
  void ExpectSameInk(double left, double top, const std::string& what) const {
    constexpr double Near = 0.3, Side = TGrid::Step;
    const TInkBox a = seen.Ink(left, top, Side, Side);
    ASSERT_FALSE(a.Empty()) << what;
    for (const TRendered* other : {&png, &pdf}) {
      const TInkBox b = other->Ink(left, top, Side, Side);
      EXPECT_NEAR(a.left, b.left, Near) << what;
      EXPECT_NEAR(a.top, b.top, Near) << what;
      EXPECT_NEAR(a.right, b.right, Near) << what;
      EXPECT_NEAR(a.bottom, b.bottom, Near) << what;
    }
  }

  TExportOptions options;
  TRendered seen, png, pdf;
};

/// A sheet of one label with a background, items of all kinds and texts in all positions.
TEST_P(Viewers, ShowASheet) {
  TKDXLabel doc;
  TKDXMeasure& m = *doc.fMeasure;
  TGrid grid(doc, 8);
  AddTexts(grid);
  AddDressedTexts(grid, false);  // Browsers break underlines about descenders.
  const int texts = grid.Count();
  AddStrokes(grid);
  AddShapes(grid);
  AddRounded(grid);
  SetLabelMM(doc, 160, 160);
  m.fNuHor = m.fNuVer = 1;
  m.fPaperWidth = 170000;
  m.fPaperHeight = 180000;
  doc.fBackSurf->fColor = 0xFFFFFFE0;
  doc.fBackSurf->fToColor = 0xFFC0E0FF;
  doc.fBackSurf->SetStyle(biGradVer);
  doc.GetLayer(1).SetOptions({lopVisible, lopExport, lopExportBack});
  options.page = 1;
  Show(doc, 170, 180);
  for (int i = 0; i < texts; ++i) {
    ExpectSameInk(grid.Left(i) + 5, grid.Top(i) + 10, "text " + std::to_string(i));
  }
}

/// What counts in other units than the paper, and what is set in millimetres of paper, at once.
TEST_P(Viewers, ShowADrawingInInchesAt1To50) {
  TKDXLabel doc;
  doc.SetEditorMode(emDrawing);
  doc.SetUnits(unINCH);
  doc.fMeasure->SetDrawScale(50);
  TGrid grid(doc, 8, 50);
  AddTexts(grid);
  AddDressedTexts(grid, false);
  const int texts = grid.Count();
  AddRounded(grid);
  AddFlows(grid);
  AddLinks(grid);
  SetLabelMM(doc, 160, 200);
  Show(doc, 160, 200);
  for (int i = 0; i < texts; ++i) {
    ExpectSameInk(grid.Left(i), grid.Top(i), "text " + std::to_string(i));
  }
}

TEST_P(Viewers, CutTextsAtTheirDisplayWidth) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 60);
  TGrid grid(doc, 4);
  AddCutTexts(grid);
  Show(doc, 80, 60);
}

TEST_P(Viewers, ShowFlowNodes) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 80);
  TGrid grid(doc, 4);
  AddFlows(grid);
  Show(doc, 80, 80);
}

TEST_P(Viewers, ShowLinks) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 40);
  TGrid grid(doc, 4);
  AddLinks(grid);
  Show(doc, 80, 40);
}

/// Barcodes turned in all directions, with the texts of those that group their digits.
TEST_P(Viewers, ShowBarcodes) {
  TKDXLabel doc;
  SetLabelMM(doc, 160, 200);
  Int64 x = 40000;
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    Int64 y = 30000;
    const auto add = [&](TBarItem* aItem) {
      aItem->SetAngle(angle);
      aItem->fHorzAlign = haCenter;
      aItem->UpdatePoints();
      y += 45000;
    };
    add(doc.NewBarcode(x, y, "036000291452", btUPCA));
    add(doc.NewBarcode(x, y, "01234565", btUPCE0));
    add(doc.NewBarcode(x, y, "12345", btPOSTNET));
    x += angle == ag180 ? 30000 : 25000;
  }
  doc.CalcPending();
  Show(doc, 160, 200);
}

#ifdef KALDRIX_BROWSER
class Browsers : public Viewers {};

/// Browsers alone show the library's own text elements in their places.
TEST_P(Browsers, ShowExactTexts) {
  TKDXLabel doc;
  SetLabelMM(doc, 160, 120);
  TGrid grid(doc, 8);
  AddTexts(grid);
  AddDressedTexts(grid, false);
  doc.NewBarcode(10000, 110000, "036000291452", btUPCA);
  options.svgText = stExact;
  Show(doc, 160, 120);
}

INSTANTIATE_TEST_SUITE_P(All, Browsers, testing::Values(TViewer{"Browser", &InBrowser}));
#endif

const TViewer All[] = {
#ifdef KALDRIX_BROWSER
    {"Browser", &InBrowser},
#endif
#ifdef KALDRIX_RSVG
    {"Converter", &InConverter},
#endif
};

INSTANTIATE_TEST_SUITE_P(All, Viewers, testing::ValuesIn(All),
                         [](const auto& aInfo) { return std::string(aInfo.param.name); });

}  // namespace
}  // namespace Zor
