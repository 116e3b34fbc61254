#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

TPumlKind KindOf(std::string_view aText) {
  TKDXDiagramModel model;
  return TKDXPlantUMLParser::DetectKind(SplitDiagramLines(aText), model);
}

TEST(PlantUmlKind, TheFirstLineThatDecidesTellsTheKind) {
  const std::pair<const char*, TPumlKind> cases[] = {
      {"[A b] happens on 2025", pkChronology},
      {"[A b] happens at 2025", pkSequence},
      {"{", pkData},
      {"[", pkData},
      {"\"a\" : 1", pkData},
      {"{ a", pkSequence},
      {"person (a, \"b\")", pkC4},
      {"Rel(a, b, \"c\")", pkC4},
      {"Rel_Flow(a, b, c)", pkArchimate},
      {"Robust \"a\" as b", pkTiming},
      {"clockwise", pkSequence},
      {"nwdiag{", pkNetwork},
      {"Abstract Class A", pkStructure},
      {"class", pkSequence},
      {"classes", pkSequence},
      {"database a", pkSequence},
      {"database a\ncloud b", pkStructure},
      {"*** a", pkMindMap},
      {"+-[#red]_ a", pkMindMap},
      {"*a", pkSequence},
      {"stop", pkActivity},
      {"end note", pkSequence},
      {":a b; ", pkActivity},
      {":a|", pkSequence},
      {"repeat (", pkActivity},
      {"a -> [*]", pkState},
      {"state a", pkState},
      {"states", pkSequence},
      {"a --> b", pkStructure},
      {"a..b", pkStructure},
      {"a --> b : c", pkSequence},
      {"a -->>o \"b c\" : d", pkSequence},
      {"participant a--b", pkSequence},
      {"A->B: x\nstate a", pkState},
      {"A --> B: x\nC --> D", pkStructure},
      {"", pkSequence},
  };
  for (const auto& [text, kind] : cases) EXPECT_EQ(KindOf(text), kind) << text;
}

TEST(PlantUmlKind, AStartTagAnywhereComesFirst) {
  const std::pair<const char*, const char*> cases[] = {
      {"A -> B : x\n@startjson",
       "mindmap LR\ndata_root [Data] Database\ndata_1 [A -> B/x] Process\n"
       "data_root -- data_1\n"},
      {"class X\n' @StartMindMap", "mindmap LR\n"},
      {"@startwbs\n* a", "mindmap LR\nmind_1 [a] Ellipse\n"},
      {"@startgantt\n@startwbs\n* a", "mindmap LR\nmind_1 [a] Ellipse\n"},
      {"@startyaml", "mindmap LR\ndata_root [Data] Database\n"},
      {"@startregex\na|b", "flowchart TD\ngrammar_1 [a|b] Predefined\n"},
      {"@startwbs2\nA -> B: x", "sequence TD\nA = A\nB = B\nA ->> B: x\n"},
  };
  for (const auto& [text, dump] : cases) EXPECT_EQ(DumpOfPlantUML(text), dump) << text;
}

TEST(PlantUmlKind, DirectivesCommentsAndTitlesAreNoEntries) {
  ExpectPlantUML({
      {"@startuml x\n' class A\n!include class.iuml\nskinparam class {\nHide a--b\nTITLE \"One\\nTwo\"\n"
       "title Last<br>one\nscale 2\nclass B\n@enduml",
       "flowchart LR 'Last\r\none'\nB [B] Process\n"},
      // Longer words are entries, and so is a title without a text.
      {"@startebnf\nscaled\ntitle\ntitles x",
       "flowchart TD\ngrammar_1 [scaled] Predefined\ngrammar_2 [title] Predefined\n"
       "grammar_3 [titles x] Predefined\ngrammar_1 --> grammar_2\ngrammar_2 --> grammar_3\n"},
      {"", "sequence TD\n"},
      {"a\x80"
       "b",
       "sequence TD\n"},
  });
}

TEST(PlantUmlKind, TheFrontEndReadsIt) {
  EXPECT_EQ(DumpOf(*ZORParseDiagram("@startuml\nclass A\n@enduml")), "flowchart LR\nA [A] Process\n");
  EXPECT_EQ(DumpOf(*ZORParseDiagram("class A", dgPlantUML)), "flowchart LR\nA [A] Process\n");
  EXPECT_EQ(DumpOf(*ZORParseDiagram("@startuml")), "sequence TD\n! 0 DIAGRAM_EMPTY_RESULT\n");
}

}  // namespace
}  // namespace Zor
