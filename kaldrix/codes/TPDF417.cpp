#include "kaldrix/codes/TPDF417.hpp"

#include <algorithm>
#include <cstring>

#include "kaldrix/codes/Pdf417Clusters.hpp"
#include "kaldrix/codes/TOncePerIndex.hpp"
#include "kaldrix/codes/TPdf417Writer.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Pdf417 {

namespace {

constexpr unsigned Codewords = 929;  // a prime: the field of the check words
constexpr std::size_t Clusters = 3;

[[noreturn]] void Refuse() { throw Exception("PDF417 Encode Error"); }

/// What a table has for a codeword in the cluster of a row.
template <class TTable>
const auto& InCluster(const TTable& aTable, int aRow, int aCodeword) {
  if (aRow < 0 || aCodeword < 0 || aCodeword >= static_cast<int>(Codewords))
    throw EArgumentOutOfRangeException("There is no codeword " + std::to_string(aCodeword) + " in row " +
                                       std::to_string(aRow));
  return aTable[static_cast<std::size_t>(aRow) % Clusters][static_cast<std::size_t>(aCodeword)];
}

thread_local int usedCodeWords = 1;

// Widths --------------------------------------------------

using TCluster = std::array<TPdf417Widths, Codewords>;

constexpr TPdf417Widths WidthsOf(std::uint32_t aPattern) {
  TPdf417Widths widths{};
  for (std::size_t i = widths.size(); i-- > 0; aPattern /= 10) {
    widths[i] = static_cast<std::uint8_t>(aPattern % 10);
  }
  return widths;
}

constexpr std::array<TCluster, Clusters> WidthsByCluster = [] {
  std::array<TCluster, Clusters> widths{};
  for (std::size_t cluster = 0; cluster < Clusters; ++cluster) {
    for (std::size_t word = 0; word < Codewords; ++word) {
      widths[cluster][word] = WidthsOf(Pdf417Clusters[word][cluster]);
    }
  }
  return widths;
}();

constexpr auto ModulesByCluster = [] {
  std::array<std::array<std::uint32_t, Codewords>, Clusters> modules{};
  for (std::size_t cluster = 0; cluster < Clusters; ++cluster) {
    for (std::size_t word = 0; word < Codewords; ++word) {
      std::uint32_t& bits = modules[cluster][word];
      for (std::size_t i = 0; i < 8; ++i) {
        const unsigned width = WidthsByCluster[cluster][word][i];
        bits = bits << width | (i % 2 == 0 ? (1U << width) - 1 : 0U);
      }
    }
  }
  return modules;
}();

/// ISO/IEC 15438: 17 modules in widths from 1 to 6, and the number of the cluster in those of the bars.
constexpr bool IsSound(std::size_t aCluster) {
  for (const TPdf417Widths& w : WidthsByCluster[aCluster]) {
    unsigned sum = 0;
    for (const unsigned width : w) {
      if (width < 1 || width > 6) return false;
      sum += width;
    }
    if (sum != 17 || (w[0] + 9U - w[2] + w[4] - w[6]) % 9 != 3 * aCluster) return false;
  }
  return true;
}
static_assert(IsSound(0));
static_assert(IsSound(1));
static_assert(IsSound(2));

// Check words --------------------------------------------------

constexpr std::size_t MostCheckWords = 512, AtOnce = 8;

/// The generator polynomial whose roots are the powers of 3 from the first on: its coefficients behind the
/// leading 1, each negated, as ISO/IEC 15438, annex F, lists them but from the highest power down.
struct TGenerator {
  std::array<std::uint16_t, MostCheckWords> Negated{};
};

TGenerator MakeGenerator(std::size_t aLength) {
  std::array<unsigned, MostCheckWords + 1> poly{1};
  unsigned root = 1;
  for (std::size_t i = 1; i <= aLength; ++i) {
    root = root * 3 % Codewords;
    for (std::size_t j = i; j > 0; --j) poly[j] = (poly[j] + (Codewords - root) * poly[j - 1]) % Codewords;
  }
  TGenerator generator;
  for (std::size_t i = 0; i < aLength; ++i) {
    generator.Negated[i] = static_cast<std::uint16_t>((Codewords - poly[i + 1]) % Codewords);
  }
  return generator;
}

const TGenerator& Generator(int aLevel) {
  static TOncePerIndex<TGenerator, Level8 + 1> generators;
  return generators.Get(static_cast<std::size_t>(aLevel), [=] {
    return MakeGenerator(static_cast<std::size_t>(TPDF417::NumErrorCWords(aLevel)));
  });
}

/// The level that has so many check words.
int LevelOf(int aECCLen) {
  for (int level = Level0; level <= Level8; ++level) {
    if (TPDF417::NumErrorCWords(level) == aECCLen) return level;
  }
  Refuse();
}

}  // namespace

// Text to codewords --------------------------------------------------

std::string TPDF417::GetValid(std::string_view aCode) {
  std::string valid;
  valid.reserve(aCode.size());
  std::ranges::copy_if(aCode, std::back_inserter(valid), [](char c) { return c >= 32 && c <= 126; });
  return valid;
}

bool TPDF417::HasEscape(std::string_view aCode) {
  constexpr std::string_view kinds = "\\0123456789CcGgXx";
  for (std::size_t at = aCode.find('\\'); at != std::string_view::npos; at = aCode.find('\\', at + 1)) {
    if (at + 1 < aCode.size() && kinds.find(aCode[at + 1]) != std::string_view::npos) return true;
  }
  return false;
}

void TPDF417::Reset(TCodeWords& aWords) {
  static constexpr TCodeWords padWords = [] {
    TCodeWords words{};
    words.fill(PadWord);
    return words;
  }();
  aWords = padWords;
}

bool TPDF417::Encode(TCodeWords& aWords, std::string_view aCode) {
  const std::string valid = GetValid(aCode);
  TPdf417Writer writer(valid);
  writer.Write();
  std::ranges::copy(writer.Words(), aWords.begin() + 1);
  usedCodeWords = static_cast<int>(writer.Words().size()) + 1;
  return !valid.empty();
}

int TPDF417::UsedCodeWords() { return usedCodeWords; }

// Level and size --------------------------------------------------

int TPDF417::GetCorrecLevel(TZORPdf417CorrectionLevel aCorrecL) {
  if (aCorrecL != Auto) return aCorrecL;
  if (usedCodeWords < 41) return Level2;
  if (usedCodeWords < 161) return Level3;
  if (usedCodeWords < 321) return Level4;
  return Level5;
}

void TPDF417::AdjustSize(std::int16_t& aXCount, std::int16_t& aYCount, int aNumErrorCWords, int aUsedCWords,
                         int aCols, int aRows) {
  int cols = aCols > 0 ? aCols : 1, rows = aRows > 0 ? aRows : 3;
  const auto room = [&] { return cols * rows - aNumErrorCWords; };
  if (aCols <= 0 && aRows <= 0) {
    while (room() < aUsedCWords && (cols < MaxCols || rows < MaxRows)) {
      if (rows < MaxRows) ++rows;
      if (room() < aUsedCWords && cols < MaxCols) ++cols;
    }
  } else {
    // Intended: with a wish one codeword more than needed is asked for.
    while (aCols <= 0 && cols < MaxCols && room() <= aUsedCWords) ++cols;
    while (aRows <= 0 && rows < MaxRows && room() <= aUsedCWords) ++rows;
  }
  if (room() < aUsedCWords || cols * rows > MaxCodewords) Refuse();
  aXCount = static_cast<std::int16_t>(cols);
  aYCount = static_cast<std::int16_t>(rows);
}

/// Long division. No sum is reduced before it is needed: of at most 512 products below 929^2 none passes 32
/// bits.
void TPDF417::CalculateECC(TCodeWords& aWords, int aNumCodewords, int aECCLen) {
  const TGenerator& generator = Generator(LevelOf(aECCLen));
  if (aNumCodewords < 1 || aNumCodewords + aECCLen > MaxCodewords) Refuse();
  const auto count = static_cast<std::size_t>(aNumCodewords), length = static_cast<std::size_t>(aECCLen);
  std::array<std::uint32_t, MaxCodewords + AtOnce> rest;
  for (std::size_t i = 0; i < count; ++i) {
    if (aWords[i] >= Codewords) Refuse();
    rest[i] = aWords[i];
  }
  std::fill_n(rest.begin() + aNumCodewords, length + AtOnce, 0U);
  for (std::size_t i = 0; i < count; ++i) {
    const auto factor = static_cast<std::uint16_t>(rest[i] % Codewords);
    for (std::size_t j = 0; j < length; j += AtOnce) {
      const std::uint16_t* coefficients = &generator.Negated[j];
      std::uint32_t* target = &rest[i + 1 + j];
      for (std::size_t k = 0; k < AtOnce; ++k) target[k] += std::uint32_t{coefficients[k]} * factor;
    }
  }
  std::memset(&aWords[count], 0, (aWords.size() - count) * sizeof aWords[0]);
  for (std::size_t i = count; i < count + length; ++i) {
    aWords[i] = static_cast<std::uint16_t>((Codewords - rest[i] % Codewords) % Codewords);
  }
}

// Drawing --------------------------------------------------

const TPdf417Widths& TPDF417::Widths(int aRow, int aCodeword) {
  return InCluster(WidthsByCluster, aRow, aCodeword);
}

std::uint32_t TPDF417::Modules(int aRow, int aCodeword) {
  return InCluster(ModulesByCluster, aRow, aCodeword);
}

int TPDF417::LeftIndicator(int aRow, int aRows, int aCols, int aLevel) {
  const std::array values{(aRows - 1) / 3, (aRows - 1) % 3 + 3 * aLevel, aCols - 1};
  return 30 * (aRow / 3) + values[static_cast<std::size_t>(aRow % 3)];
}

int TPDF417::RightIndicator(int aRow, int aRows, int aCols, int aLevel) {
  const std::array values{aCols - 1, (aRows - 1) / 3, (aRows - 1) % 3 + 3 * aLevel};
  return 30 * (aRow / 3) + values[static_cast<std::size_t>(aRow % 3)];
}

}  // namespace Zor::inline Pdf417
