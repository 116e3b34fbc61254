#pragma once

#include <span>
#include <vector>

#include "kaldrix/codes/TByteMatrix.hpp"
#include "kaldrix/codes/TErrorCorrectionLevel.hpp"
#include "kaldrix/codes/TModuleBits.hpp"
#include "kaldrix/codes/TVersion.hpp"

namespace Zor::inline Qrcode {

/// Where the modules of a QR Code stand.
class TMatrixUtil {
 public:
  /// What all symbols of a version share.
  struct TFrame {
    TModuleBits FPatterns;                  // function patterns and version information
    TModuleBits FDataArea;                  // 1 where data stands, and a mask applies
    std::vector<std::uint16_t> FDataOrder;  // the places of the data bits, y * TModuleBits::BitsPerRow + x
  };
  static const TFrame& Frame(int aVersion);

  /// The symbol without mask and format information.
  static TModuleBits PlaceData(const TFrame& aFrame, std::span<const std::uint8_t> aCodewords);
  static void PlaceFormat(TModuleBits& aBits, const TErrorCorrectionLevel& aLevel, int aMask);

  /// The 15 bits of the format information (ISO/IEC 18004, annex C), of a mask from 0 to 7.
  static int FormatInformation(const TErrorCorrectionLevel& aLevel, int aMask);
  /// The 18 bits of the version information (annex D), from version 7 on.
  static int VersionInformation(int aVersion);

  static TByteMatrix ToBytes(const TModuleBits& aBits);
};

}  // namespace Zor::inline Qrcode
