#include <gtest/gtest.h>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/TextFile.hpp"

namespace Zor {
namespace {

TEST(TextFile, OneTextInEveryCodeThatEditorsWrite) {
  const std::string text = "flowchart LR; A-->Übung";
  std::string little, big, ansi = "flowchart LR; A-->\xDC\x62ung";
  for (const unsigned char c : ansi) {
    (little += static_cast<char>(c)) += '\0';
    (big += '\0') += static_cast<char>(c);
  }
  for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text, "\xFF\xFE" + little, "\xFE\xFF" + big, ansi})
    EXPECT_EQ(TextOfFile(bytes, "a.mmd"), text);
  EXPECT_EQ(TextOfFile("", "a.mmd"), "");
  EXPECT_EQ(TextOfFile("\xEF\xBB\xBF", "a.mmd"), "");
}

TEST(TextFile, BytesWithZerosAreNoText) {
  for (const std::string& bytes :
       {std::string("\x7F\x45LF\0\0\0", 7), std::string("a\0b\0", 4), std::string("\xFF\xFE\x61\0\0\0", 6)}) {
    try {
      TextOfFile(bytes, "program");
      ADD_FAILURE() << "was taken";
    } catch (const EStreamError& error) {
      EXPECT_STREQ(error.what(), "program: the file is no text");
    }
  }
}

TEST(TextFile, OnlyAMarkTellsTheCodeOfExactBytes) {
  EXPECT_EQ(WithoutMark("\xEF\xBB\xBFz"), "z");
  EXPECT_EQ(WithoutMark(std::string("\xFE\xFF\0a", 4)), "a");
  for (const std::string& bytes : {std::string("\xDC"), std::string("a\0", 2), std::string()})
    EXPECT_EQ(WithoutMark(bytes), bytes);
}

TEST(ShownName, CannotEndTheLineOrSteerATerminal) {
  EXPECT_EQ(ShownName("a\nkaldrix: done\x1B[2J\x7F.json"), "a\\nkaldrix: done\\x1B[2J\\x7F.json");
  EXPECT_EQ(ShownName("Stra\xDFze \xE2\x82"), "Stra\\xDFze \\xE2\\x82");
  EXPECT_EQ(ShownName("\xC2\x85 \xE2\x80\xAE Übung 😀"), "\\u0085 \\u202E Übung 😀");
  EXPECT_EQ(NameAsText("tab\tÜ"), "tab\tÜ");
  EXPECT_EQ(NameAsText("tab\t\xDC"), "tab\t\\xDC");
  for (const char* name : {"plain", "Stra\xDFze\\x41\xE2\x82", "back\\slash \\xZZ \\x4"})
    EXPECT_EQ(NameOfText(NameAsText(name)), name);
}

}  // namespace
}  // namespace Zor
