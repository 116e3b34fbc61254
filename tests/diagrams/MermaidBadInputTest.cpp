// Texts that no author writes: they may give any model, but have to end soon.
#include <chrono>

#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

constexpr const char* Headers[] = {"",           "sequenceDiagram", "stateDiagram",  "classDiagram",
                                   "mindmap",    "erDiagram",       "gitGraph",      "requirementDiagram",
                                   "timeline",   "journey",         "C4Context",     "pie",
                                   "sankey",     "packet",          "kanban",        "architecture-beta",
                                   "treemap",    "block",           "quadrantChart", "xychart",
                                   "radar-beta", "venn-beta",       "ishikawa-beta", "treeView-beta",
                                   "gantt"};

std::string Repeated(std::string_view aText, std::size_t aBytes) {
  std::string text;
  text.reserve(aBytes + aText.size());
  while (text.size() < aBytes) text += aText;
  return text;
}

double SecondsToRead(const std::string& aText, TKDXDiagramModel& aModel) {
  const auto start = std::chrono::steady_clock::now();
  TKDXMermaidParser::Parse(aText, aModel);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A generous bound: a megabyte takes some hundredths of a second.
constexpr double MostSeconds = 2;

TEST(MermaidBadInput, LongLinesAndManyLinesEndSoon) {
  const char* const pieces[] = {
      "A",        "(",        "[",   "{{",         "\"",           "a-->",    "a & ",  "--- ",  "-- ",
      "a -- b ",  "a-xx",     "x-",  "\xC3\xA9-",  "\xE2\x82\xAC", ": ",      "a:[1,", ",a",    "@{ ",
      " ",        "\xC2\xA0", ":::", ":: ",        "<br",          "&amp",    "\\n",   "id:\"", "%%",
      "a-->a&a&", "[x]@{",    "..",  "- contains", "Rel(",         "\t\"a\":"};
  for (const char* header : Headers) {
    // Flowcharts and sequence diagrams are read without patterns that have a limit.
    const std::size_t size = header == Headers[0] || header == Headers[1] ? 1 << 20 : 1 << 17;
    for (const char* piece : pieces) {
      TKDXDiagramModel model;
      const std::string run = Repeated(piece, size);
      EXPECT_LT(SecondsToRead(std::string(header) + "\n" + run, model), MostSeconds)
          << header << " " << piece;
      std::string lines;
      while (lines.size() < size) lines += "a " + run.substr(0, 1000) + "!\n";
      EXPECT_LT(SecondsToRead(std::string(header) + "\n" + lines, model), MostSeconds)
          << header << " " << piece;
    }
  }
}

TEST(MermaidBadInput, KeywordsWithoutAnEndEndSoon) {
  const char* const starts[] = {"participant a", "Note over a", "A->>B",   "state \"x",  "A ",
                                "text:",         "Rel(",        "Person(", "title",      "commit id:",
                                "branch",        "x[",          "axis a,", "curve a{",   "union a,b",
                                "bar [",         "a: [",        "\"a\":",  "service a(", "graph",
                                "A -- ",         "A -. ",       "a@{",     "requirement"};
  for (const char* header : Headers) {
    for (const char* start : starts) {
      TKDXDiagramModel model;
      const std::string blanks(1 << 17, ' ');
      const std::string text = std::string(header) + "\n" + start + blanks + "x" + blanks + "?\n";
      EXPECT_LT(SecondsToRead(text, model), MostSeconds) << header << " " << start;
    }
  }
}

TEST(MermaidBadInput, GroupsOfGroupsStopAtALimit) {
  TKDXDiagramModel model;
  const std::string group = Repeated("n&", 20'000) + "n";
  EXPECT_LT(SecondsToRead(group + " --> " + group + " --> " + group, model), MostSeconds);
  EXPECT_LT(model.GetEdges().size(), 1'000'000U);
  EXPECT_TRUE(model.HasDiagnostics(dsError));
}

TEST(MermaidBadInput, DeepIndentationIsNoRecursion) {
  std::string text = "mindmap\n";
  for (int i = 0; i < 2000; ++i) text += std::string(static_cast<std::size_t>(i), ' ') + "n\n";
  TKDXDiagramModel model;
  EXPECT_LT(SecondsToRead(text, model), MostSeconds);
  EXPECT_EQ(model.GetNodes().size(), 2000U);
  EXPECT_EQ(model.GetEdges().size(), 1999U);
}

TEST(MermaidBadInput, TheCostGrowsWithTheText) {
  const auto cost = [](int aLines) {
    std::string text = "flowchart TD\n";
    for (int i = 0; i < aLines; ++i) {
      text += "n" + std::to_string(i) + "[\"Step " + std::to_string(i) + "\"] -->|next| n" +
              std::to_string(i + 1) + "\n";
    }
    double best = 1e9;
    for (int i = 0; i < 5; ++i) {
      TKDXDiagramModel model;
      best = std::min(best, SecondsToRead(text, model));
    }
    return best / aLines;
  };
  const double few = cost(1'000);
  EXPECT_LT(cost(30'000), few * 8);
}

TEST(MermaidBadInput, ZerosAndControlCharactersAreText) {
  TKDXDiagramModel model;
  TKDXMermaidParser::Parse(std::string("A[x\0y] --> B\n\0\n", 16), model);
  ASSERT_EQ(model.GetNodes().size(), 2U);
  EXPECT_EQ(model.GetNodes()[0].Text, std::string("x\0y", 3));
}

}  // namespace
}  // namespace Zor
