// Reading of picture files.
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/host/TPicture.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Host {

/// What the head of a picture file tells.
struct TImageInfo {
  TZORImgType type = itNone;
  /// Pixels, as the picture is shown: a JPEG that has to be turned has them exchanged.
  int width = 0;
  int height = 0;
};

/// Reads PNG, JPEG and the first frame of GIF. `name` is how errors call the bytes. Other formats, damaged
/// files and pictures above MaxPixels raise; the size is checked before anything is decoded.
class TImageLoader {
 public:
  /// Reads the head alone.
  static TImageInfo Info(std::string_view bytes, const std::string& name = "picture");
  static TPicture Load(std::string_view bytes, const std::string& name = "picture");
  /// The same from a file; one that cannot be opened raises EFileNotFoundException.
  static TImageInfo InfoOfFile(const std::string& fileName);
  static TPicture LoadFile(const std::string& fileName);
};

}  // namespace Zor::inline Host
