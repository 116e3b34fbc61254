// Diagrams of structures: classes and components, archimate and C4 relations, networks, entities after Chen.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <algorithm>
#include <array>
#include <tuple>

#include "kaldrix/diagrams/DiagramRelation.hpp"
#include "kaldrix/diagrams/PlantUMLLines.hpp"
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using namespace PlantUML;
using enum TZORDiagEdgeArrow;

constinit const TRegex LeftToRight("^left\\s+to\\s+right\\s+direction$", rcIgnore);
constinit const TRegex TopToBottom("^top\\s+to\\s+bottom\\s+direction$", rcIgnore);

// What stands between commas is taken whole, so that blanks are never tried twice.
constinit const TRegex ArchimateRelation("^Rel_(\\w+)\\s*\\(([^,]++),([^,]++),([^)]++)\\)\\s*$", rcIgnore);

constinit const TRegex NetworkLine("^network\\s+([\\w.-]+)", rcIgnore);
constinit const TRegex HostLine("^([\\w.-]+)\\s*+(?:\\[([^\\]]*+)\\]\\s*+)?;?$", rcIgnore);

constinit const TRegex ChenDeclaration("^(entity|relationship|attribute)\\s+(?:\"([^\"]+)\"|([\\w.-]+))",
                                       rcIgnore);
constinit const TRegex ChenRelation(
    "^(?:\"([^\"]+)\"|([\\w.-]+))\\s+-([^\\s-]+)-\\s+(?:\"([^\"]+)\"|([\\w.-]+))$", rcIgnore);

// --- Classes, components, use cases ----------------------------------------------------------------------

struct TKeyword {
  std::string_view word;
  TZORFlowType shape;
};

/// In the order of trial, each with the blank behind it.
constexpr std::array Keywords{
    TKeyword{"abstract class ", ftProcess}, TKeyword{"class ", ftProcess},
    TKeyword{"interface ", ftEllipse},      TKeyword{"enum ", ftData},
    TKeyword{"annotation ", ftProcess},     TKeyword{"component ", ftProcess},
    TKeyword{"usecase ", ftEllipse},        TKeyword{"node ", ftPredefined},
    TKeyword{"cloud ", ftPredefined},       TKeyword{"artifact ", ftDocument},
    TKeyword{"folder ", ftProcess},         TKeyword{"frame ", ftProcess},
    TKeyword{"rectangle ", ftProcess},      TKeyword{"database ", ftDatabase},
    TKeyword{"queue ", ftDatabase},         TKeyword{"package ", ftPredefined},
    TKeyword{"object ", ftProcess},         TKeyword{"map ", ftProcess},
    TKeyword{"json ", ftDocument},          TKeyword{"file ", ftDocument},
    TKeyword{"storage ", ftPredefined},     TKeyword{"card ", ftProcess},
    TKeyword{"agent ", ftProcess},          TKeyword{"actor ", ftEllipse},
};

constexpr std::string_view AliasWord = " as ";

/// "[Name]" and "(Name)" without their brackets.
std::string NameOf(std::string_view aText) {
  const std::string_view inner = WithoutPair(aText, '[', ']');
  return CleanDiagramText(inner.size() < aText.size() ? inner : WithoutPair(aText, '(', ')'));
}

std::size_t FindAlias(std::string_view aText) {
  const auto at = std::search(aText.begin(), aText.end(), AliasWord.begin(), AliasWord.end(),
                              [](char a, char b) { return a == b || (b != ' ' && a == b - ('a' - 'A')); });
  return at == aText.end() ? std::string_view::npos : static_cast<std::size_t>(at - aText.begin());
}

bool ReadDirection(std::string_view aText, TKDXDiagramModel& aModel) {
  if (!aText.ends_with('n') && !aText.ends_with('N')) return false;
  const bool leftRight = LeftToRight.Matches(aText);
  if (!leftRight && !TopToBottom.Matches(aText)) return false;
  aModel.fDirection = leftRight ? fdLeftRight : fdTopDown;
  return true;
}

bool ReadElement(std::string_view aText, TKDXDiagramModel& aModel) {
  const auto* keyword = std::find_if(Keywords.begin(), Keywords.end(),
                                     [&](const TKeyword& k) { return StartsWithWord(aText, k.word); });
  if (keyword == Keywords.end()) return false;
  std::string_view rest = Trim(aText.substr(keyword->word.size()));
  if (rest.ends_with('{')) rest = Trim(rest.substr(0, rest.size() - 1));
  std::string_view alias;
  const std::size_t as = FindAlias(rest);
  if (as != std::string_view::npos) std::tie(rest, alias) = TrimmedSides(rest, as, AliasWord.size());
  const std::string name = NameOf(rest);
  aModel.AddNode(alias.empty() ? name : alias, name, keyword->shape, true);
  return true;
}

void ReadStructure(std::string_view aText, TKDXDiagramModel& aModel) {
  if (aText == "{" || aText == "}" || ReadDirection(aText, aModel) || ReadElement(aText, aModel)) return;
  TDiagramRelation relation;
  if (!FindRelation(aText, relation)) return;
  const std::string from = NameOf(relation.Left);
  const std::string to = NameOf(relation.Right);
  if (from.empty() || to.empty()) return;
  aModel.AddNode(from);
  aModel.AddNode(to);
  aModel.AddEdge(RelationEdge(from, to, relation));
}

// --- Archimate -------------------------------------------------------------------------------------------

struct TArchimateType {
  std::string_view word;
  bool dotted;
  TZORDiagEdgeArrow fromArrow;
  TZORDiagEdgeArrow arrow;
};

/// Other types are plain arrows.
constexpr std::array ArchimateTypes{
    TArchimateType{"association", false, eaNone, eaNone},
    TArchimateType{"composition", false, eaFillRhombus, eaArrow},
    TArchimateType{"aggregation", false, eaRhombus, eaArrow},
    TArchimateType{"realization", true, eaNone, eaArrow},
    TArchimateType{"influence", true, eaNone, eaArrow},
    TArchimateType{"access", true, eaNone, eaArrow},
    TArchimateType{"access_r", true, eaNone, eaArrow},
    TArchimateType{"access_w", true, eaNone, eaArrow},
    TArchimateType{"access_rw", true, eaNone, eaArrow},
};

void ReadArchimate(std::string_view aText, TKDXDiagramModel& aModel) {
  TMatch match;
  if (!ArchimateRelation.Match(aText, match)) return;
  const std::string_view from = Trim(match[2]);
  const std::string_view to = Trim(match[3]);
  aModel.AddNode(from, from, ftProcess, true);
  aModel.AddNode(to, to, ftProcess, true);
  TZORDiagEdge edge{std::string(from), std::string(to), CleanDiagramText(match[4]), false, eaNone, eaArrow};
  const auto* type = std::find_if(ArchimateTypes.begin(), ArchimateTypes.end(),
                                  [&](const TArchimateType& t) { return SameWord(match[1], t.word); });
  if (type != ArchimateTypes.end()) {
    edge.Dotted = type->dotted;
    edge.FromArrow = type->fromArrow;
    edge.Arrow = type->arrow;
  }
  aModel.AddEdge(std::move(edge));
}

// --- Networks --------------------------------------------------------------------------------------------

class TNetworks {
 public:
  explicit TNetworks(TKDXDiagramModel& aModel) : fModel(aModel), fNetworks(aModel, "network_") {}

  void Read(std::string_view aText) {
    if (aText == "{" || SameWord(aText, "nwdiag") || SameWord(aText, "nwdiag {")) return;
    TMatch match;
    if (aText == "}") {
      fCurrent.clear();
    } else if (StartsWithWord(aText, "network") && NetworkLine.Match(aText, match)) {
      fCurrent = fNetworks.Add(match[1], ftPredefined);
    } else if (!fCurrent.empty()) {
      ReadHost(aText);
    }
  }

 private:
  void ReadHost(std::string_view aText) {
    for (const std::string_view word : {"address ", "description ", "group "}) {
      if (StartsWithWord(aText, word)) return;
    }
    TMatch match;
    if (!HostLine.Match(aText, match)) return;
    const std::string_view attributes = Trim(match[2]);
    const std::string text = attributes.empty()
                                 ? std::string(match[1])
                                 : TwoLines(match[1], ReplacedAll(attributes, ',', LabelBreak));
    fModel.AddNode(match[1], text, ftProcess, true);
    AddPlainEdge(fModel, fCurrent, match[1]);
  }

  TKDXDiagramModel& fModel;
  TNumberedNodes fNetworks;
  std::string fCurrent;
};

// --- Entities after Chen ---------------------------------------------------------------------------------

class TChen {
 public:
  explicit TChen(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    if (aText == "}") {
      fCurrent.clear();
    } else if (!ReadDeclaration(aText)) {
      ReadRelation(aText);
    }
  }

 private:
  static TZORFlowType ShapeOf(std::string_view aWord) {
    if (SameWord(aWord, "entity")) return ftDatabase;
    return SameWord(aWord, "relationship") ? ftDecision : ftEllipse;
  }

  bool ReadDeclaration(std::string_view aText) {
    TMatch match;
    if (!ChenDeclaration.Match(aText, match)) return false;
    const std::string_view name = match.Has(2) ? match[2] : match[3];
    const TZORFlowType shape = ShapeOf(match[1]);
    fModel.AddNode(name, name, shape, true);
    if (shape == ftEllipse) {
      AddPlainEdge(fModel, fCurrent, name);
    } else if (aText.find('{') != std::string_view::npos) {
      fCurrent = name;
    }
    return true;
  }

  void ReadRelation(std::string_view aText) {
    TMatch match;
    if (!ChenRelation.Match(aText, match)) return;
    const std::string_view from = match.Has(1) ? match[1] : match[2];
    const std::string_view to = match.Has(4) ? match[4] : match[5];
    fModel.AddNode(from, from, ftDatabase, true);
    fModel.AddNode(to, to, ftDatabase, true);
    AddPlainEdge(fModel, from, to, match[3]);
  }

  TKDXDiagramModel& fModel;
  std::string fCurrent;  ///< whose attributes the lines are
};

}  // namespace

void TKDXPlantUMLParser::ParseStructure(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { ReadStructure(aText, aModel); });
}

void TKDXPlantUMLParser::ParseArchimate(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { ReadArchimate(aText, aModel); });
}

void TKDXPlantUMLParser::ParseC4(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  TKDXMermaidParser::ParseC4(aLines, aModel);
}

void TKDXPlantUMLParser::ParseNetwork(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TNetworks networks(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { networks.Read(aText); });
}

void TKDXPlantUMLParser::ParseChen(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TChen chen(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { chen.Read(aText); });
}

}  // namespace Zor::inline Diagramparsers
