#include "kaldrix/codes/TECC200SymbolParam.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Datamatrix {

namespace {

constexpr std::size_t Squares = 24;

// ISO/IEC 16022, table 7: size, rows and columns; rows and columns of a region, regions down and across; rows
// and columns of the mapping matrix; codewords of data and of error correction; those of a block, blocks.
// clang-format off
constexpr std::array<TECC200SymbolParam, 30> SymbolParams{{
    {ecc200_10x10, 10, 10, 8, 8, 1, 1, 8, 8, 3, 5, 3, 5, 1},
    {ecc200_12x12, 12, 12, 10, 10, 1, 1, 10, 10, 5, 7, 5, 7, 1},
    {ecc200_14x14, 14, 14, 12, 12, 1, 1, 12, 12, 8, 10, 8, 10, 1},
    {ecc200_16x16, 16, 16, 14, 14, 1, 1, 14, 14, 12, 12, 12, 12, 1},
    {ecc200_18x18, 18, 18, 16, 16, 1, 1, 16, 16, 18, 14, 18, 14, 1},
    {ecc200_20x20, 20, 20, 18, 18, 1, 1, 18, 18, 22, 18, 22, 18, 1},
    {ecc200_22x22, 22, 22, 20, 20, 1, 1, 20, 20, 30, 20, 30, 20, 1},
    {ecc200_24x24, 24, 24, 22, 22, 1, 1, 22, 22, 36, 24, 36, 24, 1},
    {ecc200_26x26, 26, 26, 24, 24, 1, 1, 24, 24, 44, 28, 44, 28, 1},
    {ecc200_32x32, 32, 32, 14, 14, 2, 2, 28, 28, 62, 36, 62, 36, 1},
    {ecc200_36x36, 36, 36, 16, 16, 2, 2, 32, 32, 86, 42, 86, 42, 1},
    {ecc200_40x40, 40, 40, 18, 18, 2, 2, 36, 36, 114, 48, 114, 48, 1},
    {ecc200_44x44, 44, 44, 20, 20, 2, 2, 40, 40, 144, 56, 144, 56, 1},
    {ecc200_48x48, 48, 48, 22, 22, 2, 2, 44, 44, 174, 68, 174, 68, 1},
    {ecc200_52x52, 52, 52, 24, 24, 2, 2, 48, 48, 204, 84, 102, 42, 2},
    {ecc200_64x64, 64, 64, 14, 14, 4, 4, 56, 56, 280, 112, 140, 56, 2},
    {ecc200_72x72, 72, 72, 16, 16, 4, 4, 64, 64, 368, 144, 92, 36, 4},
    {ecc200_80x80, 80, 80, 18, 18, 4, 4, 72, 72, 456, 192, 114, 48, 4},
    {ecc200_88x88, 88, 88, 20, 20, 4, 4, 80, 80, 576, 224, 144, 56, 4},
    {ecc200_96x96, 96, 96, 22, 22, 4, 4, 88, 88, 696, 272, 174, 68, 4},
    {ecc200_104x104, 104, 104, 24, 24, 4, 4, 96, 96, 816, 336, 136, 56, 6},
    {ecc200_120x120, 120, 120, 18, 18, 6, 6, 108, 108, 1050, 408, 175, 68, 6},
    {ecc200_132x132, 132, 132, 20, 20, 6, 6, 120, 120, 1304, 496, 163, 62, 8},
    {ecc200_144x144, 144, 144, 22, 22, 6, 6, 132, 132, 1558, 620, 156, 62, 10},
    {ecc200_8x18, 8, 18, 6, 16, 1, 1, 6, 16, 5, 7, 5, 7, 1},
    {ecc200_8x32, 8, 32, 6, 14, 1, 2, 6, 28, 10, 11, 10, 11, 1},
    {ecc200_12x26, 12, 26, 10, 24, 1, 1, 10, 24, 16, 14, 16, 14, 1},
    {ecc200_12x36, 12, 36, 10, 16, 1, 2, 10, 32, 22, 18, 22, 18, 1},
    {ecc200_16x36, 16, 36, 14, 16, 1, 2, 14, 32, 32, 24, 32, 24, 1},
    {ecc200_16x48, 16, 48, 14, 22, 1, 2, 14, 44, 49, 28, 49, 28, 1},
}};
// clang-format on

/// What holds between the columns of a row, so that a slip of the pen does not compile.
constexpr bool IsSound(const TECC200SymbolParam& p) {
  const bool largest = p.Size == ecc200_144x144;  // two of its ten blocks have a codeword less
  return p.Rows == p.RegionVCount * (p.RegionRows + 2) && p.Cols == p.RegionHCount * (p.RegionCols + 2) &&
         p.MappingMatrixRows == p.RegionVCount * p.RegionRows &&
         p.MappingMatrixCols == p.RegionHCount * p.RegionCols &&
         p.MappingMatrixRows * p.MappingMatrixCols / 8 == p.DataLength + p.ErrorLength &&
         p.DataLength == p.BlockDataLength * p.BlockCount - (largest ? 2 : 0) &&
         p.ErrorLength == p.BlockErrorLength * p.BlockCount;
}
static_assert(std::ranges::all_of(SymbolParams, IsSound));

}  // namespace

const TECC200SymbolParam& SymbolParam(TECC200Size aSize) {
  if (aSize == ecc200_Autosize || aSize > SymbolParams.size())
    throw EArgumentOutOfRangeException("There is no Data Matrix of size " + std::to_string(aSize));
  return SymbolParams[aSize - 1U];
}

TECC200Size SmallestSize(std::int32_t aCodewords, TECC200Shape aShape) {
  const std::span<const TECC200SymbolParam> all(SymbolParams);
  const auto sizes = aShape == ecc200_Square ? all.first(Squares) : all.subspan(Squares);
  const auto found =
      std::ranges::lower_bound(sizes, aCodewords, std::ranges::less{}, &TECC200SymbolParam::DataLength);
  return found == sizes.end() ? ecc200_Autosize : found->Size;
}

}  // namespace Zor::inline Datamatrix
