// Links in SVG, and the terminators at their ends.
#include "kaldrix/items/TKDXBaseLink.hpp"

#include <cmath>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/items/TTermItem.hpp"
#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline Line {

// Terminators -----------------------------------------------------------------------

std::array<TLinkTerm, 2> TKDXBaseLink::Terms() const {
  const TLinkForm form = Form();
  const bool isArc = form == lfArc;
  const TAlphaColor color = isArc ? fColor : fOwner->fSettings->fTermColor;
  const auto at = [](const TZORPto& aPoint) { return TZORBase{aPoint.bX, aPoint.bY}; };
  const bool inner = (form == lfChain || form == lfRound) && !fLinkPoints.empty();
  TLinkTerm from{fFromType, p1, inner ? at(fLinkPoints.front()) : p2, 0, isArc, color, fFromColor};
  TLinkTerm to{fToType, p2, inner ? at(fLinkPoints.back()) : p1, 0, isArc, color, fToColor};
  if (isArc) {
    // Out of the arc: against its run at the start, along it at the end.
    const auto outwards = [this](const TZORBase& aTip, bool aAlong) {
      const double against = std::atan2(-(static_cast<double>(aTip.X) - static_cast<double>(fCx)),
                                        static_cast<double>(aTip.Y) - static_cast<double>(fCy));
      return aAlong ? against + TDraw2D::Pi : against;
    };
    from.direction = outwards(p1, !fClockWise);
    to.direction = outwards(p2, fClockWise);
  }
  return {from, to};
}

namespace {

/// Where an arrow head at a link position points to, on the side of the node that the position lies on.
TZORAngle HeadAngle(int aPos, int aPosFrom) {
  const auto within = [](int aValue, int aFirst, int aLast) { return aValue >= aFirst && aValue <= aLast; };
  if (within(aPos, 2, 4)) return ag270;
  if (within(aPos, 6, 8)) return ag180;
  if (within(aPos, 10, 12)) return ag90;
  if (within(aPos, 14, 16)) return ag0;
  return (aPos == 1 || aPos == 5) && within(aPosFrom, 1, 5) ? ag270 : ag0;
}

}  // namespace

void TKDXBaseLink::Arrow(const TZORBase& a, const TZORBase& b, int aPos, int aPosFrom, int /*aPosTo*/,
                         Int64 size, Int64& x1, Int64& y1, Int64& x2, Int64& y2) const {
  constexpr auto open = static_cast<Single>(TermOpen);
  switch (fLinkType) {
    case ltLeftRightTopBottom:
    case ltTopBottomLeftRight:
    case ltStepLineTwoPto:
    case ltCurve:
      TDraw2D::DrawArrow(a.X, a.Y, size, HeadAngle(aPos, aPosFrom), x1, y1, x2, y2, open);
      return;
    case ltArc:
      TDraw2D::DrawArrowArc(fCx, fCy, a.X, a.Y, size, x1, y1, x2, y2, fClockWise, open);
      return;
    default:
      TDraw2D::DrawArrow(b.X, b.Y, a.X, a.Y, size, x1, y1, x2, y2, open);
  }
}

// SVG -------------------------------------------------------------------------------

void TKDXBaseLink::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) const {
  // Intended: the ends of a chain and the controls of a curve stand in millimetres of the drawn object, the
  // inner points of a chain and the size of the marks in document units, and so do the pens of some forms;
  // everything else stands in millimetres of paper.
  const TSvgFrame frame{BaseInMM, UnitFacts(fOwner->fUnits).basePoints, fOwner->BaseValue(GetPenWidth()),
                        fOwner->GetVal(fOwner->fSettings->fTermSize, false)};
  WriteSvgFrame(svg, frame, {aExportType, aFactor, attrID});
}

void TKDXBaseLink::WritePaperSVG(TSvgList& svg, TSvgList& /*defs*/, const TSvgWriting& aWriting) const {
  const double paper = fOwner->PaperFactor();
  WriteSvgFrame(svg, {paper, paper, GetPenWidth(), GetBaseValue(fOwner->fSettings->fTermSize)}, aWriting);
}

void TKDXBaseLink::WriteSvgFrame(TSvgList& svg, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const {
  if (!TakeEnds()) return;
  const TLinkForm form = Form();
  if (form == lfNone) return;
  svg.push_back(SvgStroke(form, aFrame, aWriting));
  for (const TLinkTerm& term : Terms()) {
    if (term.type == ttNone) continue;
    const double x = term.isArc ? term.direction : FromBase(term.from.X);
    const double y = term.isArc ? 0 : FromBase(term.from.Y);
    svg.push_back(TExSVG::DrawTerm(term.type, aWriting.type, FromBase(term.tip.X), FromBase(term.tip.Y), x, y,
                                   GetPenWidth(), aWriting.factor, aFrame.termSize, term.color, term.fill,
                                   TermOpen, term.isArc));
  }
}

namespace {

/// How a form is written, by ordinal of TLinkForm.
struct TSvgForm {
  std::string_view tag, data;
  bool framePen;  ///< the pen is that of the frame; that of the others is in millimetres
};
constexpr std::array<TSvgForm, 6> SvgForms{{
    {},                                 // lfNone
    {"<line", " x1=\"", true},          // lfLine
    {"<polyline", " points=\"", true},  // lfChain
    {"<path", " d=\"M ", false},        // lfArc
    {"<path", " d=\"M ", true},         // lfCurve
    {"<path", " d=\"M ", false},        // lfRound
}};
static_assert(SvgForms.size() == lfRound + 1);

}  // namespace

std::string TKDXBaseLink::SvgStroke(TLinkForm aForm, const TSvgFrame& aFrame,
                                    const TSvgWriting& aWriting) const {
  const TSvgForm& form = SvgForms[aForm];
  TSvgElement out(aWriting.type, aWriting.factor);
  out.Raw(form.tag).Raw(GetSVGID(aWriting.ids)).Raw(form.data);
  WriteShape(out, aForm, aFrame);
  out.Raw("\" ").Stroke(fColor);
  if (aForm == lfChain || aForm == lfArc || aForm == lfRound) out.Raw(" fill=\"none\"");
  out.Raw(" stroke-width=\"").Pen(form.framePen ? aFrame.pen : GetPenWidth()).Raw("\"");
  // Readers that do not know the colour fill with black.
  if (aForm == lfCurve) out.Raw(aWriting.text == stExact ? " fill=\"transparent\"" : " fill=\"none\"");
  out.Dash(fLineType);
  if (aForm == lfRound) out.Raw(TExSVG::GetCap(true));
  return out.Raw("/>").Take();
}

void TKDXBaseLink::WriteShape(TSvgElement& out, TLinkForm aForm, const TSvgFrame& aFrame) const {
  const auto drawn = [&](Int64 aBase) { return static_cast<double>(aBase) / aFrame.baseInEnd; };
  // A single, as all values in document units.
  const auto inner = [&](Int64 aBase) {
    return static_cast<Single>(static_cast<double>(aBase) / aFrame.baseInInner);
  };
  const auto paper = [this](Int64 aBase) { return double{FromBase(aBase)}; };
  const auto atAngle = [&](double aAngle) -> TSvgElement& {
    return out.Pair(XFromBaseAngle(fCx, fRadio, aAngle), YFromBaseAngle(fCy, fRadio, aAngle));
  };
  switch (aForm) {
    case lfChain:
      out.Pair(drawn(p1.X), drawn(p1.Y));
      for (const TZORPto& p : fLinkPoints) {
        out.Raw(" ").Pair(inner(p.bX), inner(p.bY));
      }
      out.Raw(" ").Pair(drawn(p2.X), drawn(p2.Y));
      break;
    case lfArc:
      atAngle(fStart).Raw(" A ").Pair(paper(fRadio), paper(fRadio)).Raw(fClockWise ? " 0 0,1 " : " 0 0,0 ");
      atAngle(fEnd);
      break;
    case lfCurve:
      out.Pair(paper(p1.X), paper(p1.Y)).Raw(" C").Val(drawn(pa.X)).Raw(" ").Val(drawn(pa.Y)).Raw(" ");
      out.Val(drawn(pb.X)).Raw(" ").Val(drawn(pb.Y)).Raw(" ").Pair(paper(p2.X), paper(p2.Y));
      break;
    case lfRound:
      out.Pair(paper(p1.X), paper(p1.Y)).Raw(" C");
      for (const TZORPto& p : fLinkPoints) out.Raw(" ").Pair(paper(p.bX), paper(p.bY));
      out.Raw(" ").Pair(paper(p2.X), paper(p2.Y));
      break;
    default:
      out.Val(paper(p1.X)).Raw("\" y1=\"").Val(paper(p1.Y)).Raw("\" x2=\"").Val(paper(p2.X));
      out.Raw("\" y2=\"").Val(paper(p2.Y));
  }
}

}  // namespace Zor::inline Line
