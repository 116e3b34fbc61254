#include "kaldrix/host/Export.hpp"

#include <unordered_set>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/host/ExportPlan.hpp"
#include "kaldrix/host/PngWriter.hpp"
#include "kaldrix/host/TBackground.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Host {

namespace {

constexpr double LeastDpi = 1, MostDpi = 9600;
constexpr TAlphaColor NoPaper = 0;

void CheckDpi(const TExportOptions& aOptions) {
  if (aOptions.dpi >= LeastDpi && aOptions.dpi <= MostDpi) return;
  throw EArgumentOutOfRangeException("The resolution must be between 1 and 9600 dots per inch");
}

/// Raises for the first barcode that would leave a gap in the picture.
void CheckCodes(const TExportPlan& aPlan, const TExportOptions& aOptions) {
  if (aOptions.leaveOutInvalid) return;
  for (const TLabelCell& cell : aPlan.cells) {
    aPlan.ForItems(cell, [](const TKDXBaseItem& item) {
      const auto* code = dynamic_cast<const TKDXBaseBarcode*>(&item);
      if (code == nullptr || code->fIsValid || (code->aIsData && !code->GetIsData())) return;
      const std::string problem = code->ValueProblem();
      throw Exception(code->fID + ": " + (problem.empty() ? "the code cannot be shown" : problem));
    });
    if (!aPlan.Varies()) return;
  }
}

// SVG ---------------------------------------------------------------------------------

constexpr std::string_view ClipName = "kaldrix-label";
constexpr std::string_view BackName = "kaldrix-back";

/// The sheet in the making: what the labels share goes to the definitions once.
class TSheetSvg {
 public:
  TSheetSvg(const TKDXLabel& aDocument, const TExportPlan& aPlan, const TExportOptions& aOptions)
      : fPlan(aPlan), fOptions(aOptions) {
    Define("<clipPath id=\"" + std::string(ClipName) + "\"><path d=\"" +
           PathData(LabelShape(*aDocument.fMeasure), aOptions.svgMode, aOptions.factor) + "\"/></clipPath>");
    DefineBackground(aDocument);
  }

  std::string Text(const std::string& aRoot) {
    for (const TLabelCell& cell : fPlan.cells) AddLabel(cell);
    return aRoot + "<defs>\n" + fDefinitions + "</defs>\n" + fBody + "</svg>\n";
  }

 private:
  void DefineBackground(const TKDXLabel& aDocument) {
    const TBackground background(aDocument, fOptions.print);
    if (background.Empty()) return;
    TSvgList svg, defs;
    background.WriteSvg(svg, defs, fOptions.svgMode, fOptions.factor);
    Define(defs);
    std::string group = "<g id=\"" + std::string(BackName) + "\">";
    for (const std::string& line : svg) group += line;
    Define(group + "</g>");
    fBack = "<use" + std::string(SvgLink) + "#" + std::string(BackName) + "\"/>\n";
  }
  void AddLabel(const TLabelCell& aCell) {
    fBody += "<g transform=\"translate(";
    TExSVG::AppendVal(fBody, aCell.x, fOptions.factor, fOptions.svgMode);
    fBody += ' ';
    TExSVG::AppendVal(fBody, aCell.y, fOptions.factor, fOptions.svgMode);
    ((fBody += ")\" clip-path=\"url(#") += ClipName) += ")\">\n";
    ((fBody += fBack) += Content(aCell)) += "</g>\n";
  }
  /// The items of a label; where all labels are alike they are written once.
  const std::string& Content(const TLabelCell& aCell) {
    const bool ids = fOptions.ids && fWritten == 0;
    if (fWritten == 0 || fPlan.Varies() || fHadIds != ids) fContent = WriteItems(aCell, ids);
    fHadIds = ids;
    ++fWritten;
    return fContent;
  }
  std::string WriteItems(const TLabelCell& aCell, bool aIds) {
    std::string text;
    TSvgList svg, defs;
    TSvgWriting writing = fOptions.Writing();
    writing.ids = aIds;
    fPlan.ForItems(aCell, [&](const TKDXBaseItem& item) {
      item.WritePaperSVG(svg, defs, writing);
      for (const std::string& line : svg) (text += line) += '\n';
      Define(defs);
      svg.clear();
      defs.clear();
    });
    return text;
  }
  void Define(const TSvgList& aLines) {
    for (const std::string& line : aLines) Define(line);
  }
  void Define(const std::string& aLine) {
    if (fDefined.insert(aLine).second) (fDefinitions += aLine) += '\n';
  }

  const TExportPlan& fPlan;
  const TExportOptions& fOptions;
  std::string fDefinitions, fBody, fBack, fContent;
  std::unordered_set<std::string> fDefined;
  int fWritten = 0;
  bool fHadIds = false;
};

}  // namespace

void PaintPlan(TSurface& aSurface, const TKDXLabel& aDocument, const TExportPlan& aPlan,
               TBackground& aBackground) {
  TKDXSurfaceDraw drw(aSurface, aDocument.fMeasure->fDrawScale);
  drw.fState = aPlan.IsSheet() ? dsExport : dsLabel;
  const TPath shape = LabelShape(*aDocument.fMeasure);
  for (const TLabelCell& cell : aPlan.cells) {
    const TSavedState saved(aSurface);
    aSurface.Translate(cell.x - aPlan.x, cell.y - aPlan.y);
    if (aPlan.IsSheet()) aSurface.ClipPath(shape);
    drw.aRow = static_cast<std::int16_t>(cell.row);
    drw.aCol = static_cast<std::int16_t>(cell.column);
    aBackground.Paint(aSurface);
    aPlan.ForItems(cell, [&drw](TKDXBaseItem& item) { item.DrawItem(drw); });
  }
}

std::string PlanSvg(const TKDXLabel& aDocument, const TExportPlan& aPlan, const TExportOptions& aOptions) {
  return TSheetSvg(aDocument, aPlan, aOptions).Text(aDocument.SvgRoot(aOptions.Writing(), aPlan.Window()));
}

std::string PlanPng(const TKDXLabel& aDocument, const TExportPlan& aPlan, const TExportOptions& aOptions) {
  CheckDpi(aOptions);
  TSurface surface = TSurface::MakeRaster(aDocument.Fonts(), aPlan.width, aPlan.height, aOptions.dpi,
                                          aOptions.transparent ? NoPaper : ColorWhite);
  TBackground background(aDocument, aOptions.print);
  PaintPlan(surface, aDocument, aPlan, background);
  return PngBytes(surface.Raster());
}

TPdfInfo PdfInfo(const TKDXLabel& aDocument) {
  const TKDXMeasure& measure = *aDocument.fMeasure;
  TPdfInfo info;
  info.title = measure.fTitle.empty() ? measure.fLabelName : measure.fTitle;
  return info;
}

std::string ExportSvg(TKDXLabel& aDocument, const TExportOptions& aOptions) {
  const TExportPlan plan(aDocument, aOptions);
  CheckCodes(plan, aOptions);
  if (plan.IsSheet()) return PlanSvg(aDocument, plan, aOptions);
  return aDocument.SVG(aOptions.Writing(), plan.Window());
}

std::string ExportPng(TKDXLabel& aDocument, const TExportOptions& aOptions) {
  CheckDpi(aOptions);
  const TExportPlan plan(aDocument, aOptions);
  CheckCodes(plan, aOptions);
  return PlanPng(aDocument, plan, aOptions);
}

std::string ExportPdf(TKDXLabel& aDocument, const TExportOptions& aOptions) {
  const TExportPlan plan(aDocument, aOptions);
  CheckCodes(plan, aOptions);
  TSurface surface = TSurface::MakePdf(aDocument.Fonts(), plan.width, plan.height, PdfInfo(aDocument));
  TBackground background(aDocument, aOptions.print);
  PaintPlan(surface, aDocument, plan, background);
  return surface.FinishPdf();
}

}  // namespace Zor::inline Host
