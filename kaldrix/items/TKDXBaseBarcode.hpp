#pragma once

#include "kaldrix/items/TBarItem.hpp"
#include "kaldrix/types/AnsiString.hpp"
#include "kaldrix/utils/BarcodeLayout.hpp"

namespace Zor::inline Barcode {

/// A linear barcode, with its text under the bars. Point 1 is the left end, middle or right end of its upper
/// edge, as the alignment says.
///
/// The height depends on the font, which the host measures: its class overrides CalcValues and hands the
/// measures to SetMeasured, which encodes the code too. A code that the symbology cannot hold keeps a frame
/// of 60 bar widths, and nothing is drawn.
class TKDXBaseBarcode : public TBarItem, public IZORBarcode {
 public:
  TKDXBaseBarcode(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBaseBarcode(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  // Code ------------------------------------------------------------------------

  std::string GetCode() const;
  /// UTF-8. None of these is recorded.
  void SetCode(const std::string& aValue);
  TZORBarType GetBarType() const override { return fCodeType; }
  void SetCodeType(TZORBarType aValue);
  bool GetCheckSum() const { return fCheckSum; }
  void SetCheckSum(bool aValue);
  bool GetIgnoreParentheses() const { return fIgnoreParentheses; }
  void SetIgnoreParentheses(bool aValue);
  /// Is a GS1-128 that begins with a parenthesis drawn as a GS1 element string, with its separators? Then the
  /// text below keeps its parentheses. Off in a new item; not stored. A host may say so for all its items.
  virtual bool GetElementString() const { return fElementString; }
  void SetElementString(bool aValue);
  TZORCheckType GetCheckType() const { return fCheckType; }
  void SetCheckType(TZORCheckType aValue);
  AnsiString GetCCode() const override { return fCCode; }
  std::string GetDrCode() const override { return fDrCode; }
  AnsiString GetAnsiCode() const override { return fCode; }

  // Look ------------------------------------------------------------------------

  Single GetBarWidth() const override { return TBarItem::GetBarWidth(); }
  Single GetBarHeight() const override { return TBarItem::GetBarHeight(); }
  Single GetPaddingX() const override { return TBarItem::GetPaddingX(); }
  Single GetPaddingY() const override { return TBarItem::GetPaddingY(); }
  TZORAngle GetAngle() const override { return fAngle; }
  /// Wide to narrow elements. Recorded; held inside the limits of the symbology.
  Single GetFactor() const override { return fFactor; }
  void SetFactor(Single aValue) override;
  /// Not recorded. haJustify becomes haLeft.
  TZORHorzAlign GetHorzAlign() const override { return fHorzAlign; }
  void SetHorzAlign(TZORHorzAlign aValue);
  bool GetShowNumber() const override { return fShowNumber; }
  void SetShowNumber(bool aValue);
  std::string GetFontName() const override { return fFontName; }
  void SetFontName(const std::string& aValue);
  Single GetFontHeight() const override { return GetBaseValue(fFontHeight); }
  /// At least 1 mm.
  void SetFontHeight(Single aMM);
  /// Kept, without effect on the symbol. Millimetres.
  Single GetDistance() const { return GetBaseValue(fDistance); }
  void SetDistance(Single aMM);
  void SetAngle(TZORAngle aValue) override;
  /// Lengths in document units, to dots.
  Single GetDrawValue(Single aValue, int aDpi) const override;
  int GetPrintValue(Single aValue, int aDpi) const override;

  // Measuring -------------------------------------------------------------------

  /// What the host measured, base points of paper; see TKDXBaseText::SetMeasured. Encodes and updates the
  /// points.
  void SetMeasured(int aAscent, int aDescent, int aPosUnderline, int aLineSize, double aRatio);
  /// Base points of paper, padding included. With `aPrepare` a valid code is encoded and its pattern
  /// measured, else the pattern `aCode`. Stores the result.
  int BarCodeWidth(std::string_view aCode, bool aPrepare);
  int BarCodeHeight() const;
  /// What is drawn, as it stands in the SVG. Nothing for an invalid code.
  TBarcodeLayout Layout() const;

  // Operations of the classes -----------------------------------------------------

  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const override;
  void UpdatePoints() override;
  void FillData(bool aFirst) override;
  /// Also whether a reader would find the value, see ReadingOf.
  std::string ValueProblem() const override;

  // State. Lengths are base points of paper. ----------------------------------------

  AnsiString fCode;
  int fDistance = 0;
  TZORCheckType fCheckType = ctMod10;
  TZORBarType fCodeType = btCODE39;
  bool fShowNumber = true;
  bool fCheckSum = false;
  bool fIgnoreParentheses = false;
  bool fElementString = false;
  bool fIsValid = false;                 ///< whether fCode passed the test of its symbology when measured
  TZOR128AutoType f128Auto = at128None;  ///< what the last encoding chose
  std::string fFontName = "Arial";
  int fFontHeight = 3000;
  int fAscent = 2716, fDescent = 636;    ///< measured
  int fPosUnderline = 0, fLineSize = 0;  ///< measured
  double fRatio = 1;                     ///< font size to font height; measured
  AnsiString fCCode;                     ///< the code as encoded
  std::string fDrCode;                   ///< its pattern

 protected:
  void Record(TRecord& r) override;
  void AfterRead(TZORReadType aReadType) override;
  void UpdateSize() override;

 private:
  /// A code and its pattern.
  struct TEncoded {
    AnsiString code;
    std::string pattern;
    TZOR128AutoType mode = at128None;
  };

  TEncoded Encoded() const;
  bool HasElementString() const;
  bool IsCodeValid() const;
  TBarcodePlace DrawPlace() const;
  Single HeldFactor(Single aValue) const;
  void CheckFactor() { fFactor = HeldFactor(fFactor); }
  /// Takes a value that the encoding depends on.
  template <class T>
  void Recode(T& aField, const T& aValue);

  bool fStale = true;  ///< the code has changed since it was encoded
};

}  // namespace Zor::inline Barcode
