#include <cmath>
#include <random>

#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor {
namespace {

constexpr double Pi = TDraw2D::Pi;

struct TLine {
  Int64 x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const TLine&) const = default;
};
void PrintTo(const TLine& l, std::ostream* os) { *os << l.x1 << ',' << l.y1 << " - " << l.x2 << ',' << l.y2; }

/// What an edit operation gave.
struct TEdited {
  bool done = false;
  TLine line;
  bool operator==(const TEdited&) const = default;
};
void PrintTo(const TEdited& e, std::ostream* os) {
  *os << (e.done ? "done " : "refused ");
  PrintTo(e.line, os);
}

TEdited ToCircle(Int64 r, const TLine& l, Int64 px, Int64 py) {
  TEdited e;
  TLine& o = e.line;
  e.done = TDraw2D::ExtendLineToCircle(0, 0, r, l.x1, l.y1, l.x2, l.y2, px, py, o.x1, o.y1, o.x2, o.y2);
  return e;
}

TEST(TDraw2DExtend, ToALine) {
  struct TCase {
    TLine target, line;
    TEdited result;
  };
  for (const auto& c : {TCase{{100, 0, 100, 50}, {0, 10, 20, 10}, {true, {0, 10, 100, 10}}},
                        {{100, 0, 100, 50}, {20, 10, 0, 10}, {true, {0, 10, 100, 10}}},
                        {{10, 0, 10, 50}, {0, 10, 20, 10}, {false, {0, 10, 20, 10}}},
                        {{0, 0, 50, 0}, {0, 10, 20, 10}, {false, {0, 10, 20, 10}}}}) {
    TEdited e;
    TLine& o = e.line;
    e.done = TDraw2D::ExtendLines(c.target.x1, c.target.y1, c.target.x2, c.target.y2, c.line.x1, c.line.y1,
                                  c.line.x2, c.line.y2, 0, 0, o.x1, o.y1, o.x2, o.y2);
    EXPECT_EQ(e, c.result);
  }
}

TEST(TDraw2DExtend, ToACircleMovesTheEndNearThePick) {
  EXPECT_EQ(ToCircle(100, {0, 0, 50, 0}, 49, 3), (TEdited{true, {0, 0, 100, 0}}));
  EXPECT_EQ(ToCircle(100, {0, 0, 50, 0}, 1, 3), (TEdited{true, {-100, 0, 50, 0}}));
  EXPECT_EQ(ToCircle(100, {0, 0, 50, 0}, 25, 0), (TEdited{true, {0, 0, 100, 0}}));  // a tie: the second
  EXPECT_EQ(ToCircle(100, {-300, 0, -200, 0}, -200, 0), (TEdited{true, {-300, 0, -100, 0}}));
  EXPECT_EQ(ToCircle(100, {0, 0, 100, 0}, 100, 0), (TEdited{false, {0, 0, 100, 0}}));  // there already
  EXPECT_EQ(ToCircle(100, {200, 0, 300, 0}, 300, 0), (TEdited{false, {200, 0, 300, 0}}));
  EXPECT_EQ(ToCircle(100, {7, 7, 7, 7}, 0, 0), (TEdited{false, {7, 7, 7, 7}}));
}

TEST(TDraw2DExtend, ReachesTheCircleAndStaysOnTheLine) {
  std::mt19937_64 engine(7);
  std::uniform_int_distribution<Int64> inside(-60000, 60000);
  for (int i = 0; i < 2000; ++i) {
    const TLine l{inside(engine), inside(engine), inside(engine), inside(engine)};
    if (TDraw2D::Distance(l.x1, l.y1, l.x2, l.y2) < 1000) continue;
    const TEdited e = ToCircle(100000, l, l.x2, l.y2);
    ASSERT_TRUE(e.done);
    EXPECT_NEAR(TDraw2D::Magnitude(e.line.x2, e.line.y2), 100000, 1);
    const double before = std::atan2(l.y2 - l.y1, l.x2 - l.x1);
    const double after = std::atan2(e.line.y2 - l.y1, e.line.x2 - l.x1);
    EXPECT_NEAR(std::remainder(after - before, 2 * Pi), 0, 1e-4);
  }
}

TEST(TDraw2DExtend, ToAnEllipse) {
  const auto extend = [](Int64 rx, Int64 ry, const TLine& l, Int64 px, Int64 py) {
    TEdited e;
    TLine& o = e.line;
    e.done =
        TDraw2D::ExtendLineToEllipse(0, 0, rx, ry, l.x1, l.y1, l.x2, l.y2, px, py, o.x1, o.y1, o.x2, o.y2);
    return e;
  };
  EXPECT_EQ(extend(200, 100, {0, 0, 50, 0}, 50, 0), (TEdited{true, {0, 0, 200, 0}}));
  EXPECT_EQ(extend(200, 100, {0, 0, 0, 50}, 0, 50), (TEdited{true, {0, 0, 0, 100}}));
  EXPECT_EQ(extend(200, 100, {0, 0, 50, 0}, 25, 9), (TEdited{true, {-200, 0, 50, 0}}));  // a tie: the first
  EXPECT_EQ(extend(0, 100, {0, 0, 50, 0}, 50, 0), (TEdited{false, {0, 0, 50, 0}}));
}

TEST(TDraw2DExtend, ToARectangle) {
  struct TCase {
    TLine line;
    Int64 px, py;
    TEdited result;
  };
  for (const auto& c : {TCase{{10, 50, 20, 50}, 20, 50, {true, {10, 50, 100, 50}}},
                        {{10, 50, 20, 50}, 10, 50, {true, {0, 50, 20, 50}}},
                        {{10, 50, 20, 50}, 15, 50, {true, {0, 50, 20, 50}}},     // a tie: the first
                        {{10, 50, 100, 50}, 99, 50, {true, {10, 50, 100, 50}}},  // on the side already
                        {{10, 10, 13, 13}, 13, 13, {true, {10, 10, 100, 100}}},  // a corner
                        {{1, 34, 4, 36}, 4, 36, {true, {1, 34, 100, 100}}},      // the same, in thirds
                        {{200, 50, 300, 50}, 300, 50, {false, {200, 50, 300, 50}}},
                        {{200, 50, 300, 50}, 200, 50, {true, {100, 50, 300, 50}}},
                        {{5, 5, 5, 5}, 5, 5, {false, {5, 5, 5, 5}}}}) {
    TEdited e;
    TLine& o = e.line;
    e.done = TDraw2D::ExtendLineToRectangle(100, 0, 0, 100, c.line.x1, c.line.y1, c.line.x2, c.line.y2, c.px,
                                            c.py, o.x1, o.y1, o.x2, o.y2);
    EXPECT_EQ(e, c.result);
  }
}

TEST(TDraw2DExtend, ToAPolyline) {
  const TZORPtoA points{{100, 0}, {100, 100}, {200, 100}, {200, 0}};
  const auto extend = [&points](std::size_t aCount, bool aClose, const TLine& l, Int64 px, Int64 py) {
    TEdited e;
    TLine& o = e.line;
    e.done = TDraw2D::ExtendLineToPolyline(TZORPtoArr(points).first(aCount), l.x1, l.y1, l.x2, l.y2, px, py,
                                           aClose, o.x1, o.y1, o.x2, o.y2);
    return e;
  };
  EXPECT_EQ(extend(4, false, {10, 50, 20, 50}, 20, 50), (TEdited{true, {10, 50, 100, 50}}));
  EXPECT_EQ(extend(4, false, {110, 50, 120, 50}, 120, 50), (TEdited{true, {110, 50, 200, 50}}));
  EXPECT_EQ(extend(4, false, {150, 50, 150, 40}, 150, 40), (TEdited{false, {150, 50, 150, 40}}));
  EXPECT_EQ(extend(1, true, {10, 50, 20, 50}, 20, 50), (TEdited{false, {10, 50, 20, 50}}));
  // The closing side lies at y = 0, which is outside the drawing: given, but refused.
  EXPECT_EQ(extend(4, true, {150, 50, 150, 40}, 150, 40), (TEdited{false, {150, 50, 150, 0}}));
  EXPECT_EQ(extend(4, false, {10, 50, 100, 50}, 100, 50), (TEdited{true, {10, 50, 200, 50}}));
  // A crossing a fraction of a base point ahead rounds to the end itself.
  const TZORPtoA slanted{{100, 50}, {101, 53}};
  TLine o;
  EXPECT_FALSE(
      TDraw2D::ExtendLineToPolyline(slanted, 10, 51, 100, 51, 100, 51, false, o.x1, o.y1, o.x2, o.y2));
  EXPECT_EQ(o, (TLine{10, 51, 100, 51}));
}

TEST(TDraw2DExtend, ToAnArcTriesTheNearestCrossingOnly) {
  const auto extend = [](const TLine& l, Int64 px, Int64 py) {  // the half circle right of the origin
    TEdited e;
    TLine& o = e.line;
    e.done = TDraw2D::ExtendLineToArc(0, -100, 100, 0, 0, 100, l.x1, l.y1, l.x2, l.y2, px, py, o.x1, o.y1,
                                      o.x2, o.y2);
    return e;
  };
  EXPECT_EQ(extend({10, 0, 20, 0}, 20, 0), (TEdited{true, {10, 0, 100, 0}}));
  EXPECT_EQ(extend({10, 0, 20, 0}, 10, 0), (TEdited{false, {10, 0, 20, 0}}));
  EXPECT_EQ(extend({-300, 0, -200, 0}, -200, 0), (TEdited{false, {-300, 0, -200, 0}}));
  EXPECT_EQ(extend({300, 60, 200, 60}, 200, 60), (TEdited{true, {300, 60, 80, 60}}));
  TLine o;  // the same arc drawn the other way round
  EXPECT_TRUE(TDraw2D::ExtendLineToArc(0, 100, 100, 0, 0, -100, 10, 0, 20, 0, 20, 0, o.x1, o.y1, o.x2, o.y2));
  EXPECT_FALSE(
      TDraw2D::ExtendLineToArc(0, 100, 100, 0, 0, -100, 10, 0, 20, 0, 10, 0, o.x1, o.y1, o.x2, o.y2));
}

TEST(TDraw2DTrim, AtAnArc) {
  const auto trim = [](const TLine& l, Int64 px, Int64 py) {  // the half circle above the origin
    TEdited e;
    TLine& o = e.line;
    e.done = TDraw2D::TrimLineAtArc(-100, 0, 0, -100, 100, 0, l.x1, l.y1, l.x2, l.y2, px, py, o.x1, o.y1,
                                    o.x2, o.y2);
    return e;
  };
  EXPECT_EQ(trim({0, -50, 0, -200}, 0, -190), (TEdited{true, {0, -50, 0, -100}}));
  EXPECT_EQ(trim({0, -50, 0, -200}, 0, -60), (TEdited{true, {0, -100, 0, -200}}));
  EXPECT_EQ(trim({-200, -60, 200, -60}, 150, -60), (TEdited{true, {-200, -60, 80, -60}}));
  EXPECT_EQ(trim({-200, -60, 200, -60}, -150, -60), (TEdited{true, {-80, -60, 200, -60}}));
  EXPECT_EQ(trim({-200, -60, 200, -60}, 0, -60), (TEdited{true, {-80, -60, 200, -60}}));  // a tie
  EXPECT_EQ(trim({-200, 60, 200, 60}, 0, 60), (TEdited{false, {-200, 60, 200, 60}}));     // off the arc
  EXPECT_EQ(trim({0, -50, 0, -90}, 0, -60), (TEdited{false, {0, -50, 0, -90}}));
  EXPECT_EQ(trim({0, 0, 200, 0}, 150, 0), (TEdited{true, {0, 0, 100, 0}}));  // at its end
}

TEST(TDraw2DTrim, AcceptsACrossingAThousandthOfARadianOffTheArc) {
  for (Int64 y : {50, 150}) {  // half a thousandth, and one and a half, beyond either end
    for (Int64 side : {-1, 1}) {
      TLine o;
      EXPECT_EQ(TDraw2D::TrimLineAtArc(-100000, 0, 0, -100000, 100000, 0, side * 200000, y, 0, y,
                                       side * 190000, y, o.x1, o.y1, o.x2, o.y2),
                y == 50)
          << y << ' ' << side;
      EXPECT_EQ(o, (TLine{side * (y == 50 ? 100000 : 200000), y, 0, y}));
    }
  }
}

TEST(TDraw2DJoin, KeepsTheSidesOfThePicks) {
  struct TCase {
    TLine one, two;
    Int64 px1, py1, px2, py2;
    bool done;
    TLine first, second;
  };
  const TLine flat{0, 0, 50, 0}, steep{100, 20, 100, 90}, across{25, -50, 25, 50};
  for (const auto& c : {TCase{flat, steep, 10, 0, 100, 50, true, {0, 0, 100, 0}, {100, 90, 100, 0}},
                        {flat, across, 10, 0, 25, 40, true, {0, 0, 25, 0}, {25, 50, 25, 0}},
                        {flat, across, 40, 0, 25, -40, true, {50, 0, 25, 0}, {25, -50, 25, 0}},
                        {flat, {0, 9, 50, 9}, 1, 0, 1, 9, false, flat, {0, 9, 50, 9}}}) {
    TLine a, b;
    EXPECT_EQ(
        TDraw2D::JoinLines(c.one.x1, c.one.y1, c.one.x2, c.one.y2, c.two.x1, c.two.y1, c.two.x2, c.two.y2,
                           c.px1, c.py1, c.px2, c.py2, a.x1, a.y1, a.x2, a.y2, b.x1, b.y1, b.x2, b.y2),
        c.done);
    EXPECT_EQ(a, c.first);
    EXPECT_EQ(b, c.second);
  }
}

TEST(TDraw2DOffset, Parallels) {
  TLine p{-1, -1, -1, -1};
  EXPECT_FALSE(TDraw2D::DrawParallelLine(0, 0, 30, 40, 0, p.x1, p.y1, p.x2, p.y2));
  EXPECT_FALSE(TDraw2D::DrawParallelLine(5, 5, 5, 5, 9, p.x1, p.y1, p.x2, p.y2));
  EXPECT_EQ(p, (TLine{-1, -1, -1, -1}));
  EXPECT_TRUE(TDraw2D::DrawParallelLine(0, 0, 30, 40, 10, p.x1, p.y1, p.x2, p.y2));
  EXPECT_EQ(p, (TLine{-8, 6, 22, 46}));
  TDraw2D::DrawParalLine(0, 0, 30, 40, 50, 0, 10, p.x1, p.y1, p.x2, p.y2);
  EXPECT_EQ(p, (TLine{8, -6, 38, 34}));
  TDraw2D::DrawParalLine(0, 0, 30, 40, -50, 0, 10, p.x1, p.y1, p.x2, p.y2);
  EXPECT_EQ(p, (TLine{-8, 6, 22, 46}));
  TDraw2D::PosMidParal(0, 0, 31, 40, 10, p.x1, p.y1);  // normal (-7.9, 6.1)
  EXPECT_EQ(p.x1, 7);                                  // 15 / 2
  EXPECT_EQ(p.y1, 26);
  const TZORPtoA square{{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 100}};
  const TZORPtoA out{{0, 10}, {90, 0}, {100, 90}, {0, 100}, {10, 100}};
  EXPECT_EQ(TDraw2D::PoligonParalel(square, 10, false), out);
  EXPECT_EQ(TDraw2D::PoligonParalel(square, -10, true), out);
}

TEST(TDraw2DOffset, Arcs) {
  TLine p;
  Int64 x = 0, y = 0;
  EXPECT_TRUE(TDraw2D::EquidistArc(-100, 0, 0, 100, 100, 0, 0, 10, -20, p.x1, p.y1, p.x2, p.y2, x, y));
  EXPECT_EQ(p, (TLine{-80, 0, 0, 80}));
  EXPECT_EQ(x, 80);
  EXPECT_TRUE(TDraw2D::EquidistArc(-100, 0, 0, 100, 100, 0, 0, 300, 20, p.x1, p.y1, p.x2, p.y2, x, y));
  EXPECT_EQ(p, (TLine{-120, 0, 0, 120}));
  EXPECT_FALSE(TDraw2D::EquidistArc(0, 0, 5, 5, 9, 9, 0, 3, 20, p.x1, p.y1, p.x2, p.y2, x, y));
  EXPECT_EQ(p, (TLine{0, 0, 5, 5}));
  Int64 cx = 0, cy = 0, r = 0;
  double start = 0, end = 0;
  EXPECT_TRUE(TDraw2D::EquidistArc(5, 6, 100, 1.0, 2.0, 30, 500, 0, cx, cy, r, start, end));
  EXPECT_EQ(r, 130);
  EXPECT_TRUE(TDraw2D::EquidistArc(5, 6, 100, 1.0, 2.0, -30, 5, 6, cx, cy, r, start, end));
  EXPECT_EQ(r, 70);
  // Three points of a circle evenly spread about their mean, a third of a turn apart.
  EXPECT_TRUE(TDraw2D::EquidistArc(1000, 0, -500, 866, -500, -866, 100, false, p.x1, p.y1, p.x2, p.y2, x, y));
  EXPECT_EQ(p.x1, 1100);
  EXPECT_EQ(p.y1, 0);
  EXPECT_NEAR(static_cast<double>(x), -550, 1);
  EXPECT_NEAR(static_cast<double>(y), -953, 1);
  EXPECT_TRUE(TDraw2D::EquidistArc(1000, 0, -500, 866, -500, -866, 100, true, p.x1, p.y1, p.x2, p.y2, x, y));
  EXPECT_EQ(p.x1, 900);
  EXPECT_NEAR(static_cast<double>(x), -450, 1);
  EXPECT_NEAR(static_cast<double>(y), 779, 1);  // inwards it runs the other way round
}

TEST(TDraw2DMarks, ArrowHeads) {
  TLine p;
  EXPECT_TRUE(TDraw2D::DrawArrow(0, 0, 100, 0, 20, p.x1, p.y1, p.x2, p.y2, 6.0F));
  EXPECT_EQ(p, (TLine{83, 10, 83, -10}));  // 20 cos 30° = 17.3, 20 sin 30° = 10
  EXPECT_FALSE(TDraw2D::DrawArrow(0, 0, 100, 0, 0, p.x1, p.y1, p.x2, p.y2, 6.0F));
  const TLine heads[] = {{-17, 10, -17, -10}, {10, 17, -10, 17}, {17, -10, 17, 10}, {-10, -17, 10, -17}};
  for (TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    TDraw2D::DrawArrow(0, 0, 20, angle, p.x1, p.y1, p.x2, p.y2, 6.0F);
    EXPECT_EQ(p, heads[angle]) << int{angle};
  }
  // At the right end of a circle an arc with growing angle heads downwards.
  EXPECT_TRUE(TDraw2D::DrawArrowArc(0, 0, 100, 0, 20, p.x1, p.y1, p.x2, p.y2, true, 6.0F));
  EXPECT_EQ(p, (TLine{90, -17, 110, -17}));
  EXPECT_TRUE(TDraw2D::DrawArrowArc(0, 0, 100, 0, 20, p.x1, p.y1, p.x2, p.y2, false, 6.0F));
  EXPECT_EQ(p, (TLine{110, 17, 90, 17}));
  TDraw2D::DrawArrowArc(0, 0, 100000, 5, 200000, p.x1, p.y1, p.x2, p.y2, true, 6.0F);
  EXPECT_EQ(p, (TLine{0, -173200, 200000, -173200}));  // as if from straight right
  TDraw2D::DrawLeft(0, 0, 100, 0, 10, p.x1, p.y1, p.x2, p.y2);
  EXPECT_EQ(p, (TLine{93, -7, 107, 7}));
  TDraw2D::DrawRight(0, 0, 100, 0, 10, p.x1, p.y1, p.x2, p.y2);
  EXPECT_EQ(p, (TLine{93, 7, 107, -7}));
}

TEST(TDraw2DMarks, CurvedLinks) {
  struct TCase {
    std::uint16_t from, to;
    TZORBase one, two;
  };
  const TZORBase p1{0, 0}, p2{101, 51}, kept{-1, -1};
  const TZORBase side1{50, 0}, side2{50, 51}, up1{0, 25}, up2{101, 25};
  for (const auto& c : {TCase{5, 13, side1, side2},
                        {0, 16, side1, side2},
                        {13, 7, side1, side2},
                        {2, 51, side1, side2},
                        {3, 11, up1, up2},
                        {12, 2, up1, up2},
                        {9, 5, up1, up2},
                        {2, 3, kept, kept},
                        {7, 7, kept, kept}}) {
    TZORBase one = kept, two = kept;
    TDraw2D::CurvePoints(p1, p2, c.from, c.to, one, two);
    EXPECT_TRUE(one == c.one && two == c.two) << c.from << " to " << c.to;
  }
}

TEST(TDraw2DMarks, FilledPartsOfCircles) {
  struct TCase {
    Single percent;
    double from, to, move;  // degrees; AngleSegment starts at from or to
  };
  for (const auto& c :
       {TCase{0.75F, -150, -30, 240}, {0.25F, 150, 30, 120}, {1.0F, -90, -90, 360}, {0.0F, 90, 90, 0}}) {
    Single from = 0, to = 0, start = 0, move = 0;
    TDraw2D::ArcSegment(c.percent, false, from, to);
    EXPECT_NEAR(from, c.from * Pi / 180, 1e-3);
    EXPECT_NEAR(to, c.to * Pi / 180, 1e-3);
    TDraw2D::AngleSegment(c.percent, false, true, start, move);
    EXPECT_NEAR(start, c.to - 90, 0.05);
    EXPECT_NEAR(move, c.move, 0.05);
  }
  Single from = 0, to = 0;
  TDraw2D::ArcSegment(0.5F, true, from, to);
  EXPECT_FLOAT_EQ(from, -4.712389F);
  EXPECT_FLOAT_EQ(to, -1.5707964F);
  TDraw2D::AngleSegment(0.5F, false, false, from, to);
  EXPECT_FLOAT_EQ(from, 180);
  EXPECT_FLOAT_EQ(to, -180);
}

TEST(TDraw2DFit, RectanglesAndSlots) {
  EXPECT_EQ(TDraw2D::CenteredRect(2, 1, TZORRect{10, 10, 110, 111}), (TZORRect{10, 35, 110, 85}));
  EXPECT_EQ(TDraw2D::CenteredRect(1, 2, TRectF{0, 0, 10, 3}), (TRectF{4.25F, 0, 5.75F, 3}));
  EXPECT_EQ(TDraw2D::CenteredRect(0, 2, TZORRect{1, 2, 3, 4}), (TZORRect{1, 2, 3, 4}));
  EXPECT_EQ(TDraw2D::CalculateSlotPolygon(0, 0, 10, 0, 4),
            (TSlotPolygon{{{0, 2}, {10, 2}, {10, -2}, {0, -2}}}));
  EXPECT_EQ(TDraw2D::CalculateSlotPolygon(5, 5, 5, 5, 4), (TSlotPolygon{{{3, 3}, {7, 3}, {7, 7}, {3, 7}}}));
}

TEST(TDraw2DTurn, QuartersAndDegrees) {
  const TPointF centre{10, 10};
  EXPECT_EQ(TDraw2D::RotatePoint(TPointF{15, 10}, centre, ag90),
            (TPointF{10, 5}));  // from the right to above
  EXPECT_EQ(TDraw2D::RotatePoint(TPointF{15, 12}, centre, ag180), (TPointF{5, 8}));
  EXPECT_EQ(TDraw2D::RotatePoint(TPointF{15, 10}, centre, ag270), (TPointF{10, 15}));
  EXPECT_EQ(TDraw2D::RotatePoint(TPoint{15, 10}, TPoint{10, 10}, 90.0F), (TPoint{10, 15}));
  TRectF r{10, 10, 14, 12};
  TDraw2D::Rotate(r, centre, ag90);
  EXPECT_EQ(r, (TRectF{10, 6, 12, 10}));
  TPoint points[] = {{9, 1}, {4, 2}, {6, 3}, {0, 0}};
  TDraw2D::OrderPoints(points);
  EXPECT_TRUE(points[0] == (TPoint{4, 2}) && points[1] == (TPoint{6, 3}) && points[2] == (TPoint{9, 1}));
}

}  // namespace
}  // namespace Zor
