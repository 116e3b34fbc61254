// Lines of a sequence diagram: participants, messages, notes.
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"

#include <array>

#include "kaldrix/diagrams/MermaidLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

constinit const TRegex ParticipantLine(
    "^\\s*(?:participant|actor)\\s+(\"[^\"]+\"|[\\w.-]+)(?:\\s+as\\s+(.+))?\\s*$", rcIgnore);
constinit const TRegex NoteLine(
    "^\\s*Note\\s+(right of|left of|over)\\s+([\\w.-]+)\\s*(?:,\\s*([\\w.-]+)\\s*)?:\\s*(.*)$", rcIgnore);

struct TArrowHead {
  std::string_view head;
  TZORSeqArrow arrow;
};

/// The first that fits counts.
constexpr std::array ArrowHeads{TArrowHead{">>", saFilled}, TArrowHead{">", saOpen}, TArrowHead{"x", saCross},
                                TArrowHead{")", saOpen}};

/// "Alice->>Bob: text". The sender reaches to the first arrow behind which a receiver and a colon follow, so
/// a name may hold what looks like an arrow: "a-x-b->>c: text" comes from "a-x-b".
class TMessageLine {
 public:
  explicit TMessageLine(std::string_view aLine) : fLine(WithoutSpaceBefore(aLine)) {}

  bool Read(TZORSeqEvent& aEvent) {
    std::size_t end = WordLength(fLine);
    if (end == 0) return false;
    while (!ReadFrom(end, aEvent)) {
      if (end >= fLine.size() || (fLine[end] != '-' && fLine[end] != '.')) return false;
      const std::size_t word = WordLength(fLine.substr(end + 1));
      if (word == 0) return false;
      end += 1 + word;
    }
    return true;
  }

 private:
  /// The message whose sender ends at this byte.
  bool ReadFrom(std::size_t aSenderEnd, TZORSeqEvent& aEvent) {
    std::string_view rest = WithoutSpaceBefore(fLine.substr(aSenderEnd));
    if (!rest.starts_with('-')) return false;
    const bool dotted = rest.starts_with("--");
    rest.remove_prefix(dotted ? 2 : 1);
    for (const TArrowHead& head : ArrowHeads) {
      if (!rest.starts_with(head.head)) continue;
      if (!ReadReceiver(WithoutSpaceBefore(rest.substr(head.head.size())), aEvent)) return false;
      aEvent.FromActor = fLine.substr(0, aSenderEnd);
      aEvent.Dotted = dotted;
      aEvent.Arrow = head.arrow;
      return true;
    }
    return false;
  }

  bool ReadReceiver(std::string_view aRest, TZORSeqEvent& aEvent) {
    // Inside a name behind which no colon stood there is no other receiver.
    if (aRest.size() > fRestWithoutColon) return false;
    const std::size_t length = Mermaid::NameLength(aRest);
    if (length == 0) return false;
    const std::string_view text = WithoutSpaceBefore(aRest.substr(length));
    if (!text.starts_with(':')) {
      fRestWithoutColon = aRest.size() - length;
      return false;
    }
    aEvent.ToActor = aRest.substr(0, length);
    aEvent.Text = CleanDiagramText(WithoutSpaceBefore(text.substr(1)));
    return true;
  }

  std::string_view fLine;
  std::size_t fRestWithoutColon = std::string_view::npos;  ///< bytes behind the name that was last refused
};

bool ReadNote(std::string_view aLine, TZORSeqEvent& aNote) {
  TMatch match;
  if (!NoteLine.Match(aLine, match)) return false;
  aNote.EventType = seNote;
  aNote.NotePosition = LowerCase(match[1]);
  aNote.FromActor = match[2];
  aNote.ToActor = match[3];
  aNote.Text = CleanDiagramText(match[4]);
  return true;
}

}  // namespace

void TKDXMermaidParser::ParseSequenceLine(std::string_view aLine, TKDXDiagramModel& aModel) {
  TMatch match;
  if (ParticipantLine.Match(aLine, match)) {
    aModel.AddParticipant(CleanDiagramText(match[1]), CleanDiagramText(match[2]));
    return;
  }
  TZORSeqEvent event;
  if (TMessageLine(aLine).Read(event)) {
    aModel.AddParticipant(event.FromActor);
    aModel.AddParticipant(event.ToActor);
    aModel.AddSeqEvent(std::move(event));
    return;
  }
  event = {};
  if (!ReadNote(aLine, event)) return;
  aModel.AddParticipant(event.FromActor);
  aModel.AddSeqEvent(std::move(event));
}

}  // namespace Zor::inline Diagramparsers
