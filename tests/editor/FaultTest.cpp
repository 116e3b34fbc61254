// Exceptions from everywhere: observers, events, items in the making, measuring. The document stays sound.
#include <gtest/gtest.h>

#include <functional>

#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "support/TMirror.hpp"

namespace Zor {
namespace {

/// Throws at one of its calls.
struct TFuse {
  static inline int left = 0;  ///< calls until it blows; 0 for never
  static inline bool blown = false;
  static void Burn() {
    if (left == 0 || --left > 0) return;
    blown = true;
    throw Exception("blown");
  }
};

template <class TBase>
class TFailingItem final : public TBase {
 public:
  template <class... TArgs>
  explicit TFailingItem(TKDXBaseLabel& aOwner, TArgs&&... aArgs) : TBase(aOwner, aArgs...) {
    TFuse::Burn();
  }
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  void CalcValues(int aType) override {
    TFuse::Burn();
    TBase::CalcValues(aType);
  }
};
template <>
class TFailingItem<TKDXBaseText> final : public TKDXBaseText {
 public:
  template <class... TArgs>
  explicit TFailingItem(TKDXBaseLabel& aOwner, TArgs&&... aArgs) : TKDXBaseText(aOwner, aArgs...) {
    TFuse::Burn();
  }
  void DrawItem(TKDXBaseDraw&) override {}
  void PrintItem(TKDXBaseDraw&) override {}
  Single GetScale() const override { return fScaleX; }
  void CalcValues(int) override {
    TFuse::Burn();
    SetMeasured(static_cast<int>(fText.size()) * fFontHeight, fFontHeight, 8, 2, 1, 1.0);
  }
};

class TFailingLabel final : public TKDXLabelOf<TFailingItem> {
 public:
  using TKDXLabelOf::TKDXLabelOf;
  void PrinterChanged() override {}
  void Print() override {}
  void ExportDoc(TZORExport, const std::string&, int, Single, int, bool, bool, bool) override {}
};

class TFailingObserver final : public IZOObserver {
 public:
  explicit TFailingObserver(TZODestUpdate aKind) : fKind(aKind) {}
  TZODestUpdate Destination() override { return fKind; }
  void Update(TZOChange, const TZOChangeValue&) override { TFuse::Burn(); }

 private:
  TZODestUpdate fKind;
};

class TFailingItemObserver final : public IZOItemObserver {
 public:
  void ItemCame(TKDXBaseItem&) override { TFuse::Burn(); }
  void ItemChanged(TKDXBaseItem&) override { TFuse::Burn(); }
  void ItemGoes(TKDXBaseItem&) override { TFuse::Burn(); }
  void OrderChanged() override { TFuse::Burn(); }
  void ContentReplaced() override { TFuse::Burn(); }
  void DocumentChanged() override { TFuse::Burn(); }
};

/// A walk through what a host does. Each step may fail; the next one goes on from where that left the
/// document.
std::vector<std::function<void()>> Walk(TFailingLabel& d, const std::string& aFile,
                                        const std::string& aBinary) {
  return {
      [&] { d.NewText(5000, 5000)->SetText("one"); },
      [&] { d.NewRectangle(0, 0, 9000, 9000); },
      [&] { d.NewQRCode(0, 0, "code"); },
      [&] {
        auto* from = d.NewFlow(0, 0, 5000, 5000, ftProcess);
        auto* to = d.NewFlow(20000, 0, 5000, 5000, ftProcess);
        d.NewLink(from->fInID, to->fInID, 7, 15, ltStepLineTwoPto);
      },
      [&] {
        const TUpdateBracket bracket(d);
        for (TKDXBaseItem* item : d.fItems) item->SetColor(0xFF00FF00);
        const TUpdateBracket inner(d);
        for (TKDXBaseItem* item : d.fItems) item->BaseMove(100, 100, 0, 0, moAll, true);
      },
      [&] {
        for (TKDXBaseItem* item : d.fItems) d.AddToSelection(*item, true);
        d.FillLinkList();
      },
      [&] { d.BringToFront(); },
      [&] { d.CopySelection(); },
      [&] { d.PasteSelection(); },
      [&] { d.AddLayer().SetColor(0xFF0000FF, true); },
      [&] { d.GetItem(1)->SetLayer(d.GetLayer(2)); },
      [&] { d.GetLayer(2).SetValues(); },
      [&] { d.DeleteLayer(2); },
      [&] { d.fMeasure->SetWidth(80); },
      [&] { d.SetUnits(unCM); },
      [&] { d.RotateLeft(); },
      [&] { d.Undo(); },
      [&] { d.Undo(); },
      [&] { d.Redo(); },
      [&] { d.SetSelection(d.GetItem(1), isSelected); },
      [&] { d.DeleteSelection(); },
      [&] { d.Undo(); },
      [&] { d.DeleteItem(d.GetItem(1), true); },
      [&] { d.SetEditorMode(emDrawing); },
      [&] { d.FillBoxLayer(true); },
      [&] { d.FillBoxLayer(false); },
      [&] { d.LoadFromBytes(aFile); },
      [&] { d.GetItem(1)->SetColor(1); },
      [&] { d.LoadFromBytes(aBinary); },
      [&] { d.GetItem(1)->SetColor(1); },
      [&] { d.Undo(); },
      [&] { d.Clear({cleItems}, true); },
      [&] { d.NewLine(0, 0, 1, 1); },
      [&] { d.New(); },
      [&] { d.NewLine(0, 0, 1, 1)->SetColor(5); },
  };
}

void ExpectSound(TFailingLabel& d, const TMirror& aMirror, const std::string& aWhere) {
  constexpr TKaldrixStateOptions none{lsUpdating, lsReading, lsPaste, lsNoPaint};
  EXPECT_EQ(d.fStates - none, d.fStates) << aWhere;
  EXPECT_FALSE(d.fUndoing || d.fRedoing || d.fUpdate) << aWhere;
  EXPECT_TRUE(d.fOptions.Has(loUndoRedo)) << aWhere;
  EXPECT_TRUE(d.fIncUnReID) << aWhere;
  EXPECT_FALSE(d.fNotices.IsHeld()) << aWhere;
  EXPECT_EQ(aMirror.Fault(), "") << aWhere;
  for (const TKDXBaseItem* item : d.fItems) {
    EXPECT_GE(d.LayerIdx(item->fLayer), 0) << aWhere << ": " << item->fID;
    EXPECT_EQ(d.SearchItem(item->fInID, false), item) << aWhere << ": " << item->fID;
  }
}

TEST(FaultTest, WhateverThrowsLeavesTheDocumentSound) {
  TBareLabel other;
  other.NewText(1000, 1000)->SetText("file");
  other.NewRectangle(0, 0, 1000, 1000);
  other.EndUpdate();
  const std::string file = other.SaveToBytes(lfJSON), binary = other.SaveToBytes(lfBin);
  constexpr std::size_t loadOfJson = 26;
  int blown = 0;
  for (int at = 1;; ++at) {
    TFuse::left = 0;
    TFailingLabel document;
    TMirror mirror(document);
    TFailingObserver editor{duEditor}, inspector{duInspector};
    TFailingItemObserver items;
    document.Attach(&editor);
    document.Attach(&inspector);
    document.AttachItems(&items);
    document.fOnUndoRedoEvent = [](auto&&...) { TFuse::Burn(); };
    document.fOnSelectItem = document.fOnUnSelectItem = [](auto&&...) { TFuse::Burn(); };
    TFuse::left = at;
    TFuse::blown = false;
    const auto steps = Walk(document, file, binary);
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const std::string where = "call " + std::to_string(at) + ", step " + std::to_string(i);
      bool threw = false;
      const bool alight = TFuse::blown;
      try {
        steps[i]();
      } catch (const Exception& error) {
        threw = true;
        ASSERT_TRUE(std::string_view(error.what()).ends_with("blown")) << where << error.what();
      } catch (...) {
        FAIL() << where;
      }
      // What was thrown comes out, and at once; but a JSON file that cannot be read in passing is read again.
      const bool again = i == loadOfJson && TFuse::blown;
      EXPECT_TRUE(again || threw == (TFuse::blown != alight)) << where;
      ExpectSound(document, mirror, where);
      if (HasFailure()) return;
    }
    TFuse::left = 0;
    while (!document.IsUndoEmpty()) document.Undo();
    while (!document.IsRedoEmpty()) document.Redo();
    ExpectSound(document, mirror, "the end of " + std::to_string(at));
    if (!TFuse::blown) break;
    ++blown;
  }
  TFuse::left = 0;
  EXPECT_GT(blown, 100);
}

}  // namespace
}  // namespace Zor
