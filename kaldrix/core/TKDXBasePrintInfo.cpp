#include "kaldrix/core/TKDXBasePrintInfo.hpp"

#include <algorithm>
#include <limits>
#include <tuple>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"

namespace Zor::inline Base {

namespace {

auto Values(auto& aInfo) {
  return std::tie(aInfo.fFirstRow, aInfo.fFirstCol, aInfo.fFirstLab, aInfo.fColor, aInfo.fLastLab,
                  aInfo.fLabs, aInfo.fRepetition, aInfo.fOrient, aInfo.fPrinterIndex, aInfo.fCopies);
}

/// A file may give any number of rows and columns; their product is held inside 32 bits.
int HeldCount(Int64 aCount) {
  return static_cast<int>(std::min<Int64>(aCount, std::numeric_limits<int>::max()));
}

}  // namespace

void TKDXBasePrintInfo::Assign(const TPersistent& aSource) {
  const auto* source = dynamic_cast<const TKDXBasePrintInfo*>(&aSource);
  if (source == nullptr) return TPersistent::Assign(aSource);
  Values(*this) = Values(*source);
}

int TKDXBasePrintInfo::LabelsPerPage() const {
  const TKDXMeasure& measure = *fOwner->fMeasure;
  return HeldCount(Int64{measure.fNuHor} * measure.fNuVer);
}

int TKDXBasePrintInfo::FirstPageLabels() const {
  if (fFirstRow == 1 && fFirstCol == 1) return LabelsPerPage();
  const Int64 rows = fOwner->fMeasure->fNuHor, columns = fOwner->fMeasure->fNuVer;
  if (rows == 1 && columns == 1) return 1;
  return HeldCount((rows - fFirstRow) * columns + (columns - fFirstCol) + 1);
}

Int64 TKDXBasePrintInfo::LabelBehind(int aLabel) const {
  const int next = fOnly.IsEmpty() ? 0 : fOnly.Behind(aLabel);
  return next > 0 ? next : Int64{aLabel} + 1;
}

bool TKDXBasePrintInfo::CountersRun() const {
  return fFillType == ftCounter || fFillType == ftFieldCount || fFillType == ftJsonCount ||
         fFillType == ftCsvCount;
}

// What is printed
// ---------------------------------------------------------------------------------------------------

void TKDXBasePrintInfo::SetFirstLab(int aValue) {
  fFirstLab = std::max(aValue, 1);
  fLastLab = std::max(fLastLab, fFirstLab);
}

void TKDXBasePrintInfo::SetLastLab(int aValue) {
  fLastLab = std::max(aValue, 1);
  fFirstLab = std::min(fFirstLab, fLastLab);
}

void TKDXBasePrintInfo::SetLabs(int aValue) {
  const int labels = std::max(aValue, 1);
  if (labels == fLabs) return;
  fLabs = labels;
  fOwner->ContentChanged();
}

void TKDXBasePrintInfo::SetRepetition(int aValue) {
  fRepetition = std::max(aValue, 1);
  fOwner->ContentChanged();
}

void TKDXBasePrintInfo::SetFirstRow(int aValue) {
  fFirstRow = std::max(std::min(aValue, fOwner->fMeasure->fNuHor), 1);
}
void TKDXBasePrintInfo::SetFirstCol(int aValue) {
  fFirstCol = std::max(std::min(aValue, fOwner->fMeasure->fNuVer), 1);
}

void TKDXBasePrintInfo::HoldFirstCell() {
  SetFirstRow(fFirstRow);
  SetFirstCol(fFirstCol);
}

void TKDXBasePrintInfo::SetPrinterIndex(int aValue) {
  if (aValue == fPrinterIndex) return;
  fPrinterIndex = aValue;
  fOwner->PrinterChanged();
}

// The printed page
// --------------------------------------------------------------------------------------------------

Single TKDXBasePrintInfo::GetMaLeft() const { return fOwner->GetVal(fMaLeft, false); }
Single TKDXBasePrintInfo::GetMaTop() const { return fOwner->GetVal(fMaTop, false); }
Single TKDXBasePrintInfo::GetMaRight() const { return fOwner->GetVal(fMaRight, false); }
Single TKDXBasePrintInfo::GetMaBottom() const { return fOwner->GetVal(fMaBottom, false); }
Single TKDXBasePrintInfo::GetWidth() const { return fOwner->GetVal(fWidth, false); }
Single TKDXBasePrintInfo::GetHeight() const { return fOwner->GetVal(fHeight, false); }

int TKDXBasePrintInfo::HeldOnLabel(Single aValue, int aMost) const {
  return std::max(std::min(fOwner->SetVal(aValue, false), aMost), 0);
}

void TKDXBasePrintInfo::SetMaLeft(Single aValue) { fMaLeft = HeldOnLabel(aValue, fOwner->fMeasure->fWidth); }
void TKDXBasePrintInfo::SetMaTop(Single aValue) { fMaTop = HeldOnLabel(aValue, fOwner->fMeasure->fHeight); }
void TKDXBasePrintInfo::SetMaRight(Single aValue) {
  fMaRight = HeldOnLabel(aValue, fOwner->fMeasure->fWidth);
}
void TKDXBasePrintInfo::SetMaBottom(Single aValue) {
  fMaBottom = HeldOnLabel(aValue, fOwner->fMeasure->fHeight);
}
void TKDXBasePrintInfo::SetWidth(Single aValue) { fWidth = HeldOnLabel(aValue, fOwner->fMeasure->fWidth); }
void TKDXBasePrintInfo::SetHeight(Single aValue) { fHeight = HeldOnLabel(aValue, fOwner->fMeasure->fHeight); }

// Persistence
// -------------------------------------------------------------------------------------------------------

void TKDXBasePrintInfo::Record(TRecord& r) {
  r.Int32(fRepetition);
  r.Byte(fOrient);
  r.Int32(fCopies);
}

void TKDXBasePrintInfo::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXBasePrintInfo*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXBasePrintInfo::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
  fRepetition = std::max(fRepetition, 1);  // The walk divides by it.
}

void TKDXBasePrintInfo::WriteJson(TJsonObject& aJson) const {
  TJsonObject& info = aJson.AddNewObject("PrintInfo");
  info.PutInt("NumLabels", fLabs);
  info.PutInt("Repetition", fRepetition);
  info.PutInt("PrinterOrientation", fOrient);
}

void TKDXBasePrintInfo::ReadJson(TJsonObject& aJson) {
  fLabs = std::max(aJson.GetInt("NumLabels"), 1);
  fRepetition = std::max(aJson.GetInt("Repetition"), 1);
  fOrient = static_cast<std::uint8_t>(GetIntIn(aJson, "PrinterOrientation", 0, UINT8_MAX));
}

}  // namespace Zor::inline Base
