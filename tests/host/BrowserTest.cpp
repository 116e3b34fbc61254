#include <gtest/gtest.h>

#include "host/Export.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "tests/host/Drawings.hpp"
#include "tests/host/Rendered.hpp"

namespace Zor {
namespace {

using namespace Testing;

/// Pixels of a browser to one of its own, 96 to the inch.
constexpr int Zoom = 3;
constexpr double Dpi = 96.0 * Zoom;

TRendered FromBrowser(const std::string& svg, double widthMM, double heightMM) {
  const TTempFolder folder;
  std::ofstream(folder.File("a.svg"), std::ios::binary) << svg;
  const auto pixels = [](double mm) { return std::to_string(std::lround(mm * 96 / 25.4)); };
  const std::string command =
      KALDRIX_BROWSER
      " --headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking"
      " --disable-component-update --disable-sync --hide-scrollbars --user-data-dir=" +
      folder.File("profile") + " --force-device-scale-factor=" + std::to_string(Zoom) +
      " --screenshot=" + folder.File("a.png") + " --window-size=" + pixels(widthMM) + "," + pixels(heightMM) +
      " " + folder.File("a.svg") + " 2>/dev/null";
  if (std::system(command.c_str()) != 0) return {};
  return {TImageLoader::LoadFile(folder.File("a.png")), Dpi};
}

/// A sheet of one label with a background, items of all kinds and texts in all positions looks alike as SVG
/// in a browser, as PNG and as PDF.
TEST(Browser, ShowsTheSamePicture) {
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
  TExportOptions options;
  options.dpi = Dpi;
  options.page = 1;
  const TRendered browser = FromBrowser(ExportSvg(doc, options), 170, 180);
  ASSERT_GT(browser.picture.width, 0);
  const TRendered png = FromPng(ExportPng(doc, options), Dpi), pdf = FromPdf(ExportPdf(doc, options), Dpi);
  for (int i = 0; i < texts; ++i) {
    const double left = grid.Left(i) + 5, top = grid.Top(i) + 10;
    const TInkBox a = browser.Ink(left, top, 20, 20);
    ASSERT_FALSE(a.Empty()) << "text " << i;
    for (const TRendered* other : {&png, &pdf}) {
      const TInkBox b = other->Ink(left, top, 20, 20);
      EXPECT_NEAR(a.left, b.left, 0.3) << "text " << i;
      EXPECT_NEAR(a.top, b.top, 0.3) << "text " << i;
      EXPECT_NEAR(a.right, b.right, 0.3) << "text " << i;
      EXPECT_NEAR(a.bottom, b.bottom, 0.3) << "text " << i;
    }
  }
  EXPECT_LT(Strangers(browser, png), 20);
  EXPECT_LT(Strangers(png, browser), 20);
}

TEST(Browser, ShowsTheSameFlowNodes) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 80);
  TGrid grid(doc, 4);
  AddFlows(grid);
  TExportOptions options;
  options.dpi = Dpi;
  const TRendered browser = FromBrowser(ExportSvg(doc, options), 80, 80);
  ASSERT_GT(browser.picture.width, 0);
  const TRendered png = FromPng(ExportPng(doc, options), Dpi);
  EXPECT_LT(Strangers(browser, png), 20);
  EXPECT_LT(Strangers(png, browser), 20);
}

TEST(Browser, ShowsTheSameLinks) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 40);
  TGrid grid(doc, 4);
  AddLinks(grid);
  TExportOptions options;
  options.dpi = Dpi;
  const TRendered browser = FromBrowser(ExportSvg(doc, options), 80, 40);
  ASSERT_GT(browser.picture.width, 0);
  const TRendered png = FromPng(ExportPng(doc, options), Dpi);
  EXPECT_LT(Strangers(browser, png), 20);
  EXPECT_LT(Strangers(png, browser), 20);
}

/// Barcodes turned in all directions, with the texts of those that group their digits.
TEST(Browser, ShowsTheSameBarcodes) {
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
  TExportOptions options;
  options.dpi = Dpi;
  const TRendered browser = FromBrowser(ExportSvg(doc, options), 160, 200);
  ASSERT_GT(browser.picture.width, 0);
  const TRendered png = FromPng(ExportPng(doc, options), Dpi);
  EXPECT_LT(Strangers(browser, png), 20);
  EXPECT_LT(Strangers(png, browser), 20);
}

}  // namespace
}  // namespace Zor
