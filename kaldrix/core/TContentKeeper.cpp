#include "kaldrix/core/TContentKeeper.hpp"

#include <utility>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/core/TNoticeHold.hpp"

namespace Zor::inline Base {

/// What the document and each of its parts hold.
struct TContentKeeper::TContent {
  TLabelContent label;
  TMeasureContent measure;
  TSurfaceContent backSurf;
  TSettingsContent settings;
  TPrintContent printInfo;
  TDataContent data;
  TKDXDatasets::TMembers datasets;
};

namespace {

template <class TContent>
void Swap(TContent& aHeld, TContent& aKept) {
  std::swap(aHeld, aKept);
}

}  // namespace

TContentKeeper::TContentKeeper(TKDXBaseLabel& aDocument)
    : fDocument(aDocument), fKept(std::make_unique<TContent>()) {
  // What a reader asks for before a file has told it, and what a JSON file never tells.
  fKept->label.fEditorMode = aDocument.fEditorMode;
  fKept->label.fUnits = aDocument.fUnits;
  fKept->label.fOptions = aDocument.fOptions;
  fKept->printInfo.fCopies = aDocument.fPrintInfo->fCopies;
  fKept->datasets = aDocument.fData->RegisteredDatasets();
  auto heldBack = std::make_unique<TKDXBaseLabel::THeldBack>();
  heldBack->hadContent = !aDocument.fItems.IsEmpty() || !aDocument.fSelection.empty();
  Exchange();
  aDocument.fHeldBack.swap(heldBack);
  aDocument.fNotices.Mute(true);
  try {
    aDocument.fMeasure->Reset();
    aDocument.MakeFirst();
  } catch (...) {
    GiveBack();
    throw;
  }
}

TContentKeeper::~TContentKeeper() {
  if (fKept != nullptr) GiveBack();
}

void TContentKeeper::GiveBack() {
  Exchange();
  Discard();
  fDocument.fHeldBack.reset();
}

void TContentKeeper::Commit() {
  const TNoticeHold hold(fDocument);
  Discard();
  const auto heldBack = std::move(fDocument.fHeldBack);
  fDocument.fPrintInfo->HoldFirstCell();
  fDocument.NoteChange();
  fDocument.fModified = false;
  fDocument.fNotices.ContentReplaced();
  if (heldBack->undoRedo) fDocument.FireUndoRedoEvent();
  for (const TZOChange change : heldBack->changes) fDocument.ChangeValue(change);
}

void TContentKeeper::Discard() {
  fDocument.FreeAll(fKept->label.fItems);
  fDocument.FreeAll(fKept->label.fPreview);
  fKept.reset();
  fDocument.fNotices.Mute(false);
}

void TContentKeeper::Exchange() {
  Swap<TLabelContent>(fDocument, fKept->label);
  Swap<TMeasureContent>(*fDocument.fMeasure, fKept->measure);
  Swap<TSurfaceContent>(*fDocument.fBackSurf, fKept->backSurf);
  Swap<TSettingsContent>(*fDocument.fSettings, fKept->settings);
  Swap<TPrintContent>(*fDocument.fPrintInfo, fKept->printInfo);
  fDocument.fData->Exchange(fKept->data, fKept->datasets);
  fDocument.fIndex.Clear();
  fDocument.fLinksStale = true;
}

}  // namespace Zor::inline Base
