#include "kaldrix/platform/TCsvFile.hpp"

#include <algorithm>
#include <fstream>
#include <limits>
#include <unordered_map>

#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

constexpr std::size_t ChunkBytes = std::size_t{1} << 16;
constexpr std::string_view LineEnds{"\r\n"};

/// The ends of lines that reach over quotes, as one character each.
void KeepLineFeeds(std::string& aText) {
  std::size_t at = aText.find('\r');
  for (; at != std::string::npos; at = aText.find('\r', at)) {
    at + 1 < aText.size() && aText[at + 1] == '\n' ? aText.erase(at, 1) : aText.replace(at, 1, "\n");
  }
}

std::string Quoted(std::string_view aText) { return "\"" + std::string(aText) + "\""; }

}  // namespace

// Reading ---------------------------------------------------------------------------------

std::unique_ptr<TCsvFile> TCsvFile::Open(const std::string& aFileName, TTextCode aCode) {
  if (IsUtf16(aCode)) return std::make_unique<TCsvFile>(aFileName, ReadFile(aFileName), aCode);
  std::unique_ptr<TCsvFile> file(new TCsvFile(aFileName, TFileWindow::Open(aFileName), aCode, false));
  file->FindLines();
  return file;
}

std::unique_ptr<TCsvFile> TCsvFile::OfRecords(std::string aName, TFileWindow aText, TTextCode aCode) {
  if (IsUtf16(aCode)) aText = TFileWindow(Utf16ToUtf8(aText.View(0, aText.Size()), aCode));
  return std::unique_ptr<TCsvFile>(new TCsvFile(std::move(aName), std::move(aText), aCode, true));
}

std::unique_ptr<TCsvFile> TCsvFile::OpenFirstLine(const std::string& aFileName, TTextCode aCode) {
  std::ifstream file(aFileName, std::ios::binary);
  if (IsUtf16(aCode) || !file) return Open(aFileName, aCode);
  std::string bytes;
  std::size_t end = std::string::npos;
  while (end == std::string::npos && file) {
    const std::size_t old = bytes.size();
    bytes.resize(old + ChunkBytes);
    file.read(bytes.data() + old, ChunkBytes);
    bytes.resize(old + static_cast<std::size_t>(file.gcount()));
    end = bytes.find_first_of(LineEnds, old);
  }
  if (file.bad()) throw EStreamError("Cannot read " + aFileName);
  if (end != std::string::npos) bytes.resize(end + 1);
  return std::make_unique<TCsvFile>(aFileName, std::move(bytes), aCode);
}

TCsvFile::TCsvFile(std::string aName, std::string aBytes, TTextCode aCode)
    : TCsvFile(std::move(aName), TFileWindow(IsUtf16(aCode) ? Utf16ToUtf8(aBytes, aCode) : std::move(aBytes)),
               aCode, false) {
  FindLines();
}

TCsvFile::TCsvFile(std::string aName, TFileWindow aText, TTextCode aCode, bool aRecords)
    : fName(std::move(aName)), fText(std::move(aText)), fRecords(aRecords) {
  const std::size_t mark = std::min(fText.Size(), Utf8::ByteOrderMark.size());
  const bool marked = fText.View(0, mark) == Utf8::ByteOrderMark;
  fUtf8 = aCode != tcByMark || marked;
  fFirst = fUtf8 && marked ? mark : 0;
  fEnd = fText.Size();
}

template <class TVisit>
void TCsvFile::VisitStarts(TVisit aVisit) const {
  bool begins = true;        // A line begins at the next byte,
  bool afterReturn = false;  // unless that is the second half of the end of the last one.
  for (std::size_t from = fFirst; from < fText.Size(); from += TFileWindow::Step) {
    const std::string_view chunk = fText.View(from, std::min(fText.Size(), from + TFileWindow::Step));
    std::size_t at = 0;
    while (at < chunk.size()) {
      if (begins && !(afterReturn && chunk[at] == '\n')) {
        aVisit(from + at);
        begins = false;
      }
      if (!begins) at = std::min(chunk.find_first_of(LineEnds, at), chunk.size());
      if (at == chunk.size()) break;
      begins = true;
      afterReturn = chunk[at] == '\r';
      ++at;
    }
  }
}

void TCsvFile::FindLines() {
  // Counted first, so that the offsets take no more room than they need.
  std::size_t count = 0;
  VisitStarts([&](std::size_t) { ++count; });
  if (count > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw EStreamError(fName + ": there are too many lines");
  }
  fStarts.clear();
  fStarts.reserve(count);
  VisitStarts([&](std::size_t start) { fStarts.push_back(start); });
  fEnd = fText.Size();
}

std::string_view TCsvFile::Line(int aLine) const {
  if (aLine < 1 || aLine > LineCount()) return {};
  const auto index = static_cast<std::size_t>(aLine - 1);
  const std::size_t end = index + 1 < fStarts.size() ? fStarts[index + 1] : fEnd;
  std::string_view line = fText.View(fStarts[index], end);
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// Columns ---------------------------------------------------------------------------------

void TCsvFile::SetCsvForm(const TCsvForm& aForm) {
  fForm = aForm;
  fCut = false;
  if (fRecords) FindRecords();
}

void TCsvFile::GoTo(int aLine) {
  if (aLine < 1 || aLine > LineCount()) return;
  fCurrent = aLine;
  fCut = false;
}

void TCsvFile::TakeQuoted(std::string_view& aRest, TColumn& aColumn) const {
  std::size_t end = aRest.find(fForm.quote);
  while (end != std::string_view::npos && end + 1 < aRest.size() && aRest[end + 1] == fForm.quote) {
    aColumn.doubled = true;
    end = aRest.find(fForm.quote, end + 2);
  }
  aColumn.unclosed = end == std::string_view::npos;
  aColumn.bytes = aRest.substr(0, end);
  aRest.remove_prefix(aColumn.unclosed ? aRest.size() : end + 1);
}

bool TCsvFile::TakeColumn(std::string_view& aRest, TColumn& aColumn) const {
  aColumn = {};
  const bool quoted = fForm.quote != 0 && aRest.starts_with(fForm.quote);
  if (quoted) {
    aRest.remove_prefix(1);
    TakeQuoted(aRest, aColumn);
  }
  const std::size_t end = aRest.find(fForm.delimiter);
  (quoted ? aColumn.tail : aColumn.bytes) = aRest.substr(0, end);
  if (end == std::string_view::npos) return false;
  aRest.remove_prefix(end + 1);
  return true;
}

void TCsvFile::Cut() const {
  if (fCut && fCutMoves == fText.Moves()) return;
  fCut = true;
  fTooMany = false;
  fColumns.clear();
  std::string_view rest = Line(fCurrent);
  fCutMoves = fText.Moves();
  if (rest.empty()) return;
  TColumn column;
  bool more = true;
  while (more && fColumns.size() < static_cast<std::size_t>(MostColumns)) {
    more = TakeColumn(rest, column);
    fColumns.push_back(column);
  }
  fTooMany = more;
}

int TCsvFile::ColumnCount() const {
  Cut();
  return static_cast<int>(fColumns.size());
}

std::string TCsvFile::Column(int aIndex) const {
  Cut();
  const auto index = static_cast<std::size_t>(aIndex);
  return index < fColumns.size() ? Text(fColumns[index]) : std::string();
}

std::string_view TCsvFile::RawColumn(int aLine, int aIndex) const {
  std::string_view rest = Line(aLine);
  TColumn column;
  for (int i = 0; i < aIndex; ++i) {
    if (!TakeColumn(rest, column)) return {};
  }
  TakeColumn(rest, column);
  return column.bytes;
}

void TCsvFile::AppendText(std::string& aText, std::string_view aBytes) const {
  std::string text = fUtf8 ? Utf8::Repaired(aBytes) : AnsiToUtf8(aBytes);
  if (text.find('\0') != std::string::npos) {
    std::string clean;
    for (const char c : text) c == '\0' ? Utf8::Append(clean, Utf8::Replacement) : clean.push_back(c);
    text = std::move(clean);
  }
  aText.empty() ? aText.swap(text) : static_cast<void>(aText += text);
}

std::string TCsvFile::Text(const TColumn& aColumn) const {
  std::string text;
  if (!aColumn.doubled) {
    AppendText(text, aColumn.bytes);
  } else {
    std::string single;
    for (std::size_t i = 0; i < aColumn.bytes.size(); ++i) {
      single += aColumn.bytes[i];
      if (aColumn.bytes[i] == fForm.quote) ++i;
    }
    AppendText(text, single);
  }
  if (!aColumn.tail.empty()) AppendText(text, aColumn.tail);
  if (fRecords) KeepLineFeeds(text);
  return text;
}

// Problems --------------------------------------------------------------------------------

std::vector<TCsvProblem> TCsvFile::Problems(int aColumns) const {
  Cut();
  std::vector<TCsvProblem> problems;
  const auto add = [&](std::size_t aColumn, std::string aWhat) {
    problems.push_back({LineNumber(fCurrent), static_cast<int>(aColumn), std::move(aWhat)});
  };
  const std::string_view line = Line(fCurrent);
  if (fTooMany) {
    add(0, "there are more than " + std::to_string(MostColumns) + " columns");
  } else if (aColumns > 0 && ColumnCount() != aColumns) {
    add(0, "there are " + std::to_string(ColumnCount()) + " columns where " + std::to_string(aColumns) +
               " belong");
  }
  if (line.find('\0') != std::string_view::npos) add(0, "there is a NUL character");
  if (fUtf8 && !Utf8::IsValid(line)) add(0, "there are bytes that are not UTF-8");
  for (std::size_t i = 0; i < fColumns.size(); ++i) {
    if (fColumns[i].unclosed) add(i + 1, "a quote is not closed");
    if (!fColumns[i].tail.empty()) add(i + 1, "there is text behind the closing quote");
  }
  return problems;
}

std::vector<TCsvProblem> TCsvFile::HeaderProblems() const {
  std::vector<TCsvProblem> problems = Problems(0);
  std::unordered_map<std::string, int> places;
  for (int i = 0; i < ColumnCount(); ++i) {
    const std::string name = Column(i);
    if (name.empty()) problems.push_back({LineNumber(fCurrent), i + 1, "the column has no name"});
    const auto [place, added] = places.emplace(LowerCase(name), i + 1);
    if (name.empty() || added) continue;
    problems.push_back(
        {LineNumber(fCurrent), i + 1,
         "the name " + Quoted(name) + " stands for column " + std::to_string(place->second) + " already"});
  }
  return problems;
}

}  // namespace Zor
