#pragma once

#include "kaldrix/items/TPathItem.hpp"
#include "kaldrix/items/TTermItem.hpp"

namespace Zor::inline F2d {

/// A chain of cubic curves with a terminator at each end: a start point, then two control points and an end
/// point a curve. With a fill it is closed by a straight line.
class TKDXBaseBezier : public TPathItem<TTermItem<TKDX2DItem>> {
 public:
  TKDXBaseBezier(TKDXBaseLabel& aOwner, bool aPreview) : TPathItem(aOwner, itBezier, 0, aPreview) {}
  TKDXBaseBezier(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TPathItem(aOwner, itBezier, aLayer, 0, aPreview) {}
  TKDXBaseBezier(TKDXBaseLabel& aOwner, int aCount, bool aPreview)
      : TPathItem(aOwner, itBezier, aCount, aPreview) {}
  TKDXBaseBezier(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, int aCount, bool aPreview)
      : TPathItem(aOwner, itBezier, aLayer, aCount, aPreview) {}

  // Operations of the classes -----------------------------------------------

  /// On a curve or, when filled, on the closing line; the inside is no hit.
  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  /// Only moAll moves it: its points are no edges of a box.
  void Move(Single ax, Single ay, TZORMoveOpt aMoveOp) override;

 protected:
  void Record(TRecord& r) override;
};

}  // namespace Zor::inline F2d
