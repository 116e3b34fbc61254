// Texts that no author writes: they may give any model, but have to end soon.
#include <chrono>

#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

constexpr const char* Starts[] = {"participant x",
                                  ":x;",
                                  "state x",
                                  "@startmindmap",
                                  "Rel_Flow(a,b,c)",
                                  "class x",
                                  "Rel(a,b,\"c\")",
                                  "clock x",
                                  "nwdiag {\nnetwork n {",
                                  "@startchronology",
                                  "@startjson",
                                  "@startsalt",
                                  "@startebnf",
                                  "@startfiles",
                                  "@startditaa",
                                  "@startchen\nentity e {",
                                  "@startgantt\n-- s --"};

std::string Repeated(std::string_view aText, std::size_t aBytes) {
  std::string text;
  text.reserve(aBytes + aText.size());
  while (text.size() < aBytes) text += aText;
  return text;
}

double SecondsToRead(const std::string& aText, TKDXDiagramModel& aModel) {
  const auto start = std::chrono::steady_clock::now();
  TKDXPlantUMLParser::Parse(aText, aModel);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A generous bound: a cost that grows with the square of the text would be hundreds of times above it.
constexpr double MostSeconds = 5;

void ExpectSoon(const char* aStart, const std::string& aText) {
  TKDXDiagramModel model;
  EXPECT_LT(SecondsToRead(std::string(aStart) + "\n" + aText, model), MostSeconds)
      << aStart << " " << aText.substr(0, 40);
  for (const TZORDiagEdge& edge : model.GetEdges()) {
    ASSERT_GE(model.NodeIndexOf(edge.FromID), 0);
    ASSERT_GE(model.NodeIndexOf(edge.ToID), 0);
  }
}

TEST(PlantUmlBadInput, LongLinesAndManyLinesEndSoon) {
  const char* const pieces[] = {
      "A",         "(",      "[",   "{",   "\"",         "a-->",   "/a",   "/",       "--- ",
      "-- ",       "<<",     "<a>", "*",   "+-",         "|",      "| x ", "then (",  ")then(",
      "\xC3\xA9-", ")is(",   " ",   ": ",  "\xC2\xA0",   ", ",     "a, ",  "<br",     "&amp",
      "..",        " as ",   "-",   "\t-", "note over ", "{io}",   "c",    "cABC ",   "=",
      ";",         "'s end", "v",   "\\n", "]",          "@start", "@",    "@startx", "\xF0\x9F\x92\xA1"};
  for (const char* start : Starts) {
    for (const char* piece : pieces) {
      const std::string run = Repeated(piece, 1 << 16);
      ExpectSoon(start, run);
      std::string lines;
      while (lines.size() < 1 << 16) lines += "a " + run.substr(0, 1000) + "!\n";
      ExpectSoon(start, lines);
    }
  }
}

TEST(PlantUmlBadInput, StatementsWithoutAnEndEndSoon) {
  const char* const statements[] = {"participant a",
                                    "note over a",
                                    "A->B",
                                    "A->B:",
                                    "if (",
                                    "if (a) then",
                                    "else",
                                    "while (a)",
                                    "while (a) is",
                                    "endwhile (",
                                    "state a",
                                    "state a as b",
                                    "a -->",
                                    "Rel_x(",
                                    "Rel_x(a,",
                                    "Rel(a,",
                                    "network",
                                    "a [",
                                    "robust \"a\"",
                                    "a is",
                                    "[a] happens on",
                                    "\"a\"",
                                    "a =",
                                    "{+",
                                    "/",
                                    "| x",
                                    "entity",
                                    "a -1-",
                                    "--",
                                    "[a] starts at",
                                    "Project",
                                    "[a]",
                                    "class a as",
                                    "title",
                                    "abstract class",
                                    "left to",
                                    "*[#",
                                    "* <&",
                                    ":x",
                                    "attribute"};
  const std::string blanks(1 << 16, ' ');
  for (const char* start : Starts) {
    for (const char* statement : statements) ExpectSoon(start, statement + blanks + "x" + blanks + "?\n");
  }
}

TEST(PlantUmlBadInput, AMegabyteOfOneKindEndsSoon) {
  const std::pair<const char*, const char*> cases[] = {
      {":x;", "if (a) then\n"},
      {":x;", "if (a) then\nelse\nendif\n"},
      {":x;", "while (a)\n"},
      {"@startmindmap", "********* a\n* b\n"},
      {"@startjson", "  a:\n    b:\n"},
      {"nwdiag", "network a\nb\n"},
      {"@startgantt", "[a] starts at [b]\n"},
      {"A -> B : x", "note over A\n"},
      {"clock x", "x is y\n"},
      {"@startsalt", "a|b|c\n"},
  };
  for (const auto& [start, piece] : cases) ExpectSoon(start, Repeated(piece, 1 << 20));
  // Blocks that all have to be put together again.
  ExpectSoon(":x;", Repeated("if (a) then\n", 1 << 19) + Repeated("else\nendif\n", 1 << 19));
}

TEST(PlantUmlBadInput, DeepNestingIsNoRecursion) {
  std::string data = "@startjson\n";
  std::string map = "@startmindmap\n";
  for (std::size_t i = 1; i <= 2000; ++i) {
    data += std::string(i, ' ') + "a:\n";
    map += std::string(i, '*') + " a\n";
  }
  for (const std::string& text : {data, map}) {
    TKDXDiagramModel model;
    EXPECT_LT(SecondsToRead(text, model), MostSeconds);
    EXPECT_EQ(model.GetNodes().size(), model.GetEdges().size() + 1);
    EXPECT_GE(model.GetNodes().size(), 2000U);
  }
}

TEST(PlantUmlBadInput, WhatMultipliesItselfStopsAtALimit) {
  const std::string name(1 << 19, 'n');
  const std::string texts[] = {
      "@startfiles\n" + Repeated("/a", 1 << 20),
      "clock \"" + name + "\" as x\n" + Repeated("x is y\n", 1 << 19),
      "clock x\n@" + name + "\n" + Repeated("x is y\n", 1 << 19),
      "@startchen\nentity " + name + " {\n" + Repeated("attribute a\n", 1 << 19),
  };
  for (const std::string& text : texts) {
    TKDXDiagramModel model;
    EXPECT_LT(SecondsToRead(text, model), MostSeconds);
    ASSERT_EQ(model.GetDiagnostics().size(), 1U);
    EXPECT_EQ(model.GetDiagnostics()[0].Code, "DIAGRAM_TOO_LARGE");
  }
}

TEST(PlantUmlBadInput, AnInvolvedLineIsReported) {
  TKDXDiagramModel model;
  TKDXPlantUMLParser::Parse("start\nif (" + Repeated(")then(", 1 << 16) + "\n:a;", model);
  EXPECT_EQ(DumpOf(model), "flowchart TD\nn1 [] Start\nn2 [a] Process\nn1 --> n2\n! 2 DIAGRAM_MATCH_LIMIT\n");
}

TEST(PlantUmlBadInput, ZerosAndControlCharactersAreText) {
  TKDXDiagramModel model;
  TKDXPlantUMLParser::Parse(std::string("class x\0y\n\0\n\x01", 12), model);
  ASSERT_EQ(model.GetNodes().size(), 1U);
  EXPECT_EQ(model.GetNodes()[0].Text, std::string("x\0y", 3));
}

}  // namespace
}  // namespace Zor
