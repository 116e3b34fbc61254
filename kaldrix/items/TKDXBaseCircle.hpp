#pragma once

#include "kaldrix/items/TCircularItem.hpp"
#include "kaldrix/items/TStyledItem.hpp"

namespace Zor::inline F2d {

class TKDXBaseCircle : public TStyledItem<TCircularItem> {
 public:
  TKDXBaseCircle(TKDXBaseLabel& aOwner, bool aPreview) : TStyledItem(aOwner, itCircle, aPreview) {}
  TKDXBaseCircle(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TStyledItem(aOwner, itCircle, aLayer, aPreview) {}

  // Operations of the classes -----------------------------------------------

  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  bool CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;

 protected:
  void Record(TRecord& r) override;
};

}  // namespace Zor::inline F2d
