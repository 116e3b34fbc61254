#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/core/TItemIndex.hpp"
#include "kaldrix/core/TKDXBaseItem.hpp"
#include "kaldrix/core/TLabelContent.hpp"
#include "kaldrix/core/TLabelRanges.hpp"
#include "kaldrix/core/TNotices.hpp"
#include "kaldrix/core/TOwnedList.hpp"
#include "kaldrix/core/TSvgWriting.hpp"
#include "kaldrix/core/TUndoStack.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TNameFinder.hpp"
#include "kaldrix/types/Events.hpp"
#include "kaldrix/types/Interfaces.hpp"
#include "kaldrix/types/Records.hpp"
#include "kaldrix/types/TZORRect.hpp"

namespace Zor::inline Base {

class TKDXBackSurf;
class TKDXBaseLibSymbol;
class TKDXBasePrintInfo;
class TKDXCmd;
class TKDXCounter;
class TKDXData;
class TKDXDimStyle;
class TKDXLayer;
class TKDXMeasure;
class TKDXSettings;

/// The version that this library writes, in JSON and binary.
inline constexpr int FormatVersion = 3200;

/// The document: one drawing with its layers, items, styles, selection and undo stacks. Everything reaches
/// everything through it; a host subclasses it and makes the items.
///
/// Public accessors count from 1 and answer none, false or a reset value out of range; fActiveLayer,
/// fActiveDimStyle and stored layer indexes count from 0: each operation says what its index counts from.
/// An item, layer, style or counter of another document is refused with EArgumentException where an operation
/// would work on it; questions answer that it is not there. All of the class runs on the thread of its owner.
///
///   Lifecycle      TKDXBaseLabel.cpp
///   Bracket        TKDXBaseLabel.Bracket.cpp      brackets, observers, notifications
///   Items          TKDXBaseLabel.Items.cpp        items and identities
///   Layers         TKDXBaseLabel.Layers.cpp       layers, dimension styles, rotation
///                  TKDXBaseLabel.BoxLayer.cpp     page frame and title block
///   Links          TKDXBaseLabel.Links.cpp
///   Selection      TKDXBaseLabel.Selection.cpp
///   Values         TKDXBaseLabel.Values.cpp       units, conversions, editor mode
///   Pages          TKDXBaseLabel.Pages.cpp
///   Data           TKDXBaseLabel.Data.cpp         values, counters
///                  TKDXBaseLabel.Print.cpp        planning and filling the labels of a print
///                  TKDXBaseLabel.DataLists.cpp    pick lists
///   Undo           TKDXBaseLabel.Undo.cpp
///   JSON           TKDXBaseLabel.Json.cpp
///   Binary         TKDXBaseLabel.Binary.cpp
///   SVG            TKDXBaseLabel.Svg.cpp
class TKDXBaseLabel : public TComponent, public TLabelContent {
 public:
  ~TKDXBaseLabel() override;

  // Lifecycle --------------------------------------------------

  /// Back to an empty document: no items, symbols, counters, data or undo steps, the texts and scale of the
  /// measures as at first, not turned, and with one layer and one style, which stay the objects that they are
  /// and look as new ones do. Mode, units, sizes, settings, surface, print info, folders and options stay.
  void New();
  /// Removes what the set names; cleAll stands for all but the base layer and base style, which are the first
  /// ones. With `aPaint`, chSelect is sent when anything was selected or present.
  /// Items on layers that go stand on the first layer that is left; without one preview copies go too, and
  /// items that would be left raise EInvalidOperation, and nothing changes.
  void Clear(TZORClearOpts aValue, bool aPaint);
  /// Takes options, data, back surface, measures and folders of another document; items are not copied.
  void Assign(const TPersistent& aSource) override;
  void Loaded() override;
  void Notification(TComponent& aComponent, TOperation aOperation) override;

  // Bracket --------------------------------------------------

  /// Between the two, changes are gathered: one group of undo commands, one notification at the end. They do
  /// not nest, and an exception leaves the bracket open: see TUpdateBracket.
  void BeginUpdate(bool aPaintOnEnd);
  /// Closes the bracket, also when the calculation of an item or an observer throws.
  void EndUpdate();
  void EndUpdateSelection();
  /// Brackets the reading of a file, or with `aPaste` of a paste. Recording is off inside.
  void BeginRead(bool aPaste);
  void EndRead(bool aUnits);
  /// Calculates the waiting items, then the links whose nodes moved.
  void CalcPending();
  /// How an item reports a change; `aItem` matters for lsCalc and lsCalcNoUpdate only.
  void ChangeState(TKaldrixState aState, TKDXBaseItem* aItem);
  void AddState(TKaldrixState aState) { fStates.Add(aState); }
  void RemoveState(TKaldrixState aState) { fStates.Remove(aState); }
  bool IsReading() const { return fStates.Has(lsReading); }
  /// Loading or reading: setters then pass over notifications and validity steps.
  bool IsTakingValues() const { return IsLoading() || IsReading(); }
  void Refresh();
  void PaintEditor();
  void UpdateEditing(bool aFill);

  // Observers --------------------------------------------------

  /// Ignored when it is attached already. An observer of kind duEditor receives chLabelDef at once. The
  /// document does not own it, and forgets it when it goes.
  void Attach(IZOObserver* aObserver);
  void Detach(IZOObserver* aObserver);
  /// The same for one that hears of single items.
  void AttachItems(IZOItemObserver* aObserver) { fNotices.fObservers.Attach(aObserver); }
  void DetachItems(IZOItemObserver* aObserver) { fNotices.fObservers.Detach(aObserver); }
  /// Sends a change to the observers whose kind it is meant for. Inside a bracket chMeasure waits for its
  /// end.
  void ChangeValue(TZOChange aChange);
  TZOChangeValue GetChangedValue(TZOChange aChange) const;
  void FireInfoEvent(bool aNotify);

  // Changes of what a file holds --------------------------------------------------

  /// Every change comes by here once it is stored: of an item, or of something else. Sets fModified, and
  /// tells the observers of items.
  void ItemChanged(TKDXBaseItem& aItem) {
    CheckOwn(aItem);
    NoteChange();
    fNotices.Changed(aItem);
  }
  void ContentChanged() {
    NoteChange();
    fNotices.DocumentChanged();
  }
  /// Grows with every change, whatever clears fModified: a host that remembers it at saving knows whether
  /// there is something new.
  unsigned ContentVersion() const { return fContentVersion; }

  // Items --------------------------------------------------

  /// 1-based in fItems, the lowest first; none out of range.
  TKDXBaseItem* GetItem(int aIndex) const;
  int GetItemsCount() const { return fItems.Count(); }
  /// By identity (fInID); none when there is no such item. With `aScrollToView` it becomes the selection.
  TKDXBaseItem* SearchItem(int aID, bool aScrollToView);
  /// By name, compared without case.
  TKDXBaseItem* SearchItem(const std::string& aID, bool aScrollToView);
  TKDXBaseItem* ElementByID(const std::string& aID, bool aSelect);
  // Raise EArgumentException for what belongs to another document.
  void CheckOwn(const TKDXBaseItem& aItem) const {
    if (&aItem.Document() != this) RefuseForeign("item");
  }
  void CheckOwn(const TKDXLayer& aLayer) const;
  /// Raises it for a preview copy too.
  void CheckDrawn(const TKDXBaseItem& aItem) const;
  /// Does another item than `aItem` have this name, compared without case and outer blanks?
  bool RepeatID(std::string_view aID, const TKDXBaseItem* aItem);
  /// Deletes the item, and the attached links of fLinks with it; only the item itself is recorded.
  void DeleteItem(TKDXBaseItem* aItem, bool aRemoveSelection);
  /// Linear in the size of the drawing, however much is selected.
  void DeleteSelection();
  void SendToBack();
  void BringToFront();
  int NextID() { return fMaxID++; }
  /// Grows whenever items leave the document, round and round.
  unsigned GoneItems() const { return fGoneItems; }
  /// Grows when all items are cleared while the undo stacks stay: identities begin again, and the commands
  /// are about items of another drawing.
  unsigned Drawing() const { return fDrawing; }
  /// Gives an item a name without a check, command or report: for constructors and readers.
  void Rename(TKDXBaseItem& aItem, std::string aID) {
    CheckOwn(aItem);
    ChangeIdentity(aItem, aItem.fInID, std::move(aID));
  }
  /// Frees the symbols that no item uses, except the first.
  void CleanLibray();

  // Layers --------------------------------------------------

  // Indexes count from 1 where nothing else is said. Where a layer is given by its index, one out of range is
  // the first; without any layer EInvalidOperation is raised.

  /// 1-based; the first layer out of range.
  TKDXLayer& GetLayer(int aIndex) const;
  TKDXLayer& AddLayer();
  /// 0-based; -1 when it is not of this document.
  int LayerIdx(const TKDXLayer* aLayer) const;
  /// 0-based, as files store it and as fActiveLayer is; the first layer out of range.
  TKDXLayer* LayerAt(int aIndex) const;
  /// 1-based. False for the first layer, which keeps its place, and out of range.
  bool ExchangeLayers(int aIdx1, int aIdx2);
  /// 1-based, unlike fActiveLayer, which it sets to aIdx - 1. False when nothing changes, and out of range.
  bool SetActiveLayer(int aIdx);
  /// 1-based. Layer 1 cannot be deleted; items of another, and their preview copies, go to layer 1.
  bool DeleteLayer(int aIdx);
  std::vector<std::string> GetLayersNames() const;
  void SortItemsZLayer();
  void SetLayerZOrder(bool aValue);
  void CheckBackLayer();
  bool HasBackMargins() const;
  /// Makes, or brings up to date, page frame and title block; in emFlowChart and emDrawing only. With
  /// `aReset` they are made anew, and what stands on their layer or has one of their names goes, which no
  /// undo brings back.
  void FillBoxLayer(bool aReset);
  /// Turns the whole document a quarter; in emLabelling only.
  void RotateLeft();
  void RotateRight();

  // Dimension styles --------------------------------------------------

  /// 1-based; none out of range.
  TKDXDimStyle* GetDimStyle(int aIndex) const;
  /// By the identity that files and dimensions keep (fID), which is no index; none when there is none.
  TKDXDimStyle* GetDimStyleById(int aId) const;
  /// 0-based; -1 when it is not of this document.
  int DimIdx(const TKDXDimStyle* aStyle) const;
  /// 0-based, unlike SetActiveLayer. False when nothing changes, and out of range.
  bool SetActiveDimStyle(int aIdx);
  /// By name, compared without case.
  bool SetActiveDimStyle(const std::string& aName);
  bool DeleteActiveDimStyle();
  std::vector<std::string> GetDimStylesNames() const;

  // Links --------------------------------------------------

  /// How a link reports that it ends on other nodes.
  void LinkEndsChanged() { fLinkEnds.Forget(); }
  /// How a node reports that its link positions may have changed.
  void NodeMoved() { fLinksStale = true; }
  /// Brings the routes of all links up to date when a node moved, came or went; otherwise it costs nothing.
  void RouteLinks() {
    if (fLinksStale && !IsReading()) RouteStaleLinks();
  }
  /// The topmost visible and selectable node with a link position at (x, y), base points, told in `aLink`. A
  /// search for the first end of a new link (`aFirst`) forgets the positions in `aLink`.
  bool SearchLink(Int64 x, Int64 y, TZOLink& aLink, bool aFirst) const;
  /// Makes fLinks the links with an end on a selected item. Linear in the size of the drawing: for the end of
  /// a change of the selection, not for each item of it.
  void FillLinkList();

  // Selection --------------------------------------------------

  void AddToSelection(TKDXBaseItem& aItem, bool aNotify);
  void SetSelection(TKDXBaseItem* aItem, TZORItemState aState);
  void ClearSelection(bool aNotify);
  /// The first selected item, or none.
  TKDXBaseItem* Select() const { return fSelection.empty() ? nullptr : fSelection.front(); }
  /// 1-based, in order of selecting; none out of range.
  TKDXBaseItem* GetSelection(int aIndex) const;
  bool Selected(const TKDXBaseItem& aItem) const {
    return aItem.fState == isSelected && &aItem.Document() == this;
  }
  /// By identity (fInID).
  bool IsInSelection(int aInID) const;
  bool SelectNext();
  bool SelectPrior();
  void ScrollItem(TKDXBaseItem* aItem);
  IZORText* GetTextObject() const;

  // Values --------------------------------------------------

  void SetEditorMode(TZOREditorMode aMode);
  void SetUnits(TZORUnits aUnits);
  void SetLngFileName(const std::string& aValue);
  void SetEditable(bool aValue) { fEditable = aValue; }
  void SetBackSurf(const TKDXBackSurf* aValue);
  void SetMeasure(const TKDXMeasure* aValue);
  void SetSettings(const TKDXSettings* aValue);
  /// Only in emDrawing and emInteractive do large units and a drawing scale apply.
  bool IsDrawingMode() const { return fEditorMode == emDrawing || fEditorMode == emInteractive; }
  TZORUnits RestrictedUnit() const { return UnitFacts(fUnits).restricted ? unMM : fUnits; }

  /// Base points to document units; with `aRestric` a large unit counts as millimetres.
  Single GetVal(Int64 aBase, bool aRestric) const {
    return GetValue(aBase, aRestric ? RestrictedUnit() : fUnits);
  }
  /// Document units to 32-bit base points, held at their ends.
  int SetVal(Single aValue, bool aRestric) const;
  /// Base points to millimetres of paper.
  Single GetValMM(Int64 aBase) const;
  /// Base points in one millimetre of paper.
  double PaperFactor() const;
  Int64 SetValMM(Single aMM) const { return SetBaseValue(aMM); }
  Int64 BaseAsMM(Single aMM) const { return SetBaseValue(aMM); }
  /// Millimetres to document units.
  Single BaseValue(Single aMM) const;
  Single GetValFromMM(Single aMM) const { return BaseValue(aMM); }
  Single UnitValue(Single aValue, bool aRestric) const;
  /// The offset of a paste: 2 mm of paper, in base points.
  Int64 BaseMoveInc() const;
  Single GetDrawValue(Single aValue, int aDpi) const;
  Single GetDrawValue(Int64 aBase, int aDpi) const;
  Single GetDataDrawValue(int aValue, int aDpi) const;
  int GetPrintValue(Single aValue, int aDpi) const;
  Int64 GetPrintFromBase(Int64 aBase, int aDpi) const;
  Single GetDataPrintValue(int aValue, int aDpi) const;
  /// The folder of images, absolute.
  std::string GetAbsoluteImagePath() const;

  // Pages --------------------------------------------------

  /// Moves the print state to a page, 1-based; with `aFillData` its labels take their values.
  void GoToPage(int aPage, bool aFillData, bool aCheck);
  /// Widens the values by all items that are shown and exported; the caller passes -1 in all four.
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const;

  // Data --------------------------------------------------

  /// The text of a binding for the current label; empty for a kind that gives none (ftCsv among them: CSV
  /// columns are bound as ftField).
  std::string DataValue(const std::string& aField, const std::string& aFormat, TZORFillType aFill) const;
  /// The same as a number; a text that is no number counts as 0. Whole numbers are truncated and held at the
  /// ends of 32 bits.
  int DataIntValue(const std::string& aField, TZORFillType aFill) const;
  Single DataNumValue(const std::string& aField, TZORFillType aFill) const;
  /// See TKDXData::DataGraphic.
  bool DataGraphic(const std::string& aField, std::string& aStream) const;
  /// Names of counters are compared without case. None when there is none.
  TKDXCounter* FindCounter(std::string_view aName) const;
  /// Has another counter than `aCounter` that name?
  bool CounterName(std::string_view coName, const TKDXCounter* aCounter) const;
  /// The text of the current number; empty when there is no such counter.
  std::string CounterValue(std::string_view aName) const;
  /// 1-based; none out of range.
  TKDXCounter* GetCounter(int aIndex) const;
  int GetCounterCount() const { return fCounters.Count(); }
  /// Unbinds the items that show the counter, and frees it. False, and nothing happens, when it is not of
  /// this document.
  bool RemoveCounter(TKDXCounter* aCounter);
  /// Takes the binding from the items that are bound by that kind to a name which `aMatches` accepts. Not
  /// recorded.
  void Unbind(TZORFillType aFill, const std::function<bool(const std::string&)>& aMatches);

  // Printing labels --------------------------------------------------

  /// Plans a print: which counters, lists and questions the printed items use, how many labels and pages
  /// there are, and what drives the walk (fPrintInfo). Opens the source, see TKDXData::Reset for what it
  /// raises, and frees the preview copies.
  virtual void CheckPrintData();
  /// Narrows a planned print to some of its labels, 1-based, which then begin at the first cell of page 1.
  /// False, and nothing changes, when there are none.
  bool SetLabelRange(int aFirst, int aLast) { return SetLabels({aFirst, aLast}); }
  /// The same for any labels; what lies behind the last one is passed over.
  bool SetLabels(const TLabelRanges& aLabels);
  /// The number of the label in the first cell of a page, both 1-based, held inside 32 bits.
  int FirstLabelOfPage(int aPage) const;
  /// How many labels of the print stand on that page, 1-based, and those after it; 0 or less when there are
  /// none.
  Int64 LabelsFromPage(int aPage) const;
  /// One label further, in records and counters alike.
  void NextData();
  /// Fills the preview copies of a page, 1-based, from the current label on, and notes what stands in its
  /// cells.
  /// Nothing when the page was filled last. Raises EInvalidOperation for more than MostPageLabels labels.
  void FillDataPage(int aPage);
  /// What the cells of the page that was filled last show, in order.
  const std::vector<TZOPageLabel>& GetPageLabels() const { return fPageLabels; }
  /// Back to the first value, while counters run. See TKDXData::First.
  void ResetCounters();
  /// A copy of an item for a cell of the sheet, which joins fPreview. Not recorded. Rows and columns count
  /// from 1; a copy at 0, 0 stands on no sheet.
  TKDXBaseItem& MakePreviewCopy(const TKDXBaseItem& aItem, int aRow, int aCol);
  void ClearPreview();
  static constexpr int MostPageLabels = 100'000;

  // Pick lists. Each replaces `List`; with `aData`, its first line takes a binding away. Names stand behind
  // the marker of their kind, or without `IncSymbol` alone.
  // --------------------------------------------------

  /// All fields of the selected source, then counters, lists and questions; always with markers.
  void GetDataFields(std::vector<std::string>& List, const std::string& aData, bool AddCounters) const;
  void GetImgFields(std::vector<std::string>& List, const std::string& aData, bool IncSymbol) const;
  void GetIntFields(std::vector<std::string>& List, const std::string& aData, bool IncSymbol,
                    bool AddCounters) const;
  void GetNumFields(std::vector<std::string>& List, const std::string& aData, bool IncSymbol,
                    bool AddCounters) const;
  void GetTxtFields(std::vector<std::string>& List, const std::string& aData, bool IncSymbol) const;
  /// The fields of a detail, without markers.
  void GetDetailFields(std::vector<std::string>& List, const std::string& aData,
                       const std::string& dName) const;
  /// The details of every source.
  void GetDetails(std::vector<std::string>& List, bool IncSymbol) const;
  /// The selected source and its details.
  void GetDataDetails(std::vector<std::string>& List, const std::string& aData, bool IncSymbol) const;
  /// The fields behind a line of GetDataDetails: of the selected source, or of a detail.
  void GetMasterDetailFields(std::vector<std::string>& List, const std::string& dSymName, bool IncSymbol,
                             bool ExcludeImg) const;

  // Undo --------------------------------------------------

  void Undo();
  void Redo();
  bool IsUndoEmpty() const { return fUndo.IsEmpty(); }
  bool IsRedoEmpty() const { return fRedo.IsEmpty(); }
  /// The group number for a new command.
  int UnReID();
  bool IsRecording() const { return fOptions.Has(loUndoRedo); }
  /// The stack that new commands go to: fRedo while an undo runs.
  TUndoStack& ActiveStack() { return fUndoing ? fRedo : fUndo; }
  void FireUndoRedoEvent();
  /// An item came back, perhaps under another identity: the commands about the same item as `aCommand`
  /// follow.
  void HandOver(const TKDXCmd& aCommand, const TKDXBaseItem& aItem);

  // Diagrams --------------------------------------------------

  /// Draws the diagram of a Mermaid or PlantUML text with the registered loader; false without one, and when
  /// it found nothing to draw. See ZORSetDiagramLoader.
  bool LoadFromDiagramText(const std::string& aText, TZORDiagramFormat aFormat);
  /// The same for a text file, see TextOfFile. dgAuto looks at the extension first. False for a missing file.
  bool LoadFromDiagram(const std::string& aFilename, TZORDiagramFormat aFormat);

  // JSON --------------------------------------------------

  std::unique_ptr<TJsonObject> GetJson() const;
  std::string GetJsonString(bool aCompact) const;
  /// Reads everything up to and including "Counters". The caller brackets it, and reads the rest after it.
  void ReadJson(TJsonObject& aJson);
  /// Makes the item that an entry of "Items" tells. Raises EJsonException, and then leaves no item behind.
  TKDXBaseItem& ReadJsonItem(int aVersion, TJsonObject& aJson);

  // Binary --------------------------------------------------

  void WriteBaseData(TBinaryWriter& bW) const;
  /// Ends with CleanLibray.
  void WriteData(TBinaryWriter& bW);
  void ReadBaseData(TBinaryReader& bR);
  void ReadData(TBinaryReader& bR);
  /// Makes the item that a record tells, type first. Raises EReadError, and then leaves no item behind.
  TKDXBaseItem& ReadItem(int aVersion, TBinaryReader& bR, TZORReadType aReadType);
  /// Puts the records of the selected items into fMemCopy.
  void CopySelection();

  // SVG --------------------------------------------------

  /// The whole document as it shows on paper: every number in millimetres of paper, times the factor where
  /// the mode has one, and items that are bound to open data with the values of the current record. With
  /// `attrID` elements carry the names of their items.
  std::string SVG(TZORExportSVG aExportType, Single aFactor, bool attrID);
  /// The same, seen through a window.
  std::string SVG(const TSvgWriting& aWriting, const TSvgWindow& aWindow);
  /// The whole label.
  TSvgWindow SvgWindow() const;
  /// The opening tag of the root element. Width and height are in the unit of the document where the mode
  /// writes units, in millimetres for the large units, which SVG does not know; without units they are what
  /// the viewBox says.
  std::string SvgRoot(const TSvgWriting& aWriting, const TSvgWindow& aWindow) const;
  void SaveSVG(const std::string& aFilename, TZORExportSVG aExportType, Single aFactor, bool attrID);

  // Supplied by the host --------------------------------------------------

  // Each makes the item of its kind, which enters the document by itself. Base points; angles in degrees.
  virtual TKDXBaseItem* NewText(Int64 x, Int64 y) = 0;
  virtual TKDXBaseItem* NewPoint(Int64 x, Int64 y) = 0;
  virtual TKDXBaseItem* NewLine(Int64 x1, Int64 y1, Int64 x2, Int64 y2) = 0;
  /// Of the first high + 1 points; so are the other two that take points.
  virtual TKDXBaseItem* NewPolyLine(const TZORPtoA& pts, int high) = 0;
  virtual TKDXBaseItem* NewBezier(const TZORPtoA& pts, int high) = 0;
  virtual TKDXBaseItem* NewArc(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) = 0;
  virtual TKDXBaseItem* NewRectangle(Int64 x, Int64 y, Int64 w, Int64 h) = 0;
  virtual TKDXBaseItem* NewPolygon(const TZORPtoA& pts, int high) = 0;
  virtual TKDXBaseItem* NewCircle(Int64 cx, Int64 cy, Int64 r) = 0;
  virtual TKDXBaseItem* NewCircle2P(Int64 x1, Int64 y1, Int64 x2, Int64 y2) = 0;
  virtual TKDXBaseItem* NewCircle3P(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3) = 0;
  virtual TKDXBaseItem* NewSector(Int64 cx, Int64 cy, Int64 r, Single aStart, Single aGap) = 0;
  virtual TKDXBaseItem* NewSector2P(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Single aStart, Single aGap) = 0;
  virtual TKDXBaseItem* NewSector3P(Int64 x1, Int64 y1, Int64 x2, Int64 y2, Int64 x3, Int64 y3, Single aStart,
                                    Single aGap) = 0;
  virtual TKDXBaseItem* NewEllipse(Int64 cx, Int64 cy, Int64 rx, Int64 ry) = 0;
  /// Codes are UTF-8. Those of two dimensions raise what their encoders raise, and then leave no item behind.
  virtual TKDXBaseItem* NewBarcode(Int64 x, Int64 y, const std::string& code, TZORBarType aType) = 0;
  virtual TKDXBaseItem* NewPDF417(Int64 x, Int64 y, const std::string& code) = 0;
  virtual TKDXBaseItem* NewDataMatrix(Int64 x, Int64 y, const std::string& code) = 0;
  virtual TKDXBaseItem* NewQRCode(Int64 x, Int64 y, const std::string& code) = 0;
  /// A link between the link positions of two nodes, which are told by their identities (fInID). Positions
  /// count from 1, as IZORLink::LinkPoint does; 0 is the middle of a node.
  virtual TKDXBaseItem* NewLink(int fromID, int toID, int fromPos, int toPos, TZOLinkType aType) = 0;
  /// The same with the first high + 1 points as the inner points of its route; for ltPolyline.
  virtual TKDXBaseItem* NewPolyLink(int fromID, int toID, int fromPos, int toPos, TZOLinkType aType,
                                    const TZORPtoA& pts, int high) = 0;
  virtual TKDXBaseItem* NewFlow(Int64 x, Int64 y, Int64 w, Int64 h, TZORFlowType aType) = 0;
  /// An item of that kind with start values, as a reader needs it; none when the host has no class for it.
  virtual TKDXBaseItem* NewItemOfType(TZORItemType aType, bool aPreview) = 0;

  virtual void PrinterChanged() = 0;
  /// Reads version and item record from the start of an undo record; the new item is the last of fItems.
  virtual void CreateElementFromStream(std::string_view aStream) = 0;
  /// Pastes fMemCopy.
  virtual void PasteSelection() = 0;
  virtual void Print() = 0;
  /// `aPage` counts from 1; 0 is the label alone.
  virtual void ExportDoc(TZORExport aType, const std::string& aFilename, int aPage, Single aScale,
                         int aQuality, bool aCheckData, bool aTransparent, bool aFit) = 0;
  virtual void LoadFromFile(const std::string& aFilename) = 0;
  virtual void SaveToFile(const std::string& aFilename, TZORExt aFormat) = 0;

  // Parts, which live as long as the document; a load replaces what they hold ------------------------

  std::unique_ptr<TKDXBackSurf> fBackSurf;
  std::unique_ptr<TKDXSettings> fSettings;
  std::unique_ptr<TKDXMeasure> fMeasure;
  std::unique_ptr<TKDXData> fData;
  std::unique_ptr<TKDXBasePrintInfo> fPrintInfo;

  // What is set for the document, and stays over a load --------------------------------------------------

  bool fLayerZOrder = false;  ///< keep items sorted by the position of their layer
  bool fEditable = true;
  bool fShowDispWidthHandle = false;
  std::string fLngFileName;
  std::string fImageFolder, fOpenImgFolder, fLibraryFolder;
  bool fNeedReadImg = false;

  // Transient state --------------------------------------------------

  TObserverList<IZOObserver> fObservers{[this] { LookForEditors(); }};
  TNotices fNotices{*this};
  bool fConEditors = false;  ///< an observer of kind duEditor is attached
  TZORSInfo fInfo;
  TZOChangeValue fChangeVal;  ///< what chEditInspect hands over
  bool fUndoing = false, fRedoing = false;
  std::string fMemCopy;  ///< the internal clipboard

  // Events --------------------------------------------------

  TZORInfoMsgEvent fOnInfoMsg;
  TZORGetFontListEvent fOnGetFontListEvent;
  TZORUndoRedoEvent fOnUndoRedoEvent;
  TZORReadSymEvent fOnReadSymEvent;
  std::function<void(TKDXBaseLabel*, TKDXBaseItem*)> fOnSelectItem, fOnUnSelectItem;
  std::function<void(TKDXBaseLabel*)> fOnLabelRotate, fOnBeforePrint, fOnAfterPrint;
  TZORGMLCoordinateTransformEvent fOnGMLCoordinateTransform;

 protected:
  explicit TKDXBaseLabel(TComponent* aOwner);
  const char* ClassName() const override { return "TKDXBaseLabel"; }

  /// What lies behind the items of an exported document, for layers with lopExportBack; the host knows
  /// images.
  virtual void WriteBackSVG(TSvgList& /*svg*/, TSvgList& /*defs*/, TZORExportSVG /*aType*/,
                            Single /*aFactor*/) const {}
  /// The handles of the selection are made again; the editor's business.
  virtual void FillSelPoints() {}
  /// Crossings are computed again; the editor's business.
  virtual void CheckIntersetions() {}

 private:
  friend class TKDXBaseItem;
  friend class TContentKeeper;
  friend class TItemMark;
  friend class TRecordCopies;

  [[noreturn]] static void RefuseForeign(const char* aWhat);
  // An item comes, goes, or changes its name.
  void Enlist(TKDXBaseItem& aItem, bool aPreview);
  void Forget(TKDXBaseItem& aItem);
  /// For an item whose constructor raised.
  void Unmake(TKDXBaseItem& aItem);
  void Free(TKDXBaseItem& aItem);
  /// The first layer and the first style.
  void MakeFirst();
  /// The items on the layers from that one on, 0-based, stand on a layer of another number.
  void TellOfLayersFrom(int aIndex);
  /// An item of a kind that a file names by its ordinal.
  TKDXBaseItem& MakeStoredItem(Int64 aOrdinal);
  void ChangeIdentity(TKDXBaseItem& aItem, int aInID, std::string aID);
  void FreeAll(TItemList& aList);
  /// Calls `aBefore` with each item and frees it, last to first; those that are told twice once. Linear.
  void FreeMany(std::vector<TKDXBaseItem*>& aItems, void (TKDXBaseLabel::*aBefore)(TKDXBaseItem&) = nullptr);
  void RecordDeletion(TKDXBaseItem& aItem);
  /// Takes items out of the drawing, and leaves each in the list once.
  void ExtractMany(std::vector<TKDXBaseItem*>& aItems);
  void TakeBack(TKDXBaseItem& aItem);
  TKDXBaseItem* FindName(std::string_view aID);
  /// The links of fLinks that end on selected items and are not selected themselves.
  std::vector<TKDXBaseItem*> AttachedLinks() const;
  /// Takes items out of the drawing that are told in its order, without a look at any. False when some were
  /// told in another order, and are still there.
  bool ExtractInOrder(const std::vector<TKDXBaseItem*>& aItems);
  void DeleteAttachedLinks(const IZORLink& aNode);
  void RouteStaleLinks();
  void Defer(TKDXBaseItem& aItem);
  void Undefer(TKDXBaseItem& aItem);
  /// Moves the first selected item to that place in fItems, 0-based.
  void Restack(TKDXBaseItem& aItem, bool aTop);
  /// An item has another layer.
  void FollowLayer(const TKDXBaseItem& aItem);

  void ClearSelectionSilently();
  void Deselect(const TKDXBaseItem& aItem);
  /// Takes a link out of fLinks; false when it is not there.
  bool DropLink(const TKDXBaseItem& aLink);
  bool SelectNeighbour(int aStep);
  void TellSelected(TKDXBaseItem& aItem);
  void TakeOnly(TKDXBaseItem& aItem, TZORItemState aState);
  void CloseBracket();
  void LookForEditors();
  void AssignPart(TPersistent& aPart, const TPersistent& aValue);
  void Send(TZOChange aChange, const TZOChangeValue& aValue);
  void NoteChange() {
    fModified = true;
    ++fContentVersion;
  }
  void RunCommands(TUndoStack& aStack, void (TKDXCmd::*aStep)());
  /// Gives the group of the command; `aMoved` is set when bounds were made anew.
  int RunCommand(TUndoStack& aStack, void (TKDXCmd::*aStep)(), bool& aMoved);
  /// Calls a host's event; what it throws waits, as what observers throw.
  template <class TCall>
  void Guarded(TCall aCall) {
    try {
      aCall();
    } catch (...) {
      fNotices.GoOn(std::current_exception());
    }
  }
  void Rotate(int aStep, void (TKDXBaseItem::*aTurn)());
  void TurnContent(void (TKDXBaseItem::*aTurn)());
  TKDXLayer* BoxLayer(bool& aMade);
  /// Items and preview copies whose layer `aLeaves` accepts go to `aLayer`.
  template <class TTest>
  void MoveToLayer(TKDXLayer& aLayer, TTest aLeaves);
  // 0-based. What stands on the layer, or has the style, takes the first that is left; so does the active
  // one.
  void RemoveLayer(int aIndex);
  void RemoveDimStyle(int aIndex);
  void ClearLayers(bool aOthers, bool aBase);
  void ClearDimStyles(bool aOthers, bool aBase);
  void ClearCommands();
  void MakeBox(TKDXLayer& aLayer);
  void FillBoxTexts();
  void GoToLabel(int aLabel);
  void WalkTo(int aLabel);
  /// Is fWalkLabel still where the walk stands? Hosts may move the data by themselves.
  bool KnowsLabel() const;
  void PlanItems();
  void PlanCounter(std::string_view aName);
  void PlanPages();
  void NoteLabel(int aLabel, int aRow, int aColumn, std::vector<std::string> aProblems);
  std::unique_ptr<TJsonObject> GetJsonSections() const;
  void ClearForRead();
  void ReadSymbol(TJsonObject& aJson);
  void CheckActive();
  void RecordBase(TRecord& r);
  void CheckNeedDrawUnits();

  TItemIndex fIndex;
  unsigned fGoneItems = 0;
  unsigned fContentVersion = 0;
  unsigned fDrawing = 0;
  /// While a load keeps the former content, what observers would be told waits for its success.
  struct THeldBack {
    bool hadContent = false;  ///< items or a selection, before the load
    bool undoRedo = false;
    std::vector<TZOChange> changes;
  };
  std::unique_ptr<THeldBack> fHeldBack;
};

}  // namespace Zor::inline Base
