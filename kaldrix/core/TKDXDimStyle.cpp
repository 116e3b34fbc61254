#include "kaldrix/core/TKDXDimStyle.hpp"

#include <algorithm>
#include <tuple>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"

namespace Zor::inline Base {

namespace {

/// Limits of a length, base points.
struct TLimits {
  int least;
  int most;
  int Held(int aBase) const { return std::clamp(aBase, least, most); }
};
constexpr TLimits HeadSizeLimits{500, 10000};
constexpr TLimits PenWidthLimits{100, 2000};
constexpr TLimits FontHeightLimits{800, 15000};
constexpr TLimits DimBreakLimits{0, 10000};
constexpr TLimits ExtGapLimits{0, 15000};
constexpr TLimits ExtSizeLimits{2000, 25000};
constexpr int LeastBehindGap = 1000;  ///< what remains of an extension line behind its gap, base points
constexpr int LeastArrowOpen = 4, MostArrowOpen = 22;  ///< degrees

auto Values(auto& s) {
  return std::tie(s.fName, s.fDimColor, s.fFillColor, s.fExtColor, s.fHeadColor, s.fDimLineType,
                  s.fExtLineType, s.fHeadType, s.fHeadSize, s.fDimPenWidth, s.fExtPenWidth, s.fArrowOpen,
                  s.fBold, s.fItalic, s.fUnderline, s.fStrikeout, s.fTextPos, s.fRadialStyle, s.fFontName,
                  s.fFontHeight, s.fFontColor, s.fDimBreak, s.fDimSpace, s.fExtGap, s.fExtSize, s.fFormat,
                  s.fPrefix, s.fSuffix, s.fUnit, s.fAscent, s.fDescent, s.fChanged);
}

}  // namespace

TKDXDimStyle::TKDXDimStyle(TKDXBaseLabel* aOwner, const std::string& aName, bool aAssignId)
    : fOwner(aOwner), fName(aName), fUnit(aOwner->fUnits) {
  if (aAssignId) AsignId();
  aOwner->fDimStyles.Adopt(this);
  TellOwner();
}

void TKDXDimStyle::Reset() {
  auto* fresh = new TKDXDimStyle(fOwner, TKDXMsg::GetPropValue("Default"));
  Assign(*fresh);
  fOwner->fDimStyles.Delete(fresh);
  fID = 1;
}

void TKDXDimStyle::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXDimStyle*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  Values(*this) = Values(*source);
  TellOwner();
}

void TKDXDimStyle::TellOwner() { fOwner->ContentChanged(); }

void TKDXDimStyle::AsignId() {
  int largest = 0;
  for (const TKDXDimStyle* style : fOwner->fDimStyles) {
    if (style != this) largest = std::max<int>(largest, style->fID);
  }
  if (largest == UINT16_MAX) {
    largest = 0;
    while (IsIdTaken(largest + 1)) ++largest;
  }
  fID = static_cast<std::uint16_t>(largest + 1);
}

bool TKDXDimStyle::IsIdTaken(int aId) const {
  const auto& styles = fOwner->fDimStyles;
  return std::any_of(styles.begin(), styles.end(),
                     [&](const TKDXDimStyle* aStyle) { return aStyle != this && aStyle->fID == aId; });
}

// Properties
// --------------------------------------------------------------------------------------------------------

void TKDXDimStyle::SetArrowOpen(int aValue) {
  Change(fArrowOpen, static_cast<std::int16_t>(std::clamp(aValue, LeastArrowOpen, MostArrowOpen)));
}

void TKDXDimStyle::SetHeadSize(Single aMM) { TakeHeadSize(HeldBase(aMM)); }
void TKDXDimStyle::SetDimPenWidth(Single aMM) { TakeDimPenWidth(HeldBase(aMM)); }
void TKDXDimStyle::SetExtPenWidth(Single aMM) { TakeExtPenWidth(HeldBase(aMM)); }
void TKDXDimStyle::SetFontHeight(Single aMM) { TakeFontHeight(HeldBase(aMM)); }
void TKDXDimStyle::SetDimBreak(Single aMM) { TakeDimBreak(HeldBase(aMM)); }
void TKDXDimStyle::SetDimSpace(Single aMM) { Change(fDimSpace, HeldBase(aMM)); }
void TKDXDimStyle::SetExtGap(Single aMM) { TakeExtGap(HeldBase(aMM)); }
void TKDXDimStyle::SetExtSize(Single aMM) { TakeExtSize(HeldBase(aMM)); }

void TKDXDimStyle::TakeHeadSize(int aBase) { Change(fHeadSize, HeadSizeLimits.Held(aBase)); }
void TKDXDimStyle::TakeDimPenWidth(int aBase) { Change(fDimPenWidth, PenWidthLimits.Held(aBase)); }
void TKDXDimStyle::TakeExtPenWidth(int aBase) { Change(fExtPenWidth, PenWidthLimits.Held(aBase)); }
void TKDXDimStyle::TakeFontHeight(int aBase) { Change(fFontHeight, FontHeightLimits.Held(aBase)); }
void TKDXDimStyle::TakeDimBreak(int aBase) { Change(fDimBreak, DimBreakLimits.Held(aBase)); }

void TKDXDimStyle::TakeExtGap(int aBase) {
  Change(fExtGap, std::max(std::min(ExtGapLimits.Held(aBase), fExtSize - LeastBehindGap), 0));
}

void TKDXDimStyle::TakeExtSize(int aBase) {
  Change(fExtSize, ExtSizeLimits.Held(aBase));
  TakeExtGap(fExtGap);
}

// Binary
// ------------------------------------------------------------------------------------------------------------

void TKDXDimStyle::Record(TRecord& r) {
  r.UInt16(fID);
  r.String(fName);
  for (TAlphaColor* color : {&fDimColor, &fFillColor, &fExtColor, &fHeadColor}) r.UInt32(*color);
  r.Enum16(fDimLineType, "DimLineType");
  r.Enum16(fExtLineType, "ExtLineType");
  r.Enum16(fHeadType, "HeadType");
  r.Int32(fHeadSize);
  r.Int16(fArrowOpen);
  r.Int32(fDimPenWidth);
  r.Int32(fExtPenWidth);
  for (bool* flag : {&fBold, &fItalic, &fUnderline, &fStrikeout}) r.Boolean(*flag);
  r.Int32(fFontHeight);
  r.String(fFontName);
  r.UInt32(fFontColor);
  r.Enum16(fTextPos, "TextPos");
  r.Enum16(fRadialStyle, "RadialStyle");
  for (int* length : {&fDimBreak, &fDimSpace, &fExtSize, &fExtGap}) r.Int32(*length);
  for (std::string* text : {&fFormat, &fPrefix, &fSuffix}) r.String(*text);
  r.Enum16(fUnit, "Unit");
}

void TKDXDimStyle::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXDimStyle*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXDimStyle::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
  fChanged = false;
}

// JSON
// --------------------------------------------------------------------------------------------------------------

void TKDXDimStyle::WriteJson(TJsonArray& aArray) const {
  TJsonObject& style = aArray.AddObject();
  style.PutInt("ID", fID);
  style.PutString("Name", fName);
  PutColor(style, "DimColor", fDimColor);
  PutColor(style, "FillColor", fFillColor);
  PutColor(style, "ExtColor", fExtColor);
  PutColor(style, "HeadColor", fHeadColor);
  style.PutInt("DimLineType", fDimLineType);
  PutLength(style, "DimPenWidth", GetDimPenWidth());
  style.PutInt("ExtLineType", fExtLineType);
  PutLength(style, "ExtPenWidth", GetExtPenWidth());
  style.PutInt("HeadType", fHeadType);
  PutLength(style, "HeadSize", GetHeadSize());
  style.PutInt("ArrowOpen", fArrowOpen);
  WriteJsonFont(style);
  style.PutInt("TextPos", fTextPos);
  style.PutInt("RadialStyle", fRadialStyle);
  PutLength(style, "DimBreak", GetDimBreak());
  PutLength(style, "DimSpace", GetDimSpace());
  PutLength(style, "ExtSize", GetExtSize());
  PutLength(style, "ExtGap", GetExtGap());
  style.PutString("Format", fFormat);
  style.PutString("Prefix", fPrefix);
  style.PutString("Suffix", fSuffix);
  style.PutInt("Unit", fUnit);
}

void TKDXDimStyle::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fID = static_cast<std::uint16_t>(GetIntIn(aJson, "ID", 0, UINT16_MAX));
  fName = aJson.GetString("Name");
  fDimColor = GetColor(aJson, "DimColor");
  fFillColor = GetColor(aJson, "FillColor");
  fExtColor = GetColor(aJson, "ExtColor");
  fHeadColor = GetColor(aJson, "HeadColor");
  fDimLineType = GetEnum<TZOLineType>(aJson, "DimLineType");
  TakeDimPenWidth(GetLength(aJson, "DimPenWidth", unMM));
  fExtLineType = GetEnum<TZOLineType>(aJson, "ExtLineType");
  TakeExtPenWidth(GetLength(aJson, "ExtPenWidth", unMM));
  fHeadType = GetEnum<TZORTermType>(aJson, "HeadType");
  TakeHeadSize(GetLength(aJson, "HeadSize", unMM));
  SetArrowOpen(aJson.GetInt("ArrowOpen"));
  ReadJsonFont(aJson.GetObject("Font"));
  fTextPos = GetEnum<TZORTextPos>(aJson, "TextPos");
  fRadialStyle = GetEnum<TZORRadialStyle>(aJson, "RadialStyle");
  TakeDimBreak(GetLength(aJson, "DimBreak", unMM));
  fDimSpace = GetLength(aJson, "DimSpace", unMM);
  TakeExtSize(GetLength(aJson, "ExtSize", unMM));
  TakeExtGap(GetLength(aJson, "ExtGap", unMM));
  fFormat = aJson.GetString("Format");
  fPrefix = aJson.GetString("Prefix");
  fSuffix = aJson.GetString("Suffix");
  fUnit = GetEnum<TZORUnits>(aJson, "Unit");
  fChanged = false;
}

void TKDXDimStyle::WriteJsonFont(TJsonObject& aJson) const {
  TJsonObject& font = aJson.AddNewObject("Font");
  font.PutString("Name", fFontName);
  font.PutBool("Bold", fBold);
  font.PutBool("Italic", fItalic);
  font.PutBool("Underline", fUnderline);
  font.PutBool("Strikeout", fStrikeout);
  PutLength(font, "FontHeight", GetFontHeight());
  PutColor(font, "FontColor", fFontColor);
}

void TKDXDimStyle::ReadJsonFont(TJsonObject& aFont) {
  fFontName = aFont.GetString("Name");
  fBold = aFont.GetBool("Bold");
  fItalic = aFont.GetBool("Italic");
  fUnderline = aFont.GetBool("Underline");
  fStrikeout = aFont.GetBool("Strikeout");
  TakeFontHeight(GetLength(aFont, "FontHeight", unMM));
  fFontColor = GetColor(aFont, "FontColor");
}

}  // namespace Zor::inline Base
