// The display width of a text and its handle.
#include "kaldrix/items/TKDXBaseText.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TextPlacement.hpp"
#include "kaldrix/utils/WideMath.hpp"

namespace Zor::inline Text {

namespace {

constexpr int LeastDispWidth = 1000;  // base points of paper
// Half the handle's extents across and along the text, base points.
constexpr Int64 HandleAcross = 1500;
constexpr Int64 HandleAlong = 750;

/// Shortens an edge that is longer than `aLength`.
void Shorten(Int64& aLow, Int64& aHigh, Int64 aLength, TZORHorzAlign aAlign, int aSign) {
  const Int64 cut = SubHeld(SubHeld(aHigh, aLow), aLength);
  if (cut <= 0) return;
  if (aAlign == haCenter) {
    aLow += cut / 2;
    aHigh = aLow + aLength;
  } else if ((aAlign == haRight) == (aSign < 0)) {
    aHigh -= cut;
  } else {
    aLow += cut;
  }
}

}  // namespace

void TKDXBaseText::SetDispWidth(int aBase) {
  const int width = aBase > 0 && aBase < fWidth ? aBase : 0;
  if (width == fDispWidth) return;
  const TEdit edit(*this);
  fDispWidth = width;
  StateCalc();
}

TZORRect TKDXBaseText::GetDisplayBoundsRect() const {
  TZORRect shown = fBoundsRect;
  if (!HasDisplayLimit()) return shown;
  const Int64 length = Drawn(Int64{fDispWidth} + 2 * Int64{fPaddingX});
  const TTextFlow& flow = TextFlows[fAngle];
  flow.alongX ? Shorten(shown.Left, shown.Right, length, fHorzAlign, flow.along)
              : Shorten(shown.Top, shown.Bottom, length, fHorzAlign, flow.along);
  return shown;
}

TZORRect TKDXBaseText::GetDispWidthHandleRect() const {
  const TTextFlow& flow = TextFlows[fAngle];
  const TZORPto anchor = GetPoint(1);
  const TZORBase centre = CenterPoint();
  const Int64 width = Drawn(GetEffectiveWidth());
  Int64 way = fHorzAlign == haCenter ? width / 2 : AddHeld(width, Drawn(fPaddingX));
  if ((fHorzAlign == haRight) == (flow.along > 0)) way = -way;
  TZORRect handle = flow.alongX
                        ? TZORRect{AddHeld(anchor.bX, way), centre.Y, AddHeld(anchor.bX, way), centre.Y}
                        : TZORRect{centre.X, AddHeld(anchor.bY, way), centre.X, AddHeld(anchor.bY, way)};
  flow.alongX ? handle.Inflate(HandleAlong, HandleAcross) : handle.Inflate(HandleAcross, HandleAlong);
  return handle;
}

bool TKDXBaseText::PickDispWidthHandle(Int64 bx, Int64 by, int gap) const {
  if (!aIsData) return false;
  TZORRect handle = GetDispWidthHandleRect();
  handle.Inflate(gap, gap);
  return bx >= handle.Left && bx <= handle.Right && by >= handle.Top && by <= handle.Bottom;
}

void TKDXBaseText::SetDispWidthFromMouse(Int64 bx, Int64 by) {
  const TTextFlow& flow = TextFlows[fAngle];
  const TZORPto anchor = GetPoint(1);
  const auto way = static_cast<double>(flow.alongX ? SubHeld(bx, anchor.bX) : SubHeld(by, anchor.bY));
  const double ahead = way * flow.along;
  const auto padding = static_cast<double>(Drawn(fPaddingX));
  const double length = fHorzAlign == haCenter  ? 2 * ahead
                        : fHorzAlign == haRight ? -ahead - padding
                                                : ahead - padding;
  const Int64 width = RoundHeld(length / static_cast<double>(fOwner->fMeasure->fDrawScale));
  SetDispWidth(static_cast<int>(std::clamp<Int64>(width, LeastDispWidth, std::numeric_limits<int>::max())));
}

}  // namespace Zor::inline Text
