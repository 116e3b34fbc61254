#include "kaldrix/platform/CheckSum.hpp"

#include <zlib.h>

namespace Zor {

std::uint32_t CheckSum(std::string_view aBytes, std::uint32_t aBefore) {
  const auto* bytes = reinterpret_cast<const Bytef*>(aBytes.data());
  return static_cast<std::uint32_t>(crc32_z(aBefore, bytes, aBytes.size()));
}

}  // namespace Zor
