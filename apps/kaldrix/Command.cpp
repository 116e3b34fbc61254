#include "apps/kaldrix/Command.hpp"

#include <CLI/CLI.hpp>

namespace Zor::Program {

Command::Command(CLI::App& aProgram, const char* aName, const char* aDescription)
    : fOptions(aProgram.add_subcommand(aName, aDescription)) {}

bool Command::IsChosen() const { return fOptions->parsed(); }

}  // namespace Zor::Program
