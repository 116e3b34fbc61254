#pragma once

#include <string>

#include "apps/kaldrix/Command.hpp"

namespace Zor::Program {

/// `kaldrix messages`: a language file to translate.
class MessagesCommand final : public Command {
 public:
  explicit MessagesCommand(CLI::App& aProgram);
  int Run() const override;

 private:
  std::string fOutput;
};

}  // namespace Zor::Program
