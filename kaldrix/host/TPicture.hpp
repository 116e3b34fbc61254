// Pixels in memory.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Host {

/// The most pixels that a picture, read or painted, may have.
inline constexpr std::int64_t MaxPixels = 100'000'000;

/// A decoded picture: rows from top to bottom without gaps, each pixel 0xAARRGGBB with straight alpha.
struct TPicture {
  int width = 0;
  int height = 0;
  std::vector<TAlphaColor> pixels;
  /// The file that the pixels came from, when that was a JPEG which shows the same upright: a PDF takes it as
  /// it is. Empty otherwise, and to be emptied by whoever changes the pixels.
  std::string jpeg;

  /// Every pixel has alpha 255.
  bool Opaque() const;
};

/// Rows of pixels that somebody else owns: 0xAARRGGBB, colours multiplied by alpha.
struct TRasterView {
  int width = 0;
  int height = 0;
  /// Pixels from one row to the next.
  int stride = 0;
  const std::uint32_t* pixels = nullptr;
  /// Every pixel has alpha 255.
  bool opaque = false;
  double dpi = 96;
};

/// Raises when `width` x `height` has no pixel or more than MaxPixels; `what` begins the message.
void CheckPixels(std::int64_t width, std::int64_t height, const std::string& what);

/// Replaces the colours of `picture` by greys or by hard black and white, with the same sums as the SVG
/// filters of image items: on linear light, as SVG does unless told otherwise.
void ApplyFilter(TPicture& picture, TZORImgFilter filter);

}  // namespace Zor::inline Host
