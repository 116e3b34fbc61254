#include <limits>

#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor {
namespace {

TEST(Rounding, EachRuleOnHalves) {
  struct TCase {
    double value;
    Int64 round, zo, math;
  };
  for (const auto& c : {TCase{2.5, 2, 3, 3},
                        {3.5, 4, 4, 4},
                        {0.4, 0, 0, 0},
                        {-2.5, -2, -2, -3},
                        {-0.6, -1, 0, -1},
                        {-3.5, -4, -3, -4}}) {
    EXPECT_EQ(Round(c.value), c.round) << c.value;
    EXPECT_EQ(ZORound(static_cast<Single>(c.value)), c.zo) << c.value;
    EXPECT_EQ(MathRound(c.value), c.math) << c.value;
  }
}

TEST(Rounding, MulDivGoesAwayFromZeroAndThrough64Bits) {
  EXPECT_EQ(MulDiv(5, 1, 2), 3);
  EXPECT_EQ(MulDiv(-5, 1, 2), -3);
  EXPECT_EQ(MulDiv(2000000000, 3, 4), 1500000000);
  EXPECT_EQ(MulDiv(7, 7, 0), -1);
}

TEST(Rounding, HeldArithmeticStaysAtTheEnds) {
  EXPECT_EQ(MulHeld(INT64_MAX, -2), INT64_MIN);
  EXPECT_EQ(MulHeld(INT64_MIN, -1), INT64_MAX);
  EXPECT_EQ(AddHeld(INT64_MIN, -1), INT64_MIN);
  EXPECT_EQ(SubHeld(0, INT64_MIN), INT64_MAX);
  EXPECT_EQ(SubHeld(-2, INT64_MAX), INT64_MIN);
  EXPECT_EQ(SubHeld(5, 7), -2);
}

TEST(Units, LengthsBothWays) {
  struct TCase {
    TZORUnits unit;
    Single value;
    Int64 base;
  };
  for (const auto& c : {TCase{unMM, 2.5F, 2500},
                        {unINCH, 2, 50800},
                        {unCM, 1.5F, 15000},
                        {unDM, 1, 100000},
                        {unM, 0.25F, 250000},
                        {unFt, 10, 3048000},
                        {unYd, 1, 914000}}) {
    EXPECT_EQ(SetValue(c.value, c.unit), c.base) << SymUnit(c.unit, false);
    EXPECT_EQ(GetValue(c.base, c.unit), c.value) << SymUnit(c.unit, false);
  }
  EXPECT_EQ(SetValue(3, static_cast<TZORUnits>(9)), 3000);
}

TEST(Units, AThousandthIsRoundedHalfToEven) {
  EXPECT_EQ(SetBaseValue(0.0005F), 0);  // though the single lies a little above
  EXPECT_EQ(SetBaseValue(0.0025F), 2);
  EXPECT_EQ(SetBaseValue(1048.577F), 1048577);
  EXPECT_EQ(SetBaseValue(0.0625F), 62);   // exactly 62.5
  EXPECT_EQ(SetBaseValue(0.1875F), 188);  // exactly 187.5
  EXPECT_EQ(SetBaseValue(0.0015F), 2);
}

TEST(Units, RestrictedUnitsFallBackToMillimetres) {
  EXPECT_EQ(SymUnit(unYd, false), "yd");
  for (TZORUnits unit : {unDM, unM, unFt, unYd}) EXPECT_EQ(SymUnit(unit, true), "mm");
  EXPECT_EQ(SymUnit(unINCH, true), "inch");
  EXPECT_EQ(SymUnit(unCM, true), "cm");
}

TEST(Surface, BasePointsToDots) {
  TKDXBaseDraw drw;
  drw.fDpix = 300;
  drw.fDpiy = 96;
  drw.fDrawScale = 10;
  TZORPto p;
  p.SetBase(254000, -127000);  // an inch of paper, and half an inch the other way
  EXPECT_EQ(p.DrawX(drw), 300);
  EXPECT_EQ(p.DrawY(drw), -48);
  EXPECT_EQ(p.DrawGapX(127000, drw), 450);
  EXPECT_EQ(p.PrintX(drw), 300);
  p.SetDpIBaseX(150, 300);
  EXPECT_EQ(p.bX, 12700);
  EXPECT_EQ(drw.BasePtoX(25.4F), 300);
  EXPECT_EQ(drw.DrawBasePtoY(0.1F), 1);  // no line is thinner than a dot
  EXPECT_EQ(drw.PrintBasePtoY(0), 0);
  EXPECT_EQ(drw.PrintBasePtoX(0.2F), 2);
}

}  // namespace
}  // namespace Zor
