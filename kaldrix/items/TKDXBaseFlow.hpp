#pragma once

#include <string>
#include <vector>

#include "kaldrix/items/FlowOutline.hpp"
#include "kaldrix/items/TFontFields.hpp"
#include "kaldrix/items/TStyledItem.hpp"
#include "kaldrix/types/Records.hpp"

namespace Zor::inline F2d {

/// A node of a flow chart: one of fixed outlines in the box of two points, with a text inside. Links end on
/// it.
///
/// The text is broken into lines by the host, whose class overrides CalcValues and fills aTxtPoints and the
/// metrics; the lines are kept in files, so that a reader without fonts has them.
class TKDXBaseFlow : public TStyledItem<TKDX2DItem>,
                     public TFontFields,
                     public IZORFont,
                     public IZORWidthHeight,
                     public IZORLink,
                     public IZORPadding {
 public:
  TKDXBaseFlow(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBaseFlow(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  // Shape ---------------------------------------------------------------------

  /// Document units.
  Single GetHeight() const override { return TKDX2DItem::GetHeight(); }
  Single GetWidth() const override { return TKDX2DItem::GetWidth(); }
  void SetHeight(Single aValue) override { TKDX2DItem::SetHeight(aValue); }
  void SetWidth(Single aValue) override { TKDX2DItem::SetWidth(aValue); }
  // Not recorded, up to the gradient.
  void SetFlowType(TZORFlowType aValue);
  /// Millimetres of paper.
  Single GetShadowDX() const { return GetBaseValue(fShadowDX); }
  Single GetShadowDY() const { return GetBaseValue(fShadowDY); }
  void SetShadowDX(Single aMM);
  void SetShadowDY(Single aMM);
  // These only store.
  void SetShadowColor(TAlphaColor aValue) { Keep(fShadowColor, aValue); }
  void SetGradient(TZORGradient aValue) { Keep(fGradient, aValue); }
  void SetGradColor(TAlphaColor aValue) { Keep(fGradColor, aValue); }

  // Text and font -------------------------------------------------------------

  std::string GetText() const { return fText; }
  /// Not recorded.
  void SetText(const std::string& aValue);
  Single GetScaleX() const override { return fInterline; }
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
  /// The spacing of the lines, held between 0.2 and 4; not recorded.
  void SetScaleX(Single aValue) override;
  void SetBold(bool aValue) override;
  void SetItalic(bool aValue) override;
  /// Recorded, not reported.
  void SetUnderline(bool aValue) override;
  /// Only stores.
  void SetStrikeout(bool aValue) override { Keep(fStrikeout, aValue); }
  /// Millimetres of paper, at least 0; not recorded.
  Single GetPaddingX() const override { return GetBaseValue(fPaddingX); }
  Single GetPaddingY() const override { return GetBaseValue(fPaddingY); }
  void SetPaddingX(Single aMM) override;
  void SetPaddingY(Single aMM) override;
  // Not recorded. The lines move, so they are laid out again.
  void SetHorzAlign(TZORHorzAlign aValue) { Lay(fHorzAlign, aValue); }
  void SetVertAlign(TZORVertAlign aValue) { Lay(fVertAlign, aValue); }

  /// What the lines of aTxtPoints show, without carriage returns. Lines that point outside the text are cut.
  std::vector<std::string> LineTexts() const;

  // Links -----------------------------------------------------------------------

  int InternalID() const override { return fInID; }
  /// The centre for a position that the outline does not have.
  TZORBase LinkPoint(std::uint16_t aPos) const override;
  bool CheckLink(Int64 bx, Int64 by, TZOLink& aLink) const override;

  // Operations of the classes -----------------------------------------------------

  virtual Single GetScale() const { return fInterline; }
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  /// Intended: in document units, without the drawing scale; line type, shadow and gradient are not exported.
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const override;
  TZORBase CenterPoint() const override;

  // State. Lengths are base points of paper. ----------------------------------------

  int fShadowDX = 0, fShadowDY = 0;
  int fPaddingX = 0, fPaddingY = 0;
  TAlphaColor fShadowColor = 0xFFC0C0C0;
  TZORFlowType fFlowType = ftTerminator;
  TZORHorzAlign fHorzAlign = haCenter;
  TZORVertAlign fVertAlign = vaTop;
  TZORGradient fGradient = grNone;
  TAlphaColor fGradColor = 0;                        ///< where a gradient that begins with fBackColor ends
  int fAscent = 0, fDescent = 0, fPosUnderline = 0;  ///< measured
  double fRatio = 1;                                 ///< font size to font height; measured
  std::string fText;
  /// The lines: first character (from 1) and number of characters of fText, and how far right of and below
  /// point 1 the line begins at its top, in base points of the drawn object.
  TxtLines aTxtPoints;
  Single fInterline = 1;  ///< line spacing to line height

 protected:
  void Record(TRecord& r) override;
  void AfterRead(TZORReadType aReadType) override;

 private:
  static constexpr int LeastFontHeight = 1000;  // base points

  /// Takes a value that the layout of the text depends on.
  template <class T>
  void Lay(T& aField, T aValue) {
    if (aField == aValue) return;
    const TEdit edit(*this);
    aField = std::move(aValue);
    StateCalc();
  }
  static Single HeldInterline(Single aValue);
  /// The lengths of the node as they are written: in document units, or in millimetres of paper.
  struct TSvgFrame {
    TFlowBox box;
    Single width, height, pen;
    double baseInText;  ///< base points in one of what the places of the lines count in
  };
  void WriteSvgFrame(TSvgList& svg, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const;
  void WriteSvgPart(TSvgList& svg, const TFlowElement& aPart, const TSvgFrame& aFrame,
                    const TSvgWriting& aWriting) const;
  void WriteSvgText(TSvgList& svg, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const;
};

}  // namespace Zor::inline F2d
