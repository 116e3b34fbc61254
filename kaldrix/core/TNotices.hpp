#pragma once

#include <cstdint>
#include <exception>
#include <unordered_set>
#include <utility>
#include <vector>

#include "kaldrix/core/IZOItemObserver.hpp"
#include "kaldrix/types/TObserverList.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// What a document still has to tell: the items that came or changed, and what observers threw. It is told
/// when nothing holds it back: no operation that is under way (TNoticeHold) and no bracket.
class TNotices {
 public:
  explicit TNotices(const TKDXBaseLabel& aDocument) : fDocument(aDocument) {}

  /// Noted only, since its constructor runs; told when the operation that makes it is whole.
  void Came(TKDXBaseItem& aItem) { Note(aItem, TNotice::Came); }
  void Changed(TKDXBaseItem& aItem);
  /// Told at once.
  void Goes(TKDXBaseItem& aItem);
  void OrderChanged() { Note(fOrder); }
  void ContentReplaced();
  void DocumentChanged() { Note(fPart); }
  /// All items are freed at once.
  void ForgetItems();

  /// Does anybody hear of single items?
  bool Listens() const { return !fMuted && !fObservers.IsEmpty(); }

  /// While muted, nothing is noted or told. Says what it was.
  bool Mute(bool aMuted) { return std::exchange(fMuted, aMuted); }

  /// What an observer threw goes on from here, or from the end of what holds the notices back.
  void GoOn(std::exception_ptr aThrown);
  /// Tells what has been noted, if nothing holds it back. Throws what observers threw.
  void Flush() {
    if (HasMore() && !IsHeld()) Tell();
  }

  /// The document goes, and nobody hears of it.
  void Close();

  void Hold() { ++fHolds; }
  void Release() { --fHolds; }
  /// Is an operation or a bracket under way?
  bool IsHeld() const;

  TObserverList<IZOItemObserver> fObservers;

 private:
  bool HasMore() const { return !fItems.empty() || fOrder || fReplaced || fPart || fThrown != nullptr; }
  void Note(TKDXBaseItem& aItem, TNotice aNotice);
  void Note(bool& aFlag);
  void Tell();
  void TellItems();
  template <class TTell>
  void TellAll(TTell aTell);

  const TKDXBaseLabel& fDocument;
  std::vector<TKDXBaseItem*> fItems;        ///< that came or changed
  std::unordered_set<TKDXBaseItem*> fGone;  ///< of fItems: freed meanwhile
  std::exception_ptr fThrown;
  int fHolds = 0;
  bool fMuted = false;
  bool fOrder = false, fReplaced = false, fPart = false;
};

}  // namespace Zor::inline Base
