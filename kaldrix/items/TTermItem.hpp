#pragma once

#include <algorithm>

#include "kaldrix/core/HeldBase.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/items/TStyledItem.hpp"
#include "kaldrix/utils/TExSVG.hpp"

namespace Zor::inline Base {

/// The limits of a terminator's size, base points.
inline constexpr int LeastTerm = 500;
inline constexpr int MostTerm = 50000;
/// Half the opening of an arrow head is pi divided by this.
inline constexpr int TermOpen = 8;

/// A stroke with terminators at both ends, over TKDXBaseItem or TKDX2DItem.
template <class TBase>
class TTermItem : public TStyledItem<TBase>, public IZORSTerm {
 public:
  template <class... TArgs>
  explicit TTermItem(TKDXBaseLabel& aOwner, TArgs&&... aArgs)
      : TStyledItem<TBase>(aOwner, std::forward<TArgs>(aArgs)...),
        fFromColor(aOwner.fSettings->fFillTermColor),
        fToColor(aOwner.fSettings->fFillTermColor),
        fSizeFrom(aOwner.fSettings->fTermSize),
        fSizeTo(aOwner.fSettings->fTermSize) {}

  Single GetSizeFrom() const override { return GetBaseValue(fSizeFrom); }
  Single GetSizeTo() const override { return GetBaseValue(fSizeTo); }
  TAlphaColor GetFromColor() const override { return fFromColor; }
  TAlphaColor GetToColor() const override { return fToColor; }
  TZORTermType GetFromType() const override { return fFromType; }
  TZORTermType GetToType() const override { return fToType; }
  int BaseSizeFrom() const override { return fSizeFrom; }
  int BaseSizeTo() const override { return fSizeTo; }

  void SetFromType(TZORTermType aValue) override {
    this->template Change<TKDXEnumValueCmd>(fFromType, aValue, 1, &TKDXBaseItem::StateUpdate);
  }
  void SetToType(TZORTermType aValue) override {
    this->template Change<TKDXEnumValueCmd>(fToType, aValue, 2, &TKDXBaseItem::StateUpdate);
  }
  void SetFromColor(TAlphaColor aValue) override {
    this->template Change<TKDXColorCmd>(fFromColor, aValue, 6, &TKDXBaseItem::StateUpdate);
  }
  void SetToColor(TAlphaColor aValue) override {
    this->template Change<TKDXColorCmd>(fToColor, aValue, 7, &TKDXBaseItem::StateUpdate);
  }
  void SetSizeFrom(Single aMM) override {
    this->template Change<TKDXBaseValueCmd>(fSizeFrom, Held(aMM), 3, &TKDXBaseItem::StateUpdate);
  }
  void SetSizeTo(Single aMM) override {
    this->template Change<TKDXBaseValueCmd>(fSizeTo, Held(aMM), 4, &TKDXBaseItem::StateUpdate);
  }
  /// Records whether the value changes or not.
  void SetBaseSizeFrom(int aBase) override { TakeBaseSize(fSizeFrom, aBase, 3); }
  void SetBaseSizeTo(int aBase) override { TakeBaseSize(fSizeTo, aBase, 4); }

  TZORTermType fFromType = ttNone, fToType = ttNone;
  TAlphaColor fFromColor, fToColor;
  int fSizeFrom, fSizeTo;  ///< base points

 protected:
  void RecordTerms(TRecord& r) {
    r.Enum16(fFromType, "FromType");
    r.Enum16(fToType, "ToType");
    r.UInt32(fFromColor);
    r.UInt32(fToColor);
    r.Int32(fSizeFrom);
    r.Int32(fSizeTo);
  }
  void WriteTerms(TJsonObject& aJson) const {
    aJson.PutInt("FromType", fFromType);
    PutLength(aJson, "SizeFrom", GetSizeFrom());
    PutColor(aJson, "FromColor", fFromColor);
    aJson.PutInt("ToType", fToType);
    PutLength(aJson, "SizeTo", GetSizeTo());
    PutColor(aJson, "ToColor", fToColor);
  }
  void ReadTerms(TJsonObject& aJson) {
    fFromType = GetEnum<TZORTermType>(aJson, "FromType");
    fSizeFrom = Held(GetSingle(aJson, "SizeFrom"));
    fFromColor = Base::GetColor(aJson, "FromColor");
    fToType = GetEnum<TZORTermType>(aJson, "ToType");
    fSizeTo = Held(GetSingle(aJson, "SizeTo"));
    fToColor = Base::GetColor(aJson, "ToColor");
  }

  /// Appends the elements of the terminators: each from its tip and the point before it, millimetres of
  /// paper. For arcs the second point is a direction in radians.
  void WriteFromTerm(TSvgList& svg, TZORExportSVG aType, Single aFactor, double p1x, double p1y, double p2x,
                     double p2y, bool aIsArc) const {
    WriteTerm(svg, aType, aFactor, fFromType, GetSizeFrom(), fFromColor, p1x, p1y, p2x, p2y, aIsArc);
  }
  void WriteToTerm(TSvgList& svg, TZORExportSVG aType, Single aFactor, double p1x, double p1y, double p2x,
                   double p2y, bool aIsArc) const {
    WriteTerm(svg, aType, aFactor, fToType, GetSizeTo(), fToColor, p1x, p1y, p2x, p2y, aIsArc);
  }

 private:
  static int Held(Single aMM) {
    const double base = static_cast<double>(Finite(aMM)) * BaseInMM;
    return static_cast<int>(RoundLength(std::min<double>(std::max<double>(LeastTerm, base), MostTerm)));
  }
  void TakeBaseSize(int& aField, int aBase, int aIndex) {
    const typename TBase::TEdit edit(*this);
    TKDXBaseValueCmd::AddCommand(*this, aIndex);
    aField = std::clamp(aBase, LeastTerm, MostTerm);
    this->StateUpdate();
  }
  void WriteTerm(TSvgList& svg, TZORExportSVG aType, Single aFactor, TZORTermType aTerm, Single aSize,
                 TAlphaColor aFill, double p1x, double p1y, double p2x, double p2y, bool aIsArc) const {
    if (aTerm == ttNone) return;
    svg.push_back(TExSVG::DrawTerm(aTerm, aType, p1x, p1y, p2x, p2y, this->GetPenWidth(), aFactor, aSize,
                                   this->fColor, aFill, TermOpen, aIsArc));
  }
};

}  // namespace Zor::inline Base
