#include "kaldrix/platform/TAppendFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "kaldrix/platform/Files.hpp"

namespace Zor {

namespace {

constexpr mode_t NewFileMode = 0666;  // the process's mask takes from it

int OpenToAppend(const std::string& aFileName) {
  const int handle = ::open(aFileName.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, NewFileMode);
  if (handle < 0) RaiseErrno("Cannot write", aFileName, errno);
  return handle;
}

}  // namespace

TAppendFile::TAppendFile(const std::string& aFileName, std::uint64_t aKeep)
    : fFileName(aFileName), fFile(OpenToAppend(aFileName)) {
  if (::ftruncate(fFile.Handle(), static_cast<off_t>(aKeep)) != 0)
    RaiseErrno("Cannot write", fFileName, errno);
  FlushFolder(ExtractFileDir(fFileName));
}

void TAppendFile::Append(std::string_view aBytes) {
  WriteAll(fFile.Handle(), aBytes, fFileName);
  if (::fsync(fFile.Handle()) != 0) RaiseErrno("Cannot write", fFileName, errno);
}

}  // namespace Zor
