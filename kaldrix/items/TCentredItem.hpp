#pragma once

#include "kaldrix/core/TKDX2DItem.hpp"
#include "kaldrix/items/CircleGeometry.hpp"
#include "kaldrix/items/TSvgElement.hpp"

namespace Zor::inline Base {

/// A round item about a centre, kept as the box of points 1 and 2.
class TCentredItem : public TKDX2DItem, public IZORCenter {
 public:
  using TKDX2DItem::TKDX2DItem;

  // Document units. The centre is held so that the item stays on the label, but for an undo, which brings
  // back what was.
  Single GetCenterX() const override;
  Single GetCenterY() const override;
  void SetCenterX(Single aValue) override;
  void SetCenterY(Single aValue) override;
  /// Base points.
  Int64 GetBaseCenterX() const override { return fBaseX; }
  Int64 GetBaseCenterY() const override { return fBaseY; }

  // Operations of the classes -----------------------------------------------

  /// The centre is a snap point.
  bool CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const override;
  void UpdateBounds() override;
  TZORBase CenterPoint() const override { return {fBaseX, fBaseY}; }

  Int64 fBaseX = 0, fBaseY = 0;  ///< centre, base points, as of the last UpdateBounds

 protected:
  /// Half the box, base points; not negative.
  Int64 HalfWidth() const;
  Int64 HalfHeight() const;
  /// Puts the points round the centre.
  void Surround(Int64 rx, Int64 ry);
  /// Does the drawing scale take part in the limits of the centre?
  virtual bool HasScaledLimits() const { return false; }
  /// Without a fill and a pen there is nothing to see.
  bool IsPainted() const { return fFill || fPenWidth > 0; }
  /// ` cx=".." cy=".."`, millimetres of paper.
  void WriteCentre(TSvgElement& aElement) const;

 private:
  Int64 HeldCentre(Single aValue, Int64 aHalf, TZORMeasureType aSize) const;
};

}  // namespace Zor::inline Base
