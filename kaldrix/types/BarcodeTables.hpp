// What linear barcodes are made of: the elements of the pattern language and the tables of the symbologies in
// it. A pattern has one character an element; PatternTable tells what each is.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Types {

// The pattern language -----------------------------------------------------------------

/// A character of a pattern: how wide it is and what it draws.
struct TPatternElement {
  char symbol;
  TZORDrawWidth width;
  TZORDrawBar bar;
};

/// Widths are multiples of the bar width, 1F is times the wide factor. B2 is a bar of half height, EB one
/// that reaches down into the text.
inline constexpr std::array<TPatternElement, 17> PatternTable{{
    {'N', dw1, dbB},
    {'M', dw1F, dbB},
    {'D', dw2, dbB},
    {'T', dw3, dbB},
    {'W', dw4, dbB},
    {'F', dw32, dbB},
    {'A', dw1, dbB2},
    {'B', dw1F, dbB2},
    {'1', dw1, dbW},
    {'5', dw1, dbW},
    {'6', dw1F, dbW},
    {'2', dw2, dbW},
    {'3', dw3, dbW},
    {'8', dw3, dbW},
    {'7', dw32, dbW},
    {'4', dw4, dbEW},
    {'9', dw1, dbEB},
}};

/// The element of each byte; what is no character of the language is a narrow space.
inline constexpr auto PatternElements = [] {
  std::array<TPatternElement, 256> elements{};
  elements.fill({'1', dw1, dbW});
  for (const TPatternElement& row : PatternTable) elements[static_cast<unsigned char>(row.symbol)] = row;
  return elements;
}();

/// A character of a symbology and its pattern.
struct TBarRow {
  char symbol;
  std::string_view pattern;
};

/// The row of each byte in a table, or -1.
template <std::size_t TheCount>
constexpr std::array<std::int8_t, 256> RowsByByte(const std::array<TBarRow, TheCount>& aTable) {
  std::array<std::int8_t, 256> rows{};
  rows.fill(-1);
  for (std::size_t i = 0; i < TheCount; ++i) {
    rows[static_cast<unsigned char>(aTable[i].symbol)] = static_cast<std::int8_t>(i);
  }
  return rows;
}

// Code 39, ISO/IEC 16388 ---------------------------------------------------------------

/// The index of a row is its value in the check sum; "*", which starts and stops, has none.
inline constexpr std::array<TBarRow, 44> tabla_39{{
    {'0', "N1N6M1M1N"}, {'1', "M1N6N1N1M"}, {'2', "N1M6N1N1M"}, {'3', "M1M6N1N1N"}, {'4', "N1N6M1N1M"},
    {'5', "M1N6M1N1N"}, {'6', "N1M6M1N1N"}, {'7', "N1N6N1M1M"}, {'8', "M1N6N1M1N"}, {'9', "N1M6N1M1N"},
    {'A', "M1N1N6N1M"}, {'B', "N1M1N6N1M"}, {'C', "M1M1N6N1N"}, {'D', "N1N1M6N1M"}, {'E', "M1N1M6N1N"},
    {'F', "N1M1M6N1N"}, {'G', "N1N1N6M1M"}, {'H', "M1N1N6M1N"}, {'I', "N1M1N6M1N"}, {'J', "N1N1M6M1N"},
    {'K', "M1N1N1N6M"}, {'L', "N1M1N1N6M"}, {'M', "M1M1N1N6N"}, {'N', "N1N1M1N6M"}, {'O', "M1N1M1N6N"},
    {'P', "N1M1M1N6N"}, {'Q', "N1N1N1M6M"}, {'R', "M1N1N1M6N"}, {'S', "N1M1N1M6N"}, {'T', "N1N1M1M6N"},
    {'U', "M6N1N1N1M"}, {'V', "N6M1N1N1M"}, {'W', "M6M1N1N1N"}, {'X', "N6N1M1N1M"}, {'Y', "M6N1M1N1N"},
    {'Z', "N6M1M1N1N"}, {'-', "N6N1N1M1M"}, {'.', "M6N1N1M1N"}, {' ', "N6M1N1M1N"}, {'$', "N6N6N6N1N"},
    {'/', "N6N6N1N6N"}, {'+', "N6N1N6N6N"}, {'%', "N1N6N6N6N"}, {'*', "N6N1M1M1N"},
}};
inline constexpr auto Rows39 = RowsByByte(tabla_39);
/// How many characters have a value in the check sum.
inline constexpr int Values39 = 43;

// Code 93, AIM USS-93 ------------------------------------------------------------------

/// In the order of the values. The last four are the shift characters ($) (%) (/) (+).
inline constexpr std::array<TBarRow, 47> tabla_93{{
    {'0', "N3N1N2"}, {'1', "N1N2N3"}, {'2', "N1N3N2"}, {'3', "N1N4N1"}, {'4', "N2N1N3"}, {'5', "N2N2N2"},
    {'6', "N2N3N1"}, {'7', "N1N1N4"}, {'8', "N3N2N1"}, {'9', "N4N1N1"}, {'A', "D1N1N3"}, {'B', "D1N2N2"},
    {'C', "D1N3N1"}, {'D', "D2N1N2"}, {'E', "D2N2N1"}, {'F', "D3N1N1"}, {'G', "N1D1N3"}, {'H', "N1D2N2"},
    {'I', "N1D3N1"}, {'J', "N2D1N2"}, {'K', "N3D1N1"}, {'L', "N1N1D3"}, {'M', "N1N2D2"}, {'N', "N1N3D1"},
    {'O', "N2N1D2"}, {'P', "N3N1D1"}, {'Q', "D1D1N2"}, {'R', "D1D2N1"}, {'S', "D1N1D2"}, {'T', "D1N2D1"},
    {'U', "D2N1D1"}, {'V', "D2D1N1"}, {'W', "N1D1D2"}, {'X', "N1D2D1"}, {'Y', "N2D1D1"}, {'Z', "N2T1N1"},
    {'-', "N2N1T1"}, {'.', "T1N1N2"}, {' ', "T1N2N1"}, {'$', "T2N1N1"}, {'/', "N1D1T1"}, {'+', "N1T1D1"},
    {'%', "D1N1T1"}, {'[', "N2N2D1"}, {']', "T1D1N1"}, {'{', "T1N1D1"}, {'}', "N2D2N1"},
}};
inline constexpr auto Rows93 = RowsByByte(tabla_93);

// Full ASCII ---------------------------------------------------------------------------

/// A text of one or two characters.
struct TExpansion {
  std::uint8_t length;
  std::array<char, 2> text;

  constexpr std::string_view View() const { return {text.data(), length}; }
};

/// The pairs that stand for the ASCII characters which a symbology lacks: a shift character, and letters in
/// the order of the ASCII codes from `first` on.
struct TShiftRun {
  int first, last;
  char shift;  ///< '$', '%', '/' or '+'
  char letter;
};
/// Appendix A of ISO/IEC 16388; Code 93 has the same table with shift characters of its own.
inline constexpr std::array<TShiftRun, 12> FullAsciiRuns{{
    {0, 0, '%', 'U'},
    {1, 26, '$', 'A'},
    {27, 31, '%', 'A'},
    {33, 44, '/', 'A'},
    {47, 47, '/', 'O'},
    {58, 58, '/', 'Z'},
    {59, 63, '%', 'F'},
    {64, 64, '%', 'V'},
    {91, 95, '%', 'K'},
    {96, 96, '%', 'W'},
    {97, 122, '+', 'A'},
    {123, 127, '%', 'P'},
}};

/// Makes the table for the shift characters that stand for $ % / +.
constexpr std::array<TExpansion, 128> FullAscii(char aDollar, char aPercent, char aSlash, char aPlus) {
  std::array<TExpansion, 128> table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = {1, {static_cast<char>(i), 0}};
  const auto shifted = [&](char aShift) {
    return aShift == '$' ? aDollar : aShift == '%' ? aPercent : aShift == '/' ? aSlash : aPlus;
  };
  const auto fill = [&](const TShiftRun& aRun) {
    for (int i = aRun.first; i <= aRun.last; ++i) {
      const char letter = static_cast<char>(aRun.letter + i - aRun.first);
      table[static_cast<std::size_t>(i)] = {2, {shifted(aRun.shift), letter}};
    }
  };
  for (const TShiftRun& run : FullAsciiRuns) fill(run);
  return table;
}

inline constexpr auto tabla_39ex = FullAscii('$', '%', '/', '+');
inline constexpr auto tabla_93Ex = FullAscii('[', ']', '{', '}');

// Codabar, ANSI/AIM BC3 ----------------------------------------------------------------

inline constexpr std::array<TBarRow, 20> tabla_cb{{
    {'1', "N1N1M6N"}, {'2', "N1N6N1M"}, {'3', "M6N1N1N"}, {'4', "N1M1N6N"}, {'5', "M1N1N6N"},
    {'6', "N6N1N1M"}, {'7', "N6N1M1N"}, {'8', "N6M1N1N"}, {'9', "M1N6N1N"}, {'0', "N1N1N6M"},
    {'-', "N1N6M1N"}, {'$', "N1M6N1N"}, {':', "M1N1M1M"}, {'/', "M1M1N1M"}, {'.', "M1M1M1N"},
    {'+', "N1M1M1M"}, {'A', "N1M6N6N"}, {'B', "N6N6N1M"}, {'C', "N1N6N6M"}, {'D', "N1N6M6N"},
}};
inline constexpr auto RowsCodabar = RowsByByte(tabla_cb);

// EAN and UPC, ISO/IEC 15420 -----------------------------------------------------------

/// The number sets: A and B begin with a space, C with a bar.
inline constexpr std::array<std::string_view, 10> tabla_EAN_A{"3D1N", "2D2N", "2N2D", "1W1N", "1N3D",
                                                              "1D3N", "1N1W", "1T1D", "1D1T", "3N1D"};
inline constexpr std::array<std::string_view, 10> tabla_EAN_B{"1N2T", "1D2D", "2D1D", "1N4N", "2T1N",
                                                              "1T2N", "4N1N", "2N3N", "3N2N", "2N1T"};
inline constexpr std::array<std::string_view, 10> tabla_EAN_C{"T2N1", "D2D1", "D1D2", "N4N1", "N1T2",
                                                              "N2T1", "N1N4", "N3N2", "N2N3", "T1N2"};
/// The number sets of digits 2 to 7 by digit 1.
inline constexpr std::array<std::string_view, 10> tabla_Par_EAN13{
    "AAAAAA", "AABABB", "AABBAB", "AABBBA", "ABAABB", "ABBAAB", "ABBBAA", "ABABAB", "ABABBA", "ABBABA"};
/// The parities of digits 2 to 7 by the check digit, number system 0: odd is set A, even set B.
inline constexpr std::array<std::string_view, 10> tabla_UPC_E{
    "EEEOOO", "EEOEOO", "EEOOEO", "EEOOOE", "EOEEOO", "EOOEEO", "EOOOEE", "EOEOEO", "EOEOOE", "EOOEOE"};

// The 2 of 5 family, ISO/IEC 16390 -----------------------------------------------------

/// 1 is a wide element.
inline constexpr std::array<std::string_view, 10> tabla_2_5{"00110", "10001", "01001", "11000", "00101",
                                                            "10100", "01100", "00011", "10010", "01010"};

// POSTNET, Code 11, MSI ----------------------------------------------------------------

/// N is a tall bar, A a short one: two of five are tall.
inline constexpr std::array<std::string_view, 10> tabla_PostNet{
    "N6N6A6A6A6", "A6A6A6N6N6", "A6A6N6A6N6", "A6A6N6N6A6", "A6N6A6A6N6",
    "A6N6A6N6A6", "A6N6N6A6A6", "N6A6A6A6N6", "N6A6A6N6A6", "N6A6N6A6A6"};

/// The digits, then the character that starts and stops, then "-".
inline constexpr std::array<std::string_view, 12> tabla_Code11{"M6M6D", "D6M6D", "M2M6D", "D2M6M",
                                                               "M6D6D", "D6D6M", "M2D6M", "M6M2D",
                                                               "D6M2M", "D6M6M", "M6D2M", "M6D6M"};

/// A digit is four bits, the most significant first: 0 a narrow bar, 1 a wide one.
inline constexpr std::array<std::string_view, 10> tabla_MSI{"M2M2M2M2", "M2M2M2D6", "M2M2D6M2", "M2M2D6D6",
                                                            "M2D6M2M2", "M2D6M2D6", "M2D6D6M2", "M2D6D6D6",
                                                            "D6M2M2M2", "D6M2M2D6"};

// Code 128, ISO/IEC 15417 --------------------------------------------------------------

/// One value of Code 128: the characters that it has in sets A and B and behind an FNC4 in set B, the digits
/// that it has in set C, and its pattern.
struct TCode128 {
  char a, b, e;
  std::array<char, 3> c;
  std::array<char, 7> data;

  constexpr std::string_view Pattern() const { return {data.data(), 6}; }
};

/// Widths of the elements of the values 0 to 102, bar first.
inline constexpr std::array<std::string_view, 103> Code128Widths{
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",
    "114131", "311141", "411131"};

inline constexpr auto Code128Table = [] {
  std::array<TCode128, 103> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    TCode128& row = table[i];
    // Value 95 has no character of its own in set B, and above 95 stand the function characters.
    row.a = static_cast<char>(i < 64 ? i + 32 : i < 96 ? i - 64 : ' ');
    row.b = static_cast<char>(i < 95 ? i + 32 : ' ');
    row.e = static_cast<char>(i >= 1 && i < 96 ? i + 160 : ' ');
    if (i < 100) row.c = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10), 0};
    for (std::size_t k = 0; k < 6; ++k) {
      const int width = Code128Widths[i][k] - '1';
      row.data[k] = (k % 2 == 0 ? "NDTW" : "1234")[width];
    }
  }
  return table;
}();

inline constexpr std::string_view Code128StartA = "D1N4N2", Code128StartB = "D1N2N4",
                                  Code128StartC = "D1N2T2", Code128Stop = "D3T1N1D";
/// Values of the start characters.
inline constexpr int StartA128 = 103, StartB128 = 104, StartC128 = 105;
/// Values of the function characters. FNC4 is that of set B.
inline constexpr int CodeC128 = 99, CodeB128 = 100, CodeA128 = 101, Fnc1Of128 = 102, Fnc4Of128 = 100;

static_assert(Code128Table[0].Pattern() == "D1D2D2");

// Character sets -----------------------------------------------------------------------

/// The lower-case letters are taken as upper case.
inline constexpr std::string_view ValidFullCode39 =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz $%*+-./";
inline constexpr std::string_view ValidCode93 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%+-./";
inline constexpr std::string_view ValidCodabar = "0123456789$+-./:";
inline constexpr std::string_view ValidCode11 = "0123456789-";
/// Space and the bytes from 161 on, but for the soft hyphen 173, in whose place there is a space too.
inline constexpr auto ValidCode128E = [] {
  std::array<char, 96> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = i == 0 || i == 13 ? ' ' : static_cast<char>(i + 160);
  return bytes;
}();

// Label printers -----------------------------------------------------------------------

/// A resident font of printers that speak EPL, sizes in dots.
struct TEPLFont {
  int dpi, font, width, height;
};
inline constexpr std::array<TEPLFont, 10> EPLFontTable{{
    {203, 1, 8, 12},
    {203, 2, 10, 16},
    {203, 3, 12, 20},
    {203, 4, 14, 24},
    {203, 5, 32, 48},
    {300, 1, 12, 20},
    {300, 2, 16, 28},
    {300, 3, 20, 36},
    {300, 4, 24, 44},
    {300, 5, 48, 80},
}};

}  // namespace Zor::inline Types
