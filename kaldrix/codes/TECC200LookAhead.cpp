#include "kaldrix/codes/TECC200LookAhead.hpp"

#include <algorithm>
#include <array>

namespace Zor::inline Datamatrix {

namespace {

constexpr std::size_t Modes = emBase256 + 1;
/// In the order of TZOREncodeMode.
using TCounters = std::array<double, Modes>;

// What a byte costs in each scheme --------------------------------------------------

constexpr bool IsHigh(std::uint8_t c) { return c > 127; }
constexpr bool IsDigit(std::uint8_t c) { return c >= '0' && c <= '9'; }
constexpr bool IsC40(std::uint8_t c) { return c == ' ' || IsDigit(c) || (c >= 'A' && c <= 'Z'); }
constexpr bool IsText(std::uint8_t c) { return c == ' ' || IsDigit(c) || (c >= 'a' && c <= 'z'); }
constexpr bool IsX12Only(std::uint8_t c) { return c == '\r' || c == '*' || c == '>'; }
constexpr bool IsX12(std::uint8_t c) { return IsC40(c) || IsX12Only(c); }
constexpr bool IsEDIFACT(std::uint8_t c) { return c >= 32 && c <= 94; }

constexpr double Cost(std::uint8_t c, bool aInSet, double aIn, double aOther, double aHigh) {
  return aInSet ? aIn : IsHigh(c) ? aHigh : aOther;
}

constexpr std::array<TCounters, 256> Costs = [] {
  std::array<TCounters, 256> costs{};
  for (std::size_t i = 0; i < 256; ++i) {
    const auto c = static_cast<std::uint8_t>(i);
    costs[i] = {Cost(c, IsDigit(c), 0.5, 1, 2),
                Cost(c, IsC40(c), 2.0 / 3, 4.0 / 3, 8.0 / 3),
                Cost(c, IsText(c), 2.0 / 3, 4.0 / 3, 8.0 / 3),
                Cost(c, IsX12(c), 2.0 / 3, 10.0 / 3, 13.0 / 3),
                Cost(c, IsEDIFACT(c), 3.0 / 4, 13.0 / 4, 17.0 / 4),
                1};
  }
  return costs;
}();

constexpr TCounters FromASCII{0, 1, 1, 1, 1, 1.25}, FromOther{1, 2, 2, 2, 2, 2.25};

// Answers --------------------------------------------------

constexpr auto Undecided = static_cast<TZOREncodeMode>(Modes);

template <class TLess>
bool AllOthers(const TCounters& n, TZOREncodeMode aMode, TLess aApart) {
  for (std::size_t other = 0; other < Modes; ++other) {
    if (other != aMode && !aApart(n[other], n[aMode])) return false;
  }
  return true;
}

/// Seven tests in a fixed order; `aByte` is the byte counted last.
TZOREncodeMode Test(const TCounters& n, std::uint8_t aByte, bool aIsLast) {
  const double a = n[emASCII], c = n[emC40], t = n[emText], x = n[emX12], e = n[emEDIFACT], b = n[emBase256];
  const auto leads = [&n](TZOREncodeMode aMode) {
    return AllOthers(n, aMode, [](double aOther, double aOwn) { return aOther > aOwn + 1; });
  };
  if (AllOthers(n, emASCII, [](double aOther, double aOwn) { return aOther >= aOwn + 1; })) return emASCII;
  if (a >= b + 1) return emBase256;
  if (c >= b && t >= b && x >= b && e >= b) return emBase256;
  if (leads(emEDIFACT)) return emEDIFACT;
  if (leads(emText)) return emText;
  if (leads(emX12)) return emX12;
  if (a > c + 1 && b > c + 1 && e > c + 1 && t > c + 1) {
    if (c != x) return emC40;
    return IsX12Only(aByte) && !aIsLast ? emX12 : emC40;
  }
  return Undecided;
}

/// The data ended without an answer: the counters are rounded up and the least one wins.
TZOREncodeMode Least(TCounters n) {
  for (double& counter : n) counter = static_cast<double>(static_cast<std::int64_t>(counter + 0.9999999));
  if (AllOthers(n, emASCII, [](double aOther, double aOwn) { return aOther >= aOwn; })) return emASCII;
  for (const TZOREncodeMode mode : {emBase256, emEDIFACT, emText, emX12}) {
    if (AllOthers(n, mode, [](double aOther, double aOwn) { return aOther > aOwn; })) return mode;
  }
  return emC40;
}

constexpr std::size_t BytesBeforeTests = 4;

TCounters Start(TZOREncodeMode aCurrent) {
  TCounters n = aCurrent == emASCII ? FromASCII : FromOther;
  n[aCurrent] = 0;
  return n;
}

void Add(TCounters& n, const TCounters& aCost) {
  for (std::size_t mode = 0; mode < Modes; ++mode) n[mode] += aCost[mode];
}

}  // namespace

TECC200LookAhead::TECC200LookAhead(std::span<const std::uint8_t> aData)
    : fData(aData), fHighEnd(aData.size()) {
  while (fHighEnd > 0 && !IsHigh(aData[fHighEnd - 1])) --fHighEnd;
}

bool TECC200LookAhead::IsBase256(std::size_t aPosition, TZOREncodeMode aCurrent) const {
  TCounters n = Start(aCurrent);
  for (std::size_t i = aPosition; i < fData.size(); ++i) {
    // Without bytes above 127, ASCII never grows faster than Base 256. Once ahead by 1 it stays so: the
    // second test fails, and where the third would hold, the first has held before.
    if (i >= fHighEnd && n[emBase256] >= n[emASCII] + 1) return false;
    Add(n, Costs[fData[i]]);
    if (i - aPosition < BytesBeforeTests) continue;
    const TZOREncodeMode answer = Test(n, fData[i], i + 1 == fData.size());
    if (answer != Undecided) return answer == emBase256;
  }
  return Least(n) == emBase256;
}

}  // namespace Zor::inline Datamatrix
