// Linear barcodes: validation, check characters and patterns. Expected modules are written from the published
// tables of the symbologies, 1 for a dark module; what other programs read is in BarcodeReadersTest.cpp.
#include <cmath>
#include <random>

#include "kaldrix/utils/TBarcode.hpp"

namespace Zor {
namespace {

struct TEncoded {
  std::string text, check, pattern;
  TZOR128AutoType mode = at128None;
};

TEncoded Encode(TZORBarType aType, std::string_view aCode, bool aCheck = false, bool aIgnore = false) {
  TEncoded result;
  result.text = TBarcode::PrepareBarcode(aCode, aType, aCheck, aIgnore, result.check, result.mode);
  result.pattern = TBarcode::FillBarPattern(result.text, aType, result.mode, false);
  return result;
}

/// A pattern as modules, wide elements being `aWide` of them.
std::string Modules(std::string_view aPattern, int aWide) {
  std::string modules;
  for (const char c : aPattern) {
    TZORDrawWidth width = dw1;
    TZORDrawBar bar = dbW;
    TBarcode::FillBarData(c, width, bar);
    const auto count = static_cast<std::size_t>(ElementWidth(width, 1, aWide));
    modules.append(count, bar == dbW || bar == dbEW ? '0' : '1');
  }
  return modules;
}

std::string Modules(TZORBarType aType, std::string_view aCode, int aWide) {
  return Modules(Encode(aType, aCode).pattern, aWide);
}

/// The values of a Code 128 pattern, start and check included, without the stop.
std::vector<int> Values(std::string_view aPattern) {
  std::vector<int> values;
  for (std::size_t at = 0; at + 6 <= aPattern.size() - Code128Stop.size(); at += 6) {
    const std::string_view symbol = aPattern.substr(at, 6);
    int value = symbol == Code128StartA   ? StartA128
                : symbol == Code128StartB ? StartB128
                : symbol == Code128StartC ? StartC128
                                          : -1;
    for (int i = 0; value < 0 && i < 103; ++i) {
      if (Code128Table[static_cast<std::size_t>(i)].Pattern() == symbol) value = i;
    }
    values.push_back(value);
  }
  return values;
}

// Tables ----------------------------------------------------------------------------

/// Modules of an element of the Code 128 family or of EAN.
int Narrow(char aElement) { return static_cast<int>(Modules({&aElement, 1}, 0).size()); }

TEST(BarcodeTables, RowsHaveTheWidthsOfTheirStandards) {
  const auto width = [](std::string_view aPattern) {
    int sum = 0;
    for (const char c : aPattern) sum += Narrow(c);
    return sum;
  };
  for (const TCode128& row : Code128Table) {
    EXPECT_EQ(width(row.Pattern()), 11);
    const int bars = Narrow(row.data[0]) + Narrow(row.data[2]) + Narrow(row.data[4]);
    EXPECT_EQ(bars % 2, 0) << row.Pattern();
  }
  for (const TBarRow& row : tabla_93) EXPECT_EQ(width(row.pattern), 9) << row.symbol;
  for (const auto* table : {&tabla_EAN_A, &tabla_EAN_B, &tabla_EAN_C}) {
    for (const std::string_view row : *table) EXPECT_EQ(width(row), 7) << row;
  }
  for (const TBarRow& row : tabla_39) {
    const auto wide =
        std::count_if(row.pattern.begin(), row.pattern.end(), [](char c) { return c == 'M' || c == '6'; });
    EXPECT_EQ(wide, 3) << row.symbol;
  }
}

TEST(BarcodeTables, NoTwoRowsAreAlike) {
  const auto distinct = [](std::vector<std::string_view> aPatterns) {
    const std::size_t count = aPatterns.size();
    std::sort(aPatterns.begin(), aPatterns.end());
    aPatterns.erase(std::unique(aPatterns.begin(), aPatterns.end()), aPatterns.end());
    return aPatterns.size() == count;
  };
  std::vector<std::string_view> patterns;
  for (const TCode128& row : Code128Table) patterns.push_back(row.Pattern());
  EXPECT_TRUE(distinct(patterns));
  const auto of = [](const auto& aTable) {
    std::vector<std::string_view> rows;
    for (const TBarRow& row : aTable) rows.push_back(row.pattern);
    return rows;
  };
  EXPECT_TRUE(distinct(of(tabla_39)) && distinct(of(tabla_93)) && distinct(of(tabla_cb)));
}

TEST(BarcodeTables, FullAsciiPairs) {
  const std::pair<int, std::string_view> pairs[] = {
      {0, "%U"},   {1, "$A"},   {26, "$Z"},  {27, "%A"}, {31, "%E"}, {32, " "},  {33, "/A"},
      {44, "/L"},  {45, "-"},   {46, "."},   {47, "/O"}, {57, "9"},  {58, "/Z"}, {59, "%F"},
      {63, "%J"},  {64, "%V"},  {90, "Z"},   {91, "%K"}, {95, "%O"}, {96, "%W"}, {97, "+A"},
      {122, "+Z"}, {123, "%P"}, {126, "%S"}, {127, "%T"}};
  for (const auto& [code, pair] : pairs)
    EXPECT_EQ(tabla_39ex[static_cast<std::size_t>(code)].View(), pair) << code;
  EXPECT_EQ(tabla_93Ex[0].View(), "]U");
  EXPECT_EQ(tabla_93Ex[1].View(), "[A");
  EXPECT_EQ(tabla_93Ex['a'].View(), "}A");
  EXPECT_EQ(tabla_93Ex['!'].View(), "{A");
}

// Validation ------------------------------------------------------------------------

TEST(Barcode, TakesTheCharactersOfItsSymbology) {
  struct TCase {
    TZORBarType type;
    std::string_view code;
    bool check, valid;
  };
  for (const TCase& c : std::initializer_list<TCase>{{btEAN13, "4006381333931", false, true},
                                                     {btEAN13, "400638133393", false, false},
                                                     {btEAN13, "400638133393", true, true},
                                                     {btEAN13, "40063813339311", true, false},
                                                     {btEAN13, "40063813339x", true, false},
                                                     {btEAN13, "", true, true},
                                                     {btEAN13, "", false, false},
                                                     {btEAN8, "96385074", false, true},
                                                     {btEAN8, "9638507", false, false},
                                                     {btEAN8, "963850741", true, false},
                                                     {btUPCA, "036000291452", false, true},
                                                     {btUPCA, "0360002914521", true, false},
                                                     {btUPCE0, "01234565", false, true},
                                                     {btUPCE0, "0123456", false, false},
                                                     {btCODE39, "aZ09 $%*+-./", false, true},
                                                     {btCODE39, "a,b", false, false},
                                                     {btCODE39EX, "a,b\x7F", false, true},
                                                     {btCODE39EX, "\x80", false, false},
                                                     {btCODE93, "AZ09 $%+-./", false, true},
                                                     {btCODE93, "a", false, false},
                                                     {btCODE93, "*", false, false},
                                                     {btCODE93EX, "a*\x01", false, true},
                                                     {btCODABAR, "09$+-./:", false, true},
                                                     {btCODABAR, "A1B", false, false},
                                                     {btCODE128A, "A_\x1F", false, true},
                                                     {btCODE128A, "a", false, false},
                                                     {btCODE128B, " ~\x7F", false, true},
                                                     {btCODE128B, "\x1F", false, false},
                                                     {btCODE128C, "12a", false, false},
                                                     {btCODE128C, "(12)", false, false},
                                                     {btCODE128AUTO, "a\xE9", false, true},
                                                     {btCODE128AUTO, "\xA0", false, false},
                                                     {btCODE128AUTO, "\xAD", false, false},
                                                     {btCODE128AUTO, "\x1F", false, false},
                                                     {btEAN128AUTO, "a\xE9", false, true},
                                                     {btINTER_25, "12-", false, false},
                                                     {btCODE11, "12-", false, true},
                                                     {btCODE11, "12A", false, false},
                                                     {btMSI, "12", false, true},
                                                     {btPOSTNET, "12 ", false, false}}) {
    EXPECT_EQ(TBarcode::IsValidCode(c.code, c.type, c.check, false), c.valid) << int{c.type} << " " << c.code;
  }
  EXPECT_TRUE(TBarcode::IsValidCode("(01)12", btEAN128C, false, true));
  EXPECT_FALSE(TBarcode::IsValidCode("(01)", btINTER_25, false, true));
}

TEST(Barcode, AnEmptyCodePassesEachTestOfCharacters) {
  for (int type = btCODE39; type < EnumCount<TZORBarType>; ++type) {
    EXPECT_TRUE(TBarcode::IsValidCode("", static_cast<TZORBarType>(type), false, false)) << type;
  }
}

// Preparing -------------------------------------------------------------------------

TEST(Barcode, PadsAndChecks) {
  struct TCase {
    TZORBarType type;
    std::string_view code;
    bool check;
    std::string_view text, digit;
  };
  for (const TCase& c : std::initializer_list<TCase>{
           {btEAN13, "400638133393", true, "4006381333931", "1"},
           {btEAN13, "4006381333930", true, "4006381333931", "1"},  // the thirteenth digit is made anew
           {btEAN13, "4006381333930", false, "4006381333930", ""},
           {btEAN13, "12345", true, "0000000123457", "7"},
           {btEAN8, "9638507", true, "96385074", "4"},
           {btUPCA, "03600029145", true, "036000291452", "2"},
           {btUPCE0, "0123456", true, "01234565", "5"},
           {btCODE39, "code39", false, "CODE39", ""},
           {btCODE39, "code39", true, "CODE39W", "W"},
           {btCODE39EX, "a", true, "a8", "8"},  // over "+A": 41 + 10 = 51, mod 43 = 8
           {btCODE93, "A", true, "A", ""},
           {btCODABAR, "123", true, "123", ""},
           {btCODE128B, "12", true, "0123", "3"},
           {btCODE128B, "123", true, "1236", "6"},
           {btCODE128B, "12a", true, "12a", ""},
           {btCODE128C, "123", false, "0123", ""},
           {btCODE128C, "1234", false, "1234", ""},
           {btCODE128C, "1234", true, "012348", "8"},
           {btINTER_25, "123", false, "0123", ""},
           {btINTER_25, "1234567", true, "12345670", "0"},
           {btINTER_25, "12", true, "0123", "3"},
           {btINDUS_25, "1234567", true, "12345670", "0"},
           {btMATRIX_25, "123", false, "123", ""},
           {btCODE11, "123-45", true, "123-455", "5"},
           {btCODE11, "9", true, "99", "9"},
           {btCODE11, "0000000001", true, "000000000113", "3"},
           {btCODE11, "00000-", true, "00000-10", "10"},
           {btMSI, "1234567", true, "12345674", "4"},
           {btPOSTNET, "12345", true, "12345", ""}}) {
    const TEncoded result = Encode(c.type, c.code, c.check);
    EXPECT_EQ(result.text, c.text) << int{c.type} << " " << c.code;
    EXPECT_EQ(result.check, c.digit) << int{c.type} << " " << c.code;
  }
}

TEST(Barcode, LeavesParenthesesOutWhereAsked) {
  EXPECT_EQ(Encode(btEAN128B, "(01)095", false, true).text, "01095");
  EXPECT_EQ(Encode(btEAN128B, "(01)095", false, false).text, "(01)095");
  EXPECT_EQ(Encode(btEAN128C, "(01)095", false, true).text, "001095");
  EXPECT_EQ(Encode(btEAN128AUTO, "(01)0950", false, true).mode, at128c);
}

TEST(Barcode, ChoosesTheModeOfAutomaticSets) {
  const std::tuple<TZORBarType, std::string_view, TZOR128AutoType> cases[] = {
      {btCODE128AUTO, "1234", at128c},        {btCODE128AUTO, "123", at128a},
      {btCODE128AUTO, "12", at128c},          {btCODE128AUTO, "12345", at128nac},
      {btCODE128AUTO, "1", at128a},           {btCODE128AUTO, "", at128a},
      {btCODE128AUTO, "AB12", at128a},        {btCODE128AUTO, "ab1234", at128bc},
      {btCODE128AUTO, "1234ab", at128cb},     {btCODE128AUTO, "123ab", at128bc},
      {btCODE128AUTO, "\xE9\xE8", at128e},    {btCODE128AUTO, "a\xE9", at128be},
      {btCODE128AUTO, "\x01\xE9", at128None}, {btEAN128AUTO, "\xE9", at128None},
      {btEAN128AUTO, "ab", at128bc},          {btCODE128B, "ab", at128None},
      {btEAN13, "1234567890128", at128None}};
  for (const auto& [type, code, mode] : cases) EXPECT_EQ(Encode(type, code).mode, mode) << code;
}

TEST(Barcode, Helpers) {
  EXPECT_EQ(TBarcode::RemoveAccented(
                "\u00E1\u00E9\u00ED\u00F3\u00FA \u00C1\u00C9\u00CD\u00D3\u00DA \u00F1\u00E0\xC3"),
            "aeiou AEIOU \u00F1\u00E0\xC3");
  EXPECT_EQ(TBarcode::AdjustZero("12", 4), "0012");
  EXPECT_EQ(TBarcode::AdjustZero("12345", 4), "12345");
  EXPECT_EQ(TBarcode::CheckSumMod("123", ctNone).Code, "123");
}

// Patterns --------------------------------------------------------------------------

TEST(Barcode, Code11) {
  constexpr std::string_view stop = "1011001";
  const std::pair<char, std::string_view> rows[] = {{'0', "101011"},  {'1', "1101011"}, {'2', "1001011"},
                                                    {'3', "1100101"}, {'4', "1011011"}, {'5', "1101101"},
                                                    {'6', "1001101"}, {'7', "1010011"}, {'8', "1101001"},
                                                    {'9', "110101"},  {'-', "101101"}};
  for (const auto& [symbol, modules] : rows) {
    const std::string expected = std::string(stop) + "0" + std::string(modules) + "0" + std::string(stop);
    EXPECT_EQ(Modules(btCODE11, {&symbol, 1}, 1), expected) << symbol;
  }
}

TEST(Barcode, MsiWritesBits) {
  for (int digit = 0; digit < 10; ++digit) {
    std::string expected = "110";
    for (int bit = 3; bit >= 0; --bit) expected += (digit >> bit & 1) != 0 ? "110" : "100";
    EXPECT_EQ(Modules(btMSI, std::to_string(digit), 1), expected + "1001") << digit;
  }
}

TEST(Barcode, PostNetHasTwoTallBarsOfFive) {
  constexpr int weights[] = {7, 4, 2, 1, 0};
  for (int digit = 0; digit < 10; ++digit) {
    const std::string pattern = Encode(btPOSTNET, std::to_string(digit)).pattern;
    ASSERT_EQ(pattern.size(), 13U);
    int sum = 0, tall = 0;
    for (int i = 0; i < 5; ++i) {
      TZORDrawWidth width = dw1;
      TZORDrawBar bar = dbW;
      TBarcode::FillBarData(pattern[static_cast<std::size_t>(2 + i * 2)], width, bar);
      EXPECT_TRUE(bar == dbB || bar == dbB2);
      if (bar == dbB) sum += weights[i], ++tall;
    }
    EXPECT_EQ(tall, 2);
    EXPECT_EQ(sum, digit == 0 ? 11 : digit);
    EXPECT_EQ(pattern.front(), 'N');
    EXPECT_EQ(pattern.back(), 'N');
  }
}

/// The wide elements of a digit by weights 1, 2, 4, 7 and parity, as ISO/IEC 16390 derives them.
std::string TwoOfFive(int aDigit) {
  constexpr int weights[] = {1, 2, 4, 7, 0};
  const int target = aDigit == 0 ? 11 : aDigit;
  for (int i = 0; i < 5; ++i) {
    for (int k = i + 1; k < 5; ++k) {
      if (weights[i] + weights[k] != target) continue;
      std::string bits(5, '0');
      bits[static_cast<std::size_t>(i)] = bits[static_cast<std::size_t>(k)] = '1';
      return bits;
    }
  }
  return {};
}

TEST(Barcode, IndustrialTwoOfFiveIsAllInTheBars) {
  for (int digit = 0; digit < 10; ++digit) {
    std::string expected = "111011101";  // wide, wide, narrow
    for (const char bit : TwoOfFive(digit)) expected += bit == '1' ? "0111" : "01";
    expected += "0111010111";
    EXPECT_EQ(Modules(btINDUS_25, std::to_string(digit), 3), expected + "0") << digit;
  }
}

TEST(Barcode, MatrixTwoOfFiveUsesTheSpacesToo) {
  for (int digit = 0; digit < 10; ++digit) {
    const std::string pattern = Encode(btMATRIX_25, std::to_string(digit)).pattern;
    std::string expected = "F1N1N1";
    bool bar = true;
    for (const char bit : TwoOfFive(digit)) {
      expected += bit == '1' ? (bar ? 'M' : '6') : (bar ? 'N' : '1');
      bar = !bar;
    }
    EXPECT_EQ(pattern, expected + "1F1N1N") << digit;
  }
}

TEST(Barcode, Code93ChecksAreThoseOfThePublishedExample) {
  // "TEST93" has the check characters "+" and "6".
  const auto row = [](char c) {
    return std::string(tabla_93[static_cast<std::size_t>(Rows93[static_cast<unsigned char>(c)])].pattern);
  };
  std::string expected = "N1N1W1";
  for (const char c : std::string_view("TEST93+6")) expected += row(c);
  EXPECT_EQ(Encode(btCODE93, "TEST93").pattern, expected + "N1N1W1N");
}

TEST(Barcode, GuardsReachIntoTheTextOnlyWhereItIsShown) {
  const TEncoded ean = Encode(btEAN13, "4006381333931");
  const std::string shown = TBarcode::FillBarPattern(ean.text, btEAN13, at128None, true);
  EXPECT_EQ(ean.pattern.substr(0, 3), "N1N");
  EXPECT_EQ(shown.substr(0, 3), "919");
  EXPECT_EQ(shown.substr(27, 5), "19191");
  EXPECT_EQ(Modules(shown, 2), Modules(ean.pattern, 2));
  EXPECT_EQ(Modules(shown, 2).size(), 95U);
}

TEST(Barcode, Code128Symbols) {
  using TValues = std::vector<int>;
  const std::tuple<TZORBarType, std::string_view, TValues> cases[] = {
      {btCODE128A, "PJJ123C", {103, 48, 42, 42, 17, 18, 19, 35, 54}},  // a published example
      {btCODE128B, "a", {104, 65, 66}},
      {btCODE128B, "\x7F", {104, 0, 1}},  // a character without a row is written as a space
      {btCODE128C, "1234", {105, 12, 34, 82}},
      {btEAN128C, "0112", {105, 102, 1, 12, 39}},
      {btCODE128AUTO, "12345", {105, 12, 34, 101, 21}},
      {btCODE128AUTO, "1234ab", {105, 12, 34, 100, 65, 66}},
      {btCODE128AUTO, "ab1234", {104, 65, 66, 99, 12, 34}},
      {btCODE128AUTO, "ab12", {104, 65, 66, 99, 12}},
      {btCODE128AUTO, "ab1234cd", {104, 65, 66, 17, 18, 19, 20, 67, 68}},
      {btCODE128AUTO, "ab123456cd", {104, 65, 66, 99, 12, 34, 56, 100, 67, 68}},
      {btCODE128AUTO, "ab12345", {104, 65, 66, 99, 12, 34, 100, 21}},
      {btCODE128AUTO, "\xE9", {104, 100, 73}},
      {btCODE128AUTO, "\xE9\xE8", {104, 100, 100, 73, 72}},
      {btCODE128AUTO,
       "a\xE9"
       "b",
       {104, 65, 100, 73, 66}},
      {btCODE128AUTO,
       "a\xE9\xE9\xE9\xE9"
       "b",
       {104, 65, 100, 100, 73, 73, 73, 73, 100, 100, 66}},
      {btCODE128AUTO, "a\xE9\xE9\xE9\xE9", {104, 65, 100, 100, 73, 73, 73, 73}},
      {btEAN128AUTO, "ab", {104, 102, 65, 66}}};
  for (const auto& [type, code, expected] : cases) {
    const std::vector<int> values = Values(Encode(type, code).pattern);
    ASSERT_GE(values.size(), expected.size()) << code;
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), values.begin())) << code;
    int sum = values[0];
    for (std::size_t i = 1; i + 1 < values.size(); ++i) sum += values[i] * static_cast<int>(i);
    EXPECT_EQ(values.back(), sum % 103) << code;
  }
}

TEST(Barcode, AnAutomaticTypeWithoutModeHasNoPattern) {
  EXPECT_EQ(TBarcode::FillBarPattern("ab", btCODE128AUTO, at128None, false), "");
}

/// Whatever the bytes, a pattern has elements of the language and at most a known number for each character.
TEST(Barcode, EveryTextEnds) {
  std::mt19937 random(7);
  for (int round = 0; round < 400; ++round) {
    std::string code(random() % 40, ' ');
    for (char& c : code) c = static_cast<char>(round % 2 == 0 ? random() : '0' + random() % 12);
    for (int type = 0; type < EnumCount<TZORBarType>; ++type) {
      for (int mode = 0; mode < EnumCount<TZOR128AutoType>; ++mode) {
        const std::string pattern = TBarcode::FillBarPattern(
            code, static_cast<TZORBarType>(type), static_cast<TZOR128AutoType>(mode), round % 3 == 0);
        EXPECT_LE(pattern.size(), 24 * code.size() + 80) << type;
        EXPECT_EQ(pattern.find_first_not_of("NMDTWFAB156238749"), std::string::npos) << type;
      }
      Encode(static_cast<TZORBarType>(type), code, true, true);
    }
  }
}

// Measuring -------------------------------------------------------------------------

TEST(Barcode, WidthsAreWholeBasePoints) {
  EXPECT_EQ(TBarcode::BarCodeWidth("N1D2T3W4", 301, 2.5F, true), 301 * 20);
  EXPECT_EQ(TBarcode::BarCodeWidth("M6", 301, 2.5F, true), 2 * 752);  // 752.5 to even
  EXPECT_EQ(TBarcode::BarCodeWidth("F", 301, 2.5F, true), 451);
  EXPECT_EQ(TBarcode::BarCodeWidth("N1D2T3W4", 300, 2, false), 18000);
  EXPECT_EQ(TBarcode::BarCodeWidth(std::string(1000, 'W'), INT_MAX, 6, true), INT_MAX);
}

TEST(Barcode, GroupsOfDigitsStandInTheMiddleOfTheirBars) {
  double first = 0, second = 0, third = 0;
  TBarcode::Ean13Pos(Encode(btEAN13, "4006381333931").pattern, 1, 2, first, second);
  EXPECT_EQ(first, 3 + 21);
  EXPECT_EQ(second, 3 + 42 + 5 + 21);
  TBarcode::Ean8Pos(Encode(btEAN8, "96385074").pattern, 0.5, 2, first, second);
  EXPECT_EQ(first, (3 + 14) / 2.0);
  EXPECT_EQ(second, (3 + 28 + 5 + 14) / 2.0);
  TBarcode::UPCAPos(Encode(btUPCA, "036000291452").pattern, 1, 2, first, second, third);
  EXPECT_EQ(third, 95);
  TBarcode::UPCEPos(Encode(btUPCE0, "01234565").pattern, 1, 2, first, second);
  EXPECT_EQ(first, 3 + 21);
  EXPECT_EQ(second, 51);
}

}  // namespace
}  // namespace Zor
