// Clearing, new documents, and what makings that fail leave behind.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <set>

#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(ClearTest, ANewDocumentKeepsNothingOfTheDrawing) {
  TBareLabel document, fresh;
  TKDXLayer* base = &document.GetLayer(1);
  base->fName = "Plan";
  base->fOptions.Remove(lopVisible);
  base->fArrayB = "bytes of a picture";
  base->fImageType = itPng;
  document.GetDimStyle(1)->SetHeadSize(9);
  document.AddLayer().fOptions.Add(lopImage);
  document.CheckBackLayer();
  new TKDXDimStyle(&document, "thin");
  document.SetActiveLayer(2);
  document.SetActiveDimStyle("thin");
  document.NewText(0, 0);
  document.RotateLeft();
  document.New();
  EXPECT_EQ(document.fActiveLayer, 0);
  EXPECT_EQ(document.fActiveDimStyle, 0);
  EXPECT_EQ(document.fIdxBack, -1);
  EXPECT_EQ(document.fAngle, ag0);
  EXPECT_EQ(&document.GetLayer(1), base);
  EXPECT_EQ(base->fArrayB, "");
  EXPECT_EQ(base->fImageType, itNone);
  std::swap(document.fMeasure->fWidth, document.fMeasure->fHeight);  // The sizes stay, turned.
  std::swap(document.fMeasure->fPaperWidth, document.fMeasure->fPaperHeight);
  EXPECT_EQ(document.GetJsonString(true), fresh.GetJsonString(true));
  EXPECT_EQ(document.GetDimStyle(1)->GetHeadSize(), fresh.GetDimStyle(1)->GetHeadSize());
  EXPECT_FALSE(document.fModified);
}

/// The layers that items and preview copies stand on, 0-based; -1 would be one that is gone.
std::vector<int> LayersOf(const TBareLabel& document) {
  std::vector<int> layers;
  for (const auto* list : {&document.fItems, &document.fPreview}) {
    for (const TKDXBaseItem* item : *list) layers.push_back(document.LayerIdx(item->fLayer));
  }
  return layers;
}

TEST(ClearTest, ItemsAndCopiesOfLayersThatGoStandOnTheFirst) {
  struct TCase {
    const char* what;
    void (*remove)(TBareLabel&);
    std::vector<int> layers;
    int active;
  };
  const TCase cases[] = {
      {"one", [](TBareLabel& d) { d.DeleteLayer(2); }, {0, 0, 1, 0, 1}, 1},
      {"the active one", [](TBareLabel& d) { d.DeleteLayer(3); }, {0, 1, 0, 1, 0}, 0},
      {"all but the first", [](TBareLabel& d) { d.Clear({cleLayers}, false); }, {0, 0, 0, 0, 0}, 0},
      {"the first", [](TBareLabel& d) { d.Clear({cleBaseLayer}, false); }, {0, 0, 1, 0, 1}, 1},
  };
  for (const TCase& row : cases) {
    TBareLabel document;
    document.AddLayer();
    document.AddLayer();
    for (int layer : {1, 2, 3}) {
      document.SetActiveLayer(layer);
      document.NewLine(0, 0, 10, 10);
    }
    document.MakePreviewCopy(*document.GetItem(2), 1, 1);
    document.MakePreviewCopy(*document.GetItem(3), 1, 1);
    row.remove(document);
    EXPECT_EQ(LayersOf(document), row.layers) << row.what;
    EXPECT_EQ(document.fActiveLayer, row.active) << row.what;
  }
}

TEST(ClearTest, ItemsAreNotLeftWithoutALayer) {
  TBareLabel document;
  document.NewLine(0, 0, 1, 1);
  const std::string before = document.GetJsonString(true);
  EXPECT_THROW(document.Clear({cleLayers, cleBaseLayer}, false), EInvalidOperation);
  EXPECT_EQ(document.GetJsonString(true), before);
  document.Clear({cleItems, cleBaseLayer}, false);
  EXPECT_THROW(document.NewLine(0, 0, 1, 1), EInvalidOperation);
  EXPECT_TRUE(document.fItems.IsEmpty());
  document.New();
  document.NewLine(0, 0, 1, 1);
}

TEST(ClearTest, IdentitiesAreGivenOnceWhateverUndoBringsBack) {
  for (const int made : {0, 1, 5}) {
    TBareLabel document;
    document.NewLine(0, 0, 1, 1);
    auto* second = document.NewLine(0, 0, 2, 2);
    second->SetColor(0xFFFF0000);
    auto* third = document.NewLine(0, 0, 3, 3);
    third->SetID("axis");
    document.DeleteItem(third, true);
    document.DeleteItem(second, true);
    document.Clear({cleItems}, false);
    for (int i = 0; i < made; ++i) document.NewLine(0, 0, 9, 9);
    // The new lines go again, then the deleted ones come back.
    for (int i = 0; i < made + 2; ++i) document.Undo();
    for (int i = 0; i <= made; ++i) document.NewLine(0, 0, 9, 9);
    std::set<int> identities;
    std::set<std::string> names;
    for (const TKDXBaseItem* item : document.fItems) {
      EXPECT_TRUE(identities.insert(item->fInID).second) << item->fInID;
      EXPECT_TRUE(names.insert(item->fID).second) << item->fID;
    }
    ASSERT_EQ(document.GetItemsCount(), made + 3);
    EXPECT_NE(document.SearchItem("axis", false), nullptr);
  }
}

TEST(ClearTest, CommandsOfAClearedDrawingMeetNoNewItem) {
  TBareLabel document;
  auto* old = document.NewLine(0, 0, 1, 1);
  old->SetColor(0xFFFF0000);
  document.DeleteItem(old, true);
  document.Clear({cleItems}, false);
  document.fOptions.Remove(loUndoRedo);
  auto* line = document.NewLine(0, 0, 5, 5);
  line->SetColor(0xFF00FF00);
  document.fOptions.Add(loUndoRedo);
  ASSERT_EQ(line->fInID, 1);
  // The old line comes back beside the new one, and its history is its own.
  document.Undo();
  ASSERT_EQ(document.GetItemsCount(), 2);
  auto* again = document.GetItem(2);
  EXPECT_NE(again->fInID, line->fInID);
  EXPECT_EQ(again->GetPoint(2).bX, 1);
  document.Undo();
  EXPECT_EQ(again->fColor, ColorBlack);
  EXPECT_EQ(line->fColor, 0xFF00FF00);
  document.Undo();
  ASSERT_EQ(document.GetItemsCount(), 1);
  EXPECT_EQ(document.GetItem(1), line);
  while (!document.IsRedoEmpty()) document.Redo();
  ASSERT_EQ(document.GetItemsCount(), 1);
  EXPECT_EQ(document.GetItem(1), line);
}

// Makings that fail -----------------------------------------------------------------------------------

TEST(ClearTest, AFactoryThatRaisesLeavesNoTrace) {
  const std::string tooLong(9000, 'a');
  constexpr Single noNumber = std::numeric_limits<Single>::quiet_NaN();
  const std::pair<const char*, std::function<void(TBareLabel&)>> factories[] = {
      {"QR Code", [&](TBareLabel& d) { d.NewQRCode(0, 0, tooLong); }},
      {"Data Matrix", [&](TBareLabel& d) { d.NewDataMatrix(0, 0, tooLong); }},
      {"PDF417", [&](TBareLabel& d) { d.NewPDF417(0, 0, tooLong); }},
      {"sector", [&](TBareLabel& d) { d.NewSector(0, 0, 5, 10, noNumber); }},
      {"arc", [](TBareLabel& d) { d.NewArc(0, 0, 1, 1, 2, 2); }},
      {"record", [](TBareLabel& d) { d.CreateElementFromStream(std::string("\x80\f\0\0\2\0\0\0\1\0", 10)); }},
  };
  for (const auto& [what, make] : factories) {
    TBareLabel document;
    auto* line = document.NewLine(0, 0, 1, 1);
    line->SetColor(1);
    document.Undo();
    document.fModified = false;
    bool undoEmpty = true;
    document.fOnUndoRedoEvent = [&](TKDXBaseLabel*, bool undo, bool) { undoEmpty = undo; };
    const auto states = document.fStates;
    EXPECT_THROW(make(document), Exception) << what;
    EXPECT_EQ(document.GetItemsCount(), 1) << what;
    EXPECT_EQ(document.fUndo.Count(), 1) << what;
    EXPECT_EQ(document.fRedo.Count(), 1) << what;
    EXPECT_FALSE(document.fModified) << what;
    EXPECT_EQ(document.fStates, states) << what;
    EXPECT_EQ(document.NewLine(0, 0, 1, 1)->fInID, 2) << what;
    EXPECT_FALSE(undoEmpty) << what;
  }
}

TEST(ClearTest, TurningTellsTheViewsTheNewSize) {
  TBareLabel document;
  TRecordingObserver editor{duEditor}, preview{duPreview};
  document.Attach(&editor);
  document.Attach(&preview);
  document.NewLine(0, 0, 1000, 1000);
  editor.fChanges.clear();
  editor.fValues.clear();
  document.RotateRight();
  ASSERT_EQ(editor.fChanges, std::vector<TZOChange>{chMeasure});
  EXPECT_EQ(editor.fValues[0].fInt1, 35000);
  EXPECT_EQ(preview.fChanges, std::vector<TZOChange>{chMeasure});
}

}  // namespace
}  // namespace Zor
