#include "diagrams/PlantUmlDump.hpp"

namespace Zor {
namespace {

TEST(PlantUmlSequence, ArrowsTellLinesAndTips) {
  const std::pair<const char*, const char*> cases[] = {
      {"A -> B : x", "A ->> B: x"},
      {"A->B:x", "A ->> B: x"},
      {"A --> B : x", "A -->> B: x"},
      {"A ->> B : x", "A -> B: x"},
      {"A -->> B : x", "A --> B: x"},
      {"A ->x B : x", "A -x B: x"},
      {"A -->>x B : x", "A --x B: x"},
      {"A ->o B : x", "A ->> B: x"},
      {"A -> B :", "A ->> B: "},
      {"A -> B : x<br>y : z", "A ->> B: x/y : z"},
      {"A ->: x", nullptr},
      {"A -> B", nullptr},
      {"A <- B : x", nullptr},
      {"A - B : x", nullptr},
      {"A ->X B : x", nullptr},
      {"A-1 -> B : x", nullptr},
  };
  for (const auto& [text, event] : cases) {
    std::string expected = "sequence TD\nP = P\n";
    if (event) expected += "A = A\nB = B\n" + std::string(event) + "\n";
    EXPECT_EQ(DumpOfPlantUML(std::string("participant P\n") + text), expected) << text;
  }
}

TEST(PlantUmlSequence, Participants) {
  ExpectPlantUML({
      {"actor \"Mr. B\" as B #red\nBoundary b.1\ncollections \"two words\"\nentity E as\ncontrol C #12 3\n"
       "database D #blue\nB -> \"two words\" : hi\nqueue2 Q",
       "sequence TD\nB = Mr. B\nb.1 = b.1\ntwo words = two words\nD = D\nB ->> two words: hi\n"},
      // A name may be the letter of a tip.
      {"A ->o: x", "sequence TD\nA = A\no = o\nA ->> o: x\n"},
      {"A -> B : x\nparticipant \"Bee\" as B", "sequence TD\nA = A\nB = Bee\nA ->> B: x\n"},
  });
}

TEST(PlantUmlSequence, NotesOfOneLine) {
  ExpectPlantUML({
      {"note Right Of A : x<br>y\nnote over \"B b\" , C: z\nNote left of D :\nnote over E F : no",
       "sequence TD\nA = A\nB b = B b\nD = D\nnote right of A: x/y\nnote over B b,C: z\nnote left of D: \n"},
  });
}

TEST(PlantUmlSequence, NotesOfSeveralLines) {
  ExpectPlantUML({
      {"note over A, \"B b\"\none\n A -> B : x \nnote left of C\nEND NOTE\nA -> B : y",
       "sequence TD\nA = A\nB = B\nnote over A,B b: one/A -> B : x/note left of C\nA ->> B: y\n"},
      {"note right of A\nend note", "sequence TD\nA = A\nnote right of A: \n"},
      {"note left of A\nnever closed\nA -> B : x", "sequence TD\n"},
      {"note  over A\nB -> C : x\nend note", "sequence TD\nB = B\nC = C\nB ->> C: x\n"},
  });
}

}  // namespace
}  // namespace Zor
