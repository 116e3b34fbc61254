#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Datamatrix {

/// Turns bytes into a Data Matrix ECC 200 symbol (ISO/IEC 16022) without quiet zone: `aMatrix` gets its
/// modules row by row from the top, 1 dark, 0 light. ecc200_Autosize takes the smallest symbol of the shape;
/// with another size the shape does not count.
/// Raises Exception "MakeCodeword Error" when the data does not fit, "Base256_Encode Error" for a run of 1556
/// or more bytes in Base256; what is passed out stays as it was then.
void CalcECC200(std::span<const std::uint8_t> aData, TECC200Size aSize, TECC200Shape aShape,
                std::vector<std::uint8_t>& aMatrix, int& aCols, int& aRows);

/// The same for a GS1 element string: an FNC1 stands first, and for each byte 29 in `aData` (Gs1Separator).
void CalcGs1ECC200(std::span<const std::uint8_t> aData, TECC200Size aSize, TECC200Shape aShape,
                   std::vector<std::uint8_t>& aMatrix, int& aCols, int& aRows);

}  // namespace Zor::inline Datamatrix
