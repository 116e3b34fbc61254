#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {

/// Appends typed little-endian values to a byte buffer that it does not own and that must outlive it.
/// The values carry no tags: their order is the format.
class TBinaryWriter {
 public:
  explicit TBinaryWriter(std::string& aTarget) : fTarget(aTarget) {}

  void WriteByte(std::uint8_t aValue) { fTarget.push_back(static_cast<char>(aValue)); }
  /// One byte, 0 or 1.
  void WriteBoolean(bool aValue) { WriteByte(aValue ? 1 : 0); }
  void WriteInt16(std::int16_t aValue) { WriteUInt16(static_cast<std::uint16_t>(aValue)); }
  void WriteUInt16(std::uint16_t aValue) { Put(aValue); }
  void WriteInt32(std::int32_t aValue) { WriteUInt32(static_cast<std::uint32_t>(aValue)); }
  void WriteUInt32(std::uint32_t aValue) { Put(aValue); }
  void WriteInt64(std::int64_t aValue) { Put(static_cast<std::uint64_t>(aValue)); }
  /// IEEE 754, 8 bytes.
  void WriteDouble(double aValue) { Put(std::bit_cast<std::uint64_t>(aValue)); }
  /// IEEE 754, 4 bytes.
  void WriteSingle(float aValue) { Put(std::bit_cast<std::uint32_t>(aValue)); }
  /// Byte count as a 7-bit encoded integer, then the bytes of the UTF-8 text.
  /// EStreamError for a text of 2^31 bytes or more.
  void WriteString(std::string_view aText);
  void WriteBytes(std::string_view aBytes) { fTarget.append(aBytes); }

  /// How many bytes the buffer holds, those from before this writer included.
  std::size_t Position() const { return fTarget.size(); }

 private:
  template <class TUnsigned>
  void Put(TUnsigned aValue) {
    char bytes[sizeof(TUnsigned)];
    if constexpr (std::endian::native == std::endian::little) {
      std::memcpy(bytes, &aValue, sizeof(TUnsigned));
    } else {
      for (std::size_t i = 0; i < sizeof(TUnsigned); ++i) bytes[i] = static_cast<char>(aValue >> (8 * i));
    }
    fTarget.append(bytes, sizeof(bytes));
  }

  std::string& fTarget;
};

}  // namespace Zor
