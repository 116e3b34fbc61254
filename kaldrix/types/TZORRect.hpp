#pragma once

#include <algorithm>
#include <cmath>

#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Types {

/// A point with arithmetic, in base points.
struct TZORPto64 {
  Int64 X = 0;
  Int64 Y = 0;

  friend constexpr bool operator==(const TZORPto64&, const TZORPto64&) = default;
  friend TZORPto64 operator+(TZORPto64 a, TZORPto64 b) { return {AddHeld(a.X, b.X), AddHeld(a.Y, b.Y)}; }
  friend TZORPto64 operator-(TZORPto64 a, TZORPto64 b) { return {SubHeld(a.X, b.X), SubHeld(a.Y, b.Y)}; }

  TZORPto64 Add(TZORPto64 p) const { return *this + p; }
  TZORPto64 Subtract(TZORPto64 p) const { return *this - p; }
  void Offset(Int64 dx, Int64 dy) { *this = *this + TZORPto64{dx, dy}; }
  void Offset(TZORPto64 p) { *this = *this + p; }
  void SetLocation(Int64 x, Int64 y) { *this = {x, y}; }
  bool IsZero() const { return X == 0 && Y == 0; }
  static TZORPto64 Zero() { return {}; }

  /// Euclidean, not rounded.
  double Distance(TZORPto64 p) const {
    return std::hypot(static_cast<double>(X) - static_cast<double>(p.X),
                      static_cast<double>(Y) - static_cast<double>(p.Y));
  }
  /// Direction from `p` to this point, radians.
  Single Angle(TZORPto64 p) const {
    return static_cast<Single>(std::atan2(static_cast<double>(Y) - static_cast<double>(p.Y),
                                          static_cast<double>(X) - static_cast<double>(p.X)));
  }
  static bool PointInCircle(TZORPto64 p, TZORPto64 aCentre, Int64 aRadius) {
    return static_cast<double>(aRadius) >= p.Distance(aCentre);
  }
};

/// A rectangle in base points.
struct TZORRect {
  Int64 Left = 0;
  Int64 Top = 0;
  Int64 Right = 0;
  Int64 Bottom = 0;

  friend constexpr bool operator==(const TZORRect&, const TZORRect&) = default;

  TZORPto64 TopLeft() const { return {Left, Top}; }
  TZORPto64 BottomRight() const { return {Right, Bottom}; }

  /// Half-open: the right and bottom edges are outside.
  bool Contains(Int64 x, Int64 y) const { return x >= Left && x < Right && y >= Top && y < Bottom; }
  bool Contains(TZORPto64 p) const { return Contains(p.X, p.Y); }
  /// Closed: shared edges are inside.
  bool Contains(const TZORRect& r) const {
    return r.Left >= Left && r.Right <= Right && r.Top >= Top && r.Bottom <= Bottom;
  }
  /// Strict overlap on both axes: touching is none, and so is a rectangle without extent on an edge.
  bool IntersectsWith(const TZORRect& r) const {
    return Left < r.Right && r.Left < Right && Top < r.Bottom && r.Top < Bottom;
  }
  bool IsEmpty() const { return Right <= Left || Bottom <= Top; }

  static constexpr TZORRect Empty() { return {0, 0, 0, 0}; }
  /// The reset value of a bounds rectangle, where -1 means not set.
  static constexpr TZORRect EmptyRect() { return {-1, -1, -1, -1}; }

  Int64 GetWidth() const { return SubHeld(Right, Left); }
  Int64 GetHeight() const { return SubHeld(Bottom, Top); }
  void SetWidth(Int64 aWidth) { Right = AddHeld(Left, aWidth); }
  void SetHeight(Int64 aHeight) { Bottom = AddHeld(Top, aHeight); }
  void Inflate(Int64 dx, Int64 dy) { Inflate(dx, dy, dx, dy); }
  void Inflate(Int64 l, Int64 t, Int64 r, Int64 b) {
    *this = {SubHeld(Left, l), SubHeld(Top, t), AddHeld(Right, r), AddHeld(Bottom, b)};
  }
  void Offset(Int64 dx, Int64 dy) {
    *this = {AddHeld(Left, dx), AddHeld(Top, dy), AddHeld(Right, dx), AddHeld(Bottom, dy)};
  }
  void NormalizeRect() {
    if (Top > Bottom) std::swap(Top, Bottom);
    if (Left > Right) std::swap(Left, Right);
  }

  /// The overlap; all zero and false when there is none.
  static bool IntersectRect(TZORRect& aOut, const TZORRect& a, const TZORRect& b) {
    aOut = {(std::max)(a.Left, b.Left), (std::max)(a.Top, b.Top), (std::min)(a.Right, b.Right),
            (std::min)(a.Bottom, b.Bottom)};
    if (!aOut.IsEmpty()) return true;
    aOut = Empty();
    return false;
  }
  /// `a` widened by `b` where `b` is not empty; all zero and false when the result is empty.
  static bool UnionRect(TZORRect& aOut, const TZORRect& a, const TZORRect& b) {
    aOut = a;
    if (!b.IsEmpty()) {
      aOut = {(std::min)(a.Left, b.Left), (std::min)(a.Top, b.Top), (std::max)(a.Right, b.Right),
              (std::max)(a.Bottom, b.Bottom)};
    }
    if (!aOut.IsEmpty()) return true;
    aOut = Empty();
    return false;
  }
  TZORRect Intersect(const TZORRect& r) const {
    TZORRect out;
    IntersectRect(out, *this, r);
    return out;
  }
  TZORRect Union(const TZORRect& r) const {
    TZORRect out;
    UnionRect(out, *this, r);
    return out;
  }
  friend TZORRect operator*(const TZORRect& a, const TZORRect& b) { return a.Intersect(b); }
  friend TZORRect operator+(const TZORRect& a, const TZORRect& b) { return a.Union(b); }
};

}  // namespace Zor::inline Types
