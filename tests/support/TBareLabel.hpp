// The bare host, and an observer that remembers what it was told.
#pragma once

#include <vector>

#include "kaldrix/editor/TBareLabel.hpp"

namespace Zor {

class TRecordingObserver final : public IZOObserver {
 public:
  explicit TRecordingObserver(TZODestUpdate aKind) : fKind(aKind) {}
  TZODestUpdate Destination() override { return fKind; }
  void Update(TZOChange aChange, const TZOChangeValue& aValue) override {
    fChanges.push_back(aChange);
    fValues.push_back(aValue);
  }

  TZODestUpdate fKind;
  std::vector<TZOChange> fChanges;
  std::vector<TZOChangeValue> fValues;
};

}  // namespace Zor
