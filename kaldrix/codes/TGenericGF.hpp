#pragma once

#include <array>
#include <cstdint>

namespace Zor::inline Qrcode {

/// The field GF(256) over a primitive polynomial, whose root is 2. Sums are exclusive ors.
class TGenericGF {
 public:
  constexpr explicit TGenericGF(unsigned aPrimitive) {
    unsigned power = 1;
    for (unsigned i = 0; i < Order; ++i) {
      fExp[i] = fExp[i + Order] = static_cast<std::uint8_t>(power);
      fLog[power] = static_cast<std::uint8_t>(i);
      power <<= 1;
      if (power > Order) power ^= aPrimitive;
    }
  }

  /// 2 to a power from 0 to 509.
  constexpr std::uint8_t Exp(unsigned aPower) const { return fExp[aPower]; }
  constexpr std::uint8_t Multiply(std::uint8_t a, std::uint8_t b) const {
    return a == 0 || b == 0 ? std::uint8_t{0} : fExp[unsigned{fLog[a]} + fLog[b]];
  }

 private:
  static constexpr unsigned Order = 255;  // of the multiplicative group

  std::array<std::uint8_t, 2 * Order> fExp{};  // twice, so that sums of logarithms need no reduction
  std::array<std::uint8_t, Order + 1> fLog{};
};

/// ISO/IEC 18004, 7.5.2: x^8 + x^4 + x^3 + x^2 + 1.
inline constexpr TGenericGF QRCodeField(0x11D);
/// ISO/IEC 16022, 5.7.1: x^8 + x^5 + x^3 + x^2 + 1.
inline constexpr TGenericGF DataMatrixField(0x12D);

}  // namespace Zor::inline Qrcode
