#pragma once

#include <limits>

#include "kaldrix/core/TKDX2DItem.hpp"
#include "kaldrix/items/TDataItem.hpp"

namespace Zor::inline Barcode {

/// Sizes of a new barcode and the least that it takes, base points.
struct TBarSizes {
  int leastWidth, leastHeight;
  int width, height;
  int paddingX, paddingY;
  Single factor;
};

/// What all barcodes share: a symbol that hangs on point 1, turned in quarters, as large as its content asks.
/// Point 2 follows from the size; it is no handle, and width and height cannot be set.
///
/// Lengths of the interfaces are millimetres of paper.
class TBarItem : public TDataItem<TKDX2DItem>, public IZORAngle, public IZORPadding, public IZORBar1D2D {
 public:
  // Sizes -----------------------------------------------------------------------

  Single GetBarWidth() const override { return GetBaseValue(fBarWidth); }
  Single GetBarHeight() const override { return GetBaseValue(fBarHeight); }
  Single GetFactor() const override { return fFactor; }
  /// Recorded; raised to the least of the class.
  void SetBarWidth(Single aMM) override;
  void SetBarHeight(Single aMM) override;
  Single GetPaddingX() const override { return GetBaseValue(fPaddingX); }
  Single GetPaddingY() const override { return GetBaseValue(fPaddingY); }
  /// At least 0; not recorded.
  void SetPaddingX(Single aMM) override;
  void SetPaddingY(Single aMM) override;

  // Placement -------------------------------------------------------------------

  TZORAngle GetAngle() const override { return fAngle; }
  void SetAngle(TZORAngle aValue) override;

  /// Nothing: the size follows from the symbol.
  void SetBaseWidth(Int64 /*aBase*/) override {}
  void SetBaseHeight(Int64 /*aBase*/) override {}
  void SetWidth(Single /*aValue*/) override {}
  void SetHeight(Single /*aValue*/) override {}

  // Data ------------------------------------------------------------------------

  /// Not recorded.
  void SetData(TZORFillType aType, const std::string& aName, const std::string& aFormat) override;

  // Operations of the classes -----------------------------------------------------

  using TKDXBaseItem::CheckBaseBoundsMove;
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const override;
  /// Puts point 2 in its place too.
  void UpdateBounds() override;
  void UpdatePoints() override;
  void RotateLeft() override;
  void RotateRight() override;
  /// Both by the bounds: point 2 lies outside a symbol that is turned or not left-aligned.
  void BoundsMove(Single& ax, Single& ay) const override;
  void CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const override;
  TZORBase CenterPoint() const override;

  // State. Lengths are base points of paper. ----------------------------------------

  int fBarWidth, fBarHeight;
  int fPaddingX, fPaddingY;  ///< along the text of the symbol, across it
  Single fFactor;
  TZORHorzAlign fHorzAlign = haLeft;
  TZORVertAlign fVertAlign = vaTop;
  int fBarCodeWidth = 0, fBarCodeHeight = 0;  ///< of the whole symbol with padding

 protected:
  TBarItem(TKDXBaseLabel& aOwner, TZORItemType aType, const TBarSizes& aSizes, bool aPreview);
  TBarItem(TKDXBaseLabel& aOwner, TZORItemType aType, const TBarSizes& aSizes, TKDXLayer& aLayer,
           bool aPreview);

  /// Measures the symbol, then updates the points.
  virtual void UpdateSize() = 0;
  /// Brings the other size along after width or height changed.
  virtual void TieHeight() {}
  virtual void TieWidth() {}

  void AfterRead(TZORReadType aReadType) override;
  /// Takes a value that the size depends on; reported, not recorded.
  template <class T>
  void Place(T& aField, T aValue) {
    if (aField == aValue) return;
    const TEdit edit(*this);
    aField = aValue;
    StateUpdate();
    UpdateSize();
  }
  /// The background, if there is one.
  void WriteSvgBack(TSvgList& svg, TZORExportSVG aExportType, Single aFactor) const;
  /// Millimetres of paper, exactly.
  double ExactMM(Int64 aBase) const;
  static int HeldInt(Int64 aValue);
  /// A justified symbol hangs as one on the left does.
  TZORHorzAlign BlockAlign() const { return fHorzAlign == haJustify ? haLeft : fHorzAlign; }
  int LeastBarWidth() const { return fSizes->leastWidth; }
  int LeastBarHeight() const { return fSizes->leastHeight; }

 private:
  void TakeSizes();

  const TBarSizes* fSizes;
};

}  // namespace Zor::inline Barcode
