#pragma once

#include <memory>

#include "kaldrix/core/TSourceWalk.hpp"
#include "kaldrix/json/ZOR.JsonDataObjects.hpp"

namespace Zor::inline Base {

/// The walk of an array of objects in a JSON text, parsed once.
class TJsonWalk final : public TSourceWalk {
 public:
  /// The array under a key of the text's object; none when there is none. Raises EJsonParserException.
  static std::unique_ptr<TJsonWalk> Open(const std::string& aText, const std::string& aKey);

  int Records() const override { return fRows.Count(); }
  int Record() const override { return fRecord; }
  bool GoTo(int aRecord) override;
  bool Next() override { return GoTo(fRecord + 1); }
  bool TakeRepeat(const std::string& aField) override;
  Int64 Repeat() const override;
  std::string Value(const std::string& aField, const std::string& aFormat) const override;
  const TJsonObject* JsonRecord() const override;
  std::vector<std::string> RecordProblems() const override;

 private:
  TJsonWalk(std::unique_ptr<TJsonBaseObject> aRoot, TJsonArray& aRows)
      : fRoot(std::move(aRoot)), fRows(aRows) {}

  std::unique_ptr<TJsonBaseObject> fRoot;
  TJsonArray& fRows;
  std::string fRepeat;
  int fRecord = 1;
};

}  // namespace Zor::inline Base
