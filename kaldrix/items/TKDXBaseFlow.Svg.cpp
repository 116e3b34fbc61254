#include "kaldrix/items/TKDXBaseFlow.hpp"

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/items/TSvgElement.hpp"

namespace Zor::inline F2d {

namespace {

/// An element of numbers that are narrowed to Singles, as all values in document units are.
class TElement : public TSvgElement {
 public:
  using TSvgElement::TSvgElement;

  TElement& Number(double aValue) {
    Val(static_cast<Single>(aValue));
    return *this;
  }
  TElement& Point(const TFlowBox& aBox, const TFlowPoint& aPoint, std::string_view aBetween) {
    Number(aBox.X(aPoint.x)).Raw(aBetween);
    return Number(aBox.Y(aPoint.y));
  }
};

void WritePolygon(TElement& aElement, const TFlowBox& aBox, std::span<const TFlowPoint> aPoints) {
  std::string_view before = " points=\"";
  for (const TFlowPoint& point : aPoints) {
    aElement.Raw(before);
    aElement.Point(aBox, point, ",");
    before = " ";
  }
  aElement.Raw("\" ");
}

constexpr int PointsOf(char aStep) { return aStep == 'C' ? 3 : aStep == 'Q' ? 2 : 1; }

void WritePath(TElement& aElement, const TFlowBox& aBox, const TFlowElement& aPart) {
  aElement.Raw(" d=\"");
  auto point = aPart.points.begin();
  for (const char step : aPart.steps) {
    if (step != 'M') aElement.Raw(" ");
    aElement.Raw({&step, 1});
    for (int i = 0; i < PointsOf(step); ++i) {
      if (i > 0) aElement.Raw(" ");
      aElement.Point(aBox, *point++, step == 'M' ? "," : " ");
    }
  }
  aElement.Raw(" Z\" ");
}

}  // namespace

void TKDXBaseFlow::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) const {
  const TZORUnits unit = fOwner->fUnits;
  const TZORPto first = GetPoint(1), second = GetPoint(2);
  const Single x1 = first.GetX(unit), y1 = first.GetY(unit), x2 = second.GetX(unit), y2 = second.GetY(unit);
  const TFlowBox box{x1, y1, x2, y2, x2 - x1, y2 - y1};
  WriteSvgFrame(svg, {box, GetWidth(), GetHeight(), fOwner->BaseValue(GetPenWidth()), BaseInMM},
                {aExportType, aFactor, attrID});
}

void TKDXBaseFlow::WritePaperSVG(TSvgList& svg, TSvgList& /*defs*/, const TSvgWriting& aWriting) const {
  const Single x1 = GetPointMMX(1), y1 = GetPointMMY(1), x2 = GetPointMMX(2), y2 = GetPointMMY(2);
  const TFlowBox box{x1, y1, x2, y2, x2 - x1, y2 - y1};
  WriteSvgFrame(svg,
                {box, FromBase(BaseWidth()), FromBase(BaseHeight()), GetPenWidth(), fOwner->PaperFactor()},
                aWriting);
}

void TKDXBaseFlow::WriteSvgFrame(TSvgList& svg, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const {
  for (const TFlowElement& part : FlowOutline(fFlowType)) WriteSvgPart(svg, part, aFrame, aWriting);
  if (!fText.empty()) WriteSvgText(svg, aFrame, aWriting);
}

void TKDXBaseFlow::WriteSvgPart(TSvgList& svg, const TFlowElement& aPart, const TSvgFrame& aFrame,
                                const TSvgWriting& aWriting) const {
  // By ordinal of TFlowFigure.
  constexpr std::array<std::string_view, 6> names{"<rect", "<rect", "<ellipse", "<polygon", "<path", "<line"};
  const TFlowBox& box = aFrame.box;
  TElement element(aWriting.type, aWriting.factor);
  element.Raw(names[aPart.figure]);
  if (aPart.named) element.Raw(GetSVGID(aWriting.ids));
  switch (aPart.figure) {
    case ffBox:
    case ffRoundBox:
      element.Raw(" x=\"").Val(box.x1).Raw("\" y=\"").Val(box.y1);
      element.Raw("\" width=\"").Val(aFrame.width).Raw("\" height=\"").Val(aFrame.height).Raw("\" ");
      if (aPart.figure == ffRoundBox) element.Raw(" rx=\"").Val(box.height / 2).Raw("\" ");
      break;
    case ffEllipse:
      element.Raw(" cx=\"");
      element.Number(box.x1 + box.width / 2).Raw("\" cy=\"");
      element.Number(box.y1 + box.height / 2);
      element.Raw("\" rx=\"").Val(box.width / 2).Raw("\" ry=\"").Val(box.height / 2).Raw("\" ");
      break;
    case ffPolygon:
      WritePolygon(element, box, aPart.points);
      break;
    case ffPath:
      WritePath(element, box, aPart);
      break;
    case ffLine:
      element.Raw(" x1=\"");
      element.Point(box, aPart.points[0], "\" y1=\"").Raw("\" x2=\"");
      element.Point(box, aPart.points[1], "\" y2=\"").Raw("\" ");
      break;
  }
  if (aPart.figure != ffLine) {
    fFill ? element.Fill(fBackColor, true) : element.Raw(" fill=\"none\" ");
    element.Raw(" ");
  }
  element.Stroke(fColor).Raw(" stroke-width=\"").Pen(aFrame.pen).Raw("\"/>");
  svg.push_back(element.Take());
}

void TKDXBaseFlow::WriteSvgText(TSvgList& svg, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const {
  const std::vector<std::string> texts = LineTexts();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    TElement text(aWriting.type, aWriting.factor);
    text.Raw("<text x=\"");
    text.Number(aFrame.box.x1 + static_cast<double>(aTxtPoints[i].bX) / aFrame.baseInText).Raw("\" y=\"");
    text.Number(aFrame.box.y1 + static_cast<double>(aTxtPoints[i].bY) / aFrame.baseInText +
                fAscent / BaseInMM);
    text.Raw("\" font-family=\"").Escaped(fFontName).Raw(TExSVG::GetTextStyle(fBold, fItalic, fUnderline));
    text.Raw("\" font-size=\"").Val(fFontHeight / BaseInMM * fRatio).Raw("\" ").Fill(fFontColor, true);
    text.Raw(" xml:space=\"preserve\">").Escaped(texts[i]).Raw("</text>");
    svg.push_back(text.Take());
  }
}

}  // namespace Zor::inline F2d
