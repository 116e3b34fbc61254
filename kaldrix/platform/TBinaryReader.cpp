#include "kaldrix/platform/TBinaryReader.hpp"

#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

std::string TBinaryReader::ReadString() {
  const std::size_t start = fPosition;
  const std::size_t count = ReadTextLength();
  if (count > Left()) {
    fPosition = start;
    RaiseEnd(start);
  }
  std::string text(ReadBytes(count));
  Utf8::Repair(text);
  return text;
}

/// The 7-bit encoded byte count. On an error the position goes back to its first byte.
std::size_t TBinaryReader::ReadTextLength() {
  constexpr unsigned lastShift = 28;          // of the fifth byte
  constexpr std::uint8_t lastByteMax = 0x07;  // its three bits that are left of 31
  const std::size_t start = fPosition;
  std::size_t count = 0;
  for (unsigned shift = 0; shift <= lastShift; shift += 7) {
    if (Left() == 0) {
      fPosition = start;
      RaiseEnd(start);
    }
    const std::uint8_t byte = ReadByte();
    if (shift == lastShift && byte > lastByteMax) break;
    count |= std::size_t{byte & 0x7FU} << shift;
    if (byte < 0x80) return count;
  }
  fPosition = start;
  throw EReadError("Malformed text length at byte " + std::to_string(start));
}

void TBinaryReader::RaiseEnd(std::size_t aPosition) {
  throw EReadError("Unexpected end of data at byte " + std::to_string(aPosition));
}

}  // namespace Zor
