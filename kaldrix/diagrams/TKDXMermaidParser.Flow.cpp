// Flowchart lines: nodes with shapes in brackets, joined by links. This is the most used and the largest kind
// of diagram, so its lines are read by hand, in one pass each.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/diagrams/MermaidLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

using enum TZORDiagEdgeArrow;

struct TShapeRow {
  std::string_view opening;
  std::string_view closing;
  TZORFlowType shape;
};

/// The first row whose delimiters both fit tells the shape.
constexpr std::array ShapeRows{
    TShapeRow{"([", "])", ftTerminator},
    TShapeRow{"[[", "]]", ftPredefined},
    TShapeRow{"[(", ")]", ftDatabase},
    TShapeRow{"(((", ")))", ftEnd},
    TShapeRow{"((", "))", ftStart},
    TShapeRow{"{{", "}}", ftPreparation},
    TShapeRow{"[/", "\\]", ftManualOperation},
    TShapeRow{"[\\", "/]", ftManualOperation},
    TShapeRow{"[/", "/]", ftData},
    TShapeRow{"[\\", "\\]", ftData},
    TShapeRow{">", "]", ftManualInput},
    TShapeRow{"[", "]", ftProcess},
    TShapeRow{"{", "}", ftDecision},
    TShapeRow{"(", ")", ftProcess},
};

/// A form in brackets: opening, no closing character, closing. `before` of the closing characters stand in
/// front of the first bracket that closes.
struct TBracketForm {
  std::string_view opening;
  std::string_view closing;
  std::size_t before = 0;
};

/// In the order of trial.
constexpr std::array BracketForms{
    TBracketForm{"([", "])"},      TBracketForm{"[[", "]]"},     TBracketForm{"[(", ")]"},
    TBracketForm{"(((", ")))"},    TBracketForm{"((", "))"},     TBracketForm{"{{", "}}"},
    TBracketForm{"[/", "\\]", 1},  TBracketForm{"[\\", "/]", 1}, TBracketForm{"[/", "/]", 1},
    TBracketForm{"[\\", "\\]", 1}, TBracketForm{">", "]"},       TBracketForm{"[", "]"},
    TBracketForm{"{", "}"},        TBracketForm{"(", ")"},
};

/// The bytes that a form takes at the beginning of a text, 0 when it does not stand there.
std::size_t FormLength(std::string_view aText, const TBracketForm& aForm) {
  if (!aText.starts_with(aForm.opening)) return 0;
  const std::size_t bracket = aText.find(aForm.closing[aForm.before], aForm.opening.size());
  if (bracket == std::string_view::npos || bracket < aForm.opening.size() + aForm.before) return 0;
  const std::size_t closing = bracket - aForm.before;
  return aText.substr(closing).starts_with(aForm.closing) ? closing + aForm.closing.size() : 0;
}

std::size_t BracketLength(std::string_view aText) {
  if (aText.empty() || std::string_view("([{>").find(aText.front()) == std::string_view::npos) return 0;
  for (const TBracketForm& form : BracketForms) {
    if (const std::size_t length = FormLength(aText, form)) return length;
  }
  return 0;
}

/// A link whose label stands inside it: "-- label -->".
struct TLabelledLink {
  std::string_view opening;
  std::string_view closing;
};

constexpr std::array LabelledLinks{TLabelledLink{"--", "-->"}, TLabelledLink{"-.", ".->"},
                                   TLabelledLink{"==", "==>"}};

struct TLink {
  std::string label;
  bool dotted = false;
  TZORDiagEdgeArrow arrow = eaArrow;
};

/// Takes a flowchart line apart from its beginning to its end.
class TFlowLine {
 public:
  TFlowLine(std::string_view aLine, TKDXDiagramModel& aModel) : fRest(aLine), fModel(aModel) {}

  bool Read() {
    TGroup group, next;
    if (!TakeGroup(group)) return false;
    TLink link;
    while (TakeLink(link) && TakeGroup(next)) {
      if (!Join(group, next, link)) break;
      group.swap(next);
    }
    return true;
  }

 private:
  using TGroup = std::vector<std::string_view>;

  void TakeSpaces() { fRest.remove_prefix(SpaceLength(fRest)); }
  std::string_view Take(std::size_t aLength) {
    const std::string_view taken = fRest.substr(0, aLength);
    fRest.remove_prefix(aLength);
    return taken;
  }

  bool TakeNode(std::string_view& aID) {
    const std::string_view text = WithoutSpaceBefore(fRest);
    const std::size_t length = Mermaid::NameLength(text);
    if (length == 0) return false;
    aID = text.substr(0, length);
    fRest = WithoutSpaceBefore(text.substr(length));
    const std::string_view brackets = Take(BracketLength(fRest));
    TZORFlowType shape = ftProcess;
    std::string label;
    const bool hasShape = TKDXMermaidParser::DecodeShape(brackets, shape, label);
    fModel.AddNode(aID, label, shape, hasShape);
    return true;
  }

  /// One node, or several joined by "&".
  bool TakeGroup(TGroup& aGroup) {
    aGroup.clear();
    std::string_view id;
    while (TakeNode(id)) {
      aGroup.push_back(id);
      const std::string_view text = WithoutSpaceBefore(fRest);
      if (!text.starts_with('&')) break;
      fRest = WithoutSpaceBefore(text.substr(1));
    }
    return !aGroup.empty();
  }

  bool TakeLink(TLink& aLink) {
    aLink = {};
    TakeSpaces();
    if (fRest.empty() || (fRest.front() != '-' && fRest.front() != '=')) return false;
    for (const TLabelledLink& form : LabelledLinks) {
      if (TakeLabelledLink(form, aLink)) return true;
    }
    return TakePlainLink(aLink);
  }

  bool TakeLabelledLink(const TLabelledLink& aForm, TLink& aLink) {
    if (!fRest.starts_with(aForm.opening)) return false;
    const std::string_view inside = fRest.substr(aForm.opening.size());
    if (SpaceLength(inside) == 0) return false;
    // The label holds no character with which the closing begins.
    const std::size_t end = inside.find(aForm.closing.front());
    if (end == std::string_view::npos || !inside.substr(end).starts_with(aForm.closing)) return false;
    const std::string_view label = WithoutSpaces(inside.substr(0, end));
    if (label.empty() && Utf8::Count(inside.substr(0, end)) < 2) return false;
    aLink.label = CleanDiagramText(label);
    aLink.dotted = aForm.opening == "-.";
    fRest = WithoutSpaceBefore(inside.substr(end + aForm.closing.size()));
    return true;
  }

  bool TakePlainLink(TLink& aLink) {
    const std::size_t length = PlainLinkLength();
    if (length == 0) return false;
    const std::string_view link = Take(length);
    aLink.dotted = link.find('.') != std::string_view::npos;
    switch (link.back()) {
      case '>':
        aLink.arrow = eaArrow;
        break;
      case 'x':
        aLink.arrow = eaCross;
        break;
      case 'o':
        aLink.arrow = eaCircle;
        break;
      default:
        aLink.arrow = eaNone;
        break;
    }
    TakeSpaces();
    TakePipedLabel(aLink);
    return true;
  }

  /// "-.->", two to four dashes or equals signs with ">", two to four dashes with "x" or "o", or three to
  /// five of either.
  std::size_t PlainLinkLength() const {
    const auto run = [&](char c, std::size_t aFrom) {
      return std::min(fRest.find_first_not_of(c, aFrom), fRest.size()) - aFrom;
    };
    if (fRest.starts_with("-.")) {
      const std::size_t dots = run('.', 1);
      return fRest.substr(1 + dots).starts_with("->") ? dots + 3 : 0;
    }
    const char line = fRest.front();
    const std::size_t length = run(line, 0);
    const char end = length < fRest.size() ? fRest[length] : '\0';
    const bool tipped = end == '>' || (line == '-' && (end == 'x' || end == 'o'));
    if (tipped && length >= 2 && length <= 4) return length + 1;
    return length >= 3 ? std::min<std::size_t>(length, 5) : 0;
  }

  /// "|label|" behind a link.
  void TakePipedLabel(TLink& aLink) {
    if (!fRest.starts_with('|')) return;
    const std::size_t end = fRest.find('|', 1);
    if (end == std::string_view::npos) return;
    aLink.label = CleanDiagramText(fRest.substr(1, end - 1));
    fRest = WithoutSpaceBefore(fRest.substr(end + 1));
  }

  bool Join(const TGroup& aFrom, const TGroup& aTo, const TLink& aLink) {
    for (const std::string_view from : aFrom) {
      for (const std::string_view to : aTo) {
        if (!fModel.AddEdge(from, to, aLink.label, aLink.dotted, aLink.arrow)) return false;
      }
    }
    return true;
  }

  std::string_view fRest;
  TKDXDiagramModel& fModel;
};

constinit const TRegex BlockSetting("^(columns|space)(?::|\\s)", rcIgnore);

}  // namespace

bool TKDXMermaidParser::DecodeShape(std::string_view aText, TZORFlowType& aShape, std::string& aLabel) {
  aText = Trim(aText);
  for (const TShapeRow& row : ShapeRows) {
    if (aText.size() < row.opening.size() + row.closing.size()) continue;
    if (!aText.starts_with(row.opening) || !aText.ends_with(row.closing)) continue;
    aShape = row.shape;
    aText.remove_prefix(row.opening.size());
    aText.remove_suffix(row.closing.size());
    aLabel = CleanDiagramText(aText);
    return true;
  }
  return false;
}

bool TKDXMermaidParser::ParseFlowLine(std::string_view aLine, TKDXDiagramModel& aModel) {
  return TFlowLine(aLine, aModel).Read();
}

void TKDXMermaidParser::ParseBlock(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  BeginDiagram(aModel);
  Mermaid::ForEachLine(aLines, Mermaid::BlockHeader, aModel, [&](std::string_view aText, std::string_view) {
    if (aText != "end" && !BlockSetting.Matches(aText)) ParseFlowLine(aText, aModel);
  });
}

}  // namespace Zor::inline Diagramparsers
