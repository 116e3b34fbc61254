#include "kaldrix/codes/TMatrixUtil.hpp"

#include <algorithm>
#include <cstdlib>

#include "kaldrix/codes/TOncePerIndex.hpp"

namespace Zor::inline Qrcode {

namespace {

constexpr int TimingLine = 6;
constexpr int FirstVersionWithInformation = 7;

/// Builds the frame of a version, pattern by pattern.
class TFrameBuilder {
 public:
  explicit TFrameBuilder(int aVersion)
      : fVersion(TVersion::GetVersionForNumber(aVersion)),
        fSide(fVersion.DimensionForVersion()),
        fPatterns(fSide),
        fTaken(fSide) {}

  TMatrixUtil::TFrame Build() {
    Timing();
    Finder(3, 3);
    Finder(fSide - 4, 3);
    Finder(3, fSide - 4);
    AlignmentPatterns();
    FormatArea();
    VersionInformation();
    return {fPatterns, DataArea(), DataOrder()};
  }

 private:
  void Put(int aX, int aY, bool aDark) {
    if (aX < 0 || aX >= fSide || aY < 0 || aY >= fSide) return;
    fPatterns.Set(aX, aY, aDark);
    fTaken.Set(aX, aY, true);
  }

  void Timing() {
    for (int i = 0; i < fSide; ++i) {
      Put(TimingLine, i, i % 2 == 0);
      Put(i, TimingLine, i % 2 == 0);
    }
  }

  /// Rings around a centre; those of the distances in the bits of `aDark` are dark.
  void Rings(int aX, int aY, int aReach, unsigned aDark) {
    for (int y = -aReach; y <= aReach; ++y) {
      for (int x = -aReach; x <= aReach; ++x) {
        Put(aX + x, aY + y, (aDark >> std::max(std::abs(x), std::abs(y)) & 1) != 0);
      }
    }
  }
  void Finder(int aX, int aY) { Rings(aX, aY, 4, 0b01011); }  // with its separator

  void AlignmentPatterns() {
    for (const int y : fVersion.FAlignmentPatternCenters) {
      for (const int x : fVersion.FAlignmentPatternCenters) {
        if (x == 0 || y == 0) continue;
        const bool atFinder =
            (x == TimingLine && (y == TimingLine || y == fSide - 7)) || (y == TimingLine && x == fSide - 7);
        if (!atFinder) Rings(x, y, 2, 0b101);
      }
    }
  }

  /// Keeps the places of the format information free, and sets the module that is always dark.
  void FormatArea() {
    for (int i = 0; i < 8; ++i) {
      fTaken.Set(i, 8, true);
      fTaken.Set(8, i, true);
      fTaken.Set(fSide - 1 - i, 8, true);
      fTaken.Set(8, fSide - 1 - i, true);
    }
    fTaken.Set(8, 8, true);
    Put(8, fSide - 8, true);
  }

  void VersionInformation() {
    if (fVersion.FVersionNumber < FirstVersionWithInformation) return;
    const int bits = TMatrixUtil::VersionInformation(fVersion.FVersionNumber);
    for (int i = 0; i < 18; ++i) {
      const bool dark = (bits >> i & 1) != 0;
      Put(fSide - 11 + i % 3, i / 3, dark);
      Put(i / 3, fSide - 11 + i % 3, dark);
    }
  }

  TModuleBits DataArea() const {
    TModuleBits area(fSide);
    for (int y = 0; y < fSide; ++y) {
      for (int x = 0; x < fSide; ++x) area.Set(x, y, !fTaken.Get(x, y));
    }
    return area;
  }

  /// Pairs of columns from the right, first upwards, then in turn (ISO/IEC 18004, 7.7.3). The bits that are
  /// left over behind the last codeword are not in the list.
  std::vector<std::uint16_t> DataOrder() const {
    std::vector<std::uint16_t> order;
    bool upwards = true;
    for (int right = fSide - 1; right > 0; right -= 2) {
      if (right == TimingLine) --right;
      for (int i = 0; i < fSide; ++i) {
        const int y = upwards ? fSide - 1 - i : i;
        for (const int x : {right, right - 1}) {
          if (fTaken.Get(x, y)) continue;
          order.push_back(static_cast<std::uint16_t>(y * TModuleBits::BitsPerRow + x));
        }
      }
      upwards = !upwards;
    }
    order.resize(static_cast<std::size_t>(fVersion.TotalCodewords()) * 8);
    return order;
  }

  const TVersion& fVersion;
  int fSide;
  TModuleBits fPatterns, fTaken;
};

/// `aData` followed by its remainder by a polynomial of the degree `aCheckBits`.
constexpr int WithRemainder(int aData, int aCheckBits, int aPolynomial) {
  int rest = aData;
  for (int i = 0; i < aCheckBits; ++i) rest = (rest << 1) ^ ((rest >> (aCheckBits - 1) & 1) * aPolynomial);
  return aData << aCheckBits | (rest & ((1 << aCheckBits) - 1));
}

using TEightModules = std::array<std::uint8_t, 8>;

constexpr std::array<TEightModules, 256> ModulesOfByte = [] {
  std::array<TEightModules, 256> table{};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    for (std::size_t i = 0; i < 8; ++i) table[byte][i] = byte >> i & 1;
  }
  return table;
}();

}  // namespace

const TMatrixUtil::TFrame& TMatrixUtil::Frame(int aVersion) {
  static TOncePerIndex<TFrame, TVersion::Count> frames;
  return frames.Get(static_cast<std::size_t>(aVersion) - 1, [=] { return TFrameBuilder(aVersion).Build(); });
}

TModuleBits TMatrixUtil::PlaceData(const TFrame& aFrame, std::span<const std::uint8_t> aCodewords) {
  TModuleBits bits = aFrame.FPatterns;
  const std::uint16_t* place = aFrame.FDataOrder.data();
  for (const std::uint8_t codeword : aCodewords) {
    for (int i = 7; i >= 0; --i, ++place) {
      bits.FWords[*place / 64U] |= std::uint64_t{codeword >> i & 1U} << (*place % 64U);
    }
  }
  return bits;
}

/// ISO/IEC 18004, 7.9.1: once around the top left finder, once divided between the other two.
void TMatrixUtil::PlaceFormat(TModuleBits& aBits, const TErrorCorrectionLevel& aLevel, int aMask) {
  const int bits = FormatInformation(aLevel, aMask);
  const int side = aBits.FSide;
  for (int i = 0; i < 15; ++i) {
    const bool dark = (bits >> i & 1) != 0;
    const int pastTiming = i + (i < TimingLine ? 0 : 1);
    if (i < 8) {
      aBits.Set(8, pastTiming, dark);
      aBits.Set(side - 1 - i, 8, dark);
    } else {
      aBits.Set(i == 8 ? 7 : 14 - i, 8, dark);
      aBits.Set(8, side - 15 + i, dark);
    }
  }
}

int TMatrixUtil::FormatInformation(const TErrorCorrectionLevel& aLevel, int aMask) {
  return WithRemainder(aLevel.FBits << 3 | aMask, 10, 0x537) ^ 0x5412;
}

int TMatrixUtil::VersionInformation(int aVersion) { return WithRemainder(aVersion, 12, 0x1F25); }

TByteMatrix TMatrixUtil::ToBytes(const TModuleBits& aBits) {
  TByteMatrix bytes(aBits.FSide, aBits.FSide);
  for (int y = 0; y < aBits.FSide; ++y) {
    const std::uint64_t* words = &aBits.FWords[static_cast<std::size_t>(y) * TModuleBits::WordsPerRow];
    const auto row = bytes.Row(y);
    for (std::size_t x = 0; x < row.size(); x += 8) {
      const TEightModules& modules = ModulesOfByte[words[x / 64] >> (x % 64) & 0xFF];
      std::copy_n(modules.begin(), std::min<std::size_t>(8, row.size() - x),
                  row.begin() + static_cast<std::ptrdiff_t>(x));
    }
  }
  return bytes;
}

}  // namespace Zor::inline Qrcode
