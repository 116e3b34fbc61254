// Brackets, observers and notifications.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <array>
#include <exception>
#include <utility>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/platform/TAtExit.hpp"

namespace Zor::inline Base {

namespace {

/// The transient states that no bracket leaves behind.
constexpr TKaldrixStateOptions BracketStates{lsNoPaint, lsUpdate, lsUpdateMeasure, lsCalc};

/// Which kinds of observer a change is meant for.
enum TAudience : std::uint8_t { toNobody = 0, toEditor = 1, toInspector = 2, toPreview = 4 };

/// By ordinal of TZOChange.
constexpr std::array<std::uint8_t, 21> Audiences{
    toEditor,                // chLabelDef
    toEditor,                // chBackSurf
    toEditor,                // chAligns
    toEditor | toPreview,    // chMeasure
    toEditor | toInspector,  // chPropItem
    toEditor,                // chUnits
    toEditor | toPreview,    // chPaint
    toEditor | toPreview,    // chDraw
    toEditor | toInspector,  // chSelect
    toEditor | toInspector,  // chScrollSelect
    toEditor,                // chClearSelect
    toEditor,                // chCursor
    toEditor,                // chSelCur
    toInspector,             // chInspect
    toInspector,             // chEditInspect
    toNobody,                // chEndInspect
    toInspector,             // chInspectPoint
    toEditor | toInspector,  // chText
    toEditor | toInspector,  // chChText
    toEditor,                // chPickSel
    toEditor,                // chSelSymbol
};
static_assert(Audiences.size() == chSelSymbol + 1);

std::uint8_t KindBit(TZODestUpdate aKind) {
  switch (aKind) {
    case duEditor:
      return toEditor;
    case duInspector:
      return toInspector;
    case duPreview:
      return toPreview;
    default:
      return toNobody;
  }
}

}  // namespace

// Update bracket --------------------------------------------------

void TKDXBaseLabel::BeginUpdate(bool aPaintOnEnd) {
  fUpdate = false;
  fStates.Add(lsUpdating);
  if (!aPaintOnEnd) fStates.Add(lsNoPaint);
  fIncUnReID = false;
}

void TKDXBaseLabel::EndUpdate() {
  const TNoticeHold hold(*this);
  ++fUnReID;
  fIncUnReID = true;
  const TAtExit close([this] {
    fStates.Remove(lsUpdating);
    CloseBracket();
  });
  CalcPending();
  fUpdate = true;
  FillSelPoints();
}

void TKDXBaseLabel::CloseBracket() {
  fUpdate = true;
  if (fStates.Has(lsUpdateMeasure)) {
    ChangeValue(chMeasure);
  } else if (fStates.Has(lsUpdate) && !fStates.Has(lsNoPaint)) {
    ChangeValue(chPaint);
  }
  fUpdate = false;
  fStates = fStates - BracketStates;
}

void TKDXBaseLabel::EndUpdateSelection() {
  const TNoticeHold hold(*this);
  fUpdate = true;
  fModified = false;
  FillSelPoints();
  if (GetTextObject() != nullptr && fSelection.size() == 1) return ChangeValue(chChText);
  ChangeValue(chSelect);
  ChangeValue(chPaint);
}

void TKDXBaseLabel::BeginRead(bool aPaste) {
  const TNoticeHold hold(*this);
  if (!aPaste) {
    fMaxID = 1;
    Clear({cleAll}, true);
  }
  fUndoOpt = fOptions.Has(loUndoRedo);
  if (aPaste) fStates.Add(lsPaste);
  fStates = fStates + TKaldrixStateOptions{lsUpdating, lsReading, lsUpdateMeasure};
  if (fUndoOpt) fOptions.Remove(loUndoRedo);
  BeginUpdate(true);
}

void TKDXBaseLabel::EndRead(bool aUnits) {
  const TNoticeHold hold(*this);
  fIncUnReID = true;
  if (!fStates.Has(lsPaste)) ++fMaxID;
  fStates = fStates - TKaldrixStateOptions{lsPaste, lsUpdating, lsReading};
  const TAtExit close([this, aUnits] {
    fModified = false;
    if (fUndoOpt) fOptions.Add(loUndoRedo);
    if (aUnits) ChangeValue(chUnits);
    CloseBracket();
  });
  for (TKDXBaseItem* item : fItems) item->ResolveReferences();
  CalcPending();
  SortItemsZLayer();
  CheckBackLayer();
  CheckIntersetions();
}

void TKDXBaseLabel::ChangeState(TKaldrixState aState, TKDXBaseItem* aItem) {
  if (aItem != nullptr) CheckOwn(*aItem);
  fStates.Add(lsModified);
  switch (aState) {
    case lsUpdate:
      fUpdate ? ChangeValue(chPaint) : fStates.Add(lsUpdate);
      break;
    case lsUpdateMeasure:
      fUpdate ? ChangeValue(chMeasure) : fStates.Add(lsUpdateMeasure);
      break;
    case lsCalc:
      fStates.Add(lsUpdate);
      if (fUpdate) {
        aItem->CalcValues(2);
        ChangeValue(chPaint);
      } else {
        Defer(*aItem);
        fStates.Add(lsCalc);
      }
      break;
    case lsCalcNoUpdate:
      aItem->CalcValues(2);
      break;
    default:
      break;
  }
}

void TKDXBaseLabel::Defer(TKDXBaseItem& aItem) {
  if (aItem.fCalcPlace >= 0) return;
  fCalcs.push_back(&aItem);
  aItem.fCalcPlace = static_cast<int>(fCalcs.size()) - 1;
}

void TKDXBaseLabel::Undefer(TKDXBaseItem& aItem) {
  const auto place = static_cast<std::size_t>(std::exchange(aItem.fCalcPlace, -1));
  if (place < fCalcs.size() && fCalcs[place] == &aItem) fCalcs[place] = nullptr;
}

void TKDXBaseLabel::CalcPending() {
  const TNoticeHold hold(*this);
  const std::vector<TKDXBaseItem*> pending = std::move(fCalcs);
  fCalcs.clear();
  for (TKDXBaseItem* item : pending) {
    if (item != nullptr) item->fCalcPlace = -1;
  }
  std::exception_ptr first;
  for (TKDXBaseItem* item : pending) {
    if (item == nullptr) continue;
    try {
      item->CalcValues(2);
      fNotices.Changed(*item);
    } catch (...) {
      // The others do not wait for ever because of one.
      if (first == nullptr) first = std::current_exception();
    }
  }
  RouteLinks();
  if (first != nullptr) std::rethrow_exception(first);
}

void TKDXBaseLabel::Refresh() {
  const TNoticeHold hold(*this);
  PaintEditor();
  fUpdate = false;
}

void TKDXBaseLabel::PaintEditor() {
  fUpdate = true;
  ChangeValue(chPaint);
}

void TKDXBaseLabel::UpdateEditing(bool aFill) {
  ChangeValue(chPropItem);
  if (aFill) FillSelPoints();
}

// Observers --------------------------------------------------

void TKDXBaseLabel::Attach(IZOObserver* aObserver) {
  if (!fObservers.Attach(aObserver) || aObserver->Destination() != duEditor) return;
  fConEditors = true;
  aObserver->Update(chLabelDef, GetChangedValue(chLabelDef));
}

void TKDXBaseLabel::Detach(IZOObserver* aObserver) {
  fObservers.Detach(aObserver);
  LookForEditors();
}

void TKDXBaseLabel::LookForEditors() {
  fConEditors = fObservers.Any([](IZOObserver& observer) { return observer.Destination() == duEditor; });
}

void TKDXBaseLabel::ChangeValue(TZOChange aChange) {
  if (aChange == chMeasure && fStates.Has(lsUpdating)) {
    fStates.Add(lsUpdateMeasure);
    return;
  }
  if (fHeldBack != nullptr) return fHeldBack->changes.push_back(aChange);
  if (!fObservers.IsEmpty()) Send(aChange, GetChangedValue(aChange));
}

void TKDXBaseLabel::Send(TZOChange aChange, const TZOChangeValue& aValue) {
  std::uint8_t audience = Audiences[aChange];
  if (aChange == chScrollSelect && fEditorMode == emInteractive) audience = toEditor;
  fNotices.GoOn(fObservers.Tell([&](IZOObserver& observer) {
    if ((audience & KindBit(observer.Destination())) != 0) observer.Update(aChange, aValue);
  }));
}

TZOChangeValue TKDXBaseLabel::GetChangedValue(TZOChange aChange) const {
  TZOChangeValue value;
  switch (aChange) {
    case chLabelDef:
    case chMeasure:
      value.fInt1 = fMeasure->fWidth;
      value.fInt2 = fMeasure->fHeight;
      break;
    case chBackSurf:
    case chAligns:
      value.fInt1 = value.fInt2 = -1;
      break;
    case chUnits:
      value.fInt1 = value.fInt2 = fUnits;
      break;
    case chPaint:
      value.fInt1 = value.fInt2 = fUpdate ? 1 : 0;
      break;
    case chEditInspect:
      value = fChangeVal;
      break;
    default:
      break;
  }
  return value;
}

void TKDXBaseLabel::FireInfoEvent(bool aNotify) {
  if (fOnInfoMsg) fOnInfoMsg(this, fInfo.aAction, fInfo.sState);
  if (aNotify) ChangeValue(chInspectPoint);
}

}  // namespace Zor::inline Base
