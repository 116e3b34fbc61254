#include "kaldrix/core/TCsvWalk.hpp"

#include <algorithm>

#include "kaldrix/core/DataText.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/platform/TextNumbers.hpp"

namespace Zor::inline Base {

TCsvWalk::TCsvWalk(const TKDXData& aData)
    : fData(aData),
      fFile(aData.fCsvOpen != nullptr ? aData.fCsvOpen : TCsvFile::Open(aData.fCsvFileName, aData.fCsvCode)),
      fHeader(aData.fCsvHeader ? 1 : 0) {
  if (fFile != aData.fCsvOpen) fFile->SetCsvForm(aData.CsvForm());
  fFile->GoTo(Line());
}

int TCsvWalk::Records() const { return std::max(fFile->LineCount() - fHeader, 0); }

bool TCsvWalk::GoTo(int aRecord) {
  if (aRecord < 1 || aRecord > Records()) return false;
  fRecord = aRecord;
  fFile->GoTo(Line());
  return true;
}

bool TCsvWalk::TakeRepeat(const std::string& aField) {
  fRepeat = fData.GetCsvPos(aField);
  return fRepeat >= 0;
}

Int64 TCsvWalk::Repeat() const { return TextToWhole(fFile->RawColumn(Line(), fRepeat)).value_or(1); }

std::string TCsvWalk::RepeatProblem() const {
  const std::optional<Int64> labels = TextToWhole(fFile->RawColumn(Line(), fRepeat));
  if (labels && *labels <= MostLabels) return {};
  return Told({{Position(), 0, RepeatFault(fData.fFieldRepeat, fFile->Column(fRepeat))}}).front();
}

bool TCsvWalk::Offers(const std::string& aField) { return fData.GetCsvPos(aField) >= 0; }

std::string TCsvWalk::Value(const std::string& aField, const std::string& aFormat) const {
  if (Records() == 0) return {};
  const int column = fData.GetCsvPos(aField);
  if (column < 0) return aFormat.empty() ? aField : std::string();
  return ColumnText(fFile->Column(column), aFormat);
}

std::string TCsvWalk::ExactValue(const std::string& aField, const std::string& aFormat) const {
  const int column = fData.GetCsvPos(aField);
  return column < 0 ? Value(aField, aFormat) : ExactColumnText(fFile->Column(column), aFormat);
}

std::vector<std::string> TCsvWalk::Told(const std::vector<TCsvProblem>& aProblems) const {
  std::vector<std::string> lines;
  for (const TCsvProblem& problem : aProblems) {
    std::string line = fFile->Name() + ":" + std::to_string(problem.line) + ": ";
    if (problem.column > 0) line += "column " + std::to_string(problem.column) + ": ";
    lines.push_back(line + problem.what);
  }
  return lines;
}

std::vector<std::string> TCsvWalk::RecordProblems() const {
  const TKDXDatasetItem* source = fData.Source();
  return Records() == 0 ? std::vector<std::string>()
                        : Told(fFile->Problems(source == nullptr ? 0 : source->fFields.Count()));
}

std::vector<std::string> TCsvWalk::HeaderProblems() {
  if (fHeader == 0 || fFile->LineCount() == 0) return {};
  fFile->GoTo(1);
  std::vector<std::string> problems = Told(fFile->HeaderProblems());
  fFile->GoTo(Line());
  return problems;
}

}  // namespace Zor::inline Base
