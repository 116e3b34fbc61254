#include "kaldrix/platform/TextFile.hpp"

#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/TextCode.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

std::string WithoutMark(std::string aBytes) {
  if (aBytes.starts_with(Utf8::ByteOrderMark)) return aBytes.substr(Utf8::ByteOrderMark.size());
  const bool wide = aBytes.starts_with("\xFF\xFE") || aBytes.starts_with("\xFE\xFF");
  return wide ? Utf16ToUtf8(aBytes, tcUtf16) : aBytes;
}

std::string TextOfFile(std::string aBytes, const std::string& aName) {
  const bool hasZeros = aBytes.find('\0') != std::string::npos;
  std::string text = WithoutMark(aBytes);
  if (hasZeros && (text == aBytes || text.find('\0') != std::string::npos))
    throw EStreamError(aName + ": the file is no text");
  if (text != aBytes) return Utf8::Repaired(text);
  return GuessTextCode(TFileWindow(std::move(aBytes))) == tcUtf8 ? Utf8::Repaired(text) : AnsiToUtf8(text);
}

}  // namespace Zor
