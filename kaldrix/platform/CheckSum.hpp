#pragma once

#include <cstdint>
#include <string_view>

namespace Zor {

/// The CRC-32 of some bytes, or of those of `aBefore` and these (ISO 3309).
std::uint32_t CheckSum(std::string_view aBytes, std::uint32_t aBefore = 0);

}  // namespace Zor
