#pragma once

#include <array>

#include "kaldrix/items/CircleGeometry.hpp"
#include "kaldrix/items/TTermItem.hpp"

namespace Zor::inline Line {

/// An arc of a circle with a terminator at each end.
///
/// It is kept as the square round its whole circle (points 1 and 2) and its angles. The points of the arc
/// follow from those, or drive them: 1 the start, 2 a point between the ends, 3 the end, 4 the middle mark at
/// the mean of both angles. Angles are radians and grow towards positive y; a clockwise arc runs from start
/// to end with growing angle.
class TKDXBaseArc : public TTermItem<TKDXBaseItem> {
 public:
  TKDXBaseArc(TKDXBaseLabel& aOwner, bool aPreview) : TTermItem(aOwner, itArc, aPreview) {}
  TKDXBaseArc(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TTermItem(aOwner, itArc, aLayer, aPreview) {}
  /// Clockwise about a centre, base points and radians.
  TKDXBaseArc(TKDXBaseLabel& aOwner, Int64 cx, Int64 cy, Int64 r, Single angStart, Single angEnd,
              bool aPreview);
  /// Through three points, base points.
  TKDXBaseArc(TKDXBaseLabel& aOwner, Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3,
              bool aPreview);

  // Circle ------------------------------------------------------------------

  // Base points, from points 1 and 2.
  Int64 BaseCenterX() const { return BoxMiddle(GetPoint(1).bX, GetPoint(2).bX); }
  Int64 BaseCenterY() const { return BoxMiddle(GetPoint(1).bY, GetPoint(2).bY); }
  Int64 BaseRadio() const { return BoxHalf(GetPoint(1).bX, GetPoint(2).bX); }

  // Points of the arc, 1-based ----------------------------------------------

  /// Points 1 to 3; (0, 0) out of range.
  TZORPto GetPto(int aIndex) const;
  /// Points 1 to 4 in document units; 0 out of range.
  Single GetPX(int aIndex) const;
  Single GetPY(int aIndex) const;
  /// Points 1 to 4 in millimetres of paper; 0 out of range.
  Single GetPtoMMX(int aIndex) const;
  Single GetPtoMMY(int aIndex) const;
  /// Points 1 to 3 in document units; the circle follows. Nothing out of range. Not recorded.
  void SetPX(int aIndex, Single aValue);
  void SetPY(int aIndex, Single aValue);
  /// Points 1 to 3 in base points; circle and bounds follow. Nothing out of range. Not recorded.
  void MoveBasePoint(int aIndex, Int64 x, Int64 y);
  /// Circle, angles, sense and bounds from points 1 to 3. Points on one line (or so near to it that the
  /// circle leaves the coordinate range) leave circle and angles as they were.
  void CalcFromPoints();

  // Operations of the classes -----------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  bool CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  /// The box of the start, the end and the middle mark; CheckFit tells the true extent.
  void UpdateBounds() override;
  void RotateLeft() override;
  void RotateRight() override;
  void BoundsMove(Single& ax, Single& ay) const override;
  using TKDXBaseItem::CheckBaseBoundsMove;
  void CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const override;
  /// The points of the arc move along, whatever edge moves.
  void BaseMove(Int64 ax, Int64 ay, Int64 grX, Int64 grY, TZORMoveOpt aMoveOp, bool aUpdate) override;
  /// The middle mark.
  /// The two ends of the arc.
  TZORPto GetRefPoint(int aIndex) const override;
  TZORBase CenterPoint() const override;
  void Move(Single ax, Single ay, TZORMoveOpt aMoveOp) override;

  double fStartAngle = 0, fEndAngle = 0;  ///< radians
  double fSweepAngle = 0;                 ///< radians; positive for a clockwise arc
  Int64 fBaseX = 0, fBaseY = 0;           ///< centre, as of the last UpdateBounds
  Int64 fBaseRadio = 0;                   ///< negative when points 1 and 2 are exchanged
  std::array<TZORPto, 4> fArcPoints{};
  bool fClockWise = false;
  bool fCalcPoints = true;  ///< the next UpdateBounds makes fArcPoints from the angles

 protected:
  void Record(TRecord& r) override;
  void AfterRead(TZORReadType aReadType) override;

 private:
  static bool HasArcPoint(int aIndex) { return aIndex >= 1 && aIndex <= 3; }
  TZORPto ArcPoint(int aIndex) const;
  TBaseCircle Circle() const { return {fBaseX, fBaseY, fBaseRadio}; }
  TZORPto MiddleMark() const;
  bool Contains(double aAngle) const;
  /// Does an arc of growing angle, as the drawing shows it, pass the angle?
  bool Passes(double aAngle) const;
  void Surround(const TBaseCircle& aCircle);
  void RefreshCircle();
  void CalcPoints();
  void ArcBounds();
  void Turn(int aQuarters);
};

}  // namespace Zor::inline Line
