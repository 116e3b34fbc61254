#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/platform/TFileWindow.hpp"

namespace Zor {

/// In which code the bytes of a text file stand.
enum TTextCode : std::uint8_t {
  tcByMark,  ///< UTF-8 when the file begins with its mark (EF BB BF), else Windows-1252
  tcUtf8,    ///< UTF-8, with the mark or without
  tcUtf16    ///< by the mark (FF FE or FE FF), without one the lower byte first
};

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
class TCsvFile {
 public:
  /// Columns beyond this are not offered.
  static constexpr int MostColumns = 1 << 16;

  /// Of a file. Raises EFileNotFoundException and EStreamError with the name.
  static std::unique_ptr<TCsvFile> Open(const std::string& aFileName, TTextCode aCode = tcByMark);
  /// Only as much of the file as the first line takes.
  static std::unique_ptr<TCsvFile> OpenFirstLine(const std::string& aFileName, TTextCode aCode = tcByMark);
  /// Of bytes; `aName` is what errors tell.
  TCsvFile(std::string aName, std::string aBytes, TTextCode aCode = tcByMark);
  TCsvFile(const TCsvFile&) = delete;
  TCsvFile& operator=(const TCsvFile&) = delete;

  const std::string& Name() const { return fName; }
  int LineCount() const { return static_cast<int>(fStarts.size()); }
  /// The bytes of a line, 1-based, without its end.
  std::string_view Line(int aLine) const;

  void SetForm(const TCsvForm& aForm);
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

  TCsvFile(std::string aName, TFileWindow aText, TTextCode aCode);

  void FindLines();
  /// Calls `aVisit` with the place where each line begins.
  template <class TVisit>
  void VisitStarts(TVisit aVisit) const;
  void Cut() const;
  /// Takes the first column off the rest of a line; false when it was the last.
  bool TakeColumn(std::string_view& aRest, TColumn& aColumn) const;
  void TakeQuoted(std::string_view& aRest, TColumn& aColumn) const;
  void AppendText(std::string& aText, std::string_view aBytes) const;
  std::string Text(const TColumn& aColumn) const;

  std::string fName;
  TFileWindow fText;
  bool fUtf8 = false;
  std::size_t fFirst = 0;  ///< where the first line begins, behind a mark
  std::vector<std::size_t> fStarts;
  TCsvForm fForm;
  int fCurrent = 0;
  mutable bool fCut = false;
  mutable unsigned fCutMoves = 0;  ///< of fText, when the line was cut
  mutable bool fTooMany = false;
  mutable std::vector<TColumn> fColumns;
};

}  // namespace Zor
