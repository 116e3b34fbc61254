#pragma once

#include <string>

#include "apps/kaldrix/Command.hpp"
#include "apps/kaldrix/PrintSource.hpp"
#include "host/TRunWriter.hpp"

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
  TRunJob Job() const;
  void SetUp(TLabelRun& aRun, TKDXLabel& aDocument) const;
  void Narrow(TLabelRun& aRun, std::uint32_t aData) const;
  int Write(TKDXLabel& aDocument, TLabelRun& aRun, TRunJob& aJob) const;

  const bool& fQuiet;
  mutable PrintSource fSource;  ///< what it opens lives as long as the command
  std::string fInput, fOutput, fFormat, fAnswers, fLabels, fManifest, fReprint;
  int fStartRow = 1, fStartCol = 1, fPart = 50;
  double fDpi = 300;
  TSvgTextForm fSvgText = stPortable;
  bool fResume = false, fKeepGoing = false, fPad = false;
};

}  // namespace Zor::Program
