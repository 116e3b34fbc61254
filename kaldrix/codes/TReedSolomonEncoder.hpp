#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "kaldrix/codes/TGenericGF.hpp"

namespace Zor::inline Qrcode {

/// Computes check codewords of one length, the remainder by a generator polynomial.
class TReedSolomonEncoder {
 public:
  static constexpr int MaxDegree = 72;

  /// The generator has `aDegree` roots, the powers of 2 from `aFirstRoot` on.
  TReedSolomonEncoder(const TGenericGF& aField, int aFirstRoot, int aDegree);

  /// Writes the check codewords of a block. Of each span only every so-manieth element counts, from the first
  /// on, so that blocks may be interleaved.
  void Encode(std::span<const std::uint8_t> aData, std::size_t aDataStride, std::span<std::uint8_t> aCheck,
              std::size_t aCheckStride) const;

 private:
  template <std::size_t Words>
  void EncodeWith(std::span<const std::uint8_t> aData, std::size_t aDataStride,
                  std::span<std::uint8_t> aCheck, std::size_t aCheckStride) const;

  int fDegree;
  std::size_t fWords;                // of the remainder, eight coefficients each
  std::vector<std::uint64_t> fRows;  // by factor: its product with the generator but for the first term
};

}  // namespace Zor::inline Qrcode
