#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kaldrix/platform/TDescriptor.hpp"

namespace Zor {

/// A file that only grows, such as a journal: what Append has taken is on the disk when it returns. While the
/// object lives no other can be made for the file, in this process or another; a process that is killed lets
/// go of it. (A file system without locks guards nothing.) All operations raise EStreamError with file name
/// and reason.
class TAppendFile {
 public:
  /// Opens the file, or makes an empty one, and locks it.
  explicit TAppendFile(const std::string& aFileName);

  /// Cuts it to its first `aKeep` bytes.
  void Cut(std::uint64_t aKeep);
  /// Bytes that do not fit leave nothing.
  void Append(std::string_view aBytes);
  /// Takes the file away, while it is still locked.
  void Remove();

 private:
  std::string fFileName;
  TDescriptor fFile;
};

}  // namespace Zor
