#pragma once

#include <string>

#include "apps/kaldrix/Command.hpp"

namespace Zor::Program {

/// `kaldrix info`: what a document holds.
class InfoCommand final : public Command {
 public:
  explicit InfoCommand(CLI::App& aProgram);
  int Run() const override;

 private:
  std::string fInput;
  bool fJson = false;
};

}  // namespace Zor::Program
