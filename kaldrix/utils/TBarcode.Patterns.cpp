// The patterns of the symbologies but for Code 128.
#include <algorithm>
#include <cstring>

#include "kaldrix/utils/BarSymbology.hpp"

namespace Zor::inline Utils {

namespace {

// Writing cells ------------------------------------------------------------------------

/// The elements of a character, a digit or a pair of digits.
template <std::size_t TheSize>
using TCell = std::array<char, TheSize>;
template <std::size_t TheSize, std::size_t TheCount>
using TCells = std::array<TCell<TheSize>, TheCount>;

/// Fills a string cell by cell. Cells have constant sizes, so that each is a move or two.
class TPatternWriter {
 public:
  /// `aMost` elements at most.
  TPatternWriter(std::string& aOut, std::size_t aMost) : fOut(aOut) {
    fOut.resize(aMost);
    fNext = fOut.data();
  }
  ~TPatternWriter() { fOut.resize(static_cast<std::size_t>(fNext - fOut.data())); }
  TPatternWriter(const TPatternWriter&) = delete;
  TPatternWriter& operator=(const TPatternWriter&) = delete;

  template <std::size_t TheSize>
  void Cell(const TCell<TheSize>& aCell) {
    std::memcpy(fNext, aCell.data(), TheSize);
    fNext += TheSize;
  }
  /// The first `aLength` elements of a cell, all of which has to have room.
  template <std::size_t TheSize>
  void Part(const TCell<TheSize>& aCell, std::size_t aLength) {
    std::memcpy(fNext, aCell.data(), TheSize);
    fNext += aLength;
  }
  void Text(std::string_view aPattern) { fNext = std::copy(aPattern.begin(), aPattern.end(), fNext); }

 private:
  std::string& fOut;
  char* fNext;
};

/// The patterns of a table, each with a narrow space behind it if its cell has room for one.
template <std::size_t TheSize, std::size_t TheCount>
constexpr TCells<TheSize, TheCount> CellsOfRows(const std::array<TBarRow, TheCount>& aTable) {
  TCells<TheSize, TheCount> cells{};
  for (std::size_t i = 0; i < TheCount; ++i) {
    cells[i].fill('1');
    std::copy(aTable[i].pattern.begin(), aTable[i].pattern.end(), cells[i].begin());
  }
  return cells;
}
constexpr auto Cells39 = CellsOfRows<10>(tabla_39);
constexpr auto Cells93 = CellsOfRows<6>(tabla_93);
constexpr auto CellsCodabar = CellsOfRows<8>(tabla_cb);

/// The characters that a table has, between a start and a stop character.
template <std::size_t TheSize, std::size_t TheCount>
void WriteRows(std::string& aOut, std::string_view aCode, const TCells<TheSize, TheCount>& aCells,
               const std::array<std::int8_t, 256>& aRows, char aStart, char aStop) {
  const auto cell = [&](char c) -> const TCell<TheSize>& {
    return aCells[static_cast<std::size_t>(aRows[static_cast<unsigned char>(c)])];
  };
  TPatternWriter writer(aOut, (aCode.size() + 2) * TheSize);
  writer.Cell(cell(aStart));
  for (const char c : aCode) {
    if (aRows[static_cast<unsigned char>(c)] >= 0) writer.Cell(cell(c));
  }
  // Nothing stands behind the stop character.
  writer.Part(cell(aStop), TheSize - 1);
}

// Cells of digits ----------------------------------------------------------------------

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
  TPatternWriter writer(aOut, aStart.size() + aCode.size() * TheSize + aStop.size());
  writer.Text(aStart);
  for (const char c : aCode) writer.Cell(aCells[DigitOf(c)]);
  writer.Text(aStop);
}

}  // namespace

// Code 39, Codabar -----------------------------------------------------------------------

void WriteCode39(std::string& aOut, const TPatternRequest& aRequest) {
  WriteRows(aOut, aRequest.code, Cells39, Rows39, '*', '*');
}

void WriteCode39Ex(std::string& aOut, const TPatternRequest& aRequest) {
  WriteRows(aOut, Expanded(aRequest.code, tabla_39ex), Cells39, Rows39, '*', '*');
}

void WriteCodabar(std::string& aOut, const TPatternRequest& aRequest) {
  WriteRows(aOut, aRequest.code, CellsCodabar, RowsCodabar, 'A', 'B');
}

// Code 93 --------------------------------------------------------------------------------

namespace {

/// The check over values, weights from the right, `aFirstWeight` to `aMostWeight` and then from 1 on.
std::size_t Code93Check(std::string_view aValues, std::size_t aFirstWeight, std::size_t aMostWeight) {
  std::size_t sum = 0, weight = aFirstWeight;
  for (std::size_t i = aValues.size(); i-- > 0;) {
    sum += static_cast<std::size_t>(aValues[i]) * weight;
    if (++weight > aMostWeight) weight = 1;
  }
  return sum;
}

void WriteCode93Text(std::string& aOut, std::string_view aCode) {
  constexpr std::string_view start = "N1N1W1", stop = "N1N1W1N";
  constexpr std::size_t weightsOfC = 20, weightsOfK = 15, checks = 2;
  std::string values;
  values.reserve(aCode.size() + checks);
  for (const char c : aCode) {
    const int row = Rows93[static_cast<unsigned char>(c)];
    if (row >= 0) values += static_cast<char>(row);
  }
  const std::size_t c = Code93Check(values, 1, weightsOfC) % tabla_93.size();
  // K weighs C with 1, so that the text begins with 2.
  const std::size_t k = (c + Code93Check(values, 2, weightsOfK)) % tabla_93.size();
  TPatternWriter writer(aOut, start.size() + (values.size() + checks) * Cells93[0].size() + stop.size());
  writer.Text(start);
  for (const char value : values) writer.Cell(Cells93[static_cast<std::size_t>(value)]);
  writer.Cell(Cells93[c]);
  writer.Cell(Cells93[k]);
  writer.Text(stop);
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
  TPatternWriter writer(aOut, start.size() + code.size() * 5 + stop.size());
  writer.Text(start);
  for (std::size_t i = 0; i + 1 < code.size(); i += 2) {
    writer.Cell(InterleavedCells[DigitOf(code[i]) * 10 + DigitOf(code[i + 1])]);
  }
  writer.Text(stop);
}

void WriteIndustrial(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, IndustrialCells, "M1M1N1", "M1N1M1");
}

void WriteMatrix(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, MatrixCells, "F1N1N1", "F1N1N");
}

// Code 11, MSI, POSTNET ------------------------------------------------------------------

namespace {

/// Each with a narrow space behind it.
constexpr auto Code11Cells = [] {
  TCells<6, 12> cells{};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i].fill('6');
    std::copy(tabla_Code11[i].begin(), tabla_Code11[i].end(), cells[i].begin());
  }
  return cells;
}();

}  // namespace

void WriteCode11(std::string& aOut, const TPatternRequest& aRequest) {
  constexpr std::size_t frame = 10, dash = 11;
  TPatternWriter writer(aOut, (aRequest.code.size() + 2) * Code11Cells[0].size());
  writer.Cell(Code11Cells[frame]);
  for (const char c : aRequest.code) {
    if (IsIn(c, csCode11)) writer.Cell(Code11Cells[c == '-' ? dash : DigitOf(c)]);
  }
  writer.Text(tabla_Code11[frame]);
}

void WriteMsi(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, MsiCells, "D6", "M2M");
}

void WritePostNet(std::string& aOut, const TPatternRequest& aRequest) {
  WriteDigits(aOut, aRequest.code, PostNetCells, "N6", "N");
}

// EAN and UPC ----------------------------------------------------------------------------

namespace {

constexpr auto EanA = CellsOf<4>(tabla_EAN_A), EanB = CellsOf<4>(tabla_EAN_B), EanC = CellsOf<4>(tabla_EAN_C);
constexpr std::size_t LongestEan = 59;

/// A pattern of the EAN family in the making.
class TEanWriter {
 public:
  TEanWriter(std::string& aOut, const TPatternRequest& aRequest)
      : fWriter(aOut, LongestEan), fCode(aRequest.code), fShow(aRequest.showNumber) {}

  /// 1-based; 0 behind the end.
  std::size_t Digit(std::size_t aIndex) const {
    return aIndex <= fCode.size() ? DigitOf(fCode[aIndex - 1]) : 0;
  }
  void Guard() { fWriter.Text(fShow ? "919" : "N1N"); }
  void Middle() { fWriter.Text(fShow ? "19191" : "1N1N1"); }
  void UpcEnd() { fWriter.Text(fShow ? "191919" : "1N1N1N"); }
  /// The digits from `aFirst` to `aLast`, all in one number set.
  void Digits(std::size_t aFirst, std::size_t aLast, const TCells<4, 10>& aSet) {
    for (std::size_t i = aFirst; i <= aLast; ++i) fWriter.Cell(aSet[Digit(i)]);
  }
  /// Digits 2 to 7; the letter `aEven` in the row stands for set B.
  void MixedDigits(std::string_view aRow, char aEven) {
    for (std::size_t i = 0; i < aRow.size(); ++i) {
      fWriter.Cell((aRow[i] == aEven ? EanB : EanA)[Digit(i + 2)]);
    }
  }

 private:
  TPatternWriter fWriter;
  std::string_view fCode;
  bool fShow;
};

}  // namespace

void WriteEan13(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter ean(aOut, aRequest);
  ean.Guard();
  ean.MixedDigits(tabla_Par_EAN13[ean.Digit(1)], 'B');
  ean.Middle();
  ean.Digits(8, 13, EanC);
  ean.Guard();
}

void WriteEan8(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter ean(aOut, aRequest);
  ean.Guard();
  ean.Digits(1, 4, EanA);
  ean.Middle();
  ean.Digits(5, 8, EanC);
  ean.Guard();
}

void WriteUpcA(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter upc(aOut, aRequest);
  upc.Guard();
  upc.Digits(1, 6, EanA);
  upc.Middle();
  upc.Digits(7, 12, EanC);
  upc.Guard();
}

void WriteUpcE(std::string& aOut, const TPatternRequest& aRequest) {
  TEanWriter upc(aOut, aRequest);
  upc.Guard();
  upc.MixedDigits(tabla_UPC_E[upc.Digit(8)], 'E');
  upc.UpcEnd();
}

}  // namespace Zor::inline Utils
