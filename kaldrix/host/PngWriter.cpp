#include "kaldrix/host/PngWriter.hpp"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdint>
#include <exception>
#include <vector>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

constexpr double InchesPerMetre = 1000 / 25.4;
constexpr int FastestLevel = 1;

/// What the callbacks of libpng share with their caller. Nothing may be thrown through libpng, which jumps:
/// an exception of the sink waits here.
struct TPngRun {
  const TByteSink* sink = nullptr;
  std::exception_ptr sinkError;
  char message[128] = "";
};

void Give(png_structp png, png_bytep data, size_t length) {
  auto* run = static_cast<TPngRun*>(png_get_io_ptr(png));
  bool failed = false;
  try {
    (*run->sink)({reinterpret_cast<const char*>(data), length});
  } catch (...) {
    run->sinkError = std::current_exception();
    failed = true;
  }
  if (failed) png_error(png, "the sink failed");
}

void Keep(png_structp png, png_const_charp message) {
  auto* run = static_cast<TPngRun*>(png_get_error_ptr(png));
  std::char_traits<char>::copy(run->message, message,
                               std::min(std::char_traits<char>::length(message), sizeof run->message - 1));
  png_longjmp(png, 1);
}

void Ignore(png_structp, png_const_charp) {}

void RowToRgb(const std::uint32_t* from, int width, png_bytep to) {
  for (int x = 0; x < width; ++x, to += 3) {
    to[0] = static_cast<png_byte>(from[x] >> 16);
    to[1] = static_cast<png_byte>(from[x] >> 8);
    to[2] = static_cast<png_byte>(from[x]);
  }
}

void RowToRgba(const std::uint32_t* from, int width, png_bytep to) {
  for (int x = 0; x < width; ++x, to += 4) {
    const std::uint32_t a = from[x] >> 24;
    const auto straight = [a](std::uint32_t v) {
      return static_cast<png_byte>(a == 0 ? 0 : std::min(255U, ((v & 0xFF) * 255 + a / 2) / a));
    };
    to[0] = straight(from[x] >> 16);
    to[1] = straight(from[x] >> 8);
    to[2] = straight(from[x]);
    to[3] = static_cast<png_byte>(a);
  }
}

void WriteHead(png_structp png, png_infop info, const TRasterView& raster) {
  png_set_IHDR(png, info, static_cast<png_uint_32>(raster.width), static_cast<png_uint_32>(raster.height), 8,
               raster.opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_compression_level(png, FastestLevel);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
  const auto perMetre = static_cast<png_uint_32>(std::lround(raster.dpi * InchesPerMetre));
  png_set_pHYs(png, info, perMetre, perMetre, PNG_RESOLUTION_METER);
  png_write_info(png, info);
}

/// False when libpng gave up. Only this frame is jumped to, and it owns nothing.
bool WriteAll(png_structp png, png_infop info, const TRasterView& raster, png_bytep row) {
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  WriteHead(png, info, raster);
  for (int y = 0; y < raster.height; ++y) {
    const std::uint32_t* from = raster.pixels + std::ptrdiff_t{y} * raster.stride;
    raster.opaque ? RowToRgb(from, raster.width, row) : RowToRgba(from, raster.width, row);
    png_write_row(png, row);
  }
  png_write_end(png, info);
  return true;
}

}  // namespace

void WritePng(const TRasterView& raster, const TByteSink& sink) {
  CheckPixels(raster.width, raster.height, "A PNG");
  TPngRun run;
  run.sink = &sink;
  std::vector<png_byte> row(static_cast<std::size_t>(raster.width) * (raster.opaque ? 3 : 4));
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &run, Keep, Ignore);
  if (png == nullptr) throw Exception("A PNG: no memory");
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &run, Give, nullptr);
  const bool done = info != nullptr && WriteAll(png, info, raster, row.data());
  png_destroy_write_struct(&png, &info);
  if (run.sinkError) std::rethrow_exception(run.sinkError);
  if (!done) throw Exception(std::string("A PNG cannot be written: ") + run.message);
}

std::string PngBytes(const TRasterView& raster) {
  std::string bytes;
  WritePng(raster, [&bytes](std::string_view piece) { bytes.append(piece); });
  return bytes;
}

}  // namespace Zor::inline Host
