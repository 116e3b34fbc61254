#include "kaldrix/platform/TFileSet.hpp"

#include <sys/stat.h>

#include <filesystem>

namespace Zor {

namespace {

/// The path without links and detours; empty where that cannot be told.
std::string PathOf(const std::string& aFileName) {
  namespace fs = std::filesystem;
  std::error_code failed;
  const fs::path absolute = fs::absolute(aFileName, failed);
  const fs::path path = failed ? fs::path() : fs::weakly_canonical(absolute, failed);
  return failed ? std::string() : path.string();
}

}  // namespace

void TFileSet::Add(const std::string& aFileName, const std::string& aWhat) {
  if (aFileName.empty()) return;
  struct stat info {};
  if (::stat(aFileName.c_str(), &info) != 0) {
    if (const std::string path = PathOf(aFileName); !path.empty()) fPaths.emplace(path, aWhat);
  } else if (S_ISREG(info.st_mode)) {
    fFiles.emplace(TIdentity{info.st_dev, info.st_ino}, aWhat);
  }
}

const std::string* TFileSet::Find(const std::string& aFileName) const {
  struct stat info {};
  const bool exists = ::stat(aFileName.c_str(), &info) == 0;
  if (exists && !S_ISREG(info.st_mode)) return nullptr;
  if (exists) {
    const auto file = fFiles.find(TIdentity{info.st_dev, info.st_ino});
    if (file != fFiles.end()) return &file->second;
  }
  // A file that was added by its path may have been made since.
  const auto path = fPaths.empty() || aFileName.empty() ? fPaths.end() : fPaths.find(PathOf(aFileName));
  return path == fPaths.end() ? nullptr : &path->second;
}

}  // namespace Zor
