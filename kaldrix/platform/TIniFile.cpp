#include "kaldrix/platform/TIniFile.hpp"

#include <algorithm>

#include "kaldrix/platform/Files.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

/// Cuts the first line off `aText`, which is not empty.
std::string_view TakeLine(std::string_view& aText) {
  const std::size_t end = aText.find_first_of("\r\n");
  const std::string_view line = aText.substr(0, end);
  if (end == std::string_view::npos) {
    aText = {};
  } else {
    aText.remove_prefix(end + (aText.substr(end).starts_with("\r\n") ? 2 : 1));
  }
  return line;
}

std::string OneLine(std::string_view aText) {
  std::string text(aText);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return text;
}

auto FindKey(auto& aLines, std::string_view aKey) {
  return std::find_if(aLines.begin(), aLines.end(),
                      [&](const auto& line) { return SameText(line.first, aKey); });
}

}  // namespace

TIniFile TIniFile::FromText(std::string_view aText) {
  TIniFile ini;
  const std::string repaired = Utf8::Repaired(aText);
  std::string_view rest = repaired;
  if (rest.starts_with(Utf8::ByteOrderMark)) rest.remove_prefix(Utf8::ByteOrderMark.size());
  TSection* section = nullptr;
  while (!rest.empty()) {
    const std::string_view line = Trim(TakeLine(rest));
    if (line.empty() || line.front() == ';' || line.front() == '#') continue;
    if (line.front() == '[') {
      if (line.back() == ']') section = &ini.Section(Trim(line.substr(1, line.size() - 2)));
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || section == nullptr) continue;
    const std::string_view key = Trim(line.substr(0, equals));
    if (!key.empty()) section->Lines.emplace_back(key, Trim(line.substr(equals + 1)));
  }
  return ini;
}

TIniFile TIniFile::LoadFromFile(const std::string& aFileName) {
  return FromText(ReadFile(aFileName, MaxFileBytes));
}

std::string TIniFile::ToText() const {
  std::string text;
  for (const TSection& section : fSections) {
    if (!text.empty()) text += '\n';
    text.append("[").append(section.Name).append("]\n");
    for (const auto& [key, value] : section.Lines) text.append(key).append("=").append(value).append("\n");
  }
  return text;
}

void TIniFile::SaveToFile(const std::string& aFileName) const { WriteFileAtomically(aFileName, ToText()); }

const TIniFile::TLines& TIniFile::Lines(std::string_view aSection) const {
  static const TLines none;
  const auto found = fIndex.find(LowerCase(aSection));
  return found == fIndex.end() ? none : fSections[found->second].Lines;
}

std::string TIniFile::ReadString(std::string_view aSection, std::string_view aKey,
                                 std::string_view aDefault) const {
  const TLines& lines = Lines(aSection);
  const auto line = FindKey(lines, aKey);
  return line == lines.end() ? std::string(aDefault) : line->second;
}

TIniFile::TSection& TIniFile::Section(std::string_view aName) {
  const auto [place, isNew] = fIndex.try_emplace(LowerCase(aName), fSections.size());
  if (isNew) fSections.push_back({OneLine(aName), {}});
  return fSections[place->second];
}

void TIniFile::Append(std::string_view aSection, std::string_view aKey, std::string_view aValue) {
  Section(aSection).Lines.emplace_back(OneLine(aKey), OneLine(aValue));
}

void TIniFile::WriteString(std::string_view aSection, std::string_view aKey, std::string_view aValue) {
  TLines& lines = Section(aSection).Lines;
  const auto line = FindKey(lines, aKey);
  if (line == lines.end()) return Append(aSection, aKey, aValue);
  line->second = OneLine(aValue);
}

}  // namespace Zor
