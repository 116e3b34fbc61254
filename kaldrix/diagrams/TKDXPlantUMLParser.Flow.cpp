// Activities and states.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <array>
#include <list>

#include "kaldrix/diagrams/PlantUMLLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using namespace PlantUML;

// White space behind a bracket is taken whole, so that it is never tried twice.
constinit const TRegex StartLine("^start\\s*$", rcIgnore);
constinit const TRegex EndLine("^(stop|end)\\s*$", rcIgnore);
constinit const TRegex ActionLine("^:(.*)[;\\]\\|]\\s*$", rcIgnore);
constinit const TRegex IfLine("^if\\s*\\((.*?)\\)\\s*then\\s*+(?:\\((.*?)\\)\\s*+)?$", rcIgnore);
constinit const TRegex ElseLine("^else\\s*+(?:\\((.*?)\\)\\s*+)?$", rcIgnore);
constinit const TRegex EndIfLine("^endif\\s*$", rcIgnore);
constinit const TRegex WhileLine("^while\\s*\\((.*?)\\)\\s*+(?:is\\s*+\\((.*?)\\)\\s*+)?$", rcIgnore);
constinit const TRegex EndWhileLine("^endwhile\\s*+(?:\\((.*?)\\)\\s*+)?$", rcIgnore);

constinit const TRegex StateLine("^state\\s+(\"[^\"]+\"|[\\w.]+)(?:\\s+as\\s+([\\w.]+))?\\s*+(?:\\{\\s*+)?$",
                                 rcIgnore);
constinit const TRegex TransitionLine(
    "^(\\[\\*\\]|[\\w.]+)\\s*-{1,2}>\\s*(\\[\\*\\]|[\\w.]+)\\s*(?::\\s*(.*))?$", rcIgnore);

// --- Activities ------------------------------------------------------------------------------------------

/// An arrow that waits for the node it leads to.
struct TPendingEdge {
  std::string from;
  std::string label;
};
/// Lists, since branches are put together at every "endif".
using TPendingEdges = std::list<TPendingEdge>;

enum TBlockKind : std::uint8_t { bkIf, bkWhile };

struct TBlock {
  TBlockKind kind;
  std::string decision;
  TPendingEdges aside = {};  ///< the ends of the branches in front of "else"
  bool hasElse = false;
};

class TActivity {
 public:
  explicit TActivity(TKDXDiagramModel& aModel) : fModel(aModel), fNodes(aModel, "n") {}

  void Read(std::string_view aText);

 private:
  struct TStatement {
    std::string_view word;
    const TRegex& pattern;
    void (TActivity::*read)(const TMatch& aMatch);
  };
  static const std::array<TStatement, 8> Statements;

  void Start(const TMatch& aMatch);
  void End(const TMatch& aMatch);
  void Act(const TMatch& aMatch);
  void If(const TMatch& aMatch) { Open(bkIf, aMatch); }
  void Else(const TMatch& aMatch);
  void EndIf(const TMatch& aMatch);
  void While(const TMatch& aMatch) { Open(bkWhile, aMatch); }
  void EndWhile(const TMatch& aMatch);

  void Open(TBlockKind aKind, const TMatch& aMatch);
  bool IsInside(TBlockKind aKind) const { return !fBlocks.empty() && fBlocks.back().kind == aKind; }
  /// Leads all pending edges to the node.
  void FlushTo(std::string_view aID);
  void Wait(std::string_view aFrom, std::string_view aLabel = {}) {
    fPending.push_back({std::string(aFrom), CleanDiagramText(aLabel)});
  }

  TKDXDiagramModel& fModel;
  TNumberedNodes fNodes;
  TPendingEdges fPending;
  std::vector<TBlock> fBlocks;  ///< the innermost last
};

constinit const std::array<TActivity::TStatement, 8> TActivity::Statements{{
    {"start", StartLine, &TActivity::Start},
    {{}, EndLine, &TActivity::End},
    {":", ActionLine, &TActivity::Act},
    {"if", IfLine, &TActivity::If},
    {"else", ElseLine, &TActivity::Else},
    {"endif", EndIfLine, &TActivity::EndIf},
    {"while", WhileLine, &TActivity::While},
    {"endwhile", EndWhileLine, &TActivity::EndWhile},
}};

void TActivity::Read(std::string_view aText) {
  TMatch match;
  for (const TStatement& statement : Statements) {
    if (!StartsWithWord(aText, statement.word) || !statement.pattern.Match(aText, match)) continue;
    (this->*statement.read)(match);
    return;
  }
}

void TActivity::Start(const TMatch&) {
  fPending.clear();
  Wait(fNodes.Add({}, ftStart));
}

void TActivity::End(const TMatch&) { FlushTo(fNodes.Add({}, ftEnd)); }

void TActivity::Act(const TMatch& aMatch) {
  const std::string& id = fNodes.Add(CleanDiagramText(aMatch[1]), ftProcess);
  FlushTo(id);
  Wait(id);
}

void TActivity::Open(TBlockKind aKind, const TMatch& aMatch) {
  const std::string& id = fNodes.Add(CleanDiagramText(aMatch[1]), ftDecision);
  FlushTo(id);
  fBlocks.push_back({aKind, id});
  Wait(id, aMatch[2]);
}

void TActivity::Else(const TMatch& aMatch) {
  if (!IsInside(bkIf)) return;
  TBlock& block = fBlocks.back();
  block.aside.splice(block.aside.end(), fPending);
  block.hasElse = true;
  Wait(block.decision, aMatch[1]);
}

void TActivity::EndIf(const TMatch&) {
  if (!IsInside(bkIf)) return;
  TBlock& block = fBlocks.back();
  fPending.splice(fPending.end(), block.aside);
  if (!block.hasElse) Wait(block.decision);
  fBlocks.pop_back();
}

void TActivity::EndWhile(const TMatch& aMatch) {
  if (!IsInside(bkWhile)) return;
  const std::string decision = std::move(fBlocks.back().decision);
  fBlocks.pop_back();
  FlushTo(decision);
  Wait(decision, aMatch[1]);
}

void TActivity::FlushTo(std::string_view aID) {
  for (const TPendingEdge& edge : fPending) fModel.AddEdge(edge.from, aID, edge.label);
  fPending.clear();
}

// --- States ----------------------------------------------------------------------------------------------

std::string_view AddState(std::string_view aName, std::string_view aEndID, TZORFlowType aEndShape,
                          TKDXDiagramModel& aModel) {
  if (aName != "[*]") {
    aModel.AddNode(aName);
    return aName;
  }
  aModel.AddNode(aEndID, {}, aEndShape, true);
  return aEndID;
}

void ReadState(std::string_view aText, TKDXDiagramModel& aModel) {
  TMatch match;
  if (StartsWithWord(aText, "state") && StateLine.Match(aText, match)) {
    const std::string name = CleanDiagramText(match[1]);
    if (match.Has(2)) {
      aModel.AddNode(match[2], name, ftProcess, true);
    } else {
      aModel.AddNode(name);
    }
  } else if (TransitionLine.Match(aText, match)) {
    const std::string_view from = AddState(match[1], "__start__", ftStart, aModel);
    const std::string_view to = AddState(match[2], "__end__", ftEnd, aModel);
    aModel.AddEdge(from, to, CleanDiagramText(match[3]));
  }
}

}  // namespace

void TKDXPlantUMLParser::ParseActivity(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkFlowChart, fdTopDown);
  TActivity activity(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { activity.Read(aText); });
}

void TKDXPlantUMLParser::ParseState(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkFlowChart, fdTopDown);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { ReadState(aText, aModel); });
}

}  // namespace Zor::inline Diagramparsers
