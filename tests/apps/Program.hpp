// The program as a person runs it: what the tests of its commands share.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace Zor {

struct TOutcome {
  int status;
  std::string text;  ///< standard output and error together
};

inline TOutcome Shell(const std::string& aCommand) {
  std::FILE* pipe = popen((aCommand + " 2>&1").c_str(), "r");
  std::string text;
  std::array<char, 4096> buffer;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
    text.append(buffer.data(), count);
  return {WEXITSTATUS(pclose(pipe)), text};
}

inline TOutcome Kaldrix(const std::string& aArguments) { return Shell(KALDRIX_PROGRAM " " + aArguments); }

inline std::string Example(const std::string& aName) { return KALDRIX_SOURCE_DIR "/examples/" + aName; }

/// Gives each test a folder, which goes with it.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    std::string pattern = testing::TempDir() + "kaldrix-XXXXXX";
    fFolder = mkdtemp(pattern.data());
  }
  ~ProgramTest() override { Shell("rm -r '" + fFolder + "'"); }
  std::string File(const std::string& aName) const { return fFolder + "/" + aName; }

  std::string fFolder;
};

}  // namespace Zor
