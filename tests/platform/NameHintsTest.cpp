#include <gtest/gtest.h>

#include "kaldrix/platform/NameHints.hpp"

namespace Zor {

TEST(NameHints, DistanceCountsEditsWithoutCase) {
  EXPECT_EQ(NameDistance("", ""), 0);
  EXPECT_EQ(NameDistance("", "abc"), 3);
  EXPECT_EQ(NameDistance("Price", "pRICE"), 0);
  EXPECT_EQ(NameDistance("kitten", "sitting"), 3);
  EXPECT_EQ(NameDistance("Größe", "GRÖSSE"), 2);
  EXPECT_EQ(NameDistance("ab", "ba"), 2);
}

TEST(NameHints, TheNearestComeFirst) {
  EXPECT_EQ(NameHint("x", {}), "; there is none");
  EXPECT_EQ(NameHint("x", {"Price"}), "; there is 'Price'");
  EXPECT_EQ(NameHint("pric", {"Name", "Price"}), "; there are 'Price', 'Name'");
  EXPECT_EQ(NameHint("c", {"aaa", "bbb", "ccc", "c1", "ddd", "C", "eee"}),
            "; the nearest of 7 are 'C', 'c1', 'ccc', 'aaa', 'bbb'");
}

}  // namespace Zor
