// Diagrams of what happens one after the other: Git graph, timeline, journey, Gantt.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include <unordered_map>

#include "kaldrix/diagrams/MermaidLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using Mermaid::ForEachLine;
using Mermaid::ReadCleanTitle;

constexpr std::string_view TitleWord = "title ";
constexpr std::string_view SectionWord = "section ";

constinit const TRegex CommitID("\\bid\\s*:\\s*(?:\"([^\"]+)\"|([^\\s]+))", rcIgnore);
constinit const TRegex GanttSetting(
    "^(dateFormat|axisFormat|tickInterval|excludes|includes|todayMarker|weekday)\\b", rcIgnore);
constinit const TRegex GanttSection("^section\\s+(.+)$", rcIgnore);
constinit const TRegex GanttAlias("^[A-Za-z_][\\w.-]*$");
constinit const TRegex GanttState("^(done|active|crit|milestone)$", rcIgnore);
constinit const TRegex GanttAfter("\\bafter\\s+([\\w.-]+)", rcIgnore);

/// Takes a word off the beginning, in any case.
bool TakeWord(std::string_view& aText, std::string_view aLower) {
  if (!StartsWithWord(aText, aLower)) return false;
  aText.remove_prefix(aLower.size());
  return true;
}

// --- Git graph -------------------------------------------------------------------------------------------

class TGitGraph {
 public:
  explicit TGitGraph(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    if (TakeWord(aText, TitleWord)) {
      fModel.fTitle = CleanDiagramText(aText);
    } else if (TakeWord(aText, "branch ")) {
      // Intended: a new branch does not become the current one.
      fHeads[CleanDiagramText(aText)] = fHeads[fBranch];
    } else if (TakeWord(aText, "checkout ") || TakeWord(aText, "switch ")) {
      fBranch = CleanDiagramText(aText);
      fHeads.try_emplace(fBranch);
    } else if (TakeWord(aText, "merge ")) {
      Merge(CleanDiagramText(aText));
    } else if (StartsWithWord(aText, "commit")) {
      Commit(aText);
    }
  }

 private:
  void Commit(std::string_view aText) {
    const std::string number = std::to_string(++fCount);
    TMatch match;
    std::string text = "Commit " + number;
    if (CommitID.Match(aText, match)) text = CleanDiagramText(match[match.Has(1) ? 1 : 2]);
    const std::string id = "git_commit_" + number;
    fModel.AddNode(id, text, ftProcess, true);
    MoveHead(id);
  }

  void Merge(const std::string& aName) {
    const std::string id = NumberedID("git_merge_", ++fCount);
    fModel.AddNode(id, "Merge " + aName, ftPredefined, true);
    const std::string head = fHeads[fBranch];
    MoveHead(id);
    const auto other = fHeads.find(aName);
    if (aName != fBranch && other != fHeads.end() && other->second != head) {
      fModel.AddEdge(other->second, id, aName);
    }
  }

  void MoveHead(const std::string& aID) {
    std::string& head = fHeads[fBranch];
    fModel.AddEdge(head, aID, fBranch);
    head = aID;
  }

  TKDXDiagramModel& fModel;
  std::unordered_map<std::string, std::string> fHeads;  ///< by branch; empty before its first commit
  std::string fBranch = "main";
  int fCount = 0;
};

// --- Timeline and journey --------------------------------------------------------------------------------

/// Sections with events, each event linked to the one before it in its section, the first to the section.
class TSections {
 public:
  TSections(TKDXDiagramModel& aModel, std::string_view aName, std::string_view aEvent)
      : fModel(aModel), fName(aName), fEvent(aEvent) {}

  /// False for a line that is neither a title nor a section.
  bool ReadFrame(std::string_view aText) {
    if (TakeWord(aText, TitleWord)) {
      fModel.fTitle = CleanDiagramText(aText);
      return true;
    }
    if (!TakeWord(aText, SectionWord)) return false;
    fBefore = NumberedID(std::string(fName) + "_section_", ++fCount);
    fModel.AddNode(fBefore, CleanDiagramText(aText), ftPredefined, true);
    return true;
  }

  void AddEvent(std::string_view aText) {
    const std::string id = NumberedID(std::string(fName) + "_" + std::string(fEvent) + "_", ++fCount);
    fModel.AddNode(id, aText, ftProcess, true);
    fModel.AddEdge(fBefore, id);
    fBefore = id;
  }

 private:
  TKDXDiagramModel& fModel;
  std::string_view fName;
  std::string_view fEvent;
  std::string fBefore;  ///< the last event or the section, whichever came later
  int fCount = 0;
};

void ReadPeriod(std::string_view aText, TSections& aSections) {
  const std::size_t colon = aText.find(':');
  if (colon == std::string_view::npos) return;
  const std::string_view period = Trim(aText.substr(0, colon));
  const std::string events = CleanDiagramText(aText.substr(colon + 1));
  if (!period.empty()) aSections.AddEvent(events.empty() ? std::string(period) : TwoLines(period, events));
}

/// "name: score: actors"
void ReadTask(std::string_view aText, TSections& aSections) {
  const std::size_t colon = aText.find(':');
  if (colon == std::string_view::npos) return;
  const std::string_view name = Trim(aText.substr(0, colon));
  if (name.empty()) return;
  const std::string_view rest = aText.substr(colon + 1);
  const std::size_t second = rest.find(':');
  const std::string_view score = Trim(rest.substr(0, second));
  const std::string actors =
      second == std::string_view::npos ? std::string() : CleanDiagramText(rest.substr(second + 1));
  std::string text(name);
  if (!score.empty()) text = TwoLines(text, "Score: ").append(score);
  if (!actors.empty()) text = TwoLines(text, actors);
  aSections.AddEvent(text);
}

// --- Gantt -----------------------------------------------------------------------------------------------

class TGantt {
 public:
  explicit TGantt(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadCleanTitle(aText, fModel) || GanttSetting.Matches(aText)) return;
    if (GanttSection.Match(aText, match)) {
      fSection = NumberedID("gantt_section_", ++fSections);
      fModel.AddNode(fSection, CleanDiagramText(match[1]), ftPredefined, true);
      return;
    }
    // A name has at least one character.
    const std::size_t colon = aText.find(':', 1);
    if (colon == std::string_view::npos) return;
    const std::string_view metadata = WithoutSpaces(aText.substr(colon + 1));
    if (!metadata.empty()) AddTask(CleanDiagramText(WithoutSpaces(aText.substr(0, colon))), metadata);
  }

 private:
  void AddTask(const std::string& aName, std::string_view aMetadata) {
    const std::string id = NumberedID("gantt_task_", ++fTasks);
    fModel.AddNode(id, TwoLines(aName, aMetadata), ftProcess, true);
    KeepAlias(id, aMetadata);
    AddPlainEdge(fModel, fSection, id);
    TMatch match;
    if (!GanttAfter.Match(aMetadata, match)) return;
    const auto before = fAliases.find(std::string(match[1]));
    if (before != fAliases.end()) fModel.AddEdge(before->second, id, "after");
  }

  void KeepAlias(const std::string& aID, std::string_view aMetadata) {
    for (const std::string_view part : SplitTrimmed(aMetadata, ',')) {
      if (!GanttAlias.Matches(part) || GanttState.Matches(part)) continue;
      fAliases.insert_or_assign(std::string(part), aID);
      return;
    }
  }

  TKDXDiagramModel& fModel;
  std::unordered_map<std::string, std::string> fAliases;  ///< to the node of the task
  std::string fSection;
  int fSections = 0;
  int fTasks = 0;
};

}  // namespace

void TKDXMermaidParser::ParseGitGraph(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TGitGraph graph(aModel);
  ForEachLine(aLines, Mermaid::GitGraphHeader, aModel,
              [&](std::string_view aText, std::string_view) { graph.Read(aText); });
}

void TKDXMermaidParser::ParseTimeline(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TSections sections(aModel, "timeline", "event");
  ForEachLine(aLines, Mermaid::TimelineHeader, aModel, [&](std::string_view aText, std::string_view) {
    if (!sections.ReadFrame(aText)) ReadPeriod(aText, sections);
  });
}

void TKDXMermaidParser::ParseJourney(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TSections sections(aModel, "journey", "task");
  ForEachLine(aLines, Mermaid::JourneyHeader, aModel, [&](std::string_view aText, std::string_view) {
    if (!sections.ReadFrame(aText)) ReadTask(aText, sections);
  });
}

void TKDXMermaidParser::ParseGantt(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TGantt gantt(aModel);
  ForEachLine(aLines, Mermaid::GanttHeader, aModel,
              [&](std::string_view aText, std::string_view) { gantt.Read(aText); });
}

}  // namespace Zor::inline Diagramparsers
