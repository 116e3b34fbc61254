// A document without a surface, with font metrics that are round numbers: what tests of the library build on.
#pragma once

#include <algorithm>

#include "kaldrix/editor/TKDXLabelOf.hpp"

namespace Zor {

/// Items that paint nothing.
template <class TBase>
class TBareItem final : public TBase {
 public:
  using TBase::TBase;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
};

/// A character is half as wide as the font is high; the ascent is 0.8 and the descent 0.2 of the height.
template <>
class TBareItem<TKDXBaseText> final : public TKDXBaseText {
 public:
  using TKDXBaseText::TKDXBaseText;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  Single GetScale() const override { return fScaleX; }
  void CalcValues(int) override {
    constexpr int most = 500'000'000;  // base points: room for the products below
    const int height = std::min(fFontHeight, most);
    const double width = static_cast<double>(fText.size()) * height / 2 * fScaleX;
    SetMeasured(static_cast<int>(std::min<double>(width, most)), height, height * 4 / 5, height / 5,
                height / 10, 1.0);
  }
};

template <>
class TBareItem<TKDXBaseBarcode> final : public TKDXBaseBarcode {
 public:
  using TKDXBaseBarcode::TKDXBaseBarcode;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  void CalcValues(int) override {
    const int height = std::min(fFontHeight, 500'000'000);
    SetMeasured(height / 5 * 4, height / 5, height / 10, height / 20, 1.0);
  }
};

class TBareLabel : public TKDXLabelOf<TBareItem> {
 public:
  using TKDXLabelOf::TKDXLabelOf;
  void PrinterChanged() override {}
  void Print() override {}
  void ExportDoc(TZORExport, const std::string&, int, Single, int, bool, bool, bool) override {}
};

/// An observer that remembers what it was told.
class TRecordingObserver final : public IZOObserver {
 public:
  explicit TRecordingObserver(TZODestUpdate aKind) : fKind(aKind) {}
  TZODestUpdate Destination() override { return fKind; }
  void Update(TZOChange aChange, const TZOChangeValue& aValue) override {
    fChanges.push_back(aChange);
    fValues.push_back(aValue);
  }

  TZODestUpdate fKind;
  std::vector<TZOChange> fChanges;
  std::vector<TZOChangeValue> fValues;
};

}  // namespace Zor
