#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

std::string Read(const std::string& aLines) { return DumpOfMermaid("sequenceDiagram\n" + aLines); }

TEST(MermaidSequence, Messages) {
  const struct {
    const char* line;
    const char* event;
  } cases[] = {
      {"A->>B: hi", "A ->> B: hi"},
      {"A-->>B: hi", "A -->> B: hi"},
      {"A->B: hi", "A -> B: hi"},
      {"A-->B:hi", "A --> B: hi"},
      {"A-xB: hi", "A -x B: hi"},
      {"A--xB: hi", "A --x B: hi"},
      {"A-)B: hi", "A -> B: hi"},
      {"A --) B : hi", "A --> B: hi"},
      {"A ->> B :", "A ->> B: "},
      {"A->>B:\xC2\xA0hi", "A ->> B: hi"},
      {"A->>B: a<br/>b: \"c\"", "A ->> B: a/b: \"c\""},
      {"A->>B: \"quoted\"", "A ->> B: quoted"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.line), std::string("sequence TD\nA = A\nB = B\n") + c.event + "\n") << c.line;
  }
}

TEST(MermaidSequence, NamesMayHoldWhatLooksLikeAnArrow) {
  EXPECT_EQ(Read("a-b.c->>d-e: x"), "sequence TD\na-b.c = a-b.c\nd-e = d-e\na-b.c ->> d-e: x\n");
  // The first arrow with a receiver and a colon counts.
  EXPECT_EQ(Read("a-xb->>c: t"), "sequence TD\na-xb = a-xb\nc = c\na-xb ->> c: t\n");
  EXPECT_EQ(Read("a-xb: t"), "sequence TD\na = a\nb = b\na -x b: t\n");
}

TEST(MermaidSequence, Participants) {
  EXPECT_EQ(Read("participant A as Alice Smith\nActor B\nparticipant \"C D\" as \"Carl\"\nA->>E: x"),
            "sequence TD\nA = Alice Smith\nB = B\nC D = Carl\nE = E\nA ->> E: x\n");
  // A name that is told later replaces the identifier; the second mention adds nothing.
  EXPECT_EQ(Read("A->>B: x\nparticipant A as Alice"),
            "sequence TD\nA = Alice\nB = B\nA ->> B: x\n! 3 MERMAID_UNRECOGNIZED_LINE\n");
}

TEST(MermaidSequence, Notes) {
  EXPECT_EQ(Read("note RIGHT OF A: one\nNote left of B : two\nNote over A,C: a<br>b"),
            "sequence TD\nA = A\nB = B\nnote right of A: one\nnote left of B: two\nnote over A,C: a/b\n");
}

TEST(MermaidSequence, BlocksAreFlattened) {
  EXPECT_EQ(Read("title: T\nautonumber\nloop every day\nA->>B: x\nend\nB-->>A: y\nnonsense"),
            "sequence TD 'T'\nA = A\nB = B\nA ->> B: x\nB -->> A: y\n! 3 MERMAID_UNSUPPORTED_STATEMENT\n"
            "! 4 MERMAID_UNSUPPORTED_STATEMENT\n! 6 MERMAID_UNSUPPORTED_STATEMENT\n"
            "! 8 MERMAID_UNRECOGNIZED_LINE\n");
}

}  // namespace
}  // namespace Zor
