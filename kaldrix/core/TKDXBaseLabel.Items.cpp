// Items and their identities.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>
#include <unordered_set>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/TKDXBaseLibSymbol.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// Takes an item out of a list that tells it once. Looked for from both ends, since items mostly go in the
/// order of the list or, when their making is undone, against it.
bool EraseItem(std::vector<TKDXBaseItem*>& aItems, const TKDXBaseItem* aItem) {
  const auto count = static_cast<std::ptrdiff_t>(aItems.size());
  for (std::ptrdiff_t first = 0, last = count - 1; first <= last; ++first, --last) {
    const bool atLast = aItems[static_cast<std::size_t>(last)] == aItem;
    if (!atLast && aItems[static_cast<std::size_t>(first)] != aItem) continue;
    aItems.erase(aItems.begin() + (atLast ? last : first));
    return true;
  }
  return false;
}

}  // namespace

// Coming and going --------------------------------------------------

void TKDXBaseLabel::Enlist(TKDXBaseItem& aItem, bool aPreview) {
  aItem.fListed = true;
  if (aPreview) {
    fPreview.Adopt(&aItem);
    return;
  }
  fItems.Adopt(&aItem);
  fIndex.Add(aItem);
  if (aItem.fItemType == itLink) fHasLinks = fLinksStale = true;
  NoteChange();
  fNotices.Came(aItem);
}

void TKDXBaseLabel::Forget(TKDXBaseItem& aItem) {
  ++fGoneItems;
  aItem.fListed = false;
  Undefer(aItem);
  if (aItem.fFromPreview) return fPreview.Extract(&aItem);
  fNotices.Goes(aItem);
  if (CarriesLinks(aItem.fItemType)) fLinksStale = true;
  if (aItem.fState != isNormal) {
    Deselect(aItem);
    if (aItem.fItemType == itLink) DropLink(aItem);
  }
  fIndex.Remove(aItem);
  fItems.Extract(&aItem);
}

bool TKDXBaseLabel::DropLink(const TKDXBaseItem& aLink) {
  fLinkEnds.Remove(aLink);
  return EraseItem(fLinks, &aLink);
}

void TKDXBaseLabel::Deselect(const TKDXBaseItem& aItem) {
  if (fSelectedAgain) {
    std::erase(fSelection, &aItem);
  } else {
    EraseItem(fSelection, &aItem);
  }
}

void TKDXBaseLabel::Unmake(TKDXBaseItem& aItem) {
  const TKDXCmd* top = ActiveStack().Top();
  if (top != nullptr && top->fKind == TKDXCreateCmd::Kind && top->IsAbout(aItem)) ActiveStack().Pop();
  Forget(aItem);
}

void TKDXBaseLabel::Free(TKDXBaseItem& aItem) {
  Forget(aItem);
  delete &aItem;
}

void TKDXBaseLabel::FreeAll(TItemList& aList) {
  ++fGoneItems;
  if (&aList == &fItems) {
    fNotices.ForgetItems();
    fIndex.Clear();
    for (TKDXBaseItem* item : fCalcs) {
      if (item != nullptr) item->fCalcPlace = -1;
    }
    fCalcs.clear();
    fHasLinks = false;
  }
  for (TKDXBaseItem* item : aList) {
    Undefer(*item);
    item->fListed = false;
  }
  aList.Clear();
}

TKDXBaseItem& TKDXBaseLabel::MakeStoredItem(Int64 aOrdinal) {
  if (aOrdinal < 0 || aOrdinal >= EnumCount<TZORItemType>) {
    throw Exception("unknown item type " + std::to_string(aOrdinal));
  }
  const auto type = static_cast<TZORItemType>(aOrdinal);
  TKDXBaseItem* item = NewItemOfType(type, false);
  if (item != nullptr) return *item;
  throw Exception("no class for items of type " + std::to_string(aOrdinal) + " (" +
                  std::string(NameItem(type)) + ")");
}

void TKDXBaseLabel::ChangeIdentity(TKDXBaseItem& aItem, int aInID, std::string aID) {
  // The command that recorded the item's creation knows it by the identity that it had then.
  TKDXCmd* top = ActiveStack().Top();
  const bool created = top != nullptr && top->fKind == TKDXCreateCmd::Kind && top->IsAbout(aItem);
  if (!aItem.fFromPreview) fIndex.BeforeChange(aItem);
  aItem.fInID = aInID;
  aItem.fID = std::move(aID);
  if (!aItem.fFromPreview) fIndex.AfterChange(aItem);
  // One further where an item comes back; the end of reading goes there by itself.
  fMaxID = std::max(fMaxID, fUndoing || fRedoing ? aInID + 1 : aInID);
  if (created) top->TakeReceiver(aItem);
}

// Whose it is --------------------------------------------------

void TKDXBaseLabel::RefuseForeign(const char* aWhat) {
  throw EArgumentException("The " + std::string(aWhat) + " belongs to another document");
}

void TKDXBaseLabel::CheckOwn(const TKDXLayer& aLayer) const {
  if (aLayer.fOwner != this) RefuseForeign("layer");
}

void TKDXBaseLabel::CheckDrawn(const TKDXBaseItem& aItem) const {
  CheckOwn(aItem);
  if (aItem.fFromPreview) throw EArgumentException("The item is a copy on the sheet");
}

// Looking up --------------------------------------------------

TKDXBaseItem* TKDXBaseLabel::GetItem(int aIndex) const {
  return aIndex < 1 || aIndex > fItems.Count() ? nullptr : fItems[aIndex - 1];
}

TKDXBaseItem* TKDXBaseLabel::SearchItem(int aID, bool aScrollToView) {
  TKDXBaseItem* item = fIndex.Find(aID);
  if (item != nullptr && aScrollToView) ScrollItem(item);
  return item;
}

TKDXBaseItem* TKDXBaseLabel::SearchItem(const std::string& aID, bool aScrollToView) {
  TKDXBaseItem* item = FindName(aID);
  if (item != nullptr && aScrollToView) ScrollItem(item);
  return item;
}

TKDXBaseItem* TKDXBaseLabel::FindName(std::string_view aID) {
  return fIndex.FindName(aID, [aID](const TKDXBaseItem& item) { return SameText(item.fID, aID); });
}

TKDXBaseItem* TKDXBaseLabel::ElementByID(const std::string& aID, bool aSelect) {
  TKDXBaseItem* item = FindName(aID);
  if (item == nullptr || !aSelect) return item;
  const TNoticeHold hold(*this);
  ClearSelection(false);
  AddToSelection(*item, false);
  if (fEditorMode != emInteractive) FillSelPoints();
  ChangeValue(chSelect);
  return item;
}

bool TKDXBaseLabel::RepeatID(std::string_view aID, const TKDXBaseItem* aItem) {
  if (aItem != nullptr && (&aItem->Document() != this || aItem->fFromPreview)) aItem = nullptr;
  const std::string_view name = Trim(aID);
  return fIndex.FindName(name, [&](const TKDXBaseItem& item) {
    return &item != aItem && SameText(Trim(item.fID), name);
  }) != nullptr;
}

// Deleting --------------------------------------------------

void TKDXBaseLabel::DeleteAttachedLinks(const IZORLink& aNode) {
  for (TKDXBaseItem* link : fLinkEnds.LinksOf(aNode.InternalID(), fLinks)) {
    if (!DropLink(*link)) continue;
    Deselect(*link);
    link->fState = isNormal;
    Free(*link);
  }
}

void TKDXBaseLabel::DeleteItem(TKDXBaseItem* aItem, bool aRemoveSelection) {
  if (aItem == nullptr) return;
  CheckOwn(*aItem);
  const TNoticeHold hold(*this);
  if (!fLinks.empty()) {
    if (const auto* node = dynamic_cast<const IZORLink*>(aItem)) DeleteAttachedLinks(*node);
  }
  if (aRemoveSelection && Selected(*aItem)) {
    Deselect(*aItem);
    if (aItem->fItemType == itLink) DropLink(*aItem);  // It may be selected by itself as well.
    aItem->fState = isNormal;
    ChangeValue(chSelect);
  }
  if (!aItem->fListed || aItem->fFromPreview) return;
  TKDXDeleteCmd::AddCommand(*aItem);
  Free(*aItem);
  NoteChange();
}

void TKDXBaseLabel::DeleteSelection() {
  const TNoticeHold hold(*this);
  std::vector<TKDXBaseItem*> links = fLinks.empty() ? fLinks : AttachedLinks();
  std::vector<TKDXBaseItem*> doomed;
  doomed.swap(fSelection);
  ClearSelection(false);
  FreeMany(doomed, &TKDXBaseLabel::RecordDeletion);
  FreeMany(links);
  ChangeValue(chSelect);
}

void TKDXBaseLabel::RecordDeletion(TKDXBaseItem& aItem) {
  aItem.fState = isNormal;
  if (fOnUnSelectItem) Guarded([&] { fOnUnSelectItem(this, &aItem); });
  TKDXDeleteCmd::AddCommand(aItem);
}

std::vector<TKDXBaseItem*> TKDXBaseLabel::AttachedLinks() const {
  const std::unordered_set<TKDXBaseItem*> selected(fSelection.begin(), fSelection.end());
  std::vector<TKDXBaseItem*> attached;
  for (TKDXBaseItem* link : fLinks) {
    if (!selected.contains(link) && link->IsAttachedToSelection()) attached.push_back(link);
  }
  return attached;
}

bool TKDXBaseLabel::ExtractInOrder(const std::vector<TKDXBaseItem*>& aItems) {
  auto next = aItems.begin();
  fItems.ExtractIf([&](const TKDXBaseItem* item) {
    if (next == aItems.end() || *next != item) return false;
    ++next;
    return true;
  });
  return next == aItems.end();
}

void TKDXBaseLabel::FreeMany(std::vector<TKDXBaseItem*>& aItems,
                             void (TKDXBaseLabel::*aBefore)(TKDXBaseItem&)) {
  if (aItems.empty()) return;
  fLinksStale = true;
  ExtractMany(aItems);
  // One after the other, so that what is kept of an item takes the memory that the former one had. Freeing
  // one looks at its end and at what the allocator keeps behind it.
  constexpr std::size_t toItsEnd = sizeof(TKDXBaseItem) + 128;
  std::size_t left = aItems.size();
  try {
    SweepItems<toItsEnd>(aItems.rbegin(), aItems.rend(), [&](TKDXBaseItem* item) {
      if (aBefore != nullptr) (this->*aBefore)(*item);
      --left;
      fNotices.Goes(*item);
      item->fListed = false;
      fIndex.Remove(*item);
      delete item;
    });
  } catch (...) {
    // Nothing is lost: those that are left come back, as the topmost.
    ++fGoneItems;
    aItems.resize(left);
    for (TKDXBaseItem* item : aItems) TakeBack(*item);
    fNotices.OrderChanged();
    throw;
  }
  ++fGoneItems;
  NoteChange();
}

void TKDXBaseLabel::TakeBack(TKDXBaseItem& aItem) {
  aItem.fListed = true;
  fIndex.BeforeMove(aItem);
  fItems.Adopt(&aItem);
  fIndex.AfterMove(aItem);
  Defer(aItem);  // It may have waited for a calculation.
}

void TKDXBaseLabel::ExtractMany(std::vector<TKDXBaseItem*>& aItems) {
  if (ExtractInOrder(aItems) && fCalcs.empty()) return;
  // An item that is told twice goes once.
  std::erase_if(aItems, [](TKDXBaseItem* item) {
    const bool again = !item->fListed;
    item->fListed = false;
    return again;
  });
  fItems.ExtractIf([](const TKDXBaseItem* item) { return !item->fListed; });
  for (TKDXBaseItem* item : aItems) Undefer(*item);
}

void TKDXBaseLabel::CleanLibray() {
  if (fSymbols.Count() < 2) return;
  for (TKDXBaseLibSymbol* symbol : fSymbols) symbol->fUsed = false;
  SweepItems(fItems.begin(), fItems.end(), [](const TKDXBaseItem* item) { item->MarkSymbolInUse(); });
  std::vector<TKDXBaseLibSymbol*> unused;
  for (int i = 1; i < fSymbols.Count(); ++i) {
    if (!fSymbols[i]->fUsed) unused.push_back(fSymbols[i]);
  }
  for (TKDXBaseLibSymbol* symbol : unused) fSymbols.Delete(symbol);
}

// Z-order --------------------------------------------------

void TKDXBaseLabel::SendToBack() {
  if (!fSelection.empty()) Restack(*fSelection.front(), false);
}

void TKDXBaseLabel::BringToFront() {
  if (!fSelection.empty()) Restack(*fSelection.front(), true);
}

void TKDXBaseLabel::Restack(TKDXBaseItem& aItem, bool aTop) {
  const int place = fItems.IndexOf(&aItem);
  if (place < 0 || place == (aTop ? fItems.Count() - 1 : 0)) return;
  const TUpdateBracket bracket(*this, true);
  fIndex.BeforeMove(aItem);
  fItems.MoveToEnd(aItem, aTop);
  fIndex.AfterMove(aItem);
  fStates.Add(lsUpdate);
  NoteChange();
  fNotices.OrderChanged();
}

}  // namespace Zor::inline Base
