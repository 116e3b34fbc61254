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
#include "kaldrix/platform/TAtomicFile.hpp"
#include "kaldrix/platform/TDescriptor.hpp"

namespace Zor {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t ChunkBytes = std::size_t{1} << 16;
std::atomic<std::size_t> Limit{std::size_t{1} << 31};

[[noreturn]] void RaiseCannotRead(const std::string& aFileName, int aError) {
  if (aError == ENOENT || aError == ENOTDIR) throw EFileNotFoundException("File not found: " + aFileName);
  RaiseErrno("Cannot read", aFileName, aError);
}

[[noreturn]] void RaiseTooLarge(const std::string& aFileName, std::size_t aMaxBytes) {
  throw EStreamError("Cannot read " + aFileName + ": larger than " + std::to_string(aMaxBytes) + " bytes");
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
    if (out.size() > aMaxBytes) RaiseTooLarge(aFileName, aMaxBytes);
    if (got == 0) return out;
  }
}

/// A character device that is no terminal gives bytes for ever, except for the empty one.
bool IsEndless(int aHandle, const struct stat& aInfo) {
  struct stat empty {};
  if (!S_ISCHR(aInfo.st_mode) || ::isatty(aHandle) == 1) return false;
  return ::stat("/dev/null", &empty) != 0 || aInfo.st_rdev != empty.st_rdev;
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

std::size_t InputLimit() { return Limit; }
void SetInputLimit(std::size_t aBytes) { Limit = aBytes; }

std::string ReadFile(const std::string& aFileName, std::size_t aMaxBytes) {
  TDescriptor file(::open(aFileName.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.Handle() < 0) RaiseCannotRead(aFileName, errno);
  return ReadDescriptor(file.Handle(), aFileName, aMaxBytes);
}

std::string ReadDescriptor(int aHandle, const std::string& aName, std::size_t aMaxBytes) {
  struct stat info {};
  if (::fstat(aHandle, &info) != 0) RaiseCannotRead(aName, errno);
  if (S_ISDIR(info.st_mode)) RaiseCannotRead(aName, EISDIR);
  if (IsEndless(aHandle, info))
    throw EStreamError("Cannot read " + aName + ": this is a device, and no file");
  // Only a hint: a file may grow, and some have no size.
  const auto size = static_cast<std::size_t>(std::max<off_t>(info.st_size, 0));
  if (size > aMaxBytes) RaiseTooLarge(aName, aMaxBytes);
  return ReadAll(aHandle, aName, size, aMaxBytes);
}

void WriteFileAtomically(const std::string& aFileName, std::string_view aBytes) {
  TAtomicFile file(aFileName);
  file.Write(aBytes);
  file.Commit();
}

void CopyFileAtomically(const std::string& aFrom, const std::string& aTo) {
  WriteFileAtomically(aTo, ReadFile(aFrom));
}

bool FileExists(const std::string& aFileName) {
  struct stat info {};
  return !aFileName.empty() && ::stat(aFileName.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

bool DirectoryExists(const std::string& aFolder) {
  struct stat info {};
  return !aFolder.empty() && ::stat(aFolder.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

void RemoveFile(const std::string& aFileName) {
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
