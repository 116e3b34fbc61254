#include "kaldrix/core/TKDXBaseLabel.hpp"

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
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Base {

TKDXBaseLabel::TKDXBaseLabel(TComponent* aOwner) : TComponent(aOwner), fIndex(fItems) {
  fPrintInfo = std::make_unique<TKDXBasePrintInfo>(this);
  fData = std::make_unique<TKDXData>(this);
  fMeasure = std::make_unique<TKDXMeasure>(this);
  fBackSurf = std::make_unique<TKDXBackSurf>(this, true);
  fSettings = std::make_unique<TKDXSettings>(this);
  MakeFirst();
  fModified = false;
}

void TKDXBaseLabel::MakeFirst() {
  new TKDXLayer(this);
  new TKDXDimStyle(this, TKDXMsg::GetPropValue("Default"));
}

TKDXBaseLabel::~TKDXBaseLabel() {
  BeginDestruction();
  fObservers.Clear();
  fNotices.Close();
  Clear({cleAll, cleBaseLayer, cleBaseStyle}, false);
}

void TKDXBaseLabel::New() {
  const TNoticeHold hold(*this);
  Clear({cleAll}, true);
  fMeasure->Reset();
  fAngle = ag0;
  if (fLayers.IsEmpty()) new TKDXLayer(this);
  if (fDimStyles.IsEmpty()) new TKDXDimStyle(this, "");
  fLayers.First()->Reset();
  fDimStyles.First()->Reset();
  CheckBackLayer();
  fModified = false;
}

void TKDXBaseLabel::Clear(TZORClearOpts aValue, bool aPaint) {
  const TNoticeHold hold(*this);
  const auto takes = [aValue](TZORClear aPart) { return aValue.Has(cleAll) || aValue.Has(aPart); };
  const bool lastLayer = aValue.Has(cleBaseLayer) && (takes(cleLayers) || fLayers.Count() < 2);
  if (lastLayer && !takes(cleItems) && !fItems.IsEmpty()) {
    throw EInvalidOperation("The items have no layer without the base layer: clear them too");
  }
  bool hadContent = fHeldBack != nullptr && fHeldBack->hadContent;
  if (takes(cleUndoRedo)) ClearCommands();
  if (takes(cleItems) || aValue.Has(cleSelection)) {
    hadContent = hadContent || !fSelection.empty();
    ClearSelectionSilently();
    if (!IsDestroying()) ChangeValue(chClearSelect);
  }
  if (takes(cleSymbols)) {
    fSymbols.Clear();
    fCurrentLibSym = nullptr;
  }
  if (takes(cleItems)) {
    hadContent = hadContent || !fItems.IsEmpty();
    // Identities begin again: what the stacks keep is about items of another drawing.
    if (!takes(cleUndoRedo)) ++fDrawing;
    fMaxID = 1;
    FreeAll(fItems);
  }
  if (takes(clePreview) || lastLayer) ClearPreview();
  if (aValue.Has(cleAll)) {
    fData->ClearSources();
    fPageLabels.clear();
  }
  ClearLayers(takes(cleLayers), aValue.Has(cleBaseLayer));
  if (takes(cleCounters)) fCounters.Clear();
  ClearDimStyles(takes(cleDimStyles), aValue.Has(cleBaseStyle));
  if (aValue.Has(cleValList)) fData->ClearListVal();
  if (aValue.Has(cleAskList)) fData->ClearAskList();
  ++fContentVersion;
  fModified = false;
  if (!IsDestroying()) takes(cleItems) ? fNotices.ContentReplaced() : fNotices.DocumentChanged();
  if (aPaint && hadContent) ChangeValue(chSelect);
}

void TKDXBaseLabel::ClearCommands() {
  fUnReID = 0;
  fUndo.Clear();
  fRedo.Clear();
  if (!IsDestroying()) FireUndoRedoEvent();
}

void TKDXBaseLabel::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXBaseLabel*>(&aSource);
  if (source == nullptr) return TComponent::Assign(aSource);
  fOptions = source->fOptions;
  fData->Assign(*source->fData);
  fBackSurf->Assign(*source->fBackSurf);
  fMeasure->Assign(*source->fMeasure);
  fImageFolder = source->fImageFolder;
  fOpenImgFolder = source->fOpenImgFolder;
  fLibraryFolder = source->fLibraryFolder;
  ContentChanged();
}

void TKDXBaseLabel::Loaded() {
  TComponent::Loaded();
  if (IsDesigning()) return;
  if (!fLngFileName.empty()) TKDXMsg::LoadResources(fLngFileName);
  fInfo = {};
  FireInfoEvent(true);
  if (!fData->fJson.empty()) fData->CheckJson();
}

// A component that goes has left the observers by itself when this comes: its own part of the object is gone.
void TKDXBaseLabel::Notification(TComponent& aComponent, TOperation aOperation) {
  if (aOperation != TOperation::opRemove) return;
  auto* observer = dynamic_cast<IZOObserver*>(&aComponent);
  if (observer != nullptr) Detach(observer);
}

}  // namespace Zor::inline Base
