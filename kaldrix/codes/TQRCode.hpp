#pragma once

#include <cstdint>

#include "kaldrix/codes/TByteMatrix.hpp"
#include "kaldrix/codes/TErrorCorrectionLevel.hpp"

namespace Zor::inline Qrcode {

/// Modes of ISO/IEC 18004; only numeric, alphanumeric and byte are written.
enum TMode : std::uint8_t {
  qmTerminator,
  qmNumeric,
  qmAlphanumeric,
  qmStructuredAppend,
  qmByte,
  qmECI,
  qmKanji,
  qmFNC1FirstPosition,
  qmFNC1SecondPosition,
  qmHanzi
};

/// A finished symbol and how it came about.
struct TQRCode {
  TMode FMode = qmTerminator;
  TErrorCorrectionLevel FECLevel;
  int FVersion = 0;       // 1 to 40; 0 before the first encode
  int FMatrixWidth = 0;   // modules on a side
  int FMaskPattern = -1;  // 0 to 7
  int FNumTotalBytes = 0, FNumDataBytes = 0, FNumECBytes = 0;
  int FNumRSBlocks = 0;
  TByteMatrix FMatrix;
  bool FQRCodeError = false;
};

}  // namespace Zor::inline Qrcode
