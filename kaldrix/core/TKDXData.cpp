#include "kaldrix/core/TKDXData.hpp"

#include <algorithm>
#include <array>
#include <tuple>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// By ordinal of TZORFillType; the last kind has no marker and no text.
constexpr std::array<std::string_view, EnumCount<TZORFillType>> FillMarkers{"",  "~", "@", "{", "^", "?",
                                                                            "=", "@", "@", "@", ""};

// The least bytes of an entry, so that a count is checked before memory is taken.
constexpr std::size_t BytesOfCsvField = 4;
constexpr std::size_t BytesOfValList = 2;
constexpr std::size_t BytesOfAskField = 4;

auto Values(auto& d) {
  return std::tie(d.fJson, d.fSaveJson, d.fCsvFileName, d.fCsvHeader, d.fCsvSep, d.fCsvQuote, d.fType,
                  d.fLinkData, d.fDataSel, d.fFieldRepeat);
}

template <class T>
T* Numbered(const TOwnedList<T>& aList, int aIndex) {
  return aIndex >= 1 && aIndex <= aList.Count() ? aList[aIndex - 1] : nullptr;
}

template <class T, class TSame>
T* Named(const TOwnedList<T>& aList, std::string_view aName, TSame aSame) {
  const auto found =
      std::find_if(aList.begin(), aList.end(), [&](const T* aEntry) { return aSame(aEntry->fName, aName); });
  return found == aList.end() ? nullptr : *found;
}

/// Writes or reads one entry by its own record.
template <class T>
void RecordEntry(TRecord& r, T& aEntry) {
  r.Writing() ? aEntry.WriteData(*r.Writer()) : aEntry.ReadData(r.Version(), *r.Reader());
}

bool SameExactly(std::string_view a, std::string_view b) { return a == b; }

}  // namespace

TDataContent::TDataContent() = default;
TDataContent::TDataContent(TDataContent&&) noexcept = default;
TDataContent& TDataContent::operator=(TDataContent&&) noexcept = default;
TDataContent::~TDataContent() = default;

TKDXData::TKDXData(TKDXBaseLabel* aOwner) : fOwner(aOwner), fDatasets(aOwner) {}
TKDXData::~TKDXData() = default;

std::string IncSymData(std::string_view aName, TZORFillType aFill) {
  if (aFill >= ftImg64) return {};
  return std::string(FillMarkers[aFill]).append(aName);
}

void TKDXData::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXData*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  Values(*this) = Values(*source);
  fDatasets.Assign(source->fDatasets);
}

// Lists and questions
// -----------------------------------------------------------------------------------------------

bool TKDXData::AddListVal(const std::string& aName) {
  if (NameListExists(aName)) return false;
  new TZOValList(*this, aName);
  return true;
}

bool TKDXData::AddAskVal(const std::string& aName) {
  if (NameAskExists(aName)) return false;
  new TZOAskField(*this, aName);
  return true;
}

bool TKDXData::DeleteList(int aIndex) {
  TZOValList* list = GetListVal(aIndex);
  if (list == nullptr) return false;
  fOwner->Unbind(ftList, [list](const std::string& aName) { return aName == list->fName; });
  fListVal.Delete(list);
  fOwner->ContentChanged();
  return true;
}

bool TKDXData::DeleteAsk(int aIndex) {
  TZOAskField* question = GetAskField(aIndex);
  if (question == nullptr) return false;
  fOwner->Unbind(ftAsk, [question](const std::string& aName) { return aName == question->fName; });
  fListAsk.Delete(question);
  fOwner->ContentChanged();
  return true;
}

void TKDXData::ResetListAsk() {
  fHasList = fHasQuest = false;
  for (TZOValList* list : fListVal) list->fActive = false;
  for (TZOAskField* question : fListAsk) question->fActive = false;
}

TZOValList* TKDXData::GetListVal(int aIndex) const { return Numbered(fListVal, aIndex); }
TZOValList* TKDXData::GetListVal(std::string_view aName) const { return Named(fListVal, aName, SameText); }
TZOAskField* TKDXData::GetAskField(int aIndex) const { return Numbered(fListAsk, aIndex); }
TZOAskField* TKDXData::GetAskField(std::string_view aName) const { return Named(fListAsk, aName, SameText); }
bool TKDXData::NameListExists(std::string_view aName) const {
  return Named(fListVal, aName, SameExactly) != nullptr;
}
bool TKDXData::NameAskExists(std::string_view aName) const {
  return Named(fListAsk, aName, SameExactly) != nullptr;
}

// Binary
// ------------------------------------------------------------------------------------------------------------

void TKDXData::Record(TRecord& r) {
  r.Enum16(fType, "DataType");
  r.Boolean(fLinkData);
  r.String(fDataSel);
  r.String(fFieldRepeat);
  r.Boolean(fSaveJson);
  if (fSaveJson) r.String(fJson);
  r.Enum16(fCsvSep, "CsvSeparator");
  r.Enum16(fCsvQuote, "CsvQuote");
  r.String(fCsvFileName);
  r.Boolean(fCsvHeader);
  RecordCsvFields(r);
  if (fOwner->fEditorMode == emLabelling) RecordLists(r);
}

void TKDXData::RecordCsvFields(TRecord& r) {
  TKDXDatasetItem* source = CsvItem();
  const int count = r.Count(source == nullptr ? 0 : source->fFields.Count(), BytesOfCsvField);
  if (r.Reading() && count > 0) source = &NewCsvItem();
  for (int i = 0; i < count; ++i) {
    TKDXFieldItem& field = r.Writing() ? *source->fFields.GetItem(i) : source->fFields.Add();
    // Intended: the caption is written first, and the first text is read as the name.
    r.String(r.Writing() ? field.fCaption : field.fName);
    r.String(r.Writing() ? field.fName : field.fCaption);
    r.Enum16(field.fFieldType, "FieldType");
  }
}

void TKDXData::RecordLists(TRecord& r) {
  const int lists = r.Count(fListVal.Count(), BytesOfValList);
  for (int i = 0; i < lists; ++i) RecordEntry(r, r.Writing() ? *fListVal[i] : *new TZOValList(*this, {}));
  const int questions = r.Count(fListAsk.Count(), BytesOfAskField);
  for (int i = 0; i < questions; ++i)
    RecordEntry(r, r.Writing() ? *fListAsk[i] : *new TZOAskField(*this, {}));
}

void TKDXData::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXData*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXData::ReadData(int aVersion, TBinaryReader& bR) {
  ClearListVal();
  ClearAskList();
  TRecord record(bR, aVersion);
  Record(record);
  if (fSaveJson && !fJson.empty()) CheckJson();
}

// JSON
// --------------------------------------------------------------------------------------------------------------

void TKDXData::WriteJson(TJsonObject& aJson) const {
  TJsonObject& data = aJson.AddNewObject("Data");
  data.PutInt("DataType", fType);
  data.PutBool("LinkData", fLinkData);
  data.PutString("DataSource", fDataSel);
  data.PutString("FieldRepeat", fFieldRepeat);
  data.PutBool("SaveJson", fSaveJson);
  if (fSaveJson) data.PutString("DataJson", fJson);
  data.PutString("CsvFileName", fCsvFileName);
  data.PutBool("CsvHeader", fCsvHeader);
  data.PutInt("CsvSeparator", fCsvSep);
  data.PutInt("CsvQuote", fCsvQuote);
  WriteJsonCsvFields(data.AddNewArray("CsvFields"));
  if (fOwner->fEditorMode == emLabelling) WriteJsonLists(data);
}

void TKDXData::ReadJson(int aVersion, TJsonObject& aJson) {
  fType = GetEnum<TZORDataType>(aJson, "DataType");
  fLinkData = aJson.GetBool("LinkData");
  fDataSel = aJson.GetString("DataSource");
  fFieldRepeat = aJson.GetString("FieldRepeat");
  fSaveJson = aJson.GetBool("SaveJson");
  if (fSaveJson) fJson = aJson.GetString("DataJson");
  fCsvFileName = aJson.GetString("CsvFileName");
  fCsvHeader = aJson.GetBool("CsvHeader");
  fCsvSep = GetEnum<TZORCsvSep>(aJson, "CsvSeparator");
  fCsvQuote = GetEnum<TZORCsvQuote>(aJson, "CsvQuote");
  ReadJsonCsvFields(aJson.GetArray("CsvFields"));
  ClearListVal();
  ClearAskList();
  if (fOwner->fEditorMode == emLabelling) ReadJsonLists(aVersion, aJson);
  if (fSaveJson && !fJson.empty()) CheckJson();
}

void TKDXData::WriteJsonCsvFields(TJsonArray& aArray) const {
  const TKDXDatasetItem* source = CsvItem();
  if (source == nullptr) return;
  for (const auto& field : source->fFields) {
    TJsonObject& entry = aArray.AddObject();
    entry.PutString("Name", field->fName);
    entry.PutString("Caption", field->fCaption);
    entry.PutInt("FieldType", field->fFieldType);
  }
}

void TKDXData::ReadJsonCsvFields(TJsonArray& aArray) {
  if (aArray.Count() == 0) return;
  TKDXFields& fields = NewCsvItem().fFields;
  for (int i = 0; i < aArray.Count(); ++i) {
    TJsonObject& entry = aArray.GetObject(i);
    TKDXFieldItem& field = fields.Add();
    field.fName = entry.GetString("Name");
    field.fCaption = entry.GetString("Caption");
    field.fFieldType = GetEnum<TZORFieldType>(entry, "FieldType");
  }
}

void TKDXData::WriteJsonLists(TJsonObject& aJson) const {
  TJsonArray& lists = aJson.AddNewArray("ValList");
  for (const TZOValList* list : fListVal) list->WriteJson(lists);
  TJsonArray& questions = aJson.AddNewArray("ListAsk");
  for (const TZOAskField* question : fListAsk) question->WriteJson(questions);
}

void TKDXData::ReadJsonLists(int aVersion, TJsonObject& aJson) {
  TJsonArray& lists = aJson.GetArray("ValList");
  for (int i = 0; i < lists.Count(); ++i) (new TZOValList(*this, {}))->ReadJson(aVersion, lists.GetObject(i));
  TJsonArray& questions = aJson.GetArray("ListAsk");
  for (int i = 0; i < questions.Count(); ++i)
    (new TZOAskField(*this, {}))->ReadJson(aVersion, questions.GetObject(i));
}

}  // namespace Zor::inline Base
