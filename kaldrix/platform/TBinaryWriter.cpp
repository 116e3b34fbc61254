#include "kaldrix/platform/TBinaryWriter.hpp"

namespace Zor {

void TBinaryWriter::WriteString(std::string_view aText) {
  if (aText.size() > INT32_MAX) throw EStreamError("A text of 2 GiB or more cannot be stored");
  auto count = static_cast<std::uint32_t>(aText.size());
  for (; count >= 0x80; count >>= 7) WriteByte(static_cast<std::uint8_t>(0x80 | (count & 0x7F)));
  WriteByte(static_cast<std::uint8_t>(count));
  fTarget.append(aText);
}

}  // namespace Zor
