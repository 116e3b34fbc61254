// Any bytes as Mermaid text. A control character in front chooses a header, so that every type is
// met. What comes out
// is a model whose index is right, whose texts are UTF-8, and which can be written as JSON.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/diagrams/ZOR.DiagramParsers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace {

using namespace Zor;

constexpr std::array Headers{
    "",
    "flowchart LR\n",
    "sequenceDiagram\n",
    "stateDiagram\n",
    "classDiagram\n",
    "mindmap\n",
    "erDiagram\n",
    "requirementDiagram\n",
    "gitGraph\n",
    "timeline\n",
    "journey\n",
    "C4Context\n",
    "pie\n",
    "sankey\n",
    "packet\n",
    "kanban\n",
    "architecture-beta\n",
    "treemap\n",
    "block\n",
    "quadrantChart\n",
    "xychart\n",
    "radar-beta\n",
    "venn-beta\n",
    "ishikawa-beta\n",
    "treeView-beta\n",
    "gantt\n",
};

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

void CheckModel(const TKDXDiagramModel& aModel) {
  Require(aModel.GetNodes().size() == aModel.fNodeIndex.size());
  for (std::size_t i = 0; i < aModel.GetNodes().size(); ++i) {
    const TZORDiagNode& node = aModel.GetNodes()[i];
    Require(!node.ID.empty() && aModel.NodeIndexOf(node.ID) == static_cast<int>(i));
    Require(Utf8::IsValid(node.ID) && Utf8::IsValid(node.Text));
  }
  for (const TZORDiagEdge& edge : aModel.GetEdges()) {
    Require(aModel.NodeIndexOf(edge.FromID) >= 0 && aModel.NodeIndexOf(edge.ToID) >= 0);
    Require(Utf8::IsValid(edge.Text));
  }
  for (const TZORSeqEvent& event : aModel.GetSeqEvents()) Require(!event.FromActor.empty());
  Require(Utf8::IsValid(aModel.GetTitle()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  std::string text(reinterpret_cast<const char*>(aData), aSize);
  if (aSize > 0 && aData[0] < Headers.size()) text = Headers[aData[0]] + text.substr(1);
  const auto model = ZORParseDiagram(text, dgMermaid);
  CheckModel(*model);
  Require(Utf8::IsValid(DiagramToJson(*model)->ToJSON(true)));
  return 0;
}
