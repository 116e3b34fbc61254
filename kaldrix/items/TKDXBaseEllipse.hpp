#pragma once

#include "kaldrix/items/TCentredItem.hpp"
#include "kaldrix/items/TStyledItem.hpp"

namespace Zor::inline F2d {

class TKDXBaseEllipse : public TStyledItem<TCentredItem> {
 public:
  TKDXBaseEllipse(TKDXBaseLabel& aOwner, bool aPreview) : TStyledItem(aOwner, itEllipse, aPreview) {}
  TKDXBaseEllipse(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TStyledItem(aOwner, itEllipse, aLayer, aPreview) {}

  // Radii -------------------------------------------------------------------

  /// Document units; a radius below 0 becomes 0. The centre stays.
  Single GetRadioX() const;
  Single GetRadioY() const;
  void SetRadioX(Single aValue);
  void SetRadioY(Single aValue);

  // Operations of the classes -----------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void UpdateBounds() override;

  Int64 fBaseRadioX = 0, fBaseRadioY = 0;  ///< base points, as of the last UpdateBounds

 protected:
  void Record(TRecord& r) override;
  bool HasScaledLimits() const override { return true; }

 private:
  void TakeRadii(Int64 rx, Int64 ry, int aCommand);
};

}  // namespace Zor::inline F2d
