#include "kaldrix/json/JsonWriter.hpp"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "kaldrix/json/JsonDateTime.hpp"
#include "kaldrix/json/JsonFloat.hpp"
#include "kaldrix/json/JsonScan.hpp"
#include "kaldrix/json/TJsonArray.hpp"
#include "kaldrix/json/TJsonObject.hpp"
#include "kaldrix/json/TJsonSerializationConfig.hpp"

namespace Zor::inline Jsondataobjects {

namespace {

constexpr std::size_t MaxIntegerSize = 20;  ///< Bytes of the least Int64.

bool NeedsEscape(unsigned char aChar) noexcept { return aChar < 0x20 || aChar == '"' || aChar == '\\'; }

/// The first byte of a text that needs an escape, or its end.
const char* FindEscape(const char* aFrom, const char* aEnd) noexcept {
  for (; aEnd - aFrom >= 8; aFrom += 8) {
    const std::uint64_t marks = EscapeMarks(LoadBytes(aFrom));
    if (marks != 0) return aFrom + FirstMark(marks);
  }
  return std::find_if(aFrom, aEnd, [](char c) { return NeedsEscape(static_cast<unsigned char>(c)); });
}

/// Copies a text of at most 16 bytes in two overlapping halves; false, and nothing of use copied, where it
/// needs an escape.
bool CopyShortPlain(char* aTo, const char* aFrom, std::size_t aSize) noexcept {
  if (aSize >= 8) {
    const std::uint64_t head = LoadBytes(aFrom);
    const std::uint64_t tail = LoadBytes(aFrom + aSize - 8);
    std::memcpy(aTo, &head, 8);
    std::memcpy(aTo + aSize - 8, &tail, 8);
    return (EscapeMarks(head) | EscapeMarks(tail)) == 0;
  }
  if (aSize >= 4) {
    std::uint32_t head = 0;
    std::uint32_t tail = 0;
    std::memcpy(&head, aFrom, 4);
    std::memcpy(&tail, aFrom + aSize - 4, 4);
    std::memcpy(aTo, &head, 4);
    std::memcpy(aTo + aSize - 4, &tail, 4);
    return EscapeMarks(std::uint64_t{tail} << 32U | head) == 0;
  }
  bool plain = true;
  for (std::size_t i = 0; i < aSize; ++i) {
    aTo[i] = aFrom[i];
    plain = plain && !NeedsEscape(static_cast<unsigned char>(aFrom[i]));
  }
  return plain;
}

/// Writes the escape of one byte and gives the place behind it.
char* WriteEscape(char* aTo, unsigned char aChar) noexcept {
  static constexpr std::string_view Plain = "\"\\\b\t\n\f\r";
  static constexpr std::string_view Letters = "\"\\btnfr";
  static constexpr std::string_view HexDigits = "0123456789abcdef";
  *aTo++ = '\\';
  const std::size_t letter = Plain.find(static_cast<char>(aChar));
  if (letter != std::string_view::npos) {
    *aTo++ = Letters[letter];
    return aTo;
  }
  aTo = std::copy_n("u00", 3, aTo);
  *aTo++ = HexDigits[aChar >> 4U];
  *aTo++ = HexDigits[aChar & 15U];
  return aTo;
}

}  // namespace

// The text is kept longer than what is written, so that bytes are put without a check of each; the
// destructor cuts it. The room grows with what this writer has written, not with the text, so that many small
// trees can be appended to a long text.
TJsonWriter::TJsonWriter(std::string& aText, bool aCompact)
    : fText(aText), fCompact(aCompact), fStart(aText.size()), fAt(aText.data() + aText.size()), fEnd(fAt) {
  if (!fCompact) fNewLine = JsonSerializationConfig().LineBreak;
}

TJsonWriter::~TJsonWriter() { fText.resize(static_cast<std::size_t>(fAt - fText.data())); }

void TJsonWriter::Grow(std::size_t aBytes) {
  const auto written = static_cast<std::size_t>(fAt - fText.data());
  constexpr std::size_t LeastRoom = 1024;
  fText.resize(written + std::max(written - fStart, aBytes + LeastRoom));
  fAt = fText.data() + written;
  fEnd = fText.data() + fText.size();
}

void TJsonWriter::Raw(std::string_view aText) {
  if (aText.empty()) return;
  std::memcpy(Room(aText.size()), aText.data(), aText.size());
  fAt += aText.size();
}

void TJsonWriter::NewLine(int aLevel) {
  const TJsonSerializationConfig& config = JsonSerializationConfig();
  const std::size_t size =
      config.LineBreak.size() + static_cast<std::size_t>(aLevel) * config.IndentChar.size();
  while (fNewLine.size() < size) fNewLine += config.IndentChar;
  Raw(std::string_view(fNewLine).substr(0, size));
}

void TJsonWriter::Write(const TJsonBaseObject& aTree, int aLevel) {
  if (const TJsonObject* object = aTree.AsObject()) return Object(*object, aLevel);
  Array(*aTree.AsArray(), aLevel);
}

void TJsonWriter::Object(const TJsonObject& aObject, int aLevel) {
  Put('{');
  const TJsonMember* members = aObject.Members();
  for (std::uint32_t i = 0; i < aObject.fCount; ++i) {
    if (i > 0) Put(',');
    if (!fCompact) NewLine(aLevel + 1);
    Quoted(members[i].Name.View());
    Put(':');
    if (!fCompact) Put(' ');
    Value(members[i].Value, aLevel + 1);
  }
  if (aObject.fCount > 0 && !fCompact) NewLine(aLevel);
  Put('}');
}

void TJsonWriter::Array(const TJsonArray& aItems, int aLevel) {
  Put('[');
  const TJsonDataValue* values = aItems.Values();
  for (std::uint32_t i = 0; i < aItems.fCount; ++i) {
    if (i > 0) Put(',');
    if (!fCompact) NewLine(aLevel + 1);
    Value(values[i], aLevel + 1);
  }
  if (aItems.fCount > 0 && !fCompact) NewLine(aLevel);
  Put(']');
}

void TJsonWriter::Value(const TJsonDataValue& aValue, int aLevel) {
  switch (aValue.fKind) {
    case jdtNone:
      return Raw("null");
    case jdtString:
      return Quoted(aValue.Text());
    case jdtInt:
      return Integer(aValue.Get<int>());
    case jdtLong:
      return Integer(aValue.Get<Int64>());
    case jdtULong:
      return Integer(aValue.Get<std::uint64_t>());
    case jdtFloat:
      fAt += WriteJsonFloat(Room(JsonFloatSize), aValue.Get<double>());
      return;
    case jdtDateTime:
    case jdtUtcDateTime:
      return Quoted(JsonDateTimeText(aValue.Get<double>(), aValue.fKind == jdtUtcDateTime));
    case jdtBool:
      return Raw(aValue.Get<bool>() ? "true" : "false");
    case jdtArray:
      return Array(*aValue.Get<TJsonArray*>(), aLevel);
    case jdtObject:
      if (aValue.IsNull()) return Raw("null");
      return Object(*aValue.Get<TJsonObject*>(), aLevel);
  }
}

template <class T>
void TJsonWriter::Integer(T aValue) {
  char* at = Room(MaxIntegerSize);
  fAt = std::to_chars(at, at + MaxIntegerSize, aValue).ptr;
}

void TJsonWriter::Quoted(std::string_view aText) {
  constexpr std::size_t ShortSize = 16;
  if (aText.size() > ShortSize) return Escaped(aText);
  char* at = Room(ShortSize + 2);
  if (!CopyShortPlain(at + 1, aText.data(), aText.size())) return Escaped(aText);
  at[0] = '"';
  at[1 + aText.size()] = '"';
  fAt = at + aText.size() + 2;
}

void TJsonWriter::Escaped(std::string_view aText) {
  constexpr std::size_t EscapeSize = 6;
  const char* from = aText.data();
  const char* end = from + aText.size();
  Put('"');
  while (from != end) {
    const char* plainEnd = FindEscape(from, end);
    Raw({from, static_cast<std::size_t>(plainEnd - from)});
    from = plainEnd;
    if (from == end) break;
    fAt = WriteEscape(Room(EscapeSize), static_cast<unsigned char>(*from++));
  }
  Put('"');
}

}  // namespace Zor::inline Jsondataobjects
