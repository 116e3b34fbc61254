#include "Readers.hpp"
#include "kaldrix/codes/ZOR.PDF417.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace {

using namespace Zor;

using TWords = std::vector<int>;

TWords Words(std::string_view aText) {
  TCodeWords words;
  TPDF417::Reset(words);
  TPDF417::Encode(words, aText);
  return {words.begin() + 1, words.begin() + TPDF417::UsedCodeWords()};
}

template <class TBody>
std::string Failure(TBody aBody) {
  try {
    aBody();
  } catch (const EConvertError&) {
    return "EConvertError";
  } catch (const Exception& error) {
    return error.what();
  }
  return "none";
}

TEST(PDF417Test, TextBecomesCodewords) {
  struct TCase {
    const char* text;
    TWords words;
  };
  const TCase cases[] = {
      {"PDF417", {453, 178, 121, 239}},    // ISO/IEC 15438, annex Q
      {"abc", {27 * 30 + 0, 1 * 30 + 2}},  // one latch
      {"abcd", {27 * 30 + 0, 1 * 30 + 2, 3 * 30 + 29}},
      {"A1", {0 * 30 + 28, 1 * 30 + 29}},  // no shift leads there
      {"A;B", {0 * 30 + 29, 0 * 30 + 1}},  // a shift: the next one fits
      {"A;;B", {0 * 30 + 28, 25 * 30 + 0, 0 * 30 + 29, 1 * 30 + 29}},
      {"aBc", {27 * 30 + 0, 27 * 30 + 1, 2 * 30 + 29}},
      {"aBCd", {27 * 30 + 0, 28 * 30 + 28, 1 * 30 + 2, 27 * 30 + 3}},
      {"1;a", {28 * 30 + 1, 25 * 30 + 0, 29 * 30 + 27, 0 * 30 + 29}},
      {";1a", {28 * 30 + 25, 0 * 30 + 29, 28 * 30 + 1, 27 * 30 + 0}},
      {"A", {901, 65}},
      {"\xC4"
       "A\t",
       {901, 65}},  // what the filter drops
      {"AB\\\\C", {0 * 30 + 1, 29 * 30 + 5, 2 * 30 + 29}},
      {"A\\", {0 * 30 + 29, 5 * 30 + 29}},  // no escape at the end
      {"A\\-B", {0 * 30 + 28, 25 * 30 + 5, 16 * 30 + 29, 1 * 30 + 29}},
      {"\\065\\x42", {0 * 30 + 1}},
      {"A\\C925B", {0 * 30 + 29, 925, 1 * 30 + 29}},
      {"\\G000007A", {927, 7, 0 * 30 + 29}},
      {"\\G000900A", {926, 0, 0, 0 * 30 + 29}},
      {"\\g810899A", {926, 899, 899, 0 * 30 + 29}},
      {"\\g810901A", {925, 1, 0 * 30 + 29}},
      {"\\g811800A", {0 * 30 + 29}},
      {"A\\200B", {0 * 30 + 29, 913, 200, 1 * 30 + 29}},
  };
  for (const TCase& c : cases) EXPECT_EQ(Words(c.text), c.words) << c.text;
}

TEST(PDF417Test, LongRunsOfDigitsAreNumeric) {
  // ISO/IEC 15438, 5.4.4.2: the example of numeric compaction.
  EXPECT_EQ(Words("000213298174000A"), (TWords{902, 1, 624, 434, 632, 282, 200, 901, 65}));
  EXPECT_EQ(Words("00000000000000")[0], 28 * 30) << "14 digits at the end";
  EXPECT_EQ(Words("00000000000000A")[0], 902);
  EXPECT_EQ(Words("0000000000000A")[0], 28 * 30) << "13 digits";
  EXPECT_EQ(Words("000000000000000")[0], 902) << "15 digits at the end";
  // Groups of 44 and 1 digits, then text behind its latch.
  const TWords words = Words(std::string(45, '9') + "AB");
  ASSERT_EQ(words.size(), 1 + 15 + 1 + 2U);
  EXPECT_EQ(words[16], 19);
  EXPECT_EQ(TWords(words.end() - 2, words.end()), (TWords{900, 1}));
  // Text first, which ends where the digits begin.
  EXPECT_EQ(Words("A" + std::string(15, '1'))[1], 902);
}

TEST(PDF417Test, EmptyTextsAndBadEscapes) {
  TCodeWords words;
  TPDF417::Reset(words);
  EXPECT_FALSE(TPDF417::Encode(words, "\xC4\xD6\n"));
  EXPECT_EQ(TPDF417::UsedCodeWords(), 1);
  EXPECT_EQ(words[1], TPDF417::PadWord);
  for (const char* text :
       {"A\\12", "A\\1x2", "A\\C12", "A\\Cabc", "A\\X4", "A\\XG1", "A\\G12345", "A\\C-12"}) {
    EXPECT_EQ(Failure([&] { Words(text); }), "EConvertError") << text;
  }
  for (const char* text : {"A\\256", "A\\C929"}) {
    EXPECT_EQ(Failure([&] { Words(text); }), "PDF417 Encode Error") << text;
  }
}

TEST(PDF417Test, CheckWords) {
  TCodeWords words{5, 453, 178, 121, 239};
  words[10] = 7;
  TPDF417::CalculateECC(words, 5, 4);  // ISO/IEC 15438, annex Q
  EXPECT_EQ(TWords(words.begin(), words.begin() + 11),
            (TWords{5, 453, 178, 121, 239, 452, 327, 657, 619, 0, 0}));
  for (const auto& [data, check] : {std::pair{0, 2}, {5, 3}, {5, 1024}, {927, 2}, {417, 512}}) {
    EXPECT_EQ(Failure([&] { TPDF417::CalculateECC(words, data, check); }), "PDF417 Encode Error");
  }
  EXPECT_EQ(Failure([&] { TPDF417::CalculateECC(words, 416, 512); }), "none");
  words[3] = 929;
  EXPECT_EQ(Failure([&] { TPDF417::CalculateECC(words, 5, 2); }), "PDF417 Encode Error");
}

TEST(PDF417Test, LevelGoesByTheCodewordsUsed) {
  TCodeWords words;
  for (const auto& [used, level] : {std::pair{40, 2}, {41, 3}, {160, 3}, {161, 4}, {320, 4}, {321, 5}}) {
    TPDF417::Encode(words, std::string(static_cast<std::size_t>(used - 1) * 2, 'A'));
    ASSERT_EQ(TPDF417::UsedCodeWords(), used);
    EXPECT_EQ(TPDF417::GetCorrecLevel(Auto), level);
    EXPECT_EQ(TPDF417::GetCorrecLevel(Level7), 7);
  }
}

TEST(PDF417Test, SizeFollowsWishesAndNeed) {
  struct TCase {
    int check, used, wishCols, wishRows, cols, rows;  // no columns: refused
  };
  const TCase cases[] = {
      {8, 5, 0, 0, 3, 5},      {2, 1, 0, 0, 1, 3},   {2, 2, 0, 0, 1, 4},      {2, 3, 0, 0, 2, 4},
      {2, 10, 3, 0, 3, 5},     {2, 9, 0, 6, 2, 6},   {2, 10, 0, 6, 3, 6},     {2, 10, 3, 4, 3, 4},
      {2, 11, 3, 4, 0, 0},     {2, 1, 30, 90, 0, 0}, {64, 864, 0, 0, 29, 32}, {64, 865, 0, 0, 0, 0},
      {64, 27, 1, 0, 0, 0},    {2, 88, 1, 0, 1, 90}, {2, 88, 0, 3, 30, 3},    {2, 89, 0, 3, 0, 0},
      {512, 10, 0, 0, 22, 24},
  };
  for (const TCase& c : cases) {
    std::int16_t cols = 0, rows = 0;
    const std::string failure =
        Failure([&] { TPDF417::AdjustSize(cols, rows, c.check, c.used, c.wishCols, c.wishRows); });
    EXPECT_EQ(failure, c.cols == 0 ? "PDF417 Encode Error" : "none") << c.used;
    EXPECT_EQ(cols, c.cols) << c.used;
    EXPECT_EQ(rows, c.rows) << c.used;
  }
}

TEST(PDF417Test, RefusesWhatDoesNotFitAndKeepsTheFormerWords) {
  TCodeWords words;
  TPDF417::Reset(words);
  TPDF417::Encode(words, "former");
  const TCodeWords former = words;
  const int used = TPDF417::UsedCodeWords();
  for (const std::string& text :
       {std::string(1851, 'A'), std::string(100'000, '7'), std::string(100'000, 'a')}) {
    EXPECT_EQ(Failure([&] { TPDF417::Encode(words, text); }), "PDF417 Encode Error");
    EXPECT_EQ(words, former);
    EXPECT_EQ(TPDF417::UsedCodeWords(), used);
  }
  EXPECT_TRUE(TPDF417::Encode(words, std::string(1850, 'A')));
  EXPECT_EQ(TPDF417::UsedCodeWords(), 926);
}

TEST(PDF417Test, RefusesWhatIsNoCodeword) {
  for (const int word : {-1, 929}) {
    EXPECT_THROW(TPDF417::Widths(0, word), EArgumentOutOfRangeException);
    EXPECT_THROW(TPDF417::Modules(0, word), EArgumentOutOfRangeException);
  }
}

// What a reader sees --------------------------------------------------

struct TSymbol {
  std::int16_t cols = 0, rows = 0;
  int level = 0;
  TCodeWords words;
};

TSymbol Symbol(std::string_view aText, TZORPdf417CorrectionLevel aLevel, int aCols = 0, int aRows = 0) {
  TSymbol symbol;
  TPDF417::Reset(symbol.words);
  TPDF417::Encode(symbol.words, aText);
  symbol.level = TPDF417::GetCorrecLevel(aLevel);
  const int check = TPDF417::NumErrorCWords(symbol.level);
  TPDF417::AdjustSize(symbol.cols, symbol.rows, check, TPDF417::UsedCodeWords(), aCols, aRows);
  symbol.words[0] = static_cast<std::uint16_t>(symbol.cols * symbol.rows - check);
  TPDF417::CalculateECC(symbol.words, symbol.words[0], check);
  return symbol;
}

/// Paints bars of one row from a column on; the column behind them comes back.
template <class TWidths>
int PaintBars(TSymbolImage& aImage, const TWidths& aWidths, int aX, int aY) {
  bool bar = true;
  for (const int width : aWidths) {
    if (bar) aImage.Fill(aX, aY, width, 1);
    aX += width;
    bar = !bar;
  }
  return aX;
}

TSymbolImage Image(const TSymbol& s, bool aTruncated) {
  const int width = aTruncated ? 17 * (s.cols + 2) + 1 : 17 * (s.cols + 4) + 1;
  TSymbolImage image(width, s.rows, 2, 8, 20);
  auto word = s.words.begin();
  for (int row = 0; row < s.rows; ++row) {
    int x = PaintBars(image, TPDF417::StartPattern, 0, row);
    x = PaintBars(image, TPDF417::Widths(row, TPDF417::LeftIndicator(row, s.rows, s.cols, s.level)), x, row);
    for (int col = 0; col < s.cols; ++col) x = PaintBars(image, TPDF417::Widths(row, *word++), x, row);
    if (aTruncated) {
      x = PaintBars(image, std::array{1}, x, row);
    } else {
      x = PaintBars(image, TPDF417::Widths(row, TPDF417::RightIndicator(row, s.rows, s.cols, s.level)), x,
                    row);
      x = PaintBars(image, TPDF417::StopPattern, x, row);
    }
    EXPECT_EQ(x, width);
  }
  return image;
}

TEST(PDF417Test, EveryLevelAndSizeIsReadable) {
  TReaderRun run;
  TRandomText random(1);
  std::vector<std::string> texts;
  const auto add = [&](const std::string& aText, const TSymbol& aSymbol, bool aTruncated) {
    texts.push_back(aText);
    run.Add(Image(aSymbol, aTruncated));
  };
  // A backslash would begin escapes.
  std::string alphabet(Printable);
  std::erase(alphabet, '\\');
  for (int level = Level0; level <= Auto; ++level) {
    const std::string text = random.Of(alphabet, 40) + random.Of("0123456789", 57) + random.Of("abC1;", 30);
    add(text, Symbol(text, static_cast<TZORPdf417CorrectionLevel>(level)), false);
  }
  for (const auto& [cols, rows] : {std::pair{1, 0}, {0, 3}, {30, 0}, {0, 90}, {7, 40}, {2, 0}}) {
    const std::string text = random.Of(alphabet, 20);
    add(text, Symbol(text, Level2, cols, rows), false);
    add(text, Symbol(text, Level2, cols, rows), true);
  }
  for (const std::size_t length : {1U, 2U, 3U, 200U, 500U, 1000U}) {
    const std::string text = random.Of(length < 1000 ? alphabet : "abcdefghijklmnopqrstuvwxyz ", length);
    add(text, Symbol(text, Auto), false);
  }
  EXPECT_EQ(ReadWithZXing(run, "PDF417"), texts);
}

}  // namespace
