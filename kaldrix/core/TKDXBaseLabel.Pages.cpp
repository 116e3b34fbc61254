// Moving through the pages of a print, and the extent of the drawing.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"

namespace Zor::inline Base {

void TKDXBaseLabel::GoToPage(int aPage, bool aFillData, bool aCheck) {
  IZODataWalk* walk = fData->fWalk;
  if (aPage == 1) {
    if (walk != nullptr) walk->First();
    fPrintInfo->fCurrentLabel = 1;
    fPrintInfo->fCurrentPage = 1;
  } else if (!aCheck || aPage != fPrintInfo->fCurrentPage) {
    fData->fFieldRepeat.empty() ? SkipToPage(aPage) : SkipRepeated(aPage);
    fPrintInfo->fCurrentPage = aPage;
  }
  if (aFillData && walk != nullptr) walk->FillDataPage(aPage);
}

void TKDXBaseLabel::SkipToPage(int aPage) {
  const Int64 first = fPrintInfo->FirstPageLabels();
  const Int64 labels = MulHeld(fPrintInfo->LabelsPerPage(), aPage - 2);
  const Int64 current = AddHeld(AddHeld(first, labels), 1);
  const Int64 repetition = std::max(fPrintInfo->fRepetition, 1);
  fPrintInfo->fCurrentLabel = static_cast<int>(current);
  const Int64 record = current / repetition + (current % repetition != 0 ? 1 : 0);
  if (fData->fWalk != nullptr) fData->fWalk->SetPos(static_cast<int>(record));
  const Int64 rest = (first + labels) % repetition;
  fData->fPosRepeat = static_cast<int>(rest != 0 ? rest + 1 : 1);
}

void TKDXBaseLabel::SkipRepeated(int aPage) {
  IZODataWalk* walk = fData->fWalk;
  if (walk == nullptr) return;
  walk->First();
  Int64 labels = fPrintInfo->FirstPageLabels();
  labels += MulHeld(fPrintInfo->LabelsPerPage(), std::max(aPage - 2, 0));
  const Int64 count = std::min<Int64>(labels, fPrintInfo->fLabelsToPrint);
  for (Int64 i = 0; i < count; ++i) walk->NextData();
  fPrintInfo->fCurrentLabel = static_cast<int>(count + 1);
}

void TKDXBaseLabel::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  for (const TKDXBaseItem* item : fItems) {
    if (item->Shows(lopVisible) && item->Shows(lopExport)) item->CheckFit(aMinX, aMaxX, aMinY, aMaxY);
  }
  aMinX = std::max<Int64>(aMinX, 0);
  aMinY = std::max<Int64>(aMinY, 0);
}

}  // namespace Zor::inline Base
