#include <gtest/gtest.h>

#include <random>
#include <unordered_map>

#include "kaldrix/core/TFlatTable.hpp"

namespace Zor {
namespace {

/// Keys as drawings have them, and such as a file could make up.
struct TKeys {
  const char* name;
  int first, step;
};
constexpr TKeys KeyCases[]{
    {"in turn", 1, 1}, {"far apart", 0, 1 << 16}, {"by eights", 3, 8}, {"negative", -20000, 7}};

TEST(TFlatTable, AgreesWithAMapThroughGrowthAndRemoval) {
  for (const TKeys& keys : KeyCases) {
    SCOPED_TRACE(keys.name);
    TFlatTable<int, int> table;
    std::unordered_map<int, int> map;
    std::mt19937 random(7);
    for (int round = 1; round <= 20000; ++round) {
      const int key = keys.first + keys.step * static_cast<int>(random() % 3000);
      if (random() % 3 == 0) {
        table.Remove(key);
        map.erase(key);
      } else {
        table.Put(key, round);
        map[key] = round;
      }
    }
    for (int i = 0; i < 3000; ++i) {
      const int key = keys.first + keys.step * i;
      const auto found = map.find(key);
      ASSERT_EQ(table.Find(key), found == map.end() ? 0 : found->second) << key;
    }
    table.Clear();
    EXPECT_EQ(table.Find(keys.first), 0);
  }
}

}  // namespace
}  // namespace Zor
