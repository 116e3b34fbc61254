#include "kaldrix/json/TJsonDataValueHelper.hpp"

namespace Zor::inline Jsondataobjects {

TJsonBaseObject& TJsonDataValueHelper::Owner() const {
  if (fOwner == nullptr) throw EInvalidOperation("The JSON value belongs to no object");
  return *fOwner;
}

const TJsonDataValue& TJsonDataValueHelper::Value() const {
  static const TJsonDataValue none;
  if (fOwner == nullptr) return none;
  if (TJsonArray* items = fOwner->AsArray()) return items->GetItem(fIndex);
  const TJsonDataValue* value = fOwner->AsObject()->Find(fKey);
  return value == nullptr ? none : *value;
}

TJsonDataValueHelper& TJsonDataValueHelper::operator=(TJsonDataValue aValue) {
  if (TJsonObject* object = Owner().AsObject()) {
    object->SetValue(fKey, std::move(aValue));
  } else {
    fOwner->GetItem(fIndex) = std::move(aValue);
  }
  return *this;
}

TJsonObject& TJsonDataValueHelper::AsObject() {
  if (TJsonObject* object = Owner().AsObject()) return object->GetObject(fKey);
  return fOwner->GetItem(fIndex).GetObject();
}

TJsonArray& TJsonDataValueHelper::AsArray() {
  if (TJsonObject* object = Owner().AsObject()) return object->GetArray(fKey);
  return fOwner->GetItem(fIndex).GetArray();
}

}  // namespace Zor::inline Jsondataobjects
