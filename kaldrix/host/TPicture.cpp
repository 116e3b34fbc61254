#include "kaldrix/host/TPicture.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// The weight of each colour channel in the sum that replaces all three.
constexpr double GrayWeight = 0.3333;
constexpr double BlackWhiteWeight = 1.5;

/// sRGB byte to linear light, IEC 61966-2-1.
double ToLinear(int value) {
  const double v = value / 255.0;
  return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double FromLinear(double v) { return v <= 0.0031308 ? v * 12.92 : 1.055 * std::pow(v, 1 / 2.4) - 0.055; }

constexpr int LinearSteps = 4096;

struct TLightTables {
  std::array<double, 256> linear{};
  std::array<std::uint8_t, LinearSteps + 1> byte{};

  TLightTables() {
    for (int i = 0; i < 256; ++i) linear[static_cast<std::size_t>(i)] = ToLinear(i);
    for (int i = 0; i <= LinearSteps; ++i) {
      byte[static_cast<std::size_t>(i)] =
          static_cast<std::uint8_t>(std::lround(FromLinear(double(i) / LinearSteps) * 255));
    }
  }
};

}  // namespace

bool TPicture::Opaque() const {
  return std::all_of(pixels.begin(), pixels.end(), [](TAlphaColor p) { return p >> 24 == 255; });
}

void CheckPixels(std::int64_t width, std::int64_t height, const std::string& what) {
  const std::string size = std::to_string(width) + " x " + std::to_string(height);
  if (width <= 0 || height <= 0) throw Exception(what + ": " + size + " pixels is no picture");
  if (height > MaxPixels / width) {
    throw Exception(what + ": " + size + " pixels are more than " + std::to_string(MaxPixels / 1'000'000) +
                    " megapixels");
  }
}

void ApplyFilter(TPicture& picture, TZORImgFilter filter) {
  if (filter == ifNone) return;
  const double weight = filter == ifGrayScale ? GrayWeight : BlackWhiteWeight;
  const TLightTables tables;
  picture.jpeg.clear();
  for (TAlphaColor& pixel : picture.pixels) {
    const double sum =
        tables.linear[pixel >> 16 & 0xFF] + tables.linear[pixel >> 8 & 0xFF] + tables.linear[pixel & 0xFF];
    const double light = std::min(1.0, weight * sum);
    const TAlphaColor grey = tables.byte[static_cast<std::size_t>(std::lround(light * LinearSteps))];
    pixel = (pixel & 0xFF000000U) | grey << 16 | grey << 8 | grey;
  }
}

}  // namespace Zor::inline Host
