#include "kaldrix/host/RunRepeats.hpp"

#include <algorithm>
#include <cstdint>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"

namespace Zor::inline Host {

namespace {

/// The labels of the run behind one of them: "label 7", "labels 7 to 90"; nothing when there are none.
std::string LabelsBehind(const TLabelRun& aRun, Int64 aLabel) {
  const int first = aLabel < aRun.Last() ? aRun.Selected().Behind(static_cast<int>(aLabel)) : 0;
  if (first == 0) return {};
  const std::string from = std::to_string(first);
  return first == aRun.Last() ? "label " + from : "labels " + from + " to " + std::to_string(aRun.Last());
}

/// The value that a counter shows on a label.
std::string ValueAt(TKDXCounter& aCounter, Int64 aLabel) {
  aCounter.MoveTo(static_cast<int>(std::min<Int64>(aLabel, INT32_MAX)));
  const std::string value = aCounter.fValue;
  aCounter.Reset();
  return value;
}

/// Calls `aVisit` with each counter in use, and the label with which it comes to its end.
template <class TVisit>
void ForCounters(const TKDXLabel& aDocument, TVisit aVisit) {
  if (!aDocument.fPrintInfo->CountersRun()) return;
  for (TKDXCounter* counter : aDocument.fCounters) {
    if (counter->fActive) aVisit(*counter, counter->LabelsToEnd());
  }
}

}  // namespace

std::vector<std::string> SpentCounters(const TKDXLabel& aDocument, const TLabelRun& aRun) {
  std::vector<std::string> told;
  ForCounters(aDocument, [&](TKDXCounter& counter, Int64 end) {
    const std::string labels = LabelsBehind(aRun, end);
    if (labels.empty()) return;
    told.push_back("counter '" + counter.fName + "' ends at label " + std::to_string(end) + ": " + labels +
                   " would show '" + ValueAt(counter, end) + "' again");
  });
  return told;
}

std::vector<std::string> UnevenEnds(const TKDXLabel& aDocument, const TLabelRun& aRun) {
  std::vector<std::string> told;
  const TKDXData& data = *aDocument.fData;
  if (aDocument.fPrintInfo->DataRuns()) {
    const std::string labels = LabelsBehind(aRun, data.fNumlabels);
    if (!labels.empty())
      told.push_back("the records end at label " + std::to_string(data.fNumlabels) + ": " + labels + " show" +
                     (labels.starts_with("labels") ? "" : "s") + " the last record again");
  }
  ForCounters(aDocument, [&](TKDXCounter& counter, Int64 end) {
    if (counter.fNumFrom > counter.fNumTo)
      told.push_back("counter '" + counter.fName + "' begins at " + std::to_string(counter.fNumFrom) +
                     ", behind its end " + std::to_string(counter.fNumTo) + ": it has one value");
    if (aRun.Labels() >= end) return;
    told.push_back("the run ends at label " + std::to_string(aRun.Labels()) + ": no label comes to '" +
                   ValueAt(counter, end) + "', the end of counter '" + counter.fName + "'");
  });
  return told;
}

}  // namespace Zor::inline Host
