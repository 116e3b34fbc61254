// Nodes of flow charts: where links end, what the SVG shows, what files bring.
#include <gtest/gtest.h>

#include "kaldrix/items/FlowPositions.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TKDXBaseFlow* NewNode(TBareLabel& aDoc, TZORFlowType aType) {
  return aDoc.NewFlow(10000, 20000, 60000, 40000, aType);
}

// Link positions --------------------------------------------------------------------

constexpr TZORRect Bounds{0, 0, 1600, 800};

struct TFamily {
  std::vector<TZORFlowType> types;
  std::vector<std::pair<int, TZORBase>> positions;
};

const TFamily Families[] = {
    {{ftTerminator, ftProcess, ftDocument, ftMultiDocument, ftDatabase, ftPredefined, ftManualInput,
      ftManualOperation, ftPreparation},
     {{1, {0, 0}},
      {2, {400, 0}},
      {3, {800, 0}},
      {4, {1200, 0}},
      {5, {1600, 0}},
      {6, {1600, 200}},
      {7, {1600, 400}},
      {8, {1600, 600}},
      {9, {1600, 800}},
      {10, {1200, 800}},
      {11, {800, 800}},
      {12, {400, 800}},
      {13, {0, 800}},
      {14, {0, 600}},
      {15, {0, 400}},
      {16, {0, 200}}}},
    {{ftDecision},
     {{1, {400, 200}},
      {3, {800, 0}},
      {5, {1200, 200}},
      {7, {1600, 400}},
      {9, {1200, 600}},
      {11, {800, 800}},
      {13, {400, 600}},
      {15, {0, 400}}}},
    {{ftData},
     {{2, {200, 0}},
      {3, {900, 0}},
      {5, {1600, 0}},
      {7, {1500, 400}},
      {10, {1400, 800}},
      {11, {700, 800}},
      {13, {0, 800}},
      {15, {100, 400}}}},
    {{ftEllipse},
     {{2, {234, 117}},
      {3, {800, 0}},
      {4, {1366, 117}},
      {7, {1600, 400}},
      {10, {1366, 683}},
      {11, {800, 800}},
      {12, {234, 683}},
      {15, {0, 400}}}},
    {{ftStart},
     {{2, {200, 0}},
      {3, {800, 0}},
      {4, {1400, 0}},
      {7, {1600, 400}},
      {10, {1400, 800}},
      {11, {800, 800}},
      {12, {200, 800}},
      {15, {0, 400}}}},
    {{ftStep, ftEnd},
     {{1, {0, 0}},
      {3, {800, 0}},
      {4, {1400, 0}},
      {7, {1600, 400}},
      {10, {1400, 800}},
      {11, {800, 800}},
      {13, {0, 800}},
      {15, {200, 400}}}},
};

TEST(FlowPosition, EveryOutlineHasItsOwn) {
  for (const TFamily& family : Families) {
    for (const TZORFlowType type : family.types) {
      std::vector<std::pair<int, TZORBase>> found;
      for (std::uint16_t pos = 0; pos <= 17; ++pos) {
        TZORBase point{-7, -7};
        if (FlowPosition(type, Bounds, pos, point)) {
          found.emplace_back(pos, point);
        } else {
          EXPECT_EQ(point, (TZORBase{-7, -7}));
        }
      }
      EXPECT_TRUE(found == family.positions) << "type " << type;
    }
  }
}

TEST(FlowPosition, PartsAreCutToWholeBasePointsBeforeTheyAreMultiplied) {
  TZORBase point;
  ASSERT_TRUE(FlowPosition(ftData, {5, 7, 5 + 1003, 7 + 501}, 3, point));
  EXPECT_EQ(point, (TZORBase{5 + 9 * 62, 7}));
  ASSERT_TRUE(FlowPosition(ftProcess, {5, 7, 5 + 1003, 7 + 503}, 8, point));
  EXPECT_EQ(point, (TZORBase{5 + 1003, 7 + 503 - 125}));
}

TEST(FlowPosition, WhatIsOfferedExists) {
  for (int i = 0; i < EnumCount<TZORFlowType>; ++i) {
    const auto type = static_cast<TZORFlowType>(i);
    for (const std::uint8_t pos : FlowOffers(type)) {
      TZORBase point;
      EXPECT_TRUE(FlowPosition(type, Bounds, pos, point)) << i << " " << int{pos};
    }
  }
}

/// A click near a node, and the link position that it finds; 0 for none.
struct TClick {
  TZORFlowType type;
  Int64 x, y;
  int found;
};

TEST(Flow, CheckLinkFindsThePositionAtAClick) {
  const TClick clicks[] = {
      {ftProcess, 9100, 19100, 1},            // outside, within the reach of a millimetre
      {ftProcess, 9000, 19000, 1},            //
      {ftProcess, 8999, 20000, 0},            //
      {ftProcess, 70999, 60999, 9},           //
      {ftProcess, 71000, 60000, 0},           // the far edge of the reach is outside
      {ftProcess, 40000, 40000, 0},           // the middle belongs to no position
      {ftProcess, 25000, 60000, 12},          //
      {ftDocument, 25000, 60000, 0},          // known, not offered
      {ftStart, 55000, 20000, 0},             // likewise
      {ftStart, 40000, 20000, 3},             //
      {ftDecision, 25000, 30000, 1},          //
      {ftDecision, 40000 - 14900, 20500, 3},  // a middle of twice the reach
      {ftDecision, 25000, 29000, 1},          // in the boxes of 1 and 3: the corners come first
      {ftEllipse, 40000 + 21213, 40000 - 14142, 4},
      {ftTerminator, 10000, 20000, 0},
      {ftEnd, 17500, 40000, 15},
  };
  for (const TClick& click : clicks) {
    TBareLabel doc;
    const TKDXBaseFlow* node = NewNode(doc, click.type);
    TZOLink link;
    const TZOLink untouched = link;
    EXPECT_EQ(node->CheckLink(click.x, click.y, link), click.found != 0) << click.x << " " << click.y;
    if (click.found == 0) {
      EXPECT_EQ(link, untouched) << click.x << " " << click.y;
      continue;
    }
    const TZORBase point = node->LinkPoint(static_cast<std::uint16_t>(click.found));
    EXPECT_EQ(link.PosFrom, click.found) << click.x << " " << click.y;
    EXPECT_EQ(link.PosTo, TZOLink::NoPos);
    EXPECT_EQ(link.ID, node->fInID);
    EXPECT_TRUE(link.draw);
    EXPECT_EQ((TZORBase{link.bX, link.bY}), point);
  }
}

TEST(Flow, TheSecondLinkPositionIsTheFarEnd) {
  TBareLabel doc;
  const TKDXBaseFlow* node = NewNode(doc, ftStart);
  TZOLink link;
  EXPECT_TRUE(node->CheckLink(10000, 40000, link));
  EXPECT_FALSE(node->CheckLink(40000, 60000, link));
  EXPECT_TRUE(node->CheckLink(70000, 40000, link));
  EXPECT_EQ(link.PosFrom, 15);
  EXPECT_EQ(link.PosTo, 7);
  EXPECT_EQ(node->LinkPoint(11), (TZORBase{40000, 60000}));  // not offered, but known
  EXPECT_EQ(node->LinkPoint(1), node->CenterPoint());
}

// SVG -------------------------------------------------------------------------------

TSvgList Svg(const TKDXBaseItem& aItem, TZORExportSVG aMode = svCurrentUnit, Single aFactor = 1,
             bool aID = false) {
  TSvgList svg, defs;
  aItem.WriteSVG(svg, defs, aMode, aFactor, aID);
  EXPECT_TRUE(defs.empty());
  return svg;
}

struct TOutlineRow {
  TZORFlowType type;
  std::vector<std::string> elements;  ///< paint is put in place of $
};

// In a box of 60 mm by 40 mm at (10, 20).
const TOutlineRow OutlineRows[] = {
    {ftTerminator, {R"(<rect x="10" y="20" width="60" height="40"  rx="20" $)"}},
    {ftProcess, {R"(<rect x="10" y="20" width="60" height="40" $)"}},
    {ftDocument, {R"(<path d="M10,60 Q25 66.67 40 60 Q55 53.33 70 60 L70 20 L10 20 L10 60 Z" $)"}},
    {ftMultiDocument,
     {R"(<polygon points="14,20 70,20 70,56 68,56 68,22 14,22 14,20" $)",
      R"(<polygon points="12,22 68,22 68,58 66,58 66,24 12,24 12,22" $)",
      R"(<path d="M10,60 Q25 66.67 40 60 Q55 53.33 66 60 L66 24 L10 24 L10 60 Z" $)"}},
    {ftDecision, {R"(<polygon points="40,20 70,40 40,60 10,40" $)"}},
    {ftData, {R"(<polygon points="17.50,20 70,20 62.50,60 10,60" $)"}},
    {ftDatabase, {R"(<path d="M10,58 L10 22 Q40 18 70 22 L70 58 Q40 62 10 58 Z" $)"}},
    {ftPredefined,
     {R"(<rect x="10" y="20" width="60" height="40" $)",
      R"(<line x1="14" y1="20" x2="14" y2="60"  stroke="#000000" stroke-width="0.1"/>)",
      R"(<line x1="66" y1="20" x2="66" y2="60"  stroke="#000000" stroke-width="0.1"/>)"}},
    {ftManualInput, {R"(<polygon points="10,25 70,20 70,60 10,60" $)"}},
    {ftManualOperation, {R"(<polygon points="10,20 70,20 62.50,60 17.50,60" $)"}},
    {ftPreparation, {R"(<polygon points="25,20 55,20 70,40 55,60 25,60 10,40" $)"}},
    {ftEllipse, {R"(<ellipse cx="40" cy="40" rx="30" ry="20" $)"}},
    {ftStart, {R"(<path d="M17.50,20 L62.50 20 L70 40 L62.50 60 L17.50 60 C10 50 10 30 17.50 20 Z" $)"}},
    {ftStep, {R"(<polygon points="10,20 62.50,20 70,40 62.50,60 10,60 17.50,40 10,20" $)"}},
    {ftEnd, {R"(<path d="M10,20 L62.50 20 C70 30 70 50 62.50 60 L10 60 L17.50 40 Z" $)"}},
};

TEST(Flow, SvgShowsEachOutline) {
  ASSERT_EQ(std::size(OutlineRows), std::size_t{EnumCount<TZORFlowType>});
  for (const TOutlineRow& row : OutlineRows) {
    TBareLabel doc;
    TKDXBaseFlow* node = NewNode(doc, row.type);
    for (const bool filled : {true, false}) {
      node->SetFilled(filled);
      const std::string paint = std::string(filled ? " fill=\"#FFFFFF\"" : " fill=\"none\" ") +
                                "  stroke=\"#000000\" stroke-width=\"0.1\"/>";
      TSvgList expected;
      for (std::string element : row.elements) {
        if (element.back() == '$') element.replace(element.size() - 1, 1, paint);
        expected.push_back(element);
      }
      EXPECT_EQ(Svg(*node), expected) << "type " << row.type;
    }
  }
}

TEST(Flow, OnlyTheMainOutlineCarriesTheName) {
  for (const auto& [type, named] : {std::pair(ftMultiDocument, 2), std::pair(ftPredefined, 0)}) {
    TBareLabel doc;
    TKDXBaseFlow* node = NewNode(doc, type);
    node->SetID("A");
    const TSvgList svg = Svg(*node, svCurrentUnit, 1, true);
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(svg[static_cast<std::size_t>(i)].find(" id=\"A\" ") != std::string::npos, i == named);
    }
  }
}

TEST(Flow, SvgIsInTheUnitOfTheDocument) {
  TBareLabel doc;
  doc.SetUnits(unINCH);
  TKDXBaseFlow* node = doc.NewFlow(25400, 50800, 76200, 50800, ftProcess);
  node->SetPenWidth(2.54F);
  EXPECT_EQ(Svg(*node, svFactorPx, 10).front().substr(0, 47),
            R"(<rect x="10" y="20" width="30" height="20"  fil)");
  EXPECT_NE(Svg(*node, svFactorPx, 10).front().find(R"(stroke-width="0.1")"), std::string::npos);
}

TEST(Flow, SvgShowsTheStoredLines) {
  TBareLabel doc;
  TKDXBaseFlow* node = NewNode(doc, ftProcess);
  node->fText = "\xC3\xA9\xF0\x9F\x99\x82 <b>\r\nend";
  node->fAscent = 4500;
  node->fBold = true;
  node->aTxtPoints = {{1, 6, 1000, 2000}, {3, 99, 0, 7250}, {-4, 1, 0, 0}, {40, 5, 0, 0}, {2, -1, 0, 0}};
  const auto text = [](const char* at, const char* shown) {
    return std::string("<text ") + at +
           " font-family=\"Arial\" font-weight=\"bold\" font-size=\"5\"  fill=\"#000000\""
           " xml:space=\"preserve\">" +
           shown + "</text>";
  };
  const TSvgList svg = Svg(*node);
  ASSERT_EQ(svg.size(), 6U);
  EXPECT_EQ(svg[1], text(R"(x="11" y="26.50")", "\xC3\xA9\xF0\x9F\x99\x82 &lt;b&gt;"));
  EXPECT_EQ(svg[2], text(R"(x="10" y="31.75")", " &lt;b&gt;\nend"));
  EXPECT_EQ(svg[3], text(R"(x="10" y="24.50")", "\xC3\xA9"));
  EXPECT_EQ(svg[4], text(R"(x="10" y="24.50")", ""));
  EXPECT_EQ(svg[5], text(R"(x="10" y="24.50")", ""));
  node->fText.clear();
  EXPECT_EQ(Svg(*node).size(), 1U);
}

TEST(Flow, OverlappingLinesOfAFileDoNotMakeAHugeDrawing) {
  TBareLabel doc;
  TKDXBaseFlow* node = NewNode(doc, ftProcess);
  node->fText = std::string(10000, 'a');
  node->aTxtPoints.assign(10000, {1, 10000, 0, 0});
  std::size_t bytes = 0;
  for (const std::string& line : node->LineTexts()) bytes += line.size();
  EXPECT_LE(bytes, 3 * node->fText.size());
}

// Properties and files ----------------------------------------------------------------

TEST(Flow, SettersHoldTheirLimits) {
  TBareLabel doc;
  TKDXBaseFlow* node = NewNode(doc, ftProcess);
  const std::pair<Single, Single> spacings[] = {{5, 4}, {4, 4}, {2.5F, 2.5F}, {0.2F, 0.2F}, {-1, 0.2F}};
  for (const auto& [set, held] : spacings) {
    node->SetScaleX(set);
    EXPECT_EQ(node->GetScale(), held);
  }
  EXPECT_TRUE(node->fChanged);
  node->SetFontHeight(0.5F);
  EXPECT_EQ(node->fFontHeight, 1000);
  node->SetPaddingX(-1);
  node->SetPaddingY(1.5F);
  EXPECT_EQ(node->fPaddingX, 0);
  EXPECT_EQ(node->fPaddingY, 1500);
  node->SetText("a\xFF");
  EXPECT_EQ(node->fText, "a\xEF\xBF\xBD");
}

TKDXBaseFlow& Read(TBareLabel& aDoc, const std::string& aText) {
  const auto json = TJsonBaseObject::Parse(aText);
  aDoc.BeginRead(false);
  TKDXBaseItem& item = aDoc.ReadJsonItem(FormatVersion, static_cast<TJsonObject&>(*json));
  aDoc.EndRead(false);
  return dynamic_cast<TKDXBaseFlow&>(item);
}

std::string Json(const TKDXBaseItem& aItem) { return aItem.WriteJson()->ToJSON(true); }

std::string With(std::string aText, const std::string& aOld, const std::string& aNew) {
  const std::size_t at = aText.find(aOld);
  return at == std::string::npos ? "" : aText.replace(at, aOld.size(), aNew);
}

TEST(Flow, JsonIsHeldToTheSameLimits) {
  TBareLabel doc, other;
  const std::string json = Json(*NewNode(doc, ftEnd));
  EXPECT_EQ(Read(other, With(json, R"("Interline":1)", R"("Interline":5)")).fInterline, 4);
  EXPECT_EQ(Read(other, With(json, R"("PaddingX":0)", R"("PaddingX":-2)")).fPaddingX, 0);
  EXPECT_EQ(Read(other, With(json, R"("PaddingY":0)", R"("PaddingY":2)")).fPaddingY, 2000);
  EXPECT_EQ(Read(other, With(json, R"("FontHeight":5)", R"("FontHeight":0.5)")).fFontHeight, 1000);
  EXPECT_EQ(Read(other, json).fFlowType, ftEnd);
  EXPECT_THROW(Read(other, With(json, R"("FlowType":14)", R"("FlowType":15)")), EJsonException);
}

TEST(Flow, JsonKeysStandInOrder) {
  TBareLabel doc;
  TKDXBaseFlow* node = NewNode(doc, ftData);
  node->aTxtPoints = {{1, 2, 3, -4}};
  node->SetShadowDY(0.25F);
  const std::string json = Json(*node);
  const std::string tail =
      R"("FlowType":5,"LineType":0,"HorzAlign":1,"VertAlign":0,"PaddingX":0,"PaddingY":0,)"
      R"("ShadowColor":{"R":192,"G":192,"B":192,"A":255},"ShadowDX":0,"ShadowDY":0.25,"Gradient":0,)"
      R"("GradColor":{"R":0,"G":0,"B":0,"A":0},"Font":{"Name":"Arial","Bold":false,"Italic":false,)"
      R"("Underline":false,"Strikeout":false,"FontHeight":5,"FontColor":{"R":0,"G":0,"B":0,"A":255}},)"
      R"("Interline":1,"Text":"","TextPos":[{"FromPos":1,"ToPos":2,"BaseX":3,"BaseY":-4}]})";
  ASSERT_GT(json.size(), tail.size());
  EXPECT_EQ(json.substr(json.find("\"FlowType\"")), tail);
}

/// Written in the unit of the document, read as millimetres.
TEST(Flow, PaddingInJsonForgetsTheUnit) {
  TBareLabel doc, other;
  doc.SetUnits(unINCH);
  TKDXBaseFlow* node = NewNode(doc, ftProcess);
  node->SetPaddingX(25.4F);
  EXPECT_EQ(Read(other, Json(*node)).fPaddingX, 1000);
}

std::string Bytes(const TKDXBaseItem& aItem) {
  std::string bytes;
  TBinaryWriter writer(bytes);
  writer.WriteInt32(FormatVersion);
  aItem.WriteData(writer);
  return bytes;
}

TEST(Flow, ARecordWithMoreLinesThanBytesIsRefused) {
  TBareLabel doc, other;
  TKDXBaseFlow* node = NewNode(doc, ftProcess);
  node->aTxtPoints = {{1, 2, 3, 4}};
  std::string bytes = Bytes(*node);
  const std::size_t count = bytes.size() - 24 - 4;
  ASSERT_EQ(bytes[count], 1);
  for (const char more : {'\2', '\x7F'}) {
    bytes[count + (more == '\2' ? 0 : 3)] = more;
    other.BeginRead(false);
    EXPECT_THROW(other.CreateElementFromStream(bytes), EReadError);
    other.EndRead(false);
  }
}

}  // namespace
}  // namespace Zor
