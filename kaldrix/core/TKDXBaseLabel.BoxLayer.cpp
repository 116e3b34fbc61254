// The box layer: page frame and title block of a drawing.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "kaldrix/core/TKDXLayer.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/core/TUpdateBracket.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Base {

namespace {

/// Lengths are base points of paper, taken from the right and bottom edge of the label.
struct TBoxLine {
  std::string_view id;
  Int64 x1, y1, x2, y2;
  bool drawingOnly;
};
constexpr std::array<TBoxLine, 3> BoxLines{{
    {"bxIDLine1", 90000, 40000, 10000, 40000, false},
    {"bxIDLine2", 40000, 40000, 40000, 10000, true},
    {"bxIDLine3", 90000, 30000, 40000, 30000, false},
}};

struct TBoxText {
  std::string_view id;
  Int64 x, y;
  Single height;  ///< millimetres
  bool bold;
  bool drawingOnly;
};
constexpr std::array<TBoxText, 3> BoxTexts{{
    {"bxIDScale", 25000, 25000, 8.0F, true, true},
    {"bxIDTitle", 50000, 45000, 5.0F, false, false},
    {"bxIDAuthor", 65000, 35000, 4.0F, false, false},
}};

constexpr Single LinePen = 0.5F;
constexpr Single FramePen = 1.0F;

std::string BoxText(const TKDXMeasure& aMeasure, std::string_view aID) {
  if (aID == "bxIDScale") return "1:" + std::to_string(aMeasure.fDrawScale);
  return aID == "bxIDTitle" ? aMeasure.fTitle : aMeasure.fAuthor;
}

constexpr std::string_view FrameName = "bxIDFrame", PageFrameName = "bxIDPageFrame";

bool IsBoxName(std::string_view aID) {
  const auto named = [aID](const auto& aRow) { return SameText(aID, aRow.id); };
  return std::any_of(BoxLines.begin(), BoxLines.end(), named) ||
         std::any_of(BoxTexts.begin(), BoxTexts.end(), named) || SameText(aID, FrameName) ||
         SameText(aID, PageFrameName);
}

/// What all items of the block share.
void Settle(TKDXBaseItem& aItem, std::string_view aID, TKDXLayer& aLayer) {
  aItem.SetColor(ColorBlack);
  aItem.SetLayer(aLayer);
  aItem.SetID(std::string(aID));
}

void SettleFrame(TKDXBaseItem& aItem, std::string_view aID, TKDXLayer& aLayer) {
  Settle(aItem, aID, aLayer);
  aItem.SetPenWidth(FramePen);
  if (auto* radius = dynamic_cast<IZORRadio*>(&aItem)) radius->SetBaseRadio(0);
  if (auto* back = dynamic_cast<IZORBack*>(&aItem)) back->SetFilled(false);
}

void SettleText(TKDXBaseItem& aItem, const TBoxText& aRow, TKDXLayer& aLayer) {
  Settle(aItem, aRow.id, aLayer);
  if (auto* font = dynamic_cast<IZORFont*>(&aItem)) {
    font->SetFontName("Verdana");
    font->SetBold(aRow.bold);
    font->SetFontHeight(aRow.height);
  }
  if (auto* align = dynamic_cast<IZORAlign*>(&aItem)) {
    align->SetHorzAlign(haCenter);
    align->SetVertAlign(vaCenter);
  }
}

void PutText(TKDXBaseItem& aItem, const std::string& aText) {
  if (auto* text = dynamic_cast<IZORText*>(&aItem)) text->SetText(aText);
}

}  // namespace

TKDXLayer* TKDXBaseLabel::BoxLayer(bool& aMade) {
  for (TKDXLayer* layer : fLayers) {
    if (layer->fOptions.Has(lopBox)) return layer;
  }
  TKDXLayer& layer = AddLayer();
  layer.fName = TKDXMsg::GetInfoValue("BoxLayer");
  layer.fOptions.Add(lopBox);
  layer.fOptions.Remove(lopSelectable);
  aMade = true;
  return &layer;
}

void TKDXBaseLabel::FillBoxLayer(bool aReset) {
  if (fEditorMode != emFlowChart && fEditorMode != emDrawing) return;
  const TNoticeHold hold(*this);
  ClearSelection(false);
  TKDXLayer& layer = *BoxLayer(aReset);
  const TUpdateBracket bracket(*this);
  if (!aReset) return FillBoxTexts();
  // What carries a name of the block belongs to it, also on another layer.
  std::vector<TKDXBaseItem*> former;
  for (TKDXBaseItem* item : fItems) {
    if (item->fLayer == &layer || IsBoxName(item->fID)) former.push_back(item);
  }
  FreeMany(former);
  MakeBox(layer);
}

void TKDXBaseLabel::FillBoxTexts() {
  for (int i = fItems.Count(); i > 0; --i) {
    TKDXBaseItem& item = *fItems[i - 1];
    for (const TBoxText& row : BoxTexts) {
      if (SameText(item.fID, row.id)) PutText(item, BoxText(*fMeasure, row.id));
    }
  }
}

void TKDXBaseLabel::MakeBox(TKDXLayer& aLayer) {
  const Int64 scale = fMeasure->fDrawScale;
  const Int64 width = fMeasure->GetSize(mtLabelWidth, true), height = fMeasure->GetSize(mtLabelHeight, true);
  const auto length = [scale](Int64 aPaper) { return MulHeld(aPaper, scale); };
  const auto left = [&](Int64 aPaper) { return AddHeld(width, -length(aPaper)); };
  const auto top = [&](Int64 aPaper) { return AddHeld(height, -length(aPaper)); };
  const bool drawing = fEditorMode == emDrawing;
  for (const TBoxLine& row : BoxLines) {
    if (row.drawingOnly && !drawing) continue;
    TKDXBaseItem* line = NewLine(left(row.x1), top(row.y1), left(row.x2), top(row.y2));
    Settle(*line, row.id, aLayer);
    line->SetPenWidth(LinePen);
  }
  SettleFrame(*NewRectangle(left(90000), top(50000), length(80000), length(40000)), FrameName, aLayer);
  SettleFrame(*NewRectangle(length(10000), length(10000), left(20000), top(20000)), PageFrameName, aLayer);
  for (const TBoxText& row : BoxTexts) {
    if (row.drawingOnly && !drawing) continue;
    TKDXBaseItem* text = NewText(left(row.x), top(row.y));
    SettleText(*text, row, aLayer);
    PutText(*text, BoxText(*fMeasure, row.id));
  }
}

}  // namespace Zor::inline Base
