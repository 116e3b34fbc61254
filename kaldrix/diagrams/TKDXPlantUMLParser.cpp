// The entry: which lines count, and which kind a text is.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/diagrams/DiagramRelation.hpp"
#include "kaldrix/diagrams/PlantUMLLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using namespace PlantUML;

// --- Lines -----------------------------------------------------------------------------------------------

constinit const TRegex Directive("^(skinparam|hide|show|scale|autonumber|header|footer|caption)\\b",
                                 rcIgnore);
constinit const TRegex TitleLine("^title\\s+(.*)$", rcIgnore);

bool IsIgnored(std::string_view aText) {
  return aText.empty() || aText.front() == '\'' || aText.front() == '!' || StartsWithWord(aText, "@start") ||
         StartsWithWord(aText, "@end") || Directive.Matches(aText);
}

bool ReadTitle(std::string_view aText, TKDXDiagramModel& aModel) {
  TMatch match;
  if (!StartsWithWord(aText, "title") || !TitleLine.Match(aText, match)) return false;
  aModel.fTitle = CleanDiagramText(match[1]);
  return true;
}

/// The lines that the kinds read, trimmed. Sets the title.
std::vector<TDiagramLine> EntriesOf(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  std::vector<TDiagramLine> entries;
  entries.reserve(aLines.size());
  for (const TDiagramLine& line : aLines) {
    const std::string_view text = Trim(line.Text);
    if (!IsIgnored(text) && !ReadTitle(text, aModel)) entries.push_back({text, line.Number});
  }
  return entries;
}

// --- Kinds -----------------------------------------------------------------------------------------------

struct TStartTag {
  TRegex tag;
  TPumlKind kind;
};

/// Anywhere in the text; the first row that fits counts.
constinit const TStartTag StartTags[] = {
    {TRegex("@start(?:mindmap|wbs)\\b", rcIgnore), pkMindMap},
    {TRegex("@startchronology\\b", rcIgnore), pkChronology},
    {TRegex("@start(?:json|yaml)\\b", rcIgnore), pkData},
    {TRegex("@startsalt\\b", rcIgnore), pkSalt},
    {TRegex("@start(?:ebnf|regex)\\b", rcIgnore), pkGrammar},
    {TRegex("@startfiles\\b", rcIgnore), pkFiles},
    {TRegex("@startditaa\\b", rcIgnore), pkDitaa},
    {TRegex("@startchen\\b", rcIgnore), pkChen},
    {TRegex("@startgantt\\b", rcIgnore), pkGantt},
};

TPumlKind KindOfTag(std::string_view aText) {
  const auto* found = std::find_if(std::begin(StartTags), std::end(StartTags),
                                   [&](const TStartTag& row) { return row.tag.Matches(aText); });
  return found == std::end(StartTags) ? pkUnknown : found->kind;
}

constinit const TRegex HappensOn("^\\[[^\\]]+\\]\\s+happens\\s+on\\s+", rcIgnore);
constinit const TRegex QuotedKey("^\"[^\\\"]+\"\\s*:", rcIgnore);
constinit const TRegex C4Call(
    "^(Person|Person_Ext|System|System_Ext|SystemDb|SystemDb_Ext|Container|Container_Ext|ContainerDb|"
    "ContainerDb_Ext|Component|Component_Ext|ComponentDb|ComponentDb_Ext|Deployment_Node|Rel)\\s*\\(",
    rcIgnore);
constinit const TRegex Signal("^(robust|concise|clock|binary|analog|digital)\\s+", rcIgnore);
constinit const TRegex NetworkBlock("^nwdiag\\s*\\{?", rcIgnore);
constinit const TRegex ArchimateCall("^Rel_\\w+\\s*\\(", rcIgnore);
constinit const TRegex Branch("^(\\*+|[+-]+)(?:\\[[^\\]]+\\])?_?\\s+\\S", rcIgnore);
constinit const TRegex ActivityEnd("^(start|stop|end)\\s*$", rcIgnore);
constinit const TRegex Action("^:.*;\\s*$", rcIgnore);
constinit const TRegex ActivityBlock("^(if|while|repeat)\\s*\\(", rcIgnore);
constinit const TRegex StateWord("^state\\s", rcIgnore);
constinit const TRegex ParticipantWord("^(participant|actor)\\s", rcIgnore);
constinit const TRegex Message("^(\"[^\"]+\"|[\\w.]+)\\s*-{1,2}>{1,2}[xo]?\\s*(\"[^\"]+\"|[\\w.]+)\\s*:");

/// Not all that ParseStructure knows: a database or an actor alone may belong to a sequence.
constexpr std::array<std::string_view, 22> StructureWords{
    "class ", "interface ", "abstract class ", "enum ",    "annotation ", "component ", "usecase ", "node ",
    "cloud ", "artifact ",  "folder ",         "frame ",   "rectangle ",  "queue ",     "package ", "object ",
    "map ",   "json ",      "file ",           "storage ", "card ",       "agent "};

bool IsStructure(std::string_view aText) {
  return std::any_of(StructureWords.begin(), StructureWords.end(),
                     [&](std::string_view word) { return StartsWithWord(aText, word); });
}

bool IsData(std::string_view aText) {
  return aText == "{" || aText == "[" || (aText.front() == '"' && QuotedKey.Matches(aText));
}

bool IsActivity(std::string_view aText) {
  return ActivityEnd.Matches(aText) || Action.Matches(aText) || ActivityBlock.Matches(aText);
}

bool IsState(std::string_view aText) {
  return aText.find("[*]") != std::string_view::npos || StateWord.Matches(aText);
}

struct TDetection {
  bool (*fits)(std::string_view aText);
  TPumlKind kind;
};

template <const TRegex& aPattern>
bool Fits(std::string_view aText) {
  return aPattern.Matches(aText);
}

/// The first row that fits a line counts.
constexpr std::array Detections{
    TDetection{Fits<HappensOn>, pkChronology},
    TDetection{IsData, pkData},
    TDetection{Fits<C4Call>, pkC4},
    TDetection{Fits<Signal>, pkTiming},
    TDetection{Fits<NetworkBlock>, pkNetwork},
    TDetection{Fits<ArchimateCall>, pkArchimate},
    TDetection{IsStructure, pkStructure},
    TDetection{Fits<Branch>, pkMindMap},
    TDetection{IsActivity, pkActivity},
    TDetection{IsState, pkState},
};

/// What one line decides; pkUnknown when the walk goes on. A message may hold what looks like a relation.
TPumlKind KindOfLine(std::string_view aText) {
  const auto* found = std::find_if(Detections.begin(), Detections.end(),
                                   [&](const TDetection& row) { return row.fits(aText); });
  if (found != Detections.end()) return found->kind;
  const bool joins = HasRelationToken(aText) && !ParticipantWord.Matches(aText) && !Message.Matches(aText);
  return joins ? pkStructure : pkUnknown;
}

// --- Routines --------------------------------------------------------------------------------------------

struct TRoutine {
  TPumlKind kind;
  void (*parse)(TDiagramLines aLines, TKDXDiagramModel& aModel);
};

constexpr std::array Routines{
    TRoutine{pkUnknown, TKDXPlantUMLParser::ParseSequence},
    TRoutine{pkSequence, TKDXPlantUMLParser::ParseSequence},
    TRoutine{pkActivity, TKDXPlantUMLParser::ParseActivity},
    TRoutine{pkState, TKDXPlantUMLParser::ParseState},
    TRoutine{pkMindMap, TKDXPlantUMLParser::ParseMindMap},
    TRoutine{pkArchimate, TKDXPlantUMLParser::ParseArchimate},
    TRoutine{pkStructure, TKDXPlantUMLParser::ParseStructure},
    TRoutine{pkC4, TKDXPlantUMLParser::ParseC4},
    TRoutine{pkTiming, TKDXPlantUMLParser::ParseTiming},
    TRoutine{pkNetwork, TKDXPlantUMLParser::ParseNetwork},
    TRoutine{pkChronology, TKDXPlantUMLParser::ParseChronology},
    TRoutine{pkData, TKDXPlantUMLParser::ParseData},
    TRoutine{pkSalt, TKDXPlantUMLParser::ParseSalt},
    TRoutine{pkGrammar, TKDXPlantUMLParser::ParseGrammar},
    TRoutine{pkFiles, TKDXPlantUMLParser::ParseFiles},
    TRoutine{pkDitaa, TKDXPlantUMLParser::ParseDitaa},
    TRoutine{pkChen, TKDXPlantUMLParser::ParseChen},
    TRoutine{pkGantt, TKDXPlantUMLParser::ParseGantt},
};

constexpr bool InOrderOfKinds() {
  for (std::size_t i = 0; i < Routines.size(); ++i) {
    if (Routines[i].kind != i) return false;
  }
  return Routines.size() == std::size_t{pkGantt} + 1;
}
static_assert(InOrderOfKinds());

}  // namespace

TPumlKind TKDXPlantUMLParser::DetectKind(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  for (const TDiagramLine& line : aLines) {
    try {
      const TPumlKind kind = KindOfLine(line.Text);
      if (kind != pkUnknown) return kind;
    } catch (const ERegexLimit&) {
      ReportMatchLimit(line, aModel);
    }
  }
  return pkSequence;
}

void TKDXPlantUMLParser::Parse(std::string_view aText, TKDXDiagramModel& aModel) {
  std::string repaired;
  const std::string_view text = ValidDiagramText(aText, repaired);
  const std::vector<TDiagramLine> lines = SplitDiagramLines(text);
  std::vector<TDiagramLine> entries = EntriesOf(lines, aModel);
  TPumlKind kind = KindOfTag(text);
  if (kind == pkUnknown) kind = DetectKind(entries, aModel);
  if (kind == pkData) {
    // Indentation counts.
    for (TDiagramLine& entry : entries) entry = lines[static_cast<std::size_t>(entry.Number) - 1];
  }
  Routines[kind].parse(entries, aModel);
}

}  // namespace Zor::inline Diagramparsers
