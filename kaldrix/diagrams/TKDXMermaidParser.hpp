#pragma once

#include <string_view>

#include "kaldrix/diagrams/DiagramText.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"

namespace Zor::inline Diagramparsers {

/// Reads Mermaid text: flowcharts and sequence diagrams line by line, with a diagnostic for each line that is
/// passed over; twenty-three other types each by a routine that reduces it to nodes and edges and drops
/// unknown lines silently. Keeps nothing between calls.
class TKDXMermaidParser {
 public:
  TKDXMermaidParser() = delete;

  /// Fills a new or cleared model.
  static void Parse(std::string_view aText, TKDXDiagramModel& aModel);

  /// The shape that the brackets around a text tell, and what stands between them, cleaned. False without
  /// brackets.
  static bool DecodeShape(std::string_view aText, TZORFlowType& aShape, std::string& aLabel);
  /// A chain of nodes and links. False when the line does not begin with a node.
  static bool ParseFlowLine(std::string_view aLine, TKDXDiagramModel& aModel);
  /// A participant, a message or a note; any other line changes nothing.
  static void ParseSequenceLine(std::string_view aLine, TKDXDiagramModel& aModel);

  // The types, each over the lines of a body. The lines are valid UTF-8.
  static void ParseState(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseClass(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseMindMap(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseER(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseRequirements(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseGitGraph(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseTimeline(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseJourney(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseC4(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParsePie(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseSankey(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParsePacket(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseKanban(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseArchitecture(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseTreemap(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseBlock(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseQuadrant(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseXYChart(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseRadar(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseVenn(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseIshikawa(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseTreeView(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseGantt(TDiagramLines aLines, TKDXDiagramModel& aModel);
};

}  // namespace Zor::inline Diagramparsers
