// Moving through the pages of a print, and the extent of the drawing.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"

namespace Zor::inline Base {

namespace {

/// How many labels stand on the pages before that one.
Int64 LabelsBefore(const TKDXBasePrintInfo& aPrint, int aPage) {
  const Int64 first = std::max(aPrint.FirstPageLabels(), 0);
  const Int64 others = MulHeld(aPrint.LabelsPerPage(), Int64{aPage} - 2);
  return aPage > 1 ? AddHeld(first, others) : 0;
}

}  // namespace

int TKDXBaseLabel::FirstLabelOfPage(int aPage) const {
  const Int64 label = fPrintInfo->LabelAt(AddHeld(LabelsBefore(*fPrintInfo, aPage), 1));
  return static_cast<int>(std::clamp<Int64>(label, 1, std::numeric_limits<int>::max()));
}

Int64 TKDXBaseLabel::LabelsFromPage(int aPage) const {
  return fPrintInfo->LabelsOfRun() - LabelsBefore(*fPrintInfo, aPage);
}

void TKDXBaseLabel::GoToPage(int aPage, bool aFillData, bool aCheck) {
  if (aPage == 1 || !aCheck || aPage != fPrintInfo->fCurrentPage) {
    GoToLabel(FirstLabelOfPage(aPage));
    fPrintInfo->fCurrentPage = aPage;
  }
  if (aFillData) FillDataPage(aPage);
}

void TKDXBaseLabel::GoToLabel(int aLabel) {
  fPrintInfo->fCurrentLabel = aLabel;
  WalkTo(aLabel);
}

void TKDXBaseLabel::WalkTo(int aLabel) {
  const bool known = KnowsLabel();
  if (known && fWalkLabel == aLabel) return;
  // 1. The record: walked on to where that is the only way, else gone to.
  if (aLabel == 1) {
    fData->First();
  } else if (fData->Repeats() || !fData->fFieldRepeat.empty()) {
    if (!known || fWalkLabel > aLabel) fData->First();
    fData->Skip(aLabel - (known && fWalkLabel <= aLabel ? fWalkLabel : 1));
  } else {
    fData->GoToLabel(aLabel);
  }
  // 2. The counters.
  if (fPrintInfo->CountersRun()) {
    for (TKDXCounter* counter : fCounters) {
      if (counter->fActive) counter->MoveTo(aLabel);
    }
  }
  fWalkLabel = aLabel;
  fWalkMoves = fData->fMoves;
}

void TKDXBaseLabel::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  for (const TKDXBaseItem* item : fItems) {
    if (item->Shows(lopVisible) && item->Shows(lopExport)) item->CheckFit(aMinX, aMaxX, aMinY, aMaxY);
  }
  aMinX = std::max<Int64>(aMinX, 0);
  aMinY = std::max<Int64>(aMinY, 0);
}

}  // namespace Zor::inline Base
