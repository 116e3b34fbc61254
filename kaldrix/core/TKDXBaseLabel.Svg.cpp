// The document as SVG.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Base {

namespace {

void AppendLines(std::string& aOut, const TSvgList& aLines) {
  for (const std::string& line : aLines) (aOut += line) += '\n';
}

}  // namespace

std::string TKDXBaseLabel::SVG(TZORExportSVG aExportType, Single aFactor, bool attrID) {
  CalcPending();
  std::string body, definitions;
  TSvgList svg, defs;
  const auto flush = [&] {
    AppendLines(body, svg);
    AppendLines(definitions, defs);
    svg.clear();
    defs.clear();
  };
  WriteBackSVG(svg, defs, aExportType, aFactor);
  for (const TKDXBaseItem* item : fItems) {
    if (!item->Shows(lopVisible) || !item->Shows(lopExport)) continue;
    item->WriteSVG(svg, defs, aExportType, aFactor, attrID);
    flush();
  }
  flush();
  std::string text = SvgRoot(aExportType, aFactor);
  text.reserve(text.size() + body.size() + definitions.size() + 32);
  if (!definitions.empty()) ((text += "<defs>\n") += definitions) += "</defs>\n";
  (text += body) += "</svg>\n";
  return text;
}

std::string TKDXBaseLabel::SvgRoot(TZORExportSVG aExportType, Single aFactor) const {
  const auto size = [this](int aBase) { return GetValFromMM(GetBaseValue(aBase)); };
  const Single width = size(fMeasure->fWidth), height = size(fMeasure->fHeight);
  const auto length = [&](Single aValue) {
    // The large units have no suffix in SVG: their sizes are told in millimetres.
    if (!UnitFacts(fUnits).restricted) return TExSVG::GetValUnit(aValue, aFactor, fUnits, aExportType);
    return TExSVG::GetValUnit(static_cast<Single>(aValue * UnitFacts(fUnits).millimetres), aFactor, unMM,
                              aExportType);
  };
  const Single widthMM = GetBaseValue(fMeasure->fWidth), heightMM = GetBaseValue(fMeasure->fHeight);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + length(width) + "\" height=\"" +
         length(height) + "\" viewBox=\"0 0 " + TExSVG::GetVal(widthMM, aFactor, aExportType) + " " +
         TExSVG::GetVal(heightMM, aFactor, aExportType) + "\">\n";
}

void TKDXBaseLabel::SaveSVG(const std::string& aFilename, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) {
  WriteFileAtomically(aFilename, SVG(aExportType, aFactor, attrID));
}

}  // namespace Zor::inline Base
