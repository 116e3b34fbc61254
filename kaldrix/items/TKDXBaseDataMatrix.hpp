#pragma once

#include "kaldrix/items/TMatrixItem.hpp"

namespace Zor::inline Barcode {

/// A Data Matrix ECC 200. The text is taken in Windows-1252: a character without a place there becomes "?".
class TKDXBaseDataMatrix : public TMatrixItem {
 public:
  TKDXBaseDataMatrix(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBaseDataMatrix(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  /// Intended: size and shape are kept, and the symbol is the smallest square whatever they say.
  TECC200Size GetDMSize() const { return fDMSize; }
  TECC200Shape GetDMShape() const { return fDMShape; }
  void SetDMSize(TECC200Size aValue) { Keep(fDMSize, aValue); }
  void SetDMShape(TECC200Shape aValue) { Keep(fDMShape, aValue); }

  /// Is the text a GS1 element string with its identifiers in parentheses? Then the symbol begins with an
  /// FNC1 and has separators. Off in a new item; not stored. Raises as Encode does, and then changes nothing.
  bool GetElementString() const { return fElementString; }
  void SetElementString(bool aValue) { Encoded(fElementString, aValue); }

  /// Makes the symbol of the text. Raises Exception as CalcECC200 does and leaves the symbol as it was.
  void Encode() override;
  std::span<const std::uint8_t> Modules() const override { return fDataM; }
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;

  TECC200Size fDMSize = ecc200_Autosize;
  TECC200Shape fDMShape = ecc200_Square;
  bool fElementString = false;
  std::vector<std::uint8_t> fDataM;  ///< the modules row by row, 1 dark

 protected:
  void Record(TRecord& r) override;
  std::string Taken(const std::string& aText) const override;
  std::string ReadingProblem(const std::string& aValue) const override;
};

}  // namespace Zor::inline Barcode
