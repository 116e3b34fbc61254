// Diagrams of structures: states, classes, entities, requirements, C4 and architecture.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include "kaldrix/diagrams/DiagramRelation.hpp"
#include "kaldrix/diagrams/MermaidLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using enum TZORDiagEdgeArrow;
using Mermaid::ForEachLine;
using Mermaid::ReadCleanTitle;
using Mermaid::ReadTitle;

constexpr std::string_view StateEnd = "[*]";

constinit const TRegex StateLeftRight("^direction\\s+LR\\s*$", rcIgnore);
constinit const TRegex StateTopDown("^direction\\s+(TB|TD|BT|RL)\\s*$", rcIgnore);
constinit const TRegex StateLine("^state\\s+(?:\"([^\"]+)\"\\s+as\\s+)?([\\w.-]+)\\s*(?:\\{)?$", rcIgnore);
constinit const TRegex StateText("^([\\w.-]+)\\s*:\\s*(.+)$");

constinit const TRegex ClassTopDown("^direction\\s+(TB|TD|BT)\\s*$", rcIgnore);
constinit const TRegex ClassLeftRight("^direction\\s+(LR|RL)\\s*$", rcIgnore);
constinit const TRegex ClassLine("^(class|interface|enum|annotation)\\s+([\\w.-]+)", rcIgnore);

// The token is all that stands between the blanks; looked ahead into, since taking it apart in every way
// would cost the square of its length.
constinit const TRegex ERRelation(
    "^([\\w.-]+)\\s+((?=\\S*?(?:--|\\.\\.))\\S++)\\s+([\\w.-]+)\\s*(?::\\s*(.*))?$");
constinit const TRegex EREntity("^([\\w.-]+)\\s*\\{$");

constinit const TRegex RequirementBlock(
    "^(requirement|functionalRequirement|interfaceRequirement|performanceRequirement|physicalRequirement|"
    "designConstraint|element)\\s+([\\w.-]+)\\s*\\{$",
    rcIgnore);
constinit const TRegex RequirementRelation(
    "^([\\w.-]+)\\s*-\\s*(contains|copies|derives|satisfies|verifies|refines|traces)\\s*->\\s*([\\w.-]+)$",
    rcIgnore);

// What stands between commas is taken whole, so that blanks are never tried twice.
constinit const TRegex C4Element(
    "^(Person|Person_Ext|System|System_Ext|SystemDb|SystemDb_Ext|Container|Container_Ext|ContainerDb|"
    "ContainerDb_Ext|Component|Component_Ext|ComponentDb|ComponentDb_Ext|Deployment_Node)"
    "\\s*\\(\\s*+([^,]++),\\s*+\"([^\"]+)\"",
    rcIgnore);
constinit const TRegex C4Relation("^Rel(?:_[A-Za-z]+)?\\s*\\(\\s*+([^,]++),\\s*+([^,]++),\\s*+\"([^\"]*)\"",
                                  rcIgnore);

constinit const TRegex ArchitectureAlign("^align\\s+", rcIgnore);
constinit const TRegex ArchitectureNode(
    "^(group|service)\\s+([\\w.-]+)(?:\\(([^)]*)\\))?\\[([^\\]]+)\\](?:\\s+in\\s+([\\w.-]+))?$", rcIgnore);
constinit const TRegex ArchitectureJunction("^junction\\s+([\\w.-]+)(?:\\s+in\\s+([\\w.-]+))?$", rcIgnore);
constinit const TRegex ArchitectureEdge(
    "^([\\w.-]+)(?:\\{group\\})?:[TBLR]\\s*(?:<)?--(?:>)?\\s*[TBLR]:([\\w.-]+)(?:\\{group\\})?$", rcIgnore);

bool Contains(std::string_view aText, std::string_view aPart) {
  return aText.find(aPart) != std::string_view::npos;
}

// --- States ----------------------------------------------------------------------------------------------

bool ReadStateDirection(std::string_view aText, TKDXDiagramModel& aModel) {
  const bool leftRight = StateLeftRight.Matches(aText);
  if (!leftRight && !StateTopDown.Matches(aText)) return false;
  aModel.fDirection = leftRight ? fdLeftRight : fdTopDown;
  return true;
}

std::string_view AddState(std::string_view aName, std::string_view aEndID, TZORFlowType aEndShape,
                          TKDXDiagramModel& aModel) {
  if (aName != StateEnd) {
    aModel.AddNode(aName);
    return aName;
  }
  aModel.AddNode(aEndID, {}, aEndShape, true);
  return aEndID;
}

bool ReadTransition(std::string_view aText, TKDXDiagramModel& aModel) {
  std::string_view arrow = "-->";
  std::size_t pos = aText.find(arrow);
  if (pos == std::string_view::npos) {
    arrow = "->";
    pos = aText.find(arrow);
  }
  if (pos == std::string_view::npos) return false;
  auto [from, to] = TrimmedSides(aText, pos, arrow.size());
  const std::string label = TakeLabel(to);
  if (from.empty() || to.empty()) return true;
  from = AddState(from, "__start__", ftStart, aModel);
  to = AddState(to, "__end__", ftEnd, aModel);
  aModel.AddEdge(from, to, label);
  return true;
}

void ReadState(std::string_view aText, TKDXDiagramModel& aModel) {
  if (ReadStateDirection(aText, aModel)) return;
  TMatch match;
  if (StateLine.Match(aText, match)) {
    aModel.AddNode(match[2], match.Has(1) ? CleanDiagramText(match[1]) : std::string(match[2]), ftProcess,
                   true);
    return;
  }
  if (ReadTransition(aText, aModel)) return;
  if (StateText.Match(aText, match)) aModel.AddNode(match[1], CleanDiagramText(match[2]), ftProcess, true);
}

// --- Classes ---------------------------------------------------------------------------------------------

bool ReadClassDirection(std::string_view aText, TKDXDiagramModel& aModel) {
  const bool leftRight = ClassLeftRight.Matches(aText);
  if (!leftRight && !ClassTopDown.Matches(aText)) return false;
  aModel.fDirection = leftRight ? fdLeftRight : fdTopDown;
  return true;
}

TZORFlowType ClassShape(std::string_view aWord) {
  if (SameWord(aWord, "interface")) return ftEllipse;
  return SameWord(aWord, "enum") ? ftData : ftProcess;
}

void ReadClass(std::string_view aText, TKDXDiagramModel& aModel) {
  if (aText == "}" || ReadClassDirection(aText, aModel)) return;
  TDiagramRelation relation;
  if (FindRelation(aText, relation)) {
    if (relation.Left.empty() || relation.Right.empty()) return;
    aModel.AddNode(relation.Left);
    aModel.AddNode(relation.Right);
    aModel.AddEdge(RelationEdge(relation.Left, relation.Right, relation));
    return;
  }
  TMatch match;
  if (ClassLine.Match(aText, match)) aModel.AddNode(match[2], match[2], ClassShape(match[1]), true);
}

// --- Entities --------------------------------------------------------------------------------------------

/// "places  (||--o{)": the label and how many there are of each.
std::string ERLabel(std::string_view aLabel, std::string_view aToken) {
  std::string label = CleanDiagramText(aLabel);
  if (label.empty()) return std::string(aToken);
  return label.append("  (").append(aToken).append(")");
}

void ReadER(std::string_view aText, TKDXDiagramModel& aModel) {
  if (aText == "}" || ReadTitle(aText, aModel)) return;
  TMatch match;
  if (ERRelation.Match(aText, match)) {
    aModel.AddNode(match[1], match[1], ftDatabase, true);
    aModel.AddNode(match[3], match[3], ftDatabase, true);
    aModel.AddEdge({std::string(match[1]), std::string(match[3]), ERLabel(match[4], match[2]),
                    Contains(match[2], ".."), eaNone, eaNone});
  } else if (EREntity.Match(aText, match)) {
    aModel.AddNode(match[1], match[1], ftDatabase, true);
  }
}

// --- Requirements ----------------------------------------------------------------------------------------

class TRequirements {
 public:
  explicit TRequirements(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    if (ReadTitle(aText, fModel)) return;
    if (aText == "}") {
      fBlock = -1;
    } else if (!ReadBlock(aText)) {
      if (fBlock >= 0) {
        ReadInside(aText);
      } else {
        ReadRelation(aText);
      }
    }
  }

 private:
  bool ReadBlock(std::string_view aText) {
    TMatch match;
    if (!RequirementBlock.Match(aText, match)) return false;
    const TZORFlowType shape = SameWord(match[1], "element")            ? ftProcess
                               : SameWord(match[1], "designconstraint") ? ftDecision
                                                                        : ftDocument;
    fBlock = fModel.AddNode(match[2], match[2], shape, true);
    return true;
  }

  void ReadInside(std::string_view aText) {
    constexpr std::string_view word = "text:";
    if (!StartsWithWord(aText, word)) return;
    fModel.fNodes[static_cast<std::size_t>(fBlock)].Text = CleanDiagramText(aText.substr(word.size()));
  }

  void ReadRelation(std::string_view aText) {
    TMatch match;
    if (!RequirementRelation.Match(aText, match)) return;
    fModel.AddNode(match[1], {}, ftProcess);
    fModel.AddNode(match[3], {}, ftDocument);
    const std::string kind = LowerCase(match[2]);
    fModel.AddEdge(match[1], match[3], kind, kind == "traces" || kind == "refines");
  }

  TKDXDiagramModel& fModel;
  int fBlock = -1;  ///< the node of the open block
};

// --- C4 --------------------------------------------------------------------------------------------------

TZORFlowType C4Shape(const std::string& aKind) {
  if (aKind.starts_with("person")) return ftEllipse;
  if (Contains(aKind, "db")) return ftDatabase;
  return aKind.starts_with("deployment") ? ftPredefined : ftProcess;
}

void ReadC4(std::string_view aText, TKDXDiagramModel& aModel) {
  if (aText == "{" || aText == "}" || ReadCleanTitle(aText, aModel)) return;
  TMatch match;
  if (C4Element.Match(aText, match)) {
    aModel.AddNode(Trim(match[2]), CleanDiagramText(match[3]), C4Shape(LowerCase(match[1])), true);
  } else if (C4Relation.Match(aText, match)) {
    const std::string_view from = Trim(match[1]);
    const std::string_view to = Trim(match[2]);
    aModel.AddNode(from);
    aModel.AddNode(to);
    aModel.AddEdge(from, to, CleanDiagramText(match[3]));
  }
}

// --- Architecture ----------------------------------------------------------------------------------------

TZORFlowType ArchitectureShape(std::string_view aKind, const std::string& aIcon) {
  if (SameWord(aKind, "group")) return ftPredefined;
  if (Contains(aIcon, "database") || Contains(aIcon, "disk")) return ftDatabase;
  return Contains(aIcon, "internet") || Contains(aIcon, "cloud") ? ftEllipse : ftProcess;
}

void ReadArchitecture(std::string_view aText, TKDXDiagramModel& aModel) {
  if (ArchitectureAlign.Matches(aText)) return;
  TMatch match;
  if (ArchitectureNode.Match(aText, match)) {
    aModel.AddNode(match[2], CleanDiagramText(match[4]), ArchitectureShape(match[1], LowerCase(match[3])),
                   true);
    if (!match.Has(5)) return;
    aModel.AddNode(match[5], match[5], ftPredefined);
    AddPlainEdge(aModel, match[5], match[2], "contains", true);
  } else if (ArchitectureJunction.Match(aText, match)) {
    aModel.AddNode(match[1], {}, ftStart, true);
  } else if (ArchitectureEdge.Match(aText, match)) {
    aModel.AddNode(match[1]);
    aModel.AddNode(match[2]);
    aModel.AddEdge(match[1], match[2], {}, false, Contains(aText, ">") ? eaArrow : eaNone);
  }
}

}  // namespace

void TKDXMermaidParser::ParseState(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkFlowChart, fdTopDown);
  ForEachLine(aLines, Mermaid::StateHeader, aModel,
              [&](std::string_view aText, std::string_view) { ReadState(aText, aModel); });
}

void TKDXMermaidParser::ParseClass(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachLine(aLines, Mermaid::ClassHeader, aModel,
              [&](std::string_view aText, std::string_view) { ReadClass(aText, aModel); });
}

void TKDXMermaidParser::ParseER(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachLine(aLines, Mermaid::ERHeader, aModel,
              [&](std::string_view aText, std::string_view) { ReadER(aText, aModel); });
}

void TKDXMermaidParser::ParseRequirements(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TRequirements requirements(aModel);
  ForEachLine(aLines, Mermaid::RequirementsHeader, aModel,
              [&](std::string_view aText, std::string_view) { requirements.Read(aText); });
}

void TKDXMermaidParser::ParseC4(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachLine(aLines, Mermaid::C4Header, aModel,
              [&](std::string_view aText, std::string_view) { ReadC4(aText, aModel); });
}

void TKDXMermaidParser::ParseArchitecture(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachLine(aLines, Mermaid::ArchitectureHeader, aModel,
              [&](std::string_view aText, std::string_view) { ReadArchitecture(aText, aModel); });
}

}  // namespace Zor::inline Diagramparsers
