// Drawings made of characters, each cell a node: forms, boxes, grammar rules.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "kaldrix/diagrams/PlantUMLLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using namespace PlantUML;

constinit const TRegex SaltBlock("^\\{[+#^!]", rcIgnore);
constexpr std::string_view SaltMarks = "[]\"'{}#+^!";

constinit const TRegex GrammarRule("^([A-Za-z_][\\w.-]*)\\s*(?:::?=|=)\\s*(.*?);?$");

constinit const TRegex DitaaTag("\\{(?:c|d|io|mo|o|s|tr)\\}", rcIgnore);
constinit const TRegex DitaaColor("\\bc[A-Z0-9]{3}\\b", rcIgnore);
constexpr std::string_view DitaaLines = "-+<>^v";

struct TDitaaShape {
  std::string_view tag;
  TZORFlowType shape;
};

/// The first whose tag stands in the cell counts.
constexpr std::array DitaaShapes{
    TDitaaShape{"{c}", ftDecision},
    TDitaaShape{"{d}", ftDocument},
    TDitaaShape{"{io}", ftData},
    TDitaaShape{"{mo}", ftManualOperation},
    TDitaaShape{"{tr}", ftManualOperation},
    TDitaaShape{"{o}", ftEllipse},
    TDitaaShape{"{s}", ftDatabase},
};

// --- Forms -----------------------------------------------------------------------------------------------

void ReadSalt(std::string_view aText, TNumberedNodes& aNodes, std::string& aBefore,
              TKDXDiagramModel& aModel) {
  if (aText == "{" || aText == "}" || SaltBlock.Matches(aText)) return;
  for (const std::string_view cell : SplitTrimmed(aText, '|')) {
    const std::string text = CleanDiagramText(WithoutEnds(cell, SaltMarks));
    if (text.empty() || text == ".") continue;
    const std::string& id = aNodes.Add(text, ftManualInput);
    AddPlainEdge(aModel, aBefore, id, {}, true);
    aBefore = id;
  }
}

// --- Boxes -----------------------------------------------------------------------------------------------

bool IsAsciiLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

TZORFlowType DitaaShapeOf(std::string_view aCell) {
  const std::string lower = LowerCase(aCell);
  const auto* found = std::find_if(DitaaShapes.begin(), DitaaShapes.end(), [&](const TDitaaShape& s) {
    return lower.find(s.tag) != std::string::npos;
  });
  return found == DitaaShapes.end() ? ftProcess : found->shape;
}

/// Intended: the tips of lines go, so a "v" goes from a word too.
std::string WithoutLines(std::string_view aText) {
  std::string result;
  bool inLine = false;
  for (const char c : aText) {
    const bool isLine = DitaaLines.find(c) != std::string_view::npos;
    if (!isLine) {
      result += c;
    } else if (!inLine) {
      result += ' ';
    }
    inLine = isLine;
  }
  return std::string(Trim(result));
}

class TDitaa {
 public:
  explicit TDitaa(TKDXDiagramModel& aModel) : fNodes(aModel, "ditaa_") {}

  void Read(std::string_view aText) {
    if (aText.find('|') == std::string_view::npos) return;
    for (const std::string_view cell : SplitTrimmed(aText, '|')) {
      if (std::any_of(cell.begin(), cell.end(), IsAsciiLetterOrDigit)) ReadCell(cell);
    }
  }

 private:
  void ReadCell(std::string_view aCell) {
    const bool tagged = aCell.find('{') != std::string_view::npos;
    const std::string bare = tagged ? DitaaTag.Replaced(aCell, {}) : std::string(aCell);
    std::string text = WithoutLines(DitaaColor.Replaced(bare, {}));
    if (text.empty() || fSeen.contains(text)) return;
    fNodes.Chain(text, tagged ? DitaaShapeOf(aCell) : ftProcess);
    fSeen.insert(std::move(text));
  }

  TNumberedNodes fNodes;
  std::unordered_set<std::string> fSeen;
};

}  // namespace

void TKDXPlantUMLParser::ParseSalt(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkFlowChart, fdTopDown);
  TNumberedNodes cells(aModel, "salt_");
  std::string before;
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { ReadSalt(aText, cells, before, aModel); });
}

void TKDXPlantUMLParser::ParseGrammar(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkFlowChart, fdTopDown);
  TNumberedNodes rules(aModel, "grammar_");
  ForEachEntry(aLines, aModel, [&](std::string_view aText) {
    TMatch match;
    const bool named = GrammarRule.Match(aText, match);
    rules.Chain(named ? TwoLines(match[1], match[2]) : std::string(aText), ftPredefined);
  });
}

void TKDXPlantUMLParser::ParseDitaa(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TDitaa ditaa(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { ditaa.Read(aText); });
}

}  // namespace Zor::inline Diagramparsers
