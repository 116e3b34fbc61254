#pragma once

#include <string>

#include "kaldrix/core/TKDXCollection.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {

class TKDXDataItem;
class TKDXFieldItem;

/// The fields of a source.
using TKDXFields = TKDXCollection<TKDXFieldItem, TKDXDataItem>;

/// A field that a source offers.
class TKDXFieldItem {
 public:
  explicit TKDXFieldItem(TKDXFields& aOwner) : fOwner(&aOwner) {}
  TKDXFieldItem(const TKDXFieldItem&) = delete;
  TKDXFieldItem& operator=(const TKDXFieldItem&) = delete;

  void Assign(const TKDXFieldItem& aSource) {
    fName = aSource.fName;
    fCaption = aSource.fCaption;
    fFieldType = aSource.fFieldType;
    fFloatAsDateTime = aSource.fFloatAsDateTime;
  }

  TKDXFields* fOwner;
  std::string fName;     ///< the key in the source
  std::string fCaption;  ///< what users see and items bind to
  TZORFieldType fFieldType = ftString;
  bool fFloatAsDateTime = false;  ///< carried for the host
};

}  // namespace Zor::inline Base
