#include "apps/kaldrix/Streams.hpp"

#include <unistd.h>

#include <iostream>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/TDescriptor.hpp"
#include "kaldrix/platform/TextFile.hpp"

namespace Zor::Program {

std::string ReadInput(const std::string& aName) {
  if (aName != "-") return ReadFile(aName);
  return ReadDescriptor(STDIN_FILENO, ToldName(aName));
}

std::string ReadTextInput(const std::string& aName) { return TextOfFile(ReadInput(aName), ToldName(aName)); }

std::string ToldName(const std::string& aName) { return aName == "-" ? "standard input" : aName; }

void TellLine(const std::string& aText) { std::cerr << ShownName(aText) + '\n'; }
void Tell(const std::string& aText) { TellLine("kaldrix: " + aText); }

void WriteOutput(const std::string& aName, std::string_view aBytes) {
  if (aName != "-") return WriteFileAtomically(aName, aBytes);
  WriteAll(STDOUT_FILENO, aBytes, "standard output");
}

}  // namespace Zor::Program
