#pragma once

#include <cstdint>
#include <vector>

#include "kaldrix/codes/TECC200SymbolParam.hpp"

namespace Zor::inline Datamatrix {

/// What all symbols of a size share.
struct TECC200Placement {
  /// Finders, timing patterns and the fixed modules that some sizes have in their last corner.
  std::vector<std::uint8_t> Frame;
  /// By bit of the codewords, the highest of the first one first: its place in the symbol's modules.
  std::vector<std::uint16_t> Places;

  static const TECC200Placement& Of(TECC200Size aSize);
};

}  // namespace Zor::inline Datamatrix
