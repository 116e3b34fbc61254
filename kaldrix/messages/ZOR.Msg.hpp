// The message catalogue: all translatable text of the system, looked up by group and name.
#pragma once

#include <string>
#include <string_view>

namespace Zor::inline Msg {

/// One process-wide dictionary of texts, English from the start, overlaid from a language file on demand. Its
/// keys are a group prefix of three lower-case letters followed by the message's name; callers of the
/// accessors pass the name alone. The lookup is exact, with case.
///
/// Any thread may look texts up and load others at any time: each call sees the texts of one load, whole, and
/// what an accessor gives is the caller's own.
class TKDXMsg {
 public:
  TKDXMsg() = delete;

  /// What an accessor gives for a name that the group has not.
  static constexpr std::string_view NotFound = "not found";

  static std::string GetErrorValue(std::string_view aResName);
  static std::string GetInfoValue(std::string_view aResName);
  static std::string GetPropValue(std::string_view aResName);
  static std::string GetListValue(std::string_view aResName);
  static std::string GetDialogsValue(std::string_view aResName);
  static std::string GetEditorValue(std::string_view aResName);
  static std::string GetActionsValue(std::string_view aResName);
  /// Commands have no built-in texts; only a language file brings them.
  static std::string GetCommandValue(std::string_view aResName);

  /// Goes back to the built-in texts and, if a file of that name exists, overlays it: an INI file in UTF-8
  /// whose lines are key=text, the whole key with its prefix. A known key gets the new text, a new one is
  /// added; what is no such line is passed over. A file that exists and cannot be read, or is larger than
  /// TIniFile::MaxFileBytes, raises EStreamError, and the built-in texts stand.
  static void LoadResources(const std::string& aFileName);
  /// The same from the text of such a file.
  static void LoadText(std::string_view aText);

  /// Writes all texts as a language file (a translator's template), replacing an existing one. A key
  /// without a known prefix is not written.
  static void SaveToIniFile(const std::string& aFileName);
  /// The text of that file.
  static std::string IniText();
};

}  // namespace Zor::inline Msg
