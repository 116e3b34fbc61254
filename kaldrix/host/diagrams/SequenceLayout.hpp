// Layout of sequence diagrams.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "kaldrix/diagrams/DiagramTypes.hpp"
#include "kaldrix/host/diagrams/TScene.hpp"

namespace Zor::inline Host {

enum TNotePlace : std::uint8_t { nplRight, nplLeft, nplOver };

/// Sizes are those of the texts without margins, millimetres.
struct TSequenceParticipant {
  std::string text;
  TLayoutSize size;
};

/// A message, or a note beside or over one participant, or over all from one to another.
struct TSequenceEvent {
  bool note = false;
  int from = 0, to = -1;  ///< indexes of participants; -1: none, only for notes
  std::string text;       ///< its lines, as measured, stand between line ends
  TLayoutSize size;
  bool dotted = false;
  TZORSeqArrow arrow = saFilled;
  TNotePlace place = nplRight;
};

struct TSequenceOptions {
  double fontHeight = 3;  ///< of messages, millimetres
  double columnGap = 10;  ///< between the boxes of participants, millimetres
  double rowGap = 4.5;    ///< between events, millimetres
  bool feet = true;       ///< participants stand at the foot of their lifelines too
};

/// Participants in a row, their dotted lifelines, and one event below the other. Lifelines stand as far apart
/// as the texts between them need. First among the nodes come the participants, then their feet, then the
/// notes; first among the lines come the lifelines, then the messages in turn. n log n at most.
///
/// Raises EArgumentException for a participant that is not there.
TScene SequenceLayout(std::span<const TSequenceParticipant> aParticipants,
                      std::span<const TSequenceEvent> aEvents, const TSequenceOptions& aOptions = {});

}  // namespace Zor::inline Host
