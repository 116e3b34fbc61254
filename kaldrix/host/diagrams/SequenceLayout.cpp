#include "kaldrix/host/diagrams/SequenceLayout.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/host/diagrams/TLifelines.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Host {

namespace {

// All lengths are millimetres.
constexpr TLayoutSize Margin{3, 2.5}, LeastBox{18, 9};  // of boxes
constexpr TLayoutSize NoteMargin{2.5, 2};
constexpr TAlphaColor NoteColor = 0xFFFFFBD6;
/// Between a text or note and a lifeline.
constexpr double SideGap = 2.5;
/// From the text of a message down to its line, and what a message without text keeps free above it.
constexpr double TextGap = 0.8, BareHeight = 1.5;
constexpr TLayoutSize Loop{8, 5};
/// How far a note over several participants reaches beyond the outer lifelines.
constexpr double NoteOverhang = 5;
/// Between the boxes of participants and events.
constexpr double HeadGap = 6, FootGap = 2;

// By ordinal of TZORSeqArrow.
constexpr std::array Terms{ttFillArrow, ttArrow, ttCross, ttNone};

std::size_t Index(int aIndex) { return static_cast<std::size_t>(aIndex); }

std::vector<std::string> LinesOf(const std::string& aText) {
  std::vector<std::string> lines;
  for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
    end = aText.find('\n', start);
    lines.push_back(aText.substr(start, end - start));
  }
  return lines;
}

class TSequenceLayout {
 public:
  TSequenceLayout(std::span<const TSequenceParticipant> aParticipants,
                  std::span<const TSequenceEvent> aEvents, const TSequenceOptions& aOptions)
      : fParticipants(aParticipants),
        fEvents(aEvents),
        fOptions(aOptions),
        fLifelines(aParticipants.size()) {}

  TScene Scene() {
    for (const TSequenceEvent& event : fEvents) Check(event);
    MeasureParticipants();
    for (const TSequenceEvent& event : fEvents) MakeRoom(event);
    fLifelines.Place();
    AddParticipants(0);
    if (fOptions.feet) AddParticipants(0);
    fScene.lines.resize(fParticipants.size());
    fY = fBoxHeight + HeadGap;
    for (const TSequenceEvent& event : fEvents) AddEvent(event);
    Finish();
    return std::move(fScene);
  }

 private:
  void Check(const TSequenceEvent& aEvent) const {
    const auto isThere = [&](int aIndex) { return aIndex >= 0 && Index(aIndex) < fParticipants.size(); };
    if (isThere(aEvent.from) && (isThere(aEvent.to) || (aEvent.note && aEvent.to == -1))) return;
    throw EArgumentException("An event of a sequence diagram has no such participant");
  }

  void MeasureParticipants() {
    for (const TSequenceParticipant& participant : fParticipants) {
      fWidths.push_back(std::max(LeastBox.width, participant.size.width + 2 * Margin.width));
      fBoxHeight = std::max({fBoxHeight, LeastBox.height, participant.size.height + 2 * Margin.height});
    }
    for (std::size_t i = 0; i < fWidths.size(); ++i) {
      const double next = i + 1 < fWidths.size() ? fWidths[i + 1] / 2 : 0;
      fLifelines.NeedLeft(i, fWidths[i] / 2, 0);
      fLifelines.NeedRight(i, fWidths[i] / 2, fOptions.columnGap + next);
    }
  }

  static TLayoutSize NoteSize(const TSequenceEvent& aEvent) {
    return {aEvent.size.width + 2 * NoteMargin.width, aEvent.size.height + 2 * NoteMargin.height};
  }
  static std::size_t First(const TSequenceEvent& aEvent) {
    return Index(aEvent.to < 0 ? aEvent.from : std::min(aEvent.from, aEvent.to));
  }
  static std::size_t Last(const TSequenceEvent& aEvent) { return Index(std::max(aEvent.from, aEvent.to)); }

  void MakeRoom(const TSequenceEvent& aEvent) {
    const std::size_t from = Index(aEvent.from);
    if (aEvent.note) {
      MakeNoteRoom(aEvent);
    } else if (aEvent.from == aEvent.to) {
      fLifelines.NeedRight(from, Loop.width + (aEvent.text.empty() ? 0 : SideGap + aEvent.size.width),
                           SideGap);
    } else {
      fLifelines.Spread(from, Index(aEvent.to), aEvent.size.width + 2 * SideGap);
    }
  }
  void MakeNoteRoom(const TSequenceEvent& aEvent) {
    const double width = NoteSize(aEvent).width;
    const std::size_t first = First(aEvent), last = Last(aEvent);
    if (aEvent.place == nplRight) {
      fLifelines.NeedRight(last, SideGap + width, SideGap);
    } else if (aEvent.place == nplLeft) {
      fLifelines.NeedLeft(first, SideGap + width, SideGap);
    } else {
      const double overhang = first == last ? width / 2 : NoteOverhang;
      fLifelines.Spread(first, last, width - 2 * overhang);
      fLifelines.NeedLeft(first, overhang, SideGap);
      fLifelines.NeedRight(last, overhang, SideGap);
    }
  }

  void AddParticipants(double aY) {
    for (std::size_t i = 0; i < fParticipants.size(); ++i) {
      const TSceneBox box{fLifelines[i] - fWidths[i] / 2, aY, fWidths[i], fBoxHeight};
      fScene.nodes.push_back({box, ftProcess, fParticipants[i].text, ColorWhite});
    }
  }

  void AddEvent(const TSequenceEvent& aEvent) {
    if (aEvent.note) {
      AddNote(aEvent);
    } else if (aEvent.from == aEvent.to) {
      AddLoop(aEvent);
    } else {
      AddMessage(aEvent);
    }
    fY += fOptions.rowGap;
  }
  void AddMessage(const TSequenceEvent& aEvent) {
    const double from = fLifelines[Index(aEvent.from)], to = fLifelines[Index(aEvent.to)];
    AddText(aEvent, (from + to - aEvent.size.width) / 2, fY, haCenter);
    fY += aEvent.text.empty() ? BareHeight : aEvent.size.height + TextGap;
    AddLine(aEvent, {{from, fY}, {to, fY}});
  }
  /// To the participant itself.
  void AddLoop(const TSequenceEvent& aEvent) {
    const double height = std::max(Loop.height, aEvent.size.height);
    const double x = fLifelines[Index(aEvent.from)], y = fY + (height - Loop.height) / 2;
    AddText(aEvent, x + Loop.width + SideGap, fY + (height - aEvent.size.height) / 2, haLeft);
    AddLine(aEvent, {{x, y}, {x + Loop.width, y}, {x + Loop.width, y + Loop.height}, {x, y + Loop.height}});
    fY += height;
  }
  void AddText(const TSequenceEvent& aEvent, double aX, double aY, TZORHorzAlign aAlign) {
    if (aEvent.text.empty()) return;
    const TSceneBox box{aX, aY, aEvent.size.width, aEvent.size.height};
    fScene.texts.push_back({box, LinesOf(aEvent.text), fOptions.fontHeight, aAlign, false, true});
  }
  void AddLine(const TSequenceEvent& aEvent, std::vector<TLayoutPoint> aPoints) {
    fScene.lines.push_back({std::move(aPoints), ttNone, Terms[aEvent.arrow], aEvent.dotted});
  }
  void AddNote(const TSequenceEvent& aEvent) {
    const TLayoutSize size = NoteSize(aEvent);
    const double first = fLifelines[First(aEvent)], last = fLifelines[Last(aEvent)];
    TSceneBox box{last + SideGap, fY, size.width, size.height};
    if (aEvent.place == nplLeft) {
      box.x = first - SideGap - size.width;
    } else if (aEvent.place == nplOver) {
      if (last > first) box.width = std::max(size.width, last - first + 2 * NoteOverhang);
      box.x = (first + last - box.width) / 2;
    }
    fScene.nodes.push_back({box, ftProcess, aEvent.text, NoteColor, fOptions.fontHeight});
    fY += size.height;
  }

  void Finish() {
    if (fParticipants.empty()) return;
    fY += FootGap;
    for (std::size_t i = 0; i < fParticipants.size(); ++i) {
      fScene.lines[i] = {{{fLifelines[i], fBoxHeight}, {fLifelines[i], fY}}, ttNone, ttNone, true};
      if (fOptions.feet) fScene.nodes[fParticipants.size() + i].box.y = fY;
    }
    fScene.size = {fLifelines.Width(), fOptions.feet ? fY + fBoxHeight : fY};
  }

  std::span<const TSequenceParticipant> fParticipants;
  std::span<const TSequenceEvent> fEvents;
  TSequenceOptions fOptions;
  TLifelines fLifelines;
  std::vector<double> fWidths;  ///< of the boxes of participants
  double fBoxHeight = 0;
  double fY = 0;  ///< where the next event begins
  TScene fScene;
};

}  // namespace

TScene SequenceLayout(std::span<const TSequenceParticipant> aParticipants,
                      std::span<const TSequenceEvent> aEvents, const TSequenceOptions& aOptions) {
  return TSequenceLayout(aParticipants, aEvents, aOptions).Scene();
}

}  // namespace Zor::inline Host
