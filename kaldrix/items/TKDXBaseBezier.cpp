#include "kaldrix/items/TKDXBaseBezier.hpp"

#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline F2d {

namespace {

/// Each curve begins with the last point of the one before it.
constexpr std::size_t PointsOfCurve = 3;

}  // namespace

void TKDXBaseBezier::Move(Single ax, Single ay, TZORMoveOpt aMoveOp) {
  if (aMoveOp == moAll) TKDX2DItem::Move(ax, ay, aMoveOp);
}

bool TKDXBaseBezier::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TKDX2DItem::Pick(ax, ay, gap, aInt)) return false;
  for (std::size_t i = 0; i + PointsOfCurve < fPoints.size(); i += PointsOfCurve) {
    const TZORPto* p = &fPoints[i];
    if (TDraw2D::PointInBezier(p[0].bX, p[0].bY, p[1].bX, p[1].bY, p[2].bX, p[2].bY, p[3].bX, p[3].bY, ax, ay,
                               gap))
      return true;
  }
  if (!fFill || fPoints.size() < 2) return false;
  const TZORPto &first = fPoints.front(), &last = fPoints.back();
  return TDraw2D::PointInLine(first.bX, first.bY, last.bX, last.bY, ax, ay, gap);
}

// Persistence -----------------------------------------------------------------------

void TKDXBaseBezier::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  RecordLineType(r);
  RecordTerms(r);
}

std::unique_ptr<TJsonObject> TKDXBaseBezier::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  WriteLineType(*json);
  WriteTerms(*json);
  return json;
}

void TKDXBaseBezier::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  ReadTerms(aJson);
  UpdateBounds();
}

// SVG -------------------------------------------------------------------------------

void TKDXBaseBezier::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                              bool attrID) const {
  if (fPoints.size() < 2) return;
  TSvgElement path(aExportType, aFactor);
  path.Raw("<path").Raw(GetSVGID(attrID)).Raw(" d=\"M ");
  path.Pair(GetPointMMX(1), GetPointMMY(1)).Raw(" C ");
  WritePairs(path, 2);
  if (fFill) {
    path.Raw(" Z\" ").Fill(fBackColor, true).Raw(" ").Stroke(fColor);
  } else {
    path.Raw("\" ").Stroke(fColor).Raw(" fill=\"none\"");
  }
  path.Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"").Dash(fLineType);
  if (!fFill) path.Raw(TExSVG::GetCap(true));
  path.Raw("/>");
  svg.push_back(path.Take());
  WriteTermsAtEnds(svg, aExportType, aFactor);
}

}  // namespace Zor::inline F2d
