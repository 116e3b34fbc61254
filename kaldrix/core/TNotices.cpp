#include "kaldrix/core/TNotices.hpp"

#include <new>

#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

bool TNotices::IsHeld() const { return fHolds > 0 || fDocument.fStates.Has(lsUpdating); }

void TNotices::Close() {
  fObservers.Clear();
  fThrown = nullptr;
}

void TNotices::Changed(TKDXBaseItem& aItem) {
  Note(aItem, TNotice::Changed);
  // One that has not been told yet may be in its constructor still.
  if (aItem.fNotice != TNotice::Came) Flush();
}

void TNotices::Note(TKDXBaseItem& aItem, TNotice aNotice) {
  if (!Listens() || fReplaced || aItem.fNotice != TNotice::Nothing) return;
  try {
    // At the place of one that was freed another may stand by now.
    if (aNotice == TNotice::Came && !fGone.empty()) fGone.erase(&aItem);
    fItems.push_back(&aItem);
    aItem.fNotice = aNotice;
  } catch (const std::bad_alloc&) {
    ContentReplaced();  // Observers look at all of it then.
  }
}

void TNotices::Note(bool& aFlag) {
  if (!Listens() || fReplaced) return;
  aFlag = true;
  Flush();
}

void TNotices::ContentReplaced() {
  if (!Listens()) return;
  ForgetItems();
  fOrder = fPart = false;
  fReplaced = true;
  Flush();
}

void TNotices::ForgetItems() {
  fItems.clear();
  fGone.clear();
}

void TNotices::Goes(TKDXBaseItem& aItem) {
  const TNotice former = std::exchange(aItem.fNotice, TNotice::Nothing);
  if (former != TNotice::Nothing && !fReplaced) fGone.insert(&aItem);
  if (!Listens() || fReplaced || former == TNotice::Came) return;
  TellAll([&aItem](IZOItemObserver& observer) { observer.ItemGoes(aItem); });
}

void TNotices::GoOn(std::exception_ptr aThrown) {
  if (aThrown == nullptr) return;
  if (!IsHeld()) std::rethrow_exception(aThrown);
  if (fThrown == nullptr) fThrown = aThrown;
}

template <class TTell>
void TNotices::TellAll(TTell aTell) {
  const std::exception_ptr thrown = fObservers.Tell(aTell);
  if (fThrown == nullptr) fThrown = thrown;
}

void TNotices::Tell() {
  ++fHolds;
  while (!fItems.empty() || fOrder || fReplaced || fPart) {
    if (std::exchange(fReplaced, false))
      TellAll([](IZOItemObserver& observer) { observer.ContentReplaced(); });
    TellItems();
    if (std::exchange(fOrder, false)) TellAll([](IZOItemObserver& observer) { observer.OrderChanged(); });
    if (std::exchange(fPart, false)) TellAll([](IZOItemObserver& observer) { observer.DocumentChanged(); });
  }
  --fHolds;
  if (fThrown != nullptr) std::rethrow_exception(std::exchange(fThrown, nullptr));
}

void TNotices::TellItems() {
  // By index: an observer may change the document, and what it changes joins the list.
  for (std::size_t i = 0; i < fItems.size(); ++i) {
    TKDXBaseItem* item = fItems[i];
    if (!fGone.empty() && fGone.contains(item)) continue;
    const TNotice notice = std::exchange(item->fNotice, TNotice::Nothing);
    if (notice == TNotice::Nothing) continue;
    TellAll([item, notice](IZOItemObserver& observer) {
      notice == TNotice::Came ? observer.ItemCame(*item) : observer.ItemChanged(*item);
    });
  }
  ForgetItems();
}

}  // namespace Zor::inline Base
