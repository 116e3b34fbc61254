#include "kaldrix/utils/Gs1.hpp"

#include <algorithm>

#include "kaldrix/utils/BarSymbology.hpp"
#include "kaldrix/utils/Gs1Table.hpp"
#include "kaldrix/utils/ShownCode.hpp"
#include "kaldrix/utils/TBarcode.hpp"

namespace Zor::inline Utils {

namespace {

using TSets = std::array<std::uint8_t, 256>;

/// The GS1 standard, section 7.11, and RFC 4648 for names of files.
constexpr TSets SetsOf = [] {
  constexpr std::string_view digits = "0123456789", upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                             lower = "abcdefghijklmnopqrstuvwxyz";
  TSets sets{};
  const auto add = [&](std::string_view aChars, std::initializer_list<TGs1Set> aSets) {
    for (const char c : aChars) {
      for (const TGs1Set set : aSets)
        sets[static_cast<unsigned char>(c)] |= static_cast<std::uint8_t>(1U << set);
    }
  };
  add(digits, {gsDigits, gs82, gs39, gs64});
  add(upper, {gs82, gs39, gs64});
  add(lower, {gs82, gs64});
  add("!\"%&'()*+,-./:;<=>?_", {gs82});
  add("#-/", {gs39});
  add("-_=", {gs64});
  return sets;
}();

bool IsIn(char aChar, TGs1Set aSet) { return (SetsOf[static_cast<unsigned char>(aChar)] >> aSet & 1) != 0; }

// Fields -------------------------------------------------------------------------------

/// The identifier that stands in parentheses at the beginning of a text, or nothing.
std::string_view IdentifierAt(std::string_view aText) {
  const std::size_t end = aText.starts_with('(') ? aText.find(')') : std::string_view::npos;
  if (end == std::string_view::npos || end < 3 || end > 5) return {};
  const std::string_view identifier = aText.substr(1, end - 1);
  return AllIn(identifier, csDigit) ? identifier : std::string_view();
}

struct TField {
  std::string_view identifier, data;
};

/// Takes the first field off a text that begins with an identifier.
TField TakeField(std::string_view& aText) {
  TField field{IdentifierAt(aText), {}};
  aText.remove_prefix(field.identifier.size() + 2);
  std::size_t end = aText.find('(');
  while (end != std::string_view::npos && IdentifierAt(aText.substr(end)).empty())
    end = aText.find('(', end + 1);
  field.data = aText.substr(0, end);
  aText.remove_prefix(field.data.size());
  return field;
}

bool Has(const TGs1Row& aRow, std::string_view aIdentifier) {
  bool has = aIdentifier.size() == aRow.first.size();
  for (std::size_t i = 0; has && i < aIdentifier.size(); ++i)
    has = aIdentifier[i] >= aRow.first[i] && aIdentifier[i] <= aRow.last[i];
  return has;
}

const TGs1Row* RowOf(std::string_view aIdentifier) {
  const auto row = std::find_if(Gs1Table.begin(), Gs1Table.end(),
                                [&](const TGs1Row& aRow) { return Has(aRow, aIdentifier); });
  return row == Gs1Table.end() ? nullptr : &*row;
}

/// Does a separator stand behind the field, unless it is the last?
bool IsSeparated(std::string_view aIdentifier) {
  return std::find(Gs1Predefined.begin(), Gs1Predefined.end(), aIdentifier.substr(0, 2)) ==
         Gs1Predefined.end();
}

// Checks -------------------------------------------------------------------------------

std::size_t NumberAt(std::string_view aDigits, std::size_t aFrom) {
  return DigitOf(aDigits[aFrom]) * 10 + DigitOf(aDigits[aFrom + 1]);
}

/// Years without century: 00 is that of 2000, a leap year.
bool IsDate(std::string_view aDigits, bool aWholeMonth) {
  constexpr std::array<std::size_t, 12> days{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::size_t year = NumberAt(aDigits, 0), month = NumberAt(aDigits, 2), day = NumberAt(aDigits, 4);
  if (month < 1 || month > days.size()) return false;
  const std::size_t most = month == 2 && year % 4 != 0 ? 28 : days[month - 1];
  return day <= most && (day > 0 || aWholeMonth);
}

std::string DateProblem(std::string_view aDigits, bool aWholeMonth) {
  return IsDate(aDigits, aWholeMonth) ? "" : ShownCode(aDigits) + " is no date YYMMDD";
}

/// Are there one or two pairs of digits, each below its bound?
bool ArePairs(std::string_view aDigits, std::size_t aFirst, std::size_t aSecond) {
  if (aDigits.size() != 2 && aDigits.size() != 4) return false;
  return NumberAt(aDigits, 0) < aFirst && (aDigits.size() == 2 || NumberAt(aDigits, 2) < aSecond);
}

std::string TimeProblem(std::string_view aDigits) {
  return ArePairs(aDigits, 24, 60) ? "" : ShownCode(aDigits) + " is no time of the day";
}

std::string MinutesProblem(std::string_view aDigits) {
  return ArePairs(aDigits, 60, 60) ? "" : ShownCode(aDigits) + " is neither minutes nor minutes and seconds";
}

std::string CheckDigitProblem(std::string_view aDigits) {
  const std::string right = TBarcode::CheckSumMod(aDigits.substr(0, aDigits.size() - 1), ctMod10).Code;
  return aDigits == right
             ? ""
             : "the check digit of " + ShownCode(aDigits) + " is wrong: it would be " + ShownCode(right);
}

std::string CheckProblem(std::string_view aPart, TGs1Check aCheck) {
  switch (aCheck) {
    case gcNone:
      return {};
    case gcDigit:
      return CheckDigitProblem(aPart);
    case gcDate:
    case gcDate00:
      return DateProblem(aPart, aCheck == gcDate00);
    case gcTime:
      return TimeProblem(aPart);
    case gcMinutes:
      return MinutesProblem(aPart);
    case gcTriples:
      return aPart.size() % 3 == 0 ? "" : ShownCode(aPart) + " is not made of numbers of three digits";
    case gcMinus:
      return aPart == "-" ? "" : ShownCode(aPart) + " stands where only a minus sign may";
  }
  return {};
}

std::string LengthProblem(std::string_view aData, const TGs1Row& aRow) {
  std::size_t least = 0, most = 0;
  for (const TGs1Part& part : aRow.parts) {
    least += part.least;
    most += part.most;
  }
  if (aData.size() >= least && aData.size() <= most) return {};
  const std::string belong =
      least == most ? std::to_string(most) : std::to_string(least) + " to " + std::to_string(most);
  return ShownCode(aData) + " has " + std::to_string(aData.size()) + " characters where " + belong +
         " belong";
}

std::string CharactersProblem(std::string_view aPart, TGs1Set aSet) {
  constexpr std::array<std::string_view, 4> names{"a digit", "a character of GS1 set 82",
                                                  "a character of GS1 set 39", "a character of base 64"};
  const auto* const wrong = std::find_if(aPart.begin(), aPart.end(), [=](char c) { return !IsIn(c, aSet); });
  if (wrong == aPart.end()) return {};
  return ShownCode({wrong, 1}) + " stands where " + std::string(names[aSet]) + " belongs";
}

std::string DataProblem(std::string_view aData, const TGs1Row& aRow) {
  std::string problem = LengthProblem(aData, aRow);
  for (const TGs1Part& part : aRow.parts) {
    const std::string_view piece = aData.substr(0, part.most);
    aData.remove_prefix(piece.size());
    if (piece.empty() || !problem.empty()) continue;
    problem = CharactersProblem(piece, part.set);
    // A second date or a time may be missing, not be cut.
    const bool cut = (part.check == gcDate || part.check == gcTime) && piece.size() < part.most;
    if (problem.empty() && cut)
      problem = ShownCode(piece) + " is cut: " + std::to_string(part.most) + " digits belong there";
    if (problem.empty()) problem = CheckProblem(piece, part.check);
  }
  return problem;
}

}  // namespace

std::string Gs1Problem(std::string_view aText) {
  if (IdentifierAt(aText).empty())
    return ShownCode(aText) + " does not begin with an application identifier in parentheses";
  while (!aText.empty()) {
    const TField field = TakeField(aText);
    const TGs1Row* row = RowOf(field.identifier);
    const std::string name = "(" + std::string(field.identifier) + ")";
    if (row == nullptr) return "there is no application identifier " + name;
    const std::string problem = DataProblem(field.data, *row);
    if (!problem.empty()) return name + ": " + problem;
  }
  return {};
}

std::string Gs1Data(std::string_view aText) {
  std::string data;
  while (!aText.empty()) {
    const TField field = TakeField(aText);
    (data += field.identifier) += field.data;
    if (!aText.empty() && IsSeparated(field.identifier)) data += Gs1Separator;
  }
  return data;
}

std::string_view Gs1FirstSeparated(std::string_view aText) {
  while (!aText.empty()) {
    const TField field = TakeField(aText);
    if (!aText.empty() && IsSeparated(field.identifier)) return field.identifier;
  }
  return {};
}

}  // namespace Zor::inline Utils
