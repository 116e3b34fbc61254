#include "apps/kaldrix/CsvOptions.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <utility>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/SourceFile.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::Program {

namespace {

/// A delimiter by the words that tell it.
struct TSeparator {
  std::array<std::string_view, 2> words;
  char character;
  TZORCsvSep separator;
};
constexpr std::array<TSeparator, 4> Separators{{
    {{";", "semicolon"}, ';', scvSemicolon},
    {{",", "comma"}, ',', scvComma},
    {{"\t", "tab"}, '\t', scvTabulator},
    {{" ", "blank"}, ' ', scvSpace},
}};

struct TQuote {
  std::string_view word;
  TZORCsvQuote quote;
};
constexpr std::array<TQuote, 3> Quotes{{{"\"", scqDoubleQuotes}, {"'", scqQuotes}, {"none", scqNone}}};

struct TEncoding {
  std::string_view word;
  TTextCode code;
};
constexpr std::array<TEncoding, 4> Encodings{
    {{"utf-8", tcUtf8}, {"utf-16le", tcUtf16}, {"utf-16be", tcUtf16Big}, {"windows-1252", tcByMark}}};

/// The row whose word that is, which the options have checked.
template <class TRows>
const auto& RowOf(const TRows& aRows, const std::string& aWord) {
  return *std::find_if(aRows.begin(), aRows.end(),
                       [&](const auto& row) { return SameText(row.word, aWord); });
}

TZORCsvSep SeparatorOf(const std::string& aWord) {
  for (const TSeparator& row : Separators) {
    if (row.words[0] == aWord || SameText(row.words[1], aWord)) return row.separator;
  }
  return scvNone;
}

std::string SeparatorProblem(const std::string& aWord) {
  return SeparatorOf(aWord) != scvNone ? "" : "tell ; , tab or blank";
}

/// What a first line "sep=;" tells; scvNone for another line.
TZORCsvSep ToldSeparator(const TCsvFile& aFile) {
  const char told = TCsvFile::DelimiterOf(aFile.FirstLine());
  if (told == '\0') return scvNone;
  const TZORCsvSep separator = SeparatorOf(std::string(1, told));
  if (separator != scvNone) return separator;
  throw Exception(aFile.Name() + ":1: '" + std::string(1, told) +
                  "' is told to separate: it has to be ; , tab or blank");
}

/// What stands outside of quotes.
std::string Unquoted(std::string_view aLine) {
  std::string text;
  bool inside = false;
  for (const char c : aLine) {
    if (c == '"') {
      inside = !inside;
    } else if (!inside) {
      text += c;
    }
  }
  return text;
}

/// The delimiter that the first line tells, or that stands most often in it outside of quotes.
TZORCsvSep GuessSeparator(const TCsvFile& aFile) {
  const TZORCsvSep told = ToldSeparator(aFile);
  if (told != scvNone) return told;
  const std::string line = Unquoted(aFile.FirstLine());
  const auto times = [&](const TSeparator& row) {
    return std::count(line.begin(), line.end(), row.character);
  };
  const auto blank = Separators.end() - 1;
  const auto* best = std::max_element(Separators.begin(), blank,
                                      [&](const auto& a, const auto& b) { return times(a) < times(b); });
  return times(*best) > 0 ? best->separator : scvSemicolon;
}

/// Makes an open file the source of the document.
void Take(TKDXData& aData, std::shared_ptr<TCsvFile> aFile, bool aHeader) {
  aFile->SetCsvForm(aData.CsvForm());
  aData.fCsvFileName = aFile->Name();
  aData.fCsvOpen = std::move(aFile);
  const bool named = std::exchange(aData.fCsvHeader, aHeader);
  // Columns that a document knows by names are not those of the same places in a file without names.
  named && !aHeader ? static_cast<void>(aData.CheckCsvFields()) : aData.RefreshCsvFields();
  if (!aData.Select(dtyCsv)) throw Exception(aData.fCsvFileName + ": there are no records in it");
}

}  // namespace

CLI::Option* CsvOptions::AddOptions(CLI::App& aOptions) {
  auto* csv =
      aOptions.add_option("--csv", fFile, "The records are those of this file; - reads standard input")
          ->check(SomeFile());
  aOptions
      .add_option("--sep", fSep,
                  "What separates the columns: ; , tab or blank; told by the first line if not given")
      ->check(SeparatorProblem)
      ->needs(csv);
  aOptions.add_option("--quote", fQuote, "What columns are quoted with: \" ' or none")
      ->check(CLI::IsMember({"\"", "'", "none"}))
      ->needs(csv);
  aOptions.add_flag("--no-header", fNoHeader, "The first line is a record too")->needs(csv);
  aOptions
      .add_option(
          "--encoding", fEncoding,
          "The code of a CSV file: utf-8, utf-16le, utf-16be or windows-1252; told by its bytes if not given")
      ->check(CLI::IsMember({"utf-8", "utf-16le", "utf-16be", "windows-1252"}, CLI::ignore_case));
  return csv;
}

std::shared_ptr<TCsvFile> CsvOptions::Open(TKDXData& aData, const std::string& aFile) const {
  TFileWindow bytes = OpenSourceFile(aFile);
  aData.fCsvCode = fEncoding.empty() ? GuessTextCode(bytes) : RowOf(Encodings, fEncoding).code;
  return TCsvFile::OfRecords(ToldName(aFile), std::move(bytes), aData.fCsvCode);
}

void CsvOptions::Attach(TKDXData& aData) const {
  std::shared_ptr<TCsvFile> file = Open(aData, fFile);
  aData.fCsvSep = fSep.empty() ? GuessSeparator(*file) : SeparatorOf(fSep);
  aData.fCsvQuote = RowOf(Quotes, fQuote).quote;
  Take(aData, std::move(file), !fNoHeader);
}

void CsvOptions::AttachOwn(TKDXData& aData, const std::string& aFile) const {
  std::shared_ptr<TCsvFile> file = Open(aData, aFile);
  const TZORCsvSep told = ToldSeparator(*file);
  if (told != scvNone) aData.fCsvSep = told;
  Take(aData, std::move(file), aData.fCsvHeader);
}

}  // namespace Zor::Program
