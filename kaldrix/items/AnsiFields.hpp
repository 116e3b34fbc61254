// Texts of one byte a character in records: files hold them as UTF-8.
#pragma once

#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/TRecord.hpp"

namespace Zor::inline Base {

inline void RecordAnsi(TRecord& r, AnsiString& aField) {
  std::string text = ToUtf8(aField);
  r.String(text);
  if (r.Reading()) aField = ToAnsi(text);
}

}  // namespace Zor::inline Base
