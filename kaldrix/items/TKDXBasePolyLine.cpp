#include "kaldrix/items/TKDXBasePolyLine.hpp"

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/items/TFitExtent.hpp"
#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline Line {

void TKDXBasePolyLine::AddPoint(Single x, Single y) {
  const TZORPto point{HeldPlace(x, fOwner->fUnits), HeldPlace(y, fOwner->fUnits)};
  const TEdit edit(*this);
  fPoints.push_back(point);
  // Long lines grow point by point: only the first bounds are made from all points.
  constexpr std::size_t firstPoints = 3;
  if (fPoints.size() <= firstPoints) return UpdateBounds();
  fBoundsRect.Left = std::min(fBoundsRect.Left, point.bX);
  fBoundsRect.Top = std::min(fBoundsRect.Top, point.bY);
  fBoundsRect.Right = std::max(fBoundsRect.Right, point.bX);
  fBoundsRect.Bottom = std::max(fBoundsRect.Bottom, point.bY);
}

// Picking and extent ----------------------------------------------------------------

bool TKDXBasePolyLine::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  return TKDXBaseItem::Pick(ax, ay, gap, aInt) && PickLines(ax, ay, gap) >= 1;
}

bool TKDXBasePolyLine::SearchRect(const TZORRect& aRect, bool aInt) const {
  if (!aInt) return TKDXBaseItem::SearchRect(aRect, aInt);
  for (std::size_t i = 1; i < fPoints.size(); ++i) {
    const TZORPto &a = fPoints[i - 1], &b = fPoints[i];
    if (TDraw2D::RectangleIntersectLine(a.bX, a.bY, b.bX, b.bY, aRect)) return true;
  }
  return false;
}

void TKDXBasePolyLine::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  TKDXBaseItem::CheckFit(aMinX, aMaxX, aMinY, aMaxY);
  if (fPoints.empty()) return;
  TFitExtent fit(aMinX, aMaxX, aMinY, aMaxY);
  if (fFromType != ttNone) fit.Add(fPoints.front(), fSizeFrom);
  if (fToType != ttNone) fit.Add(fPoints.back(), fSizeTo);
}

// Persistence -----------------------------------------------------------------------

void TKDXBasePolyLine::Record(TRecord& r) {
  TKDXBaseItem::Record(r);
  RecordLineType(r);
  RecordTerms(r);
}

std::unique_ptr<TJsonObject> TKDXBasePolyLine::WriteJson() const {
  auto json = TKDXBaseItem::WriteJson();
  WriteLineType(*json);
  WriteTerms(*json);
  return json;
}

void TKDXBasePolyLine::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDXBaseItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  ReadTerms(aJson);
  UpdateBounds();
}

// SVG -------------------------------------------------------------------------------

void TKDXBasePolyLine::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                                bool attrID) const {
  if (fPoints.empty()) return;
  TSvgElement line(aExportType, aFactor);
  line.Raw("<polyline").Raw(GetSVGID(attrID)).Raw(" points=\"");
  WritePairs(line, 1);
  line.Raw("\" ").Stroke(fColor).Raw(" fill=\"none\" stroke-width=\"").Pen(GetPenWidth());
  line.Raw("\"").Dash(fLineType).Raw("/>");
  svg.push_back(line.Take());
  WriteTermsAtEnds(svg, aExportType, aFactor);
}

}  // namespace Zor::inline Line
