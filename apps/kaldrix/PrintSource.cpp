#include "apps/kaldrix/PrintSource.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/SourceFile.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/host/TSqliteDataSet.hpp"
#include "kaldrix/platform/CheckSum.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/NameHints.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::Program {

namespace {

constexpr const char* NoObject = "the records have to be an array in an object: {\"records\": [...]}";

std::uint32_t SumOf(const TFileWindow& aBytes) {
  std::uint32_t sum = CheckSum({});
  for (std::size_t from = 0; from < aBytes.Size(); from += TFileWindow::Step) {
    sum = CheckSum(aBytes.View(from, std::min(aBytes.Size(), from + TFileWindow::Step)), sum);
  }
  return sum;
}

/// Does an array stand where an object belongs?
bool IsArray(const TFileWindow& aText) {
  const std::string_view head = aText.View(0, std::min(aText.Size(), TFileWindow::Step));
  const std::size_t first = head.find_first_not_of("\xEF\xBB\xBF \t\r\n");
  return first != std::string_view::npos && head[first] == '[';
}

template <class TMembers>
std::vector<std::string> Captions(const TMembers& aMembers) {
  std::vector<std::string> names;
  for (const auto& member : aMembers) names.push_back(member->fCaption);
  return names;
}

}  // namespace

void PrintSource::AddOptions(CLI::App& aOptions) {
  auto* csv = fCsv.AddOptions(aOptions);
  auto* json = aOptions
                   .add_option("--json", fJson,
                               "The records are an array in the object of this file; - reads standard input")
                   ->check(SomeFile());
  auto* sqlite =
      aOptions.add_option("--sqlite", fSqlite, "The records are a query on this database")->check(SomeFile());
  auto* query = aOptions.add_option("--query", fQuery, "The query, one SELECT")->needs(sqlite);
  sqlite->needs(query);
  csv->excludes(json)->excludes(sqlite);
  json->excludes(sqlite);
  aOptions.add_option("--source", fName, "The name of the array of a JSON file")
      ->check([](const std::string& name) { return name.empty() ? "the name is empty" : std::string(); })
      ->excludes(csv)
      ->excludes(sqlite);
  aOptions.add_option("--repeat", fRepeat,
                      "The field that tells how many labels a record gives; '' for as many from each");
}

void PrintSource::CheckUse(const TKDXData& aData) const {
  const bool own = fJson.empty() && fSqlite.empty();
  if (fCsv.HasEncoding() && !fCsv.IsGiven() && !(own && aData.fType == dtyCsv)) {
    throw CLI::ValidationError("--encoding", "there is no CSV file");
  }
}

void PrintSource::Attach(TKDXLabel& aDocument, const std::string& aDocumentName) {
  TKDXData& data = *aDocument.fData;
  CheckUse(data);
  if (fCsv.IsGiven()) {
    fCsv.Attach(data);
  } else if (!fJson.empty()) {
    AttachJson(data);
  } else if (!fSqlite.empty()) {
    AttachSqlite(data);
  } else {
    AttachOwn(data, aDocumentName);
  }
  TakeRepeat(data, aDocumentName);
  data.fStrict = true;
}

void PrintSource::AttachJson(TKDXData& aData) {
  const std::string name = ToldName(fJson);
  try {
    TFileWindow text = OpenSourceFile(fJson);
    if (IsArray(text)) throw Exception(NoObject);
    fJsonFile = std::make_shared<const TJsonFile>(std::move(text));
  } catch (const EStreamError&) {
    throw;
  } catch (const Exception& error) {
    throw Exception(name + ": " + error.what());
  }
  aData.SetJsonFile(fJsonFile);
  SelectArray(aData, name);
}

void PrintSource::SelectArray(TKDXData& aData, const std::string& aFile) const {
  std::vector<std::string> arrays;
  for (const auto& source : aData.fDatasets) {
    if (source->fDataType == dtyJson) arrays.push_back(source->fCaption);
  }
  const bool found = aData.Select(dtyJson, fName.empty() ? aData.fDataSel : fName);
  if (!found && !fName.empty())
    throw Exception(aFile + ": there is no array '" + fName + "'" + NameHint(fName, arrays));
  if (!found && !aData.Select(dtyJson)) throw Exception(aFile + ": there are no records in it");
  const auto isTaken = [&](const std::string& array) { return SameText(array, aData.fDataSel); };
  if (std::count_if(arrays.begin(), arrays.end(), isTaken) > 1)
    throw Exception(aFile + ": there is more than one array '" + aData.fDataSel + "'");
}

void PrintSource::AttachSqlite(TKDXData& aData) {
  RequireSourceFile(fSqlite);
  fDataSet = std::make_unique<TSqliteDataSet>(fSqlite, fQuery);
  TKDXDatasetItem& item = aData.fDatasets.Add();
  item.SetDataset(fDataSet.get());
  aData.Select(dtyDataset, item.fCaption);
}

void PrintSource::AttachOwn(TKDXData& aData, const std::string& aDocumentName) const {
  if (!fName.empty()) return SelectArray(aData, aDocumentName);
  if (!aData.fLinkData) return;
  const std::string records = aDocumentName + ": its records are those of '" + aData.fDataSel + "'";
  if (aData.fType == dtyCsv) {
    AttachOwnCsv(aData, aDocumentName);
  } else if (aData.fType == dtyJson && aData.fJson.empty()) {
    throw Exception(records + ": tell the file with --json");
  } else if (aData.fType == dtyDataset && aData.CurrentDataset() == nullptr) {
    throw Exception(records +
                    ": tell the database with --sqlite and --query, or a file with --csv or --json");
  }
}

void PrintSource::AttachOwnCsv(TKDXData& aData, const std::string& aDocumentName) const {
  if (aData.fCsvFileName.empty())
    throw Exception(aDocumentName + ": its records are those of a CSV file: tell it with --csv");
  try {
    fCsv.AttachOwn(aData, CombinePath(ExtractFileDir(aDocumentName), aData.fCsvFileName));
  } catch (const EFileNotFoundException& error) {
    throw EFileNotFoundException(error.what() + ("; " + aDocumentName) +
                                 " names it, and --csv tells another");
  }
}

void PrintSource::TakeRepeat(TKDXData& aData, const std::string& aDocumentName) const {
  if (fRepeat) aData.SetFieldRepeat(*fRepeat);
  const std::string wanted = aData.fFieldRepeat;
  const TKDXDatasetItem* source = aData.fLinkData ? aData.Source() : nullptr;
  if (wanted.empty() || (source == nullptr && !fRepeat)) return;
  if (source == nullptr) throw Exception(aDocumentName + ": there are no records for --repeat");
  if (source->fFields.Count() == 0) return;  // without a record, which is told in its turn
  const TKDXFieldItem* field = source->fFields.Find(wanted);
  if (field == nullptr) {
    const std::string from = fRepeat ? "--repeat" : aDocumentName;
    throw Exception(from + ": there is no field '" + wanted + "' to tell the labels of each record" +
                    NameHint(wanted, Captions(source->fFields)));
  }
  // As the source spells it: case matters to some.
  aData.SetFieldRepeat(aData.fType == dtyCsv ? field->fCaption : field->fName);
}

std::uint32_t PrintSource::Sum(const TKDXLabel& aDocument) const {
  const TKDXData& data = *aDocument.fData;
  if (data.fCsvOpen != nullptr) return SumOf(data.fCsvOpen->Text());
  return CheckSum(fQuery, fJsonFile == nullptr ? CheckSum(data.fJson) : SumOf(fJsonFile->Text()));
}

void PrintSource::AddFiles(TFileSet& aFiles, const TKDXLabel& aDocument) const {
  const TKDXData& data = *aDocument.fData;
  const std::string csv = fCsv.IsGiven() ? fCsv.File() : data.fType == dtyCsv ? data.fCsvFileName : "";
  for (const std::string* file : {&csv, &fJson, &fSqlite}) {
    aFiles.Add(*file == "-" ? "/dev/stdin" : *file, "the file of the records");
  }
}

}  // namespace Zor::Program
