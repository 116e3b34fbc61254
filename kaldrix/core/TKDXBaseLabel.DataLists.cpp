// Pick lists of what items can be bound to.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>

#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

using TLines = std::vector<std::string>;

constexpr std::string_view Base64Mark = "6", ImageMark = "[", SourceMark = "\xC2\xAC", DetailMark = ":";

bool IsImage(TZORFieldType aType) { return aType == ftBase64 || aType == ftBlobImg; }
bool IsWhole(TZORFieldType aType) { return aType == ftInt || aType == ftInt64; }
bool IsNumber(TZORFieldType aType) { return IsWhole(aType) || aType == ftFloat; }
bool IsText(TZORFieldType aType) { return aType == ftString; }
bool IsAny(TZORFieldType /*aType*/) { return true; }

bool AsksWhole(TZORAskType aType) { return aType == atInteger; }
bool AsksNumber(TZORAskType aType) { return aType == atInteger || aType == atNumber; }
bool AsksAny(TZORAskType /*aType*/) { return true; }

void Start(TLines& aList, const std::string& aData) {
  aList.clear();
  if (!aData.empty()) aList.push_back("-" + TKDXMsg::GetListValue("Unassign"));
}

void Add(TLines& aList, std::string_view aMark, const std::string& aName, bool aIncSymbol) {
  aList.push_back(std::string(aIncSymbol ? aMark : std::string_view()).append(aName));
}

std::string_view MarkOf(TZORDataType aType) { return aType == dtyDataset ? "~" : "{"; }

std::string_view MarkOf(TZORFieldType aType, TZORDataType aSource) {
  if (aType == ftBase64) return Base64Mark;
  return aType == ftBlobImg ? ImageMark : MarkOf(aSource);
}

/// The fields of the selected source whose kind `aTakes` accepts.
void AddFields(TLines& aList, const TKDXData& aData, bool (*aTakes)(TZORFieldType), bool aIncSymbol) {
  const TKDXDatasetItem* source = aData.Source();
  if (source == nullptr) return;
  for (const auto& field : source->fFields) {
    if (aTakes(field->fFieldType)) Add(aList, MarkOf(source->fDataType), field->fCaption, aIncSymbol);
  }
}

void AddCounters(TLines& aList, const TOwnedList<TKDXCounter>& aCounters, bool aIncSymbol) {
  for (const TKDXCounter* counter : aCounters) Add(aList, "@", counter->fName, aIncSymbol);
}

void AddQuestions(TLines& aList, const TKDXData& aData, bool (*aTakes)(TZORAskType), bool aIncSymbol) {
  for (const TZOAskField* question : aData.fListAsk) {
    if (aTakes(question->fAskType)) Add(aList, "?", question->fName, aIncSymbol);
  }
}

void AddPlain(TLines& aList, const TKDXDetailItem* aDetail) {
  if (aDetail == nullptr) return;
  for (const auto& field : aDetail->fFields) aList.push_back(field->fCaption);
}

}  // namespace

void TKDXBaseLabel::GetDataFields(TLines& List, const std::string& aData, bool AddCounters) const {
  Start(List, aData);
  AddFields(List, *fData, IsAny, true);
  if (AddCounters) Base::AddCounters(List, fCounters, true);
  for (const TZOValList* list : fData->fListVal) Add(List, "=", list->fName, true);
  AddQuestions(List, *fData, AsksAny, true);
}

void TKDXBaseLabel::GetImgFields(TLines& List, const std::string& aData, bool IncSymbol) const {
  Start(List, aData);
  const TKDXDatasetItem* source = fData->Source();
  if (source == nullptr) return;
  for (const auto& field : source->fFields) {
    if (!IsImage(field->fFieldType)) continue;
    Add(List, MarkOf(field->fFieldType, source->fDataType), field->fCaption, IncSymbol);
  }
}

void TKDXBaseLabel::GetIntFields(TLines& List, const std::string& aData, bool IncSymbol,
                                 bool AddCounters) const {
  Start(List, aData);
  AddFields(List, *fData, IsWhole, IncSymbol);
  if (AddCounters) Base::AddCounters(List, fCounters, IncSymbol);
  AddQuestions(List, *fData, AsksWhole, IncSymbol);
}

void TKDXBaseLabel::GetNumFields(TLines& List, const std::string& aData, bool IncSymbol,
                                 bool AddCounters) const {
  Start(List, aData);
  AddFields(List, *fData, IsNumber, IncSymbol);
  if (AddCounters) Base::AddCounters(List, fCounters, IncSymbol);
  AddQuestions(List, *fData, AsksNumber, IncSymbol);
}

void TKDXBaseLabel::GetTxtFields(TLines& List, const std::string& aData, bool IncSymbol) const {
  Start(List, aData);
  AddFields(List, *fData, IsText, IncSymbol);
  AddQuestions(List, *fData, AsksAny, IncSymbol);
}

void TKDXBaseLabel::GetDetailFields(TLines& List, const std::string& aData, const std::string& dName) const {
  Start(List, aData);
  AddPlain(List, fData->GetDetail(dName));
}

void TKDXBaseLabel::GetDetails(TLines& List, bool IncSymbol) const {
  List.clear();
  for (const auto& source : fData->fDatasets) {
    for (const auto& detail : source->fDetails) {
      Add(List, MarkOf(detail->fDataType), detail->fCaption, IncSymbol);
    }
  }
}

void TKDXBaseLabel::GetDataDetails(TLines& List, const std::string& aData, bool IncSymbol) const {
  Start(List, aData);
  const TKDXDatasetItem* source = fData->Source();
  if (source == nullptr) return;
  Add(List, SourceMark, fData->fDataSel, IncSymbol);
  for (const auto& detail : source->fDetails) Add(List, DetailMark, detail->fCaption, IncSymbol);
}

void TKDXBaseLabel::GetMasterDetailFields(TLines& List, const std::string& dSymName, bool IncSymbol,
                                          bool ExcludeImg) const {
  List.clear();
  if (dSymName.empty()) return;
  if (!dSymName.starts_with(SourceMark)) {
    return AddPlain(List, fData->GetDetail(std::string_view(dSymName).substr(Utf8::ByteIndex(dSymName, 1))));
  }
  const TKDXDatasetItem* source = fData->Source();
  if (source == nullptr) return;
  for (const auto& field : source->fFields) {
    if (ExcludeImg && IsImage(field->fFieldType)) continue;
    Add(List, MarkOf(field->fFieldType, source->fDataType), field->fCaption, IncSymbol);
  }
}

}  // namespace Zor::inline Base
