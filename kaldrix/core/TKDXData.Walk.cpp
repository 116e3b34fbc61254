// The walk through the selected source, label by label.
#include "kaldrix/core/TKDXData.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/core/TCsvWalk.hpp"
#include "kaldrix/core/TDatasetWalk.hpp"
#include "kaldrix/core/TJsonWalk.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor::inline Base {

namespace {

int HeldCount(Int64 aCount) {
  return static_cast<int>(std::clamp<Int64>(aCount, 0, std::numeric_limits<int>::max()));
}

}  // namespace

int TKDXData::Repetition() const { return std::max(fOwner->fPrintInfo->fRepetition, 1); }

std::unique_ptr<TSourceWalk> TKDXData::OpenSource() {
  const TKDXDatasetItem* source = Source();
  switch (fType) {
    case dtyDataset:
      if (source == nullptr || source->GetDataset() == nullptr) return nullptr;
      return std::make_unique<TDatasetWalk>(*source->GetDataset());
    case dtyJson: {
      const std::string& key = source == nullptr ? fDataSel : source->fCaption;
      return fJsonFile == nullptr ? TJsonWalk::Open(fJson, key) : TJsonWalk::Open(fJsonFile, key);
    }
    case dtyCsv:
      fValidCsv = CsvExists();
      if (!fValidCsv) throw Exception(TKDXMsg::GetErrorValue("NoFile"));
      return std::make_unique<TCsvWalk>(*this);
    default:
      return nullptr;
  }
}

void TKDXData::Reset() {
  // 1. Start values.
  ++fMoves;
  fPos = fPosRepeat = fRecordRepeat = 1;
  fNumlabels = 0;
  fSource.reset();
  fOpenType = fType;
  fRepeats = fEnded = fValidCsv = false;
  fHasData = true;
  // 2. Without a source the print info tells the labels.
  if (!fLinkData || fType == dtyNone) {
    fNumlabels = fOwner->fPrintInfo->fLabs;
    return;
  }
  if (fType == dtyCustom) return;
  // 3. The source is opened; what cannot be opened has no records.
  fHasData = false;
  fSource = OpenSource();
  if (fSource == nullptr) return;
  // 4. The field that tells the labels of a record; a missing one is forgotten, but for CSV.
  fRepeats = !fFieldRepeat.empty() && fSource->TakeRepeat(fFieldRepeat);
  if (!fRepeats && fType != dtyCsv) fFieldRepeat.clear();
  fSource->SetStrict(fStrict && fRepeats);
  // 5. The labels in all.
  const Int64 records = fSource->Records();
  fNumlabels = HeldCount(fRepeats ? fSource->SumLabels() : MulHeld(records, Repetition()));
  fHasData = fType == dtyCsv ? fNumlabels > 0 : records > 0;
  SkipEmpty();
}

void TKDXData::First() {
  ++fMoves;
  fPos = fPosRepeat = fRecordRepeat = 1;
  fEnded = false;
  if (fLinkData && fSource != nullptr) {
    fSource->GoTo(1);
    SkipEmpty();
  }
  fOwner->ResetCounters();
}

void TKDXData::SkipEmpty() {
  if (fRepeats && fNumlabels > 0) {
    for (bool moved = true; moved && fSource->Labels() < 1;) moved = fSource->Next();
  }
  TakeRecord();
}

void TKDXData::TakeRecord() {
  fPos = fSource->Position();
  fPosRepeat = 1;
  fRecordRepeat = fRepeats ? HeldCount(fSource->Labels()) : Repetition();
}

void TKDXData::Next() {
  if (!fLinkData) return;
  ++fMoves;
  fPosRepeat < fRecordRepeat ? static_cast<void>(++fPosRepeat) : NextRecord();
}

void TKDXData::NextRecord() {
  fPosRepeat = 1;
  if (fSource == nullptr || fEnded) return;
  const int here = fSource->Record();
  bool moved = fSource->Next();
  while (moved && fRepeats && fSource->Labels() < 1) moved = fSource->Next();
  if (!moved) {
    fEnded = true;
    if (fSource->Record() != here) fSource->GoTo(here);
  }
  TakeRecord();
}

void TKDXData::Skip(Int64 aLabels) {
  if (!fLinkData || aLabels <= 0) return;
  ++fMoves;
  Int64 left = aLabels;
  while (left > fRecordRepeat - fPosRepeat && !fEnded && fSource != nullptr) {
    left -= std::max(fRecordRepeat - fPosRepeat, 0) + 1;
    NextRecord();
  }
  // What is left lies in this record, or runs round and round in the last one.
  const int each = std::max(fRecordRepeat, 1);
  fPosRepeat = static_cast<int>((fPosRepeat - 1 + left) % each) + 1;
}

void TKDXData::GoToLabel(int aLabel) {
  const int before = std::max(aLabel, 1) - 1, record = before / Repetition() + 1;
  SetPos(Records() > 0 ? std::min(record, Records()) : record);
  fPosRepeat = before % Repetition() + 1;
}

void TKDXData::SetPos(int aRecord) {
  if (!fLinkData) return;
  ++fMoves;
  fPosRepeat = 1;
  if (fSource == nullptr || !fSource->GoTo(aRecord)) return;
  fEnded = false;
  TakeRecord();
}

std::vector<std::string> TKDXData::RecordProblems() const {
  if (fSource == nullptr) return {};
  std::vector<std::string> problems = fSource->RecordProblems();
  const std::string repeat = fSource->IsStrict() ? fSource->RepeatProblem() : std::string();
  if (!repeat.empty()) problems.push_back(repeat);
  return problems;
}

std::string TKDXData::RepeatProblem() {
  const int fault = fSource == nullptr ? 0 : fSource->FirstFault();
  if (fault == 0) return {};
  const int here = fSource->Record();
  fSource->GoTo(fault);
  std::string problem = "record " + std::to_string(fault) + ": " + fSource->RepeatProblem();
  fSource->GoTo(here);
  return problem;
}

bool TKDXData::Offers(const std::string& aField) const {
  return fSource != nullptr && fSource->Offers(aField);
}

std::vector<std::string> TKDXData::HeaderProblems() const {
  return fSource == nullptr ? std::vector<std::string>() : fSource->HeaderProblems();
}

}  // namespace Zor::inline Base
