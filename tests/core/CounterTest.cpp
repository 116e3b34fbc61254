#include <gtest/gtest.h>

#include <limits>

#include "kaldrix/core/TKDXCounter.hpp"
#include "support/TBareLabel.hpp"

namespace Zor {
namespace {

TEST(Counter, MovesAsItWalks) {
  TBareLabel doc;
  TKDXCounter &walked = *new TKDXCounter(&doc), &moved = *new TKDXCounter(&doc);
  for (TKDXCounter* counter : {&walked, &moved}) {
    counter->SetNumFrom(-3);
    counter->SetNumTo(8);
    counter->SetStep(5);
    counter->SetRepeat(2);
    counter->fBefore = "No ";
    counter->fFormat = "00";
  }
  const char* const expected[] = {"No -03", "No -03", "No 02", "No 02", "No 07", "No 07", "No 07", "No 07"};
  walked.Reset();
  for (int label = 1; label <= 8; ++label) {
    EXPECT_EQ(walked.fValue, expected[label - 1]) << label;
    moved.MoveTo(label);
    EXPECT_EQ(moved.fValue, walked.fValue) << label;
    EXPECT_EQ(moved.fRepeatPos, walked.fRepeatPos) << label;
    walked.Next();
  }
  EXPECT_EQ(walked.fNumLabs, 4) << "whole steps only";
  EXPECT_EQ(walked.LabelsToEnd(), 6);
}

TEST(Counter, StopsAtTheEndOfItsType) {
  constexpr Int64 most = std::numeric_limits<Int64>::max();
  TBareLabel doc;
  auto* counter = new TKDXCounter(&doc);
  counter->SetNumTo(most);
  counter->SetNumFrom(most - 1);
  counter->Reset();
  for (int i = 0; i < 3; ++i) counter->Next();
  EXPECT_EQ(counter->fCounter, most);
  counter->SetNumFrom(-most);
  EXPECT_EQ(counter->fNumLabs, INT32_MAX);
}

TEST(Counter, ReadsBackAndHoldsWhatTheWalkNeeds) {
  TBareLabel doc;
  auto* counter = new TKDXCounter(&doc);
  counter->fName = "Serial";
  counter->SetNumTo((Int64{1} << 60) + 1);
  counter->fAfter = "é";
  TJsonArray array;
  counter->WriteJson(array);
  auto* other = new TKDXCounter(&doc);
  other->ReadJson(FormatVersion, array.GetObject(0));
  TJsonArray again;
  other->WriteJson(again);
  EXPECT_EQ(again.ToJSON(), array.ToJSON());

  counter->fStep = 0;
  counter->fRepeat = 0;
  std::string bytes;
  TBinaryWriter writer(bytes);
  counter->WriteData(writer);
  TBinaryReader reader(bytes);
  other->ReadData(FormatVersion, reader);
  EXPECT_EQ(other->fStep, 1);
  EXPECT_EQ(other->fRepeat, 1);
  other->MoveTo(5);
  EXPECT_EQ(other->fValue, "5é");
}

}  // namespace
}  // namespace Zor
