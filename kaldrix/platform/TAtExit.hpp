#pragma once

#include <utility>

namespace Zor {

/// Runs its action when the scope ends, however it ends. The action must not throw.
template <class TAction>
class TAtExit {
 public:
  explicit TAtExit(TAction aAction) : fAction(std::move(aAction)) {}
  TAtExit(const TAtExit&) = delete;
  TAtExit& operator=(const TAtExit&) = delete;
  ~TAtExit() { fAction(); }

 private:
  TAction fAction;
};

}  // namespace Zor
