#include "kaldrix/host/ExportPlan.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

/// Labels on one sheet.
constexpr std::size_t MostLabels = 10'000;

double MM(Int64 aBase) { return static_cast<double>(aBase) / BaseInMM; }

/// Rows and columns have 16 bits each.
std::uint64_t CopyKey(int aInID, int aRow, int aColumn) {
  const auto low = [](int aValue) { return static_cast<std::uint64_t>(aValue & 0xFFFF); };
  return static_cast<std::uint64_t>(static_cast<std::uint32_t>(aInID)) << 32 | low(aRow) << 16 | low(aColumn);
}

}  // namespace

TExportPlan::TExportPlan(TKDXLabel& aDocument, const TExportOptions& aOptions)
    : fDocument(aDocument),
      fSheet(aOptions.page > 0),
      fOption(aOptions.print ? lopPrint : lopExport),
      fRecord(aDocument) {
  if (aOptions.page < 0) throw EArgumentOutOfRangeException("Pages count from 1");
  if (!std::isfinite(aOptions.factor) || aOptions.factor <= 0)
    throw EArgumentOutOfRangeException("The factor must be above 0");
  if (fSheet && aOptions.fit) throw EArgumentException("A sheet of labels cannot be fitted to its items");
  const TKDXMeasure& measure = *aDocument.fMeasure;
  if (measure.fWidth <= 0 || measure.fHeight <= 0) throw EInvalidOperation("The label has no size");
  aDocument.CalcPending();
  aDocument.Fonts().RequireFonts();
  if (fSheet) {
    TakeSheet(aOptions.page);
  } else {
    cells.push_back({});
    aOptions.fit ? TakeExtent() : TakeLabel();
  }
}

void TExportPlan::TakeLabel() {
  width = MM(fDocument.fMeasure->fWidth);
  height = MM(fDocument.fMeasure->fHeight);
}

void TExportPlan::TakeExtent() {
  Int64 left = -1, right = -1, top = -1, bottom = -1;
  ForItems(cells.front(), [&](const TKDXBaseItem& item) { item.CheckFit(left, right, top, bottom); });
  left = std::max<Int64>(left, 0);
  top = std::max<Int64>(top, 0);
  if (right < left || bottom < top) throw EInvalidOperation("There is nothing to fit to");
  const double factor = fDocument.PaperFactor();
  // A line without a pen has an extent of 0, a picture has not.
  const auto length = [factor](Int64 aFrom, Int64 aTo) {
    return std::max(static_cast<double>(SubHeld(aTo, aFrom)) / factor, 1 / BaseInMM);
  };
  x = static_cast<double>(left) / factor;
  y = static_cast<double>(top) / factor;
  width = length(left, right);
  height = length(top, bottom);
}

void TExportPlan::TakeSheet(int aPage) {
  const TKDXMeasure& measure = *fDocument.fMeasure;
  const TKDXBasePrintInfo& print = *fDocument.fPrintInfo;
  if (measure.fPaperWidth <= 0 || measure.fPaperHeight <= 0) throw EInvalidOperation("The paper has no size");
  width = MM(measure.fPaperWidth);
  height = MM(measure.fPaperHeight);
  const bool first = aPage == 1;
  const bool planned = print.fPagesToPrint > 0;
  AddCells(first ? print.fFirstRow : 1, first ? print.fFirstCol : 1, planned ? LabelsFrom(aPage) : INT64_MAX);
  if (planned) FillCopies(aPage);
}

Int64 TExportPlan::LabelsFrom(int aPage) const {
  const Int64 most = fDocument.LabelsFromPage(aPage);
  if (most < 1) throw EArgumentOutOfRangeException("Page " + std::to_string(aPage) + " has no labels");
  return most;
}

void TExportPlan::FillCopies(int aPage) {
  IndexCopies();
  bool made = false;
  for (const TKDXBaseItem* item : fDocument.fItems) {
    if (!item->GetIsData() || !IsShown(*item)) continue;
    fVaries = true;
    for (const TLabelCell& cell : cells) {
      const auto [place, missing] = fCopies.try_emplace(CopyKey(item->fInID, cell.row, cell.column), nullptr);
      if (!missing) continue;
      place->second = &fDocument.MakePreviewCopy(*item, cell.row, cell.column);
      made = true;
    }
  }
  // A page that was filled before it had all its copies is filled again.
  if (made) fDocument.fPrintInfo->fLastPageFill = -1;
  fDocument.GoToPage(aPage, true, !made);
}

void TExportPlan::AddCells(int aRow, int aColumn, Int64 aMost) {
  const TKDXMeasure& m = *fDocument.fMeasure;
  const auto place = [](int aMargin, int aSize, int aGap, int aIndex) {
    return aMargin + (Int64{aSize} + aGap) * (aIndex - 1);
  };
  int column = std::max(aColumn, 1);
  Int64 given = 0;  // Labels beside the paper count too.
  for (int row = std::max(aRow, 1); row <= m.fNuHor; ++row, column = 1) {
    const Int64 top = place(m.fMarTop, m.fHeight, m.fDiHor, row);
    if (top >= m.fPaperHeight) return;
    for (; column <= m.fNuVer; ++column, ++given) {
      const Int64 left = place(m.fMarLeft, m.fWidth, m.fDiVer, column);
      if (given >= aMost) return;
      if (left >= m.fPaperWidth) break;
      if (cells.size() >= MostLabels) throw EInvalidOperation("There are too many labels on one sheet");
      cells.push_back({MM(left), MM(top), row, column});
    }
    given += std::max(m.fNuVer - column + 1, 0);
  }
}

void TExportPlan::LeaveOut(int aRow, int aColumn) {
  std::erase_if(cells, [=](const TLabelCell& cell) { return cell.row == aRow && cell.column == aColumn; });
}

void TExportPlan::IndexCopies() {
  for (TKDXBaseItem* copy : fDocument.fPreview) {
    fCopies.emplace(CopyKey(copy->fInID, copy->aRow, copy->aCol), copy);
  }
}

TKDXBaseItem* TExportPlan::CopyOf(const TKDXBaseItem& aItem, const TLabelCell& aCell) const {
  const auto found = fCopies.find(CopyKey(aItem.fInID, aCell.row, aCell.column));
  return found == fCopies.end() ? nullptr : found->second;
}

}  // namespace Zor::inline Host
