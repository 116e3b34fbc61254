// The characters of the symbologies, their check sums, and what is done to a code before it is encoded.
#include "kaldrix/utils/TBarcode.hpp"

#include <algorithm>
#include <cstring>

#include "kaldrix/utils/BarSymbology.hpp"

namespace Zor::inline Utils {

// Characters ---------------------------------------------------------------------------

bool AllIn(std::string_view aCode, int aSets) {
  // Most codes are valid: without an exit in the loop it runs at the speed of its loads.
  bool all = true;
  for (const char c : aCode) all &= IsIn(c, aSets);
  return all;
}

std::string Expanded(std::string_view aCode, const std::array<TExpansion, 128>& aTable) {
  std::string text(aCode.size() * 2, '\0');
  char* next = text.data();
  for (const char c : aCode) {
    if (!IsIn(c, csAscii)) continue;
    const TExpansion& expansion = aTable[static_cast<std::size_t>(c)];
    std::memcpy(next, expansion.text.data(), expansion.text.size());
    next += expansion.length;
  }
  text.resize(static_cast<std::size_t>(next - text.data()));
  return text;
}

bool TBarcode::OnlyCode39(std::string_view Code) { return AllIn(Code, csCode39); }
bool TBarcode::OnlyCode39Ex(std::string_view Code) { return AllIn(Code, csAscii); }
bool TBarcode::OnlyCode93(std::string_view Code) { return AllIn(Code, csCode93); }
bool TBarcode::OnlyCode93Ex(std::string_view Code) { return AllIn(Code, csAscii); }
bool TBarcode::OnlyCodabar(std::string_view Code) { return AllIn(Code, csCodabar); }
bool TBarcode::OnlyCode11(std::string_view Code) { return AllIn(Code, csCode11); }
bool TBarcode::OnlyEan128A(std::string_view Code) { return AllIn(Code, csSetA); }
bool TBarcode::OnlyEan128B(std::string_view Code) { return AllIn(Code, csSetB); }
bool TBarcode::OnlyNumber(std::string_view Code) { return AllIn(Code, csDigit); }
bool TBarcode::OnlyNumberParentheses(std::string_view Code) { return AllIn(Code, csDigit | csParenthesis); }
bool TBarcode::ValidCode128Auto(std::string_view Code) { return AllIn(Code, csSetB | csSetE); }

void TBarcode::UpperCase(std::string& Code) {
  for (char& c : Code) c = static_cast<char>(c - (IsLowCaseLetter(c) ? 'a' - 'A' : 0));
}

std::string TBarcode::RemoveAccented(std::string_view aText) {
  // In UTF-8 these vowels are the byte C3 and one of the second.
  constexpr char lead = '\xC3';
  constexpr std::string_view seconds = "\xA1\xA9\xAD\xB3\xBA\x81\x89\x8D\x93\x9A", plain = "aeiouAEIOU";
  std::string text;
  text.reserve(aText.size());
  for (std::size_t i = 0; i < aText.size(); ++i) {
    const bool pair = aText[i] == lead && i + 1 < aText.size();
    const std::size_t vowel = pair ? seconds.find(aText[i + 1]) : std::string_view::npos;
    if (vowel == std::string_view::npos) {
      text += aText[i];
    } else {
      text += plain[vowel];
      ++i;
    }
  }
  return text;
}

std::string TBarcode::AdjustZero(std::string_view Code, std::size_t Length) {
  std::string code(Code.size() < Length ? Length - Code.size() : 0, '0');
  return code += Code;
}

// Check sums ---------------------------------------------------------------------------

namespace {

char CheckDigitOf(std::size_t aSum) { return static_cast<char>('0' + (10 - aSum % 10) % 10); }

/// Weights 3, 1, 3, ... from the right.
char Mod10(std::string_view aCode) {
  std::size_t sum = 0, weight = 3;
  for (std::size_t i = aCode.size(); i-- > 0; weight = 4 - weight) sum += DigitOf(aCode[i]) * weight;
  return CheckDigitOf(sum);
}

/// Every second digit from the right, beginning with the last, counts as the sum of the digits of its double.
char Luhn(std::string_view aCode) {
  std::size_t sum = 0;
  bool doubled = true;
  for (std::size_t i = aCode.size(); i-- > 0; doubled = !doubled) {
    const std::size_t digit = DigitOf(aCode[i]) * (doubled ? 2 : 1);
    sum += digit / 10 + digit % 10;
  }
  return CheckDigitOf(sum);
}

/// Weights from the right, 1 to `aMostWeight` again and again.
std::string Mod11(std::string_view aCode, std::size_t aMostWeight) {
  std::size_t sum = 0, weight = 1;
  for (std::size_t i = aCode.size(); i-- > 0;) {
    sum += (aCode[i] == '-' ? 10 : DigitOf(aCode[i])) * weight;
    if (++weight > aMostWeight) weight = 1;
  }
  return std::to_string(sum % 11);
}

std::string Code11Check(std::string& aCode) {
  constexpr std::size_t twoFrom = 10, weightsOfC = 10, weightsOfK = 9;
  const bool two = aCode.size() >= twoFrom;
  std::string check = Mod11(aCode, weightsOfC);
  aCode += check;
  if (!two) return check;
  check = Mod11(aCode, weightsOfK);
  aCode += check;
  return check;
}

/// Appends the check characters, and gives the last of them.
std::string AppendCheck(std::string& aCode, TZORCheckType aType) {
  switch (aType) {
    case ctMod10:
    case ctMod10Right:
      aCode += Mod10(aCode);
      break;
    case ctMSI10:
      aCode += Luhn(aCode);
      break;
    case ctMod11:
      return Code11Check(aCode);
    case ctNone:
    case ctMod10UPCE:
    case ctMSI:
      return {};
  }
  return {aCode.back()};
}

}  // namespace

TDigitControl TBarcode::CheckSumMod(std::string_view Code, TZORCheckType CheckType) {
  TDigitControl control{std::string(Code), {}};
  control.DC = AppendCheck(control.Code, CheckType);
  return control;
}

// Preparing ----------------------------------------------------------------------------

namespace {

void AddCheck(TPreparing& aCode, TZORCheckType aType) { aCode.check = AppendCheck(aCode.text, aType); }

void MakeEven(TPreparing& aCode) {
  if (aCode.text.size() % 2 != 0) aCode.text.insert(0, 1, '0');
}

void DropParentheses(TPreparing& aCode) {
  if (aCode.ignoreParentheses) std::erase_if(aCode.text, [](char c) { return IsIn(c, csParenthesis); });
}

char Code39Check(std::string_view aCode) {
  std::size_t sum = 0;
  for (const char c : aCode) {
    const int row = Rows39[static_cast<unsigned char>(c)];
    if (row >= 0 && row < Values39) sum += static_cast<std::size_t>(row);
  }
  return tabla_39[sum % Values39].symbol;
}

void AddCode39Check(TPreparing& aCode, char aCheck) {
  aCode.check.assign(1, aCheck);
  aCode.text += aCheck;
}

/// A check digit on a code of digits, whose number it makes even. False where none was added.
bool AddCode128Check(TPreparing& aCode) {
  if (!aCode.checkSum || !AllIn(aCode.text, csDigit)) return false;
  if (aCode.text.size() % 2 == 0) aCode.text.insert(0, 1, '0');
  AddCheck(aCode, ctMod10);
  return true;
}

/// Digits only: pairs, but for one digit or three.
TZOR128AutoType ModeOfDigits(std::size_t aCount) {
  if (aCount != 2 && aCount < 4) return at128a;
  return aCount % 2 == 0 ? at128c : at128nac;
}

TZOR128AutoType ModeOf(std::string_view aCode, TZORBarType aType) {
  constexpr std::size_t longRun = 4;
  if (AllIn(aCode, csDigit)) return ModeOfDigits(aCode.size());
  if (AllIn(aCode, csSetA)) return at128a;
  if (AllIn(aCode, csSetB)) {
    return aCode.size() >= longRun && AllIn(aCode.substr(0, longRun), csDigit) ? at128cb : at128bc;
  }
  if (aType != btCODE128AUTO) return at128None;
  if (AllIn(aCode, csSetE)) return at128e;
  return AllIn(aCode, csSetB | csSetE) ? at128be : at128None;
}

}  // namespace

void PreparePlain(TPreparing& /*aCode*/) {}

void PrepareEan(TPreparing& aCode) {
  if (!aCode.checkSum) return;
  const std::size_t digits = aCode.length - 1;
  if (aCode.text.size() < digits) aCode.text = TBarcode::AdjustZero(aCode.text, digits);
  aCode.text.resize(digits);
  AddCheck(aCode, ctMod10);
}

void PrepareCode39(TPreparing& aCode) {
  TBarcode::UpperCase(aCode.text);
  if (aCode.checkSum) AddCode39Check(aCode, Code39Check(aCode.text));
}

void PrepareCode39Ex(TPreparing& aCode) {
  if (aCode.checkSum) AddCode39Check(aCode, Code39Check(Expanded(aCode.text, tabla_39ex)));
}

void PrepareCode128(TPreparing& aCode) {
  DropParentheses(aCode);
  AddCode128Check(aCode);
}

void PrepareCode128C(TPreparing& aCode) {
  DropParentheses(aCode);
  if (!AddCode128Check(aCode)) MakeEven(aCode);
}

void PrepareAuto128(TPreparing& aCode) {
  DropParentheses(aCode);
  aCode.mode = ModeOf(aCode.text, aCode.type);
}

void PrepareInterleaved(TPreparing& aCode) {
  PrepareTwoOfFive(aCode);
  MakeEven(aCode);
}

void PrepareTwoOfFive(TPreparing& aCode) {
  if (aCode.checkSum) AddCheck(aCode, ctMod10Right);
}

void PrepareCode11(TPreparing& aCode) {
  if (aCode.checkSum) AddCheck(aCode, ctMod11);
}

void PrepareMsi(TPreparing& aCode) {
  if (aCode.checkSum) AddCheck(aCode, ctMSI10);
}

}  // namespace Zor::inline Utils
