#include "kaldrix/items/TFontFields.hpp"

#include "kaldrix/core/JsonFields.hpp"

namespace Zor::inline Text {

void TFontFields::RecordFont(TRecord& r) {
  for (bool* style : {&fBold, &fItalic, &fUnderline, &fStrikeout}) r.Boolean(*style);
  r.String(fFontName);
  r.UInt32(fFontColor);
}

void TFontFields::WriteJsonFont(TJsonObject& aJson) const {
  TJsonObject& font = aJson.AddNewObject("Font");
  font.Reserve(7);
  font.PutString("Name", fFontName);
  font.PutBool("Bold", fBold);
  font.PutBool("Italic", fItalic);
  font.PutBool("Underline", fUnderline);
  font.PutBool("Strikeout", fStrikeout);
  PutLength(font, "FontHeight", GetBaseValue(fFontHeight));
  PutColor(font, "FontColor", fFontColor);
}

void TFontFields::ReadJsonFont(TJsonObject& aJson) {
  TJsonObject& font = aJson.GetObject("Font");
  fFontName = font.GetString("Name");
  fBold = font.GetBool("Bold");
  fItalic = font.GetBool("Italic");
  fUnderline = font.GetBool("Underline");
  fStrikeout = font.GetBool("Strikeout");
  fFontHeight = GetLength(font, "FontHeight", unMM);
  fFontColor = GetColor(font, "FontColor");
}

}  // namespace Zor::inline Text
