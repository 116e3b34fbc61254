#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace Zor::inline Types {

/// A text of one byte a character, in Windows-1252. platform/Ansi.hpp makes it from UTF-8 and back; nothing
/// converts by itself.
class AnsiString {
 public:
  AnsiString() = default;
  explicit AnsiString(std::string aBytes) : fBytes(std::move(aBytes)) {}

  std::string_view Bytes() const { return fBytes; }
  std::size_t Size() const { return fBytes.size(); }
  bool Empty() const { return fBytes.empty(); }

  friend bool operator==(const AnsiString&, const AnsiString&) = default;

 private:
  std::string fBytes;
};

}  // namespace Zor::inline Types
