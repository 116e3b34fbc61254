#pragma once

#include <string>
#include <vector>

#include "kaldrix/core/TItemList.hpp"
#include "kaldrix/core/TLinkEnds.hpp"
#include "kaldrix/core/TOwnedList.hpp"
#include "kaldrix/core/TUndoStack.hpp"
#include "kaldrix/platform/TNameFinder.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Records.hpp"

namespace Zor::inline Base {

class TKDXBaseItem;
class TKDXBaseLibSymbol;
class TKDXCounter;
class TKDXDimStyle;
class TKDXLayer;

/// What a cell of a filled page shows.
struct TZOPageLabel {
  int label;                          ///< number in the print, 1-based
  int row, column;                    ///< on the sheet, 1-based
  int record;                         ///< of the source, 1-based; 0 without one
  int position;                       ///< TKDXData::fPos: of a CSV source the line of the file; 0 without one
  int repeat;                         ///< which label of its record it is, 1-based
  std::vector<std::string> counters;  ///< values of the active counters, in the order of fCounters
  std::vector<std::string> problems;  ///< what its record or its items could not take, with their names
};

/// What a document holds and a load replaces, exchanged as one whole (TContentKeeper): a field that a file
/// brings, or that refers to such, belongs here, and cannot leak from one file into the next. What the host
/// set for the document itself stands in TKDXBaseLabel.
struct TLabelContent {
  TLabelContent();
  TLabelContent(TLabelContent&&) noexcept;
  TLabelContent& operator=(TLabelContent&&) noexcept;
  ~TLabelContent();

  TOwnedList<TKDXLayer> fLayers;
  TOwnedList<TKDXDimStyle> fDimStyles;
  TItemList fItems;    ///< z-order, first is lowest
  TItemList fPreview;  ///< copies of data items, a label each
  TOwnedList<TKDXBaseLibSymbol> fSymbols;
  TOwnedList<TKDXCounter> fCounters;
  TZOREditorMode fEditorMode = emLabelling;
  TZORUnits fUnits = unMM;
  TZORAngle fAngle = ag0;  ///< rotation of the whole document
  int fActiveLayer = 0;
  int fActiveDimStyle = 0;
  TKaldrixOptions fOptions{loUniqueID, loUndoRedo};
  int fReadedVer = 0;  ///< version of the binary file read last
  int fMaxID = 1;      ///< the next identity
  int fIdxBack = -1;   ///< 1-based topmost visible image or map layer, -1 when none
  bool fModified = false;

  // Transient state --------------------------------------------------

  std::vector<TKDXBaseItem*> fSelection;  ///< in order of selecting
  std::vector<TKDXBaseItem*> fLinks;      ///< link items attached to the selection
  std::vector<TKDXBaseItem*> fCalcs;      ///< items that wait for a calculation; gone ones leave a gap
  TKDXBaseLibSymbol* fCurrentLibSym = nullptr;
  bool fUpdate = false;  ///< true only while a bracket closes
  TKaldrixStateOptions fStates;
  TUndoStack fUndo, fRedo;
  bool fUndoOpt = false;   ///< loUndoRedo across a read bracket
  bool fIncUnReID = true;  ///< each command takes a new group number
  int fUnReID = 0;         ///< running group number
  int fUnReRef = 0;        ///< what a running undo or redo hands out

 protected:
  bool fHasLinks = false;       ///< may be true without any, never false with one
  TLinkEnds fLinkEnds;          ///< of fLinks
  bool fSelectedAgain = false;  ///< an item may stand in fSelection twice
  bool fLinksStale = false;     ///< a node moved, came or went since the links were routed
  mutable TNameFinder fCounterFinder;
  std::vector<TZOPageLabel> fPageLabels;
  int fWalkLabel = 0;       ///< the label that the walk stands on, 0 when that is not known
  unsigned fWalkMoves = 0;  ///< of fData when fWalkLabel was noted
};

}  // namespace Zor::inline Base
