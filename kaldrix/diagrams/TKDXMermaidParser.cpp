// The entry: which type a text is, and the lines of flowcharts and sequence diagrams with their diagnostics.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/diagrams/MermaidLines.hpp"

namespace Zor::inline Diagramparsers {

namespace Mermaid {

namespace {

constinit const TRegex StatePattern("^stateDiagram(?:-v2)?$", rcIgnore);
constinit const TRegex GitGraphPattern("^gitGraph(?:\\s|$)", rcIgnore);
constinit const TRegex C4Pattern("^C4(?:Context|Container|Component|Dynamic|Deployment)", rcIgnore);
constinit const TRegex PiePattern("^pie(?:\\s|$)", rcIgnore);
constinit const TRegex SankeyPattern("^sankey(?:-beta)?$", rcIgnore);
constinit const TRegex PacketPattern("^packet(?:-beta)?$", rcIgnore);
constinit const TRegex TreemapPattern("^treemap(?:-beta)?$", rcIgnore);
constinit const TRegex BlockPattern("^block(?:-beta)?$", rcIgnore);
constinit const TRegex XYChartPattern("^xychart(?:-beta)?(?:\\s++horizontal)?$", rcIgnore);

}  // namespace

constinit const THeader StateHeader{"statediagram", &StatePattern};
constinit const THeader ClassHeader{"classdiagram"};
constinit const THeader MindMapHeader{"mindmap"};
constinit const THeader ERHeader{"erdiagram"};
constinit const THeader RequirementsHeader{"requirementdiagram"};
constinit const THeader GitGraphHeader{"gitgraph", &GitGraphPattern};
constinit const THeader TimelineHeader{"timeline"};
constinit const THeader JourneyHeader{"journey"};
constinit const THeader C4Header{"c4", &C4Pattern};
constinit const THeader PieHeader{"pie", &PiePattern};
constinit const THeader SankeyHeader{"sankey", &SankeyPattern};
constinit const THeader PacketHeader{"packet", &PacketPattern};
constinit const THeader KanbanHeader{"kanban"};
constinit const THeader ArchitectureHeader{"architecture-beta"};
constinit const THeader TreemapHeader{"treemap", &TreemapPattern};
constinit const THeader BlockHeader{"block", &BlockPattern};
constinit const THeader QuadrantHeader{"quadrantchart"};
constinit const THeader XYChartHeader{"xychart", &XYChartPattern};
constinit const THeader RadarHeader{"radar-beta"};
constinit const THeader VennHeader{"venn-beta"};
constinit const THeader IshikawaHeader{"ishikawa-beta"};
constinit const THeader TreeViewHeader{"treeview-beta"};
constinit const THeader GanttHeader{"gantt"};

}  // namespace Mermaid

namespace {

using namespace Mermaid;

struct TType {
  const THeader& header;
  void (*parse)(TDiagramLines aLines, TKDXDiagramModel& aModel);
};

constexpr std::array Types{
    TType{StateHeader, TKDXMermaidParser::ParseState},
    TType{ClassHeader, TKDXMermaidParser::ParseClass},
    TType{MindMapHeader, TKDXMermaidParser::ParseMindMap},
    TType{ERHeader, TKDXMermaidParser::ParseER},
    TType{RequirementsHeader, TKDXMermaidParser::ParseRequirements},
    TType{GitGraphHeader, TKDXMermaidParser::ParseGitGraph},
    TType{TimelineHeader, TKDXMermaidParser::ParseTimeline},
    TType{JourneyHeader, TKDXMermaidParser::ParseJourney},
    TType{C4Header, TKDXMermaidParser::ParseC4},
    TType{PieHeader, TKDXMermaidParser::ParsePie},
    TType{SankeyHeader, TKDXMermaidParser::ParseSankey},
    TType{PacketHeader, TKDXMermaidParser::ParsePacket},
    TType{KanbanHeader, TKDXMermaidParser::ParseKanban},
    TType{ArchitectureHeader, TKDXMermaidParser::ParseArchitecture},
    TType{TreemapHeader, TKDXMermaidParser::ParseTreemap},
    TType{BlockHeader, TKDXMermaidParser::ParseBlock},
    TType{QuadrantHeader, TKDXMermaidParser::ParseQuadrant},
    TType{XYChartHeader, TKDXMermaidParser::ParseXYChart},
    TType{RadarHeader, TKDXMermaidParser::ParseRadar},
    TType{VennHeader, TKDXMermaidParser::ParseVenn},
    TType{IshikawaHeader, TKDXMermaidParser::ParseIshikawa},
    TType{TreeViewHeader, TKDXMermaidParser::ParseTreeView},
    TType{GanttHeader, TKDXMermaidParser::ParseGantt},
};

constexpr std::string_view FrontMatterMark = "---";

constinit const TRegex FlowHeader("^(?:graph|flowchart)\\s*+(TD|TB|BT|LR|RL)?\\s*+$", rcIgnore);
constinit const TRegex UnsupportedLine(
    "^(subgraph\\b|end\\b|direction\\b|classDef\\b|class\\b|style\\b|linkStyle\\b|click\\b|accTitle\\b|"
    "accDescr\\b|autonumber\\b|activate\\b|deactivate\\b|loop\\b|alt\\b|else\\b|opt\\b|par\\b|and\\b|rect\\b|"
    "box\\b|critical\\b|break\\b|---)",
    rcIgnore);

/// The lines behind the front matter; all when there is none, or when it has no end.
TDiagramLines BodyOf(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  const auto isMark = [](const TDiagramLine& line) { return Trim(line.Text) == FrontMatterMark; };
  const auto first = std::find_if(aLines.begin(), aLines.end(),
                                  [](const TDiagramLine& line) { return !Trim(line.Text).empty(); });
  if (first == aLines.end() || !isMark(*first)) return aLines;
  const auto end = std::find_if(first + 1, aLines.end(), isMark);
  if (end != aLines.end()) return {end + 1, aLines.end()};
  aModel.AddDiagnostic(dsWarning, first->Number, "MERMAID_UNCLOSED_FRONTMATTER",
                       "Mermaid frontmatter has no closing --- delimiter.", first->Text);
  return aLines;
}

/// The type that the first header in the lines tells; none for a flowchart or a sequence diagram.
const TType* TypeOf(TDiagramLines aLines) {
  for (const TDiagramLine& line : aLines) {
    const std::string_view text = Trim(line.Text);
    if (text.empty()) continue;
    for (const TType& type : Types) {
      if (type.header.Fits(text)) return &type;
    }
  }
  return nullptr;
}

/// What a line can add to. A line that adds nothing was not recognised.
std::size_t ElementCount(const TKDXDiagramModel& aModel) {
  return aModel.fNodes.size() + aModel.fEdges.size() + aModel.fParticipants.size() + aModel.fSeqEvents.size();
}

bool ReadFlowHeader(std::string_view aText, TKDXDiagramModel& aModel) {
  TMatch match;
  if (!FlowHeader.Match(aText, match)) return false;
  const bool leftRight = SameWord(match[1], "lr") || SameWord(match[1], "rl");
  BeginDiagram(aModel, dkFlowChart, leftRight ? fdLeftRight : fdTopDown);
  return true;
}

void ReadLine(std::string_view aText, std::int32_t aNumber, TKDXDiagramModel& aModel) {
  if (ReadFlowHeader(aText, aModel)) return;
  if (StartsWithWord(aText, "sequencediagram")) {
    aModel.fKind = dkSequence;
    return;
  }
  if (ReadTitle(aText, aModel)) return;
  if (UnsupportedLine.Matches(aText)) {
    aModel.AddDiagnostic(dsWarning, aNumber, "MERMAID_UNSUPPORTED_STATEMENT",
                         "The statement is recognized but is not rendered.", aText);
    return;
  }
  const std::size_t count = ElementCount(aModel);
  if (aModel.fKind == dkSequence) {
    TKDXMermaidParser::ParseSequenceLine(aText, aModel);
  } else {
    TKDXMermaidParser::ParseFlowLine(aText, aModel);
  }
  if (ElementCount(aModel) != count) return;
  aModel.AddDiagnostic(dsWarning, aNumber, "MERMAID_UNRECOGNIZED_LINE",
                       "The line was not recognized and was ignored.", aText);
}

}  // namespace

void TKDXMermaidParser::Parse(std::string_view aText, TKDXDiagramModel& aModel) {
  aModel.fKind = dkFlowChart;
  std::string repaired;
  const std::vector<TDiagramLine> lines = SplitDiagramLines(ValidDiagramText(aText, repaired));
  const TDiagramLines body = BodyOf(lines, aModel);
  if (const TType* type = TypeOf(body)) {
    type->parse(body, aModel);
    return;
  }
  for (const TDiagramLine& line : body) {
    const std::string_view whole = Trim(line.Text);
    const std::string_view text = Trim(whole.substr(0, whole.find("%%")));
    if (text.empty()) continue;
    try {
      ReadLine(text, line.Number, aModel);
    } catch (const ERegexLimit&) {
      ReportMatchLimit(line, aModel);
    }
  }
}

}  // namespace Zor::inline Diagramparsers
