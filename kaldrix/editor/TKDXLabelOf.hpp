#pragma once

#include <utility>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TItemMark.hpp"
#include "kaldrix/core/TKDXBasePoint.hpp"
#include "kaldrix/editor/TKDXFileLabel.hpp"
#include "kaldrix/items/TKDXBaseArc.hpp"
#include "kaldrix/items/TKDXBaseBezier.hpp"
#include "kaldrix/items/TKDXBaseCircle.hpp"
#include "kaldrix/items/TKDXBaseEllipse.hpp"
#include "kaldrix/items/TKDXBaseFlow.hpp"
#include "kaldrix/items/TKDXBaseLine.hpp"
#include "kaldrix/items/TKDXBaseLink.hpp"
#include "kaldrix/items/TKDXBasePolyLine.hpp"
#include "kaldrix/items/TKDXBasePolygon.hpp"
#include "kaldrix/items/TKDXBaseRectangle.hpp"
#include "kaldrix/items/TKDXBaseSector.hpp"
#include "kaldrix/items/TKDXBaseText.hpp"
#include "kaldrix/items/ZOR.Barcode.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Base {

/// A document whose concrete items come from one template: `TItem<TKDXBaseLine>` is a line that can be made,
/// and so on. The template supplies what an item leaves open, see TBareLabel for the whole list. New items
/// stand on the active layer. A factory that raises leaves no item and no undo step behind.
template <template <class> class TItem>
class TKDXLabelOf : public TKDXFileLabel {
 public:
  explicit TKDXLabelOf(TComponent* aOwner = nullptr) : TKDXFileLabel(aOwner) {}

  TItem<TKDXBaseText>* NewText(Int64 x, Int64 y) override {
    return Make<TKDXBaseText>({{x, y}}, [](TKDXBaseText& text) { text.StateCalc(); });
  }
  TItem<TKDXBasePoint>* NewPoint(Int64 x, Int64 y) override { return Make<TKDXBasePoint>({{x, y}}); }
  TItem<TKDXBaseLine>* NewLine(Int64 x1, Int64 y1, Int64 x2, Int64 y2) override {
    return Make<TKDXBaseLine>({{x1, y1}, {x2, y2}});
  }
  TItem<TKDXBasePolyLine>* NewPolyLine(const TZORPtoA& pts, int high) override {
    return Make<TKDXBasePolyLine>(Taken(pts, high));
  }
  TItem<TKDXBaseBezier>* NewBezier(const TZORPtoA& pts, int high) override {
    return Make<TKDXBaseBezier>(Taken(pts, high));
  }
  TItem<TKDXBasePolygon>* NewPolygon(const TZORPtoA& pts, int high) override {
    return Make<TKDXBasePolygon>(Taken(pts, high));
  }
  TItem<TKDXBaseArc>* NewArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) override {
    CheckNotOnLine("an arc", x1, y1, x2, y2, x3, y3);
    return MakeWhole(*this, [&] {
      auto* arc = new TItem<TKDXBaseArc>(*this, x1, y1, x2, y2, x3, y3, false);
      arc->fLayer = &GetLayer(fActiveLayer + 1);
      return arc;
    });
  }
  TItem<TKDXBaseRectangle>* NewRectangle(Int64 x, Int64 y, Int64 w, Int64 h) override {
    return Make<TKDXBaseRectangle>({{x, y}, {AddHeld(x, w), AddHeld(y, h)}});
  }
  TItem<TKDXBaseCircle>* NewCircle(Int64 cx, Int64 cy, Int64 r) override {
    return Make<TKDXBaseCircle>(Box(cx, cy, r, r));
  }
  TItem<TKDXBaseCircle>* NewCircle2P(Int64 x1, Int64 y1, Int64 x2, Int64 y2) override {
    return Make<TKDXBaseCircle>(BoxOf2(x1, y1, x2, y2));
  }
  TItem<TKDXBaseCircle>* NewCircle3P(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) override {
    return Make<TKDXBaseCircle>(BoxOf3(x1, y1, x2, y2, x3, y3));
  }
  TItem<TKDXBaseSector>* NewSector(Int64 cx, Int64 cy, Int64 r, Single aStart, Single aGap) override {
    return Sector(Box(cx, cy, r, r), aStart, aGap);
  }
  TItem<TKDXBaseSector>* NewSector2P(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Single aStart,
                                     Single aGap) override {
    return Sector(BoxOf2(x1, y1, x2, y2), aStart, aGap);
  }
  TItem<TKDXBaseSector>* NewSector3P(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3,
                                     Single aStart, Single aGap) override {
    return Sector(BoxOf3(x1, y1, x2, y2, x3, y3), aStart, aGap);
  }
  TItem<TKDXBaseEllipse>* NewEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry) override {
    return Make<TKDXBaseEllipse>(Box(cx, cy, rx, ry));
  }
  TItem<TKDXBaseBarcode>* NewBarcode(Int64 x, Int64 y, const std::string& code, TZORBarType aType) override {
    return Make<TKDXBaseBarcode>({{x, y}}, [&](TKDXBaseBarcode& barcode) {
      barcode.SetCodeType(aType);
      barcode.SetCode(code);
      barcode.StateCalc();
    });
  }
  TItem<TKDXBasePDF417>* NewPDF417(Int64 x, Int64 y, const std::string& code) override {
    return Make<TKDXBasePDF417>({{x, y}}, [&](TModuleItem& symbol) { symbol.SetCode(code); });
  }
  TItem<TKDXBaseDataMatrix>* NewDataMatrix(Int64 x, Int64 y, const std::string& code) override {
    return Make<TKDXBaseDataMatrix>({{x, y}}, [&](TModuleItem& symbol) { symbol.SetCode(code); });
  }
  TItem<TKDXBaseQRCode>* NewQRCode(Int64 x, Int64 y, const std::string& code) override {
    return Make<TKDXBaseQRCode>({{x, y}}, [&](TModuleItem& symbol) { symbol.SetCode(code); });
  }
  TItem<TKDXBaseLink>* NewLink(int fromID, int toID, int fromPos, int toPos, TZOLinkType aType) override {
    return NewPolyLink(fromID, toID, fromPos, toPos, aType, {}, -1);
  }
  TItem<TKDXBaseLink>* NewPolyLink(int fromID, int toID, int fromPos, int toPos, TZOLinkType aType,
                                   const TZORPtoA& pts, int high) override {
    return Make<TKDXBaseLink>({}, [&](TKDXBaseLink& link) {
      link.fFromID = fromID;
      link.fToID = toID;
      link.SetFromIndex(fromPos);
      link.SetToIndex(toPos);
      link.SetLinkType(aType);
      if (aType == ltPolyline) link.fLinkPoints = Taken(pts, high);
      link.CalcValues(2);
    });
  }
  TItem<TKDXBaseFlow>* NewFlow(Int64 x, Int64 y, Int64 w, Int64 h, TZORFlowType aType) override {
    return Make<TKDXBaseFlow>({{x, y}, {AddHeld(x, w), AddHeld(y, h)}},
                              [=](TKDXBaseFlow& flow) { flow.fFlowType = aType; });
  }

  TKDXBaseItem* NewItemOfType(TZORItemType aType, bool aPreview) override {
    switch (aType) {
      case itPoint:
        return new TItem<TKDXBasePoint>(*this, aPreview);
      case itLine:
        return new TItem<TKDXBaseLine>(*this, aPreview);
      case itPolyLine:
        return new TItem<TKDXBasePolyLine>(*this, aPreview);
      case itArc:
        return new TItem<TKDXBaseArc>(*this, aPreview);
      case itRectangle:
        return new TItem<TKDXBaseRectangle>(*this, aPreview);
      case itPolygon:
        return new TItem<TKDXBasePolygon>(*this, aPreview);
      case itBezier:
        return new TItem<TKDXBaseBezier>(*this, aPreview);
      case itCircle:
        return new TItem<TKDXBaseCircle>(*this, aPreview);
      case itEllipse:
        return new TItem<TKDXBaseEllipse>(*this, aPreview);
      case itSector:
        return new TItem<TKDXBaseSector>(*this, aPreview);
      case itLink:
        return new TItem<TKDXBaseLink>(*this, aPreview);
      case itText:
        return new TItem<TKDXBaseText>(*this, aPreview);
      case itBarcode:
        return new TItem<TKDXBaseBarcode>(*this, aPreview);
      case itPDF417:
        return new TItem<TKDXBasePDF417>(*this, aPreview);
      case itDataMatrix:
        return new TItem<TKDXBaseDataMatrix>(*this, aPreview);
      case itQRCode:
        return new TItem<TKDXBaseQRCode>(*this, aPreview);
      case itFlow:
        return new TItem<TKDXBaseFlow>(*this, aPreview);
      default:
        return nullptr;
    }
  }

 private:
  /// An item at these points, which `aDress` then makes what it shall be.
  template <class TBaseItem, class TDress>
  TItem<TBaseItem>* Make(TZORPtoA aPoints, TDress aDress) {
    return MakeWhole(*this, [&] {
      auto* item = new TItem<TBaseItem>(*this, GetLayer(fActiveLayer + 1), false);
      // A text or barcode brings its anchor only: its second point follows from its size.
      aPoints.resize(HasFreePoints(item->fItemType) ? aPoints.size() : item->fPoints.size());
      item->fPoints = std::move(aPoints);
      item->UpdatePoints();
      aDress(*item);
      return item;
    });
  }
  template <class TBaseItem>
  TItem<TBaseItem>* Make(TZORPtoA aPoints) {
    return Make<TBaseItem>(std::move(aPoints), [](const TBaseItem&) {});
  }
  TItem<TKDXBaseSector>* Sector(TZORPtoA aBox, Single aStart, Single aGap) {
    return Make<TKDXBaseSector>(std::move(aBox), [=](TKDXBaseSector& sector) {
      sector.SetAngleStart(aStart);
      sector.SetAngleGap(aGap);
    });
  }
  static TZORPtoA Taken(const TZORPtoA& aPoints, int aHigh) {
    const std::size_t count = static_cast<std::size_t>(aHigh < 0 ? 0 : aHigh + 1);
    return {aPoints.begin(),
            aPoints.begin() + static_cast<std::ptrdiff_t>((std::min)(count, aPoints.size()))};
  }
  static TZORPtoA Box(Int64 cx, Int64 cy, Int64 rx, Int64 ry) {
    return {{AddHeld(cx, -rx), AddHeld(cy, -ry)}, {AddHeld(cx, rx), AddHeld(cy, ry)}};
  }
  static void CheckNotOnLine(const char* aWhat, Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) {
    if (WideCross(Span(x1, x2), Span(y1, y2), Span(x1, x3), Span(y1, y3)) != 0) return;
    throw EArgumentException("The three points of " + std::string(aWhat) + " lie on one line");
  }
  static double ToDouble(Int64 aValue) { return static_cast<double>(aValue); }
  static TZORPtoA BoxOf2(Int64 x1, Int64 y1, Int64 x2, Int64 y2) {
    Int64 cx = 0, cy = 0, r = 0;
    TDraw2D::CircleTwoPoints(ToDouble(x1), ToDouble(y1), ToDouble(x2), ToDouble(y2), cx, cy, r);
    return Box(cx, cy, r, r);
  }
  static TZORPtoA BoxOf3(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) {
    CheckNotOnLine("a circle", x1, y1, x2, y2, x3, y3);
    Int64 cx = 0, cy = 0, r = 0;
    TDraw2D::CircleThreePoints(ToDouble(x1), ToDouble(y1), ToDouble(x2), ToDouble(y2), ToDouble(x3),
                               ToDouble(y3), cx, cy, r);
    return Box(cx, cy, r, r);
  }
};

}  // namespace Zor::inline Base
