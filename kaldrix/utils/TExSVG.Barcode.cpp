#include "kaldrix/utils/TExSVG.hpp"

#include <array>

#include "kaldrix/utils/BarcodeLayout.hpp"

namespace Zor::inline Utils {

namespace {

// By ordinal of TBarTextHang and TZORAngle.
constexpr std::array<std::string_view, 4> Hangs{
    R"( alignment-baseline="text-before-edge" text-anchor="middle" )",
    R"( alignment-baseline="text-before-edge" text-anchor="end" )",
    R"( alignment-baseline="text-before-edge")", ""};
constexpr std::array<std::string_view, 4> Anchors{R"( text-anchor="middle")", R"( text-anchor="end")", "",
                                                  ""};
constexpr std::array<std::string_view, 4> Turns{"", "-90", "-180", "-270"};

/// The elements of one entry, in one export mode.
class TEntry {
 public:
  TEntry(std::string& aOut, double aFactor, TZORExportSVG aExport)
      : fOut(aOut), fFactor(aFactor), fExport(aExport) {}

  TEntry& Raw(std::string_view aText) {
    fOut += aText;
    return *this;
  }
  TEntry& Val(double aValue) {
    TExSVG::AppendVal(fOut, aValue, fFactor, fExport);
    return *this;
  }
  TEntry& Escaped(std::string_view aText) {
    TExSVG::AppendScapedText(fOut, aText);
    return *this;
  }
  /// Elements stand on lines of their own.
  void Begin(std::string_view aTag) {
    if (!fOut.empty()) fOut += "\r\n";
    fOut += aTag;
  }

 private:
  std::string& fOut;
  double fFactor;
  TZORExportSVG fExport;
};

}  // namespace

void TExSVG::AppendBars(std::string& aOut, std::span<const TBarRect> aBars, TAlphaColor aColor,
                        double aFactor, TZORExportSVG aExport) {
  constexpr std::size_t usualBar = 70;
  aOut.reserve(aOut.size() + aBars.size() * usualBar);
  const std::string fill = GetFillColor(aColor, true);
  TEntry entry(aOut, aFactor, aExport);
  for (const TBarRect& bar : aBars) {
    entry.Begin("<rect x=\"");
    entry.Val(bar.x).Raw("\" y=\"").Val(bar.y);
    entry.Raw("\" width=\"").Val(bar.width).Raw("\" height=\"").Val(bar.height);
    entry.Raw("\" ").Raw(fill).Raw("/>");
  }
}

std::string TExSVG::Barcode(const IZORBarcode& aBarcode, TAlphaColor aColor, Int64 aWi, Int64 aDS,
                            const AnsiString& aPCode, std::string_view aDrPCode, double aFactor, double aPosX,
                            double aPosY, double aPadX, double aPadY, double aRat, TZORExportSVG aExport,
                            std::optional<double> aAscent) {
  const TBarcodeLayout layout =
      LayOutBarcode(aBarcode, {aWi, aDS, aPosX, aPosY, aPadX, aPadY}, aPCode.Bytes(), aDrPCode);
  std::string out;
  AppendBars(out, layout.bars, aColor, aFactor, aExport);
  const std::string fill = GetFillColor(aColor, true);
  const TZORAngle angle = aBarcode.GetAngle();
  TEntry entry(out, aFactor, aExport);
  for (const TBarText& text : layout.texts) {
    entry.Begin("<text x=\"");
    const double below = aAscent && text.hang != bhBaseline ? *aAscent : 0;
    entry.Val(text.x).Raw("\" y=\"").Val(text.y + below);
    entry.Raw("\" font-family=\"").Escaped(aBarcode.GetFontName());
    entry.Raw("\" font-size=\"").Val(static_cast<double>(aBarcode.GetFontHeight()) * aRat);
    entry.Raw("\" ").Raw(fill).Raw(aAscent ? Anchors[text.hang] : Hangs[text.hang]);
    if (angle != ag0) {
      entry.Raw(" transform=\"rotate(").Raw(Turns[angle]).Raw(" ");
      entry.Val(layout.turnX).Raw(" ").Val(layout.turnY).Raw(")\" ");
    }
    entry.Raw(" xml:space=\"preserve\">").Escaped(text.text).Raw("</text>");
  }
  return out;
}

}  // namespace Zor::inline Utils
