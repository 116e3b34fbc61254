// Lines that a spreadsheet wrote, put together to records.
#include "kaldrix/platform/TCsvFile.hpp"

#include <algorithm>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

/// A quote that is not closed in so many bytes is taken for one that is missing, and its record ends with its
/// line. What has been looked through holds no quote that opens, so this keeps the cost linear.
constexpr std::size_t MostQuotedBytes = std::size_t{1} << 20;
constexpr std::size_t MostFirstLine = std::size_t{1} << 16;

bool IsBlank(std::string_view aLine) { return aLine.find_first_not_of(" \t") == std::string_view::npos; }

}  // namespace

char TCsvFile::DelimiterOf(std::string_view aLine) {
  if (aLine.size() > 1 && aLine.front() == '"' && aLine.back() == '"') {
    aLine = aLine.substr(1, aLine.size() - 2);
  }
  constexpr std::string_view word = "sep=";
  const bool tells = aLine.size() == word.size() + 1 && SameText(aLine.substr(0, word.size()), word);
  return tells ? aLine.back() : '\0';
}

std::string_view TCsvFile::FirstLine() const {
  const std::string_view head = fText.View(fFirst, std::min(fText.Size(), fFirst + MostFirstLine));
  return head.substr(0, head.find_first_of("\r\n"));
}

int TCsvFile::LineNumber(int aLine) const {
  const auto behind = std::upper_bound(fJumps.begin(), fJumps.end(), aLine,
                                       [](int line, const TJump& jump) { return line < jump.record; });
  return aLine + (behind == fJumps.begin() ? 0 : (behind - 1)->lines);
}

bool TCsvFile::EndsOpen(std::string_view aLine, bool aOpen) const {
  TColumn column;
  bool more = true;
  if (aOpen) {
    TakeQuoted(aLine, column);
    const std::size_t end = aLine.find(fForm.delimiter);
    more = end != std::string_view::npos;
    if (more) aLine.remove_prefix(end + 1);
  }
  while (more && !column.unclosed) more = TakeColumn(aLine, column);
  return column.unclosed;
}

std::size_t TCsvFile::LinesOfRecord(std::size_t aLine) const {
  const auto line = [this](std::size_t aIndex) { return Line(static_cast<int>(aIndex) + 1); };
  const std::string_view first = line(aLine);
  if (fForm.quote == 0 || first.find(fForm.quote) == std::string_view::npos || !EndsOpen(first, false)) {
    return 1;
  }
  for (std::size_t next = aLine + 1; next < fStarts.size(); ++next) {
    if (fStarts[next] - fStarts[aLine] > MostQuotedBytes) break;
    if (!EndsOpen(line(next), true)) return next + 1 - aLine;
  }
  return 1;
}

void TCsvFile::FindRecords() {
  FindLines();
  fJumps.clear();
  fCurrent = 0;
  // 1. The line that tells the delimiter is no record.
  std::size_t line = LineCount() > 0 && DelimiterOf(Line(1)) != '\0' ? 1 : 0;
  if (line > 0) fJumps.push_back({1, 1});
  // 2. The starts of the records take the places of those of the lines, which are never behind them.
  std::size_t records = 0, filled = 0;
  while (line < fStarts.size()) {
    const bool blank = IsBlank(Line(static_cast<int>(line) + 1));
    const std::size_t lines = LinesOfRecord(line);
    fStarts[records++] = fStarts[line];
    line += lines;
    if (!blank) filled = records;
    if (lines > 1) fJumps.push_back({static_cast<int>(records) + 1, static_cast<int>(line - records)});
  }
  // 3. Blank lines at the end are none.
  if (filled < records) fEnd = fStarts[filled];
  fStarts.resize(filled);
}

}  // namespace Zor
