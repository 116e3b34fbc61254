#pragma once

#include "kaldrix/items/TDataItem.hpp"
#include "kaldrix/items/TFontFields.hpp"
#include "kaldrix/types/Records.hpp"

namespace Zor::inline Text {

/// A text of one line, anchored at point 1, turned in quarters and possibly bound to a data field.
///
/// The bounds come from anchor, alignments and the measured size. Measuring is the host's: its class
/// overrides CalcValues, measures the text and hands the result to SetMeasured; it supplies GetScale too.
/// Until then a text has no size beyond its padding. Point 2 follows point 1 and the size; it is no handle.
class TKDXBaseText : public TDataItem<TKDXBaseItem>,
                     public TFontFields,
                     public IZORText,
                     public IZORFont,
                     public IZORRadio,
                     public IZORAngle,
                     public IZORPadding,
                     public IZORAlign,
                     public IZORBack {
 public:
  TKDXBaseText(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBaseText(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  // Text and font -------------------------------------------------------------

  std::string GetText() const override { return fText; }
  /// Recorded. A text that is not empty replaces an active binding. A selected text is measured by whoever
  /// edits it.
  void SetText(const std::string& aValue) override;

  int Style() const override;
  std::string FName() const override { return fFontName; }
  bool IsBold() const override { return fBold; }
  bool IsItalic() const override { return fItalic; }
  bool IsUnderline() const override { return fUnderline; }
  bool IsStrikeOut() const override { return fStrikeout; }
  Single GetHeight() const override { return GetFontHeight(); }
  TZORSPoint Position(const TKDXBaseDraw& drw) const override;
  TAlphaColor FAColor() const override { return fColor; }

  Single GetScaleX() const override { return fScaleX; }
  std::string GetFontName() const override { return fFontName; }
  Single GetFontHeight() const override { return GetBaseValue(fFontHeight); }
  bool GetBold() const override { return fBold; }
  bool GetItalic() const override { return fItalic; }
  bool GetUnderline() const override { return fUnderline; }
  TAlphaColor GetFontColor() const override { return fFontColor; }
  void SetFontName(const std::string& aValue) override;
  /// Recorded, not reported.
  void SetFontColor(TAlphaColor aValue) override;
  /// Raised to 1 mm; not recorded.
  void SetFontHeight(Single aMM) override;
  /// Held between 0.4 and 2; not recorded.
  void SetScaleX(Single aValue) override;
  void SetBold(bool aValue) override;
  void SetItalic(bool aValue) override;
  /// Recorded, not reported.
  void SetUnderline(bool aValue) override;
  /// Not recorded.
  void SetStrikeout(bool aValue) override;

  // Data ----------------------------------------------------------------------

  /// Binds the text to a field and shows the field's name. The marker of a pick-list line (@ { ~ = ?) at the
  /// beginning of the name decides the kind before `aType` does; a name with the text for "unassigned" in it
  /// takes the binding away. Not recorded.
  void SetData(TZORFillType aType, const std::string& aName, const std::string& aFormat) override;

  // Background, padding, placement ----------------------------------------------

  TAlphaColor GetBackColor() const override { return fBackColor; }
  bool GetFilled() const override { return fFill; }
  /// Recorded, not reported.
  void SetBackColor(TAlphaColor aValue) override;
  void SetFilled(bool aValue) override;
  /// Millimetres. Held between 0 and half the height, which has no say while the text is not measured.
  Single GetRadio() const override { return GetBaseValue(fRadio); }
  void SetRadio(Single aMM) override;
  /// Base points, at least 0, without another limit.
  int GetBaseRadio() const override { return fRadio; }
  void SetBaseRadio(int aBase) override;
  TZORAngle GetAngle() const override { return fAngle; }
  void SetAngle(TZORAngle aValue) override;
  /// Millimetres of paper, at least 0; not recorded.
  Single GetPaddingX() const override { return GetBaseValue(fPaddingX); }
  Single GetPaddingY() const override { return GetBaseValue(fPaddingY); }
  void SetPaddingX(Single aMM) override;
  void SetPaddingY(Single aMM) override;
  /// Not recorded.
  TZORHorzAlign GetHorzAlign() const override { return fHorzAlign; }
  TZORVertAlign GetVertAlign() const override { return fVertAlign; }
  void SetHorzAlign(TZORHorzAlign aValue) override;
  void SetVertAlign(TZORVertAlign aValue) override;

  // Measured size ---------------------------------------------------------------

  /// What the host measured, in base points of paper: size, distances of the baseline from top and bottom, of
  /// the underline from the baseline, and font size to font height. Updates the bounds.
  void SetMeasured(int aWidth, int aHeight, int aAscent, int aDescent, int aPosUnderline, double aRatio);

  // Display width: keeps the place that a long data value takes -------------------

  /// Base points of paper.
  int GetEffectiveWidth() const { return HasDisplayLimit() ? fDispWidth : fWidth; }
  /// Base points of paper; a value that is no limit for the measured width switches it off. Not recorded.
  void SetDispWidth(int aBase);
  /// The bounds, shortened along the text to the limit; the anchored edge keeps its place.
  TZORRect GetDisplayBoundsRect() const;
  /// The handle at the free end of the effective width. Base points.
  TZORRect GetDispWidthHandleRect() const;
  /// Only a text that shows data has the handle. `gap` is a tolerance in base points.
  bool PickDispWidthHandle(Int64 bx, Int64 by, int gap) const;
  /// Takes the display width from a position of the handle, base points; at least 1 mm.
  void SetDispWidthFromMouse(Int64 bx, Int64 by);

  // Operations of the classes -----------------------------------------------------

  using TKDXBaseItem::CheckBaseBoundsMove;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  /// With the padding as it was set and, under a display width, a background of that width and the text cut
  /// at it.
  void WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const override;
  void UpdateBounds() override;
  /// Raises EArgumentException for a value of more than MostValue bytes, which would take seconds to measure.
  void FillData(bool aFirst) override;
  static constexpr std::size_t MostValue = std::size_t{1} << 20;
  void BoundsMove(Single& ax, Single& ay) const override;
  /// Intended: by the bounds, not by the points, since point 2 lies outside a text that is not left-aligned.
  void CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const override;
  TZORBase CenterPoint() const override;

  // State. Lengths are base points of paper. ----------------------------------------

  TAlphaColor fBackColor = ColorWhite;
  bool fFill = false;  ///< the background is filled
  int fRadio = 0;      ///< corners of the background
  std::string fText;   ///< as shown
  TZORHorzAlign fHorzAlign = haLeft;
  TZORVertAlign fVertAlign = vaTop;
  int fPaddingX = 0, fPaddingY = 0;                  ///< along the text, across it
  int fAscent = 0, fDescent = 0, fPosUnderline = 0;  ///< measured
  int fWidth = 0, fHeight = 0;                       ///< measured
  Single fScaleX = 1;                                ///< of the glyphs
  double fRatio = 1;                                 ///< font size to font height; measured
  std::string dText;   ///< as designed: the name of the bound field, else the text
  int fDispWidth = 0;  ///< 0: none

 protected:
  void Record(TRecord& r) override;
  void AfterRead(TZORReadType aReadType) override;

 private:
  static constexpr int LeastFontHeight = 1000;  // base points
  static constexpr Single LeastScale = 0.4F, MostScale = 2.0F;

  /// Held between LeastScale and MostScale.
  static Single HeldScale(Single aValue);
  /// A length on paper, in base points of the drawn object.
  Int64 Drawn(Int64 aPaper) const;
  /// Takes a value that the bounds depend on.
  template <class T>
  void Place(T& aField, T aValue);
  bool HasDisplayLimit() const { return fDispWidth >= 1 && fDispWidth < fWidth; }
  void SetPadding(int& aField, Single aMM);
  /// Makes dText and aIsData from text and binding.
  void UpdateBinding();
  /// The background; its radius as it is written.
  void WriteSvgBack(TSvgList& svg, const TZORRect& aRect, Single aRadius, const TSvgWriting& aWriting) const;
  /// The text element; the padding in millimetres.
  std::string SvgText(const TSvgWriting& aWriting, Single aPaddingX, Single aPaddingY) const;
};

}  // namespace Zor::inline Text
