#include "kaldrix/codes/TPdf417Writer.hpp"

#include <algorithm>
#include <charconv>
#include <string>

#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Pdf417 {

namespace {

// Codewords of ISO/IEC 15438 with a function.
constexpr std::size_t LatchText = 900, LatchBytes = 901, LatchNumeric = 902, ShiftByte = 913;
constexpr std::size_t LabelUser = 925, LabelGeneral = 926, LabelPage = 927;

constexpr unsigned Base = 900, MostCodeword = 928;
constexpr unsigned PairBase = 30, Filler = 29;
constexpr std::size_t LeastDigits = 14, DigitsOfGroup = 44;

bool IsDigit(char aByte) { return aByte >= '0' && aByte <= '9'; }

[[noreturn]] void Refuse() { throw Exception("PDF417 Encode Error"); }

}  // namespace

// Segments --------------------------------------------------

/// Intended: the last character of the text is not counted, so that 14 digits at the end are text.
bool TPdf417Writer::ValidNumeric() const {
  if (fPosition + LeastDigits >= fText.size()) return false;
  return std::ranges::all_of(fText.substr(fPosition, LeastDigits), IsDigit);
}

/// Intended: neither is it here, so that a character that is left alone goes out as a byte. Nothing else
/// does, as all characters stand in the table of text compaction.
bool TPdf417Writer::ValidText() const { return fPosition + 1 < fText.size(); }

TZORPdf417EncodeType TPdf417Writer::Mode() const {
  return ValidNumeric() ? etNumeric : ValidText() ? etText : etBinary;
}

void TPdf417Writer::Write() {
  while (fPosition < fText.size()) {
    switch (Mode()) {
      case etNumeric:
        WriteNumeric();
        break;
      case etText:
        if (fPosition > 0) Put(LatchText);
        WriteText();
        break;
      case etBinary:
        WriteLastByte();
    }
  }
}

void TPdf417Writer::Put(std::size_t aWord) {
  if (fCount == MaxWords) Refuse();
  fWords[fCount++] = static_cast<std::uint16_t>(aWord);
}

// Digits and bytes --------------------------------------------------

void TPdf417Writer::WriteNumeric() {
  Put(LatchNumeric);
  const std::string_view rest = fText.substr(fPosition);
  const auto run = static_cast<std::size_t>(std::ranges::find_if_not(rest, IsDigit) - rest.begin());
  for (std::size_t i = 0; i < run; i += DigitsOfGroup) {
    WriteDigits(rest.substr(i, std::min(DigitsOfGroup, run - i)));
  }
  fPosition += run;
}

/// Converts "1" and the digits to base 900. The number stands in five words of 32 bits, the highest first,
/// and gives three codewords at each division.
void TPdf417Writer::WriteDigits(std::string_view aDigits) {
  constexpr std::size_t digitsAtOnce = 9;
  std::array<std::uint64_t, 5> number{0, 0, 0, 0, 1};
  for (std::size_t i = 0; i < aDigits.size(); i += digitsAtOnce) {
    std::uint64_t carry = 0, scale = 1;
    for (const char digit : aDigits.substr(i, digitsAtOnce)) {
      carry = carry * 10 + static_cast<std::uint64_t>(digit - '0');
      scale *= 10;
    }
    for (std::size_t w = number.size(); w-- > 0;) {
      carry += number[w] * scale;
      number[w] = carry & 0xFFFFFFFF;
      carry >>= 32;
    }
  }
  std::array<std::uint16_t, 18> words;
  const std::size_t count = aDigits.size() / 3 + 1;
  for (std::size_t done = 0; done < count; done += 3) {
    std::uint64_t rest = 0;
    for (std::uint64_t& word : number) {
      rest = rest << 32 | word;
      word = rest / (Base * Base * Base);
      rest %= Base * Base * Base;
    }
    for (std::size_t i = 0; i < 3; ++i, rest /= Base)
      words[done + i] = static_cast<std::uint16_t>(rest % Base);
  }
  for (std::size_t i = count; i-- > 0;) Put(words[i]);
}

void TPdf417Writer::WriteLastByte() {
  Put(LatchBytes);
  Put(static_cast<unsigned char>(fText[fPosition++]));
}

// Text --------------------------------------------------

void TPdf417Writer::WriteText() {
  fTextMode = tmAlpha;
  do {
    const TToken token = GetNextCharacter(fPosition);
    fPosition += token.Consumed;
    WriteToken(token);
  } while (fPosition < fText.size() && !ValidNumeric());
  CompletePair();
}

void TPdf417Writer::PutValue(unsigned aValue) {
  if (fHalf == NoHalf) {
    fHalf = aValue;
  } else {
    Put(fHalf * PairBase + aValue);
    fHalf = NoHalf;
  }
}

void TPdf417Writer::CompletePair() {
  if (fHalf != NoHalf) PutValue(Filler);
}

/// Escapes begin with a backslash that is not the last character.
TPdf417Writer::TToken TPdf417Writer::GetNextCharacter(std::size_t aPosition) const {
  const auto byte = static_cast<unsigned char>(fText[aPosition]);
  if (byte != '\\' || aPosition + 1 == fText.size()) return {byte, tkCharacter, 1};
  const char kind = fText[aPosition + 1];
  switch (kind) {
    case '\\':
      return {byte, tkCharacter, 2};
    case 'C':
    case 'c':
      return {Number(aPosition + 2, 3, 10), tkRaw, 5};
    case 'G':
    case 'g':
      return {Number(aPosition + 2, 6, 10), tkLabel, 8};
    case 'X':
    case 'x':
      return {Number(aPosition + 2, 2, 16), tkCharacter, 4};
    default:
      if (IsDigit(kind)) return {Number(aPosition + 1, 3, 10), tkCharacter, 4};
      return {byte, tkCharacter, 1};
  }
}

unsigned TPdf417Writer::Number(std::size_t aPosition, std::size_t aDigits, int aBase) const {
  const std::string_view digits = fText.substr(std::min(aPosition, fText.size()), aDigits);
  unsigned value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, aBase);
  if (digits.size() != aDigits || stop != end || error != std::errc()) {
    throw EConvertError("\"" + std::string(digits) + "\" is not a number");
  }
  return value;
}

void TPdf417Writer::WriteToken(const TToken& aToken) {
  switch (aToken.Kind) {
    case tkRaw:
      return WriteRaw(aToken.Value);
    case tkLabel:
      return WriteGlobalLabel(aToken.Value);
    case tkCharacter:
      if (aToken.Value > 255) Refuse();
      if (TextModeOf(aToken.Value) == tmNone) return WriteByteShift(aToken.Value);
      WriteCharacter(aToken.Value);
  }
}

/// Intended: the sub-mode stays, although the filler would leave that of punctuation.
void TPdf417Writer::WriteRaw(unsigned aWord) {
  if (aWord > MostCodeword) Refuse();
  CompletePair();
  Put(aWord);
}

/// A Global Label Identifier; one outside the ranges adds nothing.
void TPdf417Writer::WriteGlobalLabel(unsigned aLabel) {
  constexpr unsigned fromGeneral = Base, fromUser = fromGeneral + Base * Base, end = fromUser + Base;
  if (aLabel < fromGeneral) {
    WriteRaw(LabelPage);
    WriteRaw(aLabel);
  } else if (aLabel < fromUser) {
    WriteRaw(LabelGeneral);
    WriteRaw(aLabel / Base - 1);
    WriteRaw(aLabel % Base);
  } else if (aLabel < end) {
    WriteRaw(LabelUser);
    WriteRaw(aLabel - fromUser);
  }
}

void TPdf417Writer::WriteCharacter(unsigned aChar) {
  TZORPdf417TextMode mode = fTextMode;
  if (TextValue(mode, aChar) == NoTextValue) {
    mode = TextModeOf(aChar);
    const TTextSwitch& step = TextSwitch(fTextMode, mode, IsOneShot());
    for (int i = 0; i < step.Count; ++i) PutValue(step.Values[static_cast<std::size_t>(i)]);
    if (!step.Stays) fTextMode = mode;
  }
  PutValue(TextValue(mode, aChar));
}

/// Whether the character before fPosition stands alone: nothing follows, or what fits the sub-mode in force.
bool TPdf417Writer::IsOneShot() const {
  if (fPosition >= fText.size()) return true;
  const TToken next = GetNextCharacter(fPosition);
  return next.Kind == tkCharacter && next.Value <= 255 && TextValue(fTextMode, next.Value) != NoTextValue;
}

/// A character that text compaction lacks, which only an escape can bring.
void TPdf417Writer::WriteByteShift(unsigned aByte) {
  const bool leavesPunct = fTextMode == tmPunct && fHalf != NoHalf;
  CompletePair();
  if (leavesPunct) fTextMode = tmAlpha;
  Put(ShiftByte);
  Put(aByte);
}

}  // namespace Zor::inline Pdf417
