// The layout of texts in flow nodes, and their pictures.
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

std::string Shown(const TKDXBaseFlow& aNode) {
  std::string all;
  for (const std::string& line : aNode.LineTexts()) all += line + "|";
  return all;
}

TEST(FlowLayout, LinesBreakAtLineEndsAndWhereTheBoxEnds) {
  TKDXLabel doc;
  auto* node = doc.NewFlow(10000, 10000, 30000, 20000, ftProcess);
  node->SetText(
      "Gr\xC3\xB6\xC3\x9F"
      "e\r\n\nlast");
  doc.CalcPending();
  EXPECT_EQ(Shown(*node),
            "Gr\xC3\xB6\xC3\x9F"
            "e||last|");
  EXPECT_EQ(node->aTxtPoints[2].txF, 9);
  node->SetText("one two three four five six");
  doc.CalcPending();
  EXPECT_GT(node->aTxtPoints.size(), 1U);
  const std::size_t wide = node->aTxtPoints.size();
  node->SetPaddingX(8);
  doc.CalcPending();
  EXPECT_GT(node->aTxtPoints.size(), wide);
  node->SetPaddingX(0);
  node->SetWidth(200);
  doc.CalcPending();
  EXPECT_EQ(Shown(*node), "one two three four five six|");
  node->SetText("");
  doc.CalcPending();
  EXPECT_TRUE(node->aTxtPoints.empty());
}

TEST(FlowLayout, AlignmentsPlaceTheLinesInsideThePadding) {
  const std::pair<TZORHorzAlign, TZORVertAlign> cases[] = {
      {haLeft, vaTop}, {haCenter, vaCenter}, {haRight, vaBottom}, {haJustify, vaTop}};
  for (const auto& [horz, vert] : cases) {
    TKDXLabel doc;
    SetLabelMM(doc, 60, 50);
    auto* node = doc.NewFlow(10000, 10000, 40000, 30000, ftProcess);
    node->fFill = false;
    node->fPenWidth = 0;
    node->SetPaddingX(3);
    node->SetPaddingY(2);
    node->SetHorzAlign(horz);
    node->SetVertAlign(vert);
    node->SetText("HH\nHH");
    const TInkBox ink = Png(doc).Ink(0, 0, 60, 50);
    ASSERT_FALSE(ink.Empty());
    SCOPED_TRACE(horz);
    // The blank about an H: its bearing, and what the font has above and below capitals.
    const double bearing = 0.5, above = node->fAscent / 1000.0 - 3.6, below = node->fDescent / 1000.0;
    const double left = ink.left - 13, right = 47 - ink.right, top = ink.top - 12, bottom = 38 - ink.bottom;
    if (horz == haCenter) {
      EXPECT_NEAR(left, right, 0.3);
      EXPECT_NEAR(top - above, bottom - below, 0.4);
    } else {
      EXPECT_NEAR(horz == haRight ? right : left, bearing, 0.3);
      EXPECT_NEAR(vert == vaTop ? top - above : bottom - below, 0, 0.4);
    }
  }
}

TEST(FlowLayout, InterlineSpacesTheLines) {
  TKDXLabel doc;
  auto* node = doc.NewFlow(10000, 10000, 40000, 30000, ftProcess);
  node->SetText("a\nb");
  for (const Single interline : {1.0F, 2.5F}) {
    node->SetScaleX(interline);
    doc.CalcPending();
    const Int64 step = node->aTxtPoints[1].bY - node->aTxtPoints[0].bY;
    EXPECT_NEAR(static_cast<double>(step), (node->fAscent + node->fDescent) * double{interline}, 3);
  }
}

/// The picture on paper is the same at every scale.
TEST(FlowLayout, TheDrawingScaleMovesNothingOnPaper) {
  TKDXLabel plain, scaled;
  scaled.SetEditorMode(emDrawing);
  scaled.fMeasure->SetDrawScale(20);
  std::vector<TInkBox> ink;
  for (auto& [doc, scale] : {std::pair<TKDXLabel*, Int64>(&plain, 1), {&scaled, 20}}) {
    SetLabelMM(*doc, 60, 50);
    auto* node = doc->NewFlow(10000 * scale, 10000 * scale, 40000 * scale, 30000 * scale, ftDecision);
    node->fFill = false;
    node->fPenWidth = 0;
    node->SetPaddingY(3);
    node->SetText("HHH\nH");
    doc->CalcPending();
    ink.push_back(Png(*doc).Ink(0, 0, 60, 50));
  }
  EXPECT_EQ(ink[0].left, ink[1].left);
  EXPECT_EQ(ink[0].right, ink[1].right);
  EXPECT_EQ(ink[0].top, ink[1].top);
  EXPECT_EQ(ink[0].bottom, ink[1].bottom);
}

TEST(FlowPaint, PngAndPdfShowTheSame) {
  TKDXLabel doc;
  SetLabelMM(doc, 80, 80);
  TGrid grid(doc, 4);
  AddFlows(grid);
  TExportOptions options;
  options.dpi = Dpi;
  const TRendered png = Png(doc), pdf = FromPdf(ExportPdf(doc, options), Dpi);
  for (int i = 0; i < grid.Count(); ++i) {
    const TInkBox a = png.Ink(grid.Left(i), grid.Top(i), 20, 20);
    EXPECT_NEAR(a.left, grid.Left(i) + 2, 0.5) << i;
    EXPECT_NEAR(a.right, grid.Left(i) + 18, 0.8) << i;
    EXPECT_NEAR(a.top, grid.Top(i) + 4, 0.8) << i;
  }
  EXPECT_LT(Strangers(png, pdf), 20);
  EXPECT_LT(Strangers(pdf, png), 20);
}

TEST(FlowPaint, ShadowGradientAndDashes) {
  TKDXLabel doc;
  SetLabelMM(doc, 60, 50);
  auto* node = doc.NewFlow(10000, 10000, 30000, 20000, ftProcess);
  Styled(Filled(node, 0xFF000000), 0xFF00FF00, 1, ii44);
  node->SetGradient(grHorz);
  node->SetGradColor(0xFFFFFFFF);
  node->SetShadowDX(3);
  node->SetShadowDY(5);
  node->SetShadowColor(0xFFFF0000);
  const TRendered png = Png(doc);
  EXPECT_EQ(png.AtMM(42, 30), 0xFFFF0000);
  EXPECT_EQ(png.AtMM(25, 34), 0xFFFF0000);
  EXPECT_EQ(png.AtMM(11, 34), ColorWhite);
  EXPECT_LT(TRendered::Grey(png.AtMM(11, 20)), 40);
  EXPECT_NEAR(TRendered::Grey(png.AtMM(25, 20)), 128, 6);
  EXPECT_GT(TRendered::Grey(png.AtMM(39, 20)), 215);
  EXPECT_EQ(png.AtMM(12, 9.7), 0xFF00FF00);  // the first dash
  EXPECT_EQ(png.AtMM(16, 9.7), ColorWhite);  // and the gap behind it
}

}  // namespace
}  // namespace Zor
