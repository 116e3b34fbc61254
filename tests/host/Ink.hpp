// What a test sees on a raster.
#pragma once

#include <algorithm>
#include <cmath>

#include "kaldrix/host/TSurface.hpp"

namespace Zor::Testing {

/// Edges in millimetres.
struct TInkBox {
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;

  bool Empty() const { return left > right; }
};

inline std::uint32_t PixelAt(const TRasterView& raster, double xMM, double yMM) {
  const int x = static_cast<int>(xMM * raster.dpi / 25.4), y = static_cast<int>(yMM * raster.dpi / 25.4);
  return raster.pixels[y * raster.stride + x];
}

/// The box of all pixels that are at least half covered with black.
inline TInkBox InkBox(TSurface& surface) {
  const TRasterView raster = surface.Raster();
  TInkBox box;
  for (int y = 0; y < raster.height; ++y) {
    for (int x = 0; x < raster.width; ++x) {
      if ((raster.pixels[y * raster.stride + x] & 0xFF) > 127) continue;
      box.left = std::min(box.left, double(x));
      box.right = std::max(box.right, x + 1.0);
      box.top = std::min(box.top, double(y));
      box.bottom = std::max(box.bottom, y + 1.0);
    }
  }
  const double mm = 25.4 / raster.dpi;
  return {box.left * mm, box.top * mm, box.right * mm, box.bottom * mm};
}

}  // namespace Zor::Testing
