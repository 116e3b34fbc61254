#include "kaldrix/items/TMatrixItem.hpp"

namespace Zor::inline Barcode {

void TMatrixItem::FillRuns(std::vector<TModuleRun>& aRuns) const {
  const std::span<const std::uint8_t> modules = Modules();
  aRuns.reserve(modules.size() * 2 / 3);  // About half of them are dark.
  std::size_t at = 0;
  for (int row = 0; row < fRows; ++row) {
    for (int col = 0; col < fCols; ++col) {
      if (modules[at++] != 0) aRuns.push_back({col, row, 1, 1});
    }
  }
}

}  // namespace Zor::inline Barcode
