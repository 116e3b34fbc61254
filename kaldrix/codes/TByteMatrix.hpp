#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace Zor::inline Qrcode {

/// The modules of a symbol, row by row from the top: 0 light, 1 dark.
class TByteMatrix {
 public:
  TByteMatrix() = default;
  TByteMatrix(int aWidth, int aHeight)
      : FWidth(aWidth),
        FHeight(aHeight),
        fBytes(static_cast<std::size_t>(aWidth) * static_cast<std::size_t>(aHeight)) {}

  /// 0-based.
  std::uint8_t Get(int aX, int aY) const { return Row(aY)[static_cast<std::size_t>(aX)]; }
  std::span<const std::uint8_t> Row(int aY) const { return {fBytes.data() + Start(aY), RowSize()}; }
  std::span<std::uint8_t> Row(int aY) { return {fBytes.data() + Start(aY), RowSize()}; }
  std::span<const std::uint8_t> Bytes() const { return fBytes; }

  int FWidth = 0, FHeight = 0;

 private:
  std::size_t RowSize() const { return static_cast<std::size_t>(FWidth); }
  std::size_t Start(int aY) const { return static_cast<std::size_t>(aY) * RowSize(); }

  std::vector<std::uint8_t> fBytes;
};

}  // namespace Zor::inline Qrcode
