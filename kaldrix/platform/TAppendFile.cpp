#include "kaldrix/platform/TAppendFile.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "kaldrix/platform/Files.hpp"

namespace Zor {

namespace {

constexpr mode_t NewFileMode = 0666;  // the process's mask takes from it

/// A pipe that nobody reads is refused, and not waited for.
int OpenToAppend(const std::string& aFileName) {
  const int handle =
      ::open(aFileName.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, NewFileMode);
  if (handle < 0) RaiseErrno("Cannot write", aFileName, errno);
  return handle;
}

void Lock(int aHandle, const std::string& aFileName) {
  if (::flock(aHandle, LOCK_EX | LOCK_NB) == 0) return;
  if (errno == EWOULDBLOCK) throw EStreamError(aFileName + ": another session is writing this file just now");
}

/// Does the name still stand for the open file? Another session may have taken it away before the lock.
bool IsStill(int aHandle, const std::string& aFileName) {
  struct stat open {
  }, named{};
  if (::fstat(aHandle, &open) != 0) RaiseErrno("Cannot write", aFileName, errno);
  if (!S_ISREG(open.st_mode)) throw EStreamError("Cannot write " + aFileName + ": this is no file to keep");
  return ::stat(aFileName.c_str(), &named) == 0 && named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

int OpenLocked(const std::string& aFileName) {
  for (;;) {
    TDescriptor file(OpenToAppend(aFileName));
    Lock(file.Handle(), aFileName);
    if (IsStill(file.Handle(), aFileName)) return file.Take();
  }
}

}  // namespace

TAppendFile::TAppendFile(const std::string& aFileName) : fFileName(aFileName), fFile(OpenLocked(aFileName)) {
  FlushFolder(ExtractFileDir(fFileName));
}

void TAppendFile::Cut(std::uint64_t aKeep) {
  if (::ftruncate(fFile.Handle(), static_cast<off_t>(aKeep)) != 0)
    RaiseErrno("Cannot write", fFileName, errno);
}

void TAppendFile::Append(std::string_view aBytes) {
  const off_t before = ::lseek(fFile.Handle(), 0, SEEK_END);
  try {
    WriteAll(fFile.Handle(), aBytes, fFileName);
  } catch (const EStreamError&) {
    if (before >= 0) Cut(static_cast<std::uint64_t>(before));
    throw;
  }
  if (::fsync(fFile.Handle()) != 0) RaiseErrno("Cannot write", fFileName, errno);
}

void TAppendFile::Remove() { RemoveFile(fFileName); }

}  // namespace Zor
