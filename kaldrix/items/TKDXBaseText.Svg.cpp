#include "kaldrix/items/TKDXBaseText.hpp"

#include <array>
#include <string>

#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/items/TextPlacement.hpp"

namespace Zor::inline Text {

namespace {

// By ordinal of the alignments and of the angle.
constexpr std::array<std::string_view, 4> Anchors{R"( text-anchor="start" )", R"( text-anchor="middle" )",
                                                  R"( text-anchor="end" )", ""};
constexpr std::array<std::string_view, 3> Baselines{R"(alignment-baseline="text-before-edge" )",
                                                    R"(alignment-baseline="central" )",
                                                    R"(alignment-baseline="text-after-edge" )"};
constexpr std::array<std::string_view, 4> Turns{"", "-90", "-180", "-270"};

}  // namespace

void TKDXBaseText::WriteSvgBack(TSvgList& svg, TZORExportSVG aExportType, Single aFactor) const {
  const TZORRect& r = fBoundsRect;
  TSvgElement rect(aExportType, aFactor);
  rect.Raw("<rect x=\"").Val(GetMM(r.Left)).Raw("\" y=\"").Val(GetMM(r.Top));
  rect.Raw("\" width=\"").Val(GetMM(r.GetWidth())).Raw("\" height=\"").Val(GetMM(r.GetHeight())).Raw("\" ");
  // The radius is written alike in every mode, as pens are.
  fRadio != 0 ? rect.Raw(" rx=\"").Pen(GetRadio()).Raw("\" ") : rect.Raw(" ");
  fFill ? rect.Fill(fBackColor, true) : rect.Raw(" fill=\"none\" ");
  rect.Stroke(fColor).Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"/>");
  svg.push_back(rect.Take());
}

void TKDXBaseText::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) const {
  if (fPenWidth > 0 || fFill) WriteSvgBack(svg, aExportType, aFactor);
  Single x = GetPointMMX(1), y = GetPointMMY(1);
  // Intended: the padding goes through the drawing scale, though it is a length on paper.
  AdjustPos(FromBase(fPaddingX), FromBase(fPaddingY), fHorzAlign, fVertAlign, fAngle, x, y);
  TSvgElement text(aExportType, aFactor);
  text.Raw("<text").Raw(GetSVGID(attrID));
  // The x is taken back through the scale of the glyphs.
  text.Raw(" x=\"").Val(double{x} / fScaleX).Raw("\" y=\"").Val(y);
  text.Raw("\" font-family=\"").Escaped(fFontName).Raw(TExSVG::GetTextStyle(fBold, fItalic, fUnderline));
  text.Raw("\" font-size=\"").Val(fFontHeight / BaseInMM * fRatio).Raw("\" ").Fill(fFontColor, true);
  text.Raw(" xml:space=\"preserve\"").Raw(Anchors[fHorzAlign]).Raw(Baselines[fVertAlign]);
  text.Raw(" transform=\"");
  if (fAngle != ag0) text.Raw("rotate(").Raw(Turns[fAngle]).Raw(" ").Val(x).Raw(" ").Val(y).Raw(") ");
  text.Raw("scale(").Raw(TExSVG::GetVal(fScaleX, 1.0, aExportType)).Raw(", 1)\">");
  text.Escaped(fText).Raw("</text>");
  svg.push_back(text.Take());
}

}  // namespace Zor::inline Text
