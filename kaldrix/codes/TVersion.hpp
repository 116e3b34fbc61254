#pragma once

#include <array>
#include <cstdint>

namespace Zor::inline Qrcode {

/// So many blocks of so many data codewords each.
struct TECB {
  int FCount, FDataCodewords;
};

/// The blocks of a symbol at level L: short ones first, then those that are a codeword longer, if any.
struct TECBlocks {
  int FECCodewordsPerBlock;
  std::array<TECB, 2> FECBlocks;

  constexpr int NumBlocks() const { return FECBlocks[0].FCount + FECBlocks[1].FCount; }
  constexpr int NumDataCodewords() const {
    return FECBlocks[0].FCount * FECBlocks[0].FDataCodewords +
           FECBlocks[1].FCount * FECBlocks[1].FDataCodewords;
  }
  constexpr int TotalECCodewords() const { return FECCodewordsPerBlock * NumBlocks(); }
};

/// What ISO/IEC 18004 fixes for a version of QR Code.
struct TVersion {
  static constexpr int Count = 40;

  int FVersionNumber;
  TECBlocks FECBlocks;
  /// Rows and columns on which the centres of alignment patterns lie; 0 behind the last.
  std::array<std::uint8_t, 7> FAlignmentPatternCenters;

  constexpr int TotalCodewords() const { return FECBlocks.NumDataCodewords() + FECBlocks.TotalECCodewords(); }
  /// Modules on a side.
  constexpr int DimensionForVersion() const { return 17 + 4 * FVersionNumber; }

  /// From 1 to 40.
  static const TVersion& GetVersionForNumber(int aNumber);
  /// The smallest that holds so many data codewords; none when version 40 does not.
  static const TVersion* ChooseVersion(std::int64_t aDataCodewords);
};

}  // namespace Zor::inline Qrcode
