#pragma once

#include "kaldrix/types/TKDXBaseDraw.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Types {

/// A point of an item in base points.
struct TZORPto {
  Int64 bX = 0;
  Int64 bY = 0;

  friend constexpr bool operator==(const TZORPto&, const TZORPto&) = default;

  /// Coordinates in `aUnit`.
  void Define(Single x, Single y, TZORUnits aUnit) {
    SetBase(Utils::SetValue(x, aUnit), Utils::SetValue(y, aUnit));
  }
  void SetValues(Single x, Single y, TZORUnits aUnit) { Define(x, y, aUnit); }
  void SetX(Single x, TZORUnits aUnit) { bX = Utils::SetValue(x, aUnit); }
  void SetY(Single y, TZORUnits aUnit) { bY = Utils::SetValue(y, aUnit); }
  void Move(Single dx, Single dy, TZORUnits aUnit) {
    BaseMove(Utils::SetValue(dx, aUnit), Utils::SetValue(dy, aUnit));
  }
  Single GetX(TZORUnits aUnit) const { return GetValue(bX, aUnit); }
  Single GetY(TZORUnits aUnit) const { return GetValue(bY, aUnit); }

  /// Coordinates in base points.
  void DefineBase(Int64 x, Int64 y) { SetBase(x, y); }
  void SetBase(Int64 x, Int64 y) {
    bX = x;
    bY = y;
  }
  void SetBaseX(Int64 x) { bX = x; }
  void SetBaseY(Int64 y) { bY = y; }
  void BaseMove(Int64 dx, Int64 dy) {
    bX = AddHeld(bX, dx);
    bY = AddHeld(bY, dy);
  }
  void SetValue(const TZORPto& aPoint) { *this = aPoint; }
  void Reset() { SetBase(0, 0); }
  bool SamePto(Int64 x, Int64 y) const { return bX == x && bY == y; }

  /// Coordinates in drawing units of a surface; with a gap in base points added before the conversion.
  Single DrawX(const TKDXBaseDraw& drw) const { return drw.GetDrawX(bX); }
  Single DrawY(const TKDXBaseDraw& drw) const { return drw.GetDrawY(bY); }
  Single DrawGapX(Int64 gap, const TKDXBaseDraw& drw) const { return drw.GetDrawX(AddHeld(bX, gap)); }
  Single DrawGapY(Int64 gap, const TKDXBaseDraw& drw) const { return drw.GetDrawY(AddHeld(bY, gap)); }

  /// Coordinates in whole printer dots.
  Int64 PrintX(const TKDXBaseDraw& drw) const { return ToDots(bX, drw.fDpix, drw.fDrawScale); }
  Int64 PrintY(const TKDXBaseDraw& drw) const { return ToDots(bY, drw.fDpiy, drw.fDrawScale); }
  static Int64 GetDraw(Int64 a, Int64 b) { return Round(static_cast<double>(MulHeld(a, b)) / BaseInInch); }

  /// Drawing units back into base points.
  void SetDpIBaseX(Single aValue, int aDpi) { bX = Round(double{aValue} * BaseInInch / aDpi); }
  void SetDpIBaseY(Single aValue, int aDpi) { bY = Round(double{aValue} * BaseInInch / aDpi); }

 private:
  static Int64 ToDots(Int64 aBase, int aDpi, Int64 aScale) {
    return Round(static_cast<double>(MulHeld(aBase, aDpi)) / (static_cast<double>(aScale) * BaseInInch));
  }
};

}  // namespace Zor::inline Types
