#include <gtest/gtest.h>

#include <cmath>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/utils/TDraw2D.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

constexpr double Pi = TDraw2D::Pi;
using TArc = TBareItem<TKDXBaseArc>;

/// The lower half of the circle about (20, 15) mm with radius 5 mm, from right to left.
TArc* LowerHalf(TBareLabel& aDoc) { return aDoc.NewArc(25000, 15000, 20000, 20000, 15000, 15000); }
TArc* UpperHalf(TBareLabel& aDoc) { return aDoc.NewArc(25000, 15000, 20000, 10000, 15000, 15000); }

TEST(Arc, ComesFromThreePoints) {
  TBareLabel doc;
  const TArc* arc = LowerHalf(doc);
  EXPECT_EQ(arc->fPoints, (TZORPtoA{{15000, 10000}, {25000, 20000}}));
  EXPECT_EQ(arc->BaseCenterX(), 20000);
  EXPECT_EQ(arc->BaseCenterY(), 15000);
  EXPECT_EQ(arc->BaseRadio(), 5000);
  EXPECT_TRUE(arc->fClockWise);
  EXPECT_NEAR(arc->fStartAngle, 0, 1e-12);
  EXPECT_NEAR(arc->fEndAngle, Pi, 1e-12);
  EXPECT_NEAR(arc->fSweepAngle, Pi, 1e-12);
  EXPECT_EQ(arc->CenterPoint(), (TZORBase{20000, 20000}));
  EXPECT_EQ(arc->fBoundsRect, (TZORRect{15000, 15000, 25000, 20000}));
  EXPECT_FALSE(UpperHalf(doc)->fClockWise);
  // Intended: the middle mark does not ask for the sense.
  EXPECT_EQ(UpperHalf(doc)->CenterPoint(), (TZORBase{20000, 20000}));
}

TEST(Arc, ComesFromACentreAndAngles) {
  TBareLabel doc;
  const auto* arc = new TArc(doc, 20000, 15000, 5000, 0, static_cast<Single>(Pi / 2), false);
  EXPECT_EQ(arc->fPoints, (TZORPtoA{{15000, 10000}, {25000, 20000}}));
  EXPECT_EQ(arc->GetPto(1), (TZORPto{25000, 15000}));
  EXPECT_EQ(arc->GetPto(2), (TZORPto{23536, 18536}));
  EXPECT_EQ(arc->GetPto(3), (TZORPto{20000, 20000}));
  EXPECT_EQ(arc->fBoundsRect, (TZORRect{20000, 15000, 25000, 20000}));
}

TEST(Arc, PointsOutOfRangeAnswerNothingAndTakeNothing) {
  TBareLabel doc;
  TArc* arc = LowerHalf(doc);
  const auto points = arc->fArcPoints;
  for (const int index : {-1, 0, 4, 5}) {
    EXPECT_EQ(arc->GetPto(index), TZORPto{}) << index;
    arc->SetPX(index, 3);
    arc->MoveBasePoint(index, 1, 1);
    EXPECT_EQ(arc->fArcPoints, points);
  }
  EXPECT_EQ(arc->GetPX(4), 20);
  EXPECT_EQ(arc->GetPY(5), 0);
}

TEST(Arc, AMovedPointMakesANewCircle) {
  TBareLabel doc;
  TArc* arc = LowerHalf(doc);
  arc->MoveBasePoint(2, 20000, 10000);
  EXPECT_FALSE(arc->fClockWise);
  EXPECT_EQ(arc->BaseRadio(), 5000);
  arc->SetPX(1, 26);
  EXPECT_NEAR(static_cast<double>(arc->BaseRadio()), 5536, 20);
  EXPECT_EQ(arc->GetPto(1), (TZORPto{26000, 15000}));
}

TEST(Arc, PointsOnOneLineLeaveTheCircle) {
  TBareLabel doc;
  TArc* arc = LowerHalf(doc);
  for (const Int64 y : {Int64{15000}, Int64{15001}}) {  // on one line; a circle of sane size
    arc->MoveBasePoint(2, 20000, y);
    EXPECT_LE(arc->fPoints[1].bX, MaxCoordinate);
  }
  TArc* flat = LowerHalf(doc);
  flat->MoveBasePoint(2, 20000, 15000);
  EXPECT_EQ(flat->BaseRadio(), 5000);
  EXPECT_NEAR(flat->fEndAngle, Pi, 1e-12);
  // Three points far apart and nearly on one line: their circle is beyond all coordinates.
  constexpr Int64 far = Int64{1} << 60;
  const TArc* beyond = doc.NewArc(-far, 0, 0, 1, far, 0);
  for (const TZORPto& point : beyond->fPoints) EXPECT_LE(std::abs(point.bX), MaxCoordinate);
}

TEST(Arc, IsHitWhereItRuns) {
  TBareLabel doc;
  const TArc* lower = LowerHalf(doc);
  const TArc* upper = UpperHalf(doc);
  struct {
    Int64 x, y;
    bool lower, upper;
  } const cases[] = {
      {20000, 20000, true, false}, {20000, 20100, true, false}, {20000, 20101, false, false},
      {20000, 10000, false, true}, {20000, 9900, false, true},  {20000, 15000, false, false},
      {25000, 14950, true, true},  // a little beyond the end of the lower half
  };
  for (const auto& row : cases) {
    EXPECT_EQ(lower->Pick(row.x, row.y, 100, false), row.lower) << row.x << ' ' << row.y;
    EXPECT_EQ(upper->Pick(row.x, row.y, 100, false), row.upper) << row.x << ' ' << row.y;
  }
  const TArc dot(doc, 5000, 5000, 0, 0, 1, false);
  EXPECT_TRUE(dot.Pick(5001, 5000, 0, false));
  EXPECT_FALSE(dot.Pick(4999, 5000, 0, false));
}

TEST(Arc, SearchesInTheSenseOfItsRun) {
  TBareLabel doc;
  const TZORRect above{19000, 9000, 21000, 11000}, below{19000, 19000, 21000, 21000};
  EXPECT_TRUE(LowerHalf(doc)->SearchRect(below, true));
  EXPECT_FALSE(LowerHalf(doc)->SearchRect(above, true));
  EXPECT_TRUE(UpperHalf(doc)->SearchRect(above, true));
  EXPECT_FALSE(UpperHalf(doc)->SearchRect(below, true));
}

TEST(Arc, SnapsToMiddleAndEnds) {
  TBareLabel doc;
  const TArc* arc = LowerHalf(doc);
  TZORRef found;
  ASSERT_TRUE(arc->CheckPoint(20050, 20050, 100, snMiddle, found));
  EXPECT_EQ(found.bY, 20000);
  ASSERT_TRUE(arc->CheckPoint(15050, 15050, 100, snEnd, found));
  EXPECT_EQ(found.bX, 15000);
  EXPECT_FALSE(arc->CheckPoint(20000, 15000, 100, snCenter, found));
}

TEST(Arc, SnapsToTheTangentsThatTouchIt) {
  TBareLabel doc;
  const TArc* lower = LowerHalf(doc);
  TZORRef free;
  ASSERT_TRUE(lower->CheckPoint(20030, 20050, 100, snTangent, free));
  EXPECT_EQ(free.bX, 20030);
  EXPECT_EQ(free.bY, 20000);
  EXPECT_EQ(free.fType, rtyCircle);
  free = {};
  EXPECT_FALSE(lower->CheckPoint(20000, 10000, 100, snTangent, free)) << "not on the arc";

  // From 10 mm to the right of the centre the tangents touch at 60 degrees to either side of it.
  const auto from = [](Int64 x, Int64 y) {
    TZORRef last;
    last.lbX = x;
    last.lbY = y;
    return last;
  };
  TZORRef last = from(30000, 15000);
  ASSERT_TRUE(lower->CheckPoint(20000, 20000, 100, snTangent, last));
  EXPECT_EQ(last.bX, 22500);
  EXPECT_EQ(last.bY, 15000 + 4330);
  last = from(30000, 15000);
  ASSERT_TRUE(UpperHalf(doc)->CheckPoint(20000, 20000, 100, snTangent, last));
  EXPECT_EQ(last.bY, 15000 - 4330);
  last = from(24000, 15000);
  EXPECT_FALSE(lower->CheckPoint(20000, 20000, 100, snTangent, last)) << "from inside";
}

TEST(Arc, FitsItsTrueExtentAndItsTerminators) {
  TBareLabel doc;
  TArc* arc = doc.NewArc(23536, 18536, 15000, 15000, 23536, 11464);  // all but the right quarter
  arc->SetFromType(ttCircle);
  arc->SetSizeFrom(2);
  Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
  arc->CheckFit(minX, maxX, minY, maxY);
  EXPECT_NEAR(static_cast<double>(minX), 15000, 1);
  EXPECT_EQ(maxX, 25536);
  EXPECT_NEAR(static_cast<double>(minY), 10000, 1);
  EXPECT_EQ(maxY, 20536);
}

TEST(Arc, AMoveKeepsTheClickedPointsAndAnUndoBringsThemBack) {
  TBareLabel doc;
  TArc* arc = doc.NewArc(25000, 15000, 23000, 19000, 15000, 15000);
  auto points = arc->fArcPoints;
  arc->BaseMove(1000, 2000, 0, 0, moAll, true);
  for (TZORPto& point : points) point.BaseMove(1000, 2000);
  EXPECT_EQ(arc->fArcPoints, points);
  EXPECT_TRUE(arc->fCalcPoints);
  doc.Undo();
  EXPECT_EQ(arc->GetPto(1), (TZORPto{25000, 15000}));
  EXPECT_EQ(arc->GetPto(3), (TZORPto{15000, 15000}));
  EXPECT_EQ(arc->fBoundsRect, (TZORRect{15000, 15000, 25000, 20000}));

  arc->BaseMove(1000, 1000, 0, 0, moAll, false);  // as a drag does
  arc->UpdateBounds();
  doc.Undo();
  EXPECT_EQ(arc->GetPto(1), (TZORPto{25000, 15000}));
}

TEST(Arc, OnAGridThePointsFollowTheRealWay) {
  TBareLabel doc;
  TArc* arc = LowerHalf(doc);
  arc->BaseMove(1200, 0, 5000, 0, moAll, true);
  EXPECT_EQ(arc->fPoints[0].bX, 20000);
  EXPECT_EQ(arc->GetPto(1).bX, 30000);
}

TEST(Arc, StaysOnTheLabel) {
  TBareLabel doc;  // 60 mm by 35 mm
  struct {
    Int64 ax, ay, cutX, cutY;
  } const cases[] = {
      {50000, 50000, 35000, 15000},      // right end; lower bow
      {-50000, -50000, -15000, -15000},  // left end; the ends, since the arc has no upper bow
      {100, 100, 100, 100},
  };
  for (const auto& row : cases) {
    Int64 ax = row.ax, ay = row.ay;
    LowerHalf(doc)->CheckBaseBoundsMove(ax, ay, moAll);
    EXPECT_EQ(ax, row.cutX);
    EXPECT_EQ(ay, row.cutY);
    Single ux = static_cast<Single>(row.ax) / 1000, uy = static_cast<Single>(row.ay) / 1000;
    LowerHalf(doc)->BoundsMove(ux, uy);
    EXPECT_FLOAT_EQ(ux, static_cast<Single>(row.cutX) / 1000);
    EXPECT_FLOAT_EQ(uy, static_cast<Single>(row.cutY) / 1000);
  }
  // The bow counts, though no point of the arc lies on it: the top of three quarters about (20, 15).
  TArc* bow =
      new TArc(doc, 20000, 15000, 5000, static_cast<Single>(1.25 * Pi), static_cast<Single>(1.8 * Pi), false);
  Int64 ax = 0, ay = -50000;
  bow->CheckBaseBoundsMove(ax, ay, moAll);
  EXPECT_EQ(ay, -10000);
}

TEST(Arc, TurnsWithTheLabel) {
  TBareLabel doc;
  doc.fMeasure->SetLabelSizeMM(40, 40);
  TArc* arc = LowerHalf(doc);
  arc->RotateLeft();
  EXPECT_NEAR(arc->fStartAngle, 1.5 * Pi, 1e-12);
  EXPECT_NEAR(arc->fEndAngle, 0.5 * Pi, 1e-12);
  EXPECT_EQ(arc->GetPto(1), (TZORPto{15000, 15000}));
  EXPECT_EQ(arc->GetPto(2), (TZORPto{20000, 20000}));
  EXPECT_EQ(arc->GetPto(3), (TZORPto{15000, 25000}));
}

TEST(Arc, ReadingMakesThePointsFromTheAngles) {
  TBareLabel doc;
  TArc* arc = doc.NewArc(25000, 15000, 23000, 19000, 15000, 15000);
  auto json = arc->WriteJson();
  auto* copy = new TArc(doc, false);
  copy->ReadJson(FormatVersion, *json);
  EXPECT_EQ(copy->GetPto(1), (TZORPto{25000, 15000}));
  EXPECT_NEAR(static_cast<double>(copy->GetPto(2).bX), 20000, 3);  // not where it was clicked
  json->SetFloat("EndAngle", 1e300);
  EXPECT_THROW(copy->ReadJson(FormatVersion, *json), EJsonException);
  std::string bytes;
  TBinaryWriter writer(bytes);
  writer.WriteInt32(FormatVersion);
  arc->fSweepAngle = std::nan("");
  arc->Write(writer);
  TBareLabel other;
  try {
    other.CreateElementFromStream(bytes);
    ADD_FAILURE();
  } catch (const EReadError& error) {
    EXPECT_NE(std::string(error.what()).find("SweepAngle"), std::string::npos) << error.what();
  }
}

TEST(Arc, SvgIsAPathWithTerminators) {
  TBareLabel doc;
  TArc* arc = UpperHalf(doc);
  TSvgList svg, defs;
  arc->WriteSVG(svg, defs, svCurrentUnit, 1, false);
  ASSERT_EQ(svg.size(), 1U);
  EXPECT_EQ(svg[0],
            "<path d=\"M 25,15 A 5,5 0 0,0 15,15\"  stroke=\"#000000\" fill=\"none\" stroke-width=\"0.1\"/>");
  // At the right end the upper half comes from above: the tip shows downwards.
  arc->SetFromType(ttFillArrow);
  arc->SetSizeFrom(2);
  svg.clear();
  arc->WriteSVG(svg, defs, svCurrentUnit, 1, false);
  ASSERT_EQ(svg.size(), 2U);
  EXPECT_EQ(svg[1].substr(0, 46), "<polygon points=\"25,15 24.23,13.15 25.77,13.15");
  const TArc wide(doc, 20000, 15000, 5000, 0, static_cast<Single>(1.5 * Pi), false);
  svg.clear();
  wide.WriteSVG(svg, defs, svCurrentUnit, 1, false);
  EXPECT_NE(svg[0].find(" 0 1,1 "), std::string::npos) << svg[0];
}

}  // namespace
}  // namespace Zor
