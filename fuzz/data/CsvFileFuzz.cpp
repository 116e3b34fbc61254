// Any bytes as a file of columns: the first byte chooses code, delimiter and quote. Lines and columns have to
// make up the file again, and every text is UTF-8. The same bytes as records hold no line that lines do not.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/platform/TCsvFile.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace {

using namespace Zor;

constexpr char Delimiters[] = {';', ',', '\t', ' '};
constexpr char Quotes[] = {0, '\'', '"'};

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

void TryLine(TCsvFile& aFile, int aLine, bool aQuoted, char aDelimiter) {
  aFile.GoTo(aLine);
  const std::string_view line = aFile.Line(aLine);
  Require(line.find_first_of("\r\n") == std::string_view::npos);
  std::string joined;
  const int columns = aFile.ColumnCount();
  for (int i = 0; i < columns; ++i) {
    const std::string text = aFile.Column(i);
    Require(Utf8::IsValid(text));
    Require(text.find('\0') == std::string::npos);
    // Looked up by place, a column costs those in front of it.
    if (i < 64 || !aQuoted) joined += (i == 0 ? "" : std::string(1, aDelimiter));
    if (i < 64) joined += aFile.RawColumn(aLine, i);
  }
  if (!aQuoted && columns <= 64) Require(joined == line);
  Require(aFile.Column(columns).empty() && aFile.Column(-1).empty());
  for (const TCsvProblem& problem : aFile.Problems(3)) {
    Require(problem.line == aLine && problem.column >= 0 && problem.column <= columns);
  }
}

/// Records begin where lines begin, in their order, and are as good as lines for all that is asked of them.
void TryRecords(const TCsvFile& aLines, const std::string& aBytes, TTextCode aCode, const TCsvForm& aForm) {
  const auto records = TCsvFile::OfRecords("input", TFileWindow(aBytes), aCode);
  records->SetCsvForm(aForm);
  Require(records->LineCount() <= aLines.LineCount());
  int former = 0;
  for (int i = 1; i <= records->LineCount(); ++i) {
    const int line = records->LineNumber(i);
    Require(line > former && line <= aLines.LineCount());
    Require(records->Line(i).starts_with(aLines.Line(line)));
    former = line;
    records->GoTo(i);
    for (int k = 0; k < records->ColumnCount(); ++k) {
      const std::string text = records->Column(k);
      Require(Utf8::IsValid(text) && text.find('\r') == std::string::npos);
    }
    for (const TCsvProblem& problem : records->Problems(3)) Require(problem.line == line);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  if (aSize == 0) return 0;
  const unsigned choice = aData[0];
  const TCsvForm form{Delimiters[choice / 3 % 4], Quotes[choice / 12 % 3]};
  const std::string bytes(reinterpret_cast<const char*>(aData) + 1, aSize - 1);
  TCsvFile file("input", bytes, static_cast<TTextCode>(choice % 3));
  file.SetCsvForm(form);
  Require(file.LineCount() <= static_cast<int>(bytes.size()));
  for (int line = 1; line <= file.LineCount(); ++line) {
    TryLine(file, line, form.quote != 0, form.delimiter);
  }
  file.GoTo(1);
  for (const TCsvProblem& problem : file.HeaderProblems()) Require(!problem.what.empty());
  TryRecords(file, bytes, static_cast<TTextCode>(choice % 3), form);
  GuessTextCode(TFileWindow(bytes));
  return 0;
}
