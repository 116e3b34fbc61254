// The small value records that every part of the library passes around. All are plain values without
// ownership.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "kaldrix/types/TKDXBaseDraw.hpp"
#include "kaldrix/types/TZORPtoA.hpp"

namespace Zor::inline Types {

// --- Points ----------------------------------------------------------------------------------------------

/// Two base coordinates without a meaning of their own.
struct TZORPt64 {
  Int64 bX = 0;
  Int64 bY = 0;

  friend constexpr bool operator==(const TZORPt64&, const TZORPt64&) = default;
};

/// A base position as operations return it.
struct TZORBase {
  Int64 X = 0;
  Int64 Y = 0;

  static constexpr TZORBase Create(Int64 x, Int64 y) { return {x, y}; }
  friend constexpr bool operator==(const TZORBase&, const TZORBase&) = default;

  /// Millimetres on paper, for a drawing scale of 1:`aScale`.
  Single MMX(Int64 aScale) const { return PaperMM(X, aScale); }
  Single MMY(Int64 aScale) const { return PaperMM(Y, aScale); }

 private:
  static Single PaperMM(Int64 aBase, Int64 aScale) {
    return static_cast<Single>(static_cast<double>(aBase) / (static_cast<double>(aScale) * BaseInMM));
  }
};

/// A pair of small integers: a link point of a symbol.
struct TZORk {
  int bX = 0;
  int bY = 0;

  friend constexpr bool operator==(const TZORk&, const TZORk&) = default;
  void Reset() { *this = {}; }
  void SetBase(int x, int y) { *this = {x, y}; }
  void SetValue(const TZORk& aValue) { *this = aValue; }
};

/// A point in drawing units.
struct TZORSPoint {
  Single X = 0;
  Single Y = 0;

  friend constexpr bool operator==(const TZORSPoint&, const TZORSPoint&) = default;
  void Define(Single x, Single y) { *this = {x, y}; }
};

/// A point for geometry.
struct TPoint2D {
  double X = 0;
  double Y = 0;

  friend constexpr bool operator==(const TPoint2D&, const TPoint2D&) = default;
};

/// A segment for geometry.
struct TEdge {
  TPoint2D P1;
  TPoint2D P2;

  friend constexpr bool operator==(const TEdge&, const TEdge&) = default;
};

/// The four corners of a slot, in order round it.
using TSlotPolygon = std::array<TPoint2D, 4>;

/// A point of a surface in whole pixels.
struct TPoint {
  int X = 0;
  int Y = 0;

  friend constexpr bool operator==(const TPoint&, const TPoint&) = default;
};

/// A point of a surface in drawing units.
struct TPointF {
  Single X = 0;
  Single Y = 0;

  friend constexpr bool operator==(const TPointF&, const TPointF&) = default;
};

/// A rectangle of a surface in drawing units.
struct TRectF {
  Single Left = 0;
  Single Top = 0;
  Single Right = 0;
  Single Bottom = 0;

  friend constexpr bool operator==(const TRectF&, const TRectF&) = default;
  Single Width() const { return Right - Left; }
  Single Height() const { return Bottom - Top; }
};

/// A reference line in base points.
struct TZORRefLine {
  Int64 bX1 = 0;
  Int64 bY1 = 0;
  Int64 bX2 = 0;
  Int64 bY2 = 0;

  friend constexpr bool operator==(const TZORRefLine&, const TZORRefLine&) = default;
  void Reset() { *this = {}; }
  void SetBase1(Int64 x, Int64 y) {
    bX1 = x;
    bY1 = y;
  }
  void SetBase2(Int64 x, Int64 y) {
    bX2 = x;
    bY2 = y;
  }
  /// Drawing units of a surface.
  Single DrawX1(const TKDXBaseDraw& drw) const { return drw.GetDrawX(bX1); }
  Single DrawY1(const TKDXBaseDraw& drw) const { return drw.GetDrawY(bY1); }
  Single DrawX2(const TKDXBaseDraw& drw) const { return drw.GetDrawX(bX2); }
  Single DrawY2(const TKDXBaseDraw& drw) const { return drw.GetDrawY(bY2); }
};

/// A base point with a second point.
struct TZORPtoCr {
  Int64 bX = 0;
  Int64 bY = 0;
  Int64 iX = 0;
  Int64 iY = 0;

  friend constexpr bool operator==(const TZORPtoCr&, const TZORPtoCr&) = default;
  void SetBase(Int64 bx, Int64 by, Int64 ix, Int64 iy) { *this = {bx, by, ix, iy}; }
};

/// A point of an editing action: in base points, in pixels and in drawing units.
struct TZORActPto {
  Int64 bX = 0;
  Int64 bY = 0;
  int iX = 0;
  int iY = 0;
  Single sX = 0;
  Single sY = 0;

  friend constexpr bool operator==(const TZORActPto&, const TZORActPto&) = default;
  void DefineBase(Int64 x, Int64 y) {
    bX = x;
    bY = y;
  }
  void DefineInt(int x, int y) {
    iX = x;
    iY = y;
  }
  void DefineSingle(Single x, Single y) {
    sX = x;
    sY = y;
  }
  void Reset() { *this = {}; }
};

// --- Texts -----------------------------------------------------------------------------------------------

/// A line of a text: characters `txF` to `txT`, standing at a base point.
struct TZORTxtInf {
  int txF = 0;
  int txT = 0;
  Int64 bX = 0;
  Int64 bY = 0;

  friend constexpr bool operator==(const TZORTxtInf&, const TZORTxtInf&) = default;
};

/// A line of a text: characters `txF` to `txT`, standing at a point in drawing units.
struct TZORFTxtInf {
  int txF = 0;
  int txT = 0;
  Single fX = 0;
  Single fY = 0;

  friend constexpr bool operator==(const TZORFTxtInf&, const TZORFTxtInf&) = default;
};

/// The measured size of a text.
struct TZORSize {
  Single Ws = 0;
  Single Hs = 0;
  Single Ca = 0;
  Single Ci = 0;
  Single Wi = 0;
  Single Hi = 0;

  friend constexpr bool operator==(const TZORSize&, const TZORSize&) = default;
};

/// The two status texts of the editor.
struct TZORSInfo {
  std::string aAction;
  std::string sState;

  friend bool operator==(const TZORSInfo&, const TZORSInfo&) = default;
};

// --- Editing ---------------------------------------------------------------------------------------------

/// An attachment point of a link that is being drawn.
struct TZOLink {
  static constexpr std::int16_t NoPos = -1;

  int ID = 0;
  std::int16_t PosFrom = NoPos;  ///< link position of the first node, NoPos while unset
  std::int16_t PosTo = NoPos;
  int bX = -1;
  int bY = -1;
  int sX = 0;
  int sY = 0;
  bool draw = false;
  TZOLinkType aType = ltDirLine;

  friend constexpr bool operator==(const TZOLink&, const TZOLink&) = default;

  /// Forgets the node; with `aPos` the positions too, with `aDraw` also that it is drawn.
  void Reset(bool aDraw, bool aPos) {
    ID = 0;
    bX = bY = -1;
    if (aPos) PosFrom = PosTo = NoPos;
    if (aDraw) draw = false;
  }
  /// Takes `p` for the first position that is unset; the second is replaced.
  void SetPos(std::int16_t p) { (PosFrom == NoPos ? PosFrom : PosTo) = p; }
};

/// A snap reference: where it is (`b` in base points, `p` in pixels) and where it was last (`lb`, `lp`).
struct TZORRef {
  Int64 bX = -1;
  Int64 bY = -1;
  Int64 lbX = -1;
  Int64 lbY = -1;
  int pX = -1;
  int pY = -1;
  int lpX = -1;
  int lpY = -1;
  TZORefType fType = rtyRect;
  TZORefType oType = rtyRect;
  bool draw = false;
  bool drawed = false;
  bool link = false;

  friend constexpr bool operator==(const TZORRef&, const TZORRef&) = default;

  /// Forgets all positions; with `aDraw` also that it is to be drawn.
  void Reset(bool aDraw) {
    bX = bY = lbX = lbY = -1;
    pX = pY = lpX = lpY = -1;
    link = drawed = false;
    fType = rtyRect;
    if (aDraw) draw = false;
  }
  /// Marks a reference found at (bX, bY); one at a new place is to be drawn.
  void FindRef(TZORefType aType) {
    fType = aType;
    link = true;
    if (bX == lbX && bY == lbY) return;
    lbX = bX;
    lbY = bY;
    draw = true;
  }
  bool SamePoint() const { return lpX != -1 && lpX == pX && lpY == pY; }
  /// Remembers what has just been drawn.
  void SetLast() {
    lpX = pX;
    lpY = pY;
    oType = fType;
    drawed = true;
  }
};

/// What a change notification carries.
struct TZOChangeValue {
  Int64 fInt1 = 0;
  Int64 fInt2 = 0;
  Single fSing = 0;
  bool fBool = false;
  std::string fStr;

  friend bool operator==(const TZOChangeValue&, const TZOChangeValue&) = default;
};

/// The running pen and font while the elements of a symbol are drawn.
struct TZORDrawConf {
  TAlphaColor fFColor = ColorBlack;
  TAlphaColor fBColor = ColorWhite;
  TAlphaColor fFontColor = ColorBlack;
  bool fFill = true;
  bool fRound = false;
  bool fScalePen = false;
  TZOLineType fLinType = iiSolid;
  Single fPenWidth = 0.1F;  ///< millimetres of paper
  std::string fFontName = "Arial";
  bool fBold = false;
  bool fItalic = false;
  bool fUnderline = false;
  Single fFontHeight = 5.0F;  ///< millimetres of paper
  Single fFontScale = 1.0F;
  bool fPath = false;
  bool fIniPath = false;

  friend bool operator==(const TZORDrawConf&, const TZORDrawConf&) = default;

  void Reset() { *this = {}; }
  /// Sets the pen and clears the other switches of drawing; the font stays.
  void Ini(TAlphaColor fColor, TAlphaColor bColor, bool fill, TZOLineType lineType, Single penWidth) {
    fFColor = fColor;
    fBColor = bColor;
    fFill = fill;
    fLinType = lineType;
    fPenWidth = penWidth;
    fRound = fScalePen = fPath = fIniPath = false;
  }
  void IniFont(TAlphaColor color, bool bold, bool italic, bool underline, const std::string& name,
               Single height, Single scale) {
    fFontColor = color;
    fBold = bold;
    fItalic = italic;
    fUnderline = underline;
    fFontName = name;
    fFontHeight = height;
    fFontScale = scale;
  }
};

// --- Arrays ----------------------------------------------------------------------------------------------

using TZORRefLineA = std::vector<TZORRefLine>;
using TZORPtoACr = std::vector<TZORPtoCr>;
using TxtLines = std::vector<TZORTxtInf>;
using TxtFLines = std::vector<TZORFTxtInf>;
/// Points that somebody else holds.
using TZORPtoArr = std::span<const TZORPto>;

}  // namespace Zor::inline Types
