#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/Colors.hpp"
#include "kaldrix/utils/TJSONUtils.hpp"

namespace Zor {
namespace {

TEST(Colors, BetweenTheForms) {
  EXPECT_EQ(ColorToAlphaColor(0x00112233), 0xFF332211);
  EXPECT_EQ(AlphaColorToColor(0x80332211), 0x00112233);
  EXPECT_EQ(ColorToTAlphaColor(0x00112233, 0x44), 0x44112233);
  EXPECT_EQ(AlphaColor(1, 2, 3, 4), 0x04010203U);
  EXPECT_EQ(AlphaColorToHex(0x0A1B2C3D), "#1B2C3D0A");
}

TEST(Colors, SystemColoursComeFromTheTable) {
  struct TCase {
    std::uint32_t low;
    std::uint32_t rgb;
  };
  for (const auto& c : {TCase{0x00, 0xD3D3D3},
                        {0x01, 0xFFFFFF},
                        {0x02, 0xFF0000},
                        {0x03, 0x808080},
                        {0x07, 0x000000},
                        {0x0B, 0xD3D3D3},
                        {0x0C, 0xC0C0C0},
                        {0x0D, 0xFF0000},
                        {0x0F, 0xD3D3D3},
                        {0x10, 0x808080},
                        {0x11, 0xA9A9A9},
                        {0x12, 0x000000},
                        {0x13, 0xA9A9A9},
                        {0x14, 0xFFFFFF},
                        {0x15, 0x000000},
                        {0xFF, 0x000000}}) {
    const auto color = static_cast<TColor>(0xFF000000U | c.low);
    EXPECT_EQ(ColorToTAlphaColor(color, 0xFE), 0xFE000000U | c.rgb) << c.low;
  }
}

TEST(Colors, TextsThatAreColours) {
  struct TCase {
    const char* text;
    TAlphaColor color;
  };
  for (const auto& c : {TCase{"#112233", 0xFF112233},
                        {"#11223344", 0x44112233},
                        {"  #AbCdEf\t", 0xFFABCDEF},
                        {"AliceBlue", 0xFFF0F8FF},
                        {"yellowgreen", 0xFF9ACD32},
                        {"RebeccaPurple", 0xFF663399},
                        {"lightgoldenrodyellow", 0xFFFAFAD2},
                        {"grey", 0xFF808080},
                        {"TRANSPARENT", 0}}) {
    TAlphaColor color = 1;
    EXPECT_TRUE(TryParseColor(c.text, color)) << c.text;
    EXPECT_EQ(color, c.color) << c.text;
  }
}

TEST(Colors, TextsThatAreNone) {
  for (const char* text : {"", "   ", "#", "#123", "#1234567", "#GG0000", "#-12345", "#0x1234", "#112233445",
                           "bluish", "light gray", "lightgoldenrodyellowish", "red;"}) {
    TAlphaColor color = 1;
    EXPECT_FALSE(TryParseColor(text, color)) << text;
    EXPECT_EQ(color, 0U) << text;
    EXPECT_EQ(ParseColor(text), 0xFFFFFFFF) << text;
  }
}

TEST(Colors, HexWithAlphaFirst) {
  EXPECT_EQ(HexToTAlphaColor("#11223344"), 0x11223344U);
  EXPECT_EQ(HexToTAlphaColor("1#12#233"), 0xFF112233);
  for (const char* text : {"", "#12345", "#123456789", "#12345G"}) {
    try {
      HexToTAlphaColor(text);
      ADD_FAILURE() << text;
    } catch (const EConvertError& e) {
      EXPECT_STREQ(e.what(), "Formato de color inválido. Use #RRGGBB o #AARRGGBB");
    }
  }
}

std::unique_ptr<TJsonObject> Read(const char* aText) {
  return std::unique_ptr<TJsonObject>(static_cast<TJsonObject*>(TJsonBaseObject::Parse(aText).release()));
}

TEST(JsonColors, AreStoredAsFourIntegersInOrder) {
  const auto json = TJSONUtils::SetAlphaColor(0x11AA00FF);
  EXPECT_EQ(json->ToJSON(), R"({"R":170,"G":0,"B":255,"A":17})");
  EXPECT_EQ(TJSONUtils::GetAlphaColor(*json), 0x11AA00FFU);
  EXPECT_EQ(TJSONUtils::SetColor(0x00010203)->ToJSON(), R"({"R":3,"G":2,"B":1,"A":255})");
  EXPECT_EQ(TJSONUtils::GetColor(*TJSONUtils::SetColor(0x00010203)), 0x00010203);
  EXPECT_EQ(TJSONUtils::GetAlphaColor(*Read(R"({"A":511,"B":256,"G":-1,"R":1})")), 0xFF01FF00U);
  EXPECT_THROW(TJSONUtils::GetAlphaColor(*Read(R"({"R":1,"G":2,"B":3})")), EJsonException);
}

TEST(JsonColors, AreReadFromEitherForm) {
  struct TCase {
    const char* json;
    TAlphaColor color;
  };
  for (const auto& c : {TCase{R"({"R":1,"G":2,"B":3})", 0xFF010203},
                        {R"({"R":1,"G":2,"B":3,"A":4})", 0x04010203},
                        {R"({"R":1,"G":2})", 0xFFFFFFFF},
                        {R"({"R":1,"G":2,"B":3,"Color":"#0A0B0C"})", 0xFF0A0B0C},
                        {R"({"Color":"nothing"})", 0xFFFFFFFF},
                        {"{}", 0xFFFFFFFF}}) {
    EXPECT_EQ(ParseJsonColor(*Read(c.json)), c.color) << c.json;
  }
  TJsonObject json;
  ColorHex(json, 0x80112233);
  ColorRGBA(json, 0x80445566);
  EXPECT_EQ(ParseJsonColor(json), 0x80112233);
  EXPECT_EQ(ParseJsColor(json), 0x80445566);
}

}  // namespace
}  // namespace Zor
