#include "kaldrix/host/diagrams/SequenceScene.hpp"

#include <string_view>
#include <unordered_map>

#include "kaldrix/host/diagrams/DiagramScene.hpp"
#include "kaldrix/host/diagrams/SequenceLayout.hpp"
#include "kaldrix/host/diagrams/TTextBlock.hpp"

namespace Zor::inline Host {

namespace {

// Where texts are broken, millimetres.
constexpr double MostParticipantWidth = 40, MostMessageWidth = 60;

std::string Joined(const TTextBlock& aBlock) {
  std::string text;
  for (const std::string& line : aBlock.lines) {
    if (!text.empty()) text += '\n';
    text += line;
  }
  return text;
}

TNotePlace PlaceOf(const TZORSeqEvent& aEvent) {
  if (aEvent.NotePosition == "over") return nplOver;
  return aEvent.NotePosition == "left of" ? nplLeft : nplRight;
}

/// Measures what a model says.
class TSequenceReader {
 public:
  TSequenceReader(TFontEngine& aFonts, const TKDXDiagramModel& aModel) : fFonts(aFonts) {
    for (const TZORSeqParticipant& participant : aModel.fParticipants) Add(participant);
    for (const TZORSeqEvent& event : aModel.fSeqEvents) Add(event);
  }

  std::vector<TSequenceParticipant> participants;
  std::vector<TSequenceEvent> events;

 private:
  void Add(const TZORSeqParticipant& aParticipant) {
    fIndexes.try_emplace(aParticipant.ID, static_cast<int>(participants.size()));
    const TTextBlock text =
        MeasureBlock(fFonts, aParticipant.Display, SceneFontOf(NodeFontHeight), MostParticipantWidth);
    participants.push_back({Joined(text), text.size});
  }
  void Add(const TZORSeqEvent& aEvent) {
    TSequenceEvent event;
    event.note = aEvent.EventType == seNote;
    event.from = IndexOf(aEvent.FromActor);
    event.to = IndexOf(aEvent.ToActor);
    if (event.from < 0 || (event.to < 0 && !event.note)) return;
    const TTextBlock text = MeasureBlock(fFonts, aEvent.Text, SceneFontOf(LabelFontHeight), MostMessageWidth);
    event.text = Joined(text);
    event.size = text.size;
    event.dotted = aEvent.Dotted;
    event.arrow = aEvent.Arrow;
    event.place = PlaceOf(aEvent);
    events.push_back(std::move(event));
  }
  int IndexOf(const std::string& aActor) const {
    const auto found = fIndexes.find(aActor);
    return found == fIndexes.end() ? -1 : found->second;
  }

  TFontEngine& fFonts;
  std::unordered_map<std::string_view, int> fIndexes;
};

}  // namespace

TScene SequenceScene(TFontEngine& aFonts, const TKDXDiagramModel& aModel) {
  const TSequenceReader reader(aFonts, aModel);
  TSequenceOptions options;
  options.fontHeight = LabelFontHeight;
  return SequenceLayout(reader.participants, reader.events, options);
}

}  // namespace Zor::inline Host
