#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace Zor::inline Qrcode {

/// A buffer to which bits are appended, the most significant first; complete bytes can be read.
class TBitArray {
 public:
  void Reserve(std::size_t aBytes) { fBytes.reserve(aBytes); }
  /// Appends the low `aCount` bits of `aValue`; at most 24.
  void AppendBits(std::uint32_t aValue, int aCount) {
    fPending = (fPending << aCount) | (aValue & ((1U << aCount) - 1));
    fPendingBits += aCount;
    while (fPendingBits >= 8) {
      fPendingBits -= 8;
      fBytes.push_back(static_cast<std::uint8_t>(fPending >> fPendingBits));
    }
  }
  void Append(const TBitArray& aOther) {
    for (const std::uint8_t byte : aOther.fBytes) AppendBits(byte, 8);
    AppendBits(aOther.fPending, aOther.fPendingBits);
  }

  /// In bits.
  std::size_t GetSize() const { return fBytes.size() * 8 + static_cast<std::size_t>(fPendingBits); }
  std::span<const std::uint8_t> Bytes() const { return fBytes; }

 private:
  std::vector<std::uint8_t> fBytes;
  std::uint32_t fPending = 0;  // only the low fPendingBits count
  int fPendingBits = 0;
};

}  // namespace Zor::inline Qrcode
