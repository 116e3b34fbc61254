// Listens to a document while it is edited and while the edits are taken back.
#include <iostream>

#include "kaldrix/host/Host.hpp"

namespace {

/// A view would draw itself again here.
class TView final : public Zor::IZOObserver {
 public:
  Zor::TZODestUpdate Destination() override { return Zor::duEditor; }
  void Update(Zor::TZOChange aChange, const Zor::TZOChangeValue&) override {
    if (aChange == Zor::chPaint) ++fPaints;
  }
  int fPaints = 0;
};

}  // namespace

int main() {
  Zor::TKDXLabel label;
  TView view;
  label.Attach(&view);

  auto* line = label.NewLine(0, 0, 10000, 10000);
  {
    const Zor::TUpdateBracket bracket(label);
    line->SetColor(0xFF1E88E5);
    line->SetLineType(Zor::ii21);
    line->BaseMove(5000, 0, 0, 0, Zor::moAll, true);
  }
  std::cout << "edited: starts at " << line->GetPointX(1) << " mm, " << view.fPaints << " paint\n";

  label.Undo();
  std::cout << "undone: starts at " << line->GetPointX(1) << " mm, line type " << int{line->GetLineType()}
            << '\n';
  while (!label.IsRedoEmpty()) label.Redo();
  std::cout << "redone: starts at " << line->GetPointX(1) << " mm, line type " << int{line->GetLineType()}
            << '\n';
}
