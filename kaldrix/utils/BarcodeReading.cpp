#include "kaldrix/utils/BarcodeReading.hpp"

#include <algorithm>

#include "kaldrix/types/BarTypeNames.hpp"
#include "kaldrix/utils/BarSymbology.hpp"
#include "kaldrix/utils/Gs1.hpp"
#include "kaldrix/utils/ShownCode.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor::inline Utils {

namespace {

/// A code that its symbology takes, and what became of it.
struct TCase {
  std::string_view code;  ///< as given
  std::string given;      ///< without the parentheses that do not count
  std::string prepared, check;
  TZOR128AutoType mode = at128None;
  TZORBarType type = btEAN13;
  TBarcodeTerms terms;

  bool IsElementString() const { return IsGs1Type(type) && IsGs1Text(code); }
};

std::string ReadAs(std::string_view aGiven, std::string_view aRead) {
  return ShownCode(aGiven) + " would be read as " + ShownCode(aRead);
}

/// Names the first place where the texts differ, which a person may not see.
std::string Difference(std::string_view aGiven, std::string_view aRead) {
  const auto [given, read] = std::mismatch(aGiven.begin(), aGiven.end(), aRead.begin(), aRead.end());
  std::string told = ReadAs(aGiven, aRead);
  if (given == aGiven.end() || read == aRead.end()) return told;
  const auto at = given - aGiven.begin() + 1;
  return told + ": character " + std::to_string(at) + " is " + ShownCode({given, 1}) + " and becomes " +
         ShownCode({read, 1});
}

// Digits -------------------------------------------------------------------------------

/// The UPC-A number, without check digit, that the first seven digits of a UPC-E code stand for (ISO/IEC
/// 15420, 4.3.3).
std::string UpcAOf(std::string_view aCode) {
  const std::string code(aCode);
  const char last = code[6];
  if (last <= '2') return code.substr(0, 3) + last + "0000" + code.substr(3, 3);
  if (last == '3') return code.substr(0, 4) + "00000" + code.substr(4, 2);
  if (last == '4') return code.substr(0, 5) + "00000" + code.substr(5, 1);
  return code.substr(0, 6) + "0000" + last;
}

std::string PostNetCheckDigit(std::string_view aDigits) {
  std::size_t sum = 0;
  for (const char c : aDigits) sum += DigitOf(c);
  return std::to_string((10 - sum % 10) % 10);
}

std::string PaddingProblem(const TCase& aCase) {
  const std::size_t given = aCase.given.size() + aCase.check.size();
  if (aCase.terms.padding || aCase.prepared.size() <= given) return {};
  return ReadAs(aCase.code, aCase.prepared) + ", with zeros in front, which has to be asked for";
}

/// What a wrong check digit is told as.
std::string WrongDigit(std::string_view aCode, std::string_view aRight) {
  return "the check digit of " + ShownCode(aCode) + " is wrong: it would be " + std::string(aRight);
}

std::string EanProblem(const TCase& aCase) {
  const std::string_view prepared = aCase.prepared;
  const std::string digits(prepared.substr(0, prepared.size() - 1));
  const std::string right = digits + StandardCheckDigit(digits, aCase.type);
  if (aCase.given.size() == prepared.size() && aCase.given != right) return WrongDigit(aCase.code, right);
  if (prepared != right) {
    return "the check digit that is added to " + ShownCode(aCase.code) + ", " + aCase.check +
           ", is not that of the symbology: give all digits, " + right;
  }
  return PaddingProblem(aCase);
}

std::string UpcEProblem(const TCase& aCase) {
  if (aCase.prepared[0] != '0')
    return ShownCode(aCase.code) + " begins with " + aCase.prepared[0] +
           ": the symbol tells number system 0 only";
  return EanProblem(aCase);
}

std::string PostNetProblem(const TCase& aCase) {
  const std::string_view digits = std::string_view(aCase.given).substr(0, aCase.given.size() - 1);
  const std::string right = std::string(digits) + PostNetCheckDigit(digits);
  if (aCase.given == right) return {};
  return ShownCode(aCase.code) + " does not end with its check digit: " + right + ", or " + aCase.given +
         PostNetCheckDigit(aCase.given) + " with one more";
}

std::string Code11Problem(const TCase& aCase) {
  // Of ten characters on there are two. A check of 10 is drawn as two digits, where readers look for a dash.
  constexpr std::size_t twoFrom = 10;
  const std::size_t added = !aCase.terms.checkSum ? 0 : aCase.given.size() < twoFrom ? 1 : 2;
  if (aCase.prepared.size() == aCase.given.size() + added) return {};
  return "a check digit of " + ShownCode(aCase.code) + " is 10, which the symbol does not tell";
}

// Code 39 ------------------------------------------------------------------------------

std::string Code39Problem(const TCase& aCase) {
  if (aCase.given.find('*') != std::string::npos)
    return ShownCode(aCase.code) + " is no code of Code 39: '*' starts and stops it";
  std::string upper = aCase.given;
  TBarcode::UpperCase(upper);
  if (upper == aCase.given) return {};
  return ShownCode(aCase.code) + " is no code of Code 39, which has no lower case: it would be read as " +
         ShownCode(upper);
}

/// The check character is drawn as if it were text, of which full ASCII makes two characters here.
std::string Code39ExProblem(const TCase& aCase) {
  constexpr std::string_view shifts = "$/+%";
  if (aCase.check.find_first_of(shifts) == std::string::npos) return {};
  return "the check character of " + ShownCode(aCase.code) + " is " + aCase.check +
         ", which full ASCII draws as two characters";
}

// Code 128 -----------------------------------------------------------------------------

std::string ElementStringProblem(const TCase& aCase, std::string_view aExpected) {
  if (aCase.terms.elementString) {
    if (aCase.terms.checkSum)
      return "no check digit is added to application identifiers: " + ShownCode(aCase.code);
    if (aExpected.size() <= MostOfGs1Symbol) return {};
    return ShownCode(aCase.code) + " has " + std::to_string(aExpected.size()) +
           " characters, and GS1-128 takes no more than " + std::to_string(MostOfGs1Symbol);
  }
  if (!aCase.terms.ignoreParentheses)
    return "the parentheses of " + ShownCode(aCase.code) +
           " would be read too: they have to be ignored (IgnoreParentheses)";
  const std::string_view separated = Gs1FirstSeparated(aCase.code);
  if (!separated.empty())
    return "(" + std::string(separated) + ") of " + ShownCode(aCase.code) +
           " has no fixed length, so that only the last field can be one such: items draw no separators";
  return aCase.prepared == aExpected ? "" : Difference(aExpected, aCase.prepared);
}

std::string NoCheckProblem(const TCase& aCase) {
  const bool wanted = aCase.terms.checkSum && aCase.check.empty() && TakesCheckSum(aCase.type);
  return wanted ? ShownCode(aCase.code) + " gets no check digit: that is added to digits only" : "";
}

/// The symbol is read back, since each set has characters that others lack.
TBarcodeReading ReadingOf128(const TCase& aCase) {
  const bool elements = aCase.IsElementString();
  if (elements) {
    std::string problem = Gs1Problem(aCase.code);
    if (!problem.empty()) return {{}, std::move(problem)};
  }
  const std::string expected = elements ? Gs1Data(aCase.code) : aCase.prepared;
  const bool drawn = elements && aCase.terms.elementString;
  const std::string pattern = drawn ? TBarcode::FillGs1Pattern(expected, aCase.type)
                                    : TBarcode::FillBarPattern(aCase.prepared, aCase.type, aCase.mode, false);
  const std::optional<std::string> read = ReadCode128(pattern);
  if (!read)
    return {{}, ShownCode(aCase.code) + " gives no bars of " + std::string(BarTypeNames[aCase.type].title)};
  std::string problem = elements ? ElementStringProblem(aCase, expected) : PaddingProblem(aCase);
  if (problem.empty()) problem = NoCheckProblem(aCase);
  if (problem.empty() && *read != expected) problem = Difference(expected, *read);
  return {*read, std::move(problem)};
}

// By type ------------------------------------------------------------------------------

std::string NoProblem(const TCase& /*aCase*/) { return {}; }

/// How a type reads, and what the terms do to it.
struct TReadingRow {
  TZORBarType type;
  std::size_t digits;                    ///< of a symbol of fixed length
  bool check;                            ///< takes a check sum
  std::string (*problem)(const TCase&);  ///< null: the pattern is read
};

/// By ordinal.
constexpr std::array<TReadingRow, EnumCount<TZORBarType>> ReadingTable{{
    {btEAN13, 13, true, EanProblem},       {btEAN8, 8, true, EanProblem},
    {btUPCA, 12, true, EanProblem},        {btUPCE0, 8, true, UpcEProblem},
    {btCODE39, 0, true, Code39Problem},    {btCODE39EX, 0, true, Code39ExProblem},
    {btCODE93, 0, false, NoProblem},       {btCODE93EX, 0, false, NoProblem},
    {btCODABAR, 0, false, NoProblem},      {btEAN128A, 0, true, nullptr},
    {btEAN128B, 0, true, nullptr},         {btEAN128C, 0, true, nullptr},
    {btEAN128AUTO, 0, false, nullptr},     {btCODE128A, 0, true, nullptr},
    {btCODE128B, 0, true, nullptr},        {btCODE128C, 0, true, nullptr},
    {btCODE128AUTO, 0, false, nullptr},    {btINTER_25, 0, true, PaddingProblem},
    {btINDUS_25, 0, true, NoProblem},      {btMATRIX_25, 0, true, NoProblem},
    {btCODE11, 0, true, Code11Problem},    {btMSI, 0, true, NoProblem},
    {btPOSTNET, 0, false, PostNetProblem},
}};

constexpr bool RowsStandByOrdinal() {
  for (std::size_t i = 0; i < ReadingTable.size(); ++i) {
    if (ReadingTable[i].type != i) return false;
  }
  return true;
}
static_assert(RowsStandByOrdinal());

bool Is128(TZORBarType aType) { return ReadingTable[aType].problem == nullptr; }

TCase CaseOf(std::string_view aCode, TZORBarType aType, const TBarcodeTerms& aTerms) {
  TCase result{.code = aCode,
               .given = std::string(aCode),
               .prepared = {},
               .check = {},
               .type = aType,
               .terms = aTerms};
  if (aTerms.ignoreParentheses && Is128(aType))
    std::erase_if(result.given, [](char c) { return IsIn(c, csParenthesis); });
  result.prepared = TBarcode::PrepareBarcode(aCode, aType, aTerms.checkSum, aTerms.ignoreParentheses,
                                             result.check, result.mode);
  return result;
}

bool Holds(std::string_view aCode, TZORBarType aType, const TBarcodeTerms& aTerms) {
  const bool elements = aTerms.elementString && IsGs1Type(aType) && IsGs1Text(aCode);
  return elements || TBarcode::IsValidCode(aCode, aType, aTerms.checkSum, aTerms.ignoreParentheses);
}

}  // namespace

std::string StandardCheckDigit(std::string_view aDigits, TZORBarType aType) {
  if (!AllIn(aDigits, csDigit)) return {};
  if (aType == btPOSTNET) return PostNetCheckDigit(aDigits);
  if (DigitsOf(aType) == 0 || aDigits.size() + 1 != DigitsOf(aType)) return {};
  return TBarcode::CheckSumMod(aType == btUPCE0 ? UpcAOf(aDigits) : std::string(aDigits), ctMod10).DC;
}

std::size_t DigitsOf(TZORBarType aType) { return ReadingTable[aType].digits; }

bool TakesCheckSum(TZORBarType aType) { return ReadingTable[aType].check; }

bool TakesPadding(TZORBarType aType, bool aCheckSum) {
  const bool pairs = aType == btEAN128C || aType == btCODE128C || aType == btINTER_25;
  return DigitsOf(aType) != 0 || pairs || (Is128(aType) && aCheckSum);
}

TBarcodeReading ReadingOf(std::string_view aCode, TZORBarType aType, const TBarcodeTerms& aTerms) {
  if (aCode.empty()) return {{}, "there is no text for the code"};
  const std::string title(BarTypeNames[aType].title);
  if (!Holds(aCode, aType, aTerms)) return {{}, ShownCode(aCode) + " is no code of " + title};
  const TCase reading = CaseOf(aCode, aType, aTerms);
  if (Is128(aType)) return ReadingOf128(reading);
  return {reading.prepared, ReadingTable[aType].problem(reading)};
}

}  // namespace Zor::inline Utils
