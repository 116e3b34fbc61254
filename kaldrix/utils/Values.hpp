// Free functions on single values: grids, distances, resolutions, angles.
#pragma once

#include <span>
#include <string_view>

#include "kaldrix/types/TKDXBaseDraw.hpp"

namespace Zor::inline Utils {

/// The multiple of `aGrid` nearest to `aValue`; a value just halfway goes down.
/// Intended: a negative value goes to the multiple towards zero. A grid below 1 leaves the value as it is.
Int64 AdjustGrid(Int64 aValue, Int64 aGrid);

/// The next multiple of `aGrid` above `aValue`, or without `aUp` the one before it, never below zero.
Int64 AdjustGrid(Int64 aValue, Int64 aGrid, bool aUp);

/// Root of dx² + dy², whose sum is an integer, rounded; exact along an axis.
Int64 Distance(Int64 x1, Int64 y1, Int64 x2, Int64 y2);
/// Rounded to a whole number too, but for the exact difference along an axis.
Single Distance(Single x1, Single y1, Single x2, Single y2);

/// Inclusive, `a` and `b` in either order.
constexpr bool ValInRange(Int64 v, Int64 a, Int64 b) { return a <= b ? a <= v && v <= b : b <= v && v <= a; }

/// Two positions closer than this, in their own unit, are the same.
inline constexpr Single SamePointGap = 0.0001F;
inline bool SamePoint(Single a, Single b) { return std::fabs(b - a) < SamePointGap; }

/// The resolution at which positions of the screen are told, in dots per inch.
inline constexpr int ScreenDpi = 96;

/// A position told for ScreenDpi, at `dpi`.
int ScalePos(int pos, int dpi);
Single ScalePos(Single pos, int dpi);
/// A position at `dpi`, told for ScreenDpi.
int RevScalePos(int pos, int dpi);

/// 0, -90, -180, -270.
Single DegAngle(TZORAngle aAngle);
/// The same in radians.
Single PrintAngle(TZORAngle aAngle);

/// Sorts `aValues` and returns the middle one, or the mean of the two in the middle; 0 for none.
double Median(std::span<double> aValues);

/// Base points to drawing units of a surface, the product formed in integers.
Single DrawFromBaseX(Int64 aBase, const TKDXBaseDraw& drw);
Single DrawFromBaseY(Int64 aBase, const TKDXBaseDraw& drw);
/// The same, to whole dots.
Int64 PrintFromBaseX(Int64 aBase, const TKDXBaseDraw& drw);
Int64 PrintFromBaseY(Int64 aBase, const TKDXBaseDraw& drw);

/// Millimetres of paper to drawing units, never below one.
inline Single BasePtoX(Single aMM, const TKDXBaseDraw& drw) { return drw.DrawBasePtoX(aMM); }
inline Single BasePtoY(Single aMM, const TKDXBaseDraw& drw) { return drw.DrawBasePtoY(aMM); }

/// Decimal digits with blanks around them.
/// @throws EConvertError for anything else and for a number above 0xFFFFFFFF.
Cardinal StrToCardinal(std::string_view aText);

}  // namespace Zor::inline Utils
