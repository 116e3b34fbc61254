// Diagrams of time: signals, events, projects.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <unordered_map>

#include "kaldrix/diagrams/PlantUMLLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using namespace PlantUML;

constinit const TRegex SignalLine(
    "^(robust|concise|clock|binary|analog|digital)\\s+(?:\"([^\"]+)\"|([\\w.-]+))(?:\\s+as\\s+([\\w.-]+))?",
    rcIgnore);
constinit const TRegex SignalState("^([\\w.-]+)\\s+is\\s+(.+)$", rcIgnore);
constinit const TRegex EventLine("^\\[([^\\]]+)\\]\\s+happens\\s+on\\s+(.+)$", rcIgnore);

constinit const TRegex TaskStart(
    "^\\[([^\\]]+)\\]\\s+starts\\s+(?:at|after)\\s+\\[([^\\]]+)\\](?:'s\\s+(start|end))?", rcIgnore);
constinit const TRegex TaskLine("^\\[([^\\]]+)\\]\\s+(.+)$", rcIgnore);
constinit const TRegex ProjectLine("^Project\\s+(starts|ends)\\s+(.+)$", rcIgnore);

// --- Signals ---------------------------------------------------------------------------------------------

struct TSignal {
  std::string display;  ///< empty: never declared
  std::string last;     ///< the node of its last state
};

class TTiming {
 public:
  explicit TTiming(TKDXDiagramModel& aModel) : fModel(aModel), fStates(aModel, "timing_") {}

  void Read(std::string_view aText) {
    TMatch match;
    if (aText.front() == '@') {
      fMark = Trim(aText.substr(1));
    } else if (SignalLine.Match(aText, match)) {
      const std::string_view display = match[2];
      const std::string_view alias = match.Has(4) ? match[4] : match.Has(3) ? match[3] : display;
      fSignals[std::string(alias)].display = display.empty() ? alias : display;
    } else if (SignalState.Match(aText, match)) {
      AddState(match[1], CleanDiagramText(match[2]));
    }
  }

 private:
  /// What the names of signals, repeated in each of their states, may take together.
  static constexpr std::size_t MostNameBytes = TKDXDiagramModel::MostEdgeBytes;

  void AddState(std::string_view aAlias, const std::string& aState) {
    TSignal& signal = fSignals[std::string(aAlias)];
    const std::string_view name = signal.display.empty() ? aAlias : signal.display;
    if (!HasRoom(name.size())) return;
    const std::string& id = fStates.Add(TwoLines(name, WithoutPair(aState, '{', '}')), ftProcess);
    fModel.AddEdge(signal.last, id, fMark);
    signal.last = id;
  }

  bool HasRoom(std::size_t aName) {
    if (fNameBytes > MostNameBytes) return false;
    fNameBytes += aName;
    if (fNameBytes <= MostNameBytes) return true;
    fModel.AddDiagnostic(dsError, 0, "DIAGRAM_TOO_LARGE",
                         "The diagram repeats too long names; the rest was ignored.");
    return false;
  }

  TKDXDiagramModel& fModel;
  TNumberedNodes fStates;
  std::unordered_map<std::string, TSignal> fSignals;  ///< by alias
  std::string fMark;                                  ///< the current time
  std::size_t fNameBytes = 0;
};

// --- Projects --------------------------------------------------------------------------------------------

class TGantt {
 public:
  explicit TGantt(TKDXDiagramModel& aModel)
      : fModel(aModel), fSections(aModel, "puml_gantt_section_"), fTaskNodes(aModel, "puml_gantt_task_") {}

  void Read(std::string_view aText) {
    TMatch match;
    if (ReadSection(aText)) return;
    if (TaskStart.Match(aText, match)) {
      ReadStart(aText, match);
    } else if (TaskLine.Match(aText, match)) {
      Task(match[1], match[2]);
    } else if (ProjectLine.Match(aText, match)) {
      const std::string day = LowerCase(match[1]).append(" ").append(match[2]);
      fModel.AddNode("puml_gantt_project", TwoLines("Project", day), ftTerminator, true);
    }
  }

 private:
  /// "-- Section --"
  bool ReadSection(std::string_view aText) {
    constexpr std::string_view mark = "--";
    if (aText.size() <= 2 * mark.size() || !aText.starts_with(mark) || !aText.ends_with(mark)) return false;
    const std::string_view name = aText.substr(mark.size(), aText.size() - 2 * mark.size());
    fSection = fSections.Add(CleanDiagramText(WithoutSpaces(name)), ftPredefined);
    return true;
  }

  void ReadStart(std::string_view aText, const TMatch& aMatch) {
    const std::string task = Task(aMatch[1], Trim(aText.substr(aText.find(']') + 1)));
    const auto [other, isNew] = fTasks.try_emplace(std::string(aMatch[2]));
    if (isNew) other->second = fTaskNodes.Add(aMatch[2], ftProcess);
    fModel.AddEdge(other->second, task, aMatch[3].empty() ? "dependency" : aMatch[3]);
  }

  /// The node of a task; a new one says what its line says, and hangs under the section.
  const std::string& Task(std::string_view aName, std::string_view aRest) {
    const auto [task, isNew] = fTasks.try_emplace(std::string(aName));
    if (isNew) {
      task->second = fTaskNodes.Add(TwoLines(aName, aRest), ftProcess);
      AddPlainEdge(fModel, fSection, task->second);
    }
    return task->second;
  }

  TKDXDiagramModel& fModel;
  TNumberedNodes fSections;
  TNumberedNodes fTaskNodes;
  std::unordered_map<std::string, std::string> fTasks;  ///< name to node
  std::string fSection;
};

}  // namespace

void TKDXPlantUMLParser::ParseTiming(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TTiming timing(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { timing.Read(aText); });
}

void TKDXPlantUMLParser::ParseChronology(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TNumberedNodes events(aModel, "chronology_");
  ForEachEntry(aLines, aModel, [&](std::string_view aText) {
    TMatch match;
    if (!EventLine.Match(aText, match)) return;
    events.Chain(TwoLines(CleanDiagramText(match[2]), CleanDiagramText(match[1])), ftPredefined);
  });
}

void TKDXPlantUMLParser::ParseGantt(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TGantt gantt(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { gantt.Read(aText); });
}

}  // namespace Zor::inline Diagramparsers
