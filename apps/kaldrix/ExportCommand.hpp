#pragma once

#include <string>

#include "apps/kaldrix/Command.hpp"
#include "apps/kaldrix/OutputFormat.hpp"
#include "kaldrix/host/Export.hpp"

namespace Zor::Program {

/// `kaldrix export`: one document to another form.
class ExportCommand final : public Command {
 public:
  explicit ExportCommand(CLI::App& aProgram);
  int Run() const override;

 private:
  std::string fInput;
  Output fOutput;
  TExportOptions fOptions;
};

}  // namespace Zor::Program
