#pragma once

#include <optional>
#include <string>

#include "kaldrix/host/TRunWriter.hpp"

namespace Zor::Program {

/// What a run would print, without printing it.
class PrintReport {
 public:
  explicit PrintReport(const TLabelRun& aRun) : fRun(aRun) {}

  /// Takes the labels, in turn.
  void Take(const TRunLabel& aLabel);
  /// Labels, pages, what the first and the last label show, and the files: a line each.
  std::string Text(const std::vector<std::string>& aFiles) const;

 private:
  const TLabelRun& fRun;
  std::optional<TRunLabel> fFirst, fLast;
};

}  // namespace Zor::Program
