// Drawing into a PDF. Only sources include it: it shows Pango's types.
#pragma once

#include <bitset>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "kaldrix/host/TCanvas.hpp"
#include "kaldrix/host/TPdfContent.hpp"
#include "kaldrix/host/TPdfFonts.hpp"
#include "kaldrix/host/TPdfLines.hpp"
#include "kaldrix/host/TPdfPictures.hpp"
#include "kaldrix/host/TPdfWriter.hpp"

namespace Zor::inline Host {

/// The unit of a page is the thousandth of a millimetre with y downwards, so that most numbers are whole
/// ones. Transforms are applied here, and a state is saved in the file only where a clip needs it; what the
/// file's state holds already is not said again. Pages share their resources but for pictures, and nothing
/// of a page stays in memory when it has ended.
class TPdfCanvas final : public TCanvas {
 public:
  TPdfCanvas(TFontEngine& fonts, double widthMM, double heightMM, const TPdfInfo& info,
             TPdfWriter::TSink sink);

  bool IsRaster() const override { return false; }
  void NewPage(double widthMM, double heightMM) override;
  std::string Finish() override;
  void Clip(const TPath& path) override;
  void FillBars(std::span<const TBar> bars, TAlphaColor color) override;

 private:
  /// What the file's graphics state holds (ISO 32000-1, 8.4.1). Opacities are thousandths.
  struct TState {
    TAlphaColor fill = 0, stroke = 0;
    int fillAlpha = 1000, strokeAlpha = 1000;
    double penWidth = -1;
    bool roundCap = false;
    TZOLineType line = iiSolid;
    double dashScale = 1;
    const TPdfFont* font = nullptr;
  };
  /// A state that was saved by Save.
  struct TLevel {
    bool inFile = false;
    bool hidden = false;
    TState state;
  };
  /// The whole numbers of bars in units of their own.
  struct TBarGrid {
    double x = 0, y = 0, unitX = 1, unitY = 1;
  };
  /// Kind, and the colours or opacities at both ends.
  using TGradientKey = std::tuple<bool, TAlphaColor, TAlphaColor>;

  void OnSave() override;
  void OnRestore() override;
  void Paint(const TPath& path, const TPen* pen, const TBrush* brush) override;
  double PrepareLine(std::string_view text, const TFace& face) override;
  void ShowLine(const TShownLine& line) override;
  void ShowPicture(const std::shared_ptr<const TPicture>& picture, const TMatrix& pixels,
                   double opacity) override;

  void BeginPage(double widthMM, double heightMM);
  void EndPage();
  void WriteResources();
  void CheckOpen() const;

  void SetFill(TAlphaColor color);
  void SetStroke(TAlphaColor color);
  void SetFillAlpha(int thousandths);
  void SetStrokeAlpha(int thousandths);
  void SetPen(const TPen& pen, std::span<const double> dashes, double scale);
  void PutPath(const TMatrix& m, const TPath& path);
  void StrokePath(const TPath& path, const TPen& pen);
  void FillGradient(const TPath& path, const TBrush& brush);
  int Shading(const TGradientKey& key);
  int AlphaGradient(const TGradientKey& key);
  TBarGrid GridOf(std::span<const TBar> bars) const;
  void ShowPiece(const TPdfPiece& piece, const TMatrix& em, TAlphaColor color);
  void ShowText(const TPdfPiece& piece, const TMatrix& em, TAlphaColor color);

  TPdfWriter fWriter;
  TPdfFonts fPdfFonts;
  TPdfLines fLines;
  TPdfPictures fPictures;
  std::string fInfo;
  bool fFinished = false;

  int fFontNames, fStateNames, fShadingNames;  ///< objects of the dictionaries that all pages share
  std::bitset<1001> fFillAlphas, fStrokeAlphas;
  std::map<TGradientKey, int> fShadings, fAlphaGradients;

  // The page.
  TPdfContent fContent;
  double fWidth = 0, fHeight = 0;  ///< points
  std::set<int> fPagePictures;
  bool fTranslucent = false;
  bool fHidden = false;  ///< an empty clip
  TState fState;
  std::vector<TLevel> fLevels;
  const TPdfLine* fLine = nullptr;
};

}  // namespace Zor::inline Host
