#pragma once

#include <span>

#include "kaldrix/items/TModuleItem.hpp"

namespace Zor::inline Barcode {

/// A symbol of fRows by fCols modules.
class TMatrixItem : public TModuleItem {
 public:
  /// Row by row from the top, other than 0 for dark.
  virtual std::span<const std::uint8_t> Modules() const = 0;

  std::int16_t fRows = 0, fCols = 0;

 protected:
  using TModuleItem::TModuleItem;

  void UpdateSize() override { TakeSize(fCols, fRows); }
  void FillRuns(std::vector<TModuleRun>& aRuns) const override;
};

}  // namespace Zor::inline Barcode
