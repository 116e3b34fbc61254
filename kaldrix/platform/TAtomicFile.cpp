#include "kaldrix/platform/TAtomicFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/StandardStreams.hpp"
#include "kaldrix/platform/TDescriptor.hpp"
#include "kaldrix/platform/TTemporaryFile.hpp"

namespace Zor {

namespace {

constexpr mode_t NewFileMode = 0666;  // the process's mask takes from it
constexpr mode_t Permissions = 07777, PlainPermissions = 0777;
constexpr int MaxNameAttempts = 100;  // names left over by killed processes of the same id
using TBeside = std::unique_ptr<TTemporaryFile>;

/// Makes a file beside the target that nobody else uses; -1 and errno when the folder takes none.
int CreateBeside(const std::string& aTarget, TBeside& aBeside) {
  for (int attempt = 0; attempt < MaxNameAttempts; ++attempt) {
    aBeside = std::make_unique<TTemporaryFile>(aTarget);
    const int handle = ::open(aBeside->Name().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    if (handle >= 0) return handle;
    const int error = errno;
    aBeside->Release();
    errno = error;
    if (error != EEXIST) return -1;
  }
  return -1;
}

/// Gives the new file owner, group and permissions of the old one, as far as the process may. Rights that a
/// file lends to whoever runs it go with another owner. 0, or the error.
int TakeOver(int aHandle, const struct stat& aOld) {
  const bool owned = ::fchown(aHandle, aOld.st_uid, aOld.st_gid) == 0;
  const bool grouped = owned || ::fchown(aHandle, static_cast<uid_t>(-1), aOld.st_gid) == 0;
  // Without the old group, its members' rights would be another group's.
  const mode_t kept = owned ? Permissions : grouped ? PlainPermissions : PlainPermissions & ~mode_t{070};
  return ::fchmod(aHandle, aOld.st_mode & kept) == 0 ? 0 : errno;
}

}  // namespace

struct TAtomicFile::TImpl {
  explicit TImpl(const std::string& aFileName) : name(aFileName), file(Open()) {}

  /// The target's facts; none when there is none yet.
  std::optional<struct stat> Facts() const {
    struct stat facts {};
    if (::stat(target.c_str(), &facts) == 0) return facts;
    if (errno != ENOENT) Raise(errno);
    return std::nullopt;
  }

  int Open() {
    if (const auto descriptor = DescriptorOfName(name)) return OpenInPlace(::dup(*descriptor));
    target = FollowLinks(name);
    const std::optional<struct stat> old = Facts();
    if (old && !S_ISREG(old->st_mode)) return OpenInPlace(::open(name.c_str(), O_WRONLY | O_CLOEXEC));
    if (old && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
      throw EStreamError("Cannot write " + name + ": the file is read-only");
    TDescriptor made(CreateBeside(target, beside));
    if (made.Handle() < 0) RaiseNoRoom(errno, old.has_value());
    if (const int error = old ? TakeOver(made.Handle(), *old) : 0; error != 0) Raise(error);
    return made.Take();
  }
  int OpenInPlace(int aHandle) const {
    if (aHandle < 0) Raise(errno);
    return aHandle;
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

  [[noreturn]] void Raise(int aError) const { RaiseErrno("Cannot write", name, aError); }
  [[noreturn]] void RaiseNoRoom(int aError, bool aExists) const {
    const bool refused = aError == EACCES || aError == EPERM || aError == EROFS;
    if (!aExists || !refused) Raise(aError);
    RaiseErrno("Cannot write", name + ": its folder takes no new file", aError);
  }

  std::string name;
  std::string target;  ///< what the links of the name lead to
  TBeside beside;      ///< none for a device, and once it has taken the target's place
  TDescriptor file;
};

TAtomicFile::TAtomicFile(const std::string& aFileName) : fImpl(std::make_unique<TImpl>(aFileName)) {}
TAtomicFile::TAtomicFile(TAtomicFile&&) noexcept = default;
TAtomicFile& TAtomicFile::operator=(TAtomicFile&&) noexcept = default;
TAtomicFile::~TAtomicFile() = default;

void TAtomicFile::Write(std::string_view aBytes) { WriteAll(fImpl->file.Handle(), aBytes, fImpl->name); }
void TAtomicFile::Commit() { fImpl->Commit(); }

}  // namespace Zor
