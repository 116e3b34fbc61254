#include "kaldrix/platform/TAtomicFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TDescriptor.hpp"

namespace Zor {

namespace {

namespace fs = std::filesystem;

constexpr mode_t NewFileMode = 0666;  // the process's mask takes from it
constexpr int MaxNameAttempts = 100;  // names left over by killed processes of the same id

/// What a chain of symbolic links points at; the name itself when it is none or points nowhere.
std::string ResolveLinks(const std::string& aFileName) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(aFileName, error))) return aFileName;
  const fs::path target = fs::weakly_canonical(aFileName, error);
  return error ? aFileName : target.string();
}

/// A name beside the target that nobody else uses.
int CreateBeside(const std::string& aTarget, std::string& aName) {
  static std::atomic<unsigned> counter{0};
  for (int attempt = 0; attempt < MaxNameAttempts; ++attempt) {
    aName = aTarget + "." + std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".tmp";
    const int handle = ::open(aName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    if (handle >= 0) return handle;
    if (errno != EEXIST) RaiseErrno("Cannot write", aTarget, errno);
  }
  RaiseErrno("Cannot write", aTarget, EEXIST);
}

}  // namespace

struct TAtomicFile::TImpl {
  explicit TImpl(const std::string& aFileName) : target(aFileName), file(Open()) {}
  TImpl(const TImpl&) = delete;
  TImpl& operator=(const TImpl&) = delete;
  ~TImpl() {
    if (!beside.empty()) ::unlink(beside.c_str());
  }

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
      ::unlink(beside.c_str());
      Raise(error);
    }
    return handle;
  }

  void Commit() {
    if (!beside.empty() && ::fsync(file.Handle()) != 0) Raise(errno);
    if (const int error = file.Close(); error != 0) Raise(error);
    if (beside.empty()) return;
    if (::rename(beside.c_str(), target.c_str()) != 0) Raise(errno);
    beside.clear();
    FlushFolder(ExtractFileDir(target));
  }

  [[noreturn]] void Raise(int aError) const { RaiseErrno("Cannot write", target, aError); }

  std::string target;
  std::string beside;  ///< empty for a device, and once it has taken the target's place
  TDescriptor file;
};

TAtomicFile::TAtomicFile(const std::string& aFileName) : fImpl(std::make_unique<TImpl>(aFileName)) {}
TAtomicFile::TAtomicFile(TAtomicFile&&) noexcept = default;
TAtomicFile& TAtomicFile::operator=(TAtomicFile&&) noexcept = default;
TAtomicFile::~TAtomicFile() = default;

void TAtomicFile::Write(std::string_view aBytes) { WriteAll(fImpl->file.Handle(), aBytes, fImpl->target); }
void TAtomicFile::Commit() { fImpl->Commit(); }

}  // namespace Zor
