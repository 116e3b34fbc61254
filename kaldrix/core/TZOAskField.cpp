#include "kaldrix/core/TZOAskField.hpp"

#include <ctime>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"
#include "kaldrix/platform/Exceptions.hpp"
#include "kaldrix/platform/TextNumbers.hpp"

namespace Zor::inline Base {

namespace {

/// Dates without a picture of their own, independent of the locale.
constexpr std::string_view DatePicture = "yyyy-mm-dd";

/// The present moment in local time, to the second.
TDateTime LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  const int second = parts.tm_sec > 59 ? 59 : parts.tm_sec;  // A leap second counts as the one before it.
  return EncodeDateTime(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min,
                        second);
}

}  // namespace

TZOAskField::TZOAskField(TKDXData& aOwner, const std::string& aName)
    : fOwner(&aOwner), fName(aName), fAnsDT(LocalNow()) {
  aOwner.fListAsk.Adopt(this);
  aOwner.fOwner->ContentChanged();
}

void TZOAskField::SetName(const std::string& aName) {
  if (aName == fName) return;
  if (aName.empty()) throw Exception(TKDXMsg::GetErrorValue("EmptyText"));
  if (fOwner->NameAskExists(aName)) throw Exception(TKDXMsg::GetErrorValue("RepeatName"));
  fName = aName;
  fOwner->fOwner->ContentChanged();
}

std::string TZOAskField::Answer(std::string_view aFormat) const {
  switch (fAskType) {
    case atInteger:
      return aFormat.empty() ? std::to_string(fAnsInt) : FormatFloat(aFormat, fAnsInt);
    case atNumber:
      return FormatFloat(aFormat, fAnsNumber);
    case atDateTime:
      return FormatDateTime(aFormat.empty() ? DatePicture : aFormat, fAnsDT);
    default:
      return fAnsText;
  }
}

double TZOAskField::AnswerNumber() const {
  switch (fAskType) {
    case atInteger:
      return fAnsInt;
    case atNumber:
      return fAnsNumber;
    case atDateTime:
      return fAnsDT;
    default:
      return TextToNumber(fAnsText).value_or(0);
  }
}

void TZOAskField::Record(TRecord& r) {
  r.Enum16(fAskType, "AskType");
  r.String(fName);
  r.String(fQuestion);
}

void TZOAskField::WriteData(TBinaryWriter& bW) const {
  TRecord record(bW, FormatVersion);
  const_cast<TZOAskField*>(this)->Record(record);  // Writing leaves every field as it is.
}

void TZOAskField::ReadData(int aVersion, TBinaryReader& bR) {
  TRecord record(bR, aVersion);
  Record(record);
  fActive = false;
}

void TZOAskField::WriteJson(TJsonArray& aArray) const {
  TJsonObject& question = aArray.AddObject();
  question.PutInt("AskType", fAskType);
  question.PutString("Name", fName);
  question.PutString("Question", fQuestion);
}

void TZOAskField::ReadJson(int /*aVersion*/, TJsonObject& aJson) {
  fAskType = GetEnum<TZORAskType>(aJson, "AskType");
  fName = aJson.GetString("Name");
  fQuestion = aJson.GetString("Question");
  fActive = false;
}

}  // namespace Zor::inline Base
