// Any bytes: the parser refuses them with an EJsonException or gives a tree whose text reads back as the same
// text, in both layouts, and which survives what callers do with trees.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace {

using namespace Zor;

void Require(bool aHolds) {
  if (!aHolds) std::abort();
}

/// Asks every value for every kind; only the errors of conversions may come out.
void Convert(TJsonBaseObject& aTree) {
  for (int i = 0; i < aTree.Count(); ++i) {
    const TJsonDataValue& value = aTree.GetItem(i);
    try {
      value.GetBool();
      value.GetString();
      value.GetInt();
      value.GetLong();
      value.GetFloat();
      value.GetUtcDateTime();
    } catch (const EJsonCastException&) {
    } catch (const EConvertError&) {
    } catch (const ERangeError&) {
    }
    if (TJsonObject* object = value.AsObject()) Convert(*object);
    if (TJsonArray* items = value.AsArray()) Convert(*items);
  }
}

void Edit(TJsonBaseObject& aTree) {
  TJsonObject* object = aTree.AsObject();
  if (object == nullptr) return;
  for (int i = 0; i < object->Count(); ++i) Require(object->IndexOf(object->GetNameView(i)) <= i);
  object->SetInt("added by the editor", 1);
  if (object->Count() > 1) object->Delete(0);
  Require(object->GetType("added by the editor") != jdtNone);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize) {
  // A copy of its own lets the sanitizer see a read beyond the end.
  const std::string text(reinterpret_cast<const char*>(aData), aSize);
  try {
    const auto tree = TJsonBaseObject::Parse(text);
    if (tree == nullptr) return 0;
    const std::string compact = tree->ToJSON(true);
    Require(TJsonBaseObject::Parse(compact)->ToJSON(true) == compact);
    Require(TJsonBaseObject::Parse(tree->ToJSON(false))->ToJSON(true) == compact);
    const auto copy = tree->Clone();
    Convert(*tree);
    Edit(*tree);
    Require(copy->ToJSON(true) == compact);
    copy->FromJSON(compact);
    Require(copy->ToJSON(true) == compact);
    tree->GetPath(std::string_view(text).substr(0, 100));
  } catch (const EJsonException&) {
  }
  return 0;
}
