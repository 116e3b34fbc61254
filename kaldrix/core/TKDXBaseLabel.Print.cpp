// Planning a print of labels, and filling them page by page.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>
#include <limits>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Base {

namespace {

int HeldCount(Int64 aCount) {
  return static_cast<int>(std::clamp<Int64>(aCount, 0, std::numeric_limits<int>::max()));
}

/// Cells in the order in which a sheet is filled.
std::uint32_t CellKey(int aRow, int aColumn) {
  return static_cast<std::uint32_t>(aRow & 0xFFFF) << 16 | static_cast<std::uint32_t>(aColumn & 0xFFFF);
}

/// The preview copies in the order of the cells; those of a cell stay in their order.
class TCellCopies {
 public:
  explicit TCellCopies(const TItemList& aCopies) : fCopies(aCopies.begin(), aCopies.end()) {
    std::stable_sort(fCopies.begin(), fCopies.end(), [](const TKDXBaseItem* a, const TKDXBaseItem* b) {
      return CellKey(a->aRow, a->aCol) < CellKey(b->aRow, b->aCol);
    });
  }

  /// Fills the copies of a cell, and tells what they could not take. Cells have to come in their order.
  std::vector<std::string> Fill(int aRow, int aColumn) {
    std::vector<std::string> problems;
    const std::uint32_t cell = CellKey(aRow, aColumn);
    const auto key = [this] { return CellKey(fCopies[fNext]->aRow, fCopies[fNext]->aCol); };
    while (fNext < fCopies.size() && key() < cell) ++fNext;
    for (; fNext < fCopies.size() && key() == cell; ++fNext) {
      const std::string problem = FillItem(*fCopies[fNext]);
      if (!problem.empty()) problems.push_back(fCopies[fNext]->fID + ": " + problem);
    }
    return problems;
  }

 private:
  static std::string FillItem(TKDXBaseItem& aCopy) {
    try {
      aCopy.FillData(true);
      return aCopy.ValueProblem();
    } catch (const Exception& error) {
      return error.what();
    }
  }

  std::vector<TKDXBaseItem*> fCopies;
  std::size_t fNext = 0;
};

/// What drives a print of a source, without counters and with them.
TZORFillType DriveOf(TZORDataType aType, TZORFillType aFormer) {
  const bool counts = aFormer == ftCounter;
  switch (aType) {
    case dtyDataset:
      return counts ? ftFieldCount : ftField;
    case dtyJson:
      return counts ? ftJsonCount : ftJson;
    case dtyCsv:
      return counts ? ftCsvCount : ftCsv;
    default:
      return aFormer;
  }
}

}  // namespace

// Planning --------------------------------------------------

void TKDXBaseLabel::CheckPrintData() {
  TKDXBasePrintInfo& print = *fPrintInfo;
  // 1. Start values.
  ClearPreview();
  fPageLabels.clear();
  fWalkLabel = 0;
  print.fCurrentLabel = print.fCurrentPage = print.fPagesToPrint = 1;
  print.fOnly = {};
  print.fLabelsToPrint = HeldCount(MulHeld(print.fLabs, print.fRepetition));
  print.fLastPageFill = -1;
  print.fFillType = ftNone;
  // 2. Nothing is in use.
  fData->ResetListAsk();
  for (TKDXCounter* counter : fCounters) counter->fActive = false;
  // 3. What the printed items use.
  PlanItems();
  // 4. The source.
  fData->Reset();
  // 5. What drives the walk.
  print.fFillType = fData->fNumlabels == 0 ? ftNone : DriveOf(fData->fType, print.fFillType);
  print.fLabelsToPrint = std::max(print.fLabelsToPrint, fData->fNumlabels);
  // 6. The pages.
  PlanPages();
}

void TKDXBaseLabel::PlanItems() {
  for (TKDXBaseItem* item : fItems) {
    if (!item->aIsData || !item->fOptions.Has(lopVisible) || !item->fOptions.Has(lopPrint)) continue;
    const auto* bound = dynamic_cast<const IZORData*>(item);
    if (bound == nullptr) continue;
    const std::string name = bound->FillName();
    const TZORFillType fill = bound->FillType();
    if (fill == ftCounter) PlanCounter(name);
    if (TZOValList* list = fill == ftList ? fData->GetListVal(std::string_view(name)) : nullptr) {
      list->fActive = fData->fHasList = true;
    }
    if (TZOAskField* ask = fill == ftAsk ? fData->GetAskField(std::string_view(name)) : nullptr) {
      ask->fActive = fData->fHasQuest = true;
    }
  }
}

void TKDXBaseLabel::PlanCounter(std::string_view aName) {
  TKDXCounter* counter = FindCounter(aName);
  if (counter == nullptr || counter->fActive) return;
  fPrintInfo->fFillType = ftCounter;
  counter->fActive = true;
  counter->Reset();
  fPrintInfo->fLabelsToPrint = std::max(fPrintInfo->fLabelsToPrint, counter->fNumLabs);
}

void TKDXBaseLabel::PlanPages() {
  const Int64 first = std::max(fPrintInfo->FirstPageLabels(), 0);
  const Int64 others = fPrintInfo->LabelsOfRun() - first;
  const Int64 each = std::max(fPrintInfo->LabelsPerPage(), 1);
  fPrintInfo->fPagesToPrint = others > 0 ? HeldCount((others + each - 1) / each + 1) : 1;
}

bool TKDXBaseLabel::SetLabels(const TLabelRanges& aLabels) {
  const TLabelRanges labels = aLabels.UpTo(fPrintInfo->fLabelsToPrint);
  if (labels.IsEmpty()) return false;
  fPrintInfo->fOnly = labels;
  fPrintInfo->fLabelsToPrint = labels.Last();
  fPrintInfo->fLastPageFill = -1;
  fPrintInfo->fCurrentPage = 0;
  PlanPages();
  return true;
}

// Walking --------------------------------------------------

bool TKDXBaseLabel::KnowsLabel() const {
  return fWalkLabel > 0 && fWalkMoves == fData->fMoves && fPrintInfo->fFillType != ftNone;
}

void TKDXBaseLabel::NextData() {
  const bool known = KnowsLabel();
  if (fPrintInfo->DataRuns()) fData->Next();
  if (fPrintInfo->CountersRun()) {
    for (int i = fCounters.Count() - 1; i >= 0; --i) {
      if (fCounters[i]->fActive) fCounters[i]->Next();
    }
  }
  fWalkLabel = known ? fWalkLabel + 1 : 0;
  fWalkMoves = fData->fMoves;
}

void TKDXBaseLabel::FillDataPage(int aPage) {
  TKDXBasePrintInfo& print = *fPrintInfo;
  if (print.fLastPageFill == aPage || fMeasure->fNuVer < 1) return;
  if (std::min(print.LabelsPerPage(), print.fLabelsToPrint - print.fCurrentLabel) > MostPageLabels) {
    throw EInvalidOperation("There are too many labels on one sheet");
  }
  if (KnowsLabel()) GoToLabel(print.fCurrentLabel);
  fPageLabels.clear();
  TCellCopies copies(fPreview);
  Int64 label = print.fCurrentLabel;
  int column = aPage == 1 ? std::max(print.fFirstCol, 1) : 1;
  for (int row = aPage == 1 ? std::max(print.fFirstRow, 1) : 1; row <= fMeasure->fNuHor; ++row, column = 1) {
    for (; column <= fMeasure->fNuVer && label <= print.fLabelsToPrint; ++column) {
      const int current = static_cast<int>(label);
      std::vector<std::string> problems = copies.Fill(row, column);
      NoteLabel(current, row, column, std::move(problems));
      label = print.LabelBehind(current);
      if (label == Int64{current} + 1) {
        NextData();
      } else {
        WalkTo(static_cast<int>(label));
      }
    }
    if (label > print.fLabelsToPrint) break;
  }
  print.fLastPageFill = aPage;
}

void TKDXBaseLabel::NoteLabel(int aLabel, int aRow, int aColumn, std::vector<std::string> aProblems) {
  const int record = fPrintInfo->DataRuns() ? fData->Record() : 0;
  TZOPageLabel& note = fPageLabels.emplace_back(TZOPageLabel{aLabel,
                                                             aRow,
                                                             aColumn,
                                                             record,
                                                             record > 0 ? fData->fPos : 0,
                                                             record > 0 ? fData->fPosRepeat : 1,
                                                             {},
                                                             std::move(aProblems)});
  for (const TKDXCounter* counter : fCounters) {
    if (counter->fActive) note.counters.push_back(counter->fValue);
  }
  if (record == 0) return;
  for (std::string& problem : fData->RecordProblems()) note.problems.push_back(std::move(problem));
}

// Preview copies --------------------------------------------------

TKDXBaseItem& TKDXBaseLabel::MakePreviewCopy(const TKDXBaseItem& aItem, int aRow, int aCol) {
  CheckOwn(aItem);
  // The copy has the identity of its item: it takes none of its own, and leaves no trace for undo.
  struct TQuiet {
    explicit TQuiet(TKDXBaseLabel& aLabel)
        : label(aLabel), maxID(aLabel.fMaxID), recording(aLabel.IsRecording()) {
      label.fOptions.Remove(loUndoRedo);
    }
    ~TQuiet() {
      label.fMaxID = maxID;
      if (recording) label.fOptions.Add(loUndoRedo);
    }
    TQuiet(const TQuiet&) = delete;
    TQuiet& operator=(const TQuiet&) = delete;
    TKDXBaseLabel& label;
    int maxID;
    bool recording;
  };
  const TQuiet quiet(*this);
  TKDXBaseItem* copy = NewItemOfType(aItem.fItemType, true);
  if (copy == nullptr) throw EInvalidOperation("no class for the copies of " + aItem.fID);
  std::string record;
  TBinaryWriter writer(record);
  aItem.WriteData(writer);
  TBinaryReader reader(record);
  reader.ReadInt32();  // the kind
  try {
    copy->ReadData(FormatVersion, reader, rdPreview);
  } catch (...) {
    Free(*copy);
    throw;
  }
  copy->PreviewPos(aCol, aRow);
  return *copy;
}

void TKDXBaseLabel::ClearPreview() {
  FreeAll(fPreview);
  fPrintInfo->fLastPageFill = -1;
}

}  // namespace Zor::inline Base
