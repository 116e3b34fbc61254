#pragma once

#include "kaldrix/core/TSourceWalk.hpp"
#include "kaldrix/platform/TDataSet.hpp"

namespace Zor::inline Base {

/// The walk of a data set, which is not owned.
class TDatasetWalk final : public TSourceWalk {
 public:
  explicit TDatasetWalk(TDataSet& aDataset);

  int Records() const override;
  int Record() const override { return fRecord; }
  bool GoTo(int aRecord) override;
  bool Next() override;
  bool TakeRepeat(const std::string& aField) override;
  Int64 Repeat() const override;
  std::string RepeatProblem() const override;
  Int64 SumLabels() override;
  bool Offers(const std::string& aField) override { return fDataset.FindField(aField) != nullptr; }
  std::string Value(const std::string& aField, const std::string& aFormat) const override;
  std::string ExactValue(const std::string& aField, const std::string& aFormat) const override;
  /// Only the first of several columns of a name can be told.
  std::vector<std::string> HeaderProblems() override;

 private:
  TDataSet& fDataset;
  std::string fRepeat;
  int fRecord = 1;
};

}  // namespace Zor::inline Base
