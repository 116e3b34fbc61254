// The document as SVG.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <unordered_set>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TRecordCopies.hpp"
#include "kaldrix/platform/Files.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Base {

namespace {

void AppendLines(std::string& aOut, const TSvgList& aLines) {
  for (const std::string& line : aLines) (aOut += line) += '\n';
}

/// What items share is defined once.
void Define(std::unordered_set<std::string>& aDefined, std::string& aOut, const TSvgList& aLines) {
  for (const std::string& line : aLines) {
    if (aDefined.insert(line).second) (aOut += line) += '\n';
  }
}

}  // namespace

std::string TKDXBaseLabel::SVG(TZORExportSVG aExportType, Single aFactor, bool attrID) {
  return SVG({aExportType, aFactor, attrID}, SvgWindow());
}

std::string TKDXBaseLabel::SVG(const TSvgWriting& aWriting, const TSvgWindow& aWindow) {
  CalcPending();
  TRecordCopies copies(*this);
  std::string body, definitions;
  std::unordered_set<std::string> defined;
  TSvgList svg, defs;
  const auto flush = [&] {
    AppendLines(body, svg);
    Define(defined, definitions, defs);
    svg.clear();
    defs.clear();
  };
  WriteBackSVG(svg, defs, aWriting.type, aWriting.factor);
  for (TKDXBaseItem* item : fItems) {
    if (!item->Shows(lopVisible) || !item->Shows(lopExport)) continue;
    copies.Shown(*item).WritePaperSVG(svg, defs, aWriting);
    flush();
  }
  flush();
  std::string text = SvgRoot(aWriting, aWindow);
  text.reserve(text.size() + body.size() + definitions.size() + 32);
  if (!definitions.empty()) ((text += "<defs>\n") += definitions) += "</defs>\n";
  (text += body) += "</svg>\n";
  return text;
}

TSvgWindow TKDXBaseLabel::SvgWindow() const {
  return {0, 0, fMeasure->fWidth / BaseInMM, fMeasure->fHeight / BaseInMM};
}

std::string TKDXBaseLabel::SvgRoot(const TSvgWriting& aWriting, const TSvgWindow& aWindow) const {
  const bool suffixed = aWriting.type == svCurrentUnit || aWriting.type == svFactor;
  const TZORUnits unit = suffixed && !UnitFacts(fUnits).restricted ? fUnits : unMM;
  const auto length = [&](double aMM) {
    // Narrowed, so that 76.2 mm are 3 inches.
    const auto value = static_cast<Single>(aMM / UnitFacts(unit).millimetres);
    return TExSVG::GetValUnit(value, aWriting.factor, unit, aWriting.type);
  };
  const auto number = [&](double aMM) { return TExSVG::GetVal(aMM, aWriting.factor, aWriting.type); };
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + length(aWindow.width) + "\" height=\"" +
         length(aWindow.height) + "\" viewBox=\"" + number(aWindow.x) + " " + number(aWindow.y) + " " +
         number(aWindow.width) + " " + number(aWindow.height) + "\">\n";
}

void TKDXBaseLabel::SaveSVG(const std::string& aFilename, TZORExportSVG aExportType, Single aFactor,
                            bool attrID) {
  WriteFileAtomically(aFilename, SVG(aExportType, aFactor, attrID));
}

}  // namespace Zor::inline Base
