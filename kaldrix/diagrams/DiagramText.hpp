// What the readers of diagram text share: lines, labels, and small steps over a line. All texts are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Diagramparsers {

/// A line break inside a label.
inline constexpr std::string_view LabelBreak = "\r\n";

struct TDiagramLine {
  std::string_view Text;
  std::int32_t Number = 0;  ///< 1-based
};
using TDiagramLines = std::span<const TDiagramLine>;

/// Valid UTF-8 for a reader: the text itself, or its repaired copy in `aRepaired`.
std::string_view ValidDiagramText(std::string_view aText, std::string& aRepaired);

/// Cuts at every CR and at every LF, so that CR LF ends one line and adds an empty one. The lines are views
/// of the text.
std::vector<TDiagramLine> SplitDiagramLines(std::string_view aText);

/// A label as it is shown: trimmed, without one pair of double quotes around it, with <br>, <br/> and the two
/// characters "\n" as line breaks, &quot; and &amp; as characters.
std::string CleanDiagramText(std::string_view aText);

/// ASCII letters in any case; `aLower` is in lower case.
bool SameWord(std::string_view aText, std::string_view aLower);
bool StartsWithWord(std::string_view aText, std::string_view aLower);

/// White space as patterns know it ("\s" with the classes of Unicode), which is more than Trim takes.
/// How many bytes of it the text begins with.
std::size_t SpaceLength(std::string_view aText);
std::string_view WithoutSpaceBefore(std::string_view aText);
std::string_view WithoutSpaces(std::string_view aText);
/// How many bytes of letters, digits and underscores ("\w") the text begins with.
std::size_t WordLength(std::string_view aText);

/// The parts between single separators, at least one, each trimmed.
std::vector<std::string_view> SplitTrimmed(std::string_view aText, char aSeparator);
/// Both sides of a separator at a byte, each trimmed.
std::pair<std::string_view, std::string_view> TrimmedSides(std::string_view aText, std::size_t aPos,
                                                           std::size_t aLength);
std::string ReplacedAll(std::string_view aText, char aWhat, std::string_view aWith);

/// White space in front of a line: 2 for a tab, 1 for a blank.
int IndentOf(std::string_view aLine);

}  // namespace Zor::inline Diagramparsers
