#include "kaldrix/items/TKDXBaseRectangle.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TSvgElement.hpp"

namespace Zor::inline F2d {

// Size and radius ---------------------------------------------------------------

Single TKDXBaseRectangle::GetRadio() const { return fOwner->GetVal(fRadio, false); }

void TKDXBaseRectangle::SetRadio(Single aValue) {
  SetBaseRadio(fOwner->SetVal(std::clamp(Finite(aValue), 0.0F, GetHeight() / 2), false));
}

void TKDXBaseRectangle::SetBaseRadio(int aBase) {
  Change<TKDXBaseValueCmd>(fRadio, aBase, 2, &TKDXBaseItem::StateUpdate);
}

Single TKDXBaseRectangle::GetMMRadio() const {
  if (fRadio == 0) return 0;
  return fOwner->GetValMM(fRadio) / static_cast<Single>(fOwner->fMeasure->fDrawScale);
}

// Picking and snapping ------------------------------------------------------------

bool TKDXBaseRectangle::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TKDX2DItem::Pick(ax, ay, gap, aInt)) return false;
  if (fFill) return true;
  fCheckRect = fBoundsRect;
  const Int64 border = Int64{gap} + fPenWidth;
  fCheckRect.Inflate(-border, -border);
  return !fCheckRect.Contains(ax, ay);
}

bool TKDXBaseRectangle::CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const {
  const TZORRect& r = fBoundsRect;
  const TZORBase centre = CenterPoint();
  const std::array<TZORPto, 4> corners{
      {{r.Left, r.Top}, {r.Right, r.Top}, {r.Right, r.Bottom}, {r.Left, r.Bottom}}};
  const std::array<TZORPto, 4> middles{
      {{centre.X, r.Top}, {centre.X, r.Bottom}, {r.Left, centre.Y}, {r.Right, centre.Y}}};
  const auto snaps = [&](const TZORPto& aTarget) { return SnapTo(aTarget, ax, ay, gap, rtyRect, aRef); };
  switch (aSnap) {
    case snMiddle:
      return std::any_of(middles.begin(), middles.end(), snaps);
    case snCenter:
      return SnapTo({centre.X, centre.Y}, ax, ay, gap, rtyCircle, aRef);
    case snEnd:
      return fRadio == 0 && std::any_of(corners.begin(), corners.end(), snaps);
    case snPerpendicular:
      for (std::size_t i = 0; i < corners.size(); ++i) {
        if (SnapToFoot(corners[i], corners[(i + 1) % corners.size()], ax, ay, gap, aRef)) return true;
      }
      return false;
    default:
      return false;
  }
}

// Persistence -----------------------------------------------------------------------

void TKDXBaseRectangle::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  RecordLineType(r);
  r.Int32(fRadio);
}

std::unique_ptr<TJsonObject> TKDXBaseRectangle::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  WriteLineType(*json);
  PutLength(*json, "Radio", GetRadio());
  return json;
}

void TKDXBaseRectangle::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  ReadLineType(aJson);
  UpdateBounds();
  SetRadio(GetSingle(aJson, "Radio"));
}

// SVG -------------------------------------------------------------------------------

void TKDXBaseRectangle::WriteSVG(TSvgList& svg, TSvgList& /*defs*/, TZORExportSVG aExportType, Single aFactor,
                                 bool attrID) const {
  svg.push_back(SvgRect({aExportType, aFactor, attrID}, GetMMRadio()));
}

void TKDXBaseRectangle::WritePaperSVG(TSvgList& svg, TSvgList& /*defs*/, const TSvgWriting& aWriting) const {
  svg.push_back(SvgRect(aWriting, PaperRadio()));
}

std::string TKDXBaseRectangle::SvgRect(const TSvgWriting& aWriting, Single aRadius) const {
  const TZORRect& r = fBoundsRect;
  TSvgElement rect(aWriting.type, aWriting.factor);
  rect.Raw("<rect").Raw(GetSVGID(aWriting.ids));
  rect.Raw(" x=\"").Val(GetMM(r.Left)).Raw("\" y=\"").Val(GetMM(r.Top));
  rect.Raw("\" width=\"").Val(GetMM(r.GetWidth())).Raw("\" height=\"").Val(GetMM(r.GetHeight())).Raw("\" ");
  if (fRadio != 0) rect.Raw(" rx=\"").Val(aRadius).Raw("\" ");
  rect.Fill(fBackColor, fFill).Raw(" ").Stroke(fColor);
  rect.Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\"").Dash(fLineType).Raw("/>");
  return rect.Take();
}

TZORBase TKDXBaseRectangle::CenterPoint() const {
  return {fBoundsRect.Left + fBoundsRect.GetWidth() / 2, fBoundsRect.Top + fBoundsRect.GetHeight() / 2};
}

}  // namespace Zor::inline F2d
