#include "kaldrix/platform/Utf8.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace Zor {

namespace {

constexpr char32_t MaxChar = 0x10FFFF;
constexpr std::string_view ReplacementBytes = "\xEF\xBF\xBD";

constexpr bool IsContinuation(char aByte) { return (static_cast<unsigned char>(aByte) & 0xC0) == 0x80; }

/// What may follow a lead byte: the number of continuation bytes and the range of the first of them
/// (Unicode 15, table 3-7).
struct TLead {
  int Count;
  std::uint8_t First, Last;
};

constexpr TLead LeadOf(std::uint8_t aByte) {
  if (aByte >= 0xC2 && aByte <= 0xDF) return {1, 0x80, 0xBF};
  if (aByte == 0xE0) return {2, 0xA0, 0xBF};
  if (aByte == 0xED) return {2, 0x80, 0x9F};
  if (aByte >= 0xE1 && aByte <= 0xEF) return {2, 0x80, 0xBF};
  if (aByte == 0xF0) return {3, 0x90, 0xBF};
  if (aByte >= 0xF1 && aByte <= 0xF3) return {3, 0x80, 0xBF};
  if (aByte == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

/// One well-formed character or one ill-formed run.
struct TStep {
  char32_t Char;
  std::size_t Bytes;
  bool Valid;
};

TStep StepAt(std::string_view aText, std::size_t aPos) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(aText[i]); };
  const std::uint8_t head = byte(aPos);
  if (head < 0x80) return {head, 1, true};
  const TLead lead = LeadOf(head);
  if (lead.Count == 0) return {Utf8::Replacement, 1, false};
  char32_t value = head & (0x3FU >> lead.Count);
  std::uint8_t first = lead.First;
  std::uint8_t last = lead.Last;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(lead.Count); ++i) {
    if (aPos + i >= aText.size() || byte(aPos + i) < first || byte(aPos + i) > last) {
      return {Utf8::Replacement, i, false};
    }
    value = (value << 6) | (byte(aPos + i) & 0x3FU);
    first = 0x80;
    last = 0xBF;
  }
  return {value, static_cast<std::size_t>(lead.Count) + 1, true};
}

/// The first byte from `aPos` on that is not ASCII, or the end; eight bytes at a time.
std::size_t SkipAscii(std::string_view aText, std::size_t aPos) {
  constexpr std::uint64_t highBits = 0x8080808080808080;
  for (; aPos + 8 <= aText.size(); aPos += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, aText.data() + aPos, 8);
    if ((word & highBits) != 0) break;
  }
  while (aPos < aText.size() && static_cast<std::uint8_t>(aText[aPos]) < 0x80) ++aPos;
  return aPos;
}

/// Where the first ill-formed run begins; the size of the text without one.
std::size_t FindFault(std::string_view aText) {
  std::size_t pos = SkipAscii(aText, 0);
  while (pos < aText.size()) {
    const TStep step = StepAt(aText, pos);
    if (!step.Valid) return pos;
    pos = SkipAscii(aText, pos + step.Bytes);
  }
  return pos;
}

/// Capitals from First to Last in steps of Step, each with its small letter Offset further on.
struct TCaseRange {
  char32_t First, Last, Offset, Step;
};

// The simple case pairs of UnicodeData.txt (Unicode 15) in the blocks that the header names.
constexpr std::array CaseRanges{
    TCaseRange{0x0041, 0x005A, 32, 1},                                    // ASCII
    TCaseRange{0x00C0, 0x00D6, 32, 1},                                    // Latin-1
    TCaseRange{0x00D8, 0x00DE, 32, 1}, TCaseRange{0x0100, 0x012E, 1, 2},  // Latin Extended-A
    TCaseRange{0x0132, 0x0136, 1, 2},  TCaseRange{0x0139, 0x0147, 1, 2},
    TCaseRange{0x014A, 0x0176, 1, 2},  TCaseRange{0x0179, 0x017D, 1, 2},
    TCaseRange{0x0386, 0x0386, 38, 1},  // Greek
    TCaseRange{0x0388, 0x038A, 37, 1}, TCaseRange{0x038C, 0x038C, 64, 1},
    TCaseRange{0x038E, 0x038F, 63, 1}, TCaseRange{0x0391, 0x03A1, 32, 1},
    TCaseRange{0x03A3, 0x03AB, 32, 1}, TCaseRange{0x0400, 0x040F, 80, 1},  // Cyrillic
    TCaseRange{0x0410, 0x042F, 32, 1}, TCaseRange{0x0460, 0x0480, 1, 2},
    TCaseRange{0x048A, 0x04BE, 1, 2},  TCaseRange{0x04C0, 0x04C0, 15, 1},
    TCaseRange{0x04C1, 0x04CD, 1, 2},  TCaseRange{0x04D0, 0x052E, 1, 2},
};
constexpr char32_t CapitalYDiaeresis = 0x0178;  // its small letter stands in Latin-1, before it
constexpr char32_t SmallYDiaeresis = 0x00FF;
constexpr char32_t SmallSigma = 0x03C3;
constexpr char32_t FinalSigma = 0x03C2;
constexpr char32_t CapitalSigma = 0x03A3;

template <class TMap>
std::string Mapped(std::string_view aText, TMap aMap) {
  std::string out;
  out.reserve(aText.size());
  for (std::size_t pos = 0; pos < aText.size();) Utf8::Append(out, aMap(Utf8::Next(aText, pos)));
  return out;
}

char32_t Folded(char32_t aChar) {
  const char32_t lower = Utf8::LowerCase(aChar);
  return lower == FinalSigma ? SmallSigma : lower;
}

}  // namespace

namespace Utf8 {

bool IsValid(std::string_view aText) { return FindFault(aText) == aText.size(); }

std::string Repaired(std::string_view aText) {
  std::size_t pos = FindFault(aText);
  std::string out(aText.substr(0, pos));
  while (pos < aText.size()) {
    const TStep step = StepAt(aText, pos);
    out.append(step.Valid ? aText.substr(pos, step.Bytes) : ReplacementBytes);
    pos += step.Bytes;
  }
  return out;
}

void Repair(std::string& aText) {
  if (!IsValid(aText)) aText = Repaired(aText);
}

char32_t Next(std::string_view aText, std::size_t& aPos) {
  const TStep step = StepAt(aText, aPos);
  aPos += step.Bytes;
  return step.Char;
}

void Append(std::string& aText, char32_t aChar) {
  const auto tail = [&](unsigned aShift) { return static_cast<char>(0x80 | ((aChar >> aShift) & 0x3F)); };
  if (aChar < 0x80) {
    aText.push_back(static_cast<char>(aChar));
  } else if (aChar < 0x800) {
    aText.append({static_cast<char>(0xC0 | (aChar >> 6)), tail(0)});
  } else if (aChar > MaxChar || (aChar >= 0xD800 && aChar <= 0xDFFF)) {
    aText.append(ReplacementBytes);
  } else if (aChar < 0x10000) {
    aText.append({static_cast<char>(0xE0 | (aChar >> 12)), tail(6), tail(0)});
  } else {
    aText.append({static_cast<char>(0xF0 | (aChar >> 18)), tail(12), tail(6), tail(0)});
  }
}

std::u32string ToUtf32(std::string_view aText) {
  std::u32string out;
  out.reserve(aText.size());
  for (std::size_t pos = 0; pos < aText.size();) out.push_back(Next(aText, pos));
  return out;
}

std::string FromUtf32(std::u32string_view aText) {
  std::string out;
  out.reserve(aText.size());
  for (const char32_t c : aText) Append(out, c);
  return out;
}

std::size_t Count(std::string_view aText) {
  return static_cast<std::size_t>(
      std::count_if(aText.begin(), aText.end(), [](char c) { return !IsContinuation(c); }));
}

std::size_t ByteIndex(std::string_view aText, std::size_t aIndex) {
  std::size_t pos = 0;
  for (; pos < aText.size(); ++pos) {
    if (IsContinuation(aText[pos])) continue;
    if (aIndex == 0) return pos;
    --aIndex;
  }
  return pos;
}

std::string_view Sub(std::string_view aText, std::size_t aFrom, std::size_t aCount) {
  const std::string_view rest = aText.substr(ByteIndex(aText, aFrom));
  return rest.substr(0, ByteIndex(rest, aCount));
}

char32_t LowerCase(char32_t aChar) {
  if (aChar == CapitalYDiaeresis) return SmallYDiaeresis;
  for (const TCaseRange& range : CaseRanges) {
    if (aChar < range.First) break;
    if (aChar <= range.Last && (aChar - range.First) % range.Step == 0) return aChar + range.Offset;
  }
  return aChar;
}

char32_t UpperCase(char32_t aChar) {
  if (aChar == SmallYDiaeresis) return CapitalYDiaeresis;
  if (aChar == FinalSigma) return CapitalSigma;
  for (const TCaseRange& range : CaseRanges) {
    const char32_t capital = aChar - range.Offset;
    if (capital >= range.First && capital <= range.Last && (capital - range.First) % range.Step == 0) {
      return capital;
    }
  }
  return aChar;
}

}  // namespace Utf8

std::string_view Trim(std::string_view aText) {
  constexpr auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= 0x20; };
  while (!aText.empty() && isBlank(aText.front())) aText.remove_prefix(1);
  while (!aText.empty() && isBlank(aText.back())) aText.remove_suffix(1);
  return aText;
}

std::string LowerCase(std::string_view aText) {
  return Mapped(aText, [](char32_t c) { return Utf8::LowerCase(c); });
}

std::string UpperCase(std::string_view aText) {
  return Mapped(aText, [](char32_t c) { return Utf8::UpperCase(c); });
}

bool SameText(std::string_view aFirst, std::string_view aSecond) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < aFirst.size() && j < aSecond.size()) {
    if (Folded(Utf8::Next(aFirst, i)) != Folded(Utf8::Next(aSecond, j))) return false;
  }
  return i == aFirst.size() && j == aSecond.size();
}

}  // namespace Zor
