#pragma once

#include <optional>
#include <string>

#include "apps/kaldrix/Command.hpp"
#include "apps/kaldrix/PrintSource.hpp"
#include "apps/kaldrix/ProgressLine.hpp"
#include "kaldrix/host/TRunWriter.hpp"

namespace Zor::Program {

/// `kaldrix print`: a label run, every record, counter and question, sheet by sheet.
class PrintCommand final : public Command {
 public:
  PrintCommand(CLI::App& aProgram, const bool& aQuiet);
  int Run() const override;

 private:
  void AddOutputOptions();
  void AddRangeOptions();
  void AddLedgerOptions();
  void CheckUse();
  void CheckOutputUse() const;
  TRunJob Job() const;
  /// Tells that items show no data although they are bound to some.
  void TellUnlinked(const TKDXLabel& aDocument) const;
  void Listen(TRunJob& aJob, ProgressLine& aProgress) const;
  /// What must not be written to.
  TFileSet Taken(const TKDXLabel& aDocument) const;
  void CheckHeader(const TKDXLabel& aDocument) const;
  void Answer(TKDXLabel& aDocument, const std::string& aAnswers) const;
  /// Takes the labels that were asked for; with --reprint checks them, and adds the files that hold them.
  void Narrow(TLabelRun& aRun, const TRunJob& aJob, TFileSet& aTaken) const;
  void CheckEnds(const TKDXLabel& aDocument, const TLabelRun& aRun) const;
  int Write(TRunWriter& aWriter) const;
  int Rehearse(TRunWriter& aWriter, const TLabelRun& aRun) const;

  const bool& fQuiet;
  mutable PrintSource fSource;  ///< what it opens lives as long as the command
  std::string fInput, fOutput, fFormat, fAnswers, fLabels, fManifest, fReprint;
  int fStartRow = 1, fStartCol = 1;
  std::optional<int> fPart;
  double fDpi = 300;
  TSvgTextForm fSvgText = stPortable;
  bool fResume = false, fKeepGoing = false, fDryRun = false, fCounterRepeat = false, fPad = false;
};

}  // namespace Zor::Program
