#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Zor {

/// Sections of key=value lines, both in the order in which they came. UTF-8.
///
/// Reading skips a byte order mark, blank lines, lines that begin with ';' or '#', lines without '=' and
/// lines before the first section; it accepts LF, CR LF and CR as line ends, takes blanks from both ends
/// of names, keys and values, replaces bytes that are not UTF-8 by U+FFFD and joins sections of one name.
/// No content is an error. Names of sections and keys are found ignoring case.
class TIniFile {
 public:
  using TLine = std::pair<std::string, std::string>;
  using TLines = std::vector<TLine>;
  struct TSection {
    std::string Name;
    TLines Lines;
  };

  /// Bytes that LoadFromFile reads at most; a larger file raises EStreamError.
  static constexpr std::size_t MaxFileBytes = std::size_t{64} << 20;

  static TIniFile FromText(std::string_view aText);
  /// EFileNotFoundException and EStreamError as ReadFile raises them.
  static TIniFile LoadFromFile(const std::string& aFileName);

  /// The text of the file: lines end in LF, a blank line stands between sections.
  std::string ToText() const;
  void SaveToFile(const std::string& aFileName) const;

  const std::vector<TSection>& Sections() const { return fSections; }
  /// The lines of a section, those of one key more than once included; none when there is no such section.
  const TLines& Lines(std::string_view aSection) const;
  /// The value of the first line with that key.
  std::string ReadString(std::string_view aSection, std::string_view aKey, std::string_view aDefault) const;

  /// Makes sure that the section exists, empty or not.
  TSection& Section(std::string_view aName);
  /// Adds a line at the end of a section, which is made when missing. Line breaks in the value become blanks.
  void Append(std::string_view aSection, std::string_view aKey, std::string_view aValue);
  /// Replaces the value of the first line with that key, or adds one.
  void WriteString(std::string_view aSection, std::string_view aKey, std::string_view aValue);

 private:
  std::vector<TSection> fSections;
  std::unordered_map<std::string, std::size_t> fIndex;  // lower-case name to place in fSections
};

}  // namespace Zor
