#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace {

using namespace Zor;

std::string Compact(std::string_view aText) { return TJsonBaseObject::Parse(aText)->ToJSON(true); }

std::string ErrorOf(std::string_view aText) {
  try {
    TJsonBaseObject::Parse(aText);
  } catch (const EJsonException& e) {
    return e.what();
  }
  return "none";
}

TEST(JsonReader, NumbersGetTheirKindByDigits) {
  const struct {
    const char* Text;
    TJsonDataType Kind;
    const char* Written;
  } cases[] = {
      {"0", jdtInt, "0"},
      {"-0", jdtInt, "0"},
      {"999999999", jdtInt, "999999999"},
      {"-999999999", jdtInt, "-999999999"},
      {"1000000000", jdtLong, "1000000000"},
      {"9223372036854775807", jdtLong, "9223372036854775807"},
      {"-9223372036854775808", jdtLong, "-9223372036854775808"},
      {"-9223372036854775809", jdtFloat, "-9.22337203685478E18"},
      {"9223372036854775808", jdtULong, "9223372036854775808"},
      {"18446744073709551615", jdtULong, "18446744073709551615"},
      {"18446744073709551616", jdtFloat, "1.84467440737096E19"},
      {"99999999999999999999", jdtFloat, "1E20"},
      {"123456789012345678901", jdtFloat, "1.23456789012346E20"},
      {"1.0", jdtFloat, "1"},
      {"1e2", jdtFloat, "100"},
      {"-0.0", jdtFloat, "0"},
      {"0.30000000000000004", jdtFloat, "0.3"},
      {"1E-400", jdtFloat, "0"},
      {"0.000e999999999999999999", jdtFloat, "0"},
      {"1.7976931348623157e308", jdtFloat, "1.79769313486232E308"},
      {"5e-324", jdtFloat, "4.94065645841247E-324"},
  };
  for (const auto& c : cases) {
    const auto tree = TJsonBaseObject::Parse(std::string("[").append(c.Text).append("]"));
    EXPECT_EQ(tree->GetItem(0).Type(), c.Kind) << c.Text;
    EXPECT_EQ(tree->GetItem(0).GetString(), c.Written) << c.Text;
  }
}

TEST(JsonReader, FloatsAreRoundedCorrectly) {
  const double values[] = {
      12.345, 67.891, 1e22, 1e23, 9007199254740993.0, 0.1, 1.0 / 3.0, 8.41, 2.2250738585072014e-308};
  for (const double value : values) {
    char text[64];
    std::snprintf(text, sizeof text, "[%.17e]", value);
    EXPECT_EQ(TJsonBaseObject::Parse(text)->GetItem(0).GetFloat(), value) << text;
  }
  EXPECT_EQ(TJsonBaseObject::Parse("[12.345]")->GetItem(0).GetFloat(), 12.345);
}

TEST(JsonReader, RefusesWithTextAndPosition) {
  const struct {
    std::string Text;
    const char* Message;
  } cases[] = {
      {"{", "Unexpected end of file where identifier was expected (1, 2)"},
      {"[1", "Unexpected end of file where \"]\" was expected (1, 3)"},
      {"{\"a\"", "Unexpected end of file where \":\" was expected (1, 5)"},
      {"[1,]", "Expected value but found \"]\" (1, 4)"},
      {"{\"a\":1,}", "Expected identifier but found \"}\" (1, 8)"},
      {"{1:2}", "Expected identifier but found value (1, 2)"},
      {"{\"a\" 1}", "Expected \":\" but found value (1, 6)"},
      {"[1 2]", "Expected \"]\" but found value (1, 4)"},
      {"[foo]", "Expected value but found identifier (1, 2)"},
      {"[truex]", "Expected value but found identifier (1, 2)"},
      {"[\n  'a']", "Expected value but found invalid symbol (2, 3)"},
      {"5", "Expected \"{\" but found value (1, 1)"},
      {"{} x", "Expected end of file but found identifier (1, 4)"},
      {"[1e400]", "Expected value but found invalid symbol (1, 2)"},
      {"[01]", "Expected value but found invalid symbol (1, 2)"},
      {"[1.]", "Expected value but found invalid symbol (1, 2)"},
      {"[.5]", "Expected value but found invalid symbol (1, 2)"},
      {"[1e+]", "Expected value but found invalid symbol (1, 2)"},
      {"[+1]", "Expected value but found invalid symbol (1, 2)"},
      {"[-]", "Expected value but found invalid symbol (1, 2)"},
      {"[\"\xC3\xA4\", \"a\tb\"]", "Invalid character in string (1, 9)"},
      {"[\"a\\x\"]", "Invalid character in string (1, 4)"},
      {"[\r\n\"abc", "String not closed (2, 1)"},
      {"[\"\\", "String not closed (1, 3)"},
      {"[\"\\u12G4\"]", "Invalid hex number \"12G4\" (1, 5)"},
      {"[\"\\u12\"]", "Invalid hex number \"12\" (1, 5)"},
      {"\xFF\xFE[\0]\0", "File encoding is not supported"},
      {std::string("\0\0\xFE\xFF", 4), "File encoding is not supported"},
  };
  for (const auto& c : cases) EXPECT_EQ(ErrorOf(c.Text), c.Message) << c.Text;
}

TEST(JsonReader, ErrorsCarryLineColumnAndPosition) {
  try {
    TJsonBaseObject::Parse("{\n\t\"a\": }");
    FAIL();
  } catch (const EJsonParserException& e) {
    EXPECT_EQ(e.FLineNum, 2);
    EXPECT_EQ(e.FColumn, 7);
    EXPECT_EQ(e.FPosition, 8U);
  }
}

TEST(JsonReader, TextsOfEveryLengthAndEscape) {
  for (std::size_t size = 0; size < 40; ++size) {
    const std::string text(size, 'x');
    for (const std::string& tail : {std::string(), std::string("\\n"), std::string("\xE4\xBD\xA0")}) {
      const std::string json = "{\"" + text + tail + "\":[\"" + text + tail + "\",\"" + tail + text + "\"]}";
      EXPECT_EQ(Compact(json), json);
    }
  }
  EXPECT_EQ(Compact(R"(["\/\b\f\n\r\t\u0041\u001f\u0000"])"), R"(["/\b\f\n\r\tA\u001f\u0000"])");
}

TEST(JsonReader, UnicodeIsRepairedAtTheDoor) {
  const struct {
    std::string Text, Read;
  } cases[] = {
      {R"(\ud83d\ude00)", "\xF0\x9F\x98\x80"},
      {R"(\ud83d)", "\xEF\xBF\xBD"},
      {R"(\ude00)", "\xEF\xBF\xBD"},
      {R"(\ud83d\u0041)",
       "\xEF\xBF\xBD"
       "A"},
      {R"(\ud83d\ud83d\ude00)", "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
      {"a\xFFz", "a\xEF\xBF\xBDz"},
      {"\xC0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xE4\xBD", "\xEF\xBF\xBD"},
      {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
  };
  for (const auto& c : cases) {
    const auto tree = TJsonBaseObject::Parse("{\"" + c.Text + "\":\"" + c.Text + "\"}");
    EXPECT_EQ(tree->GetItem(0).GetString(), c.Read) << c.Text;
    EXPECT_EQ(tree->AsObject()->GetName(0), c.Read) << c.Text;
  }
}

TEST(JsonReader, RootsBlanksAndMarks) {
  EXPECT_EQ(TJsonBaseObject::Parse(""), nullptr);
  EXPECT_EQ(TJsonBaseObject::Parse("\xEF\xBB\xBF \n\x01\t"), nullptr);
  EXPECT_TRUE(TJsonBaseObject::Parse("\xEF\xBB\xBF\x02 [ ] \r\n")->IsArray());
  EXPECT_TRUE(TJsonBaseObject::Parse("{}")->IsObject());

  TJsonObject object;
  object.SetInt("old", 1);
  object.FromJSON("{\"a\":{\"b\":[1,2]}}");
  EXPECT_EQ(object.ToJSON(), "{\"a\":{\"b\":[1,2]}}");
  object.SetInt("c", 3);
  EXPECT_EQ(object.ToJSON(), "{\"a\":{\"b\":[1,2]},\"c\":3}");
  EXPECT_THROW(object.FromJSON("[]"), EJsonParserException);
  EXPECT_EQ(object.Count(), 0);
  EXPECT_THROW(object.FromJSON(" "), EJsonParserException);
}

TEST(JsonReader, NestingIsBounded) {
  const auto nested = [](int aDepth) {
    return std::string(static_cast<std::size_t>(aDepth), '[') +
           std::string(static_cast<std::size_t>(aDepth), ']');
  };
  EXPECT_EQ(Compact(nested(512)), nested(512));
  EXPECT_EQ(ErrorOf(nested(513)), "Nesting is deeper than 512 (1, 513)");
  EXPECT_EQ(ErrorOf(std::string(5000000, '[')), "Nesting is deeper than 512 (1, 513)");
}

}  // namespace
