#include "kaldrix/core/TItemMark.hpp"

namespace Zor::inline Base {

TItemMark::TItemMark(TKDXBaseLabel& aDocument)
    : fDocument(aDocument),
      fItems(aDocument.fItems.Count()),
      fUndo(aDocument.fUndo.Count()),
      fRedo(aDocument.fRedo.Count()),
      fMaxID(aDocument.fMaxID),
      fUnReID(aDocument.fUnReID),
      fContentVersion(aDocument.fContentVersion),
      fModified(aDocument.fModified),
      fStates(aDocument.fStates) {}

void TItemMark::GoBack() const {
  TKDXBaseLabel& d = fDocument;
  while (d.fItems.Count() > fItems) d.Free(*d.fItems.Last());
  const bool recorded = d.fUndo.Count() > fUndo || d.fRedo.Count() > fRedo;
  d.fUndo.Shrink(fUndo);
  d.fRedo.Shrink(fRedo);
  d.fMaxID = fMaxID;
  d.fUnReID = fUnReID;
  d.fContentVersion = fContentVersion;
  d.fModified = fModified;
  d.fStates = fStates;
  if (recorded) d.FireUndoRedoEvent();
}

}  // namespace Zor::inline Base
