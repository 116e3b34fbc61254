#pragma once

#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace Zor::inline Host {

/// Answers the questions and lists that a planned print uses: `aAnswers` has a value for each name, compared
/// without case, and no name that they do not ask for. A date is "YYYY-MM-DD", with or without "Thh:mm:ss"; a
/// list with values takes one of them. Raises Exception that tells everything that is missing or wrong, a
/// line each.
void AnswerQuestions(TKDXLabel& aDocument, const TJsonObject& aAnswers);

}  // namespace Zor::inline Host
