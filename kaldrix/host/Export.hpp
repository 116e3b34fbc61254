// A document as SVG, PNG or PDF.
#pragma once

#include <string>

#include "kaldrix/host/TBackground.hpp"
#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/host/TSurface.hpp"

namespace Zor::inline Host {

struct TExportOptions {
  /// Dots per inch of a PNG, 1 to 9600.
  double dpi = 300;
  /// 0 exports one label, or the drawing, in its own size. From 1 on it is the sheet of paper with the labels
  /// of that page, each cut at its outline.
  int page = 0;
  /// Only as large as the exported items are; with page 0.
  bool fit = false;
  /// What is meant for a printer instead of what is exported: items and backgrounds by their Print options.
  bool print = false;
  /// A PNG without white paper behind the drawing.
  bool transparent = false;
  /// Barcodes whose text their kind cannot hold are left out, as an editor shows them, instead of raising;
  /// LiteralCodeProblems tells which.
  bool leaveOutInvalid = false;
  // Of an SVG: how its numbers are written, and whether elements carry the names of their items. On a sheet
  // only those of the first label do.
  TZORExportSVG svgMode = svCurrentUnit;
  Single factor = 1;
  bool ids = false;
  TSvgTextForm svgText = stPortable;

  TSvgWriting Writing() const { return {svgMode, factor, ids, svgText}; }
};

// Each gives the bytes of the file. Items are taken when they and their layer are visible and exported, in
// z-order. What cannot be exported raises an Exception: a label without a size, nothing to fit to, a
// resolution or a factor out of range, a picture above MaxPixels, an image that cannot be read, a barcode
// whose text its kind cannot hold. Without data open, barcodes that are bound to data show what they were
// drawn with, or nothing.
std::string ExportSvg(TKDXLabel& aDocument, const TExportOptions& aOptions);
std::string ExportPng(TKDXLabel& aDocument, const TExportOptions& aOptions);
std::string ExportPdf(TKDXLabel& aDocument, const TExportOptions& aOptions);

class TExportPlan;

// The same of a plan that has been made with these options.
std::string PlanSvg(const TKDXLabel& aDocument, const TExportPlan& aPlan, const TExportOptions& aOptions);
std::string PlanPng(const TKDXLabel& aDocument, const TExportPlan& aPlan, const TExportOptions& aOptions);
/// What a PDF of the document says about itself.
TPdfInfo PdfInfo(const TKDXLabel& aDocument);
/// Paints the plan at the origin; `aBackground` is that of the document.
void PaintPlan(TSurface& aSurface, const TKDXLabel& aDocument, const TExportPlan& aPlan,
               TBackground& aBackground);

}  // namespace Zor::inline Host
