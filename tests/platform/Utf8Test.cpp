#include <gtest/gtest.h>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {
namespace {

TEST(Utf8, RepairsMaximalRuns) {
  const std::string bad = "\xEF\xBF\xBD";
  const std::pair<std::string, std::string> cases[] = {
      {"plain text, longer than a word", "plain text, longer than a word"},
      {"\xF0\x9F\x98\x80 \xE2\x82\xAC \xC3\xB1", "\xF0\x9F\x98\x80 \xE2\x82\xAC \xC3\xB1"},
      {"a\xC3", "a" + bad},
      {"\xC0\xAF", bad + bad},                      // overlong
      {"\xED\xA0\x80", bad + bad + bad},            // surrogate
      {"\xF4\x90\x80\x80", bad + bad + bad + bad},  // above U+10FFFF
      {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF"
       "A",
       bad + bad + bad + bad + "A"},
      {std::string(20, 'x') + "\x80", std::string(20, 'x') + bad},
  };
  for (const auto& [text, repaired] : cases) {
    EXPECT_EQ(Utf8::Repaired(text), repaired);
    EXPECT_EQ(Utf8::IsValid(text), text == repaired);
    EXPECT_TRUE(Utf8::IsValid(repaired));
  }
}

TEST(Utf8, CountsAndCutsByCharacters) {
  const std::string text = "a\xC3\xB1\xE2\x82\xAC\xF0\x9F\x98\x80z";
  EXPECT_EQ(Utf8::Count(text), 5U);
  EXPECT_EQ(Utf8::ByteIndex(text, 3), 6U);
  EXPECT_EQ(Utf8::ByteIndex(text, 5), text.size());
  EXPECT_EQ(Utf8::ByteIndex(text, 99), text.size());
  EXPECT_EQ(Utf8::Sub(text, 1, 2), "\xC3\xB1\xE2\x82\xAC");
  EXPECT_EQ(Utf8::Sub(text, 4, 100), "z");
  EXPECT_EQ(Utf8::Sub(text, 9, 1), "");
}

TEST(Utf8, EveryCharacterSurvivesBothForms) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c == 0xD800) c = 0xE000;
    std::string text;
    Utf8::Append(text, c);
    std::size_t pos = 0;
    ASSERT_EQ(Utf8::Next(text, pos), c);
    ASSERT_EQ(pos, text.size());
  }
  EXPECT_EQ(Utf8::FromUtf32(std::u32string{0xD800, 0x110000}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, CaseMapsOneToOneAndBack) {
  for (char32_t c = 0; c < 0x600; ++c) {
    const char32_t lower = Utf8::LowerCase(c);
    if (lower == c) continue;
    EXPECT_EQ(Utf8::UpperCase(lower), c) << std::hex << static_cast<unsigned>(c);
    EXPECT_EQ(Utf8::LowerCase(lower), lower) << std::hex << static_cast<unsigned>(c);
  }
  EXPECT_EQ(UpperCase("straße ñandú łódź ÿ"), "STRAßE ÑANDÚ ŁÓDŹ Ÿ");
  EXPECT_EQ(LowerCase("ΆΔΣ ЁЖЪ × ÷"), "άδσ ёжъ × ÷");
}

TEST(Utf8, SameTextIgnoresCase) {
  EXPECT_TRUE(SameText("Etiqueta Ñ ΣΑΣ Ёлка", "eTIQUETA ñ σας ёЛКА"));
  EXPECT_FALSE(SameText("abc", "abcd"));
  EXPECT_FALSE(SameText("[", "{"));
}

TEST(Utf8, TrimTakesControlsAndBlanks) {
  EXPECT_EQ(Trim("\t \x01"
                 "a b\r\n"),
            "a b");
  EXPECT_EQ(Trim(" \n"), "");
  EXPECT_EQ(Trim("\xC2\xA0x"), "\xC2\xA0x");
}

}  // namespace
}  // namespace Zor
