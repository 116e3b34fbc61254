// The files of a label run.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/TLabelRun.hpp"
#include "kaldrix/platform/TAtomicFile.hpp"

namespace Zor::inline Host {

enum TRunFormat { rfPdf, rfSvg, rfPng };

struct TRunJob {
  std::string output;  ///< "-": a PDF to `sink`
  TRunFormat format = rfPdf;
  TExportOptions options;
  std::string manifest;  ///< the ledger; empty for none
  int part = 50;         ///< pages to a part, with a ledger
  bool keepGoing = false;
  std::uint32_t data = 0;  ///< what TRunHead tells of source and answers
  std::function<void(std::string_view)> sink;
  /// Called for each label that is left out, and after each page.
  std::function<void(const TRunLabel&)> onLeftOut;
  std::function<void(int aPage, int aPages)> onPage;
};

/// Prints a run into files. A PDF is one file, or with a ledger one for each part; SVG and PNG are a file for
/// each page. Files of parts and pages have the output's name with "-0001" and so on in front of its
/// extension. A label whose record or item has a problem ends the run with an Exception that names it, or
/// with `keepGoing` stays empty.
class TRunWriter {
 public:
  TRunWriter(TKDXLabel& aDocument, TLabelRun& aRun, const TRunJob& aJob);
  ~TRunWriter();
  TRunWriter(const TRunWriter&) = delete;
  TRunWriter& operator=(const TRunWriter&) = delete;

  /// Takes up the ledger of an earlier session, where there is one, and goes on behind its last finished
  /// part. Raises Exception when it tells of another run.
  void Resume();
  /// Prints what is left. Gives how many labels were left out.
  int Write();

  /// "labels-0001.pdf" of "labels.pdf".
  static std::string NumberedName(const std::string& aOutput, int aNumber);
  /// Which label is left out, and why.
  static std::string Told(const TRunLabel& aLabel);

 private:
  TRunHead Head() const;
  void WritePart(int aFirst, int aLast);
  void WritePage(int aPage);
  void AddToPdf(const TExportPlan& aPlan);
  void TakeSheet(const std::string& aFile);
  std::string PartName() const;

  TKDXLabel& fDocument;
  TLabelRun& fRun;
  const TRunJob& fJob;
  TBackground fBackground;
  std::unique_ptr<TRunManifest> fManifest;
  std::unique_ptr<TAtomicFile> fFile;  ///< the PDF in the making
  std::unique_ptr<TSurface> fPdf;
  int fPart = 0;   ///< the part in the making, 1-based
  int fPages = 0;  ///< printed by earlier sessions
  int fLeftOut = 0;
};

/// Narrows a run to the labels A to B, to print them again, and checks that they get the records and counter
/// values that the ledger tells, from unchanged data (`aData` as in TRunHead). Raises Exception that names
/// the first label that differs, or is not in the ledger.
void CheckReprint(const std::string& aManifest, TLabelRun& aRun, std::uint32_t aData, int aFirst, int aLast);

}  // namespace Zor::inline Host
