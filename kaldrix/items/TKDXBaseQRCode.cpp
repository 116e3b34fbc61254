#include "kaldrix/items/TKDXBaseQRCode.hpp"

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/utils/ShownCode.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor::inline Barcode {

namespace {

constexpr TBarSizes Sizes{190, 190, 300, 300, 2000, 2000, 0};

}  // namespace

TKDXBaseQRCode::TKDXBaseQRCode(TKDXBaseLabel& aOwner, bool aPreview)
    : TMatrixItem(aOwner, itQRCode, Sizes, aPreview) {
  fCode = "QR";
  TKDXBaseQRCode::Encode();
}

TKDXBaseQRCode::TKDXBaseQRCode(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TMatrixItem(aOwner, itQRCode, Sizes, aLayer, aPreview) {
  fCode = "QR";
  TKDXBaseQRCode::Encode();
}

void TKDXBaseQRCode::Encode() {
  fEncoder.Encode(fCode, fEncoding, fLevel, fQRCode);
  fCols = static_cast<std::int16_t>(fQRCode.FMatrix.FWidth);
  fRows = static_cast<std::int16_t>(fQRCode.FMatrix.FHeight);
  UpdateSize();
}

std::string TKDXBaseQRCode::Taken(const std::string& aText) const { return TBarcode::RemoveAccented(aText); }

std::string TKDXBaseQRCode::ReadingProblem(const std::string& aValue) const {
  if (aValue != fCode) return ShownText(aValue) + " would be read as " + ShownText(fCode);
  TQRCodeEncoding encoding = fEncoding;
  const TMode mode = TEncoder::ChooseMode(fCode, encoding);
  const bool holds = TEncoder::FilterContent(fCode, mode, encoding) == fCode;
  return holds ? "" : ShownText(aValue) + " has characters that the symbol cannot hold";
}

void TKDXBaseQRCode::Record(TRecord& r) {
  TMatrixItem::Record(r);
  r.Enum16(fEncoding, "Encoding");
  RecordSizes(r);
  RecordCode(r);
}

std::unique_ptr<TJsonObject> TKDXBaseQRCode::WriteJson() const {
  auto json = TMatrixItem::WriteJson();
  json->PutInt("Encoding", fEncoding);
  WriteJsonSizes(*json);
  WriteJsonCode(*json);
  return json;
}

void TKDXBaseQRCode::ReadJson(int aVersion, TJsonObject& aJson) {
  TMatrixItem::ReadJson(aVersion, aJson);
  fEncoding = GetEnum<TQRCodeEncoding>(aJson, "Encoding");
  ReadJsonSizes(aJson);
  ReadJsonCode(aJson);
  AfterRead(rdNormal);
}

}  // namespace Zor::inline Barcode
