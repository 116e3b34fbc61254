#include "kaldrix/host/diagrams/DiagramScene.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/host/diagrams/FishboneLayout.hpp"
#include "kaldrix/host/diagrams/FlowShapes.hpp"
#include "kaldrix/host/diagrams/LayeredLayout.hpp"
#include "kaldrix/host/diagrams/SequenceScene.hpp"
#include "kaldrix/host/diagrams/TTextBlock.hpp"
#include "kaldrix/host/diagrams/TreeLayout.hpp"

namespace Zor::inline Host {

namespace {

// Where texts are broken, millimetres.
constexpr double MostNodeWidth = 60, MostLabelWidth = 40;
constexpr double TitleGap = 7;

// By ordinal of TZORDiagEdgeArrow.
constexpr std::array<TZORTermType, 6> Terms{ttFillArrow, ttNone, ttCross, ttCircle, ttRhombus, ttFillRhombus};

/// Lines of other dashes, heads or directions look different at an end. Those without heads have no
/// direction.
std::uint8_t LookAt(const TSceneLink& aLink, bool aFrom) {
  const TZORTermType own = aFrom ? aLink.fromTerm : aLink.toTerm;
  const bool directed = aLink.fromTerm != aLink.toTerm;
  return static_cast<std::uint8_t>(own | (aLink.dotted ? 1 << 4 : 0) | (directed ? (aFrom ? 1 : 2) << 5 : 0));
}

TZORTermType TermOf(TZORDiagEdgeArrow aArrow) { return Terms[static_cast<std::size_t>(aArrow)]; }

/// Nodes and edges with their sizes, and then with the places that a layout gave them.
class TGraphScene {
 public:
  TGraphScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel) : fFonts(aFonts), fModel(aModel) {
    fGraph.leftRight = aModel.fDirection == fdLeftRight;
    for (const TZORDiagNode& node : aModel.fNodes) AddNode(node);
    for (const TZORDiagEdge& edge : aModel.fEdges) AddEdge(edge);
  }

  const TLayoutGraph& Graph() const { return fGraph; }

  TScene Placed(TLayout aLayout) {
    for (std::size_t i = 0; i < fScene.nodes.size(); ++i) {
      fScene.nodes[i].box.x = aLayout.nodes[i].x;
      fScene.nodes[i].box.y = aLayout.nodes[i].y;
    }
    for (std::size_t i = 0; i < fScene.links.size(); ++i) {
      PlaceLabel(fLabels[i], aLayout.routes[i].label);
      fScene.links[i].route = std::move(aLayout.routes[i]);
    }
    fScene.size = aLayout.size;
    return std::move(fScene);
  }

 private:
  void AddNode(const TZORDiagNode& aNode) {
    const TZORFlowType shape = aNode.HasShape ? aNode.Shape : ftProcess;
    const TTextBlock text = MeasureBlock(fFonts, aNode.Text, SceneFontOf(NodeFontHeight), MostNodeWidth);
    const TLayoutSize box = FlowSize(shape, text.size);
    fGraph.nodes.push_back({box, FlowPorts(shape, box), aNode.Side});
    fScene.nodes.push_back({{0, 0, box.width, box.height},
                            shape,
                            aNode.Text,
                            aNode.HasBackColor ? aNode.BackColor : ColorWhite,
                            NodeFontHeight});
  }
  void AddEdge(const TZORDiagEdge& aEdge) {
    const int from = fModel.NodeIndexOf(aEdge.FromID), to = fModel.NodeIndexOf(aEdge.ToID);
    if (from < 0 || to < 0) return;
    fLabels.push_back(MeasureBlock(fFonts, aEdge.Text, SceneFontOf(LabelFontHeight), MostLabelWidth));
    const TSceneLink& link = fScene.links.emplace_back(
        TSceneLink{from, to, {}, TermOf(aEdge.FromArrow), TermOf(aEdge.Arrow), aEdge.Dotted});
    fGraph.edges.push_back({from, to, fLabels.back().size, LookAt(link, true), LookAt(link, false)});
  }
  void PlaceLabel(const TTextBlock& aBlock, const TLayoutPoint& aPlace) {
    if (aBlock.lines.empty()) return;
    fScene.texts.push_back({{aPlace.x, aPlace.y, aBlock.size.width, aBlock.size.height},
                            aBlock.lines,
                            LabelFontHeight,
                            fGraph.leftRight ? haCenter : haLeft,
                            false,
                            false});
  }

  TFontEngine& fFonts;
  const TKDXDiagramModel& fModel;
  TLayoutGraph fGraph;
  TScene fScene;
  std::vector<TTextBlock> fLabels;  ///< by link
};

TScene LayeredScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel) {
  TGraphScene scene(aFonts, aModel);
  return scene.Placed(LayeredLayout(scene.Graph()));
}

TScene TreeScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel) {
  TGraphScene scene(aFonts, aModel);
  TTreeGaps gaps;
  // The root of a mind map is round, that of other trees is not.
  gaps.balanced = !aModel.fNodes.empty() && aModel.fNodes.front().Shape == ftEllipse;
  return scene.Placed(TreeLayout(scene.Graph(), gaps));
}

TScene FishboneScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel) {
  TGraphScene graph(aFonts, aModel);
  TFishbone fishbone = FishboneLayout(graph.Graph());
  TScene scene = graph.Placed(std::move(fishbone.layout));
  scene.lines = std::move(fishbone.lines);
  std::vector<TSceneLink> links;
  for (std::size_t i = 0; i < scene.links.size(); ++i) {
    if (!fishbone.drawn[i]) links.push_back(std::move(scene.links[i]));
  }
  scene.links = std::move(links);
  return scene;
}

void Shift(TScene& aScene, double aRight, double aDown) {
  const auto shift = [&](auto& aPlace) {
    aPlace.x += aRight;
    aPlace.y += aDown;
  };
  for (TSceneNode& node : aScene.nodes) shift(node.box);
  for (TSceneLink& link : aScene.links) {
    for (TLayoutPoint& point : link.route.points) shift(point);
  }
  for (TSceneLine& line : aScene.lines) {
    for (TLayoutPoint& point : line.points) shift(point);
  }
  for (TSceneText& text : aScene.texts) shift(text.box);
}

void AddTitle(TFontEngine& aFonts, TScene& aScene, const std::string& aTitle) {
  const TTextBlock title =
      MeasureBlock(aFonts, aTitle, SceneFontOf(TitleFontHeight, true), std::max(aScene.size.width, 100.0));
  if (title.lines.empty()) return;
  const double width = std::max(aScene.size.width, title.size.width);
  Shift(aScene, (width - aScene.size.width) / 2, title.size.height + TitleGap);
  aScene.texts.push_back(
      {{0, 0, width, title.size.height}, title.lines, TitleFontHeight, haCenter, true, false});
  aScene.size = {width, aScene.size.height + title.size.height + TitleGap};
}

using TMakeScene = TScene (*)(TFontEngine&, const TKDXDiagramModel&);
// By ordinal of TZORDiagramKind.
constexpr std::array<TMakeScene, 4> Makers{LayeredScene, SequenceScene, TreeScene, FishboneScene};

}  // namespace

TFontSpec SceneFontOf(double aHeight, bool aBold) {
  TFontSpec font;
  font.name = SceneFont;
  font.heightMM = aHeight;
  font.bold = aBold;
  return font;
}

TScene DiagramScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel) {
  TScene scene = Makers[aModel.fKind](aFonts, aModel);
  AddTitle(aFonts, scene, aModel.fTitle);
  return scene;
}

}  // namespace Zor::inline Host
