#include "apps/kaldrix/PrintSource.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <fstream>

#include "apps/kaldrix/Streams.hpp"
#include "host/TSqliteDataSet.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
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

/// The beginning of a file, as far as it matters for guesses.
std::string HeadOf(const std::string& aFile) {
  constexpr std::size_t most = 1 << 16;
  std::ifstream stream(aFile, std::ios::binary);
  std::string head(most, '\0');
  stream.read(head.data(), most);
  head.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
  return head;
}

/// UTF-16 by its mark, UTF-8 where the beginning is that, else Windows-1252.
TTextCode CodeOf(std::string aHead) {
  if (aHead.starts_with("\xFF\xFE") || aHead.starts_with("\xFE\xFF")) return tcUtf16;
  // A character may be cut at the end.
  constexpr int mostCut = 3;
  for (int i = 0; i <= mostCut; ++i) {
    if (Utf8::IsValid(aHead)) return tcUtf8;
    if (aHead.empty()) break;
    aHead.pop_back();
  }
  return tcByMark;
}

/// The delimiter that stands most often in the first line.
TZORCsvSep GuessSeparator(const std::string& aHead) {
  const std::string_view line = std::string_view(aHead).substr(0, aHead.find_first_of("\r\n"));
  const auto times = [&](const TSeparator& row) {
    return std::count(line.begin(), line.end(), row.character);
  };
  const auto blank = Separators.end() - 1;
  const auto* best = std::max_element(Separators.begin(), blank,
                                      [&](const auto& a, const auto& b) { return times(a) < times(b); });
  return times(*best) > 0 ? best->separator : scvSemicolon;
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

/// What is wrong with a JSON source that was refused: where it is no JSON, or that it is no object.
std::string JsonProblem(const std::string& aText, const Exception& aError) {
  try {
    const auto json = TJsonBaseObject::Parse(aText);
    if (json != nullptr && json->IsObject()) return aError.what();
    return "the records have to be an array in an object: {\"records\": [...]}";
  } catch (const Exception& error) {
    return error.what();
  }
}

}  // namespace

void PrintSource::AddOptions(CLI::App& aOptions) {
  auto* csv = aOptions.add_option("--csv", fCsv, "The records are the lines of this file");
  aOptions
      .add_option("--sep", fSep,
                  "What separates the columns: ; , tab or blank; told by the first line if not given")
      ->check(SeparatorProblem)
      ->needs(csv);
  aOptions.add_option("--quote", fQuote, "What columns are quoted with: \" ' or none")
      ->check(CLI::IsMember({"\"", "'", "none"}))
      ->needs(csv);
  aOptions.add_flag("--no-header", fNoHeader, "The first line is a record too")->needs(csv);
  auto* json = aOptions.add_option("--json", fJson, "The records are an array in the object of this file");
  auto* sqlite = aOptions.add_option("--sqlite", fSqlite, "The records are a query on this database");
  auto* query = aOptions.add_option("--query", fQuery, "The query, one SELECT")->needs(sqlite);
  sqlite->needs(query);
  csv->excludes(json)->excludes(sqlite);
  json->excludes(sqlite);
  aOptions.add_option("--source", fName, "The name of the array of a JSON file");
  aOptions.add_option("--repeat", fRepeat, "The field that tells how many labels a record gives");
}

void PrintSource::Attach(TKDXLabel& aDocument, const std::string& aDocumentName) {
  TKDXData& data = *aDocument.fData;
  if (!fCsv.empty()) {
    AttachCsv(aDocument);
  } else if (!fJson.empty()) {
    AttachJson(aDocument);
  } else if (!fSqlite.empty()) {
    AttachSqlite(aDocument);
  } else if (data.fType == dtyCsv) {
    data.fCsvFileName = CombinePath(ExtractFileDir(aDocumentName), data.fCsvFileName);
    data.fCsvCode = CodeOf(HeadOf(data.fCsvFileName));
  }
  if (!fRepeat.empty()) data.SetFieldRepeat(fRepeat);
}

void PrintSource::AttachCsv(TKDXLabel& aDocument) const {
  const std::string head = HeadOf(fCsv);
  const TQuote* quote =
      std::find_if(Quotes.begin(), Quotes.end(), [this](const auto& q) { return q.word == fQuote; });
  aDocument.fData->fCsvCode = CodeOf(head);
  try {
    aDocument.fData->SetCsvData(fCsv, !fNoHeader, fSep.empty() ? GuessSeparator(head) : SeparatorOf(fSep),
                                quote->quote);
  } catch (const Exception& error) {
    throw Exception(fCsv + ": " + error.what());
  }
  Select(aDocument, dtyCsv, fCsv);
}

void PrintSource::AttachJson(TKDXLabel& aDocument) const {
  const std::string text = ReadInput(fJson);
  try {
    aDocument.fData->SetJson(text);
  } catch (const Exception& error) {
    throw Exception(fJson + ": " + JsonProblem(text, error));
  }
  Select(aDocument, dtyJson, fJson);
}

void PrintSource::AttachSqlite(TKDXLabel& aDocument) {
  fDataSet = std::make_unique<TSqliteDataSet>(fSqlite, fQuery);
  TKDXDatasetItem& item = aDocument.fData->fDatasets.Add();
  item.fCaption = fName;
  item.SetDataset(fDataSet.get());
  aDocument.fData->Select(dtyDataset, item.fCaption);
}

void PrintSource::Select(TKDXLabel& aDocument, TZORDataType aType, const std::string& aFile) const {
  TKDXData& data = *aDocument.fData;
  const std::string wanted = !fName.empty() ? fName : data.fDataSel;
  if (data.Select(aType, wanted)) return;
  if (!fName.empty() && aType == dtyJson) throw Exception(aFile + ": there is no array '" + fName + "'");
  if (!data.Select(aType)) throw Exception(aFile + ": there are no records in it");
}

std::uint32_t PrintSource::Sum(const TKDXLabel& aDocument) const {
  if (aDocument.fData->fType == dtyCsv) return CheckSum(ReadFile(aDocument.fData->fCsvFileName));
  return CheckSum(fQuery, CheckSum(aDocument.fData->fJson));
}

void PrintSource::AddFiles(TFileSet& aFiles, const TKDXLabel& aDocument) const {
  if (aDocument.fData->fType == dtyCsv) aFiles.Add(aDocument.fData->fCsvFileName, "the file of the records");
  for (const std::string* file : {&fCsv, &fJson, &fSqlite}) aFiles.Add(*file, "the file of the records");
}

}  // namespace Zor::Program
