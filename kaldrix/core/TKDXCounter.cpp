#include "kaldrix/core/TKDXCounter.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/platform/Format.hpp"

namespace Zor::inline Base {

TKDXCounter::TKDXCounter(TKDXBaseLabel* aOwner) : fOwner(aOwner) {
  aOwner->fCounters.Adopt(this);
  aOwner->ContentChanged();
}

// The walk
// ----------------------------------------------------------------------------------------------------------

void TKDXCounter::Reset() {
  fCounter = fNumFrom;
  fRepeatPos = 1;
  SetValue();
}

void TKDXCounter::Next() {
  if (fRepeatPos < fRepeat) {
    ++fRepeatPos;
    return;
  }
  if (SubHeld(fNumTo, fCounter) < fStep) return;
  fRepeatPos = 1;
  fCounter += fStep;
  SetValue();
}

void TKDXCounter::MoveTo(int aPos) {
  const int labels = std::max(aPos, 1) - 1;
  const Int64 wanted = labels / fRepeat, possible = std::max<Int64>(SubHeld(fNumTo, fNumFrom), 0) / fStep;
  fCounter = fNumFrom + std::min(wanted, possible) * fStep;
  fRepeatPos = wanted <= possible ? static_cast<std::int16_t>(1 + labels % fRepeat) : fRepeat;
  SetValue();
}

void TKDXCounter::SetValue() {
  const std::string number =
      fFormat.empty() ? std::to_string(fCounter) : FormatFloat(fFormat, static_cast<double>(fCounter));
  fValue = fBefore + number + fAfter;
}

// The range
// ---------------------------------------------------------------------------------------------------------

void TKDXCounter::CalcNumLabs() {
  const Int64 values = AddHeld(SubHeld(fNumTo, fNumFrom), 1) / fStep;
  fNumLabs =
      static_cast<int>(std::clamp<Int64>(MulHeld(values, fRepeat), 0, std::numeric_limits<int>::max()));
}

Int64 TKDXCounter::LabelsToEnd() const {
  const Int64 steps = std::max<Int64>(SubHeld(fNumTo, fNumFrom), 0) / fStep;
  return MulHeld(AddHeld(steps, 1), fRepeat);
}

void TKDXCounter::SetNumFrom(Int64 aValue) {
  fNumFrom = aValue;
  fNumTo = std::max(fNumTo, aValue);
  CalcNumLabs();
  fOwner->ContentChanged();
}

void TKDXCounter::SetNumTo(Int64 aValue) {
  fNumTo = aValue;
  fNumFrom = std::min(fNumFrom, aValue);
  CalcNumLabs();
  fOwner->ContentChanged();
}

void TKDXCounter::SetRepeat(int aValue) {
  fRepeat = static_cast<std::int16_t>(std::clamp<int>(aValue, 1, INT16_MAX));
  CalcNumLabs();
  fOwner->ContentChanged();
}

void TKDXCounter::SetStep(int aValue) {
  fStep = std::max(aValue, 1);
  CalcNumLabs();
  fOwner->ContentChanged();
}

// Persistence
// -------------------------------------------------------------------------------------------------------

/// The limits of the setters, which the walk relies on.
void TKDXCounter::AfterRead() {
  fRepeat = std::max<std::int16_t>(fRepeat, 1);
  fStep = std::max(fStep, 1);
  CalcNumLabs();
}

void TKDXCounter::Record(TRecord& r) {
  r.String(fName);
  r.Int64(fNumFrom);
  r.Int64(fNumTo);
  r.Int32(fStep);
  r.Int16(fRepeat);
  r.String(fFormat);
  r.String(fBefore);
  r.String(fAfter);
}

void TKDXCounter::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TKDXCounter*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TKDXCounter::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
  AfterRead();
}

void TKDXCounter::WriteJson(TJsonArray& aArray) const {
  TJsonObject& counter = aArray.AddObject();
  counter.PutString("Name", fName);
  counter.PutLong("NumFrom", fNumFrom);
  counter.PutLong("NumTo", fNumTo);
  counter.PutInt("Step", fStep);
  counter.PutInt("Repeat", fRepeat);
  counter.PutString("Format", fFormat);
  counter.PutString("Before", fBefore);
  counter.PutString("After", fAfter);
}

void TKDXCounter::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fName = aJson.GetString("Name");
  fNumFrom = aJson.GetLong("NumFrom");
  fNumTo = aJson.GetLong("NumTo");
  fStep = aJson.GetInt("Step");
  fRepeat = static_cast<std::int16_t>(GetIntIn(aJson, "Repeat", INT16_MIN, INT16_MAX));
  fFormat = aJson.GetString("Format");
  fBefore = aJson.GetString("Before");
  fAfter = aJson.GetString("After");
  AfterRead();
}

}  // namespace Zor::inline Base
