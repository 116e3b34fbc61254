#pragma once

#include "kaldrix/items/TPathItem.hpp"
#include "kaldrix/items/TTermItem.hpp"

namespace Zor::inline Line {

/// An open chain of points with a terminator at each end.
class TKDXBasePolyLine : public TPathItem<TTermItem<TKDXBaseItem>> {
 public:
  TKDXBasePolyLine(TKDXBaseLabel& aOwner, bool aPreview) : TPathItem(aOwner, itPolyLine, 0, aPreview) {}
  TKDXBasePolyLine(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TPathItem(aOwner, itPolyLine, aLayer, 0, aPreview) {}
  TKDXBasePolyLine(TKDXBaseLabel& aOwner, int aCount, bool aPreview)
      : TPathItem(aOwner, itPolyLine, aCount, aPreview) {}
  TKDXBasePolyLine(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, int aCount, bool aPreview)
      : TPathItem(aOwner, itPolyLine, aLayer, aCount, aPreview) {}

  /// Appends a point given in document units; the bounds follow.
  void AddPoint(Single x, Single y);

  // Operations of the classes -----------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;

 protected:
  void Record(TRecord& r) override;
};

}  // namespace Zor::inline Line
