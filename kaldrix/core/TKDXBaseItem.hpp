#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kaldrix/core/IZOItemObserver.hpp"
#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/core/TSvgWriting.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TBinaryReader.hpp"
#include "kaldrix/platform/TBinaryWriter.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Interfaces.hpp"
#include "kaldrix/types/ItemFacts.hpp"
#include "kaldrix/types/TZORPtoA.hpp"
#include "kaldrix/types/TZORRect.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;
class TKDXDimStyle;
class TKDXLayer;

/// The elements of an SVG document: one entry an element, in painting order.
using TSvgList = std::vector<std::string>;

/// A drawn thing of a document: the ground that all item classes stand on.
///
/// An item enters its document in its constructor and leaves it in its destructor; nobody adds it. Only the
/// document frees items. Coordinates are base points (1000 to the millimetre of the drawn object) unless an
/// operation says document units or millimetres; millimetres of paper contain the drawing scale. Point
/// indexes count from 1.
///
/// Every setter follows one pattern: it compares and returns on an equal value, records an undo command,
/// stores, reports the change to the document, and tells it that the item is another one (TEdit). The
/// exceptions say so. Whoever writes the public fields tells the document by ItemChanged.
class TKDXBaseItem : public TPersistent, public IZORStroke {
 public:
  /// With `aPreview` the item is a preview copy and joins fPreview, else fItems as the topmost.
  TKDXBaseItem(TKDXBaseLabel& aOwner, TZORItemType aType, bool aPreview);
  TKDXBaseItem(TKDXBaseLabel& aOwner, TZORItemType aType, TKDXLayer& aLayer, bool aPreview);
  ~TKDXBaseItem() override;

  // Queries --------------------------------------------------

  TKDXBaseLabel& Document() const { return *fOwner; }
  const std::string& GetID() const { return fID; }
  virtual TZORAngle GetAngle() const { return fAngle; }
  TKDXLayer& GetLayer() const { return *fLayer; }
  TZOLayerOpts GetOptions() const { return fOptions; }
  /// Do the item and its layer both have the option?
  bool Shows(TZOLayerOp aOption) const;

  // Properties --------------------------------------------------

  /// The name that users see. Where the document asks for unique names (loUniqueID) it is trimmed, and one
  /// that another item has raises the message RepeatID and changes nothing.
  void SetID(const std::string& aValue);
  virtual void SetAngle(TZORAngle aValue);
  /// Stores; no undo command.
  void SetLayer(TKDXLayer& aLayer);
  /// Stores; no undo command, no report.
  void SetOptions(TZOLayerOpts aValue);
  Single GetPenWidth() const override;
  TAlphaColor GetColor() const override { return fColor; }
  void SetColor(TAlphaColor aValue) override;
  /// Millimetres; recorded, not reported.
  void SetPenWidth(Single aMM) override;

  // Points, 1-based --------------------------------------------------

  /// (0, 0) out of range.
  TZORPto GetPoint(int aIndex) const;
  /// Document units; 0 out of range.
  Single GetPointX(int aIndex) const;
  Single GetPointY(int aIndex) const;
  /// Millimetres of paper; 0 out of range.
  Single GetPointMMX(int aIndex) const;
  Single GetPointMMY(int aIndex) const;
  /// Document units. Recorded; bounds follow unless the document is reading. Nothing out of range.
  void SetPointX(int aIndex, Single aValue);
  void SetPointY(int aIndex, Single aValue);
  /// Base points, without command, report or bounds. Nothing out of range.
  void SetPoint(int aIndex, const TZORPto& aPoint);
  void SetBase(int aIndex, Int64 x, Int64 y);
  void SetBaseX(int aIndex, Int64 x);
  void SetBaseY(int aIndex, Int64 y);
  /// Copies the points 0 to `aHigh` of the list over the first of the item's, then updates the bounds.
  void AssignPoints(const TZORPtoA& aPoints, int aHigh);
  /// 1-based. Only polylines, polygons and Beziers lose a point; the bounds are left to the caller.
  bool DeletePoint(int aIndex);

  // Movement --------------------------------------------------

  /// A coordinate that is negative or beyond the label turns into -1. The point counts from 1; all are
  /// treated alike.
  void BasePointMove(Int64& ax, Int64& ay, int aIndex) const;
  /// Sets fmx, fmy to the way to the next grid line right or left, and down or up; the caller applies them.
  void MoveToGrid(int aGX, int aGY, bool aRight, bool aDown);
  /// Sets fmx, fmy to the way of point 1 to (x, y); false when nothing remains. The caller applies them.
  bool MoveToPoint(Int64 x, Int64 y);
  /// Cuts a move so that the bounds stay on the label. Sectors are left alone.
  void CheckBaseBoundsMove(Int64& ax, Int64& ay) const;
  /// Cuts the move of an edge or corner of a box of two points.
  void CheckBaseBoundsMoveResize(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const;

  // Reference points and alignment --------------------------------------------------

  int GetNumRefPoints() const;
  /// 1-based, up to GetNumRefPoints.
  virtual TZORPto GetRefPoint(int aIndex) const;
  /// The axes on which the item takes part in spacing and alignment.
  TZORAlignTypes AlignTypes() const;
  /// The extent on one axis, anHorz for x. Some kinds leave both values alone.
  void AlignPoints(TZORAlignType aType, Int64& aMin, Int64& aMax) const;

  // Conversions --------------------------------------------------

  /// Base points to millimetres of paper.
  Single FromBase(Int64 aBase) const;
  Single GetMM(Int64 aBase) const { return FromBase(aBase); }
  /// Millimetres of paper of the point of a circle; angle in radians.
  Single XFromBaseAngle(Int64 aBase, Int64 aRadius, double aAngle) const;
  Single YFromBaseAngle(Int64 aBase, Int64 aRadius, double aAngle) const;

  // Drawing --------------------------------------------------

  /// Paints the item; on a preview or export an item that shows data is painted by its copies on the sheet.
  void DrawElement(TKDXBaseDraw& drw);
  void DrawPreview(TKDXBaseDraw& drw);
  void PrintElement(TKDXBaseDraw& drw);
  /// The cell of a preview copy; both count from 1.
  void PreviewPos(int aColumn, int aRowOnSheet);

  // Reports to the document --------------------------------------------------

  void StateModified();
  /// The look changed.
  void StateUpdate();
  /// Geometry or text metrics changed: the item waits for CalcValues.
  void StateCalc();
  void NotifyUpdate(TZOChange aChange);

  // Persistence --------------------------------------------------

  void Write(TBinaryWriter& bW) { WriteData(bW); }
  /// ` id="..." ` with the blanks of the name removed, or nothing.
  std::string GetSVGID(bool aAttr) const;

  // Operations of the classes --------------------------------------------------

  /// Document units; 1-based. 0 where a class has no such points.
  virtual Single GetRefX(int aIndex) const;
  virtual Single GetRefY(int aIndex) const;
  /// Is the position on the item? `gap` is a tolerance in base points; `aInt` asks for the inside as well.
  virtual bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const;
  /// With `aInt`: does the item meet the rectangle; without: does it lie wholly inside.
  virtual bool SearchRect(const TZORRect& aRect, bool aInt) const;
  /// Is there a snap point within `gap`? It is then told in `aRef`.
  virtual bool CheckPoint(Int64 ax, Int64 ay, int gap, TZORSnap aSnap, TZORRef& aRef) const;
  virtual std::unique_ptr<TJsonObject> WriteJson() const;
  /// Does the item vary with data?
  virtual bool GetIsData() const { return false; }
  /// Widens the four values so that they hold the item; -1 means not set yet.
  virtual void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const;
  /// Reads what WriteJson wrote. The document's units must stand. Raises EJsonException naming the key.
  virtual void ReadJson(int aVersion, TJsonObject& aJson);
  virtual void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                        bool attrID) const = 0;
  /// The elements with which a document shows the item: those of WriteSVG, all numbers in millimetres of
  /// paper and lengths as they were set, whatever unit and drawing scale.
  virtual void WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const {
    WriteSVG(svg, defs, aWriting.type, aWriting.factor, aWriting.ids);
  }
  virtual void UpdateBounds();
  virtual void UpdatePoints() { UpdateBounds(); }
  /// Puts two points in order: point 1 at the top left.
  virtual void CheckPosition();
  /// Turns the item with the document, whose size has been exchanged already.
  virtual void RotateLeft();
  virtual void RotateRight();
  virtual void FillData(bool /*aFirst*/) {}
  /// Why the item cannot show the value that it has; empty when it can.
  virtual std::string ValueProblem() const { return {}; }
  /// Writes type and record.
  virtual void WriteData(TBinaryWriter& bW) const;
  /// Reads the record; the type has been read. Raises EReadError.
  virtual void ReadData(int aVersion, TBinaryReader& bR, TZORReadType aReadType);
  /// Cuts a move in document units so that the item stays on the label.
  virtual void BoundsMove(Single& ax, Single& ay) const;
  virtual void CheckBaseBoundsMove(Int64& ax, Int64& ay, TZORMoveOpt aMoveOp) const;
  /// Moves all points, or one edge or corner. For those, grX and grY are the new coordinate when not
  /// negative, else ax and ay are the way; for moAll a positive grX, grY is a grid that point 1 snaps to.
  virtual void BaseMove(Int64 ax, Int64 ay, Int64 grX, Int64 grY, TZORMoveOpt aMoveOp, bool aUpdate);
  virtual void DrawItem(TKDXBaseDraw& drw) = 0;
  virtual void PrintItem(TKDXBaseDraw& drw) = 0;
  virtual void CalcValues(int /*aType*/) {}
  virtual int NumPoints() const { return static_cast<int>(fPoints.size()); }
  virtual bool InsertPoint(Int64 /*bx*/, Int64 /*by*/, int /*gap*/) { return false; }
  virtual TZORBase CenterPoint() const = 0;
  /// Moves or resizes in document units.
  virtual void Move(Single ax, Single ay, TZORMoveOpt aMoveOp);
  /// After a load: finds again what the item refers to by identity.
  virtual void ResolveReferences() {}
  /// The identities of the nodes that a link ends on.
  virtual std::pair<int, int> EndIDs() const { return {0, 0}; }
  /// Is this a link with an end on a selected item?
  virtual bool IsAttachedToSelection() const { return false; }
  /// The nodes of the document moved, came or went: a link takes its route from its ends again.
  virtual void FollowEnds() {}
  /// Does its text tell a measure in document units?
  virtual bool ShowsMeasure() const { return false; }
  /// Marks the symbol that the item shows, if it shows one.
  virtual void MarkSymbolInUse() const {}
  /// A dimension that has the first style takes the other, since the first is about to go.
  virtual void ReplaceDimStyle(const TKDXDimStyle& /*aGoing*/, TKDXDimStyle& /*aOther*/) {}

  // State --------------------------------------------------

  std::string fID;
  TKDXLayer* fLayer;      ///< not owned
  TKDXBaseLabel* fOwner;  ///< the document
  TZORPtoA fPoints;
  TZORRect fBoundsRect;
  mutable TZORRect fCheckRect;  ///< working rectangle of tests
  Int64 fmx = 0, fmy = 0;       ///< results of MoveToGrid and MoveToPoint
  int fInID = 0;                ///< identity inside the document
  TAlphaColor fColor = ColorBlack;
  TZOLayerOpts fOptions{lopVisible, lopPrint, lopSelectable, lopExport};
  int fPenWidth = 100;              ///< base points
  std::int16_t aRow = 0, aCol = 0;  ///< place of a preview copy on the sheet, 1-based; 0 off a sheet
  TZORItemType fItemType;
  TZORAngle fAngle = ag0;
  TZORItemState fState = isNormal;
  bool fChanged : 1 = false;
  bool fNeedRead : 1 = false;
  bool fResize : 1 = false;  ///< can be resized by handles
  bool aIsData : 1 = false;  ///< shows a data value
  bool fFromPreview : 1 = false;

 protected:
  /// The record after the type: told once, for writing and for reading. A class calls its parent's first.
  virtual void Record(TRecord& r);
  /// Runs after a record or JSON object has been read, before the bounds are made; a class calls its
  /// parent's.
  virtual void AfterRead(TZORReadType /*aReadType*/) {}
  const char* ClassName() const override;

  /// A change of what a file holds of the item, from before it until all that follows from it is done: then
  /// the document's fModified is set, and observers of items are told.
  class TEdit {
   public:
    explicit TEdit(TKDXBaseItem& aItem);
    TEdit(const TEdit&) = delete;
    TEdit& operator=(const TEdit&) = delete;
    ~TEdit() noexcept(false);

   private:
    TKDXBaseItem& fItem;
    int fExceptions;
  };

  /// The setter pattern: compare, record a command of class TCmd with `aIndex`, store, report. A setter that
  /// does more behind it opens a TEdit in front of it. True on a change.
  template <class TCmd, class T>
  bool Change(T& aField, const T& aValue, int aIndex, void (TKDXBaseItem::*aReport)() = nullptr) {
    if (aField == aValue) return false;
    const TEdit edit(*this);
    TCmd::AddCommand(*this, aIndex);
    aField = aValue;
    if (aReport != nullptr) (this->*aReport)();
    return true;
  }
  /// Stores, without command and report.
  template <class T>
  void Keep(T& aField, const T& aValue) {
    if (aField == aValue) return;
    const TEdit edit(*this);
    aField = aValue;
  }
  /// Puts a point that follows from others in its place; nobody is told.
  void PlacePoint(int aIndex, Int64 x, Int64 y) {
    if (HasPoint(aIndex)) fPoints[static_cast<std::size_t>(aIndex - 1)] = {x, y};
  }
  /// Points of a free number behind their count.
  static void RecordPoints(TRecord& r, TZORPtoA& aPoints, TZORItemType aType);
  bool HasPoint(int aIndex) const { return aIndex >= 1 && aIndex <= static_cast<int>(fPoints.size()); }
  /// Are the items with two points of this kind kept with point 1 at the top left?
  void NormalizePoints();
  /// Snap tests that several classes share; base points. True, and told in `aRef`, when the target is within
  /// gap.
  static bool SnapTo(const TZORPto& aTarget, Int64 ax, Int64 ay, int gap, TZORefType aType, TZORRef& aRef);
  /// Snaps to the foot of the perpendicular from the last point of `aRef` to the segment.
  static bool SnapToFoot(const TZORPto& a, const TZORPto& b, Int64 ax, Int64 ay, int gap, TZORRef& aRef);

 private:
  friend class TItemList;
  friend class TKDXBaseLabel;
  friend class TNotices;

  /// The name of a new item: the kind, then its identity in at least three digits.
  static std::string StartName(TZORItemType aType, int aInID);
  void Enter(bool aPreview);
  void MoveAll(Int64 ax, Int64 ay, Int64 grX, Int64 grY);
  void RecordOwnPoints(TRecord& r);
  void RecordLayer(TRecord& r);
  void TakeIdentity(int aInID, std::string aID, TZORReadType aReadType);
  /// An item that an undo brings back keeps the identity of its making where another item has its own.
  void KeepIdentityFree(int& aInID, std::string& aID) const;
  void ReadJsonPoints(TJsonArray& aPoints);
  void UpdateAfterPoint();

  int fCalcPlace = -1;       ///< in fCalcs, while it waits there
  std::int64_t fRank = 0;    ///< in the list of the document, see TItemList
  bool fListed : 1 = false;  ///< stands in a list of the document
  TNotice fNotice = TNotice::Nothing;
};

/// Cuts a move on one axis so that what reaches from `aLow` to `aHigh` stays between 0 and `aLimit`.
void CutMove(Int64& aWay, Int64 aLow, Int64 aHigh, Int64 aLimit);
void CutMove(Single& aWay, Single aLow, Single aHigh, Single aLimit);

}  // namespace Zor::inline Base
