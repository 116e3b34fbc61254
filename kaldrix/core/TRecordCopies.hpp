#pragma once

#include <unordered_map>

#include "kaldrix/core/TKDXBaseItem.hpp"

namespace Zor::inline Base {

/// What the items of a document show off a sheet: an item that is bound to open data is replaced by a copy
/// with the value of the current record (or counter, list or answer), so that the design stays as it is. The
/// copies go with this object, and leave the state of the document alone.
class TRecordCopies {
 public:
  explicit TRecordCopies(TKDXBaseLabel& aDocument);
  ~TRecordCopies();
  TRecordCopies(TRecordCopies&&) noexcept = default;
  TRecordCopies(const TRecordCopies&) = delete;
  TRecordCopies& operator=(const TRecordCopies&) = delete;

  /// The item itself, or its copy, which is made once and lives as long as this. Raises an Exception that
  /// names the item when it cannot take its value.
  TKDXBaseItem& Shown(TKDXBaseItem& aItem) { return aItem.GetIsData() ? CopyOf(aItem) : aItem; }

 private:
  TKDXBaseItem& CopyOf(const TKDXBaseItem& aItem);
  TKDXBaseItem& MakeCopy(const TKDXBaseItem& aItem);

  TKDXBaseLabel& fDocument;
  std::vector<TKDXBaseItem*> fCopies;
  std::unordered_map<const TKDXBaseItem*, TKDXBaseItem*> fCopyOf;
};

}  // namespace Zor::inline Base
