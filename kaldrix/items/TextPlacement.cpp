#include "kaldrix/items/TextPlacement.hpp"

#include <cmath>
#include <numbers>

namespace Zor::inline Text {

namespace {

/// Where content stands on an axis: by ordinal of both alignments.
enum TPlace : int { atStart, atMiddle, atEnd, atNone };
static_assert(int{haRight} == atEnd && int{haJustify} == atNone && int{vaBottom} == atEnd);

// Rectangles ------------------------------------------------------------------------

/// How far content of that size moves away from its anchor on one axis.
template <class T>
T Displacement(int aPlace, int aSign, T aSize) {
  if (aPlace == atNone) return 0;
  if (aPlace == atMiddle) return -(aSize / 2);
  return (aPlace == atEnd) == (aSign > 0) ? -aSize : 0;
}

void MoveAndSize(TZORRect& aRect, Int64 dx, Int64 dy, Int64 w, Int64 h) {
  const Int64 left = AddHeld(aRect.Left, dx), top = AddHeld(aRect.Top, dy);
  aRect = {left, top, AddHeld(left, w), AddHeld(top, h)};
}

void MoveAndSize(TRectF& aRect, Single dx, Single dy, Single w, Single h) {
  const Single left = aRect.Left + dx, top = aRect.Top + dy;
  aRect = {left, top, left + w, top + h};
}

template <class TRect, class T>
void Adjust(TRect& aRect, T w, T h, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle) {
  if (hAlign == haJustify && aAngle != ag0) return;
  const TTextFlow& flow = TextFlows[aAngle];
  const T along = Displacement(hAlign, flow.along, w), across = Displacement(vAlign, flow.across, h);
  flow.alongX ? MoveAndSize(aRect, along, across, w, h) : MoveAndSize(aRect, across, along, h, w);
}

// Origins ---------------------------------------------------------------------------

Single PaddingWay(int aPlace, int aSign, Single aPadding) {
  if (aPlace == atMiddle || aPlace == atNone) return 0;
  return (aPlace == atStart) == (aSign > 0) ? aPadding : -aPadding;
}

/// A text of that size on one axis, inside its padding.
template <class T>
void HangText(T& aOut, T aAnchor, T aPadding, T aSize, int aPlace, int aSign) {
  const T sign = static_cast<T>(aSign);
  if (aPlace == atStart) aOut = aAnchor + sign * aPadding;
  if (aPlace == atMiddle) aOut = aAnchor - sign * (aSize / 2);
  if (aPlace == atEnd) aOut = aAnchor - sign * (aSize + aPadding);
}

template <class T>
void HangTextXY(T& x, T& y, T aX, T aY, T px, T py, T w, T h, TZORHorzAlign hAlign, TZORVertAlign vAlign,
                TZORAngle aAngle) {
  const TTextFlow& flow = TextFlows[aAngle];
  HangText(flow.alongX ? x : y, flow.alongX ? aX : aY, px, w, hAlign, flow.along);
  HangText(flow.alongX ? y : x, flow.alongX ? aY : aX, py, h, vAlign, flow.across);
}

/// A block of that size on one axis, with the padding always on its first side.
void HangBlock(Single& aOut, Single aAnchor, Single aPadding, Single aSize, int aPlace, int aSign) {
  if (aPlace == atNone) return;
  const Single share = aPlace == atStart ? 0 : aPlace == atMiddle ? aSize / 2 : aSize;
  aOut = aAnchor + static_cast<Single>(aSign) * (aPadding - share);
}

// Segments --------------------------------------------------------------------------

/// From the segment to the baseline, along the normal.
template <class T>
T BaselineOffset(T a, T b, TZORTextPos aPos) {
  if (aPos == tpAbove) return -b;
  if (aPos == tpBelow) return a;
  return a - (a + b) / 2;
}

TSegmentText<double> PlaceOnSegment(double x1, double y1, double x2, double y2, double a, double b, double w,
                                    TZORTextPos aPos) {
  // The direction of reading: to the right, or upwards on a vertical segment.
  double c = 1, s = 0, angle = 0;
  const double dx = x2 - x1, dy = y2 - y1, length = std::hypot(dx, dy);
  if (dx == 0 && dy != 0) {
    c = 0;
    s = -1;
    angle = -std::numbers::pi / 2;
  } else if (dy != 0) {
    c = std::abs(dx) / length;
    s = (dx > 0 ? dy : -dy) / length;
    angle = std::atan(dy / dx);
  }
  const double middleX = x1 + dx / 2, middleY = y1 + dy / 2;
  const double offset = BaselineOffset(a, b, aPos);
  const double towards = dx * c + dy * s < 0 ? -w / 2 : w / 2;  // Half the gap, in the segment's direction.
  return {middleX - w / 2 * c - offset * s,
          middleY - w / 2 * s + offset * c,
          static_cast<Single>(angle),
          middleX - towards * c,
          middleY - towards * s,
          middleX + towards * c,
          middleY + towards * s};
}

template <class T, class TConvert>
TSegmentText<T> Converted(const TSegmentText<double>& p, TConvert aConvert) {
  return {aConvert(p.X),     aConvert(p.Y),     p.angle,          aConvert(p.gapX1),
          aConvert(p.gapY1), aConvert(p.gapX2), aConvert(p.gapY2)};
}

}  // namespace

double BelowAnchor(TZORVertAlign vAlign, double ascent, double descent) {
  return vAlign == vaTop ? ascent : vAlign == vaBottom ? -descent : (ascent - descent) / 2;
}

void AdjustRect(TZORRect& aRect, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle) {
  Adjust(aRect, aRect.GetWidth(), aRect.GetHeight(), hAlign, vAlign, aAngle);
}

void AdjustRect(TRectF& aRect, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle) {
  Adjust(aRect, aRect.Width(), aRect.Height(), hAlign, vAlign, aAngle);
}

void AdjustPos(Single px, Single py, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle, Single& x,
               Single& y) {
  const TTextFlow& flow = TextFlows[aAngle];
  (flow.alongX ? x : y) += PaddingWay(hAlign, flow.along, px);
  (flow.alongX ? y : x) += PaddingWay(vAlign, flow.across, py);
}

void DrawTxtPos(Single& x, Single& y, Single aX, Single aY, Single px, Single py, Single w, Single h,
                TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle) {
  HangTextXY(x, y, aX, aY, px, py, w, h, hAlign, vAlign, aAngle);
}

void PrintTxtPos(int& x, int& y, int aX, int aY, int px, int py, int w, int h, TZORHorzAlign hAlign,
                 TZORVertAlign vAlign, TZORAngle aAngle) {
  Int64 wideX = x, wideY = y;
  HangTextXY<Int64>(wideX, wideY, aX, aY, px, py, w, h, hAlign, vAlign, aAngle);
  x = static_cast<int>(wideX);
  y = static_cast<int>(wideY);
}

void DrawPos(Single& x, Single& y, Single aX, Single aY, Single px, Single py, Single w, Single h,
             TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle) {
  const TTextFlow& flow = TextFlows[aAngle];
  HangBlock(flow.alongX ? x : y, flow.alongX ? aX : aY, px, flow.alongX ? w : h, hAlign, flow.along);
  HangBlock(flow.alongX ? y : x, flow.alongX ? aY : aX, py, flow.alongX ? h : w, vAlign, flow.across);
}

TSegmentText<Single> PosText(Single x1, Single y1, Single x2, Single y2, Single a, Single b, Single w,
                             TZORTextPos aPos) {
  return Converted<Single>(PlaceOnSegment(x1, y1, x2, y2, a, b, w, aPos),
                           [](double v) { return static_cast<Single>(v); });
}

TSegmentText<int> PosPrintText(int x1, int y1, int x2, int y2, int a, int b, int w, TZORTextPos aPos) {
  return Converted<int>(PlaceOnSegment(x1, y1, x2, y2, a, b, w, aPos),
                        [](double v) { return static_cast<int>(Round(v)); });
}

bool PosBaseText(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 a, Int64 b, Int64 w, TZORTextPos aPos,
                 TSegmentText<Int64>& aPlace, TZORRect& aBox) {
  const Int64 offset = BaselineOffset(a, b, aPos);
  if (y1 == y2) {
    const Int64 from = x1 + (x2 - x1) / 2 - w / 2, to = from + w, baseline = y1 + offset;
    const bool forth = x1 <= x2;
    aPlace = {from, baseline, 0, forth ? from : to, y1, forth ? to : from, y1};
    aBox = {from, baseline - a, to, baseline + b};
    return true;
  }
  if (x1 != x2) return false;
  const Int64 from = y1 + (y2 - y1) / 2 + w / 2, to = from - w, baseline = x1 + offset;
  const bool forth = y1 >= y2;
  aPlace = {baseline,         from, static_cast<Single>(-std::numbers::pi / 2), x1, forth ? from : to, x1,
            forth ? to : from};
  aBox = {baseline - a, to, baseline + b, from};
  return true;
}

}  // namespace Zor::inline Text
