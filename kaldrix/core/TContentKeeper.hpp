#pragma once

#include <memory>

#include "kaldrix/core/TKDXBaseLabel.hpp"

namespace Zor::inline Base {

/// Sets the content of a document aside while a file is read into it, and gives it back unless the reading
/// succeeds: a file that cannot be read leaves the open document as it was, and nobody hears of the attempt.
/// The document and its parts stay the objects that they are; what no file holds stays with them.
class TContentKeeper {
 public:
  /// The document is empty afterwards, as a new one.
  explicit TContentKeeper(TKDXBaseLabel& aDocument);
  /// Without a Commit: frees what has been read so far and puts the former content back.
  ~TContentKeeper();
  TContentKeeper(const TContentKeeper&) = delete;
  TContentKeeper& operator=(const TContentKeeper&) = delete;

  /// The reading succeeded: the former content goes, and observers are told what came over the document.
  void Commit();

 private:
  struct TContent;

  void Exchange();
  void GiveBack();
  void Discard();

  TKDXBaseLabel& fDocument;
  std::unique_ptr<TContent> fKept;
};

}  // namespace Zor::inline Base
