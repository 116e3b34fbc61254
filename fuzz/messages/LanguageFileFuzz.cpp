// Any bytes as a language file: they are read, and what is written again reads back the same.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/TIniFile.hpp"

namespace {

/// A file in memory, so that the run does not wait for a disk.
const std::string& FileName() {
  static const std::string name = [] {
    const std::string memory = "/dev/shm";
    const std::string folder = Zor::DirectoryExists(memory) ? memory : ".";
    return Zor::CombinePath(folder, "language_file_fuzz-" + std::to_string(::getpid()) + ".ini");
  }();
  [[maybe_unused]] static const int registered = std::atexit([] { ::unlink(FileName().c_str()); });
  return name;
}

std::string Saved() {
  Zor::TKDXMsg::SaveToIniFile(FileName());
  return Zor::ReadFile(FileName());
}

void Check(bool aHolds) {
  if (!aHolds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  const std::string_view bytes(reinterpret_cast<const char*>(aData), aSize);
  const std::string text = Zor::TIniFile::FromText(bytes).ToText();
  Check(Zor::TIniFile::FromText(text).ToText() == text);

  Zor::WriteFileAtomically(FileName(), bytes);
  Zor::TKDXMsg::LoadResources(FileName());
  const std::string saved = Saved();
  Zor::TKDXMsg::LoadResources(FileName());
  Check(Saved() == saved);
  return 0;
}
