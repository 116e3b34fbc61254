#pragma once

namespace Zor::inline Qrcode {

/// The error correction level of a QR Code. Symbols are written at level L; the format information carries
/// what stands here.
struct TErrorCorrectionLevel {
  /// The two bits of the level in the format information (ISO/IEC 18004, 7.9): L 1, M 0, Q 3, H 2.
  int FBits = 1;

  friend bool operator==(const TErrorCorrectionLevel&, const TErrorCorrectionLevel&) = default;
};

}  // namespace Zor::inline Qrcode
