#include "kaldrix/utils/TExSVG.hpp"

#include <array>
#include <cassert>
#include <cmath>
#include <numbers>

#include "kaldrix/platform/Format.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Utils {

namespace {

constexpr std::uint32_t OpaqueAlpha = 255;
constexpr double DegreesOfRadian = 180.0 / std::numbers::pi;
constexpr std::string_view BetweenElements = "\r\n";

// By TZORUnits.
constexpr std::array<std::string_view, unYd + 1> UnitTexts{"mm", "in", "cm", "dm", "m", "ft", "yd"};

// By TZOLineType.
constexpr std::array<std::string_view, ii411 + 1> DashTexts{
    "",
    " stroke-dasharray=\"0.5 0.5\" ",
    " stroke-dasharray=\"1\" ",
    " stroke-dasharray=\"2 1\" ",
    " stroke-dasharray=\"2 1\" ",  // Intended: ii12 is written as ii21 is.
    " stroke-dasharray=\"2 2\" ",
    " stroke-dasharray=\"3 1\" ",
    " stroke-dasharray=\"3 3\" ",
    " stroke-dasharray=\"4 1\" ",
    " stroke-dasharray=\"4 2\" ",
    " stroke-dasharray=\"4 4\" ",
    " stroke-dasharray=\"4 1 1 1\" ",
};

// By bold * 4 + italic * 2 + underline.
constexpr std::array<std::string_view, 8> StyleTexts{
    "",
    "\" text-decoration=\"underline",
    "\" font-style=\"italic",
    "\" font-style=\"italic\" text-decoration=\"underline",
    "\" font-weight=\"bold",
    "\" font-weight=\"bold\" text-decoration=\"underline",
    "\" font-weight=\"bold\" font-style=\"italic",
    "\" font-weight=\"bold\" font-style=\"italic\" text-decoration=\"underline",
};

double Factored(double aValue, double aFactor, TZORExportSVG aExportType) {
  return aExportType == svFactor || aExportType == svFactorPx ? aValue * aFactor : aValue;
}

/// Decimals are written only for a value that is not whole, whatever remains of its fraction.
void AppendNumber(std::string& aOut, double aValue, int aDecimals) {
  AppendFixed(aOut, aValue, std::trunc(aValue) == aValue ? 0 : aDecimals);
}

void AppendColor(std::string& aOut, std::string_view aName, TAlphaColor aValue) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  aOut.append(" ").append(aName).append("=\"#");
  for (unsigned shift = 24; shift > 0; shift -= 4) aOut += digits[(aValue >> (shift - 4)) & 0xF];
  aOut += '"';
  const std::uint32_t alpha = aValue >> 24;
  if (alpha == OpaqueAlpha) return;
  aOut.append(" ").append(aName).append("-opacity=\"");
  AppendFixed(aOut, alpha / static_cast<double>(OpaqueAlpha), 1);
  aOut += '"';
}

constexpr std::string_view EntityOf(char aChar) {
  switch (aChar) {
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return {};
  }
}

/// Bytes that ScapeText copies as they are: ASCII but for the markup characters and forbidden controls.
constexpr std::array<bool, 256> PlainBytes = [] {
  std::array<bool, 256> plain{};
  for (std::size_t i = 0; i < 128; ++i) {
    const char c = static_cast<char>(i);
    plain[i] = EntityOf(c).empty() && (i >= 0x20 || c == '\t' || c == '\n' || c == '\r');
  }
  return plain;
}();

/// The elements of one terminator.
class TTermWriter {
 public:
  struct TPoint {
    double X, Y;
  };

  TTermWriter(std::string& aOut, TZORExportSVG aExportType, double aFactor, TPoint aTip, double aSize,
              double aPenWidth, TAlphaColor aColor, TAlphaColor aFillColor)
      : fOut(aOut),
        fExportType(aExportType),
        fFactor(aFactor),
        fTip(aTip),
        fSize(aSize),
        fHalf(aSize / 2),
        fPenWidth(aPenWidth),
        fColor(aColor),
        fFillColor(aFillColor) {}

  void Circle(bool aFilled) {
    fOut += "<circle";
    Number(" cx=\"", fTip.X);
    Number(" cy=\"", fTip.Y);
    Number(" r=\"", fHalf);
    Surface(" ", aFilled);
  }

  void Square(bool aFilled) {
    fOut += "<rect";
    Number(" x=\"", fTip.X - fHalf);
    Number(" y=\"", fTip.Y - fHalf);
    Number(" width=\"", fSize);
    Number(" height=\"", fSize);
    Surface(aFilled ? " " : "  ", aFilled);
  }

  void Rhombus(bool aFilled) {
    Polygon(std::array{At(0, -fHalf), At(fHalf, 0), At(0, fHalf), At(-fHalf, 0)}, aFilled);
  }

  /// Wings end at `aWing1` and `aWing2`.
  void Arrow(TPoint aWing1, TPoint aWing2, bool aFilled) {
    if (aFilled) return Polygon(std::array{fTip, aWing1, aWing2}, true);
    Line(fTip, aWing1);
    fOut += BetweenElements;
    Line(fTip, aWing2);
  }

  void LeftDiagonal() { Line(At(-fHalf, -fHalf), At(fHalf, fHalf)); }
  void RightDiagonal() { Line(At(fHalf, -fHalf), At(-fHalf, fHalf)); }
  void Cross() {
    LeftDiagonal();
    fOut += BetweenElements;
    RightDiagonal();
  }

 private:
  TPoint At(double aDX, double aDY) const { return {fTip.X + aDX, fTip.Y + aDY}; }

  void Value(double aValue) { TExSVG::AppendVal(fOut, aValue, fFactor, fExportType); }
  void Number(std::string_view aOpening, double aValue) {
    fOut += aOpening;
    Value(aValue);
    fOut += '"';
  }

  void Line(TPoint aFrom, TPoint aTo) {
    fOut += "<line";
    Number(" x1=\"", aFrom.X);
    Number(" y1=\"", aFrom.Y);
    Number(" x2=\"", aTo.X);
    Number(" y2=\"", aTo.Y);
    Ending();
  }

  template <std::size_t N>
  void Polygon(const std::array<TPoint, N>& aPoints, bool aFilled) {
    std::string_view before = "<polygon points=\"";
    for (const TPoint& point : aPoints) {
      fOut += before;
      Value(point.X);
      fOut += ',';
      Value(point.Y);
      before = " ";
    }
    fOut += '"';
    Surface(" ", aFilled);
  }

  void Surface(std::string_view aGap, bool aFilled) {
    fOut += aGap;
    if (aFilled) {
      TExSVG::AppendFillColor(fOut, fFillColor, true);
    } else {
      fOut += "fill=\"none\"";
    }
    Ending();
  }

  void Ending() {
    fOut += ' ';
    TExSVG::AppendLineColor(fOut, fColor);
    fOut += " stroke-width=\"";
    TExSVG::AppendPen(fOut, fPenWidth);
    fOut += "\"/>";
  }

  std::string& fOut;
  TZORExportSVG fExportType;
  double fFactor;
  TPoint fTip;
  double fSize, fHalf, fPenWidth;
  TAlphaColor fColor, fFillColor;
};

}  // namespace

void TExSVG::AppendVal(std::string& aOut, double aValue, double aFactor, TZORExportSVG aExportType) {
  AppendNumber(aOut, Factored(aValue, aFactor, aExportType), 2);
}

std::string TExSVG::GetVal(double aValue, double aFactor, TZORExportSVG aExportType) {
  std::string out;
  AppendVal(out, aValue, aFactor, aExportType);
  return out;
}

void TExSVG::AppendVal(std::string& aOut, double aValue, TZORUnits aUnit) {
  AppendNumber(aOut, aValue, aUnit == unMM ? 2 : 3);
}

std::string TExSVG::GetVal(double aValue, TZORUnits aUnit) {
  std::string out;
  AppendVal(out, aValue, aUnit);
  return out;
}

void TExSVG::AppendValUnit(std::string& aOut, double aValue, double aFactor, TZORUnits aUnit,
                           TZORExportSVG aExportType) {
  const double value = Factored(aValue, aFactor, aExportType);
  if (aExportType == svFactorPx) return AppendNumber(aOut, value, 2);
  if (aUnit > unCM) return;
  AppendNumber(aOut, value, aUnit == unMM ? 1 : 2);
  if (aExportType != svCurUnitNoMed) aOut += GetUnit(aUnit);
}

std::string TExSVG::GetValUnit(double aValue, double aFactor, TZORUnits aUnit, TZORExportSVG aExportType) {
  std::string out;
  AppendValUnit(out, aValue, aFactor, aUnit, aExportType);
  return out;
}

void TExSVG::AppendDegAngle(std::string& aOut, double aValue) {
  AppendFixed(aOut, aValue * DegreesOfRadian, 1);
}

std::string TExSVG::GetDegAngle(double aValue) {
  std::string out;
  AppendDegAngle(out, aValue);
  return out;
}

void TExSVG::AppendPen(std::string& aOut, double aPenWidth) {
  AppendValUnit(aOut, aPenWidth, 1, unMM, svCurUnitNoMed);
}

void TExSVG::AppendLineColor(std::string& aOut, TAlphaColor aValue) { AppendColor(aOut, "stroke", aValue); }

std::string TExSVG::GetLineColor(TAlphaColor aValue) {
  std::string out;
  AppendLineColor(out, aValue);
  return out;
}

void TExSVG::AppendFillColor(std::string& aOut, TAlphaColor aValue, bool aFilled) {
  if (!aFilled) {
    aOut += " fill=\"none\"";
    return;
  }
  AppendColor(aOut, "fill", aValue);
}

std::string TExSVG::GetFillColor(TAlphaColor aValue, bool aFilled) {
  std::string out;
  AppendFillColor(out, aValue, aFilled);
  return out;
}

std::string_view TExSVG::GetLineStyle(TZOLineType aLineType) {
  assert(aLineType < DashTexts.size());
  return DashTexts[aLineType];
}

std::string_view TExSVG::GetCap(bool aRound) {
  return aRound ? " stroke-linecap=\"round\" " : " stroke-linecap=\"butt\" ";
}

std::string_view TExSVG::GetTextStyle(bool aBold, bool aItalic, bool aUnderline) {
  return StyleTexts[(aBold ? 4U : 0U) + (aItalic ? 2U : 0U) + (aUnderline ? 1U : 0U)];
}

std::string_view TExSVG::GetUnit(TZORUnits aUnit) {
  assert(aUnit < UnitTexts.size());
  return UnitTexts[aUnit];
}

TZORUnits TExSVG::GetUnit(std::string_view aText) {
  for (std::size_t i = 0; i < UnitTexts.size(); ++i) {
    if (SameText(UnitTexts[i], aText)) return static_cast<TZORUnits>(i);
  }
  return unMM;
}

void TExSVG::AppendScapedText(std::string& aOut, std::string_view aText) {
  std::size_t plainFrom = 0;
  std::size_t pos = 0;
  while (pos < aText.size()) {
    const auto byte = static_cast<unsigned char>(aText[pos]);
    if (PlainBytes[byte]) {
      ++pos;
      continue;
    }
    aOut += aText.substr(plainFrom, pos - plainFrom);
    if (byte < 0x80) {
      aOut += EntityOf(aText[pos++]);
    } else if (const char32_t c = Utf8::Next(aText, pos); c != 0xFFFE && c != 0xFFFF) {
      Utf8::Append(aOut, c);
    }
    plainFrom = pos;
  }
  aOut += aText.substr(plainFrom);
}

std::string TExSVG::ScapeText(std::string_view aText) {
  std::string out;
  out.reserve(aText.size());
  AppendScapedText(out, aText);
  return out;
}

void TExSVG::AppendTerm(std::string& aOut, TZORTermType aType, TZORExportSVG aExportType, double aP1X,
                        double aP1Y, double aP2X, double aP2Y, double aPenWidth, double aFactor, double aTerm,
                        TAlphaColor aColor, TAlphaColor aFillColor, int aOpen, bool aIsArc) {
  TTermWriter writer(aOut, aExportType, aFactor, {aP1X, aP1Y}, aTerm, aPenWidth, aColor, aFillColor);
  const auto wing = [&](double aSide) -> TTermWriter::TPoint {
    const auto length = static_cast<double>(Round(aTerm));
    const double direction = aIsArc ? aP2X : std::atan2(aP1Y - aP2Y, aP1X - aP2X);
    const double angle = direction + aSide * std::numbers::pi / aOpen;
    return {aP1X - length * std::cos(angle), aP1Y - length * std::sin(angle)};
  };
  switch (aType) {
    case ttNone:
      return;
    case ttCircle:
    case ttFillCircle:
      return writer.Circle(aType == ttFillCircle);
    case ttArrow:
    case ttFillArrow:
      return writer.Arrow(wing(-1), wing(1), aType == ttFillArrow);
    case ttSquare:
    case ttFillSquare:
      return writer.Square(aType == ttFillSquare);
    case ttRhombus:
    case ttFillRhombus:
      return writer.Rhombus(aType == ttFillRhombus);
    case ttLeftDia:
      return writer.LeftDiagonal();
    case ttRightDia:
      return writer.RightDiagonal();
    case ttCross:
      return writer.Cross();
  }
}

std::string TExSVG::DrawTerm(TZORTermType aType, TZORExportSVG aExportType, double aP1X, double aP1Y,
                             double aP2X, double aP2Y, double aPenWidth, double aFactor, double aTerm,
                             TAlphaColor aColor, TAlphaColor aFillColor, int aOpen, bool aIsArc) {
  std::string out;
  AppendTerm(out, aType, aExportType, aP1X, aP1Y, aP2X, aP2Y, aPenWidth, aFactor, aTerm, aColor, aFillColor,
             aOpen, aIsArc);
  return out;
}

}  // namespace Zor::inline Utils
