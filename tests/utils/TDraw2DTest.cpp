#include <cmath>
#include <limits>
#include <random>

#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor {
namespace {

constexpr double Pi = TDraw2D::Pi;
constexpr Int64 Far = Int64{1} << 61;
constexpr int Rounds = 2000;

/// Coordinates of a drawing of two metres.
class TRandom {
 public:
  Int64 Coordinate() { return std::uniform_int_distribution<Int64>(-1000000, 1000000)(fEngine); }
  Int64 Within(Int64 aLow, Int64 aHigh) { return std::uniform_int_distribution<Int64>(aLow, aHigh)(fEngine); }

 private:
  std::mt19937_64 fEngine{20240611};
};

double Apart(Int64 x1, Int64 y1, Int64 x2, Int64 y2) { return TDraw2D::Magnitude(x2 - x1, y2 - y1); }

/// Four results of an edit operation.
struct TLine {
  Int64 x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const TLine&) const = default;
};
void PrintTo(const TLine& l, std::ostream* os) { *os << l.x1 << ',' << l.y1 << " - " << l.x2 << ',' << l.y2; }

// --- Scalars and angles ------------------------------------------------------------------------------------

TEST(TDraw2D, ScalarsOfLines) {
  EXPECT_EQ(TDraw2D::Int64Sqrt(99), 9);
  EXPECT_EQ(TDraw2D::Int64Sqrt(-4), 0);
  EXPECT_EQ(TDraw2D::DotProduct(3, 4, 5, -6), -9);
  EXPECT_EQ(TDraw2D::CrossProduct(0, 0, 2, 0, 2, 3), 6.0);
  EXPECT_EQ(TDraw2D::VectorPerpendicular(Int64{1}, Int64{2}, Int64{4}, Int64{9}), (TZORPto64{-7, 3}));
  EXPECT_EQ(TDraw2D::PointSide(0, 0, 10, 0, 5, 3), 30);
  EXPECT_EQ(TDraw2D::PointSide(0, 0, 10, 0, 5, -3), -30);
  EXPECT_EQ(TDraw2D::DistancePointToLine(0, 10, 0, 0, 1, 1), 10);  // 10 / trunc(1.41)
  EXPECT_EQ(TDraw2D::DistancePointToLine(7, 7, 3, 3, 3, 3), 0);
  EXPECT_NEAR(TDraw2D::AnglePointToLine(0, 5, 0, 0, 9, 0), 90, 1e-9);
  EXPECT_NEAR(TDraw2D::AnglePointToLine(-3, 0, 0, 0, 9, 0), 180, 1e-9);
}

TEST(TDraw2D, Angles) {
  EXPECT_EQ(TDraw2D::NormalizeAngle(2 * Pi), 2 * Pi);
  EXPECT_DOUBLE_EQ(TDraw2D::NormalizeAngle(-Pi / 2), 3 * Pi / 2);
  EXPECT_NEAR(TDraw2D::NormalizeAngle(7 * Pi), Pi, 1e-12);
  EXPECT_NEAR(TDraw2D::AngleDiff(0.1, 2 * Pi - 0.1), 0.2, 1e-12);
  EXPECT_NEAR(TDraw2D::SweepCCW(3, 1), 2 * Pi - 2, 1e-12);
  EXPECT_NEAR(TDraw2D::ArcSweep(6, 1, true), 2 * Pi - 5, 1e-12);
  EXPECT_NEAR(TDraw2D::ArcSweep(6, 1, false), 5, 1e-12);
  EXPECT_NEAR(TDraw2D::ArcParam(6, 0, true, 1), 2 * Pi - 5, 1e-12);
  EXPECT_NEAR(TDraw2D::ArcParam(-1, 0, false, -2), 1, 1e-12);
  EXPECT_TRUE(std::isnan(TDraw2D::NormalizeAngle(std::numeric_limits<double>::infinity())));
}

TEST(TDraw2D, AnglesWithinArcs) {
  struct TCase {
    double start, end, angle;
    bool clockWise, counter, growing;
  };
  for (const auto& c : {TCase{1, 3, 2, true, false, true},
                        {1, 3, 4, false, true, false},
                        {1, 3, 3, true, true, true},
                        {3, 1, 2, false, true, false},
                        {3, 1, 0.5, true, false, true}}) {
    EXPECT_EQ(TDraw2D::ArcContainsAngle(c.start, c.end, c.angle, true), c.clockWise) << c.start << c.angle;
    EXPECT_EQ(TDraw2D::ArcContainsAngle(c.start, c.end, c.angle, false), c.counter) << c.start << c.angle;
    EXPECT_EQ(TDraw2D::IsAngleWithinArc(c.angle + 4 * Pi, c.start, c.end - 2 * Pi), c.growing)
        << c.start << c.angle;
  }
}

// --- Circles and arcs --------------------------------------------------------------------------------------

struct TArc {
  Int64 cx = 0, cy = 0, r = 0;
  double start = 0, end = 0, sweep = 0;
  bool clockWise = false, found = false;
};

TArc ArcOf(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) {
  TArc a;
  a.found =
      TDraw2D::ArcThreePoints(x1, y1, x2, y2, x3, y3, a.cx, a.cy, a.r, a.start, a.end, a.sweep, a.clockWise);
  return a;
}

TEST(TDraw2D, ArcOverTheMiddlePoint) {
  const TArc below = ArcOf(0, 0, 1000, 1000, 2000, 0);
  EXPECT_TRUE(below.found && !below.clockWise);
  EXPECT_EQ(below.cx, 1000);
  EXPECT_EQ(below.cy, 0);
  EXPECT_EQ(below.r, 1000);
  EXPECT_DOUBLE_EQ(below.start, Pi);
  EXPECT_EQ(below.end, 0);
  EXPECT_DOUBLE_EQ(below.sweep, -Pi);
  const TArc above = ArcOf(0, 0, 1000, -1000, 2000, 0);
  EXPECT_TRUE(above.clockWise);
  EXPECT_DOUBLE_EQ(above.sweep, Pi);
  EXPECT_FALSE(ArcOf(0, 0, 5, 5, 9, 9).found);
  EXPECT_FALSE(ArcOf(1, 1, 1, 1, 9, 9).found);
}

TEST(TDraw2D, ArcsRunFromTheFirstPointOverTheSecondToTheThird) {
  TRandom random;
  for (int i = 0; i < Rounds; ++i) {
    const Int64 x1 = random.Coordinate(), y1 = random.Coordinate(), x2 = random.Coordinate();
    const Int64 y2 = random.Coordinate(), x3 = random.Coordinate(), y3 = random.Coordinate();
    const TArc arc = ArcOf(x1, y1, x2, y2, x3, y3);
    if (!arc.found || arc.r > 100000000) continue;
    EXPECT_NEAR(Apart(arc.cx, arc.cy, x1, y1), static_cast<double>(arc.r), 2);
    EXPECT_NEAR(Apart(arc.cx, arc.cy, x2, y2), static_cast<double>(arc.r), 2);
    EXPECT_NEAR(Apart(arc.cx, arc.cy, x3, y3), static_cast<double>(arc.r), 2);
    EXPECT_NEAR(std::remainder(arc.start + arc.sweep - arc.end, 2 * Pi), 0, 1e-9);
    EXPECT_EQ(arc.sweep > 0, arc.clockWise);
    const double middle = std::atan2(static_cast<double>(y2 - arc.cy), static_cast<double>(x2 - arc.cx));
    EXPECT_TRUE(
        TDraw2D::ArcContainsAngle(arc.start, arc.end, TDraw2D::NormalizeAngle(middle), arc.clockWise));
  }
}

TEST(TDraw2D, CirclesThroughPoints) {
  Int64 cx = 0, cy = 0, r = 0;
  EXPECT_TRUE(TDraw2D::CircleTwoPoints(0, 0, 5, 0, cx, cy, r));
  EXPECT_EQ((TLine{cx, cy, r, 0}), (TLine{2, 0, 2, 0}));  // all three from 2.5
  EXPECT_TRUE(TDraw2D::CircleThreePoints(10, 5, 5, 10, 0, 5, cx, cy, r));
  EXPECT_EQ((TLine{cx, cy, r, 0}), (TLine{5, 5, 5, 0}));
  Single fx = 0, fy = 0, fr = 0;
  EXPECT_TRUE(TDraw2D::CircleTwoPoints(0, 0, 5, 0, fx, fy, fr));
  EXPECT_EQ(fx, 2.5F);
  EXPECT_EQ(fr, 2.0F);
}

// --- Hits --------------------------------------------------------------------------------------------------

TEST(TDraw2D, PointsNearSegments) {
  EXPECT_TRUE(TDraw2D::PointInLine(0, 0, 9, 3, 3, 1, 0));
  EXPECT_FALSE(TDraw2D::PointInLine(0, 0, 9, 3, 3, 2, 0));
  EXPECT_FALSE(TDraw2D::PointInLine(0, 0, 9, 3, 12, 4, 3));
  EXPECT_TRUE(TDraw2D::PointInLine(0, 0, 9, 0, 12, 4, 5));
  EXPECT_FALSE(TDraw2D::PointInLine(0, 0, 9, 0, -4, -4, 5));
  EXPECT_TRUE(TDraw2D::PointInLine(5, 5, 5, 5, 8, 9, 5));
  EXPECT_FALSE(TDraw2D::PointInLine(5, 5, 5, 5, 5, 5, -1));
  EXPECT_TRUE(TDraw2D::PointOnSegment(5, 2, 0, 0, 10, 0, 2));
  EXPECT_FALSE(TDraw2D::PointOnSegment(13, 0, 0, 0, 10, 0, 2));
  EXPECT_FALSE(TDraw2D::PointOnSegment(10, 7, 0, 0, 10, 10, 2));  // 2.12 off the line
  EXPECT_TRUE(TDraw2D::PointOnSegment(3, 3, 2, 2, 2, 2, 1));
  EXPECT_FALSE(TDraw2D::PointOnSegment(4, 3, 2, 2, 2, 2, 1));
}

TEST(TDraw2D, PointsOnCirclesEllipsesAndArcs) {
  EXPECT_TRUE(TDraw2D::PointInCircle(0, 0, 4, 3, 4, 1));
  EXPECT_FALSE(TDraw2D::PointInCircle(0, 0, 4, 3, 4, 0));
  EXPECT_TRUE(TDraw2D::PointOnCircle(0, 0, 6, 3, 4, 1));
  EXPECT_FALSE(TDraw2D::PointOnCircle(0, 0, 7, 3, 4, 1));
  EXPECT_TRUE(TDraw2D::PointInEllipse(0, 0, 10, 5, 6, 4));
  EXPECT_FALSE(TDraw2D::PointInEllipse(0, 0, 10, 5, 6, 5));
  EXPECT_FALSE(TDraw2D::PointInEllipse(0, 0, 0, 5, 0, 0));
  EXPECT_TRUE(TDraw2D::PointOnEllipse(0, 0, 10, 5, 11, 0, 2));
  EXPECT_FALSE(TDraw2D::PointOnEllipse(0, 0, 10, 5, 9, 0, 2));  // on the inner one
  EXPECT_TRUE(TDraw2D::PointOnEllipse(0, 0, 10, 5, 1, 1, 20));
  // A quarter from straight down to straight right, and one that passes 0.
  EXPECT_TRUE(TDraw2D::PointInArc(0, 0, 100, 70, 71, 1, Pi / 2, -Pi / 2));
  EXPECT_FALSE(TDraw2D::PointInArc(0, 0, 100, 70, -71, 1, Pi / 2, -Pi / 2));
  EXPECT_TRUE(TDraw2D::PointInArc(0, 0, 100, 70, -71, 1, Pi / 2, -Pi));
  EXPECT_TRUE(TDraw2D::PointInArc(0, 0, 100, 70, -71, 1, 3 * Pi / 2, Pi));
  EXPECT_FALSE(TDraw2D::PointInArc(0, 0, 100, -70, 71, 1, 3 * Pi / 2, Pi));
}

TEST(TDraw2D, PointsNearCursorsAndCurves) {
  EXPECT_FALSE(TDraw2D::PointInBezier(0, 0, 0, 100, 100, 100, 100, 0, 50, 75, 0));
  EXPECT_TRUE(TDraw2D::PointInBezier(0, 0, 0, 100, 100, 100, 100, 0, 50, 75, 1));
  EXPECT_FALSE(TDraw2D::PointInBezier(0, 0, 0, 100, 100, 100, 100, 0, 50, 80, 5));
  EXPECT_TRUE(TDraw2D::CursorOnPos(0, 0, 4, -4, 5));
  EXPECT_FALSE(TDraw2D::CursorOnPos(0, 0, 5, 0, 5));
  EXPECT_TRUE(TDraw2D::CursorOnPosS(0, 0, 5, 4.9F, -4.9F));
  EXPECT_TRUE(TDraw2D::PosPoint(0, 5, 9, 5, 3, 4) && TDraw2D::PosPoint(5, 0, 5, 9, 6, 0));
  EXPECT_TRUE(TDraw2D::PosPoint(0, 0, 10, 10, 5, 4));
  EXPECT_FALSE(TDraw2D::PosPoint(0, 0, 10, 10, 5, 5));
}

TEST(TDraw2D, RectanglesMeetLines) {
  TRandom random;
  int met = 0;
  for (int i = 0; i < 20 * Rounds; ++i) {  // on a coarse grid, so that corners and edges are touched often
    const auto at = [&random] { return random.Within(0, 9); };
    const Int64 x1 = at(), y1 = at(), x2 = at(), y2 = at();
    const TZORRect r{3, 2, 7, 6};
    const auto inside = [](Int64 x, Int64 y) { return x >= 3 && x <= 7 && y >= 2 && y <= 6; };
    TLine p;
    const bool crosses = TDraw2D::LineCrossRect(x1, y1, x2, y2, 7, 2, 3, 6, p.x1, p.y1, p.x2, p.y2) > 0;
    const bool expected = inside(x1, y1) || inside(x2, y2) || crosses;
    EXPECT_EQ(TDraw2D::RectangleIntersectLine(x1, y1, x2, y2, r), expected)
        << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2;
    met += crosses ? 1 : 0;
  }
  EXPECT_GT(met, Rounds);
}

TEST(TDraw2D, RectanglesMeetArcsAndEllipses) {
  const TZORRect right{90, -10, 110, 10};
  EXPECT_TRUE(TDraw2D::ArcIntersectsRect(0, 0, 100, 3 * Pi / 2, Pi / 2, right));   // through 0
  EXPECT_FALSE(TDraw2D::ArcIntersectsRect(0, 0, 100, Pi / 2, 3 * Pi / 2, right));  // the other half
  EXPECT_TRUE(TDraw2D::ArcIntersectsRect(0, 0, 100, 0, 0, {110, 10, 90, -10}));    // an end inside
  EXPECT_FALSE(TDraw2D::ArcIntersectsRect(0, 0, 100, 0, 2 * Pi, {-10, -10, 10, 10}));
  EXPECT_TRUE(TDraw2D::EllipseIntersectsRect(0, 0, 100, 50, {-1, -1, 1, 1}));
  EXPECT_TRUE(TDraw2D::EllipseIntersectsRect(0, 0, 100, 50, {60, 40, 90, 90}));
  EXPECT_FALSE(TDraw2D::EllipseIntersectsRect(0, 0, 100, 50, {61, 40, 90, 90}));
  EXPECT_TRUE(TDraw2D::EllipseIntersectsRect(5, 5, 0, 0, {5, 5, 9, 9}));
  EXPECT_TRUE(TDraw2D::EllipseIntersectsRect(5, 0, 0, 10, {0, 10, 9, 20}));
  EXPECT_FALSE(TDraw2D::EllipseIntersectsRect(5, 0, -1, 10, {0, 0, 9, 20}));
}

// --- Crossings ---------------------------------------------------------------------------------------------

TEST(TDraw2D, LinesCross) {
  struct TCase {
    TLine a, b;
    bool infinite, segments, open;
    Int64 x, y;
  };
  for (const auto& c : {TCase{{0, 0, 10, 10}, {0, 10, 10, 0}, true, true, true, 5, 5},
                        {{0, 0, 10, 10}, {10, 10, 20, 0}, true, true, false, 10, 10},
                        {{0, 0, 4, 4}, {0, 10, 10, 0}, true, false, false, 5, 5},
                        {{0, 0, 1, 1}, {0, 1, 1, 0}, true, true, false, 0, 0},  // a half goes to even
                        {{3, 3, 6, 6}, {3, 6, 6, 3}, true, true, true, 4, 4},   // 4.5
                        {{5, 5, 8, 8}, {5, 8, 8, 5}, true, true, true, 6, 6},   // 6.5
                        {{0, 0, 10, 10}, {5, 0, 15, 10}, false, false, false, -7, -7},
                        {{2, 2, 2, 2}, {0, 10, 10, 0}, false, false, false, -7, -7},
                        {{-Far, -Far, Far, Far}, {-Far, Far, Far, -Far}, true, true, true, 0, 0}}) {
    for (int mode = 0; mode < 3; ++mode) {
      Int64 x = -7, y = -7;
      const bool expected = mode == 0 ? c.infinite : mode == 1 ? c.segments : c.open;
      EXPECT_EQ(TDraw2D::IntersectLines(c.a.x1, c.a.y1, c.a.x2, c.a.y2, c.b.x1, c.b.y1, c.b.x2, c.b.y2,
                                        mode > 0, mode == 1, x, y),
                expected)
          << mode;
      EXPECT_EQ(x, c.x);
      EXPECT_EQ(y, c.y);
    }
  }
}

TEST(TDraw2D, FootOfAPerpendicular) {
  struct TCase {
    TLine line;
    Int64 px, py;
    bool cross, found;
    Int64 x, y;
  };
  for (const auto& c : {TCase{{0, 0, 10, 10}, 0, 10, true, true, 5, 5},
                        {{0, 0, 10, 10}, 30, 10, false, true, 20, 20},
                        {{0, 0, 10, 10}, 30, 10, true, false, 20, 20},
                        {{0, 3, 10, 3}, 4, 9, true, true, 4, 3},
                        {{0, 3, 10, 3}, 4, 3, false, false, 4, 3},
                        {{0, 3, 10, 3}, 11, 9, true, false, 11, 3},
                        {{2, 0, 2, 9}, 7, 5, true, true, 2, 5},
                        {{2, 0, 2, 9}, 2, 5, true, false, 2, 5}}) {
    int x = 0, y = 0;
    EXPECT_EQ(
        TDraw2D::LinePerpenFromPoint(c.line.x1, c.line.y1, c.line.x2, c.line.y2, c.px, c.py, c.cross, x, y),
        c.found);
    EXPECT_EQ(x, c.x);
    EXPECT_EQ(y, c.y);
  }
}

TEST(TDraw2D, LineCrossesCircleOnceTwiceOrNearlyOnce) {
  struct TCase {
    TLine line;
    Int64 r;
    std::int16_t count;
    TLine points;
  };
  const TLine untouched{-9, -9, -9, -9};
  for (const auto& c : {TCase{{-10, 0, 10, 0}, 1000, 2, {1000, 0, -1000, 0}},
                        {{0, 1000, 10, 1000}, 1000, 1, {0, 1000, 0, 1000}},
                        {{-50, 1003, 50, 1003}, 1000, 1, {0, 1003, 0, 1003}},
                        {{-50, 1010, 50, 1010}, 1000, 0, untouched},
                        {{-50, 1, 50, 1}, 0, 0, untouched},
                        {{5, 5, 5, 5}, 1000, 0, untouched},
                        // A tangent in a direction of 3:4, whose squares leave 2^53.
                        {{500000 * 3 - 400000, 500000 * 4 + 300000, 500000 * 3 + 800000, 500000 * 4 - 600000},
                         2500000,
                         1,
                         {1500000, 2000000, 1500000, 2000000}}}) {
    TLine p = untouched;
    EXPECT_EQ(TDraw2D::LineCrossCircle(c.line.x1, c.line.y1, c.line.x2, c.line.y2, 0, 0, c.r, p.x1, p.y1,
                                       p.x2, p.y2),
              c.count);
    EXPECT_EQ(p, c.points);
  }
}

TEST(TDraw2D, CrossingsLieOnBoth) {
  TRandom random;
  int crossed = 0;
  for (int i = 0; i < Rounds; ++i) {
    const Int64 x1 = random.Coordinate(), y1 = random.Coordinate(), x2 = random.Coordinate();
    const Int64 y2 = random.Coordinate(), cx = random.Coordinate(), cy = random.Coordinate();
    const Int64 r = random.Within(1000, 1000000);
    TLine p;
    if (TDraw2D::LineCrossCircle(x1, y1, x2, y2, cx, cy, r, p.x1, p.y1, p.x2, p.y2) == 2) {
      ++crossed;
      for (const TZORPto64& q : {TZORPto64{p.x1, p.y1}, TZORPto64{p.x2, p.y2}}) {
        EXPECT_NEAR(Apart(q.X, q.Y, cx, cy), static_cast<double>(r), 1);
        EXPECT_LE(TDraw2D::DistancePointToLine(q.X, q.Y, x1, y1, x2, y2), 1);
      }
    }
    if (TDraw2D::LineCrossEllipse(x1, y1, x2, y2, cx, cy, r, 2 * r, p.x1, p.y1, p.x2, p.y2) == 2) {
      const double ex = static_cast<double>(p.x1 - cx), ey = static_cast<double>(p.y1 - cy) / 2;
      EXPECT_NEAR(std::hypot(ex, ey), static_cast<double>(r), 1);
    }
    const Int64 r2 = random.Within(1000, 1000000);
    if (TDraw2D::CircleCrossCircle(cx, cy, r, x1, y1, r2, p.x1, p.y1, p.x2, p.y2) == 2) {
      EXPECT_NEAR(Apart(p.x1, p.y1, cx, cy), static_cast<double>(r), 1.5);
      EXPECT_NEAR(Apart(p.x2, p.y2, x1, y1), static_cast<double>(r2), 1.5);
    }
  }
  EXPECT_GT(crossed, Rounds / 4);
}

TEST(TDraw2D, LineCrossesRectangleAtEachCornerOnce) {
  struct TCase {
    TLine line;
    std::int16_t count;
    TLine points;
  };
  for (const auto& c : {TCase{{-3, 5, 20, 5}, 2, {0, 5, 9, 5}},
                        {{-3, 9, 3, -9}, 1, {0, 0, 0, 0}},
                        {{-6, -6, 18, 18}, 2, {0, 0, 9, 9}},
                        {{4, 4, 4, 30}, 1, {4, 9, 4, 9}},
                        {{4, 4, 6, 6}, 0, {}},
                        {{-5, -3, 27, 17}, 2, {0, 0, 9, 6}}}) {
    TLine p;
    EXPECT_EQ(TDraw2D::LineCrossRect(c.line.x1, c.line.y1, c.line.x2, c.line.y2, 9, 9, 0, 0, p.x1, p.y1, p.x2,
                                     p.y2),
              c.count)
        << testing::PrintToString(c.line);
    EXPECT_EQ(p, c.points);
  }
}

TEST(TDraw2D, CirclesTouchWithinATolerance) {
  struct TCase {
    Int64 x2, r2;
    std::int16_t narrow, wide;
  };
  for (const auto& c : {TCase{2000, 1000, 1, 1},
                        {2001, 1000, 1, 1},
                        {2002, 1000, 0, 1},
                        {2006, 1000, 0, 0},
                        {1000, 1000, 2, 2},
                        {0, 1000, 0, 0},
                        {500, 499, 1, 1},
                        {500, 494, 0, 0},
                        {500, 496, 0, 1}}) {
    TLine p;
    EXPECT_EQ(TDraw2D::CircleCrossCircle(0, 0, 1000, c.x2, 0, c.r2, p.x1, p.y1, p.x2, p.y2), c.narrow)
        << c.x2;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    EXPECT_EQ(TDraw2D::CircleCircleIntersections(0, 0, 1000, static_cast<double>(c.x2), 0,
                                                 static_cast<double>(c.r2), x1, y1, x2, y2),
              c.wide)
        << c.x2;
  }
  // Half chords of just below and just above 5.
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  EXPECT_EQ(TDraw2D::CircleCircleIntersections(0, 0, 1000, 1999.976, 0, 1000, x1, y1, x2, y2), 1);
  EXPECT_EQ(TDraw2D::CircleCircleIntersections(0, 0, 1000, 1999.97, 0, 1000, x1, y1, x2, y2), 2);
  EXPECT_NEAR(x1, 999.985, 1e-9);
  EXPECT_NEAR(y1, -y2, 1e-12);
}

// --- Range -------------------------------------------------------------------------------------------------

TEST(TDraw2D, CoordinatesAtTheLimitsAreSafe) {
  EXPECT_EQ(TDraw2D::DotProduct(Far, Far, Far, Far), INT64_MAX);
  EXPECT_EQ(TDraw2D::PointSide(-Far, 0, Far, 0, 0, -Far), INT64_MIN);
  EXPECT_EQ(TDraw2D::DistancePointToLine(0, Far, -Far, 0, Far, 0), Far);
  EXPECT_TRUE(TDraw2D::PointInLine(-Far, -Far, Far, Far, 7, 7, 0));
  EXPECT_FALSE(TDraw2D::PointInLine(-Far, -Far, Far, Far, 7, 8, 0));
  const TArc arc = ArcOf(-Far, 0, 0, Far, Far, 0);
  EXPECT_TRUE(arc.found && arc.cx == 0 && arc.cy == 0 && arc.r == Far);

  const Int64 ends[] = {INT64_MIN, -Far, -1, 0, 1, Far, INT64_MAX};
  TRandom random;
  const auto end = [&] { return ends[random.Within(0, 6)]; };
  for (int i = 0; i < Rounds; ++i) {
    const Int64 a = end(), b = end(), c = end(), d = end(), e = end(), f = end(), g = end(), h = end();
    const Int64 k = end(), l = end(), m = end(), n = end();
    TLine p, q;
    TDraw2D::IntersectLines(a, b, c, d, e, f, g, h, true, true, p.x1, p.y1);
    TDraw2D::LinePerpenFromPoint(a, b, c, d, e, f, true, p.x1, p.y1);
    EXPECT_LE(TDraw2D::LineCrossCircle(a, b, c, d, e, f, g, p.x1, p.y1, p.x2, p.y2), 2);
    EXPECT_LE(TDraw2D::LineCrossEllipse(a, b, c, d, e, f, g, h, p.x1, p.y1, p.x2, p.y2), 2);
    EXPECT_LE(TDraw2D::LineCrossRect(a, b, c, d, e, f, g, h, p.x1, p.y1, p.x2, p.y2), 2);
    EXPECT_LE(TDraw2D::CircleCrossCircle(a, b, c, d, e, f, p.x1, p.y1, p.x2, p.y2), 2);
    EXPECT_GE(TDraw2D::Distance(a, b, c, d), 0);
    EXPECT_GE(TDraw2D::DistancePointToLine(a, b, c, d, e, f), 0);
    TDraw2D::ExtendLines(a, b, c, d, e, f, g, h, k, l, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::ExtendLineToCircle(a, b, c, d, e, f, g, h, k, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::ExtendLineToEllipse(a, b, c, d, e, f, g, h, k, l, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::ExtendLineToRectangle(a, b, c, d, e, f, g, h, k, l, p.x1, p.y1, p.x2, p.y2);
    const TZORPto points[] = {{a, b}, {c, d}, {e, f}};
    TDraw2D::ExtendLineToPolyline(points, g, h, k, l, m, n, true, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::ExtendLineToArc(a, b, c, d, e, f, g, h, k, l, m, n, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::TrimLineAtArc(a, b, c, d, e, f, g, h, k, l, m, n, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::JoinLines(a, b, c, d, e, f, g, h, k, l, m, n, p.x1, p.y1, p.x2, p.y2, q.x1, q.y1, q.x2, q.y2);
    TDraw2D::DrawParalLine(a, b, c, d, e, f, g, p.x1, p.y1, p.x2, p.y2);
    TDraw2D::PosMidParal(a, b, c, d, e, p.x1, p.y1);
    TDraw2D::EquidistArc(a, b, c, d, e, f, g, h, k, p.x1, p.y1, p.x2, p.y2, q.x1, q.y1);
    TDraw2D::EquidistArc(a, b, c, d, e, f, g, true, p.x1, p.y1, p.x2, p.y2, q.x1, q.y1);
    TDraw2D::DrawArrow(a, b, c, d, e, p.x1, p.y1, p.x2, p.y2, 0.0F);
    EXPECT_EQ(TDraw2D::PoligonParalel(points, g, false).size(), 3U);
    TDraw2D::ArcIntersectsRect(a, b, c, 0, 1, {d, e, f, g});
    TDraw2D::EllipseIntersectsRect(a, b, c, d, {e, f, g, h});
    TDraw2D::PointInBezier(a, b, c, d, e, f, g, h, k, l, m);
    TDraw2D::PointOnEllipse(a, b, c, d, e, f, g);
    TDraw2D::PointOnSegment(a, b, c, d, e, f, 1e30);
    TDraw2D::CenteredRect(3.0F, 4.0F, TZORRect{a, b, c, d});
  }
}

}  // namespace
}  // namespace Zor
