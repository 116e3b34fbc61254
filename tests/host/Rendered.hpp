// Exported pictures as tests look at them.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "kaldrix/host/TImageLoader.hpp"
#include "kaldrix/platform/Files.hpp"
#include "tests/host/Ink.hpp"

namespace Zor::Testing {

/// A folder that goes with the test.
class TTempFolder {
 public:
  TTempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "kaldrixXXXXXX").string();
    fName = mkdtemp(name.data());
  }
  ~TTempFolder() { std::filesystem::remove_all(fName); }
  TTempFolder(const TTempFolder&) = delete;
  TTempFolder& operator=(const TTempFolder&) = delete;
  std::string File(const std::string& name) const { return fName + "/" + name; }

 private:
  std::string fName;
};

/// Pixels of a known size.
struct TRendered {
  TPicture picture;
  double dpi = 0;

  int Pixel(double mm) const { return static_cast<int>(mm * dpi / 25.4); }
  TAlphaColor At(int x, int y) const {
    return picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(x)];
  }
  TAlphaColor AtMM(double x, double y) const { return At(Pixel(x), Pixel(y)); }
  /// The box of what is darker than half grey within an area of the paper, millimetres.
  TInkBox Ink(double left, double top, double width, double height) const {
    TInkBox box;
    const double mm = 25.4 / dpi;
    for (int y = Pixel(top); y < std::min(Pixel(top + height), picture.height); ++y) {
      for (int x = Pixel(left); x < std::min(Pixel(left + width), picture.width); ++x) {
        if (Grey(At(x, y)) > 127) continue;
        box.left = std::min(box.left, x * mm);
        box.right = std::max(box.right, (x + 1) * mm);
        box.top = std::min(box.top, y * mm);
        box.bottom = std::max(box.bottom, (y + 1) * mm);
      }
    }
    return box;
  }
  static int Grey(TAlphaColor c) {
    return static_cast<int>(((c >> 16 & 0xFF) + (c >> 8 & 0xFF) + (c & 0xFF)) / 3);
  }
};

/// Pixels of `a` with a channel that is outside what `b` shows up to two pixels away: PDF viewers and
/// browsers bring strokes to whole pixels.
inline int Strangers(const TRendered& a, const TRendered& b) {
  constexpr int Alike = 60, Reach = 2;
  const int width = std::min(a.picture.width, b.picture.width);
  const int height = std::min(a.picture.height, b.picture.height);
  const auto channel = [](TAlphaColor c, int shift) { return static_cast<int>(c >> shift & 0xFF); };
  const auto isStrange = [&](int x, int y, int shift) {
    const int value = channel(a.At(x, y), shift);
    if (std::abs(value - channel(b.At(x, y), shift)) <= Alike) return false;
    int low = 255, high = 0;
    for (int v = y - Reach; v <= y + Reach; ++v) {
      for (int u = x - Reach; u <= x + Reach; ++u) {
        low = std::min(low, channel(b.At(u, v), shift));
        high = std::max(high, channel(b.At(u, v), shift));
      }
    }
    return value < low - Alike || value > high + Alike;
  };
  int count = 0;
  for (int y = Reach; y + Reach < height; ++y) {
    for (int x = Reach; x + Reach < width; ++x) {
      count += isStrange(x, y, 0) || isStrange(x, y, 8) || isStrange(x, y, 16) ? 1 : 0;
    }
  }
  return count;
}

inline TRendered FromPng(const std::string& bytes, double dpi) { return {TImageLoader::Load(bytes), dpi}; }

inline TRendered FromPdf(const std::string& bytes, double dpi) {
  const TTempFolder folder;
  std::ofstream(folder.File("a.pdf"), std::ios::binary) << bytes;
  const std::string command = "pdftoppm -singlefile -png -r " + std::to_string(dpi) + " " +
                              folder.File("a.pdf") + " " + folder.File("a");
  if (std::system(command.c_str()) != 0) return {};
  return {TImageLoader::LoadFile(folder.File("a.png")), dpi};
}

}  // namespace Zor::Testing
