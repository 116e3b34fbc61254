// Sequence diagrams: participants, messages, notes of one line or of several.
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"

#include <array>

#include "kaldrix/diagrams/PlantUMLLines.hpp"

namespace Zor::inline Diagramparsers {

namespace {

constinit const TRegex ParticipantLine(
    "^(?:participant|actor|boundary|control|entity|database|collections)\\s+(\"[^\"]+\"|[\\w.]+)"
    "(?:\\s+as\\s+([\\w.]+))?\\s*(?:#\\w+)?$",
    rcIgnore);
constinit const TRegex MessageLine(
    "^(\"[^\"]+\"|[\\w.]+)\\s*(--?)(>>|>)([xo]?)\\s*(\"[^\"]+\"|[\\w.]+)\\s*:\\s*(.*)$");
constinit const TRegex NoteLine(
    "^note\\s+(right of|left "
    "of|over)\\s+(\"[^\"]+\"|[\\w.]+)\\s*(?:,\\s*(\"[^\"]+\"|[\\w.]+)\\s*)?:\\s*(.*)$",
    rcIgnore);

constexpr std::string_view NoteWord = "note ";
constexpr std::array<std::string_view, 3> NotePositions{"right of", "left of", "over"};

class TSequence {
 public:
  explicit TSequence(TKDXDiagramModel& aModel) : fModel(aModel) {}

  void Read(std::string_view aText) {
    if (fInNote) {
      ReadInNote(aText);
    } else if (!OpenNote(aText) && !ReadParticipant(aText) && !ReadMessage(aText)) {
      ReadNote(aText);
    }
  }

 private:
  /// "note right of Alice" without a text: the lines up to "end note" are the text.
  bool OpenNote(std::string_view aText) {
    if (!StartsWithWord(aText, NoteWord) || aText.find(':') != std::string_view::npos) return false;
    aText.remove_prefix(NoteWord.size());
    for (const std::string_view position : NotePositions) {
      if (!StartsWithWord(aText, position) || !aText.substr(position.size()).starts_with(' ')) continue;
      const std::string_view target = aText.substr(position.size());
      const std::size_t comma = target.find(',');
      fNote = {};
      fNote.EventType = seNote;
      fNote.NotePosition = position;
      fNote.FromActor = CleanDiagramText(target.substr(0, comma));
      if (comma != std::string_view::npos) fNote.ToActor = CleanDiagramText(target.substr(comma + 1));
      fInNote = true;
      return true;
    }
    return false;
  }

  void ReadInNote(std::string_view aText) {
    if (SameWord(aText, "end note")) {
      fNote.Text = Trim(fNote.Text);
      AddNote(std::move(fNote));
      fInNote = false;
    } else {
      fNote.Text.append(LabelBreak).append(aText);
    }
  }

  bool ReadParticipant(std::string_view aText) {
    TMatch match;
    if (!ParticipantLine.Match(aText, match)) return false;
    const std::string name = CleanDiagramText(match[1]);
    if (match.Has(2)) {
      fModel.AddParticipant(match[2], name);
    } else {
      fModel.AddParticipant(name);
    }
    return true;
  }

  bool ReadMessage(std::string_view aText) {
    TMatch match;
    if (!MessageLine.Match(aText, match)) return false;
    TZORSeqEvent event;
    event.FromActor = CleanDiagramText(match[1]);
    event.ToActor = CleanDiagramText(match[5]);
    event.Text = CleanDiagramText(match[6]);
    event.Dotted = match[2] == "--";
    event.Arrow = match[4] == "x" ? saCross : match[3] == ">>" ? saOpen : saFilled;
    fModel.AddParticipant(event.FromActor);
    fModel.AddParticipant(event.ToActor);
    fModel.AddSeqEvent(std::move(event));
    return true;
  }

  void ReadNote(std::string_view aText) {
    TMatch match;
    if (!StartsWithWord(aText, "note") || !NoteLine.Match(aText, match)) return;
    TZORSeqEvent note;
    note.EventType = seNote;
    note.NotePosition = LowerCase(match[1]);
    note.FromActor = CleanDiagramText(match[2]);
    note.ToActor = CleanDiagramText(match[3]);
    note.Text = CleanDiagramText(match[4]);
    AddNote(std::move(note));
  }

  void AddNote(TZORSeqEvent aNote) {
    fModel.AddParticipant(aNote.FromActor);
    fModel.AddSeqEvent(std::move(aNote));
  }

  TKDXDiagramModel& fModel;
  TZORSeqEvent fNote;  ///< the open note
  bool fInNote = false;
};

}  // namespace

void TKDXPlantUMLParser::ParseSequence(TDiagramLines aLines, TKDXDiagramModel& aModel) {
  aModel.fKind = dkSequence;
  TSequence sequence(aModel);
  PlantUML::ForEachEntry(aLines, aModel, [&](std::string_view aText) { sequence.Read(aText); });
}

}  // namespace Zor::inline Diagramparsers
