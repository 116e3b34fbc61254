// A model as lines that a person can write down beforehand.
#pragma once

#include <string>

#include "kaldrix/diagrams/ZOR.DiagramParsers.hpp"

namespace Zor {

namespace Dump {

inline constexpr const char* KindNames[] = {"flowchart", "sequence", "mindmap", "ishikawa"};
inline constexpr const char* ShapeNames[] = {
    "Terminator",  "Process",  "Document",   "MultiDocument", "Decision",
    "Data",        "Database", "Predefined", "ManualInput",   "ManualOperation",
    "Preparation", "Ellipse",  "Start",      "Step",          "End"};
inline constexpr const char* SourceTips[] = {"<", "", "x", "o", "d", "D"};
inline constexpr const char* TargetTips[] = {">", "", "x", "o", "d", "D"};
inline constexpr const char* SeqTips[] = {">>", ">", "x", ""};

/// Line breaks of labels as "/"; other control characters stay.
inline std::string OneLine(std::string aText) {
  for (std::size_t pos = 0; (pos = aText.find("\r\n", pos)) != std::string::npos;) aText.replace(pos, 2, "/");
  return aText;
}

inline std::string Node(const TZORDiagNode& n) {
  std::string text = n.ID + " [" + OneLine(n.Text) + "] " + (n.HasShape ? ShapeNames[n.Shape] : "-");
  if (n.Side != 0) text += n.Side < 0 ? " left" : " right";
  return text;
}

/// "A --> B: text", dotted "A ..> B"; the tips are those of TZORDiagEdgeArrow: > x o d D.
inline std::string Edge(const TZORDiagEdge& e) {
  return e.FromID + " " + SourceTips[static_cast<int>(e.FromArrow)] + (e.Dotted ? ".." : "--") +
         TargetTips[static_cast<int>(e.Arrow)] + " " + e.ToID +
         (e.Text.empty() ? "" : ": " + OneLine(e.Text));
}

/// "A ->> B: text", dotted "A -->> B", or "note over A,B: text".
inline std::string Event(const TZORSeqEvent& e) {
  if (e.EventType == seNote) {
    return "note " + e.NotePosition + " " + e.FromActor + (e.ToActor.empty() ? "" : "," + e.ToActor) + ": " +
           OneLine(e.Text);
  }
  return e.FromActor + " " + (e.Dotted ? "--" : "-") + SeqTips[e.Arrow] + " " + e.ToActor + ": " +
         OneLine(e.Text);
}

}  // namespace Dump

/// Kind, direction and title; then nodes, edges, participants, events and diagnostics, a line each.
inline std::string DumpOf(const TKDXDiagramModel& aModel) {
  std::string text = std::string(Dump::KindNames[aModel.GetKind()]) +
                     (aModel.GetDirection() == fdLeftRight ? " LR" : " TD") +
                     (aModel.GetTitle().empty() ? "" : " '" + aModel.GetTitle() + "'") + "\n";
  for (const auto& n : aModel.GetNodes()) text += Dump::Node(n) + "\n";
  for (const auto& e : aModel.GetEdges()) text += Dump::Edge(e) + "\n";
  for (const auto& p : aModel.GetParticipants()) text += p.ID + " = " + p.Display + "\n";
  for (const auto& e : aModel.GetSeqEvents()) text += Dump::Event(e) + "\n";
  for (const auto& d : aModel.GetDiagnostics()) text += "! " + std::to_string(d.Line) + " " + d.Code + "\n";
  return text;
}

inline std::string DumpOfMermaid(std::string_view aText) {
  TKDXDiagramModel model;
  TKDXMermaidParser::Parse(aText, model);
  return DumpOf(model);
}

/// A text and the dump of what it says.
struct TDumpCase {
  const char* text;
  const char* dump;
};

}  // namespace Zor
