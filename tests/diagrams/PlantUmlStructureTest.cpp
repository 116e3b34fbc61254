#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

TEST(PlantUmlStructure, KeywordsTellShapes) {
  const std::pair<const char*, const char*> cases[] = {
      {"abstract class", "Process"}, {"class", "Process"},
      {"interface", "Ellipse"},      {"enum", "Data"},
      {"annotation", "Process"},     {"component", "Process"},
      {"usecase", "Ellipse"},        {"node", "Predefined"},
      {"cloud", "Predefined"},       {"artifact", "Document"},
      {"folder", "Process"},         {"frame", "Process"},
      {"rectangle", "Process"},      {"database", "Database"},
      {"queue", "Database"},         {"package", "Predefined"},
      {"object", "Process"},         {"map", "Process"},
      {"json", "Document"},          {"FILE", "Document"},
      {"storage", "Predefined"},     {"card", "Process"},
      {"agent", "Process"},          {"actor", "Ellipse"},
  };
  for (const auto& [word, shape] : cases) {
    EXPECT_EQ(DumpOfPlantUML(std::string("class Z\n") + word + " N"),
              std::string("flowchart LR\nZ [Z] Process\nN [N] ") + shape + "\n");
  }
}

TEST(PlantUmlStructure, NamesAndAliases) {
  const std::pair<const char*, const char*> cases[] = {
      {"component [A b] as C", "C [A b]"},
      {"usecase (Do it) AS U {", "U [Do it]"},
      {"class \"A\\nb\" as C", "C [A/b]"},
      {"node A{", "A [A]"},
      {"class As as Ast", "Ast [As]"},
      {"class A <<x>> {", "A <<x>> [A <<x>>]"},
      {"class [(a)]", "(a) [(a)]"},
      {"class A as B as C", "B as C [A]"},
      {"card [] as D", "D []"},
  };
  for (const auto& [text, node] : cases) {
    EXPECT_EQ(DumpOfPlantUML(text), "flowchart LR\n" + std::string(node) +
                                        (std::string_view(text).starts_with("node")      ? " Predefined\n"
                                         : std::string_view(text).starts_with("usecase") ? " Ellipse\n"
                                                                                         : " Process\n"))
        << text;
  }
}

TEST(PlantUmlStructure, RelationsTellLinesAndTips) {
  const std::pair<const char*, const char*> cases[] = {
      {"A <|-- B", "A <-- B"},
      {"A --|> B", "A --> B"},
      {"A <|.. B", "A <.. B"},
      {"A ..|> B", "A ..> B"},
      {"A *-- B", "A D-- B"},
      {"A --* B", "A --D B"},
      {"A o-- B", "A d-- B"},
      {"A --o B", "A --d B"},
      {"A <-- B", "A <-- B"},
      {"A --> B", "A --> B"},
      {"A <.. B", "A <.. B"},
      {"A ..> B", "A ..> B"},
      {"A -- B", "A -- B"},
      {"[A]..(B) : x : y", "A .. B: x : y"},
      {"\"A\" --> [ B ] : \"x\"", "A --> B: x"},
  };
  for (const auto& [text, edge] : cases) {
    EXPECT_EQ(DumpOfPlantUML(text), "flowchart LR\nA [A] -\nB [B] -\n" + std::string(edge) + "\n") << text;
  }
}

TEST(PlantUmlStructure, BodiesAndDirections) {
  ExpectPlantUML({
      {"Top  to bottom direction\nclass A {\n+name\n{method} run()\n--\n..\n}\n{\nA --> \n --> B : x",
       "flowchart TD\nA [A] Process\n"},
      {"class A\ntop to bottom direction\nleft to right direction\nright to left direction",
       "flowchart LR\nA [A] Process\n"},
      {"A --> B\ninterface A\nclass \"Bee\" as B", "flowchart LR\nA [A] Ellipse\nB [Bee] Process\nA --> B\n"},
  });
}

TEST(PlantUmlArchimate, TypesTellLinesAndTips) {
  const std::pair<const char*, const char*> cases[] = {
      {"Association", "--"}, {"COMPOSITION", "D-->"}, {"Aggregation", "d-->"}, {"Realization", "..>"},
      {"influence", "..>"},  {"Access", "..>"},       {"Access_r", "..>"},     {"Access_w", "..>"},
      {"Access_rw", "..>"},  {"Serving", "-->"},      {"Access_x", "-->"},
  };
  for (const auto& [type, arrow] : cases) {
    EXPECT_EQ(DumpOfPlantUML(std::string("Rel_") + type + "( A b , C,\"x\\ny\" ) "),
              std::string("flowchart LR\nA b [A b] Process\nC [C] Process\nA b ") + arrow + " C: x/y\n");
  }
  ExpectPlantUML({{"Rel_Flow(A, B)\nRel_Flow(A, B, x) y\nRel_Flow(A,B,c,d)",
                   "flowchart LR\nA [A] Process\nB [B] Process\nA --> B: c,d\n"}});
}

TEST(PlantUmlC4, IsReadLikeItsSister) {
  ExpectPlantUML({{"title T\nPerson(a, \"A\")\nContainerDb(b, \"B\")\n}\nRel(a, b, \"reads\")",
                   "flowchart LR 'T'\na [A] Ellipse\nb [B] Database\na --> b: reads\n"}});
}

TEST(PlantUmlNetwork, HostsHangUnderTheirNetworks) {
  ExpectPlantUML({
      {"nwdiag {\nlost;\nnetwork dmz {\naddress = \"1\"\nweb [ address = \"1.2\", note = \"x\" ];\ndb\n"
       "no host\n}\nlost2\nNetwork lan{\nweb [other];\npc [ ] ;\nGroup g {\n}\nlost3\n}",
       "flowchart LR\nnetwork_1 [dmz] Predefined\nweb [web/address = \"1.2\"/ note = \"x\"] Process\n"
       "db [db] Process\nnetwork_2 [lan] Predefined\npc [pc] Process\nnetwork_1 -- web\nnetwork_1 -- db\n"
       "network_2 -- web\nnetwork_2 -- pc\n"},
  });
}

TEST(PlantUmlChen, EntitiesAttributesRelations) {
  ExpectPlantUML({
      {"@startchen\nentity \"Big house\" {\nAttribute Age\nattribute \"Built in\"\n}\nattribute Free\n"
       "relationship OWNS {\nattribute since\n}\nentity P\nattribute lost\nOWNS -1- P\n"
       "\"Big house\"  -(0,N)-  OWNS\nX -N- \"Y y\"\nX -N-Y\nX - N - Y",
       "flowchart LR\nBig house [Big house] Database\nAge [Age] Ellipse\nBuilt in [Built in] Ellipse\n"
       "Free [Free] Ellipse\nOWNS [OWNS] Decision\nsince [since] Ellipse\nP [P] Database\n"
       "lost [lost] Ellipse\nX [X] Database\nY y [Y y] Database\nBig house -- Age\nBig house -- Built in\n"
       "OWNS -- since\nOWNS -- P: 1\nBig house -- OWNS: (0,N)\nX -- Y y: N\n"},
  });
}

}  // namespace
}  // namespace Zor
