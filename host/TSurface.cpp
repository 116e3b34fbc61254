#include "host/TSurface.hpp"

#include <cairo-pdf.h>

#include <numbers>
#include <utility>

#include "host/TShaper.hpp"
#include "host/TSurface.Impl.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// Longest side of a sheet, millimetres.
constexpr double LargestSheet = 1e5;
constexpr double MiterLimit = 4.0;
constexpr double LeastDpi = 1, MostDpi = 1e5;

cairo_status_t Append(void* text, const unsigned char* data, unsigned length) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

void CheckSheet(double widthMM, double heightMM) {
  const auto usable = [](double v) { return v > 0 && v <= LargestSheet; };
  if (!usable(widthMM) || !usable(heightMM)) {
    throw EArgumentException("A sheet of " + std::to_string(widthMM) + " x " + std::to_string(heightMM) +
                             " mm cannot be drawn on");
  }
}

}  // namespace

cairo_matrix_t RotationMatrix(double degrees) {
  const double turn = std::fmod(Finite(degrees), 360.0);
  double c = std::cos(turn * std::numbers::pi / 180), s = std::sin(turn * std::numbers::pi / 180);
  if (std::fmod(turn, 90.0) == 0) {
    c = std::round(c);
    s = std::round(s);
  }
  return {c, s, -s, c, 0, 0};
}

void TSurface::TImpl::Begin() {
  cr.reset(cairo_create(surface.get()));
  cairo_scale(cr.get(), dpi / MMPerInch, dpi / MMPerInch);
  cairo_set_miter_limit(cr.get(), MiterLimit);
  saves = 0;
  Check();
}

void TSurface::TImpl::Check() const {
  cairo_status_t status = cairo_status(cr.get());
  if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface.get());
  if (status != CAIRO_STATUS_SUCCESS) {
    throw Exception(std::string("The drawing failed: ") + cairo_status_to_string(status));
  }
}

// Not while Cairo writes: what the sink raises must not pass through it.
void TSurface::TImpl::DrainPdf() {
  if (!sink) return;
  sink(pdf);
  pdf.clear();
}

TSurface::TSurface(std::unique_ptr<TImpl> impl) : fImpl(std::move(impl)) {}
TSurface::TSurface(TSurface&&) noexcept = default;
TSurface& TSurface::operator=(TSurface&&) noexcept = default;
TSurface::~TSurface() = default;

TSurface TSurface::MakeRaster(TFontEngine& fonts, double widthMM, double heightMM, double dpi,
                              TAlphaColor background) {
  CheckSheet(widthMM, heightMM);
  if (!(dpi >= LeastDpi && dpi <= MostDpi)) {
    throw EArgumentException("A resolution of " + std::to_string(dpi) + " dpi cannot be drawn in");
  }
  const Int64 width = std::max(Int64{1}, Round(widthMM * dpi / MMPerInch));
  const Int64 height = std::max(Int64{1}, Round(heightMM * dpi / MMPerInch));
  CheckPixels(width, height, "A sheet at " + std::to_string(Round(dpi)) + " dpi");
  auto impl = std::make_unique<TImpl>();
  impl->fonts = &fonts;
  impl->raster = true;
  impl->opaque = background >> 24 == 255;
  impl->dpi = dpi;
  impl->surface.reset(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
  impl->Begin();
  SetColor(impl->cr.get(), background);
  if (Alpha(background) > 0) cairo_paint(impl->cr.get());
  return TSurface(std::move(impl));
}

TSurface TSurface::MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info) {
  return MakePdf(fonts, widthMM, heightMM, info, {});
}

TSurface TSurface::MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info,
                           std::function<void(std::string_view)> sink) {
  CheckSheet(widthMM, heightMM);
  auto impl = std::make_unique<TImpl>();
  impl->fonts = &fonts;
  impl->sink = std::move(sink);
  impl->surface.reset(cairo_pdf_surface_create_for_stream(
      Append, &impl->pdf, widthMM * PointsPerInch / MMPerInch, heightMM * PointsPerInch / MMPerInch));
  std::string buffer;
  const std::string title(CleanText(info.title, buffer));
  if (!title.empty()) {
    cairo_pdf_surface_set_metadata(impl->surface.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
  }
  cairo_pdf_surface_set_metadata(impl->surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, info.created.c_str());
  impl->Begin();
  return TSurface(std::move(impl));
}

bool TSurface::IsRaster() const { return fImpl->raster; }

TFontEngine& TSurface::Fonts() const { return *fImpl->fonts; }

TRasterView TSurface::Raster() {
  if (!fImpl->raster) throw EInvalidOperation("A PDF has no pixels");
  fImpl->Check();
  cairo_surface_t* surface = fImpl->surface.get();
  cairo_surface_flush(surface);
  TRasterView view;
  view.width = cairo_image_surface_get_width(surface);
  view.height = cairo_image_surface_get_height(surface);
  view.stride = cairo_image_surface_get_stride(surface) / static_cast<int>(sizeof(std::uint32_t));
  view.pixels = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface));
  view.opaque = fImpl->opaque;
  view.dpi = fImpl->dpi;
  return view;
}

void TSurface::NewPage(double widthMM, double heightMM) {
  if (fImpl->raster) throw EInvalidOperation("A raster has one page");
  CheckSheet(widthMM, heightMM);
  cairo_show_page(fImpl->cr.get());
  fImpl->Check();
  fImpl->DrainPdf();
  cairo_pdf_surface_set_size(fImpl->surface.get(), widthMM * PointsPerInch / MMPerInch,
                             heightMM * PointsPerInch / MMPerInch);
  fImpl->Begin();
}

std::string TSurface::FinishPdf() {
  if (fImpl->raster) throw EInvalidOperation("A raster is no PDF");
  cairo_show_page(fImpl->cr.get());
  fImpl->Check();
  cairo_surface_finish(fImpl->surface.get());
  const cairo_status_t status = cairo_surface_status(fImpl->surface.get());
  if (status != CAIRO_STATUS_SUCCESS) {
    throw Exception(std::string("The PDF failed: ") + cairo_status_to_string(status));
  }
  fImpl->DrainPdf();
  return std::move(fImpl->pdf);
}

void TSurface::Save() {
  cairo_save(fImpl->cr.get());
  ++fImpl->saves;
}

void TSurface::Restore() {
  if (fImpl->saves == 0) return;
  --fImpl->saves;
  cairo_restore(fImpl->cr.get());
}

void TSurface::Translate(double dx, double dy) { cairo_translate(fImpl->cr.get(), Moved(dx), Moved(dy)); }

void TSurface::Rotate(double degrees, double x, double y) {
  const cairo_matrix_t turn = RotationMatrix(degrees);
  Translate(x, y);
  cairo_transform(fImpl->cr.get(), &turn);
  Translate(-x, -y);
}

void TSurface::Scale(double sx, double sy) {
  cairo_matrix_t m = fImpl->Matrix();
  cairo_matrix_scale(&m, Finite(sx), Finite(sy));
  if (Invertible(m)) cairo_set_matrix(fImpl->cr.get(), &m);
}

void TSurface::ClipRect(double x, double y, double width, double height) {
  ClipPath(TPath().Rect(x, y, width, height));
}

void TSurface::ClipCircle(double cx, double cy, double r) { ClipPath(TPath().Ellipse(cx, cy, r, r)); }

void TSurface::ClipPath(const TPath& path) {
  fImpl->Emit(path);
  cairo_clip(fImpl->cr.get());
}

}  // namespace Zor::inline Host
