// What the sources about files share.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {

[[noreturn]] inline void RaiseErrno(const std::string& aWhat, const std::string& aFileName, int aError) {
  throw EStreamError(aWhat + " " + aFileName + ": " + std::generic_category().message(aError));
}

/// An open file, closed at the end of its scope.
class TDescriptor {
 public:
  explicit TDescriptor(int aHandle) : fHandle(aHandle) {}
  TDescriptor(const TDescriptor&) = delete;
  TDescriptor& operator=(const TDescriptor&) = delete;
  ~TDescriptor() { Close(); }

  int Handle() const { return fHandle; }
  /// The open file becomes the caller's.
  int Take() { return std::exchange(fHandle, -1); }
  /// 0, or the error of close, by which a network file system reports a failed write.
  int Close() {
    const int handle = Take();
    return handle < 0 || ::close(handle) == 0 ? 0 : errno;
  }

 private:
  int fHandle;
};

void WriteAll(int aHandle, std::string_view aBytes, const std::string& aFileName);

/// Makes a rename in the folder last. A folder that cannot be opened or flushed (some file systems cannot) is
/// no failure: the file itself is whole.
void FlushFolder(const std::string& aFolder);

}  // namespace Zor
