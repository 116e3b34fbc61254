#include <gtest/gtest.h>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/ShownName.hpp"
#include "kaldrix/platform/TextFile.hpp"

namespace Zor {
namespace {

TEST(TextFile, OneTextInEveryCodeThatEditorsWrite) {
  const std::string text = "flowchart LR; A-->Übung";
  std::string little, big,
      ansi =
          "flowchart LR; A-->\xDC"
          "bung";
  for (const unsigned char c : ansi) {
    (little += static_cast<char>(c)) += '\0';
    (big += '\0') += static_cast<char>(c);
  }
  for (const std::string& bytes :
       {text, "\xEF\xBB\xBF" + text, "\xFF\xFE" + little, "\xFE\xFF" + big, little, big, ansi})
    EXPECT_EQ(TextOfFile(bytes, "a.mmd"), text);
  EXPECT_EQ(TextOfFile("", "a.mmd"), "");
  EXPECT_EQ(TextOfFile("\xEF\xBB\xBF", "a.mmd"), "");
}

TEST(TextFile, BytesWithZerosAreNoText) {
  try {
    TextOfFile(std::string("\x7F"
                           "ELF\0\0\0",
                           7),
               "program");
    ADD_FAILURE() << "was taken";
  } catch (const EStreamError& error) {
    EXPECT_STREQ(error.what(), "program: the file is no text");
  }
}

TEST(TextFile, OnlyAMarkTellsTheCodeOfExactBytes) {
  EXPECT_EQ(WithoutMark("\xEF\xBB\xBF"
                        "a"),
            "a");
  EXPECT_EQ(WithoutMark(std::string("\xFE\xFF\0a", 4)), "a");
  for (const std::string& bytes : {std::string("\xDC"), std::string("a\0", 2), std::string()})
    EXPECT_EQ(WithoutMark(bytes), bytes);
}

TEST(ShownName, CannotEndTheLineOrSteerATerminal) {
  EXPECT_EQ(ShownName("a\nkaldrix: done\x1B[2J\x7F.json"), "a\\nkaldrix: done\\x1B[2J\\x7F.json");
  EXPECT_EQ(ShownName("Stra\xDF"
                      "e \xE2\x82"),
            "Stra\\xDFe \\xE2\\x82");
  EXPECT_EQ(ShownName("\xC2\x85 \xE2\x80\xAE Übung 😀"), "\\u0085 \\u202E Übung 😀");
  EXPECT_EQ(NameAsText("tab\tÜ"), "tab\tÜ");
  EXPECT_EQ(NameAsText("tab\t\xDC"), "tab\\t\\xDC");
}

}  // namespace
}  // namespace Zor
