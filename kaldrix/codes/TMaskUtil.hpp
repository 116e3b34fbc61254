#pragma once

#include "kaldrix/codes/TErrorCorrectionLevel.hpp"
#include "kaldrix/codes/TModuleBits.hpp"

namespace Zor::inline Qrcode {

/// The mask patterns of QR Codes and what judges them.
class TMaskUtil {
 public:
  static constexpr int Masks = 8;

  /// Turns the modules of the data area on which the mask lies; a second time takes it off again.
  static void Mask(TModuleBits& aBits, const TModuleBits& aDataArea, int aMask);
  /// The sum of four rules over a finished symbol: runs, blocks, patterns like finders, balance. Intended:
  /// the rule of balance yields 0 or 1, not the standard's steps of 10.
  static int CalculateMaskPenalty(const TModuleBits& aBits);
  /// Finishes a symbol with the first of the masks with the lowest penalty, which comes back.
  static int ChooseMaskPattern(TModuleBits& aBits, const TModuleBits& aDataArea,
                               const TErrorCorrectionLevel& aLevel);
};

}  // namespace Zor::inline Qrcode
