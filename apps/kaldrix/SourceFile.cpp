#include "apps/kaldrix/SourceFile.hpp"

#include <filesystem>

#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/NameHints.hpp"

namespace Zor::Program {

namespace {

/// Files of a folder that are looked at for a hint.
constexpr std::size_t MostLookedAt = 1000;

/// The files with the same extension in the same folder.
std::vector<std::string> FilesLike(const std::string& aName) {
  const std::string folder = ExtractFileDir(aName);
  std::vector<std::string> names;
  std::error_code failed;
  std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, failed);
  for (std::size_t seen = 0; !failed && entry != std::filesystem::directory_iterator() && seen < MostLookedAt;
       entry.increment(failed), ++seen) {
    const std::string name = entry->path().filename().string();
    if (ExtractFileExt(name) == ExtractFileExt(aName)) names.push_back(name);
  }
  return names;
}

}  // namespace

void RequireSourceFile(const std::string& aName) {
  if (FileExists(aName) || DirectoryExists(aName)) return;
  const std::vector<std::string> others = FilesLike(aName);
  throw EFileNotFoundException(aName + ": there is no such file" +
                               (others.empty() ? "" : NameHint(ExtractFileName(aName), others)));
}

TFileWindow OpenSourceFile(const std::string& aName) {
  if (aName == "-") return TFileWindow(ReadInput(aName));
  RequireSourceFile(aName);
  return TFileWindow::Open(aName);
}

}  // namespace Zor::Program
