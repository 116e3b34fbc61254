// Files as spreadsheets write them, and the code that their bytes tell.
#include <gtest/gtest.h>

#include <random>

#include "kaldrix/platform/TCsvFile.hpp"

namespace Zor {
namespace {

using TTexts = std::vector<std::string>;
using TTable = std::vector<TTexts>;

std::unique_ptr<TCsvFile> Records(const std::string& aBytes, const TCsvForm& aForm = {}) {
  std::unique_ptr<TCsvFile> file = TCsvFile::OfRecords("f", TFileWindow(aBytes), tcUtf8);
  file->SetCsvForm(aForm);
  return file;
}

TTable TableOf(TCsvFile& aFile) {
  TTable table;
  for (int i = 1; i <= aFile.LineCount(); ++i) {
    aFile.GoTo(i);
    TTexts& row = table.emplace_back();
    for (int k = 0; k < aFile.ColumnCount(); ++k) row.push_back(aFile.Column(k));
  }
  return table;
}

TEST(TCsvRecords, AreWhatASpreadsheetWrote) {
  struct TCase {
    std::string bytes;
    TTable table;
    std::vector<int> lines;  ///< on which the records begin
  };
  const TCase cases[] = {
      {"", {}, {}},
      {"\n \n\t\n", {}, {}},
      {"a;b\n\nc\n\n", {{"a", "b"}, {}, {"c"}}, {1, 2, 3}},
      {"\"a\r\nb\rc\nd\";e\nf", {{"a\nb\nc\nd", "e"}, {"f"}}, {1, 5}},
      {"a;\"b\"\"\n\"\"\"\nc;\"\n\"\nd", {{"a", "b\"\n\""}, {"c", "\n"}, {"d"}}, {1, 3, 5}},
      {"a\"b\nc\"d", {{"a\"b"}, {"c\"d"}}, {1, 2}},
      {"\xEF\xBB\xBFSEP=,\na;b", {{"a", "b"}}, {2}},
      {"\"sep=;\"\r\n\"a\nb\"\nc", {{"a\nb"}, {"c"}}, {2, 4}},
      {"sep=;;\na", {{"sep=", "", ""}, {"a"}}, {1, 2}},
      {"a;\"b\nc;d\n", {{"a", "b"}, {"c", "d"}}, {1, 2}},
      {"\"a\n\"b;c\n\"d\"", {{"a\nb", "c"}, {"d"}}, {1, 3}},
  };
  for (const TCase& c : cases) {
    const auto file = Records(c.bytes);
    EXPECT_EQ(TableOf(*file), c.table) << c.bytes;
    std::vector<int> lines;
    for (int i = 1; i <= file->LineCount(); ++i) lines.push_back(file->LineNumber(i));
    EXPECT_EQ(lines, c.lines) << c.bytes;
  }
  EXPECT_EQ(TableOf(*Records("\"a\nb\"", {';', 0})), (TTable{{"\"a"}, {"b\""}})) << "nothing is quoted";
}

TEST(TCsvRecords, AnyTableComesBackThroughWindowsOfAnyPlace) {
  std::mt19937 random(7);
  TTable table;
  std::string bytes;
  const std::string letters = "ab;\"\n\n";
  while (bytes.size() < 5 * TFileWindow::Step) {
    TTexts& row = table.emplace_back();
    for (int column = 0; column < 3; ++column) {
      std::string text, quoted;
      for (std::size_t i = random() % (table.size() % 500 == 0 ? 60000 : 40); i > 0; --i) {
        text += letters[random() % letters.size()];
        quoted += text.back() == '"' ? "\"\"" : std::string(1, text.back());
      }
      bytes += (column > 0 ? ";\"" : "\"") + quoted + "\"";
      row.push_back(text);
    }
    bytes += "\n";
  }
  EXPECT_EQ(TableOf(*Records(bytes)), table);
}

TEST(TCsvRecords, QuotesThatAreMissingCostTheirRecordAndLinearTime) {
  constexpr int lines = 600'000;
  std::string bytes;
  for (int i = 0; i < lines; ++i) bytes += i % 200'000 == 50'000 ? "\"a;b\n" : "a;b;\"\"\n";
  const auto file = Records(bytes);
  ASSERT_EQ(file->LineCount(), lines);
  int problems = 0;
  for (int i = 1; i <= lines; ++i) {
    file->GoTo(i);
    problems += file->Problems(3).empty() ? 0 : 1;
  }
  EXPECT_EQ(problems, 3);
}

TEST(TextCode, IsTheOneThatTheBytesTell) {
  using namespace std::string_literals;
  const std::string plain(100, 'a'), far(3 * TFileWindow::Step, 'a');
  std::string cut;  // characters that lie across the ends of windows
  while (cut.size() < 2 * TFileWindow::Step) cut += "\xE2\x82\xAC";
  const std::pair<std::string, TTextCode> cases[] = {
      {"", tcUtf8},
      {plain, tcUtf8},
      {far + "\xC3\xA9", tcUtf8},
      {far + "\xE9 x", tcByMark},
      {cut, tcUtf8},
      {"a" + cut, tcUtf8},
      {cut + "\xE9 x", tcUtf8},  // one bad byte is a fault, and told as that
      {"\xC3\xA9 \xE9 \xE8 \xFC", tcByMark},
      {"\xFF\xFE"
       "a\0"s,
       tcUtf16},
      {"\xEF\xBB\xBF"
       "a\xE9"s,
       tcUtf8},
      {"a\0b\0\n\0"s, tcUtf16},
      {"\0a\0b\0\n"s, tcUtf16Big},
      {"\x1F\x04\x40\x04\x38\x04\x32\x04;\0\x35\x04\n\0"s, tcUtf16},
      {plain + "\0"s + plain, tcUtf8},
      {"A;B\n1\0x;2\n"s, tcUtf8},  // a NUL in a short text
  };
  for (const auto& [bytes, code] : cases) {
    EXPECT_EQ(GuessTextCode(TFileWindow(bytes)), code) << bytes.substr(0, 20) << " of " << bytes.size();
  }
}

}  // namespace
}  // namespace Zor
