// Units, conversions, editor mode.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Base {

namespace {

constexpr double InchInMM = 25.4;

/// Dots of a length in a unit that has a resolution of its own; every other unit counts as millimetres.
double ToDots(double aValue, TZORUnits aUnit, int aDpi) {
  switch (aUnit) {
    case unINCH:
      return aValue * aDpi;
    case unCM:
      return aValue * aDpi / 2.54;
    default:
      return aValue * aDpi / InchInMM;
  }
}

double FromDots(double aValue, TZORUnits aUnit, int aDpi) {
  switch (aUnit) {
    case unINCH:
      return aValue / aDpi;
    case unCM:
      return aValue * 2.54 / aDpi;
    default:
      return aValue * InchInMM / aDpi;
  }
}

}  // namespace

void TKDXBaseLabel::SetEditorMode(TZOREditorMode aMode) {
  const TNoticeHold hold(*this);
  const bool changed = aMode != fEditorMode;
  fEditorMode = aMode;
  if (changed) ContentChanged();
  if (changed && !IsTakingValues()) {
    fMeasure->fLabelName = TKDXMsg::GetInfoValue(aMode == emLabelling ? "LabelName" : "DrawingName");
  }
  if (aMode == emLabelling || aMode == emFlowChart) fMeasure->fDrawScale = 1;
  if (aMode != emLabelling) fMeasure->SetContinousPaper(true);
  if (IsTakingValues()) return;
  ChangeValue(chMeasure);
  ChangeValue(chUnits);
}

void TKDXBaseLabel::SetUnits(TZORUnits aUnits) {
  if (aUnits == fUnits) return;
  const TNoticeHold hold(*this);
  fUnits = aUnits;
  ContentChanged();
  if (IsTakingValues()) return;
  if (!IsDrawingMode()) fUnits = RestrictedUnit();
  ChangeValue(chUnits);
  CheckNeedDrawUnits();
}

void TKDXBaseLabel::CheckNeedDrawUnits() {
  bool any = false;
  for (TKDXBaseItem* item : fItems) {
    if (!item->ShowsMeasure()) continue;
    item->CalcValues(1);
    any = true;
  }
  if (any) PaintEditor();
}

void TKDXBaseLabel::SetLngFileName(const std::string& aValue) {
  if (aValue == fLngFileName) return;
  fLngFileName = aValue;
  if (!aValue.empty()) TKDXMsg::LoadResources(aValue);
}

void TKDXBaseLabel::AssignPart(TPersistent& aPart, const TPersistent& aValue) {
  aPart.Assign(aValue);
  ContentChanged();
}

void TKDXBaseLabel::SetBackSurf(const TKDXBackSurf* aValue) {
  if (aValue != nullptr) AssignPart(*fBackSurf, *aValue);
}
void TKDXBaseLabel::SetMeasure(const TKDXMeasure* aValue) {
  if (aValue != nullptr) AssignPart(*fMeasure, *aValue);
}
void TKDXBaseLabel::SetSettings(const TKDXSettings* aValue) {
  if (aValue != nullptr) AssignPart(*fSettings, *aValue);
}

int TKDXBaseLabel::SetVal(Single aValue, bool aRestric) const {
  return HeldBase(aValue, aRestric ? RestrictedUnit() : fUnits);
}

double TKDXBaseLabel::PaperFactor() const { return static_cast<double>(fMeasure->fDrawScale) * BaseInMM; }

Single TKDXBaseLabel::GetValMM(Int64 aBase) const {
  return static_cast<Single>(static_cast<double>(aBase) / PaperFactor());
}

Single TKDXBaseLabel::BaseValue(Single aMM) const {
  return static_cast<Single>(double{aMM} / UnitFacts(fUnits).millimetres);
}

Single TKDXBaseLabel::UnitValue(Single aValue, bool aRestric) const {
  const TZORUnitFacts& facts = UnitFacts(fUnits);
  return aRestric && facts.restricted ? static_cast<Single>(double{aValue} / facts.millimetres) : aValue;
}

Int64 TKDXBaseLabel::BaseMoveInc() const { return MulHeld(fMeasure->fDrawScale, 2000); }

Single TKDXBaseLabel::GetDrawValue(Single aValue, int aDpi) const {
  return static_cast<Single>(ToDots(aValue, fEditorMode == emLabelling ? fUnits : unMM, aDpi));
}
Single TKDXBaseLabel::GetDrawValue(Int64 aBase, int aDpi) const {
  return static_cast<Single>(static_cast<double>(aBase) * aDpi / BaseInInch);
}
int TKDXBaseLabel::GetPrintValue(Single aValue, int aDpi) const {
  return static_cast<int>(Round(ToDots(aValue, fUnits, aDpi)));
}
Int64 TKDXBaseLabel::GetPrintFromBase(Int64 aBase, int aDpi) const {
  return Round(static_cast<double>(aBase) * aDpi / BaseInInch);
}
Single TKDXBaseLabel::GetDataPrintValue(int aValue, int aDpi) const {
  return static_cast<Single>(FromDots(aValue, fUnits, aDpi));
}
Single TKDXBaseLabel::GetDataDrawValue(int aValue, int aDpi) const {
  return static_cast<Single>(FromDots(aValue, fEditorMode == emLabelling ? fUnits : unMM, aDpi));
}

std::string TKDXBaseLabel::GetAbsoluteImagePath() const {
  return IsRelativePath(fImageFolder) ? CombinePath(ProgramFolder(), fImageFolder) : fImageFolder;
}

}  // namespace Zor::inline Base
