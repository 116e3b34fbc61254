#include "apps/ScanTexts.hpp"

#include <algorithm>

#include "kaldrix/platform/Ansi.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor {

namespace {

// Texts --------------------------------------------------------------------------------

/// Kinds of characters of which any text is made.
const std::vector<std::vector<std::string>> Kinds{
    {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"},
    {"a", "Z", "A", "q", " ", "-", ".", "$", "%", "+", "/", ":"},
    {"*", "(", ")", "(01)", "(10)", "\\", "\\101", "\"", "'", "&", "<", "~", "|", "^"},
    {"\x01", "\x09", "\x0A", "\x0D", "\x1D", "\x1F", "\x7F", std::string(1, '\0')},
    {"é", "ü", "Á", "ß", "ÿ", "\xC2\xA0", "\xC2\xAD", "¡", " "},
    {"€", "œ", "„", "\xC2\x81", "\xC2\x85"},
    {"Ω", "я", "中", "😀", "e\xCC\x81"},
};

/// What the reader finds behind an identifier, for sound texts.
enum TFieldKind { fkKey, fkText, fkDate, fkDigits };
struct TFieldRow {
  const char* identifier;
  TFieldKind kind;
  std::size_t most;
};
constexpr TFieldRow FieldRows[] = {{"01", fkKey, 14},   {"10", fkText, 6},   {"17", fkDate, 6},
                                   {"21", fkText, 5},   {"37", fkDigits, 4}, {"3103", fkDigits, 6},
                                   {"00", fkKey, 18},   {"410", fkKey, 13},  {"400", fkText, 5},
                                   {"8008", fkDate, 8}, {"240", fkText, 4}};

// Readings -----------------------------------------------------------------------------

/// Bytes of a text, each a character of Latin-1.
std::string Latin1Bytes(const std::string& aText) {
  std::string bytes;
  for (const char32_t c : Utf8::ToUtf32(aText)) bytes += static_cast<char>(c);
  return bytes;
}
bool IsLatin1(const std::string& aText) {
  const std::u32string text = Utf8::ToUtf32(aText);
  return std::all_of(text.begin(), text.end(), [](char32_t c) { return c < 256; });
}

/// The published pairs of Code 39 full ASCII, undone. What is no pair stays.
std::string FromFullAscii(const std::string& aFound) {
  constexpr std::string_view percent = "\x1B\x1C\x1D\x1E\x1F;<=>?[\\]^_{|}~\x7F";
  std::string text;
  for (std::size_t i = 0; i < aFound.size(); ++i) {
    const char shift = aFound[i], letter = i + 1 < aFound.size() ? aFound[i + 1] : ' ';
    const bool pair =
        std::string_view("$%/+").find(shift) != std::string_view::npos && letter >= 'A' && letter <= 'Z';
    if (!pair) {
      text += shift;
      continue;
    }
    ++i;
    const auto place = static_cast<std::size_t>(letter - 'A');
    if (shift == '%')
      text += place < percent.size() ? percent[place] : letter == 'U' ? '\0' : letter == 'V' ? '@' : '`';
    else if (shift == '/')
      text += letter == 'Z' ? ':' : static_cast<char>('!' + place);
    else
      text += static_cast<char>((shift == '$' ? 1 : 'a') + place);
  }
  return text;
}

char Mod43Of(const std::string& aText) {
  std::size_t sum = 0;
  for (const char c : aText) sum += Alphabet39.find(c);
  return Alphabet39[sum % Alphabet39.size()];
}

/// A GS1 element string without parentheses, character 29 behind what has no length of its own.
std::string Elements(const std::string& aText) {
  constexpr std::string_view fixed = "00 01 02 03 04 11 12 13 14 15 16 17 18 19 20 31 32 33 34 35 36 41";
  std::string data;
  bool open = false;
  for (std::size_t i = 0; i < aText.size(); ++i) {
    const std::size_t end = aText.find(')', i);
    const std::string inside =
        aText[i] == '(' && end != std::string::npos ? aText.substr(i + 1, end - i - 1) : "";
    const bool identifier =
        inside.size() >= 2 && inside.size() <= 4 && inside.find_first_not_of(Digits) == std::string::npos;
    if (!identifier) {
      data += aText[i];
      continue;
    }
    if (open) data += '\x1D';
    data += inside;
    open = fixed.find(inside.substr(0, 2)) == std::string_view::npos;
    i = end;
  }
  return data;
}

std::string WithCheck(const TScan& aScan, const std::string& aText) {
  switch (aScan.Has("--check") && aText.size() != aScan.digits ? aScan.check : ckNone) {
    case ckNone:
      return aText;
    case ckMod10:
      return aText + Mod10Of(aText);
    case ckUpcE:
      return UpcE(std::string(7 - std::min<std::size_t>(aText.size(), 7), '0').append(aText).substr(1));
    case ck39:
      return aText + Mod43Of(aText);
  }
  return aText;
}

std::string Expected(const TScan& aScan, const std::string& aText) {
  // A code page of Windows is no matter here: readers take Latin-1 where nothing else is told.
  if (!IsLatin1(aText)) return aScan.found == fdMarked ? "\xEF\xBB\xBF" + aText : "(nothing: not of Latin-1)";
  const std::string text = Latin1Bytes(aText);
  const bool fields = aScan.found == fdGs1 || std::string_view(aScan.type).starts_with("ean128");
  return fields && text.starts_with('(') ? Elements(text) : WithCheck(aScan, text);
}

}  // namespace

std::string TScanTexts::Fields(std::size_t aCount) {
  std::string text;
  std::size_t length = 0;
  for (std::size_t i = 0; i < aCount; ++i) {
    const TFieldRow& row = FieldRows[Below(std::size(FieldRows))];
    std::string data;
    if (row.kind == fkKey) {
      data = fTexts.Of(Digits, row.most - 1);
      data += Mod10Of(data);
    } else if (row.kind == fkDate) {
      data = (row.most == 8 ? "26022823" : "261231");
    } else {
      data = fTexts.Of(row.kind == fkText ? "AbC-/1234567890%" : Digits,
                       row.kind == fkText ? 1 + Below(row.most) : row.most);
    }
    // A symbol takes 48 characters with separators.
    length += 5 + data.size();
    if (i > 0 && length > 46) break;
    text += "(" + std::string(row.identifier) + ")" + data;
  }
  return text;
}

std::string TScanTexts::SoundOf(const TScan& aScan, std::size_t aLength) {
  if (aScan.alphabet == Gs1Fields) return Fields(aLength);
  const std::u32string alphabet = Utf8::ToUtf32(aScan.alphabet);
  std::string text;
  for (std::size_t i = 0; i < aLength; ++i) Utf8::Append(text, alphabet[Below(alphabet.size())]);
  if (aScan.check == ckUpcE) return UpcE(fTexts.Of(Digits, 6)).substr(0, aLength);
  if (text.size() == aScan.digits) text.back() = Mod10Of(text.substr(0, text.size() - 1));
  return text;
}

std::string TScanTexts::Sound(const TScan& aScan, int aIndex, int aCount) {
  const std::size_t lengths = (aScan.most - aScan.least) / aScan.step + 1;
  const std::size_t at =
      static_cast<std::size_t>(aIndex) * std::max<std::size_t>(lengths / static_cast<std::size_t>(aCount), 1);
  return SoundOf(aScan, aScan.least + at % lengths * aScan.step);
}

std::string TScanTexts::AnyCharacter() {
  const std::vector<std::string>& kind = Kinds[Below(Kinds.size())];
  return kind[Below(kind.size())];
}

std::string TScanTexts::Any(const TScan& aScan) {
  constexpr std::size_t most = 70;
  const std::size_t way = Below(4);
  if (way < 2) {  // a sound text, one to three places of which are changed, lost or doubled
    std::string text =
        SoundOf(aScan, aScan.least + Below(std::min(aScan.most, most) / aScan.step + 1) * aScan.step);
    for (std::size_t i = Below(3) + 1; i > 0; --i) {
      std::u32string characters = Utf8::ToUtf32(text);
      const std::size_t at = Below(characters.size() + 1), gone = Below(2);
      const std::u32string put = Below(3) == 0 ? U"" : Utf8::ToUtf32(AnyCharacter());
      text = Utf8::FromUtf32(characters.replace(at, gone, put));
    }
    return text;
  }
  // Characters of one kind or of all.
  std::string text;
  const std::vector<std::string>& kind = Kinds[Below(Kinds.size())];
  for (std::size_t i = Below(Below(2) == 0 ? 6 : 40); i > 0; --i)
    text += way == 2 ? kind[Below(kind.size())] : AnyCharacter();
  return text;
}

bool Agrees(const TScan& aScan, const std::string& aText, const std::string& aFound) {
  const std::string expected = Expected(aScan, aText);
  std::string found = aScan.found == fdFullAscii ? FromFullAscii(aFound) : aFound;
  if (aScan.found == fdZero) found.erase(0, 1);
  if (aScan.found == fdCodabar && found.size() >= 2) found = found.substr(1, found.size() - 2);
  if (!aScan.Has("--pad")) return found == expected;
  return found.ends_with(expected) &&
         found.find_first_not_of('0') >= std::min(found.size() - expected.size(), found.size());
}

}  // namespace Zor
