#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <numbers>

#include "kaldrix/items/TextPlacement.hpp"

namespace Zor {
namespace {

constexpr Single UpTurn = static_cast<Single>(-std::numbers::pi / 2);

/// What one angle makes of the alignments: left, centre, right along the text, top, centre, bottom across it,
/// each as the way from the anchor.
struct TRow {
  TZORAngle angle;
  bool alongX;
  std::array<int, 3> horz;
  std::array<int, 3> vert;
};
using TTable = std::array<TRow, 4>;
using TPlacement = std::function<TPoint(TZORHorzAlign, TZORVertAlign, TZORAngle)>;

void Check(const TTable& aTable, const TPlacement& aPlacement) {
  for (const TRow& row : aTable) {
    for (std::size_t h = 0; h < 3; ++h) {
      for (std::size_t v = 0; v < 3; ++v) {
        const TPoint expected =
            row.alongX ? TPoint{row.horz[h], row.vert[v]} : TPoint{row.vert[v], row.horz[h]};
        const TPoint got =
            aPlacement(static_cast<TZORHorzAlign>(h), static_cast<TZORVertAlign>(v), row.angle);
        EXPECT_EQ(got, expected) << "angle " << int{row.angle} << " horz " << h << " vert " << v << ": "
                                 << got.X << ", " << got.Y;
      }
    }
  }
}

TPoint Whole(Single x, Single y) { return {static_cast<int>(x), static_cast<int>(y)}; }

constexpr TTable RectWays{{{ag0, true, {0, -50, -101}, {0, -20, -41}},
                           {ag90, false, {-101, -50, 0}, {0, -20, -41}},
                           {ag180, true, {-101, -50, 0}, {-41, -20, 0}},
                           {ag270, false, {0, -50, -101}, {-41, -20, 0}}}};

TEST(TextPlacement, AdjustRectTurnsAndMovesTheRectangle) {
  Check(RectWays, [](TZORHorzAlign h, TZORVertAlign v, TZORAngle angle) {
    TZORRect r{1000, 2000, 1101, 2041};
    AdjustRect(r, h, v, angle);
    const bool turned = angle == ag90 || angle == ag270;
    EXPECT_EQ(r.GetWidth(), turned ? 41 : 101);
    EXPECT_EQ(r.GetHeight(), turned ? 101 : 41);
    return TPoint{static_cast<int>(r.Left - 1000), static_cast<int>(r.Top - 2000)};
  });
}

TEST(TextPlacement, AdjustRectOfFloatsDoesNotTruncate) {
  TRectF r{0, 0, 101, 41};
  AdjustRect(r, haCenter, vaBottom, ag90);
  EXPECT_EQ(r, (TRectF{-41, -50.5F, 0, 50.5F}));
}

TEST(TextPlacement, JustifiedRectanglesMoveAtNoAngleAndTurnAtNone) {
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    TZORRect r{10, 20, 111, 61};
    AdjustRect(r, haJustify, vaBottom, angle);
    EXPECT_EQ(r, angle == ag0 ? (TZORRect{10, -21, 111, 20}) : (TZORRect{10, 20, 111, 61})) << int{angle};
  }
}

TEST(TextPlacement, AdjustPosMovesTheAnchorInwards) {
  Check({{{ag0, true, {3, 0, -3}, {5, 0, -5}},
          {ag90, false, {-3, 0, 3}, {5, 0, -5}},
          {ag180, true, {-3, 0, 3}, {-5, 0, 5}},
          {ag270, false, {3, 0, -3}, {-5, 0, 5}}}},
        [](TZORHorzAlign h, TZORVertAlign v, TZORAngle angle) {
          Single x = 1000, y = 2000;
          AdjustPos(3, 5, h, v, angle, x, y);
          return Whole(x - 1000, y - 2000);
        });
}

constexpr TTable TextWays{{{ag0, true, {3, -50, -104}, {5, -20, -46}},
                           {ag90, false, {-3, 50, 104}, {5, -20, -46}},
                           {ag180, true, {-3, 50, 104}, {-5, 20, 46}},
                           {ag270, false, {3, -50, -104}, {-5, 20, 46}}}};

TEST(TextPlacement, PrintTxtPosGivesTheOriginOfAText) {
  Check(TextWays, [](TZORHorzAlign h, TZORVertAlign v, TZORAngle angle) {
    int x = 0, y = 0;
    PrintTxtPos(x, y, 1000, 2000, 3, 5, 101, 41, h, v, angle);
    return TPoint{x - 1000, y - 2000};
  });
}

TEST(TextPlacement, DrawTxtPosIsItsTwinWithHalves) {
  Check(TextWays, [](TZORHorzAlign h, TZORVertAlign v, TZORAngle angle) {
    Single x = 0, y = 0;
    DrawTxtPos(x, y, 1000, 2000, 3, 5, 101, 41, h, v, angle);
    // Only the centred ways have a half, which the conversion to whole numbers drops.
    return Whole(x - 1000, y - 2000);
  });
  Single x = 0, y = 0;
  DrawTxtPos(x, y, 10, 20, 3, 5, 101, 41, haCenter, vaCenter, ag90);
  EXPECT_EQ(x, 10 - 20.5F);
  EXPECT_EQ(y, 20 + 50.5F);
}

TEST(TextPlacement, DrawPosGivesTheOriginOfABlock) {
  Check({{{ag0, true, {3, -47, -97}, {5, -15, -35}},
          {ag90, false, {-3, 17, 37}, {5, -45, -95}},
          {ag180, true, {-3, 47, 97}, {-5, 15, 35}},
          {ag270, false, {3, -17, -37}, {-5, 45, 95}}}},
        [](TZORHorzAlign h, TZORVertAlign v, TZORAngle angle) {
          Single x = 0, y = 0;
          DrawPos(x, y, 1000, 2000, 3, 5, 100, 40, h, v, angle);
          return Whole(x - 1000, y - 2000);
        });
}

TEST(TextPlacement, JustifiedOriginsKeepTheCoordinateAlongTheText) {
  Single x = 7, y = 8;
  DrawTxtPos(x, y, 100, 200, 3, 5, 50, 20, haJustify, vaTop, ag0);
  EXPECT_EQ(Whole(x, y), (TPoint{7, 205}));
  DrawPos(x, y, 100, 200, 3, 5, 50, 20, haJustify, vaTop, ag90);
  EXPECT_EQ(Whole(x, y), (TPoint{105, 205}));
  AdjustPos(3, 5, haJustify, vaCenter, ag0, x, y);
  EXPECT_EQ(Whole(x, y), (TPoint{105, 205}));
}

// Segments ----------------------------------------------------------------------------

struct TSegmentCase {
  const char* name;
  std::array<Single, 4> segment;
  TZORTextPos pos;
  TSegmentText<Single> expected;
};

TEST(TextPlacement, PosTextStandsInTheMiddleOfASegment) {
  const Single slope = std::atan(4.0F / 3.0F);
  // 20 wide, 8 above the baseline and 2 below it.
  const TSegmentCase cases[] = {
      {"above", {0, 0, 100, 0}, tpAbove, {40, -2, 0, 40, 0, 60, 0}},
      {"below", {0, 0, 100, 0}, tpBelow, {40, 8, 0, 40, 0, 60, 0}},
      {"on", {0, 0, 100, 0}, tpMiddle, {40, 3, 0, 40, 0, 60, 0}},
      {"in, leftwards", {100, 0, 0, 0}, tpMiddleRemove, {40, 3, 0, 60, 0, 40, 0}},
      {"upright, downwards", {0, 0, 0, 100}, tpAbove, {-2, 60, UpTurn, 0, 40, 0, 60}},
      {"upright, upwards", {0, 100, 0, 0}, tpBelow, {8, 60, UpTurn, 0, 60, 0, 40}},
      {"oblique", {0, 0, 30, 40}, tpAbove, {10.6F, 10.8F, slope, 9, 12, 21, 28}},
      {"oblique, back", {30, 40, 0, 0}, tpAbove, {10.6F, 10.8F, slope, 21, 28, 9, 12}},
      {"oblique, rising", {0, 40, 30, 0}, tpBelow, {15.4F, 32.8F, -slope, 9, 28, 21, 12}},
      {"a point", {5, 5, 5, 5}, tpAbove, {-5, 3, 0, -5, 5, 15, 5}},
  };
  for (const TSegmentCase& c : cases) {
    const auto& [x1, y1, x2, y2] = c.segment;
    const TSegmentText<Single> got = PosText(x1, y1, x2, y2, 8, 2, 20, c.pos);
    constexpr Single gap = 1e-4F;
    EXPECT_NEAR(got.X, c.expected.X, gap) << c.name;
    EXPECT_NEAR(got.Y, c.expected.Y, gap) << c.name;
    EXPECT_NEAR(got.angle, c.expected.angle, gap) << c.name;
    EXPECT_NEAR(got.gapX1, c.expected.gapX1, gap) << c.name;
    EXPECT_NEAR(got.gapY1, c.expected.gapY1, gap) << c.name;
    EXPECT_NEAR(got.gapX2, c.expected.gapX2, gap) << c.name;
    EXPECT_NEAR(got.gapY2, c.expected.gapY2, gap) << c.name;
  }
  EXPECT_EQ(PosPrintText(0, 0, 30, 40, 8, 2, 20, tpAbove), (TSegmentText<int>{11, 11, slope, 9, 12, 21, 28}));
}

TEST(TextPlacement, PosBaseTextKnowsAxisParallelSegments) {
  TSegmentText<Int64> place;
  TZORRect box;
  ASSERT_TRUE(PosBaseText(100, 0, 0, 0, 8, 2, 20, tpMiddle, place, box));
  EXPECT_EQ(place, (TSegmentText<Int64>{40, 3, 0, 60, 0, 40, 0}));
  EXPECT_EQ(box, (TZORRect{40, -5, 60, 5}));
  ASSERT_TRUE(PosBaseText(0, 100, 0, 0, 8, 2, 20, tpAbove, place, box));
  EXPECT_EQ(place, (TSegmentText<Int64>{-2, 60, UpTurn, 0, 60, 0, 40}));
  EXPECT_EQ(box, (TZORRect{-10, 40, 0, 60}));

  const TSegmentText<Int64> before = place;
  EXPECT_FALSE(PosBaseText(0, 0, 30, 40, 8, 2, 20, tpAbove, place, box));
  EXPECT_EQ(place, before);
  EXPECT_EQ(box, (TZORRect{-10, 40, 0, 60}));
}

}  // namespace
}  // namespace Zor
