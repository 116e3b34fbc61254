#include "kaldrix/items/TKDXBasePolygon.hpp"

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/items/ShapePaint.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline F2d {

TKDXBasePolygon::TKDXBasePolygon(TKDXBaseLabel& aOwner, bool aPreview)
    : TPathItem(aOwner, itPolygon, 0, aPreview) {
  aOwner.Rename(*this, "Polygon");
}

void TKDXBasePolygon::Move(Single ax, Single ay, TZORMoveOpt aMoveOp) {
  if (aMoveOp == moAll) TKDX2DItem::Move(ax, ay, aMoveOp);
}

// Picking ---------------------------------------------------------------------------

bool TKDXBasePolygon::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TKDX2DItem::Pick(ax, ay, gap, aInt)) return false;
  return PickLines(ax, ay, gap) >= 1 || (aInt && fFill && Holds(ax, ay));
}

bool TKDXBasePolygon::Holds(Int64 ax, Int64 ay) const {
  bool inside = false;
  const TZORPto* previous = fPoints.empty() ? nullptr : &fPoints.back();
  for (const TZORPto& point : fPoints) {
    if ((point.bY < ay) != (previous->bY < ay)) {
      const double share =
          static_cast<double>(Span(point.bY, ay)) / static_cast<double>(Span(point.bY, previous->bY));
      const double crossing = share * static_cast<double>(Span(point.bX, previous->bX));
      if (static_cast<double>(Span(point.bX, ax)) > crossing) inside = !inside;
    }
    previous = &point;
  }
  return inside;
}

// Persistence -----------------------------------------------------------------------

void TKDXBasePolygon::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  RecordLineType(r);
}

std::unique_ptr<TJsonObject> TKDXBasePolygon::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  WriteLineType(*json);
  return json;
}

void TKDXBasePolygon::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  UpdateBounds();
}

// SVG -------------------------------------------------------------------------------

void TKDXBasePolygon::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                               bool attrID) const {
  if (fPoints.empty()) return;
  TSvgElement polygon(aExportType, aFactor);
  polygon.Raw("<polygon").Raw(GetSVGID(attrID)).Raw(" points=\"");
  WritePairs(polygon, 1);
  AppendPaint(polygon, *this);
  polygon.Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"").Dash(fLineType).Raw("/>");
  svg.push_back(polygon.Take());
}

}  // namespace Zor::inline F2d
