#include "kaldrix/items/TKDXBaseFlow.hpp"

#include <algorithm>
#include <cmath>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/items/FlowPositions.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline F2d {

namespace {

constexpr int StartFontHeight = 5000;  // base points
/// How far outside the bounds the end of a link is caught, base points.
constexpr Int64 LinkReach = 1000;

TZORRect BoxAround(const TZORBase& aCentre, Int64 aHalfWidth, Int64 aHalfHeight) {
  TZORRect box{aCentre.X, aCentre.Y, aCentre.X, aCentre.Y};
  box.Inflate(aHalfWidth, aHalfHeight);
  return box;
}

}  // namespace

TKDXBaseFlow::TKDXBaseFlow(TKDXBaseLabel& aOwner, bool aPreview)
    : TStyledItem(aOwner, itFlow, aPreview), TFontFields(StartFontHeight) {}

TKDXBaseFlow::TKDXBaseFlow(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview)
    : TStyledItem(aOwner, itFlow, aLayer, aPreview), TFontFields(StartFontHeight) {}

// Properties ------------------------------------------------------------------------

void TKDXBaseFlow::SetFlowType(TZORFlowType aValue) {
  if (aValue == fFlowType) return;
  const TEdit edit(*this);
  fFlowType = aValue;
  UpdateBounds();  // The links of the node end in other places.
  StateCalc();
}

void TKDXBaseFlow::SetShadowDX(Single aMM) { Lay(fShadowDX, HeldBase(aMM)); }
void TKDXBaseFlow::SetShadowDY(Single aMM) { Lay(fShadowDY, HeldBase(aMM)); }
void TKDXBaseFlow::SetPaddingX(Single aMM) { Lay(fPaddingX, std::max(HeldBase(aMM), 0)); }
void TKDXBaseFlow::SetPaddingY(Single aMM) { Lay(fPaddingY, std::max(HeldBase(aMM), 0)); }
void TKDXBaseFlow::SetFontHeight(Single aMM) { Lay(fFontHeight, std::max(HeldBase(aMM), LeastFontHeight)); }
// Positions in the text are those of characters, so it has to consist of them.
void TKDXBaseFlow::SetText(const std::string& aValue) { Lay(fText, Utf8::Repaired(aValue)); }

void TKDXBaseFlow::SetScaleX(Single aValue) {
  const Single interline = HeldInterline(Finite(aValue));
  if (interline == fInterline) return;
  const TEdit edit(*this);
  fChanged = true;
  Lay(fInterline, interline);
}

Single TKDXBaseFlow::HeldInterline(Single aValue) {
  constexpr Single least = 0.2F, most = 4;
  if (aValue >= most) return most;
  return aValue > least ? aValue : least;
}

void TKDXBaseFlow::SetFontName(const std::string& aValue) {
  Change<TKDXTxtCmd>(fFontName, aValue, 1, &TKDXBaseItem::StateCalc);
}
void TKDXBaseFlow::SetBold(bool aValue) { Change<TKDXBoolCmd>(fBold, aValue, 2, &TKDXBaseItem::StateCalc); }
void TKDXBaseFlow::SetItalic(bool aValue) {
  Change<TKDXBoolCmd>(fItalic, aValue, 3, &TKDXBaseItem::StateCalc);
}
void TKDXBaseFlow::SetUnderline(bool aValue) { Change<TKDXBoolCmd>(fUnderline, aValue, 4); }
void TKDXBaseFlow::SetFontColor(TAlphaColor aValue) { Change<TKDXColorCmd>(fFontColor, aValue, 3); }

// Lines -----------------------------------------------------------------------------

std::vector<std::string> TKDXBaseFlow::LineTexts() const {
  const std::u32string text = Utf8::ToUtf32(fText);
  const auto length = static_cast<Int64>(text.size());
  // Lines of a file may overlap; without a limit a small file could ask for a huge drawing.
  constexpr Int64 overlap = 256;
  Int64 left = 2 * length + overlap;
  std::vector<std::string> lines;
  lines.reserve(aTxtPoints.size());
  for (const TZORTxtInf& line : aTxtPoints) {
    const Int64 from = std::clamp<Int64>(Int64{line.txF} - 1, 0, length);
    const Int64 count = std::clamp<Int64>(line.txT, 0, std::min(length - from, left));
    left -= count;
    lines.push_back(Utf8::FromUtf32(
        std::u32string_view(text).substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count))));
    std::erase(lines.back(), '\r');
  }
  return lines;
}

// Links -----------------------------------------------------------------------------

TZORBase TKDXBaseFlow::LinkPoint(std::uint16_t aPos) const {
  TZORBase point = CenterPoint();
  FlowPosition(fFlowType, fBoundsRect, aPos, point);
  return point;
}

bool TKDXBaseFlow::CheckLink(Int64 bx, Int64 by, TZOLink& aLink) const {
  TZORRect around = fBoundsRect;
  around.Inflate(LinkReach, LinkReach);
  if (!around.Contains(bx, by)) return false;
  for (const std::uint8_t pos : FlowOffers(fFlowType)) {
    const TZORBase point = LinkPoint(pos);
    // The corners of a decision catch further, as nothing else lies near them.
    const Int64 times = fFlowType == ftDecision && (pos == 3 || pos == 7 || pos == 11 || pos == 15) ? 2 : 1;
    const TZORRect box =
        BoxAround(point, fBoundsRect.GetWidth() / 8 * times, fBoundsRect.GetHeight() / 8 * times);
    if (!box.Contains(bx, by)) continue;
    aLink.ID = fInID;
    aLink.draw = true;
    aLink.SetPos(pos);
    aLink.bX = static_cast<int>(point.X);
    aLink.bY = static_cast<int>(point.Y);
    return true;
  }
  return false;
}

TZORBase TKDXBaseFlow::CenterPoint() const {
  return {AddHeld(fBoundsRect.Left, fBoundsRect.GetWidth() / 2),
          AddHeld(fBoundsRect.Top, fBoundsRect.GetHeight() / 2)};
}

// Persistence -----------------------------------------------------------------------

void TKDXBaseFlow::Record(TRecord& r) {
  TKDX2DItem::Record(r);
  r.Enum16(fFlowType, "FlowType");
  RecordLineType(r);
  r.Enum16(fHorzAlign, "HorzAlign");
  r.Enum16(fVertAlign, "VertAlign");
  r.Int32(fPaddingX);
  r.Int32(fPaddingY);
  r.UInt32(fShadowColor);
  r.Int32(fShadowDX);
  r.Int32(fShadowDY);
  r.Enum16(fGradient, "Gradient");
  r.UInt32(fGradColor);
  r.Int32(fFontHeight);
  RecordFont(r);
  r.Single(fInterline);
  if (r.Reading() && !std::isfinite(fInterline)) throw EReadError("Interline is no number");
  r.String(fText);
  constexpr std::size_t bytesOfLine = 24;
  aTxtPoints.resize(static_cast<std::size_t>(r.Count(aTxtPoints.size(), bytesOfLine)));
  for (TZORTxtInf& line : aTxtPoints) {
    r.Int32(line.txF);
    r.Int32(line.txT);
    r.Int64(line.bX);
    r.Int64(line.bY);
  }
}

void TKDXBaseFlow::AfterRead(TZORReadType aReadType) {
  TStyledItem::AfterRead(aReadType);
  fFontHeight = std::max(fFontHeight, LeastFontHeight);
  fInterline = HeldInterline(fInterline);
  for (int* padding : {&fPaddingX, &fPaddingY}) *padding = std::max(*padding, 0);
  UpdateBounds();
  StateCalc();
}

std::unique_ptr<TJsonObject> TKDXBaseFlow::WriteJson() const {
  auto json = TKDX2DItem::WriteJson();
  json->PutInt("FlowType", fFlowType);
  WriteLineType(*json);
  json->PutInt("HorzAlign", fHorzAlign);
  json->PutInt("VertAlign", fVertAlign);
  // Intended: written in document units, read as millimetres.
  PutLength(*json, "PaddingX", fOwner->GetVal(fPaddingX, false));
  PutLength(*json, "PaddingY", fOwner->GetVal(fPaddingY, false));
  PutColor(*json, "ShadowColor", fShadowColor);
  PutLength(*json, "ShadowDX", GetShadowDX());
  PutLength(*json, "ShadowDY", GetShadowDY());
  json->PutInt("Gradient", fGradient);
  PutColor(*json, "GradColor", fGradColor);
  WriteJsonFont(*json);
  PutLength(*json, "Interline", fInterline);
  json->PutString("Text", fText);
  TJsonArray& lines = json->AddNewArray("TextPos");
  lines.Reserve(static_cast<int>(aTxtPoints.size()));
  for (const TZORTxtInf& line : aTxtPoints) {
    TJsonObject& object = lines.AddObject();
    object.PutInt("FromPos", line.txF);
    object.PutInt("ToPos", line.txT);
    object.PutLong("BaseX", line.bX);
    object.PutLong("BaseY", line.bY);
  }
  return json;
}

void TKDXBaseFlow::ReadJson(int aVersion, TJsonObject& aJson) {
  TKDX2DItem::ReadJson(aVersion, aJson);
  fFlowType = GetEnum<TZORFlowType>(aJson, "FlowType");
  ReadLineType(aJson);
  fHorzAlign = GetEnum<TZORHorzAlign>(aJson, "HorzAlign");
  fVertAlign = GetEnum<TZORVertAlign>(aJson, "VertAlign");
  fPaddingX = GetLength(aJson, "PaddingX", unMM);
  fPaddingY = GetLength(aJson, "PaddingY", unMM);
  fShadowColor = Base::GetColor(aJson, "ShadowColor");
  fShadowDX = GetLength(aJson, "ShadowDX", unMM);
  fShadowDY = GetLength(aJson, "ShadowDY", unMM);
  fGradient = GetEnum<TZORGradient>(aJson, "Gradient");
  fGradColor = Base::GetColor(aJson, "GradColor");
  ReadJsonFont(aJson);
  fInterline = GetSingle(aJson, "Interline");
  fText = aJson.GetString("Text");
  TJsonArray& lines = aJson.GetArray("TextPos");
  aTxtPoints.clear();
  aTxtPoints.reserve(static_cast<std::size_t>(lines.Count()));
  for (int i = 0; i < lines.Count(); ++i) {
    const TJsonObject& line = lines.GetObject(i);
    aTxtPoints.push_back(
        {line.GetInt("FromPos"), line.GetInt("ToPos"), line.GetLong("BaseX"), line.GetLong("BaseY")});
  }
  AfterRead(rdNormal);
}

}  // namespace Zor::inline F2d
