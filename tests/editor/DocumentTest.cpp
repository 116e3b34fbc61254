// Items, identities, layers, selection and clearing.
#include <gtest/gtest.h>

#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(DocumentTest, ItemsEnterByTheirConstructorAndAreNamedByKindAndIdentity) {
  TBareLabel document;
  auto* line = document.NewLine(1, 2, 3, 4);
  auto* point = document.NewPoint(5, 6);
  auto* text = document.NewText(0, 0);
  EXPECT_EQ(line->fID, "Line001");
  EXPECT_EQ(point->fID, "Point");
  EXPECT_EQ(text->fID, "Text003");
  EXPECT_EQ(document.GetItem(1), line);
  EXPECT_EQ(document.GetItem(0), nullptr);
  EXPECT_EQ(document.GetItem(4), nullptr);
  EXPECT_EQ(document.SearchItem(3, false), text);
  EXPECT_EQ(document.SearchItem("TEXT003", false), text);
  EXPECT_EQ(document.SearchItem(99, false), nullptr);
  document.Clear({cleItems}, false);
  EXPECT_EQ(document.NewLine(0, 0, 1, 1)->fID, "Line001");
}

TEST(DocumentTest, AConstructorThatThrowsLeavesNoTrace) {
  struct TFailing : TBareItem<TKDXBaseLine>::TKDXBaseLine {
    explicit TFailing(TKDXBaseLabel& aOwner) : TKDXBaseLine(aOwner, false) { throw Exception("no"); }
    void DrawItem(TKDXBaseDraw&) override {}
    void PrintItem(TKDXBaseDraw&) override {}
  };
  TBareLabel document;
  EXPECT_THROW(new TFailing(document), Exception);
  EXPECT_EQ(document.GetItemsCount(), 0);
  EXPECT_EQ(document.SearchItem(1, false), nullptr);
}

TEST(DocumentTest, ACircleNeedsThreePointsThatAreNotOnOneLine) {
  TBareLabel document;
  EXPECT_THROW(document.NewCircle3P(0, 0, 10, 10, 20, 20), EArgumentException);
  EXPECT_EQ(document.GetItemsCount(), 0);
  const auto* circle = document.NewCircle3P(0, 0, 20000, 0, 10000, 10000);
  EXPECT_EQ(circle->fBoundsRect, (TZORRect{0, -10000, 20000, 10000}));
}

TEST(DocumentTest, NamesAreUniqueWithoutCaseAndOuterBlanks) {
  TBareLabel document;
  auto* first = document.NewLine(0, 0, 1, 1);
  auto* second = document.NewLine(0, 0, 1, 1);
  first->SetID("  Straße ");
  EXPECT_EQ(first->fID, "Straße");
  try {
    second->SetID("STRAßE");
    FAIL() << "a repeated name was taken";
  } catch (const Exception& error) {
    EXPECT_STREQ(error.what(), "The ID must be unique");
  }
  EXPECT_EQ(second->fID, "Line002");
  first->SetID("STRASSE");
  second->SetID("Straße");
  document.DeleteItem(second, true);
  first->SetID("straße");
  document.fOptions.Remove(loUniqueID);
  document.NewLine(0, 0, 1, 1)->SetID("straße");
}

TEST(DocumentTest, LayersKeepTheFirstAndHandItemsBack) {
  TBareLabel document;
  TKDXLayer& second = document.AddLayer();
  EXPECT_EQ(second.fName, "New Layer");
  EXPECT_EQ(&document.GetLayer(0), &document.GetLayer(1));
  EXPECT_FALSE(document.DeleteLayer(1));
  EXPECT_FALSE(document.ExchangeLayers(1, 2));
  ASSERT_TRUE(document.SetActiveLayer(2));
  auto* line = document.NewLine(0, 0, 1, 1);
  EXPECT_EQ(line->fLayer, &second);
  ASSERT_TRUE(document.DeleteLayer(2));
  EXPECT_EQ(line->fLayer, &document.GetLayer(1));
  EXPECT_EQ(document.fActiveLayer, 0);
}

TEST(DocumentTest, ItemsAreSortedByLayerWhereAsked) {
  TBareLabel document;
  TKDXLayer& upper = document.AddLayer();
  auto* a = document.NewLine(0, 0, 1, 1);
  auto* b = document.NewLine(0, 0, 1, 1);
  auto* c = document.NewLine(0, 0, 1, 1);
  document.SetLayerZOrder(true);
  a->SetLayer(upper);
  EXPECT_EQ(document.GetItem(1), b);
  EXPECT_EQ(document.GetItem(2), c);
  EXPECT_EQ(document.GetItem(3), a);
}

TEST(DocumentTest, SelectionWalksOverWhatIsShownAndSelectable) {
  TBareLabel document;
  auto* a = document.NewLine(0, 0, 1, 1);
  auto* hidden = document.NewLine(0, 0, 1, 1);
  auto* locked = document.NewLine(0, 0, 1, 1);
  auto* d = document.NewLine(0, 0, 1, 1);
  hidden->SetOptions({lopPrint, lopSelectable, lopExport});
  locked->SetOptions({lopVisible, lopPrint, lopExport});
  document.SetSelection(a, isSelected);
  EXPECT_TRUE(document.SelectNext());
  EXPECT_EQ(document.Select(), d);
  EXPECT_FALSE(document.SelectNext());
  EXPECT_TRUE(document.SelectPrior());
  EXPECT_EQ(document.Select(), a);
  document.BringToFront();
  EXPECT_EQ(document.GetItem(4), a);
  document.SendToBack();
  EXPECT_EQ(document.GetItem(1), a);
}

TEST(DocumentTest, ALoneTextIsToldAsSuch) {
  TBareLabel document;
  TRecordingObserver editor{duEditor};
  document.Attach(&editor);
  auto* text = document.NewText(0, 0);
  editor.fChanges.clear();
  document.SetSelection(text, isSelected);
  EXPECT_EQ(editor.fChanges, std::vector<TZOChange>{chChText});
  EXPECT_EQ(document.GetTextObject(), static_cast<IZORText*>(text));
}

TEST(DocumentTest, DeletingTheSelectionIsOneStepForManyItems) {
  TBareLabel document;
  document.BeginUpdate(true);
  for (int i = 0; i < 1000; ++i) document.NewLine(i, 0, i, 10);
  for (int i = 1; i <= 1000; i += 2) document.AddToSelection(*document.GetItem(i), false);
  document.EndUpdate();
  document.BeginUpdate(true);
  document.DeleteSelection();
  document.EndUpdate();
  ASSERT_EQ(document.GetItemsCount(), 500);
  EXPECT_EQ(document.GetItem(1)->fInID, 2);
  EXPECT_EQ(document.SearchItem(3, false), nullptr);
  EXPECT_TRUE(document.fSelection.empty());
  document.Undo();
  EXPECT_EQ(document.GetItemsCount(), 1000);
  EXPECT_NE(document.SearchItem(3, false), nullptr);
}

TEST(DocumentTest, DeletedItemsAreToldOneAfterTheOther) {
  TBareLabel document;
  TRecordingObserver editor{duEditor};
  document.Attach(&editor);
  for (int i = 0; i < 4; ++i) document.NewLine(i, 0, i, 10);
  for (const int index : {3, 1, 3}) document.AddToSelection(*document.GetItem(index), false);
  std::vector<int> gone;
  document.fOnUnSelectItem = [&](TKDXBaseLabel*, TKDXBaseItem* item) {
    EXPECT_EQ(item->fState, isNormal);
    gone.push_back(item->fInID);
  };
  editor.fChanges.clear();
  document.DeleteSelection();
  EXPECT_EQ(gone, (std::vector{1, 3}));
  EXPECT_EQ(document.GetItemsCount(), 2);
  EXPECT_EQ(editor.fChanges, std::vector<TZOChange>{chSelect});
}

TEST(DocumentTest, AHandlerThatRaisesStopsNoDeletion) {
  for (const bool inOrder : {true, false}) {
    TBareLabel document;
    for (int i = 0; i < 4; ++i) document.NewLine(i, 0, i, 10);
    for (const int index : {1, 2, 3})
      document.AddToSelection(*document.GetItem(inOrder ? index : 4 - index), false);
    int calls = 0;
    document.fOnUnSelectItem = [&](TKDXBaseLabel*, TKDXBaseItem*) {
      if (++calls == 2) throw Exception("no");
    };
    EXPECT_THROW(document.DeleteSelection(), Exception);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(document.GetItemsCount(), 1);
    document.Undo();
    EXPECT_EQ(document.GetItemsCount(), 2);
    EXPECT_NE(document.SearchItem(inOrder ? 1 : 3, false), nullptr);
  }
}

TEST(DocumentTest, TheWholeDocumentTurns) {
  TBareLabel document;
  document.fMeasure->SetHeight(60);
  auto* line = document.NewLine(1000, 2000, 5000, 9000);
  const TZORPtoA before = line->fPoints;
  int turned = 0;
  document.fOnLabelRotate = [&turned](TKDXBaseLabel*) { ++turned; };
  document.RotateLeft();
  EXPECT_EQ(line->GetPoint(1), (TZORPto{2000, 59000}));
  EXPECT_EQ(document.fAngle, ag90);
  for (int i = 0; i < 3; ++i) document.RotateLeft();
  EXPECT_EQ(line->fPoints, before);
  EXPECT_EQ(document.fAngle, ag0);
  EXPECT_EQ(turned, 4);
  document.SetEditorMode(emDrawing);
  document.RotateRight();
  EXPECT_EQ(document.fAngle, ag0);
}

TEST(DocumentTest, TheFirstDimensionStyleStays) {
  TBareLabel document;
  EXPECT_THROW(document.DeleteActiveDimStyle(), Exception);
  new TKDXDimStyle(&document, "thin");
  EXPECT_TRUE(document.SetActiveDimStyle("THIN"));
  EXPECT_TRUE(document.DeleteActiveDimStyle());
  EXPECT_EQ(document.fDimStyles.Count(), 1);
  EXPECT_EQ(document.fActiveDimStyle, 0);
}

TEST(DocumentTest, MovesAreCutAtTheLabelsEdge) {
  TBareLabel document;  // 60 x 35 mm
  auto* line = document.NewLine(10000, 10000, 50000, 30000);
  struct TCase {
    Int64 x, y, cutX, cutY;
  };
  const TCase cases[] = {
      {5000, 1000, 5000, 1000}, {20000, 9000, 10000, 5000}, {-15000, -20000, -10000, -10000}, {0, 0, 0, 0}};
  for (const TCase& row : cases) {
    Int64 x = row.x, y = row.y;
    line->CheckBaseBoundsMove(x, y);
    EXPECT_EQ(x, row.cutX);
    EXPECT_EQ(y, row.cutY);
    x = row.x;
    y = row.y;
    line->CheckBaseBoundsMove(x, y, moAll);
    EXPECT_EQ(x, row.cutX);
    EXPECT_EQ(y, row.cutY);
  }
}

TEST(DocumentTest, EdgeMovesTakeANewCoordinateOrAWay) {
  TBareLabel document;
  auto* box = document.NewRectangle(1000, 1000, 4000, 3000);
  box->BaseMove(100, 0, 250, 0, moRight, true);
  EXPECT_EQ(box->GetPoint(2).bX, 250);
  box->BaseMove(100, 200, -1, -1, moBotRight, true);
  EXPECT_EQ(box->GetPoint(2), (TZORPto{350, 4200}));
  auto* line = document.NewLine(1100, 1100, 5000, 5000);
  line->BaseMove(300, -300, 1000, 1000, moAll, true);
  EXPECT_EQ(line->GetPoint(1), (TZORPto{2000, 0}));
  EXPECT_EQ(line->GetPoint(2), (TZORPto{5900, 3900}));
}

}  // namespace
}  // namespace Zor
