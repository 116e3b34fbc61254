#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace Zor {

/// A file in the making: what is written stands beside the target and takes its place at Commit, so that a
/// crash leaves the old file or the new one. Without a Commit nothing is left behind.
///
/// An existing target keeps its permissions, and its owner and group where the process may give them. A
/// symbolic link stays one: what it points at is replaced, or made. Of several names of one file (hard links)
/// the others keep the old content. A target that the process may not write is refused, and so is one in a
/// folder that takes no new file. Pipes, devices and what the process has been given open (/dev/stdout) are
/// written to directly. All operations raise EStreamError with file name and reason.
class TAtomicFile {
 public:
  explicit TAtomicFile(const std::string& aFileName);
  TAtomicFile(TAtomicFile&&) noexcept;
  TAtomicFile& operator=(TAtomicFile&&) noexcept;
  ~TAtomicFile();

  void Write(std::string_view aBytes);
  /// Flushes to the disk and renames. Nothing can be written afterwards.
  void Commit();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> fImpl;
};

}  // namespace Zor
