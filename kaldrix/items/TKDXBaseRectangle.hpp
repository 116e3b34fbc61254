#pragma once

#include "kaldrix/items/TStyledItem.hpp"

namespace Zor::inline F2d {

/// An axis-parallel rectangle between two opposite corners, which may be rounded.
class TKDXBaseRectangle : public TStyledItem<TKDX2DItem>, public IZORWidthHeight, public IZORRadio {
 public:
  TKDXBaseRectangle(TKDXBaseLabel& aOwner, bool aPreview) : TStyledItem(aOwner, itRectangle, aPreview) {}
  TKDXBaseRectangle(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
      : TStyledItem(aOwner, itRectangle, aLayer, aPreview) {}

  // Size and radius -----------------------------------------------------------

  /// Document units.
  Single GetHeight() const override { return TKDX2DItem::GetHeight(); }
  Single GetWidth() const override { return TKDX2DItem::GetWidth(); }
  void SetHeight(Single aValue) override { TKDX2DItem::SetHeight(aValue); }
  void SetWidth(Single aValue) override { TKDX2DItem::SetWidth(aValue); }
  Single GetRadio() const override;
  /// Held between 0 and half the height.
  void SetRadio(Single aValue) override;
  /// Base points.
  int GetBaseRadio() const override { return fRadio; }
  /// Stores without a limit.
  void SetBaseRadio(int aBase) override;
  /// Millimetres. Intended: the drawing scale divides twice.
  Single GetMMRadio() const;
  /// The radius that was set, millimetres of paper.
  Single PaperRadio() const { return FromBase(fRadio); }

  // Operations of the classes -----------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  bool CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const override;
  TZORBase CenterPoint() const override;

  int fRadio = 0;  ///< base points

 protected:
  void Record(TRecord& r) override;

 private:
  /// The radius in millimetres.
  std::string SvgRect(const TSvgWriting& aWriting, Single aRadius) const;
};

}  // namespace Zor::inline F2d
