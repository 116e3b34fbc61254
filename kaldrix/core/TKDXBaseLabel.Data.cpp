// Values of data, counters, lists and questions for the items; the counters themselves.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>
#include <utility>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/platform/TAtExit.hpp"
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

bool TKDXBaseLabel::DataGraphic(const std::string& aField, std::string& aStream) const {
  return fData->DataGraphic(aField, aStream);
}

// Counters --------------------------------------------------

TKDXCounter* TKDXBaseLabel::FindCounter(std::string_view aName) const {
  const int index = fCounterFinder.Find(aName, fCounters.Count(),
                                        [this](int i) -> const std::string& { return fCounters[i]->fName; });
  return index < 0 ? nullptr : fCounters[index];
}

bool TKDXBaseLabel::CounterName(std::string_view coName, const TKDXCounter* aCounter) const {
  return std::any_of(fCounters.begin(), fCounters.end(), [&](const TKDXCounter* counter) {
    return counter != aCounter && SameText(counter->fName, coName);
  });
}

std::string TKDXBaseLabel::CounterValue(std::string_view aName) const {
  const TKDXCounter* counter = FindCounter(aName);
  return counter == nullptr ? std::string() : counter->fValue;
}

TKDXCounter* TKDXBaseLabel::GetCounter(int aIndex) const {
  return aIndex < 1 || aIndex > fCounters.Count() ? nullptr : fCounters[aIndex - 1];
}

bool TKDXBaseLabel::RemoveCounter(TKDXCounter* aCounter) {
  if (fCounters.IndexOf(aCounter) < 0) return false;
  const TNoticeHold hold(*this);
  Unbind(ftCounter, [aCounter](const std::string& aName) { return SameText(aName, aCounter->fName); });
  fCounters.Delete(aCounter);
  ContentChanged();
  return true;
}

void TKDXBaseLabel::Unbind(TZORFillType aFill, const std::function<bool(const std::string&)>& aMatches) {
  // An item tells its binding only while the document is linked.
  const TNoticeHold hold(*this);
  const TAtExit restore(
      [this, linked = std::exchange(fData->fLinkData, true)] { fData->fLinkData = linked; });
  for (TKDXBaseItem* item : fItems) {
    auto* bound = dynamic_cast<IZORData*>(item);
    if (bound != nullptr && bound->FillType() == aFill && aMatches(bound->FillName())) {
      bound->SetData(ftNone, {}, {});
    }
  }
}

void TKDXBaseLabel::ResetCounters() {
  if (!fPrintInfo->CountersRun()) return;
  for (int i = fCounters.Count() - 1; i >= 0; --i) {
    if (fCounters[i]->fActive) fCounters[i]->Reset();
  }
}

}  // namespace Zor::inline Base
