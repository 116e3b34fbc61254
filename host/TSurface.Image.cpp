#include "host/TSurface.Impl.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// Converted pictures that a surface keeps, pixels.
constexpr std::int64_t MostKeptPixels = MaxPixels / 4;

/// One pixel with its colours multiplied by alpha.
std::uint32_t Premultiplied(TAlphaColor color) {
  const std::uint32_t a = color >> 24;
  if (a == 255) return color;
  const auto times = [a](std::uint32_t v) { return (v * a + 127) / 255; };
  return a << 24 | times(color >> 16 & 0xFF) << 16 | times(color >> 8 & 0xFF) << 8 | times(color & 0xFF);
}

/// Lets Cairo store the file of `picture` instead of its pixels; the picture lives as long as Cairo needs it.
void AttachJpeg(cairo_surface_t* surface, const std::shared_ptr<const TPicture>& picture) {
  auto owner = std::make_unique<std::shared_ptr<const TPicture>>(picture);
  const auto* data = reinterpret_cast<const unsigned char*>(picture->jpeg.data());
  const cairo_status_t status = cairo_surface_set_mime_data(
      surface, CAIRO_MIME_TYPE_JPEG, data, picture->jpeg.size(),
      [](void* p) { delete static_cast<std::shared_ptr<const TPicture>*>(p); }, owner.get());
  if (status == CAIRO_STATUS_SUCCESS) static_cast<void>(owner.release());
}

TCairoSurface ConvertPicture(const std::shared_ptr<const TPicture>& picture) {
  const bool opaque = std::all_of(picture->pixels.begin(), picture->pixels.end(),
                                  [](TAlphaColor p) { return p >> 24 == 255; });
  TCairoSurface surface(cairo_image_surface_create(opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                                   picture->width, picture->height));
  unsigned char* rows = cairo_image_surface_get_data(surface.get());
  if (rows == nullptr) throw Exception("There is no memory for a picture");
  const auto width = static_cast<std::size_t>(picture->width);
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
  for (std::size_t y = 0; y < static_cast<std::size_t>(picture->height); ++y) {
    const TAlphaColor* from = &picture->pixels[y * width];
    std::transform(from, from + width, reinterpret_cast<std::uint32_t*>(rows + y * stride), Premultiplied);
  }
  cairo_surface_mark_dirty(surface.get());
  if (!picture->jpeg.empty()) AttachJpeg(surface.get(), picture);
  return surface;
}

}  // namespace

cairo_surface_t* TSurface::TImpl::Converted(const std::shared_ptr<const TPicture>& picture) {
  if (const auto kept = pictures.find(picture.get()); kept != pictures.end())
    return kept->second.surface.get();
  const std::int64_t size = std::int64_t{picture->width} * picture->height;
  if (keptPixels + size > MostKeptPixels) {
    pictures.clear();
    keptPixels = 0;
  }
  keptPixels += size;
  TKept& kept = pictures[picture.get()];
  kept = {picture, ConvertPicture(picture)};
  return kept.surface.get();
}

void TSurface::Image(const std::shared_ptr<const TPicture>& picture, double x, double y, double width,
                     double height, double opacity) {
  if (!picture || picture->width <= 0 || picture->height <= 0 || !(width > 0) || !(height > 0)) return;
  cairo_t* cr = fImpl->cr.get();
  cairo_matrix_t m = fImpl->Matrix();
  cairo_matrix_translate(&m, Moved(x), Moved(y));
  cairo_matrix_scale(&m, width / picture->width, height / picture->height);
  if (!Invertible(m)) return;
  cairo_surface_t* pixels = fImpl->Converted(picture);
  Save();
  cairo_set_matrix(cr, &m);
  cairo_set_source_surface(cr, pixels, 0, 0);
  // On a raster the edge pixels are not blended with the nothing around them; a PDF takes the picture as it
  // is.
  if (fImpl->raster) cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
  cairo_rectangle(cr, 0, 0, picture->width, picture->height);
  cairo_clip(cr);
  cairo_paint_with_alpha(cr, std::clamp(Finite(opacity), 0.0, 1.0));
  Restore();
}

}  // namespace Zor::inline Host
