// What stands behind a surface.
#pragma once

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/host/TMatrix.hpp"
#include "kaldrix/host/TSurface.hpp"

namespace Zor::inline Host {

inline constexpr double MMPerInch = 25.4;
inline constexpr double PointsPerInch = 72.0;
inline constexpr double MiterLimit = 4.0;

inline double Alpha(TAlphaColor color) { return (color >> 24) / 255.0; }

/// Red, green, blue and opacity from 0 to 1.
inline std::array<double, 4> Channels(TAlphaColor color) {
  return {(color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color & 0xFF) / 255.0, Alpha(color)};
}

struct TFace;

/// The state of a drawing and what all drawings have in common; the hooks at the end put things on a raster
/// or into a file. Device units are pixels of a raster and thousandths of a millimetre in a PDF.
class TCanvas {
 public:
  virtual ~TCanvas() = default;
  TCanvas(const TCanvas&) = delete;
  TCanvas& operator=(const TCanvas&) = delete;

  TFontEngine& Fonts() const { return fFonts; }

  // ---- Result: what the other kind of canvas has not raises ----

  virtual bool IsRaster() const = 0;
  virtual TRasterView Raster();
  virtual void NewPage(double widthMM, double heightMM);
  virtual std::string Finish();

  // ---- State ----

  void Save();
  void Restore();
  void Translate(double dx, double dy) { fMatrix = fMatrix.Translated(Moved(dx), Moved(dy)); }
  void Rotate(double degrees, double x, double y);
  void Scale(double sx, double sy);
  virtual void Clip(const TPath& path) = 0;

  // ---- Painting ----

  void Draw(const TPath& path, const TPen& pen, const TBrush& brush);
  virtual void FillBars(std::span<const TBar> bars, TAlphaColor color) = 0;
  void Text(std::string_view text, const TTextPlace& place, const TFontSpec& font, TAlphaColor color);
  void Image(const std::shared_ptr<const TPicture>& picture, double x, double y, double width, double height,
             double opacity);

 protected:
  /// A line that was prepared: `em` maps the em to the device, from the left end of the baseline.
  struct TShownLine {
    TMatrix em;
    double heightMM = 0;
    TAlphaColor color = ColorBlack;
  };

  /// `points` of a device unit are what limits are measured in: pixels of a raster, points of a PDF.
  TCanvas(TFontEngine& fonts, double unitsPerMM, double points);

  /// Back to the state of an empty sheet.
  void Reset();
  const TMatrix& Matrix() const { return fMatrix; }
  std::size_t Saves() const { return fSaved.size(); }
  double Device(double value) const { return std::clamp(Finite(value), -fFarthest, fFarthest); }
  /// A place on the device, held within its bounds.
  TPaperPoint Placed(const TMatrix& m, const TPaperPoint& p) const {
    const TPaperPoint at = m.Apply(p.x, p.y);
    return {Device(at.x), Device(at.y)};
  }
  static double PenWidth(const TPen& pen);
  /// The dashes `path` is stroked with; none when nobody could see them.
  static std::span<const double> Dashes(const TPath& path, const TPen& pen);

  // ---- Hooks ----

  virtual void OnSave() = 0;
  virtual void OnRestore() = 0;
  /// Fills with `brush` and then strokes with `pen`, under Matrix(); null ones are left out.
  virtual void Paint(const TPath& path, const TPen* pen, const TBrush* brush) = 0;
  /// Shapes a clean text; its width as part of the em.
  virtual double PrepareLine(std::string_view text, const TFace& face) = 0;
  /// Shows the line that was prepared.
  virtual void ShowLine(const TShownLine& line) = 0;
  /// `pixels` maps those of the picture to the device.
  virtual void ShowPicture(const std::shared_ptr<const TPicture>& picture, const TMatrix& pixels,
                           double opacity) = 0;

 private:
  bool Invertible(const TMatrix& m) const;
  bool DrawableEm(const TMatrix& em) const;
  void Decorate(const TFace& face, const TFontSpec& font, double width, const TShownLine& line);

  TFontEngine& fFonts;
  TMatrix fBase;
  double fPoints;
  double fFarthest;
  TMatrix fMatrix;
  std::vector<TMatrix> fSaved;
};

}  // namespace Zor::inline Host
