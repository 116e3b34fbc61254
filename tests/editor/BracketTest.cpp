// Brackets and what observers hear.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

using TChanges = std::vector<TZOChange>;

class BracketTest : public testing::Test {
 protected:
  void Listen() {
    fDocument.Attach(&fEditor);
    fEditor.fChanges.clear();
  }

  TBareLabel fDocument;
  TRecordingObserver fEditor{duEditor};
};

TEST_F(BracketTest, AnEditorHearsTheLabelsSizeWhenItAttachesAndOnlyOnce) {
  fDocument.Attach(&fEditor);
  ASSERT_EQ(fEditor.fChanges, TChanges{chLabelDef});
  EXPECT_EQ(fEditor.fValues[0].fInt1, 60000);
  EXPECT_EQ(fEditor.fValues[0].fInt2, 35000);
  fDocument.Attach(&fEditor);
  fDocument.Attach(nullptr);
  EXPECT_EQ(fEditor.fChanges.size(), 1U);
  EXPECT_TRUE(fDocument.fConEditors);
  fDocument.Detach(&fEditor);
  EXPECT_FALSE(fDocument.fConEditors);
}

TEST_F(BracketTest, SizeChangesAreToldOnceAtTheEndAndReplaceThePaint) {
  Listen();
  fDocument.BeginUpdate(true);
  fDocument.fMeasure->SetWidth(80);
  fDocument.fMeasure->SetHeight(50);
  fDocument.NewLine(0, 0, 10, 10)->SetColor(0xFFFF0000);
  EXPECT_TRUE(fEditor.fChanges.empty());
  fDocument.EndUpdate();
  EXPECT_EQ(fEditor.fChanges, TChanges{chMeasure});
}

TEST_F(BracketTest, WithoutPaintOnEndNothingIsToldAndNoStateIsLeft) {
  Listen();
  fDocument.BeginUpdate(false);
  fDocument.NewLine(0, 0, 10, 10)->SetColor(0xFFFF0000);
  fDocument.EndUpdate();
  EXPECT_TRUE(fEditor.fChanges.empty());
  EXPECT_EQ(fDocument.fStates - TKaldrixStateOptions{lsModified}, TKaldrixStateOptions{});
}

TEST_F(BracketTest, EachKindOfObserverHearsWhatIsMeantForIt) {
  struct TCase {
    TZOChange change;
    bool editor, inspector, preview;
  };
  const TCase cases[] = {
      {chLabelDef, true, false, false},    {chMeasure, true, false, true},
      {chPropItem, true, true, false},     {chPaint, true, false, true},
      {chSelect, true, true, false},       {chInspect, false, true, false},
      {chEndInspect, false, false, false}, {chScrollSelect, true, true, false},
      {chSelSymbol, true, false, false},
  };
  TRecordingObserver inspector{duInspector}, preview{duPreview}, symbol{duSymbol};
  for (TRecordingObserver* observer : {&fEditor, &inspector, &preview, &symbol}) fDocument.Attach(observer);
  for (const TCase& row : cases) {
    for (TRecordingObserver* observer : {&fEditor, &inspector, &preview, &symbol}) observer->fChanges.clear();
    fDocument.ChangeValue(row.change);
    EXPECT_EQ(!fEditor.fChanges.empty(), row.editor) << row.change;
    EXPECT_EQ(!inspector.fChanges.empty(), row.inspector) << row.change;
    EXPECT_EQ(!preview.fChanges.empty(), row.preview) << row.change;
    EXPECT_TRUE(symbol.fChanges.empty()) << row.change;
  }
  fDocument.fEditorMode = emInteractive;
  inspector.fChanges.clear();
  fDocument.ChangeValue(chScrollSelect);
  EXPECT_TRUE(inspector.fChanges.empty());
}

TEST_F(BracketTest, AnObserverMayDetachItselfWhileItIsTold) {
  struct TShy final : IZOObserver {
    explicit TShy(TKDXBaseLabel& aDocument) : fOwner(aDocument) {}
    TZODestUpdate Destination() override { return duPreview; }
    void Update(TZOChange, const TZOChangeValue&) override {
      ++fCalls;
      fOwner.Detach(this);
    }
    TKDXBaseLabel& fOwner;
    int fCalls = 0;
  } shy(fDocument);
  fDocument.Attach(&shy);
  fDocument.Refresh();
  fDocument.Refresh();
  EXPECT_EQ(shy.fCalls, 1);
}

TEST_F(BracketTest, TextsAreMeasuredWhenTheBracketCloses) {
  fDocument.BeginUpdate(true);
  auto* text = fDocument.NewText(0, 0);
  text->SetText("four");
  EXPECT_EQ(text->fWidth, 0);
  fDocument.EndUpdate();
  EXPECT_EQ(text->fWidth, 20000);
  EXPECT_EQ(text->fBoundsRect, (TZORRect{0, 0, 20000, 10000}));
}

TEST_F(BracketTest, AnItemThatGoesWhileItWaitsIsNotCalculated) {
  fDocument.BeginUpdate(true);
  auto* first = fDocument.NewText(0, 0);
  auto* second = fDocument.NewText(0, 0);
  second->SetText("ab");
  fDocument.DeleteItem(first, true);
  fDocument.EndUpdate();
  EXPECT_EQ(second->fWidth, 10000);
  EXPECT_EQ(fDocument.GetItemsCount(), 1);
}

TEST_F(BracketTest, ModesAndUnitsHoldTheirLimits) {
  fDocument.SetUnits(unM);
  EXPECT_EQ(fDocument.fUnits, unMM);
  fDocument.SetEditorMode(emDrawing);
  fDocument.SetUnits(unM);
  EXPECT_EQ(fDocument.fUnits, unM);
  fDocument.fMeasure->SetDrawScale(50);
  EXPECT_EQ(fDocument.BaseMoveInc(), 100000);
  fDocument.SetEditorMode(emFlowChart);
  EXPECT_EQ(fDocument.fMeasure->fDrawScale, 1);
  EXPECT_TRUE(fDocument.fMeasure->fContinousPaper);
  EXPECT_EQ(fDocument.fMeasure->fLabelName, "My drawing");
}

}  // namespace
}  // namespace Zor
