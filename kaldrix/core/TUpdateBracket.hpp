#pragma once

#include <exception>

#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

/// A bracket around changes that closes with its scope, also by an exception: one group of undo commands, one
/// notification at its end. Brackets nest: one inside another, or inside a read bracket, belongs to it.
class TUpdateBracket {
 public:
  /// Without `aPaintOnEnd` its end sends no chPaint.
  explicit TUpdateBracket(TKDXBaseLabel& aDocument, bool aPaintOnEnd = true)
      : fDocument(aDocument),
        fExceptions(std::uncaught_exceptions()),
        fOpened(!aDocument.fStates.Has(lsUpdating)) {
    if (fOpened) fDocument.BeginUpdate(aPaintOnEnd);
  }
  TUpdateBracket(const TUpdateBracket&) = delete;
  TUpdateBracket& operator=(const TUpdateBracket&) = delete;
  ~TUpdateBracket() noexcept(false) {
    if (!fOpened || !fDocument.fStates.Has(lsUpdating)) return;
    try {
      fDocument.EndUpdate();
    } catch (...) {
      if (std::uncaught_exceptions() == fExceptions) throw;
      // The exception that ends the scope is on its way.
    }
  }

 private:
  TKDXBaseLabel& fDocument;
  int fExceptions;
  bool fOpened;
};

}  // namespace Zor::inline Base
