#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kaldrix/core/TKDXBaseItem.hpp"
#include "kaldrix/host/TSurface.hpp"

namespace Zor::inline Base {
class TKDXLayer;
class TKDXMeasure;
}  // namespace Zor::inline Base

namespace Zor::inline Host {

/// The outline of one label at the origin, millimetres of paper: a rectangle, or a circle with its hole. The
/// hole runs against the clock, so that filling leaves it out.
TPath LabelShape(const TKDXMeasure& aMeasure);

/// The attribute that names what an element shows, up to its value. SVG 2 has a shorter one, which not every
/// reader knows.
inline constexpr std::string_view SvgLink = R"( xmlns:xlink="http://www.w3.org/1999/xlink" xlink:href=")";

/// `aPath` as the data of an SVG path.
std::string PathData(const TPath& aPath, TZORExportSVG aType, double aFactor);

/// What lies behind the items of a label, when a visible layer exports its back (lopExportBack), or prints it
/// (fPrint of the surface, lopPrintBack of the layers):
/// the back surface of the document, above it the images and maps of such layers, each stretched over the
/// label within its margins. A surface without a style shows nothing.
///
/// The halves of biHalf1 lie left and right, those of biHalf2 above and below each other; the quarters of
/// biQuarter alternate. The first colour is left or above.
class TBackground {
 public:
  /// Reads the images. One that is missing or damaged raises an Exception that names it.
  explicit TBackground(const TKDXBaseLabel& aDocument, bool aPrint = false);

  bool Empty() const { return fAreas.empty() && fImages.empty(); }
  void Paint(TSurface& aSurface);
  /// The same picture as elements; gradients go to `defs`. The images stand in it as data.
  void WriteSvg(TSvgList& svg, TSvgList& defs, TZORExportSVG aType, double aFactor) const;

 private:
  struct TArea {
    TPath path;
    TBrush brush;
  };
  struct TImage {
    std::string bytes;
    std::string name;  ///< for errors
    double x = 0, y = 0, width = 0, height = 0;
    bool cut = false;  ///< at the outline of the label
    std::shared_ptr<const TPicture> picture;
  };

  void AddSurface(const TKDXBaseLabel& aDocument);
  void AddRoundAreas(const TKDXBaseLabel& aDocument);
  void AddLayer(const TKDXBaseLabel& aDocument, const TKDXLayer& aLayer);
  void WriteArea(const TArea& aArea, int aNumber, TSvgList& svg, TSvgList& defs, TZORExportSVG aType,
                 double aFactor) const;
  void WriteImage(const TImage& aImage, TSvgList& svg, TZORExportSVG aType, double aFactor) const;

  TPath fShape;
  std::vector<TArea> fAreas;
  std::vector<TImage> fImages;
};

}  // namespace Zor::inline Host
