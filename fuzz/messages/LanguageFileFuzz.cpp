// Any bytes as a language file: they are read, and what is written again reads back the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/TIniFile.hpp"

namespace {

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

/// The whole catalogue as a file, once the given file has been read.
std::string Rewritten(const std::string& aFile) {
  Zor::TKDXMsg::LoadText(aFile);
  return Zor::TKDXMsg::IniText();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  const std::string bytes(reinterpret_cast<const char*>(aData), aSize);
  const Zor::TIniFile file = Zor::TIniFile::FromText(bytes);
  const std::string text = file.ToText();
  Require(Zor::TIniFile::FromText(text).ToText() == text);
  // Without a line the built-in texts stand, and one look at those is enough.
  const auto hasLines = [](const Zor::TIniFile::TSection& section) { return !section.Lines.empty(); };
  if (std::none_of(file.Sections().begin(), file.Sections().end(), hasLines)) return 0;
  const std::string saved = Rewritten(bytes);
  Require(Rewritten(saved) == saved);
  return 0;
}
