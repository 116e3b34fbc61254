#include "kaldrix/diagrams/DiagramText.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/platform/TRegex.hpp"

namespace Zor::inline Diagramparsers {

namespace {

struct TReplacement {
  std::string_view lower;
  std::string_view with;
};

/// None of them begins inside another, so one pass serves for all.
constexpr std::array LabelReplacements{
    TReplacement{"<br/>", LabelBreak}, TReplacement{"<br>", LabelBreak}, TReplacement{"\\n", LabelBreak},
    TReplacement{"&quot;", "\""},      TReplacement{"&amp;", "&"},
};
constexpr std::string_view LabelMarks = "<\\&";

constinit const TRegex Word("^\\w+");

constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

constexpr bool IsWordAscii(char c) {
  return (Lower(c) >= 'a' && Lower(c) <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

/// "\s" beyond ASCII.
constexpr bool IsWideSpace(char32_t c) {
  return c == 0x85 || c == 0xA0 || c == 0x1680 || c == 0x180E || (c >= 0x2000 && c <= 0x200A) ||
         c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F || c == 0x3000;
}

constexpr bool IsSpaceAscii(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// The byte where the last character begins.
std::size_t LastCharacter(std::string_view aText) {
  std::size_t pos = aText.size() - 1;
  while (pos > 0 && (static_cast<unsigned char>(aText[pos]) & 0xC0) == 0x80) --pos;
  return pos;
}

}  // namespace

std::string_view ValidDiagramText(std::string_view aText, std::string& aRepaired) {
  if (Utf8::IsValid(aText)) return aText;
  aRepaired = Utf8::Repaired(aText);
  return aRepaired;
}

std::vector<TDiagramLine> SplitDiagramLines(std::string_view aText) {
  std::vector<TDiagramLine> lines;
  lines.reserve(static_cast<std::size_t>(std::count(aText.begin(), aText.end(), '\n')) + 1);
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = aText.find_first_of(LabelBreak, start);
    lines.push_back({aText.substr(start, end - start), static_cast<std::int32_t>(lines.size() + 1)});
    if (end == std::string_view::npos) return lines;
    start = end + 1;
  }
}

std::string CleanDiagramText(std::string_view aText) {
  aText = Trim(aText);
  if (aText.size() >= 2 && aText.front() == '"' && aText.back() == '"')
    aText = aText.substr(1, aText.size() - 2);
  std::string label;
  for (;;) {
    const std::size_t mark = aText.find_first_of(LabelMarks);
    label.append(aText.substr(0, mark));
    if (mark == std::string_view::npos) break;
    aText.remove_prefix(mark);
    const auto* found = std::find_if(LabelReplacements.begin(), LabelReplacements.end(), [&](const auto& r) {
      // The two characters of a line break respect case.
      return r.lower.front() == '\\' ? aText.starts_with(r.lower) : StartsWithWord(aText, r.lower);
    });
    const bool known = found != LabelReplacements.end();
    label.append(known ? found->with : aText.substr(0, 1));
    aText.remove_prefix(known ? found->lower.size() : 1);
  }
  const std::string_view trimmed = Trim(label);
  if (trimmed.size() != label.size()) return std::string(trimmed);
  return label;
}

bool SameWord(std::string_view aText, std::string_view aLower) {
  return aText.size() == aLower.size() && StartsWithWord(aText, aLower);
}

bool StartsWithWord(std::string_view aText, std::string_view aLower) {
  return aText.size() >= aLower.size() && std::equal(aLower.begin(), aLower.end(), aText.begin(),
                                                     [](char a, char b) { return a == Lower(b); });
}

std::size_t SpaceLength(std::string_view aText) {
  std::size_t pos = 0;
  while (pos < aText.size()) {
    if (IsSpaceAscii(aText[pos])) {
      ++pos;
      continue;
    }
    if (IsAscii(aText[pos])) break;
    std::size_t next = pos;
    if (!IsWideSpace(Utf8::Next(aText, next))) break;
    pos = next;
  }
  return pos;
}

std::string_view WithoutSpaceBefore(std::string_view aText) { return aText.substr(SpaceLength(aText)); }

std::string_view WithoutSpaces(std::string_view aText) {
  aText = WithoutSpaceBefore(aText);
  while (!aText.empty()) {
    const std::size_t last = LastCharacter(aText);
    if (SpaceLength(aText.substr(last)) == 0) break;
    aText = aText.substr(0, last);
  }
  return aText;
}

std::size_t WordLength(std::string_view aText) {
  std::size_t pos = 0;
  while (pos < aText.size()) {
    if (IsWordAscii(aText[pos])) {
      ++pos;
      continue;
    }
    if (IsAscii(aText[pos])) break;
    // The pattern knows the letters of all scripts. It sees no more than what could belong to the word.
    const auto* end = std::find_if_not(aText.begin() + pos, aText.end(),
                                       [](char c) { return IsWordAscii(c) || !IsAscii(c); });
    TMatch run;
    if (Word.Match({aText.begin() + pos, end}, run)) pos += run.End();
    break;
  }
  return pos;
}

std::vector<std::string_view> SplitTrimmed(std::string_view aText, char aSeparator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = aText.find(aSeparator);
    parts.push_back(Trim(aText.substr(0, end)));
    if (end == std::string_view::npos) return parts;
    aText.remove_prefix(end + 1);
  }
}

std::pair<std::string_view, std::string_view> TrimmedSides(std::string_view aText, std::size_t aPos,
                                                           std::size_t aLength) {
  return {Trim(aText.substr(0, aPos)), Trim(aText.substr(aPos + aLength))};
}

std::string ReplacedAll(std::string_view aText, char aWhat, std::string_view aWith) {
  std::string result;
  for (std::size_t start = 0;;) {
    const std::size_t end = aText.find(aWhat, start);
    result.append(aText.substr(start, end - start));
    if (end == std::string_view::npos) return result;
    result.append(aWith);
    start = end + 1;
  }
}

int IndentOf(std::string_view aLine) {
  int indent = 0;
  for (const char c : aLine) {
    if (c != ' ' && c != '\t') break;
    indent += c == '\t' ? 2 : 1;
  }
  return indent;
}

}  // namespace Zor::inline Diagramparsers
