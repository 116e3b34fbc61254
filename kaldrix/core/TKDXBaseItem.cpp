#include "kaldrix/core/TKDXBaseItem.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <utility>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Utf8.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Base {

TKDXBaseItem::TKDXBaseItem(TKDXBaseLabel& aOwner, TZORItemType aType, bool aPreview)
    : fLayer(aOwner.LayerAt(0)), fOwner(&aOwner), fItemType(aType) {
  Enter(aPreview);
}

TKDXBaseItem::TKDXBaseItem(TKDXBaseLabel& aOwner, TZORItemType aType, TKDXLayer& aLayer, bool aPreview)
    : TKDXBaseItem(aOwner, aType, aPreview) {
  aOwner.CheckOwn(aLayer);
  fLayer = &aLayer;
}

TKDXBaseItem::~TKDXBaseItem() {
  if (fListed) fOwner->Unmake(*this);
}

void TKDXBaseItem::Enter(bool aPreview) {
  if (!fOwner->fStates.HasAny({lsReading, lsPaste})) fInID = fOwner->NextID();
  fID = StartName(fItemType, fInID);
  fFromPreview = aPreview;
  fPoints.resize(static_cast<std::size_t>(NumPointsItem(fItemType)));
  fOwner->Enlist(*this, aPreview);
  TKDXCreateCmd::AddCommand(*this);
}

const char* TKDXBaseItem::ClassName() const { return NameItem(fItemType).data(); }

bool TKDXBaseItem::Shows(TZOLayerOp aOption) const {
  return fOptions.Has(aOption) && fLayer->fOptions.Has(aOption);
}

std::string TKDXBaseItem::StartName(TZORItemType aType, int aInID) {
  std::array<char, 12> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), aInID).ptr;
  const auto count = static_cast<std::size_t>(end - digits.begin());
  std::string name(NameItem(aType));
  if (count < 3) name.append(3 - count, '0');
  name.append(digits.data(), count);
  return name;
}

// Properties --------------------------------------------------

void TKDXBaseItem::SetID(const std::string& aValue) {
  if (fID == aValue) return;
  const std::string_view name = Trim(aValue);
  if (fOwner->fOptions.Has(loUniqueID) && fOwner->RepeatID(name, this)) {
    throw Exception(TKDXMsg::GetErrorValue("RepeatID"));
  }
  const TEdit edit(*this);
  StateModified();
  fOwner->Rename(*this, std::string(name));
}

void TKDXBaseItem::SetColor(TAlphaColor aValue) {
  Change<TKDXColorCmd>(fColor, aValue, 0, &TKDXBaseItem::StateUpdate);
}

Single TKDXBaseItem::GetPenWidth() const { return GetBaseValue(fPenWidth); }

void TKDXBaseItem::SetPenWidth(Single aMM) { Change<TKDXBaseValueCmd>(fPenWidth, HeldBase(aMM), 0); }

void TKDXBaseItem::SetAngle(TZORAngle aValue) {
  Change<TKDXEnumValueCmd>(fAngle, aValue, 20, &TKDXBaseItem::StateUpdate);
}

void TKDXBaseItem::SetLayer(TKDXLayer& aLayer) {
  if (&aLayer == fLayer) return fOwner->FollowLayer(*this);
  fOwner->CheckOwn(aLayer);
  const TEdit edit(*this);
  fLayer = &aLayer;
  fOwner->FollowLayer(*this);
}

void TKDXBaseItem::SetOptions(TZOLayerOpts aValue) { Keep(fOptions, aValue); }

// Points --------------------------------------------------

TZORPto TKDXBaseItem::GetPoint(int aIndex) const {
  return HasPoint(aIndex) ? fPoints[static_cast<std::size_t>(aIndex - 1)] : TZORPto{};
}
Single TKDXBaseItem::GetPointX(int aIndex) const { return GetPoint(aIndex).GetX(fOwner->fUnits); }
Single TKDXBaseItem::GetPointY(int aIndex) const { return GetPoint(aIndex).GetY(fOwner->fUnits); }
Single TKDXBaseItem::GetPointMMX(int aIndex) const { return FromBase(GetPoint(aIndex).bX); }
Single TKDXBaseItem::GetPointMMY(int aIndex) const { return FromBase(GetPoint(aIndex).bY); }

void TKDXBaseItem::SetPointX(int aIndex, Single aValue) {
  if (!HasPoint(aIndex) || GetPointX(aIndex) == aValue) return;
  const Int64 place = HeldPlace(aValue, fOwner->fUnits);
  const TEdit edit(*this);
  fOwner->AddState(lsUpdate);
  TKDXPosCmd::AddCommand(*this, aIndex, ptX);
  fPoints[static_cast<std::size_t>(aIndex - 1)].bX = place;
  UpdateAfterPoint();
}

void TKDXBaseItem::SetPointY(int aIndex, Single aValue) {
  if (!HasPoint(aIndex) || GetPointY(aIndex) == aValue) return;
  const Int64 place = HeldPlace(aValue, fOwner->fUnits);
  const TEdit edit(*this);
  fOwner->AddState(lsUpdate);
  TKDXPosCmd::AddCommand(*this, aIndex, ptY);
  fPoints[static_cast<std::size_t>(aIndex - 1)].bY = place;
  UpdateAfterPoint();
}

void TKDXBaseItem::UpdateAfterPoint() {
  if (fOwner->IsReading()) return;
  switch (fItemType) {
    case itBarcode:
    case itPDF417:
    case itDataMatrix:
    case itQRCode:
    case itTable:
    case itPolyText:
      return UpdatePoints();
    default:
      return UpdateBounds();
  }
}

void TKDXBaseItem::SetPoint(int aIndex, const TZORPto& aPoint) {
  if (!HasPoint(aIndex) || GetPoint(aIndex) == aPoint) return;
  const TEdit edit(*this);
  fPoints[static_cast<std::size_t>(aIndex - 1)] = aPoint;
}
void TKDXBaseItem::SetBase(int aIndex, Int64 x, Int64 y) { SetPoint(aIndex, {x, y}); }
void TKDXBaseItem::SetBaseX(int aIndex, Int64 x) { SetPoint(aIndex, {x, GetPoint(aIndex).bY}); }
void TKDXBaseItem::SetBaseY(int aIndex, Int64 y) { SetPoint(aIndex, {GetPoint(aIndex).bX, y}); }

void TKDXBaseItem::AssignPoints(const TZORPtoA& aPoints, int aHigh) {
  const std::size_t count =
      std::min({aPoints.size(), fPoints.size(), static_cast<std::size_t>(std::max(aHigh + 1, 0))});
  const TEdit edit(*this);
  std::copy_n(aPoints.begin(), count, fPoints.begin());
  UpdateBounds();
}

bool TKDXBaseItem::DeletePoint(int aIndex) {
  if (!HasFreePoints(fItemType) || !HasPoint(aIndex)) return false;
  const TEdit edit(*this);
  fPoints.erase(fPoints.begin() + (aIndex - 1));
  return true;
}

// Conversions --------------------------------------------------

Single TKDXBaseItem::FromBase(Int64 aBase) const { return fOwner->GetValMM(aBase); }

Single TKDXBaseItem::XFromBaseAngle(Int64 aBase, Int64 aRadius, double aAngle) const {
  const double x = static_cast<double>(aBase) + static_cast<double>(aRadius) * std::cos(aAngle);
  return static_cast<Single>(x / fOwner->PaperFactor());
}
Single TKDXBaseItem::YFromBaseAngle(Int64 aBase, Int64 aRadius, double aAngle) const {
  const double y = static_cast<double>(aBase) + static_cast<double>(aRadius) * std::sin(aAngle);
  return static_cast<Single>(y / fOwner->PaperFactor());
}

// Drawing --------------------------------------------------

void TKDXBaseItem::DrawElement(TKDXBaseDraw& drw) {
  const bool onSheet = drw.fState == dsPreview || drw.fState == dsExport;
  onSheet&& GetIsData() ? DrawPreview(drw) : DrawItem(drw);
}

void TKDXBaseItem::DrawPreview(TKDXBaseDraw& drw) {
  for (TKDXBaseItem* copy : fOwner->fPreview) {
    if (copy->fInID == fInID && copy->aRow == drw.aRow && copy->aCol == drw.aCol) copy->DrawItem(drw);
  }
}

void TKDXBaseItem::PrintElement(TKDXBaseDraw& drw) { PrintItem(drw); }

void TKDXBaseItem::PreviewPos(int aColumn, int aRowOnSheet) {
  aCol = static_cast<std::int16_t>(aColumn);
  aRow = static_cast<std::int16_t>(aRowOnSheet);
}

// Reports --------------------------------------------------

TKDXBaseItem::TEdit::TEdit(TKDXBaseItem& aItem) : fItem(aItem), fExceptions(std::uncaught_exceptions()) {
  aItem.fOwner->fNotices.Hold();
}

TKDXBaseItem::TEdit::~TEdit() noexcept(false) {
  TNotices& notices = fItem.fOwner->fNotices;
  notices.Release();
  if (fItem.fFromPreview) return;
  try {
    fItem.fOwner->ItemChanged(fItem);
  } catch (...) {
    if (std::uncaught_exceptions() == fExceptions) throw;
    // The exception that ends the change is on its way.
  }
}

void TKDXBaseItem::StateModified() { fOwner->ChangeState(lsModified, this); }
void TKDXBaseItem::StateUpdate() { fOwner->ChangeState(Shows(lopVisible) ? lsUpdate : lsModified, this); }
void TKDXBaseItem::StateCalc() { fOwner->ChangeState(Shows(lopVisible) ? lsCalc : lsCalcNoUpdate, this); }
void TKDXBaseItem::NotifyUpdate(TZOChange aChange) { fOwner->ChangeValue(aChange); }

// Bounds --------------------------------------------------

namespace {

TZORRect Spanned(const TZORPto& a, const TZORPto& b) { return {a.bX, a.bY, b.bX, b.bY}; }

/// Minimum and maximum of all points, where -1 stands for not set yet on the left and top.
TZORRect Extent(const TZORPtoA& aPoints) {
  TZORRect bounds = TZORRect::EmptyRect();
  for (const TZORPto& point : aPoints) {
    if (bounds.Left == -1 || point.bX < bounds.Left) bounds.Left = point.bX;
    if (bounds.Top == -1 || point.bY < bounds.Top) bounds.Top = point.bY;
    bounds.Right = std::max(bounds.Right, point.bX);
    bounds.Bottom = std::max(bounds.Bottom, point.bY);
  }
  return bounds;
}

}  // namespace

void TKDXBaseItem::UpdateBounds() {
  if (fItemType == itText) {
    // A text makes its bounds from its measured size.
  } else if (NumPoints() == 2 || fItemType == itArrowLine) {
    fBoundsRect = Spanned(GetPoint(1), GetPoint(2));
  } else if (fItemType == itDim) {
    fBoundsRect = Spanned(GetPoint(5), GetPoint(6));
  } else {
    fBoundsRect = Extent(fPoints);
  }
  fBoundsRect.NormalizeRect();
  if (CarriesLinks(fItemType)) fOwner->NodeMoved();
}

void TKDXBaseItem::CheckPosition() {
  if (fPoints.size() != 2) return;
  if (fPoints[0].bX > fPoints[1].bX) std::swap(fPoints[0].bX, fPoints[1].bX);
  if (fPoints[0].bY > fPoints[1].bY) std::swap(fPoints[0].bY, fPoints[1].bY);
}

void TKDXBaseItem::NormalizePoints() {
  switch (fItemType) {
    case itLine:
    case itArrowLine:
    case itText:
    case itPolyText:
    case itDim:
    case itPolyLine:
    case itPolygon:
    case itBezier:
      return;  // The order of their points has a meaning.
    default:
      CheckPosition();
  }
}

void TKDXBaseItem::CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const {
  const auto widen = [half = fPenWidth / 2](Int64 aValue, Int64& aMin, Int64& aMax) {
    if (aMin == -1 || aValue - half < aMin) aMin = aValue - half;
    if (aMax == -1 || aValue + half > aMax) aMax = aValue + half;
  };
  for (const TZORPto& point : fPoints) {
    widen(point.bX, aMinX, aMaxX);
    widen(point.bY, aMinY, aMaxY);
  }
}

std::string TKDXBaseItem::GetSVGID(bool aAttr) const {
  if (!aAttr) return {};
  std::string id = " id=\"";
  for (const char c : TExSVG::ScapeText(fID)) {
    if (c != ' ') id += c;
  }
  return id += "\" ";
}

}  // namespace Zor::inline Base
