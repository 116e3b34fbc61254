#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

using enum TZORDiagEdgeArrow;

TEST(TKDXDiagramModel, AddNodeMerges) {
  struct TAdd {
    const char* text;
    TZORFlowType shape;
    bool hasShape;
  };
  const struct {
    TAdd first, second;
    const char* dump;
  } cases[] = {
      {{"", ftProcess, false}, {"", ftProcess, false}, "A [A] -"},
      {{"", ftData, true}, {"x", ftData, true}, "A [] Data"},
      {{"", ftProcess, false}, {"x", ftData, true}, "A [x] Data"},
      {{"", ftProcess, false}, {"", ftData, true}, "A [A] Data"},
      {{"x", ftProcess, false}, {"", ftData, true}, "A [x] Data"},
      {{"x", ftProcess, false}, {"y", ftData, true}, "A [y] Data"},
      {{"x", ftProcess, false}, {"y", ftData, false}, "A [x] -"},
      {{"A", ftStart, true}, {"y", ftData, true}, "A [y] Start"},
      {{"x", ftStart, true}, {"y", ftData, true}, "A [x] Start"},
  };
  for (const auto& c : cases) {
    TKDXDiagramModel model;
    EXPECT_EQ(model.AddNode("A", c.first.text, c.first.shape, c.first.hasShape), 0);
    EXPECT_EQ(model.AddNode("A", c.second.text, c.second.shape, c.second.hasShape, 1, 5, true), 0);
    ASSERT_EQ(model.GetNodes().size(), 1U);
    EXPECT_EQ(Dump::Node(model.GetNodes()[0]), c.dump);
    EXPECT_FALSE(model.GetNodes()[0].HasBackColor);
  }
}

TEST(TKDXDiagramModel, NodesAreFoundByExactID) {
  TKDXDiagramModel model;
  EXPECT_EQ(model.AddNode(""), -1);
  EXPECT_EQ(model.AddNode("a"), 0);
  EXPECT_EQ(model.AddNode("A"), 1);
  EXPECT_EQ(model.NodeIndexOf("A"), 1);
  EXPECT_EQ(model.NodeIndexOf("b"), -1);
  model.SetNodeInId("A", 17);
  model.SetNodeInId("b", 18);
  EXPECT_EQ(model.GetNodeInId("A"), 17);
  EXPECT_EQ(model.GetNodeInId("a"), 0);
  EXPECT_EQ(model.GetNodeInId("b"), 0);
}

TEST(TKDXDiagramModel, EdgesAndParticipantsNeedNames) {
  TKDXDiagramModel model;
  model.AddEdge("", "b");
  model.AddEdge("a", "");
  model.AddEdge("a", "b", "t", true, eaCross);
  model.AddParticipant("");
  model.AddParticipant("p");
  model.AddParticipant("p", "p");
  model.AddParticipant("q", "Q");
  model.AddParticipant("q", "");
  model.AddParticipant("p", "P");
  EXPECT_EQ(DumpOf(model), "flowchart TD\na ..x b: t\np = P\nq = Q\n");
}

TEST(TKDXDiagramModel, ClearForgetsEverything) {
  TKDXDiagramModel model;
  TKDXMermaidParser::Parse("sequenceDiagram\ntitle T\nA->>B: x\nend", model);
  model.AddNode("n");
  model.AddEdge("n", "n");
  model.fDirection = fdLeftRight;
  model.Clear();
  EXPECT_EQ(DumpOf(model), "flowchart TD\n");
  EXPECT_EQ(model.NodeIndexOf("n"), -1);
  model.AddParticipant("A");
  EXPECT_EQ(model.GetParticipants().size(), 1U);
}

TEST(TKDXDiagramModel, EdgesStopBeforeTheyFillTheMemory) {
  TKDXDiagramModel model;
  const std::string name(1 << 20, 'n');
  int count = 0;
  while (count < 1000 && model.AddEdge(name, "b")) ++count;
  EXPECT_GT(count, 50);
  EXPECT_LT(count, 65);
  EXPECT_FALSE(model.AddEdge("a", "b"));
  ASSERT_EQ(model.GetDiagnostics().size(), 1U);
  EXPECT_EQ(model.GetDiagnostics()[0].Code, "DIAGRAM_TOO_LARGE");
}

TEST(TKDXDiagramModel, AsJson) {
  TKDXDiagramModel model;
  TKDXMermaidParser::Parse("graph LR\ntitle T\nA[\"x<br>y\"] -.->|go| B\nend", model);
  model.AddNode("C", "c", ftEllipse, true, -1, 0x80112233, true);
  EXPECT_EQ(
      DiagramToJson(model)->ToJSON(true),
      R"({"kind":"flowchart","direction":"left-right","title":"T","nodes":[)"
      R"({"id":"A","text":"x\r\ny","shape":"process"},{"id":"B","text":"B"},)"
      R"({"id":"C","text":"c","shape":"ellipse","side":-1,"color":"#11223380"}],"edges":[)"
      R"({"from":"A","to":"B","text":"go","dotted":true,"fromArrow":"none","arrow":"arrow"}],)"
      R"("participants":[],"events":[],"diagnostics":[{"severity":"warning","line":4,)"
      R"("code":"MERMAID_UNSUPPORTED_STATEMENT","message":"The statement is recognized but is not rendered.",)"
      R"("source":"end"}]})");
  model.Clear();
  TKDXMermaidParser::Parse("sequenceDiagram\nA-xB: t\nNote over A: n", model);
  EXPECT_EQ(DiagramToJson(model)->ToJSON(true),
            R"({"kind":"sequence","direction":"top-down","title":"","nodes":[],"edges":[],"participants":[)"
            R"({"id":"A","display":"A"},{"id":"B","display":"B"}],"events":[)"
            R"({"type":"message","from":"A","to":"B","text":"t","dotted":false,"arrow":"cross"},)"
            R"({"type":"note","from":"A","text":"n","position":"over"}],"diagnostics":[]})");
}

}  // namespace
}  // namespace Zor
