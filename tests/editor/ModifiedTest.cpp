// Is there something to save? fModified after each operation that changes what a file holds.
#include <gtest/gtest.h>

#include <functional>

#include "kaldrix/core/TKDXBackSurf.hpp"
#include "kaldrix/core/TKDXBasePrintInfo.hpp"
#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXDimStyle.hpp"
#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "support/OneOfEach.hpp"

namespace Zor {
namespace {

struct TOperation {
  const char* name;
  std::function<void(TBareLabel&)> run;
};

/// An operation of every item that has the aspect.
template <class TAspect, class TAction>
TOperation OnEach(const char* aName, TAction aAction) {
  return {aName, [aAction](TBareLabel& d) {
            for (TKDXBaseItem* item : d.fItems) {
              if (auto* aspect = dynamic_cast<TAspect*>(item)) aAction(*aspect);
            }
          }};
}
template <class TAspect, class TAction>
TOperation On(const char* aName, TAction aAction) {
  return {aName, [aAction](TBareLabel& d) {
            for (TKDXBaseItem* item : d.fItems) {
              if (auto* aspect = dynamic_cast<TAspect*>(item)) return aAction(*aspect);
            }
            FAIL() << "no item for it";
          }};
}

const std::vector<TOperation>& Operations() {
  static const std::vector<TOperation> operations{
      // Items
      On<TKDXBaseLine>("SetID", [](auto& i) { i.SetID("other"); }),
      On<TKDXBaseLine>("SetColor", [](auto& i) { i.SetColor(1); }),
      On<TKDXBaseLine>("SetPenWidth", [](auto& i) { i.SetPenWidth(3); }),
      On<TKDXBaseText>("SetAngle", [](auto& i) { i.SetAngle(ag90); }),
      On<TKDXBaseLine>("SetOptions", [](auto& i) { i.SetOptions({lopPrint}); }),
      On<TKDXBaseLine>("SetLayer", [](auto& i) { i.SetLayer(i.Document().GetLayer(2)); }),
      On<TKDXBaseLine>("SetPointX", [](auto& i) { i.SetPointX(1, 7); }),
      On<TKDXBaseLine>("SetPointY", [](auto& i) { i.SetPointY(2, 7); }),
      On<TKDXBaseLine>("SetPoint", [](auto& i) { i.SetPoint(1, {7, 8}); }),
      On<TKDXBaseLine>("SetBase", [](auto& i) { i.TKDXBaseItem::SetBase(1, 7, 8); }),
      On<TKDXBaseLine>("SetBaseX", [](auto& i) { i.SetBaseX(1, 7); }),
      On<TKDXBaseLine>("SetBaseY", [](auto& i) { i.SetBaseY(1, 7); }),
      On<TKDXBaseLine>("AssignPoints", [](auto& i) { i.AssignPoints({{1, 2}, {3, 4}}, 1); }),
      On<TKDXBaseLine>("BaseMove", [](auto& i) { i.BaseMove(1000, 0, 0, 0, moAll, true); }),
      On<TKDXBaseLine>("BaseMove of an edge", [](auto& i) { i.BaseMove(9, 0, -1, -1, moLeft, true); }),
      On<TKDXBaseLine>("Move", [](auto& i) { i.Move(1, 0, moAll); }),
      On<TKDXBasePolyLine>("AddPoint", [](auto& i) { i.AddPoint(1, 2); }),
      On<TKDXBasePolyLine>("DeletePoint", [](auto& i) { i.DeletePoint(1); }),
      On<TKDXBasePolyLine>("InsertPoint", [](auto& i) { i.InsertPoint(11000, 13000, 500); }),
      On<IZORStyle>("SetLineType", [](auto& i) { i.SetLineType(ii21); }),
      On<IZORSTerm>("SetFromType", [](auto& i) { i.SetFromType(ttFillArrow); }),
      On<IZORSTerm>("SetToColor", [](auto& i) { i.SetToColor(9); }),
      On<IZORSTerm>("SetSizeFrom", [](auto& i) { i.SetSizeFrom(9); }),
      On<IZORSTerm>("SetBaseSizeTo", [](auto& i) { i.SetBaseSizeTo(7777); }),
      On<IZORBack>("SetBackColor", [](auto& i) { i.SetBackColor(9); }),
      On<IZORBack>("SetFilled", [](auto& i) { i.SetFilled(false); }),
      On<TKDXBaseRectangle>("SetWidth", [](auto& i) { i.SetWidth(9); }),
      On<TKDXBaseRectangle>("SetBaseHeight", [](auto& i) { i.SetBaseHeight(900); }),
      On<TKDXBaseRectangle>("SetRadio", [](auto& i) { i.SetRadio(1); }),
      On<TKDXBaseCircle>("SetRadio of a circle", [](auto& i) { i.SetRadio(3); }),
      On<TKDXBaseCircle>("SetCenterX", [](auto& i) { i.SetCenterX(20); }),
      On<TKDXBaseEllipse>("SetRadioX", [](auto& i) { i.SetRadioX(2); }),
      On<TKDXBaseSector>("SetAngleStart", [](auto& i) { i.SetAngleStart(33); }),
      On<TKDXBaseSector>("SetAngleGap", [](auto& i) { i.SetAngleGap(44); }),
      On<TKDXBaseArc>("SetPX", [](auto& i) { i.SetPX(1, 19); }),
      On<TKDXBaseText>("SetText", [](auto& i) { i.SetText("other"); }),
      On<TKDXBaseText>("SetStrikeout", [](auto& i) { i.SetStrikeout(true); }),
      On<TKDXBaseText>("SetScaleX", [](auto& i) { i.SetScaleX(2); }),
      On<TKDXBaseText>("SetHorzAlign", [](auto& i) { i.SetHorzAlign(haRight); }),
      On<TKDXBaseText>("SetPaddingX", [](auto& i) { i.SetPaddingX(2); }),
      On<TKDXBaseText>("SetDispWidth", [](auto& i) { i.SetDispWidth(2000); }),
      On<TKDXBaseText>("SetData", [](auto& i) { i.SetData(ftField, "a", "b"); }),
      OnEach<IZORFont>("SetFontName", [](auto& i) { i.SetFontName("Verdana"); }),
      OnEach<IZORFont>("SetFontHeight", [](auto& i) { i.SetFontHeight(3); }),
      OnEach<IZORFont>("SetBold", [](auto& i) { i.SetBold(true); }),
      OnEach<IZORFont>("SetUnderline", [](auto& i) { i.SetUnderline(true); }),
      On<TKDXBaseBarcode>("SetCode", [](auto& i) { i.SetCode("34"); }),
      On<TKDXBaseBarcode>("SetCodeType", [](auto& i) { i.SetCodeType(btCODE39); }),
      On<TKDXBaseBarcode>("SetShowNumber", [](auto& i) { i.SetShowNumber(!i.fShowNumber); }),
      On<TKDXBaseBarcode>("SetDistance", [](auto& i) { i.SetDistance(2); }),
      On<TKDXBaseBarcode>("SetBarWidth", [](auto& i) { i.SetBarWidth(0.5F); }),
      On<TKDXBaseQRCode>("SetCode of a matrix", [](auto& i) { i.SetCode("34"); }),
      On<TKDXBaseQRCode>("SetFactor", [](auto& i) { i.SetFactor(2); }),
      On<TKDXBaseDataMatrix>("SetDMShape", [](auto& i) { i.SetDMShape(static_cast<TECC200Shape>(2)); }),
      On<TKDXBasePDF417>("SetCols", [](auto& i) { i.SetCols(5); }),
      On<TKDXBasePDF417>("SetTruncated", [](auto& i) { i.SetTruncated(!i.fTruncated); }),
      On<TKDXBaseFlow>("SetFlowType", [](auto& i) { i.SetFlowType(ftDecision); }),
      On<TKDXBaseFlow>("SetShadowColor", [](auto& i) { i.SetShadowColor(3); }),
      On<TKDXBaseFlow>("SetText of a node", [](auto& i) { i.SetText("other"); }),
      On<TKDXBaseLink>("SetFromIndex", [](auto& i) { i.SetFromIndex(3); }),
      On<TKDXBaseLink>("SetLinkType", [](auto& i) { i.SetLinkType(ltArc); }),
      On<TKDXBaseLink>("SetToType", [](auto& i) { i.SetToType(ttFillArrow); }),
      // The drawing
      {"NewLine", [](TBareLabel& d) { d.NewLine(1, 2, 3, 4); }},
      {"DeleteItem", [](TBareLabel& d) { d.DeleteItem(d.GetItem(1), true); }},
      {"DeleteSelection",
       [](TBareLabel& d) {
         d.SetSelection(d.GetItem(3), isSelected);
         d.DeleteSelection();
       }},
      {"SendToBack",
       [](TBareLabel& d) {
         d.SetSelection(d.GetItem(3), isSelected);
         d.SendToBack();
       }},
      {"PasteSelection",
       [](TBareLabel& d) {
         d.SetSelection(d.GetItem(3), isSelected);
         d.CopySelection();
         d.PasteSelection();
       }},
      {"Undo", [](TBareLabel& d) { d.Undo(); }},
      {"RotateLeft", [](TBareLabel& d) { d.RotateLeft(); }},
      {"SetEditorMode", [](TBareLabel& d) { d.SetEditorMode(emDrawing); }},
      {"SetUnits", [](TBareLabel& d) { d.SetUnits(unCM); }},
      // Layers and styles
      {"AddLayer", [](TBareLabel& d) { d.AddLayer(); }},
      {"DeleteLayer", [](TBareLabel& d) { d.DeleteLayer(2); }},
      {"ExchangeLayers", [](TBareLabel& d) { d.ExchangeLayers(2, 3); }},
      {"layer SetName", [](TBareLabel& d) { d.GetLayer(1).SetName("other"); }},
      {"layer SetOptions", [](TBareLabel& d) { d.GetLayer(1).SetOptions({lopPrint}); }},
      {"layer SetColor", [](TBareLabel& d) { d.GetLayer(1).SetColor(4); }},
      {"layer SetFontHeight", [](TBareLabel& d) { d.GetLayer(1).SetFontHeight(4); }},
      {"layer SetPenWidth", [](TBareLabel& d) { d.GetLayer(1).SetPenWidth(4); }},
      {"layer SetValues",
       [](TBareLabel& d) {
         d.GetLayer(1).fPenWidth = 900;
         d.fModified = false;
         d.GetLayer(1).SetValues();
       }},
      // Parts
      {"SetWidth", [](TBareLabel& d) { d.fMeasure->SetWidth(44); }},
      {"SetPaperHeight", [](TBareLabel& d) { d.fMeasure->SetPaperHeight(444); }},
      {"SetLabelSizeMM", [](TBareLabel& d) { d.fMeasure->SetLabelSizeMM(44, 55); }},
      {"SetPaperName", [](TBareLabel& d) { d.fMeasure->SetPaperName("A5"); }},
      {"SetContinousPaper", [](TBareLabel& d) { d.fMeasure->SetContinousPaper(true); }},
      {"SetLabelType", [](TBareLabel& d) { d.fMeasure->SetLabelType(ltCircle); }},
      {"SetMarTop", [](TBareLabel& d) { d.fMeasure->SetMarTop(4); }},
      {"SetNuHor", [](TBareLabel& d) { d.fMeasure->SetNuHor(4); }},
      {"SetLabelName", [](TBareLabel& d) { d.fMeasure->SetLabelName("other"); }},
      {"SetTermColor", [](TBareLabel& d) { d.fSettings->SetTermColor(4); }},
      {"SetLinkGap", [](TBareLabel& d) { d.fSettings->SetLinkGap(4); }},
      {"surface SetColor", [](TBareLabel& d) { d.fBackSurf->SetColor(4); }},
      {"surface SetPrint", [](TBareLabel& d) { d.fBackSurf->SetPrint(true); }},
      {"SetRepetition", [](TBareLabel& d) { d.fPrintInfo->SetRepetition(4); }},
      {"SetLabs", [](TBareLabel& d) { d.fPrintInfo->SetLabs(4); }},
      {"SetFieldRepeat", [](TBareLabel& d) { d.fData->SetFieldRepeat("Copies"); }},
      {"AddListVal", [](TBareLabel& d) { d.fData->AddListVal("sizes"); }},
      {"AddAskVal", [](TBareLabel& d) { d.fData->AddAskVal("size"); }},
      {"counter", [](TBareLabel& d) { new TKDXCounter(&d); }},
      {"SetNumTo", [](TBareLabel& d) { d.GetCounter(1)->SetNumTo(444); }},
      {"RemoveCounter", [](TBareLabel& d) { d.RemoveCounter(d.GetCounter(1)); }},
      {"SetMeasure",
       [](TBareLabel& d) {
         TBareLabel other;
         other.fMeasure->SetWidth(33);
         d.SetMeasure(other.fMeasure.get());
       }},
  };
  return operations;
}

/// What a file holds, in both forms: each tells something that the other does not.
std::string Stored(TBareLabel& aDoc) { return aDoc.SaveToBytes(lfJSON) + aDoc.SaveToBytes(lfBin); }

TEST(ModifiedTest, EveryChangeOfWhatAFileHoldsIsAChangeToSave) {
  for (const TOperation& operation : Operations()) {
    TBareLabel document;
    document.AddLayer().SetColor(3);
    document.AddLayer().SetColor(4);
    document.fMeasure->SetHeight(50);
    (new TKDXCounter(&document))->fName = "number";
    for (TKDXBaseItem* item : OneOfEach(document)) {
      if (auto* text = dynamic_cast<TKDXBaseText*>(item)) text->SetText("a text");
    }
    document.CalcPending();
    document.GetItem(4)->SetColor(77);
    const std::string before = Stored(document);
    const unsigned version = document.ContentVersion();
    document.fModified = false;
    operation.run(document);
    EXPECT_TRUE(document.fModified) << operation.name;
    EXPECT_NE(document.ContentVersion(), version) << operation.name;
    EXPECT_TRUE(Stored(document) != before) << operation.name << " is no change";
  }
}

TEST(ModifiedTest, LookingSavingAndLoadingAreNone) {
  TBareLabel document;
  OneOfEach(document);
  document.CalcPending();
  const std::string bytes = document.SaveToBytes(lfBin);
  document.fModified = false;
  const unsigned version = document.ContentVersion();
  for (TKDXBaseItem* item : document.fItems) {
    item->SetColor(item->fColor);
    item->SetOptions(item->fOptions);
    item->SetPenWidth(item->GetPenWidth());
    document.AddToSelection(*item, true);
  }
  document.FillLinkList();
  document.Refresh();
  document.CheckPrintData();
  document.GoToPage(1, true, false);
  document.CopySelection();
  document.SaveToBytes(lfJSON);
  document.SVG(svCurrentUnit, 1, true);
  document.SetActiveLayer(1);
  document.BeginUpdate(true);
  document.EndUpdate();
  EXPECT_FALSE(document.fModified);
  EXPECT_EQ(document.ContentVersion(), version);
  document.LoadFromBytes(bytes);
  EXPECT_FALSE(document.fModified);
  EXPECT_NE(document.ContentVersion(), version);
}

}  // namespace
}  // namespace Zor
