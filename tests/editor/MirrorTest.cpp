// What observers of items hear: enough to keep a copy of the drawing right.
#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "support/OneOfEach.hpp"
#include "support/TMirror.hpp"

namespace Zor {
namespace {

/// Random edits of a document, good and bad ones.
class TWalk {
 public:
  explicit TWalk(unsigned aSeed) : fRandom(aSeed) {
    TBareLabel other;
    OneOfEach(other);
    other.AddLayer();
    fFile = other.SaveToBytes(lfJSON);
    fBinary = other.SaveToBytes(lfBin);
  }

  /// One edit; its name.
  const char* Step() {
    const auto& [name, weight, edit] = fEdits[Picked()];
    try {
      edit();
    } catch (const Exception&) {
      // A refusal is an edit too.
    }
    return name;
  }

  TBareLabel fDocument;

 private:
  struct TEdit {
    const char* name;
    int weight;
    std::function<void()> run;
  };

  int Any(int aCount) { return static_cast<int>(fRandom() % static_cast<unsigned>(aCount)); }
  std::size_t Picked() {
    int sum = 0;
    for (const TEdit& edit : fEdits) sum += edit.weight;
    int at = Any(sum);
    std::size_t i = 0;
    while (at >= fEdits[i].weight) at -= fEdits[i++].weight;
    return i;
  }
  TAlphaColor Color() { return static_cast<TAlphaColor>(fRandom()); }
  TKDXBaseItem* Item() { return fDocument.GetItem(1 + Any(std::max(fDocument.GetItemsCount(), 1))); }
  TKDXLayer& Layer() { return fDocument.GetLayer(1 + Any(fDocument.fLayers.Count())); }
  template <class TAction>
  void WithItem(TAction aAction) {
    if (TKDXBaseItem* item = Item()) aAction(*item);
  }
  template <class TAspect, class TAction>
  void WithAspect(TAction aAction) {
    for (int i = 0; i < 8; ++i) {
      if (auto* aspect = dynamic_cast<TAspect*>(Item())) return aAction(*aspect);
    }
  }
  void Make() {
    switch (Any(6)) {
      case 0:
        fDocument.NewText(Any(50000), Any(30000))->SetText(std::to_string(Any(1000)));
        break;
      case 1:
        fDocument.NewRectangle(Any(50000), Any(30000), 5000, 4000);
        break;
      case 2:
        fDocument.NewQRCode(Any(50000), Any(30000), std::to_string(Any(1000)));
        break;
      case 3:
        fDocument.NewPolyLine({{0, 0}, {Any(9000), 500}, {1000, Any(9000)}}, 2);
        break;
      case 4: {
        auto* from = fDocument.NewFlow(Any(20000), Any(30000), 5000, 4000, ftProcess);
        auto* to = fDocument.NewFlow(Any(20000), Any(30000), 5000, 4000, ftDecision);
        fDocument.NewLink(from->fInID, to->fInID, 7, 15, ltStepLineTwoPto);
        break;
      }
      default:
        fDocument.NewQRCode(0, 0, std::string(8000, 'x'));  // More than a symbol holds.
    }
  }
  void Select() {
    fDocument.ClearSelection(false);
    for (int i = Any(4); i >= 0; --i) {
      TKDXBaseItem* item = Item();
      if (item != nullptr && !fDocument.Selected(*item)) fDocument.AddToSelection(*item, false);
    }
    fDocument.FillLinkList();
  }
  void Bracketed() {
    const TUpdateBracket bracket(fDocument);
    for (int i = Any(12); i >= 0; --i) {
      const std::size_t edit = Picked();
      if (edit != 0 && edit < fInBrackets) fEdits[edit].run();
    }
  }

  std::mt19937 fRandom;
  std::string fFile, fBinary;
  std::vector<TEdit> fEdits{
      {"bracket", 6, [this] { Bracketed(); }},
      {"make", 10, [this] { Make(); }},
      {"color", 4, [this] { WithItem([this](auto& item) { item.SetColor(Color()); }); }},
      {"pen", 2,
       [this] { WithItem([this](auto& item) { item.SetPenWidth(static_cast<Single>(Any(30)) / 10); }); }},
      {"name", 2, [this] { WithItem([this](auto& item) { item.SetID("n" + std::to_string(Any(40))); }); }},
      {"options", 2, [this] { WithItem([](auto& item) { item.SetOptions({lopVisible}); }); }},
      {"angle", 2,
       [this] { WithItem([this](auto& item) { item.SetAngle(static_cast<TZORAngle>(Any(4))); }); }},
      {"layer", 3, [this] { WithItem([this](auto& item) { item.SetLayer(Layer()); }); }},
      {"point", 4,
       [this] { WithItem([this](auto& item) { item.SetPointX(1, static_cast<Single>(Any(60))); }); }},
      {"base", 2, [this] { WithItem([this](auto& item) { item.SetBaseY(1, Any(60000)); }); }},
      {"move", 8,
       [this] { WithItem([this](auto& item) { item.BaseMove(Any(2000), Any(2000), 0, 0, moAll, true); }); }},
      {"resize", 3,
       [this] { WithItem([this](auto& item) { item.BaseMove(Any(2000), 0, -1, -1, moRight, true); }); }},
      {"move in units", 3, [this] { WithItem([](auto& item) { item.Move(1, 0, moAll); }); }},
      {"no number", 1, [this] { WithItem([](auto& item) { item.SetPointX(1, std::nanf("")); }); }},
      {"text", 5,
       [this] { WithAspect<IZORText>([this](auto& text) { text.SetText(std::to_string(Any(99))); }); }},
      {"font", 3,
       [this] {
         WithAspect<IZORFont>([this](auto& font) { font.SetFontHeight(static_cast<Single>(1 + Any(9))); });
       }},
      {"bold", 2, [this] { WithAspect<IZORFont>([this](auto& font) { font.SetBold(Any(2) == 0); }); }},
      {"align", 2,
       [this] {
         WithAspect<IZORAlign>(
             [this](auto& align) { align.SetHorzAlign(static_cast<TZORHorzAlign>(Any(3))); });
       }},
      {"padding", 2,
       [this] {
         WithAspect<IZORPadding>([this](auto& item) { item.SetPaddingX(static_cast<Single>(Any(3))); });
       }},
      {"fill", 2, [this] { WithAspect<IZORBack>([this](auto& back) { back.SetFilled(Any(2) == 0); }); }},
      {"bars", 2,
       [this] {
         WithAspect<IZORBar1D2D>([this](auto& bar) { bar.SetBarWidth(static_cast<Single>(Any(9)) / 10); });
       }},
      {"data", 1, [this] { WithAspect<IZORData>([](auto& data) { data.SetData(ftField, "~Name", ""); }); }},
      {"point more", 2,
       [this] {
         WithItem([](auto& item) { item.InsertPoint(item.GetPoint(1).bX, item.GetPoint(1).bY, 500); });
       }},
      {"point less", 1, [this] { WithItem([](auto& item) { item.DeletePoint(2); }); }},
      {"delete", 3, [this] { fDocument.DeleteItem(Item(), true); }},
      {"delete selection", 2, [this] { fDocument.DeleteSelection(); }},
      {"select", 5, [this] { Select(); }},
      {"front", 2, [this] { fDocument.BringToFront(); }},
      {"back", 2, [this] { fDocument.SendToBack(); }},
      {"layer more", 1, [this] { fDocument.AddLayer(); }},
      {"layer less", 1, [this] { fDocument.DeleteLayer(1 + Any(fDocument.fLayers.Count())); }},
      {"layers exchanged", 1, [this] { fDocument.ExchangeLayers(2, 1 + Any(fDocument.fLayers.Count())); }},
      {"layers sorted", 1, [this] { fDocument.SetLayerZOrder(Any(2) == 0); }},
      {"layer's values", 1, [this] { Layer().SetValues(); }},
      {"layer's color", 1, [this] { Layer().SetColor(Color(), true); }},
      // Not inside brackets of their caller.
      {"undo", 8, [this] { fDocument.Undo(); }},
      {"redo", 4, [this] { fDocument.Redo(); }},
      {"copy", 2, [this] { fDocument.CopySelection(); }},
      {"paste", 2, [this] { fDocument.PasteSelection(); }},
      {"paste of nonsense", 1,
       [this] {
         fDocument.fMemCopy.resize(fDocument.fMemCopy.size() / 2);
         fDocument.PasteSelection();
       }},
      {"turn", 1, [this] { fDocument.RotateLeft(); }},
      {"units", 1, [this] { fDocument.SetUnits(static_cast<TZORUnits>(Any(3))); }},
      {"calculate", 2, [this] { fDocument.CalcPending(); }},
      {"save", 1, [this] { fDocument.SaveToBytes(lfBin); }},
      {"load", 1, [this] { fDocument.LoadFromBytes(Any(2) == 0 ? fFile : fBinary); }},
      {"load of nonsense", 2, [this] { fDocument.LoadFromBytes(fFile.substr(0, fFile.size() / 2)); }},
      {"load of a torn file", 2, [this] { fDocument.LoadFromBytes(fBinary.substr(0, fBinary.size() / 2)); }},
      {"clear", 1,
       [this] {
         fDocument.Clear({cleItems, cleUndoRedo}, true);
       }},
      {"new", 1, [this] { fDocument.New(); }},
  };
  std::size_t fInBrackets = 35;
};

TEST(MirrorTest, ARandomWalkIsMirroredByEventsAlone) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    TWalk walk(seed);
    TMirror mirror(walk.fDocument);
    std::string trail;
    for (int i = 0; i < 4000; ++i) {
      (trail += walk.Step()) += ", ";
      const std::string fault = mirror.Fault();
      ASSERT_TRUE(fault.empty()) << "step " << i << ": " << fault << " after "
                                 << trail.substr(trail.size() > 300 ? trail.size() - 300 : 0);
    }
    EXPECT_GT(mirror.fDocumentChanges, 0);
  }
}

TEST(MirrorTest, TheEndOfABracketTellsOfEachItemOnce) {
  struct TCounter final : IZOItemObserver {
    void ItemCame(TKDXBaseItem&) override { ++came; }
    void ItemChanged(TKDXBaseItem&) override { ++changed; }
    void ItemGoes(TKDXBaseItem&) override { ++gone; }
    void ContentReplaced() override { ++replaced; }
    int came = 0, changed = 0, gone = 0, replaced = 0;
  };
  TBareLabel document;
  TCounter counter;
  document.AttachItems(&counter);
  auto* first = document.NewLine(0, 0, 1000, 1000);
  EXPECT_EQ(counter.came, 1);
  {
    const TUpdateBracket bracket(document);
    for (TAlphaColor color = 1; color < 5; ++color) first->SetColor(color);
    document.NewLine(0, 0, 1, 1)->SetColor(7);
    document.DeleteItem(document.NewLine(0, 0, 1, 1), true);
    EXPECT_EQ(counter.changed + counter.gone, 0);
  }
  EXPECT_EQ(counter.came, 2);
  EXPECT_EQ(counter.changed, 1);
  EXPECT_EQ(counter.gone, 0);  // The third came and went unseen.
  document.New();
  EXPECT_EQ(counter.replaced, 1);
  EXPECT_EQ(counter.gone, 0);
}

TEST(MirrorTest, AFailedLoadTellsNothing) {
  TBareLabel document;
  document.AddToSelection(*document.NewText(1000, 1000), false);
  TRecordingObserver editor{duEditor};
  document.Attach(&editor);
  editor.fChanges.clear();
  int events = 0;
  document.fOnUndoRedoEvent = [&](auto&&...) { ++events; };
  std::string bytes = document.SaveToBytes(lfBin);
  EXPECT_THROW(document.LoadFromBytes(bytes.substr(0, bytes.size() - 9)), Exception);
  EXPECT_THROW(document.LoadFromBytes(R"({"Version": 3200, "Items": [{"ItemType": 99}]})"), Exception);
  EXPECT_TRUE(editor.fChanges.empty());
  EXPECT_EQ(events, 0);
  document.LoadFromBytes(bytes);
  EXPECT_EQ(editor.fChanges.front(), chClearSelect);
  EXPECT_EQ(editor.fChanges.back(), chMeasure);
  EXPECT_GT(events, 0);
}

TEST(MirrorTest, PartsOfADocumentOutliveALoad) {
  TBareLabel document, other;
  other.fMeasure->SetWidth(77);
  document.fBackSurf->SetShowAlign(true);
  const TKDXMeasure* measure = document.fMeasure.get();
  const TKDXBackSurf* surface = document.fBackSurf.get();
  document.LoadFromBytes(other.SaveToBytes(lfBin));
  EXPECT_EQ(document.fMeasure.get(), measure);
  EXPECT_EQ(document.fBackSurf.get(), surface);
  EXPECT_EQ(measure->fWidth, 77000);
  EXPECT_TRUE(surface->fShowAlign);
}

TEST(MirrorTest, ObserversThatGoAreForgotten) {
  TBareLabel document;
  TRecordingObserver last{duEditor};
  {
    auto component = std::make_unique<TRecordingObserver>(duEditor);
    TMirror mirror(document);
    document.Attach(component.get());
    document.Attach(&last);
    EXPECT_TRUE(document.fConEditors);
  }
  document.Refresh();
  document.NewLine(0, 0, 1, 1);
  EXPECT_EQ(last.fChanges.back(), chPaint);
  document.Detach(&last);
  EXPECT_FALSE(document.fConEditors);
  TRecordingObserver longer{duEditor};
  {
    TBareLabel shorter;
    shorter.Attach(&longer);
  }
}

TEST(MirrorTest, OneThatLeavesWhileOthersAreToldTakesNothingFromThem) {
  struct TLeaving final : IZOObserver {
    explicit TLeaving(TKDXBaseLabel& aDocument) : document(aDocument) {}
    TZODestUpdate Destination() override { return duPreview; }
    void Update(TZOChange, const TZOChangeValue&) override { document.Detach(this); }
    TKDXBaseLabel& document;
  };
  TBareLabel document;
  TLeaving leaving(document);
  TRecordingObserver last{duPreview};
  document.Attach(&leaving);
  document.Attach(&last);
  document.Refresh();
  EXPECT_EQ(last.fChanges.size(), 1U);
}

}  // namespace
}  // namespace Zor
