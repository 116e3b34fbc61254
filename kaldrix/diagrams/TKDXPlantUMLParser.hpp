#pragma once

#include <string_view>

#include "kaldrix/diagrams/DiagramText.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"

namespace Zor::inline Diagramparsers {

enum TPumlKind : std::uint8_t {
  pkUnknown,
  pkSequence,
  pkActivity,
  pkState,
  pkMindMap,
  pkArchimate,
  pkStructure,
  pkC4,
  pkTiming,
  pkNetwork,
  pkChronology,
  pkData,
  pkSalt,
  pkGrammar,
  pkFiles,
  pkDitaa,
  pkChen,
  pkGantt
};

/// Reads PlantUML text of seventeen kinds. No full grammar: each kind knows the statements that make nodes,
/// edges or events, and drops every other line silently. Keeps nothing between calls.
class TKDXPlantUMLParser {
 public:
  TKDXPlantUMLParser() = delete;

  /// Fills a new or cleared model.
  static void Parse(std::string_view aText, TKDXDiagramModel& aModel);

  /// The kind of a text whose start tag does not tell it: by the first line that decides, pkSequence when
  /// none does. Lines on which matching was given up are reported and decide nothing.
  static TPumlKind DetectKind(TDiagramLines aLines, TKDXDiagramModel& aModel);

  // The kinds, each over lines in valid UTF-8 without empty lines, comments, directives and titles. The lines
  // are trimmed, but those of ParseData keep the white space in front.
  static void ParseSequence(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseActivity(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseState(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseMindMap(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseArchimate(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseStructure(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseC4(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseTiming(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseNetwork(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseChronology(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseData(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseSalt(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseGrammar(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseFiles(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseDitaa(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseChen(TDiagramLines aLines, TKDXDiagramModel& aModel);
  static void ParseGantt(TDiagramLines aLines, TKDXDiagramModel& aModel);
};

}  // namespace Zor::inline Diagramparsers
