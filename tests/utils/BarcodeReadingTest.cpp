// What a reader would make of a linear code, and GS1 element strings.
#include <gtest/gtest.h>

#include "kaldrix/utils/BarcodeReading.hpp"
#include "kaldrix/utils/Gs1.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor {
namespace {

constexpr TBarcodeTerms Plain{}, Check{.checkSum = true}, Pad{.padding = true},
    CheckAndPad{.checkSum = true, .padding = true}, NoParentheses{.ignoreParentheses = true},
    Elements{.elementString = true};

struct TRead {
  TZORBarType type;
  TBarcodeTerms terms;
  std::string code;
  std::string text;     ///< what is read
  const char* problem;  ///< a part of it; empty: the code is what is read
};

const TRead Reads[] = {
    // Articles.
    {btEAN13, Plain, "4012345100006", "4012345100006", ""},
    {btEAN13, Plain, "4012345100007", "4012345100007", "it would be 4012345100006"},
    {btEAN13, Check, "4012345100006", "4012345100006", ""},
    {btEAN13, Check, "4012345100007", "4012345100006", "it would be 4012345100006"},
    {btEAN13, Check, "401234510000", "4012345100006", ""},
    {btEAN13, Check, "12345", "0000000123457", "zeros in front"},
    {btEAN13, CheckAndPad, "12345", "0000000123457", ""},
    {btEAN13, Plain, "12345", "", "no code of EAN-13"},
    {btEAN8, Plain, "12345670", "12345670", ""},
    {btEAN8, Plain, "12345671", "12345671", "12345670"},
    {btUPCA, Plain, "012345678905", "012345678905", ""},
    {btUPCA, Check, "012345678906", "012345678905", "012345678905"},
    // The check digit is that of 01234500006, and of 04210000526.
    {btUPCE0, Plain, "01234565", "01234565", ""},
    {btUPCE0, Plain, "01234560", "01234560", "it would be 01234565"},
    {btUPCE0, Plain, "11234562", "11234562", "number system 0"},
    {btUPCE0, Check, "0425261", "04252610", "give all digits, 04252614"},
    // Digits.
    {btINTER_25, Plain, "123", "0123", "zeros in front"},
    {btINTER_25, Pad, "123", "0123", ""},
    {btINTER_25, Check, "123", "1236", ""},
    {btCODE128C, Plain, "123", "0123", "zeros in front"},
    {btCODE128C, Check, "1234", "012348", "zeros in front"},
    {btMSI, Check, "1234567", "12345674", ""},
    {btCODE11, Check, "123", "12310", "is 10"},  // 1*3 + 2*2 + 3*1
    {btPOSTNET, Plain, "12345", "12345", "123455"},
    {btPOSTNET, Plain, "123455", "123455", ""},
    // Letters.
    {btCODE39, Plain, "AB-12", "AB-12", ""},
    {btCODE39, Plain, "ab", "AB", "no lower case"},
    {btCODE39, Plain, "A*B", "A*B", "'*' starts and stops"},
    {btCODE39EX, Plain, "a*\x01\x7F", "a*\x01\x7F", ""},
    {btCODE39EX, Check, "ZC", "ZC4", ""},
    {btCODE39EX, Check, "Z4", "Z4$", "which full ASCII draws as two"},
    {btCODABAR, Plain, "-+-", "-+-", ""},
    {btCODABAR, Plain, "12X", "", "no code of Codabar"},
    // Code 128.
    {btCODE128A, Plain, std::string("A\0\x1F", 3), std::string("A\0\x1F", 3), ""},
    {btCODE128B, Plain, "a\x7F", "a ", "'\\x7F' and becomes ' '"},
    {btCODE128B, Check, "12A", "12A", "no check digit"},
    {btCODE128AUTO, Plain, "abc1234567", "abc1234567", ""},
    {btCODE128AUTO, Plain, "12345", "12345", ""},
    {btCODE128AUTO, Plain, "a\xE9\xFC", "a\xE9\xFC", ""},
    {btCODE128AUTO, Plain, "a \xE9\xE8\xE7\xE6 b",
     "a \xE9\xE8\xE7\xE6\xA0"
     "b",
     "becomes '\\xA0'"},
    {btCODE128AUTO, Plain, "\xE9 \xE8", "\xE9\xA0\xE8", "becomes '\\xA0'"},
    {btCODE128AUTO, Plain, "\x80", "", "no code of Code 128"},
    {btCODE128AUTO, Plain, "\x01\xE9", "", "no code of Code 128"},
    // GS1-128.
    {btEAN128AUTO, Plain, "10ABC", "10ABC", ""},
    {btEAN128AUTO, Plain, "\xE9", "", "no bars"},
    {btEAN128AUTO, Plain, "(10)ABC", "(10)ABC", "IgnoreParentheses"},
    {btEAN128AUTO, NoParentheses, "(01)04006381333931(10)ABC", "010400638133393110ABC", ""},
    {btEAN128AUTO, NoParentheses, "(10)ABC(21)1", "10ABC211", "(10)"},
    {btEAN128C, NoParentheses, "(00)340123459000000003", "00340123459000000003", ""},
    {btEAN128C, NoParentheses, "(00)340123459000000008", "", "it would be '340123459000000003'"},
    {btEAN128AUTO, Elements, "(10)ABC(21)1",
     "10ABC\x1D"
     "211",
     ""},
    {btEAN128B, Elements, "(10)ABC(21)123456",
     "10ABC\x1D"
     "21123456",
     ""},
    {btEAN128C, Elements, "(37)12(00)340123459000000003",
     "3712\x1D"
     "00340123459000000003",
     ""},
    {btEAN128C, Elements, "(37)123", "371200", "would be read as"},
    {btEAN128A, Elements, "(10)abc", "10   ", "would be read as"},
    {btEAN128AUTO, Elements, "(91)" + std::string(47, '1'), "91" + std::string(47, '1'), "no more than 48"},
    {btEAN128AUTO, Elements, "10(C", "10(C", ""},
};

TEST(BarcodeReadingTest, TellsWhatIsReadAndWhyItIsNotTheCode) {
  for (const TRead& row : Reads) {
    const TBarcodeReading reading = ReadingOf(row.code, row.type, row.terms);
    EXPECT_EQ(reading.text, row.text) << row.type << " " << row.code;
    EXPECT_NE(reading.problem.find(row.problem), std::string::npos) << row.code << ": " << reading.problem;
    EXPECT_EQ(reading.problem.empty(), std::string_view(row.problem).empty())
        << row.code << ": " << reading.problem;
  }
}

TEST(BarcodeReadingTest, NothingIsNoCodeOfAnyType) {
  for (int type = 0; type < EnumCount<TZORBarType>; ++type) {
    for (const TBarcodeTerms& terms : {Plain, CheckAndPad, Elements}) {
      EXPECT_FALSE(ReadingOf("", static_cast<TZORBarType>(type), terms).problem.empty()) << type;
    }
  }
}

TEST(Gs1Test, ElementsAreChecked) {
  struct TCase {
    const char *text, *problem;
  };
  const TCase cases[] = {
      {"(01)04006381333931", ""},
      {"(01)04006381333930", "it would be '04006381333931'"},
      {"(01)0400638133393", "13 characters where 14 belong"},
      {"(01)0400638133393X", "where a digit belongs"},
      {"(10)", "0 characters where 1 to 20 belong"},
      {"(10)123456789012345678901", "21 characters where 1 to 20 belong"},
      {"(10)A#B", "'#' stands where a character of GS1 set 82"},
      {"(10)A(B)(12", ""},
      {"(10)A(99)B", ""},
      {"(10)A(05)B", "no application identifier (05)"},
      {"(17)261200", ""},
      {"(17)261301", "'261301' is no date"},
      {"(17)260229", "is no date"},
      {"(17)280229", ""},
      {"(7006)261200", "is no date"},
      {"(7007)261201", ""},
      {"(7007)261201270101", ""},
      {"(7007)2612012701", "is cut"},
      {"(7003)2612012359", ""},
      {"(7003)2612012460", "no time"},
      {"(7011)261201", ""},
      {"(7011)2612012359", ""},
      {"(7011)26120123", "is cut"},
      {"(7011)2612012360", "no time"},
      {"(8008)26120123", ""},
      {"(8008)2612012359", ""},
      {"(8008)261201235959", ""},
      {"(8008)261201235", "minutes"},
      {"(8008)2612012360", "minutes"},
      {"(8008)261201235960", "minutes"},
      {"(8008)26120124", "no time"},
      {"(4324)2612019999", ""},
      {"(4324)2613010900", "is no date"},
      {"(3103)001250", ""},
      {"(3106)001250", "no application identifier (3106)"},
      {"(3171)001250", "no application identifier (3171)"},
      {"(3909)15", ""},
      {"(253)4006381333931AB", ""},
      {"(8006)040063813339310102", ""},
      {"(8006)04006381333931010", "17 characters where 18 belong"},
      {"(8010)12-A", ""},
      {"(8010)12a", "set 39"},
      {"(423)276040", ""},
      {"(423)27604", "three digits"},
      {"(4330)000100-", ""},
      {"(4330)000100+", "minus sign"},
      {"(1)1", "does not begin with an application identifier"},
      {"(abc)1", "does not begin with an application identifier"},
      {"(01", "does not begin with an application identifier"},
  };
  for (const TCase& row : cases) {
    const std::string problem = Gs1Problem(row.text);
    EXPECT_NE(problem.find(row.problem), std::string::npos) << row.text << ": " << problem;
    EXPECT_EQ(problem.empty(), std::string_view(row.problem).empty()) << row.text << ": " << problem;
  }
}

TEST(Gs1Test, SeparatorsStandBehindWhatHasNoLengthOfItsOwn) {
  EXPECT_EQ(Gs1Data("(10)A(B(01)04006381333931(17)261200(21)7"),
            "10A(B\x1D"
            "010400638133393117261200217");
  EXPECT_EQ(Gs1Data("(3103)001250(410)4006381333931(400)X(7001)1234567890123(90)1"),
            "31030012504104006381333931400X\x1D"
            "70011234567890123\x1D"
            "901");
  EXPECT_EQ(Gs1FirstSeparated("(17)261200(37)2(10)B"), "37");
  EXPECT_EQ(Gs1FirstSeparated("(17)261200(10)B"), "");
}

}  // namespace
}  // namespace Zor
