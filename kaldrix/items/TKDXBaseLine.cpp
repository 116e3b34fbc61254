#include "kaldrix/items/TKDXBaseLine.hpp"

#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline Line {

bool TKDXBaseLine::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TKDXBaseItem::Pick(ax, ay, gap, aInt)) return false;
  const TZORPto a = GetPoint(1), b = GetPoint(2);
  return TDraw2D::PointInLine(a.bX, a.bY, b.bX, b.bY, ax, ay, gap);
}

bool TKDXBaseLine::SearchRect(const TZORRect& aRect, bool aInt) const {
  if (!aInt) return TKDXBaseItem::SearchRect(aRect, aInt);
  const TZORPto a = GetPoint(1), b = GetPoint(2);
  return TDraw2D::RectangleIntersectLine(a.bX, a.bY, b.bX, b.bY, aRect);
}

void TKDXBaseLine::Record(TRecord& r) {
  TKDXBaseItem::Record(r);
  RecordLineType(r);
}

std::unique_ptr<TJsonObject> TKDXBaseLine::WriteJson() const {
  auto json = TKDXBaseItem::WriteJson();
  WriteLineType(*json);
  return json;
}

void TKDXBaseLine::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDXBaseItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  UpdateBounds();
}

void TKDXBaseLine::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) const {
  TSvgElement line(aExportType, aFactor);
  line.Raw("<line").Raw(GetSVGID(attrID));
  line.Raw(" x1=\"").Val(GetPointMMX(1)).Raw("\" y1=\"").Val(GetPointMMY(1));
  line.Raw("\" x2=\"").Val(GetPointMMX(2)).Raw("\" y2=\"").Val(GetPointMMY(2)).Raw("\" ");
  line.Stroke(fColor).Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"").Dash(fLineType).Raw("/>");
  svg.push_back(line.Take());
}

TZORBase TKDXBaseLine::CenterPoint() const {
  const TZORPto a = GetPoint(1), b = GetPoint(2);
  return {a.bX + (b.bX - a.bX) / 2, a.bY + (b.bY - a.bY) / 2};
}

}  // namespace Zor::inline Line
