#include "kaldrix/items/TKDXBaseDataMatrix.hpp"

#include <algorithm>

#include "kaldrix/codes/ZOR.DataMatrix.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Utf8.hpp"
#include "kaldrix/utils/Gs1.hpp"
#include "kaldrix/utils/ShownCode.hpp"

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
  const bool elements = fElementString && Gs1Problem(code.Bytes()).empty();
  const std::string data = elements ? Gs1Data(code.Bytes()) : std::string(code.Bytes());
  const std::vector<std::uint8_t> bytes(data.begin(), data.end());
  int cols = 0, rows = 0;
  (elements ? CalcGs1ECC200 : CalcECC200)(bytes, ecc200_Autosize, ecc200_Square, fDataM, cols, rows);
  fCols = static_cast<std::int16_t>(cols);
  fRows = static_cast<std::int16_t>(rows);
  UpdateSize();
}

std::string TKDXBaseDataMatrix::Taken(const std::string& aText) const { return ToUtf8(ToAnsi(aText)); }

std::string TKDXBaseDataMatrix::ReadingProblem(const std::string& aValue) const {
  if (aValue != fCode) return ShownText(aValue) + " has characters that the symbol cannot hold";
  if (fElementString) return Gs1Problem(ToAnsi(aValue).Bytes());
  // What is not announced otherwise is ISO 8859-1 to readers.
  const std::u32string text = Utf8::ToUtf32(aValue);
  const bool latin1 = std::all_of(text.begin(), text.end(), [](char32_t c) { return c < 256; });
  return latin1 ? "" : ShownText(aValue) + " has characters beyond ISO 8859-1, which are read as others";
}

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
