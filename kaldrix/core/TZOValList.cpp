#include "kaldrix/core/TZOValList.hpp"

#include <algorithm>
#include <string_view>

#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"

namespace Zor::inline Base {

namespace {

/// The values as one text: each is a line, ended by a line feed.
std::string JoinLines(const std::vector<std::string>& aLines) {
  std::string text;
  for (const std::string& line : aLines) text += line + '\n';
  return text;
}

/// Lines may end with LF, CR or both; what stands behind the last line end is a line too.
std::vector<std::string> SplitLines(std::string_view aText) {
  std::vector<std::string> lines;
  while (!aText.empty()) {
    const std::size_t end = std::min(aText.find_first_of("\r\n"), aText.size());
    lines.emplace_back(aText.substr(0, end));
    aText.remove_prefix(end);
    aText.remove_prefix(aText.starts_with("\r\n") ? 2 : std::min<std::size_t>(aText.size(), 1));
  }
  return lines;
}

}  // namespace

TZOValList::TZOValList(TKDXData& aOwner, const std::string& aName) : fOwner(&aOwner), fName(aName) {
  aOwner.fListVal.Adopt(this);
  Changed();
}

void TZOValList::SetName(const std::string& aName) {
  if (aName == fName) return;
  if (aName.empty()) throw Exception(TKDXMsg::GetErrorValue("EmptyText"));
  if (fOwner->NameListExists(aName)) throw Exception(TKDXMsg::GetErrorValue("RepeatName"));
  fName = aName;
  Changed();
}

void TZOValList::Changed() { fOwner->fOwner->ContentChanged(); }

void TZOValList::AssignValues(const std::vector<std::string>& aValues) {
  if (aValues == fValues) return;
  fValues = aValues;
  Changed();
}

void TZOValList::AddValue(const std::string& aValue) {
  if (std::find(fValues.begin(), fValues.end(), aValue) != fValues.end()) return;
  fValues.push_back(aValue);
  Changed();
}

bool TZOValList::DeleteValue(const std::string& aValue) { return std::erase(fValues, aValue) > 0; }

void TZOValList::Record(TRecord& r) {
  r.String(fName);
  std::string text = JoinLines(fValues);
  r.String(text);
  if (r.Reading()) fValues = SplitLines(text);
}

void TZOValList::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TZOValList*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TZOValList::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
  fActive = false;
}

void TZOValList::WriteJson(TJsonArray& aArray) const {
  TJsonObject& list = aArray.AddObject();
  list.PutString("Name", fName);
  list.PutString("Values", JoinLines(fValues));
}

void TZOValList::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fName = aJson.GetString("Name");
  fValues = SplitLines(aJson.GetString("Values"));
  fActive = false;
}

}  // namespace Zor::inline Base
