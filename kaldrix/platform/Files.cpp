#include "kaldrix/platform/Files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t ChunkBytes = std::size_t{1} << 16;
constexpr mode_t NewFileMode = 0666;  // the process's mask takes from it
constexpr int MaxNameAttempts = 100;  // names left over by killed processes of the same id

[[noreturn]] void RaiseErrno(const std::string& aWhat, const std::string& aFileName, int aError) {
  throw EStreamError(aWhat + " " + aFileName + ": " + std::generic_category().message(aError));
}

[[noreturn]] void RaiseCannotRead(const std::string& aFileName, int aError) {
  if (aError == ENOENT || aError == ENOTDIR) throw EFileNotFoundException("File not found: " + aFileName);
  RaiseErrno("Cannot read", aFileName, aError);
}

/// An open file, closed at the end of its scope.
class TDescriptor {
 public:
  explicit TDescriptor(int aHandle) : fHandle(aHandle) {}
  TDescriptor(const TDescriptor&) = delete;
  TDescriptor& operator=(const TDescriptor&) = delete;
  ~TDescriptor() { Close(); }

  int Handle() const { return fHandle; }
  /// 0, or the error of close, by which a network file system reports a failed write.
  int Close() {
    const int handle = fHandle;
    fHandle = -1;
    return handle < 0 || ::close(handle) == 0 ? 0 : errno;
  }

 private:
  int fHandle;
};

void WriteAll(int aHandle, std::string_view aBytes, const std::string& aFileName) {
  while (!aBytes.empty()) {
    const ssize_t written = ::write(aHandle, aBytes.data(), aBytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) RaiseErrno("Cannot write", aFileName, errno);
    aBytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// A file beside its target that is removed unless it takes the target's place.
class TTemporary {
 public:
  explicit TTemporary(const std::string& aTarget) : fTarget(aTarget), fFile(Create()) {}
  TTemporary(const TTemporary&) = delete;
  TTemporary& operator=(const TTemporary&) = delete;
  ~TTemporary() {
    if (!fPlaced) ::unlink(fName.c_str());
  }

  void KeepMode(mode_t aMode) {
    if (::fchmod(fFile.Handle(), aMode & 07777) != 0) Raise(errno);
  }

  void Write(std::string_view aBytes) { WriteAll(fFile.Handle(), aBytes, fTarget); }

  void Place() {
    if (::fsync(fFile.Handle()) != 0) Raise(errno);
    if (const int error = fFile.Close(); error != 0) Raise(error);
    if (::rename(fName.c_str(), fTarget.c_str()) != 0) Raise(errno);
    fPlaced = true;
  }

 private:
  /// Makes the file under a name that nobody else uses.
  int Create() {
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < MaxNameAttempts; ++attempt) {
      fName = fTarget + "." + std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".tmp";
      const int handle = ::open(fName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
      if (handle >= 0) return handle;
      if (errno != EEXIST) Raise(errno);
    }
    Raise(EEXIST);
  }
  [[noreturn]] void Raise(int aError) const { RaiseErrno("Cannot write", fTarget, aError); }

  const std::string& fTarget;
  std::string fName;
  TDescriptor fFile;
  bool fPlaced = false;
};

/// Makes a rename in the folder last. A folder that cannot be opened or flushed (some file systems cannot) is
/// no failure: the file itself is whole.
void FlushFolder(const std::string& aFolder) {
  TDescriptor folder(::open(aFolder.empty() ? "." : aFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.Handle() >= 0) ::fsync(folder.Handle());
}

/// What a chain of symbolic links points at; the name itself when it is none or points nowhere.
std::string ResolveLinks(const std::string& aFileName) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(aFileName, error))) return aFileName;
  const fs::path target = fs::weakly_canonical(aFileName, error);
  return error ? aFileName : target.string();
}

/// Reads to the end. `aSizeHint` is the size that the file has just now; a pipe has none.
std::string ReadAll(int aHandle, const std::string& aFileName, std::size_t aSizeHint, std::size_t aMaxBytes) {
  std::string out;
  out.reserve(aSizeHint + ChunkBytes);  // room for the block that finds the end
  for (;;) {
    const std::size_t old = out.size();
    out.resize(std::max(old + ChunkBytes, aSizeHint));
    const ssize_t got = ::read(aHandle, out.data() + old, out.size() - old);
    const int error = errno;
    out.resize(old + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    if (got < 0 && error == EINTR) continue;
    if (got < 0) RaiseCannotRead(aFileName, error);
    if (out.size() > aMaxBytes) {
      throw EStreamError("Cannot read " + aFileName + ": larger than " + std::to_string(aMaxBytes) +
                         " bytes");
    }
    if (got == 0) return out;
  }
}

/// A pipe or device is written to, never replaced. A folder refuses to be opened.
void WriteToDevice(const std::string& aFileName, std::string_view aBytes) {
  TDescriptor device(::open(aFileName.c_str(), O_WRONLY | O_CLOEXEC));
  if (device.Handle() < 0) RaiseErrno("Cannot write", aFileName, errno);
  WriteAll(device.Handle(), aBytes, aFileName);
}

/// Where the extension begins; the size of the name without one.
std::size_t ExtensionStart(std::string_view aFileName) {
  const std::size_t slash = aFileName.rfind('/');
  const std::size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
  const std::size_t point = aFileName.rfind('.');
  const bool isNone =
      point == std::string_view::npos || point <= nameStart || aFileName.substr(nameStart) == "..";
  return isNone ? aFileName.size() : point;
}

}  // namespace

std::string ReadFile(const std::string& aFileName, std::size_t aMaxBytes) {
  TDescriptor file(::open(aFileName.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.Handle() < 0) RaiseCannotRead(aFileName, errno);
  struct stat info {};
  if (::fstat(file.Handle(), &info) != 0) RaiseCannotRead(aFileName, errno);
  if (S_ISDIR(info.st_mode)) RaiseCannotRead(aFileName, EISDIR);
  // Only a hint: a file may grow, and some have no size. For one that is too large no memory is taken ahead.
  const auto size = static_cast<std::size_t>(std::max<off_t>(info.st_size, 0));
  return ReadAll(file.Handle(), aFileName, size <= aMaxBytes ? size : 0, aMaxBytes);
}

void WriteFileAtomically(const std::string& aFileName, std::string_view aBytes) {
  struct stat info {};
  const bool exists = ::stat(aFileName.c_str(), &info) == 0;
  if (exists && !S_ISREG(info.st_mode)) return WriteToDevice(aFileName, aBytes);
  const std::string target = ResolveLinks(aFileName);
  TTemporary file(target);
  if (exists) file.KeepMode(info.st_mode);
  file.Write(aBytes);
  file.Place();
  FlushFolder(ExtractFileDir(target));
}

void CopyFile(const std::string& aFrom, const std::string& aTo) { WriteFileAtomically(aTo, ReadFile(aFrom)); }

bool FileExists(const std::string& aFileName) {
  struct stat info {};
  return !aFileName.empty() && ::stat(aFileName.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

bool DirectoryExists(const std::string& aFolder) {
  struct stat info {};
  return !aFolder.empty() && ::stat(aFolder.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

void DeleteFile(const std::string& aFileName) {
  if (::unlink(aFileName.c_str()) != 0 && errno != ENOENT) RaiseErrno("Cannot remove", aFileName, errno);
}

std::string ExtractFileName(std::string_view aFileName) {
  return std::string(aFileName.substr(aFileName.rfind('/') + 1));  // npos + 1 is 0
}

std::string ExtractFileDir(std::string_view aFileName) {
  const std::size_t slash = aFileName.rfind('/');
  if (slash == std::string_view::npos) return {};
  return std::string(aFileName.substr(0, std::max<std::size_t>(slash, 1)));
}

std::string ExtractFileExt(std::string_view aFileName) {
  return std::string(aFileName.substr(ExtensionStart(aFileName)));
}

std::string ChangeFileExt(std::string_view aFileName, std::string_view aExt) {
  return std::string(aFileName.substr(0, ExtensionStart(aFileName))).append(aExt);
}

bool IsRelativePath(std::string_view aFileName) { return !aFileName.starts_with('/'); }

std::string CombinePath(std::string_view aFolder, std::string_view aFileName) {
  if (aFolder.empty() || !IsRelativePath(aFileName)) return std::string(aFileName);
  std::string path(aFolder);
  if (!path.ends_with('/')) path += '/';
  return path.append(aFileName);
}

std::string ExpandFileName(std::string_view aFileName) {
  std::error_code error;
  const fs::path path = fs::absolute(fs::path(aFileName.empty() ? "." : aFileName), error);
  if (error) throw EStreamError("Cannot find the current folder: " + error.message());
  const std::string name = path.lexically_normal().string();
  return name.size() > 1 && name.ends_with('/') ? name.substr(0, name.size() - 1) : name;
}

std::string ExtractRelativePath(std::string_view aFolder, std::string_view aFileName) {
  return fs::path(ExpandFileName(aFileName)).lexically_relative(ExpandFileName(aFolder)).string();
}

std::string ProgramFolder() {
  std::error_code failed;
  return std::filesystem::read_symlink("/proc/self/exe", failed).parent_path().string();
}

}  // namespace Zor
