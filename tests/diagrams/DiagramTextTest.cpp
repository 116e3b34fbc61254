#include <gtest/gtest.h>

#include "kaldrix/diagrams/DiagramRelation.hpp"
#include "kaldrix/diagrams/DiagramText.hpp"

namespace Zor {
namespace {

TEST(DiagramText, EveryLineEndCounts) {
  const struct {
    const char* text;
    std::vector<std::string> lines;
  } cases[] = {
      {"", {""}},
      {"a", {"a"}},
      {"a\nb\rc", {"a", "b", "c"}},
      {"a\r\nb\n", {"a", "", "b", ""}},
  };
  for (const auto& c : cases) {
    std::vector<std::string> lines;
    std::int32_t number = 0;
    for (const TDiagramLine& line : SplitDiagramLines(c.text)) {
      EXPECT_EQ(line.Number, ++number);
      lines.emplace_back(line.Text);
    }
    EXPECT_EQ(lines, c.lines) << c.text;
  }
}

TEST(DiagramText, LabelsAreCleaned) {
  const std::pair<const char*, const char*> cases[] = {
      {"  a  ", "a"},
      {"\"a\"", "a"},
      {"\"\"a\"\"", "\"a\""},
      {"\"", "\""},
      {"\"\"", ""},
      {" \" a \" ", "a"},
      {"\"a\" b", "\"a\" b"},
      {"a<br>b<BR/>c<br />d", "a\r\nb\r\nc<br />d"},
      {"a\\nb\\N", "a\r\nb\\N"},
      {"&QUOT;a&amp;b&lt;", "\"a&b&lt;"},
      {"&amp;quot;", "&quot;"},
      {"<br>a<br>", "a"},
      {"a<b & c\\", "a<b & c\\"},
      {"", ""},
  };
  for (const auto& [text, label] : cases) EXPECT_EQ(CleanDiagramText(text), label) << text;
}

TEST(DiagramText, WhiteSpaceAndWordsAreThoseOfUnicode) {
  EXPECT_EQ(SpaceLength(" \t\v\xC2\xA0\xE2\x80\x83\xE3\x80\x80x"), 11U);
  EXPECT_EQ(SpaceLength("\xE2\x82\xAC"), 0U);
  EXPECT_EQ(WithoutSpaces("\xC2\xA0 a\xC2\xA0"
                          "b \xE2\x80\xA8"),
            "a\xC2\xA0"
            "b");
  EXPECT_EQ(WordLength("a_1-b"), 3U);
  EXPECT_EQ(WordLength("a\xC3\xA4\xE6\x97\xA5z-"), 7U);
  EXPECT_EQ(WordLength("a\xE2\x82\xAC"), 1U);
  EXPECT_EQ(WordLength("\xE2\x82\xAC"
                       "a"),
            0U);
}

TEST(DiagramText, RelationsAreFoundByTheirTable) {
  TDiagramRelation relation;
  ASSERT_TRUE(FindRelation("A --|> B : \"is a\" : x", relation));
  EXPECT_EQ(relation.Token, "--|>");
  EXPECT_EQ(relation.Left, "A");
  EXPECT_EQ(relation.Right, "B");
  EXPECT_EQ(relation.Label, "\"is a\" : x");
  ASSERT_TRUE(FindRelation("..", relation));
  EXPECT_TRUE(relation.Left.empty());
  EXPECT_TRUE(relation.Right.empty());
  EXPECT_TRUE(relation.Label.empty());
  EXPECT_FALSE(FindRelation("a - b . c", relation));
}

}  // namespace
}  // namespace Zor
