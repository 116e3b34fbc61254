#include "kaldrix/core/TContentKeeper.hpp"

#include <utility>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBaseLibSymbol.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"

namespace Zor::inline Base {

/// All that a reader of a file replaces. The members keep their reference to the document.
struct TContentKeeper::TContent {
  TOwnedList<TKDXLayer> layers;
  TOwnedList<TKDXDimStyle> dimStyles;
  TOwnedList<TKDXBaseItem> items, preview;
  TOwnedList<TKDXBaseLibSymbol> symbols;
  TOwnedList<TKDXCounter> counters;
  std::unique_ptr<TKDXBackSurf> backSurf;
  std::unique_ptr<TKDXSettings> settings;
  std::unique_ptr<TKDXMeasure> measure;
  std::unique_ptr<TKDXData> data;
  std::unique_ptr<TKDXBasePrintInfo> printInfo;
  std::vector<TKDXBaseItem*> selection, links, calcs;
  TKDXBaseLibSymbol* currentLibSym = nullptr;
  TUndoStack undo, redo;
  TZOREditorMode editorMode = emLabelling;
  TZORUnits units = unMM;
  TZORAngle angle = ag0;
  TKaldrixOptions options;
  TKaldrixStateOptions states;
  int activeLayer = 0, activeDimStyle = 0, readedVer = 0, maxID = 1, idxBack = -1, unReID = 0;
  bool modified = false, incUnReID = true, update = false, hasLinks = false;
};

TContentKeeper::TContentKeeper(TKDXBaseLabel& aDocument)
    : fDocument(aDocument), fKept(std::make_unique<TContent>()) {
  fKept->editorMode = aDocument.fEditorMode;
  fKept->units = aDocument.fUnits;
  fKept->options = aDocument.fOptions;
  Exchange();
  fDocument.MakeSatellites();
}

TContentKeeper::~TContentKeeper() {
  if (fKept == nullptr) return;
  Exchange();
  Discard();
}

void TContentKeeper::Commit() { Discard(); }

void TContentKeeper::Discard() {
  fDocument.FreeAll(fKept->items);
  fDocument.FreeAll(fKept->preview);
  fKept.reset();
}

void TContentKeeper::Exchange() {
  TKDXBaseLabel& d = fDocument;
  TContent& k = *fKept;
  d.fLayers.Swap(k.layers);
  d.fDimStyles.Swap(k.dimStyles);
  d.fItems.Swap(k.items);
  d.fPreview.Swap(k.preview);
  d.fSymbols.Swap(k.symbols);
  d.fCounters.Swap(k.counters);
  d.fBackSurf.swap(k.backSurf);
  d.fSettings.swap(k.settings);
  d.fMeasure.swap(k.measure);
  d.fData.swap(k.data);
  d.fPrintInfo.swap(k.printInfo);
  d.fSelection.swap(k.selection);
  d.fLinks.swap(k.links);
  d.fCalcs.swap(k.calcs);
  d.fUndo.Swap(k.undo);
  d.fRedo.Swap(k.redo);
  std::swap(d.fCurrentLibSym, k.currentLibSym);
  std::swap(d.fEditorMode, k.editorMode);
  std::swap(d.fUnits, k.units);
  std::swap(d.fAngle, k.angle);
  std::swap(d.fOptions, k.options);
  std::swap(d.fStates, k.states);
  std::swap(d.fActiveLayer, k.activeLayer);
  std::swap(d.fActiveDimStyle, k.activeDimStyle);
  std::swap(d.fReadedVer, k.readedVer);
  std::swap(d.fMaxID, k.maxID);
  std::swap(d.fIdxBack, k.idxBack);
  std::swap(d.fUnReID, k.unReID);
  std::swap(d.fModified, k.modified);
  std::swap(d.fIncUnReID, k.incUnReID);
  std::swap(d.fUpdate, k.update);
  std::swap(d.fHasLinks, k.hasLinks);
  d.fIndex.Clear();
  d.fLinksStale = true;
}

}  // namespace Zor::inline Base
