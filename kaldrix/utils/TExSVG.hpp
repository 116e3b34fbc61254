#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kaldrix/types/AnsiString.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Types {
class IZORBarcode;
}

namespace Zor::inline Utils {

struct TBarRect;

/// The shared conventions of SVG output: how numbers, colours, dashes, font styles, texts and terminators are
/// written. Static functions without state. Attributes begin with a blank. The decimal separator is a
/// point whatever the locale; numbers round half away from zero (see AppendFixed).
///
/// What does not fit a constant comes in two forms: one returns a string, the other, `Append...`,
/// appends to a buffer; drawings of a million items use the second.
class TExSVG {
 public:
  TExSVG() = delete;

  // Numbers

  /// The number v that `aValue` is in a mode: itself, or times `aFactor` in svFactor and svFactorPx. Without
  /// decimals if v is whole, otherwise with two: 12 is "12", 12.5 "12.50", 12.004 "12.00".
  static std::string GetVal(double aValue, double aFactor, TZORExportSVG aExportType);
  static void AppendVal(std::string& aOut, double aValue, double aFactor, TZORExportSVG aExportType);
  /// The number for a unit: without decimals if whole, else with two for unMM and three for every other.
  static std::string GetVal(double aValue, TZORUnits aUnit);
  static void AppendVal(std::string& aOut, double aValue, TZORUnits aUnit);
  /// A number with its unit behind it in svCurrentUnit and svFactor, without in the others; decimals are 0 if
  /// whole, else 1 for unMM (2 in svFactorPx) and 2. Units beyond unMM, unINCH and unCM give an empty
  /// text, but for svFactorPx.
  static std::string GetValUnit(double aValue, double aFactor, TZORUnits aUnit, TZORExportSVG aExportType);
  static void AppendValUnit(std::string& aOut, double aValue, double aFactor, TZORUnits aUnit,
                            TZORExportSVG aExportType);
  /// Radians to degrees, one decimal.
  static std::string GetDegAngle(double aValue);
  static void AppendDegAngle(std::string& aOut, double aValue);
  /// The value of stroke-width for a pen in mm: one decimal if not whole, no unit, never times the factor.
  static void AppendPen(std::string& aOut, double aPenWidth);

  // Attributes

  /// ` stroke="#RRGGBB"`, and ` stroke-opacity="a"` with one decimal when the colour is not opaque.
  static std::string GetLineColor(TAlphaColor aValue);
  static void AppendLineColor(std::string& aOut, TAlphaColor aValue);
  /// ` fill="#RRGGBB"`, and ` fill-opacity="a"` when the colour is not opaque; ` fill="none"` when not
  /// filled.
  static std::string GetFillColor(TAlphaColor aValue, bool aFilled);
  static void AppendFillColor(std::string& aOut, TAlphaColor aValue, bool aFilled);
  /// The dash attribute with a blank at each end; empty for iiSolid. ii12 is written as ii21 is.
  static std::string_view GetLineStyle(TZOLineType aLineType);
  /// The line cap attribute with a blank at each end.
  static std::string_view GetCap(bool aRound);
  /// What follows the font family's name directly: it closes that attribute's quote and leaves its own last
  /// one open for the text that follows. Empty for a plain font, whose quote that text closes.
  static std::string_view GetTextStyle(bool aBold, bool aItalic, bool aUnderline);

  // Units and text

  /// "mm", "in", "cm", "dm", "m", "ft", "yd".
  static std::string_view GetUnit(TZORUnits aUnit);
  /// The reverse, ignoring case; unMM for an unknown text.
  static TZORUnits GetUnit(std::string_view aText);

  /// The text with & " < > as entities; the apostrophe stays. Characters that XML 1.0 (section 2.2) forbids,
  /// such as controls other than tab, LF and CR, are dropped; bytes that are not UTF-8 become U+FFFD.
  static std::string ScapeText(std::string_view aText);
  static void AppendScapedText(std::string& aOut, std::string_view aText);

  // Terminators

  /// The elements of a terminator of size `aTerm` at the tip p1; empty for ttNone. An arrow's
  /// wings open by pi / aOpen to each side of the direction from p2 to p1 or, with aIsArc, of the angle p2x
  /// (radians); their length is aTerm rounded to a whole number, ties to even. Several elements are
  /// joined by CR LF. `aPenWidth` is in mm.
  static std::string DrawTerm(TZORTermType aType, TZORExportSVG aExportType, double aP1X, double aP1Y,
                              double aP2X, double aP2Y, double aPenWidth, double aFactor, double aTerm,
                              TAlphaColor aColor, TAlphaColor aFillColor, int aOpen, bool aIsArc);
  static void AppendTerm(std::string& aOut, TZORTermType aType, TZORExportSVG aExportType, double aP1X,
                         double aP1Y, double aP2X, double aP2Y, double aPenWidth, double aFactor,
                         double aTerm, TAlphaColor aColor, TAlphaColor aFillColor, int aOpen, bool aIsArc);

  // Barcodes

  /// One rect an entry of `aBars`, joined by CR LF to what is in `aOut`.
  static void AppendBars(std::string& aOut, std::span<const TBarRect> aBars, TAlphaColor aColor,
                         double aFactor, TZORExportSVG aExport);
  /// The elements of a linear barcode, joined by CR LF: a rect a bar, then the texts. `aWi` is the length of
  /// the symbol along its text in base points of the drawn object, `aDS` the drawing scale, `aPCode` the
  /// prepared code and `aDrPCode` its pattern. The anchor and the padding are millimetres of paper, `aRat` is
  /// font size to font height. With `aAscent`, millimetres, the texts stand on their baseline and name no
  /// edge.
  static std::string Barcode(const IZORBarcode& aBarcode, TAlphaColor aColor, Int64 aWi, Int64 aDS,
                             const AnsiString& aPCode, std::string_view aDrPCode, double aFactor,
                             double aPosX, double aPosY, double aPadX, double aPadY, double aRat,
                             TZORExportSVG aExport, std::optional<double> aAscent = std::nullopt);
};

}  // namespace Zor::inline Utils
