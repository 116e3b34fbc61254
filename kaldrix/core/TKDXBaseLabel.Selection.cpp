// The selection.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>

#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TNoticeHold.hpp"

namespace Zor::inline Base {

void TKDXBaseLabel::AddToSelection(TKDXBaseItem& aItem, bool aNotify) {
  CheckDrawn(aItem);
  if (aItem.fState != isNormal) fSelectedAgain = true;
  aItem.fState = isSelected;
  const TNoticeHold hold(*this);
  fSelection.push_back(&aItem);
  TellSelected(aItem);
  if (aNotify) ChangeValue(chSelect);
}

void TKDXBaseLabel::TakeOnly(TKDXBaseItem& aItem, TZORItemState aState) {
  ClearSelection(false);
  aItem.fState = aState;
  fSelection.push_back(&aItem);
  TellSelected(aItem);
}

void TKDXBaseLabel::TellSelected(TKDXBaseItem& aItem) {
  if (fOnSelectItem) Guarded([&] { fOnSelectItem(this, &aItem); });
}

void TKDXBaseLabel::SetSelection(TKDXBaseItem* aItem, TZORItemState aState) {
  if (aItem == nullptr) return;
  CheckDrawn(*aItem);
  const TNoticeHold hold(*this);
  TakeOnly(*aItem, aState);
  FillSelPoints();
  ChangeValue(GetTextObject() != nullptr ? chChText : chSelect);
}

void TKDXBaseLabel::ScrollItem(TKDXBaseItem* aItem) {
  if (aItem == nullptr) return;
  CheckDrawn(*aItem);
  const TNoticeHold hold(*this);
  TakeOnly(*aItem, isSelected);
  if (fEditorMode != emInteractive) FillSelPoints();
  ChangeValue(chScrollSelect);
}

void TKDXBaseLabel::ClearSelection(bool aNotify) {
  const TNoticeHold hold(*this);
  const std::vector<TKDXBaseItem*> former = fSelection;
  ClearSelectionSilently();
  if (fOnUnSelectItem) {
    for (TKDXBaseItem* item : former) {
      Guarded([&] { fOnUnSelectItem(this, item); });
    }
  }
  if (aNotify) ChangeValue(chSelect);
}

void TKDXBaseLabel::ClearSelectionSilently() {
  SweepItems(fSelection.begin(), fSelection.end(), [](TKDXBaseItem* item) { item->fState = isNormal; });
  for (TKDXBaseItem* link : fLinks) link->fState = isNormal;
  fSelection.clear();
  fSelectedAgain = false;
  fLinks.clear();
  fLinkEnds.Forget();
}

TKDXBaseItem* TKDXBaseLabel::GetSelection(int aIndex) const {
  return aIndex < 1 || aIndex > static_cast<int>(fSelection.size())
             ? nullptr
             : fSelection[static_cast<std::size_t>(aIndex - 1)];
}

bool TKDXBaseLabel::IsInSelection(int aInID) const {
  return std::any_of(fSelection.begin(), fSelection.end(),
                     [aInID](const TKDXBaseItem* item) { return item->fInID == aInID; });
}

bool TKDXBaseLabel::SelectNext() { return SelectNeighbour(1); }
bool TKDXBaseLabel::SelectPrior() { return SelectNeighbour(-1); }

bool TKDXBaseLabel::SelectNeighbour(int aStep) {
  if (fSelection.empty() || fItems.Count() < 2) return false;
  for (int i = fItems.IndexOf(fSelection.front()) + aStep; i >= 0 && i < fItems.Count(); i += aStep) {
    if (!fItems[i]->Shows(lopVisible) || !fItems[i]->Shows(lopSelectable)) continue;
    SetSelection(fItems[i], isSelected);
    return true;
  }
  return false;
}

IZORText* TKDXBaseLabel::GetTextObject() const {
  TKDXBaseItem* item = Select();
  if (item == nullptr || (item->fItemType != itText && item->fItemType != itRichText)) return nullptr;
  return dynamic_cast<IZORText*>(item);
}

}  // namespace Zor::inline Base
