#include "kaldrix/core/TJsonWalk.hpp"

#include "kaldrix/core/DataText.hpp"
#include "kaldrix/platform/TextNumbers.hpp"

namespace Zor::inline Base {

std::unique_ptr<TJsonWalk> TJsonWalk::Open(const std::string& aText, const std::string& aKey) {
  auto root = TJsonBaseObject::Parse(aText);
  const TJsonObject* object = root == nullptr ? nullptr : root->AsObject();
  TJsonArray* rows = object == nullptr ? nullptr : object->FindArray(aKey);
  if (rows == nullptr) return nullptr;
  return std::unique_ptr<TJsonWalk>(new TJsonWalk(std::move(root), *rows));
}

bool TJsonWalk::GoTo(int aRecord) {
  if (aRecord < 1 || aRecord > Records()) return false;
  fRecord = aRecord;
  return true;
}

const TJsonObject* TJsonWalk::JsonRecord() const {
  return fRecord <= Records() ? fRows.GetItem(fRecord - 1).AsObject() : nullptr;
}

bool TJsonWalk::TakeRepeat(const std::string& aField) {
  fRepeat = aField;
  const TJsonObject* first = JsonRecord();
  return first != nullptr && first->Contains(aField);
}

Int64 TJsonWalk::Repeat() const {
  const TJsonObject* record = JsonRecord();
  const TJsonDataValue* value = record == nullptr ? nullptr : record->Find(fRepeat);
  if (value == nullptr || value->Type() < jdtString || value->Type() > jdtFloat) return 0;
  if (value->Type() != jdtString) return value->GetLong();
  return TextToWhole(value->GetStringView()).value_or(0);
}

std::string TJsonWalk::Value(const std::string& aField, const std::string& aFormat) const {
  return JsonText(JsonRecord(), aField, aFormat);
}

std::vector<std::string> TJsonWalk::RecordProblems() const {
  if (JsonRecord() != nullptr) return {};
  return {"record " + std::to_string(fRecord) + " is no object"};
}

}  // namespace Zor::inline Base
