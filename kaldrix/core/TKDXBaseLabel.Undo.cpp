// Undo and redo.
#include "kaldrix/core/TKDXBaseLabel.hpp"

#include "kaldrix/core/Commands.hpp"
#include "kaldrix/core/ItemSweep.hpp"
#include "kaldrix/core/TNoticeHold.hpp"
#include "kaldrix/platform/TAtExit.hpp"

namespace Zor::inline Base {

namespace {

/// Asks for the commands that run soon, and for what they work on.
void FetchAhead(const TUndoStack& aStack) {
  constexpr int near = 6, far = 14;
  if (const TKDXCmd* command = aStack.AtDepth(far)) Fetch(command, sizeof(TKDXElePosCmd));
  if (const TKDXCmd* command = aStack.AtDepth(near)) command->FetchState();
}

}  // namespace

int TKDXBaseLabel::UnReID() {
  if (fUndoing || fRedoing) return fUnReRef;
  return fIncUnReID ? fUnReID++ : fUnReID;
}

void TKDXBaseLabel::HandOver(const TKDXCmd& aCommand, const TKDXBaseItem& aItem) {
  if (aCommand.IsAbout(aItem)) return;
  for (const TUndoStack* stack : {&fUndo, &fRedo}) {
    for (const std::unique_ptr<TKDXCmd>& other : *stack) {
      if (other->IsAboutTheSame(aCommand)) other->TakeReceiver(aItem);
    }
  }
}

void TKDXBaseLabel::FireUndoRedoEvent() {
  if (!fOnUndoRedoEvent) return;
  if (fHeldBack != nullptr) {
    fHeldBack->undoRedo = true;
    return;
  }
  Guarded([this] { fOnUndoRedoEvent(this, fUndo.IsEmpty(), fRedo.IsEmpty()); });
}

void TKDXBaseLabel::Undo() { RunCommands(fUndo, &TKDXCmd::Undo); }
void TKDXBaseLabel::Redo() { RunCommands(fRedo, &TKDXCmd::Redo); }

void TKDXBaseLabel::RunCommands(TUndoStack& aStack, void (TKDXCmd::*aStep)()) {
  if (aStack.IsEmpty()) return;
  const TNoticeHold hold(*this);
  bool moved = false;
  const TAtExit shown([&] {
    Refresh();
    FireUndoRedoEvent();
  });
  // Intended: the mirror of the first command still carries the reference as it stood before.
  fUnReRef = RunCommand(aStack, aStep, moved);
  while (!aStack.IsEmpty() && aStack.Top()->fUndRedID == fUnReRef) RunCommand(aStack, aStep, moved);
  CalcPending();
  if (moved) FillSelPoints();
}

int TKDXBaseLabel::RunCommand(TUndoStack& aStack, void (TKDXCmd::*aStep)(), bool& aMoved) {
  FetchAhead(aStack);
  std::unique_ptr<TKDXCmd> command = aStack.Pop();
  try {
    (command.get()->*aStep)();
  } catch (...) {
    aStack.Push(std::move(command));  // It can be tried again.
    throw;
  }
  const int kind = command->fKind;
  if (kind == TColorTraits::Kind || (kind >= TKDXPosCmd::Kind && kind <= TKDXElePosCmd::Kind)) {
    if (TKDXBaseItem* item = command->Receiver()) item->UpdateBounds();
    aMoved = true;
  }
  return command->fUndRedID;
}

}  // namespace Zor::inline Base
