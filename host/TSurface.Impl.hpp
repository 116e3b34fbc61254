// The inside of a surface. Only sources include it: it shows Cairo's types.
#pragma once

#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/TSurface.hpp"

namespace Zor::inline Host {

inline constexpr double MMPerInch = 25.4;
inline constexpr double PointsPerInch = 72.0;
/// Cairo holds device coordinates in 24.8 bits: farther ones would come back on the other side.
inline constexpr double FarthestDevice = 4e6;
/// Limit of a displacement, so that sums with it stay finite.
inline constexpr double FarthestMove = 1e9;
/// Area by which a transform may magnify or shrink: beyond, Cairo could not invert it.
inline constexpr double LeastArea = 1e-12, MostArea = 1e12;

inline double Finite(double value) { return std::isfinite(value) ? value : 0; }
inline double Device(double value) { return std::clamp(Finite(value), -FarthestDevice, FarthestDevice); }
inline double Moved(double value) { return std::clamp(Finite(value), -FarthestMove, FarthestMove); }
inline double Alpha(TAlphaColor color) { return (color >> 24) / 255.0; }

inline std::array<double, 4> Channels(TAlphaColor color) {
  return {(color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color & 0xFF) / 255.0, Alpha(color)};
}

inline void SetColor(cairo_t* cr, TAlphaColor color) {
  const auto [r, g, b, a] = Channels(color);
  cairo_set_source_rgba(cr, r, g, b, a);
}

/// The matrix whose quarter turns are exact, so that bars that were turned still lie along the axes.
cairo_matrix_t RotationMatrix(double degrees);

inline double Area(const cairo_matrix_t& m) { return std::abs(m.xx * m.yy - m.xy * m.yx); }
inline bool Invertible(const cairo_matrix_t& m) { return Area(m) >= LeastArea && Area(m) <= MostArea; }

struct TCairoSurfaceFree {
  void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
struct TCairoFree {
  void operator()(cairo_t* cr) const { cairo_destroy(cr); }
};
using TCairoSurface = std::unique_ptr<cairo_surface_t, TCairoSurfaceFree>;

struct TSurface::TImpl {
  struct TKept {
    std::shared_ptr<const TPicture> picture;
    TCairoSurface surface;
  };

  TFontEngine* fonts = nullptr;
  /// Before the surface, which writes to it until it is gone.
  std::string pdf;
  std::function<void(std::string_view)> sink;  ///< takes the bytes after each page, if there is one
  TCairoSurface surface;
  std::unique_ptr<cairo_t, TCairoFree> cr;
  bool raster = false;
  bool opaque = false;
  double dpi = PointsPerInch;
  int saves = 0;
  std::unordered_map<const TPicture*, TKept> pictures;
  std::int64_t keptPixels = 0;

  /// A fresh state for a new page.
  void Begin();
  void DrainPdf();
  /// Raises when Cairo has failed.
  void Check() const;
  cairo_matrix_t Matrix() const {
    cairo_matrix_t m;
    cairo_get_matrix(cr.get(), &m);
    return m;
  }

  // Painting, each next to the operations that use it.
  void Emit(const TPath& path);
  void SetBrush(const TBrush& brush);
  void Draw(const TPath& path, const TPen& pen, const TBrush& brush);
  void Stroke(const TPen& pen, double lengthBound);
  void FillText(std::string_view text, const TTextPlace& place, const TFontSpec& font);
  cairo_surface_t* Converted(const std::shared_ptr<const TPicture>& picture);
};

}  // namespace Zor::inline Host
