#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

void ExpectDumps(std::initializer_list<TDumpCase> aCases) {
  for (const TDumpCase& c : aCases) EXPECT_EQ(DumpOfMermaid(c.text), c.dump) << c.text;
}

TEST(MermaidState, StatesTransitionsAndEnds) {
  ExpectDumps({
      {"stateDiagram-v2\n[*] --> Idle\nIdle --> Busy : go<br>on\nBusy -> [*]",
       "flowchart TD\n__start__ [] Start\nIdle [Idle] -\nBusy [Busy] -\n__end__ [] End\n__start__ --> Idle\n"
       "Idle --> Busy: go/on\nBusy --> __end__\n"},
      {"statediagram\nstate \"Long name\" as s1\nstate Two {\n  s3 --> s4\n}\ns5 : Text \"x\"\nfree words",
       "flowchart TD\ns1 [Long name] Process\nTwo [Two] Process\ns3 [s3] -\ns4 [s4] -\ns5 [Text \"x\"] "
       "Process\n"
       "s3 --> s4\n"},
      {"stateDiagram\n--> b\na -->\nb --> : x", "flowchart TD\n"},
      {"stateDiagram\nA --> B %% why", "flowchart TD\nA [A] -\nB %% why [B %% why] -\nA --> B %% why\n"},
  });
}

TEST(MermaidState, Direction) {
  ExpectDumps({
      {"stateDiagram\ndirection LR\na --> b", "flowchart LR\na [a] -\nb [b] -\na --> b\n"},
      {"stateDiagram\ndirection lr\ndirection RL", "flowchart TD\n"},
  });
}

TEST(MermaidClass, RelationsHaveTipsAtBothEnds) {
  const struct {
    const char* token;
    const char* line;
  } cases[] = {
      {"<|--", "<--"}, {"--|>", "-->"}, {"<|..", "<.."}, {"..|>", "..>"}, {"*--", "D--"},
      {"--*", "--D"},  {"o--", "d--"},  {"--o", "--d"},  {"<--", "<--"},  {"-->", "-->"},
      {"<..", "<.."},  {"..>", "..>"},  {"--", "--"},    {"..", ".."},
  };
  for (const auto& c : cases) {
    const std::string text = "classDiagram\nA " + std::string(c.token) + " B : \"has\"";
    EXPECT_EQ(DumpOfMermaid(text), "flowchart LR\nA [A] -\nB [B] -\nA " + std::string(c.line) + " B: has\n")
        << c.token;
  }
}

TEST(MermaidClass, ClassesAndDirection) {
  ExpectDumps({
      {"classDiagram\nclass A {\n  +int x\n}\ninterface B\nenum C\nAnnotation D\nclass A",
       "flowchart LR\nA [A] Process\nB [B] Ellipse\nC [C] Data\nD [D] Process\n"},
      {"classDiagram\ndirection TB\nA --> B", "flowchart TD\nA [A] -\nB [B] -\nA --> B\n"},
      {"classDiagram\ndirection TB\ndirection RL", "flowchart LR\n"},
      {"classDiagram\n--> B\nA --", "flowchart LR\n"},
      {"classDiagram\nA --> B\nclass B", "flowchart LR\nA [A] -\nB [B] Process\nA --> B\n"},
      // The first token of the table counts, not the first in the line.
      {"classDiagram\nFoo--Bar", "flowchart LR\nFo [Fo] -\nBar [Bar] -\nFo d-- Bar\n"},
  });
}

TEST(MermaidER, EntitiesAndRelations) {
  ExpectDumps({
      {"erDiagram\ntitle: Sales\nA ||--o{ B : \"has many\"\nA }|..|| C",
       "flowchart LR 'Sales'\nA [A] Database\nB [B] Database\nC [C] Database\nA -- B: has many  (||--o{)\n"
       "A .. C: }|..||\n"},
      {"erDiagram\nA-1.x {\nstring name\n}\nB -- C :",
       "flowchart LR\nA-1.x [A-1.x] Database\nB [B] Database\n"
       "C [C] Database\nB -- C: --\n"},
      {"erDiagram\nA one to many B", "flowchart LR\n"},
  });
}

TEST(MermaidRequirements, BlocksAndRelations) {
  ExpectDumps({
      {"requirementDiagram\nrequirement r1 {\nid: 1\nText: \"must print\"\n}\nelement e {\ntype: x\n}\n"
       "designConstraint d {\n}\ne - Satisfies -> r1\nr1 - refines -> other\nx-traces->d",
       "flowchart LR\nr1 [must print] Document\ne [e] Process\nd [d] Decision\nother [other] -\nx [x] -\n"
       "e --> r1: satisfies\nr1 ..> other: refines\nx ..> d: traces\n"},
      // Inside a block nothing is a relation.
      {"requirementDiagram\ntitle T\nrequirement a {\nb - copies -> c", "flowchart LR 'T'\na [a] Document\n"},
      {"requirementDiagram\ntext: x\na - likes -> b", "flowchart LR\n"},
  });
}

TEST(MermaidC4, ElementsAndRelations) {
  ExpectDumps({
      {"C4Context\ntitle  \"Shop\"\nPerson(u, \"User\", \"buys\")\nSystem_Ext(s , \"Bank\")\n"
       "ContainerDb( d,\"Data\")\nDeployment_Node(n, \"Node\") {\n}\nperson_ext(p, \"P\")\n"
       "Rel(u, s, \"pays\", \"card\")\nRel_Back(s, d, \"\")\nBiRel(u, d, \"no\")",
       "flowchart LR 'Shop'\nu [User] Ellipse\ns [Bank] Process\nd [Data] Database\nn [Node] Predefined\n"
       "p [P] Ellipse\nu --> s: pays\ns --> d\n"},
      {"c4dynamic\nRel(a , b, \"x\")\nComponent(b, \"B\")",
       "flowchart LR\na [a] -\nb [B] Process\na --> b: x\n"},
  });
}

TEST(MermaidArchitecture, GroupsServicesAndEdges) {
  ExpectDumps({
      {"architecture-beta\ngroup g(cloud)[Group]\nservice d(Database)[Data] in g\nservice i(internet)[Net]\n"
       "service s[Plain] in later\njunction j in g\nalign row a b\nd:R --> L:i\ns{group}:T -- B:j\ni:L <-- "
       "R:x",
       "flowchart LR\ng [Group] Predefined\nd [Data] Database\ni [Net] Ellipse\ns [Plain] Process\n"
       "later [later] -\nj [] Start\nx [x] -\ng .. d: contains\nlater .. s: contains\nd --> i\ns -- j\ni -- "
       "x\n"},
  });
}

}  // namespace
}  // namespace Zor
