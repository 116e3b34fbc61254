// Files by name, and "-" for standard input and output.
#pragma once

#include <string>
#include <string_view>

namespace Zor::Program {

/// The bytes of a file, or of standard input for "-".
std::string ReadInput(const std::string& aName);

/// The text of such a file, see TextOfFile.
std::string ReadTextInput(const std::string& aName);

/// What messages call a file: "standard input" for "-".
std::string ToldName(const std::string& aName);

/// Writes a line to standard error. Names in the text cannot end the line or steer a terminal.
void TellLine(const std::string& aText);
/// The same for "kaldrix: TEXT".
void Tell(const std::string& aText);

/// Writes a file beside its target and renames it; "-" is standard output.
void WriteOutput(const std::string& aName, std::string_view aBytes);

}  // namespace Zor::Program
