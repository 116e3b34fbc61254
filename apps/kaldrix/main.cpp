// The program `kaldrix`: exit status 0 done, 1 the input or the work failed, 2 wrong use.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <sstream>
#include <vector>

#include "apps/kaldrix/BarcodeCommand.hpp"
#include "apps/kaldrix/CheckCommand.hpp"
#include "apps/kaldrix/DiagramCommand.hpp"
#include "apps/kaldrix/ExportCommand.hpp"
#include "apps/kaldrix/InfoCommand.hpp"
#include "apps/kaldrix/MessagesCommand.hpp"
#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/PrintCommand.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/Version.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/StandardStreams.hpp"
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

void AddInputLimit(CLI::App& aProgram) {
  aProgram
      .add_option_function<std::string>(
          "--max-input", [](const std::string& size) { Zor::SetInputLimit(*Zor::Program::SizeOf(size)); },
          "A file that is read whole may have so many bytes: 500M, 4G")
      ->check([](const std::string& size) {
        return Zor::Program::SizeOf(size) ? std::string() : "'" + size + "' is no size such as 500M or 4G";
      })
      ->type_name("SIZE")
      ->default_str("2G");
}

int RunChosen(const TCommands& aCommands) {
  for (const auto& command : aCommands) {
    if (command->IsChosen()) return command->Run();
  }
  return WrongUse;
}

/// Help goes to standard output; what is wrong with the use is told as one line, whatever stands in it.
int Answer(const CLI::App& aProgram, const CLI::ParseError& aError) {
  std::ostringstream help, message;
  const bool asked = aProgram.exit(aError, help, message) == 0;
  if (asked) Zor::Program::WriteOutput("-", help.str());
  std::string told = message.str();
  const std::string what = aError.what();
  if (const std::size_t place = told.find(what); place != std::string::npos)
    told.replace(place, what.size(), Zor::ShownName(what));
  std::cerr << told;
  return asked ? 0 : WrongUse;
}

int ParseAndRun(CLI::App& aProgram, const TCommands& aCommands, int aCount, char** aArguments) {
  try {
    aProgram.parse(aCount, aArguments);
    return RunChosen(aCommands);
  } catch (const CLI::ParseError& error) {
    return Answer(aProgram, error);
  }
}

}  // namespace

int main(int argc, char** argv) {
  Zor::OpenStandardStreams();
  Zor::RemoveTemporaryFilesOnSignals();
  CLI::App program("Labels, flowcharts and technical drawings without a screen.", "kaldrix");
  program.set_version_flag("--version", "kaldrix " KALDRIX_VERSION);
  program.require_subcommand(1);
  bool quiet = false;
  program.add_flag("--quiet", quiet, "No progress lines");
  AddInputLimit(program);
  program.fallthrough();

  const TCommands commands = MakeCommands(program, quiet);
  try {
    return ParseAndRun(program, commands, argc, argv);
  } catch (const std::bad_alloc&) {
    Zor::Program::Tell("out of memory");
  } catch (const std::exception& error) {
    Zor::Program::Tell(error.what());
  }
  return Failed;
}
