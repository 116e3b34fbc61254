#include "kaldrix/items/TKDXBaseText.hpp"

#include <array>
#include <string>

#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/items/TextPlacement.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor::inline Text {

namespace {

// By ordinal of the alignments and of the angle.
// Intended: a justified text has no anchor, but the blank that parts its neighbours.
constexpr std::array<std::string_view, 4> Anchors{R"( text-anchor="start" )", R"( text-anchor="middle" )",
                                                  R"( text-anchor="end" )", " "};
constexpr std::array<std::string_view, 3> Baselines{R"(alignment-baseline="text-before-edge" )",
                                                    R"(alignment-baseline="central" )",
                                                    R"(alignment-baseline="text-after-edge" )"};
constexpr std::array<std::string_view, 4> Turns{"", "-90", "-180", "-270"};

/// Opens a group that is cut at a rectangle in millimetres of paper. What it is cut by goes to the
/// definitions under a name made of its numbers, so that equal names are equal rectangles.
std::string OpenCut(const TRectF& aRect, TSvgList& defs, const TSvgWriting& aWriting) {
  std::string name = "kaldrix-cut";
  TSvgElement path(aWriting.type, aWriting.factor);
  path.Raw("<rect x=\"").Val(aRect.Left).Raw("\" y=\"").Val(aRect.Top);
  path.Raw("\" width=\"").Val(aRect.Width()).Raw("\" height=\"").Val(aRect.Height()).Raw("\"/>");
  for (const Single value : {aRect.Left, aRect.Top, aRect.Width(), aRect.Height()}) {
    name += '_';
    TExSVG::AppendVal(name, value, aWriting.factor, aWriting.type);
  }
  defs.push_back("<clipPath id=\"" + name + "\">" + path.Take() + "</clipPath>");
  return "<g clip-path=\"url(#" + name + ")\">";
}

}  // namespace

void TKDXBaseText::WriteSvgBack(TSvgList& svg, const TZORRect& aRect, Single aRadius,
                                const TSvgWriting& aWriting) const {
  const TZORRect& r = aRect;
  TSvgElement rect(aWriting.type, aWriting.factor);
  rect.Raw("<rect x=\"").Val(GetMM(r.Left)).Raw("\" y=\"").Val(GetMM(r.Top));
  rect.Raw("\" width=\"").Val(GetMM(r.GetWidth())).Raw("\" height=\"").Val(GetMM(r.GetHeight())).Raw("\" ");
  fRadio != 0 ? rect.Raw(" rx=\"").Pen(aRadius).Raw("\" ") : rect.Raw(" ");
  fFill ? rect.Fill(fBackColor, true) : rect.Raw(" fill=\"none\" ");
  rect.Stroke(fColor).Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"/>");
  svg.push_back(rect.Take());
}

void TKDXBaseText::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) const {
  const TSvgWriting writing{aExportType, aFactor, attrID};
  // Intended: the radius is written alike in every mode, as pens are, and the padding goes through the
  // drawing scale, though it is a length on paper.
  if (fPenWidth > 0 || fFill) WriteSvgBack(svg, fBoundsRect, GetRadio(), writing);
  svg.push_back(SvgText(writing, FromBase(fPaddingX), FromBase(fPaddingY)));
}

void TKDXBaseText::WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const {
  const TZORRect shown = GetDisplayBoundsRect();
  const bool factored = aWriting.type == svFactor || aWriting.type == svFactorPx;
  const Single radius = GetRadio() * (factored ? aWriting.factor : 1);
  if (fPenWidth > 0 || fFill) WriteSvgBack(svg, shown, radius, aWriting);
  std::string text = SvgText(aWriting, GetPaddingX(), GetPaddingY());
  if (HasDisplayLimit()) {
    const TRectF paper{GetMM(shown.Left), GetMM(shown.Top), GetMM(shown.Right), GetMM(shown.Bottom)};
    text = OpenCut(paper, defs, aWriting) + text + "</g>";
  }
  svg.push_back(std::move(text));
}

std::string TKDXBaseText::SvgText(const TSvgWriting& aWriting, Single aPaddingX, Single aPaddingY) const {
  // By ordinal of the alignment: how much of the text stands before its anchor.
  constexpr std::array<double, 4> before{0, 0.5, 1, 0};
  const bool portable = aWriting.text == stPortable;
  // Some readers place a stretched text by its width without the stretch: it begins where it was measured to.
  const bool begins = portable && fScaleX != 1;
  Single x = GetPointMMX(1), y = GetPointMMY(1);
  AdjustPos(aPaddingX, aPaddingY, fHorzAlign, fVertAlign, fAngle, x, y);
  TSvgElement text(aWriting.type, aWriting.factor);
  text.Raw("<text").Raw(GetSVGID(aWriting.ids));
  // The x is taken back through the scale of the glyphs. Baseline and beginning are told before the turn.
  text.Raw(" x=\"").Val((x - (begins ? before[fHorzAlign] * fWidth / BaseInMM : 0)) / fScaleX);
  text.Raw("\" y=\"").Val(y + (portable ? BelowAnchor(fVertAlign, fAscent, fDescent) / BaseInMM : 0));
  text.Raw("\" font-family=\"").Escaped(fFontName).Raw(TExSVG::GetTextStyle(fBold, fItalic, fUnderline));
  text.Raw("\" font-size=\"").Val(fFontHeight / BaseInMM * fRatio).Raw("\" ").Fill(fFontColor, true);
  text.Raw(" xml:space=\"preserve\"").Raw(Anchors[begins ? haLeft : fHorzAlign]);
  if (!portable) text.Raw(Baselines[fVertAlign]);
  text.Raw(" transform=\"");
  if (fAngle != ag0) text.Raw("rotate(").Raw(Turns[fAngle]).Raw(" ").Val(x).Raw(" ").Val(y).Raw(") ");
  // What x was divided by: rounded, it would move a text far from the origin.
  text.Raw("scale(").Raw(begins ? FormatFixed(fScaleX, 4) : TExSVG::GetVal(fScaleX, 1.0, aWriting.type));
  text.Raw(", 1)\">").Escaped(fText).Raw("</text>");
  return text.Take();
}

}  // namespace Zor::inline Text
