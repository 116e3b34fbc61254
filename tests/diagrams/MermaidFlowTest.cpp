#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

void ExpectDumps(std::initializer_list<TDumpCase> aCases) {
  for (const TDumpCase& c : aCases) EXPECT_EQ(DumpOfMermaid(c.text), c.dump) << c.text;
}

TEST(MermaidFlow, BracketsTellShapes) {
  struct TCase {
    const char* brackets;
    TZORFlowType shape;
    const char* label;
  };
  const TCase cases[] = {
      {"([x])", ftTerminator, "x"},
      {"[[x]]", ftPredefined, "x"},
      {"[(x)]", ftDatabase, "x"},
      {"(((x)))", ftEnd, "x"},
      {"((x))", ftStart, "x"},
      {"{{x}}", ftPreparation, "x"},
      {"[/x\\]", ftManualOperation, "x"},
      {"[\\x/]", ftManualOperation, "x"},
      {"[/x/]", ftData, "x"},
      {"[\\x\\]", ftData, "x"},
      {">x]", ftManualInput, "x"},
      {"[x]", ftProcess, "x"},
      {"{x}", ftDecision, "x"},
      {"(x)", ftProcess, "x"},
      {"[\"a (b) {c}\"]", ftProcess, "a (b) {c}"},
      {"[a<br>b<BR/>c\\nd]", ftProcess, "a\r\nb\r\nc\r\nd"},
      {"[Gr\xC3\xB6\xC3\x9F"
       "e \xE2\x9C\x93]",
       ftProcess,
       "Gr\xC3\xB6\xC3\x9F"
       "e \xE2\x9C\x93"},
      {"[]", ftProcess, ""},
      {"[/]", ftProcess, "/"},
      {"((a)", ftProcess, "(a"},
      {"(((a))", ftStart, "(a"},
  };
  for (const TCase& c : cases) {
    TKDXDiagramModel model;
    ASSERT_TRUE(TKDXMermaidParser::ParseFlowLine(std::string("A") + c.brackets, model));
    ASSERT_EQ(model.GetNodes().size(), 1U) << c.brackets;
    EXPECT_EQ(model.GetNodes()[0].Shape, c.shape) << c.brackets;
    EXPECT_TRUE(model.GetNodes()[0].HasShape) << c.brackets;
    EXPECT_EQ(model.GetNodes()[0].Text, c.label) << c.brackets;
  }
}

TEST(MermaidFlow, LinksHaveLinesTipsAndLabels) {
  const struct {
    const char* link;
    const char* edge;  ///< none: the line ends behind A
  } cases[] = {
      {"-->", "A --> B"},
      {"--->", "A --> B"},
      {"---->", "A --> B"},
      {"---", "A -- B"},
      {"-----", "A -- B"},
      {"--x", "A --x B"},
      {"----o ", "A --o B"},
      {"==>", "A --> B"},
      {"===", "A -- B"},
      {"-.->", "A ..> B"},
      {"-...->", "A ..> B"},
      {"-->|yes|", "A --> B: yes"},
      {" --> | \"yes<br>now\" | ", "A --> B: yes/now"},
      {"-- no -->", "A --> B: no"},
      {"--  a b  -->", "A --> B: a b"},
      {"-. maybe .->", "A ..> B: maybe"},
      {"== sure ==>", "A --> B: sure"},
      {"--    -->", "A --> B"},
      {"-->||", "A --> B"},
      {"->", nullptr},
      {"--", nullptr},
      {"------", nullptr},
      {"----->", nullptr},
      {"-- a - b -->", nullptr},
      {"-- -->", nullptr},
      {"-->|open", nullptr},
      {"~~~", nullptr},
  };
  for (const auto& c : cases) {
    const std::string line = std::string("A") + c.link + "B";
    std::string expected = "flowchart TD\nA [A] -\n";
    if (c.edge) expected += "B [B] -\n" + std::string(c.edge) + "\n";
    EXPECT_EQ(DumpOfMermaid(line), expected) << line;
  }
}

TEST(MermaidFlow, ChainsAndGroupsAreJoinedPairwise) {
  ExpectDumps({
      {"A --> B & C", "flowchart TD\nA [A] -\nB [B] -\nC [C] -\nA --> B\nA --> C\n"},
      {"A & B --> C & D",
       "flowchart TD\nA [A] -\nB [B] -\nC [C] -\nD [D] -\nA --> C\nA --> D\nB --> C\nB --> D\n"},
      {"A --> B -.-> C", "flowchart TD\nA [A] -\nB [B] -\nC [C] -\nA --> B\nB ..> C\n"},
      {"A &", "flowchart TD\nA [A] -\n"},
      {"A --> B;", "flowchart TD\nA [A] -\nB [B] -\nA --> B\n"},
      {"A-->A", "flowchart TD\nA [A] -\nA --> A\n"},
  });
}

TEST(MermaidFlow, IdentifiersAreWordsOfAnyScript) {
  ExpectDumps({
      {"a-1.b_2-->c", "flowchart TD\na-1.b_2 [a-1.b_2] -\nc [c] -\na-1.b_2 --> c\n"},
      {"Gr\xC3\xB6\xC3\x9F"
       "e-->\xE6\x97\xA5\xE6\x9C\xAC[x]",
       "flowchart TD\nGr\xC3\xB6\xC3\x9F"
       "e [Gr\xC3\xB6\xC3\x9F"
       "e] -\n\xE6\x97\xA5\xE6\x9C\xAC [x] Process\n"
       "Gr\xC3\xB6\xC3\x9F"
       "e --> \xE6\x97\xA5\xE6\x9C\xAC\n"},
      {"A\xC2\xA0-->\xE2\x80\x83"
       "B",
       "flowchart TD\nA [A] -\nB [B] -\nA --> B\n"},
      {"\xE2\x9C\x93-->B", "flowchart TD\n! 1 MERMAID_UNRECOGNIZED_LINE\n"},
  });
}

TEST(MermaidFlow, ShapeAndLabelComeFromTheDeclaration) {
  ExpectDumps({
      {"A[One] --> B\nA --> C", "flowchart TD\nA [One] Process\nB [B] -\nC [C] -\nA --> B\nA --> C\n"},
      {"A --> B\nB{Two} --> C", "flowchart TD\nA [A] -\nB [Two] Decision\nC [C] -\nA --> B\nB --> C\n"},
      {"A[One] --> B\nA{Other} --> B", "flowchart TD\nA [One] Process\nB [B] -\nA --> B\nA --> B\n"},
      // Nothing is added: the node takes its label and the line is reported all the same.
      {"A --> B\nB[Two]", "flowchart TD\nA [A] -\nB [Two] Process\nA --> B\n! 2 MERMAID_UNRECOGNIZED_LINE\n"},
  });
}

TEST(MermaidFlow, HeaderAndTitle) {
  ExpectDumps({
      {"flowchart LR\nA", "flowchart LR\nA [A] -\n"},
      {"graph rl\nA", "flowchart LR\nA [A] -\n"},
      {"FLOWCHART BT\nA", "flowchart TD\nA [A] -\n"},
      {"graph\nA", "flowchart TD\nA [A] -\n"},
      {"graph TB\ngraph LR\nA", "flowchart LR\nA [A] -\n"},
      {"graph TD\ntitle: Orders\nA", "flowchart TD 'Orders'\nA [A] -\n"},
      {"graph TD\nTitle ::  x\nA", "flowchart TD '::  x'\nA [A] -\n"},
      {"graph TD\ntitle:: two words\nA", "flowchart TD 'two words'\nA [A] -\n"},
      {"titles --> A", "flowchart TD\ntitles [titles] -\nA [A] -\ntitles --> A\n"},
  });
}

TEST(MermaidFlow, CommentsAndFrontMatter) {
  ExpectDumps({
      {"%% a comment\nA %% B --> C\n%%{init: {}}%%", "flowchart TD\nA [A] -\n"},
      {"---\ntitle: T\n---\nA", "flowchart TD\nA [A] -\n"},
      {"\n  \n --- \nx: [\n---\ngraph LR\n?", "flowchart LR\n! 7 MERMAID_UNRECOGNIZED_LINE\n"},
      {"\n---\nA",
       "flowchart TD\nA [A] -\n! 2 MERMAID_UNCLOSED_FRONTMATTER\n! 2 MERMAID_UNSUPPORTED_STATEMENT\n"},
      {"A\n---\nB", "flowchart TD\nA [A] -\nB [B] -\n! 2 MERMAID_UNSUPPORTED_STATEMENT\n"},
  });
}

TEST(MermaidFlow, StatementsThatAreNotDrawnAreTold) {
  ExpectDumps({
      {"graph TD\nsubgraph one\nA --> B\nend",
       "flowchart TD\nA [A] -\nB [B] -\nA --> B\n! 2 MERMAID_UNSUPPORTED_STATEMENT\n"
       "! 4 MERMAID_UNSUPPORTED_STATEMENT\n"},
      {"classDef x fill:#f00\nClass A x\nstyle A fill:red\nlinkStyle 0 color:red\nclick A href\ndirection LR",
       "flowchart TD\n! 1 MERMAID_UNSUPPORTED_STATEMENT\n! 2 MERMAID_UNSUPPORTED_STATEMENT\n"
       "! 3 MERMAID_UNSUPPORTED_STATEMENT\n! 4 MERMAID_UNSUPPORTED_STATEMENT\n! 5 "
       "MERMAID_UNSUPPORTED_STATEMENT\n"
       "! 6 MERMAID_UNSUPPORTED_STATEMENT\n"},
      // A word that only begins alike is a node.
      {"ending --> classes", "flowchart TD\nending [ending] -\nclasses [classes] -\nending --> classes\n"},
      {"graph TD;", "flowchart TD\ngraph [graph] -\n"},
  });
}

TEST(MermaidFlow, BlocksAreFlowchartLines) {
  ExpectDumps({
      {"block-beta\ncolumns 3\na[\"A\"] --> b\nspace:2\nspace c\nend\nblock:id",
       "flowchart LR\na [A] Process\nb [b] -\nblock [block] -\na --> b\n"},
      {"BLOCK\na -- x --> b", "flowchart LR\na [a] -\nb [b] -\na --> b: x\n"},
  });
}

}  // namespace
}  // namespace Zor
