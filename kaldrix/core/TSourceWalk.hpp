#pragma once

#include <string>
#include <vector>

#include "kaldrix/types/Numbers.hpp"

namespace Zor::inline Jsondataobjects {
class TJsonObject;
}

namespace Zor::inline Base {

/// An open source, of which one record is current. A new one stands on its first record.
class TSourceWalk {
 public:
  TSourceWalk() = default;
  TSourceWalk(const TSourceWalk&) = delete;
  TSourceWalk& operator=(const TSourceWalk&) = delete;
  virtual ~TSourceWalk() = default;

  virtual int Records() const = 0;
  /// 1-based; 1 when there is none.
  virtual int Record() const = 0;
  /// What TKDXData::fPos tells: for a text file the 1-based line of the record.
  virtual int Position() const { return Record(); }
  /// False, and nothing moves, when there is no such record. 1-based.
  virtual bool GoTo(int aRecord) = 0;
  /// False on the last record, which stays current.
  virtual bool Next() = 0;

  /// Takes the field that tells how many labels a record gives; false when there is none of that name.
  virtual bool TakeRepeat(const std::string& aField) = 0;
  /// What that field says for the current record; 0 and less is none.
  virtual Int64 Repeat() const = 0;
  /// The labels of all records together, held at the end of Int64. Leaves the first record current.
  virtual Int64 SumRepeats();

  virtual std::string Value(const std::string& aField, const std::string& aFormat) const = 0;
  /// The current record of a JSON source; none for another, and where the record is no object.
  virtual const TJsonObject* JsonRecord() const { return nullptr; }

  /// What is wrong with the current record, and with the names of the fields: a line of text each that names
  /// the place.
  virtual std::vector<std::string> RecordProblems() const { return {}; }
  virtual std::vector<std::string> HeaderProblems() { return {}; }
};

}  // namespace Zor::inline Base
