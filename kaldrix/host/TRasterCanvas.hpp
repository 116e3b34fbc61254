// Drawing into pixels, by Cairo. Only sources include it: it shows Cairo's types.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "kaldrix/host/TCanvas.hpp"
#include "kaldrix/host/TShaper.hpp"

namespace Zor::inline Host {

struct TCairoSurfaceFree {
  void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
struct TCairoFree {
  void operator()(cairo_t* cr) const { cairo_destroy(cr); }
};
using TCairoSurface = std::unique_ptr<cairo_surface_t, TCairoSurfaceFree>;

/// Places come to Cairo in device coordinates, where they can be held within its bounds; its own transform
/// is set only where pens, letters and pictures need it.
class TRasterCanvas final : public TCanvas {
 public:
  TRasterCanvas(TFontEngine& fonts, int width, int height, double dpi, TAlphaColor background);

  bool IsRaster() const override { return true; }
  TRasterView Raster() override;
  void Clip(const TPath& path) override;
  void FillBars(std::span<const TBar> bars, TAlphaColor color) override;

 private:
  struct TKept {
    std::shared_ptr<const TPicture> picture;
    TCairoSurface surface;
  };

  void OnSave() override;
  void OnRestore() override;
  void Paint(const TPath& path, const TPen* pen, const TBrush* brush) override;
  double PrepareLine(std::string_view text, const TFace& face) override;
  void ShowLine(const TShownLine& line) override;
  void ShowPicture(const std::shared_ptr<const TPicture>& picture, const TMatrix& pixels,
                   double opacity) override;

  /// Raises when Cairo has failed.
  void Check() const;
  void SetColor(TAlphaColor color);
  void SetBrush(const TPath& path, const TBrush& brush);
  void Emit(const TPath& path);
  cairo_surface_t* Converted(const std::shared_ptr<const TPicture>& picture);

  TCairoSurface fSurface;
  std::unique_ptr<cairo_t, TCairoFree> fCairo;
  bool fOpaque;
  double fDpi;
  TShapedLine fLine;
  std::unordered_map<const TPicture*, TKept> fPictures;
  std::int64_t fKeptPixels = 0;
};

}  // namespace Zor::inline Host
