#pragma once

#include <string>

#include "apps/kaldrix/Command.hpp"

namespace Zor::Program {

/// `kaldrix check`: reads a document strictly and reports everything that is wrong with it.
class CheckCommand final : public Command {
 public:
  explicit CheckCommand(CLI::App& aProgram);
  /// 1 when something is wrong.
  int Run() const override;

 private:
  std::string fInput;
};

}  // namespace Zor::Program
