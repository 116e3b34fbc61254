// The pictures of a PDF.
#pragma once

#include <memory>
#include <unordered_map>

#include "kaldrix/host/TPdfWriter.hpp"
#include "kaldrix/host/TPicture.hpp"

namespace Zor::inline Host {

/// Stores pictures as image objects (ISO 32000-1, 8.9.5), each once as long as somebody shares it.
class TPdfPictures {
 public:
  explicit TPdfPictures(TPdfWriter& writer) : fWriter(writer) {}

  /// The object of `picture`, which is written now when it is new.
  int Of(const std::shared_ptr<const TPicture>& picture);

 private:
  struct TStored {
    /// Not held: a document of many pictures must not keep them all in memory.
    std::weak_ptr<const TPicture> picture;
    int object = 0;
  };

  int Write(const TPicture& picture);
  int WriteMask(const TPicture& picture);
  void DropGone();

  TPdfWriter& fWriter;
  std::unordered_map<const TPicture*, TStored> fStored;
  /// When there are this many, those that are gone are dropped.
  std::size_t fLimit = 64;
};

}  // namespace Zor::inline Host
