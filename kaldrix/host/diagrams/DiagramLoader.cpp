#include "kaldrix/host/diagrams/DiagramLoader.hpp"

#include <algorithm>

#include "kaldrix/core/DiagramLoader.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/diagrams/ZORParseDiagram.hpp"
#include "kaldrix/host/diagrams/DiagramScene.hpp"
#include "kaldrix/host/diagrams/SceneItems.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Host {

namespace {

// Millimetres. Base points of a page have 32 bits.
constexpr double Margin = 10, MostPage = 2'000'000;

TLayoutSize PageSize(const TKDXLabel& aDocument) {
  const TKDXMeasure& measure = *aDocument.fMeasure;
  return {measure.fWidth / BaseInMM, measure.fHeight / BaseInMM};
}

/// The page for a diagram of that size. Raises EInvalidOperation.
TLayoutSize PageFor(const TKDXLabel& aDocument, const TLayoutSize& aDiagram, TDiagramPage aPage) {
  TLayoutSize page{aDiagram.width + 2 * Margin, aDiagram.height + 2 * Margin};
  if (page.width > MostPage || page.height > MostPage) {
    throw EInvalidOperation("The diagram is larger than any page");
  }
  if (aPage == dpgFit) return page;
  const TLayoutSize old = PageSize(aDocument);
  return {std::max(page.width, old.width), std::max(page.height, old.height)};
}

void SetPage(TKDXLabel& aDocument, const TLayoutSize& aSize) {
  const auto width = static_cast<Single>(aSize.width), height = static_cast<Single>(aSize.height);
  TKDXMeasure& measure = *aDocument.fMeasure;
  // One label that is the whole paper, as pages are in the other modes.
  measure.SetNuHor(1);
  measure.SetNuVer(1);
  measure.SetContinousPaper(true);
  measure.SetPaperSizeMM(width, height);
}

void Replace(TKDXLabel& aDocument, TKDXDiagramModel& aModel, const TScene& aScene, const TLayoutSize& aPage) {
  aDocument.Clear({cleItems, cleSelection, clePreview, cleUndoRedo}, false);
  SetPage(aDocument, aPage);
  const double left = (aPage.width - aScene.size.width) / 2;
  const std::vector<int> ids = AddScene(aDocument, aScene, left, Margin);
  for (std::size_t i = 0; i < aModel.fNodes.size() && i < ids.size(); ++i) aModel.fNodes[i].InId = ids[i];
  if (!aModel.fTitle.empty()) aDocument.fMeasure->fTitle = aModel.fTitle;
}

}  // namespace

void DrawDiagram(TKDXLabel& aDocument, TKDXDiagramModel& aModel, TDiagramPage aPage) {
  const TScene scene = DiagramScene(aDocument.Fonts(), aModel);
  aDocument.Fonts().RequireFonts();
  const TLayoutSize page = PageFor(aDocument, scene.size, aPage);
  aDocument.BeginUpdate(true);
  Replace(aDocument, aModel, scene, page);
  aDocument.EndUpdate();
}

bool LoadDiagram(TKDXBaseLabel& aDocument, const std::string& aText, TZORDiagramFormat aFormat) {
  auto* document = dynamic_cast<TKDXLabel*>(&aDocument);
  if (document == nullptr) return false;
  const auto model = ZORParseDiagram(aText, aFormat);
  if (model->fNodes.empty() && model->fParticipants.empty()) return false;
  document->SetEditorMode(emFlowChart);
  DrawDiagram(*document, *model, dpgGrow);
  return true;
}

void UseDiagramLoader() { ZORSetDiagramLoader(&LoadDiagram); }

}  // namespace Zor::inline Host
