#pragma once

#include "kaldrix/core/TKDXDataItem.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;
class TKDXDatasetItem;
class TKDXDetailItem;

/// The details of a source: tables inside each of its records.
using TKDXDetails = TKDXCollection<TKDXDetailItem, TKDXDatasetItem>;
/// The sources that a document can be filled from.
using TKDXDatasets = TKDXCollection<TKDXDatasetItem, TKDXBaseLabel>;

class TKDXDetailItem final : public TKDXDataItem {
 public:
  explicit TKDXDetailItem(TKDXDetails& aOwner) : fOwner(&aOwner) {}

  TKDXDetails* fOwner;
  int fPosition = 0;  ///< current row in the current record of a JSON source, 0-based
};

class TKDXDatasetItem final : public TKDXDataItem {
 public:
  explicit TKDXDatasetItem(TKDXDatasets& aOwner) : fOwner(&aOwner) {}

  void Assign(const TKDXDatasetItem& aSource) {
    TKDXDataItem::Assign(aSource);
    fDetails.Assign(aSource.fDetails);
  }

  TKDXDatasets* fOwner;
  TKDXDetails fDetails{this};
};

}  // namespace Zor::inline Base
