// Trees: mind maps, data, folders.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>

#include "kaldrix/diagrams/PlantUMLLines.hpp"
#include "kaldrix/diagrams/TIndentStack.hpp"
#include "kaldrix/utils/Colors.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using namespace PlantUML;

constinit const TRegex NodeStyle("^node\\s*\\{", rcIgnore);
constinit const TRegex DepthStyle("^:depth\\((\\d+)\\)\\s*\\{", rcIgnore);
constinit const TRegex BackgroundStyle("^BackgroundColor\\s+(\\S+)", rcIgnore);
constinit const TRegex BranchLine("^(\\*+|[+-]+)(?:\\[([^\\]]+)\\])?(_)?\\s*(.+)$");
constinit const TRegex BranchIcon("^<&[^>]+>", rcIgnore);
constinit const TRegex FontTag("</?(?:b|i|u|s)>", rcIgnore);

// The key takes all up to the separator, so that blanks are never tried twice.
constinit const TRegex DataLine("^\"?([^\":=]++)\"?\\s*+[:=]\\s*(.*)$");

// --- Mind maps -------------------------------------------------------------------------------------------

using TColor = std::optional<TAlphaColor>;

TColor ColorOf(std::string_view aText) {
  TAlphaColor color = 0;
  return TryParseColor(aText, color) ? TColor(color) : std::nullopt;
}

/// The colours that the "<style>" blocks of a mind map give.
class TBranchStyle {
 public:
  /// Whether the line belongs to a style block, its tags included.
  bool Takes(std::string_view aText) {
    if (!fInside) return fInside = SameWord(aText, "<style>");
    fInside = !SameWord(aText, "</style>");
    return true;
  }

  void Read(std::string_view aText) {
    if (!Takes(aText)) return;
    TMatch match;
    if (NodeStyle.Matches(aText)) {
      fTarget = &fDefault;
    } else if (DepthStyle.Match(aText, match)) {
      OpenDepth(match[1]);
    } else if (aText == "}") {
      fTarget = nullptr;
    } else if (fTarget && BackgroundStyle.Match(aText, match)) {
      if (const TColor color = ColorOf(match[1])) *fTarget = color;
    }
  }

  /// @param aDepth 0-based
  TColor ColorAt(int aDepth) const {
    const auto found = fByDepth.find(aDepth);
    return found != fByDepth.end() && found->second ? found->second : fDefault;
  }

 private:
  void OpenDepth(std::string_view aDigits) {
    int depth = 0;
    const auto [end, error] = std::from_chars(aDigits.data(), aDigits.data() + aDigits.size(), depth);
    // A number out of range is deeper than any branch.
    fTarget = error == std::errc() && end == aDigits.data() + aDigits.size() ? &fByDepth[depth] : nullptr;
  }

  TColor fDefault;
  std::unordered_map<int, TColor> fByDepth;
  TColor* fTarget = nullptr;  ///< the colour of the open block
  bool fInside = false;
};

/// Without "<<stereotype>>" at the end.
std::string_view WithoutStereotype(std::string_view aText) {
  const std::string_view text = WithoutSpaces(aText);
  if (!text.ends_with(">>")) return aText;
  const std::string_view inner = text.substr(0, text.size() - 2);
  const std::size_t bracket = inner.rfind('>');
  const std::size_t open = inner.find("<<", bracket == std::string_view::npos ? 0 : bracket + 1);
  return open == std::string_view::npos || open + 2 >= inner.size() ? aText : text.substr(0, open);
}

std::string BranchText(std::string_view aText) {
  std::string text = CleanDiagramText(aText);
  if (text.starts_with("<&")) text = BranchIcon.Replaced(text, {});
  if (text.find('<') != std::string::npos) text = FontTag.Replaced(text, {});
  return std::string(Trim(WithoutStereotype(text)));
}

/// Hangs each branch under the last one of its side that is less deep, or under the last root.
class TMindMap {
 public:
  TMindMap(TKDXDiagramModel& aModel, const TBranchStyle& aStyle)
      : fModel(aModel), fStyle(aStyle), fNodes(aModel, "mind_") {}

  void Read(std::string_view aText) {
    TMatch match;
    if (SameWord(aText, "left side") || SameWord(aText, "right side") || aText.ends_with(" direction"))
      return;
    if (!BranchLine.Match(aText, match)) return;
    const std::string text = BranchText(match[4]);
    if (text.empty()) return;
    const int depth = static_cast<int>(match[1].size());
    TColor color = ColorOf(match[2]);
    if (!color) color = fStyle.ColorAt(depth - 1);
    if (depth == 1) {
      fRoot = Add(text, ftEllipse, 0, color);
      return;
    }
    const bool left = match[1].starts_with('-');
    TIndentStack& branches = left ? fLeft : fRight;
    std::string_view parent = branches.ParentAt(depth);
    if (parent.empty()) parent = fRoot;
    const std::string& id = Add(text, ftProcess, left ? -1 : 1, color);
    AddPlainEdge(fModel, parent, id);
    branches.Push(depth, id);
  }

 private:
  const std::string& Add(std::string_view aText, TZORFlowType aShape, int aSide, TColor aColor) {
    return fNodes.Add(aText, aShape, aSide, aColor.value_or(0), aColor.has_value());
  }

  TKDXDiagramModel& fModel;
  const TBranchStyle& fStyle;
  TNumberedNodes fNodes;
  std::string fRoot;
  TIndentStack fLeft;  ///< branches of depth 2 and more; a new root leaves them as they are
  TIndentStack fRight;
};

// --- Data ------------------------------------------------------------------------------------------------

class TData {
 public:
  explicit TData(TKDXDiagramModel& aModel) : fModel(aModel), fNodes(aModel, "data_") {
    fModel.AddNode(Root, "Data", ftDatabase, true);
    fOpen.Push(-1, Root);
  }

  void Read(std::string_view aLine) {
    std::string_view text = Trim(WithoutEnds(Trim(aLine), ","));
    if (text.empty() || text == "{" || text == "}" || text == "[" || text == "]") return;
    text.remove_prefix(std::min(text.find_first_not_of("- "), text.size()));
    std::string_view key = text;
    std::string_view value;
    TMatch match;
    if (DataLine.Match(text, match)) {
      key = Trim(match[1]);
      value = Trim(WithoutEnds(Trim(match[2]), ","));
    }
    const bool container = value.empty() || value == "{" || value == "[";
    Add(IndentOf(aLine), key, WithoutEnds(value, "\"'{}[]"), container);
  }

 private:
  static constexpr std::string_view Root = "data_root";

  void Add(int aIndent, std::string_view aKey, std::string_view aValue, bool aContainer) {
    const std::string_view parent = fOpen.ParentAt(aIndent);
    const std::string& id = fNodes.Add(aValue.empty() ? std::string(aKey) : TwoLines(aKey, aValue),
                                       aContainer ? ftPredefined : ftProcess);
    AddPlainEdge(fModel, parent, id);
    if (aContainer) fOpen.Push(aIndent, id);
  }

  TKDXDiagramModel& fModel;
  TNumberedNodes fNodes;
  TIndentStack fOpen;  ///< never without the root, which stands further out than any line
};

// --- Folders ---------------------------------------------------------------------------------------------

/// Without "<...>"; an empty pair stays.
std::string WithoutTags(std::string_view aText) {
  std::string result;
  for (;;) {
    const std::size_t open = aText.find('<');
    const std::size_t close = open == std::string_view::npos ? open : aText.find('>', open);
    if (close == std::string_view::npos) return result.append(aText);
    const bool empty = close == open + 1;
    result.append(aText.substr(0, empty ? close + 1 : open));
    aText.remove_prefix(close + 1);
  }
}

class TFiles {
 public:
  explicit TFiles(TKDXDiagramModel& aModel) : fModel(aModel) {
    fModel.AddNode(Root, "/", ftPredefined, true);
  }

  void Read(std::string_view aText) {
    if (fFull || !aText.starts_with('/')) return;
    const std::string path = WithoutTags(aText);
    std::string_view rest = path;
    int parent = 0;
    while (!fFull && !(rest = WithoutSlashes(rest)).empty()) {
      const std::size_t end = std::min(rest.find('/'), rest.size());
      const std::string name = CleanDiagramText(rest.substr(0, end));
      rest.remove_prefix(end);
      if (!name.empty()) parent = Child(parent, name, !rest.empty());
    }
  }

 private:
  static constexpr std::string_view Root = "files_root";

  static std::string_view WithoutSlashes(std::string_view aText) {
    return aText.substr(std::min(aText.find_first_not_of('/'), aText.size()));
  }

  /// The node of a file or folder below another. Looked up by the parent's index: the whole path of each part
  /// would cost the square of the depth.
  int Child(int aParent, std::string_view aName, bool aFolder) {
    std::string key = std::to_string(aParent);
    key.append("/").append(aName).append(aFolder ? "/" : "");
    const auto [known, isNew] = fKnown.try_emplace(std::move(key), 0);
    if (!isNew) return known->second;
    const std::string parent = fModel.fNodes[static_cast<std::size_t>(aParent)].ID;
    std::string id = parent;
    id.append("/").append(aName).append(aFolder ? "/" : "");
    known->second = fModel.AddNode(id, aName, aFolder ? ftPredefined : ftDocument, true);
    fFull = !AddPlainEdge(fModel, parent, id);
    return known->second;
  }

  TKDXDiagramModel& fModel;
  std::unordered_map<std::string, int> fKnown;  ///< "parent/name" or "parent/name/" to the node
  bool fFull = false;                           ///< The model takes no more.
};

}  // namespace

void TKDXPlantUMLParser::ParseMindMap(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkMindMap);
  // Styles count wherever they stand.
  TBranchStyle style;
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { style.Read(aText); });
  TBranchStyle skipped;
  TMindMap map(aModel, style);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) {
    if (!skipped.Takes(aText)) map.Read(aText);
  });
}

void TKDXPlantUMLParser::ParseData(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkMindMap);
  TData data(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { data.Read(aText); });
}

void TKDXPlantUMLParser::ParseFiles(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel, dkMindMap);
  TFiles files(aModel);
  ForEachEntry(aLines, aModel, [&](std::string_view aText) { files.Read(aText); });
}

}  // namespace Zor::inline Diagramparsers
