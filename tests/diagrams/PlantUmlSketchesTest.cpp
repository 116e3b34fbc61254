#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

TEST(PlantUmlSalt, CellsAreChained) {
  ExpectPlantUML({
      {"@startsalt\n{+ frame\nName | \"Kim\"\n{\n. | [ OK ]\n}\n{#\n{* File | ^list^",
       "flowchart TD\nsalt_1 [Name] ManualInput\nsalt_2 [Kim] ManualInput\nsalt_3 [OK] ManualInput\n"
       "salt_4 [* File] ManualInput\nsalt_5 [list] ManualInput\nsalt_1 .. salt_2\nsalt_2 .. salt_3\n"
       "salt_3 .. salt_4\nsalt_4 .. salt_5\n"},
  });
}

TEST(PlantUmlGrammar, RulesAreChained) {
  ExpectPlantUML({
      {"@startebnf\na-1 = \"x\" | b;\nb ::= 'y'\nc := z=1;\n1x = y;\nfree text",
       "flowchart TD\ngrammar_1 [a-1/\"x\" | b] Predefined\ngrammar_2 [b/'y'] Predefined\n"
       "grammar_3 [c/z=1] Predefined\ngrammar_4 [1x = y;] Predefined\ngrammar_5 [free text] Predefined\n"
       "grammar_1 --> grammar_2\ngrammar_2 --> grammar_3\ngrammar_3 --> grammar_4\ngrammar_4 --> "
       "grammar_5\n"},
  });
}

TEST(PlantUmlDitaa, TagsTellShapes) {
  const std::pair<const char*, const char*> cases[] = {
      {"x", "x] Process"},           {"{C} x", "x] Decision"},         {"x {d}", "x] Document"},
      {"{io}x", "x] Data"},          {"{mo} x", "x] ManualOperation"}, {"{tr} x", "x] ManualOperation"},
      {"{o} x", "x] Ellipse"},       {"{s} x", "x] Database"},         {"{s}{d} x", "x] Document"},
      {"cRED x", "x] Process"},      {"cREDx x", "cREDx x] Process"},  {"{x} x", "{x} x] Process"},
      {"Server", "Ser er] Process"}, {"--> x <-+", "x] Process"},      {"cold x cABC", "x] Process"},
  };
  for (const auto& [cell, node] : cases) {
    EXPECT_EQ(DumpOfPlantUML(std::string("@startditaa\n+---+\n|") + cell + "|\n x"),
              std::string("flowchart LR\nditaa_1 [") + node + "\n")
        << cell;
  }
}

TEST(PlantUmlDitaa, EachTextCountsOnce) {
  ExpectPlantUML({
      {"@startditaa\n| A |-->| B |\n| cBLU | A | : |\n| C {d} | B {o} |",
       "flowchart LR\nditaa_1 [A] Process\nditaa_2 [B] Process\nditaa_3 [C] Document\nditaa_1 --> ditaa_2\n"
       "ditaa_2 --> ditaa_3\n"},
  });
}

}  // namespace
}  // namespace Zor
