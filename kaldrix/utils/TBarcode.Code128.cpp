// The patterns of Code 128 and GS1-128.
#include "kaldrix/utils/TBarcode.hpp"

#include "kaldrix/utils/BarSymbology.hpp"
#include "kaldrix/utils/Gs1.hpp"

namespace Zor::inline Utils {

namespace {

/// The value of each byte in a column of the table: the first row that has it, else that of the space.
constexpr std::array<std::uint8_t, 256> ValuesOf(char TCode128::*aColumn) {
  std::array<std::uint8_t, 256> values{};
  for (std::size_t i = Code128Table.size(); i-- > 0;) {
    values[static_cast<unsigned char>(Code128Table[i].*aColumn)] = static_cast<std::uint8_t>(i);
  }
  return values;
}
constexpr auto SetA = ValuesOf(&TCode128::a), SetB = ValuesOf(&TCode128::b), SetE = ValuesOf(&TCode128::e);
using TSetValues = std::array<std::uint8_t, 256>;

/// A symbol in the making: characters with their running check sum.
class TCode128Writer {
 public:
  TCode128Writer(std::string& aOut, std::string_view aCode, bool aGs1)
      : fOut(aOut), fCode(aCode), fGs1(aGs1) {}

  void Start(int aValue) {
    // Room for a symbol that changes its set now and then.
    fOut.reserve((fCode.size() + 8) * patternSize);
    fOut += aValue == StartA128 ? Code128StartA : aValue == StartB128 ? Code128StartB : Code128StartC;
    fSum = static_cast<std::uint64_t>(aValue);
    if (fGs1) Put(Fnc1Of128);
  }
  void Put(int aValue) {
    fOut.append(Code128Table[static_cast<std::size_t>(aValue)].data.data(), patternSize);
    fSum += fWeight++ * static_cast<std::uint64_t>(aValue);
  }
  /// The characters from `aFrom` up to `aEnd` out of one set.
  void PutAll(const TSetValues& aSet, std::size_t aFrom, std::size_t aEnd) {
    for (std::size_t i = aFrom; i < aEnd; ++i) Put(ValueIn(aSet, i));
  }
  /// The character at `i` out of a set.
  void PutOne(const TSetValues& aSet, std::size_t i) { Put(ValueIn(aSet, i)); }
  /// The digits at `i` and behind it; what is no pair of digits counts as "00".
  void PutPair(std::size_t i) {
    Put(IsPair(i) ? static_cast<int>(DigitOf(fCode[i]) * 10 + DigitOf(fCode[i + 1])) : 0);
  }
  bool IsPair(std::size_t i) const { return IsDigit(i) && IsDigit(i + 1); }
  bool IsDigit(std::size_t i) const { return i < fCode.size() && IsIn(fCode[i], csDigit); }
  void Finish() {
    fOut.append(Code128Table[fSum % Code128Table.size()].data.data(), patternSize);
    fOut += Code128Stop;
  }

 private:
  static constexpr std::size_t patternSize = 6;

  int ValueIn(const TSetValues& aSet, std::size_t i) const {
    return aSet[static_cast<unsigned char>(fCode[i])];
  }

  std::string& fOut;
  std::string_view fCode;
  bool fGs1;
  std::uint64_t fSum = 0, fWeight = 1;
};

void WritePairs(TCode128Writer& aWriter, std::string_view aCode) {
  aWriter.Start(StartC128);
  for (std::size_t i = 0; i < aCode.size(); i += 2) aWriter.PutPair(i);
}

/// Pairs, and an odd last digit in set A.
void WritePairsAndRest(TCode128Writer& aWriter, std::string_view aCode) {
  aWriter.Start(StartC128);
  std::size_t i = 0;
  for (; i + 1 < aCode.size(); i += 2) aWriter.PutPair(i);
  if (i == aCode.size()) return;
  aWriter.Put(CodeA128);
  aWriter.PutOne(SetA, i);
}

void WriteOneSet(TCode128Writer& aWriter, std::string_view aCode, int aStart, const TSetValues& aSet) {
  aWriter.Start(aStart);
  aWriter.PutAll(aSet, 0, aCode.size());
}

/// Does set C pay off from the digit at `i` on? For six digits, or for the last two, or last four or more.
bool PaysOff(const TCode128Writer& aWriter, std::size_t aSize, std::size_t i) {
  constexpr std::size_t longRun = 6;
  std::size_t run = 0;
  while (run < longRun && aWriter.IsDigit(i + run)) ++run;
  if (run == longRun) return true;
  return i + run == aSize && (run == 2 || run >= 4);
}

/// Sets B and C by turns, beginning with `aState`.
void WriteBAndC(TCode128Writer& aWriter, std::string_view aCode, TZOR128BCState aState) {
  aWriter.Start(aState == bcsCodeB ? StartB128 : StartC128);
  for (std::size_t i = 0; i < aCode.size();) {
    if (aState == bcsCodeB) {
      if (aWriter.IsDigit(i) && PaysOff(aWriter, aCode.size(), i)) {
        aWriter.Put(CodeC128);
        aState = bcsCodeC;
      } else {
        aWriter.PutOne(SetB, i++);
      }
    } else if (aWriter.IsPair(i)) {
      aWriter.PutPair(i);
      i += 2;
    } else {
      aWriter.Put(CodeB128);
      aWriter.PutOne(SetB, i++);
      aState = bcsCodeB;
    }
  }
}

/// The upper half of the code page: one FNC4 shifts a character, two latch.
void WriteUpper(TCode128Writer& aWriter, std::string_view aCode) {
  aWriter.Start(StartB128);
  aWriter.Put(Fnc4Of128);
  if (aCode.size() > 1) aWriter.Put(Fnc4Of128);
  aWriter.PutAll(SetE, 0, aCode.size());
}

/// Where the run of characters of a set ends that begins at `aFrom`.
std::size_t EndOfRun(std::string_view aCode, std::size_t aFrom, TCharSet aSet) {
  while (aFrom < aCode.size() && IsIn(aCode[aFrom], aSet)) ++aFrom;
  return aFrom;
}

/// Runs of set B and of the upper half by turns. More than three upper characters are latched. Intended: a
/// space behind an upper character belongs to its run.
void WriteBAndUpper(TCode128Writer& aWriter, std::string_view aCode) {
  constexpr std::size_t mostShifted = 3;
  aWriter.Start(StartB128);
  for (std::size_t i = 0; i < aCode.size();) {
    const std::size_t lower = EndOfRun(aCode, i, csSetB);
    aWriter.PutAll(SetB, i, lower);
    std::size_t upper = EndOfRun(aCode, lower, csSetE);
    // A character of neither set is written as a space, so that no text stops here for ever.
    if (upper == lower && upper < aCode.size())
      aWriter.PutOne(SetB, upper++);
    else if (upper - lower <= mostShifted) {
      for (std::size_t k = lower; k < upper; ++k) {
        aWriter.Put(Fnc4Of128);
        aWriter.PutOne(SetE, k);
      }
    } else {
      for (int k = 0; k < 2; ++k) aWriter.Put(Fnc4Of128);
      aWriter.PutAll(SetE, lower, upper);
      for (int k = 0; k < 2 && upper < aCode.size(); ++k) aWriter.Put(Fnc4Of128);
    }
    i = upper;
  }
}

/// Field by field in one set, or in sets B and C by turns; a separator is an FNC1, which every set has.
void WriteElements(TCode128Writer& aWriter, std::string_view aData, TZORBarType aType) {
  const auto inC = [&](std::size_t i) {
    return aType == btEAN128C ||
           (aType == btEAN128AUTO && aWriter.IsPair(i) && PaysOff(aWriter, aData.size(), i));
  };
  const TSetValues& others = aType == btEAN128A ? SetA : SetB;
  bool pairs = inC(0);
  aWriter.Start(pairs ? StartC128 : aType == btEAN128A ? StartA128 : StartB128);
  for (std::size_t i = 0; i < aData.size();) {
    if (aData[i] == Gs1Separator) {
      aWriter.Put(Fnc1Of128);
      ++i;
      continue;
    }
    const bool stays = pairs ? aType == btEAN128C || aWriter.IsPair(i) : !inC(i);
    if (!stays) {
      aWriter.Put(pairs ? CodeB128 : CodeC128);
      pairs = !pairs;
    }
    if (pairs) {
      aWriter.PutPair(i);
    } else {
      aWriter.PutOne(others, i);
    }
    i += pairs ? 2 : 1;
  }
}

/// False where there is nothing to write.
bool WriteAuto(TCode128Writer& aWriter, const TPatternRequest& aRequest) {
  const std::string_view code = aRequest.code;
  switch (aRequest.mode) {
    case at128a:
      WriteOneSet(aWriter, code, StartA128, SetA);
      return true;
    case at128b:
      WriteOneSet(aWriter, code, StartB128, SetB);
      return true;
    case at128c:
    case at128nac:
      WritePairsAndRest(aWriter, code);
      return true;
    case at128e:
      WriteUpper(aWriter, code);
      return true;
    case at128bc:
      WriteBAndC(aWriter, code, bcsCodeB);
      return true;
    case at128cb:
      WriteBAndC(aWriter, code, bcsCodeC);
      return true;
    case at128be:
      WriteBAndUpper(aWriter, code);
      return true;
    case at128None:
    case at128ac:
      break;
  }
  return false;
}

}  // namespace

std::string TBarcode::FillGs1Pattern(std::string_view Data, TZORBarType CodeType) {
  std::string pattern;
  TCode128Writer writer(pattern, Data, true);
  WriteElements(writer, Data, CodeType);
  writer.Finish();
  return pattern;
}

void WriteCode128(std::string& aOut, const TPatternRequest& aRequest) {
  const TZORBarType type = aRequest.type;
  TCode128Writer writer(aOut, aRequest.code, type <= btEAN128AUTO);
  switch (type) {
    case btEAN128A:
    case btCODE128A:
      WriteOneSet(writer, aRequest.code, StartA128, SetA);
      break;
    case btEAN128B:
    case btCODE128B:
      WriteOneSet(writer, aRequest.code, StartB128, SetB);
      break;
    case btEAN128C:
    case btCODE128C:
      WritePairs(writer, aRequest.code);
      break;
    default:
      if (!WriteAuto(writer, aRequest)) return;
  }
  writer.Finish();
}

}  // namespace Zor::inline Utils
