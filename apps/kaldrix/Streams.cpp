#include "apps/kaldrix/Streams.hpp"

#include <iostream>
#include <iterator>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::Program {

std::string ReadInput(const std::string& aName) {
  if (aName != "-") return ReadFile(aName);
  return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
}

std::string ToldName(const std::string& aName) { return aName == "-" ? "standard input" : aName; }

void WriteOutput(const std::string& aName, std::string_view aBytes) {
  if (aName != "-") return WriteFileAtomically(aName, aBytes);
  std::cout.write(aBytes.data(), static_cast<std::streamsize>(aBytes.size())).flush();
  if (!std::cout) throw EStreamError("standard output cannot be written");
}

}  // namespace Zor::Program
