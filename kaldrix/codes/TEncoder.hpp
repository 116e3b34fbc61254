#pragma once

#include <string>
#include <string_view>

#include "kaldrix/codes/TQRCode.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Qrcode {

/// Turns texts into QR Code symbols (ISO/IEC 18004). Texts are UTF-8, ill-formed bytes count as U+FFFD.
class TEncoder {
 public:
  /// Makes the smallest symbol that holds the text. `aEncodeOptions` is the ordinal of a TQRCodeEncoding.
  /// Raises Exception "QRCode Encode Error" and leaves `aQRCode` as it was when the text is too long for
  /// version 40, or the ordinal none of the enumeration.
  void Encode(std::string_view aContent, int aEncodeOptions, const TErrorCorrectionLevel& aECLevel,
              TQRCode& aQRCode);

  /// The mode that carries the text. `Automatic` becomes ISO88591 or UTF8NoBOM when the mode is byte.
  static TMode ChooseMode(std::string_view aContent, TQRCodeEncoding& aEncoding);
  /// The text without the characters that the mode and encoding cannot carry.
  static std::string FilterContent(std::string_view aContent, TMode aMode, TQRCodeEncoding aEncoding);

  /// Whether the last Encode failed.
  bool FEncoderError = false;
};

}  // namespace Zor::inline Qrcode
