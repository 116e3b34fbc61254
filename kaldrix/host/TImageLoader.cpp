#include "kaldrix/host/TImageLoader.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <memory>
#include <optional>
#include <utility>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Host {

namespace {

/// No picture within MaxPixels needs a longer file.
constexpr std::size_t LongestFile = std::size_t{1} << 30;

[[noreturn]] void Fail(const std::string& name, const std::string& what) {
  throw Exception(name + ": " + what);
}

/// Bytes at a position, numbers in either order. Reading past the end gives nothing.
class TBytes {
 public:
  explicit TBytes(std::string_view bytes) : fBytes(bytes) {}

  std::optional<unsigned> Number(std::size_t at, std::size_t size, bool bigEndian) const {
    if (at > fBytes.size() || fBytes.size() - at < size) return {};
    unsigned value = 0;
    for (std::size_t i = 0; i < size; ++i) {
      value = value << 8 | static_cast<unsigned char>(fBytes[at + (bigEndian ? i : size - 1 - i)]);
    }
    return value;
  }
  /// 0 past the end.
  unsigned Big(std::size_t at, std::size_t size) const { return Number(at, size, true).value_or(0); }
  unsigned Little(std::size_t at, std::size_t size) const { return Number(at, size, false).value_or(0); }
  std::string_view Piece(std::size_t at, std::size_t size) const {
    return at < fBytes.size() ? fBytes.substr(at, size) : std::string_view{};
  }

 private:
  std::string_view fBytes;
};

/// What the head of a file says, before it is turned upright.
struct THead {
  TImageInfo info;
  /// Exif 2.32, tag 0x0112: 1 is upright, 5 to 8 exchange width and height.
  unsigned orientation = 1;
  /// Colour components of a JPEG.
  unsigned components = 0;
};

/// The orientation in an Exif block ("Exif", two zeros, then a TIFF header and its first directory).
unsigned ExifOrientation(std::string_view block) {
  constexpr std::string_view Mark("Exif\0\0", 6);
  constexpr unsigned OrientationTag = 0x0112;
  constexpr std::size_t EntrySize = 12;
  if (block.substr(0, Mark.size()) != Mark) return 1;
  const TBytes tiff(block.substr(Mark.size()));
  const bool big = tiff.Piece(0, 2) == "MM";
  const auto number = [&tiff, big](std::size_t at, std::size_t size) {
    return tiff.Number(at, size, big).value_or(0);
  };
  const std::size_t directory = number(4, 4);
  const std::size_t count = number(directory, 2);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = directory + 2 + i * EntrySize;
    if (number(entry, 2) != OrientationTag) continue;
    const unsigned value = number(entry + 8, 2);
    return value >= 1 && value <= 8 ? value : 1;
  }
  return 1;
}

/// PNG (ISO/IEC 15948): the size stands in the first chunk.
std::optional<THead> PngHead(const TBytes& bytes) {
  if (bytes.Piece(0, 8) != "\x89PNG\r\n\x1A\n") return {};
  return THead{{itPng, static_cast<int>(bytes.Big(16, 4) & 0x7FFFFFFF),
                static_cast<int>(bytes.Big(20, 4) & 0x7FFFFFFF)}};
}

/// GIF89a: the size of the logical screen.
std::optional<THead> GifHead(const TBytes& bytes) {
  if (bytes.Piece(0, 6) != "GIF87a" && bytes.Piece(0, 6) != "GIF89a") return {};
  return THead{{itGif, static_cast<int>(bytes.Little(6, 2)), static_cast<int>(bytes.Little(8, 2))}};
}

/// A frame header (ITU-T T.81, B.2.2): SOF0 to SOF15 without DHT, JPG and DAC.
bool IsFrameHeader(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::optional<THead> JpegHead(const TBytes& bytes) {
  if (bytes.Big(0, 3) != 0xFFD8FF) return {};
  THead head{{itJpeg}};
  for (std::size_t at = 2; bytes.Big(at, 1) == 0xFF;) {
    const unsigned marker = bytes.Big(at + 1, 1);
    const std::size_t length = bytes.Big(at + 2, 2);
    if (marker == 0xFF) {
      ++at;  // a fill byte before a marker
      continue;
    }
    if (IsFrameHeader(marker)) {
      head.info.height = static_cast<int>(bytes.Big(at + 5, 2));
      head.info.width = static_cast<int>(bytes.Big(at + 7, 2));
      head.components = bytes.Big(at + 9, 1);
      break;
    }
    if (marker == 0xE1) {
      const unsigned found = ExifOrientation(bytes.Piece(at + 4, length < 2 ? 0 : length - 2));
      if (found != 1) head.orientation = found;
    }
    at += 2 + length;
  }
  if (head.orientation >= 5) std::swap(head.info.width, head.info.height);
  return head;
}

/// Whether the last chunk of a PNG or the end marker of a JPEG is there: the decoders fill up what a file
/// that was cut off does not say. (The decoder of GIF raises.)
bool HasEnd(std::string_view file, TZORImgType type) {
  if (type == itJpeg) return file.rfind("\xFF\xD9") != std::string_view::npos;
  if (type == itGif) return true;
  constexpr std::size_t ChunkFrame = 12;  // length, name and check sum
  const TBytes bytes(file);
  for (std::size_t at = 8; at + ChunkFrame <= file.size(); at += ChunkFrame + bytes.Big(at, 4)) {
    if (bytes.Piece(at + 4, 4) == "IEND") return true;
  }
  return false;
}

THead ReadHead(std::string_view file, const std::string& name) {
  const TBytes bytes(file);
  std::optional<THead> head = PngHead(bytes);
  if (!head) head = JpegHead(bytes);
  if (!head) head = GifHead(bytes);
  if (!head) Fail(name, "not a PNG, JPEG or GIF picture");
  CheckPixels(head->info.width, head->info.height, name);
  return *head;
}

struct TObjectFree {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using TPixbuf = std::unique_ptr<GdkPixbuf, TObjectFree>;

[[noreturn]] void FailWith(GError* error, const std::string& name) {
  const std::string message = error == nullptr ? "the picture is damaged" : error->message;
  g_clear_error(&error);
  Fail(name, message);
}

/// The decoded picture, upright. The kind is given, so that no other decoder is ever asked.
TPixbuf Decode(std::string_view bytes, TZORImgType type, const std::string& name) {
  const char* decoder = type == itPng ? "png" : type == itJpeg ? "jpeg" : "gif";
  GError* error = nullptr;
  const std::unique_ptr<GdkPixbufLoader, TObjectFree> loader(
      gdk_pixbuf_loader_new_with_type(decoder, &error));
  if (!loader) FailWith(error, name);
  const bool written = gdk_pixbuf_loader_write(loader.get(), reinterpret_cast<const guchar*>(bytes.data()),
                                               bytes.size(), &error);
  // A loader has to be closed even when it failed; the first error is the one to tell.
  const bool closed = gdk_pixbuf_loader_close(loader.get(), written ? &error : nullptr);
  if (!written || !closed) FailWith(error, name);
  GdkPixbuf* decoded = gdk_pixbuf_loader_get_pixbuf(loader.get());
  if (decoded == nullptr) FailWith(nullptr, name);
  TPixbuf upright(gdk_pixbuf_apply_embedded_orientation(decoded));
  if (!upright) Fail(name, "no memory");
  return upright;
}

TPicture ToPicture(const GdkPixbuf* pixbuf) {
  TPicture picture;
  picture.width = gdk_pixbuf_get_width(pixbuf);
  picture.height = gdk_pixbuf_get_height(pixbuf);
  picture.pixels.reserve(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
  const bool alpha = gdk_pixbuf_get_has_alpha(pixbuf);
  const int channels = gdk_pixbuf_get_n_channels(pixbuf);
  for (int y = 0; y < picture.height; ++y) {
    const guint8* p = gdk_pixbuf_read_pixels(pixbuf) + std::ptrdiff_t{y} * gdk_pixbuf_get_rowstride(pixbuf);
    for (int x = 0; x < picture.width; ++x, p += channels) {
      const TAlphaColor a = alpha ? p[3] : 255U;
      picture.pixels.push_back(a << 24 | TAlphaColor{p[0]} << 16 | TAlphaColor{p[1]} << 8 | p[2]);
    }
  }
  return picture;
}

}  // namespace

TImageInfo TImageLoader::Info(std::string_view bytes, const std::string& name) {
  return ReadHead(bytes, name).info;
}

TPicture TImageLoader::Load(std::string_view bytes, const std::string& name) {
  const THead head = ReadHead(bytes, name);
  if (!HasEnd(bytes, head.info.type)) Fail(name, "the picture is cut off");
  TPicture picture = ToPicture(Decode(bytes, head.info.type, name).get());
  CheckPixels(picture.width, picture.height, name);
  // Four components are inks, whose reading differs from viewer to viewer.
  if (head.info.type == itJpeg && head.orientation == 1 && head.components != 4) picture.jpeg = bytes;
  return picture;
}

TImageInfo TImageLoader::InfoOfFile(const std::string& fileName) {
  return Info(ReadFile(fileName, LongestFile), fileName);
}

TPicture TImageLoader::LoadFile(const std::string& fileName) {
  return Load(ReadFile(fileName, LongestFile), fileName);
}

}  // namespace Zor::inline Host
