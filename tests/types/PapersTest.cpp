#include "kaldrix/types/ItemFacts.hpp"
#include "kaldrix/types/Papers.hpp"

namespace Zor {
namespace {

TEST(Papers, AreFoundByNameInAnyCase) {
  struct TCase {
    const char* name;
    int value;
    Single width, height;
  };
  for (const auto& c : {TCase{"a4", 9, 210, 297},
                        {"ledger", 4, 431.8F, 279.4F},
                        {"B4 (iso)", 42, 250, 353},
                        {"Sobre c65", 32, 114, 229},
                        {"USER", 256, 200, 200},
                        {"italy", 36, 110, 230}}) {
    Single width = 0;
    Single height = 0;
    EXPECT_EQ(GetPaperSize(c.name, width, height), c.value) << c.name;
    EXPECT_EQ(width, c.width) << c.name;
    EXPECT_EQ(height, c.height) << c.name;
  }
}

TEST(Papers, AnUnknownNameKeepsTheSizes) {
  Single width = 1;
  Single height = 2;
  for (const char* name : {"A44", "", "A"}) EXPECT_EQ(GetPaperSize(name, width, height), -1) << name;
  EXPECT_EQ(width, 1);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(UserPaperIndex(), 26);
}

TEST(ItemFacts, OfKnownAndUnknownKinds) {
  EXPECT_EQ(NameItem(itFlow), "FlowDiagram");
  EXPECT_EQ(NumPointsItem(itArrowLine), 4);
  EXPECT_EQ(NumPointsItem(itDim), 10);
  EXPECT_EQ(NumPointsItem(itBezier), 0);
  EXPECT_EQ(NameItem(static_cast<TZORItemType>(77)), "None");
  EXPECT_EQ(NumPointsItem(static_cast<TZORItemType>(77)), 1);
}

}  // namespace
}  // namespace Zor
