#include <gtest/gtest.h>

#include <random>

#include "host/LayoutChecks.hpp"
#include "kaldrix/host/diagrams/SequenceLayout.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor {
namespace {

TSequenceEvent Message(int aFrom, int aTo, double aWidth, double aHeight = 4,
                       const std::string& aText = "text") {
  return {false, aFrom, aTo, aText, {aWidth, aHeight}, false, saFilled, nplRight};
}
TSequenceEvent Note(TNotePlace aPlace, int aFrom, int aTo, double aWidth, double aHeight = 4) {
  return {true, aFrom, aTo, "note", {aWidth, aHeight}, false, saFilled, aPlace};
}

std::vector<TSequenceParticipant> Participants(std::size_t aCount, double aWidth = 10) {
  return std::vector<TSequenceParticipant>(aCount, {"participant", {aWidth, 4}});
}

double LifelineX(const TScene& aScene, int aParticipant) {
  return aScene.lines[static_cast<std::size_t>(aParticipant)].points[0].x;
}

std::vector<TSceneBox> AllBoxes(const TScene& aScene) {
  std::vector<TSceneBox> boxes;
  for (const TSceneNode& node : aScene.nodes) boxes.push_back(node.box);
  for (const TSceneText& text : aScene.texts) boxes.push_back(text.box);
  return boxes;
}

/// Between lifelines `aFirst` and `aLast`, apart from them, -1 and the count standing for the borders.
void ExpectBetween(const TScene& aScene, const TSceneBox& aBox, int aFirst, int aLast, int aCount) {
  const double left = aFirst < 0 ? -1 : LifelineX(aScene, aFirst);
  const double right = aLast >= aCount ? aScene.size.width + 1 : LifelineX(aScene, aLast);
  EXPECT_GT(aBox.x, left + 0.5);
  EXPECT_LT(aBox.Right(), right - 0.5);
}

/// Each event stands in a row of its own, between the lifelines that it concerns.
void ExpectRows(const TScene& aScene, const std::vector<TSequenceEvent>& aEvents, std::size_t aParticipants) {
  const auto count = static_cast<int>(aParticipants);
  std::size_t line = aParticipants, node = 2 * aParticipants, text = 0;
  double bottom = aScene.nodes[0].box.Bottom();
  for (const TSequenceEvent& event : aEvents) {
    const auto [first, last] = std::minmax({event.from, event.to < 0 ? event.from : event.to});
    double top = 0;
    if (event.note) {
      const TSceneBox& box = aScene.nodes[node++].box;
      top = box.y;
      const bool left = event.place == nplLeft, right = event.place == nplRight;
      ExpectBetween(aScene, box, right ? last : first - 1, left ? first : last + 1, count);
      ASSERT_GT(top, bottom + 1);
      bottom = box.Bottom();
      continue;
    }
    const std::vector<TLayoutPoint>& points = aScene.lines[line++].points;
    EXPECT_EQ(points.front().x, LifelineX(aScene, event.from));
    EXPECT_EQ(points.back().x, LifelineX(aScene, event.to));
    top = points.front().y;
    double low = points.back().y;
    if (!event.text.empty()) {
      const TSceneBox& box = aScene.texts[text++].box;
      const bool loop = event.from == event.to;
      ExpectBetween(aScene, box, first, loop ? last + 1 : last, count);
      if (loop) {
        EXPECT_GT(box.x, points[1].x);
        low = std::max(low, box.Bottom());
      } else {
        EXPECT_LT(box.Bottom(), top);
        EXPECT_NEAR(box.x + box.width / 2, (points[0].x + points[1].x) / 2, 1e-9);
      }
      top = std::min(top, box.y);
    }
    ASSERT_GT(top, bottom + 1);
    bottom = low;
  }
  EXPECT_LT(bottom, aScene.nodes[aParticipants].box.y) << "the feet";
}

std::vector<TSequenceEvent> RandomEvents(int aParticipants, int aCount, unsigned aSeed) {
  std::mt19937 random(aSeed);
  const auto any = [&](int aBelow) { return static_cast<int>(random() % static_cast<unsigned>(aBelow)); };
  std::vector<TSequenceEvent> events;
  for (int i = 0; i < aCount; ++i) {
    const int from = any(aParticipants), to = any(3) == 0 ? from : any(aParticipants);
    const double width = 1 + any(60), height = 4 * (1 + any(3));
    if (any(4) == 0) {
      const auto place = static_cast<TNotePlace>(any(3));
      events.push_back(Note(place, from, place == nplOver && any(2) == 0 ? to : -1, width, height));
    } else if (any(5) == 0) {
      events.push_back(Message(from, to, 0, 0, ""));
    } else {
      events.push_back(Message(from, to, width, height));
    }
  }
  return events;
}

TEST(SequenceLayout, GivesEachEventItsRoom) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    const int count = 1 + static_cast<int>(seed % 9);
    std::vector<TSequenceParticipant> participants;
    for (int i = 0; i < count; ++i) participants.push_back({"p", {5.0 + 13 * i % 40, 4.0 + i % 2 * 4}});
    const std::vector<TSequenceEvent> events = RandomEvents(count, 50, seed);
    const TScene scene = SequenceLayout(participants, events);
    EXPECT_EQ(Overlaps(AllBoxes(scene)), 0) << seed;
    ExpectRows(scene, events, participants.size());
    ExpectTightFit(AllBoxes(scene), scene.size);
  }
}

TEST(SequenceLayout, SpreadsWhatALongMessageLacks) {
  const std::vector<TSequenceEvent> events{Message(0, 3, 145), Message(1, 0, 45)};
  const TScene scene = SequenceLayout(Participants(4), events);
  const auto gap = [&](int i) { return LifelineX(scene, i + 1) - LifelineX(scene, i); };
  EXPECT_NEAR(gap(1), 28 + (150 - 50 - 28 - 28) / 3.0, 1e-9);
  EXPECT_NEAR(gap(2), gap(1), 1e-9);
  EXPECT_NEAR(gap(0) + gap(1) + gap(2), 150, 1e-9);
}

TEST(SequenceLayout, DrawsHeadsFeetAndArrows) {
  std::vector<TSequenceEvent> events{Message(0, 1, 9, 8, "two\nlines"), Message(1, 0, 9), Message(0, 0, 9),
                                     Message(1, 1, 0, 0, ""), Note(nplOver, 0, 1, 9)};
  for (std::size_t i = 0; i < 4; ++i) events[i].arrow = static_cast<TZORSeqArrow>(i);
  events[1].dotted = true;
  TSequenceOptions options;
  options.fontHeight = 4;
  const TScene scene = SequenceLayout(Participants(2), events, options);
  ASSERT_EQ(scene.nodes.size(), 5U);
  EXPECT_EQ(scene.nodes[0].box.x, scene.nodes[2].box.x);
  EXPECT_EQ(scene.nodes[0].box.y, 0);
  EXPECT_EQ(scene.nodes[3].box.Bottom(), scene.size.height);
  EXPECT_EQ(scene.nodes[4].fill, 0xFFFFFBD6U);
  EXPECT_LT(scene.nodes[4].box.x, LifelineX(scene, 0));
  EXPECT_GT(scene.nodes[4].box.Right(), LifelineX(scene, 1));
  const TZORTermType terms[] = {ttFillArrow, ttArrow, ttCross, ttNone};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(scene.lines[i + 2].toTerm, terms[i]);
    EXPECT_EQ(scene.lines[i + 2].points.size(), i < 2 ? 2U : 4U);
    EXPECT_EQ(scene.lines[i + 2].dotted, i == 1);
  }
  for (const std::size_t i : {0U, 1U}) {
    EXPECT_TRUE(scene.lines[i].dotted);
    EXPECT_EQ(scene.lines[i].points[0].y, scene.nodes[i].box.Bottom());
    EXPECT_EQ(scene.lines[i].points[1].y, scene.nodes[i + 2].box.y);
  }
  EXPECT_EQ(scene.texts[0].lines, (std::vector<std::string>{"two", "lines"}));
  EXPECT_EQ(scene.texts[0].fontHeight, 4);
  options.feet = false;
  EXPECT_EQ(SequenceLayout(Participants(2), events, options).nodes.size(), 3U);
}

TEST(SequenceLayout, RefusesStrangersAndBearsNothing) {
  EXPECT_EQ(SequenceLayout({}, {}).size.height, 0);
  EXPECT_GT(SequenceLayout(Participants(1), {}).size.height, 18);
  for (const TSequenceEvent& event : {Message(0, 2, 5), Message(-1, 0, 5), Message(0, -1, 5),
                                      Note(nplLeft, 2, -1, 5), Note(nplOver, 0, -2, 5)}) {
    EXPECT_THROW(SequenceLayout(Participants(2), std::vector{event}), EArgumentException);
  }
}

TEST(SequenceLayout, TakesManyParticipantsAndEvents) {
  constexpr int Count = 2'000;
  const std::vector<TSequenceEvent> events = RandomEvents(Count, 100'000, 3);
  const TScene scene = SequenceLayout(Participants(Count), events);
  ExpectRows(scene, events, Count);
}

}  // namespace
}  // namespace Zor
