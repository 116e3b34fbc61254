#pragma once

#include <memory>
#include <string>

#include "apps/kaldrix/Command.hpp"
#include "apps/kaldrix/OutputFormat.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"

namespace Zor::Program {

/// `kaldrix diagram`: Mermaid or PlantUML text to a drawing.
class DiagramCommand final : public Command {
 public:
  explicit DiagramCommand(CLI::App& aProgram);
  int Run() const override;

 private:
  TZORDiagramFormat Language() const;
  std::unique_ptr<TKDXDiagramModel> Parse() const;
  bool IsGood(const TKDXDiagramModel& aModel) const;
  /// Writes the diagnostics to standard error; with `--strict` up to the first warning.
  void TellAll(const TKDXDiagramModel& aModel) const;
  // Each gives the exit status.
  int Model() const;
  int Draw() const;

  std::string fInput;
  Output fOutput;
  TExportOptions fOptions;
  TZORDiagramFormat fLanguage = dgAuto;
  TZOREditorMode fMode = emFlowChart;
  bool fStrict = false;
  bool fModel = false;
};

}  // namespace Zor::Program
