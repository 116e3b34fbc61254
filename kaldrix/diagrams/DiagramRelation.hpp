// Relations of class and structure diagrams: "A <|-- B : label".
#pragma once

#include <string>
#include <string_view>

#include "kaldrix/diagrams/DiagramTypes.hpp"

namespace Zor::inline Diagramparsers {

/// A relation in a line: views of it, the ends trimmed.
struct TDiagramRelation {
  std::string_view Token;
  std::string_view Left;
  std::string_view Right;  ///< Up to a colon.
  std::string Label;       ///< What stands behind the colon, cleaned.
};

/// Whether a line holds one of the fourteen tokens that join two classes.
bool HasRelationToken(std::string_view aLine);
/// The line around its relation token: the first token of the table that occurs anywhere in it, not the first
/// in the line. False without a token; the ends may be empty.
bool FindRelation(std::string_view aLine, TDiagramRelation& aRelation);

/// An edge between two IDs with the line and the terminators of a token.
TZORDiagEdge RelationEdge(std::string_view aFrom, std::string_view aTo, const TDiagramRelation& aRelation);

/// Splits a label off behind the first colon: gives it cleaned and cuts `aText` there, trimmed.
std::string TakeLabel(std::string_view& aText);

}  // namespace Zor::inline Diagramparsers
