#include "kaldrix/core/TUndoStack.hpp"

#include <utility>

#include "kaldrix/core/Commands.hpp"

namespace Zor::inline Base {

TUndoStack::TUndoStack() = default;
TUndoStack::~TUndoStack() = default;
TUndoStack::TUndoStack(TUndoStack&&) noexcept = default;
TUndoStack& TUndoStack::operator=(TUndoStack&&) noexcept = default;

void TUndoStack::Push(std::unique_ptr<TKDXCmd> aCommand) { fCommands.push_back(std::move(aCommand)); }

std::unique_ptr<TKDXCmd> TUndoStack::Pop() {
  std::unique_ptr<TKDXCmd> command = std::move(fCommands.back());
  fCommands.pop_back();
  return command;
}

void TUndoStack::Clear() { fCommands.clear(); }

void TUndoStack::Shrink(int aCount) {
  while (Count() > aCount) fCommands.pop_back();
}

}  // namespace Zor::inline Base
