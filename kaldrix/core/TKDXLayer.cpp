#include "kaldrix/core/TKDXLayer.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDX2DItem.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Base64.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Base {

namespace {

auto Values(auto& l) {
  return std::tie(l.fName, l.fColor, l.fBackColor, l.fLineType, l.fOptions, l.fZPos, l.fPenWidth, l.fBold,
                  l.fItalic, l.fUnderline, l.fFontName, l.fFontHeight, l.fFontColor, l.fFill, l.fFileImg,
                  l.fEmbeded, l.fPrintImg, l.fImgMarLeft, l.fImgMarTop, l.fImgMarBottom, l.fImgMarRight,
                  l.fZoom, l.fMapProvider, l.fLatitude, l.fLongitude, l.fShowMapCenter);
}

/// Keys of the object "Options".
struct TOptionKey {
  TZOLayerOp option;
  std::string_view key;
};
constexpr std::array<TOptionKey, 9> OptionKeys{{{lopVisible, "Visible"},
                                                {lopPrint, "Print"},
                                                {lopSelectable, "Selectable"},
                                                {lopExport, "Export"},
                                                {lopBox, "Box"},
                                                {lopImage, "Image"},
                                                {lopMap, "Map"},
                                                {lopPrintBack, "PrintBack"},
                                                {lopExportBack, "ExportBack"}}};

TZORImgType ImageTypeOf(const std::string& aFileName) {
  const std::string extension = ExtractFileExt(aFileName);
  if (extension == ".png") return itPng;
  return extension == ".gif" ? itGif : itJpeg;
}

/// Degrees are stored with eight decimals, about a millimetre on the ground.
double RoundDegrees(double aValue) { return std::nearbyint(aValue * 1e8) / 1e8; }

std::string DecodeImage(const TJsonObject& aJson, std::string_view aKey) {
  try {
    return DecodeBase64(aJson.GetString(aKey));
  } catch (const EConvertError& error) {
    throw EJsonException("\"" + std::string(aKey) + "\": " + error.what());
  }
}

}  // namespace

TKDXLayer::TKDXLayer(TKDXBaseLabel* aOwner) : TKDXLayer(aOwner, TKDXMsg::GetPropValue("Default")) {}

TKDXLayer::TKDXLayer(TKDXBaseLabel* aOwner, const std::string& aName, TAlphaColor /*aColor*/,
                     TAlphaColor /*aBackColor*/)
    : fOwner(aOwner), fName(aName) {
  aOwner->fLayers.Adopt(this);
  aOwner->ContentChanged();
}

void TKDXLayer::Reset() {
  auto* fresh = new TKDXLayer(fOwner);
  Assign(*fresh);
  fStrikeout = fresh->fStrikeout;
  fImageType = fresh->fImageType;
  fArrayB.clear();
  fOwner->fLayers.Delete(fresh);
}

void TKDXLayer::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXLayer*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  Values(*this) = Values(*source);
  fOwner->ContentChanged();
}

template <class T>
void TKDXLayer::Keep(T& aField, const T& aValue) {
  if (aField == aValue) return;
  aField = aValue;
  fOwner->ContentChanged();
}

void TKDXLayer::SetName(const std::string& aValue) {
  if (aValue.empty()) throw Exception(TKDXMsg::GetErrorValue("EmptyText"));
  Keep(fName, aValue);
}

void TKDXLayer::SetOptions(TZOLayerOpts aValue) {
  if (aValue.Has(lopImage) && aValue.Has(lopMap)) {
    throw EInvalidOperation("You cannot select lopImage and lopMap simultaneously");
  }
  Keep(fOptions, aValue);
  fOwner->CheckBackLayer();
}

void TKDXLayer::SetZPos(std::uint16_t aValue) {
  fZPos = aValue;
  fOwner->ContentChanged();
}

Single TKDXLayer::GetFontHeight() const { return GetBaseValue(fFontHeight); }
Single TKDXLayer::GetPenWidth() const { return GetBaseValue(fPenWidth); }
void TKDXLayer::SetFontHeight(Single aMM) { Keep(fFontHeight, HeldBase(aMM)); }
void TKDXLayer::SetPenWidth(Single aMM) { Keep(fPenWidth, HeldBase(aMM)); }

// Values of the items
// -----------------------------------------------------------------------------------------------

/// Runs `aAction` on each item of the layer, inside one bracket.
template <class TAction>
void TKDXLayer::ForItems(TAction aAction) {
  const TUpdateBracket bracket(*fOwner);
  for (TKDXBaseItem* item : fOwner->fItems) {
    if (item->fLayer == this) aAction(*item);
  }
}

void TKDXLayer::SetColor(TAlphaColor aValue, bool aUpdateItems) {
  Keep(fColor, aValue);
  if (aUpdateItems) ForItems([aValue](TKDXBaseItem& aItem) { aItem.SetColor(aValue); });
}

void TKDXLayer::SetBackColor(TAlphaColor aValue, bool aUpdateItems) {
  Keep(fBackColor, aValue);
  if (!aUpdateItems) return;
  ForItems([aValue](TKDXBaseItem& aItem) {
    if (auto* item = dynamic_cast<TKDX2DItem*>(&aItem)) item->SetBackColor(aValue);
  });
}

void TKDXLayer::SetFontColor(TAlphaColor aValue, bool aUpdateItems) {
  Keep(fFontColor, aValue);
  if (!aUpdateItems) return;
  ForItems([aValue](TKDXBaseItem& aItem) {
    if (auto* font = dynamic_cast<IZORFont*>(&aItem)) font->SetFontColor(aValue);
  });
}

void TKDXLayer::SetValues() {
  ForItems([this](TKDXBaseItem& aItem) {
    aItem.SetColor(fColor);
    aItem.fPenWidth = fPenWidth;
    if (auto* item = dynamic_cast<TKDX2DItem*>(&aItem)) item->fBackColor = fBackColor;
    fOwner->ItemChanged(aItem);
    auto* font = dynamic_cast<IZORFont*>(&aItem);
    if (font == nullptr) return;
    font->SetFontColor(fFontColor);
    font->SetFontName(fFontName);
    font->SetFontHeight(GetFontHeight());
    font->SetBold(fBold);
    font->SetItalic(fItalic);
    font->SetUnderline(fUnderline);
  });
}

// Image
// -------------------------------------------------------------------------------------------------------------

void TKDXLayer::SetFileImg(const std::string& aValue) {
  if (aValue.empty() || aValue == fFileImg) return;
  const std::string name = ExtractFileName(aValue);
  const std::string target = CombinePath(fOwner->GetAbsoluteImagePath(), name);
  if (!FileExists(target)) CopyFileAtomically(aValue, target);
  fArrayB.clear();
  fFileImg = name;
  fImageType = ImageTypeOf(name);
  fOwner->ContentChanged();
  fOwner->CheckBackLayer();
}

void TKDXLayer::SetFileImgSize(int aSize) {
  fArrayB.resize(static_cast<std::size_t>(std::max(aSize, 0)));
  fOwner->ContentChanged();
}

Single TKDXLayer::GetImgMarLeft() const { return fOwner->GetVal(fImgMarLeft, true); }
Single TKDXLayer::GetImgMarTop() const { return fOwner->GetVal(fImgMarTop, true); }
Single TKDXLayer::GetImgMarBottom() const { return fOwner->GetVal(fImgMarBottom, true); }
Single TKDXLayer::GetImgMarRight() const { return fOwner->GetVal(fImgMarRight, true); }

/// `aSide` is the label's size in that direction.
void TKDXLayer::SetImgMargin(int& aField, int aBase, int aSide) {
  if (aBase == aField) return;
  aField = aBase > aSide ? aSide / 2 : std::max(aBase, 0);
  fOwner->ContentChanged();
}

void TKDXLayer::SetImgMarLeft(Single aValue) {
  SetImgMargin(fImgMarLeft, fOwner->SetVal(aValue, true), fOwner->fMeasure->fWidth);
}
void TKDXLayer::SetImgMarTop(Single aValue) {
  SetImgMargin(fImgMarTop, fOwner->SetVal(aValue, true), fOwner->fMeasure->fHeight);
}
void TKDXLayer::SetImgMarBottom(Single aValue) {
  SetImgMargin(fImgMarBottom, fOwner->SetVal(aValue, true), fOwner->fMeasure->fHeight);
}
void TKDXLayer::SetImgMarRight(Single aValue) {
  SetImgMargin(fImgMarRight, fOwner->SetVal(aValue, true), fOwner->fMeasure->fWidth);
}

// Binary
// ------------------------------------------------------------------------------------------------------------

void TKDXLayer::Record(TRecord& r) {
  r.String(fName);
  r.UInt32(fColor);
  r.UInt32(fBackColor);
  for (bool* flag : {&fBold, &fItalic, &fUnderline, &fStrikeout}) r.Boolean(*flag);
  r.Int32(fFontHeight);
  r.String(fFontName);
  r.UInt32(fFontColor);
  r.Set32(fOptions);
  r.UInt16(fZPos);
  r.Int32(fPenWidth);
  r.Enum32(fLineType, "LineType");
  r.Boolean(fFill);
  if (fOptions.Has(lopImage)) {
    RecordImage(r);
    RecordBytes(r);
  }
  if (fOptions.Has(lopMap)) {
    RecordImage(r);
    RecordMap(r);
    RecordBytes(r);
  }
}

void TKDXLayer::RecordImage(TRecord& r) {
  r.String(fFileImg);
  r.Boolean(fPrintImg);
  r.Enum16(fImageType, "ImageType");
  r.Boolean(fEmbeded);
  for (int* margin : {&fImgMarLeft, &fImgMarTop, &fImgMarBottom, &fImgMarRight}) r.Int32(*margin);
}

void TKDXLayer::RecordMap(TRecord& r) {
  r.Int16(fZoom);
  r.Enum32(fMapProvider, "Provider");
  for (double* degrees : {&fLatitude, &fLongitude}) {
    r.Double(*degrees);
    if (r.Reading() && !std::isfinite(*degrees)) throw EReadError("Latitude or longitude is no number");
  }
  r.Boolean(fShowMapCenter);
}

/// An image that is not embedded is written as no bytes, and no bytes leave those that the layer has.
void TKDXLayer::RecordBytes(TRecord& r) {
  if (r.Writing() && fEmbeded) return r.Blob(fArrayB);
  std::string bytes;
  r.Blob(bytes);
  if (!bytes.empty()) fArrayB = std::move(bytes);
}

void TKDXLayer::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXLayer*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXLayer::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
}

// JSON
// --------------------------------------------------------------------------------------------------------------

void TKDXLayer::WriteJson(TJsonArray& aArray) const {
  TJsonObject& layer = aArray.AddObject();
  layer.PutString("Name", fName);
  PutColor(layer, "Color", fColor);
  PutColor(layer, "BackColor", fBackColor);
  layer.PutBool("Fill", fFill);
  layer.PutInt("ZPos", fZPos);
  TJsonObject& options = layer.AddNewObject("Options");
  for (const TOptionKey& row : OptionKeys) options.PutBool(row.key, fOptions.Has(row.option));
  if (fOptions.Has(lopImage)) WriteJsonBack(layer.AddNewObject("Image"), false);
  if (fOptions.Has(lopMap)) WriteJsonBack(layer.AddNewObject("Mapping"), true);
  WriteJsonFont(layer.AddNewObject("Font"));
  layer.PutInt("LineType", fLineType);
  PutLength(layer, "PenWidth", GetPenWidth());
}

void TKDXLayer::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fName = aJson.GetString("Name");
  fColor = GetColor(aJson, "Color");
  fBackColor = GetColor(aJson, "BackColor");
  fFill = aJson.GetBool("Fill");
  fZPos = static_cast<std::uint16_t>(GetIntIn(aJson, "ZPos", 0, UINT16_MAX));
  const TJsonObject& options = aJson.GetObject("Options");
  for (const TOptionKey& row : OptionKeys) fOptions.Put(row.option, options.GetBool(row.key));
  if (fOptions.Has(lopImage)) ReadJsonBack(aJson.GetObject("Image"), false);
  if (fOptions.Has(lopMap)) ReadJsonBack(aJson.GetObject("Mapping"), true);
  ReadJsonFont(aJson.GetObject("Font"));
  fLineType = GetEnum<TZOLineType>(aJson, "LineType");
  fPenWidth = GetLength(aJson, "PenWidth", unMM);
}

void TKDXLayer::WriteJsonFont(TJsonObject& aFont) const {
  aFont.PutString("Name", fFontName);
  aFont.PutBool("Bold", fBold);
  aFont.PutBool("Italic", fItalic);
  aFont.PutBool("Underline", fUnderline);
  aFont.PutBool("Strikeout", fStrikeout);
  PutLength(aFont, "FontHeight", GetFontHeight());
  PutColor(aFont, "FontColor", fFontColor);
}

void TKDXLayer::ReadJsonFont(TJsonObject& aFont) {
  fFontName = aFont.GetString("Name");
  fBold = aFont.GetBool("Bold");
  fItalic = aFont.GetBool("Italic");
  fUnderline = aFont.GetBool("Underline");
  fStrikeout = aFont.GetBool("Strikeout");
  fFontHeight = GetLength(aFont, "FontHeight", unMM);
  fFontColor = GetColor(aFont, "FontColor");
}

/// "Image", and with `aMap` "Mapping".
void TKDXLayer::WriteJsonBack(TJsonObject& aJson, bool aMap) const {
  aJson.PutString("File", fFileImg);
  aJson.PutInt("ImageType", fImageType);
  aJson.PutBool("PrintImage", fPrintImg);
  aJson.PutBool("Embeded", fEmbeded);
  if (aMap) {
    aJson.PutInt("Provider", fMapProvider);
    aJson.PutInt("Zoom", fZoom);
    aJson.PutFloat("Latitude", RoundDegrees(fLatitude));
    aJson.PutFloat("Longitude", RoundDegrees(fLongitude));
    aJson.PutBool("ShowMapCenter", fShowMapCenter);
  }
  PutLength(aJson, "ImgMarLeft", GetImgMarLeft());
  PutLength(aJson, "ImgMarTop", GetImgMarTop());
  PutLength(aJson, "ImgMarBottom", GetImgMarBottom());
  PutLength(aJson, "ImgMarRight", GetImgMarRight());
  if (fEmbeded) aJson.PutString("Img", EncodeBase64(fArrayB));
}

void TKDXLayer::ReadJsonBack(const TJsonObject& aJson, bool aMap) {
  fFileImg = aJson.GetString("File");
  fImageType = GetEnum<TZORImgType>(aJson, "ImageType");
  fPrintImg = aJson.GetBool("PrintImage");
  fEmbeded = aJson.GetBool("Embeded");
  if (aMap) {
    fMapProvider = GetEnum<TZORMapProvider>(aJson, "Provider");
    fZoom = static_cast<std::int16_t>(GetIntIn(aJson, "Zoom", INT16_MIN, INT16_MAX));
    fLatitude = aJson.GetFloat("Latitude");
    fLongitude = aJson.GetFloat("Longitude");
    fShowMapCenter = aJson.GetBool("ShowMapCenter");
  }
  const TKDXMeasure& label = *fOwner->fMeasure;
  const auto margin = [&](std::string_view aKey) { return GetLength(aJson, aKey, fOwner->RestrictedUnit()); };
  SetImgMargin(fImgMarLeft, margin("ImgMarLeft"), label.fWidth);
  SetImgMargin(fImgMarTop, margin("ImgMarTop"), label.fHeight);
  SetImgMargin(fImgMarBottom, margin("ImgMarBottom"), label.fHeight);
  SetImgMargin(fImgMarRight, margin("ImgMarRight"), label.fWidth);
  if (fEmbeded) fArrayB = DecodeImage(aJson, "Img");
}

}  // namespace Zor::inline Base
