// Diagrams written by indentation, and boards: mind map, treemap, tree view, fishbone, Kanban.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include <optional>

#include "kaldrix/diagrams/MermaidLines.hpp"
#include "kaldrix/diagrams/TIndentStack.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using Mermaid::ClassSuffix;
using Mermaid::ForEachLine;
using Mermaid::ReadTitle;

constinit const TRegex MindMapShape(
    "^([\\w.-]+)\\s*(\\(\\[[^\\]]*\\]\\)|\\[\\[[^\\]]*\\]\\]|\\[\\([^\\)]*\\)\\]|\\(\\(\\([^\\)]*\\)\\)\\)|"
    "\\(\\([^\\)]*\\)\\)|\\{\\{[^\\}]*\\}\\}|\\[/[^\\]]*\\\\\\]|\\[\\\\[^\\]]*/\\]|\\[/[^\\]]*/\\]|"
    "\\[\\\\[^\\]]*\\\\\\]|>[^\\]]*\\]|\\[[^\\]]*\\]|\\{[^\\}]*\\}|\\([^\\)]*\\))\\s*(?:::\\S+)?$");
constinit const TRegex TreemapLine("^\"([^\"]+)\"(?:\\s*+:\\s*+(.+))?$");
constinit const TRegex BranchTitle("^title\\s+", rcIgnore);
constinit const TRegex TreeLines("^[\\x{2500}-\\x{257F}\\s]+");

// Metadata are taken to the last brace and trimmed afterwards.
constinit const TRegex KanbanBracket("^(?:([\\w.-]+))?\\[([^\\]]+)\\](?:@\\{(.*)\\})?$");
constinit const TRegex KanbanName("^([\\w.-]+)(?:@\\{(.*)\\})?$");

/// A tree whose nodes are numbered and hang under the last line that stands further out.
class TTree {
 public:
  TTree(TKDXDiagramModel& aModel, std::string_view aName) : fModel(aModel), fName(aName) {}

  /// The node above a line with this indentation; empty for a root.
  std::string_view ParentAt(int aIndent) { return fOpen.ParentAt(aIndent); }
  /// Adds the node of the line for which ParentAt was asked.
  void Add(int aIndent, std::string_view aParent, std::string_view aText, TZORFlowType aShape,
           int aSide = 0) {
    const std::string id = NumberedID(fName, ++fCount);
    fModel.AddNode(id, aText, aShape, true, static_cast<std::int8_t>(aSide));
    AddPlainEdge(fModel, aParent, id);
    fOpen.Push(aIndent, id);
  }
  int Count() const { return fCount; }

 private:
  TKDXDiagramModel& fModel;
  std::string_view fName;
  TIndentStack fOpen;
  int fCount = 0;
};

/// "title Text" with whatever white space; the title is cleaned.
bool ReadBranchTitle(std::string_view aText, TKDXDiagramModel& aModel) {
  TMatch match;
  if (!BranchTitle.Match(aText, match)) return false;
  aModel.fTitle = CleanDiagramText(aText.substr(std::string_view("title").size()));
  return true;
}

void ReadMindMapNode(std::string_view aText, int aIndent, TTree& aTree) {
  TZORFlowType shape = ftProcess;
  std::string text;
  TMatch match;
  if (MindMapShape.Match(aText, match)) {
    TKDXMermaidParser::DecodeShape(match[2], shape, text);
  } else {
    text = aText.substr(0, ClassSuffix(aText));
  }
  const std::string_view parent = aTree.ParentAt(aIndent);
  aTree.Add(aIndent, parent, CleanDiagramText(text), parent.empty() ? ftEllipse : shape);
}

void ReadTreemapNode(std::string_view aText, int aIndent, TTree& aTree) {
  TMatch match;
  if (!TreemapLine.Match(aText, match)) return;
  std::string text = CleanDiagramText(match[1]);
  if (match.Has(2)) {
    // A value has at least one character in front of its class.
    text = TwoLines(text, Trim(match[2].substr(0, ClassSuffix(match[2], 1))));
  }
  const std::string_view parent = aTree.ParentAt(aIndent);
  aTree.Add(aIndent, parent, text, parent.empty() ? ftPredefined : ftProcess);
}

/// The indentation where the lines of a drawn tree count as blanks.
int TreeIndentOf(std::string_view aLine) {
  int indent = 0;
  for (std::size_t pos = 0; pos < aLine.size();) {
    const char32_t c = Utf8::Next(aLine, pos);
    if (c != U'\t' && c != U' ' && (c < 0x2500 || c > 0x257F)) break;
    indent += c == U'\t' ? 2 : 1;
  }
  return indent;
}

void ReadTreeViewNode(std::string_view aText, int aIndent, TTree& aTree) {
  TMatch lines;
  if (TreeLines.Match(aText, lines)) aText.remove_prefix(lines.End());
  if (aText.empty()) return;
  std::string text = CleanDiagramText(aText);
  const bool folder = text.ends_with('/');
  text.erase(text.find_last_not_of('/') + 1);
  aTree.Add(aIndent, aTree.ParentAt(aIndent), text, folder ? ftPredefined : ftDocument);
}

/// A fishbone: causes hang under the head on both sides in turn, deeper ones on the side of their parent.
class TFishbone {
 public:
  explicit TFishbone(TKDXDiagramModel& aModel) : fModel(aModel), fTree(aModel, "ishikawa_") {}

  void Read(std::string_view aText, int aIndent) {
    const std::string text = CleanDiagramText(WithoutColons(aText));
    if (fTree.Count() == 0) {
      fTree.Add(aIndent, {}, text, ftDecision);
      return;
    }
    std::string_view parent = fTree.ParentAt(aIndent);
    if (parent.empty()) parent = Head;
    fTree.Add(aIndent, parent, text, ftProcess, SideBelow(parent));
  }

 private:
  static constexpr std::string_view Head = "ishikawa_1";

  static std::string_view WithoutColons(std::string_view aText) {
    constexpr std::string_view ends = " :";
    const std::size_t first = aText.find_first_not_of(ends);
    return first == std::string_view::npos ? std::string_view()
                                           : aText.substr(first, aText.find_last_not_of(ends) + 1 - first);
  }

  int SideBelow(std::string_view aParent) {
    if (aParent != Head) return fModel.fNodes[static_cast<std::size_t>(fModel.NodeIndexOf(aParent))].Side;
    fSide = -fSide;
    return fSide;
  }

  TKDXDiagramModel& fModel;
  TTree fTree;
  int fSide = 1;
};

class TKanban {
 public:
  explicit TKanban(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText, int aIndent) {
    TMatch match;
    if (KanbanBracket.Match(aText, match)) {
      Add(match[1], CleanDiagramText(match[2]), match[3], aIndent);
    } else if (KanbanName.Match(aText, match)) {
      Add(match[1], std::string(match[1]), match[2], aIndent);
    }
  }

 private:
  void Add(std::string_view aID, std::string aText, std::string_view aMetadata, int aIndent) {
    ++fCount;
    const std::string id = aID.empty() ? NumberedID("kanban_", fCount) : std::string(aID);
    aMetadata = WithoutSpaces(aMetadata);
    if (!aMetadata.empty()) aText = TwoLines(aText, ReplacedAll(aMetadata, ',', LabelBreak));
    if (fColumnIndent && aIndent > *fColumnIndent) {
      fModel.AddNode(id, aText, ftProcess, true);
      AddPlainEdge(fModel, fColumn, id);
      return;
    }
    fModel.AddNode(id, aText, ftPredefined, true);
    fColumn = id;
    fColumnIndent = aIndent;
  }

  TKDXDiagramModel& fModel;
  std::string fColumn;
  std::optional<int> fColumnIndent;
  int fCount = 0;
};

}  // namespace

void TKDXMermaidParser::ParseMindMap(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkMindMap);
  TTree tree(aModel, "mind_");
  ForEachLine(aLines, Mermaid::MindMapHeader, aModel, [&](std::string_view aText, std::string_view aLine) {
    if (aText.starts_with("::") || ReadTitle(aText, aModel)) return;
    ReadMindMapNode(aText, IndentOf(aLine), tree);
  });
}

void TKDXMermaidParser::ParseTreemap(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkMindMap);
  TTree tree(aModel, "treemap_");
  ForEachLine(aLines, Mermaid::TreemapHeader, aModel, [&](std::string_view aText, std::string_view aLine) {
    ReadTreemapNode(aText, IndentOf(aLine), tree);
  });
}

void TKDXMermaidParser::ParseTreeView(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkMindMap);
  TTree tree(aModel, "treeview_");
  ForEachLine(aLines, Mermaid::TreeViewHeader, aModel, [&](std::string_view aText, std::string_view aLine) {
    if (!ReadBranchTitle(aText, aModel)) ReadTreeViewNode(aText, TreeIndentOf(aLine), tree);
  });
}

void TKDXMermaidParser::ParseIshikawa(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkIshikawa);
  TFishbone fishbone(aModel);
  ForEachLine(aLines, Mermaid::IshikawaHeader, aModel, [&](std::string_view aText, std::string_view aLine) {
    if (!ReadBranchTitle(aText, aModel)) fishbone.Read(aText, IndentOf(aLine));
  });
}

void TKDXMermaidParser::ParseKanban(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  TKanban kanban(aModel);
  ForEachLine(aLines, Mermaid::KanbanHeader, aModel,
              [&](std::string_view aText, std::string_view aLine) { kanban.Read(aText, IndentOf(aLine)); });
}

}  // namespace Zor::inline Diagramparsers
