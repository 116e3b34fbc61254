#pragma once

#include "kaldrix/editor/TKDXLabelOf.hpp"
#include "kaldrix/editor/TLaidFlow.hpp"

namespace Zor::inline Base {

// Items without a surface and without fonts: what a host of one's own can start from, and what a program that
// only builds, converts or checks drawings can use as it is.
//
// They stand on font metrics that are round numbers: a character is half as wide as the font is high,
// whatever the font, the ascent is 4/5 and the descent 1/5 of the height, an underline lies 1/10 below the
// baseline and is 1/20 thick; lines are as far apart as the font is high. So places and sizes of texts are
// exact numbers that no machine changes, and a picture made with them is right up to the widths of its texts.
//
// What an item leaves to its host:
//   every class: DrawItem and PrintItem, painting; here nothing.
//   TKDXBaseText: GetScale, and CalcValues, which hands width and metrics to SetMeasured; else texts have no
//   size.
//   TKDXBaseBarcode: CalcValues, which hands the metrics of the number below the bars to SetMeasured; else
//   the code is not even tested, and no picture has bars. TKDXBaseFlow: CalcValues, which fills metrics and
//   lines (aTxtPoints); else a node has no text. Derived from TLaidFlow it is LayOut instead, which is called
//   for each new size of the box too.
// What a document leaves: PrinterChanged, Print and ExportDoc.

/// An item that paints nothing. Derive from it to paint, and override CalcValues to measure with real fonts.
template <class TBase>
class TBareItem : public TBase {
 public:
  using TBase::TBase;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
};

/// Measures by the metrics above.
void MeasureRoundly(TKDXBaseText& aText);
void MeasureRoundly(TKDXBaseBarcode& aBarcode);
/// Breaks the text of a node at line ends, at the last blank that fits, else inside a word.
void MeasureRoundly(TKDXBaseFlow& aFlow);

template <>
class TBareItem<TKDXBaseText> : public TKDXBaseText {
 public:
  using TKDXBaseText::TKDXBaseText;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  Single GetScale() const override { return fScaleX; }
  void CalcValues(int) override { MeasureRoundly(*this); }
};

template <>
class TBareItem<TKDXBaseBarcode> : public TKDXBaseBarcode {
 public:
  using TKDXBaseBarcode::TKDXBaseBarcode;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  void CalcValues(int) override { MeasureRoundly(*this); }
};

template <>
class TBareItem<TKDXBaseFlow> : public TLaidFlow {
 public:
  using TLaidFlow::TLaidFlow;
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}

 protected:
  void LayOut() override { MeasureRoundly(*this); }
};

/// The smallest host: a document of these items, which prints and exports nothing by itself. SVG comes from
/// SVG and SaveSVG, files from LoadFromFile and SaveToFile.
class TBareLabel : public TKDXLabelOf<TBareItem> {
 public:
  using TKDXLabelOf::TKDXLabelOf;
  void PrinterChanged() override {}
  void Print() override {}
  void ExportDoc(TZORExport, const std::string&, int, Single, int, bool, bool, bool) override {}
};

}  // namespace Zor::inline Base
