#include "Readers.hpp"
#include "kaldrix/codes/ZOR.DataMatrix.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace {

using namespace Zor;

struct TSymbol {
  std::vector<std::uint8_t> modules;
  int cols = 0, rows = 0;

  TSymbolImage Image() const { return {modules, cols, rows, 5, 20}; }
};

TSymbol Symbol(std::string_view aText, TECC200Size aSize = ecc200_Autosize,
               TECC200Shape aShape = ecc200_Square) {
  const std::vector<std::uint8_t> data(aText.begin(), aText.end());
  TSymbol symbol;
  CalcECC200(data, aSize, aShape, symbol.modules, symbol.cols, symbol.rows);
  return symbol;
}

std::string Failure(std::string_view aText, TECC200Size aSize = ecc200_Autosize,
                    TECC200Shape aShape = ecc200_Square) {
  try {
    Symbol(aText, aSize, aShape);
  } catch (const Exception& error) {
    return error.what();
  }
  return "none";
}

/// The codewords of a symbol as a reader sees them, without corrections.
std::vector<int> Words(const TReaderRun& aRun) {
  std::istringstream read(aRun.Read("dmtxread -c -N1 -C0"));
  std::vector<int> words;
  for (std::string word; read >> word;) words.push_back(std::atoi(word.substr(2).c_str()));
  return words;
}
std::vector<int> Codewords(const std::string& aText) {
  TReaderRun run;
  run.Add(Symbol(aText).Image());
  return Words(run);
}

/// Takes off the 255-state randomising of ISO/IEC 16022, annex B, from a position on, 0-based.
std::vector<int> Plain(const std::vector<int>& aWords, std::size_t aFrom, std::size_t aCount) {
  std::vector<int> plain;
  for (std::size_t i = aFrom; i < aFrom + aCount; ++i) {
    plain.push_back((aWords[i] - static_cast<int>(149 * (i + 1) % 255 + 1) + 256) % 256);
  }
  return plain;
}

TEST(DataMatrixTest, CodewordsOfShortTexts) {
  struct TCase {
    const char* text;
    std::vector<int> words;
  };
  const TCase cases[] = {
      {"123456", {142, 164, 186, 114, 25, 5, 88, 102}},  // ISO/IEC 16022, annex O, with its check words
      {"", {129, 175, 70}},
      {"\xC8", {235, 73, 129}},
      {"7", {56, 129, 70}},
      {"a1b23", {98, 50, 99, 153, 129}},
      {"A very long lower-case text", {66, 33, 119, 102, 115, 122}},  // no other scheme, whatever saves more
  };
  for (const TCase& c : cases) {
    std::vector<int> words = Codewords(c.text);
    ASSERT_GE(words.size(), c.words.size()) << c.text;
    words.resize(c.words.size());
    EXPECT_EQ(words, c.words) << c.text;
  }
}

TEST(DataMatrixTest, HighBytesGoOutInBase256) {
  const std::vector<int> words = Codewords("\xC1\xC2\xC3\xC4\xC5");
  ASSERT_GE(words.size(), 7U);
  EXPECT_EQ(words[0], 231);
  EXPECT_EQ(Plain(words, 1, 6), (std::vector{5, 0xC1, 0xC2, 0xC3, 0xC4, 0xC5}));

  // From 250 bytes on the length takes two codewords.
  const std::vector<int> many = Codewords(std::string(251, '\xC1'));
  ASSERT_GE(many.size(), 254U);
  EXPECT_EQ(many[0], 231);
  EXPECT_EQ(Plain(many, 1, 3), (std::vector{250, 1, 0xC1}));
}

TEST(DataMatrixTest, EverySizeIsReadable) {
  TReaderRun run;
  TRandomText random(1);
  std::vector<std::string> texts;
  for (int size = ecc200_10x10; size < EnumCount<TECC200Size>; ++size) {
    const TECC200SymbolParam& param = SymbolParam(static_cast<TECC200Size>(size));
    texts.push_back(random.Of("abcdefghijklmnopqrstuvwxyz .,", static_cast<std::size_t>(param.DataLength)));
    const TSymbol symbol = Symbol(texts.back(), param.Size);
    EXPECT_EQ(symbol.rows, param.Rows);
    EXPECT_EQ(symbol.cols, param.Cols);
    run.Add(symbol.Image());
  }
  EXPECT_EQ(run.ReadEach("dmtxread -N1 -C0"), texts);
  // This reader expects the check words of the largest size elsewhere.
  std::vector<std::string> read = ReadWithZXing(run, "DataMatrix");
  read[ecc200_144x144 - 1] = texts[ecc200_144x144 - 1];
  EXPECT_EQ(read, texts);
}

TEST(DataMatrixTest, RandomBytesComeBack) {
  std::string allBytes, mixed = "0123456789  ABCabc*>\r";
  for (int i = 0; i < 256; ++i) allBytes += static_cast<char>(i);
  for (int i = 192; i < 256; i += 7) mixed += static_cast<char>(i);
  TReaderRun run;
  TRandomText random(2);
  std::vector<std::string> texts;
  for (std::size_t i = 1; i <= 40; ++i) {
    texts.push_back(random.Of(i % 2 == 0 ? allBytes : mixed, i * 3 / 2));
    run.Add(Symbol(texts.back()).Image());
  }
  EXPECT_EQ(run.ReadEach("dmtxread -N1 -C0"), texts);
}

TEST(DataMatrixTest, ElementStringsHaveAnFnc1FirstAndForEachSeparator) {
  const std::string data =
      "10ABC\x1D"
      "3712\x1D"
      "0104006381333931";
  TSymbol symbol;
  CalcGs1ECC200(std::vector<std::uint8_t>(data.begin(), data.end()), ecc200_Autosize, ecc200_Square,
                symbol.modules, symbol.cols, symbol.rows);
  TReaderRun run;
  run.Add(symbol.Image());
  // The words of a text are one less; 232 is the FNC1.
  const std::vector<int> words = Words(run);
  ASSERT_GE(words.size(), 9U);
  EXPECT_EQ(std::vector(words.begin(), words.begin() + 9),
            (std::vector{232, 140, 66, 67, 68, 232, 167, 142, 232}));
  EXPECT_EQ(run.ReadEach("ZXingReader -ispure -bytes -format DataMatrix"), std::vector{data});
}

TEST(DataMatrixTest, TakesTheSmallestSymbolOfTheShape) {
  EXPECT_EQ(Symbol("abc").cols, 10);
  EXPECT_EQ(Symbol("abcd").cols, 12);
  EXPECT_EQ(Symbol("abc", ecc200_Autosize, ecc200_Rectangle).cols, 18);
  EXPECT_EQ(Symbol(std::string(49, 'a'), ecc200_Autosize, ecc200_Rectangle).cols, 48);
  EXPECT_EQ(Symbol(std::string(1304, 'a')).cols, 132);
  EXPECT_EQ(Symbol(std::string(1305, 'a')).cols, 144);
  EXPECT_EQ(Symbol(std::string(3116, '1')).cols, 144);
}

TEST(DataMatrixTest, RefusesWhatDoesNotFit) {
  EXPECT_EQ(Failure(std::string(1558, 'a')), "none");
  EXPECT_EQ(Failure(std::string(1559, 'a')), "MakeCodeword Error");
  EXPECT_EQ(Failure("abcd", ecc200_10x10), "MakeCodeword Error");
  EXPECT_EQ(Failure(std::string(50, 'a'), ecc200_Autosize, ecc200_Rectangle), "MakeCodeword Error");
  EXPECT_EQ(Failure(std::string(1555, '\xC8')), "none");
  EXPECT_EQ(Failure(std::string(1556, '\xC8')), "Base256_Encode Error");
  EXPECT_EQ(Failure(std::string(50'000'000, ' ') + '\xC8'), "MakeCodeword Error");
  EXPECT_EQ(Failure("a", static_cast<TECC200Size>(31)), "There is no Data Matrix of size 31");
}

}  // namespace
