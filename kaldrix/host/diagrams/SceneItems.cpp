#include "kaldrix/host/diagrams/SceneItems.hpp"

#include <algorithm>

#include "kaldrix/host/diagrams/DiagramScene.hpp"
#include "kaldrix/host/diagrams/FlowShapes.hpp"
#include "kaldrix/items/TKDXBaseFlow.hpp"
#include "kaldrix/items/TKDXBaseLink.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Host {

namespace {

constexpr TZOLineType Dotted = ii11;
constexpr int PenWidth = 200;  // base points
/// Weighs red, green and blue of a colour as the eye does (ITU-R BT.601); of 255.
constexpr int DarkBelow = 128;

Int64 Base(double aMM) { return RoundLength(aMM * BaseInMM); }
int Base32(double aMM) { return static_cast<int>(Base(std::max(aMM, 0.0))); }

bool IsDark(TAlphaColor aColor) {
  const auto part = [&](int aShift) { return static_cast<int>(aColor >> aShift & 0xFF); };
  return part(24) >= DarkBelow && (299 * part(16) + 587 * part(8) + 114 * part(0)) / 1000 < DarkBelow;
}

/// The terminator of the same outline whose surface can hide what lies behind it.
TZORTermType Hiding(TZORTermType aType) {
  return aType == ttCircle ? ttFillCircle : aType == ttRhombus ? ttFillRhombus : aType;
}

/// Makes the items of one scene.
class TSceneItems {
 public:
  TSceneItems(TKDXLabel& aDocument, double aLeft, double aTop)
      : fDocument(aDocument), fLeft(Base(aLeft)), fTop(Base(aTop)) {}

  int AddNode(const TSceneNode& aNode) {
    const TSceneBox& box = aNode.box;
    auto& flow = *fDocument.NewFlow(X(box.x), Y(box.y), Base(box.width), Base(box.height), aNode.shape);
    const TLayoutSize text = FlowTextArea(aNode.shape, {box.width, box.height});
    flow.fPaddingX = Base32((box.width - text.width) / 2);
    flow.fPaddingY = Base32((box.height - text.height) / 2);
    flow.fVertAlign = vaCenter;
    flow.fFontName = SceneFont;
    flow.fFontHeight = Base32(aNode.fontHeight);
    flow.fPenWidth = PenWidth;
    flow.fBackColor = aNode.fill;
    if (IsDark(aNode.fill)) flow.fFontColor = ColorWhite;
    flow.fText = aNode.text;
    flow.StateCalc();
    return flow.fInID;
  }
  void AddLink(const TSceneLink& aLink, int aFromID, int aToID) {
    Dress(NewLink(aLink.route, aFromID, aToID), aLink);
  }
  void AddLine(const TSceneLine& aLine) {
    Dress(*fDocument.NewPolyLine(Points(aLine.points), static_cast<int>(aLine.points.size()) - 1), aLine);
  }
  void AddText(const TSceneText& aText) {
    const double lineHeight =
        aText.box.height / static_cast<double>(std::max<std::size_t>(aText.lines.size(), 1));
    double y = aText.box.y;
    for (const std::string& line : aText.lines) {
      AddTextLine(aText, line, y);
      y += lineHeight;
    }
  }

 private:
  Int64 X(double aMM) const { return fLeft + Base(aMM); }
  Int64 Y(double aMM) const { return fTop + Base(aMM); }
  TZORPtoA Points(const std::vector<TLayoutPoint>& aPoints) const {
    TZORPtoA points;
    points.reserve(aPoints.size());
    for (const TLayoutPoint& p : aPoints) points.push_back({X(p.x), Y(p.y)});
    return points;
  }
  TKDXBaseLink& NewLink(const TLayoutRoute& aRoute, int aFromID, int aToID) {
    if (aRoute.type != ltPolyline) {
      return *fDocument.NewLink(aFromID, aToID, aRoute.fromPosition, aRoute.toPosition, aRoute.type);
    }
    return *fDocument.NewPolyLink(aFromID, aToID, aRoute.fromPosition, aRoute.toPosition, ltPolyline,
                                  Points(aRoute.points), static_cast<int>(aRoute.points.size()) - 1);
  }
  /// Pen and terminators. Filled ones are as dark as their lines; the others are filled with the colour of
  /// the paper, so that their line ends at their outline.
  template <class TItem, class TStroke>
  static void Dress(TItem& aItem, const TStroke& aStroke) {
    const auto fill = [&](TZORTermType aType) {
      return aType == ttFillArrow || aType == ttFillRhombus || aType == ttFillCircle ? aItem.fColor
                                                                                     : ColorWhite;
    };
    aItem.fFromType = Hiding(aStroke.fromTerm);
    aItem.fToType = Hiding(aStroke.toTerm);
    aItem.fFromColor = fill(aStroke.fromTerm);
    aItem.fToColor = fill(aStroke.toTerm);
    aItem.fPenWidth = PenWidth;
    if (aStroke.dotted) aItem.fLineType = Dotted;
  }
  void AddTextLine(const TSceneText& aText, const std::string& aLine, double aY) {
    if (aLine.empty()) return;
    const double x = aText.align == haLeft    ? aText.box.x
                     : aText.align == haRight ? aText.box.Right()
                                              : aText.box.x + aText.box.width / 2;
    auto& text = *fDocument.NewText(X(x), Y(aY));
    text.fHorzAlign = aText.align;
    text.fFontName = SceneFont;
    text.fFontHeight = Base32(aText.fontHeight);
    text.fBold = aText.bold;
    text.fFill = aText.opaque;
    text.fText = text.dText = aLine;
    text.StateCalc();
  }

  TKDXLabel& fDocument;
  Int64 fLeft, fTop;  ///< base points
};

}  // namespace

std::vector<int> AddScene(TKDXLabel& aDocument, const TScene& aScene, double aLeft, double aTop) {
  TSceneItems items(aDocument, aLeft, aTop);
  std::vector<int> ids;
  ids.reserve(aScene.nodes.size());
  for (const TSceneLine& line : aScene.lines) items.AddLine(line);
  for (const TSceneNode& node : aScene.nodes) ids.push_back(items.AddNode(node));
  const auto id = [&](int aNode) { return ids[static_cast<std::size_t>(aNode)]; };
  for (const TSceneLink& link : aScene.links) items.AddLink(link, id(link.from), id(link.to));
  for (const TSceneText& text : aScene.texts) items.AddText(text);
  return ids;
}

}  // namespace Zor::inline Host
