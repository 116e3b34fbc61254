#include "kaldrix/host/TLabelRun.hpp"

#include <limits>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/NameHints.hpp"

namespace Zor::inline Host {

TLabelRun::TLabelRun(TKDXLabel& aDocument) : fDocument(aDocument) {
  fDocument.CheckPrintData();
  fLabels = fDocument.fPrintInfo->fLabelsToPrint;
  fSelected = TLabelRanges(1, fLabels);
}

namespace {

std::string SourceName(const TKDXData& aData) {
  return aData.fType == dtyCsv ? aData.fCsvFileName : aData.fDataSel;
}

/// "counter 'Tga'; there is 'Tag'".
template <class TNamed>
std::string Missing(const char* aKind, const std::string& aName, const TOwnedList<TNamed>& aList) {
  std::vector<std::string> names;
  for (const TNamed* named : aList) names.push_back(named->fName);
  return aKind + (" '" + aName + "'") + NameHint(aName, names);
}

std::string MissingField(const TKDXData& aData, const std::string& aName) {
  std::vector<std::string> names;
  if (const TKDXDatasetItem* source = aData.Source()) {
    for (const auto& field : source->fFields) names.push_back(field->fCaption);
  }
  return "field '" + aName + "'" + NameHint(aName, names);
}

}  // namespace

void TLabelRun::CheckBindings() const {
  std::string problems;
  for (const TKDXBaseItem* item : fDocument.fItems) {
    const auto* bound = dynamic_cast<const IZORData*>(item);
    if (bound == nullptr || !item->aIsData || !item->Shows(lopVisible) || !item->Shows(lopPrint)) continue;
    const std::string missing = MissingBinding(bound->FillType(), bound->FillName());
    if (!missing.empty()) problems += "\n  " + item->fID + ": there is no " + missing;
  }
  if (!problems.empty()) throw Exception("Items of this print:" + problems);
  const TKDXData& data = *fDocument.fData;
  if (!data.fLinkData || data.fType == dtyNone) return;
  if (data.fNumlabels == std::numeric_limits<int>::max())
    throw Exception(SourceName(data) + ": the records give more labels than a run can have");
  if (data.fNumlabels > 0) return;
  if (data.Records() == 0) throw Exception(SourceName(data) + ": there are no records in it");
  throw Exception(SourceName(data) + ": no record gives a label: " + data.fFieldRepeat +
                  " is 0 in all of them");
}

std::string TLabelRun::MissingBinding(TZORFillType aFill, const std::string& aName) const {
  const TKDXData& data = *fDocument.fData;
  switch (aFill) {
    case ftCounter:
      return fDocument.FindCounter(aName) != nullptr ? "" : Missing("counter", aName, fDocument.fCounters);
    case ftList:
      return data.GetListVal(std::string_view(aName)) != nullptr ? "" : Missing("list", aName, data.fListVal);
    case ftAsk:
      return data.GetAskField(std::string_view(aName)) != nullptr ? ""
                                                                  : Missing("question", aName, data.fListAsk);
    case ftField:
    case ftJson:
    case ftCsv:
      return data.Records() == 0 || data.Offers(aName) ? "" : MissingField(data, aName);
    default:
      return {};
  }
}

int TLabelRun::Pages() const { return fDocument.fPrintInfo->fPagesToPrint; }

void TLabelRun::StartAt(int aRow, int aColumn) {
  const TKDXMeasure& measure = *fDocument.fMeasure;
  if (aRow < 1 || aRow > measure.fNuHor || aColumn < 1 || aColumn > measure.fNuVer) {
    throw EArgumentOutOfRangeException("The sheet has " + std::to_string(measure.fNuHor) + " rows and " +
                                       std::to_string(measure.fNuVer) + " columns: there is no row " +
                                       std::to_string(aRow) + ", column " + std::to_string(aColumn));
  }
  fDocument.fPrintInfo->SetFirstRow(aRow);
  fDocument.fPrintInfo->SetFirstCol(aColumn);
  Select(fSelected);
}

void TLabelRun::Select(const TLabelRanges& aLabels) {
  for (const TLabelRange& range : aLabels.Ranges()) {
    if (range.first <= fLabels) continue;
    throw EArgumentOutOfRangeException("The run has " + std::to_string(fLabels) +
                                       " labels: there is no label " + std::to_string(range.first));
  }
  fDocument.fPrintInfo->fLabelsToPrint = fLabels;
  fDocument.SetLabels(aLabels);
  fSelected = aLabels.UpTo(fLabels);
}

TExportPlan TLabelRun::Fill(int aPage, const TExportOptions& aOptions) {
  TExportOptions options = aOptions;
  options.page = aPage;
  options.print = true;
  TExportPlan plan(fDocument, options);
  TakeSheet(aPage);
  for (const TRunLabel& label : fSheet) {
    if (!label.leftOut.empty()) plan.LeaveOut(label.row, label.column);
  }
  return plan;
}

void TLabelRun::TakeSheet(int aPage) {
  fSheet.clear();
  for (const TZOPageLabel& note : fDocument.GetPageLabels()) {
    TRunLabel& label = fSheet.emplace_back();
    label.label = note.label;
    label.page = aPage;
    label.row = note.row;
    label.column = note.column;
    label.record = note.record;
    std::size_t next = 0;
    for (const TKDXCounter* counter : fDocument.fCounters) {
      if (counter->fActive) label.counters.emplace_back(counter->fName, note.counters.at(next++));
    }
    for (const std::string& problem : note.problems) {
      label.leftOut += (label.leftOut.empty() ? "" : "; ") + problem;
    }
  }
}

}  // namespace Zor::inline Host
