#pragma once

#include <string>
#include <string_view>

namespace Zor::inline Utils {

/// A code for a message: bytes of Windows-1252 as UTF-8 in quotes, controls as \x1D, what is long cut.
std::string ShownCode(std::string_view aBytes);
/// The same for a text in UTF-8.
std::string ShownText(std::string_view aText);

}  // namespace Zor::inline Utils
