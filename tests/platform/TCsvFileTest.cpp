#include <gtest/gtest.h>

#include <fstream>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TCsvFile.hpp"
#include "kaldrix/platform/TextNumbers.hpp"

namespace Zor {
namespace {

using TTexts = std::vector<std::string>;

TTexts ColumnsOf(TCsvFile& aFile, int aLine = 1) {
  aFile.GoTo(aLine);
  TTexts columns;
  for (int i = 0; i < aFile.ColumnCount(); ++i) columns.push_back(aFile.Column(i));
  return columns;
}

TEST(TCsvFile, LinesEndInThreeWays) {
  struct TCase {
    std::string bytes;
    TTexts lines;
  };
  const TCase cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\nb", {"a", "b"}},
      {"a\r\nb\r\n", {"a", "b"}},
      {"a\rb\r", {"a", "b"}},
      {"a\n\rb\n\nc", {"a", "", "b", "", "c"}},
      {"\xEF\xBB\xBF", {}},
      {"\xEF\xBB\xBF\n", {""}},
  };
  for (const TCase& c : cases) {
    const TCsvFile file("f", c.bytes);
    ASSERT_EQ(file.LineCount(), static_cast<int>(c.lines.size())) << c.bytes;
    for (int i = 0; i < file.LineCount(); ++i) {
      EXPECT_EQ(file.Line(i + 1), c.lines[static_cast<std::size_t>(i)]) << c.bytes;
    }
  }
}

TEST(TCsvFile, OnlyTheDelimiterSeparates) {
  struct TCase {
    const char* line;
    TTexts columns;
    TCsvForm form;
  };
  const TCsvForm comma{',', '"'}, apostrophe{';', '\''}, plain{';', 0}, tab{'\t', '"'};
  const TCase cases[] = {
      {"", {}, comma},
      {",", {"", ""}, comma},
      {"a b, c ,d", {"a b", " c ", "d"}, comma},
      {R"("a,b",c)", {"a,b", "c"}, comma},
      {R"("a ""b"" c","")", {"a \"b\" c", ""}, comma},
      {R"("""")", {"\""}, comma},
      {R"(a"b",c)", {"a\"b\"", "c"}, comma},
      {R"( "a,b")", {" \"a", "b\""}, comma},
      {R"("a"b,c)", {"ab", "c"}, comma},
      {R"("a,b)", {"a,b"}, comma},
      {R"(")", {""}, comma},
      {"'it''s';\"x\"", {"it's", "\"x\""}, apostrophe},
      {R"("a";b)", {"\"a\"", "b"}, plain},
      {"a\t\"b\tc\"\t", {"a", "b\tc", ""}, tab},
  };
  for (const TCase& c : cases) {
    TCsvFile file("f", c.line);
    file.SetCsvForm(c.form);
    EXPECT_EQ(ColumnsOf(file, 1), c.columns) << c.line;
    EXPECT_EQ(file.Column(99), "");
    EXPECT_EQ(file.RawColumn(1, 99), "");
  }
}

TEST(TCsvFile, AColumnOfAnyLineIsReadWithoutMoving) {
  TCsvFile file("f", "a;b\n\"1;2\";\"3\"\n");
  file.GoTo(1);
  EXPECT_EQ(file.RawColumn(2, 0), "1;2");
  EXPECT_EQ(file.RawColumn(2, 1), "3");
  EXPECT_EQ(file.RawColumn(9, 0), "");
  EXPECT_EQ(file.Column(1), "b");
}

TEST(TCsvFile, TheMarkTellsTheCode) {
  struct TCase {
    std::string bytes;
    TTextCode code;
    const char* text;
  };
  const std::string_view little("\xFF\xFE\xE9\0=\xD8\0\xDE", 8), big("\xFE\xFF\0\xE9\xD8=\xDE\0", 8);
  const TCase cases[] = {
      {"\xEF\xBB\xBF\xC3\xA9", tcByMark, "é"},
      {"\xC3\xA9\x80", tcByMark, "Ã©€"},
      {"\xC3\xA9", tcUtf8, "é"},
      {"\xEF\xBB\xBF\xC3\xA9", tcUtf8, "é"},
      {"\xC3", tcUtf8, "\xEF\xBF\xBD"},
      {std::string(little), tcUtf16, "é😀"},
      {std::string(big), tcUtf16, "é😀"},
      {std::string("\xE9\0", 2), tcUtf16, "é"},
      {std::string("\0\xD8"
                   "a\0b",
                   5),
       tcUtf16,
       "\xEF\xBF\xBD"
       "a\xEF\xBF\xBD"},
      {std::string("a\0b", 3), tcByMark,
       "a\xEF\xBF\xBD"
       "b"},
  };
  for (const TCase& c : cases) {
    TCsvFile file("f", c.bytes, c.code);
    EXPECT_EQ(ColumnsOf(file), TTexts{c.text});
  }
}

TEST(TCsvFile, TellsWhatIsWrongWithALine) {
  using namespace std::string_literals;
  TCsvFile file("f", "id;Name;NAME;\n1;2;3;4\n1\n\n\"a;b\n\"a\"b;2;3;4\na\0;2;3;4"s);
  file.GoTo(1);
  const std::vector<TCsvProblem> names = file.HeaderProblems();
  ASSERT_EQ(names.size(), 2U);
  EXPECT_EQ(names[0].column, 3);
  EXPECT_EQ(names[0].what, "the name \"NAME\" stands for column 2 already");
  EXPECT_EQ(names[1].what, "the column has no name");

  struct TCase {
    int line;
    TTexts problems;
  };
  const TCase cases[] = {
      {2, {}},
      {3, {"there are 1 columns where 4 belong"}},
      {4, {"there are 0 columns where 4 belong"}},
      {5, {"there are 1 columns where 4 belong", "a quote is not closed"}},
      {6, {"there is text behind the closing quote"}},
      {7, {"there is a NUL character"}},
  };
  for (const TCase& c : cases) {
    file.GoTo(c.line);
    TTexts told;
    for (const TCsvProblem& problem : file.Problems(4)) {
      EXPECT_EQ(problem.line, c.line);
      told.push_back(problem.what);
    }
    EXPECT_EQ(told, c.problems) << c.line;
  }
}

TEST(TCsvFile, AMillionDelimitersTakeNoMillionColumns) {
  TCsvFile file("f", std::string(1'000'000, ';'));
  file.GoTo(1);
  EXPECT_EQ(file.ColumnCount(), TCsvFile::MostColumns);
  EXPECT_EQ(file.Problems(3).at(0).what, "there are more than 65536 columns");
}

TEST(TCsvFile, AFileThatDoesNotExistIsNamed) {
  EXPECT_THROW(TCsvFile::Open("no such file.csv"), EFileNotFoundException);
  EXPECT_THROW(TCsvFile::OpenFirstLine("no such file.csv"), EFileNotFoundException);
  EXPECT_THROW(TCsvFile::OpenFirstLine("/"), EStreamError);
}

TEST(TextNumbers, TakeWholeTextsOnly) {
  const double none = -999;
  const std::pair<const char*, double> cases[] = {
      {"12", 12},     {" 1.5 ", 1.5}, {"-3", -3},    {"+4", 4},       {"1e3", 1000},
      {".5", 0.5},    {"", none},     {"12a", none}, {"inf", none},   {"nan", none},
      {"0x10", none}, {"+-1", none},  {"1,5", none}, {"1e999", none},
  };
  for (const auto& [text, number] : cases) EXPECT_EQ(TextToNumber(text).value_or(none), number) << text;
  EXPECT_EQ(TextToWhole("9223372036854775807"), INT64_MAX);
  EXPECT_FALSE(TextToWhole("9223372036854775808"));
  EXPECT_FALSE(TextToWhole("1.0"));
  EXPECT_EQ(HeldWhole(1e300), INT32_MAX);
  EXPECT_EQ(HeldWhole(-2.9), -2);
}

TEST(TCsvFile, ALargeFileReadsAsItsBytesDo) {
  const std::string name = testing::TempDir() + "large.csv";
  std::string bytes = "\xEF\xBB\xBF";
  constexpr const char* ends[] = {"\r\n", "\n", "\r"};
  // Lines of all lengths, so that ends lie at every place of a window; one is longer than a window.
  for (int i = 0; i < 20000; ++i) {
    bytes += std::to_string(i) + ";" + std::string(static_cast<std::size_t>(i % 37), 'x') + ends[i % 3];
    if (i == 9000) bytes += "long;" + std::string(3 * TFileWindow::Step, 'y') + "\n";
  }
  WriteFileAtomically(name, bytes);
  const std::unique_ptr<TCsvFile> file = TCsvFile::Open(name);
  TCsvFile expected("f", bytes);
  ASSERT_EQ(file->LineCount(), expected.LineCount());
  for (int line = 1; line <= file->LineCount(); ++line)
    ASSERT_EQ(file->Line(line), expected.Line(line)) << line;
  for (int line = 1; line < file->LineCount(); line += 997) {
    file->GoTo(line);
    expected.GoTo(line);
    EXPECT_EQ(file->Column(1), expected.Column(1));
    EXPECT_EQ(file->RawColumn(file->LineCount() - line, 0), expected.RawColumn(file->LineCount() - line, 0));
    EXPECT_EQ(file->Column(0), expected.Column(0));
  }
  WriteFileAtomically(name, bytes + "more");
  EXPECT_EQ(file->Line(1), "0;") << "what replaced the file is another one";
  RemoveFile(name);
}

TEST(TCsvFile, AFileThatShrinksIsNoticed) {
  const std::string name = testing::TempDir() + "shrinks.csv";
  WriteFileAtomically(name, std::string(4 * TFileWindow::Step, 'a') + "\nend\n");
  const std::unique_ptr<TCsvFile> file = TCsvFile::Open(name);
  EXPECT_EQ(file->Line(2), "end");
  std::ofstream(name, std::ios::trunc) << "short";
  EXPECT_THROW(file->Line(1), EStreamError);
  RemoveFile(name);
}

}  // namespace
}  // namespace Zor
