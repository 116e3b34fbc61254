#include "kaldrix/host/TKDXLabel.hpp"

#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/host/Export.hpp"
#include "kaldrix/host/TBackground.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Host {

namespace {

/// Dots per inch of a picture at scale 1.
constexpr double ScreenDpi = 96;

}  // namespace

TFontEngine& FontsOf(const TKDXBaseItem& aItem) {
  return static_cast<const TKDXLabel&>(aItem.Document()).Fonts();
}

TKDXLabel::TKDXLabel(TComponent* aOwner) : TKDXLabel(std::make_shared<TFontEngine>(), aOwner) {}

TKDXLabel::TKDXLabel(std::shared_ptr<TFontEngine> aFonts, TComponent* aOwner)
    : TKDXLabelOf(aOwner), fFonts(std::move(aFonts)) {
  fOnGetFontListEvent = [fonts = fFonts](TKDXBaseLabel*, std::vector<std::string>& aList) {
    aList = fonts->FontNames();
  };
}

TKDXLabel::~TKDXLabel() = default;

void TKDXLabel::CheckPrintData() {
  TKDXData& data = *fData;
  const bool csv = data.fLinkData && data.fType == dtyCsv;
  if (csv && (data.fCsvOpen != nullptr || FileExists(data.fCsvFileName))) data.RefreshCsvFields();
  TKDXLabelOf::CheckPrintData();
}

void TKDXLabel::Print() { throw EInvalidOperation("There is no printer: export a PDF and print that"); }

void TKDXLabel::ExportDoc(TZORExport aType, const std::string& aFilename, int aPage, Single aScale,
                          int /*aQuality*/, bool aCheckData, bool aTransparent, bool aFit) {
  TExportOptions options;
  options.dpi = ScreenDpi * double{aScale};
  options.page = aPage;
  options.fit = aFit;
  options.transparent = aTransparent;
  if (aCheckData && fData->fLinkData) CheckPrintData();
  switch (aType) {
    case exPDF:
      return WriteFileAtomically(aFilename, ExportPdf(*this, options));
    case exPNG:
      return WriteFileAtomically(aFilename, ExportPng(*this, options));
    default:
      throw EArgumentException(aFilename + ": only PDF and PNG are written");
  }
}

void TKDXLabel::WriteBackSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aType, Single aFactor) const {
  TBackground(*this).WriteSvg(svg, defs, aType, aFactor);
}

}  // namespace Zor::inline Host
