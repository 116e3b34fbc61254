#include "diagrams/ModelDump.hpp"

namespace Zor {
namespace {

TEST(ZORParseDiagram, FormatIsFoundInTheText) {
  EXPECT_EQ(ZORDetectDiagramFormat("graph TD\nA"), dgMermaid);
  EXPECT_EQ(ZORDetectDiagramFormat(""), dgMermaid);
  EXPECT_EQ(ZORDetectDiagramFormat("x @STARTUML y"), dgPlantUML);
  EXPECT_EQ(ZORDetectDiagramFormat("graph TD\n%% @startMindMap"), dgPlantUML);
  EXPECT_EQ(ZORDetectDiagramFormat("@startuml2"), dgMermaid);
  EXPECT_EQ(ZORDetectDiagramFormat("\xFF@startchen\xFF"), dgPlantUML);
}

TEST(ZORParseDiagram, FormatIsFoundInTheFileName) {
  for (const char* name : {"a.mmd", "a.b.MERMAID", "/x.puml/y.mmd"}) {
    EXPECT_EQ(ZORDiagramFormatFromExt(name), dgMermaid) << name;
  }
  for (const char* name : {"a.puml", "A.PlantUML", "a.pu", "a.iuml", "a.wsd"}) {
    EXPECT_EQ(ZORDiagramFormatFromExt(name), dgPlantUML) << name;
  }
  for (const char* name : {"", "mmd", "a.txt", "a.mmd.txt", "x.mmd/y", "a.", "a.mmdx"}) {
    EXPECT_EQ(ZORDiagramFormatFromExt(name), dgAuto) << name;
  }
}

TEST(ZORParseDiagram, AnEmptyResultIsAnError) {
  for (const char* text : {"", "\n\n", "graph LR", "%%", "kanban"}) {
    const auto model = ZORParseDiagram(text);
    ASSERT_EQ(model->GetDiagnostics().size(), 1U) << text;
    EXPECT_EQ(model->GetDiagnostics()[0].Code, "DIAGRAM_EMPTY_RESULT");
    EXPECT_EQ(model->GetDiagnostics()[0].Line, 0);
    EXPECT_TRUE(model->HasDiagnostics(dsError));
  }
  EXPECT_FALSE(ZORParseDiagram("A")->HasDiagnostics(dsInfo));
}

std::string StrictError(std::string_view aText) {
  try {
    ZORParseDiagram(aText, dgMermaid, true);
  } catch (const EZORDiagramParseError& e) {
    return e.what();
  }
  return "none";
}

TEST(ZORParseDiagram, StrictReadingRaisesTheFirstWarning) {
  EXPECT_EQ(StrictError(""), "DIAGRAM_EMPTY_RESULT: The diagram did not produce any renderable element.");
  EXPECT_EQ(StrictError("graph TD\nA --> B\nsubgraph x\n?"),
            "MERMAID_UNSUPPORTED_STATEMENT at line 3: The statement is recognized but is not rendered.");
  EXPECT_EQ(StrictError("A --> B"), "none");
}

TEST(ZORParseDiagram, BytesThatAreNotTextAreReplaced) {
  const auto model = ZORParseDiagram("A[x\xFFy] --> B\xC3");
  EXPECT_EQ(DumpOf(*model), "flowchart TD\nA [x\xEF\xBF\xBDy] Process\nB [B] -\nA --> B\n");
}

}  // namespace
}  // namespace Zor
