#include "kaldrix/host/TSurface.hpp"

#include <utility>

#include "kaldrix/host/TPdfCanvas.hpp"
#include "kaldrix/host/TRasterCanvas.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// Longest side of a sheet, millimetres.
constexpr double LargestSheet = 1e5;
constexpr double LeastDpi = 1, MostDpi = 1e5;

void CheckSheet(double widthMM, double heightMM) {
  const auto usable = [](double v) { return v > 0 && v <= LargestSheet; };
  if (!usable(widthMM) || !usable(heightMM)) {
    throw EArgumentException("A sheet of " + std::to_string(widthMM) + " x " + std::to_string(heightMM) +
                             " mm cannot be drawn on");
  }
}

}  // namespace

double BaselineOffset(TTextVert vert, const TTextSize& size) {
  constexpr double HangingPart = 0.8;
  switch (vert) {
    case tvBaseline:
      return 0;
    case tvTop:
      return size.ascent;
    case tvCentral:
      return (size.ascent - size.descent) / 2;
    case tvBottom:
      return -size.descent;
    case tvHanging:
      return HangingPart * size.ascent;
  }
  return 0;
}

TSurface::TSurface(std::unique_ptr<TCanvas> canvas) : fCanvas(std::move(canvas)) {}
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
  return TSurface(std::make_unique<TRasterCanvas>(fonts, static_cast<int>(width), static_cast<int>(height),
                                                  dpi, background));
}

TSurface TSurface::MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info) {
  return MakePdf(fonts, widthMM, heightMM, info, {});
}

TSurface TSurface::MakePdf(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info,
                           std::function<void(std::string_view)> sink) {
  CheckSheet(widthMM, heightMM);
  return TSurface(std::make_unique<TPdfCanvas>(fonts, widthMM, heightMM, info, std::move(sink)));
}

bool TSurface::IsRaster() const { return fCanvas->IsRaster(); }

TFontEngine& TSurface::Fonts() const { return fCanvas->Fonts(); }

TRasterView TSurface::Raster() { return fCanvas->Raster(); }

void TSurface::NewPage(double widthMM, double heightMM) {
  if (!IsRaster()) CheckSheet(widthMM, heightMM);
  fCanvas->NewPage(widthMM, heightMM);
}

std::string TSurface::FinishPdf() { return fCanvas->Finish(); }

void TSurface::Save() { fCanvas->Save(); }

void TSurface::Restore() { fCanvas->Restore(); }

void TSurface::Translate(double dx, double dy) { fCanvas->Translate(dx, dy); }

void TSurface::Rotate(double degrees, double x, double y) { fCanvas->Rotate(degrees, x, y); }

void TSurface::Scale(double sx, double sy) { fCanvas->Scale(sx, sy); }

void TSurface::ClipRect(double x, double y, double width, double height) {
  ClipPath(TPath().Rect(x, y, width, height));
}

void TSurface::ClipCircle(double cx, double cy, double r) { ClipPath(TPath().Ellipse(cx, cy, r, r)); }

void TSurface::ClipPath(const TPath& path) { fCanvas->Clip(path); }

void TSurface::Text(std::string_view text, const TTextPlace& place, const TFontSpec& font,
                    TAlphaColor color) {
  fCanvas->Text(text, place, font, color);
}

void TSurface::Image(const std::shared_ptr<const TPicture>& picture, double x, double y, double width,
                     double height, double opacity) {
  fCanvas->Image(picture, x, y, width, height, opacity);
}

}  // namespace Zor::inline Host
