#pragma once

#include <memory>
#include <string>

#include "kaldrix/editor/TKDXLabelOf.hpp"
#include "kaldrix/host/THostItem.hpp"

namespace Zor::inline Host {

/// The document of the host without a screen: it measures texts, paints its items and reads pictures.
class TKDXLabel : public TKDXLabelOf<THostItem> {
 public:
  explicit TKDXLabel(TComponent* aOwner = nullptr);
  /// With fonts that other documents of the same thread use too: what one has measured, all know.
  explicit TKDXLabel(std::shared_ptr<TFontEngine> aFonts, TComponent* aOwner = nullptr);
  ~TKDXLabel() override;

  TFontEngine& Fonts() const { return *fFonts; }

  void PrinterChanged() override {}
  /// Where the records are those of a CSV file, its columns are described anew first: a file may have changed
  /// since the document was written.
  void CheckPrintData() override;
  /// There is no printer: raises EInvalidOperation.
  void Print() override;
  /// Writes a PDF or PNG; other kinds raise EArgumentException. `aPage` as in TExportOptions. `aScale` is for
  /// pictures: 1 gives 96 dots per inch. `aTransparent` leaves the paper of a picture out. `aCheckData`
  /// plans the print anew where the document is linked to data; `aQuality` matters for no kind that is
  /// written.
  void ExportDoc(TZORExport aType, const std::string& aFilename, int aPage, Single aScale, int aQuality,
                 bool aCheckData, bool aTransparent, bool aFit) override;

 protected:
  const char* ClassName() const override { return "TKDXLabel"; }
  void WriteBackSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aType, Single aFactor) const override;

 private:
  std::shared_ptr<TFontEngine> fFonts;
};

}  // namespace Zor::inline Host
