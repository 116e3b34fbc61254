#include <array>

#include "diagrams/ModelDump.hpp"
#include "kaldrix/platform/Files.hpp"

namespace Zor {
namespace {

struct TExample {
  const char* name;
  TZORDiagramKind kind;
  std::size_t nodes;
  std::size_t edges;
  const char* title = "";
};

constexpr std::array Examples{
    TExample{"architecture", dkFlowChart, 8, 10},
    TExample{"block", dkFlowChart, 7, 6},
    TExample{"c4", dkFlowChart, 7, 5, "Ticket sale of the theatre"},
    TExample{"class", dkFlowChart, 7, 7},
    TExample{"er", dkFlowChart, 7, 6},
    TExample{"flowchart", dkFlowChart, 12, 14},
    TExample{"gantt", dkFlowChart, 11, 13, "Moving to the new hall"},
    TExample{"gitgraph", dkFlowChart, 9, 10},
    TExample{"ishikawa", dkIshikawa, 12, 11, "Why labels are crooked"},
    TExample{"journey", dkFlowChart, 11, 8, "A visit at the bicycle shop"},
    TExample{"kanban", dkFlowChart, 12, 8},
    TExample{"mindmap", dkMindMap, 16, 15},
    TExample{"packet", dkFlowChart, 9, 8, "Header of a sensor message"},
    TExample{"pie", dkFlowChart, 9, 8, "Where the working day goes"},
    TExample{"quadrant", dkFlowChart, 12, 6, "Which features to build first"},
    TExample{"radar", dkFlowChart, 11, 10, "Three laser printers compared"},
    TExample{"requirement", dkFlowChart, 4, 3, "Label printer"},
    TExample{"sankey", dkFlowChart, 10, 10},
    TExample{"sequence", dkSequence, 0, 0, "Paying by card"},
    TExample{"state", dkFlowChart, 7, 9},
    TExample{"timeline", dkFlowChart, 11, 8, "History of the workshop"},
    TExample{"treemap", dkMindMap, 12, 10},
    TExample{"treeview", dkMindMap, 11, 10, "Folder of a project"},
    TExample{"venn", dkFlowChart, 8, 9, "Who does what in the team"},
    TExample{"xychart", dkFlowChart, 7, 6, "Parcels in the first half of the year"},
};

TEST(DiagramExamples, EveryTypeIsReadWithoutAWarning) {
  for (const TExample& e : Examples) {
    const std::string file = std::string(KALDRIX_SOURCE_DIR "/examples/diagrams/") + e.name + ".mmd";
    const auto model = ZORParseDiagram(ReadFile(file), ZORDiagramFormatFromExt(file), true);
    EXPECT_FALSE(model->HasDiagnostics(dsInfo)) << e.name;
    EXPECT_EQ(model->GetKind(), e.kind) << e.name;
    EXPECT_EQ(model->GetNodes().size(), e.nodes) << e.name;
    EXPECT_EQ(model->GetEdges().size(), e.edges) << e.name;
    EXPECT_EQ(model->GetTitle(), e.title) << e.name;
    for (const TZORDiagEdge& edge : model->GetEdges()) {
      EXPECT_GE(model->NodeIndexOf(edge.FromID), 0) << e.name << " " << edge.FromID;
      EXPECT_GE(model->NodeIndexOf(edge.ToID), 0) << e.name << " " << edge.ToID;
    }
  }
}

TEST(DiagramExamples, ASequenceHasParticipantsAndEvents) {
  const auto model = ZORParseDiagram(ReadFile(KALDRIX_SOURCE_DIR "/examples/diagrams/sequence.mmd"));
  EXPECT_EQ(model->GetParticipants().size(), 4U);
  EXPECT_EQ(model->GetSeqEvents().size(), 11U);
}

}  // namespace
}  // namespace Zor
