#pragma once

#include <string>
#include <string_view>

#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Utils {

/// One entry of an SVG list in the making: literal text and numbers in turn, in one export mode.
class TSvgElement {
 public:
  TSvgElement(TZORExportSVG aExportType, Single aFactor) : fType(aExportType), fFactor(aFactor) {
    fText.reserve(160);
  }

  TSvgElement& Raw(std::string_view aText) {
    fText += aText;
    return *this;
  }
  /// A coordinate or length in millimetres of paper.
  TSvgElement& Val(double aValue) {
    TExSVG::AppendVal(fText, aValue, fFactor, fType);
    return *this;
  }
  /// "x,y".
  TSvgElement& Pair(double x, double y) { return Val(x).Raw(",").Val(y); }
  /// A pen width in millimetres, written alike in every mode.
  TSvgElement& Pen(double aMM) {
    TExSVG::AppendPen(fText, aMM);
    return *this;
  }
  TSvgElement& Stroke(TAlphaColor aColor) {
    TExSVG::AppendLineColor(fText, aColor);
    return *this;
  }
  TSvgElement& Fill(TAlphaColor aColor, bool aFilled) {
    TExSVG::AppendFillColor(fText, aColor, aFilled);
    return *this;
  }
  TSvgElement& Dash(TZOLineType aLineType) { return Raw(TExSVG::GetLineStyle(aLineType)); }
  TSvgElement& Escaped(std::string_view aText) {
    TExSVG::AppendScapedText(fText, aText);
    return *this;
  }

  std::string Take() { return std::move(fText); }

 private:
  TZORExportSVG fType;
  Single fFactor;
  std::string fText;
};

}  // namespace Zor::inline Utils
