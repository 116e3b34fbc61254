#include <gtest/gtest.h>

#include "kaldrix/host/Export.hpp"
#include "tests/host/Drawings.hpp"
#include "tests/host/Rendered.hpp"

namespace Zor {
namespace {

using namespace Testing;

constexpr double Dpi = 200;

TRendered Png(TKDXLabel& doc) {
  TExportOptions options;
  options.dpi = Dpi;
  return FromPng(ExportPng(doc, options), Dpi);
}

TEST(LinkPaint, PngAndPdfAreAlike) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 40);
  TGrid grid(doc, 4);
  AddLinks(grid);
  TExportOptions options;
  options.dpi = Dpi;
  const TRendered png = Png(doc), pdf = FromPdf(ExportPdf(doc, options), Dpi);
  ASSERT_GT(pdf.picture.width, 0);
  EXPECT_LT(Strangers(png, pdf), 20);
  EXPECT_LT(Strangers(pdf, png), 20);
  for (int i = 0; i < grid.Count(); ++i) {
    EXPECT_FALSE(png.Ink(grid.Left(i), grid.Top(i), TGrid::Step, TGrid::Step).Empty()) << i;
  }
}

TEST(LinkPaint, FollowsANodeAndGoesWithIt) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 40);
  auto* from = doc.NewPoint(10000, 10000);
  auto* link = doc.NewLink(from->fInID, doc.NewPoint(50000, 30000)->fInID, 0, 0, ltLeftRightTopBottom);
  link->SetPenWidth(0.5F);
  link->SetToType(ttFillArrow);
  link->SetToColor(0xFF00FF00);
  const TRendered before = Png(doc);
  const TInkBox ink = before.Ink(0, 0, 80, 40);
  EXPECT_NEAR(ink.left, 10, 0.2);
  EXPECT_NEAR(ink.top, 9.75, 0.2);
  EXPECT_NEAR(ink.bottom, 30, 0.7);  // the pen at the tip of the arrow
  EXPECT_EQ(before.AtMM(50, 28.8), 0xFF00FF00);
  from->BaseMove(0, -5000, 0, 0, moAll, true);
  EXPECT_NEAR(Png(doc).Ink(0, 0, 80, 40).top, 4.75, 0.2);
  doc.DeleteItem(from, true);
  EXPECT_TRUE(Png(doc).Ink(0, 0, 80, 40).Empty());
}

}  // namespace
}  // namespace Zor
