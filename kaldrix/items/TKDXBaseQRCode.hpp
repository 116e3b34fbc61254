#pragma once

#include "kaldrix/codes/ZOR.QRCode.hpp"
#include "kaldrix/items/TMatrixItem.hpp"

namespace Zor::inline Barcode {

/// A QR Code at error correction level L.
class TKDXBaseQRCode : public TMatrixItem {
 public:
  TKDXBaseQRCode(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBaseQRCode(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);

  TQRCodeEncoding GetEncoding() const { return fEncoding; }
  /// Not recorded. Raises Exception when the text does not fit that encoding, and then changes nothing.
  void SetEncoding(TQRCodeEncoding aValue) { Encoded(fEncoding, aValue); }

  /// Makes the symbol of the text. Raises Exception "QRCode Encode Error" and leaves the symbol as it was.
  void Encode() override;
  std::span<const std::uint8_t> Modules() const override { return fQRCode.FMatrix.Bytes(); }
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;

  TQRCodeEncoding fEncoding = Automatic;
  TQRCode fQRCode;
  TEncoder fEncoder;
  TErrorCorrectionLevel fLevel;

 protected:
  void Record(TRecord& r) override;
  /// Vowels lose their accents.
  std::string Taken(const std::string& aText) const override;
  std::string ReadingProblem(const std::string& aValue) const override;
};

}  // namespace Zor::inline Barcode
