// Values of the current record and of its details.
#include "kaldrix/core/TKDXData.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "kaldrix/core/DataText.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/utils/Values.hpp"

namespace Zor::inline Base {

bool TKDXData::IsValidData(TZORFillType aFill, const std::string& aField) const {
  switch (aFill) {
    case ftField:
    case ftJson:
    case ftCsv:
    case ftImg64:
      return fHasData;
    case ftAsk:
      return NameAskExists(aField);
    case ftList:
      return NameListExists(aField);
    case ftCounter:
      return fOwner->fPrintInfo->CountersRun();
    default:
      return false;
  }
}

std::string TKDXData::DataValue(const std::string& aField, const std::string& aFormat) const {
  if (!fLinkData || fType == dtyNone || fType == dtyCustom) return aField;
  if (fSource == nullptr || fOpenType != fType) return aField;
  return fStrict ? fSource->ExactValue(aField, aFormat) : fSource->Value(aField, aFormat);
}

bool TKDXData::DataGraphic(const std::string& aField, std::string& aStream) const {
  aStream.clear();
  const TDataSet* dataset = CurrentDataset();
  const TField* field = dataset == nullptr ? nullptr : &dataset->FieldByName(aField);
  if (field == nullptr) return false;
  const TDataKind kind = field->DataType();
  if (kind == dkBlob || kind == dkGraphic || kind == dkStream) field->SaveToStream(aStream);
  return !aStream.empty();
}

std::string TKDXData::DataList(const std::string& aName, const std::string& /*aFormat*/) const {
  const TZOValList* list = GetListVal(std::string_view(aName));
  return list == nullptr ? aName : list->fAnsText;
}

std::string TKDXData::DataAsk(const std::string& aName, const std::string& aFormat) const {
  const TZOAskField* question = GetAskField(std::string_view(aName));
  return question == nullptr ? aName : question->Answer(aFormat);
}

int TKDXData::DataAskInt(const std::string& aName) const {
  const TZOAskField* question = GetAskField(std::string_view(aName));
  return question == nullptr ? 0 : HeldWhole(question->AnswerNumber());
}

Single TKDXData::DataAskNum(const std::string& aName) const {
  const TZOAskField* question = GetAskField(std::string_view(aName));
  return question == nullptr ? 0 : HeldSingle(question->AnswerNumber());
}

// Details --------------------------------------------------

TJsonArray* TKDXData::DetailRows(const TKDXDetailItem& aDetail) const {
  const TJsonObject* record = fSource == nullptr ? nullptr : fSource->JsonRecord();
  return record == nullptr ? nullptr : record->FindArray(aDetail.fCaption);
}

int TKDXData::FirstDetail(const std::string& aDetail) {
  TKDXDetailItem* detail = GetDetail(aDetail);
  if (detail == nullptr) return 0;
  if (TDataSet* dataset = detail->GetDataset()) {
    dataset->First();
    return static_cast<int>(dataset->RecordCount());
  }
  detail->fPosition = 0;
  const TJsonArray* rows = DetailRows(*detail);
  return rows == nullptr ? 0 : rows->Count();
}

void TKDXData::NextDetail(const std::string& aDetail) {
  TKDXDetailItem* detail = GetDetail(aDetail);
  if (detail == nullptr) return;
  if (TDataSet* dataset = detail->GetDataset()) {
    if (!dataset->Eof()) dataset->Next();
    return;
  }
  const TJsonArray* rows = DetailRows(*detail);
  if (rows != nullptr && detail->fPosition + 1 < rows->Count()) ++detail->fPosition;
}

std::string TKDXData::DataDetailValue(const std::string& aDetail, const std::string& aField,
                                      const std::string& aFormat) const {
  if (!fLinkData) return aField;
  const TKDXDetailItem* detail = GetDetail(aDetail);
  if (detail == nullptr) return {};
  switch (detail->fDataType) {
    case dtyNone:
    case dtyCustom:
      return aField;
    case dtyDataset:
      return detail->GetDataset() == nullptr ? aField
                                             : FieldText(detail->GetDataset()->FieldByName(aField), aFormat);
    default:
      break;
  }
  const TJsonArray* rows = DetailRows(*detail);
  if (rows == nullptr || detail->fPosition >= rows->Count()) return {};
  return JsonText(rows->GetItem(detail->fPosition).AsObject(), aField, aFormat);
}

void TKDXData::FillCalc(TKDXDetailItem& aDetail, const std::string& aField) {
  fCalcFoot.clear();
  if (TDataSet* dataset = aDetail.GetDataset()) {
    const TField& field = dataset->FieldByName(aField);
    for (dataset->First(); !dataset->Eof(); dataset->Next()) fCalcFoot.push_back(FieldNumber(field));
    dataset->First();
  } else if (const TJsonArray* rows = DetailRows(aDetail)) {
    fCalcFoot.reserve(static_cast<std::size_t>(rows->Count()));
    for (int i = 0; i < rows->Count(); ++i) {
      fCalcFoot.push_back(JsonNumber(rows->GetItem(i).AsObject(), aField));
    }
  }
}

double TKDXData::Aggregate(TZORFooter aFooter) {
  const auto count = static_cast<double>(fCalcFoot.size());
  if (fCalcFoot.empty()) return 0;
  const double sum = std::accumulate(fCalcFoot.begin(), fCalcFoot.end(), 0.0);
  const auto variance = [&] {
    // From the deviations, not from the sum of squares, which loses digits.
    double squares = 0;
    for (const double value : fCalcFoot) squares += (value - sum / count) * (value - sum / count);
    return fCalcFoot.size() > 1 ? squares / (count - 1) : 0;
  };
  switch (aFooter) {
    case foCount:
      return count;
    case foMin:
      return *std::min_element(fCalcFoot.begin(), fCalcFoot.end());
    case foMax:
      return *std::max_element(fCalcFoot.begin(), fCalcFoot.end());
    case foSum:
      return sum;
    case foMean:
      return sum / count;
    case foMedian:
      return Median(fCalcFoot);
    case foVariance:
      return variance();
    case foStdDev:
      return std::sqrt(variance());
    default:
      return 0;
  }
}

std::string TKDXData::GetDetailCalc(const std::string& aDetail, const std::string& aField,
                                    const std::string& aFormat, TZORFooter aFooter) {
  if (!fLinkData) return aField;
  TKDXDetailItem* detail = GetDetail(aDetail);
  if (detail == nullptr) return {};
  if (detail->fDataType == dtyNone) return aField;
  FillCalc(*detail, aField);
  return FormatFloat(aFormat, Aggregate(aFooter));
}

}  // namespace Zor::inline Base
