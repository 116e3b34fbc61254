#include "kaldrix/diagrams/DiagramToJson.hpp"

#include <array>

#include "kaldrix/utils/Colors.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using TWord = std::string_view;

// In the order of the enumerations.
constexpr std::array<TWord, 4> KindWords{"flowchart", "sequence", "mindmap", "ishikawa"};
constexpr std::array<TWord, 2> DirectionWords{"top-down", "left-right"};
constexpr std::array<TWord, 3> SeverityWords{"info", "warning", "error"};
constexpr std::array<TWord, 6> EdgeArrowWords{"arrow", "none", "cross", "circle", "rhombus", "fillRhombus"};
constexpr std::array<TWord, 2> EventWords{"message", "note"};
constexpr std::array<TWord, 4> SeqArrowWords{"filled", "open", "cross", "none"};
constexpr std::array<TWord, EnumCount<TZORFlowType>> ShapeWords{
    "terminator",  "process",  "document",   "multiDocument", "decision",
    "data",        "database", "predefined", "manualInput",   "manualOperation",
    "preparation", "ellipse",  "start",      "step",          "end"};

template <std::size_t Count, class TEnum>
TWord WordOf(const std::array<TWord, Count>& aWords, TEnum aValue) {
  return aWords[static_cast<std::size_t>(aValue)];
}

void PutNode(TJsonObject& aObject, const TZORDiagNode& aNode) {
  aObject.PutString("id", aNode.ID);
  aObject.PutString("text", aNode.Text);
  if (aNode.HasShape) aObject.PutString("shape", WordOf(ShapeWords, aNode.Shape));
  if (aNode.Side != 0) aObject.PutInt("side", aNode.Side);
  if (aNode.HasBackColor) aObject.PutString("color", AlphaColorToHex(aNode.BackColor));
}

void PutEdge(TJsonObject& aObject, const TZORDiagEdge& aEdge) {
  aObject.PutString("from", aEdge.FromID);
  aObject.PutString("to", aEdge.ToID);
  if (!aEdge.Text.empty()) aObject.PutString("text", aEdge.Text);
  aObject.PutBool("dotted", aEdge.Dotted);
  aObject.PutString("fromArrow", WordOf(EdgeArrowWords, aEdge.FromArrow));
  aObject.PutString("arrow", WordOf(EdgeArrowWords, aEdge.Arrow));
}

void PutParticipant(TJsonObject& aObject, const TZORSeqParticipant& aParticipant) {
  aObject.PutString("id", aParticipant.ID);
  aObject.PutString("display", aParticipant.Display);
}

void PutEvent(TJsonObject& aObject, const TZORSeqEvent& aEvent) {
  aObject.PutString("type", WordOf(EventWords, aEvent.EventType));
  aObject.PutString("from", aEvent.FromActor);
  if (!aEvent.ToActor.empty()) aObject.PutString("to", aEvent.ToActor);
  aObject.PutString("text", aEvent.Text);
  if (aEvent.EventType == seNote) {
    aObject.PutString("position", aEvent.NotePosition);
  } else {
    aObject.PutBool("dotted", aEvent.Dotted);
    aObject.PutString("arrow", WordOf(SeqArrowWords, aEvent.Arrow));
  }
}

void PutDiagnostic(TJsonObject& aObject, const TZORDiagramDiagnostic& aDiagnostic) {
  aObject.PutString("severity", WordOf(SeverityWords, aDiagnostic.Severity));
  if (aDiagnostic.Line > 0) aObject.PutInt("line", aDiagnostic.Line);
  aObject.PutString("code", aDiagnostic.Code);
  aObject.PutString("message", aDiagnostic.MessageText);
  if (!aDiagnostic.SourceText.empty()) aObject.PutString("source", aDiagnostic.SourceText);
}

template <class TRecords, class TPut>
void PutList(TJsonObject& aRoot, const char* aKey, const TRecords& aRecords, TPut aPut) {
  TJsonArray& list = aRoot.AddNewArray(aKey);
  list.Reserve(static_cast<int>(aRecords.size()));
  for (const auto& record : aRecords) aPut(list.AddObject(), record);
}

}  // namespace

std::unique_ptr<TJsonObject> DiagramToJson(const TKDXDiagramModel& aModel) {
  auto root = std::make_unique<TJsonObject>();
  root->PutString("kind", WordOf(KindWords, aModel.fKind));
  root->PutString("direction", WordOf(DirectionWords, aModel.fDirection));
  root->PutString("title", aModel.fTitle);
  PutList(*root, "nodes", aModel.fNodes, PutNode);
  PutList(*root, "edges", aModel.fEdges, PutEdge);
  PutList(*root, "participants", aModel.fParticipants, PutParticipant);
  PutList(*root, "events", aModel.fSeqEvents, PutEvent);
  PutList(*root, "diagnostics", aModel.fDiagnostics, PutDiagnostic);
  return root;
}

}  // namespace Zor::inline Diagramparsers
