#pragma once

#include "kaldrix/items/TKDXBaseFlow.hpp"

namespace Zor::inline Base {

/// A node whose text is laid out again whenever something that its lines depend on has changed, the size of
/// its box included: what a host derives its nodes from.
class TLaidFlow : public TKDXBaseFlow {
 public:
  using TKDXBaseFlow::TKDXBaseFlow;
  void CalcValues(int /*aType*/) override {
    fLaidWidth = BaseWidth();
    fLaidHeight = BaseHeight();
    LayOut();
  }
  void UpdateBounds() override {
    TKDXBaseFlow::UpdateBounds();
    if (!fText.empty() && (BaseWidth() != fLaidWidth || BaseHeight() != fLaidHeight)) StateCalc();
  }

 protected:
  /// Fills aTxtPoints, fAscent, fDescent, fPosUnderline and fRatio.
  virtual void LayOut() = 0;

 private:
  Int64 fLaidWidth = 0, fLaidHeight = 0;  ///< of the box that the lines were made for
};

}  // namespace Zor::inline Base
