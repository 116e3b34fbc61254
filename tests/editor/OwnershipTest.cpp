// What belongs to another document.
#include <gtest/gtest.h>

#include <functional>

#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

struct TDrawing {
  TDrawing() {
    line = document.NewLine(0, 0, 1000, 1000);
    layer = &document.AddLayer();
    counter = new TKDXCounter(&document);
    document.SetSelection(line, isSelected);
  }
  std::string State() const {
    return document.GetJsonString(true) + std::to_string(document.fSelection.size()) +
           std::to_string(document.fPreview.Count()) + std::to_string(document.fUndo.Count());
  }

  TBareLabel document;
  TBareItem<TKDXBaseLine>* line;
  TKDXLayer* layer;
  TKDXCounter* counter;
};

TEST(OwnershipTest, OperationsRefuseWhatBelongsToAnotherDocument) {
  using TOperation = std::function<void(TDrawing&, TDrawing&)>;
  const std::pair<const char*, TOperation> operations[] = {
      {"DeleteItem", [](TDrawing& a, TDrawing& b) { a.document.DeleteItem(b.line, true); }},
      {"AddToSelection", [](TDrawing& a, TDrawing& b) { a.document.AddToSelection(*b.line, true); }},
      {"SetSelection", [](TDrawing& a, TDrawing& b) { a.document.SetSelection(b.line, isSelected); }},
      {"ScrollItem", [](TDrawing& a, TDrawing& b) { a.document.ScrollItem(b.line); }},
      {"MakePreviewCopy", [](TDrawing& a, TDrawing& b) { a.document.MakePreviewCopy(*b.line, 1, 1); }},
      {"Rename", [](TDrawing& a, TDrawing& b) { a.document.Rename(*b.line, "x"); }},
      {"ChangeState", [](TDrawing& a, TDrawing& b) { a.document.ChangeState(lsCalc, b.line); }},
      {"ItemChanged", [](TDrawing& a, TDrawing& b) { a.document.ItemChanged(*b.line); }},
      {"SetLayer", [](TDrawing& a, TDrawing& b) { a.line->SetLayer(*b.layer); }},
      {"construction",
       [](TDrawing& a, TDrawing& b) { new TBareItem<TKDXBaseLine>(a.document, *b.layer, false); }},
  };
  for (const auto& [name, run] : operations) {
    TDrawing a, b;
    const std::string stateA = a.State(), stateB = b.State();
    EXPECT_THROW(run(a, b), EArgumentException) << name;
    EXPECT_EQ(a.State(), stateA) << name;
    EXPECT_EQ(b.State(), stateB) << name;
  }
}

TEST(OwnershipTest, QuestionsAnswerThatItIsNotThere) {
  TDrawing a, b;
  EXPECT_FALSE(a.document.Selected(*b.line));
  EXPECT_EQ(a.document.LayerIdx(b.layer), -1);
  EXPECT_EQ(a.document.DimIdx(b.document.GetDimStyle(1)), -1);
  EXPECT_FALSE(a.document.RemoveCounter(b.counter));
  EXPECT_EQ(b.document.GetCounterCount(), 1);
  EXPECT_TRUE(a.document.RepeatID(" line001", b.line));
}

TEST(OwnershipTest, CopiesOnTheSheetAreNotSelected) {
  TDrawing a;
  TKDXBaseItem& copy = a.document.MakePreviewCopy(*a.line, 1, 1);
  EXPECT_THROW(a.document.SetSelection(&copy, isSelected), EArgumentException);
  EXPECT_EQ(a.document.Select(), a.line);
  copy.SetID("copy");
  EXPECT_EQ(a.document.SearchItem("copy", false), nullptr);
  EXPECT_EQ(a.document.SearchItem("Line001", false), a.line);
}

}  // namespace
}  // namespace Zor
