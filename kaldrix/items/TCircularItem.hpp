#pragma once

#include <algorithm>
#include <climits>

#include "kaldrix/items/TCentredItem.hpp"

namespace Zor::inline Base {

/// A round item with one radius.
class TCircularItem : public TCentredItem, public IZORRadio {
 public:
  using TCentredItem::TCentredItem;

  /// Document units; a radius below 0 becomes 0. The centre stays.
  Single GetRadio() const override;
  void SetRadio(Single aValue) override;
  /// Base points, held at the ends of 32 bits.
  int GetBaseRadio() const override { return static_cast<int>(std::min<Int64>(fBaseRadio, INT_MAX)); }
  void SetBaseRadio(int aBase) override;

  // Operations of the classes -----------------------------------------------

  /// On the circle, or in it when the fill covers something.
  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  void UpdateBounds() override;

  Int64 fBaseRadio = 0;  ///< base points, as of the last UpdateBounds; from the width of the box

 protected:
  TBaseCircle Circle() const { return {fBaseX, fBaseY, fBaseRadio}; }
  void WriteCircle(TSvgList& svg, TZORExportSVG aExportType, Single aFactor, bool attrID,
                   TZOLineType aLineType) const;
};

}  // namespace Zor::inline Base
