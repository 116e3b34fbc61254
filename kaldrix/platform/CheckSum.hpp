#pragma once

#include <zlib.h>

#include <cstdint>
#include <string_view>

namespace Zor {

/// The CRC-32 of some bytes, or of those of `aBefore` and these (ISO 3309).
inline std::uint32_t CheckSum(std::string_view aBytes, std::uint32_t aBefore = 0) {
  const auto* bytes = reinterpret_cast<const Bytef*>(aBytes.data());
  return static_cast<std::uint32_t>(crc32_z(aBefore, bytes, aBytes.size()));
}

}  // namespace Zor
