#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

TEST(PlantUmlActivity, ActionsFollowEachOther) {
  ExpectPlantUML({
      {"start\n:one;\n:two<br>lines|\n:three]\nstop",
       "flowchart TD\nn1 [] Start\nn2 [one] Process\nn3 [two/lines] Process\nn4 [three] Process\nn5 [] End\n"
       "n1 --> n2\nn2 --> n3\nn3 --> n4\nn4 --> n5\n"},
      // Nothing leads away from an end, nor to a second start.
      {":a;\nend\n:b;\nSTART\n:c;\n:open\nrepeat (x)",
       "flowchart TD\nn1 [a] Process\nn2 [] End\nn3 [b] Process\nn4 [] Start\nn5 [c] Process\n"
       "n1 --> n2\nn4 --> n5\n"},
  });
}

TEST(PlantUmlActivity, BranchesMeetBehindTheIf) {
  ExpectPlantUML({
      {"if (a (b)?) then (yes)\n:x;\nelse ( no )\n:y;\nendif\n:z;",
       "flowchart TD\nn1 [a (b)?] Decision\nn2 [x] Process\nn3 [y] Process\nn4 [z] Process\nn1 --> n2: yes\n"
       "n1 --> n3: no\nn3 --> n4\nn2 --> n4\n"},
      {"if (a) then\n:x;\nendif\n:z;",
       "flowchart TD\nn1 [a] Decision\nn2 [x] Process\nn3 [z] Process\nn1 --> n2\nn2 --> n3\nn1 --> n3\n"},
      {"if (a) then (1)\nstop\nelse (2)\nendif\n:z;",
       "flowchart TD\nn1 [a] Decision\nn2 [] End\nn3 [z] Process\nn1 --> n2: 1\nn1 --> n3: 2\n"},
      {"if (a) then (1)\nif (b) then (2)\nelse (3)\nendif\nelse (4)\nendif\n:z;",
       "flowchart TD\nn1 [a] Decision\nn2 [b] Decision\nn3 [z] Process\nn1 --> n2: 1\nn1 --> n3: 4\n"
       "n2 --> n3: 3\nn2 --> n3: 2\n"},
  });
}

TEST(PlantUmlActivity, LoopsLeadBack) {
  ExpectPlantUML({
      {"while (more?) is (yes)\n:x;\nendwhile (no)\n:z;",
       "flowchart TD\nn1 [more?] Decision\nn2 [x] Process\nn3 [z] Process\nn1 --> n2: yes\nn2 --> n1\n"
       "n1 --> n3: no\n"},
      {"while (a)\nendwhile\nstop", "flowchart TD\nn1 [a] Decision\nn2 [] End\nn1 --> n1\nn1 --> n2\n"},
  });
}

TEST(PlantUmlActivity, WhatDoesNotFitTheInnermostBlockDoesNothing) {
  ExpectPlantUML({
      {":a;\nelse (x)\nendif\nendwhile\n:b;", "flowchart TD\nn1 [a] Process\nn2 [b] Process\nn1 --> n2\n"},
      {"if (a) then (y)\nendwhile (n)\n:b;", "flowchart TD\nn1 [a] Decision\nn2 [b] Process\nn1 --> n2: y\n"},
      {"while (a) is (y)\nelse (n)\nendif\n:b;",
       "flowchart TD\nn1 [a] Decision\nn2 [b] Process\nn1 --> n2: y\n"},
  });
}

TEST(PlantUmlState, StatesAndTransitions) {
  ExpectPlantUML({
      {"[*] --> A\nstate \"Long name\" as B {\nA -> B : go<br>on\nstate C\nB-->[*]:\nstate D.1{\n[*]->[*]\n}",
       "flowchart TD\n__start__ [] Start\nA [A] -\nB [Long name] Process\nC [C] -\n__end__ [] End\n"
       "D.1 [D.1] -\n__start__ --> A\nA --> B: go/on\nB --> __end__\n__start__ --> __end__\n"},
      // A name with blanks needs an alias in transitions.
      {"state \"two words\"\nA ---> B\nA --> B C\nA --> B",
       "flowchart TD\ntwo words [two words] -\nA [A] -\nB [B] -\nA --> B\n"},
  });
}

}  // namespace
}  // namespace Zor
