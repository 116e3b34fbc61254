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
  /// Empty, or why that field tells no whole number for the current record: a line of text that names it.
  virtual std::string RepeatProblem() const = 0;
  /// What Repeat says, but 1 for a record with a RepeatProblem when the walk is strict.
  Int64 Labels() const { return fStrict && !RepeatProblem().empty() ? 1 : Repeat(); }
  /// The labels of all records together, held at the end of Int64. Leaves the first record current.
  virtual Int64 SumLabels();
  void SetStrict(bool aValue) { fStrict = aValue; }
  bool IsStrict() const { return fStrict; }
  /// The first record with a RepeatProblem that SumLabels of a strict walk met; 0 for none.
  int FirstFault() const { return fFirstFault; }

  /// Has a record that field? Leaves the current record as it is.
  virtual bool Offers(const std::string& aField) = 0;

  virtual std::string Value(const std::string& aField, const std::string& aFormat) const = 0;
  /// The same; raises Exception where the text would not be what the record holds.
  virtual std::string ExactValue(const std::string& aField, const std::string& aFormat) const = 0;
  /// The current record of a JSON source; none for another, and where the record is no object.
  virtual const TJsonObject* JsonRecord() const { return nullptr; }

  /// What is wrong with the current record, and with the names of the fields: a line of text each that names
  /// the place.
  virtual std::vector<std::string> RecordProblems() const { return {}; }
  virtual std::vector<std::string> HeaderProblems() { return {}; }

 private:
  bool fStrict = false;
  int fFirstFault = 0;
};

}  // namespace Zor::inline Base
