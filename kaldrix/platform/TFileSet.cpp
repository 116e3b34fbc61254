#include "kaldrix/platform/TFileSet.hpp"

#include <sys/stat.h>

#include <filesystem>

namespace Zor {

std::optional<TFileSet::TKey> TFileSet::KeyOf(const std::string& aFileName) {
  if (aFileName.empty() || aFileName == "-") return std::nullopt;
  struct stat info {};
  if (::stat(aFileName.c_str(), &info) == 0) {
    if (!S_ISREG(info.st_mode)) return std::nullopt;
    return TKey{info.st_dev, info.st_ino, {}};
  }
  std::error_code failed;
  const std::filesystem::path path = std::filesystem::weakly_canonical(aFileName, failed);
  if (failed) return std::nullopt;
  return TKey{0, 0, path.is_absolute() ? path.string() : std::filesystem::absolute(path).string()};
}

void TFileSet::Add(const std::string& aFileName, const std::string& aWhat) {
  if (std::optional<TKey> key = KeyOf(aFileName)) fFiles.emplace(std::move(*key), aWhat);
}

const std::string* TFileSet::Find(const std::string& aFileName) const {
  const std::optional<TKey> key = KeyOf(aFileName);
  const auto found = key ? fFiles.find(*key) : fFiles.end();
  return found == fFiles.end() ? nullptr : &found->second;
}

}  // namespace Zor
