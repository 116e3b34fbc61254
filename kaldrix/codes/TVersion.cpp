#include "kaldrix/codes/TVersion.hpp"

#include <algorithm>

namespace Zor::inline Qrcode {

namespace {

// ISO/IEC 18004, tables 9 (level L) and E.1: version; check codewords of a block, blocks and their data
// codewords, twice; coordinates of alignment patterns.
// clang-format off
constexpr std::array<TVersion, TVersion::Count> Versions{{
    { 1, { 7, {{{ 1,  19}, { 0,   0}}}}, {}},
    { 2, {10, {{{ 1,  34}, { 0,   0}}}}, {6, 18}},
    { 3, {15, {{{ 1,  55}, { 0,   0}}}}, {6, 22}},
    { 4, {20, {{{ 1,  80}, { 0,   0}}}}, {6, 26}},
    { 5, {26, {{{ 1, 108}, { 0,   0}}}}, {6, 30}},
    { 6, {18, {{{ 2,  68}, { 0,   0}}}}, {6, 34}},
    { 7, {20, {{{ 2,  78}, { 0,   0}}}}, {6, 22, 38}},
    { 8, {24, {{{ 2,  97}, { 0,   0}}}}, {6, 24, 42}},
    { 9, {30, {{{ 2, 116}, { 0,   0}}}}, {6, 26, 46}},
    {10, {18, {{{ 2,  68}, { 2,  69}}}}, {6, 28, 50}},
    {11, {20, {{{ 4,  81}, { 0,   0}}}}, {6, 30, 54}},
    {12, {24, {{{ 2,  92}, { 2,  93}}}}, {6, 32, 58}},
    {13, {26, {{{ 4, 107}, { 0,   0}}}}, {6, 34, 62}},
    {14, {30, {{{ 3, 115}, { 1, 116}}}}, {6, 26, 46, 66}},
    {15, {22, {{{ 5,  87}, { 1,  88}}}}, {6, 26, 48, 70}},
    {16, {24, {{{ 5,  98}, { 1,  99}}}}, {6, 26, 50, 74}},
    {17, {28, {{{ 1, 107}, { 5, 108}}}}, {6, 30, 54, 78}},
    {18, {30, {{{ 5, 120}, { 1, 121}}}}, {6, 30, 56, 82}},
    {19, {28, {{{ 3, 113}, { 4, 114}}}}, {6, 30, 58, 86}},
    {20, {28, {{{ 3, 107}, { 5, 108}}}}, {6, 34, 62, 90}},
    {21, {28, {{{ 4, 116}, { 4, 117}}}}, {6, 28, 50, 72, 94}},
    {22, {28, {{{ 2, 111}, { 7, 112}}}}, {6, 26, 50, 74, 98}},
    {23, {30, {{{ 4, 121}, { 5, 122}}}}, {6, 30, 54, 78, 102}},
    {24, {30, {{{ 6, 117}, { 4, 118}}}}, {6, 28, 54, 80, 106}},
    {25, {26, {{{ 8, 106}, { 4, 107}}}}, {6, 32, 58, 84, 110}},
    {26, {28, {{{10, 114}, { 2, 115}}}}, {6, 30, 58, 86, 114}},
    {27, {30, {{{ 8, 122}, { 4, 123}}}}, {6, 34, 62, 90, 118}},
    {28, {30, {{{ 3, 117}, {10, 118}}}}, {6, 26, 50, 74, 98, 122}},
    {29, {30, {{{ 7, 116}, { 7, 117}}}}, {6, 30, 54, 78, 102, 126}},
    {30, {30, {{{ 5, 115}, {10, 116}}}}, {6, 26, 52, 78, 104, 130}},
    {31, {30, {{{13, 115}, { 3, 116}}}}, {6, 30, 56, 82, 108, 134}},
    {32, {30, {{{17, 115}, { 0,   0}}}}, {6, 34, 60, 86, 112, 138}},
    {33, {30, {{{17, 115}, { 1, 116}}}}, {6, 30, 58, 86, 114, 142}},
    {34, {30, {{{13, 115}, { 6, 116}}}}, {6, 34, 62, 90, 118, 146}},
    {35, {30, {{{12, 121}, { 7, 122}}}}, {6, 30, 54, 78, 102, 126, 150}},
    {36, {30, {{{ 6, 121}, {14, 122}}}}, {6, 24, 50, 76, 102, 128, 154}},
    {37, {30, {{{17, 122}, { 4, 123}}}}, {6, 28, 54, 80, 106, 132, 158}},
    {38, {30, {{{ 4, 122}, {18, 123}}}}, {6, 32, 58, 84, 110, 136, 162}},
    {39, {30, {{{20, 117}, { 4, 118}}}}, {6, 26, 54, 82, 110, 138, 166}},
    {40, {30, {{{19, 118}, { 6, 119}}}}, {6, 30, 58, 86, 114, 142, 170}},
}};
// clang-format on

/// The codewords for which the function patterns leave room: all modules without finders and separators,
/// timing, format information, alignment patterns and version information.
constexpr int Room(const TVersion& aVersion) {
  const int side = aVersion.DimensionForVersion();
  const auto& centers = aVersion.FAlignmentPatternCenters;
  const auto lines = static_cast<int>(std::ranges::count_if(centers, [](int c) { return c != 0; }));
  const int alignment = lines == 0 ? 0 : 25 * (lines * lines - 3) - 10 * (lines - 2);
  const int version = aVersion.FVersionNumber < 7 ? 0 : 36;
  return (side * side - 3 * 64 - 2 * (side - 16) - 31 - alignment - version) / 8;
}
static_assert(std::ranges::all_of(Versions, [](const TVersion& v) { return v.TotalCodewords() == Room(v); }));

}  // namespace

const TVersion& TVersion::GetVersionForNumber(int aNumber) {
  return Versions.at(static_cast<std::size_t>(aNumber) - 1);
}

const TVersion* TVersion::ChooseVersion(std::int64_t aDataCodewords) {
  const auto found = std::ranges::lower_bound(
      Versions, aDataCodewords, std::ranges::less{},
      [](const TVersion& v) { return std::int64_t{v.FECBlocks.NumDataCodewords()}; });
  return found == Versions.end() ? nullptr : &*found;
}

}  // namespace Zor::inline Qrcode
