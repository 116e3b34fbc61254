// Values of data, counters, lists and questions for the items.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

std::string TKDXBaseLabel::DataValue(const std::string& aField, const std::string& aFormat,
                                     TZORFillType aFill) const {
  switch (aFill) {
    case ftField:
    case ftJson:
      return fData->DataValue(aField, aFormat);
    case ftCounter:
      return CounterValue(aField);
    case ftAsk:
      return fData->DataAsk(aField, aFormat);
    case ftList:
      return fData->DataList(aField, aFormat);
    default:
      return {};
  }
}

int TKDXBaseLabel::DataIntValue(const std::string& aField, TZORFillType aFill) const {
  if (aFill == ftAsk) return fData->DataAskInt(aField);
  if (aFill != ftField && aFill != ftJson && aFill != ftCounter) return 0;
  return HeldWhole(TextToNumber(DataValue(aField, {}, aFill)).value_or(0));
}

Single TKDXBaseLabel::DataNumValue(const std::string& aField, TZORFillType aFill) const {
  if (aFill == ftAsk) return fData->DataAskNum(aField);
  if (aFill != ftField && aFill != ftJson && aFill != ftCounter) return 0;
  return HeldSingle(TextToNumber(DataValue(aField, {}, aFill)).value_or(0));
}

TKDXCounter* TKDXBaseLabel::FindCounter(std::string_view aName) const {
  for (TKDXCounter* counter : fCounters) {
    if (SameText(counter->fName, aName)) return counter;
  }
  return nullptr;
}

std::string TKDXBaseLabel::CounterValue(std::string_view aName) const {
  const TKDXCounter* counter = FindCounter(aName);
  return counter == nullptr ? std::string() : counter->fValue;
}

}  // namespace Zor::inline Base
