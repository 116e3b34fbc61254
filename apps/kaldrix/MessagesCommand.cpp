#include "apps/kaldrix/MessagesCommand.hpp"

#include <CLI/CLI.hpp>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"

namespace Zor::Program {

MessagesCommand::MessagesCommand(CLI::App& aProgram)
    : Command(aProgram, "messages", "Write a language file to translate") {
  Options()
      .add_option("-o,--output", fOutput, "The file to write; - writes to standard output")
      ->required()
      ->check(SomeFile());
}

int MessagesCommand::Run() const {
  WriteOutput(fOutput, TKDXMsg::IniText());
  return 0;
}

}  // namespace Zor::Program
