// The aspects that an item offers. Inspector, editor and undo work on items through these, without knowing
// their class. All are pure and own nothing; an item that offers one is found by dynamic_cast.
#pragma once

#include <string>

#include "kaldrix/types/AnsiString.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Observing.hpp"
#include "kaldrix/types/Records.hpp"

namespace Zor::inline Types {

#define ZOR_INTERFACE(aName)               \
 public:                                   \
  aName() = default;                       \
  aName(const aName&) = delete;            \
  aName& operator=(const aName&) = delete; \
                                           \
 protected:                                \
  ~aName() = default;                      \
                                           \
 public:

/// Somebody who hears of the changes of a document, on the thread that makes them. When it goes, the document
/// forgets it. What it throws comes out of the operation that told it, when all observers have heard.
class IZOObserver : public TObserver {
 public:
  /// What kind of observer this is; it decides which changes reach it.
  virtual TZODestUpdate Destination() = 0;
  virtual void Update(TZOChange aChange, const TZOChangeValue& aValue) = 0;

 protected:
  IZOObserver() = default;
  ~IZOObserver() = default;
};

/// Pen: width in millimetres of paper, colour.
class IZORStroke {
  ZOR_INTERFACE(IZORStroke)
  virtual Single GetPenWidth() const = 0;
  virtual TAlphaColor GetColor() const = 0;
  virtual void SetColor(TAlphaColor aValue) = 0;
  virtual void SetPenWidth(Single aMM) = 0;
};

class IZORStyle {
  ZOR_INTERFACE(IZORStyle)
  virtual TZOLineType GetLineType() const = 0;
  virtual void SetLineType(TZOLineType aValue) = 0;
};

/// Terminators at both ends of a stroke. Sizes are millimetres, in the Base forms base points; both are held
/// between 0.5 mm and 50 mm.
class IZORSTerm {
  ZOR_INTERFACE(IZORSTerm)
  virtual Single GetSizeFrom() const = 0;
  virtual Single GetSizeTo() const = 0;
  virtual TAlphaColor GetFromColor() const = 0;
  virtual TAlphaColor GetToColor() const = 0;
  virtual TZORTermType GetFromType() const = 0;
  virtual TZORTermType GetToType() const = 0;
  virtual int BaseSizeFrom() const = 0;
  virtual int BaseSizeTo() const = 0;
  virtual void SetFromType(TZORTermType aValue) = 0;
  virtual void SetToType(TZORTermType aValue) = 0;
  virtual void SetFromColor(TAlphaColor aValue) = 0;
  virtual void SetToColor(TAlphaColor aValue) = 0;
  virtual void SetSizeFrom(Single aMM) = 0;
  virtual void SetSizeTo(Single aMM) = 0;
  virtual void SetBaseSizeFrom(int aBase) = 0;
  virtual void SetBaseSizeTo(int aBase) = 0;
};

/// Binding to a data field.
class IZORData {
  ZOR_INTERFACE(IZORData)
  virtual TZORFillType FillType() const = 0;
  virtual std::string FillName() const = 0;
  virtual std::string SymFillName() const = 0;
  virtual std::string GetFormat() const = 0;
  virtual void SetData(TZORFillType aType, const std::string& aName, const std::string& aFormat) = 0;
};

class IZORSText {
  ZOR_INTERFACE(IZORSText)
  virtual std::string GetText() const = 0;
  virtual void SetText(const std::string& aValue) = 0;
};

/// Font: the height in millimetres, the horizontal scale of the glyphs as a factor.
class IZORFont {
  ZOR_INTERFACE(IZORFont)
  virtual Single GetScaleX() const = 0;
  virtual std::string GetFontName() const = 0;
  virtual Single GetFontHeight() const = 0;
  virtual bool GetBold() const = 0;
  virtual bool GetItalic() const = 0;
  virtual bool GetUnderline() const = 0;
  virtual TAlphaColor GetFontColor() const = 0;
  virtual void SetFontName(const std::string& aValue) = 0;
  virtual void SetFontColor(TAlphaColor aValue) = 0;
  virtual void SetFontHeight(Single aMM) = 0;
  virtual void SetScaleX(Single aValue) = 0;
  virtual void SetBold(bool aValue) = 0;
  virtual void SetItalic(bool aValue) = 0;
  virtual void SetUnderline(bool aValue) = 0;
  virtual void SetStrikeout(bool aValue) = 0;
};

/// Size in document units.
class IZORWidthHeight {
  ZOR_INTERFACE(IZORWidthHeight)
  virtual Single GetHeight() const = 0;
  virtual Single GetWidth() const = 0;
  virtual void SetHeight(Single aValue) = 0;
  virtual void SetWidth(Single aValue) = 0;
};

class IZORRadio {
  ZOR_INTERFACE(IZORRadio)
  virtual Single GetRadio() const = 0;
  virtual int GetBaseRadio() const = 0;
  virtual void SetBaseRadio(int aBase) = 0;
  virtual void SetRadio(Single aValue) = 0;
};

class IZORAngle {
  ZOR_INTERFACE(IZORAngle)
  virtual TZORAngle GetAngle() const = 0;
  virtual void SetAngle(TZORAngle aValue) = 0;
};

/// Centre in document units, in the Base forms base points.
class IZORCenter {
  ZOR_INTERFACE(IZORCenter)
  virtual Single GetCenterX() const = 0;
  virtual Single GetCenterY() const = 0;
  virtual Int64 GetBaseCenterX() const = 0;
  virtual Int64 GetBaseCenterY() const = 0;
  virtual void SetCenterX(Single aValue) = 0;
  virtual void SetCenterY(Single aValue) = 0;
};

/// An item that links can be attached to.
class IZORLink {
  ZOR_INTERFACE(IZORLink)
  /// The attachment point of position `aPos`, base points. Positions count from 1; the item's middle for one
  /// that it does not have, 0 among them.
  virtual TZORBase LinkPoint(std::uint16_t aPos) const = 0;
  /// The identity that links store.
  virtual int InternalID() const = 0;
  /// Is there an attachment point at the position? It is then told in `aLink`.
  virtual bool CheckLink(Int64 bx, Int64 by, TZOLink& aLink) const = 0;
};

/// The stroke of a link: terminators at both ends, and the inner points of its route.
class IZORSLink {
  ZOR_INTERFACE(IZORSLink)
  virtual TAlphaColor GetFromColor() const = 0;
  virtual TAlphaColor GetToColor() const = 0;
  virtual TZORTermType GetFromType() const = 0;
  virtual TZORTermType GetToType() const = 0;
  virtual void SetFromColor(TAlphaColor aValue) = 0;
  virtual void SetToColor(TAlphaColor aValue) = 0;
  virtual void SetFromType(TZORTermType aValue) = 0;
  virtual void SetToType(TZORTermType aValue) = 0;
  /// 1-based, base points; (0, 0) out of range.
  virtual TZORBase RoutePoint(int aIndex) const = 0;
  /// 1-based, base points; with `aUpdate` what follows from the point is made anew. False out of range.
  virtual bool SetBasePoint(int aIndex, Int64 x, Int64 y, bool aUpdate) = 0;
};

/// Padding in millimetres.
class IZORPadding {
  ZOR_INTERFACE(IZORPadding)
  virtual Single GetPaddingX() const = 0;
  virtual Single GetPaddingY() const = 0;
  virtual void SetPaddingX(Single aValue) = 0;
  virtual void SetPaddingY(Single aValue) = 0;
};

class IZORAlign {
  ZOR_INTERFACE(IZORAlign)
  virtual TZORHorzAlign GetHorzAlign() const = 0;
  virtual TZORVertAlign GetVertAlign() const = 0;
  virtual void SetHorzAlign(TZORHorzAlign aValue) = 0;
  virtual void SetVertAlign(TZORVertAlign aValue) = 0;
};

class IZORBack {
  ZOR_INTERFACE(IZORBack)
  virtual TAlphaColor GetBackColor() const = 0;
  virtual bool GetFilled() const = 0;
  virtual void SetFilled(bool aValue) = 0;
  virtual void SetBackColor(TAlphaColor aValue) = 0;
};

/// Size in document units, in the Base forms base points.
class IZORSize {
  ZOR_INTERFACE(IZORSize)
  virtual Single GetHeight() const = 0;
  virtual Single GetWidth() const = 0;
  virtual Int64 BaseWidth() const = 0;
  virtual Int64 BaseHeight() const = 0;
  virtual void SetHeight(Single aValue) = 0;
  virtual void SetWidth(Single aValue) = 0;
  virtual void SetBaseHeight(Int64 aBase) = 0;
  virtual void SetBaseWidth(Int64 aBase) = 0;
};

/// What the host asks to edit and paint a text.
class IZORText {
  ZOR_INTERFACE(IZORText)
  /// Bold 1, italic 2, underline 4, strikeout 8.
  virtual int Style() const = 0;
  virtual std::string FName() const = 0;
  virtual bool IsBold() const = 0;
  virtual bool IsItalic() const = 0;
  virtual bool IsUnderline() const = 0;
  virtual bool IsStrikeOut() const = 0;
  /// Height of the font, millimetres.
  virtual Single GetHeight() const = 0;
  virtual Single GetScale() const = 0;
  virtual std::string GetText() const = 0;
  /// The anchor in drawing units.
  virtual TZORSPoint Position(const TKDXBaseDraw& drw) const = 0;
  virtual TAlphaColor FAColor() const = 0;
  virtual void SetText(const std::string& aValue) = 0;
};

/// Sizes of a symbol, each in the unit that the symbol's class tells.
class IZORBar1D2D {
  ZOR_INTERFACE(IZORBar1D2D)
  virtual Single GetBarWidth() const = 0;
  virtual Single GetBarHeight() const = 0;
  virtual Single GetFactor() const = 0;
  virtual void SetFactor(Single aValue) = 0;
  virtual void SetBarHeight(Single aValue) = 0;
  virtual void SetBarWidth(Single aValue) = 0;
};

/// What is needed to draw a linear barcode.
class IZORBarcode {
  ZOR_INTERFACE(IZORBarcode)
  virtual Single GetBarWidth() const = 0;
  virtual Single GetBarHeight() const = 0;
  virtual Single GetPaddingX() const = 0;
  virtual Single GetPaddingY() const = 0;
  virtual Single GetFactor() const = 0;
  virtual TZORHorzAlign GetHorzAlign() const = 0;
  virtual TZORAngle GetAngle() const = 0;
  virtual Single GetFontHeight() const = 0;
  virtual bool GetShowNumber() const = 0;
  virtual TZORBarType GetBarType() const = 0;
  /// The prepared code: with padding and check characters.
  virtual AnsiString GetCCode() const = 0;
  /// The pattern of bars and spaces.
  virtual std::string GetDrCode() const = 0;
  virtual AnsiString GetAnsiCode() const = 0;
  virtual std::string GetFontName() const = 0;
  virtual Single GetDrawValue(Single aValue, int aDpi) const = 0;
  virtual int GetPrintValue(Single aValue, int aDpi) const = 0;
};

#undef ZOR_INTERFACE

}  // namespace Zor::inline Types
