// What a document says of its records, counters, questions and lists.
#pragma once

#include <string>

#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace Zor::Program {

/// Adds "source", "counters", "questions" and "lists". The names of questions and lists are those of an
/// answers file. No source is opened: fields are those that the document describes, and "usedFields" those
/// that its items show.
void DescribeData(const TKDXLabel& aDocument, TJsonObject& aInfo);

/// The same as lines of text, each with a line end in front.
std::string DataText(TJsonObject& aInfo);

}  // namespace Zor::Program
