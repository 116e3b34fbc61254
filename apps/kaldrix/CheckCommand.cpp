#include "apps/kaldrix/CheckCommand.hpp"

#include <CLI/CLI.hpp>

#include "apps/kaldrix/OptionValues.hpp"
#include "apps/kaldrix/Streams.hpp"
#include "kaldrix/editor/DocumentCheck.hpp"
#include "kaldrix/host/TKDXLabel.hpp"

namespace Zor::Program {

CheckCommand::CheckCommand(CLI::App& aProgram)
    : Command(aProgram, "check", "Report everything that is wrong with a document") {
  Options()
      .add_option("input", fInput, "The document; - reads standard input")
      ->required()
      ->check(SomeFile());
}

int CheckCommand::Run() const {
  TKDXLabel scratch;
  const std::vector<std::string> findings = CheckDocument(scratch, ReadInput(fInput));
  for (const std::string& finding : findings) Tell(ToldName(fInput) + ": " + finding);
  return findings.empty() ? 0 : 1;
}

}  // namespace Zor::Program
