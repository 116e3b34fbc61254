#include <gtest/gtest.h>

#include <algorithm>

#include "kaldrix/host/TFontEngine.hpp"

namespace Zor {
namespace {

TEST(TFontEngine, ArialHasTheMetricsOfItsMetricTwin) {
  TFontEngine fonts;
  TFontSpec font;
  font.heightMM = 10;
  const TTextSize empty = fonts.Measure("", font);
  EXPECT_EQ(empty.width, 0);
  // hhea of Liberation Sans: 1854 and -434 of 2048; post: -67 and 150.
  EXPECT_NEAR(empty.ascent, 18540.0 / 2048, 1e-9);
  EXPECT_NEAR(empty.descent, 4340.0 / 2048, 1e-9);
  EXPECT_NEAR(empty.underline, 670.0 / 2048, 1e-9);
  EXPECT_NEAR(empty.underlineThickness, 1500.0 / 2048, 1e-9);
}

TEST(TFontEngine, WidthsAreSumsOfAdvances) {
  // Advances of Liberation Sans in 2048ths: H 1479, a 1139, m 1706, b 1139, u 1139, r 682, g 1139, blank 569.
  struct {
    const char* text;
    bool bold;
    double units;
  } const cases[] = {{"Hamburg", false, 1479 + 1139 + 1706 + 1139 + 1139 + 682 + 1139},
                     {"  ", false, 2 * 569},
                     {"a\tb", false, 1139 + 569 + 1139},
                     {"a\r\nb", false, 1139 + 2 * 569 + 1139},
                     {"H", true, 1479}};
  TFontEngine fonts;
  for (const auto& c : cases) {
    TFontSpec font;
    font.bold = c.bold;
    for (const double height : {0.5, 3.7, 250.0}) {
      font.heightMM = height;
      EXPECT_NEAR(fonts.Measure(c.text, font).width, c.units / 2048 * height, 0.001)
          << c.text << " " << height;
    }
  }
}

TEST(TFontEngine, LongTextsAreAsWideAsTheirParts) {
  TFontEngine fonts;
  TFontSpec font;
  font.heightMM = 1;
  const double one = fonts.Measure("nnnnnnnnnn", font).width;
  for (const int times : {10, 1'000, 100'000}) {
    std::string text;
    for (int i = 0; i < times; ++i) text += "nnnnnnnnnn";
    EXPECT_NEAR(fonts.Measure(text, font).width / (one * times), 1, 0.001) << times;
  }
}

TEST(TFontEngine, BytesThatAreNoTextAreReplaced) {
  TFontEngine fonts;
  const TFontSpec font;
  const double replaced = fonts
                              .Measure(
                                  "a\xEF\xBF\xBD"
                                  "b",
                                  font)
                              .width;
  EXPECT_GT(replaced, fonts.Measure("ab", font).width);
  EXPECT_NEAR(fonts
                  .Measure("a\xFF"
                           "b",
                           font)
                  .width,
              replaced, 1e-9);
  EXPECT_EQ(fonts.Measure(std::string_view("a\0b", 3), font).width, fonts.Measure("a b", font).width);
  TFontSpec odd;
  odd.name = "no such \xFF family";
  EXPECT_GT(fonts.Measure("ab", odd).width, 0);
  odd.heightMM = -1;
  EXPECT_EQ(fonts.Measure("ab", odd).Height(), 0);
}

TEST(TFontEngine, MoreWordsAndFontsThanAreKept) {
  TFontEngine fonts;
  TFontSpec font;
  const double width = fonts.Measure("4", font).width;
  for (int i = 0; i < 1'100; ++i) {
    font.name = "Arial, family " + std::to_string(i);
    ASSERT_NEAR(fonts.Measure("4", font).width, width, 1e-9);
  }
  font.name = "Arial";
  for (int i = 0; i < 66'000; ++i) {
    const std::string digits = std::to_string(i);
    ASSERT_NEAR(fonts.Measure(digits, font).width, width * static_cast<double>(digits.size()), 1e-3);
  }
}

TEST(TFontEngine, BreaksLinesWithinTheWidth) {
  TFontEngine fonts;
  TFontSpec font;
  font.heightMM = 10;
  const std::string text = "one two  three\r\n\nincomprehensibilities\n\xC3\xA9\xC3\xA9";
  const auto lines = fonts.BreakLines(text, font, 45);
  std::vector<std::string> pieces;
  for (const TTextLine& line : lines) {
    pieces.push_back(text.substr(line.start, line.length));
    EXPECT_LE(line.width, 45);
    EXPECT_NEAR(line.width, fonts.Measure(pieces.back(), font).width, 0.01);
  }
  ASSERT_GE(pieces.size(), 6U);
  EXPECT_EQ(pieces[0], "one two");
  EXPECT_EQ(pieces[1], "three");
  EXPECT_EQ(pieces[2], "");
  EXPECT_EQ(pieces.back(), "\xC3\xA9\xC3\xA9");
  std::string word;
  for (std::size_t i = 3; i + 1 < pieces.size(); ++i) word += pieces[i];
  EXPECT_EQ(word, "incomprehensibilities");
  EXPECT_EQ(fonts.BreakLines("", font, 10).size(), 1U);
  EXPECT_EQ(fonts.BreakLines("abc", font, 0).size(), 3U);
}

/// Where pieces of a long text meet nothing is to be seen: every line takes the words that it has room for.
TEST(TFontEngine, BreaksALongTextAsAShortOne) {
  TFontEngine fonts;
  TFontSpec font;
  std::string text;
  for (int i = 0; i < 3000; ++i) text += std::to_string(i * 7919 % 1000003) + " ";
  text.pop_back();
  for (const double width : {60.0, 300.0, 4000.0}) {
    std::size_t at = 0;
    for (const TTextLine& line : fonts.BreakLines(text, font, width)) {
      ASSERT_EQ(line.start, at);
      EXPECT_LE(line.width, width);
      at += line.length + 1;
      if (at > text.size()) continue;
      const std::string longer = text.substr(line.start, text.find(' ', at) - line.start);
      EXPECT_GT(fonts.Measure(longer, font).width, width);
    }
    EXPECT_EQ(at, text.size() + 1);
  }
}

/// Takes a part of a second; when each line cost the rest of the text, it took minutes.
TEST(TFontEngine, BreaksALongWordInTimeThatGrowsWithIt) {
  TFontEngine fonts;
  EXPECT_EQ(fonts.BreakLines(std::string(100000, 'a'), {}, 0).size(), 100000U);
}

TEST(TFontEngine, NamesTheInstalledFamilies) {
  const auto names = TFontEngine().FontNames();
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
  EXPECT_TRUE(std::binary_search(names.begin(), names.end(), "Liberation Sans"));
}

}  // namespace
}  // namespace Zor
