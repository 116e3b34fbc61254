#include "kaldrix/utils/TBarcode.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/utils/BarSymbology.hpp"

namespace Zor::inline Utils {

namespace {

/// What is special about a symbology.
struct TSymbology {
  TZORBarType type;
  int chars;           ///< what a code is made of (TCharSet)
  std::size_t length;  ///< of a symbol with a fixed number of digits, check digit included; else 0
  void (*prepare)(TPreparing&);
  void (*write)(std::string&, const TPatternRequest&);
};

/// By ordinal.
constexpr std::array<TSymbology, 23> Symbologies{{
    {btEAN13, csDigit, 13, PrepareEan, WriteEan13},
    {btEAN8, csDigit, 8, PrepareEan, WriteEan8},
    {btUPCA, csDigit, 12, PrepareEan, WriteUpcA},
    {btUPCE0, csDigit, 8, PrepareEan, WriteUpcE},
    {btCODE39, csCode39, 0, PrepareCode39, WriteCode39},
    {btCODE39EX, csAscii, 0, PrepareCode39Ex, WriteCode39Ex},
    {btCODE93, csCode93, 0, PreparePlain, WriteCode93},
    {btCODE93EX, csAscii, 0, PreparePlain, WriteCode93Ex},
    {btCODABAR, csCodabar, 0, PreparePlain, WriteCodabar},
    {btEAN128A, csSetA, 0, PrepareCode128, WriteCode128},
    {btEAN128B, csSetB, 0, PrepareCode128, WriteCode128},
    {btEAN128C, csDigit, 0, PrepareCode128C, WriteCode128},
    {btEAN128AUTO, csSetB | csSetE, 0, PrepareAuto128, WriteCode128},
    {btCODE128A, csSetA, 0, PrepareCode128, WriteCode128},
    {btCODE128B, csSetB, 0, PrepareCode128, WriteCode128},
    {btCODE128C, csDigit, 0, PrepareCode128C, WriteCode128},
    {btCODE128AUTO, csSetB | csSetE, 0, PrepareAuto128, WriteCode128},
    {btINTER_25, csDigit, 0, PrepareInterleaved, WriteInterleaved},
    {btINDUS_25, csDigit, 0, PrepareTwoOfFive, WriteIndustrial},
    {btMATRIX_25, csDigit, 0, PrepareTwoOfFive, WriteMatrix},
    {btCODE11, csCode11, 0, PrepareCode11, WriteCode11},
    {btMSI, csDigit, 0, PrepareMsi, WriteMsi},
    {btPOSTNET, csDigit, 0, PreparePlain, WritePostNet},
}};

constexpr bool RowsStandByOrdinal() {
  for (std::size_t i = 0; i < Symbologies.size(); ++i) {
    if (Symbologies[i].type != i) return false;
  }
  return true;
}
static_assert(RowsStandByOrdinal());
static_assert(Symbologies.size() == EnumCount<TZORBarType>);

}  // namespace

// From text to pattern -----------------------------------------------------------------

bool TBarcode::IsValidCode(std::string_view Cod, TZORBarType CodeType, bool CheckSum,
                           bool IgnoreParentheses) {
  const TSymbology& symbology = Symbologies[CodeType];
  if (symbology.length != 0) {
    const bool fits = CheckSum ? Cod.size() <= symbology.length : Cod.size() == symbology.length;
    if (!fits) return false;
  }
  const bool pairs = symbology.prepare == PrepareCode128C;
  return AllIn(Cod, symbology.chars | (pairs && IgnoreParentheses ? csParenthesis : 0));
}

std::string TBarcode::PrepareBarcode(std::string_view Code, TZORBarType CodeType, bool CheckSum,
                                     bool IgnoreParentheses, std::string& CheckDigit,
                                     TZOR128AutoType& Auto128) {
  const TSymbology& symbology = Symbologies[CodeType];
  TPreparing code{std::string(Code), {}, at128None, CheckSum, IgnoreParentheses, symbology.length, CodeType};
  symbology.prepare(code);
  CheckDigit = std::move(code.check);
  Auto128 = code.mode;
  return std::move(code.text);
}

std::string TBarcode::FillBarPattern(std::string_view Code, TZORBarType CodeType, TZOR128AutoType Auto128,
                                     bool ShowNumber) {
  std::string pattern;
  Symbologies[CodeType].write(pattern, {Code, CodeType, Auto128, ShowNumber});
  return pattern;
}

// Measuring a pattern ------------------------------------------------------------------

namespace {

constexpr std::size_t WidthKinds = dw32 + 1;
/// Counters of that many bits stand side by side in one number, one for each width.
constexpr int CounterBits = 10;
constexpr std::size_t MostCounted = (1 << CounterBits) - 1;

/// What each byte adds to the counters.
constexpr auto CounterSteps = [] {
  std::array<std::uint64_t, 256> steps{};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    steps[i] = std::uint64_t{1} << (PatternElements[i].width * CounterBits);
  }
  return steps;
}();

/// How many elements of each width a pattern has.
std::array<Int64, WidthKinds> CountWidths(std::string_view aPattern) {
  std::array<Int64, WidthKinds> counts{};
  while (!aPattern.empty()) {
    const std::string_view part = aPattern.substr(0, MostCounted);
    aPattern.remove_prefix(part.size());
    std::uint64_t counters = 0;
    for (const char c : part) counters += CounterSteps[static_cast<unsigned char>(c)];
    for (Int64& count : counts) {
      count += static_cast<Int64>(counters & MostCounted);
      counters >>= CounterBits;
    }
  }
  return counts;
}

}  // namespace

int TBarcode::BarCodeWidth(std::string_view Pattern, int BarWidth, Single Factor, bool IsValid) {
  constexpr int invalidBars = 60;
  const std::array<Int64, WidthKinds> counts = CountWidths(Pattern);
  const double w = BarWidth;
  double width = w * invalidBars;
  if (IsValid) {
    // The wide elements are whole numbers, and those of 3/2 are cut to one.
    const double wide = std::nearbyint(w * static_cast<double>(Factor));
    const std::array<double, 6> widths{w, wide, 2 * w, 3 * w, 4 * w, std::trunc(1.5 * w)};
    width = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) width += static_cast<double>(counts[i]) * widths[i];
  }
  constexpr double most = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(width, -most, most));
}

void TBarcode::FillBarData(char Char, TZORDrawWidth& Width, TZORDrawBar& Bar) {
  const TPatternElement& element = PatternElements[static_cast<unsigned char>(Char)];
  Width = element.width;
  Bar = element.bar;
}

namespace {

/// The width of the first `aCount` elements.
double WidthOfFirst(std::size_t aCount, std::string_view aPattern, double aBarWidth, double aFactor) {
  double width = 0;
  for (const char c : aPattern.substr(0, aCount)) {
    width += ElementWidth(PatternElements[static_cast<unsigned char>(c)].width, aBarWidth, aFactor);
  }
  return width;
}

}  // namespace

// A guard has 3 elements or 5, a digit 4; the middle of a half of six digits lies behind three of them.

void TBarcode::Ean13Pos(std::string_view Pattern, double BarWidth, double Factor, double& Text1,
                        double& Text2) {
  Text1 = WidthOfFirst(15, Pattern, BarWidth, Factor);
  Text2 = WidthOfFirst(44, Pattern, BarWidth, Factor);
}

void TBarcode::Ean8Pos(std::string_view Pattern, double BarWidth, double Factor, double& Text1,
                       double& Text2) {
  Text1 = WidthOfFirst(11, Pattern, BarWidth, Factor);
  Text2 = WidthOfFirst(32, Pattern, BarWidth, Factor);
}

void TBarcode::UPCAPos(std::string_view Pattern, double BarWidth, double Factor, double& Text1, double& Text2,
                       double& Text3) {
  Ean13Pos(Pattern, BarWidth, Factor, Text1, Text2);
  Text3 = WidthOfFirst(59, Pattern, BarWidth, Factor);
}

void TBarcode::UPCEPos(std::string_view Pattern, double BarWidth, double Factor, double& Text1,
                       double& Text2) {
  Text1 = WidthOfFirst(15, Pattern, BarWidth, Factor);
  Text2 = WidthOfFirst(33, Pattern, BarWidth, Factor);
}

}  // namespace Zor::inline Utils
