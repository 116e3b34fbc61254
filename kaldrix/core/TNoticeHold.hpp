#pragma once

#include <exception>

#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

/// An operation on the document: what observers are told of single items, and what observers throw, waits for
/// the end of the outermost one. An exception of the operation itself goes before those of observers.
class TNoticeHold {
 public:
  explicit TNoticeHold(TKDXBaseLabel& aDocument)
      : fNotices(aDocument.fNotices), fExceptions(std::uncaught_exceptions()) {
    fNotices.Hold();
  }
  TNoticeHold(const TNoticeHold&) = delete;
  TNoticeHold& operator=(const TNoticeHold&) = delete;
  ~TNoticeHold() noexcept(false) {
    fNotices.Release();
    try {
      fNotices.Flush();
    } catch (...) {
      if (std::uncaught_exceptions() == fExceptions) throw;
      // The operation's own exception is on its way.
    }
  }

 private:
  TNotices& fNotices;
  int fExceptions;
};

}  // namespace Zor::inline Base
