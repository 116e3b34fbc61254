#pragma once

#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

/// An item with a fill. Its size is that of the box of points 1 and 2.
class TKDX2DItem : public TKDXBaseItem, public IZORSize, public IZORBack {
 public:
  TKDX2DItem(TKDXBaseLabel& aOwner, TZORItemType aType, bool aPreview);
  TKDX2DItem(TKDXBaseLabel& aOwner, TZORItemType aType, TKDXLayer& aLayer, bool aPreview);

  // Fill --------------------------------------------------

  std::uint8_t Alpha() const { return static_cast<std::uint8_t>(fBackColor >> 24); }
  TAlphaColor GetBackColor() const override { return fBackColor; }
  bool GetFilled() const override { return fFill; }
  /// Recorded, not reported.
  void SetBackColor(TAlphaColor aValue) override;
  void SetFilled(bool aValue) override;

  // Size --------------------------------------------------

  /// Base points.
  Int64 BaseWidth() const override;
  Int64 BaseHeight() const override;
  /// Base points of paper.
  Int64 BaseScaleWidth() const;
  Int64 BaseScaleHeight() const;
  void SetBaseWidth(Int64 aBase) override;
  void SetBaseHeight(Int64 aBase) override;
  /// Document units.
  Single GetWidth() const override;
  Single GetHeight() const override;
  void SetWidth(Single aValue) override;
  void SetHeight(Single aValue) override;
  /// Millimetres. Intended: the drawing scale divides twice.
  Single GetWidthMM() const;
  Single GetHeightMM() const;
  /// Dots of paper.
  int WidthPx(int aDpi) const;
  int HeightPx(int aDpi) const;

  // Operations of the classes --------------------------------------------------

  using TKDXBaseItem::CheckBaseBoundsMove;
  void CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;

  TAlphaColor fBackColor = ColorWhite;
  bool fFill = true;

 protected:
  void Record(TRecord& r) override;
  /// Is there a fill that covers something?
  bool IsSolid() const { return fFill && Alpha() != 0; }
};

}  // namespace Zor::inline Base
