// What every class of items has to keep. A new class joins by one row in Kinds.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "kaldrix/core/TKDXMeasure.hpp"
#include "support/TBareLabel.hpp"
#include "support/TTestFile.hpp"

namespace Zor {
namespace {

using namespace std::string_view_literals;

struct TKind {
  const char* name;
  TKDXBaseItem* (*make)(TBareLabel&);
  TZORPto hit;  ///< a position on the item
};

const TZORPtoA Triangle{{10000, 10000}, {20000, 10000}, {14000, 18000}};
const TZORPtoA Curve{{10000, 10000}, {12000, 16000}, {16000, 4000}, {20000, 10000}};

const TKind Kinds[] = {
    {"Point", [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewPoint(15000, 15000); }, {15000, 15000}},
    {"Line",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewLine(10000, 10000, 20000, 14000); },
     {15000, 12000}},
    {"PolyLine",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewPolyLine(Triangle, 2); },
     {15000, 10000}},
    {"Arc",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewArc(20000, 15000, 15000, 20000, 10000, 15000); },
     {15000, 20000}},
    {"Rectangle",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewRectangle(10000, 10000, 10000, 8000); },
     {10000, 12000}},
    {"Polygon", [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewPolygon(Triangle, 2); }, {15000, 10000}},
    {"Bezier", [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewBezier(Curve, 3); }, {15000, 10000}},
    {"Circle",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewCircle(15000, 15000, 5000); },
     {10000, 15000}},
    {"Sector",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewSector(15000, 15000, 5000, 30, 120); },
     {15000, 19999}},
    {"Ellipse",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewEllipse(15000, 15000, 5000, 3000); },
     {10000, 15000}},
    {"Text",
     [](TBareLabel& doc) -> TKDXBaseItem* {
       auto* text = doc.NewText(15000, 15000);
       text->SetText("Sample");
       return text;
     },
     {15000, 15000}},
    {"Barcode",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewBarcode(5000, 10000, "12", btINTER_25); },
     {9000, 15000}},
    {"QRCode",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewQRCode(10000, 10000, "Sample"); },
     {15000, 15000}},
    {"DataMatrix",
     [](TBareLabel& doc) -> TKDXBaseItem* { return doc.NewDataMatrix(10000, 10000, "Sample"); },
     {12000, 12000}},
    {"Flow",
     [](TBareLabel& doc) -> TKDXBaseItem* {
       auto* flow = doc.NewFlow(10000, 10000, 10000, 8000, ftMultiDocument);
       flow->SetText("One & <two>");
       flow->SetShadowDX(0.5F);
       flow->SetGradient(grVert);
       return flow;
     },
     {12000, 12000}},
    {"Link",
     [](TBareLabel& doc) -> TKDXBaseItem* {
       const int from = doc.NewPoint(10000, 10000)->fInID, to = doc.NewPoint(20000, 14000)->fInID;
       return doc.NewLink(from, to, 0, 0, ltDirLine);
     },
     {15000, 12000}},
    {"PDF417",
     [](TBareLabel& doc) -> TKDXBaseItem* {
       auto* symbol = doc.NewPDF417(1000, 10000, "A");
       symbol->SetBarWidth(0.2F);
       return symbol;
     },
     {15000, 11000}},
};

std::string Json(const TKDXBaseItem& aItem) { return aItem.WriteJson()->ToJSON(false); }

std::string Bytes(const TKDXBaseItem& aItem) {
  std::string bytes;
  TBinaryWriter writer(bytes);
  aItem.WriteData(writer);
  return bytes;
}

TKDXBaseItem& FromBytes(TBareLabel& aDoc, const std::string& aBytes) {
  std::string stream;
  TBinaryWriter writer(stream);
  writer.WriteInt32(FormatVersion);
  aDoc.BeginRead(false);
  aDoc.CreateElementFromStream(stream + aBytes);
  aDoc.EndRead(false);
  return *aDoc.fItems.Last();
}

TKDXBaseItem& FromJson(TBareLabel& aDoc, const std::string& aText) {
  const auto json = TJsonBaseObject::Parse(aText);
  aDoc.BeginRead(false);
  TKDXBaseItem& item = aDoc.ReadJsonItem(FormatVersion, static_cast<TJsonObject&>(*json));
  aDoc.EndRead(false);
  return item;
}

class ItemContract : public testing::TestWithParam<TKind> {
 protected:
  ItemContract() : fItem(GetParam().make(fDoc)), fOthers(fDoc.GetItemsCount() - 1) {
    fDoc.CalcPending();
    ForgetUndo();
  }

  void ForgetUndo() { fDoc.Clear({cleUndoRedo}, false); }

  /// A link lies where its nodes are: it has no bounds without them, and does not move by itself.
  bool LiesByItself() const { return fItem->fItemType != itLink; }

  TBareLabel fDoc;
  TKDXBaseItem* fItem;
  int fOthers;  ///< items that came with it
};

// Persistence -----------------------------------------------------------------------

/// Angles pass through JSON with three decimals, and what is made from them is off by as much.
bool IsNear(const TZORRect& a, const TZORRect& b) {
  constexpr Int64 gap = 5;
  return std::abs(a.Left - b.Left) <= gap && std::abs(a.Top - b.Top) <= gap &&
         std::abs(a.Right - b.Right) <= gap && std::abs(a.Bottom - b.Bottom) <= gap;
}

/// Gives every property that an item may have another value than that of a new item.
void Dress(TKDXBaseItem& aItem) {
  aItem.SetID("Dressed");
  aItem.SetColor(0x80FF4020);
  aItem.SetPenWidth(0.35F);
  aItem.SetOptions({lopVisible, lopExport});
  if (auto* style = dynamic_cast<IZORStyle*>(&aItem)) style->SetLineType(ii411);
  if (auto* back = dynamic_cast<IZORBack*>(&aItem)) back->SetBackColor(0x20102030);
  if (auto* term = dynamic_cast<IZORSTerm*>(&aItem)) {
    term->SetFromType(ttArrow);
    term->SetToType(ttFillCircle);
    term->SetFromColor(0xFF00FF00);
    term->SetToColor(0xFF0000FF);
    term->SetSizeFrom(1.25F);
    term->SetSizeTo(4);
  }
  if (auto* link = dynamic_cast<IZORSLink*>(&aItem)) {
    link->SetFromType(ttArrow);
    link->SetToType(ttFillCircle);
    link->SetFromColor(0xFF00FF00);
    link->SetToColor(0xFF0000FF);
  }
  if (auto* bar = dynamic_cast<IZORBar1D2D*>(&aItem)) {
    bar->SetBarWidth(0.24F);
    bar->SetBarHeight(3.5F);
    bar->SetFactor(2.5F);
  }
  if (auto* padding = dynamic_cast<IZORPadding*>(&aItem)) padding->SetPaddingY(0.75F);
}

TEST_P(ItemContract, JsonAndBinaryBringTheSameItemBack) {
  Dress(*fItem);
  fDoc.CalcPending();
  const std::string json = Json(*fItem), bytes = Bytes(*fItem);
  TBareLabel other;
  const TKDXBaseItem& fromJson = FromJson(other, json);
  EXPECT_EQ(Json(fromJson), json);
  EXPECT_EQ(IsNear(fromJson.fBoundsRect, fItem->fBoundsRect), LiesByItself());
  TBareLabel third;
  const TKDXBaseItem& fromBytes = FromBytes(third, bytes);
  EXPECT_EQ(Bytes(fromBytes), bytes);
  EXPECT_EQ(Json(fromBytes), json);
  EXPECT_EQ(fromBytes.fBoundsRect == fItem->fBoundsRect, LiesByItself());
  TBareLabel fourth;
  EXPECT_EQ(Json(FromBytes(fourth, Bytes(fromJson))), json);
}

TEST_P(ItemContract, EveryBrokenRecordIsRefused) {
  const std::string bytes = Bytes(*fItem);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    TBareLabel other;
    EXPECT_THROW(FromBytes(other, bytes.substr(0, length)), Exception) << length;
  }
}

// Undo ------------------------------------------------------------------------------

/// A setter that is recorded. It does nothing on an item that has not the property.
struct TSetter {
  const char* name;
  void (*set)(TKDXBaseItem&);
};

template <class TAspect, class TSet>
void With(TKDXBaseItem& aItem, TSet aSet) {
  if (auto* aspect = dynamic_cast<TAspect*>(&aItem)) aSet(*aspect);
}

const TSetter Setters[] = {
    {"Color", [](TKDXBaseItem& item) { item.SetColor(0xFF123456); }},
    {"PenWidth", [](TKDXBaseItem& item) { item.SetPenWidth(0.7F); }},
    {"PointX", [](TKDXBaseItem& item) { item.SetPointX(1, 8); }},
    {"PointY", [](TKDXBaseItem& item) { item.SetPointY(1, 21); }},
    {"BaseMove", [](TKDXBaseItem& item) { item.BaseMove(1234, 567, 0, 0, moAll, true); }},
    {"LineType", [](TKDXBaseItem& item) { With<IZORStyle>(item, [](auto& a) { a.SetLineType(ii33); }); }},
    {"FromType", [](TKDXBaseItem& item) { With<IZORSTerm>(item, [](auto& a) { a.SetFromType(ttCross); }); }},
    {"ToType", [](TKDXBaseItem& item) { With<IZORSTerm>(item, [](auto& a) { a.SetToType(ttSquare); }); }},
    {"FromColor",
     [](TKDXBaseItem& item) { With<IZORSTerm>(item, [](auto& a) { a.SetFromColor(0xFF00FFFF); }); }},
    {"ToColor", [](TKDXBaseItem& item) { With<IZORSTerm>(item, [](auto& a) { a.SetToColor(0xFF00FFFF); }); }},
    {"LinkFromType",
     [](TKDXBaseItem& item) { With<IZORSLink>(item, [](auto& a) { a.SetFromType(ttCross); }); }},
    {"LinkToType", [](TKDXBaseItem& item) { With<IZORSLink>(item, [](auto& a) { a.SetToType(ttSquare); }); }},
    {"LinkFromColor",
     [](TKDXBaseItem& item) { With<IZORSLink>(item, [](auto& a) { a.SetFromColor(0xFF00FFFF); }); }},
    {"LinkToColor",
     [](TKDXBaseItem& item) { With<IZORSLink>(item, [](auto& a) { a.SetToColor(0xFF00FFFF); }); }},
    {"SizeFrom", [](TKDXBaseItem& item) { With<IZORSTerm>(item, [](auto& a) { a.SetSizeFrom(3.25F); }); }},
    {"SizeTo", [](TKDXBaseItem& item) { With<IZORSTerm>(item, [](auto& a) { a.SetBaseSizeTo(7000); }); }},
    {"Filled",
     [](TKDXBaseItem& item) { With<IZORBack>(item, [](auto& a) { a.SetFilled(!a.GetFilled()); }); }},
    {"BackColor",
     [](TKDXBaseItem& item) { With<IZORBack>(item, [](auto& a) { a.SetBackColor(0xFF654321); }); }},
    {"Width", [](TKDXBaseItem& item) { With<IZORSize>(item, [](auto& a) { a.SetWidth(11); }); }},
    {"Height", [](TKDXBaseItem& item) { With<IZORSize>(item, [](auto& a) { a.SetHeight(12); }); }},
    {"Radio", [](TKDXBaseItem& item) { With<IZORRadio>(item, [](auto& a) { a.SetRadio(1.5F); }); }},
    {"CenterX", [](TKDXBaseItem& item) { With<IZORCenter>(item, [](auto& a) { a.SetCenterX(22); }); }},
    {"CenterY", [](TKDXBaseItem& item) { With<IZORCenter>(item, [](auto& a) { a.SetCenterY(19); }); }},
    {"RadioX", [](TKDXBaseItem& item) { With<TKDXBaseEllipse>(item, [](auto& a) { a.SetRadioX(2.5F); }); }},
    {"RadioY", [](TKDXBaseItem& item) { With<TKDXBaseEllipse>(item, [](auto& a) { a.SetRadioY(2.5F); }); }},
    {"Angle", [](TKDXBaseItem& item) { With<IZORAngle>(item, [](auto& a) { a.SetAngle(ag90); }); }},
    {"Text", [](TKDXBaseItem& item) { With<IZORText>(item, [](auto& a) { a.SetText("Other"); }); }},
    {"FontName", [](TKDXBaseItem& item) { With<IZORFont>(item, [](auto& a) { a.SetFontName("Other"); }); }},
    {"FontColor",
     [](TKDXBaseItem& item) { With<IZORFont>(item, [](auto& a) { a.SetFontColor(0xFF111111); }); }},
    {"Bold", [](TKDXBaseItem& item) { With<IZORFont>(item, [](auto& a) { a.SetBold(!a.GetBold()); }); }},
    {"Italic",
     [](TKDXBaseItem& item) { With<IZORFont>(item, [](auto& a) { a.SetItalic(!a.GetItalic()); }); }},
    {"BarWidth", [](TKDXBaseItem& item) { With<IZORBar1D2D>(item, [](auto& a) { a.SetBarWidth(0.4F); }); }},
    {"BarHeight",
     [](TKDXBaseItem& item) { With<IZORBar1D2D>(item, [](auto& a) { a.SetBarHeight(2.25F); }); }},
    {"Factor", [](TKDXBaseItem& item) { With<IZORBar1D2D>(item, [](auto& a) { a.SetFactor(2.5F); }); }},
};

TEST_P(ItemContract, UndoAndRedoOfEachSetterAreExact) {
  for (const TSetter& setter : Setters) {
    SCOPED_TRACE(setter.name);
    ForgetUndo();
    const std::string before = Json(*fItem);
    const TZORRect bounds = fItem->fBoundsRect;
    setter.set(*fItem);
    fDoc.CalcPending();
    const std::string after = Json(*fItem);
    const TZORRect boundsAfter = fItem->fBoundsRect;
    EXPECT_EQ(fDoc.IsUndoEmpty(), before == after);
    if (before == after) continue;
    fDoc.Undo();
    EXPECT_EQ(Json(*fItem), before);
    EXPECT_EQ(fItem->fBoundsRect, bounds);
    fDoc.Redo();
    EXPECT_EQ(Json(*fItem), after);
    EXPECT_EQ(fItem->fBoundsRect, boundsAfter);
    fDoc.Undo();
    EXPECT_EQ(Json(*fItem), before);
  }
}

TEST_P(ItemContract, ADeletedItemComesBackWithItsIdentity) {
  Dress(*fItem);
  fDoc.CalcPending();
  const std::string json = Json(*fItem);
  const int id = fItem->fInID;
  fDoc.DeleteItem(fItem, true);
  EXPECT_EQ(fDoc.GetItemsCount(), fOthers);
  fDoc.Undo();
  ASSERT_EQ(fDoc.GetItemsCount(), fOthers + 1);
  EXPECT_EQ(fDoc.SearchItem(id, false), fDoc.fItems.Last());
  EXPECT_EQ(Json(*fDoc.fItems.Last()), json);
}

// Geometry --------------------------------------------------------------------------

TEST_P(ItemContract, FourQuarterTurnsEndWhereTheyBegan) {
  fDoc.fMeasure->SetLabelSizeMM(40, 40);
  const std::string json = Json(*fItem);
  const TZORRect bounds = fItem->fBoundsRect;
  for (int i = 0; i < 4; ++i) fItem->RotateLeft();
  EXPECT_EQ(Json(*fItem), json);
  EXPECT_EQ(fItem->fBoundsRect, bounds);
  for (int i = 0; i < 4; ++i) fItem->RotateRight();
  EXPECT_EQ(Json(*fItem), json);
  EXPECT_EQ(fItem->fBoundsRect, bounds);
}

TEST_P(ItemContract, IsHitOnItselfAndMissedFarAway) {
  const TZORPto hit = GetParam().hit;
  EXPECT_TRUE(fItem->Pick(hit.bX, hit.bY, 100, true));
  for (const TZORPto& far : {TZORPto{hit.bX + 30000, hit.bY}, TZORPto{hit.bX, hit.bY - 30000}}) {
    EXPECT_FALSE(fItem->Pick(far.bX, far.bY, 100, true));
  }
  TZORRect around = fItem->fBoundsRect;
  around.Inflate(1000, 1000);
  EXPECT_TRUE(fItem->SearchRect(around, false));
  EXPECT_TRUE(fItem->SearchRect(around, true));
  around.Offset(30000, 30000);
  EXPECT_FALSE(fItem->SearchRect(around, false));
  EXPECT_FALSE(fItem->SearchRect(around, true));
}

TEST_P(ItemContract, BaseMoveMovesTheBounds) {
  TZORRect expected = fItem->fBoundsRect;
  if (LiesByItself()) expected.Offset(1500, -700);
  fItem->BaseMove(1500, -700, 0, 0, moAll, true);
  EXPECT_EQ(fItem->fBoundsRect, expected);
  fItem->UpdateBounds();
  EXPECT_EQ(fItem->fBoundsRect, expected);
}

TEST_P(ItemContract, APasteIsShiftedSelectedAndHasAnIdentityOfItsOwn) {
  fDoc.SetSelection(fItem, isSelected);
  fDoc.CopySelection();
  fDoc.PasteSelection();
  ASSERT_EQ(fDoc.GetItemsCount(), fOthers + 2);
  const TKDXBaseItem& pasted = *fDoc.fItems.Last();
  EXPECT_EQ(fDoc.Select(), &pasted);
  EXPECT_FALSE(fDoc.Selected(*fItem));
  EXPECT_NE(pasted.fInID, fItem->fInID);
  TZORRect expected = fItem->fBoundsRect;
  if (LiesByItself()) expected.Offset(2000, 2000);
  EXPECT_EQ(pasted.fBoundsRect, expected);
}

TEST_P(ItemContract, FarCoordinatesDoNoHarm) {
  // The lines of a text follow its box, and a file holds places that lie nearer.
  With<TKDXBaseFlow>(*fItem, [](auto& a) { a.SetText(""); });
  fDoc.CalcPending();
  for (const Int64 far : {MaxCoordinate, -MaxCoordinate}) {
    for (int i = 1; i <= fItem->NumPoints(); ++i) fItem->SetBase(i, i % 2 == 0 ? far : -far / 3, far);
    fItem->UpdateBounds();
    fItem->Pick(far, far, 1000, true);
    fItem->SearchRect({-far, -far, far, far}, true);
    TZORRef reference;
    for (int snap = 0; snap < EnumCount<TZORSnap>; ++snap) {
      fItem->CheckPoint(far, far, 1000, static_cast<TZORSnap>(snap), reference);
    }
    Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
    fItem->CheckFit(minX, maxX, minY, maxY);
    fItem->CenterPoint();
    fItem->InsertPoint(0, 0, 1000);
    fItem->BaseMove(far, far, 0, 0, moAll, true);
    TSvgList svg, defs;
    fItem->WriteSVG(svg, defs, svCurrentUnit, 1, true);
    TBareLabel other;
    EXPECT_EQ(Json(FromBytes(other, Bytes(*fItem))), Json(*fItem));
    EXPECT_NO_THROW(FromJson(other, Json(*fItem)));
  }
}

// SVG -------------------------------------------------------------------------------

/// Drawings of one item in many states, for one run of an XML parser that reads them all.
class TSvgPile {
 public:
  explicit TSvgPile(TBareLabel& aDoc) : fDoc(aDoc) {}

  /// The document in every way in which it is written, and the elements of the item alone.
  void Add(const TKDXBaseItem& aItem) {
    for (const TZORExportSVG mode : {svCurrentUnit, svCurUnitNoMed, svFactor, svFactorPx}) {
      for (const bool ids : {false, true}) {
        TSvgList svg, defs;
        aItem.WriteSVG(svg, defs, mode, 3.78F, ids);
        for (const std::string& line : svg) (fText += line) += '\n';
        for (const TSvgTextForm text : {stExact, stPortable}) {
          fText += fDoc.SVG({mode, 3.78F, ids, text}, fDoc.SvgWindow());
        }
      }
    }
  }
  /// What the parser has against them.
  std::string Complaints() const {
    const TTestFile file("<all>\n" + fText + "</all>\n");
    FILE* parser = popen(("xmllint --noout --huge " + file.Name() + " 2>&1 | head -20").c_str(), "r");
    std::string told;
    for (int c = std::fgetc(parser); c != EOF; c = std::fgetc(parser)) told += static_cast<char>(c);
    pclose(parser);
    return told;
  }
  const std::string& Text() const { return fText; }

 private:
  TBareLabel& fDoc;
  std::string fText;
};

/// What no XML may hold as it is, in and beyond UTF-8.
const std::string Nasty("<&\">' ]]> &amp; \x01\x1F\x7F\t\r\n\xC3\xA9\xEF\xBF\xBE\xFF\xC3\0end"sv);

/// Calls `aVisit` after every change of what turns, aligns and ends the item.
template <class TVisit>
void PlaceEveryWay(TKDXBaseItem& aItem, TVisit aVisit) {
  for (const TZORAngle angle : {ag0, ag90, ag180, ag270}) {
    With<IZORAngle>(aItem, [&](auto& a) { a.SetAngle(angle); });
    for (const TZORHorzAlign horz : {haLeft, haCenter, haRight, haJustify}) {
      for (const TZORVertAlign vert : {vaTop, vaCenter, vaBottom}) {
        const bool first = angle == ag0 && horz == haLeft && vert == vaTop;
        if (!first && dynamic_cast<IZORAngle*>(&aItem) == nullptr) continue;
        With<IZORAlign>(aItem, [&](auto& a) {
          a.SetHorzAlign(horz);
          a.SetVertAlign(vert);
        });
        aVisit();
      }
    }
  }
}

/// The same for looks: fills, lines, marks, styles and forms.
template <class TVisit>
void DressEveryWay(TKDXBaseItem& aItem, TVisit aVisit) {
  for (int i = 0; i <= ttCross; ++i) {
    With<IZORBack>(aItem, [&](auto& a) { a.SetFilled(i % 2 == 0); });
    With<IZORStyle>(aItem, [&](auto& a) { a.SetLineType(static_cast<TZOLineType>(i % (ii411 + 1))); });
    const auto mark = static_cast<TZORTermType>(i);
    const auto end = [&](auto& a) {
      a.SetFromType(mark);
      a.SetToType(mark);
    };
    With<IZORSTerm>(aItem, end);
    With<IZORSLink>(aItem, end);
    With<IZORFont>(aItem, [&](auto& a) {
      a.SetBold((i & 1) != 0);
      a.SetItalic((i & 2) != 0);
      a.SetUnderline((i & 4) != 0);
    });
    With<TKDXBaseFlow>(aItem, [&](auto& a) { a.SetFlowType(static_cast<TZORFlowType>(i)); });
    With<TKDXBaseLink>(aItem, [&](auto& a) { a.SetLinkType(static_cast<TZOLinkType>(i % 8)); });
    With<TKDXBaseText>(aItem, [&](auto& a) { a.SetDispWidth(1000 * i); });
    aItem.SetColor(i % 3 == 0 ? 0x80FF4020 : ColorBlack);
    aItem.SetPenWidth(i % 4 == 0 ? 0 : 0.35F);
    aVisit();
  }
}

TEST_P(ItemContract, SvgIsReadByAnXmlParserInEveryState) {
  TSvgPile pile(fDoc);
  fItem->SetID("a \"b\" <c> & d");
  With<IZORText>(*fItem, [](auto& a) { a.SetText(Nasty); });
  With<IZORFont>(*fItem, [](auto& a) { a.SetFontName(Nasty); });
  With<TKDXBaseBarcode>(*fItem, [](auto& a) {
    a.SetCodeType(btCODE128AUTO);
    a.SetCode("<&\">'");
  });
  With<TKDXBaseFlow>(*fItem, [](auto& a) { a.SetText(Nasty); });
  const auto add = [&] {
    fDoc.CalcPending();
    pile.Add(*fItem);
  };
  PlaceEveryWay(*fItem, add);
  DressEveryWay(*fItem, add);
  EXPECT_EQ(pile.Complaints(), "");
  EXPECT_EQ(pile.Text().find("nan"), std::string::npos);
  // Intended: the many elements of a barcode carry no names.
  const bool named = fItem->fItemType != itPoint && dynamic_cast<IZORBar1D2D*>(fItem) == nullptr;
  EXPECT_EQ(pile.Text().find("id=\"a&quot;b&quot;&lt;c&gt;&amp;d\"") != std::string::npos, named);
}

/// The unit is that of what users type, not of the paper.
TEST_P(ItemContract, SvgOfADocumentIsTheSameInEveryUnit) {
  Dress(*fItem);
  const auto elements = [this] {
    const std::string svg = fDoc.SVG(svCurrentUnit, 1, true);
    return svg.substr(svg.find('\n'));
  };
  const std::string expected = elements();
  for (const TZORUnits unit : {unINCH, unCM}) {
    fDoc.SetUnits(unit);
    EXPECT_EQ(elements(), expected) << unit;
  }
}

INSTANTIATE_TEST_SUITE_P(Items, ItemContract, testing::ValuesIn(Kinds),
                         [](const auto& aInfo) { return std::string(aInfo.param.name); });

// Items without points --------------------------------------------------------------

class ItemWithoutPoints : public testing::TestWithParam<TZORItemType> {};

TEST_P(ItemWithoutPoints, TakesEveryOperation) {
  TBareLabel source;
  const TKDXBaseItem* empty = source.NewItemOfType(GetParam(), false);
  for (const bool binary : {false, true}) {
    TBareLabel doc;
    TKDXBaseItem& item = binary ? FromBytes(doc, Bytes(*empty)) : FromJson(doc, Json(*empty));
    ASSERT_EQ(item.NumPoints(), 0);
    EXPECT_EQ(item.CenterPoint(), TZORBase{});
    EXPECT_FALSE(item.Pick(-1, -1, 100, true));
    EXPECT_FALSE(item.SearchRect({0, 0, 90000, 90000}, true));
    EXPECT_FALSE(item.InsertPoint(0, 0, 100));
    TZORRef reference;
    for (const TZORSnap snap : {snMiddle, snEnd, snPerpendicular}) {
      EXPECT_FALSE(item.CheckPoint(0, 0, 100, snap, reference));
    }
    Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
    With<IZORSTerm>(item, [](auto& term) { term.SetFromType(ttArrow); });
    item.CheckFit(minX, maxX, minY, maxY);
    EXPECT_EQ(minX, -1);
    TSvgList svg, defs;
    item.WriteSVG(svg, defs, svCurrentUnit, 1, false);
    EXPECT_TRUE(svg.empty());
    item.RotateLeft();
    item.RotateRight();
    item.BaseMove(1000, 1000, 500, 500, moAll, true);
    item.Move(1, 1, moRight);
    item.MoveToGrid(1000, 1000, true, true);
    Int64 dx = 10, dy = 10;
    item.CheckBaseBoundsMove(dx, dy, moAll);
    while (!doc.IsUndoEmpty()) doc.Undo();
    EXPECT_EQ(doc.GetItemsCount(), 1);
    EXPECT_EQ(doc.fItems.Last()->NumPoints(), 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Items, ItemWithoutPoints, testing::Values(itPolyLine, itPolygon, itBezier),
                         [](const auto& aInfo) { return std::string(NameItem(aInfo.param)); });

}  // namespace
}  // namespace Zor
