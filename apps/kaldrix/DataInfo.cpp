#include "apps/kaldrix/DataInfo.hpp"

#include <algorithm>
#include <array>
#include <set>

#include "kaldrix/core/TKDXCounter.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/platform/ShownName.hpp"

namespace Zor::Program {

namespace {

constexpr std::array<std::string_view, EnumCount<TZORDataType>> SourceKinds{"none", "custom", "database",
                                                                            "JSON", "CSV"};
constexpr std::array<std::string_view, EnumCount<TZORAskType>> AskKinds{"text", "whole number", "number",
                                                                        "date"};

/// The names of the fields that items show, each once, in the order of the items.
std::vector<std::string> UsedFields(const TKDXLabel& aDocument) {
  std::vector<std::string> names;
  std::set<std::string> known;
  for (const TKDXBaseItem* item : aDocument.fItems) {
    const auto* bound = item->aIsData ? dynamic_cast<const IZORData*>(item) : nullptr;
    if (bound == nullptr) continue;
    const TZORFillType fill = bound->FillType();
    const bool field = fill == ftField || fill == ftJson || fill == ftCsv || fill == ftImg64;
    if (field && known.insert(bound->FillName()).second) names.push_back(bound->FillName());
  }
  return names;
}

void DescribeSource(const TKDXLabel& aDocument, TJsonObject& aInfo) {
  const TKDXData& data = *aDocument.fData;
  if (!data.fLinkData || data.fType == dtyNone) return;
  TJsonObject& source = aInfo.AddNewObject("source");
  source.PutString("kind", SourceKinds[data.fType]);
  source.PutString("name", data.fDataSel);
  if (data.fType == dtyCsv) source.PutString("file", data.fCsvFileName);
  if (!data.fFieldRepeat.empty()) source.PutString("repeat", data.fFieldRepeat);
  TJsonArray& fields = source.AddNewArray("fields");
  if (const TKDXDatasetItem* described = data.Source()) {
    for (const auto& field : described->fFields) fields.AddString(field->fCaption);
  }
  TJsonArray& used = source.AddNewArray("usedFields");
  for (const std::string& name : UsedFields(aDocument)) used.AddString(name);
}

void DescribeCounters(const TKDXLabel& aDocument, TJsonObject& aInfo) {
  TJsonArray& counters = aInfo.AddNewArray("counters");
  for (const TKDXCounter* counter : aDocument.fCounters) {
    TJsonObject& entry = counters.AddObject();
    entry.PutString("name", counter->fName);
    entry.PutLong("from", counter->fNumFrom);
    entry.PutLong("to", counter->fNumTo);
    entry.PutInt("step", counter->fStep);
    entry.PutInt("repeat", counter->fRepeat);
    entry.PutLong("current", counter->fCounter);
    entry.PutString("shown", counter->fValue);
  }
}

void DescribeQuestions(const TKDXData& aData, TJsonObject& aInfo) {
  TJsonArray& questions = aInfo.AddNewArray("questions");
  for (const TZOAskField* question : aData.fListAsk) {
    TJsonObject& entry = questions.AddObject();
    entry.PutString("name", question->fName);
    entry.PutString("kind", AskKinds[question->fAskType]);
    entry.PutString("question", question->fQuestion);
  }
  TJsonArray& lists = aInfo.AddNewArray("lists");
  for (const TZOValList* list : aData.fListVal) {
    TJsonObject& entry = lists.AddObject();
    entry.PutString("name", list->fName);
    TJsonArray& values = entry.AddNewArray("values");
    for (const std::string& value : list->GetValues()) values.AddString(value);
  }
}

std::string Joined(const TJsonArray& aTexts) {
  std::string text;
  for (int i = 0; i < aTexts.Count(); ++i)
    text += (i > 0 ? ", " : "") + ShownName(aTexts.GetItem(i).GetString());
  return aTexts.Count() > 0 ? text : "none";
}

std::string SourceText(TJsonObject& aSource) {
  std::string text =
      "\n  records: " + aSource.GetString("kind") + " \"" + ShownName(aSource.GetString("name")) + "\"";
  if (aSource.Contains("file")) text += ", file " + ShownName(aSource.GetString("file"));
  if (aSource.Contains("repeat"))
    text += ", labels of each told by " + ShownName(aSource.GetString("repeat"));
  if (aSource.GetArray("fields").Count() > 0) text += "\n    fields: " + Joined(aSource.GetArray("fields"));
  return text + "\n    items show: " + Joined(aSource.GetArray("usedFields"));
}

std::string CounterText(TJsonObject& aCounter) {
  const auto field = [&](std::string_view aName) { return ShownName(aCounter.GetString(aName)); };
  std::string text = "\n  counter \"" + field("name") + "\": " + field("from") + " to " + field("to") +
                     ", step " + field("step");
  if (aCounter.GetInt("repeat") > 1) text += ", " + field("repeat") + " labels each";
  return text + ", now " + field("current") + " (" + field("shown") + ")";
}

}  // namespace

void DescribeData(const TKDXLabel& aDocument, TJsonObject& aInfo) {
  DescribeSource(aDocument, aInfo);
  DescribeCounters(aDocument, aInfo);
  DescribeQuestions(*aDocument.fData, aInfo);
}

std::string DataText(TJsonObject& aInfo) {
  std::string text;
  if (aInfo.Contains("source")) text += SourceText(aInfo.GetObject("source"));
  TJsonArray& counters = aInfo.GetArray("counters");
  for (int i = 0; i < counters.Count(); ++i) text += CounterText(counters.GetObject(i));
  TJsonArray& questions = aInfo.GetArray("questions");
  for (int i = 0; i < questions.Count(); ++i) {
    TJsonObject& question = questions.GetObject(i);
    text += "\n  question \"" + ShownName(question.GetString("name")) + "\", a " + question.GetString("kind");
    if (!question.GetString("question").empty()) text += ": " + ShownName(question.GetString("question"));
  }
  TJsonArray& lists = aInfo.GetArray("lists");
  for (int i = 0; i < lists.Count(); ++i) {
    TJsonObject& list = lists.GetObject(i);
    text += "\n  list \"" + ShownName(list.GetString("name")) + "\": " + Joined(list.GetArray("values"));
  }
  return text;
}

}  // namespace Zor::Program
