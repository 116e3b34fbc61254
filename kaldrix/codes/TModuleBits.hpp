#pragma once

#include <array>
#include <cstdint>

namespace Zor::inline Qrcode {

/// The modules of a QR Code as bits, dark is 1: rows of a fixed number of words, so that a whole row is
/// masked and judged in a few operations. Bits beyond the symbol are 0.
struct TModuleBits {
  static constexpr int MaxSide = 177;
  static constexpr std::size_t WordsPerRow = 3;
  static constexpr int BitsPerRow = 64 * WordsPerRow;

  explicit TModuleBits(int aSide = 0) : FSide(aSide) {}

  /// 0-based, from the top left.
  bool Get(int aX, int aY) const { return (FWords[Word(aX, aY)] >> (aX % 64) & 1) != 0; }
  void Set(int aX, int aY, bool aDark) {
    const std::uint64_t bit = std::uint64_t{1} << (aX % 64);
    std::uint64_t& word = FWords[Word(aX, aY)];
    word = aDark ? word | bit : word & ~bit;
  }

  int FSide;
  std::array<std::uint64_t, MaxSide * WordsPerRow> FWords{};

 private:
  static std::size_t Word(int aX, int aY) {
    return static_cast<std::size_t>(aY) * WordsPerRow + static_cast<std::size_t>(aX / 64);
  }
};

}  // namespace Zor::inline Qrcode
