#pragma once

#include "kaldrix/types/Records.hpp"

namespace Zor::inline Types {

/// A point in base points that may be absent. IsValid takes no part in arithmetic or comparison: a computed
/// point is not valid until it is told to be.
struct TZORBPoint {
  Int64 X = 0;
  Int64 Y = 0;
  bool IsValid = false;

  constexpr TZORBPoint() = default;
  constexpr TZORBPoint(Int64 x, Int64 y, bool aValid = false) : X(x), Y(y), IsValid(aValid) {}
  constexpr TZORBPoint(TPoint p) : X(p.X), Y(p.Y) {}

  void Define(Int64 x, Int64 y) {
    X = x;
    Y = y;
  }
  /// Sets the coordinates and makes the point valid.
  void Valid(Int64 x, Int64 y) {
    Define(x, y);
    IsValid = true;
  }
  void InValid() { IsValid = false; }

  friend TZORBPoint operator+(const TZORBPoint& a, const TZORBPoint& b) {
    return {AddHeld(a.X, b.X), AddHeld(a.Y, b.Y)};
  }
  friend TZORBPoint operator-(const TZORBPoint& a, const TZORBPoint& b) {
    return {SubHeld(a.X, b.X), SubHeld(a.Y, b.Y)};
  }
  friend TZORBPoint operator-(const TZORBPoint& p) { return {SubHeld(0, p.X), SubHeld(0, p.Y)}; }
  friend TZORBPoint operator*(const TZORBPoint& p, Single aFactor) {
    return {Round(static_cast<double>(p.X) * aFactor), Round(static_cast<double>(p.Y) * aFactor)};
  }
  friend TZORBPoint operator*(Single aFactor, const TZORBPoint& p) { return p * aFactor; }
  /// By way of the reciprocal in single precision; the point itself for 0.
  friend TZORBPoint operator/(const TZORBPoint& p, Single aDivisor) {
    if (aDivisor == 0) return p;
    return p * static_cast<Single>(1.0 / double{aDivisor});
  }
  /// As doubles: coordinates beyond 2^53 may be equal though they differ.
  friend bool operator==(const TZORBPoint& a, const TZORBPoint& b) {
    return static_cast<double>(a.X) == static_cast<double>(b.X) &&
           static_cast<double>(a.Y) == static_cast<double>(b.Y);
  }
};

}  // namespace Zor::inline Types
