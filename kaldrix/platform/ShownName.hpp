#pragma once

#include <string>
#include <string_view>

namespace Zor {

/// A text of which names of files may be a part, as one line that is safe to show: bytes that are no UTF-8
/// stand as \xFF; what would end the line, steer a terminal or turn the direction of reading as \n, \x1B or
/// \u202E. Everything else stays.
std::string ShownName(std::string_view aText);

/// The name as a text that any reader takes: its bytes that are no UTF-8 stand as \xFF.
std::string NameAsText(std::string_view aName);
/// The name that NameAsText made this text of. A text that stands for itself, too, is taken for that of a
/// name that is no UTF-8.
std::string NameOfText(std::string_view aText);

}  // namespace Zor
