// Rasters as PNG.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "kaldrix/host/TPicture.hpp"

namespace Zor::inline Host {

/// Takes the file piece by piece, in order.
using TByteSink = std::function<void(std::string_view)>;

/// Writes `raster` as PNG: RGB when it is opaque, else RGBA with straight alpha, and its resolution. Fast
/// rather than small. More than MaxPixels is refused; what the sink raises comes out.
void WritePng(const TRasterView& raster, const TByteSink& sink);
std::string PngBytes(const TRasterView& raster);

}  // namespace Zor::inline Host
