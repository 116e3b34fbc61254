#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "kaldrix/core/TComponent.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Units.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// The look that dimensions share. Lengths are base points of paper; the properties are millimetres, held
/// inside the limits that the fields tell.
class TKDXDimStyle final : public TPersistent {
 public:
  /// Enters the document's list at its end, with an identity of its own.
  TKDXDimStyle(TKDXBaseLabel* aOwner, const std::string& aName) : TKDXDimStyle(aOwner, aName, true) {}
  /// Without `aAssignId` the identity is left to a reader. Takes a bool only, so that a literal is a name.
  TKDXDimStyle(TKDXBaseLabel* aOwner, std::same_as<bool> auto aAssignId)
      : TKDXDimStyle(aOwner, {}, aAssignId) {}

  /// Back to the values of the style that a new document has, its identity included.
  void Reset();
  /// Takes all but the identity.
  void Assign(const TPersistent& aSource) override;
  /// Takes an identity that no other style of the document has: one above the largest.
  void AsignId();

  // Every setter marks a change in fChanged.
  void SetName(const std::string& aValue) { Change(fName, aValue); }
  void SetDimColor(TAlphaColor aValue) { Change(fDimColor, aValue); }
  void SetFillColor(TAlphaColor aValue) { Change(fFillColor, aValue); }
  void SetExtColor(TAlphaColor aValue) { Change(fExtColor, aValue); }
  void SetHeadColor(TAlphaColor aValue) { Change(fHeadColor, aValue); }
  void SetDimLineType(TZOLineType aValue) { Change(fDimLineType, aValue); }
  void SetExtLineType(TZOLineType aValue) { Change(fExtLineType, aValue); }
  void SetHeadType(TZORTermType aValue) { Change(fHeadType, aValue); }
  /// Degrees.
  void SetArrowOpen(int aValue);
  void SetBold(bool aValue) { Change(fBold, aValue); }
  void SetItalic(bool aValue) { Change(fItalic, aValue); }
  void SetUnderline(bool aValue) { Change(fUnderline, aValue); }
  void SetStrikeout(bool aValue) { Change(fStrikeout, aValue); }
  void SetTextPos(TZORTextPos aValue) { Change(fTextPos, aValue); }
  void SetRadialStyle(TZORRadialStyle aValue) { Change(fRadialStyle, aValue); }
  void SetFontName(const std::string& aValue) { Change(fFontName, aValue); }
  void SetFontColor(TAlphaColor aValue) { Change(fFontColor, aValue); }
  void SetFormat(const std::string& aValue) { Change(fFormat, aValue); }
  void SetPrefix(const std::string& aValue) { Change(fPrefix, aValue); }
  void SetSuffix(const std::string& aValue) { Change(fSuffix, aValue); }
  void SetUnit(TZORUnits aValue) { Change(fUnit, aValue); }

  // Millimetres.
  Single GetHeadSize() const { return GetBaseValue(fHeadSize); }
  Single GetDimPenWidth() const { return GetBaseValue(fDimPenWidth); }
  Single GetExtPenWidth() const { return GetBaseValue(fExtPenWidth); }
  Single GetFontHeight() const { return GetBaseValue(fFontHeight); }
  Single GetDimBreak() const { return GetBaseValue(fDimBreak); }
  Single GetDimSpace() const { return GetBaseValue(fDimSpace); }
  Single GetExtGap() const { return GetBaseValue(fExtGap); }
  Single GetExtSize() const { return GetBaseValue(fExtSize); }
  int GetBaseFontHeight() const { return fFontHeight; }
  void SetHeadSize(Single aMM);
  void SetDimPenWidth(Single aMM);
  void SetExtPenWidth(Single aMM);
  void SetFontHeight(Single aMM);
  void SetDimBreak(Single aMM);
  void SetDimSpace(Single aMM);
  /// Held 1 mm below the extension's size too.
  void SetExtGap(Single aMM);
  /// Pulls the gap down with it.
  void SetExtSize(Single aMM);

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Appends one object.
  void WriteJson(TJsonArray& aArray) const;
  /// Reads such an object, lengths held inside their limits. Raises EJsonException naming the key.
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXBaseLabel* fOwner;
  std::uint16_t fID = 0;
  std::string fName;
  TAlphaColor fDimColor = StartColor, fFillColor = StartColor, fExtColor = StartColor,
              fHeadColor = StartColor;
  TZOLineType fDimLineType = iiSolid, fExtLineType = iiSolid;
  TZORTermType fHeadType = ttFillArrow;
  int fHeadSize = 1500;                        ///< 500 to 10000
  int fDimPenWidth = 100, fExtPenWidth = 100;  ///< 100 to 2000
  std::int16_t fArrowOpen = 8;                 ///< degrees, 4 to 22
  bool fBold = false, fItalic = false, fUnderline = false, fStrikeout = false;
  TZORTextPos fTextPos = tpAbove;
  TZORRadialStyle fRadialStyle = rs01;
  std::string fFontName = "Arial";
  int fFontHeight = 4000;  ///< 800 to 15000
  TAlphaColor fFontColor = ColorBlack;
  int fDimBreak = 0;     ///< gap between a measured point and its extension line, 0 to 10000
  int fDimSpace = 5000;  ///< no limits
  int fExtGap = 1500;    ///< 0 to 15000, and at most fExtSize - 1000
  int fExtSize = 5000;   ///< 2000 to 25000
  std::string fFormat, fPrefix, fSuffix;
  TZORUnits fUnit;
  int fAscent = 0, fDescent = 0;  ///< font metrics, from the host
  bool fChanged = false;          ///< dimensions of this style wait for a calculation

 protected:
  const char* ClassName() const override { return "TKDXDimStyle"; }

 private:
  static constexpr TAlphaColor StartColor = 0xFF808080;

  TKDXDimStyle(TKDXBaseLabel* aOwner, const std::string& aName, bool aAssignId);

  template <class T>
  void Change(T& aField, const T& aValue) {
    if (aField == aValue) return;
    aField = aValue;
    fChanged = true;
    TellOwner();
  }
  void TellOwner();
  bool IsIdTaken(int aId) const;
  void TakeHeadSize(int aBase);
  void TakeDimPenWidth(int aBase);
  void TakeExtPenWidth(int aBase);
  void TakeFontHeight(int aBase);
  void TakeDimBreak(int aBase);
  void TakeExtGap(int aBase);
  void TakeExtSize(int aBase);

  void Record(TRecord& r);
  void WriteJsonFont(TJsonObject& aJson) const;
  void ReadJsonFont(TJsonObject& aFont);
};

}  // namespace Zor::inline Base
