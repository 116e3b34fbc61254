#include "kaldrix/host/TPdfPictures.hpp"

#include <algorithm>
#include <string>

namespace Zor::inline Host {

namespace {

/// What the frame header of a JPEG tells (ITU-T T.81, B.2.2).
struct TJpegFrame {
  int width = 0;
  int height = 0;
  int components = 0;
};

unsigned Byte(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

int Word(std::string_view bytes, std::size_t at) {
  return static_cast<int>(Byte(bytes, at) << 8 | Byte(bytes, at + 1));
}

TJpegFrame ReadFrame(std::string_view bytes) {
  for (std::size_t at = 2; at + 9 < bytes.size() && Byte(bytes, at) == 0xFF;) {
    const unsigned marker = Byte(bytes, at + 1);
    // Start of frame, but for the tables and arithmetic conditions among these numbers.
    const bool isFrame =
        marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (isFrame && Byte(bytes, at + 4) == 8) {
      return {Word(bytes, at + 7), Word(bytes, at + 5), static_cast<int>(Byte(bytes, at + 9))};
    }
    at += 2 + static_cast<std::size_t>(Word(bytes, at + 2));
  }
  return {};
}

bool IsGrey(const TPicture& picture) {
  return std::all_of(picture.pixels.begin(), picture.pixels.end(), [](TAlphaColor p) {
    return (p >> 16 & 0xFF) == (p & 0xFF) && (p >> 8 & 0xFF) == (p & 0xFF);
  });
}

std::string Entries(const TPicture& picture, const char* space) {
  return "/Type/XObject/Subtype/Image/Width " + std::to_string(picture.width) + "/Height " +
         std::to_string(picture.height) + "/BitsPerComponent 8/Interpolate true/ColorSpace/Device" + space;
}

/// The bytes of each pixel at the given shifts.
std::string Samples(const TPicture& picture, std::initializer_list<int> shifts) {
  std::string samples;
  samples.reserve(picture.pixels.size() * shifts.size());
  for (const TAlphaColor pixel : picture.pixels) {
    for (const int shift : shifts) samples.push_back(static_cast<char>(pixel >> shift & 0xFF));
  }
  return samples;
}

}  // namespace

int TPdfPictures::Of(const std::shared_ptr<const TPicture>& picture) {
  if (const auto found = fStored.find(picture.get()); found != fStored.end()) {
    if (!found->second.picture.expired()) return found->second.object;
  }
  if (fStored.size() >= fLimit) DropGone();
  const int object = Write(*picture);
  fStored[picture.get()] = {picture, object};
  return object;
}

void TPdfPictures::DropGone() {
  std::erase_if(fStored, [](const auto& entry) { return entry.second.picture.expired(); });
  fLimit = std::max<std::size_t>(fLimit, 2 * fStored.size());
}

int TPdfPictures::Write(const TPicture& picture) {
  if (!picture.jpeg.empty()) {
    const TJpegFrame frame = ReadFrame(picture.jpeg);
    const bool grey = frame.components == 1;
    if (frame.width == picture.width && frame.height == picture.height && (grey || frame.components == 3)) {
      return fWriter.AddStream(Entries(picture, grey ? "Gray" : "RGB") + "/Filter/DCTDecode", picture.jpeg,
                               TPdfWriter::ppNone);
    }
  }
  const bool grey = IsGrey(picture);
  std::string entries = Entries(picture, grey ? "Gray" : "RGB");
  if (!picture.Opaque()) entries += "/SMask " + std::to_string(WriteMask(picture)) + " 0 R";
  return fWriter.AddStream(entries, grey ? Samples(picture, {0}) : Samples(picture, {16, 8, 0}),
                           TPdfWriter::ppSmall);
}

int TPdfPictures::WriteMask(const TPicture& picture) {
  return fWriter.AddStream(Entries(picture, "Gray"), Samples(picture, {24}), TPdfWriter::ppSmall);
}

}  // namespace Zor::inline Host
