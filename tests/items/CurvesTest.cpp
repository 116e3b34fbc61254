// Polygons and Bezier curves.
#include <gtest/gtest.h>

#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

/// A U, open to the top.
const TZORPtoA Cup{{0, 0},     {10000, 0}, {10000, 20000}, {20000, 20000},
                   {20000, 0}, {30000, 0}, {30000, 30000}, {0, 30000}};
const TZORPtoA Wave{{0, 10000}, {5000, 30000}, {15000, -10000}, {20000, 10000}};

std::string Svg(const TKDXBaseItem& aItem) {
  TSvgList svg, defs;
  aItem.WriteSVG(svg, defs, svCurrentUnit, 1, false);
  std::string text;
  for (const std::string& entry : svg) (text += entry) += '\n';
  return text;
}

TEST(Polygon, ItsNameHasNoNumberWithoutALayer) {
  TBareLabel doc;
  EXPECT_EQ(TBareItem<TKDXBasePolygon>(doc, false).fID, "Polygon");
  EXPECT_NE(doc.NewPolygon(Cup, 7)->fID, "Polygon");
  EXPECT_EQ(TBareItem<TKDXBasePolygon>(doc, doc.GetLayer(1), 4, false).NumPoints(), 4);
}

TEST(Polygon, TheInsideCountsByTheEvenOddRule) {
  TBareLabel doc;
  auto* cup = doc.NewPolygon(Cup, 7);
  EXPECT_TRUE(cup->Pick(5000, 15000, 100, true));
  EXPECT_TRUE(cup->Pick(15000, 25000, 100, true));
  EXPECT_FALSE(cup->Pick(15000, 15000, 100, true)) << "between the arms";
  EXPECT_FALSE(cup->Pick(5000, 15000, 100, false));
  cup->SetFilled(false);
  EXPECT_FALSE(cup->Pick(5000, 15000, 100, true));
  EXPECT_TRUE(cup->Pick(50, 15000, 100, false)) << "the closing segment";
  EXPECT_EQ(cup->PickLines(50, 15000, 100), 8);
}

TEST(Polygon, APointOnTheClosingSegmentIsAppended) {
  TBareLabel doc;
  auto* cup = doc.NewPolygon(Cup, 7);
  ASSERT_TRUE(cup->InsertPoint(0, 15000, 100));
  ASSERT_EQ(cup->NumPoints(), 9);
  EXPECT_EQ(cup->GetPoint(9), (TZORPto{0, 15000}));
}

TEST(Polygon, OnlyAMoveOfTheWholeMovesIt) {
  TBareLabel doc;
  auto* cup = doc.NewPolygon(Cup, 7);
  cup->Move(3, 0, moRight);
  EXPECT_EQ(cup->fPoints, Cup);
  cup->Move(3, 1, moAll);
  EXPECT_EQ(cup->fBoundsRect, (TZORRect{3000, 1000, 33000, 31000}));
  EXPECT_EQ(cup->CenterPoint(), (TZORBase{18000, 13500}));
}

TEST(Polygon, Svg) {
  TBareLabel doc;
  auto* shape = doc.NewPolygon({{1000, 1000}, {5000, 1000}, {3000, 4500}}, 2);
  shape->SetBackColor(0xFF00FF00);
  EXPECT_EQ(
      Svg(*shape),
      "<polygon points=\"1,1 5,1 3,4.50\"  fill=\"#00FF00\"  stroke=\"#000000\" stroke-width=\"0.1\"/>\n");
  shape->SetFilled(false);
  shape->SetLineType(ii11);
  EXPECT_EQ(Svg(*shape),
            "<polygon points=\"1,1 5,1 3,4.50\" fill=\"none\"  stroke=\"#000000\" stroke-width=\"0.1\" "
            "stroke-dasharray=\"1\" />\n");
}

TEST(Bezier, IsHitOnItsCurveAndWhenFilledOnItsClosingLine) {
  TBareLabel doc;
  auto* wave = doc.NewBezier(Wave, 3);
  EXPECT_TRUE(wave->Pick(4531, 15625, 200, true)) << "a quarter of the way";
  EXPECT_TRUE(wave->Pick(4000, 10000, 200, true)) << "the closing line";
  EXPECT_FALSE(wave->Pick(5000, 12000, 200, true)) << "the inside";
  wave->SetFilled(false);
  EXPECT_FALSE(wave->Pick(4000, 10000, 200, true));
  EXPECT_TRUE(wave->Pick(4531, 15625, 200, true));
}

TEST(Bezier, AnIncompleteCurveIsNone) {
  TBareLabel doc;
  auto* wave = doc.NewBezier(Wave, 2);
  wave->SetFilled(false);
  EXPECT_FALSE(wave->Pick(4531, 15625, 200, true));
  EXPECT_TRUE(Svg(*doc.NewBezier(Wave, 0)).empty());
}

TEST(Bezier, SecondCurveIsHitToo) {
  TBareLabel doc;
  TZORPtoA points = Wave;
  points.insert(points.end(), {{25000, 10000}, {30000, 10000}, {40000, 10000}});
  const auto* chain = doc.NewBezier(points, 6);
  EXPECT_TRUE(chain->Pick(39000, 10050, 300, false));
}

TEST(Bezier, InsertsOnePoint) {
  TBareLabel doc;
  auto* wave = doc.NewBezier(Wave, 3);
  ASSERT_TRUE(wave->InsertPoint(10000, 10000, 100));
  EXPECT_EQ(wave->NumPoints(), 5);
  EXPECT_EQ(wave->GetPoint(3), (TZORPto{10000, 10000}));
}

TEST(Bezier, JsonKeysKeepTheirOrderAndTheSizeItsLimit) {
  TBareLabel doc;
  auto* wave = doc.NewBezier(Wave, 3);
  auto json = wave->WriteJson();
  const std::string text = json->ToJSON(true);
  std::size_t at = 0;
  for (const char* key : {"\"Filled\"", "\"FillColor\"", "\"LineType\"", "\"FromType\"", "\"SizeFrom\"",
                          "\"FromColor\"", "\"ToType\"", "\"SizeTo\"", "\"ToColor\""}) {
    at = text.find(key, at);
    ASSERT_NE(at, std::string::npos) << key;
  }
  json->SetFloat("SizeFrom", 0.2);
  wave->ReadJson(FormatVersion, *json);
  EXPECT_EQ(wave->GetSizeFrom(), 0.5F);
}

TEST(Bezier, Svg) {
  TBareLabel doc;
  auto* wave = doc.NewBezier(Wave, 3);
  EXPECT_EQ(Svg(*wave),
            "<path d=\"M 0,10 C 5,30 15,-10 20,10 Z\"  fill=\"#FFFFFF\"  stroke=\"#000000\" "
            "stroke-width=\"0.1\"/>\n");
  wave->SetFilled(false);
  wave->SetToType(ttSquare);
  wave->SetSizeTo(2);
  EXPECT_EQ(Svg(*wave),
            "<path d=\"M 0,10 C 5,30 15,-10 20,10\"  stroke=\"#000000\" fill=\"none\" stroke-width=\"0.1\" "
            "stroke-linecap=\"round\" />\n"
            "<rect x=\"19\" y=\"9\" width=\"2\" height=\"2\"  fill=\"none\"  stroke=\"#000000\" "
            "stroke-width=\"0.1\"/>\n");
}

}  // namespace
}  // namespace Zor
