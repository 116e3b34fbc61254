#pragma once

#include <cstdint>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Datamatrix {

/// A row of the table of symbol attributes (ISO/IEC 16022, table 7). Lengths are in modules or codewords.
struct TECC200SymbolParam {
  TECC200Size Size;
  std::int32_t Rows, Cols;
  std::int32_t RegionRows, RegionCols;  // without the finder
  std::int32_t RegionVCount, RegionHCount;
  std::int32_t MappingMatrixRows, MappingMatrixCols;
  std::int32_t DataLength, ErrorLength;
  std::int32_t BlockDataLength, BlockErrorLength, BlockCount;
};

/// The attributes of a size, which must not be ecc200_Autosize.
const TECC200SymbolParam& SymbolParam(TECC200Size aSize);

/// The first size of the shape, by rising size, that holds so many codewords; ecc200_Autosize when none does.
TECC200Size SmallestSize(std::int32_t aCodewords, TECC200Shape aShape);

}  // namespace Zor::inline Datamatrix
