#pragma once

#include <string>

namespace Zor::Program {

/// A line on standard error that tells how far long work has come; nothing where that is no terminal.
class ProgressLine {
 public:
  explicit ProgressLine(bool aQuiet);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// At most a few times a second.
  void Show(const std::string& aWhat, int aDone, int aAll);
  /// Takes the line away, so that something else can be said.
  void Clear();

 private:
  bool fShown = false;
  const bool fOn;
  double fLast = -1;  ///< seconds
};

}  // namespace Zor::Program
