#include "kaldrix/utils/BarcodeLayout.hpp"

#include <algorithm>

#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/types/Units.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor::inline Utils {

TBarRect Turned(const TBarRect& aRect, double aX, double aY, TZORAngle aAngle) {
  const double dx = aRect.x - aX, dy = aRect.y - aY, w = aRect.width, h = aRect.height;
  switch (aAngle) {
    case ag0:
      break;
    case ag90:
      return {aX + dy, aY - dx - w, h, w};
    case ag180:
      return {aX - dx - w, aY - dy - h, w, h};
    case ag270:
      return {aX - dy - h, aY + dx, h, w};
  }
  return aRect;
}

namespace {

/// A length that an item holds in base points, in millimetres.
double Exact(Single aMM) { return RoundTo3(static_cast<double>(aMM)); }

/// How far the alignment moves the symbol back along its text, millimetres.
double AlignShift(const TBarcodePlace& aPlace, TZORHorzAlign aAlign) {
  const double length = static_cast<double>(aPlace.length) / (static_cast<double>(aPlace.scale) * BaseInMM);
  if (aAlign == haCenter) return length / 2;
  return aAlign == haRight ? length : 0;
}

/// The anchor, moved along the text.
void MoveAlong(double& x, double& y, double aBy, TZORAngle aAngle) {
  switch (aAngle) {
    case ag0:
      x += aBy;
      break;
    case ag90:
      y -= aBy;
      break;
    case ag180:
      x -= aBy;
      break;
    case ag270:
      y += aBy;
      break;
  }
}

void LayOutBars(TBarcodeLayout& aLayout, const IZORBarcode& aBarcode, std::string_view aPattern, double x0,
                double y0) {
  const double w = Exact(aBarcode.GetBarWidth()) * BaseInMM, factor = aBarcode.GetFactor();
  const double tall = Exact(aBarcode.GetBarHeight());
  const double small = tall * 2 / 5, extended = tall + Exact(aBarcode.GetFontHeight()) * 3 / 4;
  const TZORAngle angle = aBarcode.GetAngle();
  aLayout.bars.reserve(aPattern.size() / 2 + 1);
  double at = 0;  // Thousandths, so that the sums are exact.
  for (const char c : aPattern) {
    const TPatternElement& element = PatternElements[static_cast<unsigned char>(c)];
    const double width = ElementWidth(element.width, w, factor);
    TBarRect bar{x0 + at / BaseInMM, y0, width / BaseInMM, 0};
    if (element.bar == dbB) bar.height = tall;
    if (element.bar == dbEB) bar.height = extended;
    if (element.bar == dbB2) bar.y += tall - small, bar.height = small;
    if (bar.height > 0) aLayout.bars.push_back(Turned(bar, x0, y0, angle));
    at += width;
  }
}

/// The groups of a code, from the left edge of the bars.
class TTextGroups {
 public:
  TTextGroups(TBarcodeLayout& aLayout, double aLeft, double aTop, std::string_view aCode)
      : fLayout(aLayout), fLeft(aLeft), fTop(aTop), fCode(aCode) {}

  /// Digits from `aFirst` (1-based) on, at a distance from the left edge.
  void Add(std::size_t aFirst, std::size_t aCount, double aAt, TBarTextHang aHang) {
    const std::string_view rest = fCode.substr(std::min(aFirst - 1, fCode.size()));
    fLayout.texts.push_back({fLeft + aAt, fTop, aHang, AnsiToUtf8(rest.substr(0, aCount))});
  }

 private:
  TBarcodeLayout& fLayout;
  double fLeft, fTop;
  std::string_view fCode;
};

/// The text of the EAN family stands in groups; false for another symbology.
bool LayOutEanText(TTextGroups aGroups, TZORBarType aType, std::string_view aPattern, double aWidth,
                   double aFactor) {
  double first = 0, second = 0, third = 0;
  switch (aType) {
    case btEAN13:
      TBarcode::Ean13Pos(aPattern, aWidth, aFactor, first, second);
      aGroups.Add(1, 1, 0, bhEnd);
      aGroups.Add(2, 6, first, bhMiddle);
      aGroups.Add(8, 6, second, bhMiddle);
      return true;
    case btEAN8:
      TBarcode::Ean8Pos(aPattern, aWidth, aFactor, first, second);
      aGroups.Add(1, 4, first, bhMiddle);
      aGroups.Add(5, 4, second, bhMiddle);
      return true;
    case btUPCA:
      TBarcode::UPCAPos(aPattern, aWidth, aFactor, first, second, third);
      aGroups.Add(1, 1, 0, bhEnd);
      aGroups.Add(2, 5, first, bhMiddle);
      aGroups.Add(7, 5, second, bhMiddle);
      aGroups.Add(12, 1, third, bhBaseline);
      return true;
    case btUPCE0:
      TBarcode::UPCEPos(aPattern, aWidth, aFactor, first, second);
      aGroups.Add(1, 1, 0, bhEnd);
      aGroups.Add(2, 6, first, bhMiddle);
      aGroups.Add(8, 1, second, bhStart);
      return true;
    default:
      return false;
  }
}

}  // namespace

TBarcodeLayout LayOutBarcode(const IZORBarcode& aBarcode, const TBarcodePlace& aPlace, std::string_view aCode,
                             std::string_view aPattern) {
  TBarcodeLayout layout;
  const TZORAngle angle = aBarcode.GetAngle();
  // 1. The corner of the symbol where its text begins: everything turns about it.
  layout.turnX = aPlace.x;
  layout.turnY = aPlace.y;
  MoveAlong(layout.turnX, layout.turnY, -AlignShift(aPlace, aBarcode.GetHorzAlign()), angle);
  // 2. The bars begin inside the padding.
  const TBarRect origin = Turned({layout.turnX + aPlace.padX, layout.turnY + aPlace.padY, 0, 0}, layout.turnX,
                                 layout.turnY, angle);
  LayOutBars(layout, aBarcode, aPattern, origin.x, origin.y);
  if (!aBarcode.GetShowNumber()) return layout;
  // 3. The text lies below them, in groups or in the middle of the symbol.
  const double top = layout.turnY + aPlace.padY + Exact(aBarcode.GetBarHeight());
  const double width = Exact(aBarcode.GetBarWidth());
  const TTextGroups groups(layout, layout.turnX + aPlace.padX, top, aCode);
  if (LayOutEanText(groups, aBarcode.GetBarType(), aPattern, width, aBarcode.GetFactor())) return layout;
  layout.texts.push_back({layout.turnX + AlignShift(aPlace, haCenter), top, bhMiddle, AnsiToUtf8(aCode)});
  return layout;
}

}  // namespace Zor::inline Utils
