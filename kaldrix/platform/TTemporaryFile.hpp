// Files in the making, which nothing but their finished form may leave behind: no error, no signal, and no
// kill that a later run can clear up after.
#pragma once

#include <functional>
#include <string>

namespace Zor {

/// The name of a file that is written beside the one whose place it is to take. The name is listed while the
/// object lives, for RemoveTemporaryFilesOnSignals; at its end the file is removed.
class TTemporaryFile {
 public:
  /// "TARGET.PROCESS-NUMBER.tmp", another number each time; of a target whose name leaves no room for the
  /// ending, "kaldrix.PROCESS-NUMBER.tmp" in its folder. Makes no file.
  explicit TTemporaryFile(const std::string& aTarget);
  ~TTemporaryFile();
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  const std::string& Name() const { return fName; }
  /// The file is none of ours any more: it has taken the target's place, or stood there before.
  void Release();

 private:
  std::string fName;
  int fPlace;  ///< in the list; -1 for none
};

/// From now on TERM, INT and HUP remove the listed files before they end the process as they always do. A
/// signal that is ignored (nohup) stays so.
void RemoveTemporaryFilesOnSignals();

/// Removes what killed processes have left in a folder ("" is the current one) of files with a name that
/// `aIsTarget` accepts. Nobody may be writing these. A file that cannot be removed stays.
void RemoveLeftTemporaryFiles(const std::string& aFolder,
                              const std::function<bool(const std::string& aTargetName)>& aIsTarget);

}  // namespace Zor
