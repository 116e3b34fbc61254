#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/platform/TDescriptor.hpp"

namespace Zor {

/// A file that only grows, such as a journal: what Append has taken is on the disk when it returns. All
/// operations raise EStreamError with file name and reason.
class TAppendFile {
 public:
  /// Opens the file, or makes it, and cuts it to its first `aKeep` bytes.
  TAppendFile(const std::string& aFileName, std::uint64_t aKeep);

  void Append(std::string_view aBytes);

 private:
  std::string fFileName;
  TDescriptor fFile;
};

}  // namespace Zor
