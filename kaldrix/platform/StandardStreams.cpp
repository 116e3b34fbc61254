#include "kaldrix/platform/StandardStreams.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TDescriptor.hpp"

namespace Zor {

namespace {

namespace fs = std::filesystem;

constexpr int MostLinks = 40;  // as the kernel follows

/// What a link says, as seen from where its name is; nothing for a name that is no link.
std::optional<std::string> LinkTarget(const std::string& aFileName) {
  std::error_code failed;
  const fs::path target = fs::read_symlink(aFileName, failed);
  if (failed) return std::nullopt;
  return CombinePath(ExtractFileDir(aFileName), target.string());
}

std::optional<int> WholeNumber(std::string_view aText) {
  int number = 0;
  const char* end = aText.data() + aText.size();
  const auto [last, error] = std::from_chars(aText.data(), end, number);
  if (error != std::errc{} || last != end || number < 0) return std::nullopt;
  return number;
}

/// The descriptor that an entry of the process's own folder of open files stands for.
std::optional<int> OwnDescriptor(const std::string& aFileName) {
  const std::string folder = ExtractFileDir(aFileName);
  std::error_code failed;
  const fs::path open = fs::canonical("/proc/self/fd", failed);
  const fs::path place = failed ? fs::path() : fs::canonical(folder.empty() ? "." : folder, failed);
  if (failed || place != open) return std::nullopt;
  return WholeNumber(ExtractFileName(aFileName));
}

}  // namespace

void OpenStandardStreams() {
  constexpr int otherWay[] = {O_WRONLY, O_RDONLY, O_WRONLY};
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (::fcntl(stream, F_GETFD) >= 0 || errno != EBADF) continue;
    // The lowest free number is given, which is this one, since those below it are open.
    if (::open("/dev/null", otherWay[stream]) < 0) ::_exit(EXIT_FAILURE);
  }
}

std::optional<int> DescriptorOfName(const std::string& aFileName) {
  std::string name = aFileName;
  for (int i = 0; i < MostLinks; ++i) {
    if (const auto descriptor = OwnDescriptor(name)) return descriptor;
    const auto target = LinkTarget(name);
    if (!target) return std::nullopt;
    name = *target;
  }
  return std::nullopt;
}

std::string FollowLinks(const std::string& aFileName) {
  std::string name = aFileName;
  for (int i = 0; i < MostLinks; ++i) {
    const auto target = LinkTarget(name);
    if (!target) return name;
    name = *target;
  }
  RaiseErrno("Cannot write", aFileName, ELOOP);
}

}  // namespace Zor
