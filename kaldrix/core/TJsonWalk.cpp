#include "kaldrix/core/TJsonWalk.hpp"

#include <algorithm>

#include "kaldrix/core/DataText.hpp"
#include "kaldrix/platform/TextNumbers.hpp"

namespace Zor::inline Base {

std::unique_ptr<TJsonWalk> TJsonWalk::Open(const std::string& aText, const std::string& aKey) {
  auto root = TJsonBaseObject::Parse(aText);
  const TJsonObject* object = root == nullptr ? nullptr : root->AsObject();
  const TJsonArray* rows = object == nullptr ? nullptr : object->FindArray(aKey);
  if (rows == nullptr) return nullptr;
  return std::unique_ptr<TJsonWalk>(new TJsonWalk(std::make_unique<TParsedRows>(std::move(root), *rows)));
}

std::unique_ptr<TJsonWalk> TJsonWalk::Open(std::shared_ptr<const TJsonFile> aFile, const std::string& aKey) {
  const TJsonFile::TArray* rows = aFile->Find(aKey);
  if (rows == nullptr) return nullptr;
  return std::unique_ptr<TJsonWalk>(new TJsonWalk(std::make_unique<TFileRows>(std::move(aFile), *rows)));
}

bool TJsonWalk::GoTo(int aRecord) {
  if (aRecord < 1 || aRecord > Records()) return false;
  fRecord = aRecord;
  return true;
}

const TJsonObject* TJsonWalk::JsonRecord() const {
  return fRecord <= Records() ? fRows->Row(fRecord - 1) : nullptr;
}

bool TJsonWalk::TakeRepeat(const std::string& aField) {
  fRepeat = aField;
  const TJsonObject* first = JsonRecord();
  return first != nullptr && first->Contains(aField);
}

const TJsonDataValue* TJsonWalk::RepeatValue() const {
  const TJsonObject* record = JsonRecord();
  return record == nullptr ? nullptr : record->Find(fRepeat);
}

Int64 TJsonWalk::Repeat() const {
  const TJsonDataValue* value = RepeatValue();
  if (value == nullptr || value->Type() < jdtString || value->Type() > jdtFloat) return 0;
  if (value->Type() != jdtString) return value->GetLong();
  return TextToWhole(value->GetStringView()).value_or(0);
}

std::string TJsonWalk::RepeatProblem() const {
  const TJsonDataValue* value = RepeatValue();
  const bool told = value != nullptr && value->Type() >= jdtString && value->Type() <= jdtBool;
  return RepeatFault(fRepeat, told ? value->GetString() : std::string());
}

bool TJsonWalk::Offers(const std::string& aField) {
  for (int i = 0; i < Records(); ++i) {
    const TJsonObject* row = fRows->Row(i);
    if (row != nullptr && row->Contains(aField)) return true;
  }
  return false;
}

std::string TJsonWalk::Value(const std::string& aField, const std::string& aFormat) const {
  return JsonText(JsonRecord(), aField, aFormat);
}

std::string TJsonWalk::ExactValue(const std::string& aField, const std::string& aFormat) const {
  return ExactJsonText(JsonRecord(), aField, aFormat);
}

std::vector<std::string> TJsonWalk::RecordProblems() const {
  const std::string here = "record " + std::to_string(fRecord);
  const TJsonObject* record = JsonRecord();
  if (record == nullptr) return {here + " is no object"};
  std::vector<std::string_view> names;
  for (int i = 0; i < record->Count(); ++i) names.push_back(record->GetNameView(i));
  std::sort(names.begin(), names.end());
  const auto twice = std::adjacent_find(names.begin(), names.end());
  if (twice == names.end()) return {};
  return {here + ": '" + std::string(*twice) + "' stands there twice"};
}

}  // namespace Zor::inline Base
