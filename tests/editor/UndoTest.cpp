// Undo and redo.
#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(UndoTest, ARunOfOneColourIsOneStepAndBooleansAreNot) {
  TBareLabel document;
  auto* a = document.NewRectangle(0, 0, 1000, 1000);
  auto* b = document.NewRectangle(0, 0, 1000, 1000);
  const int start = document.fUndo.Count();
  a->SetColor(1);
  a->SetColor(2);
  EXPECT_EQ(document.fUndo.Count(), start + 1);
  a->SetFilled(false);
  a->SetFilled(true);
  EXPECT_EQ(document.fUndo.Count(), start + 3);
  for (int i = 0; i < 3; ++i) document.Undo();
  EXPECT_EQ(a->fColor, ColorBlack);
  a->SetColor(1);
  b->SetColor(1);
  a->SetColor(2);
  EXPECT_EQ(document.fUndo.Count(), start + 3);
}

TEST(UndoTest, NothingIsRecordedWithTheOptionOff) {
  TBareLabel document;
  document.fOptions.Remove(loUndoRedo);
  auto* line = document.NewLine(0, 0, 1, 1);
  line->SetColor(1);
  document.DeleteItem(line, true);
  EXPECT_TRUE(document.IsUndoEmpty());
}

TEST(UndoTest, ABracketIsOneStep) {
  TBareLabel document;
  std::vector<TKDXBaseItem*> lines;
  for (int i = 0; i < 3; ++i) lines.push_back(document.NewLine(0, 0, 1000, 1000));
  document.BeginUpdate(true);
  for (TKDXBaseItem* line : lines) line->BaseMove(500, 0, 0, 0, moAll, true);
  document.EndUpdate();
  document.Undo();
  for (TKDXBaseItem* line : lines) {
    EXPECT_EQ(line->GetPoint(1).bX, 0);
    EXPECT_EQ(line->fBoundsRect.Left, 0);
  }
  while (!document.IsRedoEmpty()) document.Redo();
  for (TKDXBaseItem* line : lines) EXPECT_EQ(line->GetPoint(1).bX, 500);
}

TEST(UndoTest, ADeletedItemComesBackWithItsIdentityAndItsHistory) {
  TBareLabel document;
  auto* line = document.NewLine(0, 0, 1000, 1000);
  line->SetID("axis");
  line->SetColor(0xFF00FF00);
  line->BaseMove(12345, 0, 0, 0, moAll, true);
  document.DeleteItem(line, true);
  document.Undo();
  TKDXBaseItem* again = document.SearchItem("axis", false);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->fInID, 1);
  EXPECT_EQ(again->GetPoint(1).bX, 12345);
  document.Undo();
  EXPECT_EQ(again->GetPoint(1).bX, 0);
  document.Undo();
  EXPECT_EQ(again->fColor, ColorBlack);
  document.Undo();
  EXPECT_EQ(document.GetItemsCount(), 0);
  document.Redo();
  ASSERT_EQ(document.GetItemsCount(), 1);
  EXPECT_EQ(document.GetItem(1)->fInID, 1);
}

TEST(UndoTest, ACommandWhoseItemIsGoneDoesNothing) {
  TBareLabel document;
  auto* a = document.NewLine(0, 0, 1, 1);
  a->SetColor(1);
  document.Undo();
  document.fOptions.Remove(loUndoRedo);
  document.DeleteItem(a, true);
  document.fOptions.Add(loUndoRedo);
  document.Redo();
  document.Undo();
  EXPECT_EQ(document.GetItemsCount(), 0);
  document.Undo();
  EXPECT_TRUE(document.IsUndoEmpty());
}

TEST(UndoTest, TheHostHearsWhetherTheStacksAreEmpty) {
  TBareLabel document;
  std::vector<std::pair<bool, bool>> heard;
  document.fOnUndoRedoEvent = [&heard](TKDXBaseLabel*, bool undo, bool redo) {
    heard.emplace_back(undo, redo);
  };
  document.NewLine(0, 0, 1, 1);
  EXPECT_EQ(heard.back(), std::make_pair(false, true));
  document.Undo();
  EXPECT_EQ(heard.back(), std::make_pair(true, false));
  document.Clear({cleAll}, false);
  EXPECT_EQ(heard.back(), std::make_pair(true, true));
}

/// A change of one recorded property of one item. Properties that are restored through document units are
/// left out: they come back to the last digit only where units and base points agree.
using TEdit = std::function<void(TKDXBaseItem&, std::mt19937&)>;

unsigned Any(std::mt19937& aRandom, unsigned aBelow) { return static_cast<unsigned>(aRandom() % aBelow); }

std::vector<TEdit> Edits() {
  const auto aspect = []<class TAspect>(void (*aChange)(TAspect&, std::mt19937&)) -> TEdit {
    return [aChange](TKDXBaseItem& item, std::mt19937& random) {
      if (auto* found = dynamic_cast<TAspect*>(&item)) aChange(*found, random);
    };
  };
  return {
      [](TKDXBaseItem& item, std::mt19937& random) { item.SetColor(static_cast<TAlphaColor>(random())); },
      [](TKDXBaseItem& item, std::mt19937& random) {
        item.SetPenWidth(static_cast<Single>(Any(random, 30)) / 10);
      },
      [](TKDXBaseItem& item, std::mt19937& random) {
        item.BaseMove(static_cast<Int64>(Any(random, 9000)) - 4500, Any(random, 700), 0, 0, moAll, true);
      },
      aspect(+[](IZORStyle& item, std::mt19937& random) {
        item.SetLineType(static_cast<TZOLineType>(Any(random, 12)));
      }),
      aspect(+[](IZORSTerm& item, std::mt19937& random) {
        item.SetFromType(static_cast<TZORTermType>(Any(random, 12)));
      }),
      aspect(+[](IZORSTerm& item, std::mt19937& random) {
        item.SetToType(static_cast<TZORTermType>(Any(random, 12)));
      }),
      aspect(+[](IZORSTerm& item, std::mt19937& random) {
        item.SetFromColor(static_cast<TAlphaColor>(random()));
      }),
      aspect(+[](IZORSTerm& item, std::mt19937& random) {
        item.SetToColor(static_cast<TAlphaColor>(random()));
      }),
      aspect(+[](IZORSTerm& item, std::mt19937& random) {
        item.SetSizeFrom(static_cast<Single>(Any(random, 60)));
      }),
      aspect(+[](IZORSTerm& item, std::mt19937& random) {
        item.SetBaseSizeTo(static_cast<int>(Any(random, 60000)));
      }),
      aspect(+[](IZORBack& item, std::mt19937& random) {
        item.SetBackColor(static_cast<TAlphaColor>(random()));
      }),
      aspect(+[](IZORBack& item, std::mt19937& random) { item.SetFilled(Any(random, 2) == 1); }),
      aspect(+[](IZORFont& item, std::mt19937& random) { item.SetBold(Any(random, 2) == 1); }),
      aspect(+[](IZORFont& item, std::mt19937& random) { item.SetItalic(Any(random, 2) == 1); }),
      aspect(+[](IZORFont& item, std::mt19937& random) { item.SetUnderline(Any(random, 2) == 1); }),
      aspect(+[](IZORFont& item, std::mt19937& random) {
        item.SetFontColor(static_cast<TAlphaColor>(random()));
      }),
      aspect(+[](IZORFont& item, std::mt19937& random) {
        item.SetFontName(Any(random, 2) == 1 ? "Arial" : "Courier");
      }),
      aspect(+[](IZORText& item, std::mt19937& random) {
        item.SetText("text " + std::to_string(Any(random, 50)));
      }),
      aspect(+[](IZORAngle& item, std::mt19937& random) {
        item.SetAngle(static_cast<TZORAngle>(Any(random, 4)));
      }),
  };
}

void MakeOneOfEach(TBareLabel& aDocument) {
  aDocument.NewPoint(5000, 5000);
  aDocument.NewLine(0, 0, 30000, 20000);
  aDocument.NewPolyLine({{0, 0}, {9000, 4000}, {2000, 30000}}, 2);
  aDocument.NewArc(10000, 20000, 20000, 10000, 30000, 20000);
  aDocument.NewRectangle(1000, 1000, 9000, 7000);
  aDocument.NewPolygon({{0, 0}, {9000, 0}, {9000, 9000}}, 2);
  aDocument.NewBezier({{0, 0}, {9000, 0}, {9000, 9000}, {0, 9000}}, 3);
  aDocument.NewCircle(20000, 20000, 8000);
  aDocument.NewEllipse(20000, 20000, 8000, 4000);
  aDocument.NewSector(20000, 20000, 8000, 30, 120);
  aDocument.NewText(4000, 4000)->SetText("start");
}

TEST(UndoTest, ARandomWalkComesBackToBothEnds) {
  TBareLabel document;
  MakeOneOfEach(document);
  document.CalcPending();
  document.Clear({cleUndoRedo}, false);
  const std::vector<TEdit> edits = Edits();
  std::mt19937 random(20261122);
  const std::string start = document.GetJsonString(true);
  for (int i = 0; i < 10000; ++i) {
    TKDXBaseItem* item =
        document.GetItem(1 + static_cast<int>(Any(random, static_cast<unsigned>(document.GetItemsCount()))));
    const bool bracket = Any(random, 5) == 0;
    if (bracket) document.BeginUpdate(true);
    for (unsigned n = bracket ? 1 + Any(random, 4) : 1; n > 0; --n)
      edits[Any(random, static_cast<unsigned>(edits.size()))](*item, random);
    if (bracket) document.EndUpdate();
  }
  document.CalcPending();
  const std::string end = document.GetJsonString(true);
  ASSERT_NE(start, end);
  const int steps = document.fUndo.Count();
  EXPECT_GT(steps, 4000);
  while (!document.IsUndoEmpty()) document.Undo();
  EXPECT_TRUE(document.GetJsonString(true) == start);
  while (!document.IsRedoEmpty()) document.Redo();
  EXPECT_TRUE(document.GetJsonString(true) == end);
  while (!document.IsUndoEmpty()) document.Undo();
  EXPECT_TRUE(document.GetJsonString(true) == start);
}

}  // namespace
}  // namespace Zor
