#pragma once

#include <string>
#include <vector>

#include "kaldrix/json/ZOR.JsonDataObjects.hpp"
#include "kaldrix/platform/TRecord.hpp"

namespace Zor::inline Base {

class TKDXData;

/// A named list of values, one of which the user picks for a print.
class TZOValList {
 public:
  /// Enters its owner's list at its end.
  TZOValList(TKDXData& aOwner, const std::string& aName);
  TZOValList(const TZOValList&) = delete;
  TZOValList& operator=(const TZOValList&) = delete;

  /// Raises the message EmptyText for an empty name, and RepeatName for one that another of the list has.
  void SetName(const std::string& aName);
  /// A value that the list has already is not added.
  void AddValue(const std::string& aValue);
  void AssignValues(const std::vector<std::string>& aValues);
  bool DeleteValue(const std::string& aValue);
  const std::vector<std::string>& GetValues() const { return fValues; }

  void WriteData(TBinaryWriter& bW) const;
  void ReadData(int aVersion, TBinaryReader& bR);
  /// Appends one object.
  void WriteJson(TJsonArray& aArray) const;
  void ReadJson(int aVersion, TJsonObject& aJson);

  TKDXData* fOwner;
  std::string fName;
  std::string fAnsText;  ///< the picked value
  bool fActive = false;  ///< used on the present print
  std::vector<std::string> fValues;

 private:
  void Changed();
  void Record(TRecord& r);
};

}  // namespace Zor::inline Base
