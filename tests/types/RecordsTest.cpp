#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/TZORBPoint.hpp"
#include "kaldrix/types/TZORRect.hpp"

namespace Zor {
namespace {

TEST(TZORPto, MovesInUnitsAndInBasePoints) {
  TZORPto p;
  p.Define(1, -2, unCM);
  p.Move(0.5F, 1, unMM);
  EXPECT_EQ(p, (TZORPto{10500, -19000}));
  EXPECT_EQ(p.GetX(unCM), 1.05F);
  p.BaseMove(INT64_MAX, 1);
  EXPECT_EQ(p, (TZORPto{INT64_MAX, -18999}));
}

TEST(TZORBase, PaperMillimetresFollowTheScale) {
  EXPECT_EQ(TZORBase::Create(50000, 0).MMX(100), 0.5F);
  EXPECT_EQ(TZORBase::Create(0, 50000).MMY(1), 50);
}

TEST(TZORRect, ContainsIsHalfOpenForPointsAndClosedForRectangles) {
  const TZORRect r{0, 0, 10, 20};
  EXPECT_TRUE(r.Contains(0, 0));
  EXPECT_FALSE(r.Contains(10, 5));
  EXPECT_FALSE(r.Contains(5, 20));
  EXPECT_TRUE(r.Contains(r));
  EXPECT_FALSE(r.Contains(TZORRect{0, 0, 11, 20}));
  EXPECT_TRUE((TZORRect{4, 4, 4, 9}).IsEmpty());
  EXPECT_FALSE((TZORRect{4, 4, 4, 9}).Contains(4, 4));
}

TEST(TZORRect, OverlapAndUnion) {
  struct TCase {
    TZORRect a, b, overlap, both;
  };
  const TZORRect none = TZORRect::Empty();
  for (const auto& c : {TCase{{0, 0, 10, 10}, {5, -5, 20, 5}, {5, 0, 10, 5}, {0, -5, 20, 10}},
                        {{0, 0, 10, 10}, {10, 0, 20, 10}, none, {0, 0, 20, 10}},
                        {{0, 0, 10, 10}, {30, 30, 30, 40}, none, {0, 0, 10, 10}},
                        {{5, 5, 5, 5}, {0, 0, 2, 2}, none, {0, 0, 5, 5}},
                        {{7, 7, 7, 7}, {9, 9, 9, 9}, none, none}}) {
    EXPECT_EQ(c.a * c.b, c.overlap);
    EXPECT_EQ(c.a + c.b, c.both);
    TZORRect out;
    EXPECT_EQ(TZORRect::IntersectRect(out, c.a, c.b), c.overlap != none);
    EXPECT_EQ(c.a.IntersectsWith(c.b), c.overlap != none);
    EXPECT_EQ(TZORRect::UnionRect(out, c.a, c.b), c.both != none);
  }
}

TEST(TZORRect, GrowsMovesAndNormalises) {
  TZORRect r{10, 8, 2, 4};
  r.NormalizeRect();
  EXPECT_EQ(r, (TZORRect{2, 4, 10, 8}));
  r.Inflate(1, 2, 3, 4);
  EXPECT_EQ(r, (TZORRect{1, 2, 13, 12}));
  r.Inflate(-1, -2);
  r.Offset(-2, -4);
  r.SetWidth(100);
  EXPECT_EQ(r, (TZORRect{0, 0, 100, 6}));
  r.Inflate(INT64_MIN, 0);  // held, not run over
  EXPECT_EQ(r.Left, INT64_MAX);
}

TEST(TZORPto64, DirectionDistanceAndCircle) {
  const TZORPto64 p{3, 4};
  EXPECT_EQ(p.Distance({}), 5.0);
  EXPECT_FLOAT_EQ((TZORPto64{0, 5}).Angle({0, 2}), 1.5707964F);
  EXPECT_TRUE(TZORPto64::PointInCircle(p, {}, 5));
  EXPECT_FALSE(TZORPto64::PointInCircle(p, {}, 4));
}

TEST(TZORBPoint, ValidityTakesNoPartInArithmetic) {
  TZORBPoint p;
  p.Valid(7, -9);
  EXPECT_EQ(p, TZORBPoint(7, -9));
  EXPECT_EQ(-p + p, TZORBPoint());
  EXPECT_EQ(p * 0.5F, TZORBPoint(4, -4));  // 3.5 and -4.5, halves to even
  EXPECT_EQ(0.5F * p, p / 2.0F);
  EXPECT_TRUE((p / 0.0F).IsValid);
  EXPECT_FALSE((p + p).IsValid);
  // The reciprocal is a single: 1/3 held so gives a little more than a third.
  EXPECT_EQ(TZORBPoint(3000000000, 0) / 3.0F, TZORBPoint(1000000030, 0));
  p.InValid();
  EXPECT_EQ(p.X, 7);
  const TZORBPoint fromPoint = TPoint{1, 2};
  EXPECT_EQ(fromPoint, TZORBPoint(1, 2));
}

TEST(TZOLink, PositionsAreTakenInOrder) {
  TZOLink link;
  link.draw = true;
  link.ID = 5;
  link.SetPos(3);
  link.SetPos(8);
  link.SetPos(9);
  EXPECT_EQ(link.PosFrom, 3);
  EXPECT_EQ(link.PosTo, 9);
  link.Reset(false, false);
  EXPECT_TRUE(link.ID == 0 && link.bX == -1 && link.PosFrom == 3 && link.draw);
  link.Reset(true, true);
  EXPECT_TRUE(link.PosFrom == -1 && link.PosTo == -1 && !link.draw);
}

TEST(TZORRef, IsDrawnOnlyAtANewPlace) {
  TZORRef ref;
  ref.Reset(true);
  EXPECT_FALSE(ref.SamePoint());
  ref.bX = 10;
  ref.bY = 20;
  ref.FindRef(rtyCross);
  EXPECT_TRUE(ref.draw && ref.link && ref.lbX == 10 && ref.lbY == 20);
  ref.draw = false;
  ref.FindRef(rtyCircle);
  EXPECT_FALSE(ref.draw);
  EXPECT_EQ(ref.fType, rtyCircle);
  ref.pX = 4;
  ref.pY = 5;
  ref.SetLast();
  EXPECT_TRUE(ref.SamePoint() && ref.drawed && ref.oType == rtyCircle);
  ref.pY = 6;
  EXPECT_FALSE(ref.SamePoint());
  ref.Reset(false);
  EXPECT_TRUE(ref.bX == -1 && ref.lbY == -1 && ref.lpX == -1 && !ref.link && !ref.drawed);
  EXPECT_EQ(ref.oType, rtyCircle);
}

TEST(TZORDrawConf, PenAndFontAreSetApart) {
  TZORDrawConf conf;
  conf.IniFont(1, true, true, true, "Serif", 9, 2);
  conf.fRound = conf.fScalePen = conf.fPath = conf.fIniPath = true;
  conf.Ini(2, 3, false, ii31, 0.5F);
  EXPECT_TRUE(!conf.fRound && !conf.fScalePen && !conf.fPath && !conf.fIniPath && !conf.fFill);
  EXPECT_EQ(conf.fFontName, "Serif");
  conf.Reset();
  EXPECT_EQ(conf.fFColor, 0xFF000000);
  EXPECT_EQ(conf.fBColor, 0xFFFFFFFF);
  EXPECT_TRUE(conf.fFill && !conf.fBold);
  EXPECT_EQ(conf.fPenWidth, 0.1F);
  EXPECT_EQ(conf.fFontName, "Arial");
  EXPECT_EQ(conf.fFontHeight, 5.0F);
}

}  // namespace
}  // namespace Zor
