#include <gtest/gtest.h>

#include <algorithm>

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/TKDXMeasure.hpp"
#include "kaldrix/core/TKDXSettings.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/utils/TExSVG.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

std::string Json(const TKDXBaseItem& aItem) { return aItem.WriteJson()->ToJSON(false); }

/// Two points, which give every link position the same place, and a link between them.
struct TLinked {
  TLinked(TZORPto aFrom, TZORPto aTo, TZOLinkType aType, int aFromPos = 0, int aToPos = 0)
      : from(doc.NewPoint(aFrom.bX, aFrom.bY)),
        to(doc.NewPoint(aTo.bX, aTo.bY)),
        link(doc.NewLink(from->fInID, to->fInID, aFromPos, aToPos, aType)) {
    doc.CalcPending();
    doc.Clear({cleUndoRedo}, false);
  }

  std::string Svg() const {
    TSvgList svg, defs;
    link->WriteSVG(svg, defs, svCurrentUnit, 1, false);
    std::string text;
    for (const std::string& line : svg) text += line + "\n";
    return text;
  }

  TBareLabel doc;
  TKDXBasePoint *from, *to;
  TKDXBaseLink* link;
};

constexpr TZORPto Upper{10000, 20000}, Lower{70000, 80000};

// Routes ----------------------------------------------------------------------------

TEST(Link, StepsFollowTheSidesOfTheirPositions) {
  struct {
    int fromPos, toPos;
    TZORPto from, to;
    TZORPtoA inner;
  } const cases[] = {
      {0, 0, Upper, {30000, 40001}, {{20000, 20000}, {20000, 40001}}},
      {0, 51, {10000, 9000}, {30001, 9000}, {}},
      {52, 0, {10000, 9000}, {10000, 12000}, {}},
      {3, 3, {10000, 20000}, {30000, 14000}, {{10000, 9000}, {30000, 9000}}},
      {7, 15, {30001, 20000}, {10000, 14000}, {{20000, 20000}, {20000, 14000}}},
      {7, 15, {10000, 20000}, {30000, 20000}, {}},
      {5, 13, Upper, Lower, {{40000, 20000}, {40000, 80000}}},  // corners: right before top
      {11, 11, {10000, 20000}, {30000, 14000}, {{10000, 25000}, {30000, 25000}}},
      {11, 11, {10000, 14000}, {30000, 14000}, {{10000, 19000}, {30000, 19000}}},
      {3, 15, Upper, Lower, {{10000, 80000}}},
      {3, 1, Upper, Lower, {{10000, 15000}, {70000, 15000}}},  // that corner is on top too
      {3, 11, {10000, 10000}, {30000, 20001}, {{10000, 15001}, {30000, 15001}}},
      {7, 3, Upper, Lower, {{70000, 20000}}},
      {11, 3, {10000, 10000}, {30000, 20001}, {{10000, 15000}, {30000, 15000}}},
      {3, 7, Upper, Lower, {{10000, 80000}}},
      {15, 7, Upper, Lower, {}},  // no run is known: straight
      {0, 7, Upper, Lower, {}},
  };
  for (const auto& c : cases) {
    const TLinked linked(c.from, c.to, ltStepLineTwoPto, c.fromPos, c.toPos);
    EXPECT_EQ(linked.link->fLinkPoints, c.inner) << c.fromPos << " to " << c.toPos;
  }
  TLinked kept(Upper, Lower, ltStepLineTwoPto, 7, 3);
  kept.link->SetToIndex(7);
  kept.doc.CalcPending();
  EXPECT_EQ(kept.link->fLinkPoints, (TZORPtoA{{70000, 20000}}));
}

TEST(Link, EachRoutingHasItsPoints) {
  const TZORPtoA round{{13000, 20000}, {16000, 20000}, {19000, 20000}, {39000, 20750}, {39250, 21000},
                       {40000, 44000}, {40000, 47000}, {40000, 53000}, {40000, 56000}, {40750, 79000},
                       {41000, 79250}, {61000, 80000}, {64000, 80000}, {67000, 80000}};
  TZORPtoA mirrored;
  for (const TZORPto& p : round) mirrored.push_back({80000 - p.bX, 100000 - p.bY});
  struct {
    TZOLinkType type;
    TZORPto from, to;
    TZORPtoA inner;
    TZORRect bounds;
  } const cases[] = {
      {ltDirLine, Lower, Upper, {}, {10000, 20000, 70000, 80000}},
      {ltCurve, Upper, Lower, {}, {10000, 20000, 70000, 80000}},
      {ltPolyline, Upper, Lower, {}, {10000, 20000, 70000, 80000}},
      {ltLeftRightTopBottom, Upper, Lower, {{70000, 20000}}, {10000, 20000, 70000, 80000}},
      {ltLeftRightTopBottom, Upper, {70000, 20000}, {}, {10000, 20000, 70000, 20000}},
      {ltTopBottomLeftRight, Upper, Lower, {{10000, 80000}}, {10000, 20000, 70000, 80000}},
      {ltTopBottomLeftRight, Upper, {70000, 20000}, {}, {10000, 20000, 70000, 20000}},
      {ltArc, {10000, 20000}, {20001, 20000}, {{15000, 15000}}, {10000, 15000, 20001, 20000}},
      {ltRoundCorner, Upper, Lower, round, {10000, 20000, 70000, 80000}},
      {ltRoundCorner, Lower, Upper, mirrored, {10000, 20000, 70000, 80000}},
      {ltRoundCorner, Upper, Upper, TZORPtoA(14, Upper), {10000, 20000, 10000, 20000}},
  };
  for (const auto& c : cases) {
    const TLinked linked(c.from, c.to, c.type);
    EXPECT_EQ(linked.link->fLinkPoints, c.inner) << int{c.type};
    EXPECT_EQ(linked.link->fBoundsRect, c.bounds) << int{c.type};
  }
}

TEST(Link, AnArcPassesItsThreePointsAndIsStraightWithoutACircle) {
  const TLinked half({10000, 20000}, {20000, 20000}, ltArc);
  EXPECT_EQ(half.link->fCx, 15000);
  EXPECT_EQ(half.link->fCy, 20000);
  EXPECT_EQ(half.link->fRadio, 5000);
  EXPECT_TRUE(half.link->fClockWise);
  const TLinked upright({10000, 20000}, {10000, 40000}, ltArc);
  EXPECT_EQ(upright.link->Form(), lfLine);
  EXPECT_TRUE(upright.link->Pick(10000, 30000, 100, true));
}

TEST(Link, SettersHoldTheirValues) {
  TLinked linked(Upper, Lower, ltDirLine, -3, 3);
  TKDXBaseLink& link = *linked.link;
  EXPECT_EQ(link.fFromIndex, 0);
  link.SetFromIndex(2);
  link.SetFromIndex(-5);
  EXPECT_EQ(link.fFromIndex, 0);
  EXPECT_FALSE(link.SetLinkPoint(1, 1, 1));
  link.SetLinkType(ltArc);
  linked.doc.CalcPending();
  EXPECT_EQ(link.GetNumLinkPoints(), 1);
  EXPECT_TRUE(link.SetLinkPoint(1, 50, 20));
  EXPECT_EQ(link.GetLinkPoint(1), (TZORPto{50000, 20000}));
  EXPECT_EQ(link.GetLinkPointMMX(1), 50);
  EXPECT_FALSE(link.SetLinkPoint(1, 50, 20));
  const Int64 radius = link.fRadio;
  EXPECT_TRUE(link.MoveBasePoint(1, 1000, -5000));
  EXPECT_EQ(link.GetLinkPoint(1), (TZORPto{51000, 15000}));
  EXPECT_NE(link.fRadio, radius);
  EXPECT_FALSE(link.MoveBasePoint(2, 1, 1));
  EXPECT_EQ(link.GetLinkPoint(2), TZORPto{});
  link.SetToID(linked.from->fInID);
  linked.doc.CalcPending();
  EXPECT_EQ(link.p2, (TZORBase{10000, 20000}));
  EXPECT_EQ(link.CenterPoint(), TZORBase{});
  link.SetToID(linked.to->fInID);
  EXPECT_EQ(link.CenterPoint(), (TZORBase{30000, 30000}));
}

// Picking ---------------------------------------------------------------------------

TEST(Link, IsHitOnItsRoute) {
  struct {
    TZOLinkType type;
    TZORPto from, to, at;
    bool hit;
  } const cases[] = {
      {ltDirLine, Upper, Lower, {40000, 50000}, true},
      {ltDirLine, Upper, Lower, {40000, 50143}, false},
      {ltDirLine, Upper, {10000, 60000}, {10050, 30000}, true},
      {ltDirLine, Upper, {10000, 60000}, {10050, 60001}, false},  // beyond the end, inside the tolerance
      {ltDirLine, Upper, {50000, 20000}, {50001, 20000}, false},
      {ltLeftRightTopBottom, Upper, Lower, {40000, 20099}, true},
      {ltLeftRightTopBottom, Upper, Lower, {69901, 60000}, true},
      {ltLeftRightTopBottom, Upper, Lower, {40000, 50000}, false},
      {ltLeftRightTopBottom, Upper, {70000, 20000}, {40000, 20000}, false},  // no inner point
      {ltTopBottomLeftRight, Upper, Lower, {10000, 50000}, true},
      {ltStepLineTwoPto, Upper, Lower, {40000, 50000}, true},
      {ltStepLineTwoPto, Upper, Lower, {60000, 50000}, false},
      {ltArc, {10000, 20000}, {20000, 20000}, {15000, 15050}, true},
      {ltArc, {10000, 20000}, {20000, 20000}, {15000, 19950}, false},
      {ltCurve, Upper, Lower, {40000, 50000}, true},
      {ltCurve, Upper, Lower, {60000, 50000}, false},
      {ltRoundCorner, Upper, Lower, {16000, 20000}, true},
      {ltRoundCorner, Upper, Lower, {40000, 50000}, false},
  };
  for (const auto& c : cases) {
    const TLinked linked(c.from, c.to, c.type);
    EXPECT_EQ(linked.link->Pick(c.at.bX, c.at.bY, 100, false), c.hit)
        << int{c.type} << " at " << c.at.bX << ", " << c.at.bY;
  }
}

TEST(Link, AFreeRouteTakesPointsWhereItIsHit) {
  TLinked linked(Upper, Lower, ltDirLine);
  EXPECT_FALSE(linked.link->InsertPoint(40000, 50000, 100));
  linked.link->SetLinkType(ltPolyline);
  EXPECT_FALSE(linked.link->InsertPoint(40000, 60000, 100));
  ASSERT_TRUE(linked.link->InsertPoint(40000, 50000, 100));
  ASSERT_TRUE(linked.link->SetBasePoint(1, 40000, 20000, true));
  ASSERT_TRUE(linked.link->InsertPoint(20000, 20000, 100));
  EXPECT_EQ(linked.link->fLinkPoints, (TZORPtoA{{20000, 20000}, {40000, 20000}}));
  linked.link->SetBasePoint(1, 20000, 90000, true);
  EXPECT_EQ(linked.link->fBoundsRect, (TZORRect{10000, 20000, 70000, 90000}));
  linked.from->BaseMove(-1000, 0, 0, 0, moAll, true);
  linked.doc.CalcPending();
  EXPECT_EQ(linked.link->fLinkPoints, (TZORPtoA{{20000, 90000}, {40000, 20000}}));
  EXPECT_EQ(linked.link->fBoundsRect.Left, 9000);
}

TEST(Link, ANodeIsFoundAtItsPosition) {
  TLinked linked(Upper, Lower, ltDirLine);
  TZOLink link;
  EXPECT_FALSE(linked.doc.SearchLink(40000, 50000, link, true));
  ASSERT_TRUE(linked.doc.SearchLink(10500, 20500, link, true));
  EXPECT_EQ(link.ID, linked.from->fInID);
  EXPECT_EQ(link.PosFrom, 0);
  ASSERT_TRUE(linked.doc.SearchLink(70000, 80000, link, false));
  EXPECT_EQ(link.ID, linked.to->fInID);
  EXPECT_EQ(link.PosTo, 0);
  linked.to->SetOptions({lopVisible});
  EXPECT_FALSE(linked.doc.SearchLink(70000, 80000, link, false));
}

// SVG -------------------------------------------------------------------------------

TEST(Link, SvgOfEachRouting) {
  const std::string stroke = "\"  stroke=\"#000000\"";
  const std::string noFill = stroke + " fill=\"none\" stroke-width=\"0.1\"/>\n";
  const std::string line = "<line x1=\"10\" y1=\"20\" x2=\"70\" y2=\"";
  struct {
    TZOLinkType type;
    TZORPto from, to;
    std::string svg;
  } const cases[] = {
      {ltDirLine, Upper, Lower, line + "80" + stroke + " stroke-width=\"0.1\"/>\n"},
      {ltTopBottomLeftRight, Upper, {70000, 20000}, line + "20" + stroke + " stroke-width=\"0.1\"/>\n"},
      {ltLeftRightTopBottom, Upper, Lower, "<polyline points=\"10,20 70,20 70,80" + noFill},
      {ltStepLineTwoPto, Upper, Lower, "<polyline points=\"10,20 40,20 40,80 70,80" + noFill},
      {ltArc, {10000, 20000}, {20000, 20000}, "<path d=\"M 10,20 A 5,5 0 0,1 20,20" + noFill},
      {ltCurve, Upper, Lower,
       "<path d=\"M 10,20 C40 20 40 80 70,80" + stroke + " stroke-width=\"0.1\" fill=\"transparent\"/>\n"},
      {ltRoundCorner, Upper, Lower,
       "<path d=\"M 10,20 C 13,20 16,20 19,20 39,20.75 39.25,21 40,44 40,47 40,53 40,56 40.75,79 41,79.25 "
       "61,80 64,80 67,80 70,80" +
           stroke + " fill=\"none\" stroke-width=\"0.1\"" + std::string(TExSVG::GetCap(true)) + "/>\n"},
  };
  for (const auto& c : cases) {
    const TLinked linked(c.from, c.to, c.type);
    EXPECT_EQ(linked.Svg(), c.svg);
  }
  const TLinked dashed(Upper, Lower, ltLeftRightTopBottom);
  dashed.link->SetLineType(ii33);
  EXPECT_NE(dashed.Svg().find("stroke-width=\"0.1\"" + std::string(TExSVG::GetLineStyle(ii33)) + "/>"),
            std::string::npos);
}

/// Intended: chains are written in the document's unit inside and in millimetres at their ends.
TEST(Link, AChainInInchesMixesItsUnits) {
  TLinked linked({25400, 25400}, {50800, 76200}, ltLeftRightTopBottom);
  linked.doc.SetUnits(unINCH);
  EXPECT_NE(linked.Svg().find("points=\"25.40,25.40 2,1 50.80,76.20\""), std::string::npos) << linked.Svg();
}

TEST(Link, TerminatorsStandAtTheEndsAlongTheRoute) {
  struct {
    TZOLinkType type;
    double fromX, fromY, toX, toY;  ///< where the stroke comes from at either end, mm
  } const cases[] = {{ltDirLine, 70, 80, 10, 20},
                     {ltCurve, 70, 80, 10, 20},
                     {ltLeftRightTopBottom, 70, 20, 70, 20},
                     {ltStepLineTwoPto, 40, 20, 40, 80},
                     {ltRoundCorner, 13, 20, 67, 80}};
  for (const auto& c : cases) {
    const TLinked linked(Upper, Lower, c.type);
    linked.doc.fSettings->fTermColor = 0xFF112233;
    linked.link->SetFromType(ttArrow);
    linked.link->SetToType(ttFillCircle);
    linked.link->SetToColor(0xFF00FF00);
    const auto term = [&](TZORTermType type, double x, double y, double bx, double by, TAlphaColor fill) {
      return TExSVG::DrawTerm(type, svCurrentUnit, x, y, bx, by, 0.1F, 1, 2.5, 0xFF112233, fill, 8, false) +
             "\n";
    };
    const std::string svg = linked.Svg();
    EXPECT_EQ(svg.substr(svg.find('\n') + 1), term(ttArrow, 10, 20, c.fromX, c.fromY, ColorWhite) +
                                                  term(ttFillCircle, 70, 80, c.toX, c.toY, 0xFF00FF00));
  }
}

TEST(Link, ArrowsOnAnArcPointOutOfIt) {
  constexpr double pi = 3.14159265358979323846;
  const TLinked clockwise({10000, 20000}, {20000, 20000}, ltArc),
      against({20000, 20000}, {10000, 20000}, ltArc);
  for (const TKDXBaseLink* link : {clockwise.link, against.link}) {
    for (const TLinkTerm& term : link->Terms()) {
      EXPECT_TRUE(term.isArc);
      EXPECT_EQ(term.color, link->fColor);
      // Over the top of a half circle, both ends point down.
      EXPECT_NEAR(std::fmod(term.direction + 2 * pi, 2 * pi), pi / 2, 1e-9);
    }
  }
}

TEST(Link, ArrowHeadsFollowTheSideOfTheirPosition) {
  const TLinked step(Upper, Lower, ltStepLineTwoPto), direct(Upper, Lower, ltDirLine);
  const TZORBase tip{70000, 80000}, before{70000, 20000};
  struct {
    int pos, posFrom;
    TZORAngle angle;
  } const cases[] = {{2, 0, ag270}, {4, 0, ag270}, {6, 0, ag180}, {8, 9, ag180}, {10, 0, ag90}, {12, 1, ag90},
                     {14, 0, ag0},  {16, 3, ag0},  {1, 3, ag270}, {5, 5, ag270}, {5, 7, ag0},   {9, 3, ag0}};
  struct TWings {
    Int64 x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    bool operator==(const TWings&) const = default;
  };
  for (const auto& c : cases) {
    TWings made, wanted;
    step.link->Arrow(tip, before, c.pos, c.posFrom, 0, 2000, made.x1, made.y1, made.x2, made.y2);
    TDraw2D::DrawArrow(tip.X, tip.Y, 2000, c.angle, wanted.x1, wanted.y1, wanted.x2, wanted.y2, 8);
    EXPECT_EQ(made, wanted) << c.pos << " from " << c.posFrom;
  }
  TWings made;
  direct.link->Arrow(tip, before, 7, 0, 0, 2000, made.x1, made.y1, made.x2, made.y2);
  EXPECT_LT(made.y1, tip.Y);  // the wings lie where the line comes from
  EXPECT_EQ(made.y1, made.y2);
}

// Files -----------------------------------------------------------------------------

void Load(TBareLabel& aDoc, const std::string& aText) {
  const auto json = TJsonBaseObject::Parse(aText);
  auto& object = static_cast<TJsonObject&>(*json);
  aDoc.BeginRead(false);
  TJsonArray& items = object.GetArray("Items");
  for (int i = 0; i < items.Count(); ++i) aDoc.ReadJsonItem(FormatVersion, items.GetObject(i));
  aDoc.EndRead(false);
}

/// The items in reverse order, so that links come before their nodes.
std::string Saved(const TBareLabel& aDoc) {
  std::string text = "{\"Items\": [";
  for (int i = aDoc.GetItemsCount(); i > 0; --i) text += Json(*aDoc.GetItem(i)) + (i > 1 ? "," : "]}");
  return text;
}

TEST(Link, EveryRoutingComesBackFromAFile) {
  for (int type = 0; type < EnumCount<TZOLinkType>; ++type) {
    TLinked linked(Upper, {20000, 24000}, static_cast<TZOLinkType>(type), 7, 3);
    if (type == ltPolyline) linked.link->InsertPoint(15000, 22000, 100);
    TBareLabel other;
    Load(other, Saved(linked.doc));
    ASSERT_EQ(other.GetItemsCount(), 3);
    EXPECT_EQ(Json(*other.GetItem(1)), Json(*linked.link)) << type;
    EXPECT_EQ(other.GetItem(1)->fBoundsRect, linked.link->fBoundsRect) << type;
    EXPECT_EQ(other.SVG(svCurrentUnit, 1, false), linked.doc.SVG(svCurrentUnit, 1, false)) << type;
  }
}

TEST(Link, AnArcThatWasDrawnStaysUntilANodeMoves) {
  TLinked linked(Upper, Lower, ltArc);
  ASSERT_TRUE(linked.link->SetBasePoint(1, 40000, 50000, true));
  TBareLabel straight;
  Load(straight, Saved(linked.doc));
  EXPECT_EQ(Json(*straight.GetItem(1)), Json(*linked.link));
  ASSERT_TRUE(linked.link->SetBasePoint(1, 50000, 30000, true));
  TBareLabel other;
  Load(other, Saved(linked.doc));
  auto* link = static_cast<TKDXBaseLink*>(other.GetItem(1));
  EXPECT_EQ(link->GetLinkPoint(1), (TZORPto{50000, 30000}));
  EXPECT_EQ(link->fRadio, linked.link->fRadio);
  other.SearchItem(linked.from->fInID, false)->BaseMove(2000, 0, 0, 0, moAll, true);
  other.CalcPending();
  EXPECT_EQ(link->GetLinkPoint(1), (TZORPto{41000, 75000}));
}

TEST(Link, WhatWasDrawnComesBackWithItsNodes) {
  struct {
    TZOLinkType type;
    TZORPto drawn;
  } const cases[] = {{ltArc, {50000, 30000}}, {ltArc, {40000, 50000}}, {ltStepLineTwoPto, {15000, 15000}}};
  for (const auto& c : cases) {
    TLinked linked(Upper, Lower, c.type);
    linked.link->SetBasePoint(1, c.drawn.bX, c.drawn.bY, true);
    const std::string before = linked.doc.GetJsonString(true);
    linked.from->BaseMove(1000, 0, 0, 0, moAll, true);
    linked.to->BaseMove(1000, 0, 0, 0, moAll, true);
    linked.doc.CalcPending();
    EXPECT_NE(linked.link->GetLinkPoint(1), c.drawn);
    linked.doc.Undo();
    EXPECT_NE(linked.link->GetLinkPoint(1), c.drawn);
    linked.doc.Undo();
    EXPECT_EQ(linked.doc.GetJsonString(true), before);
    linked.link->SetLinkType(ltDirLine);
    linked.link->SetLinkType(c.type);
    linked.doc.CalcPending();
    EXPECT_NE(linked.link->GetLinkPoint(1), c.drawn);
  }
}

TEST(Link, AFileWithoutARouteGetsOne) {
  for (const TZOLinkType type : {ltStepLineTwoPto, ltArc, ltRoundCorner}) {
    const TLinked linked(Upper, {20000, 24000}, type, 7, 3);
    const auto saved = TJsonBaseObject::Parse(Saved(linked.doc));
    TJsonObject& json = static_cast<TJsonObject&>(*saved).GetArray("Items").GetObject(0);
    for (const char* key : {"Radio", "Cx", "Cy", "Start", "End", "Sweep", "ClockWise", "LinkPoints"}) {
      ASSERT_NE(json.Find(key), nullptr);
      json.Remove(key);
    }
    TBareLabel other;
    Load(other, saved->ToJSON(true));
    EXPECT_EQ(Json(*other.GetItem(1)), Json(*linked.link));
  }
}

TEST(Link, BadValuesAreRefusedByName) {
  const TLinked linked(Upper, Lower, ltStepLineTwoPto);
  struct {
    const char *key, *value, *message;
  } const cases[] = {
      {"LinkType", "8", "\"LinkType\": 8 is not a known value"},
      {"FromType", "-1", "\"FromType\": -1 is not a known value"},
      {"ToIndex", "40000", "\"ToIndex\": 40000 is not between -32768 and 32767"},
      {"Cx", "9000000000000000000", "\"Cx\": the position is outside the coordinate range"},
      {"Sweep", "1e300", "\"Sweep\": the number is no angle"},
  };
  for (const auto& c : cases) {
    const auto json = linked.link->WriteJson();
    const auto value = TJsonBaseObject::Parse(std::string("{\"v\":") + c.value + "}");
    json->SetValue(c.key, static_cast<TJsonObject&>(*value).Find("v")->Clone());
    TBareLabel other;
    try {
      other.ReadJsonItem(FormatVersion, *json);
      ADD_FAILURE() << c.key;
    } catch (const EJsonException& e) {
      EXPECT_STREQ(e.what(), c.message);
    }
  }
}

// Nodes that go and move ------------------------------------------------------------

void ExpectAbsent(const TLinked& aLinked) {
  const TKDXBaseLink& link = *aLinked.link;
  EXPECT_EQ(aLinked.Svg(), "");
  EXPECT_EQ(link.fBoundsRect, TZORRect::EmptyRect());
  EXPECT_FALSE(link.Pick(40000, 20000, 100, true));
  EXPECT_FALSE(link.SearchRect({-1000, -1000, 900000, 900000}, false));
  EXPECT_EQ(link.CenterPoint(), TZORBase{});
  Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
  link.CheckFit(minX, maxX, minY, maxY);
  EXPECT_EQ(minX, -1);
}

TEST(Link, IsAbsentWithoutANodeAndComesBackWithIt) {
  for (int type = 0; type < EnumCount<TZOLinkType>; ++type) {
    for (const bool first : {true, false}) {
      TLinked linked(Upper, Lower, static_cast<TZOLinkType>(type), 7, 3);
      const std::string json = Json(*linked.link), svg = linked.Svg();
      const TZORRect bounds = linked.link->fBoundsRect;
      linked.doc.DeleteItem(first ? linked.from : linked.to, true);
      EXPECT_EQ(Json(*linked.link), json);
      ExpectAbsent(linked);
      linked.link->InsertPoint(40000, 50000, 100);
      linked.link->CalcLinkPoints(true);
      linked.doc.Undo();
      EXPECT_EQ(Json(*linked.link), json);
      EXPECT_EQ(linked.link->fBoundsRect, bounds);
      EXPECT_EQ(linked.Svg(), svg);
      linked.doc.Redo();
      linked.doc.Redo();
    }
  }
}

TEST(Link, AnEndThatCarriesNoLinksIsMissing) {
  TLinked linked(Upper, Lower, ltLeftRightTopBottom);
  linked.link->SetToID(linked.doc.NewLine(0, 0, 1000, 1000)->fInID);
  linked.doc.CalcPending();
  ExpectAbsent(linked);
  linked.link->SetToID(linked.link->fInID);
  linked.doc.CalcPending();
  ExpectAbsent(linked);
}

TEST(Link, GoesWithItsSelectedNodes) {
  TLinked linked(Upper, Lower, ltDirLine);
  TBareLabel& doc = linked.doc;
  const std::string json = Json(*linked.link);
  const int id = linked.link->fInID;
  doc.SetSelection(linked.from, isSelected);
  doc.FillLinkList();
  EXPECT_EQ(doc.fLinks, (std::vector<TKDXBaseItem*>{linked.link}));
  EXPECT_EQ(linked.link->fState, isSelected);
  doc.DeleteSelection();
  EXPECT_EQ(doc.GetItemsCount(), 1);
  doc.Undo();
  EXPECT_EQ(doc.GetItemsCount(), 2);  // the node alone
  EXPECT_EQ(doc.SearchItem(id, false), nullptr);

  // A link that is selected itself is recorded, and freed once.
  TLinked all(Upper, Lower, ltDirLine);
  for (TKDXBaseItem* item : all.doc.fItems) all.doc.AddToSelection(*item, false);
  all.doc.FillLinkList();
  all.doc.BeginUpdate(true);
  all.doc.DeleteSelection();
  all.doc.EndUpdate();
  EXPECT_EQ(all.doc.GetItemsCount(), 0);
  EXPECT_TRUE(all.doc.fLinks.empty());
  all.doc.Undo();
  ASSERT_EQ(all.doc.GetItemsCount(), 3);
  EXPECT_EQ(Json(*all.doc.SearchItem(id, false)), json);
}

TEST(Link, EachNodeTakesItsSelectedLinksAlong) {
  for (const bool selectsLinks : {false, true}) {
    TBareLabel doc;
    std::vector<int> nodes;
    for (int i = 0; i < 8; ++i) {
      nodes.push_back(doc.NewFlow(20000 * i, 0, 10000, 8000, ftProcess)->fInID);
      if (i > 0) doc.NewLink(nodes[static_cast<std::size_t>(i) - 1], nodes.back(), 0, 0, ltDirLine);
      if (i > 1) doc.NewLink(nodes.front(), nodes.back(), 0, 0, ltDirLine);
    }
    auto* moved = doc.NewLink(nodes[1], nodes[1], 0, 0, ltDirLine);
    for (TKDXBaseItem* item : doc.fItems) {
      if (selectsLinks || item->fItemType != itLink) doc.AddToSelection(*item, false);
    }
    doc.FillLinkList();
    for (const std::size_t next : {5U, 7U, 0U, 2U, 1U}) {
      std::size_t attached = 0;
      for (const TKDXBaseItem* link : doc.fLinks) {
        const auto [from, to] = link->EndIDs();
        if (from == nodes[next] || to == nodes[next]) ++attached;
      }
      EXPECT_GT(attached, 0U);
      const std::size_t links = doc.fLinks.size();
      const int items = doc.GetItemsCount();
      doc.DeleteItem(doc.SearchItem(nodes[next], false), true);
      EXPECT_EQ(doc.fLinks.size(), links - attached);
      EXPECT_EQ(doc.GetItemsCount(), items - 1 - static_cast<int>(attached));
      // Its ends change while it stands in the list.
      if (next != 5) continue;
      moved->SetToID(nodes[7]);
      moved->SetFromID(nodes[4]);
      moved->SetToID(nodes[1]);
    }
  }
}

TEST(Link, TheListOfLinksFollowsTheSelection) {
  TLinked linked(Upper, Lower, ltDirLine);
  TBareLabel& doc = linked.doc;
  doc.AddToSelection(*linked.link, false);
  doc.FillLinkList();
  EXPECT_TRUE(doc.fLinks.empty());
  doc.AddToSelection(*linked.to, false);
  doc.FillLinkList();
  EXPECT_EQ(doc.fLinks.size(), 1U);
  linked.to->fState = isNormal;
  std::erase(doc.fSelection, linked.to);
  doc.FillLinkList();
  EXPECT_TRUE(doc.fLinks.empty());
  EXPECT_TRUE(doc.Selected(*linked.link));
  doc.ClearSelection(false);
  EXPECT_FALSE(doc.Selected(*linked.link));
}

TEST(Link, FollowsAMoveOfANodeAndItsUndo) {
  for (int type = 0; type < EnumCount<TZOLinkType>; ++type) {
    for (const bool bracket : {true, false}) {
      TLinked linked(Upper, Lower, static_cast<TZOLinkType>(type), 11, 3);
      TBareLabel& doc = linked.doc;
      if (type == ltPolyline) linked.link->InsertPoint(40000, 50000, 100);
      const std::string before = doc.GetJsonString(true), svg = linked.Svg();
      if (bracket) doc.BeginUpdate(true);
      linked.from->BaseMove(0, 12000, 0, 0, moAll, true);
      if (bracket) doc.EndUpdate();
      EXPECT_NE(linked.Svg(), svg) << type;
      EXPECT_EQ(linked.link->fBoundsRect.Top, 32000) << type;
      const TLinked fresh({10000, 32000}, Lower, static_cast<TZOLinkType>(type), 11, 3);
      EXPECT_TRUE(type == ltPolyline || linked.link->fLinkPoints == fresh.link->fLinkPoints) << type;
      const std::string after = doc.GetJsonString(true);
      doc.Undo();
      EXPECT_EQ(doc.GetJsonString(true), before) << type;
      EXPECT_EQ(linked.Svg(), svg) << type;
      doc.Redo();
      EXPECT_EQ(doc.GetJsonString(true), after) << type;
    }
  }
}

TEST(Link, FollowsAFlowNode) {
  TBareLabel doc;
  auto* from = doc.NewFlow(10000, 10000, 40000, 20000, ftProcess);
  auto* to = doc.NewFlow(80000, 60000, 40000, 20000, ftProcess);
  auto* link = doc.NewLink(from->fInID, to->fInID, 7, 3, ltStepLineTwoPto);
  EXPECT_EQ(link->fLinkPoints, (TZORPtoA{{100000, 20000}}));
  from->SetWidth(50);
  to->BaseMove(10000, 0, 0, 0, moAll, true);
  doc.CalcPending();
  EXPECT_EQ(link->p1, (TZORBase{60000, 20000}));
  EXPECT_EQ(link->fLinkPoints, (TZORPtoA{{110000, 20000}}));
  to->SetFlowType(ftEnd);
  doc.CalcPending();
  EXPECT_EQ(link->p2, to->LinkPoint(3));
}

TEST(Link, AnInnerPointIsRecordedAndRestored) {
  TLinked linked(Upper, Lower, ltArc);
  const std::string before = Json(*linked.link);
  TKDXBasePosCmd::AddCommand(*linked.link, TKDXBasePosCmd::LinkKind, 1);
  linked.link->SetBasePoint(1, 50000, 30000, true);
  const std::string after = Json(*linked.link);
  EXPECT_NE(after, before);
  linked.doc.Undo();
  EXPECT_EQ(Json(*linked.link), before);
  linked.doc.Redo();
  EXPECT_EQ(Json(*linked.link), after);
}

TEST(Link, TurnsWithTheDocument) {
  TLinked linked({5000, 10000}, {20000, 30000}, ltPolyline);
  linked.doc.fMeasure->SetLabelSizeMM(60, 40);
  linked.link->InsertPoint(8000, 14000, 100);
  linked.doc.RotateLeft();
  EXPECT_EQ(linked.link->fLinkPoints, (TZORPtoA{{14000, 60000 - 8000}}));
  EXPECT_EQ(linked.link->p1, (TZORBase{linked.from->GetPoint(1).bX, linked.from->GetPoint(1).bY}));
  linked.doc.RotateRight();
  EXPECT_EQ(linked.link->fLinkPoints, (TZORPtoA{{8000, 14000}}));
}

TEST(Link, TheExtentHoldsArcAndTerminators) {
  TLinked linked({10000, 20000}, {20000, 20000}, ltArc);
  linked.link->SetToType(ttArrow);
  Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
  linked.link->CheckFit(minX, maxX, minY, maxY);
  EXPECT_EQ(minX, 10000 - 50);
  EXPECT_EQ(minY, 15000 - 50);
  EXPECT_EQ(maxX, 20000 + 2500);
  EXPECT_EQ(maxY, 20000 + 2500);
}

TEST(Link, FarNodesDoNoHarm) {
  constexpr Int64 far = MaxCoordinate;
  for (int type = 0; type < EnumCount<TZOLinkType>; ++type) {
    for (const TZORPto& to : {TZORPto{far, -far}, TZORPto{-far, -far}, TZORPto{0, far}}) {
      TLinked linked({-far, far}, to, static_cast<TZOLinkType>(type), 3, 3);
      linked.link->Pick(0, 0, 1000, true);
      linked.link->CenterPoint();
      linked.Svg();
      Int64 minX = -1, maxX = -1, minY = -1, maxY = -1;
      linked.link->CheckFit(minX, maxX, minY, maxY);
      TBareLabel other;
      EXPECT_NO_THROW(Load(other, Saved(linked.doc)));
    }
  }
}

}  // namespace
}  // namespace Zor
