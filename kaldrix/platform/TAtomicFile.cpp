#include "kaldrix/platform/TAtomicFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TDescriptor.hpp"
#include "kaldrix/platform/TTemporaryFile.hpp"

namespace Zor {

namespace {

namespace fs = std::filesystem;

constexpr mode_t NewFileMode = 0666;  // the process's mask takes from it
constexpr int MaxNameAttempts = 100;  // names left over by killed processes of the same id
using TBeside = std::unique_ptr<TTemporaryFile>;

/// What a chain of symbolic links points at; the name itself when it is none or points nowhere.
std::string ResolveLinks(const std::string& aFileName) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(aFileName, error))) return aFileName;
  const fs::path target = fs::weakly_canonical(aFileName, error);
  return error ? aFileName : target.string();
}

/// Makes a file beside the target that nobody else uses.
int CreateBeside(const std::string& aTarget, TBeside& aBeside) {
  for (int attempt = 0; attempt < MaxNameAttempts; ++attempt) {
    aBeside = std::make_unique<TTemporaryFile>(aTarget);
    const int handle = ::open(aBeside->Name().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    if (handle >= 0) return handle;
    const int error = errno;
    aBeside->Release();
    if (error != EEXIST) RaiseErrno("Cannot write", aTarget, error);
  }
  RaiseErrno("Cannot write", aTarget, EEXIST);
}

}  // namespace

struct TAtomicFile::TImpl {
  explicit TImpl(const std::string& aFileName) : target(aFileName), file(Open()) {}

  int Open() {
    struct stat info {};
    const bool exists = ::stat(target.c_str(), &info) == 0;
    if (exists && !S_ISREG(info.st_mode)) {
      const int device = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
      if (device < 0) Raise(errno);
      return device;
    }
    target = ResolveLinks(target);
    const int handle = CreateBeside(target, beside);
    if (exists && ::fchmod(handle, info.st_mode & 07777) != 0) {
      const int error = errno;
      ::close(handle);
      Raise(error);
    }
    return handle;
  }

  void Commit() {
    if (beside != nullptr && ::fsync(file.Handle()) != 0) Raise(errno);
    if (const int error = file.Close(); error != 0) Raise(error);
    if (beside == nullptr) return;
    if (::rename(beside->Name().c_str(), target.c_str()) != 0) Raise(errno);
    beside->Release();
    beside.reset();
    FlushFolder(ExtractFileDir(target));
  }

  [[noreturn]] void Raise(int aError) const { RaiseErrno("Cannot write", target, aError); }

  std::string target;
  TBeside beside;  ///< none for a device, and once it has taken the target's place
  TDescriptor file;
};

TAtomicFile::TAtomicFile(const std::string& aFileName) : fImpl(std::make_unique<TImpl>(aFileName)) {}
TAtomicFile::TAtomicFile(TAtomicFile&&) noexcept = default;
TAtomicFile& TAtomicFile::operator=(TAtomicFile&&) noexcept = default;
TAtomicFile::~TAtomicFile() = default;

void TAtomicFile::Write(std::string_view aBytes) { WriteAll(fImpl->file.Handle(), aBytes, fImpl->target); }
void TAtomicFile::Commit() { fImpl->Commit(); }

}  // namespace Zor
