// The ledger of a label run: which record and which counter values stand in which cell of which page.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/TAppendFile.hpp"

namespace Zor::inline Host {

/// What is wrong with a ledger, or with a run that goes on by it; the message begins with the ledger's name.
class ELedgerError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};

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
  std::string only;        ///< the labels as ranges, where some between first and last are left out
  std::string output;      ///< the name from which those of the parts are made
  std::string form;        ///< of the files; empty in ledgers of older versions
  std::uint32_t data = 0;  ///< checksum of the answers and of the source, as far as it is a text
  /// Checksum of the document and of the options by which it is read and drawn; none in ledgers of older
  /// versions.
  std::optional<std::uint32_t> document;

  /// What differs, in words; empty when nothing does. What the other one does not tell is passed over.
  std::string Difference(const TRunHead& aOther) const;
  /// The same of what the labels are made from.
  std::string SourceDifference(const TRunHead& aOther) const;
};

/// How far a run has come: only parts that were finished count.
struct TRunState {
  TRunHead head;
  std::vector<int> parts;   ///< the last page of each
  int lastLabel = 0;        ///< 0 before the first part
  std::uint64_t bytes = 0;  ///< of the ledger, up to the end of the last finished part

  int Pages() const { return parts.empty() ? 0 : parts.back(); }
};

/// A ledger is lines of JSON: the head, then for each part its labels and a line that closes the part. The
/// head comes with the first part, so that a run that fails before leaves no ledger.
class TRunManifest {
 public:
  /// Reads the ledger and calls `aVisit` with each label of the finished parts, in turn. What a kill left
  /// behind the last finished part is passed over. Raises ELedgerError with file and line,
  /// EFileNotFoundException when there is none, EStreamError when it cannot be read.
  static TRunState Read(const std::string& aFileName, const std::function<void(const TRunLabel&)>& aVisit);

  /// Takes the ledger into the hands of this session, and reads how far it has come. Raises what Read raises,
  /// and EStreamError while another session has it.
  explicit TRunManifest(const std::string& aFileName);
  /// A ledger without a finished part is taken away.
  ~TRunManifest();
  TRunManifest(const TRunManifest&) = delete;
  TRunManifest& operator=(const TRunManifest&) = delete;

  /// Goes on behind the last finished part; where there is none, begins a run.
  void GoOn(const TRunHead& aHead);
  void Add(const TRunLabel& aLabel, const std::string& aFile);
  /// Writes the labels added since the last part, and closes it. They are on the disk when this returns.
  void FinishPart();

  const std::string& Name() const { return fName; }
  const TRunState& State() const { return fState; }

 private:
  std::string fName;
  TAppendFile fFile;
  TRunState fState;
  std::string fLines;
  int fLastPage = 0, fLastLabel = 0;
};

}  // namespace Zor::inline Host
