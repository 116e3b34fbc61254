// A host of one's own, as the docs tell it: what it has to supply, and what that gives.
#include <gtest/gtest.h>

#include "kaldrix/editor/TBareLabel.hpp"

namespace Zor {
namespace {

/// Counts what it is asked to paint, and measures texts with a font of its own.
int Painted = 0;

template <class TBase>
class TOwnItem : public TBareItem<TBase> {
 public:
  using TBareItem<TBase>::TBareItem;
  void DrawItem(TKDXBaseDraw&) override { ++Painted; }
};

template <>
class TOwnItem<TKDXBaseText> : public TBareItem<TKDXBaseText> {
 public:
  using TBareItem<TKDXBaseText>::TBareItem;
  void DrawItem(TKDXBaseDraw&) override { ++Painted; }
  void CalcValues(int) override { SetMeasured(12345, 5000, 4000, 1000, 500, 1.0); }
};

class TOwnLabel : public TKDXLabelOf<TOwnItem> {
 public:
  using TKDXLabelOf::TKDXLabelOf;
  void PrinterChanged() override {}
  void Print() override {}
  void ExportDoc(TZORExport, const std::string&, int, Single, int, bool, bool, bool) override {}
};

TEST(OwnHostTest, OverridesWhatItNeedsAndKeepsTheRestOfTheBareItems) {
  TOwnLabel label;
  auto* text = label.NewText(0, 0);
  text->SetText("own");
  label.NewBarcode(0, 0, "4006381333931", btEAN13);
  label.NewFlow(0, 0, 30000, 20000, ftProcess)->SetText("Ask twice, cut once");
  const std::string svg = label.SVG(svCurrentUnit, 1, false);
  EXPECT_EQ(text->fWidth, 12345);
  EXPECT_NE(svg.find(">Ask twice,</text>"), std::string::npos) << svg;
  EXPECT_NE(svg.find(">cut once</text>"), std::string::npos);
  EXPECT_NE(svg.find("006381"), std::string::npos) << "the number below the bars";
  TKDXBaseDraw surface;
  for (TKDXBaseItem* item : label.fItems) item->DrawElement(surface);
  EXPECT_EQ(Painted, 3);
}

TEST(OwnHostTest, NodesOfTheBareHostBreakTheirTextForTheirBox) {
  TBareLabel label;
  auto* node = label.NewFlow(0, 0, 30000, 40000, ftProcess);  // 12 characters of 2.5 mm
  const auto lines = [&](const std::string& text) {
    node->SetText(text);
    label.CalcPending();
    return node->LineTexts();
  };
  using TLines = std::vector<std::string>;
  EXPECT_EQ(lines("Ask twice, cut once"), (TLines{"Ask twice,", "cut once"}));
  EXPECT_EQ(lines("abcdefghijklmnop q"), (TLines{"abcdefghijkl", "mnop q"}));
  EXPECT_EQ(lines("one\n\ntwo"), (TLines{"one", "", "two"}));
  EXPECT_EQ(lines(""), TLines{});
  lines("Ask twice, cut once");
  node->SetBaseWidth(60000);
  label.CalcPending();
  EXPECT_EQ(node->LineTexts(), TLines{"Ask twice, cut once"});
  node->SetHorzAlign(haRight);
  node->SetVertAlign(vaBottom);
  label.CalcPending();
  EXPECT_EQ(node->aTxtPoints[0].bX, 60000 - 19 * 2500);
  EXPECT_EQ(node->aTxtPoints[0].bY, 40000 - 5000);
}

}  // namespace
}  // namespace Zor
