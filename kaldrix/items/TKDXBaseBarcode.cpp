#include "kaldrix/items/TKDXBaseBarcode.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/AnsiFields.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/BarcodeReading.hpp"
#include "kaldrix/utils/Gs1.hpp"
#include "kaldrix/utils/ShownCode.hpp"
#include "kaldrix/utils/TBarcode.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Barcode {

namespace {

constexpr TBarSizes Sizes{120, 2000, 300, 10000, 3000, 0, 3.0F};
constexpr int LeastFontHeight = 1000;  // base points

/// How wide a wide element may be.
struct TFactorLimits {
  Single least, most;
};

constexpr TFactorLimits LimitsOf(TZORBarType aType) {
  switch (aType) {
    case btEAN13:
    case btEAN8:
    case btUPCA:
    case btCODE39:
    case btCODE39EX:
    case btINTER_25:
    case btINDUS_25:
      return {2.0F, 3.0F};
    case btMATRIX_25:
      return {2.25F, 3.0F};
    default:
      return {1.0F, 6.0F};
  }
}

}  // namespace

TKDXBaseBarcode::TKDXBaseBarcode(TKDXBaseLabel& aOwner, bool aPreview)
    : TBarItem(aOwner, itBarcode, Sizes, aPreview) {
  UpdateSize();
}

TKDXBaseBarcode::TKDXBaseBarcode(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TBarItem(aOwner, itBarcode, Sizes, aLayer, aPreview) {
  UpdateSize();
}

// Code ----------------------------------------------------------------------------------

std::string TKDXBaseBarcode::GetCode() const { return ToUtf8(fCode); }

template <class T>
void TKDXBaseBarcode::Recode(T& aField, const T& aValue) {
  if (aField == aValue) return;
  const TEdit edit(*this);
  aField = aValue;
  fStale = true;
  StateCalc();
}

void TKDXBaseBarcode::SetCode(const std::string& aValue) { Recode(fCode, ToAnsi(aValue)); }
void TKDXBaseBarcode::SetCheckSum(bool aValue) { Recode(fCheckSum, aValue); }
void TKDXBaseBarcode::SetIgnoreParentheses(bool aValue) { Recode(fIgnoreParentheses, aValue); }
void TKDXBaseBarcode::SetElementString(bool aValue) { Recode(fElementString, aValue); }

void TKDXBaseBarcode::SetCodeType(TZORBarType aValue) {
  if (aValue == fCodeType) return;
  const TEdit edit(*this);
  fCodeType = aValue;
  CheckFactor();
  fStale = true;
  StateCalc();
}

void TKDXBaseBarcode::SetCheckType(TZORCheckType aValue) {
  if (aValue == fCheckType) return;
  const TEdit edit(*this);
  fCheckType = aValue;
  StateModified();
}

void TKDXBaseBarcode::FillData(bool aFirst) {
  if (!HasValue(*fOwner)) return;
  AnsiString value = ToAnsi(Value(*fOwner));
  if (value == fCode && !fStale) return;
  fCode = std::move(value);
  fStale = true;
  if (aFirst) CalcValues(2);
}

std::string TKDXBaseBarcode::ValueProblem() const {
  if (HasValue(*fOwner) && Value(*fOwner) != ToUtf8(fCode)) {
    return ShownText(Value(*fOwner)) + " has characters that a barcode cannot hold";
  }
  const bool padding = fOwner->fPrintInfo->fPadCodes;
  return ReadingOf(fCode.Bytes(), fCodeType, {fCheckSum, fIgnoreParentheses, padding, GetElementString()})
      .problem;
}

// Look ----------------------------------------------------------------------------------

Single TKDXBaseBarcode::HeldFactor(Single aValue) const {
  const TFactorLimits limits = LimitsOf(fCodeType);
  return std::isnan(aValue) ? limits.least : std::clamp(aValue, limits.least, limits.most);
}

void TKDXBaseBarcode::SetFactor(Single aValue) {
  const Single factor = HeldFactor(Finite(aValue));
  if (factor == fFactor) return;
  const TEdit edit(*this);
  Change<TKDXFloatCmd>(fFactor, factor, 2, &TKDXBaseItem::StateUpdate);
  UpdateSize();
}

void TKDXBaseBarcode::SetHorzAlign(TZORHorzAlign aValue) {
  Place(fHorzAlign, aValue == haJustify ? haLeft : aValue);
}

void TKDXBaseBarcode::SetShowNumber(bool aValue) {
  if (aValue == fShowNumber) return;
  const TEdit edit(*this);
  fShowNumber = aValue;
  StateUpdate();
  BarCodeWidth(fDrCode, true);
  UpdatePoints();
}

void TKDXBaseBarcode::SetFontName(const std::string& aValue) { Recode(fFontName, aValue); }
void TKDXBaseBarcode::SetFontHeight(Single aMM) {
  Recode(fFontHeight, std::max(HeldBase(aMM), LeastFontHeight));
}

void TKDXBaseBarcode::SetDistance(Single aMM) {
  const int distance = HeldBase(aMM);
  if (distance == fDistance) return;
  const TEdit edit(*this);
  fDistance = distance;
  StateModified();
}

void TKDXBaseBarcode::SetAngle(TZORAngle aValue) {
  if (aValue == fAngle) return;
  const TEdit edit(*this);
  TBarItem::SetAngle(aValue);
  StateCalc();
}

Single TKDXBaseBarcode::GetDrawValue(Single aValue, int aDpi) const {
  return fOwner->GetDrawValue(aValue, aDpi);
}
int TKDXBaseBarcode::GetPrintValue(Single aValue, int aDpi) const {
  return fOwner->GetPrintValue(aValue, aDpi);
}

// Measuring -----------------------------------------------------------------------------

void TKDXBaseBarcode::SetMeasured(int aAscent, int aDescent, int aPosUnderline, int aLineSize,
                                  double aRatio) {
  fAscent = aAscent;
  fDescent = aDescent;
  fPosUnderline = aPosUnderline;
  fLineSize = aLineSize;
  fRatio = aRatio;
  fIsValid = IsCodeValid();
  fStale = false;
  BarCodeWidth(fDrCode, true);
  UpdatePoints();
}

bool TKDXBaseBarcode::HasElementString() const {
  return GetElementString() && IsGs1Type(fCodeType) && IsGs1Text(fCode.Bytes());
}

bool TKDXBaseBarcode::IsCodeValid() const {
  if (HasElementString()) return Gs1Problem(fCode.Bytes()).empty();
  return TBarcode::IsValidCode(fCode.Bytes(), fCodeType, fCheckSum, fIgnoreParentheses);
}

TKDXBaseBarcode::TEncoded TKDXBaseBarcode::Encoded() const {
  if (HasElementString())
    return {fCode, TBarcode::FillGs1Pattern(Gs1Data(fCode.Bytes()), fCodeType), at128None};
  TEncoded result;
  std::string check;
  result.code = AnsiString(
      TBarcode::PrepareBarcode(fCode.Bytes(), fCodeType, fCheckSum, fIgnoreParentheses, check, result.mode));
  result.pattern = TBarcode::FillBarPattern(result.code.Bytes(), fCodeType, result.mode, fShowNumber);
  return result;
}

int TKDXBaseBarcode::BarCodeWidth(std::string_view aCode, bool aPrepare) {
  if (aPrepare && fIsValid) {
    TEncoded encoded = Encoded();
    fCCode = std::move(encoded.code);
    fDrCode = std::move(encoded.pattern);
    f128Auto = encoded.mode;
    aCode = fDrCode;
  }
  const Int64 bars = TBarcode::BarCodeWidth(aCode, fBarWidth, fFactor, fIsValid);
  fBarCodeWidth = HeldInt(bars + 2 * Int64{fPaddingX});
  return fBarCodeWidth;
}

int TKDXBaseBarcode::BarCodeHeight() const {
  const Int64 text = fShowNumber ? Int64{fAscent} + fDescent : 0;
  return HeldInt(Int64{fBarHeight} + 2 * Int64{fPaddingY} + text);
}

void TKDXBaseBarcode::UpdateSize() {
  BarCodeWidth(fDrCode, false);
  UpdatePoints();
}

void TKDXBaseBarcode::UpdatePoints() {
  fBarCodeHeight = BarCodeHeight();
  TBarItem::UpdatePoints();
}

// Persistence ---------------------------------------------------------------------------

void TKDXBaseBarcode::Record(TRecord& r) {
  TBarItem::Record(r);
  r.Enum32(fCodeType, "CodeType");
  r.Enum32(fCheckType, "CheckType");
  r.Enum32(f128Auto, "AutoType128");
  r.Enum16(fHorzAlign, "HorzAlign");
  for (int* length : {&fBarWidth, &fBarHeight, &fDistance, &fPaddingX, &fPaddingY}) r.Int32(*length);
  r.String(fFontName);
  r.Int32(fFontHeight);
  r.Single(fFactor);
  for (bool* flag : {&fShowNumber, &fCheckSum, &fIgnoreParentheses}) r.Boolean(*flag);
  RecordAnsi(r, fCode);
  r.String(fField);
  r.String(fFormat);
  r.Enum16(fFillType, "FillType");
}

void TKDXBaseBarcode::AfterRead(TZORReadType aReadType) {
  TBarItem::AfterRead(aReadType);
  if (fHorzAlign == haJustify) fHorzAlign = haLeft;
  fFontHeight = std::max(fFontHeight, LeastFontHeight);
  CheckFactor();
  UpdateSize();
  StateCalc();
}

std::unique_ptr<TJsonObject> TKDXBaseBarcode::WriteJson() const {
  auto json = TBarItem::WriteJson();
  json->PutInt("CodeType", fCodeType);
  json->PutInt("CheckType", fCheckType);
  json->PutInt("HorzAlign", fHorzAlign);
  json->PutInt("AutoType128", f128Auto);
  PutHundredths(*json, "BarWidth", GetBarWidth());
  PutHundredths(*json, "BarHeight", GetBarHeight());
  PutHundredths(*json, "Distance", GetDistance());
  PutHundredths(*json, "PaddingX", GetPaddingX());
  PutHundredths(*json, "PaddingY", GetPaddingY());
  PutHundredths(*json, "Factor", fFactor);
  json->PutString("Code", GetCode());
  json->PutBool("IgnoreParentheses", fIgnoreParentheses);
  json->PutBool("CheckSum", fCheckSum);
  json->PutBool("ShowNumber", fShowNumber);
  TJsonObject& font = json->AddNewObject("Font");
  font.Reserve(2);
  font.PutString("Name", fFontName);
  PutLength(font, "FontHeight", GetFontHeight());
  WriteJsonData(*json);
  return json;
}

void TKDXBaseBarcode::ReadJson(int aVersion, TJsonObject& aJson) {
  TBarItem::ReadJson(aVersion, aJson);
  fCodeType = GetEnum<TZORBarType>(aJson, "CodeType");
  fCheckType = GetEnum<TZORCheckType>(aJson, "CheckType");
  fHorzAlign = GetEnum<TZORHorzAlign>(aJson, "HorzAlign");
  f128Auto = GetEnum<TZOR128AutoType>(aJson, "AutoType128");
  fBarWidth = GetLength(aJson, "BarWidth", unMM);
  fBarHeight = GetLength(aJson, "BarHeight", unMM);
  fDistance = GetLength(aJson, "Distance", unMM);
  fPaddingX = GetLength(aJson, "PaddingX", unMM);
  fPaddingY = GetLength(aJson, "PaddingY", unMM);
  fFactor = GetSingle(aJson, "Factor");
  fCode = ToAnsi(aJson.GetString("Code"));
  fIgnoreParentheses = aJson.GetBool("IgnoreParentheses");
  fCheckSum = aJson.GetBool("CheckSum");
  fShowNumber = aJson.GetBool("ShowNumber");
  TJsonObject& font = aJson.GetObject("Font");
  fFontName = font.GetString("Name");
  fFontHeight = GetLength(font, "FontHeight", unMM);
  ReadJsonData(aJson);
  AfterRead(rdNormal);
}

// Drawing -------------------------------------------------------------------------------

TBarcodePlace TKDXBaseBarcode::DrawPlace() const {
  const bool along = fAngle == ag0 || fAngle == ag180;
  const TZORPto anchor = GetPoint(1);
  return {along ? fBoundsRect.GetWidth() : fBoundsRect.GetHeight(),
          fOwner->fMeasure->fDrawScale,
          ExactMM(anchor.bX),
          ExactMM(anchor.bY),
          fPaddingX / BaseInMM,
          fPaddingY / BaseInMM};
}

TBarcodeLayout TKDXBaseBarcode::Layout() const {
  if (!fIsValid) return {};
  const TEncoded encoded = Encoded();
  return LayOutBarcode(*this, DrawPlace(), encoded.code.Bytes(), encoded.pattern);
}

void TKDXBaseBarcode::WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                               bool attrID) const {
  WritePaperSVG(svg, defs, {aExportType, aFactor, attrID});
}

void TKDXBaseBarcode::WritePaperSVG(TSvgList& svg, TSvgList& /*defs*/, const TSvgWriting& aWriting) const {
  if (!fIsValid) return;
  WriteSvgBack(svg, aWriting.type, aWriting.factor);
  const TEncoded encoded = Encoded();
  const TBarcodePlace place = DrawPlace();
  std::optional<double> ascent;
  if (aWriting.text == stPortable) ascent = fAscent / BaseInMM;
  std::string elements = TExSVG::Barcode(*this, fColor, place.length, place.scale, encoded.code,
                                         encoded.pattern, double{aWriting.factor}, place.x, place.y,
                                         place.padX, place.padY, fRatio, aWriting.type, ascent);
  if (!elements.empty()) svg.push_back(std::move(elements));
}

}  // namespace Zor::inline Barcode
