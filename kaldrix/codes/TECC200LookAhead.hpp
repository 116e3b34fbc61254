#pragma once

#include <cstdint>
#include <span>

namespace Zor::inline Datamatrix {

/// Encodation schemes; symbols are written in ASCII and Base 256, the others are answers of the look-ahead.
enum TZOREncodeMode : std::uint8_t { emASCII, emC40, emText, emX12, emEDIFACT, emBase256 };

/// Judges which scheme suits the data from a position on (ISO/IEC 16022, annex P, with the limits of this
/// house).
class TECC200LookAhead {
 public:
  explicit TECC200LookAhead(std::span<const std::uint8_t> aData);

  /// Whether Base 256 suits the bytes from `aPosition` on, when `aCurrent` is in force. Where no byte above
  /// 127 follows it does not, which needs no reading.
  bool IsBase256(std::size_t aPosition, TZOREncodeMode aCurrent) const;

 private:
  std::span<const std::uint8_t> fData;
  std::size_t fHighEnd;  // behind the last byte above 127
};

}  // namespace Zor::inline Datamatrix
