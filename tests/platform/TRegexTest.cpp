#include <gtest/gtest.h>

#include <thread>

#include "kaldrix/platform/TRegex.hpp"

namespace Zor {
namespace {

constinit const TRegex Pair("(\\w+)=(\\w+)?(;)?");
constinit const TRegex Word(
    "^stra\xC3\x9F"
    "e\\b",
    rcIgnore);
constinit const TRegex Boundary("\\ba");
constinit const TRegex Costly("^(?:(x+x+)+)[yz]");
constinit const TRegex Faulty("(");
constinit const TRegex Empty("x*");

TEST(TRegex, GroupsAreViewsOfTheText) {
  const std::string_view text = "  \xC3\xA9=1;b=";
  TMatch match;
  ASSERT_TRUE(Pair.Match(text, match));
  EXPECT_EQ(match[0], "\xC3\xA9=1;");
  EXPECT_EQ(match[1], "\xC3\xA9");
  EXPECT_EQ(match[1].data(), text.data() + 2);
  EXPECT_EQ(match.Start(), 2U);
  EXPECT_EQ(match.End(), 7U);
  ASSERT_TRUE(Pair.Match(text, match, match.End()));
  EXPECT_EQ(match[1], "b");
  EXPECT_FALSE(match.Has(2));
  EXPECT_FALSE(match.Has(3));
  EXPECT_FALSE(match.Has(TMatch::MostGroups - 1));
  EXPECT_FALSE(Pair.Match(text, match, match.End()));
}

TEST(TRegex, CaseIsIgnoredInAllScripts) {
  EXPECT_TRUE(
      Word.Matches("STRA\xE1\xBA\x9E"
                   "E 5"));
  EXPECT_FALSE(
      Word.Matches("Stra\xC3\x9F"
                   "en"));
}

TEST(TRegex, ALaterSearchSeesWhatStandsBefore) {
  TMatch match;
  EXPECT_FALSE(Boundary.Match("xa", match, 1));
  EXPECT_TRUE(Boundary.Match("-a", match, 1));
}

TEST(TRegex, EveryMatchIsReplaced) {
  EXPECT_EQ(Pair.Replaced("a=b; c=d, e", "$1"), "$1 $1, e");
  EXPECT_EQ(Empty.Replaced("axx\xC3\xA9", "-"), "-a--\xC3\xA9-");
  EXPECT_EQ(Empty.Replaced({}, "-"), "-");
  EXPECT_EQ(Pair.Replaced("none", "-"), "none");
}

TEST(TRegex, TheLimitAndFaultsAreTold) {
  EXPECT_THROW(Costly.Matches(std::string(60, 'x')), ERegexLimit);
  EXPECT_THROW(Pair.Matches("\xFF=1"), EArgumentException);
  EXPECT_THROW(Faulty.Matches("x"), EArgumentException);
  EXPECT_TRUE(Costly.Matches("xxy"));
}

TEST(TRegex, ThreadsShareAPattern) {
  static constinit const TRegex shared("^(\\d+)-(\\d+)$");
  std::vector<int> found(4);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&found, t] {
      for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(t * 1000 + i);
        TMatch match;
        if (shared.Match(number + "-" + number, match) && match[1] == number)
          ++found[static_cast<std::size_t>(t)];
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(found, std::vector<int>(4, 1000));
}

}  // namespace
}  // namespace Zor
