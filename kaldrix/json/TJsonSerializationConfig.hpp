// The process-wide settings of the JSON layer.
#pragma once

#include <string>

namespace Zor::inline Jsondataobjects {

/// What every JSON text of the process has in common. Set before other threads use JSON, if at all.
struct TJsonSerializationConfig {
  std::string LineBreak = "\n";           ///< Ends the lines of an indented text.
  std::string IndentChar = "\t";          ///< One level of an indented text.
  bool UseUtcTime = true;                 ///< Dates are written in UTC; else in local time with its offset.
  bool NullConvertsToValueTypes = false;  ///< A null reads as zero or empty text instead of raising.
};

/// The settings of the process.
TJsonSerializationConfig& JsonSerializationConfig();

}  // namespace Zor::inline Jsondataobjects
