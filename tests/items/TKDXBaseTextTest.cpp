#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/items/TKDXBaseData.hpp"
#include "kaldrix/items/TKDXBaseText.hpp"
#include "kaldrix/items/TextPlacement.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

constexpr TZORAngle Angles[] = {ag0, ag90, ag180, ag270};
constexpr TZORHorzAlign HorzAligns[] = {haLeft, haCenter, haRight};

/// A text "abcd" at (20, 10) mm: 20 mm wide and 10 mm high.
class Text : public testing::Test {
 protected:
  Text() {
    text.SetText("abcd");
    doc.CalcPending();
  }

  std::vector<std::string> Svg(TZORExportSVG aMode = svCurrentUnit, Single aFactor = 1, bool aIds = false) {
    TSvgList svg, defs;
    text.WriteSVG(svg, defs, aMode, aFactor, aIds);
    EXPECT_TRUE(defs.empty());
    return svg;
  }
  /// A text with a value of its own in each field.
  void FillAll() {
    text.SetData(ftNone, "~Price", "0.00");
    text.fText = "ef <&>";
    text.SetFontName("Serif");
    text.SetFontHeight(7.5F);
    text.SetScaleX(0.75F);
    text.SetBold(true);
    text.SetStrikeout(true);
    text.SetFontColor(0x80112233);
    text.SetBackColor(0xFF445566);
    text.SetFilled(true);
    text.SetHorzAlign(haRight);
    text.SetVertAlign(vaCenter);
    text.SetPaddingX(1.5F);
    text.SetPaddingY(0.25F);
    text.SetAngle(ag90);
    doc.CalcPending();
    text.SetRadio(2);
    text.SetDispWidth(12000);
  }

  TBareLabel doc;
  TKDXBaseText& text = *doc.NewText(20000, 10000);
};

// Bounds ------------------------------------------------------------------------------

TEST_F(Text, BoundsHoldPaddingAndDrawingScale) {
  doc.fMeasure->fDrawScale = 50;
  text.SetPaddingX(1);
  text.SetPaddingY(2);
  EXPECT_EQ(text.fBoundsRect, (TZORRect{20000, 10000, 20000 + 22000 * 50, 10000 + 14000 * 50}));
  text.SetAngle(ag90);
  text.SetHorzAlign(haCenter);
  text.SetVertAlign(vaBottom);
  EXPECT_EQ(text.fBoundsRect, (TZORRect{20000 - 14000 * 50, 10000 - 11000 * 50, 20000, 10000 + 11000 * 50}));
  EXPECT_EQ(text.GetPoint(2), (TZORPto{20000 + 22000 * 50, 10000 + 14000 * 50}));
}

TEST_F(Text, TurningWithTheDocumentFourTimesComesBack) {
  text.SetHorzAlign(haRight);
  const TZORRect before = text.fBoundsRect;
  doc.RotateLeft();
  EXPECT_EQ(text.fAngle, ag90);
  EXPECT_EQ(text.fBoundsRect.GetHeight(), before.GetWidth());
  for (int i = 0; i < 3; ++i) doc.RotateLeft();
  EXPECT_EQ(text.fBoundsRect, before);
}

TEST_F(Text, MovesAreCutAtTheLabel) {
  text.SetHorzAlign(haRight);  // from 0 to 20 mm of 60, from 10 to 20 mm of 35
  Single ax = 100, ay = -100;
  text.BoundsMove(ax, ay);
  EXPECT_EQ(ax, 40);
  EXPECT_EQ(ay, -10);
  Int64 bx = -1, by = 100000;
  text.CheckBaseBoundsMove(bx, by, moAll);
  EXPECT_EQ(bx, 0);
  EXPECT_EQ(by, 15000);

  text.SetDispWidth(5000);  // shown from 15 to 20 mm
  bx = -100000;
  text.CheckBaseBoundsMove(bx, by, moAll);
  EXPECT_EQ(bx, -15000);

  Int64 minX = -1, maxX = 30000, minY = 5000, maxY = -1;
  text.CheckFit(minX, maxX, minY, maxY);
  EXPECT_EQ((TZORRect{minX, minY, maxX, maxY}), (TZORRect{0, 5000, 30000, 20000}));
}

TEST_F(Text, TheEndsOfTheCoordinateRangeAreHeld) {
  doc.fMeasure->fDrawScale = Int64{1} << 50;
  text.SetPaddingX(1);
  for (const Int64 anchor : {-MaxCoordinate, MaxCoordinate}) {
    for (const TZORAngle angle : Angles) {
      for (const TZORHorzAlign align : HorzAligns) {
        text.SetBase(1, anchor, anchor);
        text.SetAngle(angle);
        text.SetHorzAlign(align);
        text.SetDispWidth(12000);
        const TZORRect bounds = text.fBoundsRect, shown = text.GetDisplayBoundsRect();
        EXPECT_TRUE(bounds.Left <= bounds.Right && bounds.Top <= bounds.Bottom);
        EXPECT_TRUE(bounds.Contains(shown));
        text.SetDispWidthFromMouse(-anchor, anchor);
        EXPECT_FALSE(text.PickDispWidthHandle(anchor, anchor, 100));
        EXPECT_FALSE(Svg().empty());
      }
    }
  }
}

// Setters -----------------------------------------------------------------------------

TEST_F(Text, ValuesAreHeldInTheirLimits) {
  text.SetFontHeight(0.2F);
  EXPECT_EQ(text.fFontHeight, 1000);
  text.SetScaleX(3);
  EXPECT_EQ(text.fScaleX, 2);
  text.SetScaleX(0.1F);
  EXPECT_EQ(text.fScaleX, 0.4F);
  text.SetPaddingX(-1);
  EXPECT_EQ(text.fPaddingX, 0);
  text.SetRadio(9);
  EXPECT_EQ(text.fRadio, 5000) << "half the height";
  text.SetBaseRadio(9000);
  EXPECT_EQ(text.fRadio, 9000);
  text.SetRadio(-1);
  EXPECT_EQ(text.fRadio, 0);

  TKDXBaseText& unmeasured = *new TBareItem<TKDXBaseText>(doc, false);
  unmeasured.SetRadio(9);
  EXPECT_EQ(unmeasured.fRadio, 9000);
  EXPECT_EQ(unmeasured.fPenWidth, 0);
}

TEST_F(Text, RecordedPropertiesComeBack) {
  struct TCase {
    const char* name;
    std::function<void(TKDXBaseText&)> change;
    bool recorded;
  };
  const TCase cases[] = {
      {"text", [](TKDXBaseText& t) { t.SetText("other"); }, true},
      {"font", [](TKDXBaseText& t) { t.SetFontName("Serif"); }, true},
      {"bold", [](TKDXBaseText& t) { t.SetBold(true); }, true},
      {"italic", [](TKDXBaseText& t) { t.SetItalic(true); }, true},
      {"underline", [](TKDXBaseText& t) { t.SetUnderline(true); }, true},
      {"font colour", [](TKDXBaseText& t) { t.SetFontColor(0xFF00FF00); }, true},
      {"colour", [](TKDXBaseText& t) { t.SetColor(0xFF00FF00); }, true},
      {"filled", [](TKDXBaseText& t) { t.SetFilled(true); }, true},
      {"back", [](TKDXBaseText& t) { t.SetBackColor(0xFF00FF00); }, true},
      {"radius", [](TKDXBaseText& t) { t.SetRadio(1); }, true},
      {"angle", [](TKDXBaseText& t) { t.SetAngle(ag270); }, true},
      {"pen", [](TKDXBaseText& t) { t.SetPenWidth(0.5F); }, true},
      {"move", [](TKDXBaseText& t) { t.BaseMove(100, 200, 0, 0, moAll, true); }, true},
      {"strikeout", [](TKDXBaseText& t) { t.SetStrikeout(true); }, false},
      {"font height", [](TKDXBaseText& t) { t.SetFontHeight(12); }, false},
      {"scale", [](TKDXBaseText& t) { t.SetScaleX(1.5F); }, false},
      {"padding", [](TKDXBaseText& t) { t.SetPaddingX(1); }, false},
      {"alignment", [](TKDXBaseText& t) { t.SetHorzAlign(haRight); }, false},
  };
  for (const TCase& c : cases) {
    const std::string before = text.WriteJson()->ToJSON();
    const TZORRect bounds = text.fBoundsRect;
    doc.Clear({cleUndoRedo}, false);
    c.change(text);
    c.change(text);
    doc.CalcPending();
    const std::string after = text.WriteJson()->ToJSON();
    EXPECT_NE(after, before) << c.name;
    doc.Undo();
    doc.CalcPending();
    EXPECT_EQ(text.WriteJson()->ToJSON(), c.recorded ? before : after) << c.name;
    if (c.recorded) {
      EXPECT_EQ(text.fBoundsRect, bounds) << c.name;
    }
    doc.Redo();
    doc.CalcPending();
    EXPECT_EQ(text.WriteJson()->ToJSON(), after) << c.name;
  }
}

TEST_F(Text, ASelectedTextIsMeasuredByItsEditor) {
  doc.SetSelection(&text, isSelected);
  text.SetText("abcdef");
  doc.CalcPending();
  EXPECT_EQ(text.fWidth, 20000);
  doc.ClearSelection(false);
  text.SetText("abcdefgh");
  doc.CalcPending();
  EXPECT_EQ(text.fWidth, 40000);
  text.SetOptions({});
  text.SetBold(true);
  text.SetText("a");
  EXPECT_EQ(text.fWidth, 5000) << "a hidden text is measured at once, with its new value";
}

// Data --------------------------------------------------------------------------------

TEST_F(Text, ABindingTakesKindAndNameFromThePickListLine) {
  struct TCase {
    TZORFillType type;
    const char* name;
    TZORFillType expectedType;
    const char* field;
    const char* shown;
    bool isData;
  };
  const TCase cases[] = {
      {ftField, "Price", ftField, "Price", "Price", true},   {ftField, "@N1", ftCounter, "N1", "N1", true},
      {ftNone, "{Name", ftJson, "Name", "Name", true},       {ftCsv, "~Name", ftField, "Name", "Name", true},
      {ftNone, "=List", ftList, "List", "List", true},       {ftNone, "?Ask", ftAsk, "Ask", "Ask", true},
      {ftCsv, "^Column", ftCsv, "^Column", "^Column", true}, {ftField, "", ftField, "", "", false},
      {ftField, "<Unassign>", ftNone, "", "abcd", false},    {ftNone, "Name", ftNone, "Name", "abcd", false},
  };
  for (const TCase& c : cases) {
    text.fText = "abcd";
    text.SetData(c.type, c.name, "0.0");
    EXPECT_EQ(text.fFillType, c.expectedType) << c.name;
    EXPECT_EQ(text.fField, c.field) << c.name;
    EXPECT_EQ(text.fText, c.shown) << c.name;
    EXPECT_EQ(text.dText, c.shown) << c.name;
    EXPECT_EQ(text.aIsData, c.isData) << c.name;
    EXPECT_EQ(text.GetFormat(), "0.0");
  }
}

TEST_F(Text, DataFillsTheTextWhileTheDocumentIsLinked) {
  text.SetData(ftField, "Name", "000");
  EXPECT_EQ(text.FillType(), ftNone) << "not linked";
  text.FillData(true);
  EXPECT_EQ(text.fText, "Name");

  doc.fData->SetJson(R"({"rows": [{"Name": 7}]})");
  ASSERT_TRUE(doc.fData->Select(dtyJson));
  EXPECT_FALSE(text.GetIsData()) << "no source is open";
  doc.CheckPrintData();
  EXPECT_EQ(text.FillType(), ftField);
  EXPECT_EQ(text.SymFillName(), "~Name");
  EXPECT_TRUE(text.GetIsData());
  text.FillData(false);
  EXPECT_EQ(text.fText, "007");
  EXPECT_EQ(text.fWidth, 20000) << "not measured";
  text.FillData(true);
  EXPECT_EQ(text.fWidth, 15000);
  EXPECT_EQ(text.dText, "Name");

  text.SetText("");
  EXPECT_EQ(text.fField, "Name") << "an empty text leaves the binding";
  text.SetText("fixed");
  EXPECT_EQ(text.fField, "");
  EXPECT_EQ(text.fFillType, ftNone);
  EXPECT_EQ(text.dText, "fixed");
  EXPECT_FALSE(text.GetIsData());
}

TEST_F(Text, ASelectedTextTellsOfItsBinding) {
  TRecordingObserver editor(duEditor);
  doc.Attach(&editor);
  text.SetData(ftField, "Name", "");
  EXPECT_EQ(std::count(editor.fChanges.begin(), editor.fChanges.end(), chChText), 0);
  doc.SetSelection(&text, isSelected);
  editor.fChanges.clear();
  text.SetData(ftField, "Other", "");
  EXPECT_EQ(std::count(editor.fChanges.begin(), editor.fChanges.end(), chChText), 1);
  doc.Detach(&editor);
}

// Display width -----------------------------------------------------------------------

TEST_F(Text, ADisplayWidthIsBelowTheMeasuredWidth) {
  text.SetDispWidth(12000);
  EXPECT_EQ(text.GetEffectiveWidth(), 12000);
  text.SetDispWidth(20000);
  EXPECT_EQ(text.fDispWidth, 0);
  EXPECT_EQ(text.GetEffectiveWidth(), 20000);
  text.SetDispWidth(-5);
  EXPECT_EQ(text.fDispWidth, 0);
}

TEST_F(Text, TheDisplayRectangleKeepsTheAnchoredEdge) {
  struct TCase {
    TZORAngle angle;
    TZORHorzAlign align;
    TZORRect shown;
  };
  // 12 mm and a padding of 1 mm at both ends, from the anchor (20, 10) mm.
  const TCase cases[] = {
      {ag0, haLeft, {20000, 10000, 34000, 20000}},    {ag0, haCenter, {13000, 10000, 27000, 20000}},
      {ag0, haRight, {6000, 10000, 20000, 20000}},    {ag90, haLeft, {20000, -4000, 30000, 10000}},
      {ag90, haRight, {20000, 10000, 30000, 24000}},  {ag180, haLeft, {6000, 0, 20000, 10000}},
      {ag180, haRight, {20000, 0, 34000, 10000}},     {ag270, haLeft, {10000, 10000, 20000, 24000}},
      {ag270, haCenter, {10000, 3000, 20000, 17000}},
  };
  text.SetPaddingX(1);
  for (const TCase& c : cases) {
    text.SetAngle(c.angle);
    text.SetHorzAlign(c.align);
    text.SetDispWidth(0);
    EXPECT_EQ(text.GetDisplayBoundsRect(), text.fBoundsRect);
    text.SetDispWidth(12000);
    const TZORRect got = text.GetDisplayBoundsRect();
    EXPECT_EQ(got, c.shown) << int{c.angle} << " " << int{c.align} << ": " << got.Left << " " << got.Top
                            << " " << got.Right << " " << got.Bottom;
  }
}

TEST_F(Text, TheHandleStandsAtTheEndOfTheEffectiveWidth) {
  text.SetData(ftField, "abcd", "");
  text.SetPaddingX(1);
  text.SetDispWidth(12000);
  EXPECT_EQ(text.GetDispWidthHandleRect(), (TZORRect{33000 - 750, 15000 - 1500, 33000 + 750, 15000 + 1500}));
  EXPECT_TRUE(text.PickDispWidthHandle(33750, 15000, 0));
  EXPECT_FALSE(text.PickDispWidthHandle(33751, 15000, 0));
  EXPECT_TRUE(text.PickDispWidthHandle(33851, 16600, 101));
  text.SetData(ftNone, "Unassign", "");
  EXPECT_FALSE(text.PickDispWidthHandle(33000, 15000, 0)) << "shows no data";

  text.SetAngle(ag90);
  EXPECT_EQ(text.GetDispWidthHandleRect().GetWidth(), 3000);
  EXPECT_EQ(text.GetDispWidthHandleRect().GetHeight(), 1500);
}

TEST_F(Text, DraggingTheHandleToItsPlaceKeepsTheWidth) {
  doc.fMeasure->fDrawScale = 3;
  text.SetPaddingX(1);
  for (const TZORAngle angle : Angles) {
    for (const TZORHorzAlign align : HorzAligns) {
      text.SetAngle(angle);
      text.SetHorzAlign(align);
      text.SetDispWidth(12000);
      const TZORRect handle = text.GetDispWidthHandleRect();
      const Int64 x = (handle.Left + handle.Right) / 2, y = (handle.Top + handle.Bottom) / 2;
      text.SetDispWidthFromMouse(x, y);
      EXPECT_EQ(text.fDispWidth, 12000) << int{angle} << " " << int{align};
      text.SetDispWidthFromMouse(x + (x - 20000), y + (y - 10000));
      EXPECT_EQ(text.fDispWidth, 0) << "beyond the text";
      text.SetDispWidthFromMouse(20000, 10000);
      EXPECT_EQ(text.fDispWidth, 1000) << "never below 1 mm";
    }
  }
}

// SVG ---------------------------------------------------------------------------------

TEST_F(Text, SvgOfAPlainTextIsOneElement) {
  const auto svg = Svg();
  ASSERT_EQ(svg.size(), 1U);
  EXPECT_EQ(svg[0],
            R"(<text x="20" y="10" font-family="Arial" font-size="10"  fill="#000000" xml:space="preserve")"
            R"( text-anchor="start" alignment-baseline="text-before-edge" )"
            R"svg( transform="scale(1, 1)">abcd</text>)svg");
}

TEST_F(Text, SvgOfATurnedTextOnABackground) {
  text.SetText("a<b");
  text.SetAngle(ag90);
  text.SetHorzAlign(haRight);
  text.SetVertAlign(vaCenter);
  text.SetPaddingX(2);
  text.SetPaddingY(1);
  text.SetScaleX(0.5F);
  text.SetBold(true);
  text.SetUnderline(true);
  text.SetFontColor(0x80102030);
  text.SetFilled(true);
  text.SetBackColor(0xFFFFEE00);
  text.SetPenWidth(0.5F);
  text.SetID("My Text");
  doc.CalcPending();  // 7.5 mm wide
  text.SetRadio(1.5F);
  const auto svg = Svg(svFactorPx, 2, true);
  ASSERT_EQ(svg.size(), 2U);
  EXPECT_EQ(svg[0], R"(<rect x="28" y="20" width="24" height="23"  rx="1.5"  fill="#FFEE00" stroke="#000000")"
                    R"( stroke-width="0.5"/>)");
  EXPECT_EQ(svg[1], R"(<text id="MyText"  x="80" y="24" font-family="Arial" font-weight="bold")"
                    R"( text-decoration="underline" font-size="20"  fill="#102030" fill-opacity="0.5")"
                    R"( xml:space="preserve" text-anchor="end" alignment-baseline="central" )"
                    R"svg( transform="rotate(-90 40 24) scale(0.50, 1)">a&lt;b</text>)svg");
}

TEST_F(Text, SvgOfAFrameWithoutFillOnADrawingAt1To50) {
  doc.fMeasure->fDrawScale = 50;
  text.SetBase(1, 1000000, 500000);
  text.SetHorzAlign(haJustify);
  text.SetVertAlign(vaBottom);
  text.SetPenWidth(0.5F);
  const auto svg = Svg();
  ASSERT_EQ(svg.size(), 2U);
  EXPECT_EQ(svg[0], R"(<rect x="20" y="0" width="20" height="10"   fill="none"  stroke="#000000")"
                    R"( stroke-width="0.5"/>)");
  EXPECT_EQ(svg[1],
            R"(<text x="20" y="10" font-family="Arial" font-size="10"  fill="#000000" xml:space="preserve" )"
            R"(alignment-baseline="text-after-edge" )"
            R"svg( transform="scale(1, 1)">abcd</text>)svg");
}

TEST_F(Text, TheRatioOfTheHostIsInTheFontSize) {
  text.SetMeasured(20000, 10000, 8000, 2000, 1000, 0.875);
  EXPECT_NE(Svg()[0].find(R"(font-size="8.75")"), std::string::npos);
}

// Persistence -------------------------------------------------------------------------

TEST_F(Text, RecordAndJsonHoldTheSame) {
  FillAll();
  const auto json = text.WriteJson();
  const std::string expected = json->ToJSON();

  TBareItem<TKDXBaseText>& fromJson = *doc.NewText(0, 0);
  fromJson.ReadJson(FormatVersion, *json);
  std::string stream;
  TBinaryWriter writer(stream);
  text.WriteData(writer);
  TBinaryReader reader(stream);
  ASSERT_EQ(reader.ReadInt32(), itText);
  TBareItem<TKDXBaseText>& fromRecord = *doc.NewText(0, 0);
  fromRecord.ReadData(FormatVersion, reader, rdNormal);
  EXPECT_EQ(reader.Left(), 0U);
  doc.CalcPending();
  for (const TKDXBaseText* copy : {&fromJson, &fromRecord}) {
    EXPECT_EQ(copy->WriteJson()->ToJSON(), expected);
    EXPECT_EQ(copy->fBoundsRect, text.fBoundsRect) << "measured";
    EXPECT_EQ(copy->dText, "Price");
    EXPECT_TRUE(copy->aIsData);
  }
}

TEST_F(Text, JsonHasItsKeysInOrder) {
  FillAll();
  const auto json = text.WriteJson();
  std::string keys;
  for (int i = json->IndexOf("HorzAlign"); i < json->Count(); ++i) keys += json->GetName(i) + " ";
  EXPECT_EQ(keys,
            "HorzAlign VertAlign DispWidth ScaleX Font Radio PaddingX PaddingY Filled BackColor Text Data ");
  EXPECT_EQ(json->GetObject("Font").ToJSON(),
            R"({"Name":"Serif","Bold":true,"Italic":false,"Underline":false,"Strikeout":true,)"
            R"("FontHeight":7.5,"FontColor":{"R":17,"G":34,"B":51,"A":128}})");
  EXPECT_EQ(json->GetObject("Data").ToJSON(), R"({"Field":"Price","Format":"0.00","FillType":1})");
}

TEST_F(Text, JsonValuesAreHeldInTheirLimits) {
  auto json = text.WriteJson();
  json->SetFloat("ScaleX", 3);
  json->SetFloat("PaddingX", -1);
  json->SetFloat("PaddingY", -0.001);
  json->SetFloat("Radio", 10);
  json->SetInt("DispWidth", 77777);
  json->GetObject("Font").SetFloat("FontHeight", 0.2);
  text.ReadJson(FormatVersion, *json);
  EXPECT_EQ(text.fScaleX, 2);
  EXPECT_EQ(text.fPaddingX, 0);
  EXPECT_EQ(text.fPaddingY, 0);
  EXPECT_EQ(text.fRadio, 10000) << "as it stands";
  EXPECT_EQ(text.fDispWidth, 77777) << "as it stands";
  EXPECT_EQ(text.GetEffectiveWidth(), text.fWidth);
  EXPECT_EQ(text.fFontHeight, 1000);
}

TEST_F(Text, JsonOfUnknownValuesIsRefused) {
  for (const char* key : {"HorzAlign", "VertAlign", "FillType"}) {
    auto json = text.WriteJson();
    (std::string(key) == "FillType" ? json->GetObject("Data") : *json).SetInt(key, 99);
    EXPECT_THROW(text.ReadJson(FormatVersion, *json), EJsonException) << key;
  }
}

TEST_F(Text, RecordsThatNoWriterMakesAreRefused) {
  const auto recordOf = [this] {
    std::string stream;
    TBinaryWriter writer(stream);
    text.WriteData(writer);
    return stream.substr(4);  // behind the type
  };
  const std::string good = recordOf();
  std::string align = good;
  align[align.size() - 4] = 9;  // the last but one 16-bit number
  text.fScaleX = std::numeric_limits<Single>::quiet_NaN();
  struct TCase {
    std::string bytes;
    const char* told;
  };
  for (const TCase& c :
       {TCase{align, "HorzAlign"}, TCase{recordOf(), "ScaleX"}, TCase{good.substr(0, 80), ""}}) {
    TBinaryReader reader(c.bytes);
    try {
      doc.NewText(0, 0)->ReadData(FormatVersion, reader, rdNormal);
      ADD_FAILURE() << c.told;
    } catch (const EReadError& e) {
      EXPECT_NE(std::string(e.what()).find(c.told), std::string::npos) << e.what();
    }
  }
}

TEST_F(Text, APastedTextIsMovedAndSelected) {
  text.SetText("other");
  doc.SetSelection(&text, isSelected);
  doc.CopySelection();
  doc.PasteSelection();
  const auto* copy = dynamic_cast<const TKDXBaseText*>(doc.Select());
  ASSERT_NE(copy, nullptr);
  ASSERT_NE(copy, &text);
  EXPECT_EQ(copy->GetPoint(1), (TZORPto{22000, 12000}));
  EXPECT_EQ(copy->fBoundsRect, (TZORRect{22000, 12000, 47000, 22000}));
}

// Runs --------------------------------------------------------------------------------

struct TRunOwner final : IZOTextOwner {
  explicit TRunOwner(TKDXBaseLabel& aDocument) : fDocument(aDocument) {}
  void NeedLayout() override { ++layouts; }
  void NeedPaint() override { ++paints; }
  TKDXBaseLabel& Document() const override { return fDocument; }

  TKDXBaseLabel& fDocument;
  int layouts = 0, paints = 0;
};

TEST_F(Text, ARunTellsItsOwnerAndSurvivesBothForms) {
  TRunOwner owner(doc);
  TKDXBaseData run(owner);
  EXPECT_EQ(run.fFontHeight, 6000);
  doc.fUnits = unCM;
  for (int i = 0; i < 2; ++i) {  // the second time nothing changes
    run.SetText("run");
    run.SetFontName("Serif");
    run.SetFontHeight(0.5F);
    run.SetBold(true);
    run.SetItalic(true);
    EXPECT_EQ(owner.layouts, 5);
    run.SetUnderline(true);
    run.SetStrikeout(true);
    run.SetFontColor(0xFF010203);
    run.SetFillBack(true);
    run.SetBackColor(0xFF040506);
    EXPECT_EQ(owner.paints, 5);
  }
  EXPECT_EQ(run.fFontHeight, 5000);
  run.SetBaseSize(7000, 4000, 1000, 0.9);
  EXPECT_EQ(run.GetHeight(), 0.5F);

  TJsonObject json, copied;
  run.WriteJson(json);
  EXPECT_EQ(json.ToJSON(),
            R"({"Text":"run","FillBackground":true,"BackColor":{"R":4,"G":5,"B":6,"A":255},"Font":)"
            R"({"Name":"Serif","Bold":true,"Italic":true,"Underline":true,"Strikeout":true,"FontHeight":5,)"
            R"("FontColor":{"R":1,"G":2,"B":3,"A":255}}})");
  std::string stream;
  TBinaryWriter writer(stream);
  TRecord written(writer, FormatVersion);
  run.Record(written);
  TBinaryReader reader(stream);
  TRecord read(reader, FormatVersion);
  TKDXBaseData fromRecord(owner), fromJson(owner);
  fromRecord.Record(read);
  EXPECT_EQ(reader.Left(), 0U);
  fromRecord.WriteJson(copied);
  fromJson.ReadJson(FormatVersion, copied);
  TJsonObject last;
  fromJson.WriteJson(last);
  EXPECT_EQ(last.ToJSON(), json.ToJSON());
}

}  // namespace
}  // namespace Zor
