#include "kaldrix/core/TDatasetWalk.hpp"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "kaldrix/core/DataText.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// What shows the records need not follow for as long as this lives.
class TControlsOff {
 public:
  explicit TControlsOff(TDataSet& aDataset) : fDataset(aDataset) { fDataset.DisableControls(); }
  ~TControlsOff() { fDataset.EnableControls(); }
  TControlsOff(const TControlsOff&) = delete;
  TControlsOff& operator=(const TControlsOff&) = delete;

 private:
  TDataSet& fDataset;
};

}  // namespace

TDatasetWalk::TDatasetWalk(TDataSet& aDataset) : fDataset(aDataset) { fDataset.First(); }

int TDatasetWalk::Records() const {
  return static_cast<int>(std::clamp<Int64>(fDataset.RecordCount(), 0, std::numeric_limits<int>::max()));
}

bool TDatasetWalk::GoTo(int aRecord) {
  if (aRecord < 1 || aRecord > Records()) return false;
  aRecord == 1 ? fDataset.First() : fDataset.SetRecNo(aRecord);
  fRecord = aRecord;
  return true;
}

bool TDatasetWalk::Next() {
  // Not moved to its end, where a data set may have to run again for the last record.
  if (fDataset.Eof() || fRecord >= Records()) return false;
  fDataset.Next();
  if (fDataset.Eof()) return false;
  ++fRecord;
  return true;
}

bool TDatasetWalk::TakeRepeat(const std::string& aField) {
  fRepeat = aField;
  return fDataset.FindField(aField) != nullptr;
}

Int64 TDatasetWalk::Repeat() const { return fDataset.FieldByName(fRepeat).AsInteger(); }

std::string TDatasetWalk::RepeatProblem() const {
  const TField& field = fDataset.FieldByName(fRepeat);
  // A number with a point may be whole, too.
  const bool whole =
      !field.IsNull() && TextToNumber(field.AsString()) == static_cast<double>(field.AsInteger());
  return whole && field.AsInteger() <= MostLabels
             ? std::string()
             : RepeatFault(fRepeat, field.IsNull() ? std::string() : field.AsString());
}

Int64 TDatasetWalk::SumLabels() {
  const TControlsOff off(fDataset);
  return TSourceWalk::SumLabels();
}

std::string TDatasetWalk::Value(const std::string& aField, const std::string& aFormat) const {
  return FieldText(fDataset.FieldByName(aField), aFormat);
}

std::string TDatasetWalk::ExactValue(const std::string& aField, const std::string& aFormat) const {
  return ExactFieldText(fDataset.FieldByName(aField), aFormat);
}

std::vector<std::string> TDatasetWalk::HeaderProblems() {
  std::vector<std::string> problems;
  std::unordered_map<std::string, int> places;
  for (int i = 0; i < fDataset.FieldCount(); ++i) {
    const std::string& name = fDataset.Fields(i).FieldName();
    const auto [place, added] = places.emplace(LowerCase(name), i + 1);
    if (added) continue;
    problems.push_back(fDataset.Name() + ": column " + std::to_string(i + 1) + ": the name \"" + name +
                       "\" stands for column " + std::to_string(place->second) + " already");
  }
  return problems;
}

}  // namespace Zor::inline Base
