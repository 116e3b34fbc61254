#include "kaldrix/items/TKDXBaseEllipse.hpp"

#include <algorithm>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/items/ShapePaint.hpp"
#include "kaldrix/utils/TDraw2D.hpp"

namespace Zor::inline F2d {

namespace {

/// Indexes of the commands that keep the points for a change of radius; 0 is that of a move.
constexpr int CommandRadioX = 1, CommandRadioY = 2;

}  // namespace

// Radii -----------------------------------------------------------------------------

Single TKDXBaseEllipse::GetRadioX() const { return fOwner->GetVal(fBaseRadioX, false); }
Single TKDXBaseEllipse::GetRadioY() const { return fOwner->GetVal(fBaseRadioY, false); }

void TKDXBaseEllipse::SetRadioX(Single aValue) {
  TakeRadii(fOwner->SetVal(aValue, false), fBaseRadioY, CommandRadioX);
}
void TKDXBaseEllipse::SetRadioY(Single aValue) {
  TakeRadii(fBaseRadioX, fOwner->SetVal(aValue, false), CommandRadioY);
}

void TKDXBaseEllipse::TakeRadii(Int64 rx, Int64 ry, int aCommand) {
  rx = std::max<Int64>(rx, 0);
  ry = std::max<Int64>(ry, 0);
  if (rx == fBaseRadioX && ry == fBaseRadioY) return;
  const TEdit edit(*this);
  TKDXElePosCmd::AddCommand(*this, aCommand);
  StateUpdate();
  Surround(rx, ry);
}

void TKDXBaseEllipse::UpdateBounds() {
  TCentredItem::UpdateBounds();
  fBaseRadioX = HalfWidth();
  fBaseRadioY = HalfHeight();
}

// Picking ---------------------------------------------------------------------------

bool TKDXBaseEllipse::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TKDX2DItem::Pick(ax, ay, gap, aInt)) return false;
  return IsSolid() ? TDraw2D::PointInEllipse(fBaseX, fBaseY, fBaseRadioX, fBaseRadioY, ax, ay)
                   : TDraw2D::PointOnEllipse(fBaseX, fBaseY, fBaseRadioX, fBaseRadioY, ax, ay, gap);
}

bool TKDXBaseEllipse::SearchRect(const TZORRect& aRect, bool aInt) const {
  if (!aInt) return TKDX2DItem::SearchRect(aRect, aInt);
  return TDraw2D::EllipseIntersectsRect(fBaseX, fBaseY, fBaseRadioX, fBaseRadioY, aRect);
}

// Persistence -----------------------------------------------------------------------

void TKDXBaseEllipse::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  RecordLineType(r);
}

std::unique_ptr<TJsonObject> TKDXBaseEllipse::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  WriteLineType(*json);
  return json;
}

void TKDXBaseEllipse::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  UpdateBounds();
}

// SVG -------------------------------------------------------------------------------

void TKDXBaseEllipse::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                               bool attrID) const {
  if (!IsPainted()) return;
  TSvgElement ellipse(aExportType, aFactor);
  ellipse.Raw("<ellipse").Raw(GetSVGID(attrID));
  WriteCentre(ellipse);
  ellipse.Raw(" rx=\"").Val(GetMM(fBaseRadioX)).Raw("\" ry=\"").Val(GetMM(fBaseRadioY));
  AppendPaint(ellipse, *this);
  ellipse.Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"").Dash(fLineType).Raw("/>");
  svg.push_back(ellipse.Take());
}

}  // namespace Zor::inline F2d
