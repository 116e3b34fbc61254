// What an export shows and where.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "kaldrix/core/TRecordCopies.hpp"
#include "kaldrix/host/Export.hpp"

namespace Zor::inline Host {

/// A label on the sheet: its place in millimetres, and its row and column, 1-based, or 0 off a sheet.
struct TLabelCell {
  double x = 0;
  double y = 0;
  int row = 0;
  int column = 0;
};

/// The part of the paper that becomes the picture, and the labels on it.
class TExportPlan {
 public:
  /// Brings the document up to date: waiting items are measured, and where a print has been planned
  /// (CheckPrintData) the page is gone to and filled; else all labels of a sheet show the design. Raises an
  /// Exception for what cannot be exported.
  TExportPlan(TKDXLabel& aDocument, const TExportOptions& aOptions);

  bool IsSheet() const { return fSheet; }
  /// Does what the labels show differ from one to another?
  bool Varies() const { return fVaries; }

  /// Calls `aVisit` with the items that the label shows, lowest first. On a sheet a data item is replaced by
  /// its copy for that label, else by one with the value of the current record.
  template <class TVisit>
  void ForItems(const TLabelCell& aCell, TVisit aVisit) const {
    for (TKDXBaseItem* item : fDocument.fItems) {
      if (!IsShown(*item)) continue;
      TKDXBaseItem* shown = fSheet ? OnSheet(*item, aCell) : &fRecord.Shown(*item);
      if (shown != nullptr) aVisit(*shown);
    }
  }

  TSvgWindow Window() const { return {x, y, width, height}; }

  // Millimetres of paper.
  double x = 0, y = 0, width = 0, height = 0;
  std::vector<TLabelCell> cells;

  /// Leaves the label of a cell empty.
  void LeaveOut(int aRow, int aColumn);

 private:
  bool IsShown(const TKDXBaseItem& aItem) const { return aItem.Shows(lopVisible) && aItem.Shows(fOption); }
  void TakeLabel();
  void TakeExtent();
  void TakeSheet(int aPage);
  /// The labels of a planned print from that page on; raises EArgumentOutOfRangeException when there are
  /// none.
  Int64 LabelsFrom(int aPage) const;
  /// Makes the copies that the cells lack, and fills those of the page.
  void FillCopies(int aPage);
  void AddCells(int aRow, int aColumn, Int64 aMost);
  void IndexCopies();
  TKDXBaseItem* OnSheet(TKDXBaseItem& aItem, const TLabelCell& aCell) const {
    return fVaries && aItem.GetIsData() ? CopyOf(aItem, aCell) : &aItem;
  }
  TKDXBaseItem* CopyOf(const TKDXBaseItem& aItem, const TLabelCell& aCell) const;

  TKDXLabel& fDocument;
  bool fSheet;
  TZOLayerOp fOption;  ///< what an item has to have to be shown
  bool fVaries = false;
  std::unordered_map<std::uint64_t, TKDXBaseItem*> fCopies;
  mutable TRecordCopies fRecord;
};

}  // namespace Zor::inline Host
