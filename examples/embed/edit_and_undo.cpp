// Edits as one step of undo, also when an exception ends them, and items over an undo.
#include <iostream>
#include <stdexcept>

#include "kaldrix/host/Host.hpp"

namespace {

/// Moves and paints a line; with `aFail` it gives up halfway.
void Restyle(Zor::TKDXLabel& aLabel, int aID, bool aFail) {
  const Zor::TUpdateBracket bracket(aLabel);  // closes with the scope, and nests
  auto* line = dynamic_cast<Zor::TKDXBaseLine*>(aLabel.SearchItem(aID, false));
  if (line == nullptr) throw std::runtime_error("the line is gone");
  line->BaseMove(5000, 0, 0, 0, Zor::moAll, true);
  if (aFail) throw std::runtime_error("halfway");
  line->SetColor(0xFF1E88E5);  // 0xAARRGGBB
}

void Tell(Zor::TKDXLabel& aLabel, int aID, const char* aWhen) {
  const Zor::TKDXBaseItem* line = aLabel.SearchItem(aID, false);
  std::cout << aWhen << ": ";
  if (line == nullptr) {
    std::cout << "no line\n";
  } else {
    std::cout << "x " << line->GetPointX(1) << " mm, colour " << std::hex << line->GetColor() << std::dec
              << '\n';
  }
}

}  // namespace

int main() {
  Zor::TKDXLabel label;
  const int id = label.NewLine(0, 0, 10000, 10000)->fInID;  // keep this, not the pointer

  Restyle(label, id, false);
  Tell(label, id, "edited");
  label.Undo();
  Tell(label, id, "undone");

  try {
    Restyle(label, id, true);
  } catch (const std::runtime_error& error) {
    std::cout << error.what() << ", and the bracket is closed\n";
  }
  Tell(label, id, "broken off");
  label.Undo();  // what was done before the exception is a step of its own
  Tell(label, id, "undone");

  label.DeleteItem(label.SearchItem(id, false), true);
  Tell(label, id, "deleted");
  label.Undo();  // another object, the same identity
  Tell(label, id, "undone");
}
