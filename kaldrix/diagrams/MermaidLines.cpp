#include "kaldrix/diagrams/MermaidLines.hpp"

#include <algorithm>

namespace Zor::inline Diagramparsers::Mermaid {

namespace {

constexpr std::string_view TitleWord = "title";

constinit const TRegex TitleLine("^title[\\s:]", rcIgnore);
constinit const TRegex CleanTitleLine("^title\\s+(.+)$", rcIgnore);

}  // namespace

bool ReadTitle(std::string_view aText, TKDXDiagramModel& aModel) {
  if (!StartsWithWord(aText, TitleWord) || !TitleLine.Matches(aText)) return false;
  aText.remove_prefix(TitleWord.size());
  while (aText.starts_with(':')) aText.remove_prefix(1);
  aModel.fTitle = Trim(aText);
  return true;
}

bool ReadCleanTitle(std::string_view aText, TKDXDiagramModel& aModel) {
  TMatch match;
  if (!StartsWithWord(aText, TitleWord) || !CleanTitleLine.Match(aText, match)) return false;
  aModel.fTitle = CleanDiagramText(match[1]);
  return true;
}

std::size_t NameLength(std::string_view aText) {
  std::size_t length = WordLength(aText);
  if (length == 0) return 0;
  while (length < aText.size() && (aText[length] == '-' || aText[length] == '.')) {
    const std::size_t word = WordLength(aText.substr(length + 1));
    if (word == 0) break;
    length += 1 + word;
  }
  return length;
}

std::size_t ClassSuffix(std::string_view aText, std::size_t aFrom) {
  // The last run without white space: the class reaches to the end of the text.
  std::size_t run = 0;
  for (std::size_t pos = 0; pos < aText.size();) {
    const std::size_t spaces = SpaceLength(aText.substr(pos));
    if (spaces > 0) {
      pos += spaces;
      if (pos < aText.size()) run = pos;
    } else {
      Utf8::Next(aText, pos);
    }
  }
  const std::size_t suffix = aText.find(":::", std::max(run, aFrom));
  if (suffix == std::string_view::npos || suffix + 3 >= aText.size()) return std::string_view::npos;
  if (suffix != run) return suffix;
  const std::size_t trimmed = WithoutSpaces(aText.substr(0, run)).size();
  return std::max(trimmed, aFrom);
}

}  // namespace Zor::inline Diagramparsers::Mermaid
