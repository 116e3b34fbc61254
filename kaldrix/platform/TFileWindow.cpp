#include "kaldrix/platform/TFileWindow.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TDescriptor.hpp"

namespace Zor {

struct TFileWindow::TFile {
  TFile(std::string aName, int aHandle) : name(std::move(aName)), descriptor(aHandle) {}

  /// Size and time of the last change.
  struct stat Facts() const {
    struct stat facts {};
    if (::fstat(descriptor.Handle(), &facts) != 0) RaiseErrno("Cannot read", name, errno);
    return facts;
  }
  bool HasChanged() const {
    const struct stat now = Facts();
    return now.st_size != first.st_size || now.st_mtim.tv_sec != first.st_mtim.tv_sec ||
           now.st_mtim.tv_nsec != first.st_mtim.tv_nsec;
  }

  std::string name;
  TDescriptor descriptor;
  struct stat first {};
};

TFileWindow::TFileWindow(std::string aBytes) : fSize(aBytes.size()), fBytes(std::move(aBytes)) {}
TFileWindow::TFileWindow(TFileWindow&&) noexcept = default;
TFileWindow& TFileWindow::operator=(TFileWindow&&) noexcept = default;
TFileWindow::~TFileWindow() = default;

TFileWindow TFileWindow::Open(const std::string& aFileName) {
  const int handle = ::open(aFileName.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) return TFileWindow(ReadFile(aFileName));  // which tells why
  auto file = std::make_unique<TFile>(aFileName, handle);
  file->first = file->Facts();
  if (!S_ISREG(file->first.st_mode) || file->first.st_size <= 0) {
    return TFileWindow(ReadFile(aFileName, MostWhole));
  }
  TFileWindow window{std::string()};
  window.fSize = static_cast<std::size_t>(file->first.st_size);
  window.fFile = std::move(file);
  return window;
}

std::string_view TFileWindow::View(std::size_t aFrom, std::size_t aTo) const {
  if (aFrom < fStart || aTo > fStart + fBytes.size()) Load(aFrom, aTo);
  return std::string_view(fBytes).substr(aFrom - fStart, aTo - aFrom);
}

void TFileWindow::Load(std::size_t aFrom, std::size_t aTo) const {
  ++fMoves;
  const std::size_t size = std::min(std::max(aTo - aFrom, Step), fSize - aFrom);
  fStart = aFrom;
  if (size < fBytes.capacity() / 4) fBytes = {};  // A long line has been seen.
  fBytes.resize(size);
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = ::pread(fFile->descriptor.Handle(), fBytes.data() + done, size - done,
                                static_cast<off_t>(aFrom + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) RaiseErrno("Cannot read", fFile->name, errno);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  if (done < size || fFile->HasChanged()) {
    fBytes.clear();
    throw EStreamError("Cannot read " + fFile->name + ": it has changed meanwhile");
  }
}

}  // namespace Zor
