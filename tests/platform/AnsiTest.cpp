#include <gtest/gtest.h>

#include "kaldrix/platform/Ansi.hpp"

namespace Zor {
namespace {

TEST(Ansi, EveryByteComesBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(ToAnsi(AnsiToUtf8(bytes)).Bytes(), bytes);
}

TEST(Ansi, CharactersHaveTheirPlaceOrBecomeAQuestionMark) {
  EXPECT_EQ(ToAnsi("a\u20AC\u00E9\u0178").Bytes(), "a\x80\xE9\x9F");
  EXPECT_EQ(ToAnsi("\u0416\U0001F600\xFF").Bytes(), "???");
  EXPECT_EQ(AnsiToUtf8("\x80\x99"), "\u20AC\u2122");
}

}  // namespace
}  // namespace Zor
