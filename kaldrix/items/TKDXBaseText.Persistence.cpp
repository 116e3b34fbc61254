// The record and JSON object of a text.
#include "kaldrix/items/TKDXBaseText.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Text {

void TKDXBaseText::Record(TRecord& r) {
  TKDXBaseItem::Record(r);
  for (int* length : {&fFontHeight, &fRadio, &fDispWidth, &fPaddingX, &fPaddingY}) r.Int32(*length);
  r.Single(fScaleX);
  if (r.Reading() && !std::isfinite(fScaleX)) throw EReadError("ScaleX is no number");
  RecordFont(r);
  r.UInt32(fBackColor);
  r.Boolean(fFill);
  for (std::string* text : {&fText, &fField, &fFormat}) r.String(*text);
  r.Enum16(fFillType, "FillType");
  r.Enum16(fHorzAlign, "HorzAlign");
  r.Enum16(fVertAlign, "VertAlign");
}

void TKDXBaseText::AfterRead(TZORReadType aReadType) {
  TKDXBaseItem::AfterRead(aReadType);
  fFontHeight = std::max(fFontHeight, LeastFontHeight);
  fScaleX = HeldScale(fScaleX);
  for (int* length : {&fRadio, &fPaddingX, &fPaddingY}) *length = std::max(*length, 0);
  UpdateBinding();
  StateCalc();
}

std::unique_ptr<TJsonObject> TKDXBaseText::WriteJson() const {
  auto json = TKDXBaseItem::WriteJson();
  json->PutInt("HorzAlign", fHorzAlign);
  json->PutInt("VertAlign", fVertAlign);
  json->PutInt("DispWidth", fDispWidth);
  PutHundredths(*json, "ScaleX", fScaleX);
  WriteJsonFont(*json);
  PutLength(*json, "Radio", GetRadio());
  PutLength(*json, "PaddingX", GetPaddingX());
  PutLength(*json, "PaddingY", GetPaddingY());
  json->PutBool("Filled", fFill);
  PutColor(*json, "BackColor", fBackColor);
  json->PutString("Text", fText);
  WriteJsonData(*json);
  return json;
}

void TKDXBaseText::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDXBaseItem::ReadJson(aVersion, aJson);
  fHorzAlign = GetEnum<TZORHorzAlign>(aJson, "HorzAlign");
  fVertAlign = GetEnum<TZORVertAlign>(aJson, "VertAlign");
  fDispWidth = aJson.GetInt("DispWidth");
  fScaleX = GetSingle(aJson, "ScaleX");
  ReadJsonFont(aJson);
  fRadio = GetLength(aJson, "Radio", unMM);
  fPaddingX = GetLength(aJson, "PaddingX", unMM);
  fPaddingY = GetLength(aJson, "PaddingY", unMM);
  fFill = aJson.GetBool("Filled");
  fBackColor = Base::GetColor(aJson, "BackColor");
  fText = aJson.GetString("Text");
  ReadJsonData(aJson);
  AfterRead(rdNormal);
  UpdateBounds();
}

}  // namespace Zor::inline Text
