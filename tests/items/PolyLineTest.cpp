#include <gtest/gtest.h>

#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

const TZORPtoA Steps{{0, 0}, {10000, 0}, {10000, 10000}, {20000, 10000}};

std::string Svg(const TKDXBaseItem& aItem) {
  TSvgList svg, defs;
  aItem.WriteSVG(svg, defs, svCurrentUnit, 1, false);
  std::string text;
  for (const std::string& entry : svg) (text += entry) += '\n';
  return text;
}

TEST(PolyLine, IsHitOnItsSegmentsInsideItsBoundsOnly) {
  TBareLabel doc;
  const auto* flat = doc.NewPolyLine({{1000, 5000}, {9000, 5000}}, 1);
  EXPECT_TRUE(flat->Pick(4000, 4900, 100, false));
  EXPECT_FALSE(flat->Pick(4000, 5100, 100, false));
  const auto* slope = doc.NewPolyLine({{1000, 1000}, {9000, 9000}}, 1);
  EXPECT_TRUE(slope->Pick(5000, 5100, 100, false));
  EXPECT_FALSE(slope->Pick(999, 999, 100, false)) << "beside the bounds";
}

TEST(PolyLine, PickLinesGivesTheFirstSegmentByItsInfiniteLine) {
  TBareLabel doc;
  const auto* steps = doc.NewPolyLine(Steps, 3);
  struct {
    Int64 x, y;
    int segment;
  } const cases[] = {{5000, 50, 1},
                     {10040, 5000, 2},
                     {15000, 9950, 3},
                     {19000, 30, 1},  // on the line through segment 1, beyond its end
                     {15000, 5000, -1}};
  for (const auto& row : cases)
    EXPECT_EQ(steps->PickLines(row.x, row.y, 60), row.segment) << row.x << ' ' << row.y;
  // The distance is rounded before it is compared: 0.4 of a base point counts as none.
  const auto* slope = doc.NewPolyLine({{0, 0}, {1000, 500}}, 1);
  EXPECT_EQ(slope->PickLines(501, 250, 0), 1);
  EXPECT_EQ(slope->PickLines(503, 250, 0), -1);
}

TEST(PolyLine, OneAndEqualPoints) {
  TBareLabel doc;
  const auto* single = doc.NewPolyLine({{5000, 5000}}, 0);
  EXPECT_EQ(single->PickLines(5000, 5000, 100), -1);
  EXPECT_FALSE(single->SearchRect({0, 0, 9000, 9000}, true));
  const auto* dot = doc.NewPolyLine({{5000, 5000}, {5000, 5000}}, 1);
  EXPECT_TRUE(dot->Pick(5050, 5000, 100, false));
  EXPECT_FALSE(dot->Pick(5090, 5090, 100, false));
}

TEST(PolyLine, InsertPointGoesBehindTheSegmentsFirstPoint) {
  TBareLabel doc;
  auto* steps = doc.NewPolyLine(Steps, 3);
  EXPECT_FALSE(steps->InsertPoint(15000, 5000, 60));
  ASSERT_TRUE(steps->InsertPoint(10050, 5000, 60));
  EXPECT_EQ(steps->fPoints, (TZORPtoA{{0, 0}, {10000, 0}, {10050, 5000}, {10000, 10000}, {20000, 10000}}));
}

TEST(PolyLine, GrowsPointByPointWithItsBounds) {
  TBareLabel doc;
  doc.SetUnits(unCM);
  auto* line = new TBareItem<TKDXBasePolyLine>(doc, doc.GetLayer(1), false);
  for (const TZORPto& point : Steps) {
    line->AddPoint(static_cast<Single>(point.bX) / 10000, static_cast<Single>(point.bY) / 10000);
    const TZORRect grown = line->fBoundsRect;
    line->UpdateBounds();
    EXPECT_EQ(grown, line->fBoundsRect);
  }
  EXPECT_EQ(line->fPoints, Steps);
  EXPECT_EQ((TBareItem<TKDXBasePolyLine>(doc, 5, false).NumPoints()), 5);
}

TEST(PolyLine, SearchRectTestsTheSegments) {
  TBareLabel doc;
  const auto* steps = doc.NewPolyLine(Steps, 3);
  EXPECT_TRUE(steps->SearchRect({9000, 4000, 11000, 6000}, true));
  EXPECT_FALSE(steps->SearchRect({12000, 2000, 18000, 8000}, true));
  EXPECT_FALSE(steps->SearchRect({9000, 4000, 11000, 6000}, false));
}

TEST(PolyLine, TerminatorsWidenTheFit) {
  TBareLabel doc;
  auto* line = doc.NewPolyLine({{10000, 10000}, {20000, 10000}}, 1);
  line->SetToType(ttCircle);
  line->SetSizeTo(3);
  Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
  line->CheckFit(minX, maxX, minY, maxY);
  EXPECT_EQ(minX, 9950);  // half the pen
  EXPECT_EQ(maxX, 23000);
  EXPECT_EQ(minY, 7000);
  EXPECT_EQ(maxY, 13000);
}

TEST(PolyLine, TerminatorSizesAreHeldBySettersAndJsonButNotByTheRecord) {
  TBareLabel doc;
  auto* line = doc.NewPolyLine(Steps, 3);
  struct {
    Single mm;
    int base;
  } const cases[] = {{0.1F, 500}, {60, 50000}, {2.5F, 2500}, {-1, 500}, {1e30F, 50000}};
  for (const auto& row : cases) {
    line->SetSizeFrom(row.mm);
    EXPECT_EQ(line->BaseSizeFrom(), row.base) << row.mm;
  }
  line->SetBaseSizeTo(99999);
  EXPECT_EQ(line->BaseSizeTo(), 50000);

  line->fSizeFrom = 100;
  auto json = line->WriteJson();
  line->ReadJson(FormatVersion, *json);
  EXPECT_EQ(line->fSizeFrom, 500);

  line->fSizeFrom = 100;
  std::string bytes;
  TBinaryWriter writer(bytes);
  writer.WriteInt32(FormatVersion);
  line->Write(writer);
  TBareLabel other;
  other.CreateElementFromStream(bytes);
  EXPECT_EQ(dynamic_cast<TKDXBasePolyLine&>(*other.GetItem(1)).fSizeFrom, 100);
}

TEST(PolyLine, SvgHasThePointsAndThenTheTerminators) {
  TBareLabel doc;
  auto* line = doc.NewPolyLine({{1000, 2000}, {5000, 2000}, {5000, 8500}}, 2);
  line->SetLineType(ii21);
  EXPECT_EQ(Svg(*line),
            "<polyline points=\"1,2 5,2 5,8.50\"  stroke=\"#000000\" fill=\"none\" stroke-width=\"0.1\" "
            "stroke-dasharray=\"2 1\" />\n");
  line->SetLineType(iiSolid);
  line->SetFromType(ttCircle);
  line->SetToType(ttFillArrow);
  line->SetSizeTo(2);
  EXPECT_EQ(Svg(*line),
            "<polyline points=\"1,2 5,2 5,8.50\"  stroke=\"#000000\" fill=\"none\" stroke-width=\"0.1\"/>\n"
            "<circle cx=\"1\" cy=\"2\" r=\"1.25\" fill=\"none\"  stroke=\"#000000\" stroke-width=\"0.1\"/>\n"
            "<polygon points=\"5,8.50 4.23,6.65 5.77,6.65\"  fill=\"#FFFFFF\"  stroke=\"#000000\" "
            "stroke-width=\"0.1\"/>\n");
}

}  // namespace
}  // namespace Zor
