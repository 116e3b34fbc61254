#pragma once

#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Types {

/// Describes one drawing surface to the items that paint on it. The host fills it; the library itself reads
/// only fDpix, fDpiy, fDrawScale, fState, aRow and aCol.
class TKDXBaseDraw {
 public:
  /// Base points to drawing units: dots of the surface.
  Single GetDrawX(Int64 aBase) const { return ToDraw(aBase, fDpix); }
  Single GetDrawY(Int64 aBase) const { return ToDraw(aBase, fDpiy); }

  /// Millimetres of paper to drawing units.
  Single BasePtoX(Single aMM) const { return FromMM(aMM, fDpix); }
  Single BasePtoY(Single aMM) const { return FromMM(aMM, fDpiy); }

  /// The same, never below one dot: no line is drawn thinner.
  Single DrawBasePtoX(Single aMM) const { return AtLeastOne(FromMM(aMM, fDpix)); }
  Single DrawBasePtoY(Single aMM) const { return AtLeastOne(FromMM(aMM, fDpiy)); }

  /// Millimetres of paper to whole printer dots.
  Single PrintBasePtoX(Single aMM) const { return static_cast<Single>(Round(double{aMM} * fDpix / 25.4)); }
  Single PrintBasePtoY(Single aMM) const { return static_cast<Single>(Round(double{aMM} * fDpiy / 25.4)); }

  // Factors and displacements of the view.
  Single fFX = 1, fFY = 1, fSC = 1, fDX = 0, fDY = 0, fDSX = 0, fDSY = 0;
  int fDpix = 96, fDpiy = 96;  ///< dots per inch of the surface
  Single fPageX = 0, fPageY = 0;
  double fBDpix = 0, fBDpiy = 0;
  double fMMyToPto = 0;
  Int64 fDrawScale = 1;  ///< the document's drawing scale N of 1:N
  TZORDrawState fState = dsLabel;
  bool fShowDispWidthHandle = false;
  std::int16_t aRow = 0, aCol = 0;  ///< the label of the sheet that is drawn, 1-based

 private:
  Single ToDraw(Int64 aBase, int aDpi) const {
    return static_cast<Single>(static_cast<double>(aBase) / (static_cast<double>(fDrawScale) * 25400.0) *
                               aDpi);
  }
  static Single FromMM(Single aMM, int aDpi) { return static_cast<Single>(double{aMM} * aDpi / 25.4); }
  static Single AtLeastOne(Single aValue) { return aValue < 1.0F ? 1.0F : aValue; }
};

}  // namespace Zor::inline Types
