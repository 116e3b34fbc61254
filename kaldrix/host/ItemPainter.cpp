#include "kaldrix/host/ItemPainter.hpp"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <numbers>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/host/TKDXSurfaceDraw.hpp"
#include "kaldrix/items/TextPlacement.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

namespace {

// By ordinal of the alignments. A justified line of its own begins at its anchor.
constexpr std::array<TTextAnchor, 4> Anchors{taStart, taMiddle, taEnd, taStart};
constexpr std::array<TTextVert, 3> Verts{tvTop, tvCentral, tvBottom};
constexpr double QuarterTurn = 90;
/// Font size to font height: the height is the em size.
constexpr double FontRatio = 1.0;

/// Base points to millimetres of paper, for one item.
class TPaper {
 public:
  explicit TPaper(const TKDXBaseItem& aItem) : fItem(aItem), fFactor(aItem.Document().PaperFactor()) {}

  double operator()(Int64 aBase) const { return static_cast<double>(aBase) / fFactor; }
  /// The way back, held in the coordinate range.
  Int64 Base(double aMM) const {
    constexpr auto most = static_cast<double>(MaxCoordinate);
    return Round(std::clamp(aMM * fFactor, -most, most));
  }
  /// 1-based; of an item that has that point.
  TPaperPoint Point(int aIndex) const {
    const TZORPto& point = fItem.fPoints[static_cast<std::size_t>(aIndex - 1)];
    return {(*this)(point.bX), (*this)(point.bY)};
  }
  TPath Outline() const {
    TPath path;
    for (int i = 1; i <= fItem.NumPoints(); ++i) {
      const TPaperPoint p = Point(i);
      i == 1 ? path.MoveTo(p.x, p.y) : path.LineTo(p.x, p.y);
    }
    return path;
  }

 private:
  const TKDXBaseItem& fItem;
  double fFactor;
};

template <class TItem>
TPen PenOf(const TItem& aItem) {
  return {aItem.fColor, aItem.GetPenWidth(), aItem.fLineType, false};
}

TBrush BrushOf(const TKDX2DItem& aItem) { return {aItem.fBackColor, aItem.fFill}; }

/// The marks at the ends of a chain of points.
template <class TItem>
void PaintTermsAtEnds(TSurface& aSurface, const TItem& aItem, const TPaper& aPaper) {
  const int last = aItem.NumPoints();
  if (last < 2) return;
  const auto paint = [&](TZORTermType aType, Single aSize, TAlphaColor aFill, int aTip, int aBefore) {
    if (aType == ttNone) return;
    const TPaperPoint tip = aPaper.Point(aTip), before = aPaper.Point(aBefore);
    aSurface.Terminator(aType, tip.x, tip.y, before.x, before.y, aSize, PenOf(aItem), aFill);
  };
  paint(aItem.fFromType, aItem.GetSizeFrom(), aItem.fFromColor, 1, 2);
  paint(aItem.fToType, aItem.GetSizeTo(), aItem.fToColor, last, last - 1);
}

/// Millimetres to base points, held far inside 32 bits.
int ToBase(double aMM) {
  return static_cast<int>(Round(std::clamp<double>(aMM * BaseInMM, INT_MIN / 4, INT_MAX / 4)));
}

/// The font of a text or node.
template <class TItem>
TFontSpec FontOf(const TItem& aItem) {
  return {aItem.fFontName,  aItem.fBold,      aItem.fItalic,
          aItem.fUnderline, aItem.fStrikeout, aItem.fFontHeight / BaseInMM * aItem.fRatio};
}

}  // namespace

// Strokes -----------------------------------------------------------------------------

void Paint(TSurface& aSurface, const TKDXBaseLine& aLine) {
  const TPaper mm(aLine);
  const TPaperPoint from = mm.Point(1), to = mm.Point(2);
  aSurface.Line(from.x, from.y, to.x, to.y, PenOf(aLine));
}

void Paint(TSurface& aSurface, const TKDXBasePolyLine& aLine) {
  const TPaper mm(aLine);
  aSurface.Path(mm.Outline(), PenOf(aLine), {});
  PaintTermsAtEnds(aSurface, aLine, mm);
}

void Paint(TSurface& aSurface, const TKDXBaseArc& aArc) {
  const TPaper mm(aArc);
  const double cx = mm(aArc.fBaseX), cy = mm(aArc.fBaseY), r = mm(aArc.fBaseRadio);
  const TPen pen = PenOf(aArc);
  aSurface.Arc(cx, cy, r, aArc.fStartAngle, aArc.fEndAngle, aArc.fClockWise, pen);
  // A mark points out of the arc: along its run at the end, against it at the start.
  const auto paint = [&](TZORTermType aType, Single aSize, TAlphaColor aFill, double aAngle, bool aAlong) {
    if (aType == ttNone) return;
    const double x = r * std::cos(aAngle), y = r * std::sin(aAngle);
    const double against = std::atan2(-x, y);
    aSurface.Terminator(aType, cx + x, cy + y, aAlong ? against + std::numbers::pi : against, 0, aSize, pen,
                        aFill, true);
  };
  paint(aArc.fFromType, aArc.GetSizeFrom(), aArc.fFromColor, aArc.fStartAngle, !aArc.fClockWise);
  paint(aArc.fToType, aArc.GetSizeTo(), aArc.fToColor, aArc.fEndAngle, aArc.fClockWise);
}

namespace {

void PaintStroke(TSurface& aSurface, const TKDXBaseLink& aLink, const TPaper& mm) {
  TPen pen = PenOf(aLink);
  TPath path;
  path.MoveTo(mm(aLink.p1.X), mm(aLink.p1.Y));
  switch (aLink.Form()) {
    case lfNone:
      return;
    case lfArc:
      return aSurface.Arc(mm(aLink.fCx), mm(aLink.fCy), mm(aLink.fRadio), aLink.fStart, aLink.fEnd,
                          aLink.fClockWise, pen);
    case lfCurve:
      path.CurveTo(mm(aLink.pa.X), mm(aLink.pa.Y), mm(aLink.pb.X), mm(aLink.pb.Y), mm(aLink.p2.X),
                   mm(aLink.p2.Y));
      break;
    case lfRound: {
      const TZORPtoA route = aLink.Route();
      for (std::size_t i = 1; i + 2 < route.size(); i += 3) {
        path.CurveTo(mm(route[i].bX), mm(route[i].bY), mm(route[i + 1].bX), mm(route[i + 1].bY),
                     mm(route[i + 2].bX), mm(route[i + 2].bY));
      }
      pen.roundCap = true;
      break;
    }
    case lfChain:
      for (const TZORPto& point : aLink.fLinkPoints) path.LineTo(mm(point.bX), mm(point.bY));
      [[fallthrough]];
    case lfLine:
      path.LineTo(mm(aLink.p2.X), mm(aLink.p2.Y));
  }
  aSurface.Path(path, pen, {});
}

}  // namespace

void Paint(TSurface& aSurface, const TKDXBaseLink& aLink) {
  if (!aLink.TakeEnds()) return;
  const TPaper mm(aLink);
  PaintStroke(aSurface, aLink, mm);
  const double size = GetBaseValue(aLink.Document().fSettings->fTermSize);
  for (const TLinkTerm& term : aLink.Terms()) {
    if (term.type == ttNone) continue;
    const TPen pen{term.color, aLink.GetPenWidth(), iiSolid, false};
    const double x = term.isArc ? term.direction : mm(term.from.X);
    const double y = term.isArc ? 0 : mm(term.from.Y);
    aSurface.Terminator(term.type, mm(term.tip.X), mm(term.tip.Y), x, y, size, pen, term.fill, term.isArc);
  }
}

// Shapes ------------------------------------------------------------------------------

void Paint(TSurface& aSurface, const TKDXBaseRectangle& aRect) {
  const TPaper mm(aRect);
  const TZORRect& r = aRect.fBoundsRect;
  aSurface.Rect(mm(r.Left), mm(r.Top), mm(r.GetWidth()), mm(r.GetHeight()), aRect.PaperRadio(), PenOf(aRect),
                BrushOf(aRect));
}

void Paint(TSurface& aSurface, const TKDXBasePolygon& aPolygon) {
  aSurface.Path(TPaper(aPolygon).Outline().Close(), PenOf(aPolygon), BrushOf(aPolygon));
}

void Paint(TSurface& aSurface, const TKDXBaseBezier& aBezier) {
  const TPaper mm(aBezier);
  const int count = aBezier.NumPoints();
  TPath path;
  for (int i = 1; i + 3 <= count; i += 3) {
    const TPaperPoint start = mm.Point(i), c1 = mm.Point(i + 1), c2 = mm.Point(i + 2), end = mm.Point(i + 3);
    if (i == 1) path.MoveTo(start.x, start.y);
    path.CurveTo(c1.x, c1.y, c2.x, c2.y, end.x, end.y);
  }
  if (aBezier.fFill) path.Close();
  TPen pen = PenOf(aBezier);
  pen.roundCap = !aBezier.fFill;
  aSurface.Path(path, pen, BrushOf(aBezier));
  PaintTermsAtEnds(aSurface, aBezier, mm);
}

void Paint(TSurface& aSurface, const TKDXBaseCircle& aCircle) {
  const TPaper mm(aCircle);
  aSurface.Circle(mm(aCircle.fBaseX), mm(aCircle.fBaseY), mm(aCircle.fBaseRadio), PenOf(aCircle),
                  BrushOf(aCircle));
}

void Paint(TSurface& aSurface, const TKDXBaseSector& aSector) {
  const TPaper mm(aSector);
  aSurface.Sector(mm(aSector.fBaseX), mm(aSector.fBaseY), mm(aSector.fBaseRadio), aSector.fCalcStart,
                  aSector.fAngleGap, PenOf(aSector), BrushOf(aSector));
}

void Paint(TSurface& aSurface, const TKDXBaseEllipse& aEllipse) {
  const TPaper mm(aEllipse);
  aSurface.Ellipse(mm(aEllipse.fBaseX), mm(aEllipse.fBaseY), mm(aEllipse.fBaseRadioX),
                   mm(aEllipse.fBaseRadioY), PenOf(aEllipse), BrushOf(aEllipse));
}

// Text --------------------------------------------------------------------------------

void Paint(TSurface& aSurface, const TKDXBaseText& aText) {
  const TPaper mm(aText);
  const TZORRect r = aText.GetDisplayBoundsRect();
  const double left = mm(r.Left), top = mm(r.Top), width = mm(r.GetWidth()), height = mm(r.GetHeight());
  aSurface.Rect(left, top, width, height, aText.GetRadio(), {aText.fColor, aText.GetPenWidth()},
                {aText.fBackColor, aText.fFill});
  Single x = aText.GetPointMMX(1), y = aText.GetPointMMY(1);
  AdjustPos(aText.GetPaddingX(), aText.GetPaddingY(), aText.fHorzAlign, aText.fVertAlign, aText.fAngle, x, y);
  const TTextPlace place{x,
                         y,
                         Anchors[aText.fHorzAlign],
                         Verts[aText.fVertAlign],
                         -QuarterTurn * static_cast<double>(aText.fAngle),
                         aText.fScaleX};
  const bool cut = aText.GetEffectiveWidth() < aText.fWidth;
  if (!cut) return aSurface.Text(aText.fText, place, FontOf(aText), aText.fFontColor);
  const TSavedState saved(aSurface);
  aSurface.ClipRect(left, top, width, height);
  aSurface.Text(aText.fText, place, FontOf(aText), aText.fFontColor);
}

void Measure(TFontEngine& aFonts, TKDXBaseText& aText) {
  aText.fRatio = FontRatio;
  const TTextSize size = aFonts.Measure(aText.fText, FontOf(aText));
  const int ascent = ToBase(size.ascent), descent = ToBase(size.descent);
  aText.SetMeasured(ToBase(size.width * aText.fScaleX), ascent + descent, ascent, descent,
                    ToBase(size.underline), FontRatio);
}

// Barcodes ----------------------------------------------------------------------------

namespace {

void PaintBack(TSurface& aSurface, const TKDX2DItem& aItem) {
  const TPaper mm(aItem);
  const TZORRect& r = aItem.fBoundsRect;
  aSurface.Rect(mm(r.Left), mm(r.Top), mm(r.GetWidth()), mm(r.GetHeight()), 0, {}, BrushOf(aItem));
}

void FillBars(TSurface& aSurface, const std::vector<TBarRect>& aBars, TAlphaColor aColor) {
  std::vector<TBar> bars;
  bars.reserve(aBars.size());
  for (const TBarRect& bar : aBars) bars.push_back({bar.x, bar.y, bar.width, bar.height});
  aSurface.FillBars(bars, aColor);
}

TFontSpec FontOf(const TKDXBaseBarcode& aBarcode) {
  TFontSpec font;
  font.name = aBarcode.fFontName;
  font.heightMM = aBarcode.fFontHeight / BaseInMM * aBarcode.fRatio;
  return font;
}

// By ordinal of TBarTextHang.
constexpr std::array<TTextAnchor, 4> HangAnchors{taMiddle, taEnd, taStart, taStart};
constexpr std::array<TTextVert, 4> HangVerts{tvTop, tvTop, tvTop, tvBaseline};

}  // namespace

void Paint(TSurface& aSurface, const TKDXBaseBarcode& aBarcode) {
  if (!aBarcode.fIsValid) return;
  PaintBack(aSurface, aBarcode);
  const TBarcodeLayout layout = aBarcode.Layout();
  FillBars(aSurface, layout.bars, aBarcode.fColor);
  const TSavedState saved(aSurface);
  aSurface.Rotate(-QuarterTurn * static_cast<double>(aBarcode.fAngle), layout.turnX, layout.turnY);
  for (const TBarText& text : layout.texts) {
    const TTextPlace place{text.x, text.y, HangAnchors[text.hang], HangVerts[text.hang], 0, 1};
    aSurface.Text(text.text, place, FontOf(aBarcode), aBarcode.fColor);
  }
}

void Paint(TSurface& aSurface, const TModuleItem& aSymbol) {
  PaintBack(aSurface, aSymbol);
  FillBars(aSurface, aSymbol.Bars(true), aSymbol.fColor);
}

void Measure(TFontEngine& aFonts, TKDXBaseBarcode& aBarcode) {
  aBarcode.fRatio = FontRatio;
  // Where a number is shown its font is needed, not only asked for.
  const TTextSize size = aFonts.Measure(aBarcode.GetShowNumber() ? "0" : "", FontOf(aBarcode));
  aBarcode.SetMeasured(ToBase(size.ascent), ToBase(size.descent), ToBase(size.underline),
                       ToBase(size.underlineThickness), FontRatio);
}

// Flow nodes --------------------------------------------------------------------------

namespace {

TFlowBox BoxOf(const TPaper& aPaper) {
  const TPaperPoint first = aPaper.Point(1), second = aPaper.Point(2);
  return {first.x, first.y, second.x, second.y, second.x - first.x, second.y - first.y};
}

TPath PathOf(const TFlowElement& aPart, const TFlowBox& aBox) {
  const auto at = [&](std::size_t aIndex) {
    const TFlowPoint& point = aPart.points[aIndex];
    return TPaperPoint{aBox.X(point.x), aBox.Y(point.y)};
  };
  TPath path;
  std::size_t next = 0;
  for (const char step : aPart.steps) {
    const TPaperPoint p = at(next++);
    if (step == 'M') {
      path.MoveTo(p.x, p.y);
    } else if (step == 'L') {
      path.LineTo(p.x, p.y);
    } else if (step == 'Q') {
      const TPaperPoint end = at(next++);
      path.QuadTo(p.x, p.y, end.x, end.y);
    } else {
      const TPaperPoint second = at(next++), end = at(next++);
      path.CurveTo(p.x, p.y, second.x, second.y, end.x, end.y);
    }
  }
  return path.Close();
}

TPath OutlineOf(const TFlowElement& aPart, const TFlowBox& aBox) {
  TPath path;
  switch (aPart.figure) {
    case ffBox:
    case ffRoundBox:
      return path.Rect(aBox.x1, aBox.y1, std::abs(aBox.width), std::abs(aBox.height),
                       aPart.figure == ffBox ? 0 : aBox.height / 2);
    case ffEllipse:
      return path.Ellipse(aBox.x1 + aBox.width / 2, aBox.y1 + aBox.height / 2, aBox.width / 2,
                          aBox.height / 2);
    case ffPath:
      return PathOf(aPart, aBox);
    case ffPolygon:
    case ffLine:
      break;
  }
  for (const TFlowPoint& point : aPart.points) {
    const double x = aBox.X(point.x), y = aBox.Y(point.y);
    path.Empty() ? path.MoveTo(x, y) : path.LineTo(x, y);
  }
  return aPart.figure == ffLine ? path : path.Close();
}

void PaintOutline(TSurface& aSurface, TZORFlowType aType, const TFlowBox& aBox, const TPen& aPen,
                  const TBrush& aBrush) {
  for (const TFlowElement& part : FlowOutline(aType)) {
    aSurface.Path(OutlineOf(part, aBox), aPen, part.figure == ffLine ? TBrush{} : aBrush);
  }
}

// By ordinal of TZORGradient.
constexpr std::array<TGradientKind, EnumCount<TZORGradient>> Gradients{gkNone, gkHorz, gkVert};

/// How far an alignment moves something of a size that stands in a larger space: 0, 1 or 2 halves of the
/// rest.
constexpr std::array<int, 4> HorzHalves{0, 1, 2, 0};
constexpr std::array<int, 3> VertHalves{0, 1, 2};

}  // namespace

void Paint(TSurface& aSurface, const TKDXBaseFlow& aFlow) {
  const TPaper mm(aFlow);
  const TFlowBox box = BoxOf(mm);
  TPen pen = PenOf(aFlow);
  if (aFlow.fShadowDX != 0 || aFlow.fShadowDY != 0) {
    const TSavedState saved(aSurface);
    aSurface.Translate(aFlow.fShadowDX / BaseInMM, aFlow.fShadowDY / BaseInMM);
    TPen shadow = pen;
    shadow.color = aFlow.fShadowColor;
    PaintOutline(aSurface, aFlow.fFlowType, box, shadow, {aFlow.fShadowColor, aFlow.fFill});
  }
  PaintOutline(aSurface, aFlow.fFlowType, box, pen,
               {aFlow.fBackColor, aFlow.fFill, Gradients[aFlow.fGradient], aFlow.fGradColor});
  if (aFlow.fText.empty()) return;
  const std::vector<std::string> texts = aFlow.LineTexts();
  const TFontSpec font = FontOf(aFlow);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const TZORTxtInf& line = aFlow.aTxtPoints[i];
    const TTextPlace place{box.x1 + mm(line.bX), box.y1 + mm(line.bY) + aFlow.fAscent / BaseInMM, taStart,
                           tvBaseline};
    aSurface.Text(texts[i], place, font, aFlow.fFontColor);
  }
}

void Measure(TFontEngine& aFonts, TKDXBaseFlow& aFlow) {
  aFlow.fRatio = FontRatio;
  const TFontSpec font = FontOf(aFlow);
  const TTextSize size = aFonts.Measure({}, font);
  aFlow.fAscent = ToBase(size.ascent);
  aFlow.fDescent = ToBase(size.descent);
  aFlow.fPosUnderline = ToBase(size.underline);
  aFlow.aTxtPoints.clear();
  if (aFlow.fText.empty()) return;
  const TPaper mm(aFlow);
  const TFlowBox box = BoxOf(mm);
  const double paddingX = aFlow.fPaddingX / BaseInMM, paddingY = aFlow.fPaddingY / BaseInMM;
  const double left = std::min(box.width, 0.0) + paddingX, width = std::abs(box.width) - 2 * paddingX;
  const std::vector<TTextLine> lines = aFonts.BreakLines(aFlow.fText, font, width);
  const double step = size.Height() * aFlow.fInterline;
  const double rest =
      std::abs(box.height) - 2 * paddingY - size.Height() - step * static_cast<double>(lines.size() - 1);
  double top = std::min(box.height, 0.0) + paddingY + rest * VertHalves[aFlow.fVertAlign] / 2;
  const std::string_view text = aFlow.fText;
  std::size_t at = 0, characters = 0;
  aFlow.aTxtPoints.reserve(lines.size());
  for (const TTextLine& line : lines) {
    characters += Utf8::Count(text.substr(at, line.start - at));
    at = line.start;
    aFlow.aTxtPoints.push_back(
        {static_cast<int>(characters) + 1, static_cast<int>(Utf8::Count(text.substr(at, line.length))),
         mm.Base(left + (width - line.width) * HorzHalves[aFlow.fHorzAlign] / 2), mm.Base(top)});
    top += step;
  }
}

}  // namespace Zor::inline Host
