// The frame of every Mermaid type that is read by a routine of its own, and lines that several types know.
#pragma once

#include <string_view>

#include "kaldrix/diagrams/DiagramElements.hpp"
#include "kaldrix/diagrams/DiagramText.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/platform/TRegex.hpp"

namespace Zor::inline Diagramparsers::Mermaid {

/// How a diagram type announces itself: by a line that begins with the word, in any case, and fits the
/// pattern; without a pattern the word is all.
struct THeader {
  std::string_view word;  ///< in lower case
  const TRegex* pattern = nullptr;

  bool Fits(std::string_view aLine) const {
    if (!pattern) return !word.empty() && SameWord(aLine, word);
    return StartsWithWord(aLine, word) && pattern->Matches(aLine);
  }
};

// Defined with the list of types.
extern const THeader StateHeader, ClassHeader, MindMapHeader, ERHeader, RequirementsHeader, GitGraphHeader,
    TimelineHeader, JourneyHeader, C4Header, PieHeader, SankeyHeader, PacketHeader, KanbanHeader,
    ArchitectureHeader, TreemapHeader, BlockHeader, QuadrantHeader, XYChartHeader, RadarHeader, VennHeader,
    IshikawaHeader, TreeViewHeader, GanttHeader;

/// Calls `aRead(text, line)` with each line, trimmed and as it stands, but for empty lines, comments and the
/// header.
template <class TRead>
void ForEachLine(TDiagramLines aLines, const THeader& aHeader, TKDXDiagramModel& aModel, TRead aRead) {
  for (const TDiagramLine& line : aLines) {
    const std::string_view text = Trim(line.Text);
    if (text.empty() || text.starts_with("%%") || aHeader.Fits(text)) continue;
    try {
      aRead(text, line.Text);
    } catch (const ERegexLimit&) {
      ReportMatchLimit(line, aModel);
    }
  }
}

// A title line sets the title of the model. They differ in what separates the word from the title.
/// "title: Text" or "title Text".
bool ReadTitle(std::string_view aText, TKDXDiagramModel& aModel);
/// "title Text", cleaned.
bool ReadCleanTitle(std::string_view aText, TKDXDiagramModel& aModel);

/// How many bytes of an identifier the text begins with: words joined by single "-" or ".".
std::size_t NameLength(std::string_view aText);

/// Where "  :::class" at the end of a text begins, at byte `aFrom` or behind it; npos without one.
std::size_t ClassSuffix(std::string_view aText, std::size_t aFrom = 0);

}  // namespace Zor::inline Diagramparsers::Mermaid
