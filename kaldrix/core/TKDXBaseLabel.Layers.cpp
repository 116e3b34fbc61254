// Layers, dimension styles, the box layer, and the rotation of the document.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>
#include <unordered_set>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// Where the active layer or style stands after another, or it itself, has gone; 0-based. The first takes
/// over.
int IndexAfterRemoval(int aActive, int aRemoved) {
  if (aActive == aRemoved) return 0;
  return aActive > aRemoved ? aActive - 1 : aActive;
}

}  // namespace

TKDXLayer& TKDXBaseLabel::GetLayer(int aIndex) const { return *LayerAt(aIndex - 1); }

TKDXLayer* TKDXBaseLabel::LayerAt(int aIndex) const {
  if (fLayers.IsEmpty()) throw EInvalidOperation("The document has no layer");
  return aIndex < 0 || aIndex >= fLayers.Count() ? fLayers.First() : fLayers[aIndex];
}

TKDXLayer& TKDXBaseLabel::AddLayer() {
  const TNoticeHold hold(*this);
  auto* layer = new TKDXLayer(this);
  layer->fName = TKDXMsg::GetInfoValue("NewLayer");
  return *layer;
}

int TKDXBaseLabel::LayerIdx(const TKDXLayer* aLayer) const {
  if (aLayer == nullptr) return -1;
  int& place = aLayer->fPlace;
  if (place < 0 || place >= fLayers.Count() || fLayers[place] != aLayer) place = fLayers.IndexOf(aLayer);
  return place;
}

bool TKDXBaseLabel::ExchangeLayers(int aIdx1, int aIdx2) {
  const auto movable = [this](int aIndex) { return aIndex >= 2 && aIndex <= fLayers.Count(); };
  if (!movable(aIdx1) || !movable(aIdx2)) return false;
  const TNoticeHold hold(*this);
  fLayers.Exchange(aIdx1 - 1, aIdx2 - 1);
  TellOfLayersFrom(std::min(aIdx1, aIdx2) - 1);
  SortItemsZLayer();
  CheckBackLayer();
  ContentChanged();
  return true;
}

bool TKDXBaseLabel::SetActiveLayer(int aIdx) {
  if (aIdx < 1 || aIdx > fLayers.Count() || aIdx - 1 == fActiveLayer) return false;
  fActiveLayer = aIdx - 1;
  return true;
}

bool TKDXBaseLabel::DeleteLayer(int aIdx) {
  if (aIdx < 2 || aIdx > fLayers.Count()) return false;
  const TNoticeHold hold(*this);
  RemoveLayer(aIdx - 1);
  TellOfLayersFrom(aIdx - 1);
  SortItemsZLayer();
  CheckBackLayer();
  ContentChanged();
  return true;
}

void TKDXBaseLabel::TellOfLayersFrom(int aIndex) {
  if (!fNotices.Listens()) return;
  const std::unordered_set<const TKDXLayer*> moved(fLayers.begin() + aIndex, fLayers.end());
  for (TKDXBaseItem* item : fItems) {
    if (moved.contains(item->fLayer)) fNotices.Changed(*item);
  }
}

template <class TTest>
void TKDXBaseLabel::MoveToLayer(TKDXLayer& aLayer, TTest aLeaves) {
  fItems.ForgetOrder();
  for (TKDXBaseItem* copy : fPreview) {
    if (aLeaves(copy->fLayer)) copy->fLayer = &aLayer;
  }
  for (TKDXBaseItem* item : fItems) {
    if (!aLeaves(item->fLayer)) continue;
    item->fLayer = &aLayer;
    fNotices.Changed(*item);
  }
}

void TKDXBaseLabel::RemoveLayer(int aIndex) {
  TKDXLayer* going = fLayers[aIndex];
  if (fLayers.Count() > 1) {
    MoveToLayer(*fLayers[aIndex == 0 ? 1 : 0], [=](const TKDXLayer* layer) { return layer == going; });
  }
  fLayers.Delete(going);
  fActiveLayer = IndexAfterRemoval(fActiveLayer, aIndex);
}

void TKDXBaseLabel::ClearLayers(bool aOthers, bool aBase) {
  if (aOthers && fLayers.Count() > 1) {
    TKDXLayer* first = fLayers.First();
    MoveToLayer(*first, [=](const TKDXLayer* layer) { return layer != first; });
    fLayers.Truncate(1);
    fActiveLayer = 0;
  }
  if (aBase && !fLayers.IsEmpty()) RemoveLayer(0);
  if (aOthers || aBase) CheckBackLayer();
}

std::vector<std::string> TKDXBaseLabel::GetLayersNames() const {
  std::vector<std::string> names;
  for (const TKDXLayer* layer : fLayers) names.push_back(layer->fName);
  return names;
}

void TKDXBaseLabel::SortItemsZLayer() {
  if (!fLayerZOrder || fLayers.Count() < 2) return;
  const bool moves = fItems.SortBy([this](const TKDXBaseItem& item) { return LayerIdx(item.fLayer); });
  if (moves) fNotices.OrderChanged();
}

void TKDXBaseLabel::FollowLayer(const TKDXBaseItem& aItem) {
  if (!fLayerZOrder || fLayers.Count() < 2) return fItems.ForgetOrder();
  const bool moves = fItems.SortAgain(
      aItem, [this](const TKDXBaseItem& item) { return LayerIdx(item.fLayer); },
      [this](TKDXBaseItem& item) { fIndex.BeforeMove(item); },
      [this](TKDXBaseItem& item) { fIndex.AfterMove(item); });
  if (moves) fNotices.OrderChanged();
}

void TKDXBaseLabel::SetLayerZOrder(bool aValue) {
  fLayerZOrder = aValue;
  SortItemsZLayer();
}

void TKDXBaseLabel::CheckBackLayer() {
  fIdxBack = -1;
  for (int i = fLayers.Count(); i > 0; --i) {
    const TZOLayerOpts options = fLayers[i - 1]->fOptions;
    if (!options.Has(lopVisible) || !options.HasAny({lopImage, lopMap})) continue;
    fIdxBack = i;
    fNeedReadImg = true;
    return;
  }
}

bool TKDXBaseLabel::HasBackMargins() const {
  if (fIdxBack <= 0) return false;
  const TKDXLayer& layer = GetLayer(fIdxBack);
  return std::max({layer.fImgMarLeft, layer.fImgMarTop, layer.fImgMarRight, layer.fImgMarBottom}) > 0;
}

// Dimension styles --------------------------------------------------

TKDXDimStyle* TKDXBaseLabel::GetDimStyle(int aIndex) const {
  return aIndex < 1 || aIndex > fDimStyles.Count() ? nullptr : fDimStyles[aIndex - 1];
}

TKDXDimStyle* TKDXBaseLabel::GetDimStyleById(int aId) const {
  const auto found = std::find_if(fDimStyles.begin(), fDimStyles.end(),
                                  [aId](const TKDXDimStyle* style) { return style->fID == aId; });
  return found == fDimStyles.end() ? nullptr : *found;
}

int TKDXBaseLabel::DimIdx(const TKDXDimStyle* aStyle) const { return fDimStyles.IndexOf(aStyle); }

bool TKDXBaseLabel::SetActiveDimStyle(int aIdx) {
  if (aIdx < 0 || aIdx >= fDimStyles.Count() || aIdx == fActiveDimStyle) return false;
  fActiveDimStyle = aIdx;
  return true;
}

bool TKDXBaseLabel::SetActiveDimStyle(const std::string& aName) {
  for (int i = 0; i < fDimStyles.Count(); ++i) {
    if (SameText(fDimStyles[i]->fName, aName)) return SetActiveDimStyle(i);
  }
  return false;
}

bool TKDXBaseLabel::DeleteActiveDimStyle() {
  TKDXDimStyle* style = GetDimStyle(fActiveDimStyle + 1);
  if (style == nullptr) return false;
  if (style->fID == 1) throw Exception(TKDXMsg::GetErrorValue("DelDefStyle"));
  RemoveDimStyle(fActiveDimStyle);
  ContentChanged();
  return true;
}

void TKDXBaseLabel::RemoveDimStyle(int aIndex) {
  TKDXDimStyle* going = fDimStyles[aIndex];
  if (fDimStyles.Count() > 1) {
    TKDXDimStyle& heir = *fDimStyles[aIndex == 0 ? 1 : 0];
    for (TKDXBaseItem* item : fItems) item->ReplaceDimStyle(*going, heir);
    for (TKDXBaseItem* copy : fPreview) copy->ReplaceDimStyle(*going, heir);
  }
  fDimStyles.Delete(going);
  fActiveDimStyle = IndexAfterRemoval(fActiveDimStyle, aIndex);
}

void TKDXBaseLabel::ClearDimStyles(bool aOthers, bool aBase) {
  while (aOthers && fDimStyles.Count() > 1) RemoveDimStyle(fDimStyles.Count() - 1);
  if (aBase && !fDimStyles.IsEmpty()) RemoveDimStyle(0);
}

std::vector<std::string> TKDXBaseLabel::GetDimStylesNames() const {
  std::vector<std::string> names;
  for (const TKDXDimStyle* style : fDimStyles) names.push_back(style->fName);
  return names;
}

// Rotation --------------------------------------------------

void TKDXBaseLabel::RotateLeft() { Rotate(1, &TKDXBaseItem::RotateLeft); }
void TKDXBaseLabel::RotateRight() { Rotate(-1, &TKDXBaseItem::RotateRight); }

void TKDXBaseLabel::Rotate(int aStep, void (TKDXBaseItem::*aTurn)()) {
  if (fEditorMode != emLabelling) return;
  const TNoticeHold hold(*this);
  fAngle = static_cast<TZORAngle>((fAngle + aStep + 4) % 4);
  {
    const TUpdateBracket bracket(*this);
    TurnContent(aTurn);
  }
  if (fOnLabelRotate) Guarded([this] { fOnLabelRotate(this); });
}

void TKDXBaseLabel::TurnContent(void (TKDXBaseItem::*aTurn)()) {
  std::swap(fMeasure->fPaperWidth, fMeasure->fPaperHeight);
  std::swap(fMeasure->fWidth, fMeasure->fHeight);
  for (TKDXBaseItem* item : fItems) {
    (item->*aTurn)();
    fNotices.Changed(*item);
  }
  if (!fSelection.empty()) FillSelPoints();
  ContentChanged();
  // Views take the new size at the end of the bracket.
  fStates = fStates + TKaldrixStateOptions{lsModified, lsUpdateMeasure};
}

}  // namespace Zor::inline Base
