#include "kaldrix/platform/TDescriptor.hpp"

#include <fcntl.h>

namespace Zor {

void WriteAll(int aHandle, std::string_view aBytes, const std::string& aFileName) {
  while (!aBytes.empty()) {
    const ssize_t written = ::write(aHandle, aBytes.data(), aBytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) RaiseErrno("Cannot write", aFileName, errno);
    aBytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void FlushFolder(const std::string& aFolder) {
  TDescriptor folder(::open(aFolder.empty() ? "." : aFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.Handle() >= 0) ::fsync(folder.Handle());
}

}  // namespace Zor
