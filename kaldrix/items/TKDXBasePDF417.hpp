#pragma once

#include "kaldrix/codes/ZOR.PDF417.hpp"
#include "kaldrix/items/TModuleItem.hpp"

namespace Zor::inline Barcode {

/// A PDF417 symbol. Characters beyond ASCII and controls are left out of it; a text that has no others shows
/// a blank of one column and three rows.
class TKDXBasePDF417 : public TModuleItem {
 public:
  TKDXBasePDF417(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBasePDF417(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  // Each raises Exception when the text does not fit, and then changes nothing. None is recorded.
  TZORPdf417CorrectionLevel GetCorrecLevel() const { return fCorrecLevel; }
  void SetCorrecLevel(TZORPdf417CorrectionLevel aValue) { Encoded(fCorrecLevel, aValue); }
  /// The wished data columns and rows, 0 for as many as are needed; held at 30 and 90.
  int GetCols() const { return fCols; }
  int GetRows() const { return fRows; }
  void SetCols(int aValue);
  void SetRows(int aValue);
  /// Without right row indicators and with a stop of one bar. Intended: the size stays as it is until the
  /// symbol is measured again.
  bool GetTruncated() const { return fTruncated; }
  void SetTruncated(bool aValue);

  /// Makes the symbol of the text. Raises Exception "PDF417 Encode Error", or EConvertError for an escape
  /// without its digits, and leaves the symbol as it was.
  void Encode() override;
  /// Has the symbol room for its check words?
  bool ValidCode() const { return int{fXCount} * fYCount >= fNumErrorCWords; }
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;

  TCodeWords fCodeWords;
  int fUsedCWords = 1;  ///< descriptor and data
  int fNumErrorCWords = 0;
  int fErrorLevel = 0;  ///< in force
  TZORPdf417CorrectionLevel fCorrecLevel = Auto;
  std::int16_t fRows = 0, fCols = 0;      ///< wished
  std::int16_t fXCount = 1, fYCount = 3;  ///< data columns and rows
  bool fTruncated = false;

 protected:
  void Record(TRecord& r) override;
  std::string Taken(const std::string& aText) const override;
  std::string ReadingProblem(const std::string& aValue) const override;
  void UpdateSize() override;
  void FillRuns(std::vector<TModuleRun>& aRuns) const override;

 private:
  /// Chooses level and size for the data words and adds the check words.
  void AdjustErrorLevel();
  bool HasSymbol() const { return fUsedCWords > 1; }
  int ModuleCols() const;
  void FillRow(std::vector<TModuleRun>& aRuns, int aIndex) const;
};

}  // namespace Zor::inline Barcode
