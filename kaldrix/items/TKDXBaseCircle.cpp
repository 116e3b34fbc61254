#include "kaldrix/items/TKDXBaseCircle.hpp"

#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline F2d {

bool TKDXBaseCircle::SearchRect(const TZORRect& aRect, bool aInt) const {
  if (!TKDX2DItem::SearchRect(aRect, aInt)) return false;
  return !aInt || TDraw2D::EllipseIntersectsRect(fBaseX, fBaseY, fBaseRadio, fBaseRadio, aRect);
}

bool TKDXBaseCircle::CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const {
  if (aSnap != snTangent) return TCircularItem::CheckPoint(ax, ay, gap, aSnap, aRef);
  return SnapToTangent(Circle(), TangentDirections(Circle(), ax, ay, gap, aRef), ax, ay, aRef);
}

void TKDXBaseCircle::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  RecordLineType(r);
}

std::unique_ptr<TJsonObject> TKDXBaseCircle::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  WriteLineType(*json);
  return json;
}

void TKDXBaseCircle::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  UpdateBounds();
}

void TKDXBaseCircle::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                              bool attrID) const {
  WriteCircle(svg, aExportType, aFactor, attrID, fLineType);
}

}  // namespace Zor::inline F2d
