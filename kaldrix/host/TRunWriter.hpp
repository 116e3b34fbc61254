// The files of a label run.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/host/TLabelRun.hpp"
#include "kaldrix/host/TPrintedLabels.hpp"
#include "kaldrix/platform/TAtomicFile.hpp"
#include "kaldrix/platform/TFileSet.hpp"

namespace Zor::inline Host {

enum TRunFormat { rfPdf, rfSvg, rfPng };

constexpr int DefaultPart = 50;

struct TRunJob {
  std::string output;  ///< the file, or where it is numbered what its name begins with; not used with `sink`
  TRunFormat format = rfPdf;
  TExportOptions options;
  std::string manifest;     ///< the ledger; empty for none
  std::optional<int> part;  ///< pages to a part, with a ledger; if not told as that says, else DefaultPart
  bool keepGoing = false;
  std::uint32_t data = 0, document = 0;  ///< what TRunHead tells of them
  /// Takes what would go to files: a PDF piece by piece, SVG and PNG in one call for each page, before its
  /// `onPage`. Without a ledger only.
  std::function<void(std::string_view)> sink;
  /// Called for each label that is left out, and after each page.
  std::function<void(const TRunLabel&)> onLeftOut;
  std::function<void(int aPage, int aPages)> onPage;
  /// Called with what a person should know, such as a part that was written again; begins with a file's name.
  std::function<void(const std::string&)> onNote;
};

/// Prints a run into files. A PDF is one file, or with a ledger one for each part; SVG and PNG are a file for
/// each page. Files of parts and pages have the output's name with "-0001" and so on in front of its
/// extension. A label whose record or item has a problem ends the run with an Exception that names it, or
/// with `keepGoing` stays empty.
class TRunWriter {
 public:
  /// Raises EArgumentException for an output "-" without a sink, which is no file, and for a sink with a
  /// ledger, which tells of files.
  TRunWriter(TKDXLabel& aDocument, TLabelRun& aRun, const TRunJob& aJob);
  ~TRunWriter();
  TRunWriter(const TRunWriter&) = delete;
  TRunWriter& operator=(const TRunWriter&) = delete;

  /// What the files of the run would be, in turn; empty for a sink.
  std::vector<std::string> Outputs() const;
  /// Raises Exception when a file of the run is one of these.
  void CheckOutputs(const TFileSet& aTaken) const;

  /// Fills every sheet without painting, and calls `aVisit` with each label. Writes nothing. Gives how many
  /// labels would be left out.
  int Rehearse(const std::function<void(const TRunLabel&)>& aVisit);
  /// Takes the ledger, where there is to be one. Raises ELedgerError when it tells of finished parts.
  void Begin();
  /// Takes up the ledger of an earlier session, where there is one, to go on behind its last finished part.
  /// Raises ELedgerError when it tells of another run.
  void Resume();
  /// Prints what is left, and files of finished parts that are missing. Gives how many labels were left out.
  /// On a failure no file stays but those of finished parts.
  int Write();
  /// How many parts the ledger tells of.
  int FinishedParts() const;

  /// "labels-0001.pdf" of "labels.pdf".
  static std::string NumberedName(const std::string& aOutput, int aNumber);
  /// Which label is left out, and why.
  static std::string Told(const TRunLabel& aLabel);

 private:
  TRunHead Head() const;
  void OpenLedger();
  void CheckSameRun() const;
  bool IsFinished() const { return fManifest != nullptr && fManifest->State().lastLabel >= fRun.Last(); }

  void WritePart(int aPart, int aFirst, int aLast);
  void WritePage(int aPage, const std::string& aFile);
  void WriteWhole(const std::string& aFile, const std::string& aBytes);
  void AddToPdf(const TExportPlan& aPlan, const std::string& aFile);
  void FinishPdf(const std::string& aFile);
  void WriteMissing();
  void TakeSheet(const std::string& aFile);
  /// Counts and tells the labels of the sheet that have a problem, or raises the first.
  void JudgeSheet();

  std::string PartName(int aPart) const;
  /// The file that a page goes to.
  std::string FileOf(int aPart, int aPage) const;
  void Note(const std::string& aText) const;

  TKDXLabel& fDocument;
  TLabelRun& fRun;
  const TRunJob& fJob;
  TBackground fBackground;
  std::unique_ptr<TRunManifest> fManifest;
  const TPrintedLabels* fPrinted = nullptr;  ///< what pages that are written again have to hold
  std::unique_ptr<TAtomicFile> fFile;        ///< the PDF in the making
  std::unique_ptr<TSurface> fPdf;
  std::vector<std::string> fUnfinished;  ///< files that stand, of a run or part that is not finished
  int fEach;                             ///< pages to a part
  int fLeftOut = 0;
};

/// Narrows a run to some of its labels, to print them again, and checks that they get the records and counter
/// values that the ledger tells, from an unchanged document and unchanged data. Gives how far that run has
/// come. Raises ELedgerError that names the first label that differs, or is not in the ledger.
TRunState CheckReprint(const TRunJob& aJob, const std::string& aManifest, TLabelRun& aRun,
                       const TLabelRanges& aLabels);

}  // namespace Zor::inline Host
