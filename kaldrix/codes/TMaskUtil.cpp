#include "kaldrix/codes/TMaskUtil.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "kaldrix/codes/TMatrixUtil.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Qrcode {

namespace {

constexpr std::size_t WordsPerRow = TModuleBits::WordsPerRow;

// Masks --------------------------------------------------

/// ISO/IEC 18004, table 10: whether the mask turns the module of row i and column j.
constexpr bool Turns(int aMask, int i, int j) {
  switch (aMask) {
    case 0:
      return (i + j) % 2 == 0;
    case 1:
      return i % 2 == 0;
    case 2:
      return j % 3 == 0;
    case 3:
      return (i + j) % 3 == 0;
    case 4:
      return (i / 2 + j / 3) % 2 == 0;
    case 5:
      return i * j % 2 + i * j % 3 == 0;
    case 6:
      return (i * j % 2 + i * j % 3) % 2 == 0;
    default:
      return ((i + j) % 2 + i * j % 3) % 2 == 0;
  }
}

/// After so many rows each mask begins anew.
constexpr std::size_t MaskPeriod = 12;

using TMaskRow = std::array<std::uint64_t, WordsPerRow>;

constexpr auto MaskRows = [] {
  std::array<std::array<TMaskRow, MaskPeriod>, TMaskUtil::Masks> rows{};
  for (int mask = 0; mask < TMaskUtil::Masks; ++mask) {
    for (std::size_t y = 0; y < MaskPeriod; ++y) {
      for (int x = 0; x < TModuleBits::BitsPerRow; ++x) {
        const std::uint64_t bit = Turns(mask, static_cast<int>(y), x) ? 1 : 0;
        rows[static_cast<std::size_t>(mask)][y][static_cast<std::size_t>(x / 64)] |= bit << (x % 64);
      }
    }
  }
  return rows;
}();

// Rows of bits --------------------------------------------------

constexpr int Count(std::uint64_t aWord) {
  aWord -= aWord >> 1 & 0x5555555555555555U;
  aWord = (aWord & 0x3333333333333333U) + (aWord >> 2 & 0x3333333333333333U);
  aWord = (aWord + (aWord >> 4)) & 0x0F0F0F0F0F0F0F0FU;
  return static_cast<int>(aWord * 0x0101010101010101U >> 56);
}

/// The first W words of a row.
template <std::size_t W>
struct TRow {
  std::array<std::uint64_t, W> w;

  friend TRow operator&(TRow a, const TRow& b) {
    for (std::size_t i = 0; i < W; ++i) a.w[i] &= b.w[i];
    return a;
  }
  friend TRow operator|(TRow a, const TRow& b) {
    for (std::size_t i = 0; i < W; ++i) a.w[i] |= b.w[i];
    return a;
  }
  friend TRow operator^(TRow a, const TRow& b) {
    for (std::size_t i = 0; i < W; ++i) a.w[i] ^= b.w[i];
    return a;
  }
  friend TRow operator~(TRow a) {
    for (std::size_t i = 0; i < W; ++i) a.w[i] = ~a.w[i];
    return a;
  }
  /// Every module gets the value of the one so many columns to its right.
  friend TRow operator>>(TRow a, int aColumns) {
    for (std::size_t i = 0; i + 1 < W; ++i) a.w[i] = a.w[i] >> aColumns | a.w[i + 1] << (64 - aColumns);
    a.w[W - 1] >>= aColumns;
    return a;
  }
  /// ... to its left.
  friend TRow operator<<(TRow a, int aColumns) {
    for (std::size_t i = W - 1; i > 0; --i) a.w[i] = a.w[i] << aColumns | a.w[i - 1] >> (64 - aColumns);
    a.w[0] <<= aColumns;
    return a;
  }
  int Bits() const {
    int sum = 0;
    for (const std::uint64_t word : w) sum += Count(word);
    return sum;
  }
  /// The same, for rows that are mostly empty.
  int FewBits() const {
    int sum = 0;
    for (std::uint64_t word : w) {
      for (; word != 0; word &= word - 1) ++sum;
    }
    return sum;
  }
  /// 1 in the first `aCount` columns.
  static TRow First(int aCount) {
    TRow row{};
    for (int x = 0; x < aCount; ++x) row.w[static_cast<std::size_t>(x / 64)] |= std::uint64_t{1} << (x % 64);
    return row;
  }
};

// Penalties --------------------------------------------------

constexpr int RunPenalty = 3, BlockPenalty = 3, FinderPenalty = 40;

/// Judges all rows and columns at once. The rows carry a margin of nothing above and below, so that what
/// looks up or down from a row needs no limits.
template <std::size_t W>
class TPenalty {
 public:
  explicit TPenalty(const TModuleBits& aBits) : fSide(static_cast<std::size_t>(aBits.FSide)) {
    const auto inside = TRow<W>::First(aBits.FSide);
    const auto insidePairs = TRow<W>::First(aBits.FSide - 1);
    ClearMargins();
    for (std::size_t y = 0; y < fSide; ++y) {
      std::copy_n(&aBits.FWords[y * WordsPerRow], W, Dark(y).w.begin());
    }
    for (std::size_t y = 0; y < fSide; ++y) {
      fLight[Margin + y] = ~Dark(y) & inside;
      fLikeRight[y] = ~(Dark(y) ^ Dark(y) >> 1) & insidePairs;
      if (y + 1 < fSide) fLikeBelow[Margin + y] = ~(Dark(y) ^ Dark(y + 1)) & inside;
    }
  }

  int Sum() {
    for (std::size_t y = 0; y < fSide; ++y) {
      Runs(y);
      fBlocks += (fLikeBelow[Margin + y] & fLikeRight[y] & fLikeRight[y + 1]).Bits();
      Finders(y);
      fDark += Dark(y).Bits();
    }
    return fRuns + fBlocks * BlockPenalty + fFinders * FinderPenalty + Balance();
  }

 private:
  static constexpr std::size_t Margin = 4, Reach = 11;

  void ClearMargins() {
    for (TRows* rows : {&fDarkRows, &fLight, &fLikeRight, &fLikeBelow}) {
      std::fill_n(rows->begin(), Margin, TRow<W>{});
      std::fill_n(rows->begin() + static_cast<std::ptrdiff_t>(fSide), Margin + Reach, TRow<W>{});
    }
  }

  TRow<W>& Dark(std::size_t aY) { return fDarkRows[aY]; }

  /// A run of five scores 3, each further module 1. A module where five alike begin stands for itself, the
  /// first of a run for two more.
  void Runs(std::size_t aY) {
    const TRow<W> inRow = Four(fLikeRight[aY], fLikeRight[aY] >> 1);
    const TRow<W> below = Down(aY), before = fRunBelow;
    fRuns += inRow.Bits() + below.Bits() +
             (RunPenalty - 1) * ((inRow & ~(inRow << 1)).Bits() + (below & ~before).Bits());
    fRunBelow = below;
  }
  static TRow<W> Four(const TRow<W>& a, const TRow<W>& aShifted) {
    const TRow<W> two = a & aShifted;
    return two & two >> 2;
  }
  TRow<W> Down(std::size_t aY) const {
    const TRow<W>* like = &fLikeBelow[Margin + aY];
    return like[0] & like[1] & like[2] & like[3];
  }

  /// Dark, light, three dark, light, dark, with four light modules behind or before.
  void Finders(std::size_t aY) {
    const TRow<W>& d = Dark(aY);
    const TRow<W>& l = fLight[Margin + aY];
    const TRow<W> inRow = d & l >> 1 & d >> 2 & d >> 3 & d >> 4 & l >> 5 & d >> 6;
    const TRow<W> light = Four(l, l >> 1);
    fFinders += (inRow & (light >> 7 | light << 4)).FewBits();
    const TRow<W>* dark = &fDarkRows[aY];
    const TRow<W>* rest = &fLight[Margin + aY];
    const TRow<W> below = dark[0] & rest[1] & dark[2] & dark[3] & dark[4] & rest[5] & dark[6];
    const TRow<W> behind = rest[7] & rest[8] & rest[9] & rest[10];
    const TRow<W> before = rest[-1] & rest[-2] & rest[-3] & rest[-4];
    fFinders += (below & (behind | before)).FewBits();
  }

  int Balance() const {
    const double percent = 100.0 * fDark / static_cast<double>(fSide * fSide);
    return static_cast<int>(Round(std::abs(percent - 50) / 50));
  }

  using TRows = std::array<TRow<W>, Margin + TModuleBits::MaxSide + Reach>;

  std::size_t fSide;
  TRows fDarkRows, fLight, fLikeRight, fLikeBelow;  // light and like below begin at the margin
  TRow<W> fRunBelow{};                              // of the row above
  int fRuns = 0, fBlocks = 0, fFinders = 0, fDark = 0;
};

}  // namespace

void TMaskUtil::Mask(TModuleBits& aBits, const TModuleBits& aDataArea, int aMask) {
  const auto& rows = MaskRows[static_cast<std::size_t>(aMask)];
  for (std::size_t y = 0; y < static_cast<std::size_t>(aBits.FSide); ++y) {
    const TMaskRow& row = rows[y % MaskPeriod];
    const std::size_t word = y * WordsPerRow;
    for (std::size_t i = 0; i < WordsPerRow; ++i)
      aBits.FWords[word + i] ^= row[i] & aDataArea.FWords[word + i];
  }
}

int TMaskUtil::CalculateMaskPenalty(const TModuleBits& aBits) {
  if (aBits.FSide <= 64) return TPenalty<1>(aBits).Sum();
  if (aBits.FSide <= 128) return TPenalty<2>(aBits).Sum();
  return TPenalty<3>(aBits).Sum();
}

int TMaskUtil::ChooseMaskPattern(TModuleBits& aBits, const TModuleBits& aDataArea,
                                 const TErrorCorrectionLevel& aLevel) {
  const auto finish = [&](int aMask) {
    Mask(aBits, aDataArea, aMask);
    TMatrixUtil::PlaceFormat(aBits, aLevel, aMask);
  };
  int best = 0, lowest = std::numeric_limits<int>::max();
  for (int mask = 0; mask < Masks; ++mask) {
    finish(mask);
    const int penalty = CalculateMaskPenalty(aBits);
    Mask(aBits, aDataArea, mask);
    if (penalty >= lowest) continue;
    lowest = penalty;
    best = mask;
  }
  finish(best);
  return best;
}

}  // namespace Zor::inline Qrcode
