#pragma once

#include <string>
#include <string_view>

#include "kaldrix/types/BarcodeTables.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Utils {

/// A text with its check characters behind it, and these alone.
struct TDigitControl {
  std::string Code;
  std::string DC;
};

/// The engine of the linear barcodes: from a code text to a pattern of bars and spaces, in the order
/// IsValidCode, PrepareBarcode, FillBarPattern, BarCodeWidth and FillBarData. Static functions without state.
///
/// Codes are bytes of Windows-1252 (see AnsiString). Nothing raises: a code that IsValidCode refuses gives
/// some pattern of bounded size, in which characters that a symbology lacks are left out or replaced.
class TBarcode {
 public:
  TBarcode() = delete;

  // From text to pattern --------------------------------------------------------------

  /// Can the symbology hold the code? The EAN family takes codes without check digit, and shorter ones, only
  /// with `CheckSum`; parentheses are left out of a code of digits with `IgnoreParentheses`.
  static bool IsValidCode(std::string_view Cod, TZORBarType CodeType, bool CheckSum, bool IgnoreParentheses);
  /// The text to encode: padded, with check characters if `CheckSum`, which `CheckDigit` receives too.
  /// `Auto128` receives how an automatic Code 128 changes its sets, at128None for every other type.
  static std::string PrepareBarcode(std::string_view Code, TZORBarType CodeType, bool CheckSum,
                                    bool IgnoreParentheses, std::string& CheckDigit,
                                    TZOR128AutoType& Auto128);
  /// The pattern of a prepared code. With `ShowNumber` the guards of the EAN family reach down into the text.
  /// An automatic type without a mode (at128None) gives an empty pattern.
  static std::string FillBarPattern(std::string_view Code, TZORBarType CodeType, TZOR128AutoType Auto128,
                                    bool ShowNumber);
  /// The pattern of a GS1 element string (Gs1Data) in a type of GS1-128: each Gs1Separator is an FNC1. A
  /// character that a fixed set lacks is replaced as FillBarPattern does it.
  static std::string FillGs1Pattern(std::string_view Data, TZORBarType CodeType);
  /// ctMod10 and ctMod10Right weigh 3, 1, 3, ... from the right; ctMSI10 is the Luhn sum; ctMod11 gives one
  /// check of Code 11, and from 10 characters on two, of which `DC` is the second. Intended: a check of 10 is
  /// written with two characters. The other types add nothing.
  static TDigitControl CheckSumMod(std::string_view Code, TZORCheckType CheckType);

  // Measuring a pattern ---------------------------------------------------------------

  /// The width of a pattern in the unit of `BarWidth`, base points. Each wide element is rounded by itself.
  /// An invalid code takes 60 bar widths, whatever the pattern.
  static int BarCodeWidth(std::string_view Pattern, int BarWidth, Single Factor, bool IsValid);
  /// How wide an element of a pattern is (ElementWidth), and what it is: a bar (dbB), a short one that stands
  /// at the lower end (dbB2), one that reaches down into the text (dbEB), or a space (dbW, dbEW).
  static void FillBarData(char Char, TZORDrawWidth& Width, TZORDrawBar& Bar);
  /// Where the groups of digits stand, from the left edge of the pattern, in the unit of `BarWidth`: the
  /// middles of the halves, and for a digit behind the last guard the end of the pattern.
  static void Ean13Pos(std::string_view Pattern, double BarWidth, double Factor, double& Text1,
                       double& Text2);
  static void Ean8Pos(std::string_view Pattern, double BarWidth, double Factor, double& Text1, double& Text2);
  static void UPCAPos(std::string_view Pattern, double BarWidth, double Factor, double& Text1, double& Text2,
                      double& Text3);
  static void UPCEPos(std::string_view Pattern, double BarWidth, double Factor, double& Text1, double& Text2);

  // Tests of characters: an empty code passes each -----------------------------------------

  static bool OnlyCode39(std::string_view Code);
  static bool OnlyCode39Ex(std::string_view Code);
  static bool OnlyCode93(std::string_view Code);
  static bool OnlyCode93Ex(std::string_view Code);
  static bool OnlyCodabar(std::string_view Code);
  static bool OnlyCode11(std::string_view Code);
  static bool OnlyEan128A(std::string_view Code);
  static bool OnlyEan128B(std::string_view Code);
  static bool OnlyNumber(std::string_view Code);
  static bool OnlyNumberParentheses(std::string_view Code);
  static bool ValidCode128Auto(std::string_view Code);

  // Helpers ---------------------------------------------------------------------------

  /// Letters of ASCII.
  static void UpperCase(std::string& Code);
  static bool IsLowCaseLetter(char aChar) { return aChar >= 'a' && aChar <= 'z'; }
  /// A UTF-8 text with plain letters for the vowels with an acute accent, in both cases.
  static std::string RemoveAccented(std::string_view aText);
  /// Pads with "0" on the left.
  static std::string AdjustZero(std::string_view Code, std::size_t Length);
};

/// How wide an element is, in the unit of `aBarWidth`.
constexpr double ElementWidth(TZORDrawWidth aWidth, double aBarWidth, double aFactor) {
  switch (aWidth) {
    case dw1:
      return aBarWidth;
    case dw1F:
      return aBarWidth * aFactor;
    case dw2:
      return aBarWidth * 2;
    case dw3:
      return aBarWidth * 3;
    case dw4:
      return aBarWidth * 4;
    case dw32:
      return aBarWidth * 1.5;
  }
  return 0;
}

}  // namespace Zor::inline Utils
