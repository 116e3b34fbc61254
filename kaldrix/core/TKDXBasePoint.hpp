#pragma once

#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

/// A single point: a mark that links can be attached to. It has no SVG form.
class TKDXBasePoint : public TKDXBaseItem, public IZORLink {
 public:
  TKDXBasePoint(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBasePoint(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  // Link ends --------------------------------------------------

  /// Point 1 for every position.
  TZORBase LinkPoint(std::uint16_t aPos) const override;
  int InternalID() const override { return fInID; }
  bool CheckLink(Int64 bx, Int64 by, TZOLink& aLink) const override;

  // Operations of the classes --------------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList&, TSvgList&, TZORExportSVG, Single, bool) const override {}
  void UpdateBounds() override;
  void RotateLeft() override {}
  void RotateRight() override {}
  TZORBase CenterPoint() const override;
};

}  // namespace Zor::inline Base
