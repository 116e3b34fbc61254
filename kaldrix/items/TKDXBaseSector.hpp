#pragma once

#include "kaldrix/items/TCircularItem.hpp"
#include "kaldrix/items/TStyledItem.hpp"

namespace Zor::inline F2d {

/// A slice of a disc. Its points are the corners of the square round the whole circle; angles are degrees and
/// grow towards positive y.
class TKDXBaseSector : public TStyledItem<TCircularItem>, public IZORAngle {
 public:
  TKDXBaseSector(TKDXBaseLabel& aOwner, bool aPreview) : TStyledItem(aOwner, itSector, aPreview) {}
  TKDXBaseSector(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TStyledItem(aOwner, itSector, aLayer, aPreview) {}

  // Angles ------------------------------------------------------------------

  Single GetAngleStart() const { return fAngleStart; }
  Single GetAngleGap() const { return fAngleGap; }
  /// Held between -359 and 360. Reported, not recorded.
  void SetAngleStart(Single aValue);
  /// The sweep: at least 0, and at most what |start| leaves of 360. Reported, not recorded.
  void SetAngleGap(Single aValue);
  /// Makes fCalcStart: the start as the item is turned.
  void AdjustStartAngle();
  TZORAngle GetAngle() const override { return TKDXBaseItem::GetAngle(); }
  void SetAngle(TZORAngle aValue) override;

  // Operations of the classes -----------------------------------------------

  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void RotateLeft() override;
  void RotateRight() override;

  Single fAngleStart = 0;
  Single fAngleGap = 0;
  Single fCalcStart = 0;

 protected:
  void Record(TRecord& r) override;
  void AfterRead(TZORReadType aReadType) override;

 private:
  bool IsWhole() const { return fAngleGap == 360; }
  /// Where the outline meets the circle, radians.
  double FirstAngle() const;
  double LastAngle() const;
};

}  // namespace Zor::inline F2d
