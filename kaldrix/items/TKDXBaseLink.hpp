#pragma once

#include <array>
#include <memory>

#include "kaldrix/items/TStyledItem.hpp"
#include "kaldrix/items/TSvgElement.hpp"

namespace Zor::inline Line {

/// What a link looks like: its routing, and whether that found a route.
enum TLinkForm : std::uint8_t { lfNone, lfLine, lfChain, lfArc, lfCurve, lfRound };

/// A terminator of a link as it is drawn. Base points.
struct TLinkTerm {
  TZORTermType type = ttNone;
  TZORBase tip;
  TZORBase from;         ///< where the stroke comes from; not for arcs
  double direction = 0;  ///< radians, for arcs
  bool isArc = false;
  TAlphaColor color = 0, fill = 0;
};

/// The connector of two nodes, items that offer IZORLink. It keeps the identities of its nodes and at which
/// of their link positions it ends; its route follows from those two positions.
///
/// Nodes are looked up by identity whenever items have left the document, so that no end dangles. A link
/// whose node is missing is kept and saved; it is neither drawn nor hit and has no bounds, and is whole again
/// when the node comes back.
///
///   TKDXBaseLink.cpp              ends, properties, picking, turning
///   TKDXBaseLink.Route.cpp        routes
///   TKDXBaseLink.Svg.cpp          SVG, terminators
///   TKDXBaseLink.Persistence.cpp  record and JSON
class TKDXBaseLink : public TStyledItem<TKDXBaseItem>, public IZORSLink {
 public:
  TKDXBaseLink(TKDXBaseLabel& aOwner, bool aPreview);
  TKDXBaseLink(TKDXBaseLabel& aOwner, TKDXLayer& aLayer, bool aPreview);
  /// `aCount` sizes fLinkPoints.
  TKDXBaseLink(TKDXBaseLabel& aOwner, int aCount, bool aPreview);

  // Ends --------------------------------------------------------------------

  void SetFromID(int aID);
  void SetToID(int aID);
  /// Link positions, 1-based; 0, and what is negative becomes 0, is the middle of the node.
  void SetFromIndex(int aIndex);
  void SetToIndex(int aIndex);
  /// Takes p1 and p2 from the nodes, and brings routes up to date when a node moved; false when a node is
  /// missing. First thing to do in whatever looks at a link.
  bool TakeEnds() const;

  // Route -------------------------------------------------------------------

  /// Sizes fLinkPoints for the routing and makes the route. Not recorded.
  void SetLinkType(TZOLinkType aType);
  int GetNumLinkPoints() const { return static_cast<int>(fLinkPoints.size()); }
  /// 1-based; (0, 0) out of range.
  TZORPto GetLinkPoint(int aIndex) const;
  /// Millimetres of paper; 0 out of range.
  Single GetLinkPointMMX(int aIndex) const { return FromBase(GetLinkPoint(aIndex).bX); }
  Single GetLinkPointMMY(int aIndex) const { return FromBase(GetLinkPoint(aIndex).bY); }
  /// 1-based, document units; false out of range and when nothing changes.
  bool SetLinkPoint(int aIndex, Single x, Single y);
  /// 1-based, base points; false out of range. What follows from the point is made anew.
  bool MoveBasePoint(int aIndex, Int64 dx, Int64 dy);
  bool SetBasePoint(int aIndex, Int64 x, Int64 y, bool aUpdate) override;
  TZORBase RoutePoint(int aIndex) const override;
  /// Makes the inner points of the route from the ends, and with `aUpdate` the arc and the bounds. Routings
  /// that users draw keep their points.
  void CalcLinkPoints(bool aUpdate);
  /// p1, the inner points, p2.
  TZORPtoA Route() const;
  /// Of p1 and p2 as they stand; sets pa and pb of a curve.
  TLinkForm Form() const;

  // Terminators -------------------------------------------------------------

  /// At the start and at the end, of p1 and p2 as they stand.
  std::array<TLinkTerm, 2> Terms() const;
  /// The two wings of an arrow head of `size` base points at `a`, where the stroke comes from `b`. `aPos` is
  /// the link position at `a`, `aPosFrom` and `aPosTo` those of the link.
  void Arrow(const TZORBase& a, const TZORBase& b, int aPos, int aPosFrom, int aPosTo, Int64 size, Int64& x1,
             Int64& y1, Int64& x2, Int64& y2) const;
  TAlphaColor GetFromColor() const override { return fFromColor; }
  TAlphaColor GetToColor() const override { return fToColor; }
  TZORTermType GetFromType() const override { return fFromType; }
  TZORTermType GetToType() const override { return fToType; }
  void SetFromColor(TAlphaColor aValue) override;
  void SetToColor(TAlphaColor aValue) override;
  void SetFromType(TZORTermType aValue) override;
  void SetToType(TZORTermType aValue) override;

  // Operations of the classes -----------------------------------------------

  bool Pick(Int64 ax, Int64 ay, int gap, bool aInt) const override;
  bool SearchRect(const TZORRect& aRect, bool aInt) const override;
  std::unique_ptr<TJsonObject> WriteJson() const override;
  void CheckFit(Int64& aMinX, Int64& aMaxX, Int64& aMinY, Int64& aMaxY) const override;
  void ReadJson(int aVersion, TJsonObject& aJson) override;
  void WriteSVG(TSvgList& svg, TSvgList& defs, TZORExportSVG aExportType, Single aFactor,
                bool attrID) const override;
  void WritePaperSVG(TSvgList& svg, TSvgList& defs, const TSvgWriting& aWriting) const override;
  /// Nothing while the document is reading: the nodes may not be there yet.
  void UpdateBounds() override;
  void RotateLeft() override;
  void RotateRight() override;
  /// 2 makes the whole route, other types what follows from its inner points.
  void CalcValues(int aType) override;
  /// Only on a segment of an ltPolyline. Neither recorded nor reported.
  bool InsertPoint(Int64 bx, Int64 by, int gap) override;
  /// Intended: half the way between the ends on each axis, not a position.
  TZORBase CenterPoint() const override;
  void ResolveReferences() override;
  std::pair<int, int> EndIDs() const override { return {fFromID, fToID}; }
  bool IsAttachedToSelection() const override;
  void FollowEnds() override;

  TZOLinkType fLinkType = ltDirLine;
  int fFromID = 0, fToID = 0;                 ///< identities of the nodes
  std::int16_t fFromIndex = 0, fToIndex = 0;  ///< link positions on them, 1-based
  TZORTermType fFromType = ttNone, fToType = ttNone;
  TAlphaColor fFromColor, fToColor;                                 ///< fill of the terminators
  mutable const IZORLink *fFromItem = nullptr, *fToItem = nullptr;  ///< valid after TakeEnds only
  TZORPtoA fLinkPoints;                                             ///< without the ends
  Int64 fRadio = 0, fCx = 0, fCy = 0;                               ///< of ltArc; no radius: a straight line
  double fStart = 0, fEnd = 0, fSweep = 0;                          ///< radians
  bool fClockWise = false;
  mutable TZORBase p1, p2;  ///< ends, as of the last TakeEnds
  mutable TZORBase pa, pb;  ///< controls of a curve, as of the last Form

 protected:
  void Record(TRecord& r) override;
  void AfterRead(TZORReadType aReadType) override;

 private:
  bool HasLinkPoint(int aIndex) const { return aIndex >= 1 && aIndex <= GetNumLinkPoints(); }
  const IZORLink* Node(int aID) const;
  bool LookUpEnds() const;
  void SizeLinkPoints();
  void CalcStep();
  void CalcRound();
  void CalcArc();
  bool IsStoredArc() const;
  bool PickLine(Int64 x, Int64 y, int gap) const;
  bool PickRound(Int64 x, Int64 y, int gap) const;
  /// What the lengths are written in that do not stand in millimetres of paper anyway.
  struct TSvgFrame {
    double baseInEnd;    ///< base points in one, of the ends of a chain and the controls of a curve
    double baseInInner;  ///< of the inner points of a chain
    Single pen, termSize;
  };
  void WriteSvgFrame(TSvgList& svg, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const;
  void WriteShape(TSvgElement& out, TLinkForm aForm, const TSvgFrame& aFrame) const;
  std::string SvgStroke(TLinkForm aForm, const TSvgFrame& aFrame, const TSvgWriting& aWriting) const;

  /// A route for two places of the ends.
  struct TKeptRoute {
    TZORBase from, to;
    TZORPtoA points;
  };
  void NoteRoute();
  void Reroute();

  mutable unsigned fSeenGone = 0;  ///< of the document when the ends were looked up
  bool fJustRead = false;          ///< the route is that of a file, which may not fit the nodes
  bool fRouted = false;            ///< has a route for the two places below
  bool fDrawn = false;             ///< by a user, not by the routing
  TZORBase fRoutedFrom, fRoutedTo;
  /// What a user drew before a node moved: the undo of that move brings it back.
  std::unique_ptr<TKeptRoute> fKept;
};

}  // namespace Zor::inline Line
