#pragma once

#include <cstdint>

#include "kaldrix/types/Observing.hpp"

namespace Zor::inline Base {

class TKDXBaseItem;

/// What is still to be told of an item.
enum class TNotice : std::uint8_t { Nothing, Came, Changed };

/// Somebody who keeps a picture of a document's items: a list of layers, a search index, a remote copy. Told
/// inside and outside brackets, on the thread that makes the changes, each time when the operation, or the
/// outermost bracket, is whole: several changes of one item are told once. Only that an item goes is told at
/// once, while it is whole.
///
/// What is thrown from here comes out of the operation that told it, when that is done and all observers have
/// heard. The document may be changed from here; what that changes is told next.
class IZOItemObserver : public TObserver {
 public:
  /// The item is in the drawing now, as the topmost unless OrderChanged follows. One that was made by its
  /// constructor alone, outside a bracket, is told with the next change of another.
  virtual void ItemCame(TKDXBaseItem& aItem) = 0;
  /// Something of what a file would hold of the item, its layer and name included.
  virtual void ItemChanged(TKDXBaseItem& aItem) = 0;
  /// The item is about to be freed.
  virtual void ItemGoes(TKDXBaseItem& aItem) = 0;
  /// The items are the same, and lie otherwise above each other.
  virtual void OrderChanged() {}
  /// The document holds other items than before, after a load, New or Clear: what was known of the former
  /// ones is to be forgotten, and they are freed already. The new ones are in fItems. A failed load tells
  /// nothing, since all is as it was.
  virtual void ContentReplaced() = 0;
  /// Something else that a file would hold: layers, styles, measures, units, sources, counters.
  virtual void DocumentChanged() {}

 protected:
  IZOItemObserver() = default;
  ~IZOItemObserver() = default;
};

}  // namespace Zor::inline Base
