#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace Zor {

/// Files that are known again under any name: by a symbolic link, another spelling of the path or a second
/// hard link. A file that does not exist yet is known by its path. Devices and pipes are never in a set,
/// since reading one and writing it do not meet.
class TFileSet {
 public:
  /// `aWhat` tells of the file; the first one added counts. An empty name is passed over.
  void Add(const std::string& aFileName, const std::string& aWhat);
  /// What was told of that file when it was added; nullptr for one that was not.
  const std::string* Find(const std::string& aFileName) const;

 private:
  using TIdentity = std::pair<std::uint64_t, std::uint64_t>;  ///< device and inode

  std::map<TIdentity, std::string> fFiles;
  std::map<std::string, std::string> fPaths;  ///< of those that did not exist
};

}  // namespace Zor
