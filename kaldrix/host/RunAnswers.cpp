#include "kaldrix/host/RunAnswers.hpp"

#include <algorithm>

#include "kaldrix/core/DataText.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/json/JsonDateTime.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/NameHints.hpp"
#include "kaldrix/platform/TextNumbers.hpp"
#include "kaldrix/platform/Utf8.hpp"

namespace Zor::inline Host {

namespace {

/// The answer to a name; none when there is none, or null.
const TJsonDataValue* FindAnswer(const TJsonObject& aAnswers, const std::string& aName) {
  for (int i = 0; i < aAnswers.Count(); ++i) {
    if (SameText(aAnswers.GetName(i), aName) && !aAnswers.GetItem(i).IsNull()) return &aAnswers.GetItem(i);
  }
  return nullptr;
}

bool TakeNumber(TZOAskField& aQuestion, const std::string& aText) {
  const std::optional<double> number = TextToNumber(aText);
  if (!number) return false;
  aQuestion.fAnsNumber = *number;
  return true;
}

bool TakeWhole(TZOAskField& aQuestion, const std::string& aText) {
  const std::optional<std::int64_t> number = TextToWhole(aText);
  if (!number || *number != static_cast<int>(*number)) return false;
  aQuestion.fAnsInt = static_cast<int>(*number);
  return true;
}

bool TakeDate(TZOAskField& aQuestion, const std::string& aText) {
  try {
    aQuestion.fAnsDT = JsonDateTimeOfText(aText, false);
    return true;
  } catch (const Exception&) {
    return false;
  }
}

std::string Given(const std::string& aText) { return "'" + aText + "' "; }

/// Empty, or what is wrong.
std::string Answer(TZOAskField& aQuestion, const std::string& aText) {
  switch (aQuestion.fAskType) {
    case atInteger:
      return TakeWhole(aQuestion, aText) ? "" : Given(aText) + "is no whole number";
    case atNumber:
      if (!TakeNumber(aQuestion, aText)) return Given(aText) + "is no number";
      return DigitsFault(aText);
    case atDateTime:
      return TakeDate(aQuestion, aText) ? "" : Given(aText) + "is no date (YYYY-MM-DD)";
    default:
      aQuestion.fAnsText = aText;
      return LostFault(aText);
  }
}

std::string Answer(TZOValList& aList, const std::string& aText) {
  const std::vector<std::string>& values = aList.GetValues();
  if (!values.empty() && std::find(values.begin(), values.end(), aText) == values.end()) {
    return Given(aText) + "is none of the values of the list" + NameHint(aText, values);
  }
  aList.fAnsText = aText;
  return {};
}

/// Answers one question or list that is in use.
template <class TAsked>
void Ask(TAsked& aAsked, const std::string& aWhat, const TJsonObject& aAnswers, std::string& aProblems) {
  if (!aAsked.fActive) return;
  const TJsonDataValue* answer = FindAnswer(aAnswers, aAsked.fName);
  std::string problem;
  if (answer == nullptr) {
    problem = "has no answer" + aWhat;
  } else if (answer->AsObject() != nullptr || answer->AsArray() != nullptr) {
    problem = "the answer is no text, number or date";
  } else {
    problem = Answer(aAsked, answer->GetString());
  }
  if (!problem.empty()) aProblems += "\n  " + aAsked.fName + ": " + problem;
}

/// The names that have an answer to give: in use, or all.
std::vector<std::string> Names(const TKDXData& aData, bool aActive) {
  std::vector<std::string> names;
  const auto add = [&](const auto& asked) {
    if (asked.fActive || !aActive) names.push_back(asked.fName);
  };
  for (const TZOAskField* question : aData.fListAsk) add(*question);
  for (const TZOValList* list : aData.fListVal) add(*list);
  return names;
}

bool Has(const std::vector<std::string>& aNames, const std::string& aName) {
  return std::any_of(aNames.begin(), aNames.end(),
                     [&](const std::string& name) { return SameText(name, aName); });
}

/// Answers that nobody asked for, and those to one name twice.
void CheckNames(const TKDXData& aData, const TJsonObject& aAnswers, std::string& aProblems) {
  const std::vector<std::string> asked = Names(aData, true), known = Names(aData, false);
  std::vector<std::string> answered;
  for (int i = 0; i < aAnswers.Count(); ++i) {
    const std::string name = aAnswers.GetName(i);
    std::string problem;
    if (!Has(known, name)) {
      problem = "there is no such question or list" + NameHint(name, asked);
    } else if (!Has(asked, name)) {
      problem = "no printed item asks for it";
    } else if (Has(answered, name)) {
      problem = "is answered twice";
    }
    if (problem.empty()) {
      answered.push_back(name);
    } else {
      aProblems += "\n  " + name + ": " + problem;
    }
  }
}

}  // namespace

void AnswerQuestions(TKDXLabel& aDocument, const TJsonObject& aAnswers) {
  std::string problems;
  for (TZOAskField* question : aDocument.fData->fListAsk) {
    Ask(*question, question->fQuestion.empty() ? "" : " (" + question->fQuestion + ")", aAnswers, problems);
  }
  for (TZOValList* list : aDocument.fData->fListVal) Ask(*list, "", aAnswers, problems);
  CheckNames(*aDocument.fData, aAnswers, problems);
  if (!problems.empty()) throw Exception("Questions of this print:" + problems);
}

}  // namespace Zor::inline Host
