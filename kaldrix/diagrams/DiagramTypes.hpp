// What a diagram consists of: plain records without coordinates.
#pragma once

#include <cstdint>
#include <string>

#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/types/Enumerations.hpp"
#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Diagramparsers {

enum TZORDiagramDiagnosticSeverity : std::uint8_t { dsInfo, dsWarning, dsError };
enum TZORDiagramKind : std::uint8_t { dkFlowChart, dkSequence, dkMindMap, dkIshikawa };
enum TZORFlowDirection : std::uint8_t { fdTopDown, fdLeftRight };
/// A class of its own: the editor's actions have an `eaNone` too.
enum class TZORDiagEdgeArrow : std::uint8_t { eaArrow, eaNone, eaCross, eaCircle, eaRhombus, eaFillRhombus };
enum TZORSeqEventType : std::uint8_t { seMessage, seNote };
enum TZORSeqArrow : std::uint8_t { saFilled, saOpen, saCross, saNone };

struct TZORDiagNode {
  std::string ID;
  std::int32_t InId = 0;  ///< The document item that a loader made of the node; 0 until then.
  std::string Text;
  TZORFlowType Shape = ftProcess;
  bool HasShape = false;  ///< The text tells the shape; otherwise the node was only mentioned.
  std::int8_t Side = 0;   ///< The half of a fishbone or mind map on which a branch lies: -1, 0 or +1.
  TAlphaColor BackColor = 0;
  bool HasBackColor = false;
};

struct TZORDiagEdge {
  std::string FromID;
  std::string ToID;
  std::string Text;
  bool Dotted = false;
  TZORDiagEdgeArrow FromArrow = TZORDiagEdgeArrow::eaNone;
  TZORDiagEdgeArrow Arrow = TZORDiagEdgeArrow::eaArrow;
};

struct TZORSeqParticipant {
  std::string ID;
  std::string Display;
};

struct TZORSeqEvent {
  TZORSeqEventType EventType = seMessage;
  std::string FromActor;
  std::string ToActor;
  std::string Text;
  bool Dotted = false;
  TZORSeqArrow Arrow = saFilled;
  std::string NotePosition;  ///< Of a note: "right of", "left of" or "over".
};

struct TZORDiagramDiagnostic {
  TZORDiagramDiagnosticSeverity Severity = dsInfo;
  std::int32_t Line = 0;  ///< 1-based; 0 when no line applies.
  std::string Code;       ///< A word for machines; it stays the same from version to version.
  std::string MessageText;
  std::string SourceText;  ///< The line concerned.
};

/// A strict reading met a warning or an error.
class EZORDiagramParseError : public Exception {
 public:
  using Exception::Exception;
};

}  // namespace Zor::inline Diagramparsers
