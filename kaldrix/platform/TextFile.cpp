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
  const TFileWindow bytes(std::move(aBytes));
  const TTextCode code = GuessTextCode(bytes);
  const std::string_view all = bytes.View(0, bytes.Size());
  std::string text = IsUtf16(code)      ? Utf16ToUtf8(all, code)
                     : code == tcByMark ? AnsiToUtf8(all)
                                        : WithoutMark(Utf8::Repaired(all));
  if (text.find('\0') != std::string::npos) throw EStreamError(aName + ": the file is no text");
  return text;
}

}  // namespace Zor
