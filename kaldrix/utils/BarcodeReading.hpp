// Whether a linear barcode says what was given. The engine (TBarcode) draws what its tables tell; what a
// reader of the symbology makes of that is told here, for all who have to refuse a code.
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Utils {

/// How a code is meant.
struct TBarcodeTerms {
  bool checkSum = false;           ///< a check digit is added, as TBarcode does it
  bool ignoreParentheses = false;  ///< parentheses are no part of the code
  bool padding = false;            ///< zeros may be put in front of a short code
  bool elementString = false;      ///< a GS1-128 that begins with "(" is drawn by FillGs1Pattern
};

struct TBarcodeReading {
  std::string text;     ///< what a reader tells, bytes of Windows-1252; empty where it reads nothing
  std::string problem;  ///< why that is not what was given, UTF-8; empty where it is
};

/// What a reader that keeps to the standard takes from the symbol of a code (bytes of Windows-1252). Check
/// characters that were asked for do not count as a difference, nor start and stop characters, which are no
/// part of the text. The separators of a GS1 element string are read as Gs1Separator.
TBarcodeReading ReadingOf(std::string_view aCode, TZORBarType aType, const TBarcodeTerms& aTerms);

/// The check digit that the standard asks for behind the other digits: EAN and UPC, of which UPC-E takes that
/// of the UPC-A number it stands for, and POSTNET. Nothing for other types or what is no such code.
std::string StandardCheckDigit(std::string_view aDigits, TZORBarType aType);

/// The digits of a symbol of fixed length, check digit included, else 0.
std::size_t DigitsOf(TZORBarType aType);
/// Does `checkSum` change the symbol of some code?
bool TakesCheckSum(TZORBarType aType);
/// Are there codes that get zeros in front?
bool TakesPadding(TZORBarType aType, bool aCheckSum);
inline bool IsGs1Type(TZORBarType aType) { return aType >= btEAN128A && aType <= btEAN128AUTO; }

}  // namespace Zor::inline Utils
