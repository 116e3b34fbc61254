#include <array>

#include "diagrams/PlantUmlDump.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

struct TExample {
  const char* name;
  TZORDiagramKind kind;
  std::size_t nodes;
  std::size_t edges;
  const char* title;
};

constexpr std::array Examples{
    TExample{"activity", dkFlowChart, 12, 14, "Printing a label"},
    TExample{"archimate", dkFlowChart, 8, 8, "Who serves whom"},
    TExample{"c4", dkFlowChart, 7, 4, "Library loans"},
    TExample{"chen", dkFlowChart, 9, 8, "Music school"},
    TExample{"chronology", dkFlowChart, 8, 7, "The new press"},
    TExample{"data", dkMindMap, 13, 12, "A parcel"},
    TExample{"ditaa", dkFlowChart, 4, 3, "From order to parcel"},
    TExample{"files", dkMindMap, 14, 13, "Folder of a book"},
    TExample{"gantt", dkFlowChart, 9, 11, "Moving house"},
    TExample{"grammar", dkFlowChart, 8, 7, "Weights on labels"},
    TExample{"mindmap", dkMindMap, 9, 8, "Plans for the garden"},
    TExample{"network", dkFlowChart, 7, 6, "Office network"},
    TExample{"salt", dkFlowChart, 11, 10, "Sign in"},
    TExample{"sequence", dkSequence, 0, 0, "Returning a parcel"},
    TExample{"state", dkFlowChart, 6, 7, "Life of a print job"},
    TExample{"structure", dkFlowChart, 7, 6, "A small shop"},
    TExample{"timing", dkFlowChart, 7, 5, "Traffic light at the crossing"},
};

TEST(PlantUmlExamples, EveryKindIsReadWithoutAWarning) {
  for (const TExample& e : Examples) {
    const std::string file = std::string(KALDRIX_SOURCE_DIR "/examples/diagrams/") + e.name + ".puml";
    const std::string text = ReadFile(file);
    EXPECT_EQ(ZORDetectDiagramFormat(text), dgPlantUML) << e.name;
    const auto model = ZORParseDiagram(text, ZORDiagramFormatFromExt(file), true);
    EXPECT_FALSE(model->HasDiagnostics(dsInfo)) << e.name;
    EXPECT_EQ(model->GetKind(), e.kind) << e.name;
    EXPECT_EQ(model->GetNodes().size(), e.nodes) << e.name;
    EXPECT_EQ(model->GetEdges().size(), e.edges) << e.name;
    EXPECT_EQ(model->GetTitle(), e.title) << e.name;
  }
}

TEST(PlantUmlExamples, ASequenceHasParticipantsAndEvents) {
  const auto model = ZORParseDiagram(ReadFile(KALDRIX_SOURCE_DIR "/examples/diagrams/sequence.puml"));
  EXPECT_EQ(model->GetParticipants().size(), 4U);
  EXPECT_EQ(model->GetSeqEvents().size(), 9U);
}

}  // namespace
}  // namespace Zor
