#include "kaldrix/items/TCircularItem.hpp"

#include <cstdlib>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/items/ShapePaint.hpp"
#include "kaldrix/utils/TDraw2D.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Base {

Single TCircularItem::GetRadio() const { return fOwner->GetVal(fBaseRadio, false); }

void TCircularItem::SetRadio(Single aValue) { SetBaseRadio(fOwner->SetVal(aValue, false)); }

void TCircularItem::SetBaseRadio(int aBase) {
  const int radius = std::max(aBase, 0);
  if (radius == fBaseRadio) return;
  const TEdit edit(*this);
  TKDXBaseValueCmd::AddCommand(*this, 2);
  StateUpdate();
  Surround(radius, radius);
}

bool TCircularItem::Pick(Int64 ax, Int64 ay, int gap, bool aInt) const {
  if (!TKDX2DItem::Pick(ax, ay, gap, aInt)) return false;
  if (!IsSolid()) return TDraw2D::PointOnCircle(fBaseX, fBaseY, fBaseRadio, ax, ay, gap);
  const Int64 dx = std::abs(Span(fBaseX, ax)), dy = std::abs(Span(fBaseY, ay));
  if (AddHeld(dx, dy) <= AddHeld(fBaseRadio, gap)) return true;
  return WideDot(dx, dy, dx, dy) <= static_cast<Int128>(fBaseRadio) * fBaseRadio;
}

void TCircularItem::UpdateBounds() {
  TCentredItem::UpdateBounds();
  fBaseRadio = HalfWidth();
}

void TCircularItem::WriteCircle(TSvgList& svg, TZORExportSVG aExportType, Single aFactor, bool attrID,
                                TZOLineType aLineType) const {
  if (!IsPainted()) return;
  TSvgElement circle(aExportType, aFactor);
  circle.Raw("<circle").Raw(GetSVGID(attrID));
  WriteCentre(circle);
  circle.Raw(" r=\"").Val(GetMM(fBaseRadio));
  AppendPaint(circle, *this);
  circle.Raw(" stroke-width=\"").Pen(GetPenWidth()).Raw("\" ").Dash(aLineType).Raw("/>");
  svg.push_back(circle.Take());
}

}  // namespace Zor::inline Base
