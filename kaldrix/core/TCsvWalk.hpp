#pragma once

#include "kaldrix/core/TSourceWalk.hpp"
#include "kaldrix/platform/TCsvFile.hpp"

namespace Zor::inline Base {

class TKDXData;

/// The walk of the lines of a text file, as the document's data describe it.
class TCsvWalk final : public TSourceWalk {
 public:
  /// Raises EFileNotFoundException and EStreamError.
  explicit TCsvWalk(const TKDXData& aData);

  int Records() const override;
  int Record() const override { return fRecord; }
  int Position() const override { return fFile->LineNumber(Line()); }
  bool GoTo(int aRecord) override;
  bool Next() override { return GoTo(fRecord + 1); }
  bool TakeRepeat(const std::string& aField) override;
  /// 1 where the column is no whole number.
  Int64 Repeat() const override;
  std::string RepeatProblem() const override;
  bool Offers(const std::string& aField) override;
  std::string Value(const std::string& aField, const std::string& aFormat) const override;
  std::string ExactValue(const std::string& aField, const std::string& aFormat) const override;
  std::vector<std::string> RecordProblems() const override;
  std::vector<std::string> HeaderProblems() override;

 private:
  /// The line of the current record, or the record of the file where it has records.
  int Line() const { return fRecord + fHeader; }
  std::vector<std::string> Told(const std::vector<TCsvProblem>& aProblems) const;

  const TKDXData& fData;
  std::shared_ptr<TCsvFile> fFile;
  int fHeader;  ///< lines in front of the first record: 0 or 1
  int fRecord = 1;
  int fRepeat = -1;  ///< column, 0-based
};

}  // namespace Zor::inline Base
