#pragma once

#include "kaldrix/codes/TErrorCorrectionLevel.hpp"
#include "kaldrix/codes/TModuleBits.hpp"

namespace Zor::inline Qrcode {

/// The mask patterns of QR Codes and what judges them.
class TMaskUtil {
 public:
  static constexpr int Masks = 8;

  /// Puts the mask over the data area, and its format information into the symbol.
  static TModuleBits Masked(const TModuleBits& aUnmasked, const TModuleBits& aDataArea,
                            const TErrorCorrectionLevel& aLevel, int aMask);
  /// The sum of four rules over a finished symbol: runs, blocks, patterns like finders, balance. Intended:
  /// the rule of balance yields 0 or 1, not the standard's steps of 10.
  static int CalculateMaskPenalty(const TModuleBits& aBits);
  /// The first of the masks with the lowest penalty, and the symbol with it.
  static int ChooseMaskPattern(const TModuleBits& aUnmasked, const TModuleBits& aDataArea,
                               const TErrorCorrectionLevel& aLevel, TModuleBits& aBest);
};

}  // namespace Zor::inline Qrcode
