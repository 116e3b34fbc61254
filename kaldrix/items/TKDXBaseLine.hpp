#pragma once

#include "kaldrix/items/TStyledItem.hpp"

namespace Zor::inline Line {

/// A straight segment from point 1 to point 2.
class TKDXBaseLine : public TStyledItem<TKDXBaseItem> {
 public:
  TKDXBaseLine(TKDXBaseLabel& aOwner, bool aPreview) : TStyledItem(aOwner, itLine, aPreview) {}
  TKDXBaseLine(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TStyledItem(aOwner, itLine, aLayer, aPreview) {}

  // Operations of the classes -----------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  /// The middle of the segment.
  TZORBase CenterPoint() const override;

 protected:
  void Record(TRecord& r) override;
};

}  // namespace Zor::inline Line
