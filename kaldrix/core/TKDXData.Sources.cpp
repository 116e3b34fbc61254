// What the sources offer, and which one is selected.
#include "kaldrix/core/TKDXData.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// Sources of one JSON text beyond this are not offered.
constexpr int MostSources = 10'000;

/// By ordinal of TZORCsvSep; without a separator, semicolons separate.
constexpr char Delimiters[EnumCount<TZORCsvSep>]{';', ';', ',', '\t', ' '};
/// By ordinal of TZORCsvQuote.
constexpr char Quotes[EnumCount<TZORCsvQuote>]{0, '\'', '"'};

TZORFieldType FieldTypeOf(TJsonDataType aType) {
  switch (aType) {
    case jdtInt:
      return ftInt;
    case jdtLong:
      return ftInt64;
    case jdtFloat:
      return ftFloat;
    case jdtBool:
      return ftBool;
    default:
      return ftString;
  }
}

/// The first element of an array, where it is an object.
const TJsonObject* FirstRow(const TJsonArray& aRows) {
  return aRows.Count() == 0 ? nullptr : aRows.GetItem(0).AsObject();
}

void DescribeFields(TKDXDataItem& aItem, const TJsonObject& aRow) {
  for (int i = 0; i < aRow.Count(); ++i) aItem.AddField(aRow.GetName(i), FieldTypeOf(aRow.GetItem(i).Type()));
}

void DescribeSource(TKDXDatasetItem& aItem, const std::string& aName, const TJsonObject* aRow) {
  aItem.fCaption = aName;
  aItem.fDataType = dtyJson;
  if (aRow == nullptr) return;
  DescribeFields(aItem, *aRow);
  for (int i = 0; i < aRow->Count(); ++i) {
    const TJsonArray* inner = aRow->GetItem(i).AsArray();
    if (inner == nullptr) continue;
    TKDXDetailItem& detail = aItem.fDetails.Add();
    detail.fCaption = aRow->GetName(i);
    detail.fDataType = dtyJson;
    if (const TJsonObject* innerRow = FirstRow(*inner)) DescribeFields(detail, *innerRow);
  }
}

}  // namespace

void TKDXData::DeleteSources(TZORDataType aType) {
  for (int i = fDatasets.Count() - 1; i >= 0; --i) {
    if (fDatasets.GetItem(i)->fDataType == aType) fDatasets.Delete(i);
  }
}

TKDXDatasets::TMembers TKDXData::RegisteredDatasets() const {
  TKDXDatasets::TMembers registered;
  for (const auto& source : fDatasets) {
    if (source->fDataType == dtyDataset) registered.push_back(source);
  }
  return registered;
}

void TKDXData::Exchange(TDataContent& aContent, TKDXDatasets::TMembers& aDatasets) {
  std::swap<TDataContent>(*this, aContent);
  fDatasets.Exchange(aDatasets);
  ++fMoves;
}

void TKDXData::ClearSources() {
  fLinkData = false;
  fJson.clear();
  fJsonFile.reset();
  fCsvFileName.clear();
  fCsvOpen.reset();
  DeleteSources(dtyJson);
  DeleteSources(dtyCsv);
  fSource.reset();
  fHasData = false;
}

// JSON --------------------------------------------------

void TKDXData::SetJson(const std::string& aText) {
  const std::string_view text = Trim(aText);
  const bool ofFile = std::exchange(fJsonFile, nullptr) != nullptr;
  if (text == fJson && !ofFile) return;
  fJson = text;
  fOwner->ContentChanged();
  fJson.empty() ? DeleteSources(dtyJson) : CheckJson();
}

void TKDXData::CheckJson() {
  DeleteSources(dtyJson);
  if (!fJson.starts_with('{')) {
    fJson.clear();
    throw Exception(TKDXMsg::GetErrorValue("NoJson"));
  }
  const std::unique_ptr<TJsonBaseObject> root = TJsonBaseObject::Parse(fJson);
  const TJsonObject& object = *root->AsObject();
  int sources = 0;
  for (int i = 0; i < object.Count() && sources < MostSources; ++i) {
    const TJsonArray* rows = object.GetItem(i).AsArray();
    if (rows == nullptr) continue;
    ++sources;
    DescribeSource(fDatasets.Add(), object.GetName(i), FirstRow(*rows));
  }
}

void TKDXData::SetJsonFile(std::shared_ptr<const TJsonFile> aFile) {
  if (aFile == nullptr) throw Exception(TKDXMsg::GetErrorValue("NoJson"));
  DeleteSources(dtyJson);
  fJson.clear();
  fJsonFile = std::move(aFile);
  for (const TJsonFile::TArray& array : fJsonFile->Arrays()) {
    DescribeSource(fDatasets.Add(), array.name, array.first.AsObject());
  }
}

// CSV --------------------------------------------------

TCsvForm TKDXData::CsvForm() const { return {Delimiters[fCsvSep], Quotes[fCsvQuote]}; }

TKDXDatasetItem* TKDXData::CsvItem() const {
  const auto found = std::find_if(fDatasets.begin(), fDatasets.end(),
                                  [](const auto& aItem) { return aItem->fDataType == dtyCsv; });
  return found == fDatasets.end() ? nullptr : found->get();
}

TKDXDatasetItem& TKDXData::NewCsvItem() {
  DeleteSources(dtyCsv);
  TKDXDatasetItem& item = fDatasets.Add();
  item.fCaption = TKDXMsg::GetDialogsValue("CsvFile");
  item.fDataType = dtyCsv;
  return item;
}

bool TKDXData::CsvExists() const { return fCsvOpen != nullptr || FileExists(fCsvFileName); }

bool TKDXData::CheckCsvFields() {
  if (!CsvExists()) throw Exception(TKDXMsg::GetErrorValue("NoFile"));
  DeleteSources(dtyCsv);
  std::shared_ptr<TCsvFile> file = fCsvOpen;
  if (file == nullptr) file = TCsvFile::OpenFirstLine(fCsvFileName, fCsvCode);
  if (file->LineCount() == 0) return true;
  if (file != fCsvOpen) file->SetCsvForm(CsvForm());
  file->GoTo(1);
  TKDXDatasetItem& item = NewCsvItem();
  for (int i = 0; i < file->ColumnCount(); ++i) {
    item.AddField(fCsvHeader ? file->Column(i) : TKDXMsg::GetPropValue("Field") + std::to_string(i + 1));
  }
  return true;
}

void TKDXData::RefreshCsvFields() {
  TKDXFields former(nullptr);
  if (const TKDXDatasetItem* source = CsvItem()) former.Assign(source->fFields);
  CheckCsvFields();
  TKDXDatasetItem* source = CsvItem();
  if (source == nullptr) return;
  std::unordered_map<std::string, const TKDXFieldItem*> named;
  for (const auto& field : former) named.emplace(LowerCase(field->fName), field.get());
  for (int i = 0; i < source->fFields.Count(); ++i) {
    TKDXFieldItem& field = *source->fFields.GetItem(i);
    const auto found = named.find(LowerCase(field.fName));
    const TKDXFieldItem* known = !fCsvHeader            ? former.GetItem(i)
                                 : found != named.end() ? found->second
                                                        : nullptr;
    if (known != nullptr) field.Assign(*known);
  }
}

bool TKDXData::SetCsvData(const std::string& aFile, bool aHeader, TZORCsvSep aSep, TZORCsvQuote aQuote) {
  if (!FileExists(aFile)) {
    fCsvFileName.clear();
    throw Exception(TKDXMsg::GetErrorValue("NoFile"));
  }
  fCsvFileName = aFile;
  fOwner->ContentChanged();
  fCsvOpen.reset();
  fCsvHeader = aHeader;
  fCsvQuote = aQuote;
  if (aSep == scvNone) throw Exception(TKDXMsg::GetErrorValue("NoSep"));
  fCsvSep = aSep;
  return CheckCsvFields();
}

template <class T>
void TKDXData::SetCsvValue(T& aField, const T& aValue) {
  if (aField == aValue) return;
  aField = aValue;
  fOwner->ContentChanged();
  fCsvOpen.reset();
  CheckCsvFields();
}

void TKDXData::SetCsvFileName(const std::string& aValue) { SetCsvValue(fCsvFileName, aValue); }
void TKDXData::SetCsvHeader(bool aValue) { SetCsvValue(fCsvHeader, aValue); }
void TKDXData::SetCsvSep(TZORCsvSep aValue) { SetCsvValue(fCsvSep, aValue); }
void TKDXData::SetCsvQuote(TZORCsvQuote aValue) { SetCsvValue(fCsvQuote, aValue); }

bool TKDXData::SetCsvField(int aIndex, TZORFieldType aType) {
  const TKDXDatasetItem* source = CsvItem();
  if (aIndex < 0 || source == nullptr) return false;
  if (TKDXFieldItem* field = source->fFields.GetItem(aIndex)) field->fFieldType = aType;
  fOwner->ContentChanged();
  return true;
}

// Selection --------------------------------------------------

void TKDXData::SetFieldRepeat(const std::string& aValue) {
  if (aValue == fFieldRepeat) return;
  fFieldRepeat = aValue;
  fOwner->ContentChanged();
}

void TKDXData::SetDataSel(const std::string& aName) {
  if (aName == fDataSel) return;
  fDataSel = aName;
  const TKDXDatasetItem* source = GetDataset(aName);
  fType = source == nullptr ? dtyNone : source->fDataType;
  fOwner->ContentChanged();
}

void TKDXData::MigrateDataSel(const std::string& aName) {
  if (aName == fDataSel) return;
  fDataSel = aName;
  fType = dtyDataset;
  fOwner->ContentChanged();
}

bool TKDXData::Select(TZORDataType aType, const std::string& aCaption) {
  const auto found = std::find_if(fDatasets.begin(), fDatasets.end(), [&](const auto& aItem) {
    return aItem->fDataType == aType && (aCaption.empty() || SameText(aItem->fCaption, aCaption));
  });
  if (found == fDatasets.end()) return false;
  fDataSel = (*found)->fCaption;
  fType = aType;
  fLinkData = true;
  fOwner->ContentChanged();
  return true;
}

TKDXDatasetItem* TKDXData::Source() const {
  if (fDataSel.empty()) return nullptr;
  return fType == dtyCsv ? CsvItem() : GetDataset(fDataSel);
}

TKDXDetailItem* TKDXData::GetDetail(std::string_view aName) const {
  const TKDXDatasetItem* source = fDataSel.empty() ? nullptr : GetDataset(fDataSel);
  return source == nullptr ? nullptr : source->fDetails.Find(aName);
}

TDataSet* TKDXData::CurrentDataset() const {
  const TKDXDatasetItem* source = fDataSel.empty() || fType != dtyDataset ? nullptr : GetDataset(fDataSel);
  return source == nullptr ? nullptr : source->GetDataset();
}

int TKDXData::GetCsvPos(std::string_view aField) const {
  const TKDXDatasetItem* source = Source();
  return source == nullptr ? -1 : source->fFields.IndexOf(aField);
}

}  // namespace Zor::inline Base
