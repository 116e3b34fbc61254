#pragma once

#include <string>

#include "kaldrix/core/TKDXFields.hpp"
#include "kaldrix/platform/TDataSet.hpp"

namespace Zor::inline Base {

/// What a source, or a detail of one, offers.
class TKDXDataItem {
 public:
  TKDXDataItem() = default;
  TKDXDataItem(const TKDXDataItem&) = delete;
  TKDXDataItem& operator=(const TKDXDataItem&) = delete;
  virtual ~TKDXDataItem() = default;

  /// Takes caption, data set, kind and fields.
  void Assign(const TKDXDataItem& aSource);
  /// Not owned, and to be taken away before it goes. On a change the kind becomes dtyDataset; an empty
  /// caption takes its name, and a description without fields its fields.
  void SetDataset(TDataSet* aDataset);
  TDataSet* GetDataset() const { return fDataset; }
  /// A field whose name and caption are the same.
  TKDXFieldItem& AddField(const std::string& aName, TZORFieldType aType = ftString);

  std::string fCaption;
  TZORDataType fDataType = dtyNone;
  TKDXFields fFields{this};

 private:
  void DescribeDataset();

  TDataSet* fDataset = nullptr;
};

}  // namespace Zor::inline Base
