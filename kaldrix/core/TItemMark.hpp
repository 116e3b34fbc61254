#pragma once

#include "kaldrix/core/TNoticeHold.hpp"

namespace Zor::inline Base {

/// How a document stood before items were made.
class TItemMark {
 public:
  explicit TItemMark(TKDXBaseLabel& aDocument);

  /// Frees the items that came since, and takes their commands from the stacks: there is nothing to undo, and
  /// the identities are free again.
  void GoBack() const;

 private:
  TKDXBaseLabel& fDocument;
  int fItems, fUndo, fRedo, fMaxID, fUnReID;
  unsigned fContentVersion;
  bool fModified;
  TKaldrixStateOptions fStates;
};

/// Runs what makes items. Observers hear of them when that is done; when it raises, the document is as
/// before.
template <class TMake>
auto MakeWhole(TKDXBaseLabel& aDocument, TMake aMake) {
  const TNoticeHold hold(aDocument);
  const TItemMark before(aDocument);
  try {
    return aMake();
  } catch (...) {
    before.GoBack();
    throw;
  }
}

}  // namespace Zor::inline Base
