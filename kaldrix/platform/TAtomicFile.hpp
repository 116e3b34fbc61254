#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace Zor {

/// A file in the making: what is written stands beside the target and takes its place at Commit, so that a
/// crash leaves the old file or the new one. An existing target keeps its permissions; a symbolic link stays
/// one, and what it points at is replaced; a pipe or device is written to directly. Without a Commit nothing
/// is left behind. All operations raise EStreamError with file name and reason.
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
