#pragma once

#include "kaldrix/items/TPathItem.hpp"
#include "kaldrix/items/TStyledItem.hpp"

namespace Zor::inline F2d {

/// A closed chain of points with a fill.
class TKDXBasePolygon : public TPathItem<TStyledItem<TKDX2DItem>> {
 public:
  /// Its name is "Polygon", without a number.
  TKDXBasePolygon(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBasePolygon(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TPathItem(aOwner, itPolygon, aLayer, 0, aPreview) {}
  TKDXBasePolygon(TKDXBaseLabel& aOwner, int aCount, bool aPreview)
      : TPathItem(aOwner, itPolygon, aCount, aPreview) {}
  TKDXBasePolygon(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, int aCount, bool aPreview)
      : TPathItem(aOwner, itPolygon, aLayer, aCount, aPreview) {}

  // Operations of the classes -----------------------------------------------

  /// The inside counts with `aInt` and a fill, by the even-odd rule.
  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  /// Only moAll moves it: its points are no edges of a box.
  void Move(Single ax, Single ay, TZORMoveOpt aMoveOp) override;

 protected:
  void Record(TRecord& r) override;

 private:
  bool Holds(Int64 ax, Int64 ay) const;
};

}  // namespace Zor::inline F2d
