#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/platform/TFileWindow.hpp"
#include "kaldrix/platform/TextCode.hpp"

namespace Zor {

/// How a line is cut into columns.
struct TCsvForm {
  char delimiter = ';';
  char quote = '"';  ///< 0: none
};

/// What is wrong with a line of a file.
struct TCsvProblem {
  int line;    ///< 1-based
  int column;  ///< 1-based; 0 for the whole line
  std::string what;
};

/// The lines of a text file of columns. Of a file only a window stands in memory (of one in UTF-16 all,
/// turned into UTF-8), with an offset for each line; only the current line is cut, and only when a column is
/// asked for. What is told as a view holds until the next line is looked at. A file must not change
/// meanwhile: EStreamError.
///
/// Lines end with CR LF, LF or CR; quotes do not reach over them. Only the delimiter separates; blanks belong
/// to the columns. A column that begins with the quote reaches to the next single quote, a doubled one stands
/// for itself; what follows up to the delimiter is added as it stands. A NUL character reads as U+FFFD.
///
/// A file of records (OfRecords) is read as spreadsheets write it: a quoted column may hold ends of lines,
/// which read as LF; blank lines at the end are none; a first line "sep=;" tells the delimiter and is none.
/// What is said of lines holds for its records then, and LineNumber tells the line that one begins on.
class TCsvFile {
 public:
  /// Columns beyond this are not offered.
  static constexpr int MostColumns = 1 << 16;

  /// Of a file. Raises EFileNotFoundException and EStreamError with the name.
  static std::unique_ptr<TCsvFile> Open(const std::string& aFileName, TTextCode aCode = tcByMark);
  /// Only as much of the file as the first line takes.
  static std::unique_ptr<TCsvFile> OpenFirstLine(const std::string& aFileName, TTextCode aCode = tcByMark);
  /// A file of records, which SetForm cuts: there are none before. `aName` is what errors tell.
  static std::unique_ptr<TCsvFile> OfRecords(std::string aName, TFileWindow aText, TTextCode aCode);
  /// Of bytes; `aName` is what errors tell.
  TCsvFile(std::string aName, std::string aBytes, TTextCode aCode = tcByMark);
  TCsvFile(const TCsvFile&) = delete;
  TCsvFile& operator=(const TCsvFile&) = delete;

  const std::string& Name() const { return fName; }
  int LineCount() const { return static_cast<int>(fStarts.size()); }
  /// The bytes of a line, 1-based, without its end.
  std::string_view Line(int aLine) const;
  /// The number of the line on which a line or record begins, 1-based.
  int LineNumber(int aLine) const;
  /// The first line as it stands, at most 64 KiB of it, for guesses at the form.
  std::string_view FirstLine() const;
  /// The delimiter that a line "sep=;" tells, in quotes or not; 0 for another line.
  static char DelimiterOf(std::string_view aLine);
  /// All bytes, without those of UTF-16, which are told in UTF-8.
  const TFileWindow& Text() const { return fText; }

  void SetCsvForm(const TCsvForm& aForm);
  /// Makes a line the current one, 1-based. Nothing out of range.
  void GoTo(int aLine);
  int Current() const { return fCurrent; }
  int ColumnCount() const;
  /// The text of a column of the current line, 0-based, in UTF-8; empty beyond the last.
  std::string Column(int aIndex) const;
  /// The bytes of a column of any line as they stand between the delimiters, with quotes taken off; doubled
  /// quotes stay doubled. Takes no memory.
  std::string_view RawColumn(int aLine, int aIndex) const;

  /// What is wrong with the current line, where `aColumns` columns belong (0: any number).
  std::vector<TCsvProblem> Problems(int aColumns) const;
  /// The same for a line of names, where none may be empty or stand twice.
  std::vector<TCsvProblem> HeaderProblems() const;

 private:
  struct TColumn {
    std::string_view bytes;  ///< inside the quotes, where there are some
    std::string_view tail;   ///< behind the closing quote
    bool doubled = false;    ///< there are doubled quotes inside
    bool unclosed = false;
  };

  /// From a record on, so many lines more than records stand in front of each.
  struct TJump {
    int record;  ///< 1-based
    int lines;
  };

  TCsvFile(std::string aName, TFileWindow aText, TTextCode aCode, bool aRecords);

  void FindLines();
  void FindRecords();
  /// How many lines the record takes that begins with a line, 0-based.
  std::size_t LinesOfRecord(std::size_t aLine) const;
  /// Does a line, whose beginning stands inside quotes or not, end inside quotes?
  bool EndsOpen(std::string_view aLine, bool aOpen) const;
  /// Calls `aVisit` with the place where each line begins.
  template <class TVisit>
  void VisitStarts(TVisit aVisit) const;
  void Cut() const;
  /// Takes the first column off the rest of a line; false when it was the last.
  bool TakeColumn(std::string_view& aRest, TColumn& aColumn) const;
  /// Takes what stands behind an opening quote, with the closing one.
  void TakeQuoted(std::string_view& aRest, TColumn& aColumn) const;
  void AppendText(std::string& aText, std::string_view aBytes) const;
  std::string Text(const TColumn& aColumn) const;

  std::string fName;
  TFileWindow fText;
  bool fRecords;
  bool fUtf8 = false;
  std::size_t fFirst = 0;  ///< where the first line begins, behind a mark
  std::size_t fEnd = 0;    ///< of the last line
  std::vector<std::size_t> fStarts;
  std::vector<TJump> fJumps;
  TCsvForm fForm;
  int fCurrent = 0;
  mutable bool fCut = false;
  mutable unsigned fCutMoves = 0;  ///< of fText, when the line was cut
  mutable bool fTooMany = false;
  mutable std::vector<TColumn> fColumns;
};

}  // namespace Zor
