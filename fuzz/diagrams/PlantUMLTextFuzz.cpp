// Any bytes as PlantUML text. A control character in front chooses a line that tells the kind, so that every
// kind is met. What comes out is a model whose index is right, whose edges have their nodes, whose texts are
// UTF-8, and which can be written as JSON.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/diagrams/ZOR.DiagramParsers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace {

using namespace Zor;

constexpr std::array Starts{
    "",
    "A -> B : x\n",
    "start\n",
    "state A\n",
    "@startmindmap\n* a\n",
    "Rel_Flow(a, b, c)\n",
    "class A\n",
    "Person(a, \"b\")\n",
    "robust \"a\" as b\n",
    "nwdiag {\nnetwork a {\n",
    "@startchronology\n",
    "@startyaml\n",
    "@startsalt\n",
    "@startebnf\n",
    "@startfiles\n",
    "@startditaa\n",
    "@startchen\nentity a {\n",
    "@startgantt\n-- a --\n",
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
  for (const TZORSeqEvent& event : aModel.GetSeqEvents()) {
    Require(Utf8::IsValid(event.FromActor) && Utf8::IsValid(event.ToActor) && Utf8::IsValid(event.Text));
    Require((event.EventType == seNote) == !event.NotePosition.empty());
  }
  Require(Utf8::IsValid(aModel.GetTitle()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  std::string text(reinterpret_cast<const char*>(aData), aSize);
  if (aSize > 0 && aData[0] < Starts.size()) text = Starts[aData[0]] + text.substr(1);
  const auto model = ZORParseDiagram(text, dgPlantUML);
  CheckModel(*model);
  Require(Utf8::IsValid(DiagramToJson(*model)->ToJSON(true)));
  return 0;
}
