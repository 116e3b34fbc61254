#include <chrono>
#include <limits>
#include <thread>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/TMouseFilter.hpp"
#include "kaldrix/utils/Values.hpp"

namespace Zor {
namespace {

TEST(AdjustGrid, ToTheNearestMultiple) {
  struct TCase {
    Int64 value, grid, nearest, up, down;
  };
  for (const auto& c : {TCase{1500, 1000, 1000, 2000, 1000},
                        {1501, 1000, 2000, 2000, 1000},
                        {2000, 1000, 2000, 3000, 1000},
                        {2500, 1000, 2000, 3000, 2000},
                        {500, 1000, 0, 1000, 0},
                        {0, 1000, 0, 1000, 0},
                        {-1600, 1000, -1000, 0, 0},
                        {5, 3, 6, 6, 3},
                        {4, 3, 3, 6, 3},
                        {77, 0, 77, 77, 77},
                        {INT64_MAX, 2, INT64_MAX - 1, INT64_MAX, INT64_MAX - 1}}) {
    EXPECT_EQ(AdjustGrid(c.value, c.grid), c.nearest) << c.value;
    EXPECT_EQ(AdjustGrid(c.value, c.grid, true), c.up) << c.value;
    EXPECT_EQ(AdjustGrid(c.value, c.grid, false), c.down) << c.value;
  }
}

TEST(Distance, IsExactAlongAnAxisAndRoundedElsewhere) {
  constexpr Int64 far = Int64{1} << 61;
  struct TCase {
    Int64 x1, y1, x2, y2, distance;
  };
  for (const auto& c : {TCase{0, 0, 3, 0, 3},
                        {5, 5, 5, 2, 3},
                        {7, 7, 7, 7, 0},
                        {0, 0, 3, 4, 5},
                        {0, 0, 1, 1, 1},
                        {0, 0, 1, 2, 2},
                        {-far, 1, far, 1, 2 * far},
                        {0, 0, 3 << 20, 4 << 20, 5 << 20}}) {
    EXPECT_EQ(Distance(c.x1, c.y1, c.x2, c.y2), c.distance);
  }
  // 3-4-5 beyond what a 64-bit sum of squares holds.
  EXPECT_EQ(Distance(Int64{0}, Int64{0}, 3 * (far / 4), far), 5 * (far / 4));
  EXPECT_EQ(Distance(0.5F, 1.0F, 0.5F, 3.25F), 2.25F);
  EXPECT_EQ(Distance(0.0F, 0.0F, 1.2F, 1.2F), 2.0F);
}

TEST(Values, RangesAndResolutions) {
  EXPECT_TRUE(ValInRange(5, 9, 5) && ValInRange(9, 5, 9) && ValInRange(3, 3, 3));
  EXPECT_FALSE(ValInRange(4, 9, 5) || ValInRange(4, 3, 3));
  EXPECT_TRUE(SamePoint(1.0F, 1.00005F));
  EXPECT_FALSE(SamePoint(1.0F, 1.0002F));
  EXPECT_EQ(ScalePos(10, 144), 15);
  EXPECT_EQ(ScalePos(7, 96), 7);
  EXPECT_EQ(ScalePos(0.5F, 192), 1.0F);
  EXPECT_EQ(RevScalePos(15, 144), 10);
  EXPECT_EQ(DegAngle(ag270), -270.0F);
  EXPECT_EQ(PrintAngle(ag90), -1.5707964F);
  TKDXBaseDraw drw;
  drw.fDpix = 300;
  drw.fDpiy = 600;
  drw.fDrawScale = 2;
  EXPECT_EQ(DrawFromBaseX(25400, drw), 150.0F);
  EXPECT_EQ(PrintFromBaseY(127, drw), 2);  // 1.5
  EXPECT_EQ(BasePtoY(0.01F, drw), 1.0F);
}

TEST(Values, MedianSortsWhatItIsGiven) {
  std::vector<double> odd{3, 1, 2};
  EXPECT_EQ(Median(odd), 2);
  EXPECT_EQ(odd, (std::vector<double>{1, 2, 3}));
  std::vector<double> even{4, 1, 3, 2};
  EXPECT_EQ(Median(even), 2.5);
  std::vector<double> none;
  EXPECT_EQ(Median(none), 0);
  std::vector<double> odds(100, std::numeric_limits<double>::quiet_NaN());
  odds[50] = 1;
  Median(odds);
  EXPECT_EQ(odds[0], 1);
}

TEST(Values, StrToCardinalRefusesWhatIsNone) {
  EXPECT_EQ(StrToCardinal("4294967295"), 0xFFFFFFFFU);
  EXPECT_EQ(StrToCardinal(" 42 "), 42U);
  for (const char* text : {"4294967296", "", "  ", "-1", "+1", "1 2", "0x10", "99999999999999999999"}) {
    EXPECT_THROW(StrToCardinal(text), EConvertError) << text;
  }
}

TEST(TMouseFilter, DropsWhatIsBothNearAndSoon) {
  TMouseFilter filter;
  EXPECT_TRUE(filter.FilterMouseMove(nullptr, {}, 10, 10) && filter.FilterMouseMove(nullptr, {}, 10, 10));
  filter.SetEnabled(true);
  bool dropped = false;
  for (int i = 0; i < 20 && !dropped; ++i) {  // a busy machine may pause for longer than the filter waits
    filter.ResetPos();
    EXPECT_TRUE(filter.FilterMouseMove(nullptr, {}, 10, 10));
    dropped = !filter.FilterMouseMove(nullptr, {}, 13, 13);
  }
  EXPECT_TRUE(dropped);
  EXPECT_TRUE(filter.FilterMouseMove(nullptr, {}, 13, 14));  // a distance of 5
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  EXPECT_TRUE(filter.FilterMouseMove(nullptr, {}, 13, 14));
}

}  // namespace
}  // namespace Zor
