// Circles, sectors and ellipses.
#include <gtest/gtest.h>

#include <cmath>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

std::string Svg(const TKDXBaseItem& aItem) {
  TSvgList svg, defs;
  aItem.WriteSVG(svg, defs, svCurrentUnit, 1, false);
  return svg.empty() ? "" : svg.front();
}

TEST(Circle, TheCentreIsHeldOnTheLabel) {
  TBareLabel doc;  // 60 mm by 35 mm
  auto* circle = doc.NewCircle(20000, 15000, 5000);
  struct {
    Single to;
    Int64 x, y;
  } const cases[] = {{25, 25000, 25000}, {2, 5000, 5000}, {90, 55000, 30000}};
  for (const auto& row : cases) {
    circle->SetCenterX(row.to);
    circle->SetCenterY(row.to);
    EXPECT_EQ(circle->CenterPoint(), (TZORBase{row.x, row.y})) << row.to;
    EXPECT_EQ(circle->fBaseRadio, 5000);
  }
}

TEST(Circle, TheLimitsOfACircleHaveNoDrawingScaleThoseOfAnEllipseHave) {
  TBareLabel doc;
  doc.SetEditorMode(emDrawing);
  doc.fMeasure->SetDrawScale(10);
  const Int64 width = doc.fMeasure->GetSize(mtLabelWidth, false);
  auto* circle = doc.NewCircle(20000, 15000, 5000);
  auto* ellipse = doc.NewEllipse(20000, 15000, 5000, 4000);
  circle->SetCenterX(1e6F);
  ellipse->SetCenterX(1e6F);
  EXPECT_EQ(circle->fBaseX, width - 5000);
  EXPECT_EQ(ellipse->fBaseX, width * 10 - 5000);
}

TEST(Circle, AnUndoBringsBackACentreBesideTheLabel) {
  TBareLabel doc;
  auto* circle = doc.NewCircle(-20000, 15000, 5000);
  circle->SetCenterX(20);
  doc.Undo();
  EXPECT_EQ(circle->fBaseX, -20000);
}

TEST(Circle, TheRadiusKeepsTheCentre) {
  TBareLabel doc;
  auto* circle = doc.NewCircle(20000, 15000, 5000);
  circle->SetRadio(3.5F);
  EXPECT_EQ(circle->fPoints, (TZORPtoA{{16500, 11500}, {23500, 18500}}));
  EXPECT_EQ(circle->GetRadio(), 3.5F);
  circle->SetRadio(-1);
  EXPECT_EQ(circle->fBaseRadio, 0);
  auto* ellipse = doc.NewEllipse(20000, 15000, 5000, 4000);
  ellipse->SetRadioX(2);
  ellipse->SetRadioY(3);
  EXPECT_EQ(ellipse->fPoints, (TZORPtoA{{18000, 12000}, {22000, 18000}}));
}

TEST(Circle, TheFillDecidesWhetherTheInsideIsHit) {
  TBareLabel doc;
  auto* circle = doc.NewCircle(20000, 15000, 5000);
  auto* ellipse = doc.NewEllipse(20000, 15000, 5000, 4000);
  const auto inside = [&] {
    return std::pair(circle->Pick(20000, 15000, 100, false), ellipse->Pick(20000, 15000, 100, false));
  };
  EXPECT_EQ(inside(), std::pair(true, true));
  circle->SetBackColor(0x00FFFFFF);  // Alpha 0 is as no fill.
  ellipse->SetBackColor(0x00FFFFFF);
  EXPECT_EQ(inside(), std::pair(false, false));
  EXPECT_TRUE(circle->Pick(20000, 10050, 100, false));
  EXPECT_TRUE(ellipse->Pick(20000, 11010, 100, false));
  circle->SetBackColor(0x01FFFFFF);
  circle->SetFilled(false);
  EXPECT_FALSE(inside().first);
}

TEST(Circle, AFilledCircleEndsAtItsOutline) {
  TBareLabel doc;
  const auto* circle = doc.NewCircle(20000, 15000, 5000);
  EXPECT_TRUE(circle->Pick(23535, 18535, 100, false));
  EXPECT_FALSE(circle->Pick(23540, 18540, 100, false));
  EXPECT_FALSE(circle->Pick(24900, 19900, 100, false)) << "corner of the square";
}

TEST(Circle, SnapsToCentreAndTangents) {
  TBareLabel doc;
  const auto* circle = doc.NewCircle(20000, 15000, 5000);
  TZORRef found;
  ASSERT_TRUE(circle->CheckPoint(20080, 15080, 100, snCenter, found));
  EXPECT_EQ(found.bX, 20000);
  EXPECT_EQ(found.fType, rtyCircle);
  const auto tangent = [&](Int64 y) {
    TZORRef last;
    last.lbX = 30000;
    last.lbY = 15000;
    return circle->CheckPoint(20000, y, 100, snTangent, last) ? last.bY : -1;
  };
  EXPECT_EQ(tangent(20000), 15000 + 4330);
  EXPECT_EQ(tangent(10000), 15000 - 4330);
  EXPECT_EQ(tangent(15000), -1) << "the cursor is far from the circle";
}

TEST(Circle, SearchesRound) {
  TBareLabel doc;
  const TZORRect corner{15000, 10000, 15500, 10500}, across{12000, 9000, 28000, 10100};
  for (const TKDXBaseItem* item : std::initializer_list<TKDXBaseItem*>{
           doc.NewCircle(20000, 15000, 5000), doc.NewEllipse(20000, 15000, 5000, 5000),
           doc.NewSector(20000, 15000, 5000, 0, 90)}) {
    SCOPED_TRACE(item->fID);
    EXPECT_FALSE(item->SearchRect(corner, true));
    EXPECT_TRUE(item->SearchRect({12000, 7000, 19000, 12000}, true)) << "a corner in the disc";
    // Intended: a rectangle across the outline of a sector that holds none of its corners is missed.
    EXPECT_EQ(item->SearchRect(across, true), item->fItemType != itSector);
    EXPECT_TRUE(item->SearchRect({15000, 10000, 25000, 20000}, false));
    EXPECT_FALSE(item->SearchRect({15001, 10000, 25000, 20000}, false));
  }
}

TEST(Circle, SvgOfCircleAndEllipse) {
  TBareLabel doc;
  auto* circle = doc.NewCircle(20000, 15000, 5500);
  auto* ellipse = doc.NewEllipse(20000, 15000, 5000, 4000);
  EXPECT_EQ(Svg(*circle),
            "<circle cx=\"20\" cy=\"15\" r=\"5.50\"  fill=\"#FFFFFF\"  stroke=\"#000000\" "
            "stroke-width=\"0.1\" />");
  EXPECT_EQ(Svg(*ellipse),
            "<ellipse cx=\"20\" cy=\"15\" rx=\"5\" ry=\"4\"  fill=\"#FFFFFF\"  stroke=\"#000000\" "
            "stroke-width=\"0.1\"/>");
  for (TKDX2DItem* item : std::initializer_list<TKDX2DItem*>{circle, ellipse}) {
    item->SetPenWidth(0);
    EXPECT_FALSE(Svg(*item).empty());
    item->SetFilled(false);
    EXPECT_TRUE(Svg(*item).empty()) << "neither fill nor pen";
    item->SetPenWidth(0.5F);
    EXPECT_NE(Svg(*item).find("\" fill=\"none\"  stroke="), std::string::npos);
  }
}

TEST(Sector, AnglesAreHeld) {
  TBareLabel doc;
  auto* sector = doc.NewSector(20000, 15000, 5000, 0, 0);
  struct {
    Single start, gap, heldStart, heldGap;
  } const cases[] = {{20, 350, 20, 340},   {-400, 90, -359, 1}, {361, 10, 360, 0},
                     {-30, 340, -30, 330}, {45, -5, 45, 0},     {0, 360, 0, 360}};
  for (const auto& row : cases) {
    sector->SetAngleStart(row.start);
    sector->SetAngleGap(row.gap);
    EXPECT_EQ(sector->fAngleStart, row.heldStart) << row.start;
    EXPECT_EQ(sector->fAngleGap, row.heldGap) << row.gap;
  }
}

TEST(Sector, TheStartTurnsWithTheItem) {
  TBareLabel doc;
  auto* sector = doc.NewSector(20000, 15000, 5000, 30, 90);
  sector->SetAngle(ag90);
  EXPECT_EQ(sector->fCalcStart, -60);
  doc.Undo();
  EXPECT_EQ(sector->fCalcStart, 30);
  sector->RotateRight();
  EXPECT_EQ(sector->fAngle, ag270);
  EXPECT_EQ(sector->fCalcStart, -240);
  auto json = sector->WriteJson();
  auto* copy = new TBareItem<TKDXBaseSector>(doc, false);
  copy->ReadJson(FormatVersion, *json);
  EXPECT_EQ(copy->fCalcStart, -240);
}

TEST(Sector, FitsItsCentreAndItsEnds) {
  TBareLabel doc;
  auto* sector = doc.NewSector(20000, 15000, 5000, 0, 90);
  const auto fit = [&] {
    TZORRect out{-1, -1, -1, -1};
    sector->CheckFit(out.Left, out.Right, out.Top, out.Bottom);
    return out;
  };
  EXPECT_EQ(fit(), (TZORRect{20000, 15000, 25000, 20000}));
  sector->SetAngleGap(360);
  EXPECT_EQ(fit(), (TZORRect{15000, 10000, 25000, 20000}));
}

TEST(Sector, SvgIsASliceOrAWholeCircle) {
  TBareLabel doc;
  auto* sector = doc.NewSector(20000, 15000, 5000, 0, 90);
  sector->SetLineType(ii11);
  EXPECT_EQ(Svg(*sector),
            "<path d=\"M20,15 L25,15 A5,5 0 0,1 20,20 Z\"  fill=\"#FFFFFF\"  stroke=\"#000000\" "
            "stroke-width=\"0.1\"  stroke-dasharray=\"1\" />");
  sector->SetAngleGap(270);
  EXPECT_NE(Svg(*sector).find(" 0 1,1 20,10 Z"), std::string::npos) << Svg(*sector);
  sector->SetAngleGap(360);
  EXPECT_EQ(Svg(*sector).substr(0, 8), "<circle ");
  sector->SetAngleGap(90);
  sector->SetFilled(false);
  sector->SetPenWidth(0);
  EXPECT_EQ(Svg(*sector), "");
}

TEST(Sector, RefusesWhatIsNoAngle) {
  TBareLabel doc;
  auto* sector = doc.NewSector(20000, 15000, 5000, 0, 90);
  sector->fAngleGap = INFINITY;
  std::string bytes;
  TBinaryWriter writer(bytes);
  writer.WriteInt32(FormatVersion);
  sector->Write(writer);
  TBareLabel other;
  EXPECT_THROW(other.CreateElementFromStream(bytes), EReadError);
  auto json = sector->WriteJson();
  json->SetFloat("SweepAngle", 1e20);
  EXPECT_THROW(sector->ReadJson(FormatVersion, *json), EJsonException);
}

}  // namespace
}  // namespace Zor
