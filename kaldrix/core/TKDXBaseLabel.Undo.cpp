// Undo and redo.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/ItemSweep.hpp"

namespace Zor::inline Base {

namespace {

/// Asks for the commands that run soon, and for what they work on.
void FetchAhead(const TUndoStack& aStack) {
  constexpr int near = 6, far = 14;
  if (const TKDXCmd* command = aStack.Below(far)) Fetch(command, sizeof(TKDXElePosCmd));
  if (const TKDXCmd* command = aStack.Below(near)) command->FetchState();
}

}  // namespace

int TKDXBaseLabel::UnReID() {
  if (fUndoing || fRedoing) return fUnReRef;
  return fIncUnReID ? fUnReID++ : fUnReID;
}

void TKDXBaseLabel::FireUndoRedoEvent() {
  if (fOnUndoRedoEvent) fOnUndoRedoEvent(this, fUndo.IsEmpty(), fRedo.IsEmpty());
}

void TKDXBaseLabel::Undo() { RunCommands(fUndo, &TKDXCmd::Undo); }
void TKDXBaseLabel::Redo() { RunCommands(fRedo, &TKDXCmd::Redo); }

void TKDXBaseLabel::RunCommands(TUndoStack& aStack, void (TKDXCmd::*aStep)()) {
  if (aStack.IsEmpty()) return;
  bool moved = false;
  const auto run = [&] {
    FetchAhead(aStack);
    const std::unique_ptr<TKDXCmd> command = aStack.Pop();
    (command.get()->*aStep)();
    const int kind = command->fKind;
    if (kind == TColorTraits::Kind || (kind >= TKDXPosCmd::Kind && kind <= TKDXElePosCmd::Kind)) {
      if (TKDXBaseItem* item = command->Receiver()) item->UpdateBounds();
      moved = true;
    }
    return command->fUndRedID;
  };
  // Intended: the mirror of the first command still carries the reference as it stood before.
  fUnReRef = run();
  while (!aStack.IsEmpty() && aStack.Top()->fUndRedID == fUnReRef) run();
  CalcPending();
  if (moved) FillSelPoints();
  Refresh();
  FireUndoRedoEvent();
}

}  // namespace Zor::inline Base
