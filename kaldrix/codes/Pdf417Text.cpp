#include "kaldrix/codes/Pdf417Text.hpp"

namespace Zor::inline Pdf417 {

namespace {

constexpr std::size_t Modes = tmNone;

// ISO/IEC 15438, table of text compaction: the characters of a sub-mode in the order of their values. A byte
// of 0 is a value without character here.
using namespace std::string_view_literals;
constexpr std::array<std::string_view, Modes> TextSets{
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ "sv,
    "abcdefghijklmnopqrstuvwxyz "sv,
    "0123456789&\r\t,:#-.$/+%*=^\0 "sv,
    ";<>@[\\]_`~!\r\t,:\n-.$/\"|*()?{}'"sv,
};

using TValues = std::array<std::uint8_t, 256>;

constexpr std::array<TValues, Modes> Values = [] {
  std::array<TValues, Modes> values{};
  for (std::size_t mode = 0; mode < Modes; ++mode) {
    values[mode].fill(NoTextValue);
    for (std::size_t i = 0; i < TextSets[mode].size(); ++i) {
      const auto c = static_cast<unsigned char>(TextSets[mode][i]);
      if (c != 0) values[mode][c] = static_cast<std::uint8_t>(i);
    }
  }
  return values;
}();

constexpr std::array<TZORPdf417TextMode, 256> ModeOf = [] {
  std::array<TZORPdf417TextMode, 256> modes{};
  for (std::size_t c = 0; c < 256; ++c) {
    std::size_t mode = tmAlpha;
    while (mode < Modes && Values[mode][c] == NoTextValue) ++mode;
    modes[c] = static_cast<TZORPdf417TextMode>(mode);
  }
  return modes;
}();

struct TSwitchRow {
  TTextSwitch latch, oneShot;
};

// From, to: the values of the latch and those of the switch for one character, which stays in the former
// sub-mode where there is a shift.
constexpr TTextSwitch None{{0, 0}, 0, false};
constexpr TTextSwitch One(std::uint8_t aValue) { return {{aValue, 0}, 1, false}; }
constexpr TTextSwitch Two(std::uint8_t aFirst, std::uint8_t aSecond) { return {{aFirst, aSecond}, 2, false}; }
constexpr TTextSwitch Shift(std::uint8_t aValue) { return {{aValue, 0}, 1, true}; }

constexpr std::array<std::array<TSwitchRow, Modes>, Modes> Switches{{
    {{{None, None}, {One(27), One(27)}, {One(28), One(28)}, {Two(28, 25), Shift(29)}}},
    {{{Two(28, 28), Shift(27)}, {None, None}, {One(28), One(28)}, {Two(28, 25), Shift(29)}}},
    {{{One(28), One(28)}, {One(27), One(27)}, {None, None}, {One(25), Shift(29)}}},
    {{{One(29), One(29)}, {Two(29, 27), Two(29, 27)}, {Two(29, 28), Two(29, 28)}, {None, None}}},
}};

}  // namespace

std::uint8_t TextValue(TZORPdf417TextMode aMode, unsigned aChar) { return Values[aMode][aChar]; }

TZORPdf417TextMode TextModeOf(unsigned aChar) { return ModeOf[aChar]; }

const TTextSwitch& TextSwitch(TZORPdf417TextMode aFrom, TZORPdf417TextMode aTo, bool aOneShot) {
  const TSwitchRow& row = Switches[aFrom][aTo];
  return aOneShot ? row.oneShot : row.latch;
}

}  // namespace Zor::inline Pdf417
