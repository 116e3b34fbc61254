// Any bytes as a document in JSON.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/document/DocumentWork.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  // A copy of its own lets the sanitizer see a read beyond the end.
  const std::string text(reinterpret_cast<const char*>(aData), aSize);
  Zor::WorkOnDocument(text);
  return 0;
}
