#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {

/// Reads what TBinaryWriter wrote, over bytes that it does not own and that must outlive it.
/// Data that ends early raises EReadError "Unexpected end of data at byte N", where N is the 0-based
/// position of the value that is not whole; the position then stays there.
class TBinaryReader {
 public:
  explicit TBinaryReader(std::string_view aSource) : fSource(aSource) {}

  std::uint8_t ReadByte() { return Take<std::uint8_t>(); }
  /// 0 is false, every other byte true.
  bool ReadBoolean() { return Take<std::uint8_t>() != 0; }
  std::int16_t ReadInt16() { return static_cast<std::int16_t>(Take<std::uint16_t>()); }
  std::uint16_t ReadUInt16() { return Take<std::uint16_t>(); }
  std::int32_t ReadInt32() { return static_cast<std::int32_t>(Take<std::uint32_t>()); }
  std::uint32_t ReadUInt32() { return Take<std::uint32_t>(); }
  std::int64_t ReadInt64() { return static_cast<std::int64_t>(Take<std::uint64_t>()); }
  double ReadDouble() { return std::bit_cast<double>(Take<std::uint64_t>()); }
  float ReadSingle() { return std::bit_cast<float>(Take<std::uint32_t>()); }
  /// A text; bytes in it that are not UTF-8 become U+FFFD. A byte count of more than five bytes, or above
  /// 2^31 - 1, raises "Malformed text length at byte N"; one that the rest cannot hold raises before
  /// memory is taken.
  std::string ReadString();
  /// The next `aCount` bytes, as a view into the source.
  std::string_view ReadBytes(std::size_t aCount) {
    Need(aCount);
    const std::string_view bytes = fSource.substr(fPosition, aCount);
    fPosition += aCount;
    return bytes;
  }

  /// The 0-based byte where the next value begins.
  std::size_t Position() const { return fPosition; }
  /// How many bytes are left.
  std::size_t Left() const { return fSource.size() - fPosition; }

 private:
  template <class TUnsigned>
  TUnsigned Take() {
    Need(sizeof(TUnsigned));
    TUnsigned value = 0;
    if constexpr (std::endian::native == std::endian::little) {
      std::memcpy(&value, fSource.data() + fPosition, sizeof(TUnsigned));
    } else {
      for (std::size_t i = sizeof(TUnsigned); i-- > 0;) {
        value = static_cast<TUnsigned>((value << 8) | static_cast<std::uint8_t>(fSource[fPosition + i]));
      }
    }
    fPosition += sizeof(TUnsigned);
    return value;
  }
  void Need(std::size_t aCount) const {
    if (aCount > Left()) [[unlikely]]
      RaiseEnd(fPosition);
  }
  std::size_t ReadTextLength();
  [[noreturn]] static void RaiseEnd(std::size_t aPosition);

  std::string_view fSource;
  std::size_t fPosition = 0;
};

}  // namespace Zor
