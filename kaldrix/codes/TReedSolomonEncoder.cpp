#include "kaldrix/codes/TReedSolomonEncoder.hpp"

#include <array>
#include <utility>

namespace Zor::inline Qrcode {

namespace {

constexpr std::size_t MaxWords = TReedSolomonEncoder::MaxDegree / 8;

/// The coefficients behind the leading 1, from the highest power down.
std::vector<std::uint8_t> Generator(const TGenericGF& aField, int aFirstRoot, int aDegree) {
  std::vector<std::uint8_t> poly{1};
  for (int i = 0; i < aDegree; ++i) {
    const std::uint8_t root = aField.Exp(static_cast<unsigned>(aFirstRoot + i));
    poly.push_back(0);
    for (std::size_t j = poly.size() - 1; j > 0; --j) poly[j] ^= aField.Multiply(poly[j - 1], root);
  }
  poly.erase(poly.begin());
  return poly;
}

}  // namespace

TReedSolomonEncoder::TReedSolomonEncoder(const TGenericGF& aField, int aFirstRoot, int aDegree)
    : fDegree(aDegree), fWords((static_cast<std::size_t>(aDegree) + 7) / 8), fRows(256 * fWords) {
  const std::vector<std::uint8_t> generator = Generator(aField, aFirstRoot, aDegree);
  for (std::size_t factor = 0; factor < 256; ++factor) {
    for (std::size_t i = 0; i < generator.size(); ++i) {
      const std::uint64_t product = aField.Multiply(static_cast<std::uint8_t>(factor), generator[i]);
      fRows[factor * fWords + i / 8] |= product << (i % 8 * 8);
    }
  }
}

/// Long division with the whole remainder in a few words; its leading coefficient is the lowest byte.
template <std::size_t Words>
void TReedSolomonEncoder::EncodeWith(std::span<const std::uint8_t> aData, std::size_t aDataStride,
                                     std::span<std::uint8_t> aCheck, std::size_t aCheckStride) const {
  std::array<std::uint64_t, Words + 1> rest{};
  for (std::size_t i = 0; i < aData.size(); i += aDataStride) {
    const std::uint64_t* row = &fRows[((rest[0] ^ aData[i]) & 0xFF) * Words];
    for (std::size_t w = 0; w < Words; ++w) rest[w] = (rest[w] >> 8 | rest[w + 1] << 56) ^ row[w];
  }
  for (std::size_t i = 0; i < static_cast<std::size_t>(fDegree); ++i) {
    aCheck[i * aCheckStride] = static_cast<std::uint8_t>(rest[i / 8] >> (i % 8 * 8));
  }
}

void TReedSolomonEncoder::Encode(std::span<const std::uint8_t> aData, std::size_t aDataStride,
                                 std::span<std::uint8_t> aCheck, std::size_t aCheckStride) const {
  static constexpr auto byWords = []<std::size_t... I>(std::index_sequence<I...>) {
    return std::array{&TReedSolomonEncoder::EncodeWith<I + 1>...};
  }
  (std::make_index_sequence<MaxWords>());
  (this->*byWords[fWords - 1])(aData, aDataStride, aCheck, aCheckStride);
}

}  // namespace Zor::inline Qrcode
