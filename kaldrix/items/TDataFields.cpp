#include "kaldrix/items/TDataFields.hpp"

#include <algorithm>
#include <array>

#include "kaldrix/core/JsonFields.hpp"
#include "kaldrix/core/TKDXBaseLabel.hpp"
#include "kaldrix/core/TKDXData.hpp"
#include "kaldrix/messages/ZOR.Msg.hpp"

namespace Zor::inline Base {

namespace {

/// The kind of data that the first character of a pick-list line tells.
struct TFillMark {
  char mark;
  TZORFillType type;
};
constexpr std::array<TFillMark, 5> FillMarks{
    {{'@', ftCounter}, {'{', ftJson}, {'~', ftField}, {'=', ftList}, {'?', ftAsk}}};

}  // namespace

void TDataFields::Bind(TZORFillType aType, const std::string& aName, const std::string& aFormat) {
  fFormat = aFormat;
  fFillType = ftNone;
  if (aName.find(TKDXMsg::GetListValue("Unassign")) != std::string::npos) return fField.clear();
  const auto* const mark = std::find_if(FillMarks.begin(), FillMarks.end(), [&](const TFillMark& row) {
    return !aName.empty() && row.mark == aName.front();
  });
  const bool marked = mark != FillMarks.end();
  fFillType = marked ? mark->type : aType;
  fField = marked ? aName.substr(1) : aName;
}

std::string TDataFields::SymField() const { return IncSymData(fField, fFillType); }

TZORFillType TDataFields::ActiveFill(const TKDXBaseLabel& aOwner) const {
  return aOwner.fData->fLinkData ? fFillType : ftNone;
}

bool TDataFields::HasValue(const TKDXBaseLabel& aOwner) const {
  return aOwner.fData->IsValidData(ActiveFill(aOwner), fField);
}

std::string TDataFields::Value(const TKDXBaseLabel& aOwner) const {
  return aOwner.DataValue(fField, fFormat, ActiveFill(aOwner));
}

void TDataFields::WriteJsonData(TJsonObject& aJson) const {
  TJsonObject& data = aJson.AddNewObject("Data");
  data.Reserve(3);
  data.PutString("Field", fField);
  data.PutString("Format", fFormat);
  data.PutInt("FillType", fFillType);
}

void TDataFields::ReadJsonData(TJsonObject& aJson) {
  TJsonObject& data = aJson.GetObject("Data");
  fField = data.GetString("Field");
  fFormat = data.GetString("Format");
  fFillType = GetEnum<TZORFillType>(data, "FillType");
}

}  // namespace Zor::inline Base
