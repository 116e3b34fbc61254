// Where a text or block goes: from its anchor, alignment and angle to a rectangle or a drawing origin, and
// from a segment to the text on it. Y points down; a quarter turn is against the clock on the page.
#pragma once

#include <array>

#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/TZORRect.hpp"

namespace Zor::inline Text {

/// Which way a text runs at an angle: on which axis, and whether coordinates grow (1) or fall (-1) along the
/// text and across it, from its top to its bottom.
struct TTextFlow {
  bool alongX;
  int along;
  int across;
};
/// By ordinal of TZORAngle.
inline constexpr std::array<TTextFlow, 4> TextFlows{
    {{true, 1, 1}, {false, -1, 1}, {true, -1, -1}, {false, 1, -1}}};

/// How far below its anchor the baseline of a text lies that hangs by its top, middle or bottom; in the unit
/// of ascent and descent.
double BelowAnchor(TZORVertAlign vAlign, double ascent, double descent);

/// Places a rectangle that stands with its top left corner on the anchor, in the size that the content has at
/// ag0: turns the size and moves the rectangle to the side of the anchor that the alignments tell. Halves are
/// truncated in base points. Intended: haJustify leaves the rectangle alone at all angles but ag0.
void AdjustRect(TZORRect& aRect, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle);
void AdjustRect(TRectF& aRect, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle);

/// Moves an anchor inwards by the padding (along the text, across it), in the unit of both. Centred and
/// justified alignments add nothing.
void AdjustPos(Single px, Single py, TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle, Single& x,
               Single& y);

/// The origin of a text of size w by h (along it, across it) that hangs on the anchor (aX, aY) inside its
/// padding. haJustify leaves the coordinate along the text untouched.
void DrawTxtPos(Single& x, Single& y, Single aX, Single aY, Single px, Single py, Single w, Single h,
                TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle);
/// The same in whole dots, halves truncated.
void PrintTxtPos(int& x, int& y, int aX, int aY, int px, int py, int w, int h, TZORHorzAlign hAlign,
                 TZORVertAlign vAlign, TZORAngle aAngle);

/// The origin of a block that is w wide and h high on the page; the padding is always added on the same side.
/// haJustify leaves the coordinate along the text untouched.
void DrawPos(Single& x, Single& y, Single aX, Single aY, Single px, Single py, Single w, Single h,
             TZORHorzAlign hAlign, TZORVertAlign vAlign, TZORAngle aAngle);

/// A text on a segment: where its baseline begins, its angle in radians clockwise on the page, and the ends
/// of the gap that it leaves in the segment, the one nearer to the first point first.
template <class T>
struct TSegmentText {
  T X = 0, Y = 0;
  Single angle = 0;
  T gapX1 = 0, gapY1 = 0, gapX2 = 0, gapY2 = 0;

  friend bool operator==(const TSegmentText&, const TSegmentText&) = default;
};

/// Places a text of width w, a above and b below its baseline, in the middle of a segment: above it, below
/// it, or for the other positions on it. All in one unit.
TSegmentText<Single> PosText(Single x1, Single y1, Single x2, Single y2, Single a, Single b, Single w,
                             TZORTextPos aPos);
/// The same in whole dots, rounded to the nearest.
TSegmentText<int> PosPrintText(int x1, int y1, int x2, int y2, int a, int b, int w, TZORTextPos aPos);
/// The same in base points with the box of the text, for horizontal and vertical segments; false, with the
/// outputs untouched, for others.
bool PosBaseText(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 a, Int64 b, Int64 w, TZORTextPos aPos,
                 TSegmentText<Int64>& aPlace, TZORRect& aBox);

}  // namespace Zor::inline Text
