#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Pdf417 {

/// The codewords of a symbol: 0 is the symbol length descriptor, data begins at 1, check words follow.
using TCodeWords = std::array<std::uint16_t, 2701>;

/// Widths in modules of bars and spaces in turn, a bar first; 17 modules in all.
using TPdf417Widths = std::array<std::uint8_t, 8>;

/// Encodes texts in PDF417 (ISO/IEC 15438). All failures raise Exception "PDF417 Encode Error" if nothing
/// else is said.
class TPDF417 {
 public:
  static constexpr int MaxCols = 30, MaxRows = 90;
  /// As many codewords as a symbol may have, with descriptor, padding and check words.
  static constexpr int MaxCodewords = 928;

  /// The pad codeword, which also latches text compaction.
  static constexpr std::uint16_t PadWord = 900;

  // Text to codewords --------------------------------------------------

  /// Makes all words pad codewords, as a new symbol begins.
  static void Reset(TCodeWords& aWords);
  /// Writes the data codewords of a text from index 1 on; the other words stay. False, with a count of 1, for
  /// a text of which GetValid leaves nothing. A failure leaves words and count as they were: no room for the
  /// data, an escape beyond its range; EConvertError for an escape without its digits.
  static bool Encode(TCodeWords& aWords, std::string_view aCode);
  /// Descriptor and data codewords of the last Encode in this thread.
  static int UsedCodeWords();
  /// The bytes 32 to 126 of the text.
  static std::string GetValid(std::string_view aCode);
  /// Is there a backslash that is read as the beginning of an escape?
  static bool HasEscape(std::string_view aCode);

  // Level and size --------------------------------------------------

  /// The level in force, 0 to 8; `Auto` goes by UsedCodeWords.
  static int GetCorrecLevel(TZORPdf417CorrectionLevel aCorrecL);
  /// Codewords for error correction at a level: 2 to the power of level + 1.
  static constexpr int NumErrorCWords(int aLevel) { return 2 << aLevel; }
  /// Finds columns and rows for the codewords; a wish (`aCols`, `aRows`) of 0 is free. Fails when the data
  /// does not fit the wishes, or the symbol has more than MaxCodewords; the first two then stay.
  static void AdjustSize(std::int16_t& aXCount, std::int16_t& aYCount, int aNumErrorCWords, int aUsedCWords,
                         int aCols, int aRows);
  /// Writes `aECCLen` check words (2, 4, 8, ... 512) behind the first `aNumCodewords` words; the rest becomes
  /// 0. Fails when there is no room, or a word is no codeword.
  static void CalculateECC(TCodeWords& aWords, int aNumCodewords, int aECCLen);

  // Drawing --------------------------------------------------

  /// The widths of a codeword (0 to 928) in row `aRow`, 0-based, whose cluster is aRow mod 3. Raises
  /// EArgumentOutOfRangeException outside those.
  static const TPdf417Widths& Widths(int aRow, int aCodeword);
  /// The same as modules, the first in the highest of 17 bits, a bar is 1.
  static std::uint32_t Modules(int aRow, int aCodeword);
  /// The codewords beside row `aRow` (0-based) of a symbol of so many rows, data columns and level.
  static int LeftIndicator(int aRow, int aRows, int aCols, int aLevel);
  static int RightIndicator(int aRow, int aRows, int aCols, int aLevel);
  static constexpr TPdf417Widths StartPattern{8, 1, 1, 1, 1, 1, 1, 3};
  static constexpr std::array<std::uint8_t, 9> StopPattern{7, 1, 1, 3, 1, 1, 1, 2, 1};
};

}  // namespace Zor::inline Pdf417
