// The patterns of the symbologies but for Code 128.
#include <algorithm>

#include "kaldrix/utils/BarSymbology.hpp"

namespace Zor::inline Utils {

namespace {

// Rows of characters -------------------------------------------------------------------

/// The rows of the characters that the table has, each with a narrow space behind it.
template <std::size_t TheCount>
void WriteRows(std::string& aOut, std::string_view aCode, const std::array<TBarRow, TheCount>& aTable,
               const std::array<std::int8_t, 256>& aRows) {
  for (const char c : aCode) {
    const int row = aRows[static_cast<unsigned char>(c)];
    if (row < 0) continue;
    aOut += aTable[static_cast<std::size_t>(row)].pattern;
    aOut += '1';
  }
}

/// `aCode` between a start and a stop character.
template <std::size_t TheCount>
void WriteFramedRows(std::string& aOut, std::string_view aCode, const std::array<TBarRow, TheCount>& aTable,
                     const std::array<std::int8_t, 256>& aRows, char aStart, char aStop) {
  aOut.reserve((aCode.size() + 2) * (aTable[0].pattern.size() + 1));
  WriteRows(aOut, {&aStart, 1}, aTable, aRows);
  WriteRows(aOut, aCode, aTable, aRows);
  aOut += aTable[static_cast<std::size_t>(aRows[static_cast<unsigned char>(aStop)])].pattern;
}

// Cells of digits ----------------------------------------------------------------------

template <std::size_t TheSize>
using TCell = std::array<char, TheSize>;

/// Cells of `TheSize` elements, one a digit or one a pair of digits.
template <std::size_t TheSize, std::size_t TheCount>
using TCells = std::array<TCell<TheSize>, TheCount>;

constexpr bool IsWide(std::size_t aDigit, std::size_t aBit) { return tabla_2_5[aDigit][aBit] == '1'; }

/// Bars from the first digit, spaces from the second.
constexpr auto InterleavedCells = [] {
  TCells<10, 100> cells{};
  for (std::size_t pair = 0; pair < 100; ++pair) {
    for (std::size_t bit = 0; bit < 5; ++bit) {
      cells[pair][bit * 2] = IsWide(pair / 10, bit) ? 'M' : 'N';
      cells[pair][bit * 2 + 1] = IsWide(pair % 10, bit) ? '6' : '1';
    }
  }
  return cells;
}();

/// All in the bars.
constexpr auto IndustrialCells = [] {
  TCells<10, 10> cells{};
  for (std::size_t digit = 0; digit < 10; ++digit) {
    for (std::size_t bit = 0; bit < 5; ++bit) {
      cells[digit][bit * 2] = IsWide(digit, bit) ? 'M' : 'N';
      cells[digit][bit * 2 + 1] = '1';
    }
  }
  return cells;
}();

/// Three bars and the two spaces between them, then a narrow space.
constexpr auto MatrixCells = [] {
  TCells<6, 10> cells{};
  for (std::size_t digit = 0; digit < 10; ++digit) {
    for (std::size_t bit = 0; bit < 5; ++bit) {
      const bool bar = bit % 2 == 0;
      cells[digit][bit] = IsWide(digit, bit) ? (bar ? 'M' : '6') : (bar ? 'N' : '1');
    }
    cells[digit][5] = '1';
  }
  return cells;
}();

template <std::size_t TheSize>
constexpr auto CellsOf(const std::array<std::string_view, 10>& aTable) {
  TCells<TheSize, 10> cells{};
  for (std::size_t digit = 0; digit < 10; ++digit) {
    std::copy_n(aTable[digit].begin(), TheSize, cells[digit].begin());
  }
  return cells;
}
constexpr auto MsiCells = CellsOf<8>(tabla_MSI);
constexpr auto PostNetCells = CellsOf<10>(tabla_PostNet);

template <std::size_t TheSize>
void WriteDigits(std::string& aOut, std::string_view aCode, const TCells<TheSize, 10>& aCells,
                 std::string_view aStart, std::string_view aStop) {
  aOut.reserve(aStart.size() + aCode.size() * TheSize + aStop.size());
  aOut += aStart;
  for (const char c : aCode) aOut.append(aCells[DigitOf(c)].data(), TheSize);
  aOut += aStop;
}

}  // namespace

// Code 39, Codabar -----------------------------------------------------------------------

void WriteCode39(std::string& aOut, const TPatternRequest& aRequest) {
  WriteFramedRows(aOut, aRequest.code, tabla_39, Rows39, '*', '*');
}

void WriteCode39Ex(std::string& aOut, const TPatternRequest& aRequest) {
  WriteFramedRows(aOut, Expanded(aRequest.code, tabla_39ex), tabla_39, Rows39, '*', '*');
}

void WriteCodabar(std::string& aOut, const TPatternRequest& aRequest) {
  WriteFramedRows(aOut, aRequest.code, tabla_cb, RowsCodabar, 'A', 'B');
}

// Code 93 --------------------------------------------------------------------------------

namespace {

/// The check over values, weights from the right, `aFirstWeight` to `aMostWeight` and then from 1 on.
std::size_t Code93Check(std::string_view aValues, std::size_t aFirstWeight, std::size_t aMostWeight) {
  std::size_t sum = 0, weight = aFirstWeight;
  for (std::size_t i = aValues.size(); i-- > 0; weight = weight % aMostWeight + 1) {
    sum += static_cast<std::size_t>(aValues[i]) * weight;
  }
  return sum;
}

void WriteCode93Text(std::string& aOut, std::string_view aCode) {
  constexpr std::string_view start = "N1N1W1", stop = "N1N1W1N";
  constexpr std::size_t weightsOfC = 20, weightsOfK = 15, patternSize = 6;
  std::string values;
  values.reserve(aCode.size() + 2);
  for (const char c : aCode) {
    const int row = Rows93[static_cast<unsigned char>(c)];
    if (row >= 0) values += static_cast<char>(row);
  }
  const std::size_t c = Code93Check(values, 1, weightsOfC) % tabla_93.size();
  // K weighs C with 1, so that the text begins with 2.
  const std::size_t k = (c + Code93Check(values, 2, weightsOfK)) % tabla_93.size();
  values += static_cast<char>(c);
  values += static_cast<char>(k);
  aOut.reserve(start.size() + values.size() * patternSize + stop.size());
  aOut += start;
  for (const char value : values) {
    aOut.append(tabla_93[static_cast<std::size_t>(value)].pattern.data(), patternSize);
  }
  aOut += stop;
}

}  // namespace

void WriteCode93(std::string& aOut, const TPatternRequest& aRequest) { WriteCode93Text(aOut, aRequest.code); }

void WriteCode93Ex(std::string& aOut, const TPatternRequest& aRequest) {
  WriteCode93Text(aOut, Expanded(aRequest.code, tabla_93Ex));
}

// 2 of 5 ---------------------------------------------------------------------------------

void WriteInterleaved(std::string& aOut, const TPatternRequest& aRequest) {
  constexpr std::string_view start = "N1N1", stop = "M1N";
  const std::string_view code = aRequest.code;
  aOut.reserve(start.size() + code.size() * 5 + stop.size());
  aOut += start;
  for (std::size_t i = 0; i + 1 < code.size(); i += 2) {
    const auto& cell = InterleavedCells[DigitOf(code[i]) * 10 + DigitOf(code[i + 1])];
    aOut.append(cell.data(), cell.size());
  }
  aOut += stop;
}

void WriteIndustrial(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, IndustrialCells, "M1M1N1", "M1N1M1");
}

void WriteMatrix(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, MatrixCells, "F1N1N1", "F1N1N");
}

// Code 11, MSI, POSTNET ------------------------------------------------------------------

void WriteCode11(std::string& aOut, const TPatternRequest& aRequest) {
  constexpr std::size_t frame = 10, dash = 11;
  aOut.reserve((aRequest.code.size() + 2) * (tabla_Code11[0].size() + 1));
  aOut += tabla_Code11[frame];
  aOut += '6';
  for (const char c : aRequest.code) {
    if (!IsIn(c, csCode11)) continue;
    aOut += tabla_Code11[c == '-' ? dash : DigitOf(c)];
    aOut += '6';
  }
  aOut += tabla_Code11[frame];
}

void WriteMsi(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, MsiCells, "D6", "M2M");
}

void WritePostNet(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, PostNetCells, "N6", "N");
}

// EAN and UPC ----------------------------------------------------------------------------

namespace {

/// A pattern of the EAN family in the making.
class TEanWriter {
 public:
  TEanWriter(std::string& aOut, const TPatternRequest& aRequest)
      : fOut(aOut), fCode(aRequest.code), fShow(aRequest.showNumber) {
    constexpr std::size_t longest = 59;
    fOut.reserve(longest);
  }

  /// 1-based; 0 behind the end.
  std::size_t Digit(std::size_t aIndex) const {
    return aIndex <= fCode.size() ? DigitOf(fCode[aIndex - 1]) : 0;
  }
  void Guard() { fOut += fShow ? "919" : "N1N"; }
  void Middle() { fOut += fShow ? "19191" : "1N1N1"; }
  void UpcEnd() { fOut += fShow ? "191919" : "1N1N1N"; }
  /// The digits from `aFirst` to `aLast`, all in one number set.
  void Digits(std::size_t aFirst, std::size_t aLast, const std::array<std::string_view, 10>& aSet) {
    for (std::size_t i = aFirst; i <= aLast; ++i) fOut += aSet[Digit(i)];
  }
  /// Digits 2 to 7; the letter `aEven` in the row stands for set B.
  void MixedDigits(std::string_view aRow, char aEven) {
    for (std::size_t i = 0; i < aRow.size(); ++i) {
      fOut += (aRow[i] == aEven ? tabla_EAN_B : tabla_EAN_A)[Digit(i + 2)];
    }
  }

 private:
  std::string& fOut;
  std::string_view fCode;
  bool fShow;
};

}  // namespace

void WriteEan13(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter ean(aOut, aRequest);
  ean.Guard();
  ean.MixedDigits(tabla_Par_EAN13[ean.Digit(1)], 'B');
  ean.Middle();
  ean.Digits(8, 13, tabla_EAN_C);
  ean.Guard();
}

void WriteEan8(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter ean(aOut, aRequest);
  ean.Guard();
  ean.Digits(1, 4, tabla_EAN_A);
  ean.Middle();
  ean.Digits(5, 8, tabla_EAN_C);
  ean.Guard();
}

void WriteUpcA(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter upc(aOut, aRequest);
  upc.Guard();
  upc.Digits(1, 6, tabla_EAN_A);
  upc.Middle();
  upc.Digits(7, 12, tabla_EAN_C);
  upc.Guard();
}

void WriteUpcE(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter upc(aOut, aRequest);
  upc.Guard();
  upc.MixedDigits(tabla_UPC_E[upc.Digit(8)], 'E');
  upc.UpcEnd();
}

}  // namespace Zor::inline Utils
