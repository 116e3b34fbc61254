// The ledger of a label run: which record and which counter values stand in which cell of which page.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "kaldrix/platform/TAppendFile.hpp"

namespace Zor::inline Host {

/// One label of a run. Everything counts from 1.
struct TRunLabel {
  int label = 0;  ///< in the run
  int page = 0;
  int row = 0;
  int column = 0;
  int record = 0;                                             ///< 0 without a source
  std::vector<std::pair<std::string, std::string>> counters;  ///< name and value, of those in use
  std::string leftOut;                                        ///< why the label stays empty, if it does
};

/// What a run prints. A run that goes on, or prints again, must be the one that the ledger tells of.
struct TRunHead {
  int labels = 0;  ///< of the whole run
  int first = 0;   ///< the labels that are printed
  int last = 0;
  int startRow = 0;  ///< the first cell of the first page
  int startColumn = 0;
  int part = 0;            ///< pages to a part
  std::string output;      ///< the name from which those of the parts are made
  std::uint32_t data = 0;  ///< checksum of the answers and of the source, as far as it is a text

  /// What differs, in words; empty when nothing does.
  std::string Difference(const TRunHead& aOther) const;
};

/// How far a run has come: only parts that were finished count.
struct TRunState {
  TRunHead head;
  int parts = 0;
  int pages = 0;
  int lastLabel = 0;        ///< 0 before the first part
  std::uint64_t bytes = 0;  ///< of the ledger, up to the end of the last finished part
};

/// A ledger is lines of JSON: the head, then for each part its labels and a line that closes the part.
class TRunManifest {
 public:
  /// Reads the ledger and calls `aVisit` with each label of the finished parts and the file that holds it, in
  /// turn. What a kill left behind the last finished part is passed over. Raises Exception with file and
  /// line.
  static TRunState Read(const std::string& aFileName,
                        const std::function<void(const TRunLabel&, const std::string& aFile)>& aVisit);

  /// Begins a ledger. Raises Exception where there is one already.
  TRunManifest(const std::string& aFileName, const TRunHead& aHead);
  /// Goes on behind the last finished part.
  TRunManifest(const std::string& aFileName, const TRunState& aState);

  void Add(const TRunLabel& aLabel, const std::string& aFile);
  /// Writes the labels added since the last part, and closes it. They are on the disk when this returns.
  void FinishPart();

  const TRunState& State() const { return fState; }

 private:
  TAppendFile fFile;
  TRunState fState;
  std::string fLines;
  int fLastPage = 0;
};

}  // namespace Zor::inline Host
