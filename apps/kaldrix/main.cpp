// The program `kaldrix`: exit status 0 done, 1 the input or the work failed, 2 wrong use.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <vector>

#include "apps/kaldrix/BarcodeCommand.hpp"
#include "apps/kaldrix/CheckCommand.hpp"
#include "apps/kaldrix/DiagramCommand.hpp"
#include "apps/kaldrix/ExportCommand.hpp"
#include "apps/kaldrix/InfoCommand.hpp"
#include "apps/kaldrix/MessagesCommand.hpp"
#include "apps/kaldrix/PrintCommand.hpp"
#include "kaldrix/platform/TTemporaryFile.hpp"

namespace {

constexpr int Failed = 1;
constexpr int WrongUse = 2;

using TCommands = std::vector<std::unique_ptr<Zor::Program::Command>>;

TCommands MakeCommands(CLI::App& aProgram, const bool& aQuiet) {
  TCommands commands;
  commands.push_back(std::make_unique<Zor::Program::ExportCommand>(aProgram));
  commands.push_back(std::make_unique<Zor::Program::PrintCommand>(aProgram, aQuiet));
  commands.push_back(std::make_unique<Zor::Program::BarcodeCommand>(aProgram));
  commands.push_back(std::make_unique<Zor::Program::DiagramCommand>(aProgram));
  commands.push_back(std::make_unique<Zor::Program::InfoCommand>(aProgram));
  commands.push_back(std::make_unique<Zor::Program::CheckCommand>(aProgram));
  commands.push_back(std::make_unique<Zor::Program::MessagesCommand>(aProgram));
  return commands;
}

int RunChosen(const TCommands& aCommands) {
  for (const auto& command : aCommands) {
    if (command->IsChosen()) return command->Run();
  }
  return WrongUse;
}

}  // namespace

int main(int argc, char** argv) {
  Zor::RemoveTemporaryFilesOnSignals();
  CLI::App program("Labels, flowcharts and technical drawings without a screen.", "kaldrix");
  program.set_version_flag("--version", "kaldrix " KALDRIX_VERSION);
  program.require_subcommand(1);
  bool quiet = false;
  program.add_flag("--quiet", quiet, "No progress lines");
  program.fallthrough();

  const TCommands commands = MakeCommands(program, quiet);
  try {
    program.parse(argc, argv);
    return RunChosen(commands);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? 0 : WrongUse;
  } catch (const std::bad_alloc&) {
    std::cerr << "kaldrix: out of memory\n";
  } catch (const std::exception& error) {
    std::cerr << "kaldrix: " << error.what() << '\n';
  }
  return Failed;
}
