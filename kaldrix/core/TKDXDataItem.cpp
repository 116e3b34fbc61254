#include "kaldrix/core/TKDXDataItem.hpp"

namespace Zor::inline Base {

namespace {

TZORFieldType FieldTypeOf(TDataKind aKind) {
  switch (aKind) {
    case dkSmallint:
    case dkInteger:
    case dkWord:
    case dkShortint:
    case dkByte:
      return ftInt;
    case dkLargeint:
      return ftInt64;
    case dkFloat:
    case dkCurrency:
    case dkExtended:
      return ftFloat;
    default:
      return ftString;
  }
}

}  // namespace

void TKDXDataItem::Assign(const TKDXDataItem& aSource) {
  fCaption = aSource.fCaption;
  fDataType = aSource.fDataType;
  fDataset = aSource.fDataset;
  fFields.Assign(aSource.fFields);
}

void TKDXDataItem::SetDataset(TDataSet* aDataset) {
  if (aDataset == fDataset) return;
  fDataset = aDataset;
  fDataType = dtyDataset;
  if (aDataset == nullptr) return;
  if (fCaption.empty()) fCaption = aDataset->Name();
  if (fFields.Count() == 0) DescribeDataset();
}

void TKDXDataItem::DescribeDataset() {
  for (int i = 0; i < fDataset->FieldCount(); ++i) {
    const TField& source = fDataset->Fields(i);
    TKDXFieldItem& field = AddField(source.FieldName(), FieldTypeOf(source.DataType()));
    field.fCaption = source.DisplayName();
  }
}

TKDXFieldItem& TKDXDataItem::AddField(const std::string& aName, TZORFieldType aType) {
  TKDXFieldItem& field = fFields.Add();
  field.fName = field.fCaption = aName;
  field.fFieldType = aType;
  return field;
}

}  // namespace Zor::inline Base
