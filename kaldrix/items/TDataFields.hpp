#pragma once

#include <string>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"
#include "kaldrix/types/Enumerations.hpp"

namespace Zor::inline Base {

class TKDXBaseLabel;

/// The binding of an item to a data field.
class TDataFields {
 public:
  std::string fField, fFormat;
  TZORFillType fFillType = ftNone;

 protected:
  ~TDataFields() = default;

  /// Takes a binding. The marker of a pick-list line (@ { ~ = ?) at the beginning of the name decides the
  /// kind before `aType` does; a name with the text for "unassigned" in it takes the binding away.
  void Bind(TZORFillType aType, const std::string& aName, const std::string& aFormat);
  bool IsBound() const { return fFillType != ftNone && !fField.empty(); }
  std::string SymField() const;
  /// The kind while the document is linked to data, else ftNone.
  TZORFillType ActiveFill(const TKDXBaseLabel& aOwner) const;
  /// Has the document a value for the field?
  bool HasValue(const TKDXBaseLabel& aOwner) const;
  /// That value; only after HasValue.
  std::string Value(const TKDXBaseLabel& aOwner) const;

  /// Adds "Data".
  void WriteJsonData(TJsonObject& aJson) const;
  /// Reads "Data". Raises EJsonException naming the key.
  void ReadJsonData(TJsonObject& aJson);
};

}  // namespace Zor::inline Base
