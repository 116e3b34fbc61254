#pragma once

#include <memory>

#include "kaldrix/core/TJsonRows.hpp"
#include "kaldrix/core/TSourceWalk.hpp"

namespace Zor::inline Base {

/// The walk of an array of objects in a JSON text.
class TJsonWalk final : public TSourceWalk {
 public:
  /// The array under a key of the text's object, which is parsed once; none when there is none. Raises
  /// EJsonParserException.
  static std::unique_ptr<TJsonWalk> Open(const std::string& aText, const std::string& aKey);
  /// The same of a file, whose elements are parsed one at a time.
  static std::unique_ptr<TJsonWalk> Open(std::shared_ptr<const TJsonFile> aFile, const std::string& aKey);

  int Records() const override { return fRows->Count(); }
  int Record() const override { return fRecord; }
  bool GoTo(int aRecord) override;
  bool Next() override { return GoTo(fRecord + 1); }
  bool TakeRepeat(const std::string& aField) override;
  Int64 Repeat() const override;
  std::string RepeatProblem() const override;
  /// Looks for it in all records, where need be.
  bool Offers(const std::string& aField) override;
  std::string Value(const std::string& aField, const std::string& aFormat) const override;
  std::string ExactValue(const std::string& aField, const std::string& aFormat) const override;
  const TJsonObject* JsonRecord() const override;
  std::vector<std::string> RecordProblems() const override;

 private:
  explicit TJsonWalk(std::unique_ptr<TJsonRows> aRows) : fRows(std::move(aRows)) {}
  /// What the repeat field of the current record holds; none when there is none.
  const TJsonDataValue* RepeatValue() const;

  std::unique_ptr<TJsonRows> fRows;
  std::string fRepeat;
  int fRecord = 1;
};

}  // namespace Zor::inline Base
