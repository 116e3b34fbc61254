// The linear symbologies inside: what the parts of TBarcode know of each other.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kaldrix/types/BarcodeTables.hpp"

namespace Zor::inline Utils {

// Sets of characters -------------------------------------------------------------------

/// The sets that a byte belongs to, one bit each.
enum TCharSet : std::uint16_t {
  csDigit = 1,
  csParenthesis = 2,
  csCode39 = 4,
  csCode93 = 8,
  csCodabar = 16,
  csCode11 = 32,
  csAscii = 64,
  csSetA = 128,  ///< bytes 0 to 95
  csSetB = 256,  ///< bytes 32 to 127
  csSetE = 512   ///< what set B of Code 128 has behind an FNC4
};

inline constexpr auto CharSets = [] {
  std::array<std::uint16_t, 256> sets{};
  const auto add = [&](const auto& aChars, TCharSet aSet) {
    for (const char c : aChars) sets[static_cast<unsigned char>(c)] |= aSet;
  };
  add(std::string_view("0123456789"), csDigit);
  add(std::string_view("()"), csParenthesis);
  add(ValidFullCode39, csCode39);
  add(ValidCode93, csCode93);
  add(ValidCodabar, csCodabar);
  add(ValidCode11, csCode11);
  add(ValidCode128E, csSetE);
  for (std::size_t i = 0; i < 128; ++i) sets[i] |= csAscii;
  for (std::size_t i = 0; i < 96; ++i) sets[i] |= csSetA;
  for (std::size_t i = 32; i < 128; ++i) sets[i] |= csSetB;
  return sets;
}();

/// Is the byte in one of the sets?
inline bool IsIn(char aChar, int aSets) { return (CharSets[static_cast<unsigned char>(aChar)] & aSets) != 0; }
bool AllIn(std::string_view aCode, int aSets);

/// What is no digit counts as 0.
inline std::size_t DigitOf(char aChar) {
  return IsIn(aChar, csDigit) ? static_cast<std::size_t>(aChar - '0') : 0;
}

/// A text with the characters from 128 on left out and the others expanded.
std::string Expanded(std::string_view aCode, const std::array<TExpansion, 128>& aTable);

// Preparing ----------------------------------------------------------------------------

/// A code on its way to the text that is encoded.
struct TPreparing {
  std::string text;
  std::string check;
  TZOR128AutoType mode = at128None;
  bool checkSum = false;
  bool ignoreParentheses = false;
  std::size_t length = 0;  ///< of a symbol with a fixed number of digits
  TZORBarType type = btEAN13;
};

void PreparePlain(TPreparing& aCode);
void PrepareEan(TPreparing& aCode);
void PrepareCode39(TPreparing& aCode);
void PrepareCode39Ex(TPreparing& aCode);
void PrepareCode128(TPreparing& aCode);
/// Code 128 set C: an even number of digits.
void PrepareCode128C(TPreparing& aCode);
void PrepareAuto128(TPreparing& aCode);
void PrepareInterleaved(TPreparing& aCode);
void PrepareTwoOfFive(TPreparing& aCode);
void PrepareCode11(TPreparing& aCode);
void PrepareMsi(TPreparing& aCode);

// Writing patterns ---------------------------------------------------------------------

/// A prepared code, and how its pattern is wanted.
struct TPatternRequest {
  std::string_view code;
  TZORBarType type;
  TZOR128AutoType mode;
  bool showNumber;
};

void WriteEan13(std::string& aOut, const TPatternRequest& aRequest);
void WriteEan8(std::string& aOut, const TPatternRequest& aRequest);
void WriteUpcA(std::string& aOut, const TPatternRequest& aRequest);
void WriteUpcE(std::string& aOut, const TPatternRequest& aRequest);
void WriteCode39(std::string& aOut, const TPatternRequest& aRequest);
void WriteCode39Ex(std::string& aOut, const TPatternRequest& aRequest);
void WriteCode93(std::string& aOut, const TPatternRequest& aRequest);
void WriteCode93Ex(std::string& aOut, const TPatternRequest& aRequest);
void WriteCodabar(std::string& aOut, const TPatternRequest& aRequest);
void WriteInterleaved(std::string& aOut, const TPatternRequest& aRequest);
void WriteIndustrial(std::string& aOut, const TPatternRequest& aRequest);
void WriteMatrix(std::string& aOut, const TPatternRequest& aRequest);
void WriteCode11(std::string& aOut, const TPatternRequest& aRequest);
void WriteMsi(std::string& aOut, const TPatternRequest& aRequest);
void WritePostNet(std::string& aOut, const TPatternRequest& aRequest);
/// Code 128 and GS1-128, all sets.
void WriteCode128(std::string& aOut, const TPatternRequest& aRequest);

// Reading them -------------------------------------------------------------------------

/// What a reader takes from a pattern of Code 128 or GS1-128, as ISO/IEC 15417 has it: the upper half of the
/// code page behind an FNC4, an FNC1 behind the first character as Gs1Separator. Nothing where it is no
/// symbol.
std::optional<std::string> ReadCode128(std::string_view aPattern);

}  // namespace Zor::inline Utils
