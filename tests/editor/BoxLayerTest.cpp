// The page frame and title block of a drawing.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(BoxLayerTest, IsMadeToScaleOnALayerOfItsOwn) {
  TBareLabel document;
  document.SetEditorMode(emDrawing);
  document.fMeasure->SetPaperSizeMM(420, 297);
  document.fMeasure->SetDrawScale(50);
  document.fMeasure->fTitle = "Attic";
  document.FillBoxLayer(false);
  ASSERT_EQ(document.fLayers.Count(), 2);
  const TKDXLayer& layer = document.GetLayer(2);
  EXPECT_EQ(layer.fName, "Box Layer");
  EXPECT_TRUE(layer.fOptions.Has(lopBox));
  EXPECT_FALSE(layer.fOptions.Has(lopSelectable));
  ASSERT_EQ(document.GetItemsCount(), 8);
  const auto* frame = document.SearchItem("bxIDFrame", false);
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->GetPointMMX(1), 330);
  EXPECT_EQ(frame->GetPointMMY(1), 247);
  EXPECT_EQ(frame->fPenWidth, 1000);
  auto* scale = dynamic_cast<TKDXBaseText*>(document.SearchItem("bxIDScale", false));
  EXPECT_EQ(scale->fText, "1:50");
  EXPECT_EQ(scale->fFontHeight, 8000);
  EXPECT_TRUE(scale->fBold);

  document.fMeasure->fTitle = "Cellar";
  document.FillBoxLayer(false);
  EXPECT_EQ(document.GetItemsCount(), 8);
  EXPECT_EQ(dynamic_cast<TKDXBaseText*>(document.SearchItem("bxIDTitle", false))->fText, "Cellar");
}

TEST(BoxLayerTest, IsMadeAgainWithoutDeleteCommands) {
  TBareLabel document;
  document.SetEditorMode(emFlowChart);
  document.FillBoxLayer(true);
  EXPECT_EQ(document.GetItemsCount(), 6);
  const int recorded = document.fUndo.Count();
  document.fOptions.Remove(loUndoRedo);
  document.FillBoxLayer(true);
  EXPECT_EQ(document.GetItemsCount(), 6);
  EXPECT_EQ(document.fLayers.Count(), 2);
  EXPECT_EQ(document.fUndo.Count(), recorded);
}

TEST(BoxLayerTest, IsMadeAgainWhereAPartWasMovedToAnotherLayer) {
  TBareLabel document;
  document.SetEditorMode(emDrawing);
  document.FillBoxLayer(true);
  document.SearchItem("bxIDTitle", false)->SetLayer(document.GetLayer(1));
  document.SearchItem("bxIDPageFrame", false)->SetLayer(document.GetLayer(1));
  document.FillBoxLayer(true);
  EXPECT_EQ(document.GetItemsCount(), 8);
  for (const TKDXBaseItem* item : document.fItems)
    EXPECT_EQ(item->fLayer, &document.GetLayer(2)) << item->fID;
  EXPECT_FALSE(document.fStates.Has(lsUpdating));
}

TEST(BoxLayerTest, ComesInTwoModesOnly) {
  for (const TZOREditorMode mode : {emLabelling, emInteractive}) {
    TBareLabel document;
    document.SetEditorMode(mode);
    document.FillBoxLayer(true);
    EXPECT_EQ(document.GetItemsCount(), 0);
  }
}

}  // namespace
}  // namespace Zor
