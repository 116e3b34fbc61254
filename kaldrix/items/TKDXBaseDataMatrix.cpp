#include "kaldrix/items/TKDXBaseDataMatrix.hpp"

#include "kaldrix/codes/ZOR.DataMatrix.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/platform/Ansi.hpp"

namespace Zor::inline Barcode {

namespace {

constexpr TBarSizes Sizes{190, 190, 300, 300, 2000, 2000, 0};

}  // namespace

TKDXBaseDataMatrix::TKDXBaseDataMatrix(TKDXBaseLabel& aOwner, bool aPreview)
    : TMatrixItem(aOwner, itDataMatrix, Sizes, aPreview) {
  fCode = "DMatrix";
  TKDXBaseDataMatrix::Encode();
}

TKDXBaseDataMatrix::TKDXBaseDataMatrix(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TMatrixItem(aOwner, itDataMatrix, Sizes, aLayer, aPreview) {
  fCode = "DMatrix";
  TKDXBaseDataMatrix::Encode();
}

void TKDXBaseDataMatrix::Encode() {
  const AnsiString code = ToAnsi(fCode);
  const std::vector<std::uint8_t> bytes(code.Bytes().begin(), code.Bytes().end());
  int cols = 0, rows = 0;
  CalcECC200(bytes, ecc200_Autosize, ecc200_Square, fDataM, cols, rows);
  fCols = static_cast<std::int16_t>(cols);
  fRows = static_cast<std::int16_t>(rows);
  UpdateSize();
}

std::string TKDXBaseDataMatrix::Taken(const std::string& aText) const { return ToUtf8(ToAnsi(aText)); }

bool TKDXBaseDataMatrix::HoldsAll(const std::string& aValue) const { return aValue == fCode; }

void TKDXBaseDataMatrix::Record(TRecord& r) {
  TMatrixItem::Record(r);
  r.Enum32(fDMSize, "DMSize");
  r.Enum8(fDMShape, "DMShape");
  RecordSizes(r);
  RecordCode(r);
}

std::unique_ptr<TJsonObject> TKDXBaseDataMatrix::WriteJson() const {
  auto json = TMatrixItem::WriteJson();
  json->PutInt("DMSize", fDMSize);
  json->PutInt("DMShape", fDMShape);
  WriteJsonSizes(*json);
  WriteJsonCode(*json);
  return json;
}

void TKDXBaseDataMatrix::ReadJson(int aVersion, TJsonObject& aJson) {
  TMatrixItem::ReadJson(aVersion, aJson);
  fDMSize = GetEnum<TECC200Size>(aJson, "DMSize");
  fDMShape = GetEnum<TECC200Shape>(aJson, "DMShape");
  ReadJsonSizes(aJson);
  ReadJsonCode(aJson);
  AfterRead(rdNormal);
}

}  // namespace Zor::inline Barcode
