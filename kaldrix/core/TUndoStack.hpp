#pragma once

#include <memory>
#include <vector>

namespace Zor::inline Base {

class TKDXCmd;

/// A stack of commands, which it owns. Its depth is not limited.
class TUndoStack {
 public:
  TUndoStack();
  ~TUndoStack();
  TUndoStack(TUndoStack&&) noexcept;
  TUndoStack& operator=(TUndoStack&&) noexcept;

  bool IsEmpty() const { return fCommands.empty(); }
  int Count() const { return static_cast<int>(fCommands.size()); }
  TKDXCmd* Top() const { return fCommands.empty() ? nullptr : fCommands.back().get(); }
  /// The command so many below the top, which is 0; or none.
  TKDXCmd* AtDepth(int aDepth) const {
    return Count() > aDepth ? fCommands[fCommands.size() - 1 - static_cast<std::size_t>(aDepth)].get()
                            : nullptr;
  }
  auto begin() const { return fCommands.begin(); }
  auto end() const { return fCommands.end(); }
  void Push(std::unique_ptr<TKDXCmd> aCommand);
  std::unique_ptr<TKDXCmd> Pop();
  void Clear();
  /// Frees the commands above so many.
  void Shrink(int aCount);

 private:
  std::vector<std::unique_ptr<TKDXCmd>> fCommands;
};

}  // namespace Zor::inline Base
