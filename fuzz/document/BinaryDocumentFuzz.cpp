// Any bytes as what a binary file frames: length and checksum always fit, so that the records are reached.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/document/DocumentWork.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  Zor::WorkOnDocument(Zor::Framed({reinterpret_cast<const char*>(aData), aSize}));
  return 0;
}
