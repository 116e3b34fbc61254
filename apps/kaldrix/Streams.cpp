#include "apps/kaldrix/Streams.hpp"

#include <unistd.h>

#include <iostream>

#include "apps/kaldrix/SourceFile.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/TDescriptor.hpp"
#include "kaldrix/platform/TextFile.hpp"

namespace Zor::Program {

std::string ReadInput(const std::string& aName) {
  if (aName != "-") {
    RequireSourceFile(aName);
    return ReadFile(aName);
  }
  return ReadDescriptor(STDIN_FILENO, ToldName(aName));
}

std::string ReadTextInput(const std::string& aName) { return TextOfFile(ReadInput(aName), ToldName(aName)); }

std::string ToldName(const std::string& aName) { return aName == "-" ? "standard input" : aName; }

void TellLine(const std::string& aText) {
  // An indented line goes on with the message above it: names cannot forge a message of their own that way.
  constexpr std::string_view next = "\n  ";
  std::string shown;
  std::size_t start = 0;
  for (std::size_t end = 0; (end = aText.find(next, start)) != std::string::npos; start = end + next.size())
    (shown += ShownName(aText.substr(start, end - start))) += next;
  std::cerr << shown + ShownName(aText.substr(start)) + '\n';
}
void Tell(const std::string& aText) { TellLine("kaldrix: " + aText); }

void WriteOutput(const std::string& aName, std::string_view aBytes) {
  if (aName != "-") return WriteFileAtomically(aName, aBytes);
  WriteAll(STDOUT_FILENO, aBytes, "standard output");
}

}  // namespace Zor::Program
