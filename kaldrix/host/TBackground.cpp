#include "kaldrix/host/TBackground.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <numbers>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/TImageLoader.hpp"
#include "kaldrix/host/TKDXSurfaceDraw.hpp"
#include "kaldrix/items/TSvgElement.hpp"
#include "kaldrix/platform/Base64.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor::inline Host {

namespace {

constexpr double Pi = std::numbers::pi;
/// The largest image file that is read.
constexpr std::size_t MostImageBytes = std::size_t{256} << 20;
constexpr std::string_view ShapeName = "kaldrix-outline";

double MM(Int64 aBase) { return static_cast<double>(aBase) / BaseInMM; }

/// Centre, radius and the radius of the hole of a round label.
struct TRing {
  explicit TRing(const TKDXMeasure& aMeasure)
      : r(MM(std::min(aMeasure.fWidth, aMeasure.fHeight)) / 2),
        hole(std::min(MM(aMeasure.fInnerCircle) / 2, r)) {}

  /// The part from one angle over a sweep of less than a turn, radians.
  TPath Piece(double aStart, double aSweep) const {
    TPath path;
    path.Arc(r, r, r, r, aStart, aSweep);
    if (hole > 0) {
      path.Arc(r, r, hole, hole, aStart + aSweep, -aSweep);
    } else {
      path.LineTo(r, r);
    }
    return path.Close();
  }
  TPath Whole() const {
    TPath path;
    path.Ellipse(r, r, r, r);
    if (hole > 0) path.MoveTo(r + hole, r).Arc(r, r, hole, hole, 0, -2 * Pi).Close();
    return path;
  }

  double r, hole;
};

TGradientKind GradientOf(TZORBackStyle aStyle) {
  switch (aStyle) {
    case biGradHor:
      return gkHorz;
    case biGradVer:
      return gkVert;
    case biGraCircle:
      return gkRadial;
    default:
      return gkNone;
  }
}

/// Is what lies behind the items of a visible layer shown?
bool ShowsBack(const TKDXLayer& aLayer, bool aPrint) {
  return aLayer.fOptions.Has(lopVisible) && aLayer.fOptions.Has(aPrint ? lopPrintBack : lopExportBack);
}

/// One end of a gradient, 0 or 1.
void AppendStop(TSvgElement& aElement, char aOffset, TAlphaColor aColor) {
  std::array<char, 8> color{};
  std::snprintf(color.data(), color.size(), "#%06X", aColor & 0xFFFFFF);
  aElement.Raw("<stop offset=\"").Raw({&aOffset, 1}).Raw("\" stop-color=\"").Raw(color.data());
  const unsigned alpha = aColor >> 24;
  if (alpha < 255) aElement.Raw("\" stop-opacity=\"").Raw(FormatFixed(alpha / 255.0, 2));
  aElement.Raw("\"/>");
}

std::string_view MimeType(TZORImgType aType) {
  switch (aType) {
    case itPng:
      return "image/png";
    case itGif:
      return "image/gif";
    default:
      return "image/jpeg";
  }
}

}  // namespace

TPath LabelShape(const TKDXMeasure& aMeasure) {
  if (aMeasure.fLabelType == ltCircle) return TRing(aMeasure).Whole();
  return TPath().Rect(0, 0, MM(aMeasure.fWidth), MM(aMeasure.fHeight));
}

std::string PathData(const TPath& aPath, TZORExportSVG aType, double aFactor) {
  constexpr std::string_view Letters = "MLCZ";  // By ordinal of TStep.
  constexpr std::array<int, 4> Counts{1, 1, 3, 0};
  std::string data;
  const TPaperPoint* next = aPath.Points().data();
  for (const TPath::TStep step : aPath.Steps()) {
    data += Letters[step];
    for (int i = 0; i < Counts[step]; ++i, ++next) {
      if (i > 0) data += ' ';
      TExSVG::AppendVal(data, next->x, aFactor, aType);
      data += ',';
      TExSVG::AppendVal(data, next->y, aFactor, aType);
    }
  }
  return data;
}

// Gathering ---------------------------------------------------------------------------

TBackground::TBackground(const TKDXBaseLabel& aDocument, bool aPrint)
    : fShape(LabelShape(*aDocument.fMeasure)) {
  const auto shows = [aPrint](const TKDXLayer* layer) { return ShowsBack(*layer, aPrint); };
  if (aPrint ? aDocument.fBackSurf->fPrint
             : std::any_of(aDocument.fLayers.begin(), aDocument.fLayers.end(), shows)) {
    AddSurface(aDocument);
  }
  for (const TKDXLayer* layer : aDocument.fLayers) {
    if (shows(layer) && layer->fOptions.HasAny({lopImage, lopMap})) AddLayer(aDocument, *layer);
  }
}

void TBackground::AddSurface(const TKDXBaseLabel& aDocument) {
  const TKDXBackSurf& back = *aDocument.fBackSurf;
  const TKDXMeasure& measure = *aDocument.fMeasure;
  if (!TKDXBackSurf::Suits(back.fStyle, measure.fLabelType)) return;
  switch (back.fStyle) {
    case biNone:
      return;
    case biImage:
      if (back.fFileName.empty()) return;
      fImages.push_back({ReadFile(back.fFileName, MostImageBytes), back.fFileName, 0, 0, MM(measure.fWidth),
                         MM(measure.fHeight), measure.fLabelType == ltCircle, nullptr});
      return;
    case biGradHor:
    case biGradVer:
    case biGraCircle:
      fAreas.push_back({fShape, {back.fColor, true, GradientOf(back.fStyle), back.fToColor}});
      return;
    default:
      return AddRoundAreas(aDocument);
  }
}

void TBackground::AddRoundAreas(const TKDXBaseLabel& aDocument) {
  const TKDXBackSurf& back = *aDocument.fBackSurf;
  const TRing ring(*aDocument.fMeasure);
  const int parts = back.fStyle == biQuarter ? 4 : 2;
  // The first part ends at the top for left and right, and at the right for all others.
  const double start = back.fStyle == biHalf1 ? Pi / 2 : Pi;
  const double sweep = 2 * Pi / parts;
  for (int i = 0; i < parts; ++i) {
    fAreas.push_back(
        {ring.Piece(start + i * sweep, sweep), {i % 2 == 0 ? back.fColor : back.fToColor, true}});
  }
}

void TBackground::AddLayer(const TKDXBaseLabel& aDocument, const TKDXLayer& aLayer) {
  const std::string file = ExtractFileName(aLayer.fFileImg);
  if (aLayer.fArrayB.empty() && file.empty()) return;
  const TKDXMeasure& measure = *aDocument.fMeasure;
  TImage image;
  image.name = file.empty() ? "Image of layer " + aLayer.fName : file;
  image.x = MM(aLayer.fImgMarLeft);
  image.y = MM(aLayer.fImgMarTop);
  image.width = MM(Int64{measure.fWidth} - aLayer.fImgMarLeft - aLayer.fImgMarRight);
  image.height = MM(Int64{measure.fHeight} - aLayer.fImgMarTop - aLayer.fImgMarBottom);
  if (image.width <= 0 || image.height <= 0) return;
  image.bytes = aLayer.fArrayB.empty()
                    ? ReadFile(CombinePath(aDocument.GetAbsoluteImagePath(), file), MostImageBytes)
                    : aLayer.fArrayB;
  fImages.push_back(std::move(image));
}

// Painting ----------------------------------------------------------------------------

void TBackground::Paint(TSurface& aSurface) {
  for (const TArea& area : fAreas) aSurface.Path(area.path, {}, area.brush);
  for (TImage& image : fImages) {
    if (image.picture == nullptr) {
      image.picture = std::make_shared<const TPicture>(TImageLoader::Load(image.bytes, image.name));
    }
    const TSavedState saved(aSurface);
    if (image.cut) aSurface.ClipPath(fShape);
    aSurface.Image(image.picture, image.x, image.y, image.width, image.height);
  }
}

// SVG ---------------------------------------------------------------------------------

void TBackground::WriteSvg(TSvgList& svg, TSvgList& defs, TZORExportSVG aType, double aFactor) const {
  int number = 0;
  for (const TArea& area : fAreas) WriteArea(area, ++number, svg, defs, aType, aFactor);
  if (std::any_of(fImages.begin(), fImages.end(), [](const TImage& image) { return image.cut; })) {
    defs.push_back("<clipPath id=\"" + std::string(ShapeName) + "\"><path d=\"" +
                   PathData(fShape, aType, aFactor) + "\"/></clipPath>");
  }
  for (const TImage& image : fImages) WriteImage(image, svg, aType, aFactor);
}

void TBackground::WriteArea(const TArea& aArea, int aNumber, TSvgList& svg, TSvgList& defs,
                            TZORExportSVG aType, double aFactor) const {
  // By ordinal of TGradientKind; each fits itself to the box of what it fills, as the painted ones do.
  constexpr std::array<std::string_view, 4> Heads{"", "<linearGradient x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\"",
                                                  "<linearGradient x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"",
                                                  "<radialGradient cx=\"0.5\" cy=\"0.5\" r=\"0.5\""};
  const TBrush& brush = aArea.brush;
  const auto factor = static_cast<Single>(aFactor);
  TSvgElement path(aType, factor);
  path.Raw("<path d=\"").Raw(PathData(aArea.path, aType, aFactor)).Raw("\"");
  if (brush.gradient == gkNone) {
    path.Fill(brush.color, true);
  } else {
    const std::string name = "kaldrix-back-" + std::to_string(aNumber);
    TSvgElement gradient(aType, factor);
    gradient.Raw(Heads[brush.gradient]).Raw(" id=\"").Raw(name).Raw("\">");
    AppendStop(gradient, '0', brush.color);
    AppendStop(gradient, '1', brush.toColor);
    gradient.Raw(brush.gradient == gkRadial ? "</radialGradient>" : "</linearGradient>");
    defs.push_back(gradient.Take());
    path.Raw(" fill=\"url(#").Raw(name).Raw(")\"");
  }
  svg.push_back(path.Raw("/>").Take());
}

void TBackground::WriteImage(const TImage& aImage, TSvgList& svg, TZORExportSVG aType, double aFactor) const {
  const TZORImgType kind = TImageLoader::Info(aImage.bytes, aImage.name).type;
  TSvgElement element(aType, static_cast<Single>(aFactor));
  element.Raw("<image x=\"").Val(aImage.x).Raw("\" y=\"").Val(aImage.y);
  element.Raw("\" width=\"").Val(aImage.width).Raw("\" height=\"").Val(aImage.height);
  element.Raw("\" preserveAspectRatio=\"none\"");
  if (aImage.cut) element.Raw(" clip-path=\"url(#").Raw(ShapeName).Raw(")\"");
  element.Raw(SvgLink).Raw("data:").Raw(MimeType(kind)).Raw(";base64,").Raw(EncodeBase64Line(aImage.bytes));
  svg.push_back(element.Raw("\"/>").Take());
}

}  // namespace Zor::inline Host
