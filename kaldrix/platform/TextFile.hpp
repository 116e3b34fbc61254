// What a person calls a text file: whatever code an editor saved it in.
#pragma once

#include <string>
#include <string_view>

namespace Zor {

/// The text of a file in UTF-8, without a byte order mark: by the mark from UTF-8 or UTF-16, else from UTF-8
/// or Windows-1252, as GuessTextCode tells; what is ill-formed becomes U+FFFD. Raises EStreamError with the
/// name for bytes that are no text, since a 0 stands in them.
std::string TextOfFile(std::string aBytes, const std::string& aName);

/// Of bytes that begin with a byte order mark the text in UTF-8 without it; other bytes as they are.
std::string WithoutMark(std::string aBytes);

}  // namespace Zor
